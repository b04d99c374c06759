#include "mainwindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QItemSelectionModel>
#include <QMessageBox>
#include <QTabWidget>
#include <QTextStream>
#include <QTimer>
#include <QTreeView>
#include <QUndoGroup>
#include <QUndoStack>
#include <algorithm>
#ifdef __GLIBC__
#include <malloc.h>
#endif

#include "antlr3_basetreedelegate.h"
#include "changeview.h"
#include "closedrowsdelegate.h"
#include "commentspans.h"
#include "documentguard.h"
#include "editor_antlr3.h"
#include "editorundocommand.h"
#include "errornavigation.h"
#include "filedrop.h"
#include "keyword_words.h"
#include "pagenotice.h"
#include "rowclipboard.h"
#include "scribon_keywords.h"
#include "spokenmodel.h"
#include "stat_members.h"
#include "statusbarform.h"
#include "statusmessage.h"
#include "tableview.h"
#include "textnavigation.h"
#include "treemodel.h"
#include "variablemaplist.h"
#include "variableselectiondialog.h"

MainWindow* EditorMainWindow = nullptr;

namespace {

const auto SCRATCH_FILE = QStringLiteral("/tmp/untitled.txt");
const auto SPEC_DIRECTORY = QStringLiteral("/specs");
const auto SPEC_PREFIX = QStringLiteral("/specs/");
const auto SPEC_FILTER = QStringLiteral("scrib*;;*");
const auto NOTHING_LOADED = QStringLiteral("Empty File");

constexpr int STATUS_MESSAGE_MS = 2000;
constexpr int NO_FILE_MESSAGE_MS = 10000;
constexpr int FITTING_PASSES = 5;

// The text of a new file: the required keywords and the Meta Data list. The names are placeholders
// for the user to replace; only the first of them is marked as wrong.
constexpr std::array<const char*, 10> NEW_FILE_BLOCKS{
    "@SCRIBON\n<new_scribon>\n\n",         "@DESCRIPTION\n'This is a description of my test'\n\n",
    "@GROUP\nmarvane_str_var\n\n",         "@MODE\nmarvane_str_var\n\n",
    "@PROGRAM\nmarvane_str_var\n\n",       "@TEST_ID\nmarvane_str_var\n\n",
    "@TEST_TYPE\nmarvane_str_var\n\n",     "@SCAN_INTERVAL\n1[sec]\n\n",
    "@META_DATA\ndummy_pam dummy_var\n\n", "@SCAN_LIST\ndummy_var dummy_chan\n\n",
};

// What differs between the tabs. The two last columns are the ends of the column ranges that Insert
// Row and Remove Row pass to EditorUndoCommand.
// Existing behaviour, kept for compatibility: they differ on the Meta Data tab.
struct TabFacts {
    const char* text;
    const char* pageTitle;
    const char* toolTip;
    const char* errorLabel;
    int editTab;
    const char* section;  // keyword of the list, without its "@"; null on the Keywords tab
    int insertEndColumn;  // last column that the undo commands of a row set
    int removeEndColumn;
};

// clang-format off
const std::array<TabFacts, TAB_COUNT> TABS{{
    {QT_TRANSLATE_NOOP("MainWindow", "Keywords"), nullptr,
     QT_TRANSLATE_NOOP("MainWindow", "Select Keywords "),
     QT_TRANSLATE_NOOP("MainWindow", "Keyword Errors:"),
     EDIT_TAB1, nullptr, KeywordsTab::SECOND_VALUE, KeywordsTab::SECOND_VALUE},
    {QT_TRANSLATE_NOOP("MainWindow", "Scan List"), QT_TRANSLATE_NOOP("MainWindow", "Scanlist"),
     QT_TRANSLATE_NOOP("MainWindow", "Add MarvaneVariables and Channel Keywords to Scanlist"),
     QT_TRANSLATE_NOOP("MainWindow", "Scan List Errors:"),
     EDIT_TAB2, "SCAN_LIST", ScanListTab::CHANNEL, ScanListTab::CHANNEL},
    {QT_TRANSLATE_NOOP("MainWindow", "Meta Data List"), QT_TRANSLATE_NOOP("MainWindow", "Meta_Data"),
     QT_TRANSLATE_NOOP("MainWindow", "Add PAM Keyword associated to Marvane Variable"),
     QT_TRANSLATE_NOOP("MainWindow", "Meta Data List Errors:"),
     EDIT_TAB3, "META_DATA", MetaDataTab::VARIABLE, MetaDataTab::COLUMN_COUNT},
    {QT_TRANSLATE_NOOP("MainWindow", "Scan List Aux User"), QT_TRANSLATE_NOOP("MainWindow", "Scan List Aux User"),
     QT_TRANSLATE_NOOP("MainWindow", "Add Auxilary Scan List Parameters"),
     QT_TRANSLATE_NOOP("MainWindow", "Scan List Aux User Errors:"),
     EDIT_TAB4, "SCAN_LIST_AUX_USER", AuxUserTab::ALTERNATE_NAME, AuxUserTab::ALTERNATE_NAME},
    {QT_TRANSLATE_NOOP("MainWindow", "ECM List"), QT_TRANSLATE_NOOP("MainWindow", "ECM List"),
     QT_TRANSLATE_NOOP("MainWindow", "Select Lists of Marvane Vaiables from ASAM Spec files"),
     QT_TRANSLATE_NOOP("MainWindow", "ECM List Errors:"),
     EDIT_TAB5, "ECM_LIST", EcmListTab::PATH, EcmListTab::PATH},
}};
// clang-format on

const TabFacts& factsOf(int tab)
{
    return TABS[static_cast<size_t>(tab)];
}

bool isTab(int tab)
{
    return tab >= 0 && tab < TAB_COUNT;
}

// Opens regular files only: a FIFO may block, a device may never end. A file that does not exist
// may be created. Returns false, with the reason in *error, if the file is not opened.
bool openRegular(QFile* file, QIODevice::OpenMode mode, QString* error)
{
    const QFileInfo info(*file);
    if (info.exists() && !info.isFile()) {
        *error = MainWindow::tr("Not a regular file");
        return false;
    }
    const bool opened = file->open(mode | QIODevice::Text);
    *error = file->errorString();
    return opened;
}

// The C library keeps freed memory, so after a small document has replaced a large one the process
// would stay as large as it was.
void returnFreeMemory()
{
#ifdef __GLIBC__
    malloc_trim(0);
#endif
}

bool canBeOpened(const QString& fileName, QString* error)
{
    QFile file(fileName);
    return openRegular(&file, QIODevice::ReadOnly, error);
}

// Reads the whole file for the parser, before anything of the current document is released. If the
// name cannot be opened, tries it below "/specs/" and stores that in *fileName. Returns false, with
// the reason in *error, if the file cannot be read.
bool readAhead(QString* fileName, QString* error)
{
    if (!canBeOpened(*fileName, error)) {
        if (!fileName->contains(SPEC_PREFIX))
            fileName->prepend(SPEC_PREFIX);
        if (!canBeOpened(*fileName, error))
            return false;
    }
    const int failure = preload_file(fileName->toLocal8Bit().constData());
    if (failure != 0)
        *error = qt_error_string(failure);
    return failure == 0;
}

// Reports no failure: the load that follows does.
void writeNewFile(const QString& fileName)
{
    QFile file(fileName);
    QString error;
    if (!openRegular(&file, QIODevice::WriteOnly | QIODevice::Truncate, &error))
        return;
    QTextStream out(&file);
    for (const char* const block : NEW_FILE_BLOCKS)
        out << block;
}

// Of the file that was read last. Valid until the next one is read.
QByteArray bytesOfFile()
{
    const FileBytes file = getFileBytes();
    return QByteArray::fromRawData(file.data, static_cast<int>(file.size));
}

void dropSelectionModel(QItemSelectionModel* selection)
{
    if (selection == nullptr)
        return;
    selection->disconnect();
    delete selection;
}

// Commits and closes the open editor, as the delegate does on focus loss. Only the current cell can
// have one. A dialog is a window of its own and is left open.
void commitEditorInCell(const QTreeView& tree)
{
    QWidget* const editor = tree.indexWidget(tree.currentIndex());
    if (editor == nullptr || editor->isWindow())
        return;
    QAbstractItemDelegate* const delegate = tree.itemDelegate();
    Q_EMIT delegate->commitData(editor);
    Q_EMIT delegate->closeEditor(editor, QAbstractItemDelegate::NoHint);
}

}  // namespace

