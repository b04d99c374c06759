// The host library with invalid contents of shared memory.

#include <marvane_headers.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QFile>
#include <QtTest>
#include <array>
#include <cstring>
#include <memory>

#include "desk_process.h"

namespace {

// Offsets in the directory, from docs/DESK_PLATFORM.md.
constexpr int VERSION_AT = 8;
constexpr int SIZE_AT = 12;
constexpr int READY_AT = 16;
constexpr int UNITS_AT = 24;
constexpr int VARIABLES_AT = 32;
constexpr int BUCKETS_AT = 40;
constexpr int UNITS_IN_VARIABLE = 160;

constexpr char CATALOGUE[] = R"({
  "units": { "speed": ["RPM", "HZ"] },
  "counts": { "analog_inputs": 3, "real_arrays": 1 },
  "areas": {
    "AI_REAL_MEM": { "real": [ { "label": "eng_speed", "units": "RPM", "alias": "N" } ] },
    "CONTROL_MEM": { "string": [ { "index": 297, "label": "last" } ] },
    "REAL_ARRAY_MEM": { "real_array": [ { "label": "curve" } ] }
  },
  "keywords": [ { "name": "N", "kind": "channel" } ]
})";

size_t pageSize()
{
    return static_cast<size_t>(sysconf(_SC_PAGESIZE));
}

size_t roundedToPages(size_t size)
{
    return (size + pageSize() - 1) / pageSize() * pageSize();
}

// Two pages, of which the second cannot be read.
class GuardedPage {
public:
    GuardedPage()
        : address_(static_cast<char*>(mmap(nullptr, 2 * pageSize(), PROT_READ | PROT_WRITE,
                                           MAP_PRIVATE | MAP_ANONYMOUS, -1, 0)))
    {
        mprotect(address_ + pageSize(), pageSize(), PROT_NONE);
    }
    ~GuardedPage() { munmap(address_, 2 * pageSize()); }

    // Copies the bytes directly in front of the second page.
    const char* ending(const QByteArray& bytes)
    {
        char* begin = address_ + pageSize() - bytes.size();
        std::memcpy(begin, bytes.constData(), static_cast<size_t>(bytes.size()));
        return begin;
    }

private:
    Q_DISABLE_COPY(GuardedPage)

    char* address_;
};

