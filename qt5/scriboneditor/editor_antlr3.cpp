#include "editor_antlr3.h"

#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "editor_antlr3_objects.h"
#include "scribon_keywords.h"
#include "scribonspecs_hooks.h"
#include "scribonspecs_state.h"
#include "wholefile.h"

pscribonspecsParser Parser = nullptr;
pANTLR3_COMMON_TOKEN_STREAM TokenStream = nullptr;

namespace {

pANTLR3_INPUT_STREAM Input = nullptr;
pscribonspecsLexer Lex = nullptr;
scribonspecsParser_expr_return Result{};

// The bytes of the file. Input does not copy them.
std::string fileBytes;

// What preload_file() has read for the next read_file().
struct {
    bool there = false;
    std::string name;
    std::string bytes;
} preloaded;

std::vector<std::unique_ptr<char[]>> editedTokenTexts;

constexpr ANTLR3_UINT32 FILE_TOKENS_HINT = 1025;
constexpr ANTLR3_UINT32 CELL_TOKENS_HINT = 10;

// The ANTLR runtime counts columns, and Qt the bytes of an array, in an int.
constexpr size_t MAX_INPUT_SIZE = std::numeric_limits<ANTLR3_INT32>::max();

bool isRegularFile(const char* filename)
{
    struct stat status {};
    return stat(filename, &status) == 0 && S_ISREG(status.st_mode);
}

// Sets fileBytes, from the preloaded bytes if they are of this file. False if the file cannot be
// read, or was removed since it was preloaded.
bool takeFileBytes(const char* filename)
{
    const bool known = std::exchange(preloaded.there, false) && preloaded.name == filename;
    fileBytes = std::exchange(preloaded.bytes, {});
    if (known)
        return isRegularFile(filename);
    return readWholeFile(filename, MAX_INPUT_SIZE, &fileBytes) == 0;
}

// A string stream on fileBytes, since the runtime's file stream ignores failed and short reads. The
// stream copies the name.
pANTLR3_INPUT_STREAM streamOfFileBytes(std::string name)
{
    return antlr3StringStreamNew(reinterpret_cast<pANTLR3_UINT8>(fileBytes.data()), ANTLR3_ENC_8BIT,
                                 static_cast<ANTLR3_UINT32>(fileBytes.size()),
                                 reinterpret_cast<pANTLR3_UINT8>(name.data()));
}

bool isScribonTree(pANTLR3_BASE_TREE root)
{
    if (root == nullptr || root->getChildCount(root) == 0)
        return false;
    const auto firstString = childOfType(root, TOKEN_STRING_DECL);
    return firstString != nullptr && childOfType(firstString, TOKEN_KYWD_SCRIBON) != nullptr;
}

void parseInput()
{
    Lex = scribonspecsLexerNew(Input);
    TokenStream =
        antlr3CommonTokenStreamSourceNew(FILE_TOKENS_HINT, Lex->pLexer->rec->state->tokSource);
    Parser = scribonspecsParserNew(TokenStream);
    Result = Parser->expr(Parser);
}

struct TypeToEditor {
    int type;
    int editor;
};

// The editor types of tokens and nodes that are not in SCRIBON_KEYWORDS.
constexpr std::array<TypeToEditor, 12> OTHER_EDITORS{{
    {TOKEN_COMMENT, COMMENT_LINE},
    {TOKEN_EDITOR_TAB1, EDIT_TAB1},
    {TOKEN_EDITOR_TAB2, EDIT_TAB2},
    {TOKEN_EDITOR_TAB3, EDIT_TAB3},
    {TOKEN_EDITOR_TAB4, EDIT_TAB4},
    {TOKEN_EDITOR_TAB5, EDIT_TAB5},
    {TOKEN_EOL, EOL_FLAG},
    {TOKEN_FILLER_TXT, FILLER_DATA},
    {TOKEN_KYWD_DEFAULT, DESCRIPTION_EDITOR},
    {TOKEN_LABEL_DECL, LOG_DIG_DESCRIPTION},
    {TOKEN_LOG_DIGITAL_DESC, LOG_DIG_DESCRIPTION},
    {TOKEN_STAT_MEM, STAT_MEM_EDITOR},
}};

constexpr std::array<int, TOKEN_TYPE_COUNT> makeEditorTable()
{
    std::array<int, TOKEN_TYPE_COUNT> table{};
    for (int& editor : table)
        editor = TEXT_BLOCK;
    for (const TypeToEditor& row : OTHER_EDITORS)
        table[static_cast<size_t>(row.type)] = row.editor;
    for (const ScribonKeyword& keyword : SCRIBON_KEYWORDS)
        table[static_cast<size_t>(keyword.token)] = keyword.editor;
    return table;
}

constexpr std::array<int, TOKEN_TYPE_COUNT> EDITOR_OF_TYPE = makeEditorTable();

int editorOfType(ANTLR3_UINT32 type)
{
    return type < EDITOR_OF_TYPE.size() ? EDITOR_OF_TYPE[type] : static_cast<int>(TEXT_BLOCK);
}

// The type of the first token in a text, TOKEN_INVALID (0) if it has none. Two zero bytes must
// follow the size bytes of the text.
int firstTokenType(char* zeroTerminated, size_t size)
{
    TextLexer lexer(zeroTerminated, size);
    const pANTLR3_COMMON_TOKEN token = lexer.firstToken();
    if (token == nullptr)
        return TOKEN_INVALID;
    fillFileTokenStream();
    return static_cast<int>(token->getType(token));
}

// Lexes a copy of the text, with the two zero bytes behind it that the string stream reads. Most
// texts fit into the local buffer.
int tokenTypeOf(const char* value, size_t size)
{
    constexpr size_t LOCAL_SIZE = 128;
    constexpr size_t ZERO_BYTES = 2;
    if (size <= LOCAL_SIZE) {
        std::array<char, LOCAL_SIZE + ZERO_BYTES> buffer{};
        std::copy_n(value, size, buffer.begin());
        return firstTokenType(buffer.data(), size);
    }
    std::string buffer(value, size);
    buffer.append(ZERO_BYTES, '\0');
    return firstTokenType(buffer.data(), size);
}

constexpr std::array<bool, 256> makeWordTable()
{
    std::array<bool, 256> table{};
    for (const char c : std::string_view("$%()-./:<>@[]_"))
        table[static_cast<unsigned char>(c)] = true;
    using Range = std::pair<unsigned char, unsigned char>;
    for (const auto& [first, last] : {Range{'0', '9'}, {'A', 'Z'}, {'a', 'z'}}) {
        for (size_t c = first; c <= last; ++c)
            table[c] = true;
    }
    return table;
}

constexpr std::array<bool, 256> IS_WORD_CHARACTER = makeWordTable();

bool isRequiredKeyword(int tokenType)
{
    const ScribonKeyword* const keyword = scribonKeyword(tokenType);
    return keyword != nullptr && keyword->is(REQUIRED);
}

}  // namespace

