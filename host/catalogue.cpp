#include "catalogue.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <initializer_list>
#include <memory>
#include <string_view>
#include <system_error>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "catalogue_names.h"
#include "json_document.h"

namespace marvane {

namespace {

// A value of the document and the JSON pointer to it.
struct Node {
    const Json& value;
    JsonPointer at;

    Node operator[](const std::string& key) const { return {value.at(key), at / key}; }
    Node operator[](size_t index) const { return {value.at(index), at / index}; }
};

// Reads and checks the parts of the document. Every member function that returns bool returns false
// at the first fault, which fault() then describes.
class CatalogueReader {
public:
    explicit CatalogueReader(const Json& document) : document_(document) {}

    bool read()
    {
        const Node top{document_, JsonPointer()};
        return isObjectOf(top, {"$schema", "units", "counts", "areas", "keywords"}) &&
               readSchemaName(top) && readUnits(top) && readCounts(top) && readAreas(top) &&
               readKeywords(top);
    }

    Catalogue takeCatalogue() { return std::move(catalogue_); }
    const JsonFault& fault() const { return fault_; }

private:
    bool fail(const JsonPointer& at, const std::string& reason)
    {
        fault_ = {at.empty() ? "top level" : at.to_string(), reason};
        return false;
    }

    bool isFaultless(const Node& node, const std::string& fault)
    {
        return fault.empty() || fail(node.at, fault);
    }

    bool isObject(const Node& node)
    {
        return node.value.is_object() || fail(node.at, "must be an object");
    }

    bool isArray(const Node& node)
    {
        return node.value.is_array() || fail(node.at, "must be an array");
    }

    bool isObjectOf(const Node& node, std::initializer_list<std::string_view> keys)
    {
        if (!isObject(node))
            return false;
        for (const auto& [key, value] : node.value.items()) {
            if (std::find(keys.begin(), keys.end(), key) == keys.end())
                return fail(node.at / key, "there is no such key");
        }
        return true;
    }

    bool hasKey(const Node& node, const char* key)
    {
        return node.value.contains(key) ||
               fail(node.at, std::string("the key ") + inQuotes(key) + " is missing");
    }

    // Stores a text of 1 to `longest` bytes.
    bool readText(const Node& node, size_t longest, std::string& text)
    {
        if (!node.value.is_string())
            return fail(node.at, "must be a text");
        text = node.value.get<std::string>();
        return isFaultless(node, lengthFault(text, longest));
    }

    bool readNumber(const Node& node, size_t largest, uint16_t& number)
    {
        if (!node.value.is_number_unsigned() || node.value.get<uint64_t>() > largest)
            return fail(node.at, "must be a whole number from 0 to " + std::to_string(largest));
        number = node.value.get<uint16_t>();
        return true;
    }

    // The name of the schema is for text editors: it is checked, but not used.
    bool readSchemaName(const Node& top)
    {
        std::string name;
        return !top.value.contains("$schema") || readText(top["$schema"], SIZE_MAX, name);
    }

    bool readUnits(const Node& top)
    {
        if (!top.value.contains("units"))
            return true;
        const Node dimensions = top["units"];
        if (!isObject(dimensions))
            return false;
        int32_t dimension = 0;
        for (const auto& [key, value] : dimensions.value.items()) {
            if (!readDimension({value, dimensions.at / key}, dimension++))
                return false;
        }
        return true;
    }

    bool readDimension(const Node& names, int32_t dimension)
    {
        if (!isArray(names))
            return false;
        if (names.value.empty())
            return fail(names.at, "must name at least one units");
        for (size_t i = 0; i < names.value.size(); ++i) {
            if (!readUnitsName(names[i], dimension))
                return false;
        }
        return true;
    }

