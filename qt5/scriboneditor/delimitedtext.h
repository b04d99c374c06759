// Tables as text on the clipboard, as spreadsheets exchange them: lines of fields that are
// separated by tabs. A field with a tab, a line break or a quote in it stands in double quotes, and
// its own quotes are doubled.
#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

// The fields of each line; none for an empty text. Any kind of line break is read, and is a line
// feed in a field. A byte order mark and control characters are dropped. A quote that is not closed
// is part of its field, and so are quotes around a field that needs none: no spreadsheet puts
// those, but texts of a spec file have quotes of their own. The time is linear in the length of the
// text.
QVector<QStringList> fieldsOf(const QString& text);

// A line without a line break at its end.
QString lineOf(const QStringList& fields);
