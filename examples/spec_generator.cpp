#include "spec_generator.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <random>
#include <string_view>

namespace {

constexpr int SHAPED_NAME_EVERY = 5;

// ---- Keywords ---------------------------------------------------------------------------------

struct KeywordStatement {
    std::string_view keyword;
    std::string_view value;  // empty where the keyword takes none
    KeywordSet smallestSet;
};

// clang-format off
constexpr KeywordStatement KEYWORD_STATEMENTS[] = {
    {"@SCRIBON", "generated", KeywordSet::Required},
    {"@DESCRIPTION", "'A file of many rows'", KeywordSet::Required},
    {"@GROUP", "test_group", KeywordSet::Required},
    {"@MODE", "test_mode_name", KeywordSet::Required},
    {"@PROGRAM", "test_program", KeywordSet::Required},
    {"@TEST_ID", "test_id", KeywordSet::Required},
    {"@TEST_TYPE", "test_type", KeywordSet::Required},
    {"@SCAN_INTERVAL", "100[msec]", KeywordSet::Required},
    {"@CLEAR_STATISTICS_EVENT", "clear_stats_request", KeywordSet::Offered},
    {"@DONE_EVENT", "snapshot_done", KeywordSet::Offered},
    {"@ENABLE", "logging_enable", KeywordSet::Offered},
    {"@FIFO_LOG_BUFFER", "yes", KeywordSet::Offered},
    {"@FIFO_POST_TRIGGER_INTERVAL", "2.5[min]", KeywordSet::Offered},
    {"@FIFO_POST_TRIGGER_SCANS", "300", KeywordSet::Offered},
    {"@FILENAME", "'output_file'", KeywordSet::Offered},
    {"@FORCE_DIRECT_FILE_WRITE", "no", KeywordSet::Offered},
    {"@FTP_EVENT", "ftp_request", KeywordSet::Offered},
    {"@GET_NEW_SCAN_INTERVAL", "new_interval_request", KeywordSet::Offered},
    {"@LOG_DIGITAL_DESCRIPTION", "yes", KeywordSet::Offered},
    {"@LOG_STATISTICS", "yes", KeywordSet::Offered},
    {"@LOGGING_ACTIVE_LABEL", "logging_active", KeywordSet::Offered},
    {"@MAX_SCANS", "72000", KeywordSet::Offered},
    {"@MAX_STATISTICAL_SCANS", "600", KeywordSet::Offered},
    {"@OMBRA_STEADY_STATE", "", KeywordSet::Offered},
    {"@OUTPUT_PATH", "/data/generated", KeywordSet::Offered},
    {"@READ_SPEC_FILE_EVENT", "read_spec_request", KeywordSet::Offered},
    {"@REG_NAME", "scribon_generated", KeywordSet::Offered},
    {"@RELEASE_EVENT", "release_log", KeywordSet::Offered},
    {"@RUNNING_AVERAGE", "30[sec]\t\tsnapshot_request", KeywordSet::Offered},
    {"@SEND_ON_PATH_CHANGE", "no", KeywordSet::Offered},
    {"@START_EVENT", "start_log", KeywordSet::Offered},
    {"@STOP_EVENT", "stop_log", KeywordSet::Offered},
    {"@SYNC_EVENT", "sync_log", KeywordSet::Offered},
    {"@META_HEADER_FILENAME", "/data/generated/header", KeywordSet::All},
};

// ---- The demo cell ----------------------------------------------------------------------------

struct CellVariable {
    std::string_view name;
    std::string_view units;
};

constexpr std::array<CellVariable, 96> CELL_VARIABLES{{
    {"eng_speed", "[RPM]"}, {"dyno_speed", "[RPM]"}, {"turbo_speed", "[RPM]"}, {"fan_speed", "[RPM]"},
    {"brake_torque", "[N-M]"}, {"corrected_torque", "[N-M]"}, {"friction_torque", "[N-M]"},
    {"brake_power", "[KW]"}, {"corrected_power", "[KW]"}, {"indicated_power", "[KW]"},
    {"friction_power", "[KW]"}, {"pumping_power", "[KW]"}, {"coolant_heat_rejection", "[KW]"},
    {"oil_heat_rejection", "[KW]"}, {"intercooler_heat_rejection", "[KW]"}, {"exhaust_heat", "[KW]"},
    {"bmep", "[KPA]"}, {"imep", "[KPA]"}, {"pmep", "[KPA]"}, {"fmep", "[KPA]"},
    {"bsfc", "[G/KWH]"}, {"corrected_bsfc", "[G/KWH]"}, {"bsdef", "[G/KWH]"},
    {"fuel_flow", "[KG/HR]"}, {"air_flow", "[KG/HR]"}, {"exh_flow", "[KG/HR]"},
    {"egr_flow", "[KG/HR]"}, {"blowby_flow", "[KG/HR]"}, {"fuel_meter_flow", "[KG/HR]"},
    {"def_dosing_flow", "[KG/HR]"}, {"coolant_flow", "[L/MIN]"}, {"oil_flow", "[L/MIN]"},
    {"dyno_water_flow", "[L/MIN]"}, {"oil_temp", "[DEGC]"}, {"oil_temp_sump", "[DEGC]"},
    {"coolant_temp_in", "[DEGC]"}, {"coolant_temp_out", "[DEGC]"}, {"intake_air_temp", "[DEGC]"},
    {"compressor_out_temp", "[DEGC]"}, {"charge_air_temp", "[DEGC]"}, {"fuel_temp", "[DEGC]"},
    {"fuel_return_temp", "[DEGC]"}, {"turbine_in_temp", "[DEGC]"}, {"turbine_out_temp", "[DEGC]"},
    {"dpf_in_temp", "[DEGC]"}, {"dpf_out_temp", "[DEGC]"}, {"scr_in_temp", "[DEGC]"},
    {"scr_out_temp", "[DEGC]"}, {"tailpipe_temp", "[DEGC]"}, {"cell_air_temp", "[DEGC]"},
    {"exh_port_temp_cyl1", "[DEGC]"}, {"exh_port_temp_cyl2", "[DEGC]"},
    {"exh_port_temp_cyl3", "[DEGC]"}, {"exh_port_temp_cyl4", "[DEGC]"},
    {"exh_port_temp_cyl5", "[DEGC]"}, {"exh_port_temp_cyl6", "[DEGC]"}, {"oil_press", "[KPA]"},
    {"coolant_press_in", "[KPA]"}, {"coolant_press_out", "[KPA]"}, {"crankcase_press", "[KPA]"},
    {"intake_restriction", "[KPA]"}, {"compressor_in_press", "[KPA]"}, {"boost_press", "[KPA]"},
    {"charge_air_press", "[KPA]"}, {"exh_back_press", "[KPA]"}, {"turbine_in_press", "[KPA]"},
    {"turbine_out_press", "[KPA]"}, {"dpf_delta_press", "[KPA]"}, {"scr_delta_press", "[KPA]"},
    {"fuel_supply_press", "[KPA]"}, {"baro_press", "[KPA]"}, {"rail_press", "[MPA]"},
    {"peak_cyl_press_1", "[MPA]"}, {"peak_cyl_press_2", "[MPA]"}, {"peak_cyl_press_3", "[MPA]"},
    {"peak_cyl_press_4", "[MPA]"}, {"peak_cyl_press_5", "[MPA]"}, {"peak_cyl_press_6", "[MPA]"},
    {"throttle_pos", "[PCT]"}, {"egr_valve_pos", "[PCT]"}, {"vgt_pos", "[PCT]"},
    {"wastegate_pos", "[PCT]"}, {"humidity_intake", "[PCT]"}, {"load_percent", "[PCT]"},
    {"egr_rate", "[PCT]"}, {"smoke_opacity", "[PCT]"}, {"nox_in", "[PPM]"}, {"nox_out", "[PPM]"},
    {"co_raw", "[PPM]"}, {"hc_raw", "[PPM]"}, {"nh3_slip", "[PPM]"}, {"ca10", "[DEG]"},
    {"ca50", "[DEG]"}, {"ca90", "[DEG]"}, {"injection_timing", "[DEG]"}, {"battery_volts", "[V]"},
}};

struct CellParameter {
    std::string_view keyword;
    std::string_view variable;
    std::string_view units;
};

constexpr std::array<CellParameter, 20> CELL_PARAMETERS{{
    {"TEST_CELL", "cell_name", ""}, {"OPERATOR", "operator_name", ""},
    {"ENGINEER", "engineer_name", ""}, {"PROJECT", "project_no", ""},
    {"ENGINE_SERIAL", "eng_serial_no", ""}, {"ENGINE_MODEL", "eng_model", ""},
    {"ENGINE_FAMILY", "eng_family", ""}, {"ENGINE_BUILD", "eng_build", ""},
    {"ENGINE_RATING", "eng_rating", ""}, {"ECU_SOFTWARE", "ecu_software", ""},
    {"ECU_CALIBRATION", "ecu_calibration", ""}, {"TURBO_SERIAL", "turbo_serial_no", ""},
    {"BORE", "bore", "[MM]"}, {"STROKE", "stroke", "[MM]"}, {"ROD_LENGTH", "con_rod_length", "[MM]"},
    {"DISPLACEMENT", "displacement", "[L]"}, {"RATED_SPEED", "rated_speed", "[RPM]"},
    {"RATED_POWER", "rated_power", "[KW]"}, {"RATED_TORQUE", "rated_torque", "[N-M]"},
    {"FUEL_DENSITY", "fuel_density", "[KG/M3]"},
}};
// clang-format on

// The first one: the value itself, without a statistical member.
constexpr std::array<std::string_view, 34> STATISTICS{
    "",    ".AV", ".MN", ".MX", ".RN", ".SD", ".C0", ".IV", ".FV", ".DL", ".E0", ".CI",
    ".I0", ".I5", ".I9", ".ME", ".MD", ".RM", ".ST", ".EN", ".TN", ".TX", ".C1", ".IN",
    ".IT", ".RS", ".CV", ".E1", ".RA", ".NM", ".SE", ".RC", ".QF", ".NR"};

// ---- Rows -------------------------------------------------------------------------------------

struct ScanEntry {
    std::string variable;
    std::string_view statistic;
    std::string channel;
};

struct NamePair {
    std::string first;
    std::string second;
};

// The source of the names. The rows of a list are requested in order, from row 0 on.
class NameSource {
public:
    NameSource() = default;
    virtual ~NameSource() = default;
    NameSource(const NameSource&) = delete;
    NameSource& operator=(const NameSource&) = delete;

