// The difference of two texts by the program diff.
#pragma once

#include <QByteArray>
#include <QString>

struct UnifiedDiff {
    QByteArray text;
    QString problem;  // why there is none; empty if there is one
};

// As `diff -u` prints it, for a file of this name before and after. Needs diff on the PATH.
UnifiedDiff unifiedDiff(const QString& name, const QByteArray& before, const QByteArray& after);
