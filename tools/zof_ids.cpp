// Writes the ids of a project's views and controls as C enumerators, which keeps programs in step with their view
// files. usage: zof_ids PROJECT_FOLDER OUTPUT.h      The view `main.g` with id 1 becomes VIEW_MAIN_ID = 1, and its
// control `label0` with id 5 VIEW1_LABEL0_ID = 5.
#include <cjson/cJSON.h>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstring>
#include <map>
#include <set>
#include <sstream>
#include <string>

#include "tool_file.h"

static int fail(const std::string &place, const std::string &what) {
    fprintf(stderr, "zof_ids: %s: %s\n", place.c_str(), what.c_str());
    return 1;
}

// Converts a name to the form of a C constant; other characters become '_'.
static std::string upper(const std::string &name) {
    std::string out;
    for (const char c : name) {
        out += isalnum((unsigned char)c) ? (char)toupper((unsigned char)c) : '_';
    }
    return out;
}

static std::string enumerator(int view, const char *name) {
    return "VIEW" + std::to_string(view) + "_" + upper(name) + "_ID";
}

// "main.g" is the view `main`.
static std::string view_enumerator(const std::string &file) {
    return "VIEW_" + upper(file.substr(0, file.find_last_of('.'))) + "_ID";
}

// The guard contains the project's name, because a program with two projects includes two headers of the same name.
static std::string guard(const cJSON *project, const std::string &folder) {
    const char *name = cJSON_GetStringValue(cJSON_GetObjectItem(project, "p_name"));
    return "ZOF_" + upper(name && *name ? name : folder) + "_IDS_H";
}

// Parses a text into an object owned by the caller; null with the fault and its position.
static cJSON *parse_text(const std::string &text, const char *&fault, size_t &position) {
    const char *at = text.c_str();
    cJSON *root = cJSON_ParseWithOpts(text.c_str(), &at, 0);
    const size_t behind = text.find_first_not_of(" \t\r\n", (size_t)(at - text.c_str()));
    fault = !root                   ? "not valid JSON from here on; is a comma missing?"
            : !cJSON_IsObject(root) ? "expected an object"
            : behind < text.size()  ? "text after the end of the object"
                                    : nullptr;
    position = !root ? (size_t)(at - text.c_str()) : cJSON_IsObject(root) ? behind : 0;
    if (!fault) {
        return root;
    }
    cJSON_Delete(root);
    return nullptr;
}

// "FILE:LINE:COLUMN"
static std::string place(const std::string &path, const std::string &text, size_t position) {
    const std::string before = text.substr(0, position);
    const auto line = std::count(before.begin(), before.end(), '\n') + 1;
    const size_t column = before.size() - (before.find_last_of('\n') + 1) + 1;
    return path + ":" + std::to_string(line) + ":" + std::to_string(column);
}

// Parses a file into an object owned by the caller; null after a message with the position of the fault.
static cJSON *parse(const std::string &path) {
    std::string text;
    const std::string reason = tool_file_read(path, text);
    if (!reason.empty()) {
        fail(path, reason);
        return nullptr;
    }
    const char *fault;
    size_t position;
    cJSON *root = parse_text(text, fault, position);
    if (fault) {
        fail(place(path, text, position), fault);
    }
    return root;
}

// Writes the enumeration of one view; false after a message.
static bool write_view(const std::string &path, int view, std::ostream &out) {
    cJSON *root = parse(path);
    const cJSON *controls = cJSON_GetObjectItem(root, "controls");
    std::map<std::string, int> seen;
    std::set<int> ids;
    out << "enum {\n";
    bool good = cJSON_IsArray(controls);
    const cJSON *entry = nullptr;
    cJSON_ArrayForEach(entry, controls) {
        const cJSON *pub = cJSON_GetObjectItem(cJSON_GetObjectItem(entry, "property"), "pub_t");
        const cJSON *id = cJSON_GetObjectItem(pub, "id");
        const char *name = cJSON_GetStringValue(cJSON_GetObjectItem(pub, "name"));
        if (!cJSON_IsNumber(id) || !name || !*name) {
            fail(path, "a control has no `property.pub_t.id` or no `name`");
            good = false;
            continue;
        }
        const std::string word = enumerator(view, name);
        if (!seen.emplace(word, id->valueint).second) {
            fail(path, word + " would name two controls");
            good = false;
        }
        if (!ids.insert(id->valueint).second) {
            fail(path, "two controls have the id " + std::to_string(id->valueint));
            good = false;
        }
        out << "    " << word << " = " << id->valueint << ",\n";
    }
    out << "};\n\n";
    if (root && !cJSON_IsArray(controls)) {
        fail(path, "has no `controls`");
    }
    cJSON_Delete(root);
    return good;
}

int main(int argc, char **argv) {
    const bool help = argc == 2 && strcmp(argv[1], "--help") == 0;
    if (argc != 3) {
        fprintf(help ? stdout : stderr, "usage: zof_ids PROJECT_FOLDER OUTPUT.h\n"
                                        "Writes the ids of the project's views and controls as C enumerators.\n");
        return help ? 0 : 2;
    }
    const std::string folder = std::string(argv[1]) + "/config/";
    cJSON *root = parse(folder + "project/zofprj.g");
    const std::string word = guard(root, argv[1]);
    std::ostringstream out;
    out << "// Generated by zof_ids from the project's view files.\n#ifndef " << word << "\n#define " << word << "\n\n";
    const cJSON *views = cJSON_GetObjectItem(root, "views");
    bool good = cJSON_IsArray(views);
    if (root && !good) {
        fail(folder + "project/zofprj.g", "has no `views`");
    }
    const cJSON *view = nullptr;
    std::ostringstream ids;
    std::set<std::string> words;
    cJSON_ArrayForEach(view, views) {
        const cJSON *id = cJSON_GetObjectItem(view, "pageId");
        const char *name = cJSON_GetStringValue(cJSON_GetObjectItem(view, "pageName"));
        if (!cJSON_IsNumber(id) || !name) {
            fail(folder + "project/zofprj.g", "a view has no `pageId` or no `pageName`");
            good = false;
            continue;
        }
        const std::string of_view = view_enumerator(name);
        if (!words.insert(of_view).second) {
            fail(folder + "project/zofprj.g", of_view + " would name two views");
            good = false;
        }
        out << (view == views->child ? "enum {\n" : "") << "    " << of_view << " = " << id->valueint << ",\n";
        good = write_view(folder + "view/" + name, id->valueint, ids) && good;
    }
    out << (cJSON_GetArraySize(views) ? "};\n\n" : "") << ids.str() << "#endif\n";
    cJSON_Delete(root);
    if (!good) {
        return fail(argv[2], "no ids written");
    }
    std::string former;
    if (tool_file_read(argv[2], former).empty() &&
        former == out.str()) { // an unchanged header must not rebuild the program
        return 0;
    }
    const std::string reason = tool_file_write(argv[2], out.str());
    return reason.empty() ? 0 : fail(argv[2], reason);
}
