// The tables of spec files as text, CSV, JSON and HTML.

#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>
#include <QTest>
#include <QXmlStreamReader>
#include <random>

#include "document_generator.h"
#include "finding.h"
#include "htmltables.h"
#include "json_schema.h"
#include "places.h"
#include "shown_text.h"
#include "spec_program.h"
#include "tableforms.h"
#include "tablerows.h"
#include "terminaltext.h"

namespace {

constexpr int DOCUMENTS = 60;
constexpr int LONG_TEXT = 200;

const QByteArray TRICKY =
    "@SCRIBON x\n"
    "@DESCRIPTION 'two, \"lines\"\n\\end'\n"
    "@FILENAME \"\xe6\xb8\xa9\xe5\xba\xa6 <b>&amp;\"\n"
    "@SCAN_LIST\nspeed\n@SCAN_LIST\ntorque .MX TRQ\n";

QByteArray shown(const SpecFile& file, const char* form)
{
    const auto tables = tableFormOfName(QString::fromLatin1(form), false);
    return tables->head() + tables->file(file) + tables->foot();
}

// The lines of a tab, without its title and header.
QStringList linesOfTab(const QByteArray& text, const QString& title)
{
    const QStringList parts = QString::fromUtf8(text).split("\n\n"_s);
    for (const QString& part : parts) {
        QStringList lines = part.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        if (lines.first() == title)
            return lines.mid(3);
    }
    return {};
}

// Reads comma-separated values as RFC 4180 has them.
QVector<QStringList> csvRecords(const QString& text)
{
    QVector<QStringList> records;
    QStringList record{QString()};
    bool quoted = false;
    for (int i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (quoted && text.midRef(i, 2) == QLatin1String("\"\""))
            record.last() += text.at(i++);
        else if (c == QLatin1Char('"'))
            quoted = !quoted;
        else if (!quoted && c == QLatin1Char(','))
            record.append(QString());
        else if (!quoted && text.midRef(i, 2) == QLatin1String("\r\n")) {
            records.append(record);
            record = QStringList{QString()};
            ++i;
        } else
            record.last() += c;
    }
    return records;
}

QVector<QStringList> expectedRecords(const SpecFile& file)
{
    QVector<QStringList> records{{"file"_s, "tab"_s, "row"_s, "field1"_s, "field2"_s, "field3"_s}};
    for (int tab = 0; tab < TAB_COUNT; ++tab) {
        for (const TableRow& row : rowsOf(file, tab))
            records.append({file.name(), tabTitle(tab), QString::number(row.number),
                            row.texts.value(0), row.texts.value(1), row.texts.value(2)});
    }
    return records;
}

QStringList textsOf(const QJsonValue& array)
{
    QStringList texts;
    for (const QJsonValue text : array.toArray())
        texts.append(text.toString());
    return texts;
}

template <typename Visit>
void visitShownCells(const SpecFile& file, Visit visit)
{
    for (int tab = 0; tab < TAB_COUNT; ++tab) {
        const TreeModel& table = file.table(tab);
        const int first = tab == DE_TAB1 ? 0 : 1;
        for (int row = first; row < table.rowCount(); ++row) {
            for (int column = first; column < table.columnCount(); ++column)
                visit(CellPlace{tab, row, column},
                      table.index(row, column).data(Qt::EditRole).toString());
        }
    }
}

struct HtmlCell {
    QString text;
    QString classes;
    QString title;
};

// The cells of a page by their ids; empty if it is not well-formed or has an id twice.
QHash<QString, HtmlCell> htmlCells(const QString& html)
{
    QHash<QString, HtmlCell> cells;
    QXmlStreamReader reader("<body>"_s + html + "</body>"_s);
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement ||
            reader.name() != QLatin1String("td"))
            continue;
        const QXmlStreamAttributes attributes = reader.attributes();
        const QString id = attributes.value(QLatin1String("id")).toString();
        if (cells.contains(id))
            return {};
        cells[id] = {{},
                     attributes.value(QLatin1String("class")).toString(),
                     attributes.value(QLatin1String("title")).toString()};
        cells[id].text = reader.readElementText(QXmlStreamReader::IncludeChildElements);
    }
    return reader.hasError() ? QHash<QString, HtmlCell>() : cells;
}

}  // namespace

