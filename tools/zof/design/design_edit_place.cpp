// Where new text goes in a file, and what goes with text that is removed. New members and elements take the separators
// of their neighbours, so that a file that somebody has laid out stays as it is.
#include <algorithm>
#include <cstring>

#include "design_text.h"

static u32 start_of(const zof_jnode_t &node) {
    return node.key == ZOF_J_NONE ? node.at : node.key;
}

static bool is_blank(char c) {
    return (u8)c <= ' ';
}

// Returns where the blanks begin that end at a place.
static u32 blanks_before(const zof_jdoc_t *doc, u32 at) {
    while (at > 0 && is_blank(doc->text[at - 1])) {
        at--;
    }
    return at;
}

static std::string bytes(const zof_jdoc_t *doc, u32 from, u32 end) {
    return {doc->text + from, end - from};
}

static std::string blanks_of(const zof_jdoc_t *doc, u32 child) {
    const u32 start = start_of(doc->nodes[child]);
    return bytes(doc, blanks_before(doc, start), start);
}

static bool has_line(const std::string &blanks) {
    return blanks.find('\n') != std::string::npos;
}

// Returns the blanks between the line's begin and the first character of the line on which a place is.
static std::string indent_of(const zof_jdoc_t *doc, u32 at) {
    u32 line = at;
    while (line > 0 && doc->text[line - 1] != '\n') {
        line--;
    }
    u32 end = line;
    while (end < at && (doc->text[end] == ' ' || doc->text[end] == '\t')) {
        end++;
    }
    return bytes(doc, line, end);
}

bool design_place_compact(const zof_jdoc_t *doc, u32 parent) {
    for (u32 at = parent; at != ZOF_J_NONE; at = doc->nodes[at].parent) {
        const u32 child = doc->nodes[at].child;
        if (child != ZOF_J_NONE && doc->nodes[child].key != ZOF_J_NONE) {
            return doc->text[doc->nodes[child].at - 1] == ':';
        }
    }
    return false;
}

// Returns the blanks after a comma among the children of a node: those of the neighbour if each child has a line of its
// own, otherwise those between two children on one line.
static std::string separator(const zof_jdoc_t *doc, u32 parent, u32 near) {
    const u32 first = doc->nodes[parent].child;
    std::string same = design_place_compact(doc, parent) ? "" : " ";
    bool lines = true;
    for (u32 at = doc->nodes[first].next; at != ZOF_J_NONE; at = doc->nodes[at].next) {
        const std::string blanks = blanks_of(doc, at);
        if (lines && !has_line(blanks)) {
            same = blanks;
            lines = false;
        }
    }
    const u32 pattern = near != first || doc->nodes[first].next == ZOF_J_NONE ? near : doc->nodes[first].next;
    const std::string blanks = blanks_of(doc, pattern);
    return lines && has_line(blanks) ? blanks : same;
}

// What stands between key and value at a member of the same object.
static std::string colon_of(const zof_jdoc_t *doc, u32 parent) {
    const u32 child = doc->nodes[parent].child;
    if (child == ZOF_J_NONE) {
        return design_place_compact(doc, parent) ? ":" : ": ";
    }
    const std::string colon = bytes(doc, doc->nodes[child].key_end, doc->nodes[child].at);
    return std::all_of(colon.begin(), colon.end(), [](char c) { return c == ':' || c == ' '; }) ? colon : ": ";
}

// Returns whether the elements of an empty array get lines.
static bool lines_first(const zof_jdoc_t *doc, u32 array) {
    const zof_jnode_t &node = doc->nodes[array];
    return node.key != ZOF_J_NONE && has_line(blanks_of(doc, array)) && blanks_before(doc, node.end - 1) == node.at + 1;
}

const char *design_place_line(const zof_jdoc_t *doc) {
    const char *end = (const char *)memchr(doc->text, '\n', doc->size);
    return end && end > doc->text && end[-1] == '\r' ? "\r\n" : "\n";
}

static u32 last_of(const zof_jdoc_t *doc, u32 parent) {
    u32 last = doc->nodes[parent].child;
    while (last != ZOF_J_NONE && doc->nodes[last].next != ZOF_J_NONE) {
        last = doc->nodes[last].next;
    }
    return last;
}

std::string design_place_comma(const zof_jdoc_t *doc, u32 array) {
    const u32 last = last_of(doc, array);
    return last != ZOF_J_NONE        ? "," + separator(doc, array, last)
           : lines_first(doc, array) ? "," + std::string(design_place_line(doc)) + design_place_indent(doc, array)
                                     : ", ";
}

std::string design_place_indent(const zof_jdoc_t *doc, u32 array) {
    const zof_jnode_t &node = doc->nodes[array];
    const u32 last = last_of(doc, array);
    if (last != ZOF_J_NONE) {
        return indent_of(doc, start_of(doc->nodes[last]));
    }
    const std::string indent = indent_of(doc, start_of(node));
    const std::string outer = node.parent == ZOF_J_NONE ? "" : indent_of(doc, doc->nodes[node.parent].at);
    const bool deeper = indent.size() > outer.size() && indent.compare(0, outer.size(), outer) == 0;
    return indent + (deeper ? indent.substr(outer.size()) : "    ");
}

