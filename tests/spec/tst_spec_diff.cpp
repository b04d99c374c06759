// The comparison of two spec files, row by row.

#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>
#include <QTest>
#include <random>

#include "differencereports.h"
#include "document_generator.h"
#include "finding.h"
#include "json_schema.h"
#include "places.h"
#include "rowmatching.h"
#include "spec_program.h"

namespace {

constexpr unsigned DOCUMENTS = 60;
constexpr unsigned MUTATIONS = 300;
constexpr int MANY_ROWS = 20000;
constexpr int MANY_ROWS_MS = 5000;

using Rows = std::vector<TableRow>;

QStringList differenceLines(const QByteArray& before, const QByteArray& after)
{
    const SpecFile a = loadedSpec(before);
    const SpecFile b = loadedSpec(after);
    const QByteArray text = differencesAsText({a, b, differencesBetween(a, b)});
    QStringList lines = QString::fromUtf8(text).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (QString& line : lines)
        line = line.simplified();
    return lines.mid(2);
}

QByteArray scanList(const QByteArray& rows)
{
    return "@SCRIBON x\n@SCAN_LIST\n" + rows;
}

Rows rowsOfTexts(const std::vector<QStringList>& texts)
{
    Rows rows;
    for (const QStringList& row : texts) {
        rows.emplace_back();
        rows.back().number = static_cast<int>(rows.size());
        rows.back().line = rows.back().number;
        rows.back().texts = row;
    }
    return rows;
}

// A table with few different texts, so that many rows are alike.
Rows randomRows(std::mt19937* random)
{
    std::vector<QStringList> texts((*random)() % 12);
    for (QStringList& row : texts) {
        if ((*random)() % 4 == 0) {
            row = QStringList{"# %1"_s.arg((*random)() % 3), QString(), QString()};
        } else {
            row = QStringList{"v%1"_s.arg((*random)() % 3),
                              (*random)() % 2 == 0 ? QString() : ".AV"_s,
                              "C%1"_s.arg((*random)() % 6)};
        }
    }
    return rowsOfTexts(texts);
}

Rows mutated(Rows rows, std::mt19937* random)
{
    for (auto changes = (*random)() % 5; changes > 0 && !rows.empty(); --changes) {
        const size_t at = (*random)() % rows.size();
        const size_t other = (*random)() % rows.size();
        switch ((*random)() % 4) {
            case 0:
                rows.erase(rows.begin() + static_cast<long>(at));
                break;
            case 1:
                rows.insert(rows.begin() + static_cast<long>(at), rows[other]);
                break;
            case 2:
                std::swap(rows[at], rows[other]);
                break;
            default:
                rows[at].texts[2] = "C%1"_s.arg((*random)() % 6);
                break;
        }
    }
    std::vector<QStringList> texts;
    for (const TableRow& row : rows)
        texts.push_back(row.texts);
    return rowsOfTexts(texts);
}

bool staysInPlace(const RowDifference& difference)
{
    return difference.kind == RowDifference::Changed && !difference.isMoved;
}

// Rows that are told of, by their numbers. Those that stay in place have the other file's texts.
struct Told {
    QHash<int, QStringList> changed;
    QSet<int> gone;
};

Told toldBefore(const TabDifferences& differences)
{
    Told told;
    for (const RowDifference& difference : differences) {
        if (staysInPlace(difference))
            told.changed[difference.before.number] = difference.after.texts;
        else if (difference.kind != RowDifference::Added)
            told.gone.insert(difference.before.number);
    }
    return told;
}

Told toldAfter(const TabDifferences& differences)
{
    Told told;
    for (const RowDifference& difference : differences) {
        if (!staysInPlace(difference) && difference.kind != RowDifference::Removed)
            told.gone.insert(difference.after.number);
    }
    return told;
}

// The rows without those that are told to be elsewhere in, or not in, the other file.
std::vector<QStringList> remaining(const Rows& rows, const Told& told)
{
    std::vector<QStringList> texts;
    for (const TableRow& row : rows) {
        if (!told.gone.contains(row.number))
            texts.push_back(told.changed.value(row.number, row.texts));
    }
    return texts;
}

// Whether a moved row is told with the texts that it has in both files.
bool hasRightTexts(const TabDifferences& differences, const Rows& before, const Rows& after)
{
    const auto isRowOf = [](const TableRow& row, const Rows& rows) {
        return rows.at(static_cast<size_t>(row.number - 1)).texts == row.texts;
    };
    return std::all_of(differences.begin(), differences.end(),
                       [&](const RowDifference& difference) {
                           const bool equal = difference.before.texts == difference.after.texts;
                           return (difference.kind == RowDifference::Added ||
                                   isRowOf(difference.before, before)) &&
                                  (difference.kind == RowDifference::Removed ||
                                   isRowOf(difference.after, after)) &&
                                  equal == (difference.kind == RowDifference::Moved);
                       });
}

// Whoever removes from both tables what is told as removed, added and moved, and changes what is
// told as changed, has the same rows in the same order.
bool accountsForAll(const TabDifferences& told, const Rows& before, const Rows& after)
{
    return hasRightTexts(told, before, after) &&
           remaining(before, toldBefore(told)) == remaining(after, toldAfter(told));
}

// Each line may be dropped, doubled, or changed with the one before it.
QByteArray withMovedLines(const QByteArray& text, std::mt19937* random)
{
    QByteArrayList lines;
    for (const QByteArray& line : text.split('\n')) {
        const auto action = (*random)() % 12;
        lines.append(line);
        if (action == 0)
            lines.removeLast();
        else if (action == 1)
            lines.append(line);
        else if (action == 2 && lines.size() > 1)
            lines.swapItemsAt(lines.size() - 1, lines.size() - 2);
    }
    return "@SCRIBON x\n" + lines.join('\n');
}

JsonSchema differencesSchema()
{
    return JsonSchema(
        QJsonDocument::fromJson(
            readFile(QStringLiteral(SCRIBON_SPEC_SCHEMAS "/row-differences.schema.json")))
            .object());
}

}  // namespace

