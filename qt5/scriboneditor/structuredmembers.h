// The members of structured variables.
#pragma once

#include <QString>
#include <QStringList>

#include "variablemaplist.h"

// The members of the variable in the order in which they are offered, without a full stop. Empty if
// it has none or is of none of these kinds. The full stop at the end of its label may be left out.
QStringList membersOf(const QString& name, QT_MARVANE_VAR_TYPE kinds);
