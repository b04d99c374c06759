// Compares the shared memory of a running desk platform byte by byte. Sizes, offsets and names are
// repeated here: the test includes no header of the platform or the editor, so that it finds faults
// that both share.

#include <fcntl.h>
#include <sys/stat.h>

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>
#include <algorithm>
#include <cstring>
#include <memory>

#include "desk_process.h"

namespace {

struct Record {
    const char* kind;
    int size;
    int activeAt;
    int labelAt;
};

constexpr Record RECORDS[] = {
    {"real", 390, 50, 64},
    {"integer", 330, 2, 80},
    {"logical", 490, 2, 56},
    {"string", 410, 2, 128},
    {"real_array", 360186, 360088, 0},
    {"integer_array", 360186, 360104, 0},
    {"string_array", 360178, 360138, 0},
    {"logical_array", 360410, 360088, 0},
    {"statistic", 1728, 1480, 0},
    {"composition", 2072, 2040, 1960},
    {"property", 9600, 9562, 9400},
    {"emission", 2472, 2440, 2280},
};

// A table's length is fixed, or stored at an offset in SYS_ATTR_MEM.
struct Table {
    const char* area;
    const char* kind;
    int offset;
    int length;
    int countAt;
};

constexpr Table TABLES[] = {
    {"AI_REAL_MEM", "real", 0, 0, 1400},
    {"CI_INTG_MEM", "integer", 0, 0, 1404},
    {"CI_REAL_MEM", "real", 0, 0, 1404},
    {"DI_LOGI_MEM", "logical", 0, 0, 1408},
    {"FI_REAL_MEM", "real", 0, 0, 1412},
    {"DO_LOGI_MEM", "logical", 0, 0, 1420},
    {"GU_REAL_MEM", "real", 0, 0, 1742},
    {"GU_INTEGER_MEM", "integer", 0, 0, 1744},
    {"GU_LOGICAL_MEM", "logical", 0, 0, 1746},
    {"GU_STAT_MEM", "statistic", 0, 0, 1748},
    {"GU_STRING_MEM", "string", 0, 0, 1750},
    {"LIMIT_LOGI_MEM", "logical", 0, 0, 1758},
    {"REAL_ARRAY_MEM", "real_array", 0, 0, 1764},
    {"INT_ARRAY_MEM", "integer_array", 0, 0, 1766},
    {"STRING_ARRAY_MEM", "string_array", 0, 0, 1768},
    {"LOGI_ARRAY_MEM", "logical_array", 0, 0, 1770},
    {"DP_STAT_MEM", "statistic", 0, 0, 1772},
    {"LOGI_MEM", "logical", 0, 400, 0},
    {"ENGINE_PERF_MEM", "real", 0, 100, 0},
    {"ENGINE_PERF_MEM", "integer", 39000, 50, 0},
    {"ENGINE_CONST_MEM", "real", 0, 50, 0},
    {"ENGINE_CONST_MEM", "string", 19500, 32, 0},
    {"FUEL_READING_MEM", "real", 0, 152, 0},
    {"FUEL_READING_MEM", "integer", 59280, 16, 0},
    {"FUEL_READING_MEM", "string", 64560, 24, 0},
    {"CONTROL_MEM", "real", 0, 893, 0},
    {"CONTROL_MEM", "logical", 348270, 301, 0},
    {"CONTROL_MEM", "integer", 495760, 4, 0},
    {"CONTROL_MEM", "string", 497080, 298, 0},
    {"DISPLAY_STRINGS_MEM", "string", 300, 100, 0},
    {"PROPERTIES_MEM", "composition", 0, 34, 0},
    {"PROPERTIES_MEM", "property", 70448, 32, 0},
    {"PROPERTIES_MEM", "emission", 377648, 34, 0},
};

struct Area {
    const char* name;
    int number;
};

constexpr Area AREAS[] = {
    {"AI_REAL_MEM", 6},       {"CI_INTG_MEM", 8},          {"CONTROL_MEM", 9},
    {"ENGINE_CONST_MEM", 10}, {"ENGINE_PERF_MEM", 11},     {"LOGI_MEM", 19},
    {"FI_REAL_MEM", 22},      {"CI_REAL_MEM", 24},         {"DI_LOGI_MEM", 27},
    {"DO_LOGI_MEM", 28},      {"DISPLAY_STRINGS_MEM", 31}, {"FUEL_READING_MEM", 33},
    {"LIMIT_LOGI_MEM", 42},   {"PROPERTIES_MEM", 53},      {"GU_REAL_MEM", 54},
    {"GU_INTEGER_MEM", 55},   {"GU_LOGICAL_MEM", 56},      {"GU_STRING_MEM", 57},
    {"GU_STAT_MEM", 58},      {"REAL_ARRAY_MEM", 64},      {"INT_ARRAY_MEM", 65},
    {"STRING_ARRAY_MEM", 66}, {"LOGI_ARRAY_MEM", 67},      {"DP_STAT_MEM", 70},
};

struct Count {
    const char* name;
    int offset;
};

constexpr Count COUNTS[] = {
    {"analog_inputs", 1400},          {"counter_inputs", 1404},
    {"digital_inputs", 1408},         {"frequency_inputs", 1412},
    {"digital_outputs", 1420},        {"general_use_reals", 1742},
    {"general_use_integers", 1744},   {"general_use_logicals", 1746},
    {"general_use_statistics", 1748}, {"general_use_strings", 1750},
    {"limit_logicals", 1758},         {"real_arrays", 1764},
    {"integer_arrays", 1766},         {"string_arrays", 1768},
    {"logical_arrays", 1770},         {"datapoint_statistics", 1772},
};

constexpr int ATTRIBUTES_SIZE = 1774;
constexpr int KEYWORD_SIZE = 88;
// 8000 keywords, 29 numbers of 16 bits and 2 bytes of padding.
constexpr int KEYWORD_AREA_SIZE = 704060;

// Explicit indices, gaps, inactive records, the last records of tables, a count larger than the
// given variables, a counted table without records, and an area without a table.
constexpr char SPARSE_CATALOGUE[] = R"({
  "units": { "angle": ["RAD"], "speed": ["RPM", "HZ"] },
  "counts": { "analog_inputs": 300, "frequency_inputs": 4, "logical_arrays": 2 },
  "areas": {
    "AI_REAL_MEM": { "real": [
      { "index": 299, "label": "last_input", "units": "hz" },
      { "index": 0, "label": "first_input", "active": false, "alias": "hidden" },
      { "label": "second_input", "alias": "nr_2" } ] },
    "FI_REAL_MEM": {},
    "CI_INTG_MEM": { "integer": [ { "index": 9, "label": "counts" } ] },
    "CI_REAL_MEM": { "real": [ { "label": "units" } ] },
    "CONTROL_MEM": {
      "real": [ { "index": 892, "label": "c_real" } ],
      "logical": [ { "index": 300, "label": "c_logical" } ],
      "integer": [ { "index": 3, "label": "c_integer" } ],
      "string": [ { "index": 297, "label": "c_string" } ] },
    "DISPLAY_STRINGS_MEM": { "string": [ { "index": 99, "label": "d_string" } ] },
    "PROPERTIES_MEM": {
      "composition": [ { "index": 33, "label": "comp." } ],
      "property": [ { "index": 31, "label": "prop.", "active": false } ],
      "emission": [ { "index": 33, "label": "emis.", "units": "RAD" } ] },
    "STRING_ARRAY_MEM": { "string_array": [ { "index": 2, "label": "s_array" } ] },
    "LOGI_ARRAY_MEM": { "logical_array": [ { "index": 1, "label": "l_array" } ] }
  },
  "keywords": [
    { "index": 7999, "name": "LAST", "kind": "parameter", "units": "rpm" },
    { "index": 5, "name": "FIFTH", "kind": "channel_or_parameter" }
  ]
})";