    bool readUnitsName(const Node& node, int32_t dimension)
    {
        std::string name;
        if (!readText(node, MAX_UNITS_LENGTH, name) || !isFaultless(node, unitsNameFault(name)))
            return false;
        if (catalogue_.units.size() == MAX_UNITS)
            return fail(node.at, "there are more than " + std::to_string(MAX_UNITS) + " units");
        const auto code = static_cast<int32_t>(catalogue_.units.size()) + 1;
        if (!unitsCodes_.emplace(inUpperCase(name), code).second)
            return fail(node.at, "the units " + inQuotes(name) + " are there already");
        catalogue_.units.push_back({name, dimension});
        return true;
    }

    bool readCounts(const Node& top)
    {
        if (!top.value.contains("counts"))
            return true;
        const Node counts = top["counts"];
        if (!isObject(counts))
            return false;
        for (const auto& [key, value] : counts.value.items()) {
            if (!readCount({value, counts.at / key}, key))
                return false;
        }
        return true;
    }

    bool readCount(const Node& node, const std::string& name)
    {
        const auto* layout =
            std::find_if(COUNT_LAYOUTS.begin(), COUNT_LAYOUTS.end(),
                         [&name](const CountLayout& row) { return row.name == name; });
        if (layout == COUNT_LAYOUTS.end())
            return fail(node.at, "there is no count of this name");
        const auto index = static_cast<size_t>(layout - COUNT_LAYOUTS.begin());
        countIsGiven_[index] = true;
        return readNumber(node, UINT16_MAX, catalogue_.counts[index]);
    }

    bool readAreas(const Node& top)
    {
        catalogue_.areas.insert(SYS_ATTR_MEM);
        if (!hasKey(top, "areas"))
            return false;
        const Node areas = top["areas"];
        if (!isObject(areas))
            return false;
        for (const auto& [key, value] : areas.value.items()) {
            if (!readArea({value, areas.at / key}, key))
                return false;
        }
        return true;
    }

    bool readArea(const Node& tables, const std::string& name)
    {
        const auto* area =
            std::find_if(TABLE_LAYOUTS.begin(), TABLE_LAYOUTS.end(),
                         [&name](const TableLayout& row) { return areaName(row.area) == name; });
        if (area == TABLE_LAYOUTS.end())
            return fail(tables.at, "there is no area of variables of this name");
        if (!isObject(tables))
            return false;
        catalogue_.areas.insert(area->area);
        for (const auto& [key, value] : tables.value.items()) {
            if (!readTable({value, tables.at / key}, area->area, key))
                return false;
        }
        return true;
    }

    bool readTable(const Node& variables, SM_AREA_ID area, const std::string& name)
    {
        const auto* layout = std::find_if(
            TABLE_LAYOUTS.begin(), TABLE_LAYOUTS.end(), [area, &name](const TableLayout& row) {
                return row.area == area && recordName(row.kind) == name;
            });
        if (layout == TABLE_LAYOUTS.end())
            return fail(variables.at, "the area has no table of this name");
        if (!isArray(variables))
            return false;
        auto& table = catalogue_.tables[static_cast<size_t>(layout - TABLE_LAYOUTS.begin())];
        std::unordered_set<size_t> taken;
        for (size_t i = 0; i < variables.value.size(); ++i) {
            CatalogueVariable variable;
            const size_t next = table.empty() ? 0 : table.back().index + size_t{1};
            if (!readVariable(variables[i], *layout, variable) ||
                !readIndex(variables[i], next, tableLimit(*layout), taken, variable.index))
                return false;
            makeRoom(*layout, variable.index);
            table.push_back(std::move(variable));
        }
        return true;
    }

    // The maximum number of records of the table: its count if the catalogue gives one.
    size_t tableLimit(const TableLayout& layout) const
    {
        const bool isGiven = isCounted(layout) && countIsGiven_[countOf(layout)];
        return isGiven ? catalogue_.counts[countOf(layout)] : maxLength(layout);
    }

    // Raises the table's count so that the record fits. A given count is large enough already.
    void makeRoom(const TableLayout& layout, uint16_t index)
    {
        if (!isCounted(layout))
            return;
        uint16_t& count = catalogue_.counts[countOf(layout)];
        count = std::max(count, static_cast<uint16_t>(index + 1));
    }

