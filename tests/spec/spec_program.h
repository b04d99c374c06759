// Runs scribon-spec, and reads spec texts in the test's process as it does.
#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QProcessEnvironment>
#include <QStringList>

#include "specfile.h"

struct SpecRun {
    int status;  // -1 if it crashed or could not be started
    QByteArray output;
    QByteArray complaints;
};

SpecRun runSpec(const QStringList& arguments, const QByteArray& input = {},
                const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment());

QString specProgram();

// The paths of the examples' spec files, sorted, without those that the editor refuses.
QStringList exampleSpecs();

QByteArray exampleSpec(const QString& name);

// Fails the test's program if the editor would not open the text.
SpecFile loadedSpec(const QByteArray& text);

// A few lines in each tab.
QByteArray smallSpec();

// A QString of a literal in UTF-8.
inline QString operator""_s(const char* text, size_t size)
{
    return QString::fromUtf8(text, static_cast<int>(size));
}
