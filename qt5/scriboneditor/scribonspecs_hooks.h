/* The functions that the generated lexer and parser call, which are C. */
#pragma once

#include <antlr3.h>

#ifdef __cplusplus
extern "C" {
#endif

/* The parser's reportError: reports nothing, but clears the error flag, so that the calling rule
   goes on as if its subrule had matched. */
void AntlrErrorHandler(pANTLR3_BASE_RECOGNIZER recognizer);

/* The lexer's reportError: reports nothing. Characters that match no token are dropped. */
void LAntlrErrorHandler(pANTLR3_BASE_RECOGNIZER recognizer);

/* The tree adaptor's errorNode: the node for a failed rule, of type 0 and with the text of the
   exception's token, or of the start token if there is no exception. Owned by the tree. */
void* AntlrErrorNode(pANTLR3_BASE_TREE_ADAPTOR adaptor, pANTLR3_TOKEN_STREAM ctnstream,
                     pANTLR3_COMMON_TOKEN startToken, pANTLR3_COMMON_TOKEN endToken,
                     pANTLR3_EXCEPTION e);

/* Consumes the characters at the current position that continue a TEXT_BLK. */
void skipWordCharacters(pANTLR3_INPUT_STREAM input);

/* Skips the tokens that cannot follow at the parser's current position. */
void syncToSet(void);

#ifdef __cplusplus
}
#endif
