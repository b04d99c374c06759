// The one window: the document's life from a file name to five tabs and back, the tabs, and the
// actions on their rows.
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
class DocumentGuard;
class QAbstractItemDelegate;
class QCloseEvent;
class QTabWidget;
class QTimer;
class QTreeView;
class QUndoGroup;
class QUndoStack;
class StatusBarForm;
class TreeModel;

class MainWindow : public QMainWindow, private Ui::MainWindow {
    Q_OBJECT

public:
    explicit MainWindow(QWidget* parent = nullptr);

    // A window on one file without the scratch file, the undo stacks and the keyword help; the
    // program itself uses the other form.
    MainWindow(const QString& fileName, QWidget* parent);
    ~MainWindow() override;

    // Opens the document, which replaces the one on screen; newFile leaves the last parse in place.
    // A name that cannot be opened is tried once more below "/specs/". A file that cannot be read
    // is told in a box and leaves the document as it was; one that is no spec file is told in the
    // title, and nothing is loaded then.
    void loadFile(const QString& fileName, bool newFile);

    // Takes over the stored place, size, fonts and colour, or their defaults. For a window that is
    // about to be shown.
    void readSettings();

    // Spans column 0 of a row over all columns, or ends that.
    void setFirstColumnSpanned(int tabIndex, int row, const QModelIndex& index, bool bVal);

    // What the platform calls its version, with a blank at the end if its text goes on; empty when
    // it tells none.
    static QString getVersionNumber();

    QFont editorFont() const { return myPrefs.editorFont; }
    QFont syntaxFont() const { return myPrefs.syntaxFont; }
    QColor syntaxColor() const { return myPrefs.syntaxColor; }
    QStringList StatMemList() const { return statMemList; }
    QHash<QString, QString> keywordHelp() const { return hash; }

public Q_SLOTS:
    void updateActions();
    QUndoStack* uStack();
    void ShowContextMenu(const QPoint& pos);
    void checkErrorCount();
    void delayedInit();
    void insertRow();
    void removeRow();
    void newFile();
    void open();
    bool save();
    bool saveAs();
    void about();
    void documentWasModified();
    void undo();
    void redo();
    void preferences();
    void aboutQt();
    void showDocumentation();
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
    void startErrorTimer();
    void updateErrorCount();
    void showErrorCounts(int tab);
    void writeSettings();
    void showEditorFont();
    static Assistant* makeAssistant();

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
    void fitColumns(int tab);
    void fitColumnsRepeatedly();

    bool saveFile(const QString& fileName);
    QByteArray writeTabs(QByteArray localName);
    QString documentText() const;
    SpecEncoding documentEncoding(const QString& text) const;
    bool maybeSave();
    bool hasUnsavedWork() const;

    int currentTab() const;
    TreeModel* modelOf(int tab) const;
    void commitOpenEditors();
    bool refusesRemoval(int tab, const QModelIndex& index, QString* keyword) const;

    QAction* undoAction = nullptr;
    QAction* redoAction = nullptr;
    QAction* helpAct = nullptr;
    QString curFile;          // after a failed load, what the title says
    bool isModified = false;  // the models' own flags tell of changes
    bool loadedFile = false;
    std::array<std::unique_ptr<TreeModel>, TAB_SLOTS> models;
    std::array<std::unique_ptr<QAbstractItemDelegate>, TAB_SLOTS> delegates;
    std::array<QTreeView*, TAB_SLOTS> view{};
    QTabWidget* tabWidget = nullptr;

    // Public members are used by models, delegates and dialogs through EditorAccess.
public:
    QUndoGroup* undoGroup = nullptr;

private:
    std::array<std::unique_ptr<QUndoStack>, TAB_SLOTS> undoStacks;
    int totalErrorCount = 0;
    int lastTotalErrorCount = -1;  // what the status bar shows
    int lastTabErrorCount = -1;
    int tabErrorCount = 0;
    QTimer* timer = nullptr;
    StatusBarForm* statusBarform = nullptr;
    Assistant* assistant = makeAssistant();
    std::unique_ptr<DocumentGuard> guard;

public:
    preference_results myPrefs;
    QHash<QString, QString> hash;  // keyword in lower case without its "@" to its help
    QStringList statMemList;       // what may stand for a statistic, with an empty last entry
};

// The one main window; null before it is built.
extern MainWindow* EditorMainWindow;
