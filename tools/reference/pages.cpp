#include "pages.h"

#include <cstring>
#include <set>
#include <sstream>

#include "protocol_rows.h"
#include "words.h"

static const zof_hmi_cmd_type_t *rows_named(const char *name) {
    for (u32 i = 0; name && i < zof_ui_cmd_type_count; i++) {
        if (strcmp(zof_ui_cmd_types[i].name, name) == 0) {
            return &zof_ui_cmd_types[i];
        }
    }
    return nullptr;
}

// Returns prototypes with their comments, as in a header.
static std::string prototypes(const std::vector<std::string> &names, const std::vector<ref_header_t> &headers,
                              std::string &reason) {
    std::string text, last;
    for (const std::string &name : names) {
        const ref_function_t *function = ref_function(headers, name);
        if (!function) {
            reason = name + ": no public header declares it";
            return "";
        }
        if (function->comment != last) {
            text += (text.empty() ? "" : "\n") + function->comment;
        }
        last = function->comment;
        text += function->signature + ";" + (function->note.empty() ? "" : " // " + function->note) + "\n";
    }
    return text;
}

static std::string functions_section(const zof_cat_type_t *type, const std::vector<ref_header_t> &headers,
                                     std::string &reason) {
    const std::vector<std::string> calls = cat_list(type->calls);
    std::string text = "\n## Functions\n\n";
    for (const ref_header_t &header : headers) {
        const bool own = !calls.empty() && !header.functions.empty() && ref_function({header}, calls[0]);
        text += own ? ref_plain(header.comment) + "\n\n" : "";
    }
    if (!calls.empty()) {
        text += "```c\n" + prototypes(calls, headers, reason) + "```\n\n";
    }
    return text +
           "All controls share [position, size, visibility, states and animations](../functions.md#any-control).\n";
}

static std::string rows_section(const zof_cat_type_t *type) {
    const zof_hmi_cmd_type_t *rows = rows_named(type->rows);
    std::string text = "\n## Rows of a host\n\n";
    if (rows) {
        text +=
            "Type code " + rows_hex(rows->code, rows->len, " ") + ". " + rows->help + "\n\n" + rows_table(*rows) + "\n";
    }
    return text + "All controls share the rows [`control`](../protocol.md#rows).\n";
}

static std::string events_section(const zof_cat_type_t *type) {
    const std::vector<std::string> own = cat_own_events(type);
    return "\n## Events\n\n" + (own.empty() ? std::string() : "Sent by this type: " + cat_join(own, "`") + ". ") +
           "[All events](../functions.md#events) and those of touches.\n";
}

static std::string without_lines(const std::string &text, const std::vector<const char *> &beginnings) {
    std::istringstream lines(text);
    std::string out;
    for (std::string line; std::getline(lines, line);) {
        bool drop = false;
        for (const char *beginning : beginnings) {
            drop = drop || line.rfind(beginning, 0) == 0;
        }
        out += drop ? "" : line + "\n";
    }
    return out;
}

// Says what the snippets assume.
static std::string explained(std::string text, const ref_page_t &page) {
    static const std::string title = "## Snippets\n";
    const size_t at = text.find(title);
    return at == std::string::npos
               ? text
               : text.insert(
                     at + title.size(),
                     "\nThe entries of `controls` in a view file; the program's part of the view, whose id is " +
                         std::to_string(page.type + 1) +
                         " here; and a host, `panel` being its [open line](../hosts.md#python). The "
                         "picture shows what they draw in the gallery's dark theme.\n");
}

std::string ref_type_page(const ref_page_t &page, const std::vector<ref_header_t> &headers, std::string &reason) {
    for (const char *language : {"json", "c", "python"}) {
        if (ref_snippet(page, language, nullptr).empty()) {
            reason = std::string("has no snippet in ") + language;
        }
    }
    const zof_cat_type_t *type = &zof_cat_types[page.type];
    const size_t title = page.text.find('\n') + 1;
    std::string text = page.text.substr(0, title) + "\n![" + type->name + "](../pictures/" + page.name + ".png)\n" +
                       without_lines(page.text.substr(title), {"- Functions: ", "- Events: "});
    return explained(text, page) + events_section(type) + functions_section(type, headers, reason) + rows_section(type);
}

