#include "headers.h"

#include <algorithm>
#include <cctype>
#include <sstream>

#include "tool_file.h"

static bool starts(const std::string &text, const char *with) {
    return text.rfind(with, 0) == 0;
}

static std::string joined(const std::string &text) {
    std::istringstream words(text);
    std::string out;
    for (std::string word; words >> word;) {
        out += (out.empty() ? "" : " ") + word;
    }
    return out;
}

// What a header is read into.
struct reader_t {
    ref_header_t header;
    std::string comment, statement, note;
    bool in_braces, comment_ended;
};

static bool is_prototype(const std::string &statement) {
    const size_t open = statement.find('(');
    return open != std::string::npos && open > 0 &&
           (isalnum((unsigned char)statement[open - 1]) || statement[open - 1] == '_') &&
           !starts(statement, "typedef") && !starts(statement, "static") && !starts(statement, "extern");
}

static void statement_end(reader_t &reader) {
    const std::string text = joined(reader.statement);
    reader.statement.clear();
    if (!is_prototype(text)) {
        return;
    }
    const size_t open = text.find('(');
    size_t begin = open;
    while (begin > 0 && (isalnum((unsigned char)text[begin - 1]) || text[begin - 1] == '_')) {
        begin--;
    }
    reader.header.functions.push_back(
        {text.substr(begin, open - begin), text.substr(0, text.rfind(')') + 1), reader.note, reader.comment});
}

static void comment_line(reader_t &reader, const std::string &line) {
    if (reader.comment_ended) {
        reader.comment.clear();
        reader.comment_ended = false;
    }
    reader.comment += line + "\n";
}

// A line outside comments and braces.
static void code_line(reader_t &reader, const std::string &line) {
    if (line.empty()) {
        reader.comment.clear();
    } else if (line[0] != '#') {
        reader.comment_ended = true;
        const size_t note = line.find("// ");
        const std::string code = line.substr(0, note);
        reader.note = note == std::string::npos ? "" : line.substr(note + 3);
        reader.statement += code + " ";
        if (code.find('{') != std::string::npos && code.find('}') == std::string::npos) {
            reader.in_braces = true;
        } else if (code.find(';') != std::string::npos) {
            statement_end(reader);
        } else if (starts(code, "ZOF_C_")) {
            reader.statement.clear();
        }
    } else if (reader.header.comment.empty()) {
        reader.header.comment = reader.comment; // the guard follows the comment at the top
    }
}

static void line_read(reader_t &reader, const std::string &line) {
    if (reader.in_braces) {
        reader.in_braces = !starts(line, "}");
        if (!reader.in_braces) {
            reader.statement.clear();
        }
    } else if (starts(line, "//")) {
        comment_line(reader, line);
    } else {
        code_line(reader, line);
    }
}

static std::string header_read(const std::string &folder, const std::string &path, std::vector<ref_header_t> &headers) {
    std::string text;
    const std::string reason = tool_file_read(folder + "/" + path, text);
    reader_t reader = {};
    reader.header.path = path;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        line_read(reader, line);
    }
    headers.push_back(reader.header);
    return reason.empty() ? "" : path + ": " + reason;
}

std::string ref_headers_read(const std::string &folder, std::vector<ref_header_t> &headers) {
    std::string text;
    std::string reason = tool_file_read(folder + "/zof.h", text);
    std::istringstream lines(text);
    for (std::string line; reason.empty() && std::getline(lines, line);) {
        if (starts(line, "#include \"")) {
            const size_t begin = line.find('"') + 1;
            reason = header_read(folder, line.substr(begin, line.rfind('"') - begin), headers);
        }
    }
    return reason;
}

const ref_function_t *ref_function(const std::vector<ref_header_t> &headers, const std::string &name) {
    for (const ref_header_t &header : headers) {
        for (const ref_function_t &function : header.functions) {
            if (function.name == name) {
                return &function;
            }
        }
    }
    return nullptr;
}

std::string ref_plain(const std::string &comment) {
    std::string text;
    std::istringstream lines(comment);
    for (std::string line; std::getline(lines, line);) {
        text += line.substr(2) + " ";
    }
    return joined(text);
}

std::string ref_sentence(const ref_function_t &function) {
    std::string text = function.note.empty() ? ref_plain(function.comment) : function.note;
    text.resize(std::min(text.size(), text.find(". ")));
    text.resize(text.find_last_not_of('.') + 1);
    text[0] = (char)toupper((unsigned char)text[0]);
    return text;
}