// Whether the byte can be read without a signal that ends the process.
bool canRead(const char* byte)
{
    const pid_t child = fork();
    if (child == 0) {
        signal(SIGSEGV, SIG_DFL);
        signal(SIGBUS, SIG_DFL);
        const char value = *static_cast<const volatile char*>(byte);
        _exit(value == 0 ? 0 : 1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status);
}

// The lines of /proc/self/maps for shared memory objects.
QByteArray mappedObjects()
{
    QFile file(QStringLiteral("/proc/self/maps"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool isZero(const char* begin, size_t size)
{
    return size == 0 || (*begin == 0 && std::memcmp(begin, begin + 1, size - 1) == 0);
}

bool isPlatformThere()
{
    void* address = nullptr;
    return link_to_memory(SYS_ATTR_MEM, &address) != 0;
}

bool isFound(const char* label)
{
    SHARED_MEMORY handle;
    return find_variable(label, &handle) == 0;
}

template <typename Number>
QByteArray bytesOf(Number number)
{
    return {reinterpret_cast<const char*>(&number), sizeof number};
}

}  // namespace

class TestHostDistrust : public QObject {
    Q_OBJECT

private:
    bool overwrite(const char* object, qint64 at, const QByteArray& bytes)
    {
        QFile file(sharedMemoryPath(desk_->name(), QString::fromLatin1(object)));
        return file.open(QIODevice::ReadWrite) && file.seek(at) &&
               file.write(bytes) == bytes.size() && file.flush();
    }

    bool resize(const char* object, qint64 size)
    {
        return QFile::resize(sharedMemoryPath(desk_->name(), QString::fromLatin1(object)), size);
    }

    uint32_t directoryNumber(qint64 at)
    {
        QFile file(sharedMemoryPath(desk_->name(), QStringLiteral("directory")));
        uint32_t number = 0;
        if (file.open(QIODevice::ReadOnly) && file.seek(at))
            file.read(reinterpret_cast<char*>(&number), sizeof number);
        return number;
    }

private Q_SLOTS:
    void init()
    {
        desk_ = std::make_unique<DeskProcess>();
        QVERIFY(desk_->startWith(CATALOGUE));
        marvane_init_fn(1);
    }

    void cleanup() { desk_.reset(); }

    void readableAsFarAsAnyCountReaches_data()
    {
        QTest::addColumn<int>("area");
        QTest::addColumn<qulonglong>("reach");
        constexpr qulonglong MOST = 65535;
        QTest::newRow("the counts") << int{SYS_ATTR_MEM} << 1774ULL;
        QTest::newRow("a table with a count") << int{AI_REAL_MEM} << MOST * 390;
        QTest::newRow("tables of fixed lengths") << int{CONTROL_MEM} << 619260ULL;
        QTest::newRow("arrays") << int{REAL_ARRAY_MEM} << MOST * 360186;
        QTest::newRow("keywords") << int{KEYWORD_MEM} << 704058ULL;
    }
    void readableAsFarAsAnyCountReaches()
    {
        QFETCH(int, area);
        QFETCH(qulonglong, reach);
        const auto* begin =
            static_cast<const char*>(get_shrd_mem(static_cast<SM_AREA_ID>(area), 0));
        QVERIFY(begin != nullptr);
        QVERIFY(canRead(begin));
        QVERIFY(canRead(begin + reach - 1));
        QVERIFY(!canRead(begin + roundedToPages(reach)));
    }

    void countBeyondTheAreaMeetsRecordsNotInUse()
    {
        QVERIFY(overwrite("SYS_ATTR_MEM", 1400, bytesOf(uint16_t{65535})));
        QVERIFY(overwrite("SYS_ATTR_MEM", 1764, bytesOf(uint16_t{65535})));
        void* address = nullptr;
        QVERIFY(link_to_memory(SYS_ATTR_MEM, &address) != 0);
        const auto* counts = static_cast<const SYSTEM_ATTRIBUTES*>(address);
        const auto* inputs = static_cast<const _real_variable*>(get_shrd_mem(AI_REAL_MEM, 0));
        const auto* arrays =
            static_cast<const _real_array_variable*>(get_shrd_mem(REAL_ARRAY_MEM, 0));
        int active = 0;
        for (size_t i = 0; i < counts->analog_inputs; ++i)
            active += inputs[i].active != 0 ? 1 : 0;
        for (size_t i = 0; i < counts->real_arrays; ++i)
            active += arrays[i].active != 0 || arrays[i].label[0] != 0 ? 1 : 0;
        QCOMPARE(active, 2);
    }

    void freedAreaIsGone()
    {
        const int before = mappedObjects().count("REAL_ARRAY_MEM");
        const auto* area = static_cast<const char*>(get_shrd_mem(REAL_ARRAY_MEM, 0));
        QVERIFY(area != nullptr);
        QVERIFY(canRead(area));
        fre_shrd_mem(REAL_ARRAY_MEM);
        QVERIFY(!canRead(area));
        QCOMPARE(mappedObjects().count("REAL_ARRAY_MEM"), before);
    }

    void directoryIsMappedOnce()
    {
        for (int i = 0; i < 3; ++i) {
            marvane_init_fn(1);
            QVERIFY(isFound("eng_speed"));
        }
        QCOMPARE(mappedObjects().count(".directory"), 1);
    }

    void areaThatIsShorterThanItsTable_data()
    {
        QTest::addColumn<qlonglong>("size");
        QTest::newRow("empty") << 0LL;
        QTest::newRow("of one byte") << 1LL;
        QTest::newRow("cut in a page") << 5000LL;
        QTest::newRow("cut at a page") << 8192LL;
    }
    void areaThatIsShorterThanItsTable()
    {
        QFETCH(qlonglong, size);
        QVERIFY(resize("CONTROL_MEM", size));
        const auto* area = static_cast<const char*>(get_shrd_mem(CONTROL_MEM, 0));
        QVERIFY(area != nullptr);
        QVERIFY(isZero(area + size, 619260 - static_cast<size_t>(size)));
    }

    void areaThatIsLongerThanItsTable()
    {
        QVERIFY(resize("CONTROL_MEM", 50000000));
        const auto* area = static_cast<const char*>(get_shrd_mem(CONTROL_MEM, 0));
        QVERIFY(area != nullptr);
        QVERIFY(!canRead(area + roundedToPages(619260)));
    }

    void areaThatVanished()
    {
        QVERIFY(QFile::remove(sharedMemoryPath(desk_->name(), QStringLiteral("CONTROL_MEM"))));
        QVERIFY(get_shrd_mem(CONTROL_MEM, 0) == nullptr);
        QVERIFY(isPlatformThere());
    }

    void textThatFillsItsFieldIsReadToItsEndOnly()
    {
        GuardedPage page;
        const char* label = page.ending(QByteArray(80, 'x'));
        SHARED_MEMORY handle{};
        char* alias = nullptr;
        QVERIFY(!isFound(label));
        QVERIFY(find_alias_of_target(label, &handle, &alias) != 0);
        QVERIFY(find_stat_label(label, &handle) != 0);
        const char* units = page.ending(QByteArray(16, 'x'));
        UNITS_NAME names[2];
        int16_t count = 2;
        LV_get_units2(units, &count, names);
        QCOMPARE(count, int16_t{0});
        int32_t code = 0;
        QVERIFY(units_keyword_to_code(units, &code) != 0);
    }

    void unitsWithoutATerminatingZero()
    {
        const QByteArray sixteen("ABCDEFGHIJKLMNOP");
        const uint32_t units = directoryNumber(UNITS_AT);
        const uint32_t variables = directoryNumber(VARIABLES_AT);
        QVERIFY(overwrite("directory", units, sixteen));
        QVERIFY(overwrite("directory", variables + UNITS_IN_VARIABLE, sixteen));
        SHARED_MEMORY handle;
        QCOMPARE(find_variable("eng_speed", &handle), int16_t{0});
        QCOMPARE(get_variable_units(handle), sixteen.constData());
        UNITS_NAME names[3] = {{}, {}, "after"};
        int16_t count = 2;
        LV_get_units2("hz", &count, names);
        QCOMPARE(count, int16_t{2});
        QCOMPARE(QByteArray(names[0], sizeof names[0]), sixteen);
        QCOMPARE(names[1], "HZ");
        QCOMPARE(names[2], "after");
    }

    void aliasWithoutATerminatingZero()
    {
        QVERIFY(overwrite("directory", directoryNumber(VARIABLES_AT) + 80, QByteArray(80, 'y')));
        SHARED_MEMORY handle;
        char* alias = nullptr;
        QCOMPARE(find_alias_of_target("eng_speed", &handle, &alias), int16_t{0});
        QCOMPARE(QByteArray(alias), QByteArray(80, 'y'));
    }

    void directoryThatDoesNotFitTogether_data()
    {
        QTest::addColumn<int>("at");
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("another kind of file") << 0 << QByteArray("M");
        QTest::newRow("another version") << VERSION_AT << bytesOf(uint32_t{2});
        QTest::newRow("a smaller size than it has") << SIZE_AT << bytesOf(uint32_t{100});
        QTest::newRow("a larger size than it has") << SIZE_AT << bytesOf(uint32_t{1} << 30);
        QTest::newRow("not ready") << READY_AT << bytesOf(uint32_t{0});
        for (const int array : {UNITS_AT, VARIABLES_AT, BUCKETS_AT}) {
            QTest::addRow("the array at %d begins behind the end", array)
                << array << bytesOf(uint32_t{0xfffffffc});
            QTest::addRow("the array at %d is not aligned", array)
                << array << bytesOf(uint32_t{49});
            QTest::addRow("the array at %d ends behind the end", array)
                << array + 4 << bytesOf(uint32_t{0x10000000});
        }
        QTest::newRow("buckets that are no power of two") << BUCKETS_AT + 4 << bytesOf(uint32_t{3});
    }
    void directoryThatDoesNotFitTogether()
    {
        QFETCH(int, at);
        QFETCH(QByteArray, bytes);
        QByteArray damage = bytes;
        if (at == 0)
            damage[0] = 'X';
        QVERIFY(overwrite("directory", at, damage));
        QVERIFY(!isPlatformThere());
        QVERIFY(!isFound("eng_speed"));
    }

    // The header is copied when it is checked and not read again.
    void directoryThatIsDamagedLater_data()
    {
        QTest::addColumn<int>("at");
        QTest::addColumn<uint>("number");
        for (const int array : {UNITS_AT, VARIABLES_AT, BUCKETS_AT}) {
            QTest::addRow("the array at %d begins behind the end", array) << array << 0x40000000U;
            QTest::addRow("the array at %d ends behind the end", array) << array + 4 << 0x40000000U;
        }
    }
    void directoryThatIsDamagedLater()
    {
        QFETCH(int, at);
        QFETCH(uint, number);
        QVERIFY(isFound("eng_speed"));
        QVERIFY(overwrite("directory", at, bytesOf(uint32_t{number})));
        QVERIFY(isFound("eng_speed"));
        SHARED_MEMORY handle;
        QCOMPARE(find_variable("eng_speed", &handle), int16_t{0});
        QCOMPARE(get_variable_units(handle), "RPM");
        int16_t count = 30;
        std::array<UNITS_NAME, 30> names{};
        LV_get_units2("RPM", &count, names.data());
        QVERIFY(count > 0);
    }

    void shortDirectory_data()
    {
        QTest::addColumn<int>("size");
        QTest::newRow("an empty one") << 0;
        QTest::newRow("less than its header") << 47;
        QTest::newRow("its header alone") << 48;
    }
    void shortDirectory()
    {
        QFETCH(int, size);
        QVERIFY(resize("directory", size));
        QVERIFY(!isPlatformThere());
    }

    void directoryThatVanished()
    {
        QVERIFY(QFile::remove(sharedMemoryPath(desk_->name(), QStringLiteral("directory"))));
        QVERIFY(!isPlatformThere());
    }

    void bucketsThatLeadAstray_data()
    {
        QTest::addColumn<uint>("bucket");
        QTest::newRow("behind the last variable") << 1000U;
        QTest::newRow("far behind the last variable") << 0xffffffffU;
        QTest::newRow("all to the same variable") << 1U;
    }
    void bucketsThatLeadAstray()
    {
        QFETCH(uint, bucket);
        const uint32_t at = directoryNumber(BUCKETS_AT);
        const uint32_t count = directoryNumber(BUCKETS_AT + 4);
        QVERIFY(overwrite("directory", at,
                          bytesOf(uint32_t{bucket}).repeated(static_cast<int>(count))));
        QVERIFY(isPlatformThere());
        QVERIFY(!isFound("curve"));
    }

private:
    std::unique_ptr<DeskProcess> desk_;
};

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, TestHostDistrust)
#include "tst_host_distrust.moc"
