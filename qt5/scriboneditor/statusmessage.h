// Messages that fit into the status bar, whose counters at the right cover the end of longer ones.
#pragma once

#include <QString>

class QStatusBar;

// The width for a message, in pixels.
int messageWidth(const QStatusBar& statusBar);

// Shows the message, and of one that is too long its beginning.
void showFitting(QStatusBar* statusBar, const QString& message, int milliseconds);