class tst_SpecDiff : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void differences_data();
    void differences();
    void sameFileHasNone();
    void layoutIsNoDifference();
    void differencesAccountForAll();
    void differencesOfDocumentsAccountForAll();
    void keptRowsAreTheMost_data();
    void keptRowsAreTheMost();
    void manyRows_data();
    void manyRows();

    void jsonTellsBothRows();
    void jsonFitsItsSchema();
    void schemaRefusesOtherForms();

    void exitStatus_data();
    void exitStatus();
    void standardInput();
};

void tst_SpecDiff::differences_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::addColumn<QStringList>("lines");

    QTest::newRow("keyword's value")
        << QByteArray("@SCRIBON x\n@MAX_SCANS 1\n") << QByteArray("@SCRIBON x\n@MAX_SCANS 2\n")
        << QStringList{"Keywords"_s, "changed 2 @MAX_SCANS 2"_s, "Value: 1 -> 2"_s};
    QTest::newRow("second value") << QByteArray("@SCRIBON x\n@RUNNING_AVERAGE 1[sec] go\n")
                                  << QByteArray("@SCRIBON x\n@RUNNING_AVERAGE 1[sec] take\n")
                                  << QStringList{"Keywords"_s,
                                                 "changed 2 @RUNNING_AVERAGE 1[sec] take"_s,
                                                 "Second Value: go -> take"_s};
    QTest::newRow("member added") << scanList("a A\n") << scanList("a .AV A\n")
                                  << QStringList{"Scan List"_s, "changed 1 a .AV A"_s,
                                                 "Statistical Member: (empty) -> .AV"_s};
    QTest::newRow("added") << scanList("a A\nc C\n") << scanList("a A\nb B\nc C\n")
                           << QStringList{"Scan List"_s, "added 2 b B"_s};
    QTest::newRow("removed") << scanList("a A\nb B\nc C\n") << scanList("a A\nc C\n")
                             << QStringList{"Scan List"_s, "removed 2 b B"_s};
    QTest::newRow("moved") << scanList("a A\nb B\nc C\n") << scanList("b B\nc C\na A\n")
                           << QStringList{"Scan List"_s, "moved 1 -> 3 a A"_s};
    QTest::newRow("by channel") << scanList("a .AV A\n") << scanList("b .MX A\n")
                                << QStringList{"Scan List"_s, "changed 1 b .MX A"_s,
                                               "Marvane Variable: a -> b"_s,
                                               "Statistical Member: .AV -> .MX"_s};
    QTest::newRow("by variable and member")
        << scanList("a .AV A\na .MX B\n") << scanList("a .AV A\na .MX C\n")
        << QStringList{"Scan List"_s, "changed 2 a .MX C"_s, "Channel Keyword: B -> C"_s};
    QTest::newRow("other member and channel")
        << scanList("a .AV A\n") << scanList("a .MX B\n")
        << QStringList{"Scan List"_s, "added 1 a .MX B"_s, "removed 1 a .AV A"_s};
    QTest::newRow("moved and changed")
        << scanList("a A\nb B\nc C\n") << scanList("b B\nc C\nd A\n")
        << QStringList{"Scan List"_s, "changed 1 -> 3 d A"_s, "Marvane Variable: a -> d"_s};
    QTest::newRow("changed behind an added row")
        << scanList("a A\n") << scanList("n N\nb A\n")
        << QStringList{"Scan List"_s, "added 1 n N"_s, "changed 1 -> 2 b A"_s,
                       "Marvane Variable: a -> b"_s};
    QTest::newRow("comment's text")
        << scanList("# a\nb B\n") << scanList("# c\nb B\n")
        << QStringList{"Scan List"_s, "added 1 # c"_s, "removed 1 # a"_s};
    QTest::newRow("one of equal comments")
        << scanList("#\na A\n#\nb B\n#\nc C\n") << scanList("a A\n#\nb B\n#\nc C\n")
        << QStringList{"Scan List"_s, "removed 1 #"_s};
    QTest::newRow("the last of equal rows") << scanList("a A\na A\na A\n") << scanList("a A\na A\n")
                                            << QStringList{"Scan List"_s, "removed 3 a A"_s};
    QTest::newRow("first of a channel twice")
        << scanList("a A\nb A\n") << scanList("c A\nd A\n")
        << QStringList{"Scan List"_s, "changed 1 c A"_s, "Marvane Variable: a -> c"_s,
                       "changed 2 d A"_s, "Marvane Variable: b -> d"_s};
    QTest::newRow("PAM keyword") << QByteArray("@SCRIBON x\n@META_DATA\nP a\nQ b\n")
                                 << QByteArray("@SCRIBON x\n@META_DATA\nP c\nR b\n")
                                 << QStringList{"Meta Data List"_s, "changed 1 P c"_s,
                                                "Marvane Variable: a -> c"_s, "changed 2 R b"_s,
                                                "PAM Keyword: Q -> R"_s};
    QTest::newRow("alternate name")
        << QByteArray("@SCRIBON x\n@SCAN_LIST_AUX_USER\na N\nb M\n")
        << QByteArray("@SCRIBON x\n@SCAN_LIST_AUX_USER\nc N\nb O\n")
        << QStringList{"Scan List Aux User"_s, "changed 1 c N"_s, "Marvane Variable: a -> c"_s,
                       "changed 2 b O"_s, "Alternate Name: M -> O"_s};
    QTest::newRow("ECM instance") << QByteArray("@SCRIBON x\n@ECM_LIST\n1 /s/a:E:0\n2 /s/b:E:0\n")
                                  << QByteArray("@SCRIBON x\n@ECM_LIST\n1 /s/c:E:0\n3 /s/b:E:0\n")
                                  << QStringList{"ECM List"_s, "changed 1 1 /s/c:E:0"_s,
                                                 "ASAM Specs Path: /s/a:E:0 -> /s/c:E:0"_s,
                                                 "changed 2 3 /s/b:E:0"_s, "Ext. Number: 2 -> 3"_s};
    QTest::newRow("equal row before equal channel")
        << scanList("a A\nb A\nb A\nz Z\n") << scanList("n N\nb A\nm M\nb A\no O\n")
        << QStringList{"Scan List"_s,   "added 1 n N"_s, "removed 1 a A"_s,
                       "added 3 m M"_s, "added 5 o O"_s, "removed 4 z Z"_s};
    QTest::newRow("comment behind its row")
        << scanList("#\na A\n#\nb B\nz Z\n") << scanList("n N\na A\n#\nb B\no O\n")
        << QStringList{"Scan List"_s, "added 1 n N"_s, "removed 1 #"_s, "added 5 o O"_s,
                       "removed 5 z Z"_s};
    QTest::newRow("comment before its row")
        << scanList("#\nx X\n#\na A\n") << scanList("n N\n#\na A\no O\n")
        << QStringList{"Scan List"_s, "added 1 n N"_s, "removed 1 #"_s, "removed 2 x X"_s,
                       "added 4 o O"_s};
    QTest::newRow("channel before variable")
        << scanList("a A\nb B\n") << scanList("b A\na C\n")
        << QStringList{"Scan List"_s, "changed 1 b A"_s, "Marvane Variable: a -> b"_s,
                       "added 2 a C"_s, "removed 2 b B"_s};
    QTest::newRow("one of equal comments in another place")
        << scanList("# a\n# a\na A\n") << scanList("a A\nn N\n# a\n")
        << QStringList{"Scan List"_s, "moved 3 -> 1 a A"_s, "added 2 n N"_s, "removed 2 # a"_s};
    QTest::newRow("removed row where it stood")
        << scanList("a A\nb B\nc C\n") << scanList("a A\nc C\nn N\n")
        << QStringList{"Scan List"_s, "removed 2 b B"_s, "added 3 n N"_s};
    QTest::newRow("line break") << QByteArray("@SCRIBON x\n@DESCRIPTION 'a\nb'\n")
                                << QByteArray("@SCRIBON x\n@DESCRIPTION 'a\nc'\n")
                                << QStringList{"Keywords"_s, "changed 2 @DESCRIPTION 'a\\nc'"_s,
                                               "Value: 'a\\nb' -> 'a\\nc'"_s};
}

