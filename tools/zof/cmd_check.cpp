// `zof check`: prints the findings of the library's checker.
#include <cstdio>
#include <cstring>
#include <string>

#include "check/zof_check.h"
#include "findings.h"
#include "lvgl.h"
#include "zof.h"

static struct {
    std::string folder, format = "text";
    bool strict = false, errors = false, rules = false;
} opt;

static void options_add(CLI::App &app) {
    app.add_option("project", opt.folder, "the project folder, or the folder of its res/")->type_name("DIR");
    app.add_option("--format", opt.format, "text, or json: an array with one object for each finding")
        ->type_name("text|json")
        ->check(CLI::IsMember({"text", "json"}));
    app.add_flag("--strict", opt.strict, "warnings are errors");
    app.add_flag("--errors", opt.errors, "exit status 0 if there are only warnings, for builds")->excludes("--strict");
    app.add_flag("--rules", opt.rules, "list the rules");
}

// Prints the missing project file as a finding, for programs that read only the JSON output.
static void no_project_print() {
    const zof_check_rule_t *rule = zof_check_rules;
    while (rule->name && std::string(rule->name) != "file-missing") {
        rule++;
    }
    char file[] = "config/project/zofprj.g", text[] = "there is no file of this name";
    zof_finding_t finding = {rule, file, 1, 1, file + strlen(file), text};
    findings_print("", {&finding, 1, 1}, true, opt.strict);
}

static int check_run() {
    char folder[1024];
    if (opt.rules) {
        rules_print(zof_check_rules);
        return ZOF_EXIT_CLEAN;
    }
    if (opt.folder.empty()) {
        fprintf(stderr, "zof check: a project folder is missing\n");
        return ZOF_EXIT_USAGE;
    }
    if (zof_check_find(opt.folder.c_str(), folder, sizeof folder) != 0) {
        fprintf(stderr, "zof check: %s: there is no config/project/zofprj.g in it\n", opt.folder.c_str());
        if (opt.format == "json") {
            no_project_print();
        }
        return ZOF_EXIT_UNREADABLE;
    }
    lv_init(); // the decoders of pictures and fonts need it
    zof_check_t check;
    const bool readable = zof_check_project(folder, &check) == 0;
    findings_print(folder, check, opt.format == "json", opt.strict);
    const u32 counted = opt.errors ? check.errors : check.count;
    const int result = !readable ? ZOF_EXIT_UNREADABLE : counted ? ZOF_EXIT_FINDINGS : ZOF_EXIT_CLEAN;
    zof_check_free(&check);
    return result;
}

const zof_command_t zof_check_command = {"check", "report all mistakes in a project folder, with their places",
                                         "  zof check res\n"
                                         "  zof check res --strict --format json\n"
                                         "  zof check --rules\n"
                                         "A file zof-check.ignore in the project folder names findings that are meant "
                                         "to be so, one on each line:\n"
                                         "  RULE FILE[:KEY] REASON     outside config/view/home.g:controls[3]* it "
                                         "slides in",
                                         options_add, check_run};
