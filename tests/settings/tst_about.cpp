// The Help menu: the platform's version, the About boxes and the help.

#include <QTranslator>

#include "help_viewer.h"
#include "marvane_headers.h"
#include "window_test.h"

namespace {

// Replaces the platform's version text while it lives.
class OtherVersion {
public:
    explicit OtherVersion(const char* text) { MARVANE_VER = text; }
    ~OtherVersion() { MARVANE_VER = m_own; }

private:
    Q_DISABLE_COPY(OtherVersion)

    const char* const m_own = MARVANE_VER;
};

// A translation of the About box.
class Translation : public QTranslator {
public:
    Translation() { QCoreApplication::installTranslator(this); }

    QString translate(const char* context, const char* text, const char* /*disambiguation*/,
                      int /*n*/) const override
    {
        if (QLatin1String(context) != QLatin1String("MainWindow"))
            return {};
        if (QLatin1String(text) == QLatin1String("About Scribon Specification Editor"))
            return QStringLiteral("The editor");
        return QLatin1String(text).startsWith(QLatin1String("The <b>"))
                   ? QStringLiteral("This is version %1.")
                   : QString();
    }
};

}  // namespace

class tst_About : public WindowTest {
    Q_OBJECT

private Q_SLOTS:
    void versionNumber_data();
    void versionNumber();
    void aboutBox();
    void aboutBoxIsTranslated();
    void aboutQtBox();
    void actionsAreConnected_data();
    void actionsAreConnected();
    void helpContentsIsOnNoMenu();
    void windowLeavesItsViewerOpen();
    void eachWindowHasItsOwnViewer();

private:
    QAction* helpContents() const;
};

void tst_About::versionNumber_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("version");

    QTest::newRow("a text as platforms have it")
        << QByteArrayLiteral("$Version: E-7.0.23   $") << QStringLiteral("E-7.0.23 ");
    QTest::newRow("no blank: all of it")
        << QByteArrayLiteral("E-7.0.23") << QStringLiteral("E-7.0.23");
    QTest::newRow("one blank: all behind it")
        << QByteArrayLiteral("$Version: E-7.0.23$") << QStringLiteral("E-7.0.23$");
    QTest::newRow("two blanks: up to the second, with it")
        << QByteArrayLiteral("$Version: E-7.0.23 $") << QStringLiteral("E-7.0.23 ");
    QTest::newRow("two blanks at once: the second alone")
        << QByteArrayLiteral("$Version:  E-7.0.23") << QStringLiteral(" ");
    QTest::newRow("a blank at the start")
        << QByteArrayLiteral(" E-7.0.23 $") << QStringLiteral("E-7.0.23 ");
    QTest::newRow("a blank at the end alone") << QByteArrayLiteral("E-7.0.23 ") << QString();
    QTest::newRow("a tab is no blank")
        << QByteArrayLiteral("$Version:\tE-7 $") << QStringLiteral("$");
    QTest::newRow("UTF-8") << QByteArrayLiteral("$Version: \xc3\x84-7 $")
                           << QStringLiteral("\u00c4-7 ");
    QTest::newRow("an empty text") << QByteArrayLiteral("") << QString();
    QTest::newRow("no text") << QByteArray() << QString();
}

void tst_About::versionNumber()
{
    QFETCH(QByteArray, text);
    const OtherVersion version(text.isNull() ? nullptr : text.constData());
    QTEST(m_window->getVersionNumber(), "version");
}

void tst_About::aboutBox()
{
    const OtherVersion version("$Version: E-7.0.23   $");
    m_window->about();
    QCOMPARE(m_dialogs->boxes.size(), 1);
    const SeenBox& box = m_dialogs->boxes.first();
    QCOMPARE(box.title, QStringLiteral("About Scribon Specification Editor"));
    QCOMPARE(box.text,
             QStringLiteral(
                 "The <b>Scribon Specifications Editor</b>( E-7.0.23 ) allows a user to create and "
                 "modify scribon specification files.<br><br><b>Special Thanks to</b><br>"
                 "the developers of this editor for the Scribon editor's own icon set, which comes "
                 "under the <a href=\"file:///usr/local/share/doc/marvane/qt/scriboneditor/"
                 "LICENSE\">MIT License</a>."));
    QCOMPARE(box.parent, m_window.get());
}

