// Checks arbitrary bytes as a spec file, and formats them: what Save would write has the same
// tables when it is loaded again, or the check has told why not.

#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "check.h"

namespace {

bool isOfSave(const Finding& finding)
{
    return finding.rule == Rule::LostText || finding.rule == Rule::ShiftedEntries ||
           finding.rule == Rule::SaveRefused || finding.rule == Rule::SaveUnstable;
}

bool haveSameTable(const SpecFile& a, const SpecFile& b, int tab)
{
    const TreeModel& table = a.table(tab);
    if (table.rowCount() != b.table(tab).rowCount())
        return false;
    for (int row = 0; row < table.rowCount(); ++row) {
        for (int column = 0; column < table.columnCount(); ++column) {
            if (a.cellText({tab, row, column}) != b.cellText({tab, row, column}))
                return false;
        }
    }
    return true;
}

bool comesThroughASave(const SpecFile& file)
{
    const SpecFile again = SpecFile::fromBytes(file.savedBytes(), QStringLiteral("saved"));
    if (again.state() != SpecFile::State::Loaded)
        return false;
    bool same = true;
    for (int tab = 0; tab < TAB_COUNT; ++tab)
        same = same && haveSameTable(file, again, tab);
    return same;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<int>(size));
    const SpecFile file = SpecFile::fromBytes(bytes, QStringLiteral("fuzzed"));
    const FileReport report = checkFile(file, {});
    const bool told = std::any_of(report.findings.begin(), report.findings.end(), isOfSave);
    if (file.state() == SpecFile::State::Loaded && !told && !comesThroughASave(file))
        std::abort();
    return 0;
}
