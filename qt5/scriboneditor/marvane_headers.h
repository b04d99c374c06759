/* The interface between the editor and the platform's host library: areas of shared memory, their
 * records, and functions. Plain C without Qt, so that the library may be written in C or C++.
 *
 * The editor only reads the areas. A text that fills its field has no terminating zero, so never
 * read beyond the field's width. Call the functions from one thread only.
 */
#pragma once

#include <assert.h>
#include <stddef.h>
#include <stdint.h>
#include <stdio.h>

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Areas ---------------------------------------------------------------------------------- */

typedef int16_t SM_AREA_ID;

enum {
    SYS_ATTR_MEM = 1,
    AI_REAL_MEM = 6,
    CI_INTG_MEM = 8,
    CONTROL_MEM = 9,
    ENGINE_CONST_MEM = 10,
    ENGINE_PERF_MEM = 11,
    LOGI_MEM = 19,
    FI_REAL_MEM = 22,
    CI_REAL_MEM = 24,
    DI_LOGI_MEM = 27,
    DO_LOGI_MEM = 28,
    DISPLAY_STRINGS_MEM = 31,
    FUEL_READING_MEM = 33,
    LIMIT_LOGI_MEM = 42,
    KEYWORD_MEM = 46,
    PROPERTIES_MEM = 53,
    GU_REAL_MEM = 54,
    GU_INTEGER_MEM = 55,
    GU_LOGICAL_MEM = 56,
    GU_STRING_MEM = 57,
    GU_STAT_MEM = 58,
    REAL_ARRAY_MEM = 64,
    INT_ARRAY_MEM = 65,
    STRING_ARRAY_MEM = 66,
    LOGI_ARRAY_MEM = 67,
    DP_STAT_MEM = 70,
    MAX_NUM_SHRD_MEM = 85 /* above every area's number */
};

/* The area SYS_ATTR_MEM: how many records the tables of variable length have. */
typedef struct SYSTEM_ATTRIBUTES {
    uint8_t reserved_0[1400];
    uint16_t analog_inputs;
    uint8_t reserved_1402[2];
    uint16_t counter_inputs;
    uint8_t reserved_1406[2];
    uint16_t digital_inputs;
    uint8_t reserved_1410[2];
    uint16_t frequency_inputs;
    uint8_t reserved_1414[6];
    uint16_t digital_outputs;
    uint8_t reserved_1422[320];
    uint16_t general_use_reals;
    uint16_t general_use_integers;
    uint16_t general_use_logicals;
    uint16_t general_use_statistics;
    uint16_t general_use_strings;
    uint8_t reserved_1752[6];
    uint16_t limit_logicals;
    uint8_t reserved_1760[4];
    uint16_t real_arrays;
    uint16_t integer_arrays;
    uint16_t string_arrays;
    uint16_t logical_arrays;
    uint16_t datapoint_statistics;
} SYSTEM_ATTRIBUTES;

/* ---- Records of variables ------------------------------------------------------------------- */

enum { MARVANE_LABEL_SIZE = 80 };

/* In every record: active is nonzero for a variable in use, label is its name. Tables are arrays of
 * records. */
typedef struct _real_variable {
    uint8_t reserved_0[50];
    int16_t active;
    uint8_t reserved_52[12];
    char label[MARVANE_LABEL_SIZE];
    uint8_t reserved_144[246];
} _real_variable;

typedef struct integer_variable {
    uint8_t reserved_0[2];
    int16_t active;
    uint8_t reserved_4[76];
    char label[MARVANE_LABEL_SIZE];
    uint8_t reserved_160[170];
} integer_variable;

typedef struct _logical_variable {
    uint8_t reserved_0[2];
    int16_t active;
    uint8_t reserved_4[52];
    char label[MARVANE_LABEL_SIZE];
    uint8_t reserved_136[354];
} _logical_variable;

typedef struct _string_variable {
    uint8_t reserved_0[2];
    int16_t active;
    uint8_t reserved_4[124];
    char label[MARVANE_LABEL_SIZE];
    uint8_t reserved_208[202];
} _string_variable;