    virtual ScanEntry scanEntry(int row) = 0;
    virtual NamePair metaEntry(int row) = 0;
    virtual NamePair auxEntry(int row) = 0;
};

class CellNames : public NameSource {
public:
    explicit CellNames(bool withUnits) : m_withUnits(withUnits) {}

    ScanEntry scanEntry(int row) override
    {
        const Place variable = place(row, CELL_VARIABLES.size());
        const Place statistic = place(variable.round, STATISTICS.size());
        const std::string_view name = CELL_VARIABLES[variable.index].name;
        const std::string_view member = STATISTICS[statistic.index];
        return {variableText(row), member,
                channelName(name, member) + suffix("_", statistic.round)};
    }

    NamePair metaEntry(int row) override
    {
        const Place where = place(row, CELL_PARAMETERS.size());
        const CellParameter& parameter = CELL_PARAMETERS[where.index];
        return {std::string(parameter.keyword) + suffix("@", where.round),
                withUnits(row, parameter.variable, parameter.units)};
    }

    NamePair auxEntry(int row) override
    {
        const Place where = place(row, CELL_VARIABLES.size());
        const std::string name(CELL_VARIABLES[where.index].name);
        return {variableText(row), "user_" + name + suffix("_", where.round)};
    }

private:
    struct Place {
        std::size_t index;
        int round;
    };

