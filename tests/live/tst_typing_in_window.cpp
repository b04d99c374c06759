// What the user sees of the validation while typing.

#include <QLineEdit>
#include <QRegExpValidator>
#include <QtTest>

#include "validationcharm.h"
#include "window_test.h"

namespace {

// Counts the paint events of a widget.
class PaintCounter : public QObject {
public:
    explicit PaintCounter(QWidget* widget) { widget->installEventFilter(this); }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            ++m_count;
        return QObject::eventFilter(watched, event);
    }

    int count() const { return m_count; }

private:
    int m_count = 0;
};

}  // namespace

class TestTypingInWindow : public WindowTest {
    Q_OBJECT

public:
    TestTypingInWindow() { Q_INIT_RESOURCE(scriboneditor); }

private Q_SLOTS:
    void marksTheCellAtOnce();

private:
    QImage pictureOf(const QModelIndex& cell);

    ValidationCharm m_charm;
};

QImage TestTypingInWindow::pictureOf(const QModelIndex& cell)
{
    QTreeView* const view = viewOf(*m_window, DE_TAB1);
    return view->viewport()->grab(view->visualRect(cell)).toImage();
}

void TestTypingInWindow::marksTheCellAtOnce()
{
    loadGoodFile();
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    TreeModel* const model = modelOf(*m_window, DE_TAB1);
    const QModelIndex cell = model->index(0, 1);
    QRegExpValidator validator(QRegExp(QStringLiteral("[a-z]*")));
    QLineEdit lineEdit;
    m_charm.activateOn(&lineEdit, &validator, QString(), cell);
    const QImage good = pictureOf(cell);
    QCoreApplication::processEvents();

    const PaintCounter counter(viewOf(*m_window, DE_TAB1)->viewport());
    QTest::keyClick(&lineEdit, '1');
    QCOMPARE(model->errorCode(cell), QVariant(int{DE_SYNTAX_ERR}));
    QTRY_VERIFY(counter.count() > 0);
    const QImage wrong = pictureOf(cell);
    QVERIFY(wrong != good);

    QTest::keyClick(&lineEdit, Qt::Key_Backspace);
    QCOMPARE(model->errorCode(cell), QVariant(int{DE_NOERROR}));
    QCOMPARE(pictureOf(cell), good);
}

#include "area_test.h"
AREA_TEST(QTEST_MAIN, TestTypingInWindow)
#include "tst_typing_in_window.moc"
