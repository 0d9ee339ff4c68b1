// Parses whole project files. Faults are reported with path, line and column.
#include <cstring>

#include "project/read/zof_fault.h"
#include "project/read/zof_j2s.h"
#include "zof_lib/zof_jdoc.h"
#include "zof_lib/zof_stdio.h"
#include "zof_lib/zof_util.h"

// Reports what is wrong with a text. The parser keeps no places and has no reasons, so it is read again.
static void faults_report(const char *path, const char *text) {
    zof_jdoc_t doc;
    if (zof_jdoc_read(&doc, text, std::strlen(text)) < 0) {
        return;
    }
    for (u32 i = 0; i < doc.fault_count; i++) {
        zof_fault_in_text(path, text, text + doc.faults[i].at, "%s", doc.faults[i].text);
    }
    if (doc.count && doc.nodes[0].kind != ZOF_J_OBJECT) {
        zof_fault_in_text(path, text, text + doc.nodes[0].at, "expected an object");
    }
    zof_jdoc_free(&doc);
}

static bool is_blank(const char *text) {
    while (*text && (u8)*text <= ' ') {
        text++;
    }
    return !*text;
}

cJSON *zof_j2s_parse(const char *path, const char *text) {
    if (!text) {
        return nullptr;
    }
    zof_fault_file_begin();
    const char *end = text;
    cJSON *root = cJSON_ParseWithOpts(text, &end, 0);
    const bool whole = cJSON_IsObject(root) && is_blank(end);
    if (!whole || zof_utf8_bad(text, std::strlen(text))) {
        faults_report(path, text);
    }
    if (whole) {
        return root;
    }
    cJSON_Delete(root);
    return nullptr;
}

static zof_rootjson_t root_of(const char *path, char *text) {
    zof_rootjson_t json = {text, zof_j2s_parse(path, text)};
    if (!json.root) {
        Freebuff(json.content);
        json.content = nullptr;
    }
    return json;
}

zof_rootjson_t RootJsonGet(const char *path) {
    return root_of(path, GetJsonFile(path));
}

zof_rootjson_t zof_j2s_open(const char *path) {
    const char *why = nullptr;
    char *text = zof_j2s_text(path, &why);
    if (!text) {
        zof_fault_in_text(path, nullptr, nullptr, "%s", why ? why : "cannot be read");
    }
    return root_of(path, text);
}
