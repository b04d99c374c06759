// Models as text, so that tests show rows as they are told: a line each, the cells with " | "
// between them. A cell that was never assigned reads <unset>, one that holds an empty text <empty>;
// \n, \t and \s stand for line feeds, tabs and the blanks around a text.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <initializer_list>
#include <memory>

#include "editor_antlr3.h"
#include "treemodel.h"

// Texts of a source file as strings.
QStringList lines(std::initializer_list<const char*> texts);

// The tabs' headers, untranslated.
QStringList headersOf(int tab);

// A tab's model of a tree, of the tree of the last load, and of a spec text. All have the toolkit's
// model tester attached, which fails the test at whatever is no proper model.
std::unique_ptr<TreeModel> modelOfTree(pANTLR3_BASE_TREE tree, int tab);
std::unique_ptr<TreeModel> loadedModel(int tab);
std::unique_ptr<TreeModel> modelOfText(const QByteArray& text, int tab);

// A model with these rows, not modified and not dirty.
std::unique_ptr<TreeModel> modelOfRows(int tab, const QStringList& lines);

QStringList rowLines(const TreeModel& model);

// What dump_to_file writes of a model to an empty file.
QByteArray dumpOf(TreeModel* model);

// What saving writes of the last load: the five tabs, one behind the other.
QByteArray savedDocument();
