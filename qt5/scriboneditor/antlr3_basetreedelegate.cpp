#include "antlr3_basetreedelegate.h"

#include <QApplication>
#include <QComboBox>
#include <QIcon>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSpinBox>
#include <QStyle>
#include <QTreeView>
#include <array>

#include "asamspecs_select.h"
#include "cell_edits.h"
#include "cell_text.h"
#include "editor_access.h"
#include "keyword_words.h"
#include "shown_text.h"
#include "treemodel.h"
#include "variableselectiondialog.h"

namespace {

constexpr int MIN_ROW_HEIGHT = 40;

void setSelectionColour(QPalette* palette, const QColor& colour)
{
    palette->setBrush(QPalette::All, QPalette::WindowText, colour);
    palette->setBrush(QPalette::All, QPalette::Highlight, colour);
}

QIcon errorIcon()
{
    return QIcon(QStringLiteral(":/resources/dialog-error.png"));
}

// The cell of a row that spans the columns may end beyond the right edge of the view, which would
// hide the icon there.
void endInView(QStyleOptionViewItem* option, const QModelIndex& index)
{
    const auto* const view = qobject_cast<const QTreeView*>(option->widget);
    if (view == nullptr || index.column() != 0)
        return;
    const int edge = view->viewport()->rect().right();
    if (option->rect.right() > edge && view->isFirstColumnSpanned(index.row(), index.parent()))
        option->rect.setRight(edge);
}

// A channel keyword keeps its arrow when it is wrong, and an arrow takes the place of the icon.
bool showsTextWithArrow(const QModelIndex& index)
{
    return index.data(Qt::DecorationRole).type() == QVariant::Icon && !showsNothing(textOf(index));
}

// Above the arrow, where no text is.
void paintMarkOverArrow(QPainter* painter, const QStyleOptionViewItem& option)
{
    const QStyle* const style =
        option.widget == nullptr ? QApplication::style() : option.widget->style();
    const QRect arrow =
        style->subElementRect(QStyle::SE_ItemViewItemDecoration, &option, option.widget);
    QRect mark(QPoint(), arrow.size() * 3 / 4);
    mark.moveCenter(arrow.center());
    mark.moveBottom(arrow.center().y() - arrow.height() / 4);
    errorIcon().paint(painter, mark);
}

}  // namespace

// The model returns the text of a wrong cell as its decoration: that sets HasDecoration, which
// reserves space for this icon, and being no icon it does not replace it.
void Antlr3_BaseTreeDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                    const QModelIndex& index) const
{
    if (LoadingFile != 0)
        return;
    QStyleOptionViewItem myOption = option;
    myOption.decorationPosition = QStyleOptionViewItem::Right;
    myOption.font = editorAccess().preferences().editorFont;
    endInView(&myOption, index);
    const bool wrong = index.data(Qt::UserRole).toInt() > DE_NOERROR;
    if (wrong)
        myOption.icon = errorIcon();
    if (option.state.testFlag(QStyle::State_Selected))
        setSelectionColour(&myOption.palette,
                           wrong ? editorAccess().preferences().syntaxColor : QColor(Qt::black));
    QStyledItemDelegate::paint(painter, myOption, index);
    if (wrong && showsTextWithArrow(index)) {
        initStyleOption(&myOption, index);
        paintMarkOverArrow(painter, myOption);
    }
}

QString Antlr3_BaseTreeDelegate::displayText(const QVariant& value, const QLocale& locale) const
{
    if (LoadingFile != 0)
        return {};
    const QByteArray bytes = value.toByteArray();
    if (bytes.isEmpty() || bytes == "FILLER_TXT")
        return {};
    if (bytes.at(0) == '@')
        return convertKeywordText(bytes.constData(), static_cast<size_t>(bytes.size()));
    if (bytes.at(0) == ' ')
        return QString::fromUtf8(bytes.constData() + 1);
    return QStyledItemDelegate::displayText(value, locale);
}

QString Antlr3_BaseTreeDelegate::convertKeywordText(const char* value, size_t length) const
{
    return keywordDisplayName(value, length);
}

QSize Antlr3_BaseTreeDelegate::sizeHint(const QStyleOptionViewItem& option,
                                        const QModelIndex& index) const
{
    QSize size = index.isValid() ? QStyledItemDelegate::sizeHint(option, index) : QSize(-1, -1);
    size.setHeight(qMax(size.height(), MIN_ROW_HEIGHT));
    return size;
}

// ---- The tab of a cell -------------------------------------------------------------------------

struct Antlr3_BaseTreeDelegate::TabFunctions {
    QWidget* (Antlr3_BaseTreeDelegate::*createEditor)(QWidget*, const QStyleOptionViewItem&,
                                                      const QModelIndex&) const;
    void (Antlr3_BaseTreeDelegate::*setEditorData)(QWidget*, const QModelIndex&) const;
    void (Antlr3_BaseTreeDelegate::*setModelData)(QWidget*, QAbstractItemModel*,
                                                  const QModelIndex&) const;
};

const Antlr3_BaseTreeDelegate::TabFunctions* Antlr3_BaseTreeDelegate::functionsOf(
    const QAbstractItemModel* model)
{
    using Delegate = Antlr3_BaseTreeDelegate;
    static constexpr std::array<TabFunctions, TAB_COUNT> FUNCTIONS{{
        {&Delegate::createEditorTab1, &Delegate::setEditorDataTab1, &Delegate::setModelDataTab1},
        {&Delegate::createEditorTab2, &Delegate::setEditorDataTab2, &Delegate::setModelDataTab2},
        {&Delegate::createEditorTab3, &Delegate::setEditorDataTab3, &Delegate::setModelDataTab3},
        {&Delegate::createEditorTab4, &Delegate::setEditorDataTab4, &Delegate::setModelDataTab4},
        {&Delegate::createEditorTab5, &Delegate::setEditorDataTab5, &Delegate::setModelDataTab5},
    }};
    const int tab = tabOfModel(model);
    return tab == 0 ? nullptr : &FUNCTIONS[static_cast<size_t>(tab - EDIT_TAB1)];
}

