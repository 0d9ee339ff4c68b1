// zof-check.ignore, a file of the project folder, lists findings to suppress, one per line:
//     RULE FILE[:KEY] REASON
// KEY is the key path of the value, as in `zof check --format json`; a '*' at the end of FILE:KEY matches any rest.
// Without KEY, a line matches every finding of the rule in the file. Blank lines and lines that begin with '#' are
// skipped.
#include <cstdio>
#include <cstring>

#include "check/zof_check_in.h"
#include "drv/zof_drv_file.h"
#include "zof_lib/zof_util.h"

enum { WORD_SIZE = 512 };

// Copies the next word, up to a blank, and returns the position after the blanks that follow it.
static const char *word_take(const char *at, const char *end, char *word) {
    size_t length = 0;
    for (; at < end && *at != ' ' && *at != '\t'; at++) {
        if (length + 1 < WORD_SIZE) {
            word[length++] = *at;
        }
    }
    word[length] = 0;
    while (at < end && (*at == ' ' || *at == '\t')) {
        at++;
    }
    return at;
}

static bool place_matches(const char *pattern, const zof_finding_t *finding) {
    char place[WORD_SIZE];
    if (std::strcmp(pattern, finding->file) == 0) {
        return true;
    }
    const size_t length = std::strlen(pattern);
    std::snprintf(place, sizeof place, "%s%s%s", finding->file, finding->key[0] ? ":" : "", finding->key);
    return length && pattern[length - 1] == '*' ? std::strncmp(place, pattern, length - 1) == 0
                                                : std::strcmp(place, pattern) == 0;
}

// Removes the findings that a line names. Returns true if there were any.
static bool findings_drop(check_run_t *c, const char *rule, const char *place) {
    u32 kept = 0;
    for (u32 i = 0; i < c->findings.count; i++) {
        zof_finding_t *finding = &c->findings.at[i];
        if (finding->file && finding->key && std::strcmp(finding->rule->name, rule) == 0 &&
            place_matches(place, finding)) {
            zof_free(finding->file);
            zof_free(finding->key);
            zof_free(finding->text);
        } else {
            c->findings.at[kept++] = *finding;
        }
    }
    const bool any = kept != c->findings.count;
    c->findings.count = kept;
    return any;
}

static bool is_lint_rule(const char *name) {
    const zof_check_rule_t *rule = zof_lint_rules;
    while (rule->name && std::strcmp(rule->name, name) != 0) {
        rule++;
    }
    return rule->name != nullptr;
}

static void line_apply(check_run_t *c, const check_file_t *file, const char *line, const char *end) {
    char rule[WORD_SIZE], place[WORD_SIZE];
    const u32 at = (u32)(line - file->text);
    const char *rest = word_take(line, end, rule);
    rest = word_take(rest, end, place);
    if (line == end || *line == '#') {
        return;
    }
    if (is_lint_rule(rule) != c->lint) {
        return;
    }
    if (rest == end) {
        check_report_at(c, file, ZOF_J_NONE, at, CHECK_IGNORE, "expected RULE FILE[:KEY] REASON");
    } else if (!findings_drop(c, rule, place) && !c->limited) {
        check_report_at(c, file, ZOF_J_NONE, at, CHECK_IGNORE, "there is no finding %s at %s; remove the line", rule,
                        place);
    }
}

void check_ignore(check_run_t *c) {
    check_file_t *file = check_file_find(c, "zof-check.ignore", false);
    char path[1024];
    u32 size = 0;
    const char *why = "";
    std::snprintf(path, sizeof path, "%szof-check.ignore", c->folder);
    file = file && !file->text ? file : nullptr;
    if (file && (file->text = (char *)zof_file_read_all(path, 1 << 20, &size, &why)) != nullptr) {
        file->doc.text = file->text; // needed to find the places of its lines
        file->doc.size = size;
        for (const char *line = file->text, *all = line + size; line < all;) {
            const char *end = (const char *)std::memchr(line, '\n', (size_t)(all - line));
            end = end ? end : all;
            line_apply(c, file, line, end > line && end[-1] == '\r' ? end - 1 : end);
            line = end + 1;
        }
    }
}
