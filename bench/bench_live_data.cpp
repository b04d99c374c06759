// The platform's variables: reading their catalogue, opening the variable dialog, typing into it.
// The dialog is compared with a plain QComboBox that has the same names.

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSortFilterProxyModel>
#include <QStringListModel>

#include "bench_document.h"
#include "bench_platform.h"
#include "variableselectiondialog.h"

namespace {

constexpr double SECONDS = 1.5;

void measure(benchmark::internal::Benchmark* measured)
{
    measured->Arg(1000)->Arg(5000)->Arg(20000)->MinTime(SECONDS);
}

int variablesOf(const benchmark::State& state)
{
    return static_cast<int>(state.range(0));
}

void readCatalogue(benchmark::State& state)
{
    runPlatformOf(variablesOf(state));
    for (auto _ : state)
        rebuildMasterVariables(QT_MARVANE_ANY);
}
BENCHMARK(readCatalogue)->Apply(measure);

QStringList allNames(int variables)
{
    runPlatformOf(variables);
    rebuildMasterVariables(QT_MARVANE_ANY);
    QStringList names;
    for (const QStringList& group : *Master_variables)
        names += group;
    return names;
}

// The baseline for the dialog: one QComboBox over a QSortFilterProxyModel, in its own window.
void plainComboBox(benchmark::State& state)
{
    const QStringList names = allNames(variablesOf(state));
    for (auto _ : state) {
        QDialog window;
        QComboBox comboBox(&window);
        comboBox.setEditable(true);
        comboBox.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        QStringListModel model(names);
        QSortFilterProxyModel proxy;
        proxy.setSourceModel(&model);
        proxy.sort(0);
        comboBox.setModel(&proxy);
        window.show();
        QApplication::processEvents();
    }
}
BENCHMARK(plainComboBox)->Apply(measure);

std::unique_ptr<VariableSelectionDialog> shownDialog(QWidget* parent, const QString& variable)
{
    auto dialog = std::make_unique<VariableSelectionDialog>(QModelIndex(), parent, QT_MARVANE_ANY,
                                                            QString(), QString());
    dialog->setOrigVarName(variable);
    dialog->variableComboBox()->setCurrentText(variable);
    dialog->show();
    QApplication::processEvents();
    return dialog;
}

void openVariableDialog(benchmark::State& state)
{
    allNames(variablesOf(state));
    QWidget parent;
    for (auto _ : state)
        shownDialog(&parent, QStringLiteral("cell_variable_500"));
}
BENCHMARK(openVariableDialog)->Apply(measure);

void press(QWidget* widget, int key, const QString& text)
{
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(widget, &event);
    QApplication::processEvents();
}

// The first key is a beginning of every variable's name; the next one deletes it.
void typeAndEraseInDialog(benchmark::State& state)
{
    allNames(variablesOf(state));
    QWidget parent;
    const auto dialog = shownDialog(&parent, QStringLiteral("cell_variable_500"));
    QLineEdit* const line = dialog->variableComboBox()->lineEdit();
    line->setFocus();
    line->setText(QStringLiteral("cell_variabl"));
    for (auto _ : state) {
        press(line, Qt::Key_E, QStringLiteral("e"));
        press(line, Qt::Key_Backspace, QString());
    }
}
BENCHMARK(typeAndEraseInDialog)->Apply(measure);

// Return after a name of the list. QComboBox itself searches all items for it.
void endNameInDialog(benchmark::State& state)
{
    allNames(variablesOf(state));
    QWidget parent;
    const auto dialog = shownDialog(&parent, QStringLiteral("cell_variable_500"));
    QLineEdit* const line = dialog->variableComboBox()->lineEdit();
    line->setFocus();
    for (auto _ : state)
        press(line, Qt::Key_Return, QString());
}
BENCHMARK(endNameInDialog)->Apply(measure);

}  // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    const int status = runBenchmarks(argc, argv);
    stopPlatform();
    return status;
}
