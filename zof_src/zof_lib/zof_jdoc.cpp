// Reads JSON into nodes with places. Reading goes on as far as cJSON accepts a text, because that decides whether a
// project loads. What cJSON refuses is reported, and skipped where the writer's intent is clear; what it accepts
// although it is not JSON, such as a line break in a text, is reported too, as other programs refuse it. Nothing
// recurses: open objects and arrays are found through their nodes' parents.
#include "zof_lib/zof_jdoc.h"

#include <cjson/cJSON.h>

#include <algorithm>
#include <cctype>
#include <cstdarg>
#include <cstdio>
#include <cstring>

#include "zof_lib/zof_jdoc_in.h"
#include "zof_lib/zof_stdio.h"
#include "zof_lib/zof_util.h"

enum { FAULTS_MAX = 64, NODES_FIRST = 256 };

// Where reading stands. While a node is open its `end` holds its last child.
struct reader_t {
    zof_jdoc_t *doc;
    u32 at, size;
    u32 open; // the innermost object or array
    u32 depth;
    u32 capacity; // of nodes
    u32 key, key_end;
    u32 lines;  // the text just read if it runs over the end of its line, because a quote may be missing; or ZOF_J_NONE
    bool after; // a value of the open node has just ended
    bool stopped;
    bool no_memory;
};

static u8 peek(const reader_t *r) {
    return r->at < r->size ? (u8)r->doc->text[r->at] : 0;
}

// The last place is kept for the fault that ends reading.
ZOF_PRINTF_LIKE(4, 5) static void fault(reader_t *r, u32 at, const char *rule, const char *fmt, ...) {
    const u32 most = r->stopped ? FAULTS_MAX : FAULTS_MAX - 1;
    if (r->doc->fault_count >= most) {
        return;
    }
    zof_jfault_t *made = &r->doc->faults[r->doc->fault_count++];
    made->at = at;
    made->rule = rule;
    va_list args;
    va_start(args, fmt);
    std::vsnprintf(made->text, sizeof made->text, fmt, args);
    va_end(args);
}

// Writes the character at the current place for a message: "\"x\"", or what stands for it.
static const char *found(const reader_t *r, char *out, size_t size) {
    const u32 length = r->at < r->size ? zof_utf8_size(r->doc->text + r->at, r->size - r->at) : 0;
    if (r->at >= r->size) {
        std::snprintf(out, size, "the end of the file");
    } else if (length == 0 || peek(r) < ' ') {
        std::snprintf(out, size, "byte %02X", peek(r));
    } else {
        std::snprintf(out, size, "\"%.*s\"", (int)length, r->doc->text + r->at);
    }
    return out;
}

// Ends reading. If a text has run over the end of its line before, its quote is the likely cause, and the place.
static bool stop(reader_t *r, u32 at, const char *what) {
    r->stopped = true;
    if (r->lines != ZOF_J_NONE) {
        fault(r, r->lines, "syntax", "the text does not end on its line; is a quote missing?");
    } else {
        fault(r, at, "syntax", "%s", what);
    }
    return false;
}

// Writes where the innermost object or array begins, if its end is probably missing: the text ends, or a bracket stands
// here that cannot. Otherwise writes nothing.
static const char *unclosed(const reader_t *r, char *out, size_t size) {
    u32 line, col;
    out[0] = 0;
    if (r->open != ZOF_J_NONE && (r->at >= r->size || std::strchr("{}]", peek(r)))) {
        const zof_jnode_t *node = &r->doc->nodes[r->open];
        zof_jdoc_place(r->doc, node->at, &line, &col);
        std::snprintf(out, size, "; the %s began at %u:%u", node->kind == ZOF_J_OBJECT ? "object" : "array", line, col);
    }
    return out;
}

static bool expected(reader_t *r, const char *what) {
    char text[96], character[24], began[48];
    std::snprintf(text, sizeof text, "expected %s, found %s%s", what, found(r, character, sizeof character),
                  unclosed(r, began, sizeof began));
    return stop(r, r->at, text);
}

// What follows shows that the text just read was meant to run over the end of its line.
static void lines_accept(reader_t *r) {
    if (r->lines != ZOF_J_NONE) {
        fault(r, r->lines, "strict", "a line break in a text is written \\n");
        r->lines = ZOF_J_NONE;
    }
}

static u32 place_of(const reader_t *r, const char *c) {
    return (u32)(c - r->doc->text);
}

