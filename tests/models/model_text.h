// Models as text: a line for each row, with " | " between the cells. A cell that was never assigned
// is <unset>, one with an empty text <empty>; \n, \t and \s stand for line feeds, tabs and leading
// or trailing blanks.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <initializer_list>
#include <memory>

#include "editor_antlr3.h"
#include "treemodel.h"

// Converts string literals.
QStringList lines(std::initializer_list<const char*> texts);

// The model of a tab for a tree, for the tree of the last load, and for a spec text. Each has a
// QAbstractItemModelTester, which fails the test if the model is invalid.
std::unique_ptr<TreeModel> modelOfTree(pANTLR3_BASE_TREE tree, int tab);
std::unique_ptr<TreeModel> loadedModel(int tab);
std::unique_ptr<TreeModel> modelOfText(const QByteArray& text, int tab);

// A model with these rows; its modified and dirty flags are cleared.
std::unique_ptr<TreeModel> modelOfRows(int tab, const QStringList& lines);

QStringList rowLines(const TreeModel& model);

// The bytes that dump_to_file() writes to an empty file.
QByteArray dumpOf(TreeModel* model);

// The bytes that a save of the last load writes: the five tabs one after the other.
QByteArray savedDocument();