const Record& record(const Table& table)
{
    return *std::find_if(std::begin(RECORDS), std::end(RECORDS), [&table](const Record& row) {
        return qstrcmp(row.kind, table.kind) == 0;
    });
}

template <typename Number>
void put(QByteArray& bytes, int at, Number number)
{
    std::memcpy(bytes.data() + at, &number, sizeof number);
}

void put(QByteArray& bytes, int at, const QString& text)
{
    std::memcpy(bytes.data() + at, text.toLatin1().constData(), static_cast<size_t>(text.size()));
}

uint32_t numberAt(const QByteArray& bytes, int at)
{
    uint32_t number = 0;
    std::memcpy(&number, bytes.constData() + at, sizeof number);
    return number;
}

QString textAt(const QByteArray& bytes, int at)
{
    return QString::fromLatin1(bytes.constData() + at);
}

// The expected objects for a catalogue file, as docs/DESK_PLATFORM.md describes them.
class Expectation {
public:
    explicit Expectation(const QByteArray& catalogue)
        : text_(catalogue), catalogue_(QJsonDocument::fromJson(catalogue).object())
    {
    }

    QStringList objects() const
    {
        QStringList names = member("areas").toObject().keys();
        names << QStringLiteral("SYS_ATTR_MEM") << QStringLiteral("directory");
        if (!member("keywords").isUndefined())
            names << QStringLiteral("KEYWORD_MEM");
        names.sort();
        return names;
    }

