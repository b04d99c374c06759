// The commands of scribon-spec.
#pragma once

#include <QCommandLineParser>
#include <QStringList>
#include <array>

constexpr int EXIT_CLEAN = 0;
constexpr int EXIT_FINDINGS = 1;
constexpr int EXIT_TROUBLE = 2;  // a file that cannot be read, or a wrong command line

struct Command {
    const char* name;
    const char* summary;

    // Returns the exit status. The first argument is the names of the program and the command,
    // as in "scribon-spec check".
    int (*run)(const QStringList& arguments);
};

int runCheck(const QStringList& arguments);
int runDiff(const QStringList& arguments);
int runFormat(const QStringList& arguments);
int runRules(const QStringList& arguments);
int runShow(const QStringList& arguments);

inline constexpr std::array<Command, 5> COMMANDS{{
    {"check", "find what is wrong with spec files", runCheck},
    {"rules", "list what check can find", runRules},
    {"show", "print the five tables of spec files", runShow},
    {"format", "write spec files as the editor saves them", runFormat},
    {"diff", "compare two spec files row by row", runDiff},
}};

// Prints a complaint of one line on standard error and returns EXIT_TROUBLE.
int complain(const QString& complaint);

// Parses the arguments of a command, with --help. Returns an exit status if the command must not
// run: help was printed, or the arguments are wrong. -1 otherwise.
int parseArguments(const QStringList& arguments, QCommandLineParser* parser);

// Writes to standard output. The bytes are written at once, not at the end.
void print(const QByteArray& bytes);

// Whether all could be written so far, and an errno if it could not.
bool hasPrintedAll();
int printError();
