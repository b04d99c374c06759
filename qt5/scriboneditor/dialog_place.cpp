#include "dialog_place.h"

#include <QScreen>
#include <QWidget>

void keepOnScreen(QWidget* dialog)
{
    if (dialog->parentWidget() == nullptr)
        return;
    const QRect area = dialog->parentWidget()->screen()->availableGeometry();
    QRect place = dialog->geometry();
    place.moveRight(qMin(place.right(), area.right()));
    place.moveBottom(qMin(place.bottom(), area.bottom()));
    place.moveLeft(qMax(place.left(), area.left()));
    place.moveTop(qMax(place.top(), area.top()));
    if (place != dialog->geometry())
        dialog->setGeometry(place);
}
