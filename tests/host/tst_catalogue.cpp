// Valid and invalid catalogue files, checked by marvane-desk and by the JSON schema.

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QtTest>

#include "desk_process.h"
#include "json_schema.h"

namespace {

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// A catalogue with these variables in one table.
QByteArray inTable(const char* area, const char* table, const QByteArray& variables)
{
    return QByteArray(R"({"units":{"speed":["RPM"]},"counts":{"analog_inputs":3},"areas":{")") +
           area + R"(":{")" + table + R"(":)" + variables + "}}}";
}

QByteArray inputs(const QByteArray& variables)
{
    return inTable("AI_REAL_MEM", "real", '[' + variables + ']');
}

QByteArray statistics(const QByteArray& variables)
{
    return inTable("GU_STAT_MEM", "statistic", '[' + variables + ']');
}

QByteArray withUnits(const QByteArray& units)
{
    return R"({"units":)" + units + R"(,"areas":{}})";
}

// An array of this many different names of units.
QByteArray manyUnits(int count)
{
    QByteArrayList names;
    for (int i = 0; i < count; ++i)
        names.append("\"U" + QByteArray::number(i) + '"');
    return '[' + names.join(',') + ']';
}

QByteArray withCounts(const QByteArray& counts)
{
    return R"({"counts":)" + counts + R"(,"areas":{}})";
}

QByteArray withKeywords(const QByteArray& keywords)
{
    return R"({"units":{"speed":["RPM"]},"areas":{},"keywords":)" + keywords + "}";
}

QByteArray label(int length)
{
    return QByteArray(R"({"label":")") + QByteArray(length, 'x') + R"("})";
}

enum Sight { NoJson, SchemaSeesIt, OnlyTheProcessSeesIt };

void addBad(const char* title, const QByteArray& catalogue, const char* place, const char* reason,
            Sight sight = SchemaSeesIt)
{
    QTest::newRow(title) << catalogue << QByteArray(place) << QByteArray(reason) << int{sight};
}

void addBadText()
{
    addBad("an empty file", "", ":1:1: ", "unexpected end of input", NoJson);
    addBad("a file that ends early", "{\n \"areas\": {", ":2:12: ", "unexpected end", NoJson);
    addBad("a comma too many", "{\n\"areas\": {},\n}", ":3:1: ", "unexpected '}'", NoJson);
    addBad("a word that is none", "{\"areas\": nil}", ":1:12: ", "invalid literal", NoJson);
    addBad("a line feed within a text", "[\n\"a\nb\"]", ":2:3: ", "control character", NoJson);
    addBad("a second document", "{}\n{}", ":2:1: ", "expected end of input", NoJson);
    addBad("bytes that are no UTF-8", "{\"\xff\": 1}", ":1:3: ", "invalid string", NoJson);
    addBad("a zero byte", QByteArray("{\"areas\": {}}\0", 14), ":1:14: ", "", NoJson);
    addBad("a number out of range", "{\n\n \"areas\": 1e999 }", ":3:15: ", "number overflow",
           NoJson);
    addBad("a hundred thousand brackets", QByteArray(100000, '['), ":1:100001: ", "unexpected end",
           NoJson);
    addBad("an unclosed text of a megabyte", "[\"" + QByteArray(1 << 20, 'x'),
           ":1:1048579: ", "missing closing quote", NoJson);
    addBad("a key that occurs twice", R"({"areas":{"LOGI_MEM":{},"LOGI_MEM":{}}})",
           ": /areas/LOGI_MEM: ", "occurs twice", OnlyTheProcessSeesIt);
    addBad("a key that occurs twice in a variable",
           inputs(R"({"label":"a"},{"label":"b","label":"c"})"),
           ": /areas/AI_REAL_MEM/real/1/label: ", "occurs twice", OnlyTheProcessSeesIt);
}

void addBadFrame()
{
    addBad("no object", "[]", ": top level: ", "must be an object");
    addBad("no areas", "{}", ": top level: ", "\"areas\" is missing");
    addBad("an unknown key", R"({"areas":{},"variables":[]})", ": /variables: ", "no such key");
    addBad("a key with a slash and a line feed", R"({"a/b\n":0,"areas":{}})",
           ": /a~1b?: ", "no such key");
    addBad("a schema that is no text", R"({"$schema":1,"areas":{}})", ": /$schema: ", "text");
    addBad("areas as an array", R"({"areas":[]})", ": /areas: ", "must be an object");
    addBad("an unknown area", R"({"areas":{"AI_REAL":{}}})", ": /areas/AI_REAL: ", "no area");
    addBad("an area that other parts make", R"({"areas":{"KEYWORD_MEM":{}}})",
           ": /areas/KEYWORD_MEM: ", "no area");
    addBad("an area as an array", R"({"areas":{"AI_REAL_MEM":[]}})",
           ": /areas/AI_REAL_MEM: ", "must be an object");
    addBad("a table that the area does not have", inTable("AI_REAL_MEM", "integer", "[]"),
           ": /areas/AI_REAL_MEM/integer: ", "no table");
    addBad("a table as an object", inTable("AI_REAL_MEM", "real", "{}"),
           ": /areas/AI_REAL_MEM/real: ", "must be an array");
}

void addBadUnits()
{
    addBad("units as an array", withUnits("[]"), ": /units: ", "must be an object");
    addBad("a dimension as a text", withUnits(R"({"d":"RPM"})"), ": /units/d: ", "array");
    addBad("a dimension without units", withUnits(R"({"d":[]})"), ": /units/d: ", "at least one");
    addBad("units as a number", withUnits(R"({"d":["A",1]})"), ": /units/d/1: ", "must be a text");
    addBad("units without a name", withUnits(R"({"d":[""]})"), ": /units/d/0: ", "empty");
    addBad("units of 16 bytes", withUnits(R"({"d":["ABCDEFGHIJKLMNOP"]})"),
           ": /units/d/0: ", "longer than 15");
    addBad("units with a blank", withUnits(R"({"d":["A B"]})"), ": /units/d/0: ", "word");
    addBad("units with a bracket", withUnits(R"({"d":["A]"]})"), ": /units/d/0: ", "brackets");
    addBad("units beyond ASCII",
           withUnits("{\"d\":[\"\xc2\xb0"
                     "C\"]}"),
           ": /units/d/0: ", "ASCII");
    addBad("more units than a 16-bit integer counts",
           withUnits(R"({"d":)" + manyUnits(32768) + "}"),
           ": /units/d/32767: ", "more than 32767 units", OnlyTheProcessSeesIt);
    addBad("units in two dimensions", withUnits(R"({"a":["RPM"],"b":["rpm"]})"),
           ": /units/b/0: ", "there already", OnlyTheProcessSeesIt);
}

