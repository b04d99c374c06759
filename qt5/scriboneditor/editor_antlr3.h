// The thin layer between the generated recognizers and the rest of the editor: it loads the one
// current spec file into a syntax tree and tells what kind of thing any text is.
//
// A flat function interface over file-level globals, for one parse at a time on one thread. It owns
// every parser object. Trees, nodes and the texts of nodes live from one read_file to the next
// read_file or free_resources: copy what you need. Nothing here throws, and nothing reports an
// error to the user: what the grammar cannot place is dropped or stays in the tree as a node of
// type 0.
#pragma once

#include <antlr3.h>

#include <cstddef>

#include "editor_types.h"

// ---- The load
// ------------------------------------------------------------------------------------

// Reads the whole file `filename` (local 8-bit encoding) for the next read_file of the same name,
// which then parses these bytes as long as there is still a file. Leaves the tree as it is.
// Returns 0, or the system's error number when not all of the file could be read; read_file then
// reads the file itself.
int preload_file(const char* filename);

// Parses the file `filename` (local 8-bit encoding) and keeps its tree for getTree. Frees the tree
// of the load before. Returns
//    0  the file is a spec file; missing optional sections have been added to the tree,
//   -1  it cannot be read, or is no regular file,
//   -2  it was parsed, but its first string statement is not @SCRIBON.
int read_file(const char* filename);

// Frees parser, lexer, input and token stream, as far as they are set, and with them the tree.
// Always returns 0.
int free_resources();

// The root of the tree of the last read_file; null when there is none.
pANTLR3_BASE_TREE getTree();

// The bytes that the tree was made from; none without a tree.
struct FileBytes {
    const char* data;
    size_t size;
};
FileBytes getFileBytes();

// The root's children; 0 and null where there is none.
ANTLR3_UINT32 treeChildCount();
pANTLR3_BASE_TREE treeChild(int i);

// ---- What a text is
// ------------------------------------------------------------------------------

// Lexes the first vSize bytes of value afresh and maps the type of the first token to an editor
// type; white space counts, so a text with a leading blank is a TEXT_BLOCK. Stores the token's type
// in *tok_type, 0 for a text without a token.
int appGrammerTypeToEditorType(const char* value, int vSize, int* tok_type);

// The same mapping for a node's type; TEXT_BLOCK for null.
int appGrammerTypeToEditorTypeOrig(pANTLR3_BASE_TREE item);

// Whether the text begins with a keyword that every spec file must keep. False for null.
bool appGrammerRequired(const char* value, size_t vSize);

// The range that the types of statements and their nodes lie in.
int appGrammerMinType();
int appGrammerMaxType();

// ---- Nodes
// ---------------------------------------------------------------------------------------

// Appends a node of this type and text to parent and returns it. The text is not copied: it must
// outlive the tree.
pANTLR3_BASE_TREE createNewChild(pANTLR3_BASE_TREE_ADAPTOR adaptor, ANTLR3_UINT32 tokenType,
                                 const char* text, pANTLR3_BASE_TREE parent);

// The type of a line end's node.
int getEOL();

// False for null.
bool isFillerTxt(pANTLR3_BASE_TREE item);
bool isMisplacedToken2(pANTLR3_BASE_TREE item);

// Line and character position of a node's token; 0 for null.
int lineNo(pANTLR3_BASE_TREE item);
int linePos(pANTLR3_BASE_TREE item);

// ---- Editing the tree
// ----------------------------------------------------------------------------
//
// The document lives in its rows, not in the tree, so the editor itself edits no tree. These are
// here for tools that do.

// Gives the token the first vSize bytes of value as its text (10 when vSize is 0; a comment gets a
// line feed behind it) and the type that this text classifies as. Leaves the parse between
// statements. The text lives as long as the tree. Always returns 0.
int update_token(pANTLR3_COMMON_TOKEN tok, const char* value, size_t vSize);

// Makes the node a line end. Nothing for null.
void setNewLine(pANTLR3_BASE_TREE item);

// Puts a node with the text " " and the item's own type behind item among its siblings and returns
// it. Null for a null item or one that is not in the tree. Prints a line when the tree has an ECM
// list.
pANTLR3_BASE_TREE insertColInTree(pANTLR3_BASE_TREE item);

// The same with the new node at index loc + 1, without the print. Siblings move up from the item's
// own index on, so any loc but that index overwrites one sibling and doubles another.
pANTLR3_BASE_TREE insertColInTreeAt(pANTLR3_BASE_TREE item, ANTLR3_UINT32 loc);

// Names of the structural nodes, closed by "<EOF>", and their types, which
// create_token_skip_list looks up in the parser's own names (-1 for the end of input).
constexpr int META_TOKEN_COUNT = 26;
extern const char* const MetaTokenNames[META_TOKEN_COUNT];
extern int MetaTokenNamesTypes[META_TOKEN_COUNT];
void create_token_skip_list();

// ---- Error recovery
// ------------------------------------------------------------------------------

// Consumes tokens up to one of the set; when none is left, stays where it was.
void syncToSetV(pANTLR3_BITSET follow);

// A quieter stand-in for the runtime's test of an unwanted token: clears the error flag and answers
// true.
bool mismatchIsUnwantedTokenNew(pANTLR3_BASE_RECOGNIZER recognizer);

// Prints "type text" as a line on standard output.
void systemout(int type, const char* text);

// Places to hook a report into; they report nothing.
void skip();
void displayRecognitionErrorNew(pANTLR3_BASE_RECOGNIZER recognizer, pANTLR3_UINT8* tokenNames);
void log_error_parse();