void tst_SpecDiff::differences()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    QTEST(differenceLines(before, after), "lines");
}

void tst_SpecDiff::sameFileHasNone()
{
    for (unsigned seed = 1; seed <= DOCUMENTS; ++seed) {
        const QByteArray text = DocumentGenerator(seed).document();
        QCOMPARE(differenceLines(text, text), QStringList());
    }
    for (const QString& path : exampleSpecs())
        QCOMPARE(runSpec({"diff"_s, path, path}).output, QByteArray());
}

void tst_SpecDiff::layoutIsNoDifference()
{
    QCOMPARE(
        differenceLines("@SCRIBON x\n@SCAN_LIST\na   A\n", "@SCRIBON\n\nx\n\n@SCAN_LIST\n\ta A"),
        QStringList());
}

void tst_SpecDiff::differencesAccountForAll()
{
    std::mt19937 random(1);
    for (unsigned run = 0; run < MUTATIONS; ++run) {
        const Rows before = randomRows(&random);
        const Rows after = run % 5 == 0 ? randomRows(&random) : mutated(before, &random);
        const TabDifferences told = differencesBetween(DE_TAB2, before, after);
        QVERIFY(accountsForAll(told, before, after));
    }
}

void tst_SpecDiff::differencesOfDocumentsAccountForAll()
{
    std::mt19937 random(2);
    int compared = 0;
    for (unsigned seed = 1; seed <= DOCUMENTS; ++seed) {
        const QByteArray text = DocumentGenerator(seed).document();
        const SpecFile before = loadedSpec(text);
        const SpecFile after = SpecFile::fromBytes(withMovedLines(text, &random), "after"_s);
        if (after.state() != SpecFile::State::Loaded)
            continue;
        const SpecDifferences told = differencesBetween(before, after);
        for (int tab = 0; tab < TAB_COUNT; ++tab)
            QVERIFY(accountsForAll(told[static_cast<size_t>(tab)], rowsOf(before, tab),
                                   rowsOf(after, tab)));
        ++compared;
    }
    QVERIFY(compared > static_cast<int>(DOCUMENTS) / 2);
}

