// Reads samples of the language: spec texts with the expected result of the load and the expected
// tree. A file has many samples:
//
//   === the title, which becomes the test row's name
//   the spec text's lines
//   --- the verdict of the load
//   the whole tree, a child of the root on each line
//
// In the text \r, \t, \f, \s (a blank) and \\ are escapes, and a \ at the end of a line removes
// its line end. In the tree, a line such as "made-up @META_DATA" stands for a section that the load
// adds. Lines above the first title are comments.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVector>

struct Sample {
    QString title;
    QByteArray text;
    int verdict = 0;
    QStringList tree;
};

QVector<Sample> readSamples(const QString& fileName);

// Adds a test row for each sample in the file `name` of the samples' directory.
void addSampleRows(const QString& name);

// Loads the current row's text with a fresh parse state and compares verdict and tree.
void checkSampleRow();

// Both trees, with marks at the lines that only one of them has. For the message of a failure.
QString treeDifference(const QStringList& expected, const QStringList& actual);
