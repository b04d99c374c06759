// What check tells of text that a save loses, against the tokens of the file and of its save.

#include <QtTest>
#include <algorithm>
#include <set>

#include "check.h"
#include "lexed_tokens.h"
#include "savefindings.h"
#include "scribonspecs_tokens.h"
#include "spec_texts.h"

namespace {

constexpr unsigned SEEDS = 1500;

SpecFile fileOf(const QByteArray& text)
{
    return SpecFile::fromBytes(text, QStringLiteral("scrib"));
}

using Words = std::multiset<std::string>;

// The tokens of a text that are neither blanks nor line ends.
Words wordsOf(const QByteArray& text)
{
    Words words;
    for (const LexedToken& token : lexText(text.toStdString())) {
        if (token.type != TOKEN_EOL && token.channel == 0)
            words.insert(QByteArray::fromStdString(token.text).trimmed().toStdString());
    }
    return words;
}

QVector<Finding> findingsOf(const FileReport& report, Rule rule)
{
    QVector<Finding> found;
    std::copy_if(report.findings.begin(), report.findings.end(), std::back_inserter(found),
                 [rule](const Finding& finding) { return finding.rule == rule; });
    return found;
}

bool tellsOfSave(const FileReport& report)
{
    const auto isOfSave = [](const Finding& finding) {
        return finding.rule == Rule::LostText || finding.rule == Rule::ShiftedEntries ||
               finding.rule == Rule::SaveRefused || finding.rule == Rule::SaveUnstable;
    };
    return std::any_of(report.findings.begin(), report.findings.end(), isOfSave);
}

// The texts of all rows that have any, a row in a line.
QStringList tablesOf(const SpecFile& file)
{
    QStringList rows;
    for (int tab = 0; tab < TAB_COUNT; ++tab) {
        const TreeModel& table = file.table(tab);
        for (int row = 0; row < table.rowCount(); ++row) {
            QStringList cells;
            for (int column = 0; column < table.columnCount(); ++column)
                cells.append(file.cellText({tab, row, column}));
            rows.append(QString::number(tab) + cells.join(QLatin1Char('|')));
        }
    }
    return rows;
}

// "rule line:column text" of each finding but missing keywords.
QStringList linesOf(const QByteArray& text)
{
    QStringList lines;
    for (const Finding& finding : checkFile(fileOf("@SCRIBON\nx\n" + text), {}).findings) {
        if (finding.rule != Rule::MissingKeyword)
            lines.append(QStringLiteral("%1 %2:%3 %4")
                             .arg(QLatin1String(factsOf(finding.rule).name))
                             .arg(finding.place.line)
                             .arg(finding.place.column)
                             .arg(finding.message.section(QLatin1Char(';'), 0, 0)));
    }
    return lines;
}

}  // namespace

class TestSpecLosses : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void causes_data();
    void causes();
    void nothingIsLostUntold();
    void whatIsToldIsLost();
    void findingsOfCellsHaveTheTextsOfTheirPlaces();
    void countsAreThoseOfTheModels();
    void filesThatAreReadAlikeComeThroughASave();
    void savesOfFilesWithoutLossHaveTheSameTables();
};

void TestSpecLosses::causes_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QStringList>("lines");
    const auto row = [](const char* name, const QByteArray& text, const QStringList& lines) {
        QTest::newRow(name) << text << lines;
    };
    row("a clean file", "@GROUP\ng\n@SCAN_LIST\nv C\n", {});
    row("unknown keyword", "@FOO bar\n@GROUP\ng\n",
        {QStringLiteral("lost-text 3:1 unknown keyword"),
         QStringLiteral("syntax 3:1 Syntax Error!")});
    row("member without channel", "@SCAN_LIST\nv .AV\nw C\n",
        {QStringLiteral("syntax 4:1 Invalid chars in keyword"),
         QStringLiteral("lost-text 4:3 statistical member without a channel keyword")});
    row("number in a list", "@SCAN_LIST\nv C\n5 D\nw E\n",
        {QStringLiteral("lost-text 5:1 number in place of a name")});
    row("open quote", "@GROUP 'abc\n@MODE\nm\n",
        {QStringLiteral("lost-text 3:8 quote without its end")});
    row("quoted text in the Scan List", "@SCAN_LIST\nv C\n'text'\n",
        {QStringLiteral("lost-text 5:1 quoted text where none belongs")});
    row("foreign characters", "@GROUP\n\xc3\x96g\n",
        {QStringLiteral("lost-text 4:1 characters that stand only in quotes and comments")});
    row("path at the end of the file", "@OUTPUT_PATH\n/data",
        {QStringLiteral("lost-text 4:1 text that belongs to no statement")});
    row("PAM keyword alone", "@META_DATA\nP1 v\nP2\nP3 w\n",
        {QStringLiteral("shifted-entries 5:1 entry without a second value"),
         QStringLiteral("syntax 6:4 Invalid chars in variable name")});
    row("text that becomes another keyword's value",
        "@LOG_STATISTICS\n@SCAN_LIST_AUX_USER\n.AV @GROUP\ng\n",
        {QStringLiteral("syntax 3:1 Syntax Error!"),
         QStringLiteral("shifted-entries 3:1 after a save, the next load reads what is here in "
                        "other cells"),
         QStringLiteral("syntax 5:1 Invalid keyword found!")});
    row("bytes that are not UTF-8", "#\xff\n",
        {QStringLiteral("encoding 3:2 bytes that are not UTF-8")});
}

