// Help, errors in arguments, the manual page and shell completion. All are generated from the options that the
// subcommands declare, so they always match.
#ifndef ZOF_DESCRIBE_H
#define ZOF_DESCRIBE_H

#include <CLI/CLI.hpp>
#include <string>

// Prints the requested help or version, or the error in the command line. Returns the exit status.
int describe_end(const CLI::App &app, const CLI::ParseError &fault);

// Return the manual page for section 1, and a completion script for bash.
std::string describe_man(const CLI::App &app);
std::string describe_completion(const CLI::App &app);

#endif
