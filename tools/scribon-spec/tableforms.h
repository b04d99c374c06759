// The forms that show prints the tables of files in.
#pragma once

#include <QByteArray>
#include <memory>

#include "specfile.h"

class TableForm {
public:
    virtual ~TableForm() = default;

    virtual QByteArray head() const { return {}; }
    virtual QByteArray file(const SpecFile& file) const = 0;
    virtual QByteArray separator() const { return {}; }
    virtual QByteArray foot() const { return {}; }
};

// Null if there is no form of this name. Text names its file only if there are several.
std::unique_ptr<TableForm> tableFormOfName(const QString& name, bool severalFiles);
