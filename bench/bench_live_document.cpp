// The document in the window: validating cells, changing rows, painting the visible part. Measured
// on 10,000 scan list rows, 2,000 meta data rows and all keywords, with names that are all distinct
// and one in five of which is more than a plain word.

#include <QApplication>
#include <QTabWidget>
#include <QTreeView>
#include <QUndoStack>

#include "antlr3_basetreedelegate.h"
#include "bench_document.h"
#include "bench_platform.h"
#include "editor_antlr3.h"
#include "editorundocommand.h"
#include "errornavigation.h"
#include "mainwindow.h"
#include "treemodel.h"
#include "variablemaplist.h"

namespace {

constexpr int SCAN_ROWS = 10000;
constexpr int META_ROWS = 2000;
constexpr int ALL_ROWS = SCAN_ROWS + META_ROWS;
constexpr int MANY_ROWS = 100000 + META_ROWS;
constexpr double SECONDS = 1.0;

const std::string& liveFile()
{
    return specFileOfRows(SCAN_ROWS, META_ROWS);
}

void measure(benchmark::internal::Benchmark* measured)
{
    measured->Arg(ALL_ROWS)->MinTime(SECONDS);
}

void measureAlsoManyRows(benchmark::internal::Benchmark* measured)
{
    measured->Arg(ALL_ROWS)->Arg(MANY_ROWS)->MinTime(SECONDS);
}

int scanRowsOf(const benchmark::State& state)
{
    return static_cast<int>(state.range(0)) - META_ROWS;
}

const std::string& fileOf(const benchmark::State& state)
{
    return specFileOfRows(scanRowsOf(state), META_ROWS);
}

using Models = std::vector<std::unique_ptr<TreeModel>>;

Models loadModels(const std::string& file = liveFile())
{
    read_file(file.c_str());
    Models models = makeModels();
    free_resources();
    return models;
}

void judgeAll(const Models& models)
{
    for (const auto& model : models) {
        model->setDirty();
        model->validate_model();
    }
}

// The baseline for the other figures.
void readFile(benchmark::State& state)
{
    for (auto _ : state) {
        benchmark::DoNotOptimize(read_file(fileOf(state).c_str()));
        free_resources();
    }
}
BENCHMARK(readFile)->Apply(measureAlsoManyRows);

void judgeAfterLoad(benchmark::State& state)
{
    for (auto _ : state) {
        state.PauseTiming();
        Models models = loadModels();
        state.ResumeTiming();
        judgeAll(models);
        state.PauseTiming();
        models.clear();
        state.ResumeTiming();
    }
}
BENCHMARK(judgeAfterLoad)->Apply(measure);

// A timer calls this twice a second while the tab has errors.
void judgeAgainWithErrors(benchmark::State& state)
{
    const Models models = loadModels();
    TreeModel& scanList = *models[DE_TAB2];
    scanList.setData(scanList.index(SCAN_ROWS / 2, 1), QStringLiteral("1 wrong"));
    judgeAll(models);
    for (auto _ : state) {
        scanList.setDirty();
        scanList.validate_model();
    }
}
BENCHMARK(judgeAgainWithErrors)->Apply(measure);

void judgeAfterOneEdit(benchmark::State& state)
{
    const Models models = loadModels(fileOf(state));
    TreeModel& scanList = *models[DE_TAB2];
    judgeAll(models);
    const QModelIndex cell = scanList.index(scanRowsOf(state) / 2, ScanListTab::VARIABLE);
    int edit = 0;
    for (auto _ : state) {
        scanList.setData(cell, QStringLiteral("edited_%1").arg(++edit));
        scanList.validate_model();
    }
}
BENCHMARK(judgeAfterOneEdit)->Apply(measureAlsoManyRows);

// Creates the editor of a channel keyword, which looks for the keywords that no other row has.
void openChannelList(benchmark::State& state)
{
    const Models models = loadModels(fileOf(state));
    const QModelIndex cell = models[DE_TAB2]->index(scanRowsOf(state) / 2, ScanListTab::CHANNEL);
    const Antlr3_BaseTreeDelegate delegate;
    QWidget parent;
    for (auto _ : state)
        delete delegate.createEditor(&parent, QStyleOptionViewItem(), cell);
}
BENCHMARK(openChannelList)->Apply(measureAlsoManyRows);

// Four actions a round: the command, undo, redo, undo.
void changeRow(benchmark::State& state, ur_command command)
{
    const Models models = loadModels();
    TreeModel& scanList = *models[DE_TAB2];
    constexpr int ROW = SCAN_ROWS / 2;
    const int commandRow = command == uaddRow ? ROW + 1 : ROW;
    QUndoStack stack;
    for (auto _ : state) {
        stack.push(
            new EditorUndoCommand(&scanList, scanList.index(ROW, 0), commandRow, 0, 3, command));
        stack.undo();
        stack.redo();
        stack.undo();
    }
}
void insertUndoRedoUndo(benchmark::State& state)
{
    changeRow(state, uaddRow);
}
BENCHMARK(insertUndoRedoUndo)->Apply(measure);
void removeUndoRedoUndo(benchmark::State& state)
{
    changeRow(state, uremoveRow);
}
BENCHMARK(removeUndoRedoUndo)->Apply(measure);

// A shown window on the file, with the Scan List in front.
std::unique_ptr<MainWindow> shownWindow(const std::string& fileName)
{
    auto window = std::make_unique<MainWindow>(nullptr);
    window->loadFile(QString::fromStdString(fileName), false);
    window->readSettings();
    window->show();
    window->findChild<QTabWidget*>(QStringLiteral("tabWidget"))->setCurrentIndex(DE_TAB2);
    QApplication::processEvents();
    return window;
}

void tickOfCleanDocument(benchmark::State& state)
{
    const auto window = shownWindow(liveFile());
    for (auto _ : state)
        window->checkErrorCount();
}
BENCHMARK(tickOfCleanDocument)->Apply(measure);

// The visible rows in the middle of the list.
void paintScreen(benchmark::State& state)
{
    const auto window = shownWindow(specFileOfRows(static_cast<int>(state.range(0)), 0));
    auto* const view = window->findChild<QTreeView*>(QStringLiteral("view1"));
    view->scrollTo(view->model()->index(view->model()->rowCount() / 2, 1));
    for (auto _ : state)
        view->viewport()->repaint();
}
BENCHMARK(paintScreen)->Arg(100)->Arg(SCAN_ROWS)->MinTime(SECONDS);

// A row insertion and its undo as in the window: the view is updated and the tab is validated.
void insertRowInWindow(benchmark::State& state)
{
    const auto window = shownWindow(liveFile());
    auto* const view = window->findChild<QTreeView*>(QStringLiteral("view1"));
    view->setCurrentIndex(view->model()->index(SCAN_ROWS / 2, 1));
    for (auto _ : state) {
        window->insertRow();
        QApplication::processEvents();
        window->uStack()->undo();
        window->checkErrorCount();
        QApplication::processEvents();
    }
}
BENCHMARK(insertRowInWindow)->Apply(measure);

// An edit of a cell in the window, which schedules a recovery copy.
void editInWindow(benchmark::State& state)
{
    const auto window = shownWindow(liveFile());
    auto* const model = window->findChild<QTreeView*>(QStringLiteral("view1"))->model();
    auto* const scanList = static_cast<TreeModel*>(model);
    const QModelIndex cell = scanList->index(SCAN_ROWS / 2, 1);
    int edits = 0;
    for (auto _ : state)
        scanList->undoredo_setData(cell, QStringLiteral("edited_%1").arg(++edits));
}
BENCHMARK(editInWindow)->Apply(measure);

// The way between two wrong cells, the first and the last of the list.
void nextErrorInWindow(benchmark::State& state)
{
    const auto window = shownWindow(fileOf(state));
    const auto* const view = window->findChild<QTreeView*>(QStringLiteral("view1"));
    auto* const scanList = static_cast<TreeModel*>(view->model());
    for (int row : {1, scanList->rowCount() - 1})
        scanList->setData(scanList->index(row, 1), QStringLiteral("1st"));
    auto* const navigation = window->findChild<ErrorNavigation*>();
    for (auto _ : state)
        navigation->go(ErrorNavigation::Next, ErrorNavigation::InFile);
}
BENCHMARK(nextErrorInWindow)->Apply(measureAlsoManyRows);

// Writing the recovery copy and flushing it to the disk.
void copyOfUnsavedWork(benchmark::State& state)
{
    const auto window = shownWindow(liveFile());
    window->insertRow();
    for (auto _ : state)
        beforePlainExit();
}
BENCHMARK(copyOfUnsavedWork)->Apply(measure);

}  // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    runPlatformOf(0);
    const int status = runBenchmarks(argc, argv);
    stopPlatform();
    return status;
}
