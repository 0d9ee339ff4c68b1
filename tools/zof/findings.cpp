#include "findings.h"

#include <algorithm>
#include <cstdio>
#include <string>

#include "catalogue/json_in.h"

enum { SHOWN_MAX = 200 }; // limit for text output, because one cause may produce thousands of findings

void rules_print(const zof_check_rule_t *rule) {
    for (; rule->name; rule++) {
        printf("%-14s %-8s %s\n", rule->name, rule->error ? "error" : "warning", rule->help);
    }
}

static void findings_json(const zof_check_t &check, bool strict) {
    cJSON *list = cJSON_CreateArray();
    for (u32 i = 0; i < check.count; i++) {
        const zof_finding_t &f = check.findings[i];
        cJSON *finding = cJSON_CreateObject();
        cJSON_AddStringToObject(finding, "file", f.file);
        cJSON_AddNumberToObject(finding, "line", f.line);
        cJSON_AddNumberToObject(finding, "column", f.col);
        cJSON_AddStringToObject(finding, "severity", strict || f.rule->error ? "error" : "warning");
        cJSON_AddStringToObject(finding, "rule", f.rule->name);
        cJSON_AddStringToObject(finding, "key", f.key);
        cJSON_AddStringToObject(finding, "text", f.text);
        cJSON_AddItemToArray(list, finding);
    }
    printf("%s\n", json_print(list).c_str());
}

static void text_print(const char *folder, const zof_check_t &check, bool strict) {
    for (u32 i = 0; i < std::min(check.count, (u32)SHOWN_MAX); i++) {
        char line[1500];
        zof_check_line(&check.findings[i], strict, line, sizeof line);
        printf("%s%s\n", folder, line);
    }
    if (check.count > SHOWN_MAX) {
        fprintf(stderr, "%u more; --format json lists all\n", check.count - SHOWN_MAX);
    }
    const u32 errors = strict ? check.count : check.errors;
    if (check.count) {
        fprintf(stderr, "%u error%s, %u warning%s\n", errors, errors == 1 ? "" : "s", check.count - errors,
                check.count - errors == 1 ? "" : "s");
    }
}

void findings_print(const char *folder, const zof_check_t &check, bool json, bool strict) {
    if (json) {
        findings_json(check, strict);
    } else {
        text_print(folder, check, strict);
    }
}
