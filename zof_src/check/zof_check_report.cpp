// The rules, and the list of findings.
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
    {"strict", ZOF_FALSE, "the runtime reads it, but it is not JSON, and other programs refuse it"},
    {"key-twice", ZOF_TRUE, "a key is given twice in one object"},
    {"key-unknown", ZOF_TRUE, "no object of this kind has the key"},
    {"key-place", ZOF_TRUE, "the key belongs in another object"},
    {"kind", ZOF_TRUE, "the value is of the wrong kind, so it counts as absent"},
    {"range", ZOF_TRUE, "the number is out of range"},
    {"fraction", ZOF_FALSE, "the number has a fraction, which is cut off"},
    {"name", ZOF_TRUE, "the name or number is not one that the key knows"},
    {"colour", ZOF_TRUE, "not a colour"},
    {"missing", ZOF_TRUE, "a key is missing without which the object is left out or has no effect"},
    {"incomplete", ZOF_FALSE, "a key is missing without which the control shows or does nothing until the program sets it"},
    {"invisible", ZOF_FALSE, "the control has no opacity or no size"},
    {"dead", ZOF_FALSE, "a control that is made to be touched takes no touches"},
    {"id", ZOF_TRUE, "an id is invalid or used twice"},
    {"identifier", ZOF_FALSE, "the name of a control makes no unique identifier"},
    {"parent", ZOF_TRUE, "the parent does not exist, comes later, or cannot hold the control"},
    {"outside", ZOF_FALSE, "the control is outside its parent or the screen"},
    {"ends", ZOF_TRUE, "the ends of a range are equal or in the wrong order"},
    {"options", ZOF_FALSE, "a list of options or captions has a wrong form"},
    {"action", ZOF_TRUE, "an action has a wrong form, or names something that does not exist"},
    {"style", ZOF_FALSE, "a style for a part, state or section that the control does not have"},
    {"style-twice", ZOF_FALSE, "two styles for the same part, state and section"},
    {"view-entry", ZOF_TRUE, "an entry of `views` that cannot be used"},
    {"view-unlisted", ZOF_FALSE, "a view file without an entry in the project file"},
    {"view-id", ZOF_TRUE, "`v_id` is not the `pageId` of the view"},
    {"start-page", ZOF_TRUE, "the start page is not a view"},
    {"file-missing", ZOF_TRUE, "a file that is named does not exist"},
    {"file-case", ZOF_TRUE, "the name of a file differs in upper and lower case"},
    {"file-name", ZOF_TRUE, "a name or a link that the runtime does not open"},
    {"file-damaged", ZOF_TRUE, "a file cannot be read or decoded"},
    {"not-built-in", ZOF_FALSE, "a clip or compressed sound, which this build does not play"},
    {"folder", ZOF_FALSE, "a folder whose name is nearly one that the runtime reads"},
    {"theme", ZOF_FALSE, "there is no such theme, or no type for a theme file"},
    {"look", ZOF_TRUE, "a look or a colour that does not exist, or that refers to itself"},
    {"look-unused", ZOF_FALSE, "no control has the look, and none inherits from it"},
    {"language", ZOF_TRUE, "there is no such language"},
    {"text-missing", ZOF_FALSE, "a language has no text for a key"},
    {"icon", ZOF_FALSE, "a text names an icon that config/icons.g does not have"},
    {"text-unused", ZOF_FALSE, "no file uses the text; a program may"},
    {"link", ZOF_TRUE, "the serial link cannot work"},
    {"ignore", ZOF_FALSE, "a line of zof-check.ignore has a wrong form, or names no finding"},
    {},
};

const zof_check_rule_t zof_lint_rules[] = {
    {"text-cut", ZOF_FALSE, "a text is cut off, or ends in dots because it does not fit"},
    {"word-cut", ZOF_FALSE, "a word does not fit into its line and is split"},
    {"letter", ZOF_FALSE, "no font of the text has a letter, so that a box is drawn"},
    {"contrast", ZOF_FALSE, "the contrast of a text to what is drawn behind it is below 4.5:1, of a symbol below 3:1"},
    {"overlap", ZOF_FALSE, "two texts overlap"},
    {"covered", ZOF_FALSE, "a control is covered, or parts of it take no touches, because another one is in front of it"},
    {"cut-off", ZOF_FALSE, "a control is outside of what can be seen or scrolled to"},
    {"target", ZOF_FALSE, "a control is too small for a finger: below 44 px, or 48 px if it is round"},
    {"scaled-up", ZOF_FALSE, "a picture is drawn larger than it is"},
    {"font-unused", ZOF_FALSE, "a font is loaded, but no control shows texts in it"},
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

s32 zof_check_line(const zof_finding_t *finding, zof_bool strict, char *out, size_t size) {
    const bool error = strict || finding->rule->error;
    return std::snprintf(out, size, "%s:%u:%u: %s: %s [%s]", finding->file, finding->line, finding->col,
                         error ? "error" : "warning", finding->text, finding->rule->name);
}

bool check_same(const char *a, const char *b) {
    return cson_same_key(a, b);
}

bool check_begins(const char *text, const char *start) {
    return std::strncmp(text, start, std::strlen(start)) == 0;
}

bool check_file_whole(const check_file_t *file) {
    return file->text && file->doc.count && !file->doc.ended && file->doc.nodes[0].kind == ZOF_J_OBJECT;
}
