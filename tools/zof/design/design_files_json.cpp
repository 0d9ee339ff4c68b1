// Values, gestures and the state of undo in the forms of the protocol.
#include <algorithm>

#include "design_text.h"
#include "zof_lib/zof_util.h"

// Values -----------------------------------------------------------------------------------------------------------

// Sets line and column of one place after another, for places in the order of the text.
struct place_t {
    u32 at, line, begin; // `begin`: of the line
};

static void place_move(const std::string &text, u32 to, place_t *place) {
    for (; place->at < to; place->at++) {
        if (text[place->at] == '\n') {
            place->line++;
            place->begin = place->at + 1;
        }
    }
}

static std::string key_of(const zof_jdoc_t *json, u32 node) {
    const s32 size = zof_jdoc_key(json, node, nullptr, 0);
    std::string key((size_t)std::max(size, 0) + 1, 0);
    zof_jdoc_key(json, node, key.data(), key.size());
    key.pop_back();
    return key;
}

static cJSON *value_json(const design_doc_t *doc, u32 node, const std::string &path, place_t *place) {
    static const char *const kinds[] = {"object", "array", "text", "number", "bool", "bool", "null"};
    const zof_jnode_t &at = doc->nodes[node];
    const bool container = at.kind == ZOF_J_OBJECT || at.kind == ZOF_J_ARRAY;
    place_move(doc->text, at.at, place);
    cJSON *out = cJSON_CreateObject();
    cJSON_AddStringToObject(out, "path", path.c_str());
    cJSON_AddStringToObject(out, "kind", kinds[at.kind]);
    cJSON_AddStringToObject(out, "raw", container ? "" : doc->text.substr(at.at, at.end - at.at).c_str());
    cJSON_AddNumberToObject(out, "line", place->line);
    cJSON_AddNumberToObject(out, "column", at.at - place->begin + 1);
    return out;
}

// Nodes stand in the order of the text, so those of an object follow it, and a parent's path is known before its
// children's.
static cJSON *values_json(const design_doc_t *doc, u32 root) {
    struct open_t {
        std::string path;
        u32 children;
    };
    const zof_jdoc_t json = design_doc_json(doc);
    std::map<u32, open_t> open = {{root, {"", 0}}};
    cJSON *out = cJSON_CreateArray();
    place_t place = {0, 1, 0};
    for (u32 node = root + 1; node < json.count && json.nodes[node].at < json.nodes[root].end; node++) {
        open_t &parent = open.at(json.nodes[node].parent);
        const bool element = json.nodes[node].key == ZOF_J_NONE;
        const std::string name = element ? "[" + std::to_string(parent.children++) + "]" : key_of(&json, node);
        const std::string path = parent.path + (element || parent.path.empty() ? "" : ".") + name;
        cJSON_AddItemToArray(out, value_json(doc, node, path, &place));
        if (json.nodes[node].child != ZOF_J_NONE) {
            open[node] = {path, 0};
        }
    }
    return out;
}

cJSON *design_files_read(design_files_t *files, const std::string &file, const std::string &path, std::string *error) {
    design_file_t *entry = design_file_of(files, file);
    if (!entry || !entry->doc.exists) {
        *error = "there is no file " + file;
        return nullptr;
    }
    if (!design_doc_index(&entry->doc)) {
        *error = file + ":" + entry->doc.fault;
        return nullptr;
    }
    const u32 node = path.empty() ? 0 : design_doc_find(&entry->doc, file, path);
    if (node == ZOF_J_NONE) {
        *error = file + ": there is no " + path;
        return nullptr;
    }
    if (entry->doc.nodes[node].child == ZOF_J_NONE) {
        place_t place = {0, 1, 0};
        cJSON *out = cJSON_CreateArray();
        cJSON_AddItemToArray(out, value_json(&entry->doc, node, "", &place));
        return out;
    }
    return values_json(&entry->doc, node);
}

