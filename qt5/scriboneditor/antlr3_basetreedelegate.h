// How cells look and which editor they open. One class for all cells of all tabs; it holds no
// state and takes the tab from the model behind the index.
#pragma once

#include <QStyledItemDelegate>
#include <cstddef>

class Antlr3_BaseTreeDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    // Marks a wrong cell with the error icon at its right; draws nothing while a file is loading.
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

    // What a cell's text reads like: a keyword by its display name, a placeholder as nothing.
    QString displayText(const QVariant& value, const QLocale& locale) const override;

    // At least 40 pixels high.
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    // Null: a stock editor would write its value past the undo stack.
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;

private:
    // The display name of the first keyword that agrees with the first `length` bytes of the text,
    // so the beginning of a keyword has one too; empty for none.
    QString convertKeywordText(const char* value, size_t length) const;
};
