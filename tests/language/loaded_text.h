// Loads spec texts the way the program does, through a file.
#pragma once

#include <QByteArray>
#include <QString>

// Puts the parse's state where a fresh process has it, so that loads do not depend on the ones
// before.
void resetParseState();

// read_file on a file of these bytes.
int loadText(const QByteArray& text);

// The whole tree of the last load as printWholeTree gives it.
QString loadedTree();
