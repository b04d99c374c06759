// The rows of all tables as one table of comma-separated values (RFC 4180): file, tab, row and
// three fields.
#pragma once

#include "tableforms.h"

class CsvTables final : public TableForm {
public:
    QByteArray head() const override;
    QByteArray file(const SpecFile& file) const override;
};