// Returns where a comment ends that begins here; the same place if none does.
static u32 comment_end(const reader_t *r) {
    const char *text = r->doc->text;
    static const char closing[] = "*/";
    const bool pair = r->at + 1 < r->size && text[r->at] == '/';
    if (pair && text[r->at + 1] == '*') {
        const char *end = std::search(text + r->at + 2, text + r->size, closing, closing + 2);
        return std::min(place_of(r, end) + 2, r->size);
    }
    if (text[r->at] == '#' || (pair && text[r->at + 1] == '/')) {
        return place_of(r, std::find(text + r->at, text + r->size, '\n'));
    }
    return r->at;
}

static void blanks_skip(reader_t *r) {
    while (r->at < r->size) {
        const u8 c = peek(r);
        if (c == 0) {
            return;
        }
        if (c <= ' ') {
            r->at++;
            continue;
        }
        const u32 end = c == '/' || c == '#' ? comment_end(r) : r->at;
        if (end == r->at) {
            return;
        }
        fault(r, r->at, "comment", "JSON has no comments");
        r->at = end;
    }
}

// Nodes ------------------------------------------------------------------------------------------------------------

static bool nodes_reserve(reader_t *r) {
    zof_jdoc_t *doc = r->doc;
    if (doc->count < r->capacity) {
        return true;
    }
    const u32 capacity = std::max(r->capacity * 2, std::max((u32)NODES_FIRST, r->size / 12));
    auto *nodes = (zof_jnode_t *)zof_realloc(doc->nodes, capacity * sizeof(zof_jnode_t));
    if (!nodes) {
        r->no_memory = r->stopped = true;
        return false;
    }
    doc->nodes = nodes;
    r->capacity = capacity;
    return true;
}

// Adds a node after the last child of the open one, with the key that was read before it.
static bool node_add(reader_t *r, zof_jkind_e kind, u32 at) {
    if (!nodes_reserve(r)) {
        return false;
    }
    zof_jdoc_t *doc = r->doc;
    const u32 index = doc->count++;
    const zof_jnode_t *before = index ? &doc->nodes[index - 1] : nullptr;
    const u32 line =
        (before ? before->line : 1) + (u32)std::count(doc->text + (before ? before->at : 0), doc->text + at, '\n');
    doc->nodes[index] = {kind, r->key, r->key_end, at, r->at, r->open, ZOF_J_NONE, ZOF_J_NONE, line};
    if (r->open != ZOF_J_NONE) {
        zof_jnode_t *parent = &doc->nodes[r->open];
        *(parent->child == ZOF_J_NONE ? &parent->child : &doc->nodes[parent->end].next) = index;
        parent->end = index;
    }
    return true;
}

static void node_close(reader_t *r) {
    zof_jnode_t *node = &r->doc->nodes[r->open];
    node->end = r->at;
    r->open = node->parent;
    r->depth--;
    r->after = true;
}

static bool node_open(reader_t *r, zof_jkind_e kind) {
    if (r->depth >= CJSON_NESTING_LIMIT) {
        return stop(r, r->at, "too many objects and arrays in each other");
    }
    if (!node_add(r, kind, r->at)) {
        return false;
    }
    r->open = r->doc->count - 1;
    r->depth++;
    r->at++;
    r->after = false;
    return true;
}

// Values -----------------------------------------------------------------------------------------------------------

// Checks the escapes of a text between its quotes.
static bool escapes_check(reader_t *r, u32 at, u32 end) {
    const char *text = r->doc->text;
    while (at < end) {
        u32 code = 1;
        const u32 size = text[at] == '\\' ? zof_jdoc_escape_read(text + at, end - at, &code) : 1;
        if (!size) {
            return stop(r, at, "invalid escape; a backslash is written \"\\\\\"");
        }
        if (code == 0) {
            fault(r, at, "escape", "\\u needs four hexadecimal digits other than 0000; the text ends here");
        }
        at += size;
    }
    return true;
}

// Moves to the end of the text that begins here. A text that runs over the end of its line is accepted, and remembered.
static bool text_skip(reader_t *r) {
    const char *text = r->doc->text;
    const u32 start = r->at;
    bool over = false, escapes = false;
    u32 at = start + 1;
    for (; at < r->size && text[at] != '"' && text[at]; at++) {
        over = over || text[at] == '\n';
        if (text[at] == '\\') {
            escapes = true;
            at++;
        }
    }
    if (at >= r->size || text[at] != '"') {
        return stop(r, start, "the text has no end; is a quote missing?");
    }
    if (escapes && !escapes_check(r, start + 1, at)) {
        return false;
    }
    r->lines = over ? start : ZOF_J_NONE;
    r->at = at + 1;
    return true;
}

