// `zof check`: prints what the library's checker finds.
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string>

#include "catalogue/json_in.h"
#include "check/zof_check.h"
#include "lvgl.h"
#include "zof.h"

enum { SHOWN_MAX = 200 }; // findings as text: one cause may have thousands

static struct {
    std::string folder, format = "text";
    bool strict = false, rules = false;
} opt;

static void options_add(CLI::App &app) {
    app.add_option("project", opt.folder, "the project folder, or the folder of its res/")->type_name("DIR");
    app.add_option("--format", opt.format, "text, or json: an array with one object for each finding")
        ->type_name("text|json")
        ->check(CLI::IsMember({"text", "json"}));
    app.add_flag("--strict", opt.strict, "warnings are errors");
    app.add_flag("--rules", opt.rules, "list the rules");
}

static int rules_print() {
    for (const zof_check_rule_t *rule = zof_check_rules; rule->name; rule++) {
        printf("%-14s %-8s %s\n", rule->name, rule->error ? "error" : "warning", rule->help);
    }
    return ZOF_EXIT_CLEAN;
}

static void findings_json(const zof_check_t &check) {
    cJSON *list = cJSON_CreateArray();
    for (u32 i = 0; i < check.count; i++) {
        const zof_finding_t &f = check.findings[i];
        cJSON *finding = cJSON_CreateObject();
        cJSON_AddStringToObject(finding, "file", f.file);
        cJSON_AddNumberToObject(finding, "line", f.line);
        cJSON_AddNumberToObject(finding, "column", f.col);
        cJSON_AddStringToObject(finding, "severity", opt.strict || f.rule->error ? "error" : "warning");
        cJSON_AddStringToObject(finding, "rule", f.rule->name);
        cJSON_AddStringToObject(finding, "key", f.key);
        cJSON_AddStringToObject(finding, "text", f.text);
        cJSON_AddItemToArray(list, finding);
    }
    printf("%s\n", json_print(list).c_str());
}

// As a finding, for programs that read no other output.
static void no_project_print() {
    const zof_check_rule_t *rule = zof_check_rules;
    while (rule->name && std::string(rule->name) != "file-missing") {
        rule++;
    }
    char file[] = "config/project/zofprj.g", text[] = "there is no file of this name";
    zof_finding_t finding = {rule, file, 1, 1, file + strlen(file), text};
    findings_json({&finding, 1, 1});
}

static void text_print(const char *folder, const zof_check_t &check) {
    for (u32 i = 0; i < std::min(check.count, (u32)SHOWN_MAX); i++) {
        char line[1500];
        zof_check_line(&check.findings[i], opt.strict, line, sizeof line);
        printf("%s%s\n", folder, line);
    }
    if (check.count > SHOWN_MAX) {
        fprintf(stderr, "%u more; --format json lists all\n", check.count - SHOWN_MAX);
    }
    const u32 errors = opt.strict ? check.count : check.errors;
    if (check.count) {
        fprintf(stderr, "%u error%s, %u warning%s\n", errors, errors == 1 ? "" : "s", check.count - errors,
                check.count - errors == 1 ? "" : "s");
    }
}

static int check_run() {
    char folder[1024];
    if (opt.rules) {
        return rules_print();
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
    lv_init(); // for the decoders of pictures and fonts
    zof_check_t check;
    const bool readable = zof_check_project(folder, &check) == 0;
    if (opt.format == "json") {
        findings_json(check);
    } else {
        text_print(folder, check);
    }
    const int result = !readable ? ZOF_EXIT_UNREADABLE : check.count ? ZOF_EXIT_FINDINGS : ZOF_EXIT_CLEAN;
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
