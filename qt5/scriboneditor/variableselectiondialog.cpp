#include "variableselectiondialog.h"

#include <QCompleter>
#include <QLineEdit>
#include <QListView>
#include <QRegExpValidator>
#include <QScrollBar>
#include <QStandardItemModel>
#include <algorithm>

#include "line_breaks.h"
#include "platformunits.h"
#include "sortednames.h"
#include "structuredmembers.h"
#include "treeitem.h"
#include "ui_variableselectiondialog.h"
#include "validationcharm.h"

namespace {

// ---- What may be typed -------------------------------------------------------------------------

const auto VARIABLE_FORMAT = QStringLiteral("[A-Za-z_][A-Za-z0-9_]*[\\.]?(\\:[A-Za-z0-9_]*){0,6}");
const auto PATH_FORMAT = QStringLiteral("^\\/(([A-Za-z_0-9.])+\\/?)+(\n)?");
const auto INTERVAL_FORMAT =
    QStringLiteral("^.?([0-9]+)(.[0-9]+)?\\[(min|sec|hr|msec|MIN|SEC|HR|MSEC)\\](\n)?");
const auto LITERAL_FORMAT = QStringLiteral("^\".*\"$");

QString formatOf(const QString& optionalData)
{
    if (optionalData == QLatin1String("Path"))
        return PATH_FORMAT;
    if (optionalData == QLatin1String("Literal"))
        return LITERAL_FORMAT;
    return INTERVAL_FORMAT;
}

// ---- Lists -------------------------------------------------------------------------------------

// A popup list is as wide as its combo box and elides longer names. Widens it for the longest name;
// only that one is measured, since there may be thousands.
void fitList(const QComboBox& comboBox, const QStringList& names)
{
    const auto isShorter = [](const QString& a, const QString& b) { return a.size() < b.size(); };
    const auto longest = std::max_element(names.begin(), names.end(), isShorter);
    if (longest == names.end())
        return;
    QAbstractItemView* const list = comboBox.view();
    const int text = list->fontMetrics().horizontalAdvance(*longest + QLatin1String("WW"));
    list->setMinimumWidth(text + list->verticalScrollBar()->sizeHint().width());
}

}  // namespace

// ---- Construction ------------------------------------------------------------------------------

VariableSelectionDialog::VariableSelectionDialog(const QModelIndex& index, QWidget* parent,
                                                 QFlags<QT_MARVANE_FLAGS> type,
                                                 const QString& optionalData, const QString& inName)
    : QDialog(parent, Qt::Drawer),
      ui(std::make_unique<Ui::VariableSelectionDialog>()),
      varType(type),
      origVarName_(QString::fromLocal8Bit(inName.toLocal8Bit())),
      m_index(index)
{
    ui->setupUi(this);
    putProxyBehindVariables();
    setupVariableLine();
    ui->groupComboBox->lineEdit()->setReadOnly(true);
    for (const QComboBox* const comboBox : {variableComboBox(), subComboBox(), unitsComboBox()})
        refuseLineBreaks(comboBox->lineEdit());
    connectAll();
    setupOptionalLine(optionalData, index);
    refreshCatalogue();
}

VariableSelectionDialog::~VariableSelectionDialog() = default;

// Puts a sort proxy between the combo box and its model, which setModel() would delete otherwise.
// The proxy does not sort dynamically: the combo box inserts a row and then sets its text by row
// number, which would be another row after sorting.
void VariableSelectionDialog::putProxyBehindVariables()
{
    QComboBox* const comboBox = ui->variableComboBox;
    m_names = qobject_cast<QStandardItemModel*>(comboBox->model());
    m_lookup = new SortedNames(comboBox);
    proxy_ = m_lookup;
    proxy_->setSourceModel(m_names);
    m_names->setParent(proxy_);
    comboBox->setModel(proxy_);
    proxy_->setFilterCaseSensitivity(Qt::CaseInsensitive);
    proxy_->setDynamicSortFilter(false);
}

