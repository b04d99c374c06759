/* The state of the parse, read by the grammar's predicates: plain globals, since there is one parse
   at a time. */
#pragma once

#include <antlr3.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Tab of the statement in progress, 1 to 5. Not reset between statements, lists or files. */
extern ANTLR3_INT32 ctab;

/* Keyword token that stands for the family of the statement in progress; 0 between statements. */
extern ANTLR3_INT32 ecm_init;

/* Classes of value tokens that the statement in progress expects. */
extern ANTLR3_UINT32 und_mask;

/* Values seen in a string statement. */
extern ANTLR3_INT32 num;

/* Written by the grammar for whoever looks in from outside; it reads neither. */
extern ANTLR3_INT32 ecml_rules;
extern ANTLR3_INT32 metaDataList;

#ifdef __cplusplus
}
#endif
