// The faults of project files. The parser keeps no places: only when a fault was found, its value is counted in the
// tree, and the file is read again up to the value of that number.
#include "project/read/zof_fault.h"

#include <cstdarg>
#include <cstdio>
#include <cstring>

#include "project/read/zof_j2s.h"
#include "zof_lib/zof_stdio.h"

enum { KEY_SIZE = 256, TEXT_SIZE = 512, LOGGED_MAX = 50 };
enum { PLACED_MAX = 200 }; // faults of a file whose values are looked for, which takes time

static thread_local struct {
    zof_fault_fn to;
    const zof_fault_scope *scope; // the innermost
    u32 logged, placed;           // faults of the current file
} faults;

void zof_fault_to(zof_fault_fn fn) {
    faults.to = fn;
}

void zof_fault_file_begin(void) {
    faults.logged = faults.placed = 0;
}

static void value_fault(const void *value, const char *text) {
    zof_fault_at((const cJSON *)value, "%s", text);
}

zof_fault_scope::zof_fault_scope(const char *file, const cJSON *tree)
    : path(file ? file : ""), root(tree), outer(faults.scope), former(csonFaultTo(value_fault)) {
    faults.scope = this;
}

zof_fault_scope::~zof_fault_scope() {
    csonFaultTo(former);
    faults.scope = outer;
}

void zof_fault_log(const zof_fault_t *fault) {
    char place[32] = "";
    if (fault->line) {
        std::snprintf(place, sizeof place, ":%u:%u", fault->line, fault->col);
    }
    faults.logged++;
    if (faults.logged <= LOGGED_MAX) {
        zof_printf("%s%s: %s%s%s", fault->file, place, fault->key, fault->key[0] ? ": " : "", fault->text);
    } else if (faults.logged == LOGGED_MAX + 1) {
        zof_printf("%s: more faults are not shown", fault->file);
    }
}

static void report(const char *path, const char *text, const char *at, const char *key, zof_bool broken,
                   const char *fmt, va_list args) {
    char said[TEXT_SIZE];
    std::vsnprintf(said, sizeof said, fmt, args);
    zof_fault_t fault = {path, at ? 1u : 0u, 0, key, said, broken};
    const char *line_start = text;
    for (const char *c = text; at && c < at && *c; c++) {
        if (*c == '\n') {
            fault.line++;
            line_start = c + 1;
        }
    }
    fault.col = at ? (u32)(at - line_start) + 1 : 0;
    (faults.to ? faults.to : zof_fault_log)(&fault);
}

// Puts a part in front of a key; what does not fit is cut off at the end.
static void key_prepend(char *key, const char *part) {
    char whole[KEY_SIZE];
    std::snprintf(whole, sizeof whole, "%s%s%s", part, key[0] && key[0] != '[' ? "." : "", key);
    std::memcpy(key, whole, sizeof whole);
}

// Looks for a value below `at`. Counts the values before it, in the order of the text, and makes its key.
static bool value_find(const cJSON *at, const cJSON *value, u32 *before, char *key) {
    if (at == value) {
        return true;
    }
    ++*before;
    u32 index = 0;
    for (const cJSON *child = at->child; child; child = child->next, index++) {
        if (value_find(child, value, before, key)) {
            char number[16];
            std::snprintf(number, sizeof number, "[%u]", index);
            key_prepend(key, child->string ? child->string : number);
            return true;
        }
    }
    return false;
}

// Returns the character after a text in quotes, or the end.
static const char *text_end(const char *c) {
    for (c++; *c && *c != '"'; c++) {
        c += *c == '\\' && c[1];
    }
    return *c ? c + 1 : c;
}

static const char *blanks_end(const char *c) {
    while (*c && (u8)*c <= ' ') {
        c++;
    }
    return c;
}

// Returns the place of the value that comes after `before` others, or of its key; null if there are not as many.
static const char *value_place(const char *text, u32 before) {
    const char *key = nullptr;
    const char *c = std::strncmp(text, "\xEF\xBB\xBF", 3) == 0 ? text + 3 : text;
    while (*c) {
        if (std::strchr(",]}", *c) || (u8)*c <= ' ') {
            c++;
            continue;
        }
        const char *start = c;
        c = *c == '"' ? text_end(c) : *c == '{' || *c == '[' ? c + 1 : c + std::strcspn(c, ",]} \t\r\n");
        if (*start == '"' && *blanks_end(c) == ':') {
            key = start;
            c = blanks_end(c) + 1;
            continue;
        }
        if (before-- == 0) {
            return key ? key : start;
        }
        key = nullptr;
    }
    return nullptr;
}

static void report_value(const cJSON *value, const char *fmt, va_list args) {
    char key[KEY_SIZE] = "";
    u32 before = 0;
    const zof_fault_scope *scope = faults.scope;
    if (++faults.placed > PLACED_MAX) {
        if (faults.placed == PLACED_MAX + 1) {
            report(scope ? scope->path : "", nullptr, nullptr, "", ZOF_FALSE, "more faults are not reported", args);
        }
        return;
    }
    if (!scope || !scope->root || !value_find(scope->root, value, &before, key)) {
        report(scope ? scope->path : "", nullptr, nullptr, value && value->string ? value->string : "", ZOF_FALSE, fmt,
               args);
        return;
    }
    char *text = zof_j2s_text(scope->path, nullptr);
    report(scope->path, text, text ? value_place(text, before) : nullptr, key, ZOF_FALSE, fmt, args);
    Freebuff(text);
}

void zof_fault_at(const cJSON *value, const char *fmt, ...) {
    va_list args;
    va_start(args, fmt);
    report_value(value, fmt, args);
    va_end(args);
}

void zof_fault_of_key(const char *path, const char *key, const char *fmt, ...) {
    zof_rootjson_t file = zof_j2s_peek(path);
    {
        const zof_fault_scope scope(path, file.root);
        const cJSON *value = cJSON_GetObjectItem(file.root, key);
        va_list args;
        va_start(args, fmt);
        report_value(value ? value : file.root, fmt, args);
        va_end(args);
    }
    RootJsonDel(&file);
}

void zof_fault_in_text(const char *path, const char *text, const char *at, const char *fmt, ...) {
    va_list args;
    va_start(args, fmt);
    report(path ? path : "", text, at, "", ZOF_TRUE, fmt, args);
    va_end(args);
}
