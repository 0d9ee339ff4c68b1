// Writes the rows of the host protocol into the reference in docs/, the C library (constants and calls) and the Python
// library, and the rows of the register link into docs/registers.md. The tables of the code are the only source.
// Everything between a file's line with "rows: begin" and its line with "rows: end" is replaced.
#include <cstdio>
#include <cstring>
#include <sstream>
#include <string>
#include <vector>

#include "board.h"
#include "frames.h"
#include "hardware/uart/zof_hw_text.h"
#include "hmi/zof_hmi_cmd.h"
#include "hmi/zof_hmi_event.h"
#include "protocol_rows.h"
#include "tool_file.h"

static std::string upper(std::string text) {
    for (char &c : text) {
        c = (char)toupper((unsigned char)c);
    }
    return text;
}

// Converts "system_touch" to "SystemTouch".
static std::string camel(const std::string &text) {
    std::string out;
    bool up = true;
    for (char c : text) {
        out += c == '_' ? std::string() : std::string(1, up ? (char)toupper((unsigned char)c) : c);
        up = c == '_';
    }
    return out;
}

static std::string name_of(const row_t &row) {
    return std::string(row.type->name) + "_" + row.param->name;
}

// Wraps a comment at 120 columns.
static std::string comment(const std::string &text) {
    std::istringstream words(text);
    std::string out = "//", word;
    size_t column = out.size();
    while (words >> word) {
        if (column + 1 + word.size() > 120) {
            out += "\n//";
            column = 2;
        }
        out += " " + word;
        column += 1 + word.size();
    }
    return out + "\n";
}

static void markdown(const zof_hmi_cmd_type_t &type, std::ostream &out) {
    out << "\n### " << rows_hex(type.code, type.len, " ") << " " << type.name << "\n\n"
        << type.help << "\n\n"
        << rows_table(type);
}

// C library

// Formats a prototype with aligned arguments, wrapped at 120 columns.
static std::string prototype(const std::string &name, const std::vector<std::string> &args) {
    std::string out = name + "(";
    const size_t indent = out.size();
    size_t column = indent;
    for (size_t i = 0; i < args.size(); i++) {
        const std::string word = args[i] + (i + 1 < args.size() ? "," : ") {");
        if (i && column + 1 + word.size() > 120) {
            out += "\n" + std::string(indent, ' ');
            column = indent;
        } else if (i) {
            out += " ";
            column++;
        }
        out += word;
        column += word.size();
    }
    return out + "\n";
}

// Writes one call: its arguments, and the statements that put them into the frame.
static void c_call(const row_t &row, const char *verb, const char *op,
                   const std::vector<const std::vector<field_t> *> &lists, std::ostream &out) {
    std::vector<std::string> args = {"zof_host_t *host"};
    std::string puts;
    for (const auto *list : lists) {
        for (const field_t &f : *list) {
            args.push_back(std::string(f.type->c) + f.name);
            puts += "    zof_host_put_" + std::string(f.type->put) + "(host, " +
                    (f.type->c[0] == 'i' ? "(u" + std::string(f.type->c, strlen(f.type->c) - 1) + ")" : "") + f.name +
                    ");\n";
        }
    }
    out << prototype(std::string("static inline int zof_host_") + verb + "_" + name_of(row), args)
        << "    zof_host_begin(host, " << op << ", ZOF_HOST_" << upper(name_of(row)) << ");\n"
        << puts << "    return zof_host_end(host);\n}\n";
}

static void c_header(const zof_hmi_cmd_type_t &type, std::ostream &out) {
    out << "\n// " << type.help << "\n";
    for (const row_t &r : rows_of(type)) {
        if (r.hidden) {
            continue;
        }
        const std::vector<u8> code = rows_code(r);
        std::vector<u8> packed = {(u8)code.size(), 0, 0, 0};
        std::copy(code.begin(), code.end(), packed.begin() + 1);
        out << "\n"
            << comment(r.param->help) << comment((r.param->get_fun ? "Answers: " : "Carries: ") + rows_words(r.value))
            << "#define ZOF_HOST_" << upper(name_of(r)) << " 0x" << rows_hex(packed.data(), 4, "") << "ul\n";
        if (r.param->get_fun) {
            c_call(r, "get", "ZOF_HOST_READ", {&r.address, &r.request}, out);
        }
        if (r.param->set_fun) {
            c_call(r, "set", "ZOF_HOST_WRITE", {&r.address, &r.request, &r.value}, out);
        }
    }
}