void tst_SpecDiff::keptRowsAreTheMost_data()
{
    QTest::addColumn<QVector<int>>("matches");
    QTest::addColumn<int>("kept");

    QTest::newRow("none") << QVector<int>{} << 0;
    QTest::newRow("all new") << QVector<int>{NO_ROW, NO_ROW} << 0;
    QTest::newRow("all in order") << QVector<int>{0, 1, 2} << 3;
    QTest::newRow("reversed") << QVector<int>{2, 1, 0} << 1;
    QTest::newRow("first to the end") << QVector<int>{1, 2, 3, 0} << 3;
    QTest::newRow("last to the front") << QVector<int>{3, 0, NO_ROW, 1, 2} << 3;
    QTest::newRow("two blocks") << QVector<int>{4, 5, 6, 0, 1, 2, 3} << 4;
    QTest::newRow("mixed") << QVector<int>{2, 0, 6, 1, 5, 3, 4} << 4;
}

void tst_SpecDiff::keptRowsAreTheMost()
{
    QFETCH(QVector<int>, matches);
    const std::vector<bool> kept = rowsInOrder({matches.begin(), matches.end()});
    QTEST(static_cast<int>(std::count(kept.begin(), kept.end(), true)), "kept");
    int last = NO_ROW;
    for (int row = 0; row < matches.size(); ++row) {
        if (!kept[static_cast<size_t>(row)])
            continue;
        QVERIFY(matches.at(row) > last);
        last = matches.at(row);
    }
}

