// Reads arbitrary bytes as an asam3_specs file, which must not write outside of the result's rows.

#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include "get_asam3_lists.h"

namespace {

// On the heap, so that AddressSanitizer finds writes behind the last row.
struct Rows {
    char lists[MAX_ASAM3_LISTS][ASAM3_LIST_SIZE]{};
};

// A file in memory, with the name under which it can be opened.
class MemoryFile {
public:
    MemoryFile() : m_descriptor(memfd_create("asam3_specs", 0)) {}

    void write(const uint8_t* data, size_t size) const
    {
        if (ftruncate(m_descriptor, 0) != 0 ||
            pwrite(m_descriptor, data, size, 0) != static_cast<ssize_t>(size))
            std::abort();
    }

    std::string name() const { return "/proc/self/fd/" + std::to_string(m_descriptor); }

private:
    int m_descriptor;
};

void requireThat(bool condition)
{
    if (!condition)
        std::abort();
}

bool isEntry(const char* text)
{
    const char* const colon = std::strrchr(text, ':');
    return colon != nullptr && colon[1] >= '0' && colon[1] < '0' + MAX_ASAM3_LISTS &&
           colon[2] == '\0';
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const MemoryFile file;
    file.write(data, size);
    const auto rows = std::make_unique<Rows>();
    int count = 0;
    const short result = get_asam3_lists(file.name().c_str(), rows->lists, &count);
    requireThat(result == ASAM3_READ || result == ASAM3_WRONG_FORM);
    requireThat(count >= (result == ASAM3_READ ? 1 : 0) && count <= MAX_ASAM3_LISTS);
    for (int i = 0; i < count; ++i)
        requireThat(isEntry(rows->lists[i]));
    return 0;
}
