// Random spec files, the same for the same seed.
#pragma once

#include <QByteArray>
#include <random>

class DocumentGenerator {
public:
    explicit DocumentGenerator(unsigned seed) : m_random(seed) {}

    // A file of statements, sections, comments and blank lines in any order and layout, with faults
    // that a load accepts: missing values, values of another kind, unknown keywords. It has none of
    // the few faults that change with each save.
    QByteArray document();

private:
    int pick(int count);
    bool chance(int percent) { return pick(100) < percent; }
    QByteArray oneOf(std::initializer_list<const char*> texts);

    QByteArray word();
    QByteArray quoted();
    QByteArray interval();
    QByteArray strayValue();
    QByteArray comment();
    QByteArray lineEnd();
    QByteArray between();

    QByteArray statement();
    QByteArray stringStatement();
    QByteArray wordStatement();
    QByteArray forgivingStatement();
    QByteArray section();
    QByteArray sectionRow(int kind);

    std::mt19937 m_random;
};