// ---- Construction ------------------------------------------------------------------------------

MainWindow::MainWindow(QWidget* parent) : QMainWindow(parent)
{
    setupUi(this);
    setEditorMainWindow(this);
    guardDocument();
    undoGroup = new QUndoGroup(this);
    makeUndoStacks();
    makeUndoActions(2);
    fillStatMemList();
    setupTables(this);
    setupEditor(SCRATCH_FILE, false);
    setupActions();
    updateActions();
    fillKeywordHelp();
    rebuildMasterVariables(QT_MARVANE_ANY);
    addStatusBarForm();
    addErrorNavigation();
    addTextNavigation();
    addRowClipboard();
    addFileDrop();
    startErrorTimer();
}

MainWindow::MainWindow(const QString& fileName, QWidget* parent) : QMainWindow(parent)
{
    undoGroup = new QUndoGroup(this);
    setupUi(this);
    makeUndoActions(1);
    setEditorMainWindow(this);
    guardDocument();
    addStatusBarForm();
    setupTables(this);
    const bool loaded = setupEditor(fileName, false);
    setupActions();
    if (!loaded)
        updateActions();
    addErrorNavigation();
    addTextNavigation();
    addRowClipboard();
    addFileDrop();
    startErrorTimer();
}

MainWindow::~MainWindow()
{
    free_resources();
    if (EditorMainWindow == this)
        setEditorMainWindow(nullptr);
}

