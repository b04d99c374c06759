// What is wrong with a spec file: what the editor marks, what the first save would lose, and how
// the file comes through its own save.
#pragma once

#include <array>

#include "finding.h"

struct CheckOptions {
    // By Rule. Rules that are off are not reported.
    std::array<Severity, RULES.size()> severities;

    CheckOptions();
};

FileReport checkFile(const SpecFile& file, const CheckOptions& options);