// Python library

static std::string py_type(const field_t &f) {
    return strcmp(f.type->wire, "text") == 0 ? "str" : "int";
}

static std::string py_fields(const std::vector<field_t> &list) {
    std::string out = "(";
    for (const field_t &f : list) {
        out += "(\"" + f.name + "\", \"" + f.type->wire + "\"), ";
    }
    return (list.size() > 1 ? out.substr(0, out.size() - 2) : out.substr(0, out.size() - (list.empty() ? 0 : 1))) + ")";
}

static std::string py_chooses(const row_t &r) {
    const u8 n = r.param->chooses;
    return n == ZOF_HMI_ACTS ? ", chooses=None" : n ? ", chooses=" + std::to_string(n) : "";
}

static void python(const zof_hmi_cmd_type_t &type, std::ostream &out) {
    for (const row_t &r : rows_of(type)) {
        if (r.hidden) {
            continue;
        }
        std::string value = py_type(r.value[0]);
        if (r.value.size() > 1) {
            value = camel(name_of(r));
            out << "\n\nclass " << value << "(NamedTuple):\n";
            for (const field_t &f : r.value) {
                // Every tuple has methods with these names.
                const bool hides = f.name == "count" || f.name == "index";
                out << "    " << f.name << ": " << py_type(f) << (hides ? "  # type: ignore[assignment]" : "") << "\n";
            }
            out << "\n";
        }
        const std::vector<u8> code = rows_code(r);
        out << "\n"
            << upper(name_of(r)) << ": Row[" << value << "] = Row(\n    \"" << type.name << "." << r.param->name
            << "\", bytes.fromhex(\"" << rows_hex(code.data(), (u32)code.size(), " ") << "\"),\n    "
            << py_fields(r.address) << ", " << py_fields(r.request) << ",\n    " << py_fields(r.value) << ",\n    "
            << value << ", " << (r.param->get_fun ? "True" : "False") << ", " << (r.param->set_fun ? "True" : "False")
            << ",\n    \"" << r.param->help << "\"" << py_chooses(r) << ")\n";
    }
}

// The kinds of events, in each of the three forms

static void events_markdown(std::ostream &out) {
    out << "\n### Events\n\n| Number | Name | What has happened |\n|---|---|---|\n";
    for (u32 i = 0; i < ZOF_HMI_EVENT_COUNT; i++) {
        out << "| " << i << " | `" << zof_hmi_event_rows[i].name << "` | " << zof_hmi_event_rows[i].help << " |\n";
    }
}

static void events_c(std::ostream &out) {
    out << "\n// The kinds of events, in `control.event`.\nenum {\n";
    for (u32 i = 0; i < ZOF_HMI_EVENT_COUNT; i++) {
        out << comment(zof_hmi_event_rows[i].help).insert(0, "    ") << "    ZOF_HOST_EVENT_"
            << upper(zof_hmi_event_rows[i].name) << " = " << i << (i + 1 < ZOF_HMI_EVENT_COUNT ? ",\n" : "\n");
    }
    out << "};\n";
}

static void events_python(std::ostream &out) {
    out << "\n\nclass EventKind(enum.IntEnum):\n    \"\"\"The kinds of events, in `control.event`.\"\"\"\n\n";
    for (u32 i = 0; i < ZOF_HMI_EVENT_COUNT; i++) {
        out << "    " << upper(zof_hmi_event_rows[i].name) << " = " << i << "  # " << zof_hmi_event_rows[i].help
            << "\n";
    }
}

// The register link

static std::string range_words(const reg_row_t &row) {
    const reg_range_t &r = row.range;
    if (r.low == r.high) {
        return "always " + std::to_string(r.low);
    }
    std::string out = std::to_string(r.low) + " to " + std::to_string(r.high) + (r.bits == 8 ? ", low byte" : "");
    if (r.outside != REG_NEAREST) {
        return out + "; others count as " + std::to_string(r.outside);
    }
    const u16 last = r.bits == 8 ? 255 : 65535;
    return out + (r.low > 0 || r.high < last ? "; others as the nearest" : "");
}

static std::string unit_words(const reg_row_t &row) {
    return *row.unit ? (row.scale > 1 ? std::to_string(row.scale) + " " : "") + row.unit : "-";
}

