// The parser objects of the current file. To be included by the files of the language layer only.
#pragma once

#include <memory>

#include "scribonspecsLexer.h"
#include "scribonspecsParser.h"

extern pscribonspecsParser Parser;
extern pANTLR3_COMMON_TOKEN_STREAM TokenStream;

// Frees an object of the ANTLR runtime by its own function: close() for input streams, free() for
// the others.
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

// A lexer for the text of a cell. Reads `size` bytes and two zero bytes, which must follow them.
// The buffer is not copied: it must outlive the object.
class TextLexer {
public:
    TextLexer(char* zeroTerminated, size_t size);

    // The first token, also one of a hidden channel; null if there is none. Owned by this object.
    pANTLR3_COMMON_TOKEN firstToken();

private:
    // The order matters: each uses the one before it and is destroyed first.
    RuntimePtr<pANTLR3_INPUT_STREAM> m_input;
    RuntimePtr<pscribonspecsLexer> m_lexer;
    RuntimePtr<pANTLR3_COMMON_TOKEN_STREAM> m_tokens;
};

// Lets the token stream of the file, if there is one, read all remaining tokens.
void fillFileTokenStream();

// Each adds one optional section to the tree if it is missing, or a line end if it is empty.
void add_meta_data_section();
void add_ecm_list();
void add_scan_list_aux_user();

// Takes ownership of the text of a token and keeps it as long as the tree. Returns the pointer.
char* keepTokenText(std::unique_ptr<char[]> text);
