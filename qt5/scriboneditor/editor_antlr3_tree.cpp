// Reads and edits single nodes of the tree.

#include <algorithm>
#include <cstdio>
#include <cstring>

#include "editor_antlr3.h"
#include "editor_antlr3_objects.h"
#include "scribonspecs_tokens.h"

// Defined by the generated parser, which declares it in no header.
extern "C" pANTLR3_UINT8 scribonspecsParserTokenNames[];

const char* const MetaTokenNames[META_TOKEN_COUNT] = {
    "COMMENT_DECL",
    "DESCRIP_DECL",
    "ECM_LIST_DECL",
    "EDITOR_TAB1",
    "EDITOR_TAB2",
    "EDITOR_TAB3",
    "EDITOR_TAB4",
    "EDITOR_TAB5",
    "EVENT_DECL",
    "INTERVAL_DECL",
    "LABEL_DECL",
    "META_FILENAME_DECL",
    "META_DATA_LIST_DECL",
    "OUTPUT_PATH_DECL",
    "RA_DECL",
    "SCANS_DECL",
    "SCAN_LIST_ARGS_DECL",
    "SCAN_LIST_AUX_USER_DECL",
    "SCAN_LIST_DECL",
    "STRING_DECL",
    "UNKNOWN_DECL",
    "UNKNOWN_TXT_DECL",
    "YESNO_DECL",
    "OMBRA_SS_DECL",
    "FILLER_TXT",
    "<EOF>",
};
int MetaTokenNamesTypes[META_TOKEN_COUNT] = {};

namespace {

// Searches the parent of item among the nodes below the given one; null if item is not there. The
// runtime's getParent() is unreliable.
pANTLR3_BASE_TREE parentOf(pANTLR3_BASE_TREE item, pANTLR3_BASE_TREE below)
{
    for (ANTLR3_UINT32 i = 0; i < below->getChildCount(below); ++i) {
        const pANTLR3_BASE_TREE child = childAt(below, i);
        if (child == item)
            return below;
        if (const pANTLR3_BASE_TREE parent = parentOf(item, child))
            return parent;
    }
    return nullptr;
}

// The index of item among its parent's children. It must be one of them.
ANTLR3_UINT32 indexIn(pANTLR3_BASE_TREE parent, pANTLR3_BASE_TREE item)
{
    ANTLR3_UINT32 index = 0;
    while (childAt(parent, index) != item)
        ++index;
    return index;
}

// A new node of the item's type with the text " ", without a parent.
pANTLR3_BASE_TREE makeBlankTwin(pANTLR3_BASE_TREE item)
{
    const pANTLR3_BASE_TREE_ADAPTOR adaptor = Parser->adaptor;
    const auto duplicate = static_cast<pANTLR3_BASE_TREE>(adaptor->dupNode(adaptor, item));
    const pANTLR3_COMMON_TOKEN token =
        adaptor->createTokenFromToken(adaptor, duplicate->getToken(duplicate));
    auto text = std::make_unique<char[]>(2);
    text[0] = ' ';
    token->textState = ANTLR3_TEXT_CHARP;
    token->tokText.chars = reinterpret_cast<pANTLR3_UCHAR>(keepTokenText(std::move(text)));
    // createTokenFromToken() does not copy the string factory, which getText() needs.
    token->strFactory = adaptor->strFactory;
    return static_cast<pANTLR3_BASE_TREE>(adaptor->create(adaptor, token));
}

// Moves the siblings behind item up by one and sets a blank node of its type at index loc + 1.
pANTLR3_BASE_TREE insertBlank(pANTLR3_BASE_TREE item, pANTLR3_BASE_TREE parent, ANTLR3_UINT32 loc)
{
    const pANTLR3_BASE_TREE twin = makeBlankTwin(item);
    const ANTLR3_UINT32 itemIndex = indexIn(parent, item);
    parent->addChild(parent, twin);
    for (ANTLR3_UINT32 i = parent->getChildCount(parent) - 1; i > itemIndex + 1; --i)
        parent->setChild(parent, i, childAt(parent, i - 1));
    parent->setChild(parent, loc + 1, twin);
    parent->freshenPACIndexesAll(parent);
    return twin;
}

// The parent of a node in the current tree; null if item is null or not in the tree.
pANTLR3_BASE_TREE parentInTree(pANTLR3_BASE_TREE item)
{
    return item == nullptr || getTree() == nullptr ? nullptr : parentOf(item, getTree());
}

// A copy of the text, with room for the line feed of a comment and for the two zero bytes that the
// string stream reads behind it.
std::unique_ptr<char[]> editedText(const char* value, size_t length, bool comment)
{
    constexpr size_t SPARE = 3;
    auto text = std::make_unique<char[]>(length + SPARE);
    const size_t copied = strnlen(value, length);
    std::copy_n(value, copied, text.get());
    if (comment)
        text[copied] = '\n';
    return text;
}

void setTypeFromText(pANTLR3_COMMON_TOKEN tok, char* text, size_t length)
{
    TextLexer lexer(text, length);
    const pANTLR3_COMMON_TOKEN first = lexer.firstToken();
    if (first != nullptr)
        tok->setType(tok, first->getType(first));
}

// Resets the parser's state to that between statements, by running it at the end of the file.
void parseNothing()
{
    if (Parser == nullptr)
        return;
    fillFileTokenStream();
    const pANTLR3_INT_STREAM tokens = TokenStream->tstream->istream;
    tokens->seek(tokens, TokenStream->tokens->count);
    Parser->expr(Parser);
}

}  // namespace

