// The kinds of editors inside a cell, each with a cell of fullSpec() that it edits.
#pragma once

#include <array>

#include "editing_test.h"

struct CellEditor {
    const char* name;
    Place place;
    const char* typed;
    const char* stored;  // what is stored after typing that text
};

constexpr std::array<CellEditor, 10> CELL_EDITORS{{
    {"a line", {DE_TAB1, 0, "@REG_NAME", 1}, "other", "other"},
    {"a keyword's second line", {DE_TAB1, 0, "@RUNNING_AVERAGE", 2}, "other", "other"},
    {"a keyword", {DE_TAB1, 0, "@REG_NAME", 0}, "other", "@OTHER"},
    {"a comment", {DE_TAB1, 0, "# Everything that can be edited", 0}, "# other", "# other"},
    {"a number", {DE_TAB1, 0, "@MAX_SCANS", 1}, "7", "7"},
    {"a statistical member", {DE_TAB2, 3, "N_ENG_AVG", 2}, ".XY", "  .XY"},
    {"a channel keyword", {DE_TAB2, 3, "N_ENG_AVG", 3}, "OTHER", "OTHER"},
    {"a parameter keyword", {DE_TAB3, 1, "BORE", 1}, "OTHER", "OTHER"},
    {"an alternate name", {DE_TAB4, 1, "eng_speed", 2}, "other", "other"},
    {"a comment of the ECM list", {DE_TAB5, 1, "# The engine itself", 1}, "# other", "# other"},
}};

inline void addCellEditors()
{
    QTest::addColumn<Place>("place");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("stored");
    for (const CellEditor& editor : CELL_EDITORS)
        QTest::newRow(editor.name) << editor.place << QString::fromLatin1(editor.typed)
                                   << QString::fromLatin1(editor.stored);
}
