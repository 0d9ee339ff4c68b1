// The rules, the order in which the files are checked, and the list of findings.
#include "check/zof_check.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>

#include "check/zof_check_in.h"
#include "zof_lib/zof_cson_in.h"
#include "zof_lib/zof_util.h"

// clang-format off
const zof_check_rule_t zof_check_rules[] = {
    {"syntax", ZOF_TRUE, "the file is not valid JSON"},
    {"comment", ZOF_TRUE, "JSON has no comments"},
    {"comma", ZOF_TRUE, "a comma after the last member or element"},
    {"encoding", ZOF_TRUE, "the file is not saved as UTF-8"},
    {"mark", ZOF_FALSE, "the file begins with a byte order mark"},
    {"escape", ZOF_TRUE, "an escape that ends its text"},
    {"key-twice", ZOF_TRUE, "a key is given twice in one object"},
    {"key-unknown", ZOF_TRUE, "no object of this kind has the key"},
    {"key-place", ZOF_TRUE, "the key belongs into another object"},
    {"kind", ZOF_TRUE, "the value is of the wrong kind, so it counts as absent"},
    {"range", ZOF_TRUE, "the number is out of range"},
    {"fraction", ZOF_FALSE, "the number has a fraction, which is cut off"},
    {"name", ZOF_TRUE, "the name or number is not one that the key knows"},
    {"colour", ZOF_TRUE, "not a colour"},
    {"missing", ZOF_TRUE, "a key is missing without which the object is left out or has no effect"},
    {"invisible", ZOF_FALSE, "the control has no opacity or no size"},
    {"dead", ZOF_FALSE, "a control that is made to be touched takes no touches"},
    {"id", ZOF_TRUE, "an id is invalid or used twice"},
    {"identifier", ZOF_FALSE, "the name of a control makes no unique identifier"},
    {"parent", ZOF_TRUE, "the parent does not exist, comes later, or cannot hold the control"},
    {"outside", ZOF_FALSE, "the control is outside its parent or the screen"},
    {"ends", ZOF_TRUE, "the ends of a range are equal or in the wrong order"},
    {"options", ZOF_FALSE, "a list of options or captions has a wrong form"},
    {"style", ZOF_FALSE, "a style for a part, state or section that the control does not have"},
    {"style-twice", ZOF_FALSE, "two styles for the same part, state and section"},
    {"view-entry", ZOF_TRUE, "an entry of `views` that cannot be used"},
    {"view-unlisted", ZOF_FALSE, "a view file without an entry in the project file"},
    {"view-id", ZOF_TRUE, "`v_id` is not the `pageId` of the view"},
    {"start-page", ZOF_TRUE, "the start page is not a view"},
    {"file-missing", ZOF_TRUE, "a file that is named does not exist"},
    {"file-case", ZOF_TRUE, "the name of a file differs in upper and lower case"},
    {"file-name", ZOF_TRUE, "a name that the runtime does not open"},
    {"file-damaged", ZOF_TRUE, "a file cannot be read or decoded"},
    {"theme", ZOF_FALSE, "there is no such theme, or no type for a theme file"},
    {"language", ZOF_TRUE, "there is no such language"},
    {"text-missing", ZOF_FALSE, "a language has no text for a key"},
    {"text-unused", ZOF_FALSE, "no file uses the text; a program may"},
    {"link", ZOF_TRUE, "the serial link cannot work"},
    {"ignore", ZOF_FALSE, "a line of zof-check.ignore has a wrong form, or names no finding"},
    {},
};
// clang-format on
static_assert(sizeof zof_check_rules / sizeof zof_check_rules[0] == CHECK_RULE_COUNT + 1);

// Findings ---------------------------------------------------------------------------------------------------------

static void path_part(const zof_jdoc_t *doc, u32 node, char *out, size_t size) {
    const zof_jnode_t *at = &doc->nodes[node];
    if (at->key != ZOF_J_NONE) {
        char key[128];
        zof_jdoc_key(doc, node, key, sizeof key);
        std::snprintf(out, size, ".%s", key);
        return;
    }
    u32 index = 0;
    for (u32 before = doc->nodes[at->parent].child; before != node; before = doc->nodes[before].next) {
        index++;
    }
    std::snprintf(out, size, "[%u]", index);
}