// Prints a frame in bytes with its meaning below. Long frames are broken into lines of one rail.
static void frame_lines(const bytes &frame, std::ostream &out) {
    const size_t head = 6, line = 2 * RAIL_WORDS;
    for (size_t at = 0; at < frame.size(); at += at ? line : head + line) {
        const size_t end = std::min(frame.size(), at ? at + line : head + line);
        out << (at ? "                      " : "    ") << rows_hex(frame.data() + at, (u32)(end - at), " ") << "\n";
    }
    out << "        " << frame_text(frame) << "\n";
}

static void registers(std::ostream &out) {
    static constexpr const char *writers[] = {"", "board", "panel", "both"};
    out << "\n## Registers\n\n| Address | Name | Written by | Unit | Values | What it is "
           "|\n|---|---|---|---|---|---|\n";
    for (const reg_row_t &row : reg_rows) {
        out << "| " << row.addr << (row.words > 1 ? " to " + std::to_string(row.addr + row.words - 1) : "") << " | `"
            << row.name << "` | " << writers[row.writer] << " | " << unit_words(row) << " | " << range_words(row)
            << " | " << row.help << " |\n";
    }
    out << "\n## Examples\n\nThe board sends a measured voltage of 20.012 V, and the panel a brightness of 80 %:\n\n";
    frame_lines(frame_write(REG_LIVE_MV, {20012}), out);
    frame_lines({REG_HEAD0, REG_HEAD1, 6, REG_CMD_READ, 0, REG_BRIGHT, 1, 0, 80}, out);
    out << "\nThe board answers `RAIL_REQUEST` with a fixed rail and an adjustable one, of which the second is "
           "active:\n\n";
    board box;
    box.rails = {{RAIL_FIX, 5000, 5000, 3000}, {RAIL_PPS, 3300, 11000, 5000}};
    box.rail = 1;
    box.write = [&out](u16 addr, const std::vector<u16> &words) { frame_lines(frame_write(addr, words), out); };
    board_send_rails(box);
}

// Files

static int fail(const std::string &file, const std::string &what) {
    fprintf(stderr, "zof_protocol: %s: %s\n", file.c_str(), what.c_str());
    return 1;
}

static bool ends_with(const std::string &text, const char *end) {
    const size_t len = strlen(end);
    return text.size() >= len && text.compare(text.size() - len, len, end) == 0;
}

static std::string all_rows(const std::string &file) {
    std::ostringstream out;
    if (ends_with(file, "registers.md")) {
        registers(out);
        return out.str() + "\n";
    }
    const bool document = ends_with(file, ".md");
    const bool header = ends_with(file, ".h");
    const auto write = document ? markdown : header ? c_header : python;
    for (u32 i = 0; i < zof_ui_cmd_type_count; i++) {
        write(zof_ui_cmd_types[i], out);
    }
    (document ? events_markdown : header ? events_c : events_python)(out);
    return out.str() + "\n";
}

static int refresh(const std::string &file, bool check) {
    std::string old;
    std::string reason = tool_file_read(file, old);
    if (!reason.empty()) {
        return fail(file, reason);
    }
    size_t begin = old.find("rows: begin");
    begin = begin == std::string::npos ? begin : old.find('\n', begin);
    const size_t mark = old.find("rows: end");
    if (begin == std::string::npos || mark == std::string::npos || mark < begin) {
        return fail(file, "has no lines with \"rows: begin\" and \"rows: end\"");
    }
    const size_t end = old.rfind('\n', mark) + 1;
    const std::string now = old.substr(0, begin + 1) + all_rows(file) + old.substr(end);
    if (now == old) {
        return 0;
    }
    if (check) {
        return fail(file, "is out of date with the rows in the code; build the target `protocol`");
    }
    reason = tool_file_write(file, now);
    return reason.empty() ? 0 : fail(file, reason);
}

static int usage(bool asked) {
    fprintf(asked ? stdout : stderr,
            "usage: zof_protocol [--check] FILE...\n"
            "Replaces what stands between \"rows: begin\" and \"rows: end\" in each file by the rows of the code:\n"
            "those of the register link in registers.md, those of the host protocol in any other .md, .h or .py file.\n"
            "--check writes nothing, and fails if something would change.\n");
    return asked ? 0 : 2;
}

int main(int argc, char **argv) {
    const std::string option = argc > 1 ? argv[1] : "";
    const bool check = option == "--check";
    const int first = check ? 2 : 1;
    if (argc <= first || (!check && option[0] == '-')) {
        return usage(option == "--help" || option == "-h");
    }
    int result = 0;
    for (int i = first; i < argc; i++) {
        result |= refresh(argv[i], check);
    }
    return result;
}
