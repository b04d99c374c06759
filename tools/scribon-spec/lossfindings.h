// The text of a file that is in no cell, so that the first save loses it, and entries that are read
// in the wrong order.
#pragma once

#include <vector>

#include "finding.h"

// One finding for all that is lost between two keywords, where it begins, with the cause.
void addLosses(const SpecFile& file, std::vector<Finding>* findings);
