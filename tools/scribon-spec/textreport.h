// Findings as compilers print them, so that editors and build servers can jump to them.
#pragma once

#include "report.h"

class TextReport final : public Report {
public:
    explicit TextReport(TextTarget target) : m_target(target) {}

    QByteArray file(const SpecFile& file, const FileReport& report) const override;
    QByteArray foot(const Totals& totals) const override;

private:
    QString line(const SpecFile& file, const Finding& finding) const;
    QString coloured(const char* colour, const QString& text) const;

    TextTarget m_target;
};
