// The files that the arguments of a command name.
#pragma once

#include <QStringList>

class QCommandLineParser;

// Files, folders and "-" as the arguments of a command.
void addFileArguments(QCommandLineParser* parser);

// Files and "-" stay as they are, existing or not. A folder gives the files scrib* below it, sorted
// by name; hidden folders and links to folders are not searched. A folder that cannot be searched,
// and a file that cannot be read, is among the files, so that reading it tells why.
QStringList inputFiles(const QStringList& arguments);

// Complains that the arguments name no files, for the command that does this with them, and returns
// EXIT_TROUBLE.
int complainOfNoFiles(const QStringList& arguments, const QString& purpose);
