// Keeps line breaks, which only come by pasting or dropping, out of the lines whose text becomes a
// cell: in the file the rest of the text would stand on a line of its own, and be read as another
// row or statement.
#pragma once

#include <QString>

class QLineEdit;

// Takes them out of whatever the user enters, as soon as it is entered. Texts that the program sets
// stay as they are.
void refuseLineBreaks(QLineEdit* lineEdit);

// The same, but for a line that may hold a quoted text: the file can have line breaks between
// quotes.
void refuseLineBreaksOutsideQuotes(QLineEdit* lineEdit);
