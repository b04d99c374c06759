// What the editor marks and counts, and the keywords that it expects.
#pragma once

#include <vector>

#include "finding.h"

// One finding for each wrong cell, as the editor's validation tells it. An empty cell is found
// where its row begins.
void addCellFindings(const SpecFile& file, std::vector<Finding>* findings);

// The required keywords that the file does not have.
void addMissingKeywords(const SpecFile& file, std::vector<Finding>* findings);

// The place of the cell's text. Without one, the place of the first text of its row or of the
// statement, with size 0.
FileRange rangeOfCell(const SpecFile& file, const CellPlace& cell);

// A finding about a cell, at its place and with its text.
Finding findingInCell(const SpecFile& file, const CellPlace& cell, Rule rule,
                      const QString& message);

// The offset of the first byte that is not part of a character in UTF-8; the size if there is none.
size_t firstByteOutsideUtf8(const QByteArray& bytes);
