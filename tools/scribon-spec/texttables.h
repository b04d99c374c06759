// The tables as aligned text. A line depends on its own row only, so that a comparison of two such
// texts shows the rows that differ and no others.
#pragma once

#include "tableforms.h"

class TextTables final : public TableForm {
public:
    explicit TextTables(bool namesFiles) : m_namesFiles(namesFiles) {}

    QByteArray file(const SpecFile& file) const override;
    QByteArray separator() const override { return "\n"; }

private:
    bool m_namesFiles;
};

// The texts of a row of tab `tab` in their columns, without an end of line.
QString alignedTexts(int tab, const QStringList& texts);
