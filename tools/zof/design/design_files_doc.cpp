// One text and its index.
#include <algorithm>
#include <cstring>

#include "check/zof_fmt.h"
#include "design_text.h"
#include "zof_lib/zof_stdio.h"

zof_jdoc_t design_doc_json(const design_doc_t *doc) {
    return {doc->text.data(), doc->text.size(), (zof_jnode_t *)doc->nodes.data(), (u32)doc->nodes.size(), nullptr, 0,
            ZOF_FALSE};
}

// Comments, a byte order mark and the like are kept; after other faults the nodes are not what the writer meant.
static const zof_jfault_t *fault_of(const zof_jdoc_t *json) {
    static const char *const rules[] = {"syntax", "encoding", "escape"};
    for (u32 i = 0; i < json->fault_count; i++) {
        for (const char *rule : rules) {
            if (strcmp(json->faults[i].rule, rule) == 0) {
                return &json->faults[i];
            }
        }
    }
    return nullptr;
}

static void fault_note(design_doc_t *doc, const zof_jdoc_t *json, const zof_jfault_t *fault) {
    u32 line;
    u32 column;
    zof_jdoc_place(json, fault->at, &line, &column);
    doc->fault = std::to_string(line) + ":" + std::to_string(column) + ": " + fault->text;
}

bool design_doc_index(design_doc_t *doc) {
    if (doc->indexed) {
        return doc->fault.empty();
    }
    zof_jdoc_t json;
    doc->nodes.clear();
    doc->fault.clear();
    doc->indexed = true;
    if (zof_jdoc_read(&json, doc->text.data(), doc->text.size()) < 0) {
        doc->fault = "no memory";
        return false;
    }
    const zof_jfault_t *fault = fault_of(&json);
    if (fault) {
        fault_note(doc, &json, fault);
    } else {
        doc->nodes.assign(json.nodes, json.nodes + json.count);
    }
    zof_jdoc_free(&json);
    return doc->fault.empty();
}

static void lines_count(design_doc_t *doc) {
    u32 line = 1;
    u32 at = 0;
    for (zof_jnode_t &node : doc->nodes) {
        line += (u32)std::count(doc->text.begin() + at, doc->text.begin() + node.at, '\n');
        at = node.at;
        node.line = line;
    }
}

// The nodes before a scalar that changes its length keep their places, those after it move.
static void nodes_move(design_doc_t *doc, u32 at, u32 by) {
    for (zof_jnode_t &node : doc->nodes) {
        if (node.at > at) {
            node.at += by;
            node.key += node.key == ZOF_J_NONE ? 0 : by;
            node.key_end += node.key == ZOF_J_NONE ? 0 : by;
        }
        node.end += node.end > at ? by : 0;
    }
}

void design_doc_splice(design_doc_t *doc, u32 at, u32 size, const std::string &after, u32 node, zof_jkind_e kind) {
    const std::string before = doc->text.substr(at, size);
    doc->text.replace(at, size, after);
    if (node == ZOF_J_NONE || !doc->indexed) {
        doc->indexed = false;
        return;
    }
    doc->nodes[node].kind = kind;
    if (after.size() != size) {
        nodes_move(doc, at, (u32)after.size() - size); // wraps around for a shorter text
    }
    if (before.find('\n') != std::string::npos ||
        after.find('\n') != std::string::npos) { // a text that runs over the end of its line
        lines_count(doc);
    }
}

static void unlink_node(design_doc_t *doc, u32 node) {
    u32 *link = &doc->nodes[doc->nodes[node].parent].child;
    while (*link != node) {
        link = &doc->nodes[*link].next;
    }
    *link = doc->nodes[node].next;
}

// A node and all in it stand together.
void design_doc_forget(design_doc_t *doc, u32 node, const std::vector<design_put_t> &gone) {
    u32 past = node + 1;
    while (past < doc->nodes.size() && doc->nodes[past].at < doc->nodes[node].end) {
        past++;
    }
    unlink_node(doc, node);
    doc->nodes.erase(doc->nodes.begin() + node, doc->nodes.begin() + past);
    for (zof_jnode_t &other : doc->nodes) {
        for (u32 *link : {&other.parent, &other.child, &other.next}) {
            *link -= *link != ZOF_J_NONE && *link >= past ? past - node : 0;
        }
        for (u32 *place : {&other.key, &other.key_end, &other.at, &other.end}) {
            u32 by = 0;
            for (const design_put_t &put : gone) {
                by += *place != ZOF_J_NONE && *place > put.at ? put.size : 0;
            }
            *place -= by;
        }
    }
    lines_count(doc);
    doc->indexed = true;
}

// FNV-1a over words of 8 bytes, because texts may have megabytes.
std::string design_doc_hash(const std::string &text) {
    u64 hash = 0xcbf29ce484222325u ^ text.size();
    size_t at = 0;
    for (; at + sizeof(u64) <= text.size(); at += sizeof(u64)) {
        u64 word;
        memcpy(&word, text.data() + at, sizeof(word));
        hash = (hash ^ word) * 0x100000001b3u;
        hash ^= hash >> 32;
    }
    for (; at < text.size(); at++) {
        hash = (hash ^ (u8)text[at]) * 0x100000001b3u;
    }
    char out[17];
    snprintf(out, sizeof(out), "%016llx", (unsigned long long)hash);
    return out;
}

u32 design_doc_find(design_doc_t *doc, const std::string &file, const std::string &path) {
    if (!doc->exists || !design_doc_index(doc)) {
        return ZOF_J_NONE;
    }
    const zof_jdoc_t json = design_doc_json(doc);
    const zof_cat_file_t *row = zof_fmt_file(file.c_str());
    const u32 node = row && !row->root && !path.empty() ? zof_jdoc_get(&json, 0, path.c_str()) : ZOF_J_NONE;
    return node != ZOF_J_NONE ? node : zof_jdoc_find(&json, 0, path.c_str());
}

std::string design_doc_raw(design_doc_t *doc, const std::string &file, const std::string &path) {
    const u32 node = design_doc_find(doc, file, path);
    return node == ZOF_J_NONE ? "" : doc->text.substr(doc->nodes[node].at, doc->nodes[node].end - doc->nodes[node].at);
}

// Printing ---------------------------------------------------------------------------------------------------------

static std::string scalar_text(const cJSON *value) {
    char *printed = cJSON_PrintUnformatted(value);
    std::string out = printed ? printed : "null";
    cJSON_free(printed);
    return out;
}

static std::string key_text(const char *key) {
    cJSON *text = cJSON_CreateString(key);
    std::string out = scalar_text(text);
    cJSON_Delete(text);
    return out;
}

std::string design_json_text(const cJSON *value, bool compact) {
    const bool object = cJSON_IsObject(value);
    if (!object && !cJSON_IsArray(value)) {
        return scalar_text(value);
    }
    std::string out;
    const cJSON *child = nullptr;
    cJSON_ArrayForEach(child, value) {
        out += out.empty() ? "" : compact ? "," : ", ";
        out += object ? key_text(child->string) + (compact ? ":" : ": ") : "";
        out += design_json_text(child, compact);
    }
    return object ? "{" + out + "}" : "[" + out + "]";
}
