// The program marvane-snapshot: writes what the running platform has as a catalogue file for
// marvane-desk.

#include <getopt.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>

#include "desk_names.h"
#include "snapshot_catalogue.h"
#include "snapshot_file.h"
#include "snapshot_platform.h"

namespace {

constexpr int EXIT_OMISSIONS = 1;
constexpr int EXIT_FAULT = 2;

constexpr char USAGE[] =
    "Usage: marvane-snapshot [--name NAME] [--output FILE]\n"
    "\n"
    "Writes the variables, units and keywords of the running Marvane platform as a catalogue\n"
    "file for marvane-desk. What such a file cannot say is listed on standard error.\n"
    "\n"
    "  -o, --output FILE  write this file; without it, standard output\n"
    "  -n, --name NAME    the name of the desk platform to read; without it that of the\n"
    "                     environment variable MARVANE_DESK_NAME, or \"desk\"\n"
    "  -h, --help         print this text\n"
    "  -V, --version      print the version\n"
    "\n"
    "Exit status: 0 if all is written, 1 if something is left out, 2 if nothing is written.\n";

struct Options {
    std::string name = marvane::deskNameOfEnvironment();
    std::optional<std::string> output;
};

// Prints the line on standard error and returns the exit status.
int complain(const std::string& line, int status)
{
    std::fprintf(stderr, "marvane-snapshot: %s\n", line.c_str());
    return status;
}

// Prints the text on standard output and returns the exit status 0.
int print(const char* text)
{
    std::fputs(text, stdout);
    return 0;
}

// Returns an exit status if the program has to end at once, otherwise nullopt.
std::optional<int> readOptions(int argc, char** argv, Options& options)
{
    static constexpr std::array<option, 5> OPTIONS{{
        {"output", required_argument, nullptr, 'o'},
        {"name", required_argument, nullptr, 'n'},
        {"help", no_argument, nullptr, 'h'},
        {"version", no_argument, nullptr, 'V'},
        {nullptr, 0, nullptr, 0},
    }};
    for (int c = 0; (c = getopt_long(argc, argv, "o:n:hV", OPTIONS.data(), nullptr)) != -1;) {
        switch (c) {
            case 'o':
                options.output = optarg;
                break;
            case 'n':
                options.name = optarg;
                break;
            case 'h':
                return print(USAGE);
            case 'V':
                return print("marvane-snapshot " MARVANE_SNAPSHOT_VERSION "\n");
            default:
                return EXIT_FAULT;
        }
    }
    if (optind != argc)
        return complain("there are no arguments but options (see --help)", EXIT_FAULT);
    if (!marvane::isValidDeskName(options.name))
        return complain("a name is 1 to 64 letters, digits, '_' and '-'", EXIT_FAULT);
    return std::nullopt;
}

// Shows the area that is read, in the last line of a terminal.
class Progress {
public:
    ~Progress() { show(""); }

    void show(const std::string& text) const
    {
        if (isTerminal_)
            std::fprintf(stderr, "\r\033[K%s", text.c_str());
    }

private:
    bool isTerminal_ = isatty(STDERR_FILENO) == 1;
};

snapshot::Reading readPlatform(snapshot::Platform& platform)
{
    const Progress progress;
    return snapshot::readPlatform(
        platform, [&progress](const char* area) { progress.show(std::string("reading ") + area); });
}

bool write(const Options& options, const std::string& text, std::string* complaint)
{
    if (!options.output)
        return snapshot::writeOutput(text, complaint);
    const bool isWritten = snapshot::writeFile(*options.output, text, complaint);
    if (!isWritten)
        *complaint = *options.output + ": " + *complaint;
    return isWritten;
}

int listOmissions(const snapshot::Catalogue& catalogue)
{
    for (const std::string& omission : catalogue.omissions)
        complain(omission, 0);
    const size_t count = catalogue.omissions.size();
    return count == 0 ? 0 : complain("left out: " + std::to_string(count), EXIT_OMISSIONS);
}

int run(const Options& options)
{
    // A closed output is an error, not the end.
    std::signal(SIGPIPE, SIG_IGN);
    setenv(marvane::DESK_NAME_VARIABLE, options.name.c_str(), 1);
    snapshot::Platform platform;
    switch (readPlatform(platform)) {
        case snapshot::Reading::NoPlatform:
            return complain("no Marvane platform is running", EXIT_FAULT);
        case snapshot::Reading::Stopped:
            return complain("the platform has stopped meanwhile; nothing is written", EXIT_FAULT);
        case snapshot::Reading::Done:
            break;
    }
    const snapshot::Catalogue catalogue = snapshot::makeCatalogue(platform);
    std::string complaint;
    if (!write(options, catalogue.text, &complaint))
        return complain(complaint, EXIT_FAULT);
    return listOmissions(catalogue);
}

}  // namespace

int main(int argc, char** argv)
{
    Options options;
    const auto status = readOptions(argc, argv, options);
    return status ? *status : run(options);
}
