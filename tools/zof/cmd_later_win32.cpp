// The subcommands that Windows does not have yet: they show a project in a process of their own, make pseudo-terminals,
// or run Python. `zof --help` lists them, so that a reader of the manual finds out why they do nothing.
#include <cstdio>

#include "zof.h"

static void options_add(CLI::App &app) {
    app.allow_extras();
}

static int refuse() {
    fprintf(stderr, "zof: this command is not available on Windows yet\n");
    return ZOF_EXIT_USAGE;
}

static constexpr const char *help = "not available on Windows yet", *examples = "  none\n";
const zof_command_t zof_font_command = {"font", help, examples, options_add, refuse};
const zof_command_t zof_lint_command = {"lint", help, examples, options_add, refuse};
const zof_command_t zof_monitor_command = {"monitor", help, examples, options_add, refuse};
const zof_command_t zof_view_command = {"view", help, examples, options_add, refuse};

int zof_font_add(const std::string &font, const std::string &project, const std::string &name) {
    (void)project;
    (void)name;
    fprintf(stderr, "zof: %s: fonts cannot be cut on Windows yet\n", font.c_str());
    return ZOF_EXIT_USAGE;
}