void MainWindow::guardDocument()
{
    guard = std::make_unique<DocumentGuard>(
        this, statusBar(),
        DocumentGuard::Document{[this] { return hasUnsavedWork(); },
                                [this] {
                                    const QString text = documentText();
                                    return encoded(documentEncoding(text), text);
                                }});
    connect(qApp, &QCoreApplication::aboutToQuit, guard.get(), &DocumentGuard::copyUnsavedWork);
    beforePlainExit = [] {
        if (EditorMainWindow != nullptr)
            EditorMainWindow->guard->copyUnsavedWork();
    };
}

void MainWindow::fillKeywordHelp()
{
    for (const ScribonKeyword& keyword : SCRIBON_KEYWORDS) {
        if (keyword.help != nullptr)
            hash.insert(keywordWord(keyword), QString::fromLatin1(keyword.help));
    }
}

// The last entry is empty: choosing it removes the member from a row.
void MainWindow::fillStatMemList()
{
    for (const StatMember& member : SCAN_LIST_MEMBERS)
        statMemList.append(QString::fromLatin1(member.name));
    statMemList.append(QStringLiteral(""));
}

void MainWindow::makeUndoStacks()
{
    for (size_t tab = 0; tab < TAB_COUNT; ++tab) {
        undoStacks[tab] = std::make_unique<QUndoStack>();
        undoGroup->addStack(undoStacks[tab].get());
    }
}

void MainWindow::makeUndoActions(int separators)
{
    undoAction = undoGroup->createUndoAction(this, tr("&Undo"));
    undoAction->setShortcuts(QKeySequence::Undo);
    redoAction = undoGroup->createRedoAction(this, tr("&Redo"));
    redoAction->setShortcut(QKeySequence::Redo);
    for (int i = 0; i < separators; ++i)
        actionsMenu->addSeparator();
    actionsMenu->addAction(undoAction);
    actionsMenu->addAction(redoAction);
}

// The tab widget is connected before it has tabs: adding the first one emits currentChanged(),
// which makes its undo stack the active one.
void MainWindow::setupTables(QMainWindow* /*window*/)
{
    tabWidget = new QTabWidget(centralwidget);
    tabWidget->setObjectName(QStringLiteral("tabWidget"));
    connect(tabWidget, &QTabWidget::currentChanged, this, &MainWindow::currentTabChanged);
    for (int tab = 0; tab < TAB_COUNT; ++tab)
        setupView(tab);
    centralwidget->layout()->addWidget(tabWidget);
    for (int tab = 0; tab < TAB_COUNT; ++tab)
        connect(view[static_cast<size_t>(tab)], &QWidget::customContextMenuRequested, this,
                &MainWindow::ShowContextMenu);
    commentSpans = new CommentSpans(view[DE_TAB1], [this](int row, bool span) {
        setFirstColumnSpanned(DE_TAB1, row, QModelIndex(), span);
    });
    pageNotice = new PageNotice(tabWidget);
}

