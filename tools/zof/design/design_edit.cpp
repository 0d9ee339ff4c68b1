// Edits of the protocol become splices. A plan works on copies of the files, so that each edit sees those before it,
// and nothing has changed if one of them fails.
#include <algorithm>
#include <cstring>

#include "check/zof_fmt.h"
#include "design_text.h"
#include "zof_lib/zof_util.h"

static const cJSON *member(const cJSON *edit, const char *name) {
    return cJSON_GetObjectItemCaseSensitive(edit, name);
}

// Returns a number that is a place or an index, or `most` + 1 for anything else.
static u32 index_of(const cJSON *number, u32 most) {
    const bool fits = cJSON_IsNumber(number) && number->valuedouble >= 0 && number->valuedouble <= most;
    return fits ? (u32)number->valuedouble : most + 1;
}

design_doc_t *design_plan_work(design_plan_t *plan, const std::string &file) {
    const auto found = plan->works.find(file);
    if (found != plan->works.end()) {
        return &found->second;
    }
    design_file_t *entry = design_file_of(plan->files, file);
    if (!entry) {
        return nullptr;
    }
    if (entry->doc.exists) {
        design_doc_index(&entry->doc); // in the store, so that the next plan has it as well
    }
    return &plan->works.emplace(file, entry->doc).first->second;
}

void design_plan_put(design_plan_t *plan, const std::string &file, const std::string &path, const design_put_t &put,
                     u32 node, zof_jkind_e kind) {
    design_doc_t *doc = &plan->works.at(file);
    const zof_jdoc_t json = design_doc_json(doc);
    design_splice_t splice = {};
    splice.file = file;
    splice.path = path;
    splice.at = put.at;
    splice.before = doc->text.substr(put.at, put.size);
    splice.after = put.text;
    if (splice.before == splice.after) {
        return;
    }
    zof_jdoc_place(&json, put.at, &splice.line, &splice.column);
    design_doc_splice(doc, put.at, put.size, put.text, node, kind);
    plan->splices.push_back(splice);
}

// Puts several places of one text, of which the later ones come first so that the others stay valid.
static void put_all(design_plan_t *plan, const std::string &file, const std::string &path,
                    std::vector<design_put_t> puts) {
    std::stable_sort(puts.begin(), puts.end(),
                     [](const design_put_t &a, const design_put_t &b) { return a.at > b.at; });
    for (const design_put_t &put : puts) {
        design_plan_put(plan, file, path, put, ZOF_J_NONE, ZOF_J_NULL);
    }
}

// Kinds of edits ---------------------------------------------------------------------------------------------------

struct edit_t {
    design_plan_t *plan;
    design_doc_t *doc;
    const cJSON *json;
    std::string file, path;
};

static std::string missing(const edit_t &edit) {
    return edit.file + ": there is no " + edit.path;
}

static std::string value_set(const edit_t &edit) {
    return design_plan_value(edit.plan, edit.file, edit.path, member(edit.json, "value"));
}

static std::string value_remove(const edit_t &edit) {
    const u32 node = design_doc_find(edit.doc, edit.file, edit.path);
    if (node == ZOF_J_NONE || node == 0) {
        return missing(edit);
    }
    const zof_jdoc_t json = design_doc_json(edit.doc);
    const std::vector<design_put_t> gone = design_place_remove(&json, node);
    put_all(edit.plan, edit.file, edit.path, gone);
    design_doc_forget(edit.doc, node, gone);
    return "";
}

// Splits "controls[3]" into the array and the index.
static u32 array_of(const edit_t &edit, u32 *index) {
    const size_t open = edit.path.rfind('[');
    if (open == std::string::npos || edit.path.back() != ']') {
        return ZOF_J_NONE;
    }
    char *end;
    *index = (u32)std::min(strtoul(edit.path.c_str() + open + 1, &end, 10), (unsigned long)UINT32_MAX);
    const u32 node = design_doc_find(edit.doc, edit.file, edit.path.substr(0, open));
    return node != ZOF_J_NONE && edit.doc->nodes[node].kind == ZOF_J_ARRAY ? node : (u32)ZOF_J_NONE;
}

