// Whole reports of spec texts that are checked in the test's process.
#pragma once

#include <QByteArray>
#include <QVector>

// A text that is in no file, and the name that it has in the report.
struct NamedText {
    QString name;
    QByteArray bytes;
};

// The bytes that `scribon-spec check --format FORM` prints for files of these names and contents.
QByteArray reportOf(const char* form, const QVector<NamedText>& texts);

// A few of each: examples, generated documents with faults, the same with bytes changed at random,
// and bytes that are no text.
QVector<NamedText> manyTexts();