static u32 digits_end(const reader_t *r, u32 at) {
    while (at < r->size && r->doc->text[at] >= '0' && r->doc->text[at] <= '9') {
        at++;
    }
    return at;
}

// Returns the end of the number at the current place; the place itself if no number starts there.
static u32 number_end(const reader_t *r) {
    const char *text = r->doc->text;
    const u32 start = r->at + (peek(r) == '-');
    u32 at = digits_end(r, start);
    u32 digits = at - start;
    if (at < r->size && text[at] == '.') {
        const u32 end = digits_end(r, at + 1);
        digits += end - at - 1;
        at = end;
    }
    if (digits == 0) {
        return r->at;
    }
    if (at < r->size && (text[at] | 0x20) == 'e') {
        const u32 sign = at + 1 < r->size && (text[at + 1] == '+' || text[at + 1] == '-');
        const u32 end = digits_end(r, at + 1 + sign);
        at = end > at + 1 + sign ? end : at;
    }
    return at;
}

// Stops at a number with the prefix 0x, which is probably a colour.
static bool hexadecimal_stop(reader_t *r) {
    const char *digits = r->doc->text + r->at + 2;
    const u32 left = r->size - r->at - 2;
    u32 count = 0;
    while (count < left && std::isxdigit((u8)digits[count])) {
        count++;
    }
    char text[96];
    std::snprintf(text, sizeof text, count == 6 ? "a colour is written \"#%.6s\"" : "numbers are decimal", digits);
    return stop(r, r->at, text);
}

// Reports a number that cJSON reads, but other programs refuse.
static void number_check(reader_t *r, u32 start, u32 end) {
    const char *text = r->doc->text;
    const u32 first = start + (text[start] == '-');
    const u32 whole = digits_end(r, first);
    if (text[first] == '0' && whole > first + 1) {
        fault(r, start, "strict", "a number does not begin with 0");
    } else if (whole < end && text[whole] == '.' && (whole == first || digits_end(r, whole + 1) == whole + 1)) {
        fault(r, start, "strict", "a number has digits before and after its point");
    }
}

static bool number_read(reader_t *r) {
    const u32 start = r->at, end = number_end(r);
    if (end == start) {
        return expected(r, "a number");
    }
    if (end - start == 1 && peek(r) == '0' && end < r->size && (r->doc->text[end] | 0x20) == 'x') {
        return hexadecimal_stop(r);
    }
    number_check(r, start, end);
    r->at = end;
    return node_add(r, ZOF_J_NUMBER, start);
}

static bool text_read(reader_t *r) {
    const u32 start = r->at;
    return text_skip(r) && node_add(r, ZOF_J_TEXT, start);
}

// Words in the form in which other languages write them, for the message.
static bool word_fault(reader_t *r) {
    static const struct {
        const char *word, *text;
    } rows[] = {{"'", "texts are written in double quotes"},
                {"true", "true is written in lower case"},
                {"false", "false is written in lower case"},
                {"null", "null is written in lower case"},
                {"none", "an absent value is left out, or null"},
                {"+", "numbers are written without +"},
                {".", "numbers begin with a digit"}};
    for (const auto &row : rows) {
        const size_t length = std::strlen(row.word);
        if (r->size - r->at >= length && zof_jdoc_same(r->doc->text + r->at, row.word, length)) {
            return stop(r, r->at, row.text);
        }
    }
    return expected(r, "a value");
}

static bool word_read(reader_t *r) {
    static const struct {
        const char *word;
        zof_jkind_e kind;
    } rows[] = {{"true", ZOF_J_TRUE}, {"false", ZOF_J_FALSE}, {"null", ZOF_J_NULL}};
    for (const auto &row : rows) {
        const auto length = (u32)std::strlen(row.word);
        if (r->size - r->at < length || std::memcmp(r->doc->text + r->at, row.word, length) != 0) {
            continue;
        }
        r->at += length;
        return node_add(r, row.kind, r->at - length);
    }
    return word_fault(r);
}

static bool value_read(reader_t *r) {
    const u8 c = peek(r);
    if (c == '{' || c == '[') {
        return node_open(r, c == '{' ? ZOF_J_OBJECT : ZOF_J_ARRAY);
    }
    const bool read = c == '"' ? text_read(r) : c == '-' || (c >= '0' && c <= '9') ? number_read(r) : word_read(r);
    r->after = read;
    return read;
}

// Objects and arrays -----------------------------------------------------------------------------------------------

