// Writes spec files of any size: for the benchmarks, for tests and as an example of a large file.
// The text is the same for the same shape on every machine, it has no validation errors (but for
// the one that KeywordSet::All tells of), and it is laid out as the editor saves it, so that
// loading and saving gives it back byte by byte.
#pragma once

#include <cstdint>
#include <string>

enum class KeywordSet {
    Required,  // those that every spec file must keep
    Offered,   // those that the Keywords tab offers
    All        // and @META_HEADER_FILENAME, which the Keywords tab always marks
};

struct SpecShape {
    static constexpr int MIN_NAME_LENGTH = 6;
    static constexpr int MAX_NAME_LENGTH = 79;
    static constexpr int MAX_ROWS = 250000;  // more would need longer names to tell them apart

    // Rows of each list, its keyword not counted; at most MAX_ROWS. All four lists are written,
    // also without rows.
    int scanRows = 100;
    int metaRows = 0;
    int auxRows = 0;
    int ecmRows = 0;

    KeywordSet keywords = KeywordSet::Required;

    // Without it variables are those of the demo cell, each of them many times with all its
    // statistics. With it all names are made up, and none comes twice in the whole file.
    bool distinct = false;

    // One name in five has units in brackets or, with made-up names, another shape that is more
    // than a plain word: a quoted text, an index, a number behind an at sign.
    bool withUnits = false;

    // Made-up names are MIN_NAME_LENGTH to maxName characters long, evenly distributed; at most
    // MAX_NAME_LENGTH.
    int maxName = MAX_NAME_LENGTH;

    // Another seed gives other names.
    std::uint32_t seed = 1;
};

std::string generateSpec(const SpecShape& shape);
