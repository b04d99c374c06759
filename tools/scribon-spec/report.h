// The forms that the findings are printed in. Each file is printed by itself, so that files can be
// checked by several processes and printed in their order.
#pragma once

#include <QByteArray>
#include <memory>

#include "finding.h"

struct Totals {
    int files = 0;
    int errors = 0;
    int warnings = 0;
    int unreadable = 0;

    void add(const FileReport& report);
    void add(const Totals& other);
};

class Report {
public:
    virtual ~Report() = default;

    virtual QByteArray head() const { return {}; }
    virtual QByteArray file(const SpecFile& file, const FileReport& report) const = 0;
    virtual QByteArray separator() const { return {}; }
    virtual QByteArray foot(const Totals& /*totals*/) const { return {}; }
};

// Null if there is no form of this name. `coloured` is for text on a terminal only.
std::unique_ptr<Report> reportOfName(const QString& name, bool coloured);