void addBadCounts()
{
    addBad("counts as an array", withCounts("[]"), ": /counts: ", "must be an object");
    addBad("an unknown count", withCounts(R"({"inputs":1})"), ": /counts/inputs: ", "no count");
    addBad("a negative count", withCounts(R"({"analog_inputs":-1})"),
           ": /counts/analog_inputs: ", "0 to 65535");
    addBad("a count that is too large", withCounts(R"({"analog_inputs":65536})"),
           ": /counts/analog_inputs: ", "0 to 65535");
    addBad("half a count", withCounts(R"({"analog_inputs":1.5})"),
           ": /counts/analog_inputs: ", "whole number");
    addBad("a count as a text", withCounts(R"({"analog_inputs":"1"})"),
           ": /counts/analog_inputs: ", "whole number");
}

void addBadVariables()
{
    addBad("a variable as a text", inputs("\"a\""), ": /areas/AI_REAL_MEM/real/0: ", "an object");
    addBad("a variable without a label", inputs("{}"),
           ": /areas/AI_REAL_MEM/real/0: ", "\"label\" is missing");
    addBad("an unknown key in a variable", inputs(R"({"label":"a","unit":"RPM"})"),
           ": /areas/AI_REAL_MEM/real/0/unit: ", "no such key");
    addBad("a label as a number", inputs(R"({"label":1})"), "/real/0/label: ", "must be a text");
    addBad("an empty label", inputs(R"({"label":""})"), "/real/0/label: ", "empty");
    addBad("a label of 80 bytes", inputs(label(80)), "/real/0/label: ", "longer than 79");
    addBad("a label that begins with a digit", inputs(R"({"label":"1a"})"),
           "/real/0/label: ", "a letter");
    addBad("a label with a blank", inputs(R"({"label":"a b"})"), "/real/0/label: ", "a letter");
    addBad("a label with a zero byte", inputs(R"({"label":"a\u0000b"})"),
           "/real/0/label: ", "a letter");
    addBad("a plain variable with a full stop", inputs(R"({"label":"a."})"),
           "/real/0/label: ", "must not end in a full stop");
    addBad("active as a number", inputs(R"({"label":"a","active":1})"),
           "/real/0/active: ", "true or false");
    addBad("units as a null", inputs(R"({"label":"a","units":null})"), "/real/0/units: ", "a text");
    addBad("unknown units", inputs(R"({"label":"a","units":"RPN"})"),
           "/real/0/units: ", "unknown units \"RPN\"", OnlyTheProcessSeesIt);
    addBad("an alias with a full stop", inputs(R"({"label":"a","alias":"b."})"),
           "/real/0/alias: ", "a letter");
    addBad("a structured variable without a full stop", statistics(R"({"label":"a"})"),
           ": /areas/GU_STAT_MEM/statistic/0/label: ", "ends in a full stop");
    addBad("a full stop alone", statistics(R"({"label":"."})"), "/statistic/0/label: ", "a letter");
    addBad("a structured variable with an alias", statistics(R"({"label":"a.","alias":"b"})"),
           "/statistic/0/alias: ", "no alias");
}

