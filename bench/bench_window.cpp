// What the user waits for in the window, in documents of 100 to 100,000 scan list rows: jumps, an
// undo far off screen, inserting a row, finding a text, starting with a file and opening one.

#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTabWidget>
#include <QTimer>
#include <QTreeView>
#include <QUndoStack>

#include "bench_document.h"
#include "bench_platform.h"
#include "editor_antlr3.h"
#include "mainwindow.h"
#include "rowclipboard.h"
#include "textnavigation.h"
#include "treemodel.h"

namespace {

constexpr double SECONDS = 1.0;

void atWindowSizes(benchmark::internal::Benchmark* measured)
{
    measured->Arg(100)->Arg(10000)->Arg(100000)->MinTime(SECONDS);
}

// For what is prepared anew in each round, which takes longer than what is measured.
void inFewRounds(benchmark::internal::Benchmark* measured)
{
    constexpr int ROUNDS = 10;
    measured->Arg(100)->Arg(10000)->Arg(100000)->Iterations(ROUNDS);
}

const std::string& fileOf(const benchmark::State& state)
{
    return specFileOfRows(static_cast<int>(state.range(0)));
}

// As main() does, up to the first paint.
std::unique_ptr<MainWindow> startedWindow(const std::string& fileName)
{
    auto window = std::make_unique<MainWindow>(nullptr);
    if (!fileName.empty())
        window->loadFile(QString::fromStdString(fileName), false);
    window->readSettings();
    window->show();
    QApplication::processEvents();
    return window;
}

// A started window with the Scan List in front.
class ScanList {
public:
    explicit ScanList(const std::string& fileName) : m_window(startedWindow(fileName))
    {
        m_window->findChild<QTabWidget*>(QStringLiteral("tabWidget"))->setCurrentIndex(DE_TAB2);
        QApplication::processEvents();
    }

    MainWindow& window() { return *m_window; }
    QTreeView& view() { return *m_view; }
    TreeModel& model() { return *static_cast<TreeModel*>(m_view->model()); }
    int lastRow() { return model().rowCount() - 1; }

    void press(Qt::Key key)
    {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QApplication::sendEvent(m_view, &event);
    }

    // Sets and paints the current cell.
    void goTo(int row)
    {
        m_view->setCurrentIndex(model().index(row, 1));
        QApplication::processEvents();
    }

