// The demo host's shared pieces: text conversion and its commands.
//
// Each group of commands lives in a file of its own (demo_catalog.cpp, ...) and
// registers its commands with one static DemoCommand object each:
//
//     static const demo::DemoCommand count{"count", "TABLE [DESCRIPTOR]",
//         "prints the table's record count", runCount};
//
// tabra-demo runs "tabra-demo [login options] COMMAND [ARGUMENTS...]" on the
// connection the library opened; a command returns the process's exit status.
#pragma once

#include <tabra.h>

#include <string>
#include <vector>

namespace demo {

std::u16string toUtf16(const std::string &text);
std::string toUtf8(const std::u16string &text);
std::string toUtf8(const char16_t *text);

// A descriptor or separator given on the command line with \t, \n and \v (and \\)
// standing for the characters 9, 10 and 11 (and a backslash).
std::u16string unescapeArgument(const std::string &text);

// A statement hook (Ostrel_SetStatementHook) that prints every statement that changes
// data and lets it run; the SELECTs (counts, reading a source) pass quietly.
int32_t printChangingStatement(const char16_t *statement, void *context);

// Prints the first rows of the statement, fields joined by " | ", indented.
void printFirstRows(SQLHDBC connection, const std::u16string &statement);

using CommandFunction = int (*)(SQLHDBC connection, const std::vector<std::string> &arguments);

struct DemoCommand {
    DemoCommand(const char *name, const char *arguments, const char *purpose, CommandFunction run);

    const char *name;
    const char *arguments;
    const char *purpose;
    CommandFunction run;
};

// The registered commands, in the order of their names.
std::vector<const DemoCommand *> commands();
const DemoCommand *findCommand(const std::string &name);

} // namespace demo
