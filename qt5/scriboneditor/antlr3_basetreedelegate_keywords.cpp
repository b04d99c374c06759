// The editors of the Keywords tab, where the keyword of a row decides which editor its values get.

#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>
#include <QRegExpValidator>
#include <QSpinBox>
#include <algorithm>

#include "antlr3_basetreedelegate.h"
#include "cell_edits.h"
#include "cell_text.h"
#include "editor_access.h"
#include "keyword_words.h"
#include "line_breaks.h"
#include "scribon_keywords.h"
#include "textjudge.h"
#include "treeitem.h"
#include "validationcharm.h"
#include "value_kinds.h"
#include "variableselectiondialog.h"

namespace {

constexpr int MAX_SCANS = 1000000;

QStringList wordsLeftFor(const QModelIndex& index)
{
    QStringList list = wordList();
    const QAbstractItemModel& model = *index.model();
    const int numRows = model.rowCount();
    for (int row = 0; row < numRows; ++row) {
        if (row != index.row())
            list.removeOne(keywordWord(textOf(model.index(row, KeywordsTab::KEYWORD))));
    }
    return list;
}

// The tool tip of an item, looked up by its position; null if that row of SCRIBON_KEYWORDS has
// another keyword. So items behind one that is left out have no tool tip. Existing behaviour, kept
// for compatibility.
const char* choiceHelpAt(int position, const QString& word)
{
    const ScribonKeyword& keyword = SCRIBON_KEYWORDS[static_cast<size_t>(position)];
    if (keyword.choiceHelp == nullptr || keywordWord(keyword) != word)
        return nullptr;
    return keyword.choiceHelp == SAME_AS_HELP ? keyword.help : keyword.choiceHelp;
}

void showKeyword(QComboBox* comboBox, const QString& name)
{
    const int currentIndex = comboBox->findText(name, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (currentIndex == -1)
        comboBox->setCurrentText(name);
    comboBox->setCurrentIndex(qMax(currentIndex, 0));
}

// Selects the variable in a dialog that is not shown yet, or sets it as edit text if it is unknown.
void showVariable(VariableSelectionDialog* dialog, const QString& text)
{
    QComboBox* const comboBox = dialog->variableComboBox();
    const int currentIndex = comboBox->findText(text);
    comboBox->setCurrentIndex(currentIndex);
    if (currentIndex == -1)
        comboBox->setEditText(text);
}

void showVariableOfCell(VariableSelectionDialog* dialog, const QModelIndex& index)
{
    const QString text = textOf(index).trimmed();
    dialog->setOrigVarName(text);
    showVariable(dialog, text);
}

void showOptionalText(VariableSelectionDialog* dialog, const QString& text)
{
    dialog->setOptionalText(text);
    dialog->lineEdit()->setText(text);
}

void showInterval(VariableSelectionDialog* dialog, const QModelIndex& index)
{
    const QByteArray item = textOf(index).toUtf8();
    if (!item.isEmpty() && item.at(0) >= '0' && item.at(0) <= '9')
        showOptionalText(dialog, textOf(index));
    else
        showVariableOfCell(dialog, index);
}

// A variable in place of a path is not set as the dialog's original, so the dialog opens with an
// empty variable. Existing behaviour, kept for compatibility. The cell keeps its variable unless
// another one or a path is chosen: empty values are not stored.
void showPath(VariableSelectionDialog* dialog, const QModelIndex& index)
{
    const QString text = textOf(index);
    if (text.startsWith(QLatin1Char('/')))
        showOptionalText(dialog, text);
    else
        showVariable(dialog, text);
}

void showInDialog(VariableSelectionDialog* dialog, int editorType, const QModelIndex& index)
{
    if (editorType == SCAN_INTERVAL_EDITOR)
        showInterval(dialog, index);
    else if (editorType == DIR_PATH_EDITOR)
        showPath(dialog, index);
    else
        showVariableOfCell(dialog, index);
}

QString valueOfDialog(const VariableSelectionDialog& dialog, const VariableChoice& choice)
{
    if (choice.hasOptionalLine() && !dialog.optionalText().isEmpty())
        return dialog.optionalText();
    return dialog.variableComboBox()->currentText();
}

}  // namespace

// ---- Creating editors --------------------------------------------------------------------------

QWidget* Antlr3_BaseTreeDelegate::createEditorTab1(QWidget* the_parent,
                                                   const QStyleOptionViewItem& /*option*/,
                                                   const QModelIndex& index) const
{
    switch (index.column()) {
        case KeywordsTab::KEYWORD:
            return keywordEditor(the_parent, index);
        case KeywordsTab::VALUE:
            return keywordValueEditor(the_parent, index);
        case KeywordsTab::SECOND_VALUE:
            return secondValueEditor(the_parent, index);
        default:
            return nullptr;
    }
}

QWidget* Antlr3_BaseTreeDelegate::keywordEditor(QWidget* the_parent, const QModelIndex& index) const
{
    auto* const editor = new QComboBox(the_parent);
    keywordComboBoxSetup(editor, index);
    editor->setMaxVisibleItems(15);
    editor->setEditable(true);
    refuseLineBreaks(editor->lineEdit());
    editor->view()->setSelectionBehavior(QAbstractItemView::SelectItems);
    editor->view()->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    editor->view()->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    connect(editor->lineEdit(), &QLineEdit::editingFinished, this,
            &Antlr3_BaseTreeDelegate::cbCommitAndCloseEditor);
    connect(editor, qOverload<int>(&QComboBox::currentIndexChanged), this,
            qOverload<int>(&Antlr3_BaseTreeDelegate::commitAndCloseEditor));
    return editor;
}

QWidget* Antlr3_BaseTreeDelegate::keywordValueEditor(QWidget* the_parent,
                                                     const QModelIndex& index) const
{
    const ValueKind& kind = valueKindOf(index);
    switch (kind.widget) {
        case ValueWidget::YesNo:
            return yesno_editor(the_parent);
        case ValueWidget::Number:
            return integer_editor(the_parent, 0, MAX_SCANS);
        case ValueWidget::Line:
            return lineEditor(the_parent, kind.value, index);
        case ValueWidget::Dialog:
            return variableEditor(index, kind.choice.variables, kind.choice.optionalLabel);
        case ValueWidget::None:
            break;
    }
    return nullptr;
}

QWidget* Antlr3_BaseTreeDelegate::secondValueEditor(QWidget* the_parent,
                                                    const QModelIndex& index) const
{
    return lineEditor(the_parent, valueKindOf(index).second.line, index);
}

QWidget* Antlr3_BaseTreeDelegate::lineEditor(QWidget* the_parent, const LineFormat& line,
                                             const QModelIndex& index) const
{
    return get_line_editor(the_parent, ValidatorPatterns[line.format], line.length, line.message,
                           index);
}

QWidget* Antlr3_BaseTreeDelegate::get_line_editor(QWidget* parent, const char* format,
                                                  unsigned int /*length*/, const char* message,
                                                  const QModelIndex& index) const
{
    auto* const editor = new QLineEdit(parent);
    auto* const validator = new QRegExpValidator(QRegExp(QString::fromLatin1(format)), editor);
    auto* const charm = new ValidationCharm;
    charm->setParent(editor);
    charm->activateOn(editor, validator, QString::fromLatin1(message), index);
    refuseLineBreaksOutsideQuotes(editor);
    connect(editor, &QLineEdit::editingFinished, this,
            qOverload<>(&Antlr3_BaseTreeDelegate::commitAndCloseEditor));
    return editor;
}

QWidget* Antlr3_BaseTreeDelegate::integer_editor(QWidget* the_parent, int minValue,
                                                 int maxValue) const
{
    auto* const editor = new QSpinBox(the_parent);
    editor->setRange(minValue, maxValue);
    connect(editor, &QSpinBox::editingFinished, this,
            &Antlr3_BaseTreeDelegate::sbCommitAndCloseEditor);
    return editor;
}

QWidget* Antlr3_BaseTreeDelegate::yesno_editor(QWidget* the_parent) const
{
    auto* const editor = new QComboBox(the_parent);
    editor->addItems({QStringLiteral("yes"), QStringLiteral("no")});
    connect(editor, qOverload<int>(&QComboBox::currentIndexChanged), this,
            qOverload<int>(&Antlr3_BaseTreeDelegate::commitAndCloseEditor));
    return editor;
}

QWidget* Antlr3_BaseTreeDelegate::variableEditor(const QModelIndex& index, int type,
                                                 const char* optionalData) const
{
    auto* const dialog =
        new VariableSelectionDialog(index, editorAccess().dialogParent(), QT_MARVANE_VAR_TYPE(type),
                                    QString::fromLatin1(optionalData), QString());
    connect(dialog, &QDialog::finished, this, &Antlr3_BaseTreeDelegate::vsCommitAndCloseEditor);
    return dialog;
}

void Antlr3_BaseTreeDelegate::keywordComboBoxSetup(QComboBox* editor,
                                                   const QModelIndex& index) const
{
    editor->setFont(editorAccess().preferences().editorFont);
    const QStringList list = wordsLeftFor(index);
    editor->insertItems(editor->count(), list);
    for (int i = 0; i < list.size(); ++i) {
        if (const char* const help = choiceHelpAt(i, list.at(i)))
            editor->setItemData(i, QString::fromLatin1(help), Qt::ToolTipRole);
    }
}

// ---- From the cell to the editor ---------------------------------------------------------------

void Antlr3_BaseTreeDelegate::setEditorDataTab1(QWidget* editor, const QModelIndex& index) const
{
    switch (index.column()) {
        case KeywordsTab::KEYWORD:
            setEditorDataTab1Col0(editor, index);
            break;
        case KeywordsTab::VALUE:
            setEditorDataTab1Col1(editor, index);
            break;
        case KeywordsTab::SECOND_VALUE:
            setEditorDataTab1Col2(editor, index);
            break;
        default:
            break;
    }
}

// A keyword that is not in the list selects the first item. All text is selected, so that typing
// replaces it.
void Antlr3_BaseTreeDelegate::setEditorDataTab1Col0(QWidget* editor, const QModelIndex& index) const
{
    const QString item = textOf(index);
    auto* const comboBox = qobject_cast<QComboBox*>(editor);
    if (item.isEmpty() || comboBox == nullptr || comboBox->lineEdit() == nullptr)
        return;
    if (isFreeText(classify(item)))
        comboBox->lineEdit()->setText(item);
    else
        showKeyword(comboBox, keywordWord(item.trimmed()).toLower());
    comboBox->lineEdit()->selectAll();
}

void Antlr3_BaseTreeDelegate::setEditorDataTab1Col1(QWidget* editor, const QModelIndex& index) const
{
    const ValueKind& kind = valueKindOf(index);
    const QString text = textOf(index);
    if (kind.widget == ValueWidget::YesNo) {
        if (auto* const comboBox = qobject_cast<QComboBox*>(editor))
            comboBox->setCurrentIndex(comboBox->findText(text.toLower()));
    } else if (kind.widget == ValueWidget::Number) {
        if (auto* const spinBox = qobject_cast<QSpinBox*>(editor))
            spinBox->setValue(index.data(Qt::EditRole).toInt());
    } else if (kind.widget == ValueWidget::Dialog) {
        if (auto* const dialog = qobject_cast<VariableSelectionDialog*>(editor))
            showInDialog(dialog, kind.editor, index);
    } else if (auto* const lineEdit = qobject_cast<QLineEdit*>(editor)) {
        const bool empty = kind.editor == FILLER_DATA || text == FILLER_TEXT;
        lineEdit->setText(empty ? QString() : text);
    }
}

void Antlr3_BaseTreeDelegate::setEditorDataTab1Col2(QWidget* editor, const QModelIndex& index) const
{
    auto* const lineEdit = qobject_cast<QLineEdit*>(editor);
    const QString text = textOf(index);
    if (lineEdit == nullptr || text.isEmpty())
        return;
    const int ttype = classify(text);
    if (ttype == EVENT_EDITOR || valueKindOf(index).second.use == SecondValueUse::Checked)
        lineEdit->setText(text);
    else if (ttype == FILLER_DATA)
        lineEdit->clear();
}

// ---- From the editor to the cell ---------------------------------------------------------------

void Antlr3_BaseTreeDelegate::setModelDataTab1(QWidget* editor, QAbstractItemModel* model,
                                               const QModelIndex& index) const
{
    switch (index.column()) {
        case KeywordsTab::KEYWORD:
            setModelDataTab1Col0(editor, model, index);
            break;
        case KeywordsTab::VALUE:
            setModelDataTab1Col1(editor, model, index);
            break;
        case KeywordsTab::SECOND_VALUE:
            setModelDataTab1Col2(editor, model, index);
            break;
        default:
            break;
    }
}

void Antlr3_BaseTreeDelegate::setModelDataTab1Col0(QWidget* editor, QAbstractItemModel* model,
                                                   const QModelIndex& index) const
{
    const auto* const comboBox = qobject_cast<QComboBox*>(editor);
    if (comboBox == nullptr)
        return;
    const int editorType = editorTypeOf(index);
    const QString value = comboBox->currentText().trimmed();
    if (isFreeText(editorType))
        store(model, index, freeTextOrKeyword(value, editorType));
    else
        store(model, index, (QLatin1Char('@') + value).toUpper());
}

void Antlr3_BaseTreeDelegate::setModelDataTab1Col1(QWidget* editor, QAbstractItemModel* model,
                                                   const QModelIndex& index) const
{
    const ValueKind& kind = valueKindOf(index);
    if (kind.widget == ValueWidget::YesNo) {
        if (const auto* const comboBox = qobject_cast<QComboBox*>(editor))
            store(model, index, comboBox->currentText());
    } else if (kind.widget == ValueWidget::Number) {
        if (auto* const spinBox = qobject_cast<QSpinBox*>(editor)) {
            spinBox->interpretText();
            store(model, index, spinBox->value());
        }
    } else if (kind.widget == ValueWidget::Dialog) {
        if (const auto* const dialog = qobject_cast<VariableSelectionDialog*>(editor))
            store(model, index, valueOfDialog(*dialog, kind.choice));
    } else if (const auto* const lineEdit = qobject_cast<QLineEdit*>(editor)) {
        store(model, index, lineEdit->text());
    }
}

void Antlr3_BaseTreeDelegate::setModelDataTab1Col2(QWidget* editor, QAbstractItemModel* model,
                                                   const QModelIndex& index) const
{
    const auto* const lineEdit = qobject_cast<QLineEdit*>(editor);
    if (lineEdit != nullptr && valueKindOf(index).second.use != SecondValueUse::None)
        store(model, index, lineEdit->text());
}
