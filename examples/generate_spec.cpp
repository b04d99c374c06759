// Prints a spec file of the given size.

#include <getopt.h>

#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <string>
#include <string_view>

#include "spec_generator.h"

namespace {

constexpr int EXIT_FAULT = 1;
constexpr int EXIT_USAGE = 2;

constexpr char USAGE[] =
    "Usage: generate_spec [OPTION]... > FILE\n"
    "\n"
    "Prints a spec file. The same options always give the same text.\n"
    "\n"
    "  --scan-rows N   rows of the scan list (100)\n"
    "  --meta-rows N   rows of the meta data list (0)\n"
    "  --aux-rows N    rows of the auxiliary user list (0)\n"
    "  --ecm-rows N    rows of the ECM list (0)\n"
    "  --keywords SET  required, offered (by the Keywords tab) or all (required)\n"
    "  --distinct      made-up names, each only once, instead of the demo cell's\n"
    "  --max-name L    longest made-up name, 6 to 79 characters (79)\n"
    "  --with-units    one name in five has units or another shape than a plain word\n"
    "  --seed S        another seed gives other made-up names (1)\n"
    "  --help          print this text\n";

enum Option {
    SCAN_ROWS,
    META_ROWS,
    AUX_ROWS,
    ECM_ROWS,
    KEYWORDS,
    DISTINCT,
    MAX_NAME_LENGTH,
    WITH_UNITS,
    SEED,
    HELP,
    OPTION_COUNT
};

constexpr std::array<option, OPTION_COUNT + 1> OPTIONS{{
    {"scan-rows", required_argument, nullptr, SCAN_ROWS},
    {"meta-rows", required_argument, nullptr, META_ROWS},
    {"aux-rows", required_argument, nullptr, AUX_ROWS},
    {"ecm-rows", required_argument, nullptr, ECM_ROWS},
    {"keywords", required_argument, nullptr, KEYWORDS},
    {"distinct", no_argument, nullptr, DISTINCT},
    {"max-name", required_argument, nullptr, MAX_NAME_LENGTH},
    {"with-units", no_argument, nullptr, WITH_UNITS},
    {"seed", required_argument, nullptr, SEED},
    {"help", no_argument, nullptr, HELP},
    {nullptr, 0, nullptr, 0},
}};

int failUsage()
{
    std::fputs(USAGE, stderr);
    return EXIT_USAGE;
}

int failValue(int option, const char* value)
{
    const char* name = OPTIONS.at(static_cast<std::size_t>(option)).name;
    std::fprintf(stderr, "generate_spec: --%s does not take '%s'\n", name, value);
    return EXIT_USAGE;
}

template <typename T>
bool readNumber(std::string_view text, T lowest, T highest, T& number)
{
    T value = 0;
    const char* end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc() || rest != end || value < lowest || value > highest)
        return false;
    number = value;
    return true;
}

bool readRows(const char* text, int& rows)
{
    return readNumber(text, 0, SpecShape::MAX_ROWS, rows);
}

bool readKeywords(std::string_view text, KeywordSet& keywords)
{
    if (text == "required")
        keywords = KeywordSet::Required;
    else if (text == "offered")
        keywords = KeywordSet::Offered;
    else if (text == "all")
        keywords = KeywordSet::All;
    else
        return false;
    return true;
}

// Returns false if the value is not valid for the option.
bool readOption(int option, const char* value, SpecShape& shape)
{
    switch (option) {
        case SCAN_ROWS:
            return readRows(value, shape.scanRows);
        case META_ROWS:
            return readRows(value, shape.metaRows);
        case AUX_ROWS:
            return readRows(value, shape.auxRows);
        case ECM_ROWS:
            return readRows(value, shape.ecmRows);
        case KEYWORDS:
            return readKeywords(value, shape.keywords);
        case DISTINCT:
            shape.distinct = true;
            return true;
        case MAX_NAME_LENGTH:
            return readNumber(value, SpecShape::MIN_NAME_LENGTH, SpecShape::MAX_NAME_LENGTH,
                              shape.maxName);
        case WITH_UNITS:
            shape.withUnits = true;
            return true;
        case SEED:
            return readNumber(value, std::uint32_t{0}, UINT32_MAX, shape.seed);
        default:
            return false;
    }
}

// Returns an exit status if there is nothing to print.
std::optional<int> readOptions(int argc, char** argv, SpecShape& shape)
{
    int option = 0;
    while ((option = getopt_long(argc, argv, "", OPTIONS.data(), nullptr)) != -1) {
        if (option == HELP) {
            std::fputs(USAGE, stdout);
            return 0;
        }
        if (option == '?')
            return failUsage();
        if (!readOption(option, optarg, shape))
            return failValue(option, optarg);
    }
    if (optind < argc)
        return failUsage();
    return std::nullopt;
}

int print(const std::string& text)
{
    const bool written = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
    if (written && std::fflush(stdout) == 0)
        return 0;
    std::perror("generate_spec");
    return EXIT_FAULT;
}

}  // namespace

int main(int argc, char** argv)
{
    SpecShape shape;
    if (const std::optional<int> status = readOptions(argc, argv, shape))
        return *status;
    return print(generateSpec(shape));
}
