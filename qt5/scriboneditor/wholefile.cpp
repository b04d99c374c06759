#include "wholefile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace {

class Descriptor {
public:
    // Non-blocking, since opening a FIFO would wait for its writer; regular files do not mind.
    explicit Descriptor(const char* fileName)
        : m_number(open(fileName, O_RDONLY | O_CLOEXEC | O_NONBLOCK))
    {
    }
    ~Descriptor()
    {
        if (isOpen())
            close(m_number);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    bool isOpen() const { return m_number >= 0; }
    int number() const { return m_number; }

private:
    int m_number;
};

// Appends to *bytes up to the end of the file, which may become longer meanwhile.
int readToEnd(int descriptor, size_t maxSize, std::string* bytes)
{
    constexpr size_t BLOCK = size_t(1) << 16;
    for (;;) {
        const size_t size = bytes->size();
        bytes->resize(size + BLOCK);
        const ssize_t count = read(descriptor, &(*bytes)[size], BLOCK);
        bytes->resize(size + (count > 0 ? static_cast<size_t>(count) : 0));
        if (count == 0)
            return 0;
        if (count < 0 && errno != EINTR)
            return errno;
        if (bytes->size() > maxSize)
            return EFBIG;
    }
}

// The length is asked for after the reading: a file that was made shorter meanwhile is no error.
int checkLength(int descriptor, size_t size)
{
    struct stat status {};
    if (fstat(descriptor, &status) != 0)
        return errno;
    return size < static_cast<size_t>(status.st_size) ? EIO : 0;
}

}  // namespace

int readWholeFile(const char* fileName, size_t maxSize, std::string* bytes)
{
    bytes->clear();
    const Descriptor file(fileName);
    struct stat status {};
    if (!file.isOpen() || fstat(file.number(), &status) != 0)
        return errno;
    if (!S_ISREG(status.st_mode))
        return EINVAL;
    const auto size = static_cast<size_t>(status.st_size);
    if (size > maxSize)
        return EFBIG;
    bytes->reserve(size + 1);
    const int error = readToEnd(file.number(), maxSize, bytes);
    return error != 0 ? error : checkLength(file.number(), bytes->size());
}
