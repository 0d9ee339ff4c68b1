// Setting a value by its path: in the form that stands there, or as a new key at its place in the catalogue's order.
#include <cmath>
#include <cstring>

#include "check/zof_fmt.h"
#include "design_text.h"

// Forms ------------------------------------------------------------------------------------------------------------

static cJSON *number_json(double number) {
    return cJSON_CreateNumber(number);
}

static bool is_number_row(const reflect_item_t *row) {
    return row && (row->type == CSON_INTEGER || row->type == CSON_REAL);
}

// Returns another form of a value that a row asks for, for cJSON_Delete, or null if the value stays as it is.
static cJSON *type_convert(const reflect_item_t *row, const cJSON *value) {
    if (row && row->type == CSON_TRUE && cJSON_IsNumber(value)) {
        return cJSON_CreateBool(value->valuedouble != 0);
    }
    return is_number_row(row) && cJSON_IsBool(value) ? number_json(cJSON_IsTrue(value)) : nullptr;
}

// As type_convert, with the form that stands in the file: a number for a number, a name for a name.
static cJSON *form_convert(const reflect_item_t *row, zof_jkind_e kind, const cJSON *value) {
    char name[192];
    s64 number = 0;
    if (row && kind == ZOF_J_NUMBER && cJSON_IsString(value) && csonTextRead(row, value->valuestring, &number) == 0 &&
        value->valuestring[0] != '$') {
        return number_json((double)number);
    }
    if (row && kind == ZOF_J_TEXT && cJSON_IsNumber(value) &&
        zof_fmt_name(row, value->valuedouble, name, sizeof(name))) {
        return cJSON_Parse(name);
    }
    return type_convert(row, value);
}

// Returns true if the file has this value already, however it is written.
static bool is_same(const zof_jdoc_t *json, u32 node, const cJSON *value) {
    double number = 0;
    if (cJSON_IsNumber(value)) {
        return zof_jdoc_number(json, node, &number) == 0 && number == value->valuedouble;
    }
    if (!cJSON_IsString(value)) {
        return false; // the bytes are compared
    }
    std::string text(strlen(value->valuestring) + 2, 0);
    const s32 size = zof_jdoc_text(json, node, text.data(), text.size());
    return size >= 0 && (size_t)size == text.size() - 2 && strcmp(text.c_str(), value->valuestring) == 0;
}

static zof_jkind_e kind_of(const cJSON *value) {
    return cJSON_IsString(value)   ? ZOF_J_TEXT
           : cJSON_IsNumber(value) ? ZOF_J_NUMBER
           : cJSON_IsTrue(value)   ? ZOF_J_TRUE
           : cJSON_IsFalse(value)  ? ZOF_J_FALSE
                                   : ZOF_J_NULL;
}

static bool is_scalar(zof_jkind_e kind) {
    return kind != ZOF_J_OBJECT && kind != ZOF_J_ARRAY;
}

// Walking ----------------------------------------------------------------------------------------------------------

struct step_t {
    std::string key; // empty for an element
    u32 index;
};

// Where a path leads as far as the file has it, and what the catalogue knows of it.
struct walk_t {
    zof_jdoc_t json;
    std::vector<step_t> steps;
    size_t known;                   // steps that the file has
    u32 node;                       // of the last one of them
    const zof_cat_record_t *record; // of the objects at `node`, or of the elements of the array there; or null
    const reflect_item_t *row;      // of the value at `node`; or null
};

static bool index_read(const std::string &path, size_t *at, step_t *step) {
    size_t digit = *at + 1;
    u64 index = 0;
    while (digit < path.size() && path[digit] >= '0' && path[digit] <= '9' && index < UINT32_MAX) {
        index = index * 10 + (u64)(path[digit++] - '0');
    }
    const bool good = digit > *at + 1 && digit < path.size() && path[digit] == ']' && index < UINT32_MAX;
    *step = {"", (u32)index};
    *at = digit + 1;
    return good;
}

