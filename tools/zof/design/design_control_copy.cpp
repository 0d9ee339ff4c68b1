// Copies of controls: the JSON text of controls is what the clipboard holds, so it can be pasted here and in an editor.
#include <algorithm>
#include <cctype>
#include <cstring>

#include "design_control.h"

// Copies are made in a file in memory of which nothing else is kept, so that they are edited like any other file.
static const char copy_file[] = "config/view/copy.g";

// Text lines -------------------------------------------------------------------------------------------------------

// Returns the smallest indentation of the lines after the first one, which is that of the control's own line.
static std::string indent_of(const std::string &text) {
    std::string least;
    bool first = true;
    for (size_t line = text.find('\n'); line != std::string::npos; line = text.find('\n', line + 1)) {
        const size_t end = std::min(text.find_first_not_of(" \t", line + 1), text.size());
        const std::string indent = text.substr(line + 1, end - line - 1);
        least = first || indent.size() < least.size() ? indent : least;
        first = false;
    }
    return least;
}

// Gives the lines after the first one another indentation and line end. Texts of JSON contain no line breaks.
static std::string indented(const std::string &text, const std::string &indent, const std::string &line_end) {
    const std::string old = indent_of(text);
    std::string out;
    size_t at = 0;
    for (;;) {
        const size_t end = std::min(text.find('\n', at), text.size());
        const size_t shown = end > at && text[end - 1] == '\r' ? end - 1 : end;
        out += text.substr(at, shown - at);
        if (end == text.size()) {
            return out;
        }
        out += line_end + indent;
        at = end + 1 + (text.compare(end + 1, old.size(), old) == 0 ? old.size() : 0);
    }
}

std::string design_control_copy(design_files_t *files, const cJSON *args, std::string *error) {
    design_view_t view = {};
    std::vector<u32> chosen;
    std::string out;
    *error = design_view_chosen(files, args, &view, &chosen);
    if (!error->empty()) {
        return "";
    }
    for (const u32 index : design_view_with_children(&view, chosen)) {
        out += (out.empty() ? "" : ",\n") + indented(design_view_text(&view, index), "", "\n");
    }
    return out + "\n";
}

// Names and ids ----------------------------------------------------------------------------------------------------

// "brew" becomes "brew_2", "brew_2" becomes "brew_3", "rail7" becomes "rail8", if these are free.
static std::string next_name(const std::set<std::string> &names, const std::string &name) {
    if (name.empty() || !names.contains(design_control_upper(name))) {
        return name;
    }
    size_t digits = name.size();
    while (digits > 0 && isdigit((u8)name[digits - 1]) && name.size() - digits < 6) {
        digits--;
    }
    const bool numbered = digits < name.size() && digits > 0;
    const std::string stem = numbered ? name.substr(0, digits) : name + "_";
    u32 number = numbered ? (u32)std::stoul(name.substr(digits)) + 1 : 2;
    while (names.contains(design_control_upper(stem + std::to_string(number)))) {
        number++;
    }
    return stem + std::to_string(number);
}

// Copies -----------------------------------------------------------------------------------------------------------

struct copies_t {
    design_plan_t plan;
    design_view_t source;      // of the copies' own file
    const design_view_t *view; // into which they go
    s64 parent;                // of those whose parent is not among them; 0 for the view, -1 for the one they have
    double dx, dy;
};

static void value_set(copies_t *copies, u32 index, const char *below, cJSON *value) {
    const std::string path = "controls[" + std::to_string(index) + "].property.pub_t." + below;
    design_plan_value(&copies->plan, copy_file, path, value);
    cJSON_Delete(value);
}

static void value_remove(copies_t *copies, u32 index, const char *below) {
    design_doc_t *doc = &copies->plan.works.at(copy_file);
    const std::string path = "controls[" + std::to_string(index) + "].property.pub_t." + below;
    const u32 node = design_doc_find(doc, copy_file, path);
    if (node == ZOF_J_NONE) {
        return;
    }
    const zof_jdoc_t json = design_doc_json(doc);
    std::vector<design_put_t> puts = design_place_remove(&json, node);
    for (size_t i = puts.size(); i-- > 0;) {
        design_plan_put(&copies->plan, copy_file, path, puts[i], ZOF_J_NONE, ZOF_J_NULL);
    }
}

static double place_of(copies_t *copies, u32 index, const char *below) {
    design_doc_t *doc = &copies->plan.works.at(copy_file);
    const std::string raw =
        design_doc_raw(doc, copy_file, "controls[" + std::to_string(index) + "].property.pub_t." + below);
    return raw.empty() ? 0 : strtod(raw.c_str(), nullptr);
}

// Those that move with a parent among the copies keep their place in it.
static void copy_place(copies_t *copies, u32 index, const design_control_t &control, s64 new_parent) {
    const bool root = new_parent < 0;
    const s64 parent = root ? (copies->parent < 0 ? control.parent : copies->parent) : new_parent;
    if (parent != control.parent) {
        if (parent) {
            value_set(copies, index, "parent_id", cJSON_CreateNumber((double)parent));
        } else {
            value_remove(copies, index, "parent_id");
        }
    }
    if (root && (copies->dx != 0 || copies->dy != 0)) {
        value_set(copies, index, "pt.x", cJSON_CreateNumber(place_of(copies, index, "pt.x") + copies->dx));
        value_set(copies, index, "pt.y", cJSON_CreateNumber(place_of(copies, index, "pt.y") + copies->dy));
    }
}