    QByteArray content(const QString& object) const
    {
        if (object == QLatin1String("SYS_ATTR_MEM"))
            return attributes();
        return object == QLatin1String("KEYWORD_MEM") ? keywords() : records(object);
    }

    // The names of all units in the order of the file, each with the number of its dimension in
    // front.
    QStringList units() const
    {
        const QJsonObject dimensions = member("units").toObject();
        QStringList names = dimensions.keys();
        std::sort(names.begin(), names.end(), [this](const QString& a, const QString& b) {
            return text_.indexOf('"' + a.toLatin1() + '"') <
                   text_.indexOf('"' + b.toLatin1() + '"');
        });
        QStringList lines;
        for (int i = 0; i < names.size(); ++i) {
            for (const QJsonValue name : dimensions[names[i]].toArray())
                lines << QStringLiteral("%1 %2").arg(i).arg(name.toString());
        }
        return lines;
    }

    // The variables in use, each with area, index, label, alias and units.
    QStringList variables() const
    {
        QStringList lines;
        for (const Table& table : TABLES) {
            for (const QJsonValue entry : entries(table)) {
                if (entry[QLatin1String("active")].toBool(true))
                    lines << variable(table, entry);
            }
        }
        lines.sort();
        return lines;
    }

private:
    QJsonValue member(const char* key) const { return catalogue_[QLatin1String(key)]; }

    static QJsonArray withIndices(const QJsonArray& entries)
    {
        QJsonArray complete;
        int next = 0;
        for (const QJsonValue value : entries) {
            QJsonObject entry = value.toObject();
            const int index = entry[QLatin1String("index")].toInt(next);
            entry[QLatin1String("index")] = index;
            next = index + 1;
            complete.append(entry);
        }
        return complete;
    }

    QJsonArray entries(const Table& table) const
    {
        const QJsonValue tables = member("areas")[QLatin1String(table.area)];
        return withIndices(tables[QLatin1String(table.kind)].toArray());
    }

    static QString variable(const Table& table, const QJsonValue& entry)
    {
        QString label = entry[QLatin1String("label")].toString();
        label.remove(QLatin1Char('.'));
        return QStringLiteral("%1 %2 %3 [%4] %5")
            .arg(areaNumber(table))
            .arg(entry[QLatin1String("index")].toInt())
            .arg(label, entry[QLatin1String("alias")].toString(),
                 entry[QLatin1String("units")].toString().toUpper());
    }

