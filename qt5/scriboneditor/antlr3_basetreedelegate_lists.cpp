// The editors of the list tabs. The cell of a variable holds its name, optionally with a member and
// with units in square brackets: it is split into these parts for the dialog and joined again.

#include <QAbstractItemView>
#include <QComboBox>
#include <QHash>
#include <QLineEdit>
#include <QSpinBox>
#include <algorithm>

#include "antlr3_basetreedelegate.h"
#include "asamspecs_select.h"
#include "cell_text.h"
#include "editor_access.h"
#include "line_breaks.h"
#include "platformkeywords.h"
#include "platformunits.h"
#include "stat_members.h"
#include "treeitem.h"
#include "validatorformat.h"
#include "variableselectiondialog.h"

namespace {

// ---- The parts of a variable's cell ------------------------------------------------------------

void splitIntoDialog(VariableSelectionDialog* dialog, const QString& text)
{
    const QStringList sl = text.split(QLatin1Char('['));
    dialog->setOrigVarName(sl[0]);
    if (sl.size() > 1)
        dialog->setUnits(sl[1].left(sl[1].size() - 1).toUpper());
    dialog->variableComboBox()->setCurrentText(sl[0]);
}

// Adds units only if they differ from the default; none selected gives "[]".
QString unitsSuffix(const VariableSelectionDialog& dialog)
{
    const QString uValue = dialog.unitsComboBox()->currentText();
    if (uValue == dialog.defaultUnits())
        return {};
    return QLatin1Char('[') + uValue + QLatin1Char(']');
}

QString joinFromDialog(const VariableSelectionDialog& dialog)
{
    const QString value = dialog.variableComboBox()->currentText();
    if (value.isEmpty())
        return {};
    return value + dialog.subText().trimmed() + unitsSuffix(dialog);
}

// What a member that is not statistical adds to the variable's name. Existing behaviour, kept for
// compatibility: typed with its full stop, it loses that and its first letter, and a NUL is added.
QString foreignMember(const QString& statmem)
{
    if (!statmem.startsWith(QLatin1Char('.')))
        return statmem;
    return statmem.size() < 2 ? QString() : statmem.mid(2) + QChar(0);
}

QString withFullStop(const QString& member)
{
    const bool complete =
        member.startsWith(QLatin1Char('.')) || member == QLatin1String(LOG_DIGITAL_DESCP.name);
    return complete ? member : QLatin1Char('.') + member;
}

// Stores a statistical member in its own column of the Scan List and any other member as part of
// the variable's name. A full stop is put before the member only if the variable's name has one.
void storeScanListVariable(const VariableSelectionDialog& dialog, QAbstractItemModel* model,
                           const QModelIndex& index)
{
    QString value = dialog.variableComboBox()->currentText();
    QString statmem = dialog.subText();
    QString dstatmem = statmem;
    if (value.contains(QLatin1Char('.')) && !statmem.isEmpty()) {
        dstatmem = withFullStop(statmem);
        if (!editorAccess().statisticalMembers().contains(dstatmem)) {
            value += foreignMember(statmem);
            statmem.clear();
        }
    }
    if (!value.isEmpty())
        value += unitsSuffix(dialog);
    store(model, index, value);
    if (!statmem.isEmpty())
        store(model, index.siblingAtColumn(ScanListTab::MEMBER), dstatmem);
}

// ---- The rest of the cells ---------------------------------------------------------------------

// Selects the item of this text, or the first one if there is none.
void showItem(QWidget* editor, const QString& text)
{
    auto* const comboBox = qobject_cast<QComboBox*>(editor);
    if (comboBox == nullptr)
        return;
    const int index = comboBox->findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
    comboBox->setCurrentIndex(qMax(index, 0));
    if (comboBox->lineEdit() != nullptr)
        comboBox->lineEdit()->selectAll();
}

void showText(QWidget* editor, const QString& text)
{
    if (auto* const lineEdit = qobject_cast<QLineEdit*>(editor))
        lineEdit->setText(text);
}

bool isLiteral(const QString& text)
{
    return text.startsWith(QLatin1Char('\'')) || text.startsWith(QLatin1Char('"'));
}

// Stores the variable as its alternate name if the row has none yet.
void storeAlternateName(QAbstractItemModel* model, const QModelIndex& index, const QString& value)
{
    const QString item = textOf(index).trimmed();
    if (!item.isEmpty() && item != FILLER_TEXT)
        return;
    clearMark(model, index);
    store(model, index, value);
}

// ---- The platform's keywords -------------------------------------------------------------------

// Always empty, unless the units are longer than 93 characters: chop() takes the character code of
// ']' as a count. So only the variable's own units decide which keywords are offered. Existing
// behaviour, kept for compatibility.
QString typedUnits(const QString& label)
{
    QString units = label.section(QLatin1Char('['), 1, 1);
    units.chop(']');
    return units;
}

// 0, which means any units, if none are known.
int32_t unitsCodeFor(const QString& label)
{
    QByteArray units = typedUnits(label).toLocal8Bit();
    if (units.isEmpty())
        units = unitsOfVariable(label.section(QLatin1Char('['), 0, 0));
    return codeOfUnits(units);
}

bool isOffered(const PAM_KEYWORD& entry, int32_t unitsCode, int keywordType)
{
    return (unitsCode == 0 || entry.unitscode == unitsCode) && isKeywordOfKind(entry, keywordType);
}

// The names of the keywords that fit, in the order of the platform's table.
QStringList fittingKeywords(int32_t unitsCode, int keywordType)
{
    QStringList names;
    for (const PAM_KEYWORD& entry : Keyword_memory->keyword_table) {
        if (isOffered(entry, unitsCode, keywordType))
            names.append(keywordName(entry));
    }
    return names;
}

// How often each of the names is a channel keyword of another row. None is on the Meta Data List,
// which has no such column.
QHash<QString, int> usesInOtherRows(const QStringList& names, const QModelIndex& index)
{
    QHash<QString, int> uses;
    for (const QString& name : names)
        uses.insert(name, 0);
    const QAbstractItemModel& model = *index.model();
    const int numRows = model.columnCount() > ScanListTab::CHANNEL ? model.rowCount() : 0;
    for (int row = 0; row < numRows; ++row) {
        const QString text = model.index(row, ScanListTab::CHANNEL).data().toString();
        const auto use = row == index.row() ? uses.end() : uses.find(text);
        if (use != uses.end())
            ++*use;
    }
    return uses;
}

// Counts one use of the name down; false if none is left. A keyword that the platform has twice can
// be used by two rows.
bool takeOneUse(QHash<QString, int>* uses, const QString& name)
{
    int& left = (*uses)[name];
    return left > 0 && left-- > 0;
}

}  // namespace

