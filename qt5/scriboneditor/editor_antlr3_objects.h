// The objects of the one current parse, shared by the files of the language layer and nobody else.
#pragma once

#include <memory>

#include "scribonspecsLexer.h"
#include "scribonspecsParser.h"

extern pscribonspecsParser Parser;
extern pANTLR3_COMMON_TOKEN_STREAM TokenStream;

// Releases a runtime object through its own member: close for input streams, free for the rest.
struct RuntimeDeleter {
    void operator()(pANTLR3_INPUT_STREAM input) const { input->close(input); }
    template <typename Object>
    void operator()(Object* object) const
    {
        object->free(object);
    }
};
template <typename Pointer>
using RuntimePtr = std::unique_ptr<std::remove_pointer_t<Pointer>, RuntimeDeleter>;

// A text of its own, lexed once. Reads `size` bytes and the two zero bytes that must stand behind
// them; the buffer has to outlive the object.
class TextLexer {
public:
    TextLexer(char* zeroTerminated, size_t size);

    // The first token, off-channel ones included; null for a text without one. Lives as long as
    // this object.
    pANTLR3_COMMON_TOKEN firstToken();

private:
    // In this order, so that they die in reverse.
    RuntimePtr<pANTLR3_INPUT_STREAM> m_input;
    RuntimePtr<pscribonspecsLexer> m_lexer;
    RuntimePtr<pANTLR3_COMMON_TOKEN_STREAM> m_tokens;
};

// Lets the file's token stream, if there is one, read on to the end of its file.
void fillFileTokenStream();

// Completes a tree with the sections that a file may leave out; each looks at one section.
void add_meta_data_section();
void add_ecm_list();
void add_scan_list_aux_user();

// Keeps the text of an edited token alive as long as the tree and returns it.
char* keepTokenText(std::unique_ptr<char[]> text);
