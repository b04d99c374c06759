// The form, the menus, the tabs and the views before a document is loaded.

#include <QApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QUndoGroup>
#include <QUndoStack>
#include <QVBoxLayout>

#include "golden_keywords.h"
#include "ui_mainwindow.h"
#include "window_test.h"

namespace {

QStringList entriesOf(const QMenu* menu)
{
    QStringList entries;
    for (const QAction* const action : menu->actions())
        entries.append(action->isSeparator() ? QStringLiteral("-") : action->text());
    return entries;
}

QStringList entries(std::initializer_list<const char*> texts)
{
    QStringList list;
    for (const char* const text : texts)
        list.append(QLatin1String(text));
    return list;
}

QString withoutBlanks(QString text)
{
    return text.remove(QLatin1Char(' ')).remove(QLatin1Char('\n'));
}

}  // namespace

class tst_WindowForm : public WindowTest {
    Q_OBJECT

private Q_SLOTS:
    void actions_data();
    void actions();
    void formHoldsItsPartsInOrder();
    void menus_data();
    void menus();
    void menuBarIsFileEditHelp();
    void undoActionsHaveTheStandardKeys();
    void sizeAndFonts();
    void titleBeforeTheFirstDocument();
    void windowSheet_data();
    void windowSheet();
    void statusBarSheet();
    void tabs_data();
    void tabs();
    void viewSettings_data();
    void viewSettings();
    void firstTabsStackIsActive();
    void keywordHelp_data();
    void keywordHelp();
    void keywordHelpHasNoFurtherKeys();
    void statisticsList();
    void preferencesStartEmpty();
    void slotsInOrder();
};

void tst_WindowForm::actions_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shortcut");
    QTest::addColumn<bool>("hasIcon");

    const auto row = [](const char* name, const char* text, const char* shortcut,
                        bool hasIcon = false) {
        QTest::newRow(name) << QString::fromLatin1(text) << QString::fromLatin1(shortcut)
                            << hasIcon;
    };
    row("action_New", "&New", "Ctrl+N", true);
    row("action_Open", "&Open", "Ctrl+O", true);
    row("actionSave", "&Save", "Ctrl+S", true);
    row("actionSave_As", "Save As", "", true);
    row("actionexit", "E&xit", "Ctrl+X", true);
    row("insertRowAction", "Insert Row", "Ctrl+I");
    row("removeRowAction", "Remove Row", "Ctrl+R");
    row("actionPreferences", "Preferences", "");
    row("actionContents", "Contents", "");
    row("aboutAct", "&About", "");
    row("aboutQtAct", "About &Qt", "");
    row("exitAction", "E&xit", "Ctrl+Q");
    row("insertColumnAction", "Insert Column", "Ctrl+I, C");
    row("removeColumnAction", "Remove Column", "Ctrl+R, C");
    row("insertChildAction", "Insert Child", "Ctrl+N");
}

void tst_WindowForm::actions()
{
    QFETCH(bool, hasIcon);
    const QAction* const action = actionOf(*m_window, QTest::currentDataTag());
    QVERIFY(action != nullptr);
    QTEST(action->text(), "text");
    QTEST(action->shortcut().toString(), "shortcut");
    if (!hasIcon)
        QVERIFY(action->icon().isNull());
}

// The members are declared in this order, so their addresses increase.
void tst_WindowForm::formHoldsItsPartsInOrder()
{
    QMainWindow window;
    Ui::MainWindow ui{};
    ui.setupUi(&window);
    const std::array<const void*, 22> parts{
        &ui.exitAction,         &ui.insertRowAction,   &ui.removeRowAction, &ui.insertColumnAction,
        &ui.removeColumnAction, &ui.insertChildAction, &ui.actionSave,      &ui.actionSave_As,
        &ui.actionexit,         &ui.action_Open,       &ui.action_New,      &ui.aboutAct,
        &ui.actionPreferences,  &ui.aboutQtAct,        &ui.actionContents,  &ui.centralwidget,
        &ui.verticalLayout,     &ui.menubar,           &ui.fileMenu,        &ui.actionsMenu,
        &ui.menu_Help,          &ui.statusbar};
    QVERIFY(std::is_sorted(parts.begin(), parts.end(), std::less<>()));
    QCOMPARE(window.objectName(), QStringLiteral("MainWindow"));
    QCOMPARE(window.centralWidget(), ui.centralwidget);
    QCOMPARE(window.menuBar(), ui.menubar);
    QCOMPARE(window.statusBar(), ui.statusbar);
}