void MainWindow::setupView(int tab)
{
    auto* const page = new QWidget;
    page->setObjectName(QStringLiteral("tab%1").arg(tab));
    auto* const layout = new QHBoxLayout(page);
    layout->setObjectName(QStringLiteral("horizontalLayout%1").arg(tab));
    layout->setSpacing(0);
    layout->setContentsMargins(0, 0, 0, 0);

    auto* const tree = new TableView(page);
    tree->setObjectName(QStringLiteral("view%1").arg(tab));
    tree->setAlternatingRowColors(true);
    tree->setSelectionBehavior(QAbstractItemView::SelectItems);
    tree->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    tree->setSortingEnabled(false);
    tree->setAnimated(false);
    tree->setAllColumnsShowFocus(true);
    tree->setIndentation(5);
    tree->setContextMenuPolicy(Qt::CustomContextMenu);
    tree->setContentsMargins(4, 10, 4, 10);
    layout->addWidget(tree, 0, Qt::Alignment());
    view[static_cast<size_t>(tab)] = tree;

    const TabFacts& facts = factsOf(tab);
    tabWidget->addTab(page, tr(facts.text));
    if (facts.pageTitle != nullptr)
        page->setWindowTitle(tr(facts.pageTitle));
    tabWidget->setTabToolTip(tab, tr(facts.toolTip));
    tree->setAccessibleName(tr(facts.text));
}

void MainWindow::setupActions()
{
    connect(exitAction, &QAction::triggered, qApp, &QCoreApplication::quit);
    connect(actionsMenu, &QMenu::aboutToShow, this, &MainWindow::updateActions);
    connect(insertRowAction, &QAction::triggered, this, &MainWindow::insertRow);
    connect(removeRowAction, &QAction::triggered, this, &MainWindow::removeRow);
    connect(actionSave, &QAction::triggered, this, &MainWindow::save);
    connect(action_Open, &QAction::triggered, this, &MainWindow::open);
    connect(actionexit, &QAction::triggered, this, &QWidget::close);
    connect(action_New, &QAction::triggered, this, &MainWindow::newFile);
    connect(actionSave_As, &QAction::triggered, this, &MainWindow::saveAs);
    connect(undoAction, &QAction::triggered, this, &MainWindow::undo);
    connect(redoAction, &QAction::triggered, this, &MainWindow::redo);
    connect(actionPreferences, &QAction::triggered, this, &MainWindow::preferences);
    connect(aboutAct, &QAction::triggered, this, &MainWindow::about);
    connect(aboutQtAct, &QAction::triggered, this, &MainWindow::aboutQt);
    helpAct = new QAction(tr("Help Contents"), this);
    helpAct->setShortcuts(QKeySequence::HelpContents);
    connect(helpAct, &QAction::triggered, this, &MainWindow::showDocumentation);
    connect(actionContents, &QAction::triggered, this, &MainWindow::showDocumentation);
    // The actions are connected to the QUndoGroup first, so the change is made by then.
    connect(undoAction, &QAction::triggered, this,
            [this] { textNavigation->uncover(showUndone(uStack(), currentView())); });
    connect(redoAction, &QAction::triggered, this,
            [this] { textNavigation->uncover(showRedone(uStack(), currentView())); });
}

// ---- Loading -----------------------------------------------------------------------------------

void MainWindow::loadFile(const QString& fileName, bool newFile)
{
    QString tFileName = fileName;
    QString error;
    if (!newFile && !readAhead(&tFileName, &error)) {
        QMessageBox::warning(this, tr("Scribon Specification Editor"),
                             tr("Cannot read file %1:\n%2.").arg(fileName, error));
        return;
    }
    setCurrentFile(tFileName);
    setupEditor(tFileName, newFile);
    updateActions();
    if (loadedFile)
        statusBar()->showMessage(tr("File loaded"), STATUS_MESSAGE_MS);
}

bool MainWindow::setupEditor(const QString& fileName, bool newFile)
{
    clearUndoStacks();
    if (textNavigation != nullptr)
        textNavigation->close();
    if (loadedFile)
        releaseViews();
    const int readResult = newFile ? 0 : read_file(fileName.toLocal8Bit().constData());
    if (readResult != 0)
        return refuseDocument(fileName, readResult);
    showDocument(fileName);
    return true;
}

void MainWindow::clearUndoStacks()
{
    for (const auto& stack : undoStacks) {
        if (stack != nullptr)
            stack->clear();
    }
}

// An open dialog would outlive the delegate whose slots close it.
void MainWindow::rejectCellDialogs()
{
    for (VariableSelectionDialog* const dialog : findChildren<VariableSelectionDialog*>())
        dialog->reject();
}

// Deletes the delegates and selection models before the models that they use are replaced.
void MainWindow::releaseViews()
{
    rejectCellDialogs();
    for (size_t tab = 0; tab < TAB_COUNT; ++tab) {
        delegates[tab].reset();
        dropSelectionModel(view[tab]->selectionModel());
    }
}

