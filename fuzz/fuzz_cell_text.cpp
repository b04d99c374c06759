// Classifies arbitrary cell texts.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "editor_antlr3.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::string text(reinterpret_cast<const char*>(data), size);
    int tokenType = -1;
    const int editor = appGrammerTypeToEditorType(text.c_str(), static_cast<int>(size), &tokenType);
    int again = -1;
    if (appGrammerTypeToEditorType(text.c_str(), static_cast<int>(size), &again) != editor ||
        again != tokenType)
        std::abort();
    appGrammerRequired(text.c_str(), size);
    return 0;
}
