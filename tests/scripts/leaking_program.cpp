// Leaks 77 bytes, for the test of LeakSanitizer.

#include <cstdlib>

int main()
{
    char* volatile lost = static_cast<char*>(std::malloc(77));  // NOLINT: the leak is meant
    lost = nullptr;
    return lost == nullptr ? EXIT_SUCCESS : EXIT_FAILURE;  // NOLINT: the leak is meant
}