void addBadPlaces()
{
    addBad("two variables of one label", inputs(R"({"label":"a"},{"label":"a"})"),
           ": /areas/AI_REAL_MEM/real/1/label: ", "at /areas/AI_REAL_MEM/real/0/label",
           OnlyTheProcessSeesIt);
    addBad("an alias that is a label", inputs(R"({"label":"a"},{"label":"b","alias":"a"})"),
           "/real/1/alias: ", "there already", OnlyTheProcessSeesIt);
    addBad("a label that an inactive variable has",
           inputs(R"({"label":"a","active":false},{"label":"a"})"),
           "/real/1/label: ", "there already", OnlyTheProcessSeesIt);
    addBad(
        "labels that differ in a full stop alone",
        R"({"areas":{"GU_STAT_MEM":{"statistic":[{"label":"a."}]},"LOGI_MEM":{"logical":[{"label":"a"}]}}})",
        ": /areas/LOGI_MEM/logical/0/label: ", "there already", OnlyTheProcessSeesIt);
    addBad("an index that is taken", inputs(R"({"label":"a"},{"index":0,"label":"b"})"),
           "/real/1/index: ", "taken", OnlyTheProcessSeesIt);
    addBad("an index that the variable before leads to",
           inputs(R"({"index":1,"label":"a"},{"index":0,"label":"b"},{"label":"c"})"),
           "/real/2: ", "index 1 is taken", OnlyTheProcessSeesIt);
    addBad("a negative index", inputs(R"({"index":-1,"label":"a"})"),
           "/real/0/index: ", "whole number");
    addBad("an index beyond every count",
           R"({"areas":{"AI_REAL_MEM":{"real":[{"index":65535,"label":"a"}]}}})",
           "/real/0/index: ", "beyond");
    addBad("an index beyond its count", inputs(R"({"index":3,"label":"a"})"),
           "/real/0/index: ", "beyond the table's 3 records", OnlyTheProcessSeesIt);
    addBad("more variables than their count",
           inputs(R"({"label":"a"},{"label":"b"},{"label":"c"},{"label":"d"})"),
           ": /areas/AI_REAL_MEM/real/3: ", "index 3 is beyond", OnlyTheProcessSeesIt);
    addBad("an index beyond a table of fixed length",
           inTable("CONTROL_MEM", "integer", R"([{"index":4,"label":"a"}])"),
           ": /areas/CONTROL_MEM/integer/0/index: ", "beyond the table's 4 records",
           OnlyTheProcessSeesIt);
}

void addBadKeywords()
{
    addBad("keywords as an object", withKeywords("{}"), ": /keywords: ", "must be an array");
    addBad("a keyword without a kind", withKeywords(R"([{"name":"A"}])"),
           ": /keywords/0: ", "\"kind\" is missing");
    addBad("a keyword without a name", withKeywords(R"([{"kind":"channel"}])"),
           ": /keywords/0: ", "\"name\" is missing");
    addBad("an unknown kind", withKeywords(R"([{"name":"A","kind":"Channel"}])"),
           ": /keywords/0/kind: ", "no kind \"Channel\"");
    addBad("a keyword with a blank", withKeywords(R"([{"name":"A B","kind":"channel"}])"),
           ": /keywords/0/name: ", "word");
    addBad("a keyword of 80 bytes",
           withKeywords(R"([{"name":")" + QByteArray(80, 'K') + R"(","kind":"channel"}])"),
           ": /keywords/0/name: ", "longer than 79");
    addBad("a keyword with unknown units",
           withKeywords(R"([{"name":"A","kind":"channel","units":"X"}])"),
           ": /keywords/0/units: ", "unknown units", OnlyTheProcessSeesIt);
    addBad("a keyword that occurs twice",
           withKeywords(R"([{"name":"A","kind":"channel"},{"name":"A","kind":"parameter"}])"),
           ": /keywords/1/name: ", "there already", OnlyTheProcessSeesIt);
    addBad("a keyword beyond the table",
           withKeywords(R"([{"index":8000,"name":"A","kind":"channel"}])"),
           ": /keywords/0/index: ", "beyond the table's 8000");
}

}  // namespace

