// Findings as one page to read and print: a summary, and for each file its findings and its tables,
// with a note in each wrong cell.
#pragma once

#include "report.h"

class HtmlReport final : public Report {
public:
    bool headHasTotals() const override { return true; }
    QByteArray head(const Totals& totals) const override;
    QByteArray file(const SpecFile& file, const FileReport& report) const override;
    QByteArray foot(const Totals& totals) const override;
};