    // Stores the index of a record: the given one, or `next`. Must be below `limit` and not taken.
    bool readIndex(const Node& record, size_t next, size_t limit, std::unordered_set<size_t>& taken,
                   uint16_t& index)
    {
        const bool isGiven = record.value.contains("index");
        if (isGiven && !readNumber(record["index"], UINT16_MAX, index))
            return false;
        const size_t wanted = isGiven ? index : next;
        const JsonPointer at = isGiven ? record.at / "index" : record.at;
        if (wanted >= limit)
            return fail(at, "index " + std::to_string(wanted) + " is beyond the table's " +
                                std::to_string(limit) + " records");
        if (!taken.insert(wanted).second)
            return fail(at, "index " + std::to_string(wanted) + " is taken already");
        index = static_cast<uint16_t>(wanted);
        return true;
    }

    bool readVariable(const Node& node, const TableLayout& layout, CatalogueVariable& variable)
    {
        return isObjectOf(node, {"index", "label", "active", "units", "alias"}) &&
               readLabel(node, recordLayout(layout).isStructured, variable.label) &&
               readActive(node, variable.isActive) && readUnitsOf(node, variable.units) &&
               readAlias(node, recordLayout(layout).isStructured, variable.alias);
    }

    bool readLabel(const Node& node, bool isStructured, std::string& label)
    {
        if (!hasKey(node, "label") || !readText(node["label"], MAX_LABEL_LENGTH, label))
            return false;
        return isFaultless(node["label"], labelFault(label, isStructured)) &&
               isFreeName(node["label"], withoutFullStop(label));
    }

    bool readAlias(const Node& node, bool isStructured, std::string& alias)
    {
        if (!node.value.contains("alias"))
            return true;
        if (isStructured)
            return fail(node.at / "alias", "a structured variable has no alias");
        return readText(node["alias"], MAX_LABEL_LENGTH, alias) &&
               isFaultless(node["alias"], aliasFault(alias)) && isFreeName(node["alias"], alias);
    }

    bool isFreeName(const Node& node, std::string_view name)
    {
        const auto [owner, isNew] = names_.emplace(name, node.at.to_string());
        return isNew || fail(node.at, "the name " + inQuotes(name) + " is there already, at " +
                                          owner->second);
    }

    bool readActive(const Node& node, bool& isActive)
    {
        if (!node.value.contains("active"))
            return true;
        if (!node["active"].value.is_boolean())
            return fail(node.at / "active", "must be true or false");
        isActive = node["active"].value.get<bool>();
        return true;
    }

    // Stores the name of the node's units, and their code in *code, if the node has units.
    bool readUnitsOf(const Node& node, std::string& units, int32_t* code = nullptr)
    {
        if (!node.value.contains("units"))
            return true;
        std::string name;
        if (!readText(node["units"], MAX_UNITS_LENGTH, name))
            return false;
        const auto known = unitsCodes_.find(inUpperCase(name));
        if (known == unitsCodes_.end())
            return fail(node.at / "units", "unknown units " + inQuotes(name));
        units = catalogue_.units[static_cast<size_t>(known->second) - 1].name;
        if (code != nullptr)
            *code = known->second;
        return true;
    }

    bool readKeywords(const Node& top)
    {
        if (!top.value.contains("keywords"))
            return true;
        const Node keywords = top["keywords"];
        if (!isArray(keywords))
            return false;
        catalogue_.areas.insert(KEYWORD_MEM);
        std::unordered_set<size_t> taken;
        for (size_t i = 0; i < keywords.value.size(); ++i) {
            CatalogueKeyword keyword;
            auto& table = catalogue_.keywords;
            const size_t next = table.empty() ? 0 : table.back().index + size_t{1};
            if (!readKeyword(keywords[i], keyword) ||
                !readIndex(keywords[i], next, MAX_PAM_KEYWORDS, taken, keyword.index))
                return false;
            table.push_back(std::move(keyword));
        }
        return true;
    }

