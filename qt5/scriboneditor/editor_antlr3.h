// The layer between the generated lexer and parser and the rest of the editor: parses the current
// spec file into a syntax tree and classifies texts by their first token.
//
// Functions over global objects: one parse at a time, from one thread only. All parser objects are
// owned here. Trees, nodes and their texts are valid until the next read_file() or
// free_resources(): copy what you need. Nothing throws or reports an error to the user: what the
// grammar does not accept is dropped or stays in the tree as a node of type 0.
#pragma once

#include <antlr3.h>

#include <cstddef>

#include "editor_types.h"

// ---- The load -----------------------------------------------------------------------------------

// Reads the whole file `filename` (local 8-bit encoding). The next read_file() of the same name
// parses these bytes, if the file still exists. Does not change the tree. Returns 0, or an errno if
// the file could not be read completely; read_file() then reads it itself.
int preload_file(const char* filename);

// Parses the file `filename` (local 8-bit encoding) and keeps its tree for getTree(). Frees the
// tree of the file before. Returns
//    0  if the file is a spec file; missing optional sections have been added to the tree,
//   -1  if it cannot be read or is not a regular file,
//   -2  if it was parsed, but its first string statement is not @SCRIBON.
int read_file(const char* filename);

// Resets the state of the parse to that of a new process. Existing behaviour, kept for
// compatibility: the state that a file leaves decides how the next one is read. A program that
// reads many files, each as if it were the first, calls this before each.
void resetParseState();

// Frees parser, lexer, input and token stream, if there are any, and with them the tree.
// Always returns 0.
int free_resources();

// The root of the tree of the last read_file(); null if there is none. Not to be freed.
pANTLR3_BASE_TREE getTree();

// The bytes of the parsed file; size 0 without a tree. Valid until the next read_file() or
// free_resources().
struct FileBytes {
    const char* data;
    size_t size;
};
FileBytes getFileBytes();

// Bytes of the parsed file. Size 0: none.
struct FileRange {
    size_t offset = 0;
    size_t size = 0;
};

// The bytes that a node stands for. Nodes that only the grammar's rewrite rules make have none.
FileRange rangeOfNode(pANTLR3_BASE_TREE node);

// The bytes of the first token of a statement. None for a section that the file does not have.
FileRange startOfStatement(pANTLR3_BASE_TREE statement);

// The number of the root's children, 0 without a tree, and one of them, null if i is out of range.
ANTLR3_UINT32 treeChildCount();
pANTLR3_BASE_TREE treeChild(int i);

// ---- What a text is -----------------------------------------------------------------------------

// The editor type of a text: lexes the first vSize bytes of value and maps the type of the first
// token to an editor type. White space is a token, so a text with a leading blank is a TEXT_BLOCK.
// Stores the token's type in *tok_type, 0 for a text without a token.
int appGrammerTypeToEditorType(const char* value, int vSize, int* tok_type);

// The same mapping for a node's type; TEXT_BLOCK for null.
int appGrammerTypeToEditorTypeOrig(pANTLR3_BASE_TREE item);

// Whether the first token of the text is a required keyword. False for null. If vSize is 0, at most
// 10 bytes are read.
bool appGrammerRequired(const char* value, size_t vSize);

// The lowest and the highest type of statements and their nodes.
int appGrammerMinType();
int appGrammerMaxType();

// ---- Nodes --------------------------------------------------------------------------------------

// The child at this index, and the first child of this type; null if there is none.
pANTLR3_BASE_TREE childAt(pANTLR3_BASE_TREE tree, ANTLR3_UINT32 index);
pANTLR3_BASE_TREE childOfType(pANTLR3_BASE_TREE tree, ANTLR3_UINT32 type);

// Appends a new node to parent and returns it; the tree owns it. The text is not copied: it must
// outlive the tree.
pANTLR3_BASE_TREE createNewChild(pANTLR3_BASE_TREE_ADAPTOR adaptor, ANTLR3_UINT32 tokenType,
                                 const char* text, pANTLR3_BASE_TREE parent);

// The node type of a line end.
int getEOL();

// False for null.
bool isFillerTxt(pANTLR3_BASE_TREE item);
bool isMisplacedToken2(pANTLR3_BASE_TREE item);

// The line of a node's token, from 1, and its position in the line, from 0. 0 for null.
int lineNo(pANTLR3_BASE_TREE item);
int linePos(pANTLR3_BASE_TREE item);

// ---- Editing the tree ---------------------------------------------------------------------------
//
// The editor changes the rows of its models, never the tree; it does not call these functions.
// Existing interface, kept for compatibility.

// Sets the text of a token to the first vSize bytes of value (10 if vSize is 0), with a line feed
// behind it for a comment, and its type to that of the text's first token. The parser's state is
// reset to that between statements. The text is copied. Always returns 0.
int update_token(pANTLR3_COMMON_TOKEN tok, const char* value, size_t vSize);

// Makes the node a line end. Does nothing for null.
void setNewLine(pANTLR3_BASE_TREE item);

// Inserts a node with the text " " and the item's type behind the item and returns it; the tree
// owns it. Null if item is null or not in the tree. Existing behaviour, kept for compatibility:
// prints a line on standard output if the tree has an ECM list.
pANTLR3_BASE_TREE insertColInTree(pANTLR3_BASE_TREE item);

// The same without the print, and with the new node at index loc + 1. Siblings behind the item move
// up by one, so if loc is not the item's index, one sibling is overwritten and another is doubled.
// Existing behaviour, kept for compatibility.
pANTLR3_BASE_TREE insertColInTreeAt(pANTLR3_BASE_TREE item, ANTLR3_UINT32 loc);

// The names of the structural nodes, with "<EOF>" as the last one, and their types.
// create_token_skip_list() looks the types up in the parser's token names; -1 for "<EOF>".
constexpr int META_TOKEN_COUNT = 26;
extern const char* const MetaTokenNames[META_TOKEN_COUNT];
extern int MetaTokenNamesTypes[META_TOKEN_COUNT];
void create_token_skip_list();

// ---- Error recovery -----------------------------------------------------------------------------

// Consumes tokens up to one in the set. If there is none up to the end, consumes nothing.
void syncToSetV(pANTLR3_BITSET follow);

// Has the interface of the ANTLR runtime's mismatchIsUnwantedToken: clears the error flag and
// returns true. Not used. Existing interface, kept for compatibility.
bool mismatchIsUnwantedTokenNew(pANTLR3_BASE_RECOGNIZER recognizer);

// Prints "type text" as a line on standard output.
void systemout(int type, const char* text);

// Do nothing. Existing interface, kept for compatibility.
void skip();
void displayRecognitionErrorNew(pANTLR3_BASE_RECOGNIZER recognizer, pANTLR3_UINT8* tokenNames);
void log_error_parse();
