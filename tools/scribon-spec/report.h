// The forms that the findings are printed in. Each file is printed by itself, so that files can be
// checked by several processes and printed in their order.
#pragma once

#include <QByteArray>
#include <QString>
#include <memory>
#include <vector>

#include "finding.h"

// What a file adds to the totals.
struct FileCounts {
    QString name;
    int number = 1;
    bool loads = false;
    bool isUnreadable = false;
    int errors = 0;
    int warnings = 0;
};

struct Totals {
    std::vector<FileCounts> files;
    int errors = 0;
    int warnings = 0;
    int unreadable = 0;

    void add(const FileCounts& file);
};

// "12 files checked: 1 error, 0 warnings".
QString summaryOf(const Totals& totals);

FileCounts countsOf(const FileReport& report);

class Report {
public:
    virtual ~Report() = default;

    // Whether the head tells the totals, so that nothing can be printed before all is checked.
    // Otherwise it gets empty ones.
    virtual bool headHasTotals() const { return false; }
    virtual QByteArray head(const Totals& /*totals*/) const { return {}; }

    // May be empty. The separator stands between those that are not.
    virtual QByteArray file(const SpecFile& file, const FileReport& report) const = 0;
    virtual QByteArray separator() const { return {}; }
    virtual QByteArray foot(const Totals& /*totals*/) const { return {}; }
};

// What text is printed for: a terminal shows the lines of the findings, too.
enum class TextTarget { File, Terminal, ColourTerminal };

// Null if there is no form of this name.
std::unique_ptr<Report> reportOfName(const QString& name, TextTarget target);
