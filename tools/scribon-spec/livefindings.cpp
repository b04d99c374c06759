#include "livefindings.h"

#include <algorithm>
#include <array>

#include "cellfindings.h"
#include "ecmoffers.h"
#include "livecell.h"
#include "platformunits.h"
#include "scribon_keywords.h"
#include "stat_members.h"
#include "structuredmembers.h"
#include "textjudge.h"
#include "treeitem.h"
#include "value_kinds.h"

namespace {

QString textOf(const SpecFile& file, const CellPlace& place)
{
    return file.table(place.tab).index(place.row, place.column).data(Qt::EditRole).toString();
}

// Empty for a cell without a text of its own, and for one that is wrong already.
QString textToCheck(const SpecFile& file, const CellPlace& place)
{
    const TreeModel& table = file.table(place.tab);
    const QString text = textOf(file, place).trimmed();
    const int code = table.errorCode(table.index(place.row, place.column)).toInt();
    return text == FILLER_TEXT || code == DE_SYNTAX_ERR ? QString() : text;
}

// Calls check(row) for each entry of a list, without its keyword and its comments.
template <typename Check>
void forEachEntry(const SpecFile& file, int tab, Check check)
{
    for (int row = 1; row < file.table(tab).rowCount(); ++row) {
        if (classify(textOf(file, {tab, row, ENTRY_COLUMN})) == TEXT_BLOCK)
            check(row);
    }
}

// ---- The parts of a variable's cell ------------------------------------------------------------

// A variable's name, optionally with units in square brackets. Behind the name itself may stand a
// member (".H2"), the place in an array ("(3)") or a suffix (":1").
struct VariableText {
    explicit VariableText(const QString& text)
        : name(text.section(QLatin1Char('['), 0, 0)),
          hasUnits(name.size() < text.size()),
          isClosed(text.endsWith(QLatin1Char(']')))
    {
        units = text.mid(name.size() + 1);
        if (isClosed)
            units.chop(1);
    }

    QString name;
    bool hasUnits;
    bool isClosed;
    QString units;
};

int endOfOwnName(const QString& name)
{
    const auto* const end = std::find_if(name.begin(), name.end(), [](QChar letter) {
        return letter == QLatin1Char('.') || letter == QLatin1Char('(') ||
               letter == QLatin1Char(':');
    });
    return static_cast<int>(end - name.begin());
}

bool beginsWithLetter(const QString& text)
{
    return !text.isEmpty() && text[0].isLetter();
}

// What a cell takes: variables of some kinds, needed by a keyword.
struct Need {
    int kinds = QT_MARVANE_ANY;
    QString keyword;
};

QString nameOfKind(int kinds)
{
    if ((kinds & QT_MARVANE_LOGICAL) != 0)
        return QStringLiteral("a logical");
    return (kinds & QT_MARVANE_STRING) != 0 ? QStringLiteral("a string")
                                            : QStringLiteral("an integer");
}

// ---- Units -------------------------------------------------------------------------------------

// The units of a value in the output: those that the variable has, and those that the cell asks
// for. Empty if there are none or if they are not known.
struct ValueUnits {
    QByteArray own;
    QByteArray typed;
};

bool areOfOneDimension(const QByteArray& a, const QByteArray& b)
{
    const QStringList likeA = unitsLike(a);
    return likeA.contains(QString::fromLocal8Bit(b), Qt::CaseInsensitive) || likeA == unitsLike(b);
}

// Members of statistics whose values are in other units than the variable: times, counts, ratios,
// slopes and integrals.
constexpr std::array<const char*, 16> MEMBERS_IN_OTHER_UNITS{
    ".C1", ".EN", ".ST", ".TN", ".TX", ".IN", ".IT", ".RS",
    ".CV", ".E1", ".RA", ".NM", ".SE", ".RC", ".QF", ".NR"};

bool hasUnitsOfVariable(const QString& member)
{
    return std::none_of(MEMBERS_IN_OTHER_UNITS.begin(), MEMBERS_IN_OTHER_UNITS.end(),
                        [&member](const char* other) { return member == QLatin1String(other); });
}

bool isStatisticalMember(const QString& member)
{
    return std::any_of(STAT_MEMBERS.begin(), STAT_MEMBERS.end(), [&member](const StatMember& row) {
        return member == QLatin1String(row.name + 1);
    });
}

// ---- The checks --------------------------------------------------------------------------------

class LiveCheck {
public:
    LiveCheck(const SpecFile& file, const LiveCell& cell, std::vector<Finding>* findings)
        : m_file(file), m_cell(cell), m_findings(findings)
    {
    }

