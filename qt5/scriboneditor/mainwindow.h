// The main window: loads a spec file into five tabs and saves it, and has the actions that insert,
// remove and edit rows.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QMainWindow>
#include <QModelIndex>
#include <QPoint>
#include <QString>
#include <QStringList>
#include <array>
#include <memory>

#include "editor_access.h"
#include "editor_types.h"
#include "preference_results.h"
#include "specencoding.h"
#include "ui_mainwindow.h"

class Assistant;
class CommentSpans;
class DocumentGuard;
class PageNotice;
class QAbstractItemDelegate;
class QCloseEvent;
class QTabWidget;
class QTimer;
class QUndoGroup;
class QUndoStack;
class StatusBarForm;
class TableView;
class TextNavigation;
class TreeModel;

class MainWindow : public QMainWindow, private Ui::MainWindow {
    Q_OBJECT

public:
    explicit MainWindow(QWidget* parent = nullptr);

    // A window that loads this file. It has no undo stacks, keyword help or statistical members, so
    // rows can be neither inserted nor removed. The program itself uses the other constructor.
    MainWindow(const QString& fileName, QWidget* parent);
    ~MainWindow() override;

    // Loads a file, which replaces the current document. A name that cannot be opened is tried
    // again below "/specs/". With newFile nothing is read: the tree of the last parse is shown.
    // Unreadable: message box, document kept. Not a spec file: title only, no document.
    void loadFile(const QString& fileName, bool newFile);

    // Applies the stored position, size, fonts and colour, or the defaults of those that are not
    // stored. Call it before the window is shown.
    void readSettings();

    // Lets column 0 of a row span all columns, or not. Does nothing for an invalid tab.
    void setFirstColumnSpanned(int tabIndex, int row, const QModelIndex& index, bool bVal);

    // The second word of the platform's version text ("$Version: E-7.0.23   $"), with the blank
    // behind it if there is one. Empty if the platform library has no version text.
    static QString getVersionNumber();

    QFont editorFont() const { return myPrefs.editorFont; }
    QFont syntaxFont() const { return myPrefs.syntaxFont; }
    QColor syntaxColor() const { return myPrefs.syntaxColor; }
    QStringList StatMemList() const { return statMemList; }
    QHash<QString, QString> keywordHelp() const { return hash; }

public Q_SLOTS:
    // Enables the row actions: removing needs a selection, inserting a loaded document. Commits
    // and closes the open editors of cells if a document is loaded.
    void updateActions();

    // The undo stack of the current tab; null if there is none. Owned by the window.
    QUndoStack* uStack();

    // Shows the Edit menu at a position in window coordinates.
    void ShowContextMenu(const QPoint& pos);

    // Called by the timer: validates what has changed and updates the counters in the status bar.
    void checkErrorCount();

    // Does nothing.
    void delayedInit();

    // Inserts a row below the current one, or below the first if there is none, and opens its
    // editor. Does nothing without a document or an undo stack.
    void insertRow();

    // Removes the current row. A required keyword or the keyword of a list section is not removed:
    // a message in the status bar says so.
    void removeRow();

    // Each offers to save unsaved changes first, asks for a file name and loads that file; nothing
    // happens if either dialog is cancelled. New first writes a file of required keywords.
    void newFile();
    void open();

    // Writes the document to its file, or to one that the user chooses if it has none. False if
    // nothing was written: no document is loaded, the file cannot be opened for writing, or the
    // user cancelled. What fails after the file was opened is reported by DocumentGuard alone, and
    // the result is still true.
    bool save();

    // Asks for a file name and writes the document there. Results as for save().
    bool saveAs();

    // Shows the About box of the editor.
    void about();

    // Does nothing but clear the window's modified flag; the models keep their own.
    void documentWasModified();

    // Do nothing: the actions of the QUndoGroup undo and redo by themselves.
    void undo();
    void redo();

    // Opens the Preferences dialog and applies what the user accepts.
    void preferences();