class tst_SpecShow : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void rowsAsText_data();
    void rowsAsText();
    void lineDependsOnItsRowOnly();
    void visibleTexts_data();
    void visibleTexts();
    void widths_data();
    void widths();

    void csvQuotes_data();
    void csvQuotes();
    void csvGivesTheRows();
    void jsonGivesTheRows();
    void jsonFitsItsSchema();
    void schemaRefusesOtherForms_data();
    void schemaRefusesOtherForms();

    void htmlShowsWhatTheEditorShows();
    void htmlMarksWrongCells();
    void htmlTakesAdditions();
    void idsOfSeveralFilesDiffer();
    void htmlHasNoForbiddenCharacters();

    void damagedFilesGiveValidOutput();

    void programTakesFilesAndFolders();
    void programReadsStandardInput();
    void badFileStopsNoOther();
    void fallback();
    void wrongArguments_data();
    void wrongArguments();
};

void tst_SpecShow::rowsAsText_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("tab");
    QTest::addColumn<QStringList>("lines");

    const auto keywords = "Keywords"_s;
    const auto scanList = "Scan List"_s;
    QTest::newRow("keywords")
        << smallSpec() << keywords
        << QStringList{"  # start"_s, "  @SCRIBON                        small"_s,
                       "  @MAX_SCANS                      10"_s,
                       "  @RUNNING_AVERAGE                10[sec]                 take"_s};
    QTest::newRow("scan list") << smallSpec() << scanList
                               << QStringList{
                                      "  # speeds"_s,
                                      "  eng_speed                       .AV                "_s
                                      "     N_ENG"_s,
                                      "  dyno_speed                                         "_s
                                      "     N_DYNO"_s};
    QTest::newRow("other lists") << smallSpec() << "ECM List"_s
                                 << QStringList{"  1               /specs/asam3_specs.1:ECM1:0"_s};
    QTest::newRow("empty list") << QByteArray("@SCRIBON x\n") << scanList << QStringList();
    QTest::newRow("line break and wide letters")
        << TRICKY << keywords
        << QStringList{"  @SCRIBON                        x"_s,
                       "  @DESCRIPTION                    'two, \"lines\"\\n\\\\end'"_s,
                       "  @FILENAME                       \"\xe6\xb8\xa9\xe5\xba\xa6 "_s
                       "<b>&amp;\""_s};
    QTest::newRow("word without a keyword")
        << QByteArray("@SCRIBON x\nstray\n") << keywords
        << QStringList{"  @SCRIBON                        x"_s,
                       "                                  stray"_s};
    QTest::newRow("section for the second time")
        << TRICKY << scanList
        << QStringList{"  speed"_s, "  @SCAN_LIST"_s,
                       "  torque                          .MX                     TRQ"_s};
}

void tst_SpecShow::rowsAsText()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, tab);
    QTEST(linesOfTab(shown(loadedSpec(text), "text"), tab), "lines");
}

void tst_SpecShow::lineDependsOnItsRowOnly()
{
    QByteArray changed = smallSpec();
    changed.replace("eng_speed", QByteArray(LONG_TEXT, 'x'));
    QStringList before =
        QString::fromUtf8(shown(loadedSpec(smallSpec()), "text")).split(QLatin1Char('\n'));
    QStringList after =
        QString::fromUtf8(shown(loadedSpec(changed), "text")).split(QLatin1Char('\n'));
    QCOMPARE(after.size(), before.size());
    const int row = before.indexOf(QRegExp("  eng_speed .*"_s));
    QVERIFY(row > 0);
    QVERIFY(after.takeAt(row) != before.takeAt(row));
    QCOMPARE(after, before);
}

