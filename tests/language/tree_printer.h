// Prints syntax trees as text, so that tests compare whole trees at a glance.
#pragma once

#include <antlr3.h>

#include <string>

// One node with all below it: its type's name, its text in brackets unless that is the name itself,
// and its children in square brackets. An error node reads ERROR(text), the end of input EOF; line
// feeds, tabs and carriage returns in texts are written as escapes.
std::string printTree(pANTLR3_BASE_TREE tree);

// The children of a root, a line each.
std::string printChildren(pANTLR3_BASE_TREE root);

// A load's whole tree: the root's children, or the root itself where it is a node of its own (a
// file without tokens, a parse that failed as a whole). Nothing for null.
std::string printWholeTree(pANTLR3_BASE_TREE root);

// The parser's own name for a token or node type, which must be one of its numbers.
std::string typeName(int type);

// A text with its line feeds, tabs and carriage returns as escapes.
std::string escapedText(const std::string& text);
