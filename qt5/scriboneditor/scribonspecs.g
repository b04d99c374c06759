// The language of Scribon spec files.
//
// The parser reports no errors: what it does not accept becomes a node of type 0 with the text of
// the token, or is dropped, and the editor shows what is left. The lexer has no context; what is
// legal where depends on the globals ctab, ecm_init and und_mask (scribonspecs_state.h), which the
// predicates read. Use plain predicates, {...}?, and not gated ones, {...}?=>, unless a comment
// says so: the generator hoists plain ones into the decisions of the calling rules, and the error
// recovery depends on that.
grammar scribonspecs;

options {
    language = C;
    output = AST;
    ASTLabelType = pANTLR3_BASE_TREE;
    tokenVocab = scribonspecs_types;
}

@lexer::header {
#include "scribonspecs_hooks.h"
}

@lexer::apifuncs {
    RECOGNIZER->reportError = LAntlrErrorHandler;
}

@parser::header {
#include "scribonspecs_hooks.h"
#include "scribonspecs_state.h"
}

@parser::apifuncs {
    RECOGNIZER->reportError = AntlrErrorHandler;
    ADAPTOR->errorNode = AntlrErrorNode;
    PSRSTATE->tokenNames = scribonspecsParserTokenNames;
}

@parser::members {
// One bit for each kind of value token: und_mask has those that the current statement accepts.
#define FULLm 0xFF
#define COMMENTm 0x80
#define TEXT_BLKm 0x40
#define TIME_INTERVALm 0x20
#define DIGITSm 0x10
#define RESPNSm 0x08
#define DESCRIPm 0x04
#define LOG_DIGITAL_DESCm 0x02
#define STAT_MEMm 0x01

// A comment that begins behind this column goes to the second cell of a list row.
#define LAST_LINE_COMMENT_COLUMN 31
#define COMMENT_COLUMN() (LT(1)->getCharPositionInLine(LT(1)))

ANTLR3_INT32 ctab = 1;
ANTLR3_INT32 ecm_init = 0;
ANTLR3_UINT32 und_mask = 0;
ANTLR3_INT32 num = 0;
ANTLR3_INT32 ecml_rules = 0;
ANTLR3_INT32 metaDataList = 0;
}

// ---- The file -----------------------------------------------------------------------------------

expr
@init { ecml_rules = 0; ecm_init = 0; }
    :   ( string_r
        | scans_r
        | meta_hdr_filename_r
        | output_path_r
        | label_r
        | scan_list_r
        | scan_list_aux_user_r
        | ecm_list_r
        | meta_data_r
        | yesno_r
        | event_r
        | interval_r
        | running_ave_r
        | ombra_ss_r
        | description_r
        | comment_line_r
        | undefined_r syncClass
        | undefined_txt_r syncClass
        | {ecm_init==0}? EOL
        )* EOF
    ;

// Skips what cannot start a statement.
syncClass
@init { syncToSet(); }
    :
    ;

// ---- Tails, comments and unknown text -----------------------------------------------------------

// The value of a statement that has one word, in the keyword's line or a later one.
eol_r
    :   ({ecm_init!=0}? EOL)*
        ( TEXT_BLK -> ^(EOL TEXT_BLK)
        | {LA(2)!= COMMENT && LA(2)!=TEXT_BLK && LA(2)!=EOL }? undefined_txt ->
        | -> ^(EOL FILLER_TXT)
        )
    ;

comment_line_r
@init { ctab = 1; }
    :   {ctab==1 && ecm_init!=KYWD_META_DATA}? COMMENT ({ecm_init!=0}? EOL)*
        -> ^(COMMENT_DECL EDITOR_TAB1 COMMENT FILLER_TXT FILLER_TXT EOL*)
    ;

comment_line_r0
    :   {(ecm_init!=0)&&(ctab==1)}? COMMENT EOL
        -> ^(COMMENT FILLER_TXT FILLER_TXT EOL)
    ;

undefined_r
@init { ctab = 1; }
    :   undefined -> ^(UNKNOWN_DECL EDITOR_TAB1 VERR_NODE["UNKNOWN_KEYWORD"])
    ;

