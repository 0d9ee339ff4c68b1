// The subcommands of `zof`. Each has its own file, which defines its row; main.cpp lists all rows.
#ifndef ZOF_TOOL_H
#define ZOF_TOOL_H

#include <CLI/CLI.hpp>

#include "zof_lib/zof_stdio.h"

// What the exit statuses of all programs mean for the subcommands.
enum {
    ZOF_EXIT_CLEAN = ZOF_EXIT_GOOD,
    ZOF_EXIT_FINDINGS = ZOF_EXIT_FAILURE, // something was found, or the work failed
    ZOF_EXIT_UNREADABLE = ZOF_EXIT_FILES, // a named file or folder cannot be read
};

struct zof_command_t {
    const char *name;     // "check"
    const char *help;     // one line
    const char *examples; // shown below the options in --help
    void (*options)(CLI::App &app);
    int (*run)(); // called after the options have been parsed; returns the exit status
};

extern const zof_command_t zof_ids_command, zof_monitor_command, zof_check_command, zof_fmt_command, zof_font_command,
    zof_view_command, zof_catalogue_command, zof_doctor_command, zof_lint_command, zof_new_command, zof_run_command,
    zof_design_command;

// `zof font add FONT --project PROJECT --name NAME`. Returns its exit status.
int zof_font_add(const std::string &font, const std::string &project, const std::string &name);

#endif
