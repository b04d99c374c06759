// The statistical members that the Scan List offers, in their order, with their tool tips. The last
// item, which is empty and has no tool tip, is not listed.
#pragma once

#include <array>

struct MemberChoice {
    const char* name;
    const char* toolTip;
};

// clang-format off
constexpr std::array<MemberChoice, 34> MEMBER_CHOICES{{
    {"LOG_DIGITAL_DESCP", "logical variable description of the variable will be\nlogged in place of the values '0' or '1'"},
    {".AV", "mean"},
    {".C0", "intercept"},
    {".C1", "slope"},
    {".CI", "confidence interval - per requested confidence RC"},
    {".CV", "coefficient of variation"},
    {".DL", "delta"},
    {".E0", "standard error"},
    {".E1", "standard error of slope"},
    {".EN", "end time"},
    {".FV", "final value"},
    {".I0", "90% confidence interval"},
    {".I5", "95% confidence interval"},
    {".I9", "99% confidence interval"},
    {".IN", "integral (newton's method)"},
    {".IT", "integral (trapezoial method)"},
    {".IV", "initial value"},
    {".MD", "abs value of deviation from median"},
    {".ME", "median of data set"},
    {".MN", "minimum value"},
    {".MX", "maximum value"},
    {".NM", "number of samples"},
    {".NR", "number of rejected samples due to\nsix 9's type of flagged value"},
    {".QF", "proportion of sampled data that was not rejected"},
    {".RA", "rate of sampling"},
    {".RC", "requested confidence"},
    {".RM", "root mean squared"},
    {".RN", "range"},
    {".RS", "r-squared"},
    {".SD", "standard deviation"},
    {".SE", "student-t"},
    {".ST", "start time"},
    {".TN", "time of minimum"},
    {".TX", "time of maximum"},
}};
// clang-format on