static std::string function_row(const ref_function_t &function) {
    std::string sentence;
    for (const char c : ref_sentence(function)) {
        sentence += c == '|' ? "\\|" : std::string(1, c);
    }
    return "| `" + function.signature + "` | " + sentence + " |\n";
}

static const char table_head[] = "| Function | What it does |\n|---|---|\n";

// Returns the functions that are not among those named, by header.
static std::string inside(const std::vector<ref_header_t> &headers, const std::set<std::string> &named) {
    std::string text;
    for (const ref_header_t &header : headers) {
        std::string rows;
        for (const ref_function_t &function : header.functions) {
            rows += named.count(function.name) ? "" : function_row(function);
        }
        text += rows.empty()
                    ? ""
                    : "### " + header.path + "\n\n" + ref_plain(header.comment) + "\n\n" + table_head + rows + "\n";
    }
    return text;
}

std::string ref_function_page(const std::string &text, const std::vector<ref_header_t> &headers, std::string &reason) {
    static const std::string begin = "- `", marker = "<!-- inside -->";
    std::set<std::string> named;
    std::string out;
    bool in_table = false;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        const bool row = line.rfind(begin + "zof_", 0) == 0;
        const std::string name = row ? line.substr(begin.size(), line.find('`', begin.size()) - begin.size()) : "";
        const ref_function_t *function = row ? ref_function(headers, name) : nullptr;
        if (row && (!function || ref_sentence(*function).empty() || !named.insert(name).second)) {
            reason = name + (!function                         ? ": no public header declares it"
                             : ref_sentence(*function).empty() ? ": its header does not explain it"
                                                               : ": listed twice");
            return "";
        }
        out += row && !in_table ? table_head : "";
        in_table = row;
        out += row ? function_row(*function) : line == marker ? inside(headers, named) : line + "\n";
    }
    return out;
}

static bool mentions(const std::string &pages, const std::string &word) {
    for (size_t at = pages.find(word); at != std::string::npos; at = pages.find(word, at + 1)) {
        const unsigned char next = (unsigned char)pages[at + word.size()];
        if (!isalnum(next) && next != '_') {
            return true;
        }
    }
    return false;
}

static std::string row_without_place(const std::string &pages, const zof_hmi_cmd_type_t *types, u32 count) {
    for (u32 i = 0; i < count; i++) {
        for (u32 k = 0; k < types[i].param_count; k++) {
            const std::string name = std::string(types[i].name) + "." + types[i].params[k].name;
            if (!mentions(pages, "`" + name + "`")) {
                return "row " + name;
            }
        }
    }
    return "";
}

static std::string event_without_place(const std::string &pages) {
    for (const zof_cat_type_t &type : zof_cat_types) {
        for (const std::string &event : cat_list(type.events)) {
            if (!mentions(pages, "`" + event + "`")) {
                return event;
            }
        }
    }
    return "";
}

// Returns the line of a page without what only a walk over the page needs.
static std::string walk_line(const std::string &line) {
    const size_t blank = line.find(' '), bar = line.find(" | "), last = line.rfind(" | "), end = line.find(" -->");
    if (line.starts_with("```") && blank != line.npos) {
        const std::string name = line.substr(blank + 1);
        return line.substr(0, blank) + (name == "stays" ? "" : " title=\"" + name + "\"");
    }
    if (line.starts_with("<!-- picture: ") && bar != line.npos && end != line.npos) {
        const size_t file = strlen("<!-- picture: ");
        return "![" + line.substr(last + 3, end - last - 3) + "](pictures/" + line.substr(file, bar - file) + ")\n";
    }
    return line;
}

std::string ref_walk_page(const std::string &text) {
    std::istringstream in(text);
    std::string out, line;
    for (bool session = false; std::getline(in, line);) {
        session = session || line.starts_with("<!-- session:");
        out += session ? "" : walk_line(line) + "\n";
        session = session && line != "-->";
    }
    return out;
}

std::string ref_without_place(const std::string &pages, const std::vector<ref_header_t> &headers) {
    for (const ref_header_t &header : headers) {
        for (const ref_function_t &function : header.functions) {
            if (!mentions(pages, function.name)) {
                return function.name;
            }
        }
    }
    const std::string row = row_without_place(pages, zof_ui_cmd_types, zof_ui_cmd_type_count) +
                            row_without_place(pages, zof_sys_cmd_types, zof_sys_cmd_type_count);
    return row.empty() ? event_without_place(pages) : row;
}
