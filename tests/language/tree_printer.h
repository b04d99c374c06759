// Prints syntax trees as text, so that tests can compare whole trees.
#pragma once

#include <antlr3.h>

#include <string>

// A node with its subtree: the name of its type, its text in parentheses unless that is the name,
// and its children in square brackets. An error node is printed as ERROR(text), the end of input as
// EOF. Line feeds, tabs and carriage returns in texts are escaped.
std::string printTree(pANTLR3_BASE_TREE tree);

// The children of a root, a line each.
std::string printChildren(pANTLR3_BASE_TREE root);

// The tree of a load: the root's children, or the root itself if it is a normal node (a file
// without tokens, a parse that failed completely). Empty for null.
std::string printWholeTree(pANTLR3_BASE_TREE root);

// The parser's name of a token or node type, which must be valid.
std::string typeName(int type);

// Escapes line feeds, tabs and carriage returns.
std::string escapedText(const std::string& text);
