// scribon-spec show.

#include "commands.h"
#include "inputs.h"
#include "loadedfile.h"
#include "tableforms.h"

namespace {

const QString FORMAT = QStringLiteral("format");
const QString FALLBACK = QStringLiteral("fallback");

void addOptions(QCommandLineParser* parser)
{
    parser->setApplicationDescription(
        QStringLiteral("Prints the five tables of spec files, one row a line.\n"
                       "Status 0: all printed; 2: trouble."));
    parser->addOptions(
        {{FORMAT, QStringLiteral("Print text, csv, json or html."), QStringLiteral("FORMAT"),
          QStringLiteral("text")},
         {FALLBACK, QStringLiteral("Print a file that is no spec file as it is (text only).")}});
    addFileArguments(parser);
}

class Showing {
public:
    Showing(const TableForm& form, bool fallsBack) : m_form(form), m_fallsBack(fallsBack) {}

    // Stops when standard output cannot be written.
    int run(const QStringList& files);

private:
    void show(const QString& name);
    void printPart(const QByteArray& bytes);

    const TableForm& m_form;
    bool m_fallsBack;
    bool m_isFirst = true;
    int m_status = EXIT_CLEAN;
};

void Showing::printPart(const QByteArray& bytes)
{
    if (!m_isFirst)
        print(m_form.separator());
    m_isFirst = false;
    print(bytes);
}

void Showing::show(const QString& name)
{
    const SpecFile file = SpecFile::read(name);
    if (m_fallsBack && file.state() == SpecFile::State::Refused)
        printPart(file.bytes());
    else if (isLoaded(file))
        printPart(m_form.file(file));
    else
        m_status = EXIT_TROUBLE;
}

int Showing::run(const QStringList& files)
{
    print(m_form.head());
    for (auto name = files.begin(); name != files.end() && hasPrintedAll(); ++name)
        show(*name);
    print(m_form.foot());
    return m_status;
}

}  // namespace

int runShow(const QStringList& arguments)
{
    QCommandLineParser parser;
    addOptions(&parser);
    const int status = parseArguments(arguments, &parser);
    if (status >= 0)
        return status;
    const QStringList files = inputFiles(parser.positionalArguments());
    if (files.isEmpty())
        return complainOfNoFiles(parser.positionalArguments(), QStringLiteral("show"));
    const QString format = parser.value(FORMAT);
    const auto form = tableFormOfName(format, files.size() > 1);
    if (form == nullptr)
        return complain(QStringLiteral("--format takes text, csv, json or html"));
    const bool fallsBack = parser.isSet(FALLBACK);
    if (fallsBack && format != QLatin1String("text"))
        return complain(QStringLiteral("--fallback is for text only"));
    return Showing(*form, fallsBack).run(files);
}