    // Forgets the heights of the rows, as each insertion and removal does.
    void forgetHeights()
    {
        m_view->doItemsLayout();
        QApplication::processEvents();
    }

private:
    std::unique_ptr<MainWindow> m_window;
    QTreeView* m_view = m_window->findChild<QTreeView*>(QStringLiteral("view1"));
};

// The baseline of a start: what a load needs without a window.
void readBuildAndValidate(benchmark::State& state)
{
    for (auto _ : state) {
        read_file(fileOf(state).c_str());
        for (const auto& model : makeModels()) {
            model->setDirty();
            model->validate_model();
        }
        free_resources();
    }
}
BENCHMARK(readBuildAndValidate)->Apply(atWindowSizes);

void startWithoutFile(benchmark::State& state)
{
    for (auto _ : state)
        startedWindow({});
}
BENCHMARK(startWithoutFile)->Arg(100)->MinTime(SECONDS);

void startWithFile(benchmark::State& state)
{
    for (auto _ : state) {
        const auto window = startedWindow(fileOf(state));
        state.PauseTiming();
        window->hide();
        state.ResumeTiming();
    }
}
BENCHMARK(startWithFile)->Apply(atWindowSizes);

void chooseInDialog(const QString& fileName)
{
    auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    dialog->selectFile(fileName);
    static_cast<QDialog*>(dialog)->accept();
}

// File, Open with its dialog, up to the first paint.
void openFile(benchmark::State& state)
{
    const QString fileName = QString::fromStdString(fileOf(state));
    const auto window = startedWindow(fileOf(state));
    for (auto _ : state) {
        QTimer::singleShot(0, [fileName] { chooseInDialog(fileName); });
        window->open();
        QApplication::processEvents();
    }
}
BENCHMARK(openFile)->Apply(atWindowSizes);

// One fitting of the Scan List's columns after a change, which measures a thousand rows at most.
void fitColumns(benchmark::State& state)
{
    ScanList list(fileOf(state));
    for (auto _ : state) {
        list.view().doItemsLayout();
        for (int column = 0; column < list.model().columnCount(); ++column)
            list.view().resizeColumnToContents(column);
    }
}
BENCHMARK(fitColumns)->Apply(inFewRounds);

// The keys End and Home, each up to its paint.
void jumpToEndAndHome(benchmark::State& state)
{
    ScanList list(fileOf(state));
    list.goTo(1);
    for (auto _ : state) {
        state.PauseTiming();
        list.forgetHeights();
        state.ResumeTiming();
        for (const Qt::Key key : {Qt::Key_End, Qt::Key_Home}) {
            list.press(key);
            QApplication::processEvents();
        }
    }
}
BENCHMARK(jumpToEndAndHome)->Apply(inFewRounds);

// A page up from the last row, which the user has scrolled away from.
void pageFarOffScreen(benchmark::State& state)
{
    ScanList list(fileOf(state));
    for (auto _ : state) {
        state.PauseTiming();
        list.goTo(list.lastRow());
        list.forgetHeights();
        list.view().scrollToTop();
        QApplication::processEvents();
        state.ResumeTiming();
        list.press(Qt::Key_PageUp);
        QApplication::processEvents();
    }
}
BENCHMARK(pageFarOffScreen)->Apply(inFewRounds);

// Undo of a cell in the last row while the first is in sight, without the validation that follows.
void undoFarOffScreen(benchmark::State& state)
{
    ScanList list(fileOf(state));
    list.goTo(1);
    const QModelIndex cell = list.model().index(list.lastRow(), 1);
    int edits = 0;
    for (auto _ : state) {
        state.PauseTiming();
        list.model().undoredo_setData(cell, QStringLiteral("edited_%1").arg(++edits));
        list.forgetHeights();
        state.ResumeTiming();
        list.window().uStack()->undo();
        QApplication::processEvents();
    }
}
BENCHMARK(undoFarOffScreen)->Apply(inFewRounds);

// A click on the last row after a jump there.
void clickInLastRow(benchmark::State& state)
{
    ScanList list(fileOf(state));
    for (auto _ : state) {
        state.PauseTiming();
        list.goTo(list.lastRow());
        list.forgetHeights();
        QWidget* const viewport = list.view().viewport();
        const QPointF place =
            list.view().visualRect(list.model().index(list.lastRow(), 2)).center();
        state.ResumeTiming();
        for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QMouseEvent event(type, place, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(viewport, &event);
        }
        QApplication::processEvents();
    }
}
BENCHMARK(clickInLastRow)->Apply(inFewRounds);

// Insert Row with its validation, up to the paint of the row and its open editor, in the middle of
// the list.
void insertRowAndPaint(benchmark::State& state)
{
    ScanList list(fileOf(state));
    const int middle = list.lastRow() / 2;
    for (auto _ : state) {
        state.PauseTiming();
        list.goTo(middle);
        state.ResumeTiming();
        list.window().insertRow();
        QApplication::processEvents();
        state.PauseTiming();
        list.goTo(1);
        list.window().uStack()->undo();
        list.window().checkErrorCount();
        QApplication::processEvents();
        state.ResumeTiming();
    }
}
BENCHMARK(insertRowAndPaint)->Apply(inFewRounds);

// A letter typed into the line of Find, up to the paint.
void findLetter(benchmark::State& state, const QString& letter)
{
    ScanList list(fileOf(state));
    list.goTo(list.lastRow() / 2);
    list.window().findChild<TextNavigation*>()->open();
    auto* const line = list.window().findChild<QLineEdit*>(QStringLiteral("findText"));
    for (auto _ : state) {
        line->insert(letter);
        QApplication::processEvents();
        state.PauseTiming();
        line->clear();
        QApplication::processEvents();
        state.ResumeTiming();
    }
}

// Nearly all rows match.
void findEverywhere(benchmark::State& state)
{
    findLetter(state, QStringLiteral("a"));
}
BENCHMARK(findEverywhere)->Apply(inFewRounds);

void findNowhere(benchmark::State& state)
{
    findLetter(state, QStringLiteral("%"));
}
BENCHMARK(findNowhere)->Apply(inFewRounds);

// Ctrl+V of 500 rows in the middle of the list, up to their paint, and its one undo.
void pasteRowsAndUndo(benchmark::State& state)
{
    constexpr int ROWS = 500;
    ScanList list(fileOf(state));
    list.goTo(list.lastRow() / 2);
    QString rows;
    for (int i = 0; i < ROWS; ++i)
        rows += QStringLiteral("pasted_%1\t.AV\tPASTED_%1\n").arg(i);
    QApplication::clipboard()->setText(rows);
    for (auto _ : state) {
        list.window().findChild<RowClipboard*>()->paste();
        QApplication::processEvents();
        list.window().uStack()->undo();
        list.window().checkErrorCount();
        QApplication::processEvents();
    }
}
BENCHMARK(pasteRowsAndUndo)->Apply(inFewRounds);

QString programStyle()
{
    QFile style(QStringLiteral(":/resources/qss/default.qss"));
    return style.open(QIODevice::ReadOnly) ? QString::fromUtf8(style.readAll()) : QString();
}

}  // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    Q_INIT_RESOURCE(scriboneditor);  // needed: the resources are in a static library
    application.setStyleSheet(programStyle());
    runPlatformOf(0);
    const int status = runBenchmarks(argc, argv);
    stopPlatform();
    return status;
}