    static Place place(int row, std::size_t count)
    {
        const auto position = static_cast<std::size_t>(row);
        return {position % count, static_cast<int>(position / count)};
    }

    // Empty for the first round.
    static std::string suffix(const char* separator, int round)
    {
        return round == 0 ? std::string() : separator + std::to_string(round + 1);
    }

    static std::string channelName(std::string_view name, std::string_view member)
    {
        std::string channel(name);
        if (!member.empty())
            channel.append("_").append(member.substr(1));
        return channel;
    }

    std::string variableText(int row) const
    {
        const CellVariable& variable = CELL_VARIABLES[place(row, CELL_VARIABLES.size()).index];
        return withUnits(row, variable.name, variable.units);
    }

    std::string withUnits(int row, std::string_view name, std::string_view units) const
    {
        std::string text(name);
        if (m_withUnits && row % SHAPED_NAME_EVERY == 0)
            text.append(units);
        return text;
    }

    bool m_withUnits;
};

// A prefix and a suffix of a name.
struct NameShape {
    std::string_view before;
    std::string_view after;
};

constexpr std::array<NameShape, 8> VARIABLE_SHAPES{{{"", "[RPM]"},
                                                    {"", "[N-M]"},
                                                    {"", "[KG/HR]"},
                                                    {"", "[G/KWH]"},
                                                    {"", "[DEGC]"},
                                                    {"", "[PCT]"},
                                                    {"", "(12)"},
                                                    {"", "/100"}}};
constexpr std::array<NameShape, 3> CHANNEL_SHAPES{{{"$", ""}, {"", "@2"}, {"", "/1:2"}}};
constexpr std::array<NameShape, 2> PARAMETER_SHAPES{{{"", "@7"}, {"", "@12"}}};
constexpr std::array<NameShape, 4> VALUE_SHAPES{
    {{"'", "'"}, {"\"", "\""}, {"", "[MM]"}, {"", "[KG/M3]"}}};

constexpr std::array<std::string_view, 32> WORDS{
    "engine", "oil",    "coolant", "fuel",   "air",    "exhaust",  "turbine", "compressor",
    "boost",  "rail",   "valve",   "piston", "crank",  "cylinder", "head",    "manifold",
    "pump",   "filter", "cooler",  "sensor", "inlet",  "outlet",   "upper",   "lower",
    "press",  "temp",   "flow",    "speed",  "torque", "position", "level",   "demand"};

class MadeUpNames : public NameSource {
public:
    explicit MadeUpNames(const SpecShape& shape)
        : m_random(shape.seed), m_longest(shape.maxName), m_withUnits(shape.withUnits)
    {
    }