    void run()
    {
        for (int row = 0; row < m_file.table(DE_TAB1).rowCount(); ++row)
            checkKeywordRow(row);
        forEachEntry(m_file, DE_TAB2, [this](int row) { checkScanListRow(row); });
        forEachEntry(m_file, DE_TAB3, [this](int row) { checkMetaDataRow(row); });
        forEachEntry(m_file, DE_TAB4, [this](int row) {
            checkVariable({DE_TAB4, row, AuxUserTab::VARIABLE}, {});
        });
    }

private:
    void checkKeywordRow(int row)
    {
        const QString keyword = textOf(m_file, {DE_TAB1, row, KeywordsTab::KEYWORD});
        const int kinds = valueKind(classify(keyword)).choice.variables;
        if (kinds != 0)
            checkVariable({DE_TAB1, row, KeywordsTab::VALUE}, {kinds, keyword});
    }

    void checkScanListRow(int row)
    {
        ValueUnits units = checkVariable({DE_TAB2, row, ScanListTab::VARIABLE}, {});
        if (!hasUnitsOfVariable(textOf(m_file, {DE_TAB2, row, ScanListTab::MEMBER}).trimmed()))
            units = {};
        checkKeyword({DE_TAB2, row, ScanListTab::CHANNEL}, CHANNEL_KEYWORD, units);
    }

    void checkMetaDataRow(int row)
    {
        const ValueUnits units = checkVariable({DE_TAB3, row, MetaDataTab::VARIABLE}, {});
        checkKeyword({DE_TAB3, row, MetaDataTab::PARAMETER}, PARAMETER_KEYWORD, units);
    }

    // Paths, intervals and texts in quotes stand in place of variables; none begins with a letter.
    ValueUnits checkVariable(const CellPlace& place, const Need& need)
    {
        const QString text = textToCheck(m_file, place);
        if (!beginsWithLetter(text))
            return {};
        const VariableText variable(text);
        const QString name = knownName(variable.name);
        if (!name.isEmpty())
            return checkKnownVariable(place, variable, name, need);
        add(place, Rule::UnknownVariable,
            QStringLiteral("the test cell has no variable %1").arg(variable.name),
            didYouMean(nearestTo(variable.name, need.kinds)));
        return {};
    }

    ValueUnits checkKnownVariable(const CellPlace& place, const VariableText& variable,
                                  const QString& name, const Need& need)
    {
        const QString rest = variable.name.mid(name.size());
        checkKind(place, name, rest, need);
        if (rest.startsWith(QLatin1Char('.'))) {
            checkMember(place, name, rest.mid(1).section(QLatin1Char(':'), 0, 0));
            checkUnits(place, variable, {});
            return {};
        }
        ValueUnits units{unitsOfVariable(name), variable.units.toLocal8Bit()};
        if (checkUnits(place, variable, units.own))
            checkDimension(place, name, units);
        return units;
    }

    // The whole name or what stands before a member, the place in an array or a suffix; empty if
    // the cell has neither.
    QString knownName(const QString& name) const
    {
        if (m_cell.hasVariable(name))
            return name;
        const QString own = name.left(endOfOwnName(name));
        return own != name && m_cell.hasVariable(own) ? own : QString();
    }

    // With the member, the place or the suffix, if there is one. The labels of structured variables
    // end in the full stop of their members.
    QString nearestTo(const QString& name, int kinds) const
    {
        const QString own = name.left(endOfOwnName(name));
        QString rest = name.mid(own.size());
        const bool isMember = rest.startsWith(QLatin1Char('.'));
        const QString nearest =
            m_cell.nearestVariable(isMember ? own + QLatin1Char('.') : own, kinds);
        if (isMember && nearest.endsWith(QLatin1Char('.')))
            rest.remove(0, 1);
        return nearest.isEmpty() ? nearest : nearest + rest;
    }

    // The editor does not list arrays of integers among the integers, but their elements are.
    void checkKind(const CellPlace& place, const QString& name, const QString& rest,
                   const Need& need)
    {
        const bool isInteger = rest.startsWith(QLatin1Char('(')) && m_cell.isArrayOfIntegers(name);
        if (m_cell.isOfKind(name, need.kinds) ||
            (isInteger && (need.kinds & QT_MARVANE_INTEGER) != 0))
            return;
        add(place, Rule::WrongKind,
            QStringLiteral("%1 is not %2 variable, which %3 needs")
                .arg(name, nameOfKind(need.kinds), need.keyword));
    }

    void checkMember(const CellPlace& place, const QString& name, const QString& member)
    {
        const QStringList members = membersOf(name, QT_MARVANE_ANY);
        if (members.isEmpty()) {
            add(place, Rule::UnknownMember, QStringLiteral("%1 has no members").arg(name),
                hintForMember(place.tab, member));
        } else if (!members.contains(member)) {
            add(place, Rule::UnknownMember, QStringLiteral("%1 has no member %2").arg(name, member),
                didYouMean(NearestName(members).nearestTo(member)));
        }
    }

