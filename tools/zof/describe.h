// What the program says of itself: help, wrong arguments, the manual page and the completion of shells. All of it is
// made from the options that the subcommands declare, so that it cannot differ from them.
#ifndef ZOF_DESCRIBE_H
#define ZOF_DESCRIBE_H

#include <CLI/CLI.hpp>
#include <string>

// Prints the help or version that was asked for, or what is wrong with the command line. Returns the exit status.
int describe_end(const CLI::App &app, const CLI::ParseError &fault);

// The manual page for section 1, and a completion script for bash.
std::string describe_man(const CLI::App &app);
std::string describe_completion(const CLI::App &app);

#endif