void check_path(const zof_jdoc_t *doc, u32 node, char *out, size_t size) {
    enum { DEPTH_MAX = 16 };
    u32 way[DEPTH_MAX];
    u32 depth = 0;
    for (; node < doc->count && doc->nodes[node].parent != ZOF_J_NONE && depth < DEPTH_MAX;
         node = doc->nodes[node].parent) {
        way[depth++] = node;
    }
    out[0] = 0;
    for (size_t length = 0; depth-- > 0 && length + 1 < size; length = std::strlen(out)) {
        char part[160];
        path_part(doc, way[depth], part, sizeof part);
        std::snprintf(out + length, size - length, "%s", part + (length == 0 && part[0] == '.'));
    }
}

static void report(check_run_t *c, const check_file_t *file, u32 node, u32 at, check_rule_e rule, const char *fmt,
                   va_list args) {
    zof_finding_t *made = check_add(c->findings);
    if (!made) {
        c->no_memory = true;
        return;
    }
    char text[400], key[256] = "";
    std::vsnprintf(text, sizeof text, fmt, args);
    *made = {&zof_check_rules[rule], zof_text_copy(file->path), 1, 1, nullptr, nullptr};
    if (file->text) {
        zof_jdoc_place(&file->doc, at, &made->line, &made->col);
        check_path(&file->doc, node, key, sizeof key);
    }
    made->key = zof_text_copy(key);
    made->text = zof_text_copy(text);
    c->no_memory = c->no_memory || !made->file || !made->key || !made->text;
}

void check_report_at(check_run_t *c, const check_file_t *file, u32 node, u32 at, check_rule_e rule, const char *fmt,
                     ...) {
    va_list args;
    va_start(args, fmt);
    report(c, file, node, at, rule, fmt, args);
    va_end(args);
}

void check_report(check_run_t *c, const check_file_t *file, u32 node, check_rule_e rule, const char *fmt, ...) {
    va_list args;
    va_start(args, fmt);
    report(c, file, node, node < file->doc.count ? file->doc.nodes[node].at : 0, rule, fmt, args);
    va_end(args);
}

void check_report_key(check_run_t *c, const check_file_t *file, u32 node, check_rule_e rule, const char *fmt, ...) {
    const zof_jnode_t *at = node < file->doc.count ? &file->doc.nodes[node] : nullptr;
    va_list args;
    va_start(args, fmt);
    report(c, file, node, !at ? 0 : at->key != ZOF_J_NONE ? at->key : at->at, rule, fmt, args);
    va_end(args);
}

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

s32 zof_check_line(const zof_finding_t *finding, zof_bool strict, char *out, size_t size) {
    const bool error = strict || finding->rule->error;
    return std::snprintf(out, size, "%s:%u:%u: %s: %s [%s]", finding->file, finding->line, finding->col,
                         error ? "error" : "warning", finding->text, finding->rule->name);
}

// Running ----------------------------------------------------------------------------------------------------------

bool check_same(const char *a, const char *b) {
    return cson_same_key(a, b);
}

bool check_begins(const char *text, const char *start) {
    return std::strncmp(text, start, std::strlen(start)) == 0;
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

bool check_file_whole(const check_file_t *file) {
    return file->text && file->doc.count && !file->doc.ended && file->doc.nodes[0].kind == ZOF_J_OBJECT;
}

// Whatever the project file knows of the others must be known before they are checked: the size of the design, which
// views there are. Language files come before those that use their texts.
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
        } else if (check_begins(file->path, "config/theme/")) {
            check_theme_file(c, file);
        } else if (std::strcmp(file->path, "config/project/zofhmi.g") == 0) {
            check_link_file(c, file);
        }
    }
    check_words(c);
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
    }
    result_take(&c, out);
    check_folder_free(&c);
    zof_free(c.ctrl_of_id);
    return readable && !c.no_memory ? 0 : -1;
}
