#include "snapshot_catalogue.h"

#include <algorithm>
#include <cstdio>
#include <map>
#include <nlohmann/json.hpp>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "catalogue_names.h"
#include "snapshot_text.h"

namespace snapshot {

namespace {

using Json = nlohmann::ordered_json;
using marvane::TABLE_LAYOUTS;
using marvane::TableLayout;

// A text of any bytes for a message.
std::string legible(std::string_view text)
{
    std::string printable;
    for (const char c : text) {
        std::array<char, 5> escape{};
        const auto byte = static_cast<unsigned char>(c);
        std::snprintf(escape.data(), escape.size(), "\\x%02x", byte);
        printable += c >= ' ' && c <= '~' ? std::string(1, c) : escape.data();
    }
    return marvane::inQuotes(printable);
}

std::string placeOf(const TableLayout& table, const Variable& variable)
{
    return std::string(marvane::areaName(table.area)) + ' ' + marvane::recordName(table.kind) +
           ' ' + std::to_string(variable.index);
}

std::string placeOf(const Keyword& keyword)
{
    return std::string(marvane::areaName(KEYWORD_MEM)) + ' ' + std::to_string(keyword.index);
}

// The order of a unit's code; units without one come last.
int64_t rankOf(const Units& units)
{
    return units.code > 0 ? units.code : int64_t{INT32_MAX} + 1;
}

bool isBefore(const Units& a, const Units& b)
{
    return rankOf(a) < rankOf(b);
}

// The places of names.
using Owners = std::unordered_map<std::string, std::string>;

class CatalogueMaker {
public:
    explicit CatalogueMaker(const Platform& platform) : platform_(platform) {}

    Catalogue make()
    {
        addUnits();
        addCounts();
        addAreas();
        if (platform_.areas.count(KEYWORD_MEM) != 0)
            addKeywords();
        return {catalogueText(json_), std::move(omissions_)};
    }

private:
    // Returns false.
    bool omit(const std::string& what, const std::string& reason)
    {
        omissions_.push_back(what + ": " + reason);
        return false;
    }

    // Whether there is no fault. Otherwise it is an omission.
    bool isFaultless(const std::string& what, const std::string& fault)
    {
        return fault.empty() || omit(what, fault);
    }

    // ---- Units

    // In the order of their codes, which makes them the codes of a desk platform too.
    void addUnits()
    {
        std::vector<std::vector<Units>> dimensions = platform_.dimensions;
        for (std::vector<Units>& dimension : dimensions)
            std::stable_sort(dimension.begin(), dimension.end(), isBefore);
        std::stable_sort(dimensions.begin(), dimensions.end(), [](const auto& a, const auto& b) {
            return !a.empty() && (b.empty() || isBefore(a.front(), b.front()));
        });
        for (const std::vector<Units>& dimension : dimensions)
            addDimension(dimension);
        reportGaps();
    }

    // No function tells a dimension's name, so it is called by its first units.
    void addDimension(const std::vector<Units>& dimension)
    {
        Json names = Json::array();
        for (const Units& units : dimension) {
            if (addUnitsName(units))
                names.push_back(units.name);
        }
        if (!names.empty())
            json_["units"][names.front().get<std::string>()] = names;
    }

    bool addUnitsName(const Units& units)
    {
        const std::string what = "units " + legible(units.name);
        if (!isFaultless(what, marvane::unitsNameFault(units.name)))
            return false;
        if (units_.size() == marvane::MAX_UNITS)
            return omit(what, "there are too many units");
        if (!units_.emplace(marvane::inUpperCase(units.name), units.name).second)
            return omit(what, "they are there already");
        if (units.code > 0)
            unitsByCode_.emplace(units.code, units.name);
        return true;
    }

    // Units that lie between those of the catalogue.
    void reportGaps()
    {
        int32_t last = 0;
        for (const auto& [code, name] : unitsByCode_) {
            const std::string codes = std::to_string(last + 1) + " to " + std::to_string(code - 1);
            if (code - last > 1)
                omit("units of the codes " + codes, "no function tells them");
            last = code;
        }
    }

    // ---- Variables

    void addCounts()
    {
        for (size_t i = 0; i < platform_.counts.size(); ++i)
            json_["counts"][marvane::COUNT_LAYOUTS[i].name] = platform_.counts[i];
    }

    // A name that occurs twice is kept where it is most useful: as a label in use, then as another
    // label, then as an alias.
    void addAreas()
    {
        takeLabels(true);
        takeLabels(false);
        json_["areas"] = Json::object();
        for (const SM_AREA_ID area : platform_.areas) {
            if (area != KEYWORD_MEM)
                json_["areas"][marvane::areaName(area)] = tablesOf(area);
        }
    }

    void takeLabels(bool areActive)
    {
        for (size_t i = 0; i < TABLE_LAYOUTS.size(); ++i) {
            for (const Variable& variable : platform_.tables[i]) {
                if (variable.isActive == areActive)
                    takeLabel(TABLE_LAYOUTS[i], variable);
            }
        }
    }

