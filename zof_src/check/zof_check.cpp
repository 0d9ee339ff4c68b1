// Checks the files of a project in order.
#include "check/zof_check.h"

#include <algorithm>
#include <cstring>

#include "check/zof_check_in.h"
#include "zof_lib/zof_util.h"

static void finding_free(zof_finding_t *finding) {
    zof_free(finding->file);
    zof_free(finding->key);
    zof_free(finding->text);
}

void zof_check_free(zof_check_t *check) {
    for (u32 i = 0; i < check->count; i++) {
        finding_free(&check->findings[i]);
    }
    zof_free(check->findings);
    *check = {};
}

static bool finding_before(const zof_finding_t &a, const zof_finding_t &b) {
    const int files = a.file && b.file ? std::strcmp(a.file, b.file) : 0;
    return files != 0 ? files < 0 : a.line != b.line ? a.line < b.line : a.col < b.col;
}

static check_rule_e rule_of(const char *name) {
    u32 rule = 0;
    while (rule < CHECK_RULE_COUNT && std::strcmp(zof_check_rules[rule].name, name) != 0) {
        rule++;
    }
    return rule < CHECK_RULE_COUNT ? (check_rule_e)rule : CHECK_SYNTAX;
}

static void json_faults(check_run_t *c, const check_file_t *file) {
    for (u32 i = 0; i < file->doc.fault_count; i++) {
        const zof_jfault_t *fault = &file->doc.faults[i];
        check_report_at(c, file, ZOF_J_NONE, fault->at, rule_of(fault->rule), "%s", fault->text);
    }
    if (file->doc.count && file->doc.nodes[0].kind != ZOF_J_OBJECT) {
        check_report(c, file, 0, CHECK_SYNTAX, "expected an object");
    }
}

// Facts from the project file must be known before the other files are checked: the size of the design, and which views
// exist. Language files come before the files that use their texts.
static void files_check(check_run_t *c) {
    for (u32 i = 0; i < c->files.count; i++) {
        json_faults(c, &c->files.at[i]);
        if (check_file_whole(&c->files.at[i]) && check_begins(c->files.at[i].path, "config/languages/")) {
            check_language_file(c, &c->files.at[i]);
        }
    }
    check_project_file(c);
    for (u32 i = 0; i < c->files.count; i++) {
        check_file_t *file = &c->files.at[i];
        const bool view = check_begins(file->path, "config/view/");
        if (!check_file_whole(file)) {
            c->broken = c->broken || view;
            continue;
        }
        if (view) {
            check_view_file(c, file);
        } else if (check_is_looks(file)) {
            check_looks_file(c, file);
        } else if (check_begins(file->path, "config/theme/")) {
            check_theme_file(c, file);
        } else if (std::strcmp(file->path, "config/icons.g") == 0) {
            check_icon_file(c, file);
        } else if (std::strcmp(file->path, "config/project/zofhmi.g") == 0) {
            check_link_file(c, file);
        }
    }
    check_looks_unused(c);
    check_words(c);
    check_language_need(c);
    check_media(c);
    check_ignore(c);
}

static void result_take(check_run_t *c, zof_check_t *out) {
    std::stable_sort(c->findings.at, c->findings.at + c->findings.count, finding_before);
    *out = {c->findings.at, c->findings.count, 0};
    for (u32 i = 0; i < out->count; i++) {
        out->errors += out->findings[i].rule->error;
    }
}

s32 zof_check_add(zof_check_t *check, const zof_finding_t *finding) {
    zof_finding_t made = *finding;
    auto *grown = (zof_finding_t *)zof_realloc(check->findings, (check->count + 1) * sizeof(zof_finding_t));
    check->findings = grown ? grown : check->findings;
    made.file = zof_text_copy(finding->file);
    made.key = zof_text_copy(finding->key);
    made.text = zof_text_copy(finding->text);
    if (!grown || !made.file || !made.key || !made.text) {
        finding_free(&made);
        return -1;
    }
    check->findings[check->count++] = made;
    return 0;
}

void zof_lint_settle(const char *folder, zof_bool whole, zof_check_t *check) {
    check_run_t c = {.folder = folder, .out = check, .lint = true, .limited = !whole};
    c.findings = {check->findings, check->count, check->count};
    check_file_t *file = check_add(c.files);
    if (file && (file->path = zof_text_copy("zof-check.ignore")) != nullptr) {
        check_ignore(&c);
    }
    result_take(&c, check);
    check_folder_free(&c);
}

s32 zof_check_project(const char *folder, zof_check_t *out) {
    *out = {};
    check_run_t c = {};
    c.folder = folder;
    c.out = out;
    c.ctrl_of_id = (u32 *)zof_malloc((UINT16_MAX + 1) * sizeof(u32));
    c.no_memory = !c.ctrl_of_id || !check_folder_read(&c);
    c.project = check_file_find(&c, "config/project/zofprj.g", false);
    const bool readable = c.project && c.project->text && !c.no_memory;
    if (readable) {
        files_check(&c);
    } else if (!c.project && !c.no_memory) {
        const check_file_t project = {.path = (char *)"config/project/zofprj.g"};
        check_report_at(&c, &project, ZOF_J_NONE, 0, CHECK_FILE_MISSING, "there is no file of this name");
    }
    result_take(&c, out);
    check_folder_free(&c);
    zof_free(c.ctrl_of_id);
    return readable && !c.no_memory ? 0 : -1;
}
