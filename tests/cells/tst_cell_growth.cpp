// Checks that editing does not leak QObjects: editors, dialogs, charms and validators are deleted
// when their edit ends, by commit or by cancel. Counts all QObjects of the process, those without a
// parent, too.

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QUndoStack>
#include <atomic>

#include "variableselectiondialog.h"
#include "window_test.h"

// Qt's table of hooks that are called for each new and deleted QObject.
extern quintptr Q_CORE_EXPORT qtHookData[];

namespace {

constexpr int FIRST_EDITS = 3;  // some objects are created once only
constexpr int EDITS = 250;
constexpr int PASSING = 10;  // objects that come and go independently of editing

// Counts the QObjects that are created and not deleted while it lives.
class LivingObjects {
public:
    LivingObjects()
    {
        qtHookData[OBJECT_MADE] = reinterpret_cast<quintptr>(&count<1>);
        qtHookData[OBJECT_GONE] = reinterpret_cast<quintptr>(&count<-1>);
    }
    ~LivingObjects()
    {
        qtHookData[OBJECT_MADE] = 0;
        qtHookData[OBJECT_GONE] = 0;
    }

    int number() const { return s_number; }

private:
    Q_DISABLE_COPY(LivingObjects)

    enum { OBJECT_MADE = 3, OBJECT_GONE = 4 };

    template <int Change>
    static void count(QObject* /*object*/)
    {
        s_number += Change;
    }

    static std::atomic<int> s_number;
};

std::atomic<int> LivingObjects::s_number{0};

// Handles deferred deletes, as editors and dialogs are deleted by deleteLater().
void deleteWhatHasEnded()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QApplication::processEvents();
}

}  // namespace

class tst_CellGrowth : public WindowTest {
    Q_OBJECT

private Q_SLOTS:
    void objectsWithoutAParentAreCounted();
    void editsLeaveNoObjects_data();
    void editsLeaveNoObjects();

private:
    void edit(int tab, int column, const QString& text);
};

void tst_CellGrowth::objectsWithoutAParentAreCounted()
{
    const LivingObjects living;
    const int before = living.number();
    auto object = std::make_unique<QObject>();
    QCOMPARE(living.number(), before + 1);
    object.reset();
    QCOMPARE(living.number(), before);
}

void tst_CellGrowth::editsLeaveNoObjects_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<int>("column");
    QTest::newRow("lines") << 0 << 1;
    QTest::newRow("keywords") << 0 << 0;
    QTest::newRow("dialogs") << 1 << 1;
    QTest::newRow("lists") << 1 << 2;
    QTest::newRow("dialogs with a literal") << 2 << 2;
    QTest::newRow("alternate names") << 3 << 2;
}

// Edits the cell. An empty text cancels the edit if the editor can be cancelled.
void tst_CellGrowth::edit(int tab, int column, const QString& text)
{
    QTreeView* const view = viewOf(*m_window, tab);
    view->setFocus();
    goTo(view, 1, column);
    QTest::keyClick(view, Qt::Key_F2);
    if (auto* const dialog = m_window->findChild<VariableSelectionDialog*>()) {
        dialog->variableComboBox()->setEditText(text);
        if (text.isEmpty())
            dialog->reject();
        else
            dialog->accept();
    } else {
        auto* const editor = view->viewport()->findChild<QWidget*>();
        QVERIFY(editor != nullptr);
        auto* line = qobject_cast<QLineEdit*>(editor);
        if (line == nullptr)
            line = qobject_cast<QComboBox*>(editor)->lineEdit();
        line->setText(text);
        QTest::keyClick(editor, Qt::Key_Return);
    }
    deleteWhatHasEnded();
}

void tst_CellGrowth::editsLeaveNoObjects()
{
    QFETCH(int, tab);
    QFETCH(int, column);
    QVERIFY(writeFile(QStringLiteral("/specs/growth"),
                      "@SCRIBON\nx\n\n@START_EVENT\nevent\n\n@SCAN_LIST\neng_speed .AV N_ENG\n\n"
                      "@META_DATA\nBORE bore\n\n@SCAN_LIST_AUX_USER\neng_speed other\n\n"));
    m_window->loadFile(QStringLiteral("/specs/growth"), false);
    m_window->show();
    tabsOf(*m_window)->setCurrentIndex(tab);
    const LivingObjects living;
    for (int i = 0; i < FIRST_EDITS; ++i)
        edit(tab, column, QStringLiteral("first_%1").arg(i));
    const int objects = living.number();
    const int steps = m_window->uStack()->count();
    for (int i = 0; i < EDITS; ++i)
        edit(tab, column, QStringLiteral("text_%1").arg(i));
    QCOMPARE(m_window->uStack()->count(), steps + EDITS);
    edit(tab, column, QString());
    const int more = living.number() - objects;
    QVERIFY2(more <= PASSING, qPrintable(QStringLiteral("%1 more").arg(more)));
}

#include "area_test.h"
AREA_TEST(QTEST_MAIN, tst_CellGrowth)
#include "tst_cell_growth.moc"
