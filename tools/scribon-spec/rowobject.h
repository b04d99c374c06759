// Rows of tables as JSON.
#pragma once

#include <QStringList>

#include "jsonbytes.h"
#include "tablerows.h"

Json textArray(const QStringList& texts);
Json rowObject(const TableRow& row);
