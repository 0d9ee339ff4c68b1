// What can be done about a finding: edits, with what they change.
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>

#include "design_in.h"

// A finding, with the bytes it is about.
struct about_t {
    const zof_finding_t &finding;
    std::string file, key, text; // of the finding
    const std::string *source;   // the whole file
    std::string hash;
    size_t at;         // place of the finding in it
    std::string value; // bytes of the value at `key`; empty for objects, arrays and missing ones
};

static cJSON *edit_make(const about_t &about) {
    cJSON *edit = cJSON_CreateObject();
    cJSON_AddStringToObject(edit, "file", about.file.c_str());
    return edit;
}

static cJSON *edit_bytes(const about_t &about, size_t at, size_t end, const std::string &text) {
    cJSON *edit = edit_make(about);
    cJSON_AddStringToObject(edit, "hash", about.hash.c_str());
    cJSON_AddNumberToObject(edit, "at", (double)at);
    cJSON_AddNumberToObject(edit, "end", (double)end);
    cJSON_AddStringToObject(edit, "text", text.c_str());
    return edit;
}

static cJSON *edit_value(const about_t &about, const std::string &path, cJSON *value) {
    cJSON *edit = edit_make(about);
    cJSON_AddStringToObject(edit, "path", path.c_str());
    cJSON_AddItemToObject(edit, "value", value);
    return edit;
}

static cJSON *edit_remove(const about_t &about) {
    cJSON *edit = edit_make(about);
    cJSON_AddStringToObject(edit, "path", about.key.c_str());
    cJSON_AddBoolToObject(edit, "remove", true);
    return edit;
}

// Adds a fix. Edits that cannot be made are left out.
static void edits_add(cJSON *out, const std::string &label, bool sure, cJSON *edits) {
    design_gesture_t preview = {};
    if (!design_files_plan(design.files, edits, &preview.splices).empty() || preview.splices.empty()) {
        cJSON_Delete(edits);
        return;
    }
    cJSON *gesture = design_gesture_json(design.files, &preview);
    cJSON *fix = cJSON_CreateObject();
    cJSON_AddStringToObject(fix, "label", label.c_str());
    cJSON_AddBoolToObject(fix, "sure", sure);
    cJSON_AddItemToObject(fix, "edits", edits);
    cJSON_AddItemToObject(fix, "changes", cJSON_DetachItemFromObject(gesture, "changes"));
    cJSON_Delete(gesture);
    cJSON_AddItemToArray(out, fix);
}

static void fix_add(cJSON *out, const std::string &label, bool sure, cJSON *edit) {
    cJSON *edits = cJSON_CreateArray();
    cJSON_AddItemToArray(edits, edit);
    edits_add(out, label, sure, edits);
}

// Returns what the checker suggests in place of a name; empty if it suggests nothing.
static std::string meant_of(const std::string &text) {
    static const char ask[] = "did you mean ";
    const size_t at = text.rfind(ask);
    return at == std::string::npos || !text.ends_with("?")
               ? ""
               : text.substr(at + sizeof(ask) - 1, text.size() - at - sizeof(ask));
}

static std::string quoted(const std::string &text) {
    return "\"" + text + "\"";
}

static void key_fix(const about_t &about, cJSON *out) {
    const std::string meant = meant_of(about.text);
    const std::string &source = *about.source;
    const size_t end =
        about.at < source.size() && source[about.at] == '"' ? source.find('"', about.at + 1) : std::string::npos;
    if (!meant.empty() && end != std::string::npos) {
        fix_add(out, "Write " + quoted(meant), true, edit_bytes(about, about.at, end + 1, quoted(meant)));
    }
    fix_add(out, "Remove the key", false, edit_remove(about));
}

static void comma_fix(const about_t &about, cJSON *out) {
    if (about.at < about.source->size() && (*about.source)[about.at] == ',') {
        fix_add(out, "Remove the comma", true, edit_bytes(about, about.at, about.at + 1, ""));
    }
}

static void mark_fix(const about_t &about, cJSON *out) {
    if (about.source->starts_with("\xEF\xBB\xBF")) {
        fix_add(out, "Remove the byte order mark", true, edit_bytes(about, 0, 3, ""));
    }
}

static void name_fix(const about_t &about, cJSON *out) {
    std::string meant = meant_of(about.text);
    if (!meant.empty() && !about.value.empty()) {
        meant = about.value.starts_with("\"$") ? "$" + meant : meant;
        fix_add(out, "Write " + quoted(meant), true, edit_value(about, about.key, cJSON_CreateString(meant.c_str())));
    }
}

// The file's name differs from the text in upper and lower case only.
static void case_fix(const about_t &about, cJSON *out) {
    const size_t length = about.value.size() < 2 ? 0 : about.value.size() - 2;
    if (length && length <= about.text.size()) {
        const std::string name = about.text.substr(about.text.size() - length);
        fix_add(out, "Write " + quoted(name), true, edit_value(about, about.key, cJSON_CreateString(name.c_str())));
    }
}

static void invisible_fix(const about_t &about, cJSON *out) {
    const bool missing = about.text.find("is missing") != std::string::npos;
    const std::string name = about.text.find("alpha") != std::string::npos ? "alpha" : "opa";
    if (missing) {
        fix_add(out, "Write " + name + " 255", true,
                edit_value(about, about.key + "." + name, cJSON_CreateNumber(255)));
    } else if (about.value == "0" && about.key.ends_with(name)) {
        fix_add(out, "Write 255", false, edit_value(about, about.key, cJSON_CreateNumber(255)));
    }
}

