// Findings as JSON, as check-report.schema.json describes it.
#pragma once

#include "report.h"

class JsonReport final : public Report {
public:
    QByteArray head(const Totals& totals) const override;
    QByteArray file(const SpecFile& file, const FileReport& report) const override;
    QByteArray separator() const override;
    QByteArray foot(const Totals& totals) const override;
};