void MainWindow::showDocument(const QString& fileName)
{
    setCurrentFile(fileName);
    std::array<std::unique_ptr<TreeModel>, TAB_COUNT> made;
    for (int tab = 0; tab < TAB_COUNT; ++tab) {
        made[static_cast<size_t>(tab)] = std::make_unique<SpokenModel>(
            headersOf(factsOf(tab).editTab), getTree(),
            static_cast<ANTLR3_UINT32>(factsOf(tab).editTab), nullptr);
    }
    for (int tab = 0; tab < TAB_COUNT; ++tab)
        showModel(tab, std::move(made[static_cast<size_t>(tab)]));
    commentSpans->watch(modelOf(DE_TAB1));
    for (int tab = 0; tab < TAB_COUNT; ++tab)
        arrangeView(tab);
    pageNotice->hide();
    loadedFile = true;
    for (int tab = 0; tab < TAB_COUNT; ++tab)
        modelOf(tab)->setDirty();
    updateErrorCount();
    guard->loaded(fileName, bytesOfFile());
    returnFreeMemory();
}

// Destroy the old model last; setModel() still disconnects from it.
void MainWindow::showModel(int tab, std::unique_ptr<TreeModel> model)
{
    const auto slot = static_cast<size_t>(tab);
    setDelegate(tab, std::make_unique<Antlr3_BaseTreeDelegate>());
    view[slot]->setEditTriggers(QAbstractItemView::DoubleClicked |
                                QAbstractItemView::EditKeyPressed);
    connect(model.get(), &TreeModel::codesChanged, view[slot], &TableView::updateLooks);
    // Typing marks the cell; validate again in case the editor is closed without a commit.
    connect(delegates[slot].get(), &QAbstractItemDelegate::closeEditor, model.get(),
            &TreeModel::setDirty);
    guardModel(*model);
    QItemSelectionModel* const before = view[slot]->selectionModel();
    view[slot]->setModel(model.get());
    dropSelectionModel(before);
    models[slot] = std::move(model);
}

void MainWindow::guardModel(const TreeModel& model)
{
    connect(&model, &QAbstractItemModel::dataChanged, guard.get(), &DocumentGuard::edited);
    connect(&model, &QAbstractItemModel::rowsInserted, guard.get(), &DocumentGuard::edited);
    connect(&model, &QAbstractItemModel::rowsRemoved, guard.get(), &DocumentGuard::edited);
}

// On a list tab, row 0 holds the section's keyword and column 0 is not used: both are hidden. On
// the Keywords tab, a column that does not exist is.
void MainWindow::arrangeView(int tab)
{
    QTreeView* const tree = view[static_cast<size_t>(tab)];
    tree->setRootIsDecorated(false);
    const bool list = factsOf(tab).section != nullptr;
    if (list)
        tree->setRowHidden(0, QModelIndex(), true);
    tree->setColumnHidden(list ? KEYWORD_COLUMN : int(KeywordsTab::COLUMN_COUNT), true);
    fitColumns(tab);
    connect(tree->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &MainWindow::updateActions);
}

// Reports the failure in the window title and on the page. Views that showed a document keep its
// models. Returns false, the result of setupEditor().
bool MainWindow::refuseDocument(const QString& fileName, int readResult)
{
    const QString title = readResult == -2
                              ? QStringLiteral("Invalid scribon_specs file: ") + fileName
                              : NOTHING_LOADED;
    setCurrentFile(title);
    if (readResult == -2)
        pageNotice->tell(title, reasonOfRefusal(bytesOfFile()));
    else
        pageNotice->tell(QString(), QString());
    if (loadedFile) {
        for (int tab = 0; tab < TAB_COUNT; ++tab)
            makeViewHarmless(tab);
    }
    loadedFile = false;
    guard->unloaded();
    return false;
}

// The rows of the last document can be looked at, but not edited.
void MainWindow::makeViewHarmless(int tab)
{
    QTreeView* const tree = view[static_cast<size_t>(tab)];
    tree->setEditTriggers(QAbstractItemView::NoEditTriggers);
    setDelegate(tab, std::make_unique<ClosedRowsDelegate>());
    tree->setSelectionModel(new QItemSelectionModel(tree->model(), tree));
}

void MainWindow::setDelegate(int tab, std::unique_ptr<QAbstractItemDelegate> delegate)
{
    const auto slot = static_cast<size_t>(tab);
    view[slot]->setItemDelegate(delegate.get());
    delegates[slot] = std::move(delegate);
}

