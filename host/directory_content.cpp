#include "directory_content.h"

#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <tuple>

#include "directory_format.h"

namespace marvane {

namespace {

// The field must be zeros. A text that is too long is cut, so that a terminating zero remains.
template <size_t width>
void setText(char (&field)[width], const std::string& text)
{
    std::memcpy(field, text.data(), std::min(text.size(), width - 1));
}

std::vector<UnitsRow> unitsRows(const Catalogue& catalogue)
{
    std::vector<UnitsRow> rows;
    for (const CatalogueUnits& units : catalogue.units) {
        UnitsRow row{};
        setText(row.name, units.name);
        row.dimension = units.dimension;
        rows.push_back(row);
    }
    return rows;
}

VariableRow variableRow(const CatalogueVariable& variable, const TableLayout& table)
{
    VariableRow row{};
    const bool hasFullStop = recordLayout(table).isStructured;
    setText(row.label, variable.label.substr(0, variable.label.size() - (hasFullStop ? 1 : 0)));
    setText(row.alias, variable.alias);
    setText(row.units, variable.units);
    row.area = table.area;
    row.type = static_cast<SM_VARI_TYPE>(table.kind);
    row.index = variable.index;
    return row;
}

std::vector<VariableRow> variableRows(const Catalogue& catalogue)
{
    std::vector<VariableRow> rows;
    for (size_t i = 0; i < TABLE_LAYOUTS.size(); ++i) {
        for (const CatalogueVariable& variable : catalogue.tables[i]) {
            if (variable.isActive)
                rows.push_back(variableRow(variable, TABLE_LAYOUTS[i]));
        }
    }
    std::sort(rows.begin(), rows.end(), [](const VariableRow& a, const VariableRow& b) {
        return std::tie(a.area, a.type, a.index) < std::tie(b.area, b.type, b.index);
    });
    return rows;
}

void addName(std::vector<uint32_t>& buckets, const char* name, uint32_t bucket)
{
    const size_t mask = buckets.size() - 1;
    size_t at = hashOfName(name, std::strlen(name)) & mask;
    while (buckets[at] != 0)
        at = (at + 1) & mask;
    buckets[at] = bucket;
}

// The hash table of names. At least half of the buckets stay empty, which keeps searches short.
std::vector<uint32_t> nameBuckets(const std::vector<VariableRow>& variables)
{
    size_t count = 1;
    while (count < 4 * variables.size())
        count *= 2;
    std::vector<uint32_t> buckets(count);
    for (uint32_t row = 0; row < variables.size(); ++row) {
        addName(buckets, variables[row].label, bucketOf(row, NameKind::Label));
        if (variables[row].alias[0] != '\0')
            addName(buckets, variables[row].alias, bucketOf(row, NameKind::Alias));
    }
    return buckets;
}

// Appends the elements, aligned, and returns where they are.
template <typename Element>
DirectoryArray append(std::vector<char>& content, const std::vector<Element>& elements)
{
    const size_t alignment = alignof(uint32_t);
    content.resize((content.size() + alignment - 1) / alignment * alignment);
    const DirectoryArray array{static_cast<uint32_t>(content.size()),
                               static_cast<uint32_t>(elements.size())};
    const auto* bytes = reinterpret_cast<const char*>(elements.data());
    content.insert(content.end(), bytes, bytes + elements.size() * sizeof(Element));
    return array;
}

}  // namespace

std::vector<char> directoryContent(const Catalogue& catalogue)
{
    std::vector<char> content(sizeof(DirectoryHeader));
    const std::vector<VariableRow> variables = variableRows(catalogue);
    DirectoryHeader header{};
    std::memcpy(header.magic, DIRECTORY_MAGIC, sizeof header.magic);
    header.version = DIRECTORY_VERSION;
    header.process = getpid();
    header.units = append(content, unitsRows(catalogue));
    header.variables = append(content, variables);
    header.buckets = append(content, nameBuckets(variables));
    header.size = static_cast<uint32_t>(content.size());
    std::memcpy(content.data(), &header, sizeof header);
    return content;
}

}  // namespace marvane
