// VariableSelectionDialog: accepting and rejecting, what a slot of finished() can read, and a
// platform that changes or ends meanwhile.

#include <QProcess>
#include <QtTest>

#include "dialog_test.h"
#include "model_text.h"
#include "test_catalogue.h"

namespace {

// What the delegate reads in the slot of finished().
struct Reading {
    int result;
    QStringList fields;
};

QVector<int> resultsOf(const QVector<Reading>& readings)
{
    QVector<int> results;
    for (const Reading& reading : readings)
        results.append(reading.result);
    return results;
}

enum class Way { OkByMouse, OkByKeyboard, CancelByMouse, CancelByKeyboard, Escape, Close, Hide };

}  // namespace

Q_DECLARE_METATYPE(Way)

class TestVariableDialogEnd : public DialogTest {
    Q_OBJECT

private Q_SLOTS:
    void acceptedIsEmittedOnceWithTheFieldsStillSet_data();
    void acceptedIsEmittedOnceWithTheFieldsStillSet();
    void slotThatHidesTheDialog();
    void rejected_data();
    void rejected();
    void hidingAfterAcceptanceEmitsNoSignal();

    void catalogueIsKeptForTheSameFilter();
    void catalogueIsReadAgainForAnotherFilter();
    void openDialogKeepsItsCatalogue();

    void dialogWorksAfterThePlatformEnds_data();
    void dialogWorksAfterThePlatformEnds();
    void anotherFilterWithoutAPlatformEndsTheProcess();

private:
    void listen();
    void end(Way way);

    QVector<Reading> m_readings;
};

void TestVariableDialogEnd::listen()
{
    m_readings.clear();
    connect(m_dialog.get(), &QDialog::finished, this, [this](int result) {
        m_readings.append({result,
                           {variables().currentText(), dialog().subText(), units().currentText(),
                            dialog().defaultUnits(), dialog().optionalText()}});
    });
}

void TestVariableDialogEnd::end(Way way)
{
    switch (way) {
        case Way::OkByMouse:
            QTest::mouseClick(&okButton(), Qt::LeftButton);
            break;
        case Way::OkByKeyboard:
            QTest::keyClick(&okButton(), Qt::Key_Space);
            break;
        case Way::CancelByMouse:
            QTest::mouseClick(&cancelButton(), Qt::LeftButton);
            break;
        case Way::CancelByKeyboard:
            QTest::keyClick(&cancelButton(), Qt::Key_Space);
            break;
        case Way::Escape:
            QTest::keyClick(&dialog(), Qt::Key_Escape);
            break;
        case Way::Close:
            dialog().close();
            break;
        case Way::Hide:
            dialog().hide();
            break;
    }
}

// ---- Its end -----------------------------------------------------------------------------------

void TestVariableDialogEnd::acceptedIsEmittedOnceWithTheFieldsStillSet_data()
{
    QTest::addColumn<Way>("way");
    QTest::newRow("a click on Ok") << Way::OkByMouse;
    QTest::newRow("the blank on Ok") << Way::OkByKeyboard;
}

void TestVariableDialogEnd::acceptedIsEmittedOnceWithTheFieldsStillSet()
{
    QFETCH(Way, way);
    make(QT_MARVANE_ANY, QStringLiteral("Literal"));
    dialog().setUnits(QStringLiteral("HZ"));
    show(QStringLiteral("speed_stat.MX"));
    QTest::keyClicks(dialog().lineEdit(), QStringLiteral("\"a\""));
    listen();
    end(way);
    QCOMPARE(resultsOf(m_readings), QVector<int>{QDialog::Accepted});
    QCOMPARE(m_readings.first().fields, lines({"speed_stat.", "MX", "HZ", "RPM", "\"a\""}));
    QVERIFY(dialog().isHidden());
    QCOMPARE(dialog().result(), int{QDialog::Accepted});
}

// The view hides its editor within the signal.
void TestVariableDialogEnd::slotThatHidesTheDialog()
{
    open(QT_MARVANE_ANY, QStringLiteral("oil_temp"));
    listen();
    connect(&dialog(), &QDialog::finished, &dialog(), &QWidget::hide);
    end(Way::OkByMouse);
    QCOMPARE(resultsOf(m_readings), QVector<int>{QDialog::Accepted});
}

// hideEvent() rejects the dialog, and rejecting hides it: slots may be called more than once.
void TestVariableDialogEnd::rejected_data()
{
    QTest::addColumn<Way>("way");
    QTest::newRow("a click on Cancel") << Way::CancelByMouse;
    QTest::newRow("the blank on Cancel") << Way::CancelByKeyboard;
    QTest::newRow("Escape") << Way::Escape;
    QTest::newRow("the window's close button") << Way::Close;
    QTest::newRow("hidden by the program") << Way::Hide;
}

void TestVariableDialogEnd::rejected()
{
    QFETCH(Way, way);
    open(QT_MARVANE_ANY, QStringLiteral("oil_temp"));
    listen();
    end(way);
    QVERIFY(!m_readings.isEmpty());
    QCOMPARE(resultsOf(m_readings), QVector<int>(m_readings.size(), QDialog::Rejected));
    QVERIFY(dialog().isHidden());
    QCOMPARE(dialog().result(), int{QDialog::Rejected});
}