void tst_About::aboutBoxIsTranslated()
{
    const OtherVersion version("$Version: E-7.0.23   $");
    const Translation translation;
    m_window->about();
    QCOMPARE(m_dialogs->boxes.size(), 1);
    QCOMPARE(m_dialogs->boxes.first().title, QStringLiteral("The editor"));
    QCOMPARE(m_dialogs->boxes.first().text, QStringLiteral("This is version E-7.0.23 ."));
}

void tst_About::aboutQtBox()
{
    m_window->aboutQt();
    QCOMPARE(m_dialogs->boxes.size(), 1);
    const SeenBox& box = m_dialogs->boxes.first();
    QCOMPARE(box.title, QStringLiteral("About Qt"));
    QVERIFY(box.text.contains(QLatin1String(qVersion())));
    QCOMPARE(box.parent, m_window.get());
}

QAction* tst_About::helpContents() const
{
    for (QAction* const action : m_window->findChildren<QAction*>()) {
        if (action->text() == QLatin1String("Help Contents"))
            return action;
    }
    return nullptr;
}

void tst_About::actionsAreConnected_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("title");

    QTest::newRow("About") << QStringLiteral("aboutAct")
                           << QStringLiteral("About Scribon Specification Editor");
    QTest::newRow("About Qt") << QStringLiteral("aboutQtAct") << QStringLiteral("About Qt");
    QTest::newRow("Contents") << QStringLiteral("actionContents")
                              << QStringLiteral("Documentation Error");
    QTest::newRow("Help Contents, which has no name")
        << QString() << QStringLiteral("Documentation Error");
}

void tst_About::actionsAreConnected()
{
    QFETCH(QString, action);
    removeHelpCollection();
    QAction* const found =
        action.isEmpty() ? helpContents() : m_window->findChild<QAction*>(action);
    QVERIFY(found != nullptr);
    found->trigger();
    QCOMPARE(m_dialogs->boxes.size(), 1);
    QTEST(m_dialogs->boxes.first().title, "title");
}

void tst_About::helpContentsIsOnNoMenu()
{
    const QAction* const action = helpContents();
    QVERIFY(action != nullptr);
    QCOMPARE(action->parent(), m_window.get());
    QCOMPARE(action->shortcuts(), QKeySequence::keyBindings(QKeySequence::HelpContents));
    QVERIFY(action->associatedWidgets().isEmpty());
}

void tst_About::windowLeavesItsViewerOpen()
{
    const HelpViewer viewers;
    QVERIFY(installHelpCollection());
    QVERIFY(HelpViewer::install(QStringLiteral("/tmp/qt")));
    setViewerVariables({QByteArrayLiteral("QT5DIR=/tmp/qt")});
    m_window->showDocumentation();
    QTRY_COMPARE(HelpViewer::input(), helpCommands());
    m_window.reset();
    QCoreApplication::processEvents();
    QVERIFY(HelpViewer::isThere(HelpViewer::processes().value(0)));
    QVERIFY(!HelpViewer::wasTerminated());
    QVERIFY(!HelpViewer::outlivedItsInput());
}

void tst_About::eachWindowHasItsOwnViewer()
{
    const HelpViewer viewers;
    QVERIFY(installHelpCollection());
    QVERIFY(HelpViewer::install(QStringLiteral("/tmp/qt")));
    setViewerVariables({QByteArrayLiteral("QT5DIR=/tmp/qt")});
    m_window->showDocumentation();
    QTRY_COMPARE(HelpViewer::input(), helpCommands());
    m_window = std::make_unique<MainWindow>(nullptr);
    m_window->showDocumentation();
    QTRY_COMPARE(HelpViewer::processes().size(), 2);
}

#include "area_test.h"
AREA_TEST(QTEST_MAIN, tst_About)
#include "tst_about.moc"
