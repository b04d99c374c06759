// Reads which ECM lists an asam3_specs file offers. Plain code without the toolkit.
#pragma once

enum {
    MAX_ASAM3_LISTS = 4,
    ASAM3_LIST_SIZE = 256  // of an entry, with its zero
};

// Results of get_asam3_lists.
enum { ASAM3_READ = 0, ASAM3_NO_FILE = -54, ASAM3_WRONG_FORM = 76 };

// Fills ecmLists, which has room for MAX_ASAM3_LISTS entries, with one entry for each section of
// the file: the name of the section's ECM, a colon, and how many of the entries before it begin
// with that name. A name too long for its entry is cut so that the number fits behind it, and
// counted as it was cut. Further sections are left out.
//
// ASAM3_NO_FILE is the result, with no entries, for what cannot be opened. What is no regular file
// has the wrong form and is not read: a pipe would be waited for, a device could answer without
// end. With ASAM3_WRONG_FORM *numLists tells how many entries stood before the fault.
short get_asam3_lists(const char* filename, char (*ecmLists)[ASAM3_LIST_SIZE], int* numLists);