class TestCatalogue : public QObject {
    Q_OBJECT

private:
    QString write(const QByteArray& catalogue)
    {
        QString name = directory_.filePath(QStringLiteral("catalogue.json"));
        QFile file(name);
        if (!file.open(QIODevice::WriteOnly) || file.write(catalogue) != catalogue.size())
            return {};
        return name;
    }

    static QStringList arguments(const QString& catalogueFile)
    {
        return {QStringLiteral("--name"), QStringLiteral("bad"), catalogueFile};
    }

private Q_SLOTS:
    void initTestCase()
    {
        const auto schema = QJsonDocument::fromJson(contentOf(QStringLiteral(CATALOGUE_SCHEMA)));
        QVERIFY(schema.isObject());
        schema_ = schema.object();
    }

    void badCatalogue_data()
    {
        QTest::addColumn<QByteArray>("catalogue");
        QTest::addColumn<QByteArray>("place");
        QTest::addColumn<QByteArray>("reason");
        QTest::addColumn<int>("sight");
        addBadText();
        addBadFrame();
        addBadUnits();
        addBadCounts();
        addBadVariables();
        addBadPlaces();
        addBadKeywords();
    }
    void badCatalogue()
    {
        QFETCH(QByteArray, catalogue);
        QFETCH(QByteArray, place);
        QFETCH(QByteArray, reason);
        QFETCH(int, sight);
        const QString file = write(catalogue);
        const auto result = DeskProcess::run(arguments(file));
        QCOMPARE(result.status, 1);
        QCOMPARE(result.output, QByteArray());
        QVERIFY2(result.complaints.startsWith("marvane-desk: " + file.toLocal8Bit() + ':'),
                 result.complaints);
        QVERIFY2(result.complaints.contains(place), result.complaints);
        QVERIFY2(result.complaints.contains(reason), result.complaints);
        QCOMPARE(result.complaints.count('\n'), 1);
        QVERIFY(result.complaints.endsWith('\n'));
        QVERIFY(result.complaints.size() < 600);
        QCOMPARE(sharedMemoryOf(QStringLiteral("bad")), QStringList());
        if (sight == NoJson)
            return;
        const auto document = QJsonDocument::fromJson(catalogue);
        QCOMPARE(!JsonSchema(schema_).faultIn(rootOf(document)).isEmpty(), sight == SchemaSeesIt);
    }

    void goodCatalogue_data()
    {
        QTest::addColumn<QByteArray>("catalogue");
        QTest::newRow("the demo cell") << contentOf(qEnvironmentVariable("SCRIBON_EXAMPLES") +
                                                    QStringLiteral("/catalogue.json"));
        QTest::newRow("no area at all") << QByteArray(R"({"areas":{}})");
        QTest::newRow("a byte order mark") << QByteArray("\xef\xbb\xbf{\"areas\":{}}");
        QTest::newRow("areas without tables")
            << QByteArray(R"({"areas":{"AI_REAL_MEM":{},"CONTROL_MEM":{}}})");
        QTest::newRow("a label of 79 bytes") << inputs(label(79));
        QTest::newRow("the last record of the largest table")
            << QByteArray(R"({"areas":{"AI_REAL_MEM":{"real":[{"index":65534,"label":"a"}]}}})");
        QTest::newRow("the largest arrays")
            << QByteArray(R"({"counts":{"real_arrays":65535},"areas":{"REAL_ARRAY_MEM":{}}})");
        QTest::newRow("units of 15 bytes in another case") << QByteArray(
            R"({"units":{"d":["ABCDEFGHIJKLMNO"]},"areas":{"LOGI_MEM":{"logical":[{"label":"a","units":"abcdefghijklmno"}]}}})");
        QTest::newRow("as many units as a 16-bit integer counts")
            << withUnits(R"({"d":)" + manyUnits(32767) + "}");
        QTest::newRow("names of the first and the last printable character") << QByteArray(
            R"({"units":{"d":["!~"]},"areas":{},"keywords":[{"name":"!~","kind":"channel"}]})");
        QTest::newRow("a keyword of 79 bytes in the last place") << withKeywords(
            R"([{"index":7999,"name":")" + QByteArray(79, '$') + R"(","kind":"parameter"}])");
    }
    void goodCatalogue()
    {
        QFETCH(QByteArray, catalogue);
        QByteArray json = catalogue;
        if (json.startsWith("\xef\xbb\xbf"))
            json.remove(0, 3);
        QCOMPARE(JsonSchema(schema_).faultIn(rootOf(QJsonDocument::fromJson(json))), QString());
        const auto check = DeskProcess::run({QStringLiteral("--check"), write(catalogue)});
        QCOMPARE(check.complaints, QByteArray());
        QCOMPARE(check.output, QByteArray());
        QCOMPARE(check.status, 0);
        DeskProcess desk;
        QVERIFY(desk.startWith(catalogue));
        QVERIFY(desk.terminate());
        QCOMPARE(sharedMemoryOf(desk.name()), QStringList());
    }