void tst_SpecShow::visibleTexts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("visible");

    QTest::newRow("plain") << "a b"_s
                           << "a b"_s;
    QTest::newRow("line break") << "a\nb\r\n"_s
                                << "a\\nb\\r\\n"_s;
    QTest::newRow("tab") << "a\tb"_s
                         << "a\\tb"_s;
    QTest::newRow("backslash") << "a\\nb"_s
                               << "a\\\\nb"_s;
    QTest::newRow("terminal sequence") << "\x1b[31m"_s
                                       << "\\x1b[31m"_s;
    QTest::newRow("zero") << QString(QChar(0)) << "\\x00"_s;
    QTest::newRow("change of direction") << QString(QChar(0x202e)) << "\\u202e"_s;
    QTest::newRow("line separator") << QString(QChar(0x2028)) << "\\u2028"_s;
    QTest::newRow("letter beyond ASCII") << QString(QChar(0xe4)) << QString(QChar(0xe4));
    QTest::newRow("letter beyond 16 bits") << "\xf0\xa0\x80\x80"_s
                                           << "\xf0\xa0\x80\x80"_s;
}

void tst_SpecShow::visibleTexts()
{
    QFETCH(QString, text);
    QTEST(visibleText(text), "visible");
}

void tst_SpecShow::widths_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("padded");

    QTest::newRow("empty") << ""_s << 0 << 16;
    QTest::newRow("plain") << "speed"_s << 5 << 16;
    QTest::newRow("two blanks fit") << QString(14, QLatin1Char('x')) << 14 << 16;
    QTest::newRow("next stop") << QString(15, QLatin1Char('x')) << 15 << 24;
    QTest::newRow("wide letters") << "\xe6\xb8\xa9\xe5\xba\xa6"_s << 4 << 16;
    QTest::newRow("wide beyond 16 bits") << "\xf0\xa0\x80\x80"_s << 2 << 16;
    QTest::newRow("letter with a mark") << "a\xcc\x88"_s << 1 << 16;
    QTest::newRow("Latin letter") << QString(QChar(0xe4)) << 1 << 16;
}

void tst_SpecShow::widths()
{
    QFETCH(QString, text);
    QTEST(displayWidth(text), "width");
    QTEST(displayWidth(paddedTo(16, text)), "padded");
}

void tst_SpecShow::csvQuotes_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QByteArray>("field");

    QTest::newRow("plain") << QByteArray("'a b'") << QByteArray("'a b'");
    QTest::newRow("comma") << QByteArray("'a,b'") << QByteArray("\"'a,b'\"");
    QTest::newRow("quote") << QByteArray("'a\"b'") << QByteArray("\"'a\"\"b'\"");
    QTest::newRow("line feed") << QByteArray("'a\nb'") << QByteArray("\"'a\nb'\"");
    QTest::newRow("carriage return") << QByteArray("'a\rb'") << QByteArray("\"'a\rb'\"");
}

void tst_SpecShow::csvQuotes()
{
    QFETCH(QByteArray, value);
    QFETCH(QByteArray, field);
    QCOMPARE(shown(loadedSpec("@SCRIBON x\n@DESCRIPTION " + value + '\n'), "csv"),
             "file,tab,row,field1,field2,field3\r\nspec,Keywords,1,@SCRIBON,x,\r\n"
             "spec,Keywords,2,@DESCRIPTION," +
                 field + ",\r\n");
}

void tst_SpecShow::csvGivesTheRows()
{
    for (unsigned seed = 0; seed < DOCUMENTS; ++seed) {
        const SpecFile file = loadedSpec(seed == 0 ? TRICKY : DocumentGenerator(seed).document());
        const QVector<QStringList> records = csvRecords(QString::fromUtf8(shown(file, "csv")));
        QCOMPARE(records, expectedRecords(file));
    }
}

