// The subcommands of `zof`. Each has a file of its own, with its row; main.cpp has the list of all rows.
#ifndef ZOF_TOOL_H
#define ZOF_TOOL_H

#include <CLI/CLI.hpp>

// What every subcommand returns.
enum {
    ZOF_EXIT_CLEAN = 0,
    ZOF_EXIT_FINDINGS = 1,   // something was found, or the work failed
    ZOF_EXIT_USAGE = 2,      // wrong arguments
    ZOF_EXIT_UNREADABLE = 3, // what was named cannot be read
};

struct zof_command_t {
    const char *name;     // "check"
    const char *help;     // one line
    const char *examples; // below the options in its --help
    void (*options)(CLI::App &app);
    int (*run)(); // after the options were read; returns the exit status
};

extern const zof_command_t zof_ids_command, zof_monitor_command, zof_check_command, zof_fmt_command, zof_font_command,
    zof_view_command, zof_catalogue_command, zof_doctor_command, zof_lint_command;

#endif
