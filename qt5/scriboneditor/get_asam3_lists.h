// Reads which ECM lists an asam3_specs file offers. Does not use Qt.
#pragma once

enum {
    MAX_ASAM3_LISTS = 4,
    ASAM3_LIST_SIZE = 256  // bytes of an entry, with its terminating zero
};

// Results of get_asam3_lists.
enum { ASAM3_READ = 0, ASAM3_NO_FILE = -54, ASAM3_WRONG_FORM = 76 };

// Fills ecmLists, an array of MAX_ASAM3_LISTS entries, with one entry for each section of the file:
// the name of the section's ECM, a colon, and how many of the entries before it begin with that
// name, as in "ECM0:1". A name that is too long is cut so that the number fits behind it, and
// counted as it was cut. Sections beyond MAX_ASAM3_LISTS are left out.
//
// Returns ASAM3_READ; ASAM3_NO_FILE, with *numLists 0, if the file cannot be opened; or
// ASAM3_WRONG_FORM, with the number of entries before the fault in *numLists. Anything but a
// regular file has the wrong form and is not read: a FIFO may block, a device may never end.
short get_asam3_lists(const char* filename, char (*ecmLists)[ASAM3_LIST_SIZE], int* numLists);