void tst_SpecShow::jsonGivesTheRows()
{
    const SpecFile file = loadedSpec(TRICKY);
    const QJsonObject root = QJsonDocument::fromJson(shown(file, "json")).object();
    const QJsonArray tabs = root["files"_s].toArray().first().toObject()["tabs"_s].toArray();
    for (int tab = 0; tab < TAB_COUNT; ++tab) {
        const QJsonObject object = tabs.at(tab).toObject();
        QCOMPARE(object["tab"_s].toString(), tabTitle(tab));
        QCOMPARE(textsOf(object["fields"_s]), fieldsOf(file, tab));
        const QJsonArray rows = object["rows"_s].toArray();
        QCOMPARE(rows.size(), static_cast<int>(rowsOf(file, tab).size()));
        for (int row = 0; row < rows.size(); ++row) {
            const TableRow expected = rowsOf(file, tab).at(static_cast<size_t>(row));
            QCOMPARE(textsOf(rows.at(row)["texts"_s]), expected.texts);
            QCOMPARE(rows.at(row)["row"_s].toInt(), row + 1);
            QCOMPARE(rows.at(row)["line"_s].toInt(), expected.line);
            QCOMPARE(rows.at(row)["comment"_s].toBool(), expected.isComment());
        }
    }
    QCOMPARE(rowsOf(file, DE_TAB2).at(2).line, 8);
    QVERIFY(rowsOf(loadedSpec(smallSpec()), DE_TAB2).front().isComment());
}

JsonSchema showSchema()
{
    return JsonSchema(QJsonDocument::fromJson(
                          readFile(QStringLiteral(SCRIBON_SPEC_SCHEMAS "/show-tables.schema.json")))
                          .object());
}

void tst_SpecShow::jsonFitsItsSchema()
{
    const SpecRun run = runSpec(QStringList{"show"_s, "--format"_s, "json"_s} + exampleSpecs());
    QCOMPARE(run.status, 0);
    const QJsonObject root = QJsonDocument::fromJson(run.output).object();
    QCOMPARE(root["files"_s].toArray().size(), exampleSpecs().size());
    QCOMPARE(showSchema().faultIn(root), QString());
}

void tst_SpecShow::schemaRefusesOtherForms_data()
{
    QTest::addColumn<QByteArray>("from");
    QTest::addColumn<QByteArray>("to");

    QTest::newRow("version") << QByteArray("\"version\":1") << QByteArray("\"version\":2");
    QTest::newRow("no tab's name") << QByteArray("Meta Data List") << QByteArray("Meta");
    QTest::newRow("row 0") << QByteArray("\"row\":1,") << QByteArray("\"row\":0,");
    QTest::newRow("row without texts") << QByteArray("\"texts\"") << QByteArray("\"text\"");
    QTest::newRow("no truth value")
        << QByteArray("\"comment\":false") << QByteArray("\"comment\":0");
}

void tst_SpecShow::schemaRefusesOtherForms()
{
    QFETCH(QByteArray, from);
    QFETCH(QByteArray, to);
    QByteArray json = shown(loadedSpec(smallSpec()), "json");
    QVERIFY(json.contains(from));
    json.replace(from, to);
    QVERIFY(!showSchema().faultIn(QJsonDocument::fromJson(json).object()).isEmpty());
}

void tst_SpecShow::htmlShowsWhatTheEditorShows()
{
    for (const QByteArray& text : {smallSpec(), TRICKY}) {
        const SpecFile file = loadedSpec(text);
        const QHash<QString, HtmlCell> cells = htmlCells(htmlTables(file));
        int count = 0;
        visitShownCells(file, [&](const CellPlace& cell, const QString& cellText) {
            QCOMPARE(cells[htmlCellId(cell)].text, shownText(cellText));
            ++count;
        });
        QCOMPARE(cells.size(), count);
    }
    const QHash<QString, HtmlCell> cells = htmlCells(htmlTables(loadedSpec(smallSpec())));
    QCOMPARE(cells["t1r3c1"_s].text, "Max Scans"_s);
    QCOMPARE(cells["t2r2c3"_s].text, "N_ENG"_s);
}