    static int areaNumber(const Table& table)
    {
        const auto* row = std::find_if(
            std::begin(AREAS), std::end(AREAS),
            [&table](const Area& area) { return qstrcmp(area.name, table.area) == 0; });
        return row->number;
    }

    int described(int countAt) const
    {
        int count = 0;
        for (const Table& table : TABLES) {
            if (table.countAt != countAt)
                continue;
            for (const QJsonValue entry : entries(table))
                count = qMax(count, entry[QLatin1String("index")].toInt() + 1);
        }
        return count;
    }

    int count(int countAt) const
    {
        const auto* row = std::find_if(std::begin(COUNTS), std::end(COUNTS),
                                       [countAt](const Count& c) { return c.offset == countAt; });
        return member("counts")[QLatin1String(row->name)].toInt(described(countAt));
    }

    QByteArray attributes() const
    {
        QByteArray bytes(ATTRIBUTES_SIZE, '\0');
        for (const Count& row : COUNTS)
            put(bytes, row.offset, static_cast<uint16_t>(count(row.offset)));
        return bytes;
    }

    QByteArray keywords() const
    {
        QByteArray bytes(KEYWORD_AREA_SIZE, '\0');
        for (const QJsonValue entry : withIndices(member("keywords").toArray())) {
            const int at = entry[QLatin1String("index")].toInt() * KEYWORD_SIZE;
            put(bytes, at, entry[QLatin1String("name")].toString());
            put(bytes, at + 80, unitsCode(entry[QLatin1String("units")].toString()));
            put(bytes, at + 84, keywordKind(entry[QLatin1String("kind")].toString()));
        }
        return bytes;
    }

    int32_t unitsCode(const QString& name) const
    {
        const QStringList all = units();
        for (int i = 0; i < all.size(); ++i) {
            if (all[i].section(QLatin1Char(' '), 1) == name.toUpper())
                return i + 1;
        }
        return 0;
    }

    static char keywordKind(const QString& name)
    {
        static const QStringList kinds{QStringLiteral("channel"), QStringLiteral("parameter"),
                                       QStringLiteral("channel_or_parameter")};
        return static_cast<char>(kinds.indexOf(name));
    }

    QByteArray records(const QString& area) const
    {
        QByteArray bytes;
        for (const Table& table : TABLES) {
            if (area == QLatin1String(table.area)) {
                bytes = bytes.leftJustified(tableEnd(table), '\0');
                putRecords(table, bytes);
            }
        }
        return bytes;
    }

    int tableEnd(const Table& table) const
    {
        const int length = table.countAt != 0 ? count(table.countAt) : table.length;
        return table.offset + length * record(table).size;
    }

    void putRecords(const Table& table, QByteArray& bytes) const
    {
        for (const QJsonValue entry : entries(table)) {
            const int index = entry[QLatin1String("index")].toInt();
            const int at = table.offset + index * record(table).size;
            const int16_t active = entry[QLatin1String("active")].toBool(true) ? 1 : 0;
            put(bytes, at + record(table).activeAt, active);
            put(bytes, at + record(table).labelAt, entry[QLatin1String("label")].toString());
        }
    }

    QByteArray text_;
    QJsonObject catalogue_;
};

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

// The first byte that differs, or -1.
int firstDifference(const QByteArray& a, const QByteArray& b)
{
    const auto difference = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
    return a == b ? -1 : static_cast<int>(difference.first - a.begin());
}

bool isLocked(const QString& path)
{
    QFile file(path);
    struct flock lock {};
    lock.l_type = F_RDLCK;
    lock.l_whence = SEEK_SET;
    return file.open(QIODevice::ReadOnly) && fcntl(file.handle(), F_OFD_GETLK, &lock) == 0 &&
           lock.l_type == F_WRLCK;
}

}  // namespace

