// The members of a statistic, with what each one is. The grammar lists them too.
#pragma once

#include <array>
#include <string_view>

struct StatMember {
    const char* name;
    const char* help;
};

// In the order of the grammar, of the format StatMem_VF and of the variable selection dialog.
inline constexpr std::array<StatMember, 33> STAT_MEMBERS{{
    {".AV", "mean"},
    {".MN", "minimum value"},
    {".MX", "maximum value"},
    {".RN", "range"},
    {".SD", "standard deviation"},
    {".C0", "intercept"},
    {".IV", "initial value"},
    {".FV", "final value"},
    {".DL", "delta"},
    {".E0", "standard error"},
    {".CI", "confidence interval - per requested confidence RC"},
    {".I0", "90% confidence interval"},
    {".I5", "95% confidence interval"},
    {".I9", "99% confidence interval"},
    {".ME", "median of data set"},
    {".MD", "abs value of deviation from median"},
    {".RM", "root mean squared"},
    {".ST", "start time"},
    {".EN", "end time"},
    {".TN", "time of minimum"},
    {".TX", "time of maximum"},
    {".C1", "slope"},
    {".IN", "integral (newton's method)"},
    {".IT", "integral (trapezoial method)"},
    {".RS", "r-squared"},
    {".CV", "coefficient of variation"},
    {".E1", "standard error of slope"},
    {".RA", "rate of sampling"},
    {".NM", "number of samples"},
    {".SE", "student-t"},
    {".RC", "requested confidence"},
    {".QF", "proportion of sampled data that was not rejected"},
    {".NR", "number of rejected samples due to\nsix 9's type of flagged value"},
}};

// A keyword that a row of the Scan List can have in place of a member.
inline constexpr StatMember LOG_DIGITAL_DESCP{
    "LOG_DIGITAL_DESCP",
    "logical variable description of the variable will be\nlogged in place of the values '0' or "
    "'1'"};

constexpr std::array<StatMember, 1 + STAT_MEMBERS.size()> scanListMembers()
{
    std::array<StatMember, 1 + STAT_MEMBERS.size()> members{LOG_DIGITAL_DESCP};
    size_t count = 1;
    for (const StatMember& member : STAT_MEMBERS) {
        size_t place = count++;
        for (; place > 1 && std::string_view(member.name) < members[place - 1].name; --place)
            members[place] = members[place - 1];
        members[place] = member;
    }
    return members;
}

// What the Scan List offers: LOG_DIGITAL_DESCP, then the members in alphabetical order.
inline constexpr auto SCAN_LIST_MEMBERS = scanListMembers();
