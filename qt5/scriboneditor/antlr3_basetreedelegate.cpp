#include "antlr3_basetreedelegate.h"

#include <QIcon>
#include <cstring>

#include "mainwindow.h"
#include "scribon_keywords.h"

namespace {

constexpr int LOWEST_ROW = 40;

// A cell that was never judged counts as good in column 0; elsewhere as one that has no field.
int errorValue(const QModelIndex& index)
{
    const QVariant code = index.data(Qt::UserRole);
    if (code.isNull())
        return index.column() == 0 ? int(DE_NOERROR) : int(DE_NOFIELD);
    return code.toInt();
}

void setSelectionColour(QPalette* palette, const QColor& colour)
{
    palette->setBrush(QPalette::All, QPalette::WindowText, colour);
    palette->setBrush(QPalette::All, QPalette::Highlight, colour);
}

}  // namespace

// The icon survives the base class for a wrong cell because the model gives such a cell's text as
// decoration: that reserves the room, and only an icon would replace ours.
void Antlr3_BaseTreeDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                    const QModelIndex& index) const
{
    if (LoadingFile != 0)
        return;
    QStyleOptionViewItem myOption = option;
    myOption.decorationPosition = QStyleOptionViewItem::Right;
    myOption.font = EditorMainWindow->myPrefs.editorFont;
    const bool wrong = errorValue(index) > DE_NOERROR;
    if (wrong)
        myOption.icon = QIcon(QStringLiteral(":/resources/dialog-error.png"));
    if (option.state.testFlag(QStyle::State_Selected))
        setSelectionColour(&myOption.palette,
                           wrong ? EditorMainWindow->myPrefs.syntaxColor : QColor(Qt::black));
    QStyledItemDelegate::paint(painter, myOption, index);
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
        return QString::fromLatin1(bytes.constData() + 1);
    return QStyledItemDelegate::displayText(value, locale);
}

QString Antlr3_BaseTreeDelegate::convertKeywordText(const char* value, size_t length) const
{
    static constexpr auto KEYWORDS = keywordsInDisplayOrder();
    for (const ScribonKeyword* const keyword : KEYWORDS) {
        if (std::strncmp(value, keyword->spelling, length) == 0)
            return QString::fromUtf8(keyword->displayName);
    }
    return {};
}

QSize Antlr3_BaseTreeDelegate::sizeHint(const QStyleOptionViewItem& option,
                                        const QModelIndex& index) const
{
    QSize size = index.isValid() ? QStyledItemDelegate::sizeHint(option, index) : QSize(-1, -1);
    size.setHeight(qMax(size.height(), LOWEST_ROW));
    return size;
}

QWidget* Antlr3_BaseTreeDelegate::createEditor(QWidget* /*parent*/,
                                               const QStyleOptionViewItem& /*option*/,
                                               const QModelIndex& /*index*/) const
{
    return nullptr;
}