void TestVariableDialogEnd::hidingAfterAcceptanceEmitsNoSignal()
{
    open(QT_MARVANE_ANY, QStringLiteral("oil_temp"));
    end(Way::OkByMouse);
    listen();
    dialog().setVisible(true);
    dialog().setVisible(false);
    QCOMPARE(resultsOf(m_readings), QVector<int>());
}

// ---- The catalogue -----------------------------------------------------------------------------

namespace {

// Renames a variable, so that the catalogue differs from Master_variables.
bool renameFirstAnalogInput(LivePlatform* platform)
{
    constexpr qint64 LABEL_AT = 64;
    return platform->overwrite("AI_REAL_MEM", LABEL_AT, QByteArray("renamed\0", 8));
}

}  // namespace

void TestVariableDialogEnd::catalogueIsKeptForTheSameFilter()
{
    open(QT_MARVANE_REAL);
    const auto catalogue = Master_variables;
    QVERIFY(renameFirstAnalogInput(m_platform.get()));
    open(QT_MARVANE_REAL);
    QCOMPARE(Master_variables, catalogue);
    QVERIFY(itemsOf(&variables()).contains(QStringLiteral("oil_temp")));
    QVERIFY(!itemsOf(&variables()).contains(QStringLiteral("renamed")));
    QCOMPARE(VMLType, int{QT_MARVANE_REAL});
}

void TestVariableDialogEnd::catalogueIsReadAgainForAnotherFilter()
{
    open(QT_MARVANE_REAL);
    QVERIFY(renameFirstAnalogInput(m_platform.get()));
    open(QT_MARVANE_ANY);
    QVERIFY(itemsOf(&variables()).contains(QStringLiteral("renamed")));
    QVERIFY(!itemsOf(&variables()).contains(QStringLiteral("oil_temp")));
    QCOMPARE(VMLType, int{QT_MARVANE_ANY});
    open(QT_MARVANE_REAL);
    QVERIFY(itemsOf(&variables()).contains(QStringLiteral("renamed")));
    QCOMPARE(VMLType, int{QT_MARVANE_REAL});
}

void TestVariableDialogEnd::openDialogKeepsItsCatalogue()
{
    open(QT_MARVANE_LOGICAL);
    std::unique_ptr<VariableSelectionDialog> older;
    older.swap(m_dialog);
    auto* const olderGroups = older->findChild<QComboBox*>(QStringLiteral("groupComboBox"));
    open(QT_MARVANE_STRING);
    QTest::keyClick(olderGroups, Qt::Key_Down);
    QCOMPARE(itemsOf(older->variableComboBox()), lines({"bay_clear", "door_open"}));
    QTest::keyClick(olderGroups, Qt::Key_Up);
    older->hide();
    older->show();
    QCOMPARE(itemsOf(older->variableComboBox()), lines({"bay_clear", "door_open"}));
    QCOMPARE(itemsOf(&variables()), lines({"engine_name", "user_text"}));
}

// ---- Without a platform ------------------------------------------------------------------------

void TestVariableDialogEnd::dialogWorksAfterThePlatformEnds_data()
{
    QTest::addColumn<bool>("killed");
    QTest::newRow("killed") << true;
    QTest::newRow("ended") << false;
}

void TestVariableDialogEnd::dialogWorksAfterThePlatformEnds()
{
    QFETCH(bool, killed);
    open(QT_MARVANE_ANY, QStringLiteral("speed_stat.MX"));
    QVERIFY(killed ? m_platform->kill() : m_platform->terminate());
    type(QStringLiteral("exhaust."));
    QCOMPARE(variables().currentText(), QStringLiteral("exhaust."));
    QCOMPARE(members().count(), 0);
    QVERIFY(!members().isEnabled());
    QCOMPARE(itemsOf(&units()), lines({"RPM"}));
    QTest::keyClick(&groups(), Qt::Key_Down);
    QCOMPARE(variables().currentText(), QStringLiteral("T_oil"));
    QCOMPARE(variables().count(), 5);

    open(QT_MARVANE_ANY, QStringLiteral("oil_temp"));
    QCOMPARE(variables().currentText(), QStringLiteral("oil_temp"));
    listen();
    end(Way::OkByMouse);
    QCOMPARE(resultsOf(m_readings), QVector<int>{QDialog::Accepted});
}

void TestVariableDialogEnd::anotherFilterWithoutAPlatformEndsTheProcess()
{
    // The program ends by exit(), so Qt frees nothing.
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("detect_leaks=0"));
    QProcess client;
    client.setProcessEnvironment(environment);
    client.start(QStringLiteral(DIALOG_CLIENT), QStringList());
    client.write("any\n");
    QVERIFY(client.waitForReadyRead());
    QCOMPARE(client.readLine(), QByteArray("shown\n"));
    QVERIFY(m_platform->kill());
    client.write("any\n");
    QVERIFY(client.waitForReadyRead());
    QCOMPARE(client.readLine(), QByteArray("shown\n"));
    client.write("strings\n");
    QVERIFY(client.waitForFinished());
    QCOMPARE(client.exitStatus(), QProcess::NormalExit);
    QCOMPARE(client.exitCode(), 0);
    QCOMPARE(client.readAllStandardOutput(),
             QByteArray("\n Marvane must be running to use this command\n"));
}

#include "area_test.h"
AREA_TEST(QTEST_MAIN, TestVariableDialogEnd)
#include "tst_variable_dialog_end.moc"