void tst_WindowForm::menus_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("fileMenu") << QStringLiteral("&File")
                              << entries({"&New", "&Open", "&Save", "Save As", "-", "E&xit"});
    QTest::newRow("actionsMenu") << QStringLiteral("&Edit")
                                 << entries({"Insert Row", "-", "Remove Row", "-", "-",
                                             "Preferences", "-", "-", "&Undo", "&Redo"});
    QTest::newRow("menu_Help") << QStringLiteral("&Help")
                               << entries({"Contents", "&About", "About &Qt"});
}

void tst_WindowForm::menus()
{
    const auto* const menu = m_window->findChild<QMenu*>(QLatin1String(QTest::currentDataTag()));
    QVERIFY(menu != nullptr);
    QTEST(menu->title(), "title");
    QTEST(entriesOf(menu), "expected");
}

void tst_WindowForm::menuBarIsFileEditHelp()
{
    const auto* const bar = m_window->findChild<QMenuBar*>(QStringLiteral("menubar"));
    QStringList titles;
    for (const QAction* const action : bar->actions())
        titles.append(action->menu()->objectName());
    QCOMPARE(titles, entries({"fileMenu", "actionsMenu", "menu_Help"}));
}

void tst_WindowForm::undoActionsHaveTheStandardKeys()
{
    const auto* const menu = m_window->findChild<QMenu*>(QStringLiteral("actionsMenu"));
    const QList<QAction*> actions = menu->actions();
    const QAction* const undo = actions.at(actions.size() - 2);
    const QAction* const redo = actions.last();
    QCOMPARE(undo->shortcuts(), QKeySequence::keyBindings(QKeySequence::Undo));
    QCOMPARE(redo->shortcuts(), QList<QKeySequence>{QKeySequence(QKeySequence::Redo)});
    QVERIFY(!undo->isEnabled());
    QVERIFY(!redo->isEnabled());
    QCOMPARE(undo->parent(), m_window.get());
}

void tst_WindowForm::sizeAndFonts()
{
    QCOMPARE(m_window->size(), QSize(600, 600));
    QCOMPARE(m_window->minimumSize(), QSize(600, 600));
    QCOMPARE(m_window->font().family(), QStringLiteral("Spectral"));
    QCOMPARE(m_window->font().pointSize(), 12);
    QCOMPARE(m_window->font().weight(), 75);
    QVERIFY(!m_window->font().italic());
    const QFont barFont = m_window->menuBar()->font();
    QCOMPARE(barFont.family(), QStringLiteral("Spectral"));
    QCOMPARE(barFont.pointSize(), 12);
    QCOMPARE(barFont.weight(), 75);
    QVERIFY(barFont.italic());
    QCOMPARE(m_window->centralWidget()->font().pointSize(), 10);
    const QLayout* const layout = m_window->centralWidget()->layout();
    QVERIFY(qobject_cast<const QVBoxLayout*>(layout) != nullptr);
    QCOMPARE(layout->spacing(), 0);
    QCOMPARE(layout->contentsMargins(), QMargins());
    QCOMPARE(m_window->toolButtonStyle(), Qt::ToolButtonIconOnly);
}

void tst_WindowForm::titleBeforeTheFirstDocument()
{
    QMainWindow window;
    Ui::MainWindow ui{};
    ui.setupUi(&window);
    QCOMPARE(window.windowTitle(), QStringLiteral("Scribon Specification Editor"));
    QCOMPARE(ui.menubar->geometry(), QRect(0, 0, 599, 33));
}