void tst_SpecShow::htmlMarksWrongCells()
{
    const SpecFile file = loadedSpec("@SCRIBON x\n@MAX_SCANS plenty\n@SCAN_LIST\nspeed .AV N\n");
    const QHash<QString, HtmlCell> cells = htmlCells(htmlTables(file));
    QCOMPARE(cells["t1r2c2"_s].classes, "wrong"_s);
    QCOMPARE(cells["t1r2c2"_s].title,
             file.table(DE_TAB1).errorText(file.table(DE_TAB1).index(1, 1)));
    QVERIFY(!cells["t1r2c2"_s].title.isEmpty());
    QCOMPARE(cells["t1r1c2"_s].classes, QString());
    QCOMPARE(cells["t2r1c3"_s].classes, QString());
}

void tst_SpecShow::htmlTakesAdditions()
{
    const SpecFile file = loadedSpec("@SCRIBON x\n@MAX_SCANS plenty\n");
    HtmlTablesOptions options;
    options.idPrefix = "f7"_s;
    options.additionOf = [](const CellPlace& cell) {
        return cell.row == 1 && cell.column == 1
                   ? HtmlCellAddition{"found"_s, "a \"b\" <c>"_s, "<a href=\"#x\">1</a>"_s}
                   : HtmlCellAddition();
    };
    const QHash<QString, HtmlCell> cells = htmlCells(htmlTables(file, options));
    QCOMPARE(cells["f7t1r2c2"_s].classes, "wrong found"_s);
    QCOMPARE(cells["f7t1r2c2"_s].title, "a \"b\" <c>"_s);
    QCOMPARE(cells["f7t1r2c2"_s].text, "plenty1"_s);
    QCOMPARE(cells["f7t1r1c2"_s].text, "x"_s);
    QVERIFY(isInHtmlTables({DE_TAB1, 0, 0}));
    QVERIFY(!isInHtmlTables({DE_TAB2, 0, 1}));
    QVERIFY(!isInHtmlTables({DE_TAB2, 1, 0}));
    QVERIFY(!isInHtmlTables({}));
}

void tst_SpecShow::idsOfSeveralFilesDiffer()
{
    const auto form = tableFormOfName("html"_s, true);
    const SpecFile file = loadedSpec(smallSpec());
    const QByteArray one = form->file(file);
    const int cells = htmlCells(QString::fromUtf8(one)).size();
    QVERIFY(cells > 0);
    QCOMPARE(htmlCells(QString::fromUtf8(one + form->file(file))).size(), 2 * cells);
}

void tst_SpecShow::htmlHasNoForbiddenCharacters()
{
    QString text = "a\n\tb\x1b\r<&\">"_s;
    text += QChar(0xfffe);
    const QString replaced(QChar::ReplacementCharacter);
    QCOMPARE(htmlText(text), "a\n\tb"_s + replaced + replaced + "&lt;&amp;&quot;&gt;"_s + replaced);
}

void tst_SpecShow::damagedFilesGiveValidOutput()
{
    std::mt19937 random(1);
    for (unsigned seed = 1; seed <= DOCUMENTS; ++seed) {
        QByteArray text = "@SCRIBON x\n" + DocumentGenerator(seed).document();
        for (int damage = 0; damage < 8; ++damage)
            text[static_cast<int>(random() % static_cast<unsigned>(text.size()))] =
                static_cast<char>(random() % 256);
        const SpecFile file = SpecFile::fromBytes(text, "damaged"_s);
        if (file.state() != SpecFile::State::Loaded)
            continue;
        QVERIFY(QJsonDocument::fromJson(shown(file, "json")).isObject());
        QVERIFY(!htmlCells(htmlTables(file)).isEmpty());
        QCOMPARE(csvRecords(QString::fromUtf8(shown(file, "csv"))), expectedRecords(file));
    }
}

