// Keeps line breaks out of line edits whose text goes to a cell. They come by paste or drop, and in
// the file the rest of the text would be read as another row or statement.
#pragma once

#include <QString>

class QLineEdit;

// Whether the text begins with a quote and the next quote of the same kind is its last character.
bool isQuoted(const QString& text);

QString withoutLineBreaks(QString text);

// Removes line breaks from what the user enters. Texts set by setText() are not changed.
void refuseLineBreaks(QLineEdit* lineEdit);

// The same, except if the whole text is in quotes, where the file can have line breaks.
void refuseLineBreaksOutsideQuotes(QLineEdit* lineEdit);