void tst_SpecDiff::manyRows_data()
{
    QTest::addColumn<int>("texts");

    QTest::newRow("all different") << MANY_ROWS;
    QTest::newRow("all alike") << 1;
    QTest::newRow("pairs") << MANY_ROWS / 2;
}

// In reverse order and with one row less; ten times slower than this would be quadratic.
void tst_SpecDiff::manyRows()
{
    QFETCH(int, texts);
    std::vector<QStringList> rows;
    rows.reserve(MANY_ROWS);
    for (int row = 0; row < MANY_ROWS; ++row)
        rows.push_back({"v%1"_s.arg(row % texts), QString(), "C%1"_s.arg(row % texts)});
    const Rows before = rowsOfTexts(rows);
    rows.pop_back();
    std::reverse(rows.begin(), rows.end());
    QElapsedTimer timer;
    timer.start();
    QVERIFY(!differencesBetween(DE_TAB2, before, rowsOfTexts(rows)).empty());
    QVERIFY2(timer.elapsed() < MANY_ROWS_MS, qPrintable(QString::number(timer.elapsed())));
}

// ---- JSON ---------------------------------------------------------------------------------------

void tst_SpecDiff::jsonTellsBothRows()
{
    const SpecFile before = loadedSpec(scanList("a A\nb B\nc C\nx X\n"));
    const SpecFile after = loadedSpec(scanList("n N\nb B\nc C\nd A\n"));
    const QByteArray json = differencesAsJson({before, after, differencesBetween(before, after)});
    const QJsonArray differences =
        QJsonDocument::fromJson(json).object()["differences"_s].toArray();
    QStringList told;
    for (const QJsonValue difference : differences) {
        QCOMPARE(difference["tab"_s].toString(), "Scan List"_s);
        told.append("%1 %2 %3 %4"_s.arg(difference["change"_s].toString())
                        .arg(difference["moved"_s].toBool())
                        .arg(difference["before"_s]["row"_s].toInt())
                        .arg(difference["after"_s]["row"_s].toInt()));
    }
    QCOMPARE(told, (QStringList{"added 0 0 1"_s, "changed 1 1 4"_s, "removed 0 4 0"_s}));
    QCOMPARE(differences.at(1)["before"_s]["texts"_s].toArray(), (QJsonArray{"a"_s, ""_s, "A"_s}));
    QCOMPARE(differences.at(1)["after"_s]["texts"_s].toArray(), (QJsonArray{"d"_s, ""_s, "A"_s}));
    QCOMPARE(differences.at(1)["after"_s]["line"_s].toInt(), 6);
}

void tst_SpecDiff::jsonFitsItsSchema()
{
    const QStringList examples = exampleSpecs();
    for (int i = 1; i < examples.size(); ++i) {
        const SpecRun run =
            runSpec({"diff"_s, "--format"_s, "json"_s, examples.at(i - 1), examples.at(i)});
        QCOMPARE(run.status, 1);
        const QJsonObject root = QJsonDocument::fromJson(run.output).object();
        QVERIFY(!root["differences"_s].toArray().isEmpty());
        QCOMPARE(differencesSchema().faultIn(root), QString());
        QCOMPARE(root["before"_s].toString(), examples.at(i - 1));
    }
}

