// The thin layer between the generated recognizers and the rest of the editor: it loads the one
// current spec file into a syntax tree and tells what kind of thing any text is.
//
// A flat function interface over file-level globals, for one parse at a time on one thread.
// It owns every parser object. Trees, nodes and the texts of nodes live from one successful or
// failed read_file to the next read_file or free_resources: copy what you need.
#pragma once

#include <antlr3.h>

#include "editor_types.h"

#include <cstddef>

// ---- The load -----------------------------------------------------------------------------

// Parses the file `filename` (local 8-bit encoding) and keeps its tree for getTree. Frees the
// tree of the load before. Returns
//    0  the file is a spec file; missing optional sections have been added to the tree,
//   -1  it cannot be read, or is no regular file,
//   -2  it was parsed, but its first string statement is not @SCRIBON.
int read_file(const char* filename);

// Frees parser, lexer, input and token stream, as far as they are set. Always returns 0.
int free_resources();

// The root of the tree of the last read_file; null when nothing has been parsed.
pANTLR3_BASE_TREE getTree();

// Children of getTree()'s root; 0 and null without a tree.
ANTLR3_UINT32 treeChildCount();
pANTLR3_BASE_TREE treeChild(int i);

// ---- What a text is -----------------------------------------------------------------------

// Lexes the first vSize bytes of value afresh and maps the type of the first token, off-channel
// tokens included, to an editor type. Stores the token's type in *tok_type (0 without a token).
int appGrammerTypeToEditorType(const char* value, int vSize, int* tok_type);

// The same mapping for a node's type; TEXT_BLOCK for null.
int appGrammerTypeToEditorTypeOrig(pANTLR3_BASE_TREE item);

// Whether the text begins with a keyword that every spec file must keep.
bool appGrammerRequired(const char* value, size_t vSize);
