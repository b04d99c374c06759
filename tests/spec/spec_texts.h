// Random spec files, good and bad, the same for the same seed.
#pragma once

#include <QByteArray>

// By turns a generated document, one with bytes changed, removed and doubled, and a few statements,
// words and comments in any order.
QByteArray specText(unsigned seed);