namespace {

// What a screen reader calls the editor of a cell: the keyword for a value on the Keywords tab, the
// title of the column otherwise.
QString fieldName(const QModelIndex& index)
{
    const QAbstractItemModel& model = *index.model();
    QString title = model.headerData(index.column(), Qt::Horizontal).toString().simplified();
    if (tabOfModel(&model) != EDIT_TAB1 || index.column() == KeywordsTab::KEYWORD)
        return title;
    const QString keyword = shownText(textOf(index.siblingAtColumn(KeywordsTab::KEYWORD)));
    return keyword.isEmpty() ? title : keyword;
}

}  // namespace

QWidget* Antlr3_BaseTreeDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                               const QModelIndex& index) const
{
    if (!opensEditor(index))
        return nullptr;
    QWidget* const editor =
        (this->*functionsOf(index.model())->createEditor)(parent, option, index);
    if (editor != nullptr && !editor->isWindow())
        editor->setAccessibleName(fieldName(index));
    return editor;
}

void Antlr3_BaseTreeDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    if (const TabFunctions* const tab = functionsOf(index.model()))
        (this->*tab->setEditorData)(editor, index);
}

void Antlr3_BaseTreeDelegate::setModelData(QWidget* editor, QAbstractItemModel* model,
                                           const QModelIndex& index) const
{
    if (const TabFunctions* const tab = functionsOf(index.model()))
        (this->*tab->setModelData)(editor, model, index);
}

// ---- The life of an editor ---------------------------------------------------------------------

namespace {

// The view sets the geometry of a dialog in its own coordinates, as if it were a child widget, when
// it opens the dialog and at each layout change. mapParent() then moves the dialog to its cell.
template <typename Dialog>
void putBesideCell(QWidget* editor)
{
    auto* const dialog = qobject_cast<Dialog*>(editor);
    if (dialog != nullptr && dialog->isVisible())
        Q_EMIT dialog->mapParent();
}

}  // namespace

void Antlr3_BaseTreeDelegate::updateEditorGeometry(QWidget* editor,
                                                   const QStyleOptionViewItem& option,
                                                   const QModelIndex& /*index*/) const
{
    const QSize hint = editor->sizeHint();
    QRect place = option.rect;
    place.setSize(place.size().expandedTo(hint));
    editor->setGeometry(place);
    putBesideCell<VariableSelectionDialog>(editor);
    putBesideCell<asamspecs_select>(editor);
}

template <typename Editor>
void Antlr3_BaseTreeDelegate::endEdit(bool commit)
{
    auto* const editor = qobject_cast<Editor*>(sender());
    if (editor == nullptr)
        return;
    if (commit)
        Q_EMIT commitData(editor);
    Q_EMIT closeEditor(editor, QAbstractItemDelegate::NoHint);
}

void Antlr3_BaseTreeDelegate::commitAndCloseEditor()
{
    if (qobject_cast<QLineEdit*>(sender()) != nullptr)
        endEdit<QLineEdit>(true);
    else
        endEdit<QComboBox>(true);
}

void Antlr3_BaseTreeDelegate::sbCommitAndCloseEditor()
{
    endEdit<QSpinBox>(true);
}

void Antlr3_BaseTreeDelegate::commitAndCloseEditor(int /*index*/)
{
    endEdit<QComboBox>(true);
}

void Antlr3_BaseTreeDelegate::vsCommitAndCloseEditor(int rc)
{
    endEdit<VariableSelectionDialog>(rc == QDialog::Accepted);
}

// Connected to the line edit of a combo box, which is not a QComboBox, so nothing happens: its
// editingFinished() is also emitted when the popup list opens. A typed keyword is committed by
// Return, or by the base class on focus loss.
void Antlr3_BaseTreeDelegate::cbCommitAndCloseEditor()
{
    endEdit<QComboBox>(true);
}

void Antlr3_BaseTreeDelegate::asamCommitAndCloseEditor(int rc)
{
    endEdit<asamspecs_select>(rc == QDialog::Accepted);
}

namespace {

bool isDialogEditor(const QObject& object)
{
    return object.objectName() == QLatin1String("VariableSelectionDialog") ||
           object.objectName() == QLatin1String("asamspecs_select");
}

bool isEditorInCell(const QWidget* widget)
{
    return qobject_cast<const QLineEdit*>(widget) != nullptr ||
           qobject_cast<const QComboBox*>(widget) != nullptr ||
           qobject_cast<const QSpinBox*>(widget) != nullptr;
}

}  // namespace

bool Antlr3_BaseTreeDelegate::eventFilter(QObject* object, QEvent* event)
{
    auto* const widget = qobject_cast<QWidget*>(object);
    if (widget == nullptr)
        return false;
    if (event->type() != QEvent::KeyPress)
        return !isDialogEditor(*object) && QStyledItemDelegate::eventFilter(object, event);
    if (static_cast<QKeyEvent*>(event)->key() != Qt::Key_Return)
        return false;
    if (!isEditorInCell(widget))
        return true;
    Q_EMIT commitData(widget);
    Q_EMIT closeEditor(widget, QAbstractItemDelegate::NoHint);
    return false;
}
