// Qt message handler.
#pragma once

#include <QMessageLogContext>
#include <QString>

// Prints each message as one line on standard error. Warnings are dropped. A fatal message aborts
// the program. For qInstallMessageHandler().
void myMessageOutput(QtMsgType type, const QMessageLogContext& context, const QString& msg);