undefined
@init { ctab = 1; ecm_init = KYWD_DEFAULT; und_mask = 0; }
    :   KYWD_DEFAULT EOL* {LA(1)!=EOL}? undefined_txt eol_r
    ;
    finally { ecm_init = 0; }

// Both alternatives match the same: because of the ambiguity the generator tests the first
// predicate of undefined_txt here, so that a word behind a list fails before it is consumed.
undefined_txt_r
@init { und_mask = 0; }
    :   {ecm_init==0}?
        ( { ctab>0}? undefined_txt
            -> ^(UNKNOWN_TXT_DECL EDITOR_TAB1 FILLER_TXT undefined_txt FILLER_TXT)
        | undefined_txt -> ^(UNKNOWN_TXT_DECL undefined_txt)
        )
    ;

// One value token of a kind that the current statement does not accept.
undefined_txt
    :   {ctab==1 || ecm_init >0}?
        ( {(und_mask ^ FULLm) & STAT_MEMm}? STAT_MEM
        | {(und_mask ^ FULLm) & LOG_DIGITAL_DESCm  }? LOG_DIGITAL_DESC
        | {(und_mask ^ FULLm) & DESCRIPm }? DESCRIP
        | {(und_mask ^ FULLm) & RESPNSm}? RESPNS
        | {(und_mask ^ FULLm) & DIGITSm}? DIGITS
        | {(und_mask ^ FULLm) & TIME_INTERVALm}? TIME_INTERVAL
        | {(und_mask ^ FULLm) & TEXT_BLKm }? TEXT_BLK
        )
    ;

// ---- Keyword statements -------------------------------------------------------------------------

string_r
@init { ctab = 1; ecm_init = KYWD_SCRIBON; }
    :   string -> ^(STRING_DECL EDITOR_TAB1 string FILLER_TXT)
    ;

string
@init { ctab = 1; ecm_init = KYWD_SCRIBON; und_mask = TEXT_BLKm; num = 0; }
    :   ( a=KYWD_SCRIBON | a=KYWD_TEST_ID | a=KYWD_TEST_TYPE | a=KYWD_MODE | a=KYWD_GROUP
        | a=KYWD_PROGRAM | a=KYWD_REG_NAME )
        EOL* string_sub
        -> ^($a EOL string_sub)
    ;
    finally { ecm_init = 0; }

string_sub
@init { num = 0; }
    :   {ctab==1 && ecm_init==KYWD_SCRIBON}?
        ( (TEXT_BLK)=> TEXT_BLK { ++num; } -> {num != 0}? ^(TEXT_BLK FILLER_TXT) ->
        | (DESCRIP)=> DESCRIP { ++num; } -> {num != 0}? ^(DESCRIP FILLER_TXT) ->
        | -> ^(FILLER_TXT FILLER_TXT)
        )
    ;

scans_r
@init { ctab = 1; ecm_init = KYWD_FIFO_PTRG_SCANS; }
    :   scans -> ^(SCANS_DECL EDITOR_TAB1 scans FILLER_TXT)
    ;

scans
@init { ctab = 1; ecm_init = KYWD_FIFO_PTRG_SCANS; und_mask = DIGITSm; }
    :   ( a=KYWD_FIFO_PTRG_SCANS | a=KYWD_MAX_SCANS | a=KYWD_MAX_STAT_SCANS )
        EOL* scan_subs
        -> ^($a EOL scan_subs)
    ;
    finally { ecm_init = 0; }

// The gated empty alternative is for a missing value: the next token belongs to the next statement.
// The end of input and tokens that cannot start a statement match no alternative and give an error
// node.
scan_subs
    :   {ecm_init== KYWD_FIFO_PTRG_SCANS}?
        ( COMMENT
        | DESCRIP
        | DIGITS
        | TEXT_BLK
        | {LA(1)!=COMMENT && LA(1)!=DESCRIP && LA(1)!=DIGITS && LA(1)!=TEXT_BLK
            && LA(1)!=ANTLR3_TOKEN_EOF}?=>
        )
    ;