    static QString hintForMember(int tab, const QString& member)
    {
        return tab == DE_TAB2 && isStatisticalMember(member)
                   ? QStringLiteral("A statistical member has a column of its own.")
                   : QString();
    }

    // Whether there are units and the cell knows them.
    bool checkUnits(const CellPlace& place, const VariableText& variable, const QByteArray& own)
    {
        const QString& units = variable.units;
        if (!variable.hasUnits)
            return false;
        if (variable.isClosed && !unitsLike(units.toLocal8Bit()).isEmpty())
            return true;
        if (!variable.isClosed) {
            add(place, Rule::UnknownUnits, QStringLiteral("no ] behind the units"));
        } else if (units.isEmpty()) {
            add(place, Rule::UnknownUnits, QStringLiteral("no units between the brackets"));
        } else {
            add(place, Rule::UnknownUnits,
                QStringLiteral("the test cell has no units %1").arg(units),
                hintForUnits(units, own));
        }
        return false;
    }

    void checkDimension(const CellPlace& place, const QString& name, const ValueUnits& units)
    {
        if (units.own.isEmpty()) {
            add(place, Rule::WrongUnits, QStringLiteral("%1 has no units").arg(name));
        } else if (!areOfOneDimension(units.own, units.typed)) {
            add(place, Rule::WrongUnits,
                QStringLiteral("%1 are no units for %2, which is in %3")
                    .arg(QString::fromLocal8Bit(units.typed), name,
                         QString::fromLocal8Bit(units.own)),
                unitsThatFit(units.own));
        }
    }

    static QString hintForUnits(const QString& units, const QByteArray& own)
    {
        const QString nearest = NearestName(unitsLike(own)).nearestTo(units);
        return nearest.isEmpty() ? unitsThatFit(own) : didYouMean(nearest);
    }

    static QString unitsThatFit(const QByteArray& own)
    {
        const QStringList fitting = unitsLike(own);
        return fitting.isEmpty()
                   ? QString()
                   : QStringLiteral("Units that fit: %1.").arg(fitting.join(QStringLiteral(", ")));
    }

    // What stands behind "@" is not part of the keyword.
    void checkKeyword(const CellPlace& place, int kind, const ValueUnits& units)
    {
        const QString text = textToCheck(m_file, place);
        if (text.isEmpty() || !m_cell.hasKeywords())
            return;
        QList<int> codes = m_cell.unitsOfKeyword(text, kind);
        if (codes.isEmpty())
            codes = m_cell.unitsOfKeyword(text.section(QLatin1Char('@'), 0, 0), kind);
        if (codes.isEmpty()) {
            addUnknownKeyword(place, kind, text);
        } else if (!isForUnits(codes, units)) {
            add(place, Rule::WrongUnits,
                QStringLiteral("%1 is not for values in %2")
                    .arg(text, QString::fromLocal8Bit(units.own)));
        }
    }

    void addUnknownKeyword(const CellPlace& place, int kind, const QString& keyword)
    {
        const bool isChannel = kind == CHANNEL_KEYWORD;
        add(place, isChannel ? Rule::UnknownChannel : Rule::UnknownParameter,
            QStringLiteral("the test cell has no %1 keyword %2")
                .arg(isChannel ? QStringLiteral("channel") : QStringLiteral("PAM"), keyword),
            didYouMean(m_cell.nearestKeyword(keyword, kind)));
    }

    // A keyword without units takes any value, and any keyword takes one without units.
    static bool isForUnits(const QList<int>& codes, const ValueUnits& units)
    {
        const int own = codeOfUnits(units.own);
        return own == 0 || codes.contains(0) || codes.contains(own) ||
               codes.contains(codeOfUnits(units.typed));
    }

    void add(const CellPlace& place, Rule rule, const QString& message, const QString& hint = {})
    {
        m_findings->push_back(findingInCell(m_file, place, rule, message));
        m_findings->back().hint = hint;
    }

    const SpecFile& m_file;
    const LiveCell& m_cell;
    std::vector<Finding>* m_findings;
};

}  // namespace

void addLiveFindings(const SpecFile& file, const LiveCell& cell, std::vector<Finding>* findings)
{
    LiveCheck(file, cell, findings).run();
}

void addListFindings(const SpecFile& file, const EcmOffers& offers, std::vector<Finding>* findings)
{
    forEachEntry(file, DE_TAB5, [&](int row) {
        const CellPlace place{DE_TAB5, row, EcmListTab::PATH};
        const QString list = textToCheck(file, place);
        if (list.isEmpty() || offers.has(list))
            return;
        findings->push_back(
            findingInCell(file, place, Rule::UnknownList,
                          QStringLiteral("no asam3_specs file offers the list %1").arg(list)));
        findings->back().hint = didYouMean(offers.nearestTo(list));
    });
}
