// help_pictures OUTPUT_DIR
//
// Grabs the documentation's pictures of the window and the dialogs. It needs a display and a
// running platform; scripts/help-pictures starts both.

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>
#include <QStatusBar>
#include <QTabWidget>
#include <QTextStream>
#include <QTimer>
#include <QToolButton>
#include <QTreeView>
#include <functional>

#include "editor_types.h"
#include "mainwindow.h"
#include "marvane_headers.h"

namespace {

constexpr int SETTLING_MS = 300;
constexpr int MAX_GRABS = 40;
constexpr QSize WHOLE_WINDOW(900, 660);
constexpr QSize SMALL_WINDOW(700, 600);
constexpr int WIDEST_COLUMN = 260;
constexpr int LIST_HEIGHT = 335;
constexpr int LINE_HEIGHT = 130;

void letTimePass()
{
    QEventLoop loop;
    QTimer::singleShot(SETTLING_MS, &loop, &QEventLoop::quit);
    loop.exec();
}

QImage grab(const std::function<QRect()>& place)
{
    const QRect rect = place();
    return QGuiApplication::primaryScreen()
        ->grabWindow(0, rect.x(), rect.y(), rect.width(), rect.height())
        .toImage();
}

// Grabs the screen until two images in a row are equal: everything has been painted then.
QImage settledGrab(const std::function<QRect()>& place)
{
    QImage last;
    for (int i = 0; i < MAX_GRABS; ++i) {
        letTimePass();
        const QImage now = grab(place);
        if (now == last)
            break;
        last = now;
    }
    return last;
}

QRect placeOf(const QWidget* widget)
{
    return {widget->mapToGlobal(QPoint(0, 0)), widget->size()};
}

template <typename Widget>
Widget* shownWindow(const QString& name)
{
    for (QWidget* const widget : QApplication::topLevelWidgets()) {
        if (widget->isVisible() && widget->objectName() == name)
            return qobject_cast<Widget*>(widget);
    }
    return nullptr;
}

class Photographer {
public:
    explicit Photographer(const QDir& output);

    bool takeAll();

private:
    void open(const QString& example);
    void showTab(int tab, const QSize& size);
    QTreeView* view(int tab) const;
    QModelIndex cell(int tab, int column, const QString& text, int textColumn) const;
    QModelIndex statement(const char* keyword, int column) const;
    void edit(int tab, const QModelIndex& index);

    void take(const QString& name, const std::function<QRect()>& place);
    void takeTab(int tab, const QString& name);
    void takeTabs();
    void takeNewFile();
    void takeWrongCells();
    void takeNothingOpen();
    void takeFind();
    void takeRefused();
    void takeList(int tab, const QModelIndex& index, const QString& name);
    void takeCell(const QModelIndex& index, const QString& name, const QString& typed);
    void takeEditors();
    void takeDialog(int tab, const QModelIndex& index, const QString& name);
    void takeChangedDialog(int tab, const QModelIndex& index, const QString& text,
                           const QString& name);
    void takeDialogs();
    void takePreferences();
    std::function<QRect()> tablePlace(int tab, int height) const;

