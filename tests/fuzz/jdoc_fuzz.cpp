// JSON with positions: accepts what cJSON accepts, each node's range is a value with the same content, and a change
// stays within its range.
#include <cjson/cJSON.h>

#include "fuzz.h"
#include "zof_lib/zof_jdoc.h"

void fuzz_open() {
}

// Where cJSON takes "\u" without digits for the end of a text, it is not compared.
static bool comparable(const std::string &text, const zof_jdoc_t &doc) {
    bool escape = false;
    for (u32 i = 0; i < doc.fault_count; i++) {
        escape = escape || std::string(doc.faults[i].rule) == "escape";
    }
    return !escape && text.find('\0') == text.npos;
}

// cJSON accepts texts with other encodings, and what is reported as "strict".
static bool valid(const zof_jdoc_t &doc) {
    for (u32 i = 0; i < doc.fault_count; i++) {
        const std::string rule = doc.faults[i].rule;
        if (rule != "mark" && rule != "strict" && (rule != "encoding" || !doc.count)) {
            return false;
        }
    }
    return true;
}

static void same(const zof_jdoc_t &doc, u32 node, const cJSON *value, const std::string &text) {
    const zof_jnode_t &at = doc.nodes[node];
    fuzz_must(at.at < at.end && at.end <= text.size(), "a range is in the text");
    double number;
    std::vector<char> out(text.size() + 1);
    switch (value->type & 0xFF) {
    case cJSON_Number:
        fuzz_must(zof_jdoc_number(&doc, node, &number) == 0 && number == value->valuedouble, "a number is the same");
        break;
    case cJSON_String:
        fuzz_must(zof_jdoc_text(&doc, node, out.data(), out.size()) >= 0 && !strcmp(out.data(), value->valuestring),
                  "a text is the same");
        break;
    default:
        fuzz_must(at.kind == ZOF_J_OBJECT || at.kind == ZOF_J_ARRAY || at.kind >= ZOF_J_TRUE, "a kind is the same");
    }
    if (value->string) {
        fuzz_must(zof_jdoc_key(&doc, node, out.data(), out.size()) >= 0 && !strcmp(out.data(), value->string),
                  "a key is the same");
    }
    u32 child = at.child;
    for (const cJSON *c = value->child; c; c = c->next, child = doc.nodes[child].next) {
        fuzz_must(child < doc.count && doc.nodes[child].parent == node && doc.nodes[child].at >= at.at,
                  "a child is there");
        same(doc, child, c, text);
    }
    fuzz_must(child == ZOF_J_NONE, "no child is left");
}

static void changes(const zof_jdoc_t &doc, u32 node, const std::string &text) {
    const zof_jnode_t &at = doc.nodes[node];
    zof_jdoc_t part;
    const s32 faults = zof_jdoc_read(&part, text.data() + at.at, at.end - at.at);
    fuzz_must(part.count && part.nodes[0].kind == at.kind && part.nodes[0].end == at.end - at.at, "a range is a value");
    fuzz_must(faults >= 0 && valid(part), "the value is valid");
    zof_jdoc_free(&part);
    size_t size = 0;
    char *made = zof_jdoc_replace(&doc, node, "[0]", &size);
    fuzz_must(std::string(made, size) == text.substr(0, at.at) + "[0]" + text.substr(at.end), "the rest is unchanged");
    zof_free(made);
    const bool object = at.kind == ZOF_J_OBJECT;
    for (char *edited :
         {zof_jdoc_insert(&doc, node, object ? "k" : nullptr, "1", &size), zof_jdoc_remove(&doc, node, &size)}) {
        zof_jdoc_t again;
        fuzz_must(!edited || zof_jdoc_read(&again, edited, strlen(edited)) >= 0, "there is memory");
        fuzz_must(!edited || valid(again), "a changed text is valid");
        if (edited) {
            zof_jdoc_free(&again);
        }
        zof_free(edited);
    }
}

void fuzz_one(fuzz_input &in) {
    const u8 choice = fuzz_byte(in);
    const std::string text = fuzz_text(in);
    zof_jdoc_t doc;
    fuzz_must(zof_jdoc_read(&doc, text.data(), text.size()) >= 0, "there is memory");
    const char *end = nullptr;
    const bool compared = comparable(text, doc);
    cJSON *root = compared ? cJSON_ParseWithOpts(text.c_str(), &end, 0) : nullptr;
    const bool accepted =
        root &&
        strspn(end, "\1\2\3\4\5\6\7\10\11\12\13\14\15\16\17\20\21\22\23\24\25\26\27\30\31\32\33\34\35\36\37 ") ==
            strlen(end);
    fuzz_must(!compared || accepted == valid(doc), "valid is what cJSON accepts");
    if (accepted) {
        same(doc, 0, root, text);
        changes(doc, choice % doc.count, text);
    }
    for (u32 i = 0; i < doc.count; i++) {
        fuzz_must(doc.nodes[i].at <= doc.nodes[i].end && doc.nodes[i].end <= text.size(), "ranges are ordered");
    }
    cJSON_Delete(root);
    zof_jdoc_free(&doc);
}