meta_hdr_filename_r
@init { ctab = 1; }
    :   meta_hdr_filename -> ^(META_FILENAME_DECL EDITOR_TAB1 meta_hdr_filename)
    ;

// Does not set und_mask, which is still that of the statement before. Existing behaviour, kept for
// compatibility.
meta_hdr_filename
@init { ecm_init = KYWD_META_HDR_FILENAME; }
@after { ecm_init = 0; }
    :   KYWD_META_HDR_FILENAME eol_r
    ;

output_path_r
@init { ctab = 1; }
    :   output_path -> ^(OUTPUT_PATH_DECL EDITOR_TAB1 output_path FILLER_TXT)
    ;

output_path
@init { ecm_init = KYWD_OUTPUT_PATH; und_mask = 1; }
@after { ecm_init = 0; }
    :   KYWD_OUTPUT_PATH eol_r
    ;

label_r
@init { ctab = 1; }
    :   label -> ^(LABEL_DECL EDITOR_TAB1 label FILLER_TXT)
    ;

label
@init { ecm_init = KYWD_ENABLE; und_mask = TEXT_BLKm; }
@after { ecm_init = 0; }
    :   ( KYWD_ENABLE | KYWD_LOG_ACT_LABEL ) eol_r
    ;

yesno_r
@init { ctab = 1; }
    :   yesno -> ^(YESNO_DECL EDITOR_TAB1 yesno FILLER_TXT)
    ;

// The only kind of statement that consumes the line ends behind it.
yesno
@init { ctab = 1; ecm_init = KYWD_FIFO_LOG_BUF; und_mask = RESPNSm; }
    :   ( a=KYWD_FIFO_LOG_BUF | a=KYWD_FOR_DFILE_WRITE | a=KYWD_LOG_DIG_DESC | a=KYWD_LOG_STATS
        | a=KYWD_SEND_ON_PATH_CHANGE )
        ({ecm_init!=0}? EOL)?
        ( RESPNS -> ^($a RESPNS)
        | { LA(1)!= RESPNS && (LA(1) != EOL) }? undefined_txt -> ^($a undefined_txt)
        | -> ^($a FILLER_TXT)
        )
        ({ecm_init!=0}? EOL)*
    ;
    finally { ecm_init = 0; }

event_r
@init { ctab = 1; }
    :   event -> ^(EVENT_DECL EDITOR_TAB1 event FILLER_TXT)
    ;

event
@init { ctab = 1; ecm_init = KYWD_START_EVT; und_mask = TEXT_BLKm; }
@after { ecm_init = 0; }
    :   ( KYWD_CLR_STAT_EVT | KYWD_DONE_EVT | KYWD_FTP_EVT | KYWD_GET_NSCAN_INTV
        | KYWD_READ_SFILE_EVT | KYWD_RELEASE_EVT | KYWD_START_EVT | KYWD_STOP_EVT | KYWD_SYNC_EVT )
        eol_r
    ;

interval_r
@init { ctab = 1; }
    :   interval -> ^(INTERVAL_DECL EDITOR_TAB1 interval FILLER_TXT)
    ;

interval
@init { ctab = 1; ecm_init = KYWD_FIFO_PTRG_INTV; und_mask = TIME_INTERVALm; }
    :   ( KYWD_FIFO_PTRG_INTV | KYWD_SCAN_INTV ) EOL* interval_sub
    ;
    finally { ecm_init = 0; }

interval_sub
    :   {ecm_init == KYWD_FIFO_PTRG_INTV}?
        ( ( TIME_INTERVAL | {LA(1)!=TIME_INTERVAL}? undefined_txt )?
        | comment_line_r0
        )
    ;

running_ave_r
@init { ctab = 1; ecm_init = KYWD_RUNNING_AVE; }
@after { ecm_init = 0; und_mask = 0; }
    :   running_ave -> ^(RA_DECL EDITOR_TAB1 running_ave)
    ;