    // Shows Qt's own About box.
    void aboutQt();

    // Opens the help collection in the help viewer.
    void showDocumentation();

    // Makes the tab's undo stack the active one and updates the counters.
    void currentTabChanged(int tabIndex);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    static void setEditorMainWindow(MainWindow* window);
    void guardDocument();
    void fillKeywordHelp();
    void fillStatMemList();
    void makeUndoStacks();
    void makeUndoActions(int separators);
    void setupTables(QMainWindow* window);
    void setupView(int tab);
    void setupActions();
    void addStatusBarForm();
    void addErrorNavigation();
    void addTextNavigation();
    void addRowClipboard();
    void addFileDrop();
    void startErrorTimer();
    void updateErrorCount();
    void showErrorCounts(int tab);
    void writeSettings();
    void showEditorFont();
    static Assistant* makeAssistant();

    // False if the file is not loaded: no document then.
    bool setupEditor(const QString& fileName, bool newFile);
    void clearUndoStacks();
    void rejectCellDialogs();
    void releaseViews();
    void showDocument(const QString& fileName);
    void showModel(int tab, std::unique_ptr<TreeModel> model);
    void guardModel(const TreeModel& model);
    void arrangeView(int tab);
    bool refuseDocument(const QString& fileName, int readResult);
    void makeViewHarmless(int tab);
    void setDelegate(int tab, std::unique_ptr<QAbstractItemDelegate> delegate);
    void setCurrentFile(const QString& fileName);
    void loadChosenFile(const QString& fileName);
    void openChosenFile(const QString& fileName);
    void fitColumns(int tab);
    void fitAllColumns();
    void fitColumnsRepeatedly();

    bool saveFile(const QString& fileName);
    QByteArray writeTabs(QByteArray localName);
    QString documentText() const;
    SpecEncoding documentEncoding(const QString& text) const;
    // Offers to save unsaved changes. False if the user cancelled or the save failed.
    bool maybeSave();
    bool hasUnsavedWork() const;

    int currentTab() const;
    QTreeView* currentView() const;
    TreeModel* modelOf(int tab) const;
    void commitOpenEditors();
    // For the keys that the menus do not have: commits the open editors. False, told in the status
    // bar, if no document is loaded.
    bool prepareDocument();
    bool refusesRemoval(int tab, const QModelIndex& index, QString* keyword) const;

    QAction* undoAction = nullptr;
    QAction* redoAction = nullptr;
    QAction* helpAct = nullptr;
    QString curFile;          // file name; after a failed load, the text in the title
    bool isModified = false;  // never set: each model has a flag of its own
    bool loadedFile = false;
    std::array<std::unique_ptr<TreeModel>, TAB_SLOTS> models;
    std::array<std::unique_ptr<QAbstractItemDelegate>, TAB_SLOTS> delegates;
    std::array<TableView*, TAB_SLOTS> view{};
    QTabWidget* tabWidget = nullptr;
    CommentSpans* commentSpans = nullptr;
    PageNotice* pageNotice = nullptr;

    // Public members are used by models, delegates and dialogs through EditorAccess.
public:
    QUndoGroup* undoGroup = nullptr;

private:
    std::array<std::unique_ptr<QUndoStack>, TAB_SLOTS> undoStacks;
    int totalErrorCount = 0;
    int lastTotalErrorCount = -1;  // as shown in the status bar; -1 before the first count
    int lastTabErrorCount = -1;
    int tabErrorCount = 0;
    QTimer* timer = nullptr;
    StatusBarForm* statusBarform = nullptr;
    TextNavigation* textNavigation = nullptr;
    Assistant* assistant = makeAssistant();
    std::unique_ptr<DocumentGuard> guard;

public:
    preference_results myPrefs;
    QHash<QString, QString> hash;  // help texts by keyword, in lower case without its "@"
    QStringList statMemList;       // statistical members, then an empty entry that means none
};

// The main window; null while there is none.
extern MainWindow* EditorMainWindow;