void tst_SpecDiff::schemaRefusesOtherForms()
{
    const QByteArray row = R"({"row":1,"line":1,"comment":false,"texts":["a","b"]})";
    const auto fault = [](const QByteArray& difference) {
        const QByteArray json =
            R"({"version":1,"before":"a","after":"b","differences":[)" + difference + "]}";
        return differencesSchema().faultIn(QJsonDocument::fromJson(json).object());
    };
    QCOMPARE(fault(R"({"tab":"ECM List","change":"moved","moved":true,"before":)" + row + "}"),
             QString());
    QVERIFY(!fault(R"({"tab":"ECM List","change":"gone","moved":true})").isEmpty());
    QVERIFY(!fault(R"({"tab":"ECM","change":"moved","moved":true})").isEmpty());
    QVERIFY(!fault(R"({"tab":"ECM List","change":"moved"})").isEmpty());
    QVERIFY(!fault(R"({"tab":"ECM List","change":"added","moved":false,"after":{}})").isEmpty());
}

// ---- The program --------------------------------------------------------------------------------

void tst_SpecDiff::exitStatus_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("status");
    QTest::addColumn<QByteArray>("complaint");

    QTest::newRow("same") << QStringList{"a"_s, "a"_s} << 0 << QByteArray();
    QTest::newRow("same in JSON") << QStringList{"--format"_s, "json"_s, "a"_s, "a"_s} << 0
                                  << QByteArray();
    QTest::newRow("different") << QStringList{"a"_s, "b"_s} << 1 << QByteArray();
    QTest::newRow("missing") << QStringList{"a"_s, "none"_s} << 2
                             << QByteArray("none: No such file");
    QTest::newRow("first refused")
        << QStringList{"refused"_s, "a"_s} << 2 << QByteArray("refused: not a spec file");
    QTest::newRow("one file") << QStringList{"a"_s} << 2 << QByteArray("two files");
    QTest::newRow("three files") << QStringList{"a"_s, "a"_s, "a"_s} << 2
                                 << QByteArray("two files");
    QTest::newRow("standard input twice")
        << QStringList{"-"_s, "-"_s} << 2 << QByteArray("two files");
    QTest::newRow("format") << QStringList{"--format"_s, "csv"_s, "a"_s, "a"_s} << 2
                            << QByteArray("--format takes text or json");
}

void tst_SpecDiff::exitStatus()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, complaint);
    const QTemporaryDir folder;
    QVERIFY(writeFile(folder.filePath("a"_s), smallSpec()));
    QVERIFY(writeFile(folder.filePath("b"_s), "@SCRIBON x\n"));
    QVERIFY(writeFile(folder.filePath("refused"_s), "@GROUP x\n"));
    const QStringList files{"a"_s, "b"_s, "refused"_s, "none"_s};
    for (QString& argument : arguments) {
        if (files.contains(argument))
            argument = folder.filePath(argument);
    }
    const SpecRun run = runSpec(QStringList{"diff"_s} + arguments);
    QTEST(run.status, "status");
    QVERIFY2(run.complaints.contains(complaint), run.complaints.constData());
    QCOMPARE(run.complaints.isEmpty(), complaint.isEmpty());
}

void tst_SpecDiff::standardInput()
{
    const QTemporaryDir folder;
    QVERIFY(writeFile(folder.filePath("b"_s), "@SCRIBON y\n"));
    const SpecRun run = runSpec({"diff"_s, "-"_s, folder.filePath("b"_s)}, "@SCRIBON x\n");
    QCOMPARE(run.status, 1);
    QCOMPARE(run.output,
             "--- <stdin>\n+++ " + folder.filePath("b"_s).toUtf8() +
                 "\nKeywords\n  changed    1               @SCRIBON                     "
                 "   y\n      Value: x -> y\n");
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, tst_SpecDiff)
#include "tst_spec_diff.moc"
