#include "livecell.h"

#include <cstdlib>

#include "commands.h"
#include "platformkeywords.h"
#include "value_kinds.h"
#include "variablemaplist.h"

namespace {

const auto INTEGER_ARRAYS = QStringLiteral("Integer (array)");

// The platform tells structured variables apart by the full stop at the end of their labels.
bool holds(const QSet<QString>& names, const QString& name)
{
    return names.contains(name) || names.contains(name + QLatin1Char('.'));
}

bool isKnownToPlatform(const QString& name)
{
    SHARED_MEMORY mem{};
    return find_variable(name.toLocal8Bit().constData(), &mem) == 0;
}

// In place of the editor's plain exit, whose status would tell that all files are good.
void endInTrouble()
{
    complain(QStringLiteral("the platform has stopped"));
    std::_Exit(EXIT_TROUBLE);
}

VariablesByGroup variablesByGroup(int kinds)
{
    VariablesByGroup groups;
    const VariableMapList filled(&groups, QT_MARVANE_VAR_TYPE(kinds), nullptr);
    return groups;
}

QStringList allNames(const VariablesByGroup& groups)
{
    QStringList names;
    for (const QStringList& group : groups)
        names += group;
    return names;
}

QSet<QString> setOf(const QStringList& names)
{
    return {names.begin(), names.end()};
}

}  // namespace

bool LiveCell::join()
{
    marvane_init_fn(1);
    join_layer(5);
    return isRunning();
}

LiveCell::LiveCell()
{
    beforePlainExit = endInTrouble;
    addVariables(QT_MARVANE_ANY);
    for (const ValueKind& kind : VALUE_KINDS) {
        if (kind.choice.variables != 0)
            addVariables(kind.choice.variables);
    }
    m_hasKeywords = linkKeywordMemory();
    for (const int kind : {CHANNEL_KEYWORD, PARAMETER_KEYWORD})
        m_keywords.push_back(m_hasKeywords ? readKeywords(kind) : Keywords());
}

void LiveCell::addVariables(int kinds)
{
    if (m_variables.find(kinds) != m_variables.end())
        return;
    const VariablesByGroup groups = variablesByGroup(kinds);
    const QStringList names = allNames(groups);
    m_variables.emplace(kinds, Variables{setOf(names), NearestName(names)});
    if (groups.contains(INTEGER_ARRAYS))
        m_integerArrays = setOf(groups.value(INTEGER_ARRAYS));
}

LiveCell::Keywords LiveCell::readKeywords(int kind)
{
    Keywords keywords;
    for (const PAM_KEYWORD& entry : Keyword_memory->keyword_table) {
        if (isKeywordOfKind(entry, kind))
            keywords.units.insert(keywordName(entry), entry.unitscode);
    }
    keywords.nearest = NearestName(keywords.units.uniqueKeys());
    return keywords;
}

bool LiveCell::isRunning()
{
    void* attributes = nullptr;
    return link_to_memory(SYS_ATTR_MEM, &attributes) != 0;
}

bool LiveCell::hasVariable(const QString& name) const
{
    return holds(m_variables.at(QT_MARVANE_ANY).names, name) || isKnownToPlatform(name);
}

bool LiveCell::isOfKind(const QString& name, int kinds) const
{
    return holds(m_variables.at(kinds).names, name) ||
           !holds(m_variables.at(QT_MARVANE_ANY).names, name);
}

bool LiveCell::isArrayOfIntegers(const QString& name) const
{
    return m_integerArrays.contains(name);
}

QString LiveCell::nearestVariable(const QString& name, int kinds) const
{
    return m_variables.at(kinds).nearest.nearestTo(name);
}

QList<int> LiveCell::unitsOfKeyword(const QString& name, int kind) const
{
    return m_keywords[static_cast<size_t>(kind)].units.values(name);
}

QString LiveCell::nearestKeyword(const QString& name, int kind) const
{
    return m_keywords[static_cast<size_t>(kind)].nearest.nearestTo(name);
}