// Chooses ids and names for the copies. Returns an error if the view is full.
static std::string names_choose(const copies_t *copies, std::vector<s64> *ids, std::vector<std::string> *names) {
    std::set<s64> taken = copies->view->ids;
    std::set<std::string> words = copies->view->names;
    for (const design_control_t &control : copies->source.all) {
        const bool free = control.id > 0 && !taken.contains(control.id);
        ids->push_back(free ? control.id : design_control_free_id(taken));
        names->push_back(next_name(words, control.name));
        taken.insert(ids->back());
        words.insert(design_control_upper(names->back()));
        if (!ids->back()) {
            return "the view has no free id";
        }
    }
    return "";
}

// Gives all copies new ids, names and parents.
static std::string copies_rename(copies_t *copies, std::vector<std::string> *made) {
    std::vector<s64> ids;
    std::vector<std::string> names;
    std::string error = names_choose(copies, &ids, &names);
    if (!error.empty()) {
        return error;
    }
    const std::vector<design_control_t> all = copies->source.all;
    for (const design_control_t &control : all) {
        const auto parent = std::find_if(all.begin(), all.end(), [&control](const design_control_t &other) {
            return control.parent > 0 && other.id == control.parent;
        });
        copy_place(copies, control.index, control, parent == all.end() ? -1 : ids[parent->index]);
        value_set(copies, control.index, "id", cJSON_CreateNumber((double)ids[control.index]));
        const std::string &name = names[control.index];
        if (!name.empty()) {
            value_set(copies, control.index, "name", cJSON_CreateString(name.c_str()));
        }
        made->push_back(design_view_path(copies->view, name.empty() ? "#" + std::to_string(ids[control.index]) : name));
    }
    return "";
}

static std::string copies_read(copies_t *copies, const std::string &text) {
    design_doc_t doc = {};
    doc.exists = true;
    doc.text = "{\"controls\":[" + text + "]}";
    if (!design_doc_index(&doc)) {
        return "the text is not that of controls: " + doc.fault;
    }
    copies->plan.works[copy_file] = doc;
    design_files_t *store = copies->plan.files;
    store->files[copy_file] = {};
    store->files[copy_file].doc = doc;
    const std::string error = design_view_read(store, "copy", &copies->source);
    const zof_jdoc_t json = design_doc_json(&doc);
    for (const design_control_t &control : copies->source.all) {
        if (json.nodes[control.node].kind != ZOF_J_OBJECT ||
            zof_jdoc_get(&json, control.node, "property") == ZOF_J_NONE) {
            return "the text is not that of controls";
        }
    }
    return copies->source.all.empty() ? "the text has no controls" : error;
}

// Returns the copies as text for the array, with its indentation.
static std::string copies_text(copies_t *copies) {
    const design_view_t *view = copies->view;
    const std::string comma = design_place_comma(&view->json, view->controls);
    const std::string indent = design_place_indent(&view->json, view->controls);
    design_doc_t *doc = &copies->plan.works.at(copy_file);
    std::string out;
    for (u32 i = 0; i < copies->source.all.size(); i++) {
        const std::string text = design_doc_raw(doc, copy_file, "controls[" + std::to_string(i) + "]");
        out += (out.empty() ? "" : comma) + indented(text, indent, design_place_line(&view->json));
    }
    return out;
}

// Returns the edits that put copies of controls, given as text, before the control with this index.
static cJSON *copies_insert(copies_t *copies, const std::string &text, u32 index, std::vector<std::string> *made,
                            std::string *error) {
    design_files_t store = {};
    copies->plan.files = &store;
    *error = copies_read(copies, text);
    *error = error->empty() ? copies_rename(copies, made) : *error;
    if (!error->empty()) {
        return nullptr;
    }
    cJSON *edits = cJSON_CreateArray();
    design_edit_insert(edits, copies->view, index, copies_text(copies));
    return edits;
}

cJSON *design_control_duplicate(design_files_t *files, const cJSON *args, std::vector<std::string> *made,
                                std::string *error) {
    design_view_t view = {};
    std::vector<u32> chosen;
    *error = design_view_chosen(files, args, &view, &chosen);
    if (!error->empty()) {
        return nullptr;
    }
    copies_t copies = {{}, {}, &view, -1, design_args_number(args, "dx", 0), design_args_number(args, "dy", 0)};
    const std::vector<u32> all = design_view_with_children(&view, chosen);
    std::string text;
    for (const u32 index : all) {
        text += (text.empty() ? "" : ",") + design_view_text(&view, index);
    }
    return copies_insert(&copies, text, all.back() + 1, made, error);
}

// A list of controls in brackets, or with a comma at its end, is what a cut-out of a file looks like.
static std::string list_trim(std::string text) {
    const auto blank_or_comma = [](char c) { return c == ',' || (u8)c <= ' '; };
    while (!text.empty() && blank_or_comma(text.back())) {
        text.pop_back();
    }
    text.erase(text.begin(), std::find_if_not(text.begin(), text.end(), blank_or_comma));
    const bool list = text.size() >= 2 && text.front() == '[' && text.back() == ']';
    return list ? text.substr(1, text.size() - 2) : text;
}

cJSON *design_control_paste(design_files_t *files, const cJSON *args, std::vector<std::string> *made,
                            std::string *error) {
    design_view_t view;
    const std::string path = design_args_text(args, "parent");
    *error = design_view_read(files, design_args_text(args, "view"), &view);
    const s32 parent = error->empty() && !path.empty() ? design_view_find(&view, path) : -1;
    *error = error->empty() && parent < 0 && !path.empty() ? "there is no control " + path : *error;
    if (!error->empty()) {
        return nullptr;
    }
    copies_t copies = {{},
                       {},
                       &view,
                       parent < 0 ? 0 : view.all[(u32)parent].id,
                       design_args_number(args, "dx", 0),
                       design_args_number(args, "dy", 0)};
    return copies_insert(&copies, list_trim(design_args_text(args, "text")), (u32)view.all.size(), made, error);
}
