// The fixed places that the program reads and writes, and files in them. Tests may only touch them
// in a private namespace.
#pragma once

#include <QByteArray>
#include <QString>

// Whether /specs and /tmp are this test's own.
bool inPrivateNamespace();

// Whether the places are private because fakechroot says so, on a machine that allows no
// namespaces.
bool inFakeRoot();

// Empties /specs, /tmp, the home and the small disk, but for the session's files and what is
// mounted there, which this test did not make.
void emptyPlaces();

// Creates or replaces the file, and the directories that it lies in; false when that failed.
bool writeFile(const QString& path, const QByteArray& bytes);
QByteArray readFile(const QString& path);
bool makePipe(const QString& path);

// A spec file with all required keywords and an entry in each list.
QByteArray goodSpec();

// The same with this many entries in its scan list.
QByteArray largeSpec(int entries);

// Text that is parsed, but no spec file.
QByteArray badSpec();