void TestSpecLosses::causes()
{
    QFETCH(QByteArray, text);
    QFETCH(QStringList, lines);
    QCOMPARE(linesOf(text), lines);
}

void TestSpecLosses::nothingIsLostUntold()
{
    for (unsigned seed = 0; seed < SEEDS; ++seed) {
        const SpecFile file = fileOf(specText(seed));
        if (file.state() != SpecFile::State::Loaded ||
            !findingsOf(checkFile(file, {}), Rule::LostText).empty())
            continue;
        const Words before = wordsOf(file.bytes());
        const Words after = wordsOf(file.savedBytes());
        QVERIFY2(std::includes(after.begin(), after.end(), before.begin(), before.end()),
                 file.bytes().constData());
    }
}

void TestSpecLosses::whatIsToldIsLost()
{
    for (unsigned seed = 0; seed < SEEDS; ++seed) {
        const SpecFile file = fileOf(specText(seed));
        if (file.state() != SpecFile::State::Loaded)
            continue;
        const Words before = wordsOf(file.bytes());
        const QVector<Finding> told = findingsOf(checkFile(file, {}), Rule::LostText);
        const auto isWord = [&before](const Finding& finding) {
            return before.count(finding.text.toStdString()) == 1;
        };
        if (!std::any_of(told.begin(), told.end(), isWord))
            continue;
        const SpecFile again = fileOf(file.savedBytes());
        if (again.state() != SpecFile::State::Loaded)
            continue;
        const Words after = wordsOf(again.savedBytes());
        QVERIFY2(!std::includes(after.begin(), after.end(), before.begin(), before.end()),
                 file.bytes().constData());
    }
}

void TestSpecLosses::findingsOfCellsHaveTheTextsOfTheirPlaces()
{
    int compared = 0;
    for (unsigned seed = 0; seed < SEEDS; ++seed) {
        const SpecFile file = fileOf(specText(seed));
        for (const Finding& finding : checkFile(file, {}).findings) {
            if (!finding.cell.isValid() || finding.range.size == 0)
                continue;
            QCOMPARE(file.textOf(finding.range).trimmed(), finding.text.trimmed());
            ++compared;
        }
    }
    QVERIFY(compared > 1000);
}

void TestSpecLosses::countsAreThoseOfTheModels()
{
    for (unsigned seed = 0; seed < SEEDS; ++seed) {
        const FileReport report = checkFile(fileOf(specText(seed)), {});
        std::array<int, TAB_COUNT> found{};
        for (const Finding& finding : report.findings) {
            if (finding.rule == Rule::Syntax || finding.rule == Rule::Duplicate)
                ++found[static_cast<size_t>(finding.cell.tab)];
        }
        QVERIFY2(found == report.errors, qPrintable(QString::number(seed)));
    }
}

void TestSpecLosses::filesThatAreReadAlikeComeThroughASave()
{
    int alike = 0;
    for (unsigned seed = 0; seed < SEEDS; ++seed) {
        const SpecFile file = fileOf(specText(seed));
        if (file.state() != SpecFile::State::Loaded)
            continue;
        const QByteArray saved = file.savedBytes();
        if (!isReadAlike(file.bytes(), saved))
            continue;
        ++alike;
        const SpecFile again = fileOf(saved);
        QVERIFY2(again.state() == SpecFile::State::Loaded, file.bytes().constData());
        QCOMPARE(again.savedBytes(), saved);
    }
    QVERIFY(alike > 20);
}

void TestSpecLosses::savesOfFilesWithoutLossHaveTheSameTables()
{
    int compared = 0;
    for (unsigned seed = 0; seed < SEEDS; ++seed) {
        const SpecFile file = fileOf(specText(seed));
        if (file.state() != SpecFile::State::Loaded || tellsOfSave(checkFile(file, {})))
            continue;
        const SpecFile again = fileOf(file.savedBytes());
        QVERIFY(again.state() == SpecFile::State::Loaded);
        QVERIFY2(tablesOf(again) == tablesOf(file), file.bytes().constData());
        ++compared;
    }
    QVERIFY(compared > 100);
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, TestSpecLosses)
#include "tst_spec_losses.moc"