pANTLR3_BASE_TREE childAt(pANTLR3_BASE_TREE tree, ANTLR3_UINT32 index)
{
    return static_cast<pANTLR3_BASE_TREE>(tree->getChild(tree, index));
}

pANTLR3_BASE_TREE childOfType(pANTLR3_BASE_TREE tree, ANTLR3_UINT32 type)
{
    return static_cast<pANTLR3_BASE_TREE>(tree->getFirstChildWithType(tree, type));
}

pANTLR3_BASE_TREE createNewChild(pANTLR3_BASE_TREE_ADAPTOR adaptor, ANTLR3_UINT32 tokenType,
                                 const char* text, pANTLR3_BASE_TREE parent)
{
    // The runtime's interface is not const-correct: it does not change the text.
    const auto chars = reinterpret_cast<pANTLR3_UINT8>(const_cast<char*>(text));
    const auto node =
        static_cast<pANTLR3_BASE_TREE>(adaptor->createTypeText(adaptor, tokenType, chars));
    parent->addChild(parent, node);
    return node;
}

int getEOL()
{
    return TOKEN_EOL;
}

bool isFillerTxt(pANTLR3_BASE_TREE item)
{
    return item != nullptr && item->getType(item) == TOKEN_FILLER_TXT;
}

bool isMisplacedToken2(pANTLR3_BASE_TREE item)
{
    if (item == nullptr)
        return false;
    const ANTLR3_UINT32 type = item->getType(item);
    return type == TOKEN_UNKNOWN_DECL || type == TOKEN_UNKNOWN_TXT_DECL;
}

int lineNo(pANTLR3_BASE_TREE item)
{
    return item == nullptr ? 0 : static_cast<int>(item->getLine(item));
}

int linePos(pANTLR3_BASE_TREE item)
{
    return item == nullptr ? 0 : static_cast<int>(item->getCharPositionInLine(item));
}

int update_token(pANTLR3_COMMON_TOKEN tok, const char* value, size_t vSize)
{
    constexpr size_t EMPTY_LENGTH = 10;
    // The parser stops at this token: with another type it would never end.
    if (tok->getType(tok) == ANTLR3_TOKEN_EOF)
        return 0;
    const size_t length = vSize == 0 ? EMPTY_LENGTH : vSize;
    const bool comment = tok->getType(tok) == TOKEN_COMMENT;
    char* const text = keepTokenText(editedText(value, length, comment));
    tok->textState = ANTLR3_TEXT_CHARP;
    tok->tokText.chars = reinterpret_cast<pANTLR3_UCHAR>(text);
    setTypeFromText(tok, text, length);
    parseNothing();
    return 0;
}

void setNewLine(pANTLR3_BASE_TREE item)
{
    if (item != nullptr)
        update_token(item->getToken(item), "\n", 2);
}

pANTLR3_BASE_TREE insertColInTree(pANTLR3_BASE_TREE item)
{
    const pANTLR3_BASE_TREE root = getTree();
    if (root != nullptr && childOfType(root, TOKEN_ECM_LIST_DECL) != nullptr)
        std::fputs("found ecm LIst \n", stdout);
    const pANTLR3_BASE_TREE parent = parentInTree(item);
    return parent == nullptr ? nullptr : insertBlank(item, parent, indexIn(parent, item));
}

pANTLR3_BASE_TREE insertColInTreeAt(pANTLR3_BASE_TREE item, ANTLR3_UINT32 loc)
{
    const pANTLR3_BASE_TREE parent = parentInTree(item);
    return parent == nullptr ? nullptr : insertBlank(item, parent, loc);
}

void create_token_skip_list()
{
    for (int i = 0; i < META_TOKEN_COUNT; ++i) {
        for (int type = 0; type < TOKEN_TYPE_COUNT; ++type) {
            const auto name = reinterpret_cast<const char*>(scribonspecsParserTokenNames[type]);
            if (std::strcmp(MetaTokenNames[i], name) == 0)
                MetaTokenNamesTypes[i] = type;
        }
    }
    MetaTokenNamesTypes[META_TOKEN_COUNT - 1] = -1;
}

void systemout(int type, const char* text)
{
    std::printf("%d %s\n", type, text);
}

void skip() {}

void displayRecognitionErrorNew(pANTLR3_BASE_RECOGNIZER /*recognizer*/,
                                pANTLR3_UINT8* /*tokenNames*/)
{
}

void log_error_parse() {}
