// The units that the platform knows.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include "marvane_headers.h"

// The name without what may stand behind it in the field. A name of 16 bytes has no terminating
// zero.
QByteArray unitsBytes(const UNITS_NAME& units);
QString unitsString(const UNITS_NAME& units);

// Fills the field with the name, cut if necessary; a null text is none.
void storeUnits(UNITS_NAME& units, const char* text);

// The names of all units of the same dimension, the given ones included; empty if they are unknown.
// Only the first 16 bytes of the name count.
QStringList unitsLike(const QByteArray& name);

// The variable's own units; empty if it has none or the platform does not know it.
QByteArray unitsOfVariable(const QString& name);

// The code of the units; 0 if the platform does not know them.
int32_t codeOfUnits(const QByteArray& name);