    QDir m_output;
    QStringList m_missing;
    MainWindow m_window;
    QTabWidget* m_tabs;
};

Photographer::Photographer(const QDir& output)
    : m_output(output), m_tabs(m_window.findChild<QTabWidget*>(QStringLiteral("tabWidget")))
{
    m_window.readSettings();
    m_window.move(40, 60);
    m_window.show();
}

bool Photographer::takeAll()
{
    takeNothingOpen();
    open(QStringLiteral("scrib_full"));
    takeTabs();
    takeEditors();
    takeDialogs();
    takePreferences();
    takeNewFile();
    takeWrongCells();
    takeFind();
    takeRefused();
    if (!m_missing.isEmpty())
        QTextStream(stderr) << "help_pictures: not taken: " << m_missing.join(QStringLiteral(", "))
                            << Qt::endl;
    return m_missing.isEmpty();
}

void Photographer::open(const QString& example)
{
    m_window.loadFile(QStringLiteral("/specs/") + example, false);
    m_window.statusBar()->clearMessage();
    letTimePass();
}

QTreeView* Photographer::view(int tab) const
{
    return m_window.findChild<QTreeView*>(QStringLiteral("view%1").arg(tab));
}

void Photographer::showTab(int tab, const QSize& size)
{
    m_tabs->setCurrentIndex(tab);
    m_window.resize(size);
    letTimePass();
    QTreeView* const tree = view(tab);
    for (int column = 0; column < tree->model()->columnCount(); ++column) {
        tree->resizeColumnToContents(column);
        if (size == SMALL_WINDOW)
            tree->setColumnWidth(column, qMin(tree->columnWidth(column), WIDEST_COLUMN));
    }
}

// The cell in this column of the first row with the text.
QModelIndex Photographer::cell(int tab, int column, const QString& text, int textColumn) const
{
    const QAbstractItemModel& model = *view(tab)->model();
    for (int row = 0; row < model.rowCount(); ++row) {
        if (model.index(row, textColumn).data().toString() == text)
            return model.index(row, column);
    }
    return {};
}

void Photographer::edit(int tab, const QModelIndex& index)
{
    QTreeView* const tree = view(tab);
    tree->scrollTo(index, QAbstractItemView::PositionAtTop);
    tree->setCurrentIndex(index);
    tree->edit(index);
    tree->horizontalScrollBar()->setValue(0);
    letTimePass();
}

void Photographer::take(const QString& name, const std::function<QRect()>& place)
{
    const QImage picture = settledGrab(place);
    if (picture.isNull() || !picture.save(m_output.filePath(name + QStringLiteral(".png"))))
        m_missing.append(name);
}

void Photographer::takeTab(int tab, const QString& name)
{
    showTab(tab, WHOLE_WINDOW);
    take(name, [this] { return placeOf(&m_window); });
}

void Photographer::takeTabs()
{
    takeTab(DE_TAB1, QStringLiteral("keywords"));
    takeTab(DE_TAB2, QStringLiteral("scan_list"));
    takeTab(DE_TAB3, QStringLiteral("meta_data_list"));
    takeTab(DE_TAB4, QStringLiteral("scan_list_aux_user"));
    takeTab(DE_TAB5, QStringLiteral("ecm_list"));
}

// The file dialog is modal: the action returns when it is closed.
void Photographer::takeNewFile()
{
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &look, [] {
        auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr)
            return;
        dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))
            ->setText(QStringLiteral("/specs/scrib_idle"));
        static_cast<QDialog*>(dialog)->accept();
    });
    look.start(SETTLING_MS);
    m_window.findChild<QAction*>(QStringLiteral("action_New"))->trigger();
    m_window.statusBar()->clearMessage();
    letTimePass();
    takeTab(DE_TAB1, QStringLiteral("first_file"));
}

void Photographer::takeWrongCells()
{
    open(QStringLiteral("scrib_broken"));
    takeTab(DE_TAB3, QStringLiteral("meta_data_errors"));
    takeTab(DE_TAB5, QStringLiteral("ecm_list_errors"));
    take(QStringLiteral("counters"), [this] { return placeOf(m_window.statusBar()); });
}

// Before a table has a model.
void Photographer::takeNothingOpen()
{
    m_window.resize(SMALL_WINDOW);
    take(QStringLiteral("nothing_open"), [this] { return m_window.frameGeometry(); });
}

// The text is found on other tabs, too.
void Photographer::takeFind()
{
    open(QStringLiteral("scrib_full"));
    showTab(DE_TAB2, SMALL_WINDOW);
    view(DE_TAB2)->setCurrentIndex(view(DE_TAB2)->model()->index(1, 1));
    for (QShortcut* const shortcut : m_window.findChildren<QShortcut*>()) {
        if (shortcut->key() == QKeySequence(Qt::CTRL + Qt::Key_F))
            Q_EMIT shortcut->activated();
    }
    auto* const line = m_window.findChild<QLineEdit*>(QStringLiteral("findText"));
    line->setText(QStringLiteral("eng"));
    take(QStringLiteral("find"), [this] { return placeOf(&m_window); });
    line->clear();
    m_window.findChild<QToolButton*>(QStringLiteral("findClose"))->click();
}

// Over the rows of the file before.
void Photographer::takeRefused()
{
    showTab(DE_TAB1, SMALL_WINDOW);
    open(QStringLiteral("scrib_refused_order"));
    take(QStringLiteral("refused"), [this] { return m_window.frameGeometry(); });
}

// The upper part of the table, with the edited row.
std::function<QRect()> Photographer::tablePlace(int tab, int height) const
{
    return [tree = view(tab), height] {
        QRect place = placeOf(tree);
        place.setHeight(height);
        return place;
    };
}

void Photographer::takeList(int tab, const QModelIndex& index, const QString& name)
{
    showTab(tab, SMALL_WINDOW);
    edit(tab, index);
    if (auto* const comboBox = view(tab)->viewport()->findChild<QComboBox*>()) {
        comboBox->showPopup();
        take(name, tablePlace(tab, LIST_HEIGHT));
        comboBox->hidePopup();
    } else {
        m_missing.append(name);
    }
    open(QStringLiteral("scrib_full"));
}

