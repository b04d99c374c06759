// Loads spec texts through a file, like the program.
#pragma once

#include <QByteArray>
#include <QString>

#include "editor_antlr3.h"

// Writes the bytes to a file and returns the result of read_file().
int loadText(const QByteArray& text);

// The tree of the last load, as printWholeTree() prints it.
QString loadedTree();
