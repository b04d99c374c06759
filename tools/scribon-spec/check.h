// What is wrong with a spec file: what the editor marks, what the first save would lose, how the
// file comes through its own save, and which of its names a test cell does not have.
#pragma once

#include <array>

#include "finding.h"

class EcmOffers;
class LiveCell;

struct CheckOptions {
    // By Rule. Rules that are off are not reported.
    std::array<Severity, RULES.size()> severities;

    // Null for a check without a test cell, and without ECM lists.
    const LiveCell* cell = nullptr;
    const EcmOffers* offers = nullptr;

    CheckOptions();
};

FileReport checkFile(const SpecFile& file, const CheckOptions& options);