// Returns the element with this index, ZOF_J_NONE if there are fewer, and the one before it in *last.
static u32 element_of(const design_doc_t *doc, u32 array, u32 index, u32 *last) {
    u32 at = doc->nodes[array].child;
    *last = ZOF_J_NONE;
    while (at != ZOF_J_NONE && index-- > 0) {
        *last = at;
        at = doc->nodes[at].next;
    }
    return at;
}

static u32 count_of(const design_doc_t *doc, u32 array) {
    u32 count = 0;
    for (u32 at = doc->nodes[array].child; at != ZOF_J_NONE; at = doc->nodes[at].next) {
        count++;
    }
    return count;
}

static std::string value_insert(const edit_t &edit) {
    u32 index = 0;
    u32 last = ZOF_J_NONE;
    const u32 array = array_of(edit, &index);
    if (array == ZOF_J_NONE || index > count_of(edit.doc, array)) {
        return missing(edit);
    }
    element_of(edit.doc, array, index, &last);
    const zof_jdoc_t json = design_doc_json(edit.doc);
    const std::string body = design_json_text(member(edit.json, "insert"), design_place_compact(&json, array));
    put_all(edit.plan, edit.file, edit.path, {design_place_insert(&json, array, last, "", body)});
    return "";
}

static std::string value_move(const edit_t &edit) {
    u32 from = 0;
    u32 before = ZOF_J_NONE;
    const u32 array = array_of(edit, &from);
    const u32 node = array == ZOF_J_NONE ? (u32)ZOF_J_NONE : element_of(edit.doc, array, from, &before);
    const u32 count = node == ZOF_J_NONE ? 0 : count_of(edit.doc, array);
    const u32 to = index_of(member(edit.json, "move"), count);
    if (node == ZOF_J_NONE || to > count) {
        return missing(edit);
    }
    if (to == from || to == from + 1) {
        return "";
    }
    element_of(edit.doc, array, to, &before);
    const zof_jdoc_t json = design_doc_json(edit.doc);
    const zof_jnode_t &moved = edit.doc->nodes[node];
    std::vector<design_put_t> puts = design_place_remove(&json, node);
    puts.push_back(
        design_place_insert(&json, array, before, "", edit.doc->text.substr(moved.at, moved.end - moved.at)));
    put_all(edit.plan, edit.file, edit.path, puts);
    return "";
}

// Moves a place in the text before the plan to where it is after the splices so far. Returns false if a splice has
// replaced the bytes around it.
static bool place_follow(const edit_t &edit, u32 *at) {
    for (const design_splice_t &splice : edit.plan->splices) {
        const auto end = (u32)(splice.at + splice.before.size());
        if (splice.file != edit.file || *at < splice.at) {
            continue;
        }
        if (*at < end) {
            return false;
        }
        *at = (u32)(*at + splice.after.size() - splice.before.size());
    }
    return true;
}

// The places may be those of the text before the plan, so that several edits can be made of one text.
static std::string bytes_replace(const edit_t &edit) {
    const std::string hash = design_text_of(edit.json, "hash");
    design_file_t *entry = design_file_of(edit.plan->files, edit.file);
    const bool before = entry && hash == design_file_hash(entry);
    if (!edit.doc->exists || (!before && hash != design_doc_hash(edit.doc->text))) {
        return edit.file + " has changed since it was read";
    }
    const auto size = (u32)(before ? entry->doc.text.size() : edit.doc->text.size());
    u32 at = index_of(member(edit.json, "at"), size);
    u32 end = index_of(member(edit.json, "end"), size);
    if (at <= end && end <= size && before && (!place_follow(edit, &at) || !place_follow(edit, &end))) {
        return edit.file + ": two edits change the same place";
    }
    const std::string text = design_text_of(edit.json, "text");
    if (at > end || end > edit.doc->text.size() || !cJSON_IsString(member(edit.json, "text"))) {
        return edit.file + ": the edit needs at, end and text";
    }
    if (zof_utf8_bad(text.data(), text.size())) {
        return edit.file + ": the text is not UTF-8";
    }
    put_all(edit.plan, edit.file, "", {{at, end - at, text}});
    return "";
}

static void file_put(const edit_t &edit, const std::string &text, bool exists) {
    design_splice_t splice = {};
    splice.file = edit.file;
    splice.before = edit.doc->text;
    splice.after = text;
    splice.line = splice.column = 1;
    splice.created = exists;
    splice.deleted = !exists;
    *edit.doc = {};
    edit.doc->exists = exists;
    edit.doc->text = text;
    edit.plan->splices.push_back(splice);
}

