#include "dialog_place.h"

#include <QGuiApplication>
#include <QMargins>
#include <QScreen>
#include <QWidget>

namespace {

QScreen* screenAt(const QPoint& point)
{
    const QList<QScreen*> screens = QGuiApplication::screens();
    QVector<QRect> areas;
    for (const QScreen* const screen : screens)
        areas.append(screen->geometry());
    return screens.value(nearestTo(point, areas));
}

// The height of the title bar; 0 until the window manager has added it.
int titleBarOf(const QWidget& window)
{
    return window.geometry().top() - window.frameGeometry().top();
}

// The height that the dialog's title bar has or, as far as its parent tells, will have.
int expectedTitleBar(const QWidget& dialog)
{
    const int own = titleBarOf(dialog);
    return own == 0 ? titleBarOf(*dialog.parentWidget()->window()) : own;
}

}  // namespace

int nearestTo(const QPoint& point, const QVector<QRect>& areas)
{
    int nearest = -1;
    int least = 0;
    for (int i = 0; i < areas.size(); ++i) {
        const QPoint inside = movedInto(areas[i], {point, QSize(1, 1)}).topLeft();
        const int distance = (inside - point).manhattanLength();
        if (nearest != -1 && distance >= least)
            continue;
        nearest = i;
        least = distance;
    }
    return nearest;
}

QRect movedInto(const QRect& area, QRect place)
{
    place.moveRight(qMin(place.right(), area.right()));
    place.moveBottom(qMin(place.bottom(), area.bottom()));
    place.moveLeft(qMax(place.left(), area.left()));
    place.moveTop(qMax(place.top(), area.top()));
    return place;
}

void DialogPlace::rememberFrame()
{
    m_frame = m_dialog->geometry().topLeft() - m_dialog->pos();
}

// As by pos() with the frame that the dialog had when it was first placed: on X11 none, since the
// window manager adds it later. By the present frame, the dialog would jump up by its title bar
// when the view is laid out again.
void DialogPlace::moveToCell(int below)
{
    if (m_dialog->parentWidget() == nullptr)
        return;
    QRect place = m_dialog->geometry();
    m_cell = m_dialog->parentWidget()->mapToGlobal(place.topLeft() - m_frame);
    place.moveTopLeft(m_cell + QPoint(0, below));
    m_dialog->setGeometry(place);
}

void DialogPlace::keepOnScreen() const
{
    const QScreen* const screen = screenAt(m_cell);
    if (m_dialog->parentWidget() == nullptr || screen == nullptr)
        return;
    const QMargins titleBar(0, expectedTitleBar(*m_dialog), 0, 0);
    const QRect place =
        movedInto(screen->availableGeometry(), m_dialog->geometry() + titleBar) - titleBar;
    if (place != m_dialog->geometry())
        m_dialog->setGeometry(place);
}
