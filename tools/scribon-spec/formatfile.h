// Replacing a spec file by what the editor's Save writes.
#pragma once

#include <QByteArray>
#include <QString>
#include <vector>

#include "finding.h"

// The findings because of which a save of the file would lose something: its text, the order of
// its entries, or the whole file for the editor.
std::vector<Finding> reasonsNotToSave(const SpecFile& file);

// Replaces the file at once, so that every reader finds the old one or the new one. Mode and owner
// stay; a symbolic link stays, and its target is replaced. Returns why it was not done; empty if it
// was.
QString replaceFile(const QString& name, const QByteArray& text);
