// Loads spec texts through a file, like the program.
#pragma once

#include <QByteArray>
#include <QString>

// Resets the state of the parse to that of a new process, so that loads do not depend on earlier
// ones.
void resetParseState();

// Writes the bytes to a file and returns the result of read_file().
int loadText(const QByteArray& text);

// The tree of the last load, as printWholeTree() prints it.
QString loadedTree();