typedef struct _real_array_variable {
    char label[MARVANE_LABEL_SIZE];
    uint8_t reserved_80[360008];
    int16_t active;
    uint8_t reserved_360090[96];
} _real_array_variable;

typedef struct _integer_array_variable {
    char label[MARVANE_LABEL_SIZE];
    uint8_t reserved_80[360024];
    int16_t active;
    uint8_t reserved_360106[80];
} _integer_array_variable;

typedef struct _string_array_variable {
    char label[MARVANE_LABEL_SIZE];
    uint8_t reserved_80[360058];
    int16_t active;
    uint8_t reserved_360140[38];
} _string_array_variable;

typedef struct _logical_array_variable {
    char label[MARVANE_LABEL_SIZE];
    uint8_t reserved_80[360008];
    int16_t active;
    uint8_t reserved_360090[320];
} _logical_array_variable;

/* The structured kinds, whose variables have members: their labels end in a full stop. */
typedef struct _stat_variable {
    char label[MARVANE_LABEL_SIZE];
    uint8_t reserved_80[1400];
    int16_t active;
    uint8_t reserved_1482[246];
} _stat_variable;

typedef struct _comp_variable {
    uint8_t reserved_0[1960];
    char label[MARVANE_LABEL_SIZE];
    int16_t active;
    uint8_t reserved_2042[30];
} _comp_variable;

typedef struct _prop_variable {
    uint8_t reserved_0[9400];
    char label[MARVANE_LABEL_SIZE];
    uint8_t reserved_9480[82];
    int16_t active;
    uint8_t reserved_9564[36];
} _prop_variable;

typedef struct _emis_variable {
    uint8_t reserved_0[2280];
    char label[MARVANE_LABEL_SIZE];
    uint8_t reserved_2360[80];
    int16_t active;
    uint8_t reserved_2442[30];
} _emis_variable;

/* ---- Keywords ------------------------------------------------------------------------------- */

enum { CHANNEL_KEYWORD = 0, PARAMETER_KEYWORD = 1, CHANNEL_OR_PARAMETER_KEYWORD = 2 };

enum { MAX_PAM_KEYWORDS = 8000 };

typedef struct PAM_KEYWORD {
    char keyword[80];  /* empty in an entry that is not in use */
    int32_t unitscode; /* code of the units that the keyword is for; 0 for none */
    char type;         /* CHANNEL_KEYWORD, ... */
    char filler[3];
} PAM_KEYWORD;

/* The area KEYWORD_MEM. */
typedef struct KEYWORD_MEMORY {
    PAM_KEYWORD keyword_table[MAX_PAM_KEYWORDS];
    int16_t search_table[29];
} KEYWORD_MEMORY;

/* ---- Handles of variables ------------------------------------------------------------------- */

typedef int16_t SM_VARI_TYPE;

/* Filled by the find functions and passed back to the library; the editor does not look inside. */
#pragma pack(push, 1)
typedef struct _shared_memory {
    SM_AREA_ID code;
    int16_t index;
    SM_VARI_TYPE vari_type;
    union {
        int16_t stat_member;
        int16_t prop_member;
        int16_t comp_member;
        int16_t emis_member;
        int16_t offset;
    };
    void* member_adr;
    uint8_t filler[4];
} SHARED_MEMORY;
#pragma pack(pop)

/* The name of units; one of 16 characters has no terminating zero. */
typedef char UNITS_NAME[16];

/* ---- Lines of text -------------------------------------------------------------------------- */

enum { MARVANE_LINE_SIZE = 1024 };

typedef int32_t TOKEN_TYPE;

enum { PARSED_WORD = 0, PARSED_INTEGER = 1, PARSED_REAL = 2, PARSED_QUOTED = 3 };

/* ---- Functions ------------------------------------------------------------------------------ */

#pragma GCC visibility push(default)

/* A text such as "$Version: E-7.0.23   $". Weak: its address is null if the library has none. */
extern const char* MARVANE_VER __attribute__((weak));

/* Makes the process a client of the platform. To be called before any other function. 0 on
 * success. */
int16_t marvane_init_fn(int16_t mode);

