#include "window_test.h"

#include "editor_antlr3.h"
#include "marvane_headers.h"

void WindowTest::initTestCase()
{
    QVERIFY2(inPrivateNamespace(), "run this through scripts/in-namespace");
    QVERIFY(
        m_desk.start(qEnvironmentVariable("SCRIBON_EXAMPLES") + QStringLiteral("/catalogue.json")));
    QCOMPARE(marvane_init_fn(1), int16_t(0));
}

void WindowTest::init()
{
    emptyPlaces();
    m_dialogs = std::make_unique<ModalDialogs>();
    m_window = std::make_unique<MainWindow>(nullptr);
}

void WindowTest::cleanup()
{
    m_window.reset();
    m_dialogs.reset();
    LoadingFile = 0;
    QApplication::setFont(m_applicationFont);
}

void WindowTest::loadGoodFile(const QByteArray& text)
{
    QVERIFY(writeFile(QStringLiteral("/specs/good"), text));
    m_window->loadFile(QStringLiteral("/specs/good"), false);
    QCOMPARE(titleOf(*m_window), QStringLiteral("/specs/good"));
}

void WindowTest::failOverLoadedDocument()
{
    loadGoodFile();
    QVERIFY(writeFile(QStringLiteral("/specs/bad"), badSpec()));
    m_window->loadFile(QStringLiteral("/specs/bad"), false);
}

void WindowTest::edit(int tab, int row, int column, const QString& text)
{
    TreeModel* const model = modelOf(*m_window, tab);
    QVERIFY(model->undoredo_setData(model->index(row, column), text));
}