static bool steps_read(const std::string &path, std::vector<step_t> *steps) {
    size_t at = 0;
    while (at < path.size()) {
        step_t step;
        if (path[at] == '[') {
            if (!index_read(path, &at, &step)) {
                return false;
            }
        } else {
            at += path[at] == '.' && at > 0;
            const size_t end = std::min(path.find_first_of(".[", at), path.size());
            step = {path.substr(at, end - at), 0};
            at = end;
            if (step.key.empty()) {
                return false;
            }
        }
        steps->push_back(step);
    }
    return !steps->empty();
}

// Goes on in the catalogue, with `object` as the node that has the key, if there is one.
static void record_step(walk_t *walk, const step_t &step, u32 object) {
    const zof_cat_record_t *record = walk->record;
    const bool plain = record && record->count == 1 && record->keys[0].key[0] == '0';
    walk->row = nullptr;
    if (!record || step.key.empty()) {
        walk->row = plain ? zof_cat_row(record, &record->keys[0]) : nullptr;
        return;
    }
    const zof_cat_key_t *key = zof_cat_key_of(record, step.key.c_str());
    walk->row = key ? zof_cat_row(record, key) : nullptr;
    const bool inner = key && (key->kind == ZOF_CAT_OBJECT || key->kind == ZOF_CAT_ARRAY);
    walk->record = inner ? zof_fmt_record(&walk->json, object, key) : nullptr;
}

static u32 child_of(const walk_t *walk, const step_t &step) {
    const zof_jnode_t &node = walk->json.nodes[walk->node];
    if (!step.key.empty()) {
        return zof_jdoc_get(&walk->json, walk->node, step.key.c_str());
    }
    u32 at = node.kind == ZOF_J_ARRAY ? node.child : (u32)ZOF_J_NONE;
    for (u32 i = 0; i < step.index && at != ZOF_J_NONE; i++) {
        at = walk->json.nodes[at].next;
    }
    return at;
}

static bool walk_start(walk_t *walk, const design_doc_t *doc, const std::string &file, const std::string &path) {
    const zof_cat_file_t *row = zof_fmt_file(file.c_str());
    *walk = {design_doc_json(doc), {}, 0, 0, row ? row->root : nullptr, nullptr};
    if (row && !row->root) {
        walk->steps.push_back({path, 0}); // keys of texts may have dots in them
        return !path.empty();
    }
    return steps_read(path, &walk->steps);
}

// New values -------------------------------------------------------------------------------------------------------

static bool parent_fits(const walk_t *walk) {
    const zof_jnode_t &node = walk->json.nodes[walk->node];
    const step_t &step = walk->steps[walk->known];
    return node.kind == (step.key.empty() ? ZOF_J_ARRAY : ZOF_J_OBJECT);
}

static u32 last_child(const zof_jdoc_t *json, u32 parent, u32 *count) {
    u32 last = ZOF_J_NONE;
    *count = 0;
    for (u32 at = json->nodes[parent].child; at != ZOF_J_NONE; at = json->nodes[at].next, ++*count) {
        last = at;
    }
    return last;
}

// Returns the member after which a new key goes: the nearest one that precedes it in the catalogue, none if all keys
// follow it, and the last one for keys without an order.
static u32 member_before(const walk_t *walk, const zof_cat_record_t *record, const std::string &key) {
    u32 count;
    const zof_cat_key_t *row = record ? zof_cat_key(record, key.c_str()) : nullptr;
    if (!row) {
        return last_child(&walk->json, walk->node, &count);
    }
    while (row > record->keys) {
        row--;
        const u32 found = zof_jdoc_get(&walk->json, walk->node, row->key);
        if (found != ZOF_J_NONE) {
            return found;
        }
    }
    return ZOF_J_NONE;
}

static std::string quoted(const std::string &key) {
    cJSON *text = cJSON_CreateString(key.c_str());
    std::string out = design_json_text(text, true);
    cJSON_Delete(text);
    return out;
}

