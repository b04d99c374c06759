#include "snapshot_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <utility>

#include "file_descriptor.h"

namespace snapshot {

namespace {

namespace fs = std::filesystem;

// Keeps the signals that end the program waiting, so that none leaves a temporary file behind.
class SignalPause {
public:
    SignalPause()
    {
        sigset_t endSignals;
        sigemptyset(&endSignals);
        for (const int signal : {SIGTERM, SIGINT, SIGHUP})
            sigaddset(&endSignals, signal);
        sigprocmask(SIG_BLOCK, &endSignals, &before_);
    }
    SignalPause(const SignalPause&) = delete;
    SignalPause& operator=(const SignalPause&) = delete;
    ~SignalPause() { sigprocmask(SIG_SETMASK, &before_, nullptr); }

private:
    sigset_t before_{};
};

// A new file that is removed again unless it is renamed. Failures set errno.
class TemporaryFile {
public:
    explicit TemporaryFile(const fs::path& folder) : descriptor_(openNew(folder, name_)) {}
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile()
    {
        if (descriptor_.isOpen() && !isRenamed_)
            unlink(name_.c_str());
    }

    bool isOpen() const { return descriptor_.isOpen(); }

    bool write(const std::string& text)
    {
        for (size_t done = 0; done < text.size();) {
            const ssize_t written =
                ::write(descriptor_.get(), text.data() + done, text.size() - done);
            if (written < 0 && errno != EINTR)
                return false;
            done += written > 0 ? static_cast<size_t>(written) : 0;
        }
        return fsync(descriptor_.get()) == 0;
    }

    bool renameTo(const fs::path& name)
    {
        isRenamed_ = rename(name_.c_str(), name.c_str()) == 0;
        return isRenamed_;
    }

private:
    static int openNew(const fs::path& folder, fs::path& name)
    {
        constexpr int ATTEMPTS = 100;
        constexpr mode_t MODE_OF_NEW_FILES = 0666;  // less the umask
        int descriptor = -1;
        for (int i = 0; i < ATTEMPTS; ++i) {
            name = folder /
                   (".marvane-snapshot." + std::to_string(getpid()) + '.' + std::to_string(i));
            descriptor =
                open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, MODE_OF_NEW_FILES);
            if (descriptor >= 0 || errno != EEXIST)
                break;
        }
        return descriptor;
    }

    fs::path name_;
    marvane::FileDescriptor descriptor_;
    bool isRenamed_ = false;
};

// The file that the name leads to, which need not exist.
fs::path withoutLinks(fs::path name)
{
    constexpr int MAX_LINKS = 40;
    std::error_code error;
    for (int i = 0; i < MAX_LINKS && fs::is_symlink(name, error); ++i)
        name = name.parent_path() / fs::read_symlink(name, error);
    return name;
}

bool isReplaceable(const fs::path& file, std::string* complaint)
{
    std::error_code error;
    const fs::file_status status = fs::status(file, error);
    if (status.type() == fs::file_type::not_found)
        return true;
    if (!fs::is_regular_file(status))
        *complaint = status.type() == fs::file_type::none ? error.message() : "is no regular file";
    else if (access(file.c_str(), W_OK) != 0)
        *complaint = std::strerror(errno);
    return complaint->empty();
}

}  // namespace

bool writeFile(const std::string& name, const std::string& text, std::string* complaint)
{
    complaint->clear();
    const fs::path file = withoutLinks(name);
    if (!isReplaceable(file, complaint))
        return false;
    const SignalPause pause;
    const fs::path folder = file.has_parent_path() ? file.parent_path() : fs::path(".");
    TemporaryFile temporary(folder);
    if (temporary.isOpen() && temporary.write(text) && temporary.renameTo(file))
        return true;
    *complaint = std::strerror(errno);
    return false;
}

bool writeOutput(const std::string& text, std::string* complaint)
{
    if (std::fwrite(text.data(), 1, text.size(), stdout) == text.size() && std::fflush(stdout) == 0)
        return true;
    *complaint = std::string("cannot write to standard output: ") + std::strerror(errno);
    return false;
}

}  // namespace snapshot
