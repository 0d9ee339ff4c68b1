#include "describe.h"

#include <cstdio>
#include <sstream>

#include "zof.h"
#include "zof_lib/zof_util.h"

static std::vector<const CLI::App *> commands_of(const CLI::App &app) {
    return app.get_subcommands([](const CLI::App *) { return true; });
}

// Returns the name of a subcommand with its parents: "zof monitor watch".
static std::string full_name(const CLI::App &app) {
    return app.get_parent() ? full_name(*app.get_parent()) + " " + app.get_name() : app.get_name();
}

static std::string names_list(const std::vector<const CLI::App *> &commands) {
    std::string list;
    for (size_t i = 0; i < commands.size(); i++) {
        list += (i == 0 ? "" : i + 1 < commands.size() ? ", " : " and ") + commands[i]->get_name();
    }
    return list;
}

// Wrong arguments --------------------------------------------------------------------------------------------------

static std::string unknown_command(const CLI::App &app, const std::string &typed) {
    std::string meant;
    u32 least = ZOF_TEXT_NEAR;
    for (const CLI::App *command : commands_of(app)) {
        meant = zof_text_nearer(typed.c_str(), command->get_name().c_str(), &least) ? command->get_name() : meant;
    }
    return "unknown command \"" + typed + "\"; " +
           (meant.empty() ? "the commands are " + names_list(commands_of(app)) : "did you mean " + meant + "?");
}

static std::string usage_fault(const CLI::App &app, const CLI::ParseError &fault) {
    if (commands_of(app).empty()) {
        return fault.what();
    }
    const std::vector<std::string> left = app.remaining();
    const bool named = !left.empty() && left[0][0] != '-';
    return named ? unknown_command(app, left[0])
                 : "a command is missing; the commands are " + names_list(commands_of(app));
}

int describe_end(const CLI::App &app, const CLI::ParseError &fault) {
    if (fault.get_exit_code() == 0) {
        return app.exit(fault);
    }
    const CLI::App *at = &app;
    while (!at->get_subcommands().empty()) {
        at = at->get_subcommands()[0];
    }
    const std::string name = full_name(*at);
    fprintf(stderr, "%s: %s\nRun `%s --help` for more information.\n", name.c_str(), usage_fault(*at, fault).c_str(),
            name.c_str());
    return ZOF_EXIT_USAGE;
}

// The manual page --------------------------------------------------------------------------------------------------

// Escapes a text for a manual page, in which backslashes, and dots at the start of a line, begin commands.
static std::string man_text(const std::string &text) {
    std::string out;
    for (const char c : text) {
        const bool start = out.empty() || out.back() == '\n';
        out += c == '\\'                          ? "\\e"
               : c == '-'                         ? "\\-"
               : start && (c == '.' || c == '\'') ? std::string("\\&") + c
                                                  : std::string(1, c);
    }
    return out;
}

static void man_options(const CLI::App &app, std::ostream &out) {
    for (const CLI::Option *option : app.get_options()) {
        if (option == app.get_help_ptr() && app.get_parent()) {
            continue;
        }
        const std::string value = option->get_items_expected_max() > 0 ? " " + option->get_type_name() : "";
        out << ".TP\n.B " << man_text(option->get_name(false, true) + value) << "\n"
            << man_text(option->get_description()) << "\n";
    }
}

static void man_command(const CLI::App &app, std::ostream &out) {
    out << ".SS " << man_text(full_name(app)) << "\n" << man_text(app.get_description()) << "\n";
    man_options(app, out);
    if (!app.get_footer().empty() &&
        app.get_footer() != app.get_parent()->get_footer()) { // a footer of the parent is inherited
        out << ".PP\n.nf\n" << man_text(app.get_footer()) << "\n.fi\n";
    }
    for (const CLI::App *command : commands_of(app)) {
        man_command(*command, out);
    }
}

std::string describe_man(const CLI::App &app) {
    std::ostringstream out;
    out << ".TH ZOF 1\n.SH NAME\nzof \\- tools for project folders of touch panels\n"
        << ".SH SYNOPSIS\n.B zof\n.I COMMAND\n[\\fIOPTION\\fR]...\n"
        << ".SH DESCRIPTION\n"
        << man_text(app.get_description()) << "\n";
    man_options(app, out);
    out << ".PP\n" << man_text(app.get_footer()) << "\n.SH COMMANDS\n";
    for (const CLI::App *command : commands_of(app)) {
        man_command(*command, out);
    }
    return out.str();
}

// Completion -------------------------------------------------------------------------------------------------------

// Writes a `case` branch for each command, with the words that may follow it.
static void completion_rows(const CLI::App &app, std::ostream &out) {
    out << "    \"" << full_name(app) << "\") words=\"";
    for (const CLI::App *command : commands_of(app)) {
        out << command->get_name() << " ";
    }
    for (const CLI::Option *option : app.get_options()) {
        for (const std::string &name : option->get_lnames()) {
            out << "--" << name << " ";
        }
    }
    out << "\" ;;\n";
    for (const CLI::App *command : commands_of(app)) {
        completion_rows(*command, out);
    }
}

static void completion_known(const CLI::App &app, std::ostream &out) {
    out << "|" << full_name(app);
    for (const CLI::App *command : commands_of(app)) {
        completion_known(*command, out);
    }
}

std::string describe_completion(const CLI::App &app) {
    std::ostringstream out;
    out << "# Completion of `zof` for bash: commands and options; anything else is a file.\n"
           "_zof() {\n"
           "    local command=zof word words=\"\" known=\"";
    completion_known(app, out);
    out << "|\"\n"
           "    for word in \"${COMP_WORDS[@]:1:COMP_CWORD-1}\"; do\n"
           "        [[ $known == *\"|$command $word|\"* ]] && command+=\" $word\"\n"
           "    done\n"
           "    case $command in\n";
    completion_rows(app, out);
    out << "    esac\n"
           "    COMPREPLY=($(compgen -W \"$words\" -- \"${COMP_WORDS[COMP_CWORD]}\"))\n"
           "}\n"
           "complete -o default -F _zof zof\n";
    return out.str();
}
