// The position of the dialogs that edit cells.
#pragma once

#include <QPoint>
#include <QRect>
#include <QVector>

class QWidget;

// The index of the rectangle that contains the point, or of the nearest one; -1 if there is none.
int nearestTo(const QPoint& point, const QVector<QRect>& areas);

// The rectangle, moved so that it lies within the area. One that is too large is aligned to the
// area's top left.
QRect movedInto(const QRect& area, QRect place);

// Places a dialog at its cell. Does nothing for a dialog without a parent.
class DialogPlace {
public:
    explicit DialogPlace(QWidget* dialog) : m_dialog(dialog) {}

    // To be called when the dialog is about to be shown.
    void rememberFrame();

    // For a dialog whose geometry begins at the cell's place in its view: moves it to that place in
    // the parent, and down by so many pixels.
    void moveToCell(int below);

    // Moves the dialog with its title bar into the available area of the screen that holds the
    // cell.
    void keepOnScreen() const;

private:
    QWidget* m_dialog;
    QPoint m_frame;
    QPoint m_cell;
};
