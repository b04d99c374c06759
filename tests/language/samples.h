// Reads samples of the language: titled spec texts with the verdict and the tree that must come of
// them, many to a file.
//
//   === the title, which becomes the test row's name
//   the spec text's lines
//   --- the verdict of the load
//   the whole tree, a child of the root on each line
//
// In the text \r, \t, \f, \s (a blank) and \\ are escapes, and a \ at the end of a line takes away
// its line end. In the tree a line such as "made-up @META_DATA" stands for a section that the load
// adds. Lines above the first title are the file's own remarks.
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

// Both trees with the lines marked that only one of them has, for a failure's message.
QString treeDifference(const QStringList& expected, const QStringList& actual);