static bool key_read(reader_t *r) {
    if (peek(r) != '"') {
        const bool bare = peek(r) == '\'' || peek(r) == '_' || std::isalpha(peek(r));
        return bare ? stop(r, r->at, "keys are written in double quotes") : expected(r, "a key");
    }
    r->key = r->at;
    if (!text_skip(r)) {
        return false;
    }
    r->key_end = r->at;
    blanks_skip(r);
    if (peek(r) != ':') {
        return expected(r, "\":\"");
    }
    lines_accept(r);
    r->at++;
    blanks_skip(r);
    return true;
}

// A comma that is missing before what is certainly the next member does not end reading.
static bool comma_missing(reader_t *r, bool object) {
    const u8 c = peek(r);
    if (r->lines == ZOF_J_NONE && (c == '"' || (!object && std::strchr("{[-0123456789tfn", c) && c))) {
        fault(r, r->at, "syntax", "expected \",\"");
        return true;
    }
    return expected(r, object ? "\",\" or \"}\"" : "\",\" or \"]\"");
}

// Reads the next member of the open node, or its end.
static bool member_read(reader_t *r) {
    const bool object = r->doc->nodes[r->open].kind == ZOF_J_OBJECT;
    blanks_skip(r);
    const u32 comma = r->after && peek(r) == ',' ? r->at : ZOF_J_NONE;
    if (comma != ZOF_J_NONE) {
        lines_accept(r);
        r->at++;
        blanks_skip(r);
    }
    if (peek(r) == (object ? '}' : ']')) {
        if (comma != ZOF_J_NONE) {
            fault(r, comma, "comma", "no comma may follow the last %s", object ? "member" : "element");
        }
        lines_accept(r);
        r->at++;
        node_close(r);
        return true;
    }
    if (r->after && comma == ZOF_J_NONE && !comma_missing(r, object)) {
        return false;
    }
    r->key = r->key_end = ZOF_J_NONE;
    return (!object || key_read(r)) && value_read(r);
}

// The whole ---------------------------------------------------------------------------------------------------------

// Byte order marks: that of UTF-8 is skipped, others mean an encoding that cannot be read.
static bool marks_skip(reader_t *r) {
    const char *text = r->doc->text;
    if (r->size >= 2 && (std::memcmp(text, "\xFF\xFE", 2) == 0 || std::memcmp(text, "\xFE\xFF", 2) == 0)) {
        r->stopped = true;
        fault(r, 0, "encoding", "the file is saved as UTF-16; it must be saved as UTF-8");
        return false;
    }
    if (r->size >= 3 && std::memcmp(text, "\xEF\xBB\xBF", 3) == 0) {
        fault(r, 0, "mark", "the file begins with a byte order mark");
        r->at = 3;
    }
    return true;
}

static void encoding_check(reader_t *r) {
    const char *bad = zof_utf8_bad(r->doc->text, r->size);
    if (bad) {
        fault(r, place_of(r, bad), "encoding", "byte %02X is not UTF-8; the file must be saved as UTF-8", (u8)*bad);
    }
}

static void read_all(reader_t *r) {
    if (!marks_skip(r)) {
        return;
    }
    encoding_check(r);
    blanks_skip(r);
    if (r->at >= r->size) {
        stop(r, r->at, "the file is empty");
        return;
    }
    bool more = value_read(r);
    while (more && r->open != ZOF_J_NONE) {
        more = member_read(r);
    }
    blanks_skip(r);
    if (more && r->at < r->size) {
        stop(r, r->at, "text after the end of the object");
    }
}

static void open_end(reader_t *r) {
    while (r->open != ZOF_J_NONE) {
        node_close(r);
    }
}

s32 zof_jdoc_read(zof_jdoc_t *doc, const char *text, size_t size) {
    *doc = {text, size, nullptr, 0, nullptr, 0, ZOF_FALSE};
    doc->faults = (zof_jfault_t *)zof_malloc(FAULTS_MAX * sizeof(zof_jfault_t));
    reader_t r = {doc, 0, (u32)size, ZOF_J_NONE, 0, 0, ZOF_J_NONE, ZOF_J_NONE, ZOF_J_NONE, false, false, false};
    if (doc->faults) {
        read_all(&r);
        open_end(&r);
        doc->ended = r.stopped;
    }
    if (!doc->faults || r.no_memory) {
        zof_jdoc_free(doc);
        return -1;
    }
    std::stable_sort(doc->faults, doc->faults + doc->fault_count,
                     [](const zof_jfault_t &a, const zof_jfault_t &b) { return a.at < b.at; });
    return (s32)doc->fault_count;
}

void zof_jdoc_free(zof_jdoc_t *doc) {
    zof_free(doc->nodes);
    zof_free(doc->faults);
    *doc = {};
}
