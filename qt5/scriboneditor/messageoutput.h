// Where the toolkit's log macros end.
#pragma once

#include <QMessageLogContext>
#include <QString>

// Writes a message to standard error, a line each. Warnings are dropped: the toolkit gives many
// that mean nothing to the user. A fatal message ends the program.
void myMessageOutput(QtMsgType type, const QMessageLogContext& context, const QString& msg);