// ---- The program --------------------------------------------------------------------------------

void tst_SpecShow::programTakesFilesAndFolders()
{
    const QTemporaryDir folder;
    QVERIFY(writeFile(folder.filePath("scrib_b"_s), smallSpec()));
    QVERIFY(writeFile(folder.filePath("below/scrib_a"_s), TRICKY));
    QVERIFY(writeFile(folder.filePath("other"_s), smallSpec()));
    const SpecRun run = runSpec({"show"_s, folder.path()});
    QCOMPARE(run.status, 0);
    const QByteArray path = folder.path().toUtf8();
    QCOMPARE(run.output, "==> " + path + "/below/scrib_a <==\n" +
                             shown(loadedSpec(TRICKY), "text") + "\n==> " + path +
                             "/scrib_b <==\n" + shown(loadedSpec(smallSpec()), "text"));
    QCOMPARE(runSpec({"show"_s, folder.filePath("other"_s)}).output,
             shown(loadedSpec(smallSpec()), "text"));
}

void tst_SpecShow::programReadsStandardInput()
{
    const SpecRun run = runSpec({"show"_s, "-"_s}, smallSpec());
    QCOMPARE(run.status, 0);
    QCOMPARE(run.output, shown(loadedSpec(smallSpec()), "text"));
}

void tst_SpecShow::badFileStopsNoOther()
{
    const QTemporaryDir folder;
    QVERIFY(writeFile(folder.filePath("good"_s), smallSpec()));
    QVERIFY(writeFile(folder.filePath("bad"_s), "@GROUP x\n"));
    const SpecRun run = runSpec({"show"_s, "--format"_s, "json"_s, folder.filePath("none"_s),
                                 folder.filePath("bad"_s), folder.filePath("good"_s)});
    QCOMPARE(run.status, 2);
    QVERIFY(run.complaints.contains("none: No such file"));
    QVERIFY(run.complaints.contains("bad: not a spec file"));
    const QJsonObject root = QJsonDocument::fromJson(run.output).object();
    QCOMPARE(root["files"_s].toArray().size(), 1);
}

void tst_SpecShow::fallback()
{
    const QByteArray text = "no spec file\n";
    SpecRun run = runSpec({"show"_s, "--fallback"_s, "-"_s}, text);
    QCOMPARE(run.status, 0);
    QCOMPARE(run.output, text);
    QCOMPARE(runSpec({"show"_s, "-"_s}, text).status, 2);
    QCOMPARE(runSpec({"show"_s, "--fallback"_s, "/nonexistent"_s}).status, 2);
}

void tst_SpecShow::wrongArguments_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("complaint");

    QTest::newRow("control characters")
        << QStringList{"scrib_\x1b[31m"_s} << QByteArray("scrib_\xef\xbf\xbd[31m: No such file");
    QTest::newRow("no file") << QStringList{} << QByteArray("no files to show");
    QTest::newRow("format") << QStringList{"--format"_s, "xml"_s, "-"_s}
                            << QByteArray("--format takes text, csv, json or html");
    QTest::newRow("option") << QStringList{"--colour"_s, "-"_s} << QByteArray("Unknown option");
    QTest::newRow("fallback") << QStringList{"--fallback"_s, "--format"_s, "csv"_s, "-"_s}
                              << QByteArray("--fallback is for text only");
}

void tst_SpecShow::wrongArguments()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, complaint);
    const SpecRun run = runSpec(QStringList{"show"_s} + arguments);
    QCOMPARE(run.status, 2);
    QVERIFY2(run.complaints.contains(complaint), run.complaints.constData());
    QCOMPARE(run.output, QByteArray());
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, tst_SpecShow)
#include "tst_spec_show.moc"
