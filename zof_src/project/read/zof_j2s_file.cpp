// Parses whole project files. Faults are reported with path, line and column.
#include <cstring>

#include "project/read/zof_fault.h"
#include "project/read/zof_j2s.h"
#include "zof_lib/zof_stdio.h"
#include "zof_lib/zof_util.h"

// Returns what is wrong with a parsed text as a whole, with its place, or null.
static const char *whole_fault(const cJSON *root, const char *text, const char **at) {
    if (!root) {
        return "parse error";
    }
    if (!cJSON_IsObject(root)) {
        *at = text;
        return "expected an object";
    }
    while (**at && (u8) * *at <= ' ') {
        ++*at;
    }
    return **at ? "text after the end of the object" : nullptr;
}

cJSON *zof_j2s_parse(const char *path, const char *text) {
    if (!text) {
        return nullptr;
    }
    zof_fault_file_begin();
    const char *at = text;
    cJSON *root = cJSON_ParseWithOpts(text, &at, 0);
    const char *fault = whole_fault(root, text, &at);
    if (fault) {
        zof_fault_in_text(path, text, at, "%s", fault);
        cJSON_Delete(root);
        return nullptr;
    }
    const char *bad = zof_utf8_bad(text, std::strlen(text));
    if (bad) {
        zof_fault_in_text(path, text, bad, "byte %02X is not UTF-8; the file must be saved as UTF-8", (u8)*bad);
    }
    return root;
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
        zof_printf("%s: %s\n", path ? path : "", why ? why : "cannot be read");
    }
    return root_of(path, text);
}
