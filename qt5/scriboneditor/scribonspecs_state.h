/* The state of the parse, for the predicates of the grammar. Globals: there is only one parse at a
   time. */
#pragma once

#include <antlr3.h>

#ifdef __cplusplus
extern "C" {
#endif

/* The tab of the current statement, 1 to 5. Not reset between statements, lists or files. */
extern ANTLR3_INT32 ctab;

/* A keyword token that stands for the kind of the current statement; 0 between statements. */
extern ANTLR3_INT32 ecm_init;

/* Bit mask of the value tokens that the current statement accepts. */
extern ANTLR3_UINT32 und_mask;

/* The number of values in the current string statement. */
extern ANTLR3_INT32 num;

/* Set by the grammar and not read. Existing interface, kept for compatibility. */
extern ANTLR3_INT32 ecml_rules;
extern ANTLR3_INT32 metaDataList;

#ifdef __cplusplus
}
#endif
