// How the delegate paints a cell: its text, height, mark and colours; and that it does not use the
// lexer.

#include <antlr3.h>

#include <QPainter>
#include <QProxyStyle>
#include <QtTest>
#include <algorithm>
#include <array>

#include "antlr3_basetreedelegate.h"
#include "golden_keywords.h"
#include "window_test.h"

namespace {

constexpr int CELL_WIDTH = 300;

int lexersMade = 0;

struct KeywordName {
    const char* keyword;
    const char* shown;
};

const GoldenKeyword& goldenKeyword(const char* spelling)
{
    return *std::find_if(std::begin(GOLDEN_KEYWORDS), std::end(GOLDEN_KEYWORDS),
                         [spelling](const GoldenKeyword& keyword) {
                             return qstrcmp(keyword.spelling, spelling) == 0;
                         });
}

// A palette with a different colour for each group and role, none of which a cell is painted in.
QPalette unchangedPalette()
{
    QPalette palette;
    int shade = 100;
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        for (const auto role : {QPalette::Highlight, QPalette::WindowText})
            palette.setBrush(group, role, QColor(0, shade += 10, 0));
    }
    return palette;
}

QString firstNameFor(const QString& beginning)
{
    for (const char* const spelling : GOLDEN_DISPLAY_ORDER) {
        if (QString::fromLatin1(spelling).startsWith(beginning))
            return QString::fromLatin1(goldenKeyword(spelling).displayName);
    }
    return {};
}

// Records the options that are passed to the style.
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
    void showsEveryKeywordByItsName_data();
    void showsEveryKeywordByItsName();
    void showsABeginningAsTheFirstKeyword_data();
    void showsABeginningAsTheFirstKeyword();
    void showsEveryBeginningAsTheFirstKeyword();
    void showsNothingWhileLoading();
    void keepsRowsHigh();
    void marksWrongCells_data();
    void marksWrongCells();
    void drawsTheMarkAtTheRight();
    void drawsNoMarkWithoutAValue();
    void drawsTheMarkAboveAnArrow();
    void drawsInTheEditorFont();
    void paintingDoesNotUseTheLexer();

private:
    QStyleOptionViewItem paint(const QModelIndex& index, QStyle::State state);
    int leftOfMark(const QModelIndex& index) const;

    Antlr3_BaseTreeDelegate m_delegate;
    WitnessStyle m_style;
};

QStyleOptionViewItem TestCellPainting::paint(const QModelIndex& index, QStyle::State state)
{
    QPixmap pixmap(CELL_WIDTH, 40);
    QPainter painter(&pixmap);
    QTreeView widget;
    widget.setStyle(&m_style);
    QStyleOptionViewItem option;
    option.palette = unchangedPalette();
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
    QTest::newRow("a zero byte behind a keyword")
        << QVariant(QStringLiteral("@MODE\0S")) << QStringLiteral("Mode");
    QTest::newRow("a zero byte in a keyword") << QVariant(QStringLiteral("@MO\0DE")) << QString();
    QTest::newRow("a keyword without a name")
        << QVariant(QStringLiteral("@META_HEADER_FILENAME")) << QString();
    QTest::newRow("a keyword in lower case") << QVariant(QStringLiteral("@mode")) << QString();
    QTest::newRow("a keyword with more behind it")
        << QVariant(QStringLiteral("@MODES")) << QString();
    QTest::newRow("a filler") << QVariant(QStringLiteral("FILLER_TXT")) << QString();
    QTest::newRow("a blank") << QVariant(QStringLiteral(" ")) << QString();
    QTest::newRow("two blanks before a member")
        << QVariant(QStringLiteral("  .AV")) << QStringLiteral(" .AV");
    QTest::newRow("a zero byte behind a blank")
        << QVariant(QStringLiteral(" .A\0V")) << QStringLiteral(".A");
    QTest::newRow("a blank before a zero byte") << QVariant(QStringLiteral(" \0V")) << QString();
    QTest::newRow("two blanks before letters with accents")
        << QVariant(QStringLiteral("  .\u00dcx")) << QStringLiteral(" .\u00dcx");
    QTest::newRow("letters with accents")
        << QVariant(QStringLiteral("\u00dcx")) << QStringLiteral("\u00dcx");
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

void TestCellPainting::showsEveryKeywordByItsName_data()
{
    QTest::addColumn<QString>("keyword");
    QTest::addColumn<QString>("shown");
    for (const GoldenKeyword& keyword : GOLDEN_KEYWORDS)
        QTest::newRow(keyword.spelling)
            << QString::fromLatin1(keyword.spelling) << QString::fromLatin1(keyword.displayName);
}

void TestCellPainting::showsEveryKeywordByItsName()
{
    QFETCH(QString, keyword);
    QTEST(m_delegate.displayText(keyword, QLocale::c()), "shown");
}

void TestCellPainting::showsABeginningAsTheFirstKeyword_data()
{
    QTest::addColumn<QString>("beginning");
    QTest::addColumn<QString>("shown");
    constexpr std::array<KeywordName, 25> BEGINNINGS{{
        {"@", "Scribon"},
        {"@S", "Scribon"},
        {"@SC", "Scribon"},
        {"@SCA", "Scan Interval"},
        {"@SCAN_", "Scan Interval"},
        {"@SCAN_L", "Scan List"},
        {"@SCAN_LIST_", "Scan List Aux User"},
        {"@ST", "Start Event"},
        {"@STO", "Stop Event"},
        {"@T", "Test Id"},
        {"@TEST_", "Test Id"},
        {"@M", "Mode"},
        {"@MAX_S", "Max Scans"},
        {"@G", "Group"},
        {"@D", "Description"},
        {"@E", "Enable"},
        {"@LOG", "Logging Active Label"},
        {"@LOG_", "Log Digital Description"},
        {"@R", "Release Event"},
        {"@F", "FTP Event"},
        {"@FI", "FIFO Log Buffer"},
        {"@FIFO_POST_", "FIFO Post Trigger Interval"},
        {"@O", "Output Path"},
        {"@Q", ""},
        {"@TESTS", ""},
    }};
    for (const KeywordName& row : BEGINNINGS)
        QTest::newRow(row.keyword)
            << QString::fromLatin1(row.keyword) << QString::fromLatin1(row.shown);
}

void TestCellPainting::showsABeginningAsTheFirstKeyword()
{
    QFETCH(QString, beginning);
    QTEST(m_delegate.displayText(beginning, QLocale::c()), "shown");
}

void TestCellPainting::showsEveryBeginningAsTheFirstKeyword()
{
    for (const char* const spelling : GOLDEN_DISPLAY_ORDER) {
        const QString keyword = QString::fromLatin1(spelling);
        for (int length = 1; length <= keyword.size(); ++length) {
            const QString beginning = keyword.left(length);
            const QString shown = m_delegate.displayText(beginning, QLocale::c());
            QVERIFY2(shown == firstNameFor(beginning), qPrintable(beginning + shown));
        }
    }
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

// The value has no dialog or combo box, so no arrow is painted in place of the mark.
void TestCellPainting::marksWrongCells()
{
    QFETCH(QVariant, code);
    QFETCH(int, column);
    QFETCH(bool, selected);
    QFETCH(bool, marked);
    loadGoodFile();
    m_window->myPrefs.syntaxColor = QColor(Qt::magenta);
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
    const QBrush selection(marked ? QColor(Qt::magenta) : QColor(Qt::black));
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        for (const auto role : {QPalette::Highlight, QPalette::WindowText})
            QCOMPARE(drawn.palette.brush(group, role),
                     selected ? selection : unchangedPalette().brush(group, role));
    }
}

// The left edge of the mark; the width of the cell if there is none.
int TestCellPainting::leftOfMark(const QModelIndex& index) const
{
    QImage image(CELL_WIDTH, 40, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    QStyleOptionViewItem option;
    option.rect = image.rect();
    option.decorationSize = QSize(22, 22);
    option.state = QStyle::State_Enabled;
    m_delegate.paint(&painter, option, index);
    const QRgb markRed = QColor(0xd3, 0x2f, 0x2f).rgb();
    int leftmost = image.width();
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) == markRed)
                leftmost = qMin(leftmost, x);
        }
    }
    return leftmost;
}