// ---- The load -----------------------------------------------------------------------------------

int preload_file(const char* filename)
{
    preloaded.name = filename;
    const int error = readWholeFile(filename, MAX_INPUT_SIZE, &preloaded.bytes);
    preloaded.there = error == 0;
    return error;
}

int read_file(const char* filename)
{
    if (Input != nullptr)
        free_resources();
    if (!takeFileBytes(filename))
        return -1;
    Input = streamOfFileBytes(filename);
    if (Input == nullptr)
        return -1;
    parseInput();
    if (!isScribonTree(getTree()))
        return -2;
    add_meta_data_section();
    add_ecm_list();
    add_scan_list_aux_user();
    return 0;
}

void resetParseState()
{
    ctab = 1;
    ecm_init = 0;
    und_mask = 0;
    num = 0;
}

int free_resources()
{
    RuntimePtr<pscribonspecsParser>(std::exchange(Parser, nullptr)).reset();
    RuntimePtr<pscribonspecsLexer>(std::exchange(Lex, nullptr)).reset();
    RuntimePtr<pANTLR3_INPUT_STREAM>(std::exchange(Input, nullptr)).reset();
    RuntimePtr<pANTLR3_COMMON_TOKEN_STREAM>(std::exchange(TokenStream, nullptr)).reset();
    Result = {};
    editedTokenTexts.clear();
    fileBytes = {};
    return 0;
}

