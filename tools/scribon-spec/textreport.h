// Findings as compilers print them, so that editors and build servers can jump to them.
#pragma once

#include "report.h"

class TextReport final : public Report {
public:
    // On a terminal: in colours, with the line and a mark below the text.
    explicit TextReport(bool onTerminal) : m_onTerminal(onTerminal) {}

    QByteArray file(const SpecFile& file, const FileReport& report) const override;
    QByteArray foot(const Totals& totals) const override;

private:
    QString line(const SpecFile& file, const Finding& finding) const;
    QString coloured(const char* colour, const QString& text) const;

    bool m_onTerminal;
};
