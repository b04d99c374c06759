#include "statusmessage.h"

#include <QFontMetrics>
#include <QLayout>
#include <QStatusBar>

#include "statusbarform.h"

namespace {

// QStatusBar leaves this at the left of a message, and some more at its right.
constexpr int MESSAGE_MARGINS = 12;

}  // namespace

// Lays out the status bar first: the counters may have got the name of another tab.
int messageWidth(const QStatusBar& statusBar)
{
    const auto* const counters = statusBar.findChild<StatusBarForm*>();
    if (counters == nullptr || !counters->isVisible())
        return QWIDGETSIZE_MAX;
    statusBar.layout()->activate();
    return counters->x() - MESSAGE_MARGINS;
}

void showFitting(QStatusBar* statusBar, const QString& message, int milliseconds)
{
    const QString fitting =
        statusBar->fontMetrics().elidedText(message, Qt::ElideRight, messageWidth(*statusBar));
    statusBar->showMessage(fitting, milliseconds);
}