static std::string file_create(const edit_t &edit) {
    if (edit.doc->exists) {
        return edit.file + " exists already";
    }
    std::string fault = design_file_new_fault(edit.plan->files, edit.file);
    if (fault.empty()) {
        file_put(edit, design_text_of(edit.json, "create"), true);
    }
    return fault;
}

static std::string file_delete(const edit_t &edit) {
    if (!edit.doc->exists) {
        return "there is no file " + edit.file;
    }
    file_put(edit, "", false);
    return "";
}

static constexpr struct {
    const char *name;
    bool path; // names a value, so the file has to be readable
    std::string (*apply)(const edit_t &edit);
} kinds[] = {
    {"value", true, value_set},     {"remove", true, value_remove}, {"insert", true, value_insert},
    {"move", true, value_move},     {"hash", false, bytes_replace}, {"create", false, file_create},
    {"delete", false, file_delete},
};

// An edit that names its control by id, too, means that one, wherever it stands now. Returns an error if it is gone.
static std::string control_find(edit_t *edit) {
    const cJSON *id = member(edit->json, "id");
    const size_t end = edit->path.find(']');
    const std::string own = ".property.pub_t.id";
    if (!cJSON_IsNumber(id) || !edit->path.starts_with("controls[") || end == std::string::npos) {
        return "";
    }
    const zof_jdoc_t json = design_doc_json(edit->doc);
    const auto is = [&](const std::string &path) {
        double number = 0;
        const u32 node = design_doc_find(edit->doc, edit->file, path + own);
        return node != ZOF_J_NONE && zof_jdoc_number(&json, node, &number) == 0 && number == id->valuedouble;
    };
    const u32 controls = design_doc_find(edit->doc, edit->file, "controls");
    const u32 count = controls == ZOF_J_NONE ? 0 : count_of(edit->doc, controls);
    std::string found = edit->path.substr(0, end + 1);
    for (u32 i = 0; i < count && !is(found); i++) {
        found = "controls[" + std::to_string(i) + "]";
    }
    edit->path.replace(0, end + 1, found);
    return is(found) ? "" : "the control is not there any more";
}

// An edit by path must leave a file that can be read. The index is needed for the next edit anyway.
static std::string result_check(const edit_t &edit) {
    return design_doc_index(edit.doc) ? "" : edit.file + ":" + edit.doc->fault + ", after the edit of " + edit.path;
}

static std::string edit_apply(design_plan_t *plan, const cJSON *json) {
    edit_t edit = {plan, nullptr, json, design_text_of(json, "file"), design_text_of(json, "path")};
    edit.doc = design_plan_work(plan, edit.file);
    if (!edit.doc) {
        return "\"" + edit.file + "\" is not a file of the project";
    }
    for (const auto &kind : kinds) {
        if (!member(json, kind.name)) {
            continue;
        }
        if (kind.apply == value_set && !edit.doc->exists && zof_fmt_file(edit.file.c_str())) {
            file_put(edit, "{\n}\n", true); // a file that projects may lack, such as the looks of a theme
        }
        if (kind.path && !edit.doc->exists) {
            return "there is no file " + edit.file;
        }
        if (kind.path && !design_doc_index(edit.doc)) {
            return edit.file + ":" + edit.doc->fault;
        }
        std::string error = kind.path ? control_find(&edit) : "";
        error = error.empty() ? kind.apply(edit) : error;
        return error.empty() && kind.path ? result_check(edit) : error;
    }
    return edit.file + ": the edit says nothing";
}

std::string design_plan_make(design_plan_t *plan, const cJSON *edits) {
    if (!cJSON_IsArray(edits)) {
        return "edits must be an array";
    }
    std::string error;
    const cJSON *edit = nullptr;
    cJSON_ArrayForEach(edit, edits) {
        error = error.empty() ? edit_apply(plan, edit) : error;
    }
    return error;
}

std::string design_files_plan(design_files_t *files, const cJSON *edits, std::vector<design_splice_t> *out) {
    design_plan_t plan = {files, {}, {}};
    std::string error = design_plan_make(&plan, edits);
    if (error.empty()) {
        *out = std::move(plan.splices);
    }
    return error;
}