FileBytes getFileBytes()
{
    return {fileBytes.data(), fileBytes.size()};
}

namespace {

// The runtime stores pointers into the buffer as numbers.
FileRange rangeOfToken(pANTLR3_COMMON_TOKEN token)
{
    const auto begin = reinterpret_cast<ANTLR3_MARKER>(fileBytes.data());
    const auto end = begin + static_cast<ANTLR3_MARKER>(fileBytes.size());
    const ANTLR3_MARKER start = token == nullptr ? 0 : token->getStartIndex(token);
    const ANTLR3_MARKER stop = token == nullptr ? 0 : token->getStopIndex(token);
    if (start < begin || stop < start || stop >= end)
        return {};
    return {static_cast<size_t>(start - begin), static_cast<size_t>(stop - start + 1)};
}

}  // namespace

FileRange rangeOfNode(pANTLR3_BASE_TREE node)
{
    return rangeOfToken(node->getToken(node));
}

// Sections that were added to the tree have the index 0, like the first statement.
FileRange startOfStatement(pANTLR3_BASE_TREE statement)
{
    const ANTLR3_MARKER index = Parser->adaptor->getTokenStartIndex(Parser->adaptor, statement);
    const pANTLR3_VECTOR tokens = TokenStream->tokens;
    const bool isFirst = treeChild(0) == statement;
    if (index < 0 || index >= tokens->count || (index == 0 && !isFirst))
        return {};
    return rangeOfToken(
        static_cast<pANTLR3_COMMON_TOKEN>(tokens->get(tokens, static_cast<ANTLR3_UINT32>(index))));
}

pANTLR3_BASE_TREE getTree()
{
    return Result.tree;
}

ANTLR3_UINT32 treeChildCount()
{
    const pANTLR3_BASE_TREE root = getTree();
    return root == nullptr ? 0 : root->getChildCount(root);
}

pANTLR3_BASE_TREE treeChild(int i)
{
    if (i < 0 || static_cast<ANTLR3_UINT32>(i) >= treeChildCount())
        return nullptr;
    const pANTLR3_BASE_TREE root = getTree();
    return childAt(root, static_cast<ANTLR3_UINT32>(i));
}

// ---- What a text is -----------------------------------------------------------------------------

TextLexer::TextLexer(char* zeroTerminated, size_t size)
    : m_input(antlr3StringStreamNew(reinterpret_cast<pANTLR3_UINT8>(zeroTerminated),
                                    ANTLR3_ENC_8BIT, static_cast<ANTLR3_UINT32>(size + 2),
                                    reinterpret_cast<pANTLR3_UINT8>(const_cast<char*>("cell")))),
      m_lexer(scribonspecsLexerNew(m_input.get())),
      m_tokens(antlr3CommonTokenStreamSourceNew(CELL_TOKENS_HINT,
                                                m_lexer->pLexer->rec->state->tokSource))
{
}

pANTLR3_COMMON_TOKEN TextLexer::firstToken()
{
    const pANTLR3_VECTOR tokens = m_tokens->getTokens(m_tokens.get());
    if (tokens == nullptr || tokens->count == 0)
        return nullptr;
    return static_cast<pANTLR3_COMMON_TOKEN>(tokens->get(tokens, 0));
}

void fillFileTokenStream()
{
    if (TokenStream != nullptr)
        fillBufferExt(TokenStream);
}

int appGrammerTypeToEditorType(const char* value, int vSize, int* tok_type)
{
    *tok_type = tokenTypeOf(value, static_cast<size_t>(std::max(vSize, 0)));
    return editorOfType(static_cast<ANTLR3_UINT32>(*tok_type));
}

int appGrammerTypeToEditorTypeOrig(pANTLR3_BASE_TREE item)
{
    return item == nullptr ? static_cast<int>(TEXT_BLOCK) : editorOfType(item->getType(item));
}