void Photographer::takeCell(const QModelIndex& index, const QString& name, const QString& typed)
{
    showTab(DE_TAB1, SMALL_WINDOW);
    edit(DE_TAB1, index);
    auto* const line = view(DE_TAB1)->viewport()->findChild<QLineEdit*>();
    if (line != nullptr && !typed.isEmpty()) {
        line->setText(typed);
        Q_EMIT line->textEdited(typed);
    }
    take(name, tablePlace(DE_TAB1, LINE_HEIGHT));
    open(QStringLiteral("scrib_full"));
}

QModelIndex Photographer::statement(const char* keyword, int column) const
{
    return cell(DE_TAB1, column, QLatin1String(keyword), 0);
}

void Photographer::takeEditors()
{
    takeList(DE_TAB1, statement("@LOG_STATISTICS", 1), QStringLiteral("editor_yes_no"));
    takeList(DE_TAB2, cell(DE_TAB2, 2, QStringLiteral("N_ENG_AVG"), 3),
             QStringLiteral("editor_statistic"));
    takeList(DE_TAB2, cell(DE_TAB2, 3, QStringLiteral("T_OIL"), 3),
             QStringLiteral("editor_channel"));
    takeCell(statement("@MAX_SCANS", 1), QStringLiteral("editor_number"), {});
    takeCell(statement("@RUNNING_AVERAGE", 1), QStringLiteral("editor_text"),
             QStringLiteral("30[se"));
    open(QStringLiteral("scrib_small"));  // which leaves most keywords free
    takeList(DE_TAB1, statement("@DESCRIPTION", 0), QStringLiteral("editor_keyword"));
}

// Includes the frame, since its title names the dialog.
void Photographer::takeDialog(int tab, const QModelIndex& index, const QString& name)
{
    showTab(tab, SMALL_WINDOW);
    edit(tab, index);
    const QString kind = tab == DE_TAB5 ? QStringLiteral("asamspecs_select")
                                        : QStringLiteral("VariableSelectionDialog");
    if (auto* const dialog = shownWindow<QDialog>(kind)) {
        take(name, [dialog] { return dialog->frameGeometry(); });
        dialog->reject();
    } else {
        m_missing.append(name);
    }
}

// Of a list row whose first cell differs from the example.
void Photographer::takeChangedDialog(int tab, const QModelIndex& index, const QString& text,
                                     const QString& name)
{
    view(tab)->model()->setData(index.siblingAtColumn(1), text);
    takeDialog(tab, index, name);
    open(QStringLiteral("scrib_full"));
}

void Photographer::takeDialogs()
{
    takeDialog(DE_TAB2, cell(DE_TAB2, 1, QStringLiteral("N_ENG"), 3),
               QStringLiteral("editor_variable"));
    takeDialog(DE_TAB1, statement("@SCAN_INTERVAL", 1), QStringLiteral("editor_variable_interval"));
    takeDialog(DE_TAB1, statement("@OUTPUT_PATH", 1), QStringLiteral("editor_variable_path"));
    takeDialog(DE_TAB3, cell(DE_TAB3, 2, QStringLiteral("FUEL_NAME"), 1),
               QStringLiteral("editor_variable_literal"));
    takeChangedDialog(DE_TAB2, cell(DE_TAB2, 1, QStringLiteral("N_ENG_AVG"), 3),
                      QStringLiteral("eng_speed_stat.AV"),
                      QStringLiteral("editor_variable_member"));
    // Two digits, to show the width of the field.
    takeChangedDialog(DE_TAB5, cell(DE_TAB5, 2, QStringLiteral("2"), 1), QStringLiteral("12"),
                      QStringLiteral("editor_ecm"));
}

// The dialog is modal: exec() returns when it is closed.
void Photographer::takePreferences()
{
    const auto name = QStringLiteral("preferences");
    QTimer::singleShot(SETTLING_MS, &m_window, [this, name] {
        auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr) {
            m_missing.append(name);
            return;
        }
        take(name, [dialog] { return dialog->frameGeometry(); });
        dialog->reject();
    });
    m_window.preferences();
}

QString programStyle()
{
    QFile file(QStringLiteral(":/resources/qss/default.qss"));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

}  // namespace

int main(int argc, char* argv[])
{
    Q_INIT_RESOURCE(scriboneditor);
    marvane_init_fn(1);
    join_layer(5);
    QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 2) {
        QTextStream(stderr) << "help_pictures: OUTPUT_DIR is to be given" << Qt::endl;
        return 2;
    }
    application.setStyleSheet(programStyle());
    QApplication::setCursorFlashTime(0);
    QCoreApplication::setAttribute(Qt::AA_UseStyleSheetPropagationInWidgetStyles, true);
    return Photographer(QDir(arguments.at(1))).takeAll() ? 0 : 1;
}
