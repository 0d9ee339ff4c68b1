// The program `zof`: one subcommand per row.
#include "zof.h"

#include <iostream>

#include "describe.h"
#include "project/zof_ver.h"

static const zof_command_t *const commands[] = {
    &zof_catalogue_command, &zof_check_command, &zof_design_command, &zof_doctor_command,
    &zof_fmt_command,       &zof_font_command,  &zof_ids_command,    &zof_lint_command,
    &zof_monitor_command,   &zof_new_command,   &zof_run_command,    &zof_view_command,
};

static void options_add(CLI::App &app) {
    app.set_help_flag("-h,--help", "print this help");
    app.allow_windows_style_options(false); // "/tmp/res" is a path on all systems
    app.set_version_flag("--version,-V", zof_sdk_get_version(), "print the version of the runtime");
    app.footer("`zof COMMAND --help` explains a command, with examples.\n"
               "Exit status: 0 done, nothing found; 1 something was found, or the work failed; 2 wrong arguments;\n"
               "3 what was named cannot be read.");
    app.require_subcommand(1);
    app.name("zof");
    for (const zof_command_t *command : commands) {
        CLI::App *sub = app.add_subcommand(command->name, command->help);
        sub->footer(std::string("Examples:\n") + command->examples);
        command->options(*sub);
    }
}

int main(int argc, char **argv) {
    CLI::App app("Tools for project folders of touch panels and for their serial link.");
    options_add(app);
    const std::string only = argc == 2 ? argv[1] : "";
    if (only == "--man" || only == "--completion") { // used by the installation
        std::cout << (only == "--man" ? describe_man(app) : describe_completion(app));
        return ZOF_EXIT_CLEAN;
    }
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError &fault) {
        return describe_end(app, fault);
    }
    for (const zof_command_t *command : commands) {
        if (app.get_subcommand(command->name)->parsed()) {
            return command->run();
        }
    }
    return ZOF_EXIT_USAGE;
}