    void fileThatCannotBeRead_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QByteArray>("reason");
        const QByteArray irregular("is no regular file");
        QTest::newRow("no file") << QStringLiteral("/nowhere/catalogue.json")
                                 << QByteArray("No such file or directory");
        QTest::newRow("a directory") << QStringLiteral("/") << irregular;
        QTest::newRow("a device without an end") << QStringLiteral("/dev/zero") << irregular;
        // Opens like any file, but its first byte is at no address that is mapped.
        QTest::newRow("a file that fails to be read")
            << QStringLiteral("/proc/self/mem") << QByteArray("cannot be read");
    }
    void fileThatCannotBeRead()
    {
        QFETCH(QString, file);
        QFETCH(QByteArray, reason);
        const auto result = DeskProcess::run(arguments(file));
        QCOMPARE(result.status, 1);
        QCOMPARE(result.complaints, "marvane-desk: " + file.toLocal8Bit() + ": " + reason + '\n');
        QCOMPARE(sharedMemoryOf(QStringLiteral("bad")), QStringList());
    }

    void noRoomForTheAreas()
    {
        // Created before the platform starts, so that creating its areas fails halfway.
        const QString block =
            sharedMemoryPath(QStringLiteral("bad"), QStringLiteral("GU_REAL_MEM"));
        QVERIFY(QDir(QStringLiteral("/dev/shm")).mkdir(block));
        const auto result = DeskProcess::run(arguments(
            write(R"({"areas":{"AI_REAL_MEM":{},"GU_REAL_MEM":{},"LOGI_MEM":{}},"keywords":[]})")));
        QVERIFY(QDir(QStringLiteral("/dev/shm")).rmdir(block));
        QCOMPARE(result.status, 1);
        QCOMPARE(result.complaints.count('\n'), 1);
        QVERIFY(result.complaints.contains("GU_REAL_MEM"));
        QCOMPARE(sharedMemoryOf(QStringLiteral("bad")), QStringList());
    }

    void commandLine_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("status");
        const auto list = [](const char* text) {
            return QString::fromLatin1(text).split(QLatin1Char(' '));
        };
        QTest::newRow("no catalogue") << QStringList() << 2;
        QTest::newRow("two catalogues") << list("a b") << 2;
        QTest::newRow("an unknown option") << list("--frob a") << 2;
        QTest::newRow("an option without its value") << list("--name") << 2;
        QTest::newRow("a bad name") << list("--name a/b c") << 2;
        QTest::newRow("help") << list("--help") << 0;
        QTest::newRow("version") << list("--version") << 0;
    }
    void commandLine()
    {
        QFETCH(QStringList, arguments);
        const auto result = DeskProcess::run(arguments);
        QTEST(result.status, "status");
        QCOMPARE(result.output.isEmpty(), result.status != 0);
        QCOMPARE(result.complaints.isEmpty(), result.status == 0);
    }

private:
    static QJsonValue rootOf(const QJsonDocument& document)
    {
        return document.isArray() ? QJsonValue(document.array()) : QJsonValue(document.object());
    }

    QTemporaryDir directory_;
    QJsonObject schema_;
};

QTEST_GUILESS_MAIN(TestCatalogue)
#include "tst_catalogue.moc"