/* Attaches the process to a layer of the platform. 0 on success. */
int16_t join_layer(int16_t layer);

/* Attaches the area and stores its address. Nonzero on success; 0, with a null address, if there is
 * no such area or the platform does not run. The address stays valid until the area is detached,
 * even if the platform ends. */
int16_t link_to_memory(SM_AREA_ID area, void** address);

/* Nonzero if this process has the area attached. Attachments are not counted. */
int16_t shrd_mem_in_use(SM_AREA_ID area);

/* Attaches the area if it is not attached yet, and returns its address; null if there is no such
 * area. Pass 0 as mode. */
void* get_shrd_mem(SM_AREA_ID area, int16_t mode);

/* Detaches the area. 0 on success, -1 if it was not attached. */
int16_t fre_shrd_mem(SM_AREA_ID area);

/* Look a variable in use up by its label: 0 and a filled handle, or -1 if there is none. At most 80
 * bytes of the label are read. The full stop of a structured variable may be left out.
 * find_variable also finds aliases. */
int16_t find_variable(const char* label, SHARED_MEMORY* mem);
int16_t find_stat_label(const char* label, SHARED_MEMORY* mem);
int16_t find_comp_label(const char* label, SHARED_MEMORY* mem);
int16_t find_prop_label(const char* label, SHARED_MEMORY* mem);
int16_t find_emis_label(const char* label, SHARED_MEMORY* mem);

/* 0 if the variable of this label has an alias: stores it in *alias and the variable in *mem.
 * Otherwise -1. The text belongs to the library and is valid until the next call. */
int16_t find_alias_of_target(const char* label, SHARED_MEMORY* mem, char** alias);

/* The units of a variable that was found; "" if it has none. The text belongs to the library and is
 * valid until the next call. */
const char* get_variable_units(SHARED_MEMORY mem);

/* Fills units with the names of all units of the same dimension as the named ones, these included.
 * *count is the size of the array on entry and the number of filled entries on return: 0 for an
 * unknown or empty name. Names are compared case-insensitively. */
int16_t LV_get_units2(const char* name, int16_t* count, UNITS_NAME* units);

/* 0 and the code of the units in *code, or -1 for unknown units, which leaves *code unchanged. */
int16_t units_keyword_to_code(const char* text, int32_t* code);

/* 0 if the entry is of this kind; an entry of kind CHANNEL_OR_PARAMETER_KEYWORD is of both. */
int16_t check_keyword(const PAM_KEYWORD* entry, int16_t kind);

/* Reads the next line, without its line end, into a buffer of MARVANE_LINE_SIZE bytes. The rest of
 * a longer line is discarded. 0, or -1 at the end of the file. */
int16_t get_next_line(FILE* file, char* line);

/* Splits a line at blanks and tabs into at most max_tokens tokens. token is an array of rows of
 * token_size bytes: each token is stored, cut if necessary, with a terminating zero. token_type
 * gets their kinds. If quotes is nonzero, a text in single or double quotes is one token, stored
 * without them. Returns the number of tokens stored. */
int16_t parse_line(const char* line, int16_t max_tokens, int16_t token_size, int16_t quotes,
                   char* token, TOKEN_TYPE* token_type);

#pragma GCC visibility pop

/* ---- Checks of the layout ------------------------------------------------------------------- */

