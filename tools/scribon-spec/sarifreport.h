// Findings as SARIF 2.1.0, the form that build servers and editors read results of checks from.
#pragma once

#include "report.h"

class SarifReport final : public Report {
public:
    QByteArray head(const Totals& totals) const override;
    QByteArray file(const SpecFile& file, const FileReport& report) const override;
    QByteArray separator() const override;
    QByteArray foot(const Totals& totals) const override;
};
