// Makes the text of asam3_specs files and reads them with get_asam3_lists().
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

// Lines 1 to 3 and the shortest preamble.
QByteArray opening();

// A section with this head line, up to its end mark.
QByteArray section(const QByteArray& head);

// A valid file with a section for each name. The names are separated by blanks.
QByteArray asamFile(const char* names);

struct AsamLists {
    int result = 0;
    int count = 0;
    QStringList entries;         // bytes decoded as Latin-1
    bool insideItsRows = false;  // nothing was written behind the array
};

// Calls get_asam3_lists() on this file.
AsamLists readLists(const QString& fileName);