bool appGrammerRequired(const char* value, size_t vSize)
{
    constexpr size_t EMPTY_LENGTH = 10;
    if (value == nullptr)
        return false;
    if (vSize == 0)
        return isRequiredKeyword(tokenTypeOf(value, strnlen(value, EMPTY_LENGTH)));
    return isRequiredKeyword(tokenTypeOf(value, vSize));
}

int appGrammerMinType()
{
    return TOKEN_KYWD_DEFAULT;
}

int appGrammerMaxType()
{
    return TOKEN_TYPE_COUNT - 1;
}

// ---- Error recovery ----------------------------------------------------------------------------

void AntlrErrorHandler(pANTLR3_BASE_RECOGNIZER recognizer)
{
    recognizer->state->error = ANTLR3_FALSE;
}

// The runtime keeps an exception for each dropped character until the lexer is freed, which could
// use up the memory for a large file. So all but the last one are freed.
void LAntlrErrorHandler(pANTLR3_BASE_RECOGNIZER recognizer)
{
    const pANTLR3_EXCEPTION last = recognizer->state->exception;
    if (last == nullptr || last->nextException == nullptr)
        return;
    last->nextException->freeEx(last->nextException);
    last->nextException = nullptr;
}

void skipWordCharacters(pANTLR3_INPUT_STREAM input)
{
    const auto* const begin = static_cast<const ANTLR3_UINT8*>(input->nextChar);
    const auto* const end = static_cast<const ANTLR3_UINT8*>(input->data) + input->sizeBuf;
    const auto* const next =
        std::find_if_not(begin, end, [](ANTLR3_UINT8 c) { return IS_WORD_CHARACTER[c]; });
    input->nextChar = const_cast<ANTLR3_UINT8*>(next);
    input->charPositionInLine += static_cast<ANTLR3_INT32>(next - begin);
}

void* AntlrErrorNode(pANTLR3_BASE_TREE_ADAPTOR adaptor, pANTLR3_TOKEN_STREAM /*ctnstream*/,
                     pANTLR3_COMMON_TOKEN startToken, pANTLR3_COMMON_TOKEN /*endToken*/,
                     pANTLR3_EXCEPTION e)
{
    pANTLR3_COMMON_TOKEN token = startToken;
    if (e != nullptr && e->token != nullptr)
        token = static_cast<pANTLR3_COMMON_TOKEN>(e->token);
    // The token's string is owned by the input's string factory and outlives the tree. setText()
    // with the string, since a C string would end at a zero byte inside quotes.
    const pANTLR3_STRING text = token->getText(token);
    const auto node = static_cast<pANTLR3_BASE_TREE>(
        adaptor->createTypeText(adaptor, TOKEN_INVALID, text->chars));
    const pANTLR3_COMMON_TOKEN own = node->getToken(node);
    own->setText(own, text);
    own->setStartIndex(own, token->getStartIndex(token));
    own->setStopIndex(own, token->getStopIndex(token));
    return node;
}

void syncToSet(void)
{
    const pANTLR3_BASE_RECOGNIZER recognizer = Parser->pParser->rec;
    if (recognizer->state->following == nullptr)
        return;
    const RuntimePtr<pANTLR3_BITSET> follow(recognizer->computeCSRuleFollow(recognizer));
    syncToSetV(follow.get());
}

void syncToSetV(pANTLR3_BITSET follow)
{
    const pANTLR3_INT_STREAM tokens = TokenStream->tstream->istream;
    const ANTLR3_MARKER mark = tokens->mark(tokens);
    for (ANTLR3_UINT32 type = tokens->_LA(tokens, 1); !follow->isMember(follow, type);
         type = tokens->_LA(tokens, 1)) {
        if (type == ANTLR3_TOKEN_EOF) {
            tokens->rewind(tokens, mark);
            break;
        }
        tokens->consume(tokens);
    }
    tokens->release(tokens, mark);
}

bool mismatchIsUnwantedTokenNew(pANTLR3_BASE_RECOGNIZER recognizer)
{
    recognizer->state->error = ANTLR3_FALSE;
    return true;
}

char* keepTokenText(std::unique_ptr<char[]> text)
{
    editedTokenTexts.push_back(std::move(text));
    return editedTokenTexts.back().get();
}