    ScanEntry scanEntry(int) override
    {
        std::string variable = name(VARIABLE_SHAPES);
        const std::string_view statistic = oneOf(STATISTICS);
        return {std::move(variable), statistic, name(CHANNEL_SHAPES)};
    }

    NamePair metaEntry(int) override
    {
        std::string keyword = name(PARAMETER_SHAPES);
        return {std::move(keyword), name(VALUE_SHAPES)};
    }

    NamePair auxEntry(int) override
    {
        std::string variable = name(VARIABLE_SHAPES);
        return {std::move(variable), name(VARIABLE_SHAPES)};
    }

private:
    // std::uniform_int_distribution differs between standard libraries, std::mt19937 does not.
    std::size_t below(std::size_t limit) { return m_random() % limit; }

    template <typename T, std::size_t N>
    const T& oneOf(const std::array<T, N>& choices)
    {
        return choices[below(N)];
    }

    template <std::size_t N>
    std::string name(const std::array<NameShape, N>& shapes)
    {
        const bool shaped = m_withUnits && m_count % SHAPED_NAME_EVERY == 0;
        return shaped ? shapedName(oneOf(shapes)) : plainName(m_longest);
    }

    // A shape that leaves no room for the name is not used.
    std::string shapedName(const NameShape& shape)
    {
        const int room = m_longest - static_cast<int>(shape.before.size() + shape.after.size());
        if (room < SpecShape::MIN_NAME_LENGTH)
            return plainName(m_longest);
        std::string name = plainName(room);
        if (shape.before == shape.after)
            std::replace(name.begin(), name.end(), '_', ' ');
        return std::string(shape.before).append(name).append(shape.after);
    }