running_ave
@init { ctab = 1; ecm_init = KYWD_RUNNING_AVE; und_mask = TEXT_BLKm | TIME_INTERVALm; }
    :   { ctab==1}? KYWD_RUNNING_AVE EOL* running_ave_sub
        -> ^(KYWD_RUNNING_AVE EOL running_ave_sub)
    ;

// The gated predicate of the third alternative is hoisted into the second, too, so that neither can
// match: an interval alone or a word alone gives an error node. Existing behaviour, kept for
// compatibility.
running_ave_sub
    :   {ecm_init==KYWD_RUNNING_AVE}? (TIME_INTERVAL EOL* TEXT_BLK)=> TIME_INTERVAL EOL* TEXT_BLK
        -> ^(TIME_INTERVAL EOL TEXT_BLK)
    |   (TEXT_BLK EOL* TEXT_BLK)=> TEXT_BLK EOL* TEXT_BLK
        -> ^(FILLER_TXT EOL TEXT_BLK)
    |   { LA(1)==COMMENT && LA(1)!=TEXT_BLK}?=> undefined_txt
        -> ^(undefined_txt EOL["EOL"] FILLER_TXT)
    |   comment_line_r0
    ;

ombra_ss_r
@init { ctab = 1; }
    :   ombra_ss -> ^(OMBRA_SS_DECL EDITOR_TAB1 ombra_ss FILLER_TXT FILLER_TXT)
    ;

ombra_ss
@init { ctab = 1; ecm_init = KYWD_OMBRA_STEADY_STATE; und_mask = 0; }
@after { ecm_init = 0; }
    :   KYWD_OMBRA_STEADY_STATE
    ;

description_r
@init { ctab = 1; }
    :   description -> ^(DESCRIP_DECL EDITOR_TAB1 description FILLER_TXT)
    ;

description
@init { ctab = 1; ecm_init = KYWD_DESCRIPTION; und_mask = DESCRIPm; }
    :   ( KYWD_DESCRIPTION | KYWD_FILENAME ) EOL* ( DESCRIP | undefined_txt )
    ;
    finally { ecm_init = 0; }

// ---- List sections ------------------------------------------------------------------------------

// A row is a sequence of tokens, not a line: there may be two in one line. k = 1 makes the
// generator try the syntactic predicates of the row alternatives in their order.

scan_list_r
@init { ctab = 2; }
    :   scan_list -> ^(SCAN_LIST_DECL EDITOR_TAB2 scan_list)
    ;

scan_list
@init { ctab = 2; ecm_init = KYWD_SCAN_LIST; und_mask = 0; }
    :   KYWD_SCAN_LIST ({ecm_init!=0}? EOL)* scan_list_sub*
        -> ^(KYWD_SCAN_LIST EOL FILLER_TXT FILLER_TXT FILLER_TXT scan_list_sub*)
    ;
    finally { ecm_init = 0; }

scan_list_sub
@init { num = 0; ctab = 2; und_mask = TEXT_BLKm; }
    :   {ctab==2 && ecm_init==KYWD_SCAN_LIST}?
        ( options { k = 1; }
        : (TEXT_BLK (STAT_MEM | LOG_DIGITAL_DESC) TEXT_BLK)=>
            a=TEXT_BLK (b=STAT_MEM | b=LOG_DIGITAL_DESC) c=TEXT_BLK -> ^($a $b $c)
        | (TEXT_BLK TEXT_BLK)=> a=TEXT_BLK b=TEXT_BLK -> ^($a FILLER_TXT $b)
        | TEXT_BLK -> ^(TEXT_BLK FILLER_TXT FILLER_TXT)
        | {COMMENT_COLUMN() > LAST_LINE_COMMENT_COLUMN}? COMMENT
            -> ^(FILLER_TXT COMMENT FILLER_TXT)
        | {COMMENT_COLUMN() <= LAST_LINE_COMMENT_COLUMN}? COMMENT
            -> ^(COMMENT FILLER_TXT FILLER_TXT)
        )
        ({ecm_init!=0}? EOL)*
    ;

