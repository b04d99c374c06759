// The names in a spec file that a test cell does not have, or has as something else than the file
// needs. Cells that are wrong by themselves are left out, and so are comments.
#pragma once

#include <vector>

#include "finding.h"

class EcmOffers;
class LiveCell;

void addLiveFindings(const SpecFile& file, const LiveCell& cell, std::vector<Finding>* findings);
void addListFindings(const SpecFile& file, const EcmOffers& offers, std::vector<Finding>* findings);