class TestSharedMemory : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data()
    {
        QTest::addColumn<QByteArray>("catalogue");
        const QString examples = qEnvironmentVariable("SCRIBON_EXAMPLES");
        QTest::newRow("the demo cell") << contentOf(examples + QStringLiteral("/catalogue.json"));
        QTest::newRow("a sparse catalogue") << QByteArray(SPARSE_CATALOGUE);
        QTest::newRow("an empty catalogue") << QByteArray(R"({ "areas": {} })");
    }

    void init()
    {
        QFETCH_GLOBAL(QByteArray, catalogue);
        desk_ = std::make_unique<DeskProcess>();
        QVERIFY(desk_->startWith(catalogue));
    }

    void cleanup() { desk_.reset(); }

    void oneObjectForEachArea()
    {
        QFETCH_GLOBAL(QByteArray, catalogue);
        QCOMPARE(sharedMemoryOf(desk_->name()), Expectation(catalogue).objects());
    }

    void everyByteOfEveryAreaIsAsDescribed()
    {
        QFETCH_GLOBAL(QByteArray, catalogue);
        const Expectation expectation(catalogue);
        for (const QString& object : expectation.objects()) {
            if (object == QLatin1String("directory"))
                continue;
            const QByteArray actual = contentOf(sharedMemoryPath(desk_->name(), object));
            const QByteArray expected = expectation.content(object);
            QVERIFY2(actual.size() == expected.size(),
                     qPrintable(QStringLiteral("%1: %2 bytes instead of %3")
                                    .arg(object)
                                    .arg(actual.size())
                                    .arg(expected.size())));
            const int difference = firstDifference(actual, expected);
            QVERIFY2(difference == -1,
                     qPrintable(QStringLiteral("%1: byte %2").arg(object).arg(difference)));
        }
    }

    void directoryHoldsUnitsAndAliases()
    {
        QFETCH_GLOBAL(QByteArray, catalogue);
        const Expectation expectation(catalogue);
        const QString path = sharedMemoryPath(desk_->name(), QStringLiteral("directory"));
        const QByteArray bytes = contentOf(path);
        QVERIFY(isLocked(path));
        QCOMPARE(bytes.left(8), QByteArray("MARVDESK"));
        QCOMPARE(numberAt(bytes, 8), 1U);
        QCOMPARE(numberAt(bytes, 12), static_cast<uint>(bytes.size()));
        QVERIFY(numberAt(bytes, 16) != 0);
        QStringList units;
        for (int i = 0; i < int(numberAt(bytes, 28)); ++i) {
            const int at = int(numberAt(bytes, 24)) + 20 * i;
            units << QStringLiteral("%1 %2").arg(numberAt(bytes, at + 16)).arg(textAt(bytes, at));
        }
        QCOMPARE(units, expectation.units());
        QStringList variables;
        for (int i = 0; i < int(numberAt(bytes, 36)); ++i) {
            const int at = int(numberAt(bytes, 32)) + 184 * i;
            variables << QStringLiteral("%1 %2 %3 [%4] %5")
                             .arg(numberAt(bytes, at + 176) & 0xffff)
                             .arg(numberAt(bytes, at + 180) & 0xffff)
                             .arg(textAt(bytes, at), textAt(bytes, at + 80),
                                  textAt(bytes, at + 160));
        }
        variables.sort();
        QCOMPARE(variables, expectation.variables());
    }

    void whatIsNotInUseTakesNoMemory()
    {
        const QString path = sharedMemoryPath(desk_->name(), QStringLiteral("STRING_ARRAY_MEM"));
        struct stat status {};
        if (stat(qPrintable(path), &status) != 0)
            return;
        QVERIFY(status.st_size > 360178);
        QVERIFY(status.st_blocks * 512 < status.st_size / 4);
    }

private:
    std::unique_ptr<DeskProcess> desk_;
};

QTEST_GUILESS_MAIN(TestSharedMemory)
#include "tst_shared_memory.moc"