meta_data_r
@init { ctab = 3; }
@after { metaDataList = 1; }
    :   meta_data_list -> ^(META_DATA_LIST_DECL EDITOR_TAB3 meta_data_list)
    ;

// Does not reset ecm_init: a line end behind an unexpected word in this section makes the whole
// load fail. Existing behaviour, kept for compatibility.
meta_data_list
@init { ctab = 3; ecm_init = KYWD_META_DATA; und_mask = TEXT_BLKm | STAT_MEMm | DESCRIPm; }
    :   KYWD_META_DATA EOL* meta_data_list_sub*
        -> ^(KYWD_META_DATA EOL FILLER_TXT FILLER_TXT meta_data_list_sub*)
    ;

meta_data_list_sub
@init { ctab = 3; }
    :   { ctab==3 &&  ecm_init==KYWD_META_DATA}?
        ( options { k = 1; }
        : (TEXT_BLK (TEXT_BLK | STAT_MEM | DESCRIP))=>
            a=TEXT_BLK (b=TEXT_BLK | b=STAT_MEM | b=DESCRIP) -> ^($a $b)
        | TEXT_BLK -> ^(TEXT_BLK)
        | {COMMENT_COLUMN() > LAST_LINE_COMMENT_COLUMN}? COMMENT -> ^(FILLER_TXT COMMENT)
        | {COMMENT_COLUMN() <= LAST_LINE_COMMENT_COLUMN}? COMMENT -> ^(COMMENT FILLER_TXT)
        )
        ({ecm_init!=0}? EOL)*
    ;

scan_list_aux_user_r
@init { ctab = 4; }
    :   scan_list_aux_user -> ^(SCAN_LIST_AUX_USER_DECL EDITOR_TAB4 scan_list_aux_user)
    ;

// Does not reset ecm_init, like meta_data_list.
scan_list_aux_user
@init { ctab = 4; ecm_init = KYWD_SCAN_LIST_AUX_USER; und_mask = TEXT_BLKm; }
    :   {ctab==4}? KYWD_SCAN_LIST_AUX_USER EOL* slist_aux_user_sub*
        -> ^(KYWD_SCAN_LIST_AUX_USER EOL FILLER_TXT FILLER_TXT slist_aux_user_sub*)
    ;

// A word with a comment behind it gives a row with the word and one with the comment: the fifth and
// sixth alternatives match before the seventh and eighth. Existing behaviour, kept for
// compatibility.
slist_aux_user_sub
@init { num = 0; ctab = 4; ecm_init = KYWD_SCAN_LIST_AUX_USER; }
    :   { ctab==4 && ecm_init==KYWD_SCAN_LIST_AUX_USER }?
        ( options { k = 1; }
        : (TEXT_BLK TEXT_BLK EOL*)=> a=TEXT_BLK b=TEXT_BLK ({ecm_init!=0}? EOL)* -> ^($a $b EOL*)
        | (TEXT_BLK DESCRIP EOL*)=> a=TEXT_BLK b=DESCRIP ({ecm_init!=0}? EOL)* -> ^($a $b EOL*)
        | (DESCRIP TEXT_BLK EOL*)=> a=DESCRIP b=TEXT_BLK ({ecm_init!=0}? EOL)* -> ^($a $b EOL*)
        | (DESCRIP DESCRIP EOL*)=> a=DESCRIP b=DESCRIP ({ecm_init!=0}? EOL)* -> ^($a $b EOL*)
        | (TEXT_BLK EOL*)=> a=TEXT_BLK ({ecm_init!=0}? EOL)* -> ^($a FILLER_TXT EOL*)
        | (DESCRIP EOL*)=> a=DESCRIP ({ecm_init!=0}? EOL)* -> ^($a FILLER_TXT EOL*)
        | (TEXT_BLK COMMENT EOL*)=> a=TEXT_BLK b=COMMENT EOL
            -> ^($a FILLER_TXT $b FILLER_TXT EOL*)
        | (DESCRIP COMMENT EOL*)=> a=DESCRIP b=COMMENT EOL -> ^($a FILLER_TXT $b FILLER_TXT EOL*)
        | COMMENT ({ecm_init!=0}? EOL)* -> ^(COMMENT FILLER_TXT EOL) EOL*
        )
    ;