void TestCellPainting::drawsTheMarkAtTheRight()
{
    loadGoodFile();
    TreeModel* const model = modelOf(*m_window, 0);
    model->setErrorCode(model->index(0, 1), int(DE_SYNTAX_ERR));
    const int left = leftOfMark(model->index(0, 1));
    QVERIFY2(left > CELL_WIDTH - 40 && left < CELL_WIDTH, qPrintable(QString::number(left)));
}

void TestCellPainting::drawsNoMarkWithoutAValue()
{
    loadGoodFile();
    TreeModel* const model = modelOf(*m_window, 0);
    QVERIFY(model->insertRows(0, 1));
    const QModelIndex index = model->index(0, 1);
    QVERIFY(index.data().isNull());
    model->setErrorCode(index, int(DE_MISSING_ERR));
    QCOMPARE(leftOfMark(index), CELL_WIDTH);
    model->setData(index, QStringLiteral("a value"));
    QVERIFY(leftOfMark(index) < CELL_WIDTH);
}

// A channel keyword keeps its arrow when it is wrong. An empty one has no mark.
void TestCellPainting::drawsTheMarkAboveAnArrow()
{
    loadGoodFile();
    TreeModel* const model = modelOf(*m_window, 1);
    const QModelIndex index = model->index(1, 3);
    QCOMPARE(index.data(Qt::DecorationRole).type(), QVariant::Icon);
    QCOMPARE(leftOfMark(index), CELL_WIDTH);
    model->setErrorCode(index, int(DE_DUPLICATE_ERR));
    QCOMPARE(index.data(Qt::DecorationRole).type(), QVariant::Icon);
    const int left = leftOfMark(index);
    QVERIFY2(left > CELL_WIDTH - 40 && left < CELL_WIDTH, qPrintable(QString::number(left)));
    for (const char* const nothing : {"FILLER_TXT", " "}) {
        model->setData(index, QString::fromLatin1(nothing));
        model->setErrorCode(index, int(DE_SYNTAX_ERR));
        QCOMPARE(leftOfMark(index), CELL_WIDTH);
    }
}

void TestCellPainting::drawsInTheEditorFont()
{
    loadGoodFile();
    const QModelIndex index = modelOf(*m_window, 0)->index(0, 0);
    for (const int pointSize : {12, 19}) {
        QFont font(QStringLiteral("Serif"), pointSize);
        font.setItalic(true);
        m_window->myPrefs.editorFont = font;
        QCOMPARE(paint(index, QStyle::State_None).font, font);
        QCOMPARE(paint(index, QStyle::State_Selected).font, font);
    }
}

void TestCellPainting::paintingDoesNotUseTheLexer()
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