QStringList Antlr3_BaseTreeDelegate::mPAM_Keywords(const QString& label, const QModelIndex& index,
                                                   int keywordType) const
{
    if (!linkKeywordMemory())
        return {};
    QStringList keywordList = fittingKeywords(unitsCodeFor(label), keywordType);
    QHash<QString, int> uses = usesInOtherRows(keywordList, index);
    const auto isUsed = [&uses](const QString& name) { return takeOneUse(&uses, name); };
    keywordList.erase(std::remove_if(keywordList.begin(), keywordList.end(), isUsed),
                      keywordList.end());
    return keywordList;
}

QStringList Antlr3_BaseTreeDelegate::Chan_Keywords(const QString& label,
                                                   const QModelIndex& index) const
{
    return mPAM_Keywords(label, index, CHANNEL_KEYWORD);
}

QStringList Antlr3_BaseTreeDelegate::PAM_Keywords(const QString& label,
                                                  const QModelIndex& index) const
{
    return mPAM_Keywords(label, index, PARAMETER_KEYWORD);
}

QWidget* Antlr3_BaseTreeDelegate::listKeywordEditor(QWidget* the_parent,
                                                    const QStringList& keywords) const
{
    auto* const editor = new QComboBox(the_parent);
    editor->setEditable(true);
    refuseLineBreaks(editor->lineEdit());
    editor->insertItems(0, keywords);
    connect(editor, qOverload<int>(&QComboBox::currentIndexChanged), this,
            qOverload<int>(&Antlr3_BaseTreeDelegate::commitAndCloseEditor));
    return editor;
}

