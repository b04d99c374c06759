#include "specfile.h"

#include <QFile>
#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

#include "editor_antlr3.h"
#include "memoryfile.h"
#include "treeitem.h"

namespace {

constexpr std::array<int, TAB_COUNT> EDIT_TABS{EDIT_TAB1, EDIT_TAB2, EDIT_TAB3, EDIT_TAB4,
                                               EDIT_TAB5};
const auto STANDARD_INPUT = QStringLiteral("-");

std::vector<int> lineStartsOf(const QByteArray& bytes)
{
    std::vector<int> starts{0};
    for (int at = bytes.indexOf('\n'); at >= 0; at = bytes.indexOf('\n', at + 1))
        starts.push_back(at + 1);
    return starts;
}

QString problemOf(int error, const QString& path)
{
    if (error == EINVAL)
        return QStringLiteral("not a regular file");
    if (error == ENOENT && path.contains(QChar(QChar::ReplacementCharacter)))
        return QStringLiteral("its name is not UTF-8");
    return QString::fromLocal8Bit(std::strerror(error));
}

SpecFile readStandardInput(const QString& name)
{
    QFile input;
    QByteArray bytes;
    if (input.open(stdin, QIODevice::ReadOnly))
        bytes = input.readAll();
    return input.error() == QFileDevice::NoError ? SpecFile::fromBytes(bytes, name)
                                                 : SpecFile::unreadable(name, input.errorString());
}

}  // namespace

// ---- Places of cells ----------------------------------------------------------------------------

void TabOrigins::appendRow(FileRange statement)
{
    m_statements.push_back(statement);
    m_ranges.resize(m_ranges.size() + static_cast<size_t>(m_columns));
}

void TabOrigins::setCell(int column, const QString& /*text*/, FileRange range)
{
    if (column >= 0 && column < m_columns)
        m_ranges[m_ranges.size() - static_cast<size_t>(m_columns - column)] = range;
}

FileRange TabOrigins::cell(int row, int column) const
{
    const auto columns = static_cast<size_t>(m_columns);
    return m_ranges[static_cast<size_t>(row) * columns + static_cast<size_t>(column)];
}

// ---- Reading ------------------------------------------------------------------------------------

SpecFile::SpecFile(QString name) : m_name(std::move(name)) {}
SpecFile::SpecFile(SpecFile&&) noexcept = default;
SpecFile& SpecFile::operator=(SpecFile&&) noexcept = default;
SpecFile::~SpecFile() = default;

SpecFile SpecFile::read(const QString& name)
{
    if (name == STANDARD_INPUT)
        return readStandardInput(QStringLiteral("<stdin>"));
    SpecFile file(name);
    file.load(name);
    return file;
}

SpecFile SpecFile::fromBytes(const QByteArray& bytes, const QString& name)
{
    SpecFile file(name);
    MemoryFile memory(MemoryFile::ForThisProcess);
    if (memory.write(bytes))
        file.load(memory.path());
    else
        file.m_problem = QString::fromLocal8Bit(std::strerror(errno));
    return file;
}

SpecFile SpecFile::unreadable(const QString& name, const QString& problem)
{
    SpecFile file(name);
    file.m_problem = problem;
    return file;
}

void SpecFile::load(const QString& path)
{
    const QByteArray localName = QFile::encodeName(path);
    resetParseState();
    const int error = preload_file(localName.constData());
    if (error != 0) {
        m_problem = problemOf(error, path);
        return;
    }
    const int result = read_file(localName.constData());
    const FileBytes file = getFileBytes();
    m_bytes = QByteArray(file.data, static_cast<int>(file.size));
    m_lineStarts = lineStartsOf(m_bytes);
    m_encoding = encodingOfFile();
    m_state = result == 0 ? State::Loaded : State::Refused;
    if (result == 0)
        makeTables();
}

void SpecFile::makeTables()
{
    for (size_t tab = 0; tab < TAB_COUNT; ++tab) {
        const auto editTab = static_cast<ANTLR3_UINT32>(EDIT_TABS[tab]);
        m_tables[tab] = std::make_unique<TreeModel>(headersOf(EDIT_TABS[tab]), getTree(), editTab);
        m_tables[tab]->setDirty();
        m_tables[tab]->validate_model();
        m_origins.emplace_back(m_tables[tab]->columnCount());
        readRows(getTree(), editTab, m_encoding, &m_origins.back());
    }
}

// ---- Places and texts ---------------------------------------------------------------------------

// Many places on one long line are asked for in their order, so each is counted from the one
// before.
FilePlace SpecFile::placeOf(size_t offset) const
{
    const int at = std::min(static_cast<int>(offset), m_bytes.size());
    const int line = lineNumberOf(offset);
    const int start = m_lineStarts[static_cast<size_t>(line - 1)];
    if (m_known.offset < start || m_known.offset > at)
        m_known = {start, 1};
    m_known.column +=
        decoded(m_encoding, m_bytes.constData() + m_known.offset, at - m_known.offset).size();
    m_known.offset = at;
    return {line, m_known.column};
}

int SpecFile::lineNumberOf(size_t offset) const
{
    const int at = std::min(static_cast<int>(offset), m_bytes.size());
    return static_cast<int>(std::upper_bound(m_lineStarts.begin(), m_lineStarts.end(), at) -
                            m_lineStarts.begin());
}

QString SpecFile::textOf(FileRange range) const
{
    return decoded(m_encoding, m_bytes.constData() + range.offset, static_cast<int>(range.size));
}

QString SpecFile::lineOf(size_t offset) const
{
    const int start = m_lineStarts[static_cast<size_t>(lineNumberOf(offset) - 1)];
    const int end = m_bytes.indexOf('\n', start);
    return decoded(m_encoding, m_bytes.constData() + start,
                   (end < 0 ? m_bytes.size() : end) - start);
}

QString SpecFile::cellText(const CellPlace& cell) const
{
    const QModelIndex index = table(cell.tab).index(cell.row, cell.column);
    const QString text = index.data(Qt::EditRole).toString().trimmed();
    return text == FILLER_TEXT ? QString() : text;
}

QByteArray SpecFile::savedBytes() const
{
    QString text;
    for (const auto& table : m_tables)
        text += table->specText();
    return encoded(encodingFor(text, m_encoding), text);
}
