// Generates spec files of any size, for benchmarks, tests and as an example of a large file. The
// same shape gives the same text on every machine. The text has no validation errors (except for
// one with KeywordSet::All), and loading and saving it gives the same bytes.
#pragma once

#include <cstdint>
#include <string>

enum class KeywordSet {
    Required,  // the required keywords
    Offered,   // all that the Keywords tab offers
    All        // also @META_HEADER_FILENAME, which always has a validation error
};

struct SpecShape {
    static constexpr int MIN_NAME_LENGTH = 6;
    static constexpr int MAX_NAME_LENGTH = 79;
    static constexpr int MAX_ROWS = 250000;  // more would need longer names to be distinct

    // Rows of each list without its keyword; at most MAX_ROWS. A list without rows is written too.
    int scanRows = 100;
    int metaRows = 0;
    int auxRows = 0;
    int ecmRows = 0;

    KeywordSet keywords = KeywordSet::Required;

    // If false, the variables are those of the demo cell, repeated with each statistical member. If
    // true, all names are generated, and each occurs once in the file.
    bool distinct = false;

    // Every fifth name has units in brackets or, if names are generated, another form: a quoted
    // text, an index, or an at sign with a number.
    bool withUnits = false;

    // Generated names are MIN_NAME_LENGTH to maxName characters long, evenly distributed; at most
    // MAX_NAME_LENGTH.
    int maxName = MAX_NAME_LENGTH;

    // Another seed gives other names.
    std::uint32_t seed = 1;
};

std::string generateSpec(const SpecShape& shape);