ecm_list_r
@init { ctab = 5; }
    :   ecm_list -> ^(ECM_LIST_DECL EDITOR_TAB5 ecm_list)
    ;

ecm_list
@init { ctab = 5; ecm_init = KYWD_ECM_LIST; und_mask = DIGITSm | TEXT_BLKm; }
    :   KYWD_ECM_LIST EOL* ecm_list_sub*
        -> ^(KYWD_ECM_LIST EOL* FILLER_TXT FILLER_TXT ecm_list_sub*)
    ;
    finally { ecm_init = 0; }

ecm_list_sub
    :   {ctab==5 && ecm_init==KYWD_ECM_LIST}?
        ( options { k = 1; }
        : (DIGITS TEXT_BLK)=> DIGITS TEXT_BLK -> ^(DIGITS TEXT_BLK)
        | (TEXT_BLK TEXT_BLK)=> a=TEXT_BLK b=TEXT_BLK -> ^($a $b)
        | (TEXT_BLK DIGITS)=> TEXT_BLK DIGITS -> ^(TEXT_BLK DIGITS)
        | (TEXT_BLK)=> TEXT_BLK -> ^(FILLER_TXT TEXT_BLK)
        | (DIGITS)=> DIGITS -> ^(DIGITS FILLER_TXT)
        | {COMMENT_COLUMN() > LAST_LINE_COMMENT_COLUMN}? COMMENT -> ^(FILLER_TXT COMMENT)
        | {COMMENT_COLUMN() <= LAST_LINE_COMMENT_COLUMN}? COMMENT -> ^(COMMENT FILLER_TXT)
        )
        ({ecm_init!=0}? EOL)*
    ;

// ---- Tokens -------------------------------------------------------------------------------------

// The longest match wins, and of equally long ones the first rule: the order of the rules matters.

TIME_INTERVAL
    :   ('0'..'9')* '.' ('0'..'9')* '['
        ( 'SEC' | 'sec' | 'min' | 'MIN' | 'HR' | 'hr' | 'MSEC' | 'msec' ) ']'
    |   ('0'..'9')* '['
        ( 'SEC' | 'sec' | 'min' | 'MIN' | 'HR' | 'hr' | 'MSEC' | 'msec' ) ']'
    ;

KYWD_FIFO_PTRG_SCANS     : '@FIFO_POST_TRIGGER_SCANS' ;
KYWD_MAX_SCANS           : '@MAX_SCANS' ;
KYWD_MAX_STAT_SCANS      : '@MAX_STATISTICAL_SCANS' ;
KYWD_FIFO_PTRG_INTV      : '@FIFO_POST_TRIGGER_INTERVAL' ;
KYWD_RUNNING_AVE         : '@RUNNING_AVERAGE' ;
KYWD_SCAN_INTV           : '@SCAN_INTERVAL' ;
KYWD_SCRIBON             : '@SCRIBON' ;
KYWD_TEST_ID             : '@TEST_ID' ;
KYWD_TEST_TYPE           : '@TEST_TYPE' ;
KYWD_MODE                : '@MODE' ;
KYWD_GROUP               : '@GROUP' ;
KYWD_PROGRAM             : '@PROGRAM' ;
KYWD_REG_NAME            : '@REG_NAME' ;
KYWD_FOR_DFILE_WRITE     : '@FORCE_DIRECT_FILE_WRITE' ;
KYWD_FIFO_LOG_BUF        : '@FIFO_LOG_BUFFER' ;
KYWD_LOG_DIG_DESC        : '@LOG_DIGITAL_DESCRIPTION' ;
KYWD_LOG_STATS           : '@LOG_STATISTICS' ;
KYWD_ENABLE              : '@ENABLE' ;
KYWD_LOG_ACT_LABEL       : '@LOGGING_ACTIVE_LABEL' ;
KYWD_DESCRIPTION         : '@DESCRIPTION' ;
KYWD_SCAN_LIST           : '@SCAN_LIST' ;
KYWD_OUTPUT_PATH         : '@OUTPUT_PATH' ;
KYWD_META_HDR_FILENAME   : '@META_HEADER_FILENAME' ;
KYWD_CLR_STAT_EVT        : '@CLEAR_STATISTICS_EVENT' ;
KYWD_READ_SFILE_EVT      : '@READ_SPEC_FILE_EVENT' ;
KYWD_START_EVT           : '@START_EVENT' ;
KYWD_SYNC_EVT            : '@SYNC_EVENT' ;
KYWD_STOP_EVT            : '@STOP_EVENT' ;
KYWD_DONE_EVT            : '@DONE_EVENT' ;
KYWD_FTP_EVT             : '@FTP_EVENT' ;
KYWD_RELEASE_EVT         : '@RELEASE_EVENT' ;
KYWD_GET_NSCAN_INTV      : '@GET_NEW_SCAN_INTERVAL' ;
KYWD_META_DATA           : '@META_DATA' ;
KYWD_ECM_LIST            : '@ECM_LIST' ;
KYWD_SCAN_LIST_AUX_USER  : '@SCAN_LIST_AUX_USER' ;
KYWD_OMBRA_STEADY_STATE  : '@OMBRA_STEADY_STATE' ;
KYWD_SEND_ON_PATH_CHANGE : '@SEND_ON_PATH_CHANGE' ;
KYWD_FILENAME            : '@FILENAME' ;

