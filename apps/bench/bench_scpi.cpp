// Parses SCPI lines: splits them into commands, finds each command's row and its parameters.
#include "bench/bench_scpi_in.h"

#include <string.h>

#include <utility>

enum { MNEMONIC_MAX = 12, NODES = 8 };

using view = std::string_view;

static bool is_space(char c) {
    return c == ' ' || (c >= 0 && c < ' ');
}

static bool is_digit(char c) {
    return c >= '0' && c <= '9';
}

static bool is_letter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_';
}

static view trim(view text) {
    while (!text.empty() && is_space(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && is_space(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

// Returns the position of the next `mark` outside strings, or the end.
static size_t find_outside(view text, size_t at, char mark) {
    char quote = 0;
    for (; at < text.size(); at++) {
        const char c = text[at];
        if (quote != 0) {
            quote = c == quote ? '\0' : quote; // a doubled quote ends the string and begins it again
        } else if (c == '"' || c == '\'') {
            quote = c;
        } else if (c == mark) {
            break;
        }
    }
    return at;
}

// Headers ---------------------------------------------------------------------------------------------------------
struct header_t {
    view text; // without the question mark
    bool query;
    view node[NODES];
    u32 nodes;
    bool suffix; // a node has a number other than 1
};

// Returns true if the nodes match the rest of a pattern.
static bool nodes_fit(const char *pattern, const view *node, u32 count) {
    if (*pattern == '\0' || *pattern == '?') {
        return count == 0;
    }
    const bool optional = *pattern == '[';
    const char *name = pattern + optional + 1;
    const size_t length = strcspn(name, ":[]?");
    const char *rest = name + length + optional;
    if (count > 0 && scpi_word_is(view(name, length), node[0]) && nodes_fit(rest, node + 1, count - 1)) {
        return true;
    }
    return optional && nodes_fit(rest, node, count);
}

static const scpi_row_t *row_find(const header_t &header) {
    for (u32 i = 0; i < scpi_row_count; i++) {
        const scpi_row_t &row = scpi_rows[i];
        const size_t length = strcspn(row.header, "?");
        const bool common = row.header[0] == '*';
        if ((row.header[length] == '?') == header.query &&
            (common ? header.nodes == 1 && scpi_word_is(view(row.header, length), header.node[0])
                    : nodes_fit(row.header, header.node, header.nodes))) {
            return &row;
        }
    }
    return nullptr;
}

// Splits a whole header. Returns an error code, or 0.
static s16 header_split(view whole, header_t *out) {
    *out = {};
    out->query = !whole.empty() && whole.back() == '?';
    whole.remove_suffix(out->query);
    out->text = whole;
    while (true) {
        const size_t end = whole.find(':');
        view node = whole.substr(0, end);
        if (node.empty() || node.size() > MNEMONIC_MAX || out->nodes == NODES) {
            return node.empty() ? SCPI_SYNTAX : node.size() > MNEMONIC_MAX ? SCPI_MNEMONIC_LONG : SCPI_HEADER;
        }
        const size_t name = node.find_last_not_of("0123456789") + 1;
        out->suffix = out->suffix || (name < node.size() && node.substr(name) != "1");
        out->node[out->nodes++] = node.substr(0, name);
        if (end == view::npos) {
            return 0;
        }
        whole.remove_prefix(end + 1);
    }
}

// Parameters ------------------------------------------------------------------------------------------------------
// Returns true if the text is a single string from its first quote to its last.
static bool string_whole(view text) {
    return text.size() >= 2 && text.front() == text.back() && find_outside(text, 0, '\0') == text.size() &&
           find_outside(text.substr(0, text.size() - 1), 0, text.front()) == text.size() - 1;
}

static s16 param_kind(view text, scpi_kind_e *out) {
    if (text.empty()) {
        return SCPI_SYNTAX;
    }
    const char first = text.front();
    if (first == '"' || first == '\'') {
        *out = SCPI_STRING_DATA;
        return string_whole(text) ? 0 : (s16)SCPI_STRING;
    }
    *out = is_letter(first) ? SCPI_WORD : SCPI_NUMBER;
    return is_letter(first) || is_digit(first) || strchr("+-.", first) ? 0 : (s16)SCPI_INVALID_CHARACTER;
}

static s16 params_split(view text, scpi_call_t *call) {
    text = trim(text);
    for (size_t at = 0; !text.empty() && at <= text.size();) {
        const size_t end = find_outside(text, at, ',');
        const view one = trim(text.substr(at, end - at));
        scpi_kind_e kind = SCPI_WORD;
        const s16 error = param_kind(one, &kind);
        if (error != 0 || call->params == SCPI_PARAMS) {
            return error != 0 ? error : (s16)SCPI_TOO_MANY;
        }
        call->param[call->params++] = {kind, one};
        at = end + 1;
    }
    return 0;
}

// Commands --------------------------------------------------------------------------------------------------------
// Finds the end of a header, which a space also ends. Returns an error code, or 0.
static s16 header_end(view unit, size_t *out) {
    size_t at = unit[0] == '*' ? 1 : 0;
    while (at < unit.size() && (is_letter(unit[at]) || is_digit(unit[at]) || unit[at] == ':')) {
        at++;
    }
    at += at < unit.size() && unit[at] == '?';
    *out = at;
    if (at < unit.size() && !is_space(unit[at])) {
        return unit[at] == ',' || unit[at] == '"' || unit[at] == '\'' ? SCPI_SEPARATOR : SCPI_INVALID_CHARACTER;
    }
    return 0;
}

// Returns the row of a command and fills in its parameters, or returns null after queueing an error. Updates `path` for
// the next command of the line.
static const scpi_row_t *unit_read(view unit, scpi_call_t *call, std::string *path) {
    scpi_client_t *client = call->client;
    size_t end = 0;
    s16 error = header_end(unit, &end);
    const view written = unit.substr(0, end);
    const bool common = unit[0] == '*';
    const bool root = common || unit[0] == ':';
    const std::string whole = (root ? "" : client->path) + std::string(written.substr(unit[0] == ':'));
    header_t header;
    error = error != 0 ? error : header_split(whole, &header);
    const scpi_row_t *row = error == 0 ? row_find(header) : nullptr;
    if (error == 0) {
        error = !row            ? (s16)SCPI_HEADER
                : header.suffix ? (s16)SCPI_HEADER_SUFFIX
                                : params_split(unit.substr(end), call);
    }
    if (error == 0 && (call->params < row->least || call->params > row->most)) {
        error = call->params < row->least ? SCPI_MISSING : SCPI_TOO_MANY;
    }
    if (error != 0) {
        scpi_fail(client, (scpi_code_e)error, std::string(written));
        return nullptr;
    }
    if (!common) {
        const size_t last = header.text.rfind(':');
        *path = last == view::npos ? "" : std::string(header.text.substr(0, last + 1));
    }
    return row;
}

static bool must_wait(scpi_client_t *client, const scpi_row_t *row, const scpi_call_t &call) {
    if (!row->waits || !row->waits(call)) {
        client->waiting = false;
        return false;
    }
    if (!client->waiting) {
        client->waiting = true;
        client->wait_from = bench.now;
    }
    client->waiting = bench.now - client->wait_from < SCPI_WAIT_MS;
    return client->waiting;
}

// Runs a command. Returns false if it has to wait.
static bool unit_run(scpi_client_t *client, view unit) {
    if (unit.empty()) {
        return true;
    }
    scpi_call_t call = {.client = client};
    std::string path = client->path;
    const scpi_row_t *row = unit_read(unit, &call, &path);
    if (!row) {
        return true;
    }
    if (must_wait(client, row, call)) {
        return false;
    }
    scpi_outcome(client);
    if (!client->failed || !row->sets) {
        row->run(call);
    }
    client->path = path;
    return true;
}

// Returns the next command of a line and advances `at`.
static view unit_next(view line, size_t *at) {
    const size_t begin = *at, end = find_outside(line, begin, ';');
    *at = end + 1;
    return trim(line.substr(begin, end - begin));
}

static void line_run(scpi_client_t *client) {
    const std::string &line = client->line;
    while (client->at < line.size()) {
        size_t next = client->at;
        if (!unit_run(client, unit_next(line, &next))) {
            return;
        }
        client->at = next;
    }
    if (!client->answer.empty()) {
        client->out += client->answer + "\n";
    }
    client->answer.clear();
    client->line.clear();
    client->running = false;
}

static void line_start(scpi_client_t *client) {
    if (client->skipping) {
        client->skipping = false;
        client->line.clear();
        return;
    }
    client->running = true;
    client->failed = false;
    client->at = 0;
    client->path.clear();
    line_run(client);
}

static void byte_take(scpi_client_t *client, char c) {
    if (c == '\n') {
        line_start(client);
    } else if (!client->skipping && client->line.size() < SCPI_LINE_MAX) {
        client->line += c;
    } else if (!client->skipping && c != '\r') {
        client->skipping = true;
        scpi_fail(client, SCPI_OVERRUN);
    }
}

// Off at once --------------------------------------------------------------------------------------------------------
static bool line_turns_off(view line) {
    scpi_client_t scratch = {}; // receives the errors, which are queued again when the line runs
    for (size_t at = 0; at < line.size();) {
        const view unit = unit_next(line, &at);
        scpi_call_t call = {.client = &scratch};
        const scpi_row_t *row = unit.empty() ? nullptr : unit_read(unit, &call, &scratch.path);
        if (row && row->turns_off && row->turns_off(call)) {
            return true;
        }
    }
    return false;
}

// Off does not wait for other lines, and runs again when its turn comes. Commands within one line keep their order,
// because they were written together.
static void off_ahead(scpi_client_t *client, view rest) {
    const u64 begin = client->taken;
    size_t at = client->looked > begin ? (size_t)(client->looked - begin) : 0;
    for (size_t end; (end = rest.find('\n', at)) != view::npos; at = end + 1) {
        const view line = rest.substr(at, end - at);
        if (line.size() <= SCPI_LINE_MAX && line_turns_off(line)) {
            client->off = begin + end + 1;
            scpi_off_request(client);
        }
    }
    client->looked = begin + at;
}

bool scpi_off_ahead(const scpi_client_t *client) {
    return client->taken < client->off;
}

size_t scpi_feed(scpi_client_t *client, const char *bytes, size_t size) {
    bench_tick();
    scpi_remote_check();
    scpi_outcome(client);
    if (client->running) {
        line_run(client);
    }
    size_t taken = 0;
    while (taken < size && !client->running) {
        client->taken++;
        byte_take(client, bytes[taken++]);
    }
    off_ahead(client, view(bytes + taken, size - taken));
    return taken;
}

bool scpi_waits(const scpi_client_t *client) {
    return client->running;
}

bool scpi_unfinished(const scpi_client_t *client) {
    return client->running || client->started != 0 || client->opc;
}