// ---- Scan List ---------------------------------------------------------------------------------

QWidget* Antlr3_BaseTreeDelegate::createEditorTab2(QWidget* the_parent,
                                                   const QStyleOptionViewItem& /*option*/,
                                                   const QModelIndex& index) const
{
    const int column = index.column();
    if (column == ScanListTab::VARIABLE)
        return variableEditor(index, QT_MARVANE_ANY, "");
    if (column == ScanListTab::MEMBER)
        return statMemberEditor(the_parent);
    const QString variable = textOf(index.siblingAtColumn(ScanListTab::VARIABLE));
    return listKeywordEditor(the_parent, Chan_Keywords(variable, index));
}

QWidget* Antlr3_BaseTreeDelegate::statMemberEditor(QWidget* the_parent) const
{
    auto* const editor = new QComboBox(the_parent);
    editor->setFont(editorAccess().preferences().editorFont);
    editor->addItems(editorAccess().statisticalMembers());
    for (size_t i = 0; i < SCAN_LIST_MEMBERS.size(); ++i)
        editor->setItemData(static_cast<int>(i), QString::fromLatin1(SCAN_LIST_MEMBERS[i].help),
                            Qt::ToolTipRole);
    editor->setMaxVisibleItems(10);
    editor->view()->setSelectionBehavior(QAbstractItemView::SelectItems);
    editor->view()->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    editor->setEditable(true);
    refuseLineBreaks(editor->lineEdit());
    editor->view()->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    connect(editor, qOverload<int>(&QComboBox::currentIndexChanged), this,
            qOverload<int>(&Antlr3_BaseTreeDelegate::commitAndCloseEditor));
    return editor;
}

void Antlr3_BaseTreeDelegate::setEditorDataTab2(QWidget* editor, const QModelIndex& index) const
{
    switch (index.column()) {
        case ScanListTab::VARIABLE:
            setEditorDataTab2Col1(editor, index);
            break;
        case ScanListTab::MEMBER:
            setEditorDataTab2Col2(editor, index);
            break;
        case ScanListTab::CHANNEL:
            setEditorDataTab2Col3(editor, index);
            break;
        default:
            break;
    }
}

void Antlr3_BaseTreeDelegate::setEditorDataTab2Col1(QWidget* editor, const QModelIndex& index) const
{
    const QString text = textOf(index);
    auto* const dialog = qobject_cast<VariableSelectionDialog*>(editor);
    if (dialog != nullptr && !text.isEmpty())
        splitIntoDialog(dialog, text);
}

void Antlr3_BaseTreeDelegate::setEditorDataTab2Col2(QWidget* editor, const QModelIndex& index) const
{
    // A cell of blanks selects the empty last item, an empty cell the first item.
    const QString text = textOf(index);
    showItem(editor,
             text.isEmpty() ? editorAccess().statisticalMembers().value(0) : text.trimmed());
}

void Antlr3_BaseTreeDelegate::setEditorDataTab2Col3(QWidget* editor, const QModelIndex& index) const
{
    showItem(editor, textOf(index));
}

void Antlr3_BaseTreeDelegate::setModelDataTab2(QWidget* editor, QAbstractItemModel* model,
                                               const QModelIndex& index) const
{
    if (const auto* const dialog = qobject_cast<VariableSelectionDialog*>(editor)) {
        if (index.column() == ScanListTab::VARIABLE)
            storeScanListVariable(*dialog, model, index);
    } else if (const auto* const comboBox = qobject_cast<QComboBox*>(editor)) {
        // The two blanks separate the member from the variable in the file.
        if (index.column() == ScanListTab::MEMBER)
            store(model, index, QLatin1String("  ") + comboBox->currentText());
        else if (index.column() == ScanListTab::CHANNEL)
            store(model, index, comboBox->currentText());
    }
}

// ---- Meta Data List ----------------------------------------------------------------------------