void tst_WindowForm::windowSheet_data()
{
    QTest::addColumn<QString>("rule");
    const auto row = [](const char* name, const char* rule) {
        QTest::newRow(name) << QString::fromLatin1(rule);
    };
    row("menu bar", "QMenuBar{background-color:#00b8d4;margin:2px;}");
    row("selected menu title",
        "QMenuBar::item:selected{border-color:darkblue;background:#62ebff;}");
    row("menu entry", "QMenu::item{padding:2px25px2px20px;border:1pxsolidtransparent;}");
    row("selected menu entry", "QMenu::item:selected{border-color:darkblue;background:#62ebff;}");
    row("icon of a checked entry",
        "QMenu::icon:checked{background:#5282da;border:1pxinsetgray;position:absolute;"
        "top:1px;right:1px;bottom:1px;left:1px;}");
    row("indicator", "QMenu::indicator{width:13px;height:13px;}");
    for (const QByteArray& state : {QByteArray("unchecked"), QByteArray("checked")}) {
        for (const QByteArray& hover : {QByteArray(), QByteArray(":selected")}) {
            const QByteArray file = state + (hover.isEmpty() ? "" : "_hover") + ".png);}";
            row("box, " + state + hover, "QMenu::indicator:non-exclusive:" + state + hover +
                                             "{image:url(:/images/checkbox_" + file);
            row("radio button, " + state + hover, "QMenu::indicator:exclusive:" + state + hover +
                                                      "{image:url(:/images/radiobutton_" + file);
        }
    }
}

void tst_WindowForm::windowSheet()
{
    QFETCH(QString, rule);
    const QString sheet = m_window->styleSheet();
    QVERIFY(sheet.startsWith(QLatin1String("/*")));
    const QString used = withoutBlanks(sheet.mid(sheet.indexOf(QLatin1String("*/")) + 2));
    QVERIFY2(used.contains(rule), qPrintable(used));
}

void tst_WindowForm::statusBarSheet()
{
    QCOMPARE(m_window->statusBar()->styleSheet(),
             QStringLiteral("QStatusBar::item {\n    border: 0px transparent;\n }"));
}

void tst_WindowForm::tabs_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<QString>("pageTitle");
    QTest::addColumn<QString>("toolTip");
    const auto row = [](int tab, const char* text, const char* pageTitle, const char* toolTip) {
        QTest::newRow(text) << tab << QString::fromLatin1(pageTitle)
                            << QString::fromLatin1(toolTip);
    };
    row(0, "Keywords", "", "Select Keywords ");
    row(1, "Scan List", "Scanlist", "Add MarvaneVariables and Channel Keywords to Scanlist");
    row(2, "Meta Data List", "Meta_Data", "Add PAM Keyword associated to Marvane Variable");
    row(3, "Scan List Aux User", "Scan List Aux User", "Add Auxilary Scan List Parameters");
    row(4, "ECM List", "ECM List", "Select Lists of Marvane Vaiables from ASAM Spec files");
}

void tst_WindowForm::tabs()
{
    QFETCH(int, tab);
    const QTabWidget* const tabs = tabsOf(*m_window);
    QCOMPARE(tabs->parentWidget(), m_window->centralWidget());
    QCOMPARE(m_window->centralWidget()->layout()->itemAt(0)->widget(), tabs);
    QCOMPARE(tabs->count(), 5);
    QCOMPARE(tabs->tabText(tab), QString::fromLatin1(QTest::currentDataTag()));
    QTEST(tabs->tabToolTip(tab), "toolTip");
    const QWidget* const page = tabs->widget(tab);
    QCOMPARE(page->objectName(), QStringLiteral("tab%1").arg(tab));
    QTEST(page->windowTitle(), "pageTitle");
    const auto* const layout = qobject_cast<QHBoxLayout*>(page->layout());
    QVERIFY(layout != nullptr);
    QCOMPARE(layout->objectName(), QStringLiteral("horizontalLayout%1").arg(tab));
    QCOMPARE(layout->spacing(), 0);
    QCOMPARE(layout->contentsMargins(), QMargins());
    QCOMPARE(layout->itemAt(0)->widget(), viewOf(*m_window, tab));
    QCOMPARE(layout->stretch(0), 0);
    QCOMPARE(layout->itemAt(0)->alignment(), Qt::Alignment());
}

