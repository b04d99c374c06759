// Texts of asam3_specs files, and what is read from them.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

// Lines 1 to 3 and the shortest preamble.
QByteArray opening();

// A section with this head line.
QByteArray section(const QByteArray& head);

// A good file with a section for each of the names, which are parted by blanks.
QByteArray asamFile(const char* names);

struct AsamLists {
    int result = 0;
    int count = 0;
    QStringList entries;         // with their bytes as Latin-1
    bool insideItsRows = false;  // whether nothing was written behind the four rows
};

// The function under test, on a file of this name.
AsamLists readLists(const QString& fileName);
