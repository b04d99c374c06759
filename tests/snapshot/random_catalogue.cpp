#include "random_catalogue.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <random>
#include <string>
#include <vector>

#include "area_layout.h"

namespace {

using Json = nlohmann::ordered_json;

class Generator {
public:
    explicit Generator(uint32_t seed) : random_(seed) {}

    Json catalogue()
    {
        Json catalogue = Json::object();
        if (isOneOf(10))
            catalogue["$schema"] = "catalogue.schema.json";
        addUnits(catalogue);
        addCounts(catalogue);
        catalogue["areas"] = areas();
        if (isOneOf(3))
            catalogue["keywords"] = keywords();
        return catalogue;
    }

private:
    // From 0 to below `limit`.
    size_t number(size_t limit)
    {
        return std::uniform_int_distribution<size_t>(0, limit - 1)(random_);
    }
    bool isOneOf(size_t count) { return number(count) == 0; }

    std::string text(const std::string& characters, size_t length)
    {
        std::string result;
        while (result.size() < length)
            result += characters[number(characters.size())];
        return result;
    }

    // Of a letter, the running number, which makes it unique, and more characters up to the length.
    std::string name(const std::string& characters, size_t longest)
    {
        const std::string start = "n" + std::to_string(++names_) + '_';
        const size_t length = isOneOf(8) ? longest : start.size() + number(12);
        return start + text(characters, length - std::min(length, start.size()));
    }

    void addUnits(Json& catalogue)
    {
        for (size_t i = number(5); i > 0; --i) {
            Json dimension = Json::array();
            for (size_t j = 1 + number(4); j > 0; --j) {
                units_.push_back(name("aZ09/%\\\"'^-", 15));
                dimension.push_back(units_.back());
            }
            catalogue["units"]["dimension " + std::to_string(i)] = dimension;
        }
    }

    void addCounts(Json& catalogue)
    {
        for (const marvane::CountLayout& row : marvane::COUNT_LAYOUTS) {
            if (isOneOf(2))
                catalogue["counts"][row.name] = MOST_RECORDS + number(20);
        }
    }

    Json areas()
    {
        Json areas = Json::object();
        for (const marvane::AreaName& row : marvane::AREA_NAMES) {
            if (row.area != SYS_ATTR_MEM && row.area != KEYWORD_MEM && isOneOf(4))
                areas[row.name] = tables(row.area);
        }
        return areas;
    }

    Json tables(SM_AREA_ID area)
    {
        Json tables = Json::object();
        for (const marvane::TableLayout& table : marvane::TABLE_LAYOUTS) {
            if (table.area == area && !isOneOf(6))
                tables[marvane::recordName(table.kind)] = variables(table);
        }
        return tables;
    }

    Json variables(const marvane::TableLayout& table)
    {
        Json variables = Json::array();
        const size_t limit = std::min(marvane::maxLength(table), MOST_RECORDS);
        size_t next = 0;
        for (const size_t index : indices(limit)) {
            Json variable = Json::object();
            if (index != next)
                variable["index"] = index;
            next = index + 1;
            addVariable(variable, marvane::recordLayout(table).isStructured);
            variables.push_back(variable);
        }
        return variables;
    }

    // Different ones, in order or not.
    std::vector<size_t> indices(size_t limit)
    {
        std::vector<size_t> all(limit);
        for (size_t i = 0; i < limit; ++i)
            all[i] = i;
        if (isOneOf(2))
            std::shuffle(all.begin(), all.end(), random_);
        all.resize(number(std::min<size_t>(limit, 5)));
        return all;
    }

    void addVariable(Json& variable, bool isStructured)
    {
        const std::string word = "abcXYZ019_";
        variable["label"] = isStructured ? name(word, 78) + '.' : name(word, 79);
        if (isOneOf(5))
            variable["active"] = isOneOf(4);
        if (!units_.empty() && !isOneOf(3))
            variable["units"] = anyUnits();
        if (!isStructured && isOneOf(3))
            variable["alias"] = name(word, 79);
    }

    std::string anyUnits()
    {
        std::string units = units_[number(units_.size())];
        if (isOneOf(4))
            std::transform(units.begin(), units.end(), units.begin(),
                           [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
        return units;
    }

    Json keywords()
    {
        Json keywords = Json::array();
        for (const size_t index : indices(isOneOf(9) ? size_t{MAX_PAM_KEYWORDS} : 30)) {
            static constexpr const char* KINDS[] = {"channel", "parameter", "channel_or_parameter"};
            Json keyword{{"index", index}, {"name", name("AZ09.$[]\"\\~!", 79)}};
            keyword["kind"] = KINDS[number(std::size(KINDS))];
            if (!units_.empty() && !isOneOf(3))
                keyword["units"] = anyUnits();
            keywords.push_back(keyword);
        }
        return keywords;
    }

    static constexpr size_t MOST_RECORDS = 40;

    std::mt19937 random_;
    size_t names_ = 0;
    std::vector<std::string> units_;
};

}  // namespace

QByteArray randomCatalogue(uint32_t seed)
{
    return QByteArray::fromStdString(Generator(seed).catalogue().dump());
}
