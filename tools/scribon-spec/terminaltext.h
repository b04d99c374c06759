// Texts of spec files in lines of plain text.
#pragma once

#include <QString>

// The text in one line, with what cannot be seen written as \n, \t, \\, \x1b or \u202e.
QString visibleText(const QString& text);

// The text with a replacement character for each character but tabs that a terminal would obey.
QString withoutControls(QString text);

// The number of columns that a visible text takes on a terminal.
int displayWidth(const QString& text);

// The text and at least two blanks, up to `width` or, for a longer text, to the next stop of eight
// columns: so the place of what follows depends on this line only.
QString paddedTo(int width, const QString& text);