#define MARVANE_CHECK_RECORD(type, size, active_at, label_at)                 \
    static_assert(sizeof(type) == (size), "the size of " #type);              \
    static_assert(offsetof(type, active) == (active_at), "active in " #type); \
    static_assert(offsetof(type, label) == (label_at), "the label in " #type)

static_assert(MARVANE_LABEL_SIZE == 80, "the width of a label");

MARVANE_CHECK_RECORD(_real_variable, 390, 50, 64);
MARVANE_CHECK_RECORD(integer_variable, 330, 2, 80);
MARVANE_CHECK_RECORD(_logical_variable, 490, 2, 56);
MARVANE_CHECK_RECORD(_string_variable, 410, 2, 128);
MARVANE_CHECK_RECORD(_real_array_variable, 360186, 360088, 0);
MARVANE_CHECK_RECORD(_integer_array_variable, 360186, 360104, 0);
MARVANE_CHECK_RECORD(_string_array_variable, 360178, 360138, 0);
MARVANE_CHECK_RECORD(_logical_array_variable, 360410, 360088, 0);
MARVANE_CHECK_RECORD(_stat_variable, 1728, 1480, 0);
MARVANE_CHECK_RECORD(_comp_variable, 2072, 2040, 1960);
MARVANE_CHECK_RECORD(_prop_variable, 9600, 9562, 9400);
MARVANE_CHECK_RECORD(_emis_variable, 2472, 2440, 2280);

#undef MARVANE_CHECK_RECORD

#define MARVANE_CHECK_OFFSET(type, member, at) \
    static_assert(offsetof(type, member) == (at), #member " in " #type)

MARVANE_CHECK_OFFSET(SYSTEM_ATTRIBUTES, analog_inputs, 1400);
MARVANE_CHECK_OFFSET(SYSTEM_ATTRIBUTES, counter_inputs, 1404);
MARVANE_CHECK_OFFSET(SYSTEM_ATTRIBUTES, digital_inputs, 1408);
MARVANE_CHECK_OFFSET(SYSTEM_ATTRIBUTES, frequency_inputs, 1412);
MARVANE_CHECK_OFFSET(SYSTEM_ATTRIBUTES, digital_outputs, 1420);
MARVANE_CHECK_OFFSET(SYSTEM_ATTRIBUTES, general_use_reals, 1742);
MARVANE_CHECK_OFFSET(SYSTEM_ATTRIBUTES, general_use_integers, 1744);
MARVANE_CHECK_OFFSET(SYSTEM_ATTRIBUTES, general_use_logicals, 1746);
MARVANE_CHECK_OFFSET(SYSTEM_ATTRIBUTES, general_use_statistics, 1748);
MARVANE_CHECK_OFFSET(SYSTEM_ATTRIBUTES, general_use_strings, 1750);
MARVANE_CHECK_OFFSET(SYSTEM_ATTRIBUTES, limit_logicals, 1758);
MARVANE_CHECK_OFFSET(SYSTEM_ATTRIBUTES, real_arrays, 1764);
MARVANE_CHECK_OFFSET(SYSTEM_ATTRIBUTES, integer_arrays, 1766);
MARVANE_CHECK_OFFSET(SYSTEM_ATTRIBUTES, string_arrays, 1768);
MARVANE_CHECK_OFFSET(SYSTEM_ATTRIBUTES, logical_arrays, 1770);
MARVANE_CHECK_OFFSET(SYSTEM_ATTRIBUTES, datapoint_statistics, 1772);

MARVANE_CHECK_OFFSET(PAM_KEYWORD, keyword, 0);
MARVANE_CHECK_OFFSET(PAM_KEYWORD, unitscode, 80);
MARVANE_CHECK_OFFSET(PAM_KEYWORD, type, 84);
MARVANE_CHECK_OFFSET(PAM_KEYWORD, filler, 85);
static_assert(sizeof(PAM_KEYWORD) == 88, "the size of PAM_KEYWORD");
MARVANE_CHECK_OFFSET(KEYWORD_MEMORY, search_table, 704000);
static_assert(sizeof(KEYWORD_MEMORY) == 704060, "the size of KEYWORD_MEMORY");

MARVANE_CHECK_OFFSET(SHARED_MEMORY, code, 0);
MARVANE_CHECK_OFFSET(SHARED_MEMORY, index, 2);
MARVANE_CHECK_OFFSET(SHARED_MEMORY, vari_type, 4);
MARVANE_CHECK_OFFSET(SHARED_MEMORY, stat_member, 6);
MARVANE_CHECK_OFFSET(SHARED_MEMORY, offset, 6);
MARVANE_CHECK_OFFSET(SHARED_MEMORY, member_adr, 8);
MARVANE_CHECK_OFFSET(SHARED_MEMORY, filler, 16);
static_assert(sizeof(SHARED_MEMORY) == 20, "the size of SHARED_MEMORY");

#undef MARVANE_CHECK_OFFSET

#ifdef __cplusplus
}
#endif
