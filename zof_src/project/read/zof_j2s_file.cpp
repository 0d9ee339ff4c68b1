// Parses whole project files. Faults are reported with path, line and column.
#include <cstring>

#include "project/read/zof_fault.h"
#include "project/read/zof_j2s.h"
#include "zof_lib/zof_stdio.h"

// Returns the bytes of the character at `c`, which is not ASCII; 0 if it is not UTF-8.
static size_t character_size(const u8 *c) {
    const size_t size = c[0] >= 0xF0 ? 4 : c[0] >= 0xE0 ? 3 : 2;
    u32 code = c[0] & (0x7Fu >> size);
    for (size_t i = 1; i < size; i++) {
        if ((c[i] & 0xC0) != 0x80) {
            return 0;
        }
        code = code << 6 | (c[i] & 0x3F);
    }
    static const u32 least[] = {0x80, 0x800, 0x10000};
    const bool valid = c[0] >= 0xC2 && code >= least[size - 2] && code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
    return valid ? size : 0;
}

// Returns the first byte that is not UTF-8; null if all are.
static const char *bad_character(const char *text) {
    const char *end = text + std::strlen(text);
    for (const char *c = text; c < end;) {
        u64 eight = 0;
        if (end - c >= 8) {
            std::memcpy(&eight, c, 8);
        }
        if (end - c >= 8 && !(eight & 0x8080808080808080u)) {
            c += 8;
            continue;
        }
        const size_t size = (u8)*c < 0x80 ? 1 : character_size((const u8 *)c);
        if (!size) {
            return c;
        }
        c += size;
    }
    return nullptr;
}

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
    const char *bad = bad_character(text);
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