    bool readKeyword(const Node& node, CatalogueKeyword& keyword)
    {
        std::string units;
        return isObjectOf(node, {"index", "name", "kind", "units"}) &&
               readKeywordName(node, keyword.name) && readKind(node, keyword.kind) &&
               readUnitsOf(node, units, &keyword.unitsCode);
    }

    bool readKeywordName(const Node& node, std::string& name)
    {
        if (!hasKey(node, "name") || !readText(node["name"], MAX_KEYWORD_LENGTH, name))
            return false;
        if (!isFaultless(node["name"], keywordNameFault(name)))
            return false;
        return keywordNames_.insert(name).second ||
               fail(node.at / "name", "the keyword " + inQuotes(name) + " is there already");
    }

    bool readKind(const Node& node, char& kind)
    {
        std::string name;
        if (!hasKey(node, "kind") || !readText(node["kind"], SIZE_MAX, name))
            return false;
        const auto* row = std::find_if(KEYWORD_KINDS.begin(), KEYWORD_KINDS.end(),
                                       [&name](const KeywordKind& k) { return k.name == name; });
        if (row == KEYWORD_KINDS.end())
            return fail(node.at / "kind", "there is no kind " + inQuotes(name));
        kind = row->kind;
        return true;
    }

    const Json& document_;
    Catalogue catalogue_;
    JsonFault fault_;
    std::array<bool, COUNT_LAYOUTS.size()> countIsGiven_{};
    std::unordered_map<std::string, int32_t> unitsCodes_;  // by name in upper case
    std::unordered_map<std::string, std::string> names_;   // JSON pointers by label or alias
    std::unordered_set<std::string> keywordNames_;
};

// Makes a message one line of limited length: messages quote the file.
std::string asOneLine(const std::string& text)
{
    constexpr size_t MAX_LENGTH = 300;
    std::string line = text.size() > MAX_LENGTH ? text.substr(0, MAX_LENGTH) + "..." : text;
    for (char& c : line) {
        if (std::iscntrl(static_cast<unsigned char>(c)) != 0)
            c = '?';
    }
    return line;
}

// Reads regular files only: a FIFO may block, a device may never end. False, with the reason, if
// the file cannot be read.
bool readFile(const std::string& fileName, std::string& text, std::string& reason)
{
    constexpr size_t CHUNK = 1 << 16;
    std::error_code error;
    if (!std::filesystem::is_regular_file(fileName, error)) {
        reason = error ? error.message() : "is no regular file";
        return false;
    }
    const std::unique_ptr<FILE, int (*)(FILE*)> file(std::fopen(fileName.c_str(), "rb"), fclose);
    if (!file) {
        reason = std::strerror(errno);
        return false;
    }
    size_t length = 0;
    for (size_t got = 1; got != 0; length += got) {
        text.resize(length + CHUNK);
        got = std::fread(text.data() + length, 1, CHUNK, file.get());
    }
    text.resize(length);
    reason = "cannot be read";
    return std::ferror(file.get()) == 0;
}

}  // namespace

std::optional<Catalogue> readCatalogue(const std::string& fileName, std::string* complaint)
{
    std::string text;
    std::string reason;
    if (!readFile(fileName, text, reason)) {
        *complaint = asOneLine(fileName + ": " + reason);
        return std::nullopt;
    }
    JsonFault fault;
    const auto document = parseJson(text, &fault);
    if (!document) {
        const char* separator = fault.place.front() == '/' ? ": " : ":";
        *complaint = asOneLine(fileName + separator + fault.place + ": " + fault.reason);
        return std::nullopt;
    }
    CatalogueReader reader(*document);
    if (!reader.read()) {
        *complaint =
            asOneLine(fileName + ": " + reader.fault().place + ": " + reader.fault().reason);
        return std::nullopt;
    }
    return reader.takeCatalogue();
}

size_t tableLength(const Catalogue& catalogue, const TableLayout& table)
{
    return isCounted(table) ? catalogue.counts[countOf(table)] : table.fixedLength;
}

}  // namespace marvane
