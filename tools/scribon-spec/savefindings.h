// How a file comes through a save by the editor, the next load, and a second save.
#pragma once

#include <vector>

#include "finding.h"

void addSaveFindings(const SpecFile& file, std::vector<Finding>* findings);

// Whether the saved text must be read just as the file was: they differ in blanks and empty lines
// only. False says nothing.
bool isReadAlike(const QByteArray& bytes, const QByteArray& saved);