// Wraps a value in the objects and arrays between the one that exists and itself.
static std::string body_of(const walk_t *walk, std::string value, bool compact) {
    for (size_t i = walk->steps.size(); i-- > walk->known + 1;) {
        const step_t &step = walk->steps[i];
        value.insert(0, step.key.empty() ? "[" : "{" + quoted(step.key) + (compact ? ":" : ": "));
        value += step.key.empty() ? "]" : "}";
    }
    return value;
}

static bool elements_start(const walk_t *walk) {
    for (size_t i = walk->known + 1; i < walk->steps.size(); i++) {
        if (walk->steps[i].key.empty() && walk->steps[i].index != 0) {
            return false;
        }
    }
    return true;
}

static std::string new_put(walk_t *walk, const cJSON *value, design_put_t *put) {
    const step_t &step = walk->steps[walk->known];
    const zof_cat_record_t *record = walk->record;
    u32 count;
    u32 after = last_child(&walk->json, walk->node, &count);
    if (!parent_fits(walk) || (step.key.empty() && step.index != count) || !elements_start(walk)) {
        return "leads nowhere";
    }
    after = step.key.empty() ? after : member_before(walk, record, step.key);
    const u32 object = walk->node;
    for (size_t i = walk->known; i < walk->steps.size(); i++) {
        record_step(walk, walk->steps[i], i == walk->known ? object : (u32)ZOF_J_NONE);
    }
    cJSON *converted = type_convert(walk->row, value);
    const bool compact = design_place_compact(&walk->json, object);
    const std::string body = body_of(walk, design_json_text(converted ? converted : value, compact), compact);
    cJSON_Delete(converted);
    *put = design_place_insert(&walk->json, object, after, step.key.empty() ? "" : quoted(step.key), body);
    return "";
}

// Puts a value in the place of another one.
static void old_put(design_plan_t *plan, const std::string &file, const std::string &path, const walk_t *walk,
                    const cJSON *value) {
    const zof_jnode_t old = walk->json.nodes[walk->node];
    cJSON *converted = form_convert(walk->row, old.kind, value);
    const cJSON *made = converted ? converted : value;
    const bool container = cJSON_IsObject(made) || cJSON_IsArray(made) || cJSON_IsRaw(made);
    const bool compact = old.parent != ZOF_J_NONE && design_place_compact(&walk->json, walk->node);
    if (!is_same(&walk->json, walk->node, made)) {
        const std::string text = design_json_text(made, compact);
        const u32 node = container || !is_scalar(old.kind) ? (u32)ZOF_J_NONE : walk->node;
        design_plan_put(plan, file, path, {old.at, old.end - old.at, text}, node, kind_of(made));
    }
    cJSON_Delete(converted);
}

static std::string new_value(design_plan_t *plan, const std::string &file, const std::string &path, walk_t *walk,
                             const cJSON *value) {
    design_put_t put;
    const std::string error = new_put(walk, value, &put);
    if (!error.empty()) {
        return file + ": " + path + " " + error;
    }
    design_plan_put(plan, file, path, put, ZOF_J_NONE, ZOF_J_NULL);
    return "";
}

std::string design_plan_value(design_plan_t *plan, const std::string &file, const std::string &path,
                              const cJSON *value) {
    walk_t walk;
    design_doc_t *doc = &plan->works.at(file);
    if (!design_doc_index(doc)) {
        return file + ":" + doc->fault;
    }
    if (!walk_start(&walk, doc, file, path)) {
        return file + ": \"" + path + "\" is not the path of a value";
    }
    while (walk.known < walk.steps.size()) {
        const step_t &step = walk.steps[walk.known];
        const u32 child = child_of(&walk, step);
        if (child == ZOF_J_NONE) {
            return new_value(plan, file, path, &walk, value);
        }
        record_step(&walk, step, walk.node);
        walk.node = child;
        walk.known++;
    }
    old_put(plan, file, path, &walk, value);
    return "";
}