// The first object in an array whose key begins a line, such as `controls`, gets a line as well.
static design_put_t first_element(const zof_jdoc_t *doc, u32 array, const std::string &body) {
    const zof_jnode_t &node = doc->nodes[array];
    if (body[0] != '{' || !lines_first(doc, array)) {
        return {node.at + 1, 0, body};
    }
    const std::string line = design_place_line(doc);
    return {node.at + 1, node.end - 2 - node.at,
            line + design_place_indent(doc, array) + body + line + indent_of(doc, start_of(node))};
}

design_put_t design_place_insert(const zof_jdoc_t *doc, u32 parent, u32 after, const std::string &key,
                                 const std::string &body) {
    const zof_jnode_t &node = doc->nodes[parent];
    const bool array = node.kind == ZOF_J_ARRAY;
    const std::string text = array ? body : key + colon_of(doc, parent) + body;
    if (node.child == ZOF_J_NONE) {
        return array ? first_element(doc, parent, body) : design_put_t{node.at + 1, 0, text};
    }
    if (after == ZOF_J_NONE) {
        return {start_of(doc->nodes[node.child]), 0, text + "," + separator(doc, parent, node.child)};
    }
    return {doc->nodes[after].end, 0, "," + separator(doc, parent, after) + text};
}

// Removal ----------------------------------------------------------------------------------------------------------

// Returns where the comma is that follows a place, after blanks and comments; ZOF_J_NONE if no comma stands before
// `end`.
static u32 comma_find(const zof_jdoc_t *doc, u32 at, u32 end) {
    const char *text = doc->text;
    while (at < end && text[at] != ',') {
        if (text[at] == '#' || (text[at] == '/' && at + 1 < end && text[at + 1] == '/')) {
            while (at < end && text[at] != '\n') {
                at++;
            }
        } else if (text[at] == '/' && at + 1 < end && text[at + 1] == '*') {
            const char *close = at + 2 < end ? strstr(text + at + 2, "*/") : nullptr;
            at = close && close + 2 < text + end ? (u32)(close + 2 - text) : end;
        } else {
            at++;
        }
    }
    return at < end ? at : (u32)ZOF_J_NONE;
}

static u32 previous_of(const zof_jdoc_t *doc, u32 node) {
    u32 before = ZOF_J_NONE;
    for (u32 at = doc->nodes[doc->nodes[node].parent].child; at != node; at = doc->nodes[at].next) {
        before = at;
    }
    return before;
}

static bool all_blank(const zof_jdoc_t *doc, u32 from, u32 end) {
    return std::all_of(doc->text + from, doc->text + end, is_blank);
}

// Extends the bytes of a child by its line, if nothing else is on it, or by the blanks on one side.
static void line_take(const zof_jdoc_t *doc, u32 *from, u32 *end) {
    u32 left = *from;
    u32 right = *end;
    const auto blank = [doc](u32 at) { return doc->text[at] != '\n' && is_blank(doc->text[at]); };
    while (left > 0 && blank(left - 1)) {
        left--;
    }
    while (right < doc->size && blank(right)) {
        right++;
    }
    const bool begins = left == 0 || doc->text[left - 1] == '\n';
    const bool ends = right < doc->size && doc->text[right] == '\n';
    if (begins && ends) {
        *from = left;
        *end = right + 1;
    } else if (ends) {
        *from = doc->text[left - 1] == ',' ? left : *from;
    } else {
        *end = right;
    }
}

static design_put_t gone(u32 from, u32 end) {
    return {from, end - from, ""};
}

// A last child goes with the comma before it. A comma after it is a fault that goes as well.
static std::vector<design_put_t> remove_last(const zof_jdoc_t *doc, u32 node) {
    const zof_jnode_t &child = doc->nodes[node];
    const u32 previous = previous_of(doc, node);
    const u32 close = doc->nodes[child.parent].end - 1;
    u32 from = start_of(child);
    u32 end = child.end;
    if (previous == ZOF_J_NONE) {
        const u32 comma = comma_find(doc, end, close);
        end = comma != ZOF_J_NONE && all_blank(doc, end, comma) ? comma + 1 : end;
        line_take(doc, &from, &end);
        return {gone(from, end)};
    }
    const u32 comma = comma_find(doc, doc->nodes[previous].end, from);
    if (comma == ZOF_J_NONE || all_blank(doc, comma + 1, from)) {
        return {gone(comma == ZOF_J_NONE ? from : comma, end)};
    }
    line_take(doc, &from, &end);
    return {gone(comma, comma + 1), gone(from, end)};
}

std::vector<design_put_t> design_place_remove(const zof_jdoc_t *doc, u32 node) {
    const zof_jnode_t &child = doc->nodes[node];
    if (child.next == ZOF_J_NONE) {
        return remove_last(doc, node);
    }
    u32 from = start_of(child);
    u32 end = child.end;
    const u32 comma = comma_find(doc, end, start_of(doc->nodes[child.next]));
    if (comma != ZOF_J_NONE && !all_blank(doc, end, comma)) {
        return {gone(from, end), gone(comma, comma + 1)};
    }
    end = comma == ZOF_J_NONE ? end : comma + 1;
    line_take(doc, &from, &end);
    return {gone(from, end)};
}