void MainWindow::setCurrentFile(const QString& fileName)
{
    const QString title = tr("Scribon Specification Editor:");
    curFile = fileName;
    setWindowModified(false);
    setWindowFilePath(curFile.isEmpty() ? QStringLiteral("untitled.txt") : curFile);
    setWindowTitle(title + fileName);
}

void MainWindow::fitColumns(int tab)
{
    QTreeView* const tree = view[static_cast<size_t>(tab)];
    if (tree->model() == nullptr)
        return;
    for (int column = 0; column < tree->model()->columnCount(); ++column)
        tree->resizeColumnToContents(column);
}

void MainWindow::fitAllColumns()
{
    for (int tab = 0; tab < TAB_COUNT; ++tab)
        fitColumns(tab);
}

// Five passes. Existing behaviour, kept for compatibility.
void MainWindow::fitColumnsRepeatedly()
{
    for (int pass = 0; pass < FITTING_PASSES; ++pass)
        fitAllColumns();
}

void MainWindow::loadChosenFile(const QString& fileName)
{
    LoadingFile = 1;
    loadFile(fileName, false);
    LoadingFile = 0;
}

void MainWindow::openChosenFile(const QString& fileName)
{
    loadChosenFile(fileName);
    if (loadedFile)
        fitColumnsRepeatedly();
}

void MainWindow::newFile()
{
    if (!maybeSave())
        return;
    const QString fileName =
        QFileDialog::getSaveFileName(this, tr("New File"), SPEC_DIRECTORY, SPEC_FILTER);
    if (fileName.isEmpty())
        return;
    writeNewFile(fileName);
    loadChosenFile(fileName);
    fitColumnsRepeatedly();
}

void MainWindow::open()
{
    if (!maybeSave())
        return;
    const QString fileName =
        QFileDialog::getOpenFileName(this, tr("Open File"), SPEC_DIRECTORY, SPEC_FILTER);
    if (!fileName.isEmpty())
        openChosenFile(fileName);
}

// ---- Saving ------------------------------------------------------------------------------------

bool MainWindow::save()
{
    commitOpenEditors();
    if (curFile.isEmpty())
        return saveAs();
    return curFile != NOTHING_LOADED && saveFile(curFile);
}

bool MainWindow::saveAs()
{
    commitOpenEditors();
    if (!loadedFile) {
        QMessageBox::warning(this, tr("Scribon Specifications Editor"),
                             tr("Nothing Loaded cannot save empty file."));
        return false;
    }
    QFileDialog dialog(this);
    dialog.setWindowModality(Qt::WindowModal);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    return saveFile(dialog.selectedFiles().first());
}

// Writes in place: opening truncates the file, then each tab appends its rows. Until all of it is
// on disk, the recovery copy holds the document. Returns false, after a message box, if no document
// is loaded or the file cannot be opened.
bool MainWindow::saveFile(const QString& fileName)
{
    const QString title = tr("Scribon Specifications Editor");
    QFile file(fileName);
    if (!loadedFile) {
        QMessageBox::warning(
            this, title,
            tr("Nothing Loaded cannot save file %1:\n%2.").arg(fileName, file.errorString()));
        return false;
    }
    guard->aboutToSave();
    QString error;
    if (!openRegular(&file, QIODevice::WriteOnly, &error)) {
        guard->saveRefused();
        QMessageBox::warning(this, title, tr("Cannot write file %1:\n%2.").arg(fileName, error));
        return false;
    }
    const QByteArray text = writeTabs(fileName.toLocal8Bit());
    setCurrentFile(fileName);
    guard->saved(fileName, text);
    statusBar()->showMessage(tr("File saved"), STATUS_MESSAGE_MS);
    return true;
}

// Appends each tab's rows to the file and returns the bytes that it should then have. The modified
// flags are cleared before writing.
QByteArray MainWindow::writeTabs(QByteArray localName)
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const QString text = documentText();
    const SpecEncoding encoding = documentEncoding(text);
    isModified = false;
    for (int tab = 0; tab < TAB_COUNT; ++tab) {
        modelOf(tab)->clrModified();
        modelOf(tab)->setEncoding(encoding);
    }
    for (int tab = 0; tab < TAB_COUNT; ++tab)
        modelOf(tab)->dump_to_file(localName.data());
    QApplication::restoreOverrideCursor();
    return encoded(encoding, text);
}

QString MainWindow::documentText() const
{
    QString text;
    for (int tab = 0; tab < TAB_COUNT; ++tab)
        text += modelOf(tab)->specText();
    return text;
}