    // Words, then the number of the name, which makes it unique.
    std::string plainName(int longest)
    {
        const std::string number = "_" + nextNumber();
        const auto range = static_cast<std::size_t>(longest - SpecShape::MIN_NAME_LENGTH) + 1;
        const std::size_t length = SpecShape::MIN_NAME_LENGTH + below(range);
        return words(length > number.size() ? length - number.size() : 1) + number;
    }

    std::string words(std::size_t length)
    {
        std::string text(oneOf(WORDS));
        while (text.size() < length)
            text.append("_").append(oneOf(WORDS));
        text.resize(length);
        return text;
    }

    // In base 36, to be short.
    std::string nextNumber()
    {
        constexpr std::string_view DIGITS = "0123456789abcdefghijklmnopqrstuvwxyz";
        std::string number;
        for (std::size_t rest = m_count++; number.empty() || rest > 0; rest /= DIGITS.size())
            number.insert(number.begin(), DIGITS[rest % DIGITS.size()]);
        return number;
    }

    std::mt19937 m_random;
    int m_longest;
    bool m_withUnits;
    std::size_t m_count = 0;
};

// ---- The file ---------------------------------------------------------------------------------

constexpr std::string_view COLUMN = "\t\t";

void writeKeywords(std::string& text, KeywordSet keywords)
{
    for (const KeywordStatement& statement : KEYWORD_STATEMENTS) {
        if (statement.smallestSet > keywords)
            continue;
        if (!text.empty())
            text.append("\n");
        text.append(statement.keyword).append("\n");
        if (!statement.value.empty())
            text.append(statement.value).append("\n");
    }
}

void writeListKeyword(std::string& text, std::string_view keyword)
{
    text.append("\n").append(keyword).append("\n");
}

void writePair(std::string& text, const NamePair& pair)
{
    text.append(pair.first).append(COLUMN).append(pair.second).append("\n");
}

void writeScanList(std::string& text, int rows, NameSource& names)
{
    writeListKeyword(text, "@SCAN_LIST");
    for (int row = 0; row < rows; ++row) {
        const ScanEntry entry = names.scanEntry(row);
        text.append(entry.variable).append(COLUMN);
        if (!entry.statistic.empty())
            text.append(entry.statistic).append(COLUMN);
        text.append(entry.channel).append("\n");
    }
}

void writeMetaData(std::string& text, int rows, NameSource& names)
{
    writeListKeyword(text, "@META_DATA");
    for (int row = 0; row < rows; ++row)
        writePair(text, names.metaEntry(row));
}

void writeAuxUser(std::string& text, int rows, NameSource& names)
{
    writeListKeyword(text, "@SCAN_LIST_AUX_USER");
    for (int row = 0; row < rows; ++row)
        writePair(text, names.auxEntry(row));
}

// Four modules in each file, each with one list: the editor reads four sections of a file.
void writeEcmList(std::string& text, int rows)
{
    constexpr int MODULES = 4;
    writeListKeyword(text, "@ECM_LIST");
    for (int row = 0; row < rows; ++row) {
        const std::string path = "/specs/asam3_specs." + std::to_string(row / MODULES) + ":ECM" +
                                 std::to_string(row % MODULES) + ":0";
        writePair(text, {std::to_string(row + 1), path});
    }
}

std::unique_ptr<NameSource> makeNames(const SpecShape& shape)
{
    if (shape.distinct)
        return std::make_unique<MadeUpNames>(shape);
    return std::make_unique<CellNames>(shape.withUnits);
}

}  // namespace

std::string generateSpec(const SpecShape& shape)
{
    const std::unique_ptr<NameSource> names = makeNames(shape);
    std::string text;
    writeKeywords(text, shape.keywords);
    writeScanList(text, shape.scanRows, *names);
    writeMetaData(text, shape.metaRows, *names);
    writeAuxUser(text, shape.auxRows, *names);
    writeEcmList(text, shape.ecmRows);
    return text;
}
