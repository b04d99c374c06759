#include "lexed_tokens.h"

#include <memory>

#include "scribonspecsLexer.h"
#include "tree_printer.h"

namespace {

struct Closer {
    void operator()(pANTLR3_INPUT_STREAM input) const { input->close(input); }
    template <typename Object>
    void operator()(Object* object) const
    {
        object->free(object);
    }
};
template <typename Object>
using Owned = std::unique_ptr<Object, Closer>;

LexedToken copyOf(pANTLR3_COMMON_TOKEN token)
{
    const pANTLR3_STRING text = token->getText(token);
    return {static_cast<int>(token->getType(token)), static_cast<int>(token->getChannel(token)),
            std::string(reinterpret_cast<const char*>(text->chars), text->len),
            static_cast<int>(token->getLine(token)),
            static_cast<int>(token->getCharPositionInLine(token))};
}

}  // namespace

std::vector<LexedToken> lexText(const std::string& text)
{
    constexpr ANTLR3_UINT32 TOKENS_HINT = 32;
    std::string bytes(text);
    std::string name("text");
    const Owned<ANTLR3_INPUT_STREAM> input(antlr3StringStreamNew(
        reinterpret_cast<pANTLR3_UINT8>(bytes.data()), ANTLR3_ENC_8BIT,
        static_cast<ANTLR3_UINT32>(bytes.size()), reinterpret_cast<pANTLR3_UINT8>(name.data())));
    const Owned<scribonspecsLexer> lexer(scribonspecsLexerNew(input.get()));
    const Owned<ANTLR3_COMMON_TOKEN_STREAM> stream(
        antlr3CommonTokenStreamSourceNew(TOKENS_HINT, lexer->pLexer->rec->state->tokSource));
    const pANTLR3_VECTOR tokens = stream->getTokens(stream.get());
    std::vector<LexedToken> result;
    for (ANTLR3_UINT32 i = 0; i < tokens->count; ++i)
        result.push_back(copyOf(static_cast<pANTLR3_COMMON_TOKEN>(tokens->get(tokens, i))));
    return result;
}

std::string printTokens(const std::vector<LexedToken>& tokens)
{
    std::string result;
    for (const LexedToken& token : tokens)
        result += (result.empty() ? "" : " ") + typeName(token.type) + "(" +
                  escapedText(token.text) + ")";
    return result;
}