KYWD_DEFAULT : '@' TEXT_BLK ;

STAT_MEM
    :   '.'
        ( 'AV' | 'MN' | 'MX' | 'RN' | 'SD' | 'C0' | 'IV' | 'FV' | 'DL' | 'E0' | 'CI' | 'I0' | 'I5'
        | 'I9' | 'ME' | 'MD' | 'RM' | 'ST' | 'EN' | 'TN' | 'TX' | 'C1' | 'IN' | 'IT' | 'RS' | 'CV'
        | 'E1' | 'RA' | 'NM' | 'SE' | 'RC' | 'QF' | 'NR' )
    ;

LOG_DIGITAL_DESC : 'LOG_DIGITAL_DESCP' ;

RESPNS
    :   ('N' | 'n') ('O' | 'o')
    |   ('Y' | 'y') ('E' | 'e') ('S' | 's')
    ;

DIGITS : ('0'..'9')+ ;

// The generated code takes some 300 instructions for each character of a word. So the loop takes one
// character, and the action all those that follow.
TEXT_BLK
    :   ( '$' | '%' | '(' | ')' | '-' | '.' | '/' | '0'..'9' | ':' | '<' | '>' | 'A'..'Z' | 'a'..'z'
        | '[' | ']' | '_' )
        ( ( '$' | '%' | '(' | ')' | '-' | '.' | '/' | '0'..'9' | ':' | '<' | '>' | 'A'..'Z'
          | 'a'..'z' | '[' | ']' | '_' | '@' ) { skipWordCharacters(INPUT); } )*
    ;

DESCRIP
    :   QUOTE (~'"')* QUOTE
    |   APOST (~'\'')* APOST
    ;

// TEXT_BLK matches most numbers first; this rule only matches exponents with a plus sign.
FLOAT
    :   ('0'..'9')+ '.' ('0'..'9')* EXPONENT?
    |   '.' ('0'..'9')+ EXPONENT?
    |   ('0'..'9')+ EXPONENT
    ;

EOL_CR : '\r' { $channel = HIDDEN; } ;

COMMENT : '#' (~'\n')* ;

EOL : '\n'+ ;

WS : (' ' | '\t' | '\f')+ { $channel = 6; } ;

fragment CHARS    : ('A'..'Z' | 'a'..'z')+ ;
fragment INT      : '0'..'9' ;
fragment EXPONENT : ('e' | 'E') ('+' | '-')? ('0'..'9')+ ;
fragment QUOTE    : '"' ;
fragment APOST    : '\'' ;
