// What the delegate makes of a cell: its text, its height, its mark and its colours; and that none
// of it asks the lexer.

#include <antlr3.h>

#include <QPainter>
#include <QProxyStyle>
#include <QtTest>

#include "antlr3_basetreedelegate.h"
#include "scribon_keywords.h"
#include "window_test.h"

namespace {

int lexersMade = 0;

// Keeps what the base class hands on to be drawn.
class WitnessStyle : public QProxyStyle {
public:
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override
    {
        if (element == CE_ItemViewItem)
            drawn.append(*qstyleoption_cast<const QStyleOptionViewItem*>(option));
        QProxyStyle::drawControl(element, option, painter, widget);
    }

    mutable QVector<QStyleOptionViewItem> drawn;
};

}  // namespace

extern "C" {
void* __real_scribonspecsLexerNew(pANTLR3_INPUT_STREAM input);
void* __wrap_scribonspecsLexerNew(pANTLR3_INPUT_STREAM input);
void* __wrap_scribonspecsLexerNew(pANTLR3_INPUT_STREAM input)
{
    ++lexersMade;
    return __real_scribonspecsLexerNew(input);
}
}

class TestCellPainting : public WindowTest {
    Q_OBJECT

public:
    TestCellPainting() { Q_INIT_RESOURCE(scriboneditor); }

private Q_SLOTS:
    void showsTexts_data();
    void showsTexts();
    void showsEveryKeywordByItsName();
    void showsNothingWhileLoading();
    void keepsRowsHigh();
    void marksWrongCells_data();
    void marksWrongCells();
    void drawsTheMarkAtTheRight();
    void asksNoLexer();

private:
    QStyleOptionViewItem paint(const QModelIndex& index, QStyle::State state);

    Antlr3_BaseTreeDelegate m_delegate;
    WitnessStyle m_style;
};

QStyleOptionViewItem TestCellPainting::paint(const QModelIndex& index, QStyle::State state)
{
    QPixmap pixmap(300, 40);
    QPainter painter(&pixmap);
    QTreeView widget;
    widget.setStyle(&m_style);
    QStyleOptionViewItem option;
    option.rect = pixmap.rect();
    option.decorationSize = QSize(22, 22);
    option.state = state | QStyle::State_Enabled;
    option.widget = &widget;
    m_style.drawn.clear();
    m_delegate.paint(&painter, option, index);
    return m_style.drawn.value(0);
}

void TestCellPainting::showsTexts_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("a keyword") << QVariant(QStringLiteral("@MODE")) << QStringLiteral("Mode");
    QTest::newRow("the beginning of a keyword")
        << QVariant(QStringLiteral("@S")) << QStringLiteral("Scribon");
    QTest::newRow("a lone at sign") << QVariant(QStringLiteral("@")) << QStringLiteral("Scribon");
    QTest::newRow("a keyword without a name")
        << QVariant(QStringLiteral("@META_HEADER_FILENAME")) << QString();
    QTest::newRow("a keyword in lower case") << QVariant(QStringLiteral("@mode")) << QString();
    QTest::newRow("a keyword with more behind it")
        << QVariant(QStringLiteral("@MODES")) << QString();
    QTest::newRow("a filler") << QVariant(QStringLiteral("FILLER_TXT")) << QString();
    QTest::newRow("a blank") << QVariant(QStringLiteral(" ")) << QString();
    QTest::newRow("two blanks before a member")
        << QVariant(QStringLiteral("  .AV")) << QStringLiteral(" .AV");
    QTest::newRow("no value") << QVariant() << QString();
    QTest::newRow("an empty text") << QVariant(QString()) << QString();
    QTest::newRow("a plain text") << QVariant(QStringLiteral("eng_speed"))
                                  << QStringLiteral("eng_speed");
}

void TestCellPainting::showsTexts()
{
    QFETCH(QVariant, value);
    QTEST(m_delegate.displayText(value, QLocale::c()), "text");
}

void TestCellPainting::showsEveryKeywordByItsName()
{
    int named = 0;
    for (const ScribonKeyword& keyword : SCRIBON_KEYWORDS) {
        const QString shown =
            m_delegate.displayText(QString::fromLatin1(keyword.spelling), QLocale::c());
        QCOMPARE(shown, QString::fromLatin1(keyword.displayName));
        named += shown.isEmpty() ? 0 : 1;
    }
    QCOMPARE(named, 37);
}

void TestCellPainting::showsNothingWhileLoading()
{
    loadGoodFile();
    const QModelIndex index = modelOf(*m_window, 0)->index(0, 0);
    LoadingFile = 1;
    QCOMPARE(m_delegate.displayText(QStringLiteral("text"), QLocale::c()), QString());
    paint(index, QStyle::State_None);
    QVERIFY(m_style.drawn.isEmpty());
    LoadingFile = 0;
    paint(index, QStyle::State_None);
    QCOMPARE(m_style.drawn.size(), 1);
}