// Thousands of names must not slow typing down: the completer searches a sorted model, and its
// popup has uniform item sizes and batched layout.
void VariableSelectionDialog::setupVariableLine()
{
    QComboBox* const comboBox = ui->variableComboBox;
    comboBox->setValidator(new QRegExpValidator(QRegExp(VARIABLE_FORMAT), this));
    auto* const completer = new QCompleter(comboBox->model(), this);
    completer->setModelSorting(QCompleter::CaseSensitivelySortedModel);
    if (auto* const list = qobject_cast<QListView*>(completer->popup())) {
        list->setUniformItemSizes(true);
        list->setLayoutMode(QListView::Batched);
    }
    comboBox->setCompleter(completer);
    connect(comboBox->lineEdit(), &QLineEdit::returnPressed, this,
            &VariableSelectionDialog::sortInOwnName);
}

void VariableSelectionDialog::setupOptionalLine(const QString& optionalData,
                                                const QModelIndex& index)
{
    ui->interval_or_path->setVisible(!optionalData.isEmpty());
    ui->lineEdit->setVisible(!optionalData.isEmpty());
    ui->interval_or_path->setText(optionalData);
    auto* const validator = new QRegExpValidator(QRegExp(formatOf(optionalData)), this);
    auto* const charm = new ValidationCharm;
    charm->setParent(ui->lineEdit);
    charm->activateOn(ui->lineEdit, validator, QStringLiteral("Invalid ") + optionalData, index);
    refuseLineBreaksOutsideQuotes(ui->lineEdit);
    connect(ui->lineEdit, &QLineEdit::textEdited, this,
            &VariableSelectionDialog::lineEditTextChanged);
}

