// The program's Help menu with the real help viewer on the real collection.

#include <signal.h>

#include <QDir>
#include <QFile>
#include <QHelpEngineCore>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>
#include <memory>

#include "desk_process.h"
#include "editor_process.h"
#include "help_collection.h"
#include "places.h"
#include "virtual_display.h"

namespace {

constexpr int TIMEOUT_MS = 30000;

const auto EMPTY = QStringLiteral("Scribon Specification Editor:Empty File");
const auto VIEWER = QStringLiteral("Scribon Specification Editor Help");
const auto STATE = QStringLiteral("/tmp/viewer-state");
const auto STARTS = QStringLiteral("/tmp/viewer-starts");

// Removes the variables that make the editor load the test's plugins.
constexpr auto WRAPPER = R"(#!/bin/sh
echo $$ >>/tmp/viewer-starts
export QT_PLUGIN_PATH='%1' QT_QPA_GENERIC_PLUGINS=viewer_witness VIEWER_WITNESS_FILE=/tmp/viewer-state
unset LD_PRELOAD
exec '%2' "$@"
)";

QList<QByteArray> starts()
{
    return readFile(STARTS).split('\n').mid(0, readFile(STARTS).count('\n'));
}

QJsonArray viewerWindows()
{
    return QJsonDocument::fromJson(readFile(STATE)).array();
}

QJsonObject docks()
{
    return viewerWindows().first()[QLatin1String("docks")].toObject();
}

QString pageInFront()
{
    return docks().value(QLatin1String("Open Pages"))[QLatin1String("current")].toString();
}

int contentsRows()
{
    return docks().value(QLatin1String("Contents"))[QLatin1String("rows")].toArray().size();
}

}  // namespace

class tst_HelpViewer : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void menuShowsTheFirstPageAndTheContents();
    void secondRequestShowsTheFirstPageInTheSameViewer();

private:
    void installViewer();
    void askForHelp();

    DeskProcess m_desk;
    VirtualDisplay m_display;
    std::unique_ptr<EditorProcess> m_editor;
};

void tst_HelpViewer::installViewer()
{
    QVERIFY(QDir().mkpath(QStringLiteral("/tmp/qt/bin")));
    QFile viewer(QStringLiteral("/tmp/qt/bin/assistant"));
    QVERIFY(viewer.open(QIODevice::WriteOnly));
    viewer.write(
        QString::fromLatin1(WRAPPER)
            .arg(QStringLiteral(SCRIBON_WITNESS_PLUGINS), QStringLiteral(SCRIBON_ASSISTANT))
            .toLocal8Bit());
    QVERIFY(viewer.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
}

void tst_HelpViewer::init()
{
    for (const QString& place : {STATE, STARTS})
        QFile::remove(place);
    installViewer();
    if (m_display.name().isEmpty()) {
        QVERIFY(m_display.start());
        QVERIFY(m_desk.start(qEnvironmentVariable("SCRIBON_EXAMPLES") +
                             QStringLiteral("/catalogue.json")));
    }
    m_editor = std::make_unique<EditorProcess>();
    m_editor->setVariable(QStringLiteral("QT5DIR"), QStringLiteral("/tmp/qt"));
    m_editor->setVariable(QStringLiteral("DISPLAY"), m_display.name());
    m_editor->setVariable(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    m_editor->setVariable(QStringLiteral("QT_XCB_GL_INTEGRATION"), QStringLiteral("none"));
    QVERIFY(m_editor->start());
    QVERIFY(!m_editor->window(EMPTY).isEmpty());
}

void tst_HelpViewer::cleanup()
{
    for (const QByteArray& process : starts())
        kill(process.toInt(), SIGKILL);
    m_editor.reset();
}

void tst_HelpViewer::askForHelp()
{
    m_editor->ask(QStringLiteral("trigger actionContents"));
    QTRY_COMPARE_WITH_TIMEOUT(viewerWindows().size(), 1, TIMEOUT_MS);
    QTRY_COMPARE_WITH_TIMEOUT(pageInFront(), QStringLiteral("Scribon Specification Editor"),
                              TIMEOUT_MS);
}

void tst_HelpViewer::menuShowsTheFirstPageAndTheContents()
{
    askForHelp();
    QTRY_COMPARE_WITH_TIMEOUT(
        docks().keys(), (QStringList{QStringLiteral("Contents"), QStringLiteral("Open Pages")}),
        TIMEOUT_MS);
    HelpCollection help;
    QVERIFY(help.open());
    QTRY_COMPARE_WITH_TIMEOUT(contentsRows(), help.pages().size(), TIMEOUT_MS);
    QCOMPARE(m_display.windows().filter(VIEWER), QStringList{VIEWER});
}

// The user opens an empty page between the two requests.
void tst_HelpViewer::secondRequestShowsTheFirstPageInTheSameViewer()
{
    askForHelp();
    QVERIFY(m_display.strike(VIEWER, QStringLiteral("ctrl+t")));
    QTRY_COMPARE_WITH_TIMEOUT(pageInFront(), QStringLiteral("(Untitled)"), TIMEOUT_MS);
    askForHelp();
    QCOMPARE(starts().size(), 1);
    QCOMPARE(m_display.windows().filter(VIEWER), QStringList{VIEWER});
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, tst_HelpViewer)
#include "tst_help_viewer.moc"
