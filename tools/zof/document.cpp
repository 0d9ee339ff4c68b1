#include "document.h"

#include <cstdio>

#include "tool_file.h"

bool document_fault(const document_t &doc, u32 at, const std::string &text) {
    u32 line, col;
    zof_jdoc_place(&doc.json, at, &line, &col);
    fprintf(stderr, "%s:%u:%u: error: %s\n", doc.path.c_str(), line, col, text.c_str());
    return false;
}

bool document_read(document_t &doc, const std::string &path) {
    doc = {path, "", {}};
    const std::string reason = tool_file_read(path, doc.text);
    if (!reason.empty() || zof_jdoc_read(&doc.json, doc.text.data(), doc.text.size()) < 0) {
        fprintf(stderr, "%s: error: %s\n", path.c_str(), reason.empty() ? "out of memory" : reason.c_str());
        return false;
    }
    for (u32 i = 0; i < doc.json.fault_count; i++) {
        document_fault(doc, doc.json.faults[i].at, doc.json.faults[i].text);
    }
    if (doc.json.fault_count == 0 && doc.json.nodes[0].kind != ZOF_J_OBJECT) {
        return document_fault(doc, doc.json.nodes[0].at, "expected an object");
    }
    return doc.json.fault_count == 0;
}

void document_free(document_t &doc) {
    zof_jdoc_free(&doc.json);
}

std::string document_text(const document_t &doc, u32 node) {
    const s32 size = zof_jdoc_text(&doc.json, node, nullptr, 0);
    std::string text((size_t)(size > 0 ? size : 0), '\0');
    if (size > 0) {
        zof_jdoc_text(&doc.json, node, text.data(), text.size() + 1);
    }
    return text;
}

s64 document_number(const document_t &doc, u32 node) {
    double number = -1;
    zof_jdoc_number(&doc.json, node, &number);
    return number >= 0 && number <= INT32_MAX ? (s64)number : -1;
}
