// The differences of two spec files in the forms that diff prints.
#pragma once

#include <QByteArray>

#include "rowdifferences.h"

// Both have the differences of these two files.
struct FileComparison {
    const SpecFile& before;
    const SpecFile& after;
    SpecDifferences differences;

    bool isEmpty() const;
};

// Nothing if there are no differences.
QByteArray differencesAsText(const FileComparison& comparison);

// As row-differences.schema.json describes it.
QByteArray differencesAsJson(const FileComparison& comparison);
