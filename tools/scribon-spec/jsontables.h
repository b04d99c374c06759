// The tables as JSON, as show-tables.schema.json describes it.
#pragma once

#include "tableforms.h"

class JsonTables final : public TableForm {
public:
    QByteArray head() const override;
    QByteArray file(const SpecFile& file) const override;
    QByteArray separator() const override;
    QByteArray foot() const override;
};
