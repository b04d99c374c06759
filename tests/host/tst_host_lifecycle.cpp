// Platforms that are started, ended, killed, replaced by another, and several at a time.

#include <marvane_headers.h>
#include <signal.h>
#include <sys/stat.h>

#include <QFileInfo>
#include <QtTest>
#include <memory>

#include "desk_process.h"

namespace {

QByteArray catalogueWith(const QByteArray& label)
{
    return R"({ "units": { "speed": ["RPM"] },
                "areas": { "GU_REAL_MEM": { "real": [
                  { "label": ")" +
           label + R"(", "units": "RPM", "alias": "other" } ] } },
                "keywords": [] })";
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

QString demoCatalogue()
{
    return qEnvironmentVariable("SCRIBON_EXAMPLES") + QStringLiteral("/catalogue.json");
}

QString firstLabel(void* area)
{
    return QString::fromLatin1(static_cast<const _real_variable*>(area)->label);
}

}  // namespace

class TestHostLifecycle : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        desk_ = std::make_unique<DeskProcess>();
        marvane_init_fn(1);
    }

    void cleanup() { desk_.reset(); }

    void withoutAPlatformNothingIsThere()
    {
        QVERIFY(!isPlatformThere());
        QVERIFY(get_shrd_mem(GU_REAL_MEM, 0) == nullptr);
        QCOMPARE(shrd_mem_in_use(SYS_ATTR_MEM), int16_t{0});
        QVERIFY(!isFound("eng_speed"));
        SHARED_MEMORY handle{};
        char* alias = nullptr;
        QVERIFY(find_alias_of_target("eng_speed", &handle, &alias) != 0);
        QVERIFY(find_stat_label("eng_speed", &handle) != 0);
        QCOMPARE(get_variable_units(handle), "");
        UNITS_NAME names[3];
        int16_t count = 3;
        LV_get_units2("RPM", &count, names);
        QCOMPARE(count, int16_t{0});
        int32_t code = 77;
        QVERIFY(units_keyword_to_code("RPM", &code) != 0);
        QCOMPARE(code, 77);
    }

    void platformThatStartsLaterIsSeen()
    {
        QVERIFY(!isPlatformThere());
        QVERIFY(desk_->startWith(catalogueWith("eng_speed")));
        QVERIFY(isPlatformThere());
        QVERIFY(isFound("eng_speed"));
    }

    void endOfThePlatform_data()
    {
        QTest::addColumn<bool>("killed");
        QTest::newRow("told to end") << false;
        QTest::newRow("killed") << true;
    }
    void endOfThePlatform()
    {
        QFETCH(bool, killed);
        QVERIFY(desk_->startWith(catalogueWith("eng_speed")));
        QVERIFY(isPlatformThere());
        void* area = get_shrd_mem(GU_REAL_MEM, 0);
        SHARED_MEMORY handle;
        QCOMPARE(find_variable("eng_speed", &handle), int16_t{0});
        QVERIFY(killed ? desk_->kill() : desk_->terminate());
        QVERIFY(!isPlatformThere());
        QVERIFY(get_shrd_mem(GU_REAL_MEM, 0) == nullptr);
        QVERIFY(!isFound("eng_speed"));
        QCOMPARE(get_variable_units(handle), "");
        // Attached areas stay readable until they are freed.
        QCOMPARE(firstLabel(area), QStringLiteral("eng_speed"));
        QVERIFY(shrd_mem_in_use(GU_REAL_MEM) != 0);
        QCOMPARE(fre_shrd_mem(GU_REAL_MEM), int16_t{0});
    }

    void toldToEndItLeavesNothing_data()
    {
        QTest::addColumn<int>("signal");
        QTest::newRow("by SIGTERM") << SIGTERM;
        QTest::newRow("by SIGINT") << SIGINT;
        QTest::newRow("by SIGHUP") << SIGHUP;
    }
    void toldToEndItLeavesNothing()
    {
        QFETCH(int, signal);
        QVERIFY(desk_->startWith(catalogueWith("eng_speed")));
        QCOMPARE(sharedMemoryOf(desk_->name()),
                 QStringList({QStringLiteral("GU_REAL_MEM"), QStringLiteral("KEYWORD_MEM"),
                              QStringLiteral("SYS_ATTR_MEM"), QStringLiteral("directory")}));
        QVERIFY(desk_->end(signal));
        QCOMPARE(sharedMemoryOf(desk_->name()), QStringList());
    }

    void nextStartCleansUpAfterAKilledOne()
    {
        QVERIFY(desk_->startWith(R"({ "areas": { "LOGI_MEM": {}, "GU_REAL_MEM": {} } })"));
        QVERIFY(desk_->kill());
        QVERIFY(sharedMemoryOf(desk_->name()).contains(QStringLiteral("LOGI_MEM")));
        QVERIFY(desk_->startWith(R"({ "areas": { "GU_REAL_MEM": {} } })"));
        QVERIFY(!sharedMemoryOf(desk_->name()).contains(QStringLiteral("LOGI_MEM")));
        QVERIFY(isPlatformThere());
        QVERIFY(desk_->terminate());
        QCOMPARE(sharedMemoryOf(desk_->name()), QStringList());
    }

    void leftOneThatCannotBeRemovedIsToldOf()
    {
        QFile left(sharedMemoryPath(desk_->name(), QStringLiteral("directory")));
        QVERIFY(left.open(QIODevice::WriteOnly) && left.write("x") == 1 && left.flush());
        const QByteArray directory = QFileInfo(left).path().toLocal8Bit();
        QCOMPARE(chmod(directory.constData(), 0555), 0);
        const auto result =
            DeskProcess::run({QStringLiteral("--name"), desk_->name(), demoCatalogue()});
        QCOMPARE(chmod(directory.constData(), 01777), 0);
        QCOMPARE(result.status, 1);
        QVERIFY(result.complaints.contains("Permission denied"));
        QCOMPARE(result.complaints.count('\n'), 1);
    }

    void closedOutputDoesNotEndIt()
    {
        const QTemporaryDir folder;
        desk_->startUnread(folder.filePath(QStringLiteral("output")), demoCatalogue());
        QTRY_VERIFY(isPlatformThere());
        QVERIFY(desk_->terminate());
        QCOMPARE(sharedMemoryOf(desk_->name()), QStringList());
    }

    // It must not write into an object that others may have open, and that it could not remove.
    void leftAreaThatCannotBeRemovedIsNotUsed()
    {
        for (const char* const object : {"directory", "SYS_ATTR_MEM"}) {
            QFile left(sharedMemoryPath(desk_->name(), QString::fromLatin1(object)));
            QVERIFY(left.open(QIODevice::WriteOnly));
        }
        QCOMPARE(chmod("/dev/shm", 0555), 0);
        const auto result =
            DeskProcess::run({QStringLiteral("--name"), desk_->name(), demoCatalogue()});
        QCOMPARE(chmod("/dev/shm", 01777), 0);
        QCOMPARE(result.status, 1);
        QVERIFY2(result.complaints.contains("SYS_ATTR_MEM: File exists"), result.complaints);
        const QString area = sharedMemoryPath(desk_->name(), QStringLiteral("SYS_ATTR_MEM"));
        QCOMPARE(QFileInfo(area).size(), 0);
    }

    void clientGoesOverToTheNextPlatform_data() { endOfThePlatform_data(); }
    void clientGoesOverToTheNextPlatform()
    {
        QFETCH(bool, killed);
        QVERIFY(desk_->startWith(catalogueWith("first")));
        void* before = get_shrd_mem(GU_REAL_MEM, 0);
        QCOMPARE(firstLabel(before), QStringLiteral("first"));
        QVERIFY(killed ? desk_->kill() : desk_->terminate());
        QVERIFY(desk_->startWith(catalogueWith("second")));
        QVERIFY(isFound("second"));
        QVERIFY(!isFound("first"));
        void* after = get_shrd_mem(GU_REAL_MEM, 0);
        QCOMPARE(firstLabel(after), QStringLiteral("second"));
        QCOMPARE(firstLabel(before), QStringLiteral("first"));
    }

    void secondOneOfTheSameNameIsRefused()
    {
        QVERIFY(desk_->startWith(catalogueWith("eng_speed")));
        const QStringList objects = sharedMemoryOf(desk_->name());
        const auto second =
            DeskProcess::run({QStringLiteral("--name"), desk_->name(), demoCatalogue()});
        QCOMPARE(second.status, 1);
        QCOMPARE(second.output, QByteArray());
        QCOMPARE(second.complaints.count('\n'), 1);
        QVERIFY(second.complaints.contains("running already"));
        QVERIFY(second.complaints.contains(desk_->name().toLatin1()));
        QCOMPARE(sharedMemoryOf(desk_->name()), objects);
        QVERIFY(isFound("eng_speed"));
    }

    void platformsSideBySide()
    {
        QVERIFY(desk_->startWith(catalogueWith("left")));
        DeskProcess other;
        QVERIFY(other.startWith(catalogueWith("right")));
        // The environment variable has changed, which is read when the process joins.
        QVERIFY(isFound("left"));
        QVERIFY(!isFound("right"));
        marvane_init_fn(1);
        QVERIFY(isFound("right"));
        QVERIFY(!isFound("left"));
        QVERIFY(desk_->kill());
        QVERIFY(isPlatformThere());
    }

    void nameInTheEnvironment_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::newRow("a name with a slash") << QByteArray("a/b");
        QTest::newRow("a name with a full stop") << QByteArray("a.b");
        QTest::newRow("a name that is too long") << QByteArray(65, 'n');
    }
    void nameInTheEnvironment()
    {
        QFETCH(QByteArray, name);
        qputenv("MARVANE_DESK_NAME", name);
        marvane_init_fn(1);
        QVERIFY(!isPlatformThere());
        const auto result = DeskProcess::run({QStringLiteral("nothing")});
        QCOMPARE(result.status, 2);
        QCOMPARE(result.complaints.count('\n'), 1);
    }

    void processTakesItsNameFromTheEnvironment()
    {
        QVERIFY(desk_->startWith(catalogueWith("eng_speed")));
        const auto second = DeskProcess::run({demoCatalogue()});
        QCOMPARE(second.status, 1);
        QVERIFY(second.complaints.contains("running already"));
    }

private:
    std::unique_ptr<DeskProcess> desk_;
};

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, TestHostLifecycle)
#include "tst_host_lifecycle.moc"
