// check finds in a file what a new editor shows that opens it: the same counts on the tabs, the
// same wrong cells, the same codes and messages.

#include <map>
#include <tuple>

#include "check.h"
#include "editor_antlr3.h"
#include "spec_texts.h"
#include "window_test.h"

namespace {

using Cells = std::map<std::tuple<int, int, int>, QString>;

// The wrong cells of the window's tables, with their messages.
Cells wrongCells(const MainWindow& window)
{
    Cells cells;
    for (int tab = 0; tab < TAB_COUNT; ++tab) {
        const TreeModel* const model = modelOf(window, tab);
        for (int row = 0; row < model->rowCount(); ++row) {
            for (int column = 0; column < model->columnCount(); ++column) {
                const QModelIndex index = model->index(row, column);
                const int code = model->errorCode(index).toInt();
                if (code == DE_SYNTAX_ERR || code == DE_DUPLICATE_ERR)
                    cells[{tab, row, column}] =
                        QString::number(code) + QLatin1Char(' ') + model->errorText(index);
            }
        }
    }
    return cells;
}

Cells wrongCells(const FileReport& report)
{
    Cells cells;
    for (const Finding& finding : report.findings) {
        const bool syntax = finding.rule == Rule::Syntax;
        if (syntax || finding.rule == Rule::Duplicate)
            cells[{finding.cell.tab, finding.cell.row, finding.cell.column}] =
                QString::number(syntax ? DE_SYNTAX_ERR : DE_DUPLICATE_ERR) + QLatin1Char(' ') +
                finding.message;
    }
    return cells;
}

QList<int> counts(const MainWindow& window)
{
    QList<int> counts;
    for (int tab = 0; tab < TAB_COUNT; ++tab)
        counts.append(modelOf(window, tab)->getErrorCount());
    return counts;
}

}  // namespace

class TestSpecAsEditor : public WindowTest {
    Q_OBJECT

public:
    TestSpecAsEditor() { Q_INIT_RESOURCE(scriboneditor); }

private Q_SLOTS:
    void randomFiles();

private:
    void compare(const QByteArray& text);
};

void TestSpecAsEditor::compare(const QByteArray& text)
{
    const QString name = QStringLiteral("/specs/scrib_random");
    QFile file(name);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
    file.close();
    const FileReport report = checkFile(SpecFile::read(name), {});
    resetParseState();
    m_window->loadFile(name, false);
    QCOMPARE(titleOf(*m_window) == name, report.loads);
    if (!report.loads)
        return;
    QCOMPARE(QList<int>(report.errors.begin(), report.errors.end()), counts(*m_window));
    QVERIFY2(wrongCells(report) == wrongCells(*m_window), text.constData());
}

void TestSpecAsEditor::randomFiles()
{
    for (unsigned seed = 0; seed < 1200 && !QTest::currentTestFailed(); ++seed)
        compare(specText(seed));
}

#include "area_test.h"
AREA_TEST(QTEST_MAIN, TestSpecAsEditor)
#include "tst_spec_as_editor.moc"