void TestCellPainting::keepsRowsHigh()
{
    loadGoodFile();
    QStyleOptionViewItem option;
    const QModelIndex index = modelOf(*m_window, 0)->index(0, 1);
    option.font.setPointSize(4);
    QCOMPARE(m_delegate.sizeHint(option, index).height(), 40);
    QCOMPARE(m_delegate.sizeHint(option, index).width(),
             QStyledItemDelegate().sizeHint(option, index).width());
    option.font.setPointSize(60);
    QVERIFY(m_delegate.sizeHint(option, index).height() > 40);
    QCOMPARE(m_delegate.sizeHint(option, QModelIndex()), QSize(-1, 40));
    for (int tab = 0; tab < TAB_COUNT; ++tab) {
        QTreeView* const view = viewOf(*m_window, tab);
        QVERIFY(view->visualRect(view->model()->index(1, 1)).height() >= 40);
    }
}

void TestCellPainting::marksWrongCells_data()
{
    QTest::addColumn<QVariant>("code");
    QTest::addColumn<int>("column");
    QTest::addColumn<bool>("selected");
    QTest::addColumn<bool>("marked");
    for (const bool selected : {false, true}) {
        const char* const name = selected ? "selected" : "not selected";
        QTest::addRow("never judged, %s", name) << QVariant() << 1 << selected << false;
        QTest::addRow("never judged keyword, %s", name) << QVariant() << 0 << selected << false;
        QTest::addRow("good, %s", name) << QVariant(int(DE_NOERROR)) << 1 << selected << false;
        QTest::addRow("no field, %s", name) << QVariant(int(DE_NOFIELD)) << 1 << selected << false;
        QTest::addRow("wrong, %s", name) << QVariant(int(DE_SYNTAX_ERR)) << 1 << selected << true;
        QTest::addRow("repeated, %s", name)
            << QVariant(int(DE_DUPLICATE_ERR)) << 0 << selected << true;
        QTest::addRow("missing, %s", name)
            << QVariant(int(DE_MISSING_ERR)) << 1 << selected << true;
    }
}

// The value opens no chooser, so that no arrow takes the mark's place.
void TestCellPainting::marksWrongCells()
{
    QFETCH(QVariant, code);
    QFETCH(int, column);
    QFETCH(bool, selected);
    QFETCH(bool, marked);
    loadGoodFile();
    m_window->readSettings();
    TreeModel* const model = modelOf(*m_window, 0);
    const QModelIndex index = model->index(0, column);
    model->setErrorCode(index, code);
    const QStyleOptionViewItem drawn =
        paint(index, selected ? QStyle::State_Selected : QStyle::State_None);
    const QSize size(22, 22);
    const QIcon mark(QStringLiteral(":/resources/dialog-error.png"));
    QVERIFY(!mark.pixmap(size).isNull());
    QCOMPARE(drawn.icon.pixmap(size).toImage() == mark.pixmap(size).toImage(), marked);
    QCOMPARE(drawn.decorationPosition, QStyleOptionViewItem::Right);
    QCOMPARE(drawn.font.family(), m_window->myPrefs.editorFont.family());
    if (!selected)
        return;
    const QColor expected = marked ? QColor(Qt::red) : QColor(Qt::black);
    QCOMPARE(drawn.palette.color(QPalette::Highlight), expected);
    QCOMPARE(drawn.palette.color(QPalette::WindowText), expected);
}

void TestCellPainting::drawsTheMarkAtTheRight()
{
    loadGoodFile();
    m_window->readSettings();
    TreeModel* const model = modelOf(*m_window, 0);
    model->setErrorCode(model->index(0, 1), int(DE_SYNTAX_ERR));
    QImage image(300, 40, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    QStyleOptionViewItem option;
    option.rect = image.rect();
    option.decorationSize = QSize(22, 22);
    option.state = QStyle::State_Enabled;
    m_delegate.paint(&painter, option, model->index(0, 1));
    const QRgb markRed = QColor(0xd3, 0x2f, 0x2f).rgb();
    int leftmost = image.width();
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) == markRed)
                leftmost = qMin(leftmost, x);
        }
    }
    QVERIFY2(leftmost > image.width() - 40 && leftmost < image.width(),
             qPrintable(QString::number(leftmost)));
}

void TestCellPainting::asksNoLexer()
{
    loadGoodFile();
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    for (int tab = 0; tab < TAB_COUNT; ++tab) {
        tabsOf(*m_window)->setCurrentIndex(tab);
        QWidget* const viewport = viewOf(*m_window, tab)->viewport();
        viewport->repaint();
        lexersMade = 0;
        viewport->repaint();
        QCOMPARE(lexersMade, 0);
    }
    lexersMade = 0;
    m_delegate.displayText(QStringLiteral("@SCAN_INTERVAL"), QLocale::c());
    m_delegate.displayText(QStringLiteral(".AV"), QLocale::c());
    QCOMPARE(lexersMade, 0);
}

QTEST_MAIN(TestCellPainting)
#include "tst_cell_painting.moc"
