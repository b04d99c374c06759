#include "platformkeywords.h"

#include <cstring>

const KEYWORD_MEMORY* Keyword_memory = nullptr;

bool linkKeywordMemory()
{
    void* area = nullptr;
    if (Keyword_memory == nullptr && link_to_memory(KEYWORD_MEM, &area) != 0)
        Keyword_memory = static_cast<const KEYWORD_MEMORY*>(area);
    return Keyword_memory != nullptr;
}

// A name that fills its field has no terminating zero.
QString keywordName(const PAM_KEYWORD& entry)
{
    return QString::fromUtf8(entry.keyword,
                             static_cast<int>(strnlen(entry.keyword, sizeof(entry.keyword))));
}

bool isKeywordOfKind(const PAM_KEYWORD& entry, int kind)
{
    return check_keyword(&entry, static_cast<int16_t>(kind)) == 0 && entry.keyword[0] != '\0';
}