void tst_WindowForm::viewSettings_data()
{
    QTest::addColumn<int>("tab");
    for (int tab = 0; tab < 5; ++tab)
        QTest::addRow("view %d", tab) << tab;
}

void tst_WindowForm::viewSettings()
{
    QFETCH(int, tab);
    const QTreeView* const view = viewOf(*m_window, tab);
    QVERIFY(view->alternatingRowColors());
    QCOMPARE(view->selectionBehavior(), QAbstractItemView::SelectItems);
    QCOMPARE(view->horizontalScrollMode(), QAbstractItemView::ScrollPerPixel);
    QVERIFY(!view->isSortingEnabled());
    QVERIFY(!view->isAnimated());
    QVERIFY(view->allColumnsShowFocus());
    QCOMPARE(view->indentation(), 5);
    QCOMPARE(view->contextMenuPolicy(), Qt::CustomContextMenu);
}

void tst_WindowForm::firstTabsStackIsActive()
{
    QCOMPARE(m_window->undoGroup->stacks().size(), 5);
    QCOMPARE(m_window->uStack(), m_window->undoGroup->stacks().first());
    QCOMPARE(m_window->undoGroup->parent(), m_window.get());
    for (int tab = 4; tab >= 0; --tab) {
        tabsOf(*m_window)->setCurrentIndex(tab);
        QCOMPARE(m_window->uStack(), m_window->undoGroup->stacks().at(tab));
    }
}

void tst_WindowForm::keywordHelp_data()
{
    QTest::addColumn<QString>("text");
    for (const GoldenKeyword& keyword : GOLDEN_KEYWORDS) {
        if (hasHelp(keyword))
            QTest::newRow(keyword.spelling) << QString::fromLatin1(keyword.help);
    }
}

void tst_WindowForm::keywordHelp()
{
    const QString word = QString::fromLatin1(QTest::currentDataTag()).mid(1).toLower();
    QTEST(m_window->keywordHelp().value(word), "text");
}

void tst_WindowForm::keywordHelpHasNoFurtherKeys()
{
    QCOMPARE(m_window->keywordHelp().size(), countKeywords(hasHelp));
    QVERIFY(m_window->hash[QStringLiteral("filename")].isEmpty());
}

void tst_WindowForm::statisticsList()
{
    const QStringList list = m_window->StatMemList();
    QCOMPARE(list.size(), 35);
    QCOMPARE(list.join(QLatin1Char(' ')),
             QStringLiteral(
                 "LOG_DIGITAL_DESCP .AV .C0 .C1 .CI .CV .DL .E0 .E1 .EN .FV .I0 .I5 .I9 .IN .IT "
                 ".IV .MD .ME .MN .MX .NM .NR .QF .RA .RC .RM .RN .RS .SD .SE .ST .TN .TX "));
    QVERIFY(list.last().isEmpty());
}

void tst_WindowForm::preferencesStartEmpty()
{
    QVERIFY(!m_window->syntaxColor().isValid());
    QCOMPARE(m_window->editorFont(), QFont());
    QCOMPARE(m_window->syntaxFont(), QFont());
    QVERIFY(!m_window->myPrefs.syntaxBold);
    QVERIFY(!m_window->myPrefs.syntaxItalic);
    QCOMPARE(m_window->myPrefs.syntaxFontSize, 0);
    QCOMPARE(m_window->myPrefs.editorFontSize, 0);
}

// The order of the meta-object's methods. Other slots may be in between.
void tst_WindowForm::slotsInOrder()
{
    const auto order =
        entries({"updateActions", "uStack", "ShowContextMenu", "checkErrorCount", "delayedInit",
                 "insertRow", "removeRow", "newFile", "open", "save", "saveAs", "about",
                 "documentWasModified", "undo", "redo", "preferences", "aboutQt",
                 "showDocumentation", "currentTabChanged"});
    const QMetaObject& meta = MainWindow::staticMetaObject;
    int last = -1;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        const int place = order.indexOf(QString::fromLatin1(meta.method(i).name()));
        QVERIFY2(place > last, meta.method(i).name());
        last = place;
    }
}

#include "area_test.h"
AREA_TEST(QTEST_MAIN, tst_WindowForm)
#include "tst_window_form.moc"