static void kind_fix(const about_t &about, cJSON *out) {
    const bool wants_bool = about.text.starts_with("expected true or false");
    const bool wants_number =
        about.text.starts_with("expected a number") || about.text.starts_with("expected an integer");
    if (wants_bool && (about.value == "0" || about.value == "1")) {
        const bool yes = about.value == "1";
        fix_add(out, yes ? "Write true" : "Write false", true, edit_value(about, about.key, cJSON_CreateBool(yes)));
    } else if (wants_number && (about.value == "true" || about.value == "false")) {
        const bool yes = about.value == "true";
        fix_add(out, yes ? "Write 1" : "Write 0", true, edit_value(about, about.key, cJSON_CreateNumber(yes)));
    } else if (wants_number && about.value.size() > 2 && about.value[0] == '"') {
        char *end = nullptr;
        const double number = strtod(about.value.c_str() + 1, &end);
        if (*end == '"' && std::isfinite(number)) {
            fix_add(out, "Write " + about.value.substr(1, about.value.size() - 2), true,
                    edit_value(about, about.key, cJSON_CreateNumber(number)));
        }
    }
}

static void range_fix(const about_t &about, cJSON *out) {
    double value = 0;
    double low = 0;
    double high = 0;
    if (sscanf(about.text.c_str(), "%lf is not from %lf to %lf", &value, &low, &high) == 3 && low <= high) {
        const double nearest = std::clamp(value, low, high);
        char text[32];
        snprintf(text, sizeof(text), "%.15g", nearest);
        fix_add(out, std::string("Write ") + text, false, edit_value(about, about.key, cJSON_CreateNumber(nearest)));
    }
}

static void look_fix(const about_t &about, cJSON *out) {
    fix_add(out, "Remove the look", false, edit_remove(about));
}

static void text_fix(const about_t &about, cJSON *out) {
    cJSON *edits = cJSON_CreateArray();
    const cJSON *language = nullptr;
    cJSON_ArrayForEach(language, cJSON_GetObjectItemCaseSensitive(design_canvas_project(), "languages")) {
        const std::string file = "config/languages/" + std::string(language->valuestring) + ".g";
        if (!design_files_value(design.files, file, about.key).empty()) {
            cJSON *edit = edit_remove(about);
            cJSON_ReplaceItemInObject(edit, "file", cJSON_CreateString(file.c_str()));
            cJSON_AddItemToArray(edits, edit);
        }
    }
    edits_add(out, "Remove it from all languages", false, edits);
}

// Adds a line to the file of findings that are meant to be so.
static void ignore_fix(const about_t &about, cJSON *out) {
    static const char ignore[] = "zof-check.ignore";
    std::string hash;
    const std::string *text = design_files_text(design.files, ignore, &hash);
    const std::string line = std::string(about.finding.rule->name) + " " + about.file +
                             (about.key.empty() ? "" : ":" + about.key) + " meant to be so\n";
    cJSON *edit = cJSON_CreateObject();
    cJSON_AddStringToObject(edit, "file", ignore);
    if (!text) {
        cJSON_AddStringToObject(edit, "create", line.c_str());
    } else {
        const bool ended = text->empty() || text->back() == '\n';
        cJSON_AddStringToObject(edit, "hash", hash.c_str());
        cJSON_AddNumberToObject(edit, "at", (double)text->size());
        cJSON_AddNumberToObject(edit, "end", (double)text->size());
        cJSON_AddStringToObject(edit, "text", ((ended ? "" : "\n") + line).c_str());
    }
    fix_add(out, "Do not report this again", false, edit);
}

static constexpr struct {
    const char *rule;
    void (*make)(const about_t &about, cJSON *out);
} makers[] = {
    {"key-unknown", key_fix},  {"comma", comma_fix},         {"mark", mark_fix},  {"file-missing", name_fix},
    {"look", name_fix},        {"name", name_fix},           {"theme", name_fix}, {"language", name_fix},
    {"file-case", case_fix},   {"invisible", invisible_fix}, {"kind", kind_fix},  {"range", range_fix},
    {"look-unused", look_fix}, {"text-unused", text_fix},
};

static size_t place_of(const std::string &source, u32 line, u32 col) {
    size_t at = 0;
    for (u32 i = 1; i < line && at != std::string::npos; i++) {
        at = source.find('\n', at);
        at = at == std::string::npos ? at : at + 1;
    }
    return at == std::string::npos ? source.size() : std::min(source.size(), at + col - 1);
}

cJSON *design_fixes(const zof_finding_t &finding) {
    cJSON *out = cJSON_CreateArray();
    about_t about = {finding, finding.file, finding.key, finding.text, nullptr, "", 0, ""};
    about.source = design_files_text(design.files, about.file, &about.hash);
    if (!about.source) {
        return out;
    }
    about.at = place_of(*about.source, finding.line, finding.col);
    about.value = about.key.empty() ? "" : design_files_value(design.files, about.file, about.key);
    for (const auto &row : makers) {
        if (strcmp(row.rule, finding.rule->name) == 0) {
            row.make(about, out);
        }
    }
    ignore_fix(about, out);
    return out;
}