QWidget* Antlr3_BaseTreeDelegate::createEditorTab3(QWidget* the_parent,
                                                   const QStyleOptionViewItem& /*option*/,
                                                   const QModelIndex& index) const
{
    if (index.column() == MetaDataTab::VARIABLE)
        return variableEditor(index, QT_MARVANE_ANY, "Literal");
    return listKeywordEditor(the_parent, PAM_Keywords(textOf(index), index));
}

void Antlr3_BaseTreeDelegate::setEditorDataTab3(QWidget* editor, const QModelIndex& index) const
{
    if (index.column() == MetaDataTab::PARAMETER)
        setEditorDataTab3Col1(editor, index);
    else if (index.column() == MetaDataTab::VARIABLE)
        setEditorDataTab3Col2(editor, index);
}

void Antlr3_BaseTreeDelegate::setEditorDataTab3Col1(QWidget* editor, const QModelIndex& index) const
{
    showItem(editor, textOf(index));
}

void Antlr3_BaseTreeDelegate::setEditorDataTab3Col2(QWidget* editor, const QModelIndex& index) const
{
    auto* const dialog = qobject_cast<VariableSelectionDialog*>(editor);
    if (dialog == nullptr)
        return;
    const QString text = textOf(index);
    if (isLiteral(text)) {
        dialog->setOptionalText(text);
        dialog->lineEdit()->setText(text);
    } else {
        splitIntoDialog(dialog, text);
    }
}

void Antlr3_BaseTreeDelegate::setModelDataTab3(QWidget* editor, QAbstractItemModel* model,
                                               const QModelIndex& index) const
{
    const auto* const dialog = qobject_cast<VariableSelectionDialog*>(editor);
    const auto* const comboBox = qobject_cast<QComboBox*>(editor);
    if (index.column() == MetaDataTab::VARIABLE && dialog != nullptr) {
        const bool isVariable = dialog->optionalText().isEmpty();
        const QString value = isVariable ? joinFromDialog(*dialog) : dialog->optionalText();
        if (!value.isEmpty())
            store(model, index, value);
    } else if (index.column() == MetaDataTab::PARAMETER && comboBox != nullptr) {
        store(model, index, comboBox->currentText());
    }
}

// ---- Scan List Aux User ------------------------------------------------------------------------

QWidget* Antlr3_BaseTreeDelegate::createEditorTab4(QWidget* the_parent,
                                                   const QStyleOptionViewItem& /*option*/,
                                                   const QModelIndex& index) const
{
    if (index.column() == AuxUserTab::VARIABLE)
        return variableEditor(index, QT_MARVANE_ANY, "");
    return get_line_editor(the_parent, ValidatorPatterns[Event_Name_VF], 32,
                           "Invalid Variable Name", index);
}

void Antlr3_BaseTreeDelegate::setEditorDataTab4(QWidget* editor, const QModelIndex& index) const
{
    if (index.column() == AuxUserTab::VARIABLE)
        setEditorDataTab4Col1(editor, index);
    else if (index.column() == AuxUserTab::ALTERNATE_NAME)
        setEditorDataTab4Col2(editor, index);
}

void Antlr3_BaseTreeDelegate::setEditorDataTab4Col1(QWidget* editor, const QModelIndex& index) const
{
    if (auto* const dialog = qobject_cast<VariableSelectionDialog*>(editor))
        splitIntoDialog(dialog, textOf(index));
}

void Antlr3_BaseTreeDelegate::setEditorDataTab4Col2(QWidget* editor, const QModelIndex& index) const
{
    showText(editor, textOf(index));
}

void Antlr3_BaseTreeDelegate::setModelDataTab4(QWidget* editor, QAbstractItemModel* model,
                                               const QModelIndex& index) const
{
    const auto* const dialog = qobject_cast<VariableSelectionDialog*>(editor);
    const auto* const lineEdit = qobject_cast<QLineEdit*>(editor);
    if (index.column() == AuxUserTab::VARIABLE && dialog != nullptr) {
        if (!dialog->optionalText().isEmpty()) {
            store(model, index, dialog->optionalText());
            return;
        }
        const QString value = joinFromDialog(*dialog);
        if (!value.isEmpty())
            store(model, index, value);
        storeAlternateName(model, index.siblingAtColumn(AuxUserTab::ALTERNATE_NAME), value);
    } else if (index.column() == AuxUserTab::ALTERNATE_NAME && lineEdit != nullptr) {
        clearMark(model, index);
        store(model, index, lineEdit->text());
    }
}

