// `zof check`: prints what the library's checker finds.
#include <cstdio>
#include <string>

#include "check/zof_check.h"
#include "lvgl.h"
#include "zof.h"

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

static std::string quoted(const char *text) {
    std::string out = "\"";
    for (const char *c = text; *c; c++) {
        char escape[8];
        snprintf(escape, sizeof escape, "\\u%04x", (unsigned char)*c);
        out += (unsigned char)*c < ' ' ? escape : *c == '"' || *c == '\\' ? std::string("\\") + *c : std::string(1, *c);
    }
    return out + "\"";
}

static void json_print(const zof_check_t &check) {
    printf("[");
    for (u32 i = 0; i < check.count; i++) {
        const zof_finding_t &f = check.findings[i];
        printf(
            "%s\n  {\"file\": %s, \"line\": %u, \"column\": %u, \"severity\": \"%s\", \"rule\": \"%s\", \"key\": %s, "
            "\"text\": %s}",
            i ? "," : "", quoted(f.file).c_str(), f.line, f.col, opt.strict || f.rule->error ? "error" : "warning",
            f.rule->name, quoted(f.key).c_str(), quoted(f.text).c_str());
    }
    printf("%s]\n", check.count ? "\n" : "");
}

static void text_print(const char *folder, const zof_check_t &check) {
    for (u32 i = 0; i < check.count; i++) {
        char line[1500];
        zof_check_line(&check.findings[i], opt.strict, line, sizeof line);
        printf("%s%s\n", folder, line);
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
        return ZOF_EXIT_UNREADABLE;
    }
    lv_init(); // for the decoders of pictures and fonts
    zof_check_t check;
    const bool readable = zof_check_project(folder, &check) == 0;
    if (opt.format == "json") {
        json_print(check);
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