std::string design_files_value(design_files_t *files, const std::string &file, const std::string &path) {
    design_file_t *entry = design_file_of(files, file);
    if (!entry || !entry->doc.exists || !design_doc_index(&entry->doc)) {
        return "";
    }
    const u32 node = path.empty() ? ZOF_J_NONE : design_doc_find(&entry->doc, file, path);
    const bool value =
        node != ZOF_J_NONE && entry->doc.nodes[node].kind != ZOF_J_OBJECT && entry->doc.nodes[node].kind != ZOF_J_ARRAY;
    return value ? entry->doc.text.substr(entry->doc.nodes[node].at,
                                          entry->doc.nodes[node].end - entry->doc.nodes[node].at)
                 : "";
}

std::string design_text_of(const cJSON *object, const char *name) {
    const char *text = cJSON_GetStringValue(cJSON_GetObjectItemCaseSensitive(object, name));
    return text ? text : "";
}

// Gestures ---------------------------------------------------------------------------------------------------------

// Texts go to a browser, which ends a connection that brings anything but UTF-8. Long ones are cut off.
static std::string shown(std::string text) {
    enum { SHOWN_MAX = 2000 };
    size_t size = std::min(text.size(), (size_t)SHOWN_MAX);
    while (size < text.size() && ((u8)text[size] & 0xC0) == 0x80) {
        size++;
    }
    const bool cut = size < text.size();
    text.resize(size);
    std::replace(text.begin(), text.end(), '\0', ' ');
    for (const char *bad; (bad = zof_utf8_bad(text.data(), text.size()));) {
        text[(size_t)(bad - text.data())] = '?';
    }
    return cut ? text + "..." : text;
}

// What was put or taken, without the separators around it.
static std::string trimmed(const std::string &text) {
    const auto separator = [](char c) { return c == ',' || (u8)c <= ' '; };
    const auto from = std::find_if_not(text.begin(), text.end(), separator);
    const auto end = std::find_if_not(text.rbegin(), std::make_reverse_iterator(from), separator).base();
    return {from, end};
}

static cJSON *change_json(const design_splice_t &splice) {
    const bool whole = splice.before.empty() || splice.after.empty();
    cJSON *out = cJSON_CreateObject();
    cJSON_AddStringToObject(out, "file", splice.file.c_str());
    cJSON_AddNumberToObject(out, "line", splice.line);
    cJSON_AddNumberToObject(out, "column", splice.column);
    cJSON_AddStringToObject(out, "path", shown(splice.path).c_str());
    cJSON_AddStringToObject(out, "before", shown(whole ? trimmed(splice.before) : splice.before).c_str());
    cJSON_AddStringToObject(out, "after", shown(whole ? trimmed(splice.after) : splice.after).c_str());
    return out;
}

cJSON *design_gesture_json(design_files_t *, const design_gesture_t *gesture) {
    cJSON *out = cJSON_CreateObject();
    cJSON_AddNumberToObject(out, "number", gesture->number);
    cJSON_AddStringToObject(out, "label", shown(gesture->label).c_str());
    cJSON_AddStringToObject(out, "source", gesture->elsewhere ? "elsewhere" : "page");
    cJSON_AddNumberToObject(out, "time", (double)gesture->time);
    cJSON_AddBoolToObject(out, "undone", gesture->undone);
    cJSON *changes = cJSON_AddArrayToObject(out, "changes");
    for (const design_splice_t &splice : gesture->splices) {
        cJSON_AddItemToArray(changes, change_json(splice));
    }
    return out;
}

cJSON *design_undo_json(const design_files_t *files) {
    const bool undo = files->done > files->closed;
    const bool redo = files->done < files->gestures.size();
    cJSON *out = cJSON_CreateObject();
    cJSON_AddStringToObject(out, "undo", undo ? shown(files->gestures[files->done - 1].label).c_str() : "");
    cJSON_AddStringToObject(out, "redo", redo ? shown(files->gestures[files->done].label).c_str() : "");
    cJSON_AddBoolToObject(out, "saved", files->error.empty());
    cJSON_AddStringToObject(out, "error", shown(files->error).c_str());
    return out;
}