SpecEncoding MainWindow::documentEncoding(const QString& text) const
{
    return encodingFor(text, modelOf(DE_TAB1)->encoding());
}

bool MainWindow::hasUnsavedWork() const
{
    if (!loadedFile)
        return isModified;
    const auto modified = [](const auto& model) { return model != nullptr && model->isModified(); };
    return isModified || std::any_of(models.begin(), models.end(), modified);
}

bool MainWindow::maybeSave()
{
    commitOpenEditors();
    if (!hasUnsavedWork())
        return true;
    const auto answer =
        QMessageBox::warning(this, tr("Scribon Specifications Editor"),
                             tr("The file has been modified.\nDo you want to save your chanages?"),
                             QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel);
    if (answer == QMessageBox::Save)
        return save();
    return answer != QMessageBox::Cancel;
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    if (!maybeSave()) {
        event->ignore();
        return;
    }
    writeSettings();
    event->accept();
    free_resources();
    guard->closed();
}

// ---- Errors ------------------------------------------------------------------------------------

void MainWindow::addStatusBarForm()
{
    statusBarform = new StatusBarForm;
    statusBar()->addPermanentWidget(statusBarform, 0);
}

void MainWindow::addErrorNavigation()
{
    new ErrorNavigation(this, tabWidget, view, statusBarform, [this] {
        const bool isOpen = prepareDocument();
        checkErrorCount();
        return isOpen;
    });
}

void MainWindow::addRowClipboard()
{
    new RowClipboard(this, tabWidget, view, [this] { return prepareDocument(); });
}

void MainWindow::addFileDrop()
{
    new FileDrop(this, [this](const QString& fileName) {
        if (maybeSave())
            openChosenFile(fileName);
    });
}

void MainWindow::addTextNavigation()
{
    textNavigation =
        new TextNavigation(this, tabWidget, view, [this] { return prepareDocument(); });
}

void MainWindow::startErrorTimer()
{
    constexpr int TICK_MS = 500;
    timer = new QTimer(this);
    connect(timer, &QTimer::timeout, this, &MainWindow::checkErrorCount);
    timer->start(TICK_MS);
}

void MainWindow::checkErrorCount()
{
    if (loadedFile)
        updateErrorCount();
}

// Validates the tabs that have changed, and the current tab also as long as it has errors.
void MainWindow::updateErrorCount()
{
    totalErrorCount = 0;
    if (!loadedFile)
        return;
    const int tab_index = currentTab();
    for (int tab = 0; tab < TAB_COUNT; ++tab) {
        TreeModel* const model = modelOf(tab);
        if (tab == tab_index && model->getErrorCount() > 0)
            model->setDirty();
        model->validate_model();
        if (tab == tab_index)
            tabErrorCount = model->getErrorCount();
        totalErrorCount += model->getErrorCount();
    }
    if (statusBarform != nullptr)
        showErrorCounts(tab_index);
}

// Sets only what has changed, so that the status bar is not repainted twice a second.
void MainWindow::showErrorCounts(int tab)
{
    if (tabErrorCount != lastTabErrorCount) {
        lastTabErrorCount = tabErrorCount;
        statusBarform->setTabErrCount(tabErrorCount);
    }
    if (tab != statusBarform->getTabIndex()) {
        statusBarform->setTabErrLabel(tr(factsOf(tab).errorLabel));
        statusBarform->setTabIndex(tab);
    }
    if (totalErrorCount != lastTotalErrorCount) {
        lastTotalErrorCount = totalErrorCount;
        statusBarform->setErrorCount(totalErrorCount);
    }
}

// ---- Tabs and rows -----------------------------------------------------------------------------

int MainWindow::currentTab() const
{
    return tabWidget->currentIndex();
}

QTreeView* MainWindow::currentView() const
{
    return isTab(currentTab()) ? view[static_cast<size_t>(currentTab())] : nullptr;
}

TreeModel* MainWindow::modelOf(int tab) const
{
    return models[static_cast<size_t>(tab)].get();
}

// Shortcuts, menus and the window manager do not take the focus from an open editor, so its text is
// not in the model yet.
void MainWindow::commitOpenEditors()
{
    for (size_t tab = 0; tab < TAB_COUNT; ++tab)
        commitEditorInCell(*view[tab]);
}

bool MainWindow::prepareDocument()
{
    commitOpenEditors();
    if (!loadedFile)
        showFitting(statusBar(), tr("No file is open"), NO_FILE_MESSAGE_MS);
    return loadedFile;
}

