// The line of Find. It lies over the lower right of a table, beside its scroll bars, and follows
// it; over the upper right where it would cover the current cell. It has the table's font.
#pragma once

#include <QFrame>

class QAbstractItemView;
class QBoxLayout;
class QKeyEvent;
class QLabel;
class QLineEdit;
class QToolButton;

class FindLine : public QFrame {
    Q_OBJECT

public:
    // Hidden until it is opened. The parent must be an ancestor of the tables.
    explicit FindLine(QWidget* parent);

    QString text() const;

    // Shows the line over the table, with the focus and with all of its text selected.
    void openOver(QAbstractItemView* table);

    // Hides the line. If it has the focus, the table gets it.
    void leave();

    // Moves the line to another table.
    void moveOver(QAbstractItemView* table);

    // Puts the line where it does not cover the current cell.
    void makeWay();

    // Shows what was found.
    void tell(const QString& news, bool isFound);

    // Whether the line is open and covers a part of this rectangle of the table's viewport.
    bool covers(const QRect& cell) const;

    // Whether the line at the lower right would cover a part of this rectangle of the table's
    // viewport.
    bool wouldCover(const QRect& cell);

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    void textChanged();
    void nextWanted();
    void previousWanted();
    void nextTabWanted();
    void closeWanted();

protected:
    bool event(QEvent* event) override;

    // Tab leads to the table, wherever the line stands in the window's order.
    bool focusNextPrevChild(bool next) override;

private:
    void setUpLine();
    void setUpNews();
    void setUpCloseButton();
    void takeFont();
    QRect area() const;
    int newsWidth() const;
    QSize sizeWithin(int width);
    QRect lowerPlace();
    bool takesKey(QObject* watched, const QKeyEvent& key);
    bool goesOn(Qt::KeyboardModifiers modifiers);

    QLineEdit* m_line;
    QLabel* m_news;
    QToolButton* m_close;
    QBoxLayout* m_layout;
    QAbstractItemView* m_table = nullptr;
};
