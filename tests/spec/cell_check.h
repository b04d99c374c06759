// Checks of spec files against a test cell, in the test's process.
#pragma once

#include <QByteArray>
#include <QStringList>

#include "check.h"
#include "livecell.h"

// The example cell's catalogue.
QString demoCatalogue();

// A spec file without a fault whose names the demo cell has, with these statements at its end. They
// begin at line CELL_SPEC_LINES + 1.
constexpr int CELL_SPEC_LINES = 8;
QByteArray cellSpec(const QByteArray& statements);

// The findings, one a text: "line:column rule: message", and behind a blank the hint, if there is
// one.
QStringList allFindings(const SpecFile& file, const LiveCell* cell, const EcmOffers* offers);

// Those that are about the cell, without those of the file itself.
QStringList cellFindings(const SpecFile& file, const LiveCell* cell,
                         const EcmOffers* offers = nullptr);
QStringList cellFindings(const QByteArray& spec, const LiveCell* cell,
                         const EcmOffers* offers = nullptr);
