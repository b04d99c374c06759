// The tables of files as one HTML page that needs no other file.
#pragma once

#include "tableforms.h"

class TablesPage final : public TableForm {
public:
    QByteArray head() const override;
    QByteArray file(const SpecFile& file) const override;
    QByteArray foot() const override;

private:
    mutable int m_files = 0;  // their number tells the ids of their cells apart
};
