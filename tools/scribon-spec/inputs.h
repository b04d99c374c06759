// The files that the arguments of a command name.
#pragma once

#include <QStringList>

// Files and "-" stay as they are, existing or not. A folder gives the files scrib* below it, sorted
// by name; links to folders are not followed.
QStringList inputFiles(const QStringList& arguments);
