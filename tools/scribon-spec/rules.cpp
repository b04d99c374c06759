#include "rules.h"

#include <QString>
#include <algorithm>

std::optional<Rule> ruleOfName(const QString& name)
{
    const auto* const found = std::find_if(RULES.begin(), RULES.end(), [&name](const auto& facts) {
        return name == QLatin1String(facts.name);
    });
    return found == RULES.end() ? std::nullopt : std::make_optional(found->rule);
}

const char* nameOf(Severity severity)
{
    return severity == Severity::Warning ? "warning" : "error";
}
