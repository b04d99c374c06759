/* What the generated recognizers call of the layer around them. C, because they are. */
#pragma once

#include <antlr3.h>

#ifdef __cplusplus
extern "C" {
#endif

/* The parser's error report: clears the error flag, so that the calling rule goes on as if its
   subrule had succeeded. Says nothing to anyone. */
void AntlrErrorHandler(pANTLR3_BASE_RECOGNIZER recognizer);

/* The lexer's error report: reports nothing; what cannot be a token is dropped. */
void LAntlrErrorHandler(pANTLR3_BASE_RECOGNIZER recognizer);

/* The node that stands in a failed rule's place: type 0, with the text of the exception's token or,
   without an exception, of the start token. */
void* AntlrErrorNode(pANTLR3_BASE_TREE_ADAPTOR adaptor, pANTLR3_TOKEN_STREAM ctnstream,
                     pANTLR3_COMMON_TOKEN startToken, pANTLR3_COMMON_TOKEN endToken,
                     pANTLR3_EXCEPTION e);

/* Skips the tokens that nothing can start with at the parser's present place. */
void syncToSet(void);

#ifdef __cplusplus
}
#endif