void VariableSelectionDialog::connectAll()
{
    connect(ui->OkButton, &QPushButton::clicked, this, &QDialog::accept);
    connect(ui->Cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(this, &VariableSelectionDialog::closeDialog, this, &QDialog::reject);
    connect(this, &VariableSelectionDialog::mapParent, this, &VariableSelectionDialog::mapDialog);
    connect(this, &VariableSelectionDialog::mapParent, this, [this] { m_place.keepOnScreen(); });
    connectText(ui->groupComboBox, &VariableSelectionDialog::groupIndexChanged);
    connect(ui->variableComboBox, &QComboBox::editTextChanged, this,
            &VariableSelectionDialog::variableEditTextChanged);
    connectText(ui->unitsComboBox, &VariableSelectionDialog::unitsIndexChanged);
}

// Calls the slot with the text of the new current item.
void VariableSelectionDialog::connectText(QComboBox* comboBox,
                                          void (VariableSelectionDialog::*slot)(const QString&))
{
    connect(comboBox, qOverload<int>(&QComboBox::currentIndexChanged), this,
            [this, comboBox, slot](int index) { (this->*slot)(comboBox->itemText(index)); });
}

void VariableSelectionDialog::refreshCatalogue()
{
    if (int(varType) != VMLType || Master_variables == nullptr)
        rebuildMasterVariables(varType);
    variables = Master_variables;
    m_optionalText.clear();
}

// ---- Accessors ---------------------------------------------------------------------------------

QComboBox* VariableSelectionDialog::variableComboBox() const
{
    return ui->variableComboBox;
}

QComboBox* VariableSelectionDialog::subComboBox() const
{
    return ui->subComboBox;
}

QComboBox* VariableSelectionDialog::unitsComboBox() const
{
    return ui->unitsComboBox;
}

QLineEdit* VariableSelectionDialog::lineEdit() const
{
    return ui->lineEdit;
}

void VariableSelectionDialog::setUnits(const QString& units)
{
    storeUnits(m_units, units.toLocal8Bit().constData());
}

QString VariableSelectionDialog::subText() const
{
    return ui->subComboBox->currentText();
}

QString VariableSelectionDialog::defaultUnits() const
{
    return unitsString(default_units);
}

int VariableSelectionDialog::indexOfSelectedVarName() const
{
    return ui->variableComboBox->findData(ui->variableComboBox->currentText());
}

// ---- Showing and hiding ------------------------------------------------------------------------

void VariableSelectionDialog::showEvent(QShowEvent* /*event*/)
{
    initializingClass = true;
    fillGroups();
    offerVariables(allVariables());
    ui->variableComboBox->clearEditText();
    if (!origVarName_.isEmpty())
        showOriginal();
    initializingClass = false;
    m_place.rememberFrame();
    Q_EMIT mapParent();
    takeKeyboard();
}

// Activates the dialog and sets the focus on the line edit that holds the value: a window manager
// may leave the focus on the table, where typing would start a keyboard search.
void VariableSelectionDialog::takeKeyboard()
{
    ui->variableComboBox->lineEdit()->selectAll();
    ui->lineEdit->selectAll();
    if (m_optionalText.isEmpty())
        setFocusProxy(ui->variableComboBox);
    else
        setFocusProxy(ui->lineEdit);
    activateWindow();
}

// Without the focus proxy: when Tab goes round the end, Qt passes the focus to the window, and the
// proxy would get it instead of the first or last field.
bool VariableSelectionDialog::focusNextPrevChild(bool next)
{
    QWidget* const valueField = focusProxy();
    setFocusProxy(nullptr);
    const bool moved = QDialog::focusNextPrevChild(next);
    setFocusProxy(valueField);
    return moved;
}

void VariableSelectionDialog::hideEvent(QHideEvent* /*event*/)
{
    if (result() != QDialog::Accepted)
        Q_EMIT closeDialog();
}

void VariableSelectionDialog::mapDialog()
{
    m_place.moveToCell(0);
}

void VariableSelectionDialog::fillGroups()
{
    ui->groupComboBox->clear();
    QStringList groups;
    if ((varType & QT_MARVANE_ANY) == QT_MARVANE_ANY) {
        groups.append(QStringLiteral("All Variables"));
    } else {
        if (varType.testFlag(QT_MARVANE_STRING))
            groups.append(QStringLiteral("All String Variables"));
        if (varType.testFlag(QT_MARVANE_LOGICAL))
            groups.append(QStringLiteral("All Logical Variables"));
    }
    groups.append(variables->keys());
    ui->groupComboBox->addItems(groups);
    fitList(*ui->groupComboBox, groups);
}

QStringList VariableSelectionDialog::allVariables() const
{
    QStringList names;
    for (const QStringList& list : *variables)
        names.append(list);
    return names;
}

// Fills the source model directly with the sorted names, for speed: QComboBox::addItems() inserts
// items one by one, and the proxy compares slowly.
void VariableSelectionDialog::offerVariables(QStringList names)
{
    std::sort(names.begin(), names.end());
    m_names->removeRows(0, m_names->rowCount());
    proxy_->sort(-1);
    ui->variableComboBox->clearEditText();
    QList<QStandardItem*> items;
    items.reserve(names.size());
    for (const QString& name : qAsConst(names))
        items.append(new QStandardItem(name));
    m_names->invisibleRootItem()->appendRows(items);
    m_lookup->markSorted();
    fitList(*ui->variableComboBox, names);
}

// Sorts again after Return has added a name of the user's own: the combo box inserts it by a
// case-insensitive order.
void VariableSelectionDialog::sortInOwnName()
{
    if (m_lookup->isSorted())
        return;
    proxy_->sort(0, Qt::AscendingOrder);
    m_lookup->markSorted();
}

// Shows the cell's text: one with colons is a variable with a suffix and is shown whole, one with a
// full stop is a variable and its member.
void VariableSelectionDialog::showOriginal()
{
    const QString stem = origVarName_.section(QLatin1Char(':'), 0, 0);
    if (showItem(ui->variableComboBox, stem, origVarName_))
        return;
    const QStringList parts = origVarName_.split(QLatin1Char('.'));
    if (parts.size() < 2)
        showPlainOriginal();
    else
        showMember(parts[0] + QLatin1Char('.'), parts[1]);
}

void VariableSelectionDialog::showPlainOriginal()
{
    if (showItem(ui->variableComboBox, origVarName_, origVarName_))
        return;
    if (origVarName_ != FILLER_TEXT && !origVarName_.startsWith(QLatin1Char('#')))
        ui->variableComboBox->setEditText(origVarName_);
}

void VariableSelectionDialog::showMember(const QString& variable, const QString& member)
{
    if (showItem(ui->variableComboBox, variable, variable))
        showItem(ui->subComboBox, member, member);
}

// Selects the item and sets the edit text. False if there is no such item.
bool VariableSelectionDialog::showItem(QComboBox* comboBox, const QString& item,
                                       const QString& text)
{
    const int index = comboBox->findText(item, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (index == -1)
        return false;
    comboBox->setCurrentIndex(index);
    comboBox->setEditText(text);
    return true;
}

// ---- What the user picks and types -------------------------------------------------------------

// The first entry always means all groups, even if it is a group itself.
void VariableSelectionDialog::groupIndexChanged(const QString& item)
{
    if (initializingClass)
        return;
    if (ui->groupComboBox->currentIndex() == 0) {
        offerVariables(allVariables());
        ui->variableComboBox->setCurrentIndex(0);
        ui->variableComboBox->setMaxVisibleItems(10);
    } else {
        offerVariables(variables->value(item));
        if (!variables->isEmpty())
            ui->variableComboBox->setEnabled(true);
        ui->variableComboBox->setCurrentIndex(0);
    }
}

// For a text "variable.member", offers the members of the variable.
void VariableSelectionDialog::variableEditTextChanged(const QString& stext)
{
    if (initializingClass || stext.isEmpty())
        return;
    takeDefaultUnits(stext);
    const QStringList members = membersOf(stext, varType);
    if (!members.isEmpty() || !stext.contains(QLatin1Char('.')))
        offerMembers(members);
    else
        variableEditTextChanged(stext.section(QLatin1Char('.'), 0, 0));
    offerUnits();
}

// Only a dialog for variables of all kinds offers units. For a name that the platform does not
// know, the units of the variable before are kept.
void VariableSelectionDialog::takeDefaultUnits(const QString& stext)
{
    SHARED_MEMORY mem{};
    if (int(varType) == QT_MARVANE_ANY && find_variable(stext.toLocal8Bit().constData(), &mem) == 0)
        storeUnits(default_units, get_variable_units(mem));
}

// The first member becomes current, so it goes to the file unless the user chooses another.
void VariableSelectionDialog::offerMembers(const QStringList& members)
{
    ui->subComboBox->clear();
    ui->subComboBox->addItems(members);
    ui->subComboBox->setEnabled(!members.isEmpty());
}

// Offers the variable's default units first, then the others of the same dimension. If the cell
// names units, the default ones are not offered. Existing behaviour, kept for compatibility.
void VariableSelectionDialog::offerUnits()
{
    const QString own = unitsString(default_units);
    QStringList values;
    if (m_units[0] == '\0')
        values.append(own);
    for (const QString& name : unitsLike(unitsBytes(default_units))) {
        if (name.compare(own, Qt::CaseInsensitive) != 0)
            values.append(name);
    }
    ui->unitsComboBox->clear();
    ui->unitsComboBox->clearEditText();
    ui->unitsComboBox->addItems(values);
    ui->unitsComboBox->setEnabled(true);
    ui->unitsComboBox->setCurrentIndex(indexOfUnits());
}

// The index of the cell's units; -1 if they are not offered, as the default ones are not.
int VariableSelectionDialog::indexOfUnits() const
{
    if (m_units[0] == '\0')
        return 0;
    return ui->unitsComboBox->findText(unitsString(m_units).toUpper(), Qt::MatchStartsWith);
}

void VariableSelectionDialog::unitsIndexChanged(const QString& /*item*/) {}

// Reads the line edit: a slot called before this one may have removed line breaks from the text.
void VariableSelectionDialog::lineEditTextChanged(const QString& /*lineValueText*/)
{
    if (!initializingClass)
        m_optionalText = ui->lineEdit->text();
}