    void takeLabel(const TableLayout& table, const Variable& variable)
    {
        const std::string place = placeOf(table, variable);
        const std::string what = place + ": label " + legible(variable.label);
        const bool isStructured = marvane::recordLayout(table).isStructured;
        if (isFaultless(what, marvane::labelFault(variable.label, isStructured)))
            takeName(variableNames_, std::string(marvane::withoutFullStop(variable.label)), place,
                     what);
    }

    // Whether the name was free. Otherwise `what` is an omission.
    bool takeName(Owners& owners, const std::string& name, const std::string& place,
                  const std::string& what)
    {
        const auto [owner, isNew] = owners.emplace(name, place);
        return isNew || omit(what, "the name is there already, at " + owner->second);
    }

    Json tablesOf(SM_AREA_ID area)
    {
        Json tables = Json::object();
        for (size_t i = 0; i < TABLE_LAYOUTS.size(); ++i) {
            if (TABLE_LAYOUTS[i].area != area)
                continue;
            Json variables = variablesOf(TABLE_LAYOUTS[i], platform_.tables[i]);
            if (!variables.empty())
                tables[marvane::recordName(TABLE_LAYOUTS[i].kind)] = std::move(variables);
        }
        return tables;
    }

    Json variablesOf(const TableLayout& table, const std::vector<Variable>& found)
    {
        Json variables = Json::array();
        size_t next = 0;
        for (const Variable& variable : found) {
            const std::string place = placeOf(table, variable);
            if (ownsName(variable, place))
                variables.push_back(withIndex(variable.index, next, variableOf(variable, place)));
        }
        return variables;
    }

    bool ownsName(const Variable& variable, const std::string& place) const
    {
        const auto owner =
            variableNames_.find(std::string(marvane::withoutFullStop(variable.label)));
        return owner != variableNames_.end() && owner->second == place;
    }

    // The record with its index in front, unless that is the next one.
    static Json withIndex(uint16_t index, size_t& next, const Json& record)
    {
        Json indexed = Json::object();
        if (index != next)
            indexed["index"] = index;
        indexed.update(record);
        next = index + size_t{1};
        return indexed;
    }

    Json variableOf(const Variable& variable, const std::string& place)
    {
        Json record{{"label", variable.label}};
        if (!variable.isActive) {
            record["active"] = false;
            return record;
        }
        if (hasUnits(variable, place))
            record["units"] = units_.at(marvane::inUpperCase(variable.units));
        if (hasAlias(variable, place))
            record["alias"] = variable.alias;
        return record;
    }

    bool hasUnits(const Variable& variable, const std::string& place)
    {
        const std::string what = place + ": units of " + legible(variable.label);
        if (!variable.isKnown)
            return omit(what, "no function finds the variable");
        return !variable.units.empty() &&
               (units_.count(marvane::inUpperCase(variable.units)) != 0 ||
                omit(what, "no function tells the dimension of " + legible(variable.units)));
    }

    bool hasAlias(const Variable& variable, const std::string& place)
    {
        const std::string what = place + ": alias " + legible(variable.alias);
        return !variable.alias.empty() && isFaultless(what, marvane::aliasFault(variable.alias)) &&
               takeName(variableNames_, variable.alias, place, what);
    }

    // ---- Keywords

    void addKeywords()
    {
        Json keywords = Json::array();
        size_t next = 0;
        for (const Keyword& keyword : platform_.keywords) {
            Json entry = keywordOf(keyword);
            if (!entry.empty())
                keywords.push_back(withIndex(keyword.index, next, entry));
        }
        json_["keywords"] = std::move(keywords);
    }

    // Empty if the keyword is left out.
    Json keywordOf(const Keyword& keyword)
    {
        const std::string place = placeOf(keyword);
        const std::string what = place + ": name " + legible(keyword.name);
        const auto* kind = std::find_if(
            marvane::KEYWORD_KINDS.begin(), marvane::KEYWORD_KINDS.end(),
            [&keyword](const marvane::KeywordKind& row) { return row.kind == keyword.kind; });
        if (kind == marvane::KEYWORD_KINDS.end()) {
            omit(what, "there is no kind " + std::to_string(keyword.kind));
            return {};
        }
        if (!isFaultless(what, marvane::keywordNameFault(keyword.name)) ||
            !takeName(keywordNames_, keyword.name, place, what))
            return {};
        Json entry{{"name", keyword.name}, {"kind", kind->name}};
        addUnitsOf(keyword, place, entry);
        return entry;
    }

    void addUnitsOf(const Keyword& keyword, const std::string& place, Json& entry)
    {
        const auto units = unitsByCode_.find(keyword.unitsCode);
        if (units != unitsByCode_.end())
            entry["units"] = units->second;
        else if (keyword.unitsCode != 0)
            omit(place + ": units of " + legible(keyword.name),
                 "no function tells those of the code " + std::to_string(keyword.unitsCode));
    }

    const Platform& platform_;
    Json json_;
    std::vector<std::string> omissions_;
    std::unordered_map<std::string, std::string> units_;  // their names by those in upper case
    std::map<int32_t, std::string> unitsByCode_;
    Owners variableNames_;  // labels and aliases
    Owners keywordNames_;
};

}  // namespace

Catalogue makeCatalogue(const Platform& platform)
{
    return CatalogueMaker(platform).make();
}

}  // namespace snapshot