// ---- ECM List ----------------------------------------------------------------------------------

QWidget* Antlr3_BaseTreeDelegate::createEditorTab5(QWidget* the_parent,
                                                   const QStyleOptionViewItem& /*option*/,
                                                   const QModelIndex& index) const
{
    if (index.column() == EcmListTab::PATH)
        return asamEditor(index);
    return get_line_editor(the_parent, ValidatorPatterns[Comment_VF], 128, "Invalid Comment",
                           index);
}

QWidget* Antlr3_BaseTreeDelegate::asamEditor(const QModelIndex& index) const
{
    auto* const dialog = new asamspecs_select(index, editorAccess().dialogParent());
    connect(dialog, &QDialog::finished, this, &Antlr3_BaseTreeDelegate::asamCommitAndCloseEditor);
    return dialog;
}

void Antlr3_BaseTreeDelegate::setEditorDataTab5(QWidget* editor, const QModelIndex& index) const
{
    if (index.column() == EcmListTab::INSTANCE)
        setEditorDataTab5Col1(editor, index);
    else if (index.column() == EcmListTab::PATH)
        setEditorDataTab5Col2(editor, index);
}

void Antlr3_BaseTreeDelegate::setEditorDataTab5Col1(QWidget* editor, const QModelIndex& index) const
{
    showText(editor, textOf(index));
}

void Antlr3_BaseTreeDelegate::setEditorDataTab5Col2(QWidget* editor, const QModelIndex& index) const
{
    auto* const dialog = qobject_cast<asamspecs_select*>(editor);
    if (dialog == nullptr)
        return;
    const QStringList sl = textOf(index).trimmed().split(QLatin1Char(':'));
    if (sl.size() > 2)
        dialog->setOrigEcmInstance(sl[1] + QLatin1Char(':') + sl[2]);
    dialog->setOrigFileName(sl[0]);
    const int file = dialog->fileComboBox()->findText(sl[0]);
    dialog->fileComboBox()->setCurrentIndex(file);
    if (file == -1)
        dialog->fileComboBox()->setEditText(sl[0]);
    if (sl.size() > 1)
        dialog->ecmComboBox()->setEditText(sl[1]);
    // The blank of a new row converts to 0.
    dialog->extSpinBoxEdit()->setValue(textOf(index.siblingAtColumn(EcmListTab::INSTANCE)).toInt());
}

void Antlr3_BaseTreeDelegate::setModelDataTab5(QWidget* editor, QAbstractItemModel* model,
                                               const QModelIndex& index) const
{
    const auto* const dialog = qobject_cast<asamspecs_select*>(editor);
    const auto* const lineEdit = qobject_cast<QLineEdit*>(editor);
    if (index.column() == EcmListTab::PATH && dialog != nullptr) {
        const QString value = (dialog->fileComboBox()->currentText() + QLatin1Char(':') +
                               dialog->ecmComboBox()->currentText())
                                  .trimmed();
        // ":0" is the value of an untouched dialog without a file.
        if (dialog->canceled == 1 || value == QLatin1String(":0"))
            return;
        const QString indValue = QString::number(dialog->extSpinBoxEdit()->value());
        store(model, index, value);
        clearMark(model, index.siblingAtColumn(EcmListTab::INSTANCE));
        store(model, index.siblingAtColumn(EcmListTab::INSTANCE), indValue);
    } else if (index.column() == EcmListTab::INSTANCE && lineEdit != nullptr &&
               isFreeText(editorTypeOf(index))) {
        clearMark(model, index.siblingAtColumn(EcmListTab::PATH));
        store(model, index, lineEdit->text().trimmed());
    }
}