// Open editors are closed first: Undo, which is in the same menu, must not change the cell under an
// open editor.
void MainWindow::updateActions()
{
    const bool hasCurrent = loadedFile && isTab(currentTab());
    const bool hasSelection =
        hasCurrent &&
        !view[static_cast<size_t>(currentTab())]->selectionModel()->selection().isEmpty();
    removeRowAction->setEnabled(hasSelection);
    removeColumnAction->setEnabled(hasSelection);
    insertRowAction->setEnabled(hasCurrent);
    insertColumnAction->setEnabled(hasCurrent);
    if (hasCurrent) {
        commitOpenEditors();
        view[0]->closePersistentEditor(view[0]->currentIndex());
    }
}

void MainWindow::currentTabChanged(int tabIndex)
{
    const QList<QUndoStack*> stacks = undoGroup->stacks();
    if (tabIndex >= 0 && tabIndex < stacks.size()) {
        undoGroup->setActiveStack(stacks.at(tabIndex));
        updateErrorCount();
    }
}

// pos is in the view's coordinates but mapped as the window's, so the menu opens off the cursor by
// the view's position in the window. Existing behaviour, kept for compatibility.
void MainWindow::ShowContextMenu(const QPoint& pos)
{
    actionsMenu->exec(mapToGlobal(pos));
}

void MainWindow::setFirstColumnSpanned(int tabIndex, int row, const QModelIndex& index, bool bVal)
{
    if (!isTab(tabIndex))
        return;
    TableView* const tree = view[static_cast<size_t>(tabIndex)];
    if (tree->isFirstColumnSpanned(row, index) != bVal)
        tree->setFirstColumnSpanned(row, index, bVal);
}

void MainWindow::insertRow()
{
    commitOpenEditors();
    const int tab = currentTab();
    TreeModel* const model = loadedFile && isTab(tab) ? modelOf(tab) : nullptr;
    if (model == nullptr || undoGroup->activeStack() == nullptr)
        return;
    QTreeView* const tree = view[static_cast<size_t>(tab)];
    QModelIndex index = tree->currentIndex().siblingAtColumn(0);
    if (!index.isValid())
        index = model->index(0, 0);
    const int newRowNumber = index.row() + 1;
    undoGroup->activeStack()->push(new EditorUndoCommand(model, index, newRowNumber, 0,
                                                         factsOf(tab).insertEndColumn, uaddRow));
    updateActions();
    const QModelIndex newRow = model->index(newRowNumber, 0);
    tree->selectionModel()->setCurrentIndex(newRow, QItemSelectionModel::ClearAndSelect);
    tree->edit(newRow);
    model->setDirty();
    model->validate_model();
}

// True for a row that cannot be removed: a required keyword, and on a list tab row 0, which holds
// the section's keyword, or no row at all (-1). Stores the keyword in *keyword, in lower case and
// without its "@".
bool MainWindow::refusesRemoval(int tab, const QModelIndex& index, QString* keyword) const
{
    if (factsOf(tab).section != nullptr) {
        *keyword = QString::fromLatin1(factsOf(tab).section).toLower();
        return index.row() < 1;
    }
    const QString text = index.siblingAtColumn(0).data(Qt::DisplayRole).toString();
    const QByteArray bytes = text.toLocal8Bit();
    *keyword = keywordWord(text).toLower();
    return appGrammerRequired(bytes.constData(), static_cast<size_t>(bytes.size()));
}

void MainWindow::removeRow()
{
    commitOpenEditors();
    const int tab = currentTab();
    TreeModel* const model = loadedFile && isTab(tab) ? modelOf(tab) : nullptr;
    if (model == nullptr || undoGroup->activeStack() == nullptr)
        return;
    const QModelIndex index = view[static_cast<size_t>(tab)]->currentIndex();
    QString keyword;
    if (refusesRemoval(tab, index, &keyword)) {
        statusBar()->showMessage(tr("Unable to remove a required keyword  (%1)").arg(keyword));
        return;
    }
    if (!index.isValid())
        return;
    undoGroup->activeStack()->push(new EditorUndoCommand(model, index, index.row(), 0,
                                                         factsOf(tab).removeEndColumn, uremoveRow));
    updateActions();
}

QUndoStack* MainWindow::uStack()
{
    return undoGroup->activeStack();
}

// The actions of the QUndoGroup undo and redo by themselves.
void MainWindow::undo() {}

void MainWindow::redo() {}

void MainWindow::documentWasModified()
{
    setWindowModified(false);
}

void MainWindow::delayedInit() {}
