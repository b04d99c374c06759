// The channel and parameter keywords that the platform has in its shared memory.
#pragma once

#include <QString>

#include "marvane_headers.h"

// The platform's keyword area. Null until it is first needed; never detached.
extern const KEYWORD_MEMORY* Keyword_memory;

// Attaches the keyword area at the first call. False if there is none.
bool linkKeywordMemory();

QString keywordName(const PAM_KEYWORD& entry);

// Whether the entry is in use and of this kind, CHANNEL_KEYWORD or PARAMETER_KEYWORD.
bool isKeywordOfKind(const PAM_KEYWORD& entry, int kind);
