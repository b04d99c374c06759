// The style sheet and the sample text in the Qt resources.

#include <QApplication>
#include <QFile>
#include <QHeaderView>
#include <QImage>
#include <QRegularExpression>
#include <QSizeGrip>
#include <QStandardItemModel>
#include <QStatusBar>
#include <QTest>
#include <QTreeView>

#include "loaded_text.h"

namespace {

// A rule of the style sheet, without white space.
struct Rule {
    const char* title;
    const char* text;
};

// clang-format off
constexpr Rule RULES[] = {
    {"the other rows of a table", "QTreeView{alternate-background-color:#b9f8ff;}"},
    {"a cell", "QTreeView::item{border:2pxsolid#d9d9d9;border-top-color:transparent;}"},
    {"a cell under the mouse", "QTreeView::item:hover{border:2pxsolid#000000;}"},
    {"a selected cell", "QTreeView::item:selected{color:black;border:2pxsolid#0093c4;}"},
    {"a header",
     "QHeaderView::section{background-color:#00b8d4;color:#000000;padding-left:4px;"
     "border:1pxsolid#1b1b1b;}"},
    {"a tool tip",
     "QToolTip{color:white;background-color:#0056a8;padding:5px;border-radius:0px;"
     "border-width:2px;opacity:200;}"},
    {"a header's arrow down", "QHeaderView::down-arrow{image:url(:/images/down_arrow.png);}"},
    {"a header's arrow up", "QHeaderView::up-arrow{image:url(:/images/up_arrow.png);}"},
    {"the status bar", "QStatusBar{background-color:#00b8d4;color:black;}"},
    {"the size grip",
     "QSizeGrip{image:url(:/images/sizegrip.png);width:16px;height:16px;}"},
    {"an item of the status bar", "QStatusBar::item{border:1pxsolidred;border-radius:3px;}"},
    {"a tab's page", "QTabWidget::pane{border-top:2pxsolid#C2C7CB;}"},
    {"the bar of tabs", "QTabWidget::tab-bar{left:5px;}"},
    {"a tab",
     "QTabBar::tab{background:qlineargradient(x1:0,y1:0,x2:0,y2:1,stop:0#E1E1E1,"
     "stop:0.4#DDDDDD,stop:0.5#D8D8D8,stop:1.0#D3D3D3);border:2pxsolid#C4C4C3;"
     "border-bottom-color:#C2C7CB;border-top-left-radius:4px;border-top-right-radius:4px;"
     "min-width:8ex;padding:2px;}"},
    {"a tab that is current or under the mouse",
     "QTabBar::tab:selected,QTabBar::tab:hover{background:qlineargradient(x1:0,y1:0,x2:0,y2:1,"
     "stop:0#fafafa,stop:0.4#f4f4f4,stop:0.5#e7e7e7,stop:1.0#fafafa);}"},
    {"the current tab",
     "QTabBar::tab:selected{border-color:#9B9B9B;border-bottom-color:#C2C7CB;}"},
    {"a tab that is not current", "QTabBar::tab:!selected{margin-top:2px;}"},
    {"a dock", "QDockWidget{border:1pxsolidlightgray;}"},
    {"a dock's title", "QDockWidget::title{background:lightgray;padding-left:5px;}"},
    {"a dock's buttons",
     "QDockWidget::close-button,QDockWidget::float-button{background:darkgray;}"},
    {"a dock's button under the mouse",
     "QDockWidget::close-button:hover,QDockWidget::float-button:hover{background:gray;}"},
};
// clang-format on

QByteArray resource(const char* name)
{
    QFile file{QString(QLatin1String(name))};
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString sheet()
{
    return QString::fromUtf8(resource(":/resources/qss/default.qss"));
}

QString withoutSpace(QString text)
{
    return text.remove(QRegularExpression(QStringLiteral("\\s")));
}

// Collects Qt's warnings while it lives.
class Complaints {
public:
    Complaints()
    {
        s_texts.clear();
        m_before = qInstallMessageHandler(&Complaints::collect);
    }
    ~Complaints() { qInstallMessageHandler(m_before); }
    Complaints(const Complaints&) = delete;
    Complaints& operator=(const Complaints&) = delete;

    static QStringList texts() { return s_texts; }

private:
    static void collect(QtMsgType, const QMessageLogContext&, const QString& text)
    {
        s_texts.append(text);
    }

    static inline QStringList s_texts;
    QtMessageHandler m_before = nullptr;
};

// Qt's warnings about a style sheet when widgets use it.
QStringList complaintsAbout(const QString& text)
{
    const Complaints complaints;
    qApp->setStyleSheet(text);
    QStandardItemModel model(2, 2);
    QTreeView view;
    view.setModel(&model);
    view.grab();
    qApp->setStyleSheet(QString());
    return Complaints::texts();
}

QColor colourAt(QWidget* widget, const QPoint& place)
{
    return widget->grab().toImage().pixelColor(place);
}

}  // namespace

class tst_Resources : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void styleSheetHasRule_data();
    void styleSheetHasRule();
    void styleSheetHasNoOtherRules();
    void styleSheetIsValid();
    void invalidStyleSheetIsDetected();
    void picturesOfTheStyleSheetExist();
    void headersAndStatusBarAreCyan();
    void alternateRowsAreColoured();
    void sizeGripIsDrawn();
    void sampleTextIsASpecFile();
};

