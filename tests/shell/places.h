// The fixed directories that the program reads and writes, and functions that write files there. To
// be used in a private namespace only.
#pragma once

#include <QByteArray>
#include <QString>

// Whether /specs and /tmp are private to this test.
bool inPrivateNamespace();

// Whether fakechroot makes them private, on a machine that allows no namespaces.
bool inFakeRoot();

// Empties /specs, /tmp, the home and the small disk, except for the session's files and mounted
// directories.
void emptyPlaces();

// Creates or replaces the file, and creates its directories. False if that fails.
bool writeFile(const QString& path, const QByteArray& bytes);
QByteArray readFile(const QString& path);
bool makePipe(const QString& path);

// A valid spec file with all required keywords and an entry in each list.
QByteArray goodSpec();

// The same with this many entries in its scan list.
QByteArray largeSpec(int entries);

// A text that can be parsed, but is not a spec file.
QByteArray badSpec();
