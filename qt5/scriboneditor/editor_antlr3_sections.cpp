// The optional sections of a spec file. Each tab needs its section, so read_file() adds the missing
// ones to the tree, behind all statements and before the end of input.

#include <algorithm>
#include <array>

#include "editor_antlr3.h"
#include "editor_antlr3_objects.h"
#include "scribonspecs_tokens.h"

namespace {

struct SectionChild {
    ANTLR3_UINT32 type;
    const char* text;
};

// The sections differ on purpose: Meta Data gets no row, the others one row of blanks, and each has
// its own list of nodes that do not count as content. Existing behaviour, kept for compatibility.
struct OptionalSection {
    ANTLR3_UINT32 declaration;
    const char* declarationName;
    ANTLR3_UINT32 keyword;
    std::array<ANTLR3_UINT32, 3> tabsNotContent;
    const SectionChild* children;
    size_t childCount;
};

constexpr std::array<SectionChild, 7> META_DATA_CHILDREN{{
    {TOKEN_EDITOR_TAB3, "EDITOR_TAB3"},
    {TOKEN_EOL, "\n"},
    {TOKEN_KYWD_META_DATA, "@META_DATA"},
    {TOKEN_EOL, "\n"},
    {TOKEN_FILLER_TXT, "FILLER_TXT"},
    {TOKEN_FILLER_TXT, "FILLER_TXT"},
    {TOKEN_EOL, "\n"},
}};
constexpr std::array<SectionChild, 6> ECM_LIST_CHILDREN{{
    {TOKEN_EDITOR_TAB5, "EDITOR_TAB5"},
    {TOKEN_KYWD_ECM_LIST, "@ECM_LIST"},
    {TOKEN_EOL, "\n"},
    {TOKEN_DIGITS, " "},
    {TOKEN_TEXT_BLK, " "},
    {TOKEN_EOL, "\n"},
}};
constexpr std::array<SectionChild, 7> SCAN_LIST_AUX_USER_CHILDREN{{
    {TOKEN_EDITOR_TAB4, "EDITOR_TAB4"},
    {TOKEN_EOL, "\n"},
    {TOKEN_KYWD_SCAN_LIST_AUX_USER, "@SCAN_LIST_AUX_USER"},
    {TOKEN_EOL, "\n"},
    {TOKEN_TEXT_BLK, " "},
    {TOKEN_TEXT_BLK, " "},
    {TOKEN_EOL, "\n"},
}};

constexpr OptionalSection META_DATA_SECTION{
    TOKEN_META_DATA_LIST_DECL, "META_DATA_LIST_DECL",
    TOKEN_KYWD_META_DATA,      {TOKEN_EDITOR_TAB3, TOKEN_EDITOR_TAB4, TOKEN_EDITOR_TAB5},
    META_DATA_CHILDREN.data(), META_DATA_CHILDREN.size()};
constexpr OptionalSection ECM_LIST_SECTION{
    TOKEN_ECM_LIST_DECL,      "ECM_LIST_DECL",
    TOKEN_KYWD_ECM_LIST,      {TOKEN_EDITOR_TAB2, TOKEN_EDITOR_TAB3, TOKEN_EDITOR_TAB4},
    ECM_LIST_CHILDREN.data(), ECM_LIST_CHILDREN.size()};
constexpr OptionalSection SCAN_LIST_AUX_USER_SECTION{
    TOKEN_SCAN_LIST_AUX_USER_DECL,      "SCAN_LIST_AUX_USER_DECL",
    TOKEN_KYWD_SCAN_LIST_AUX_USER,      {TOKEN_EDITOR_TAB2, TOKEN_EDITOR_TAB3, TOKEN_EDITOR_TAB5},
    SCAN_LIST_AUX_USER_CHILDREN.data(), SCAN_LIST_AUX_USER_CHILDREN.size()};

// Appends the declaration's node to the root, in front of the end of input.
pANTLR3_BASE_TREE appendDeclaration(const OptionalSection& section, pANTLR3_BASE_TREE root)
{
    const pANTLR3_BASE_TREE endOfInput = childOfType(root, ANTLR3_TOKEN_EOF);
    const pANTLR3_BASE_TREE declaration =
        createNewChild(Parser->adaptor, section.declaration, section.declarationName, root);
    const ANTLR3_UINT32 count = root->getChildCount(root);
    if (endOfInput != nullptr) {
        if (count > 2)
            root->setChild(root, count - 2, declaration);
        if (count > 1)
            root->setChild(root, count - 1, endOfInput);
    }
    root->freshenPACIndexesAll(root);
    return declaration;
}

void makeUpSection(const OptionalSection& section, pANTLR3_BASE_TREE root)
{
    const pANTLR3_BASE_TREE declaration = appendDeclaration(section, root);
    for (size_t i = 0; i < section.childCount; ++i)
        createNewChild(Parser->adaptor, section.children[i].type, section.children[i].text,
                       declaration);
    declaration->freshenPACIndexesAll(declaration);
}

bool isContent(const OptionalSection& section, ANTLR3_UINT32 type)
{
    const auto& tabs = section.tabsNotContent;
    return type != TOKEN_INVALID && type != TOKEN_EOL && type != section.keyword &&
           std::find(tabs.begin(), tabs.end(), type) == tabs.end();
}

bool hasContent(const OptionalSection& section, pANTLR3_BASE_TREE declaration)
{
    for (ANTLR3_UINT32 i = 0; i < declaration->getChildCount(declaration); ++i) {
        const pANTLR3_BASE_TREE child = childAt(declaration, i);
        if (isContent(section, child->getType(child)))
            return true;
    }
    return false;
}

void ensureLineEnd(pANTLR3_BASE_TREE declaration)
{
    if (childOfType(declaration, TOKEN_EOL) == nullptr)
        createNewChild(Parser->adaptor, TOKEN_EOL, "\n", declaration);
    declaration->freshenPACIndexesAll(declaration);
}

// Adds the section if it is missing. If it is there, adds a line end if needsLineEnd(declaration,
// hasContent) is true.
template <typename NeedsLineEnd>
void completeSection(const OptionalSection& section, NeedsLineEnd needsLineEnd)
{
    const pANTLR3_BASE_TREE root = getTree();
    const pANTLR3_BASE_TREE declaration = childOfType(root, section.declaration);
    if (declaration == nullptr)
        makeUpSection(section, root);
    else if (needsLineEnd(declaration, hasContent(section, declaration)))
        ensureLineEnd(declaration);
}

bool whenEmpty(pANTLR3_BASE_TREE /*declaration*/, bool content)
{
    return !content;
}

// The tab node of a parsed ECM list counts as content, so an empty list is recognized by having
// only two children.
bool whenEmptyOrBare(pANTLR3_BASE_TREE declaration, bool content)
{
    return !content || declaration->getChildCount(declaration) == 2;
}

}  // namespace

void add_meta_data_section()
{
    completeSection(META_DATA_SECTION, whenEmpty);
}

void add_ecm_list()
{
    completeSection(ECM_LIST_SECTION, whenEmptyOrBare);
}

void add_scan_list_aux_user()
{
    completeSection(SCAN_LIST_AUX_USER_SECTION, whenEmpty);
}