void tst_Resources::initTestCase()
{
    Q_INIT_RESOURCE(scriboneditor);
}

void tst_Resources::cleanup()
{
    qApp->setStyleSheet(QString());
}

void tst_Resources::styleSheetHasRule_data()
{
    QTest::addColumn<QString>("rule");
    for (const Rule& rule : RULES)
        QTest::newRow(rule.title) << QString(QLatin1String(rule.text));
}

void tst_Resources::styleSheetHasRule()
{
    QFETCH(QString, rule);
    const QString rules = QLatin1Char('}') + withoutSpace(sheet());
    QVERIFY(rules.contains(QLatin1Char('}') + rule));
}

void tst_Resources::styleSheetHasNoOtherRules()
{
    QString rest = withoutSpace(sheet());
    for (const Rule& rule : RULES)
        rest.remove(QLatin1String(rule.text));
    QCOMPARE(rest, QString());
}

void tst_Resources::styleSheetIsValid()
{
    QVERIFY(!sheet().isEmpty());
    QCOMPARE(complaintsAbout(sheet()), QStringList());
}

void tst_Resources::invalidStyleSheetIsDetected()
{
    const QStringList complaints = complaintsAbout(sheet() + QStringLiteral("QTreeView {"));
    QCOMPARE(complaints, {QStringLiteral("Could not parse application stylesheet")});
}

void tst_Resources::picturesOfTheStyleSheetExist()
{
    const QString text = sheet();
    const QRegularExpression pattern(QStringLiteral("url\\(([^)]*)\\)"));
    int count = 0;
    for (auto matches = pattern.globalMatch(text); matches.hasNext(); ++count) {
        const QString name = matches.next().captured(1);
        QVERIFY2(!QImage(name).isNull(), qPrintable(name));
    }
    QCOMPARE(count, 3);
}

void tst_Resources::headersAndStatusBarAreCyan()
{
    qApp->setStyleSheet(sheet());
    const QColor cyan(QStringLiteral("#00b8d4"));
    QStandardItemModel model(1, 1);
    QTreeView view;
    view.setModel(&model);
    view.resize(200, 100);
    view.grab();  // lays out the header
    QCOMPARE(colourAt(view.header(), {3, 3}), cyan);
    QStatusBar bar;
    bar.setSizeGripEnabled(false);
    bar.resize(200, 30);
    QCOMPARE(colourAt(&bar, {100, 15}), cyan);
}

void tst_Resources::alternateRowsAreColoured()
{
    qApp->setStyleSheet(sheet());
    QStandardItemModel model(2, 1);
    QTreeView view;
    view.setModel(&model);
    view.setAlternatingRowColors(true);
    view.setRootIsDecorated(false);
    view.resize(200, 100);
    view.grab();
    const QRect second = view.visualRect(model.index(1, 0));
    QCOMPARE(colourAt(view.viewport(), second.center()), QColor(QStringLiteral("#b9f8ff")));
}

// The size grip is drawn for the window corner that it is in; the picture is for the lower right
// one.
void tst_Resources::sizeGripIsDrawn()
{
    qApp->setStyleSheet(sheet());
    QWidget window;
    window.resize(200, 100);
    QSizeGrip grip(&window);
    grip.setGeometry(184, 84, 16, 16);
    window.show();
    const QImage picture(QStringLiteral(":/images/sizegrip.png"));
    QCOMPARE(colourAt(&grip, {13, 13}), picture.pixelColor(13, 13));
    QVERIFY(colourAt(&grip, {2, 2}) != picture.pixelColor(13, 13));
}

void tst_Resources::sampleTextIsASpecFile()
{
    QCOMPARE(loadText(resource(":/resources/default.txt")), 0);
    const QString tree = loadedTree();
    QVERIFY(tree.contains(QStringLiteral("eng_speed_mean")));
    QVERIFY2(!tree.contains(QStringLiteral("ERROR")), qPrintable(tree));
}

#include "area_test.h"
AREA_TEST(QTEST_MAIN, tst_Resources)
#include "tst_resources.moc"
