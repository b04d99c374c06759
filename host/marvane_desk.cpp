// The program marvane-desk: puts the variables of a catalogue file into shared memory and runs in
// the foreground until it gets SIGTERM, SIGINT or SIGHUP.

#include <getopt.h>

#include <array>
#include <csignal>
#include <cstdio>
#include <optional>
#include <string>

#include "catalogue.h"
#include "desk.h"
#include "desk_names.h"

namespace {

constexpr int EXIT_FAULT = 1;
constexpr int EXIT_USAGE = 2;

constexpr char USAGE[] =
    "Usage: marvane-desk [--name NAME] [--check] CATALOGUE\n"
    "\n"
    "Runs a Marvane platform for the desk, with the variables, units and keywords of the\n"
    "catalogue file. Prints \"ready\" when clients can join and ends on SIGTERM, SIGINT or\n"
    "SIGHUP.\n"
    "\n"
    "  -n, --name NAME  the platform's name, for several side by side; without it that of the\n"
    "                   environment variable MARVANE_DESK_NAME, or \"desk\"\n"
    "  -c, --check      only check the catalogue file\n"
    "  -h, --help       print this text\n"
    "  -V, --version    print the version\n";

struct Options {
    std::string name = marvane::deskNameOfEnvironment();
    std::string catalogue;
    bool onlyCheck = false;
};

// Prints the complaint on standard error and returns the exit status.
int complain(const std::string& complaint, int status)
{
    std::fprintf(stderr, "marvane-desk: %s\n", complaint.c_str());
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
        {"name", required_argument, nullptr, 'n'},
        {"check", no_argument, nullptr, 'c'},
        {"help", no_argument, nullptr, 'h'},
        {"version", no_argument, nullptr, 'V'},
        {nullptr, 0, nullptr, 0},
    }};
    for (int c = 0; (c = getopt_long(argc, argv, "n:chV", OPTIONS.data(), nullptr)) != -1;) {
        switch (c) {
            case 'n':
                options.name = optarg;
                break;
            case 'c':
                options.onlyCheck = true;
                break;
            case 'h':
                return print(USAGE);
            case 'V':
                return print("marvane-desk " MARVANE_DESK_VERSION "\n");
            default:
                return EXIT_USAGE;
        }
    }
    if (argc - optind != 1)
        return complain("one catalogue file must be given (see --help)", EXIT_USAGE);
    options.catalogue = argv[optind];
    if (!marvane::isValidDeskName(options.name))
        return complain("a name is 1 to 64 letters, digits, '_' and '-'", EXIT_USAGE);
    return std::nullopt;
}

// Blocks the signals that end the program, before it creates shared memory: it waits for them with
// sigwait(), so that its destructors run. SIGPIPE is ignored, so that a closed output does not end
// the program. Returns the blocked signals.
sigset_t blockSignals()
{
    sigset_t endSignals;
    sigemptyset(&endSignals);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP})
        sigaddset(&endSignals, signal);
    sigprocmask(SIG_BLOCK, &endSignals, nullptr);
    std::signal(SIGPIPE, SIG_IGN);
    return endSignals;
}

int run(const Options& options)
{
    const sigset_t endSignals = blockSignals();
    std::string complaint;
    const auto catalogue = marvane::readCatalogue(options.catalogue, &complaint);
    if (!catalogue)
        return complain(complaint, EXIT_FAULT);
    if (options.onlyCheck)
        return 0;
    const auto desk = marvane::Desk::start(options.name, *catalogue, &complaint);
    if (!desk)
        return complain(complaint, EXIT_FAULT);
    print("ready\n");
    std::fflush(stdout);
    int signal = 0;
    sigwait(&endSignals, &signal);
    return 0;
}

}  // namespace

int main(int argc, char** argv)
{
    Options options;
    const auto status = readOptions(argc, argv, options);
    return status ? *status : run(options);
}
