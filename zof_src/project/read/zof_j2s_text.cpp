// Reads whole project files.
#include <cstdio>
#include <cstring>
#include <map>
#include <string>

#include "drv/zof_drv_file.h"
#include "project/read/zof_j2s.h"
#include "zof_lib/zof_stdio.h"

// Returns the file's size; -1 if it is unknown or larger than 2 GiB. Some systems can open a folder, whose size is
// huge.
static long size_of(FILE *file) {
    std::fseek(file, 0, SEEK_END);
    long size = std::ftell(file);
    std::rewind(file);
    return size > INT32_MAX ? -1 : size;
}

// Returns the whole file as a text; null on failure, with the reason.
static char *read_all(FILE *file, const char **why) {
    const long size = size_of(file);
    // One byte more than the file, and zeroed: the text has its terminator.
    auto *text = size < 0 ? nullptr : (char *)(zof_malloc((size_t)size + 1));
    *why = size >= 0 && !text ? "err:zof_malloc error!" : "read error!";
    if (text && std::fread(text, 1, (size_t)size, file) < 1) {
        zof_free(text);
        text = nullptr;
    }
    return text;
}

static std::map<std::string, std::string> *shadows; // null until the first one

void zof_j2s_shadow(const char *path, const char *text, size_t size) {
    shadows = shadows ? shadows : new std::map<std::string, std::string>;
    if (text) {
        (*shadows)[path].assign(text, size);
    } else {
        shadows->erase(path);
    }
}

// Returns a copy of the text that is read in place of a file; null if the file itself is read.
static char *shadow_of(const char *path) {
    const auto found = shadows && path ? shadows->find(path) : std::map<std::string, std::string>::iterator();
    if (!shadows || !path || found == shadows->end()) {
        return nullptr;
    }
    auto *text = (char *)zof_malloc(found->second.size() + 1);
    return text ? (char *)std::memcpy(text, found->second.c_str(), found->second.size() + 1) : nullptr;
}

char *zof_j2s_text(const char *path, const char **why) {
    const char *none = nullptr;
    why = why ? why : &none;
    *why = nullptr;
    char *shadow = shadow_of(path);
    if (shadow) {
        return shadow;
    }
    FILE *file = zof_file_read_open(path);
    if (!file) {
        return nullptr;
    }
    char *text = read_all(file, why);
    std::fclose(file);
    return text;
}

char *GetJsonFile(const char *path) {
    const char *why = nullptr;
    char *text = zof_j2s_text(path, &why);
    if (!text && why) {
        zof_printf("%s: %s\n", path, why);
    }
    return text;
}

void Freebuff(void *buf) {
    zof_free(buf);
}

zof_rootjson_t zof_j2s_peek(const char *path) {
    const char *why = nullptr;
    zof_rootjson_t json = {zof_j2s_text(path, &why), nullptr};
    json.root = json.content ? cJSON_Parse(json.content) : nullptr;
    return json;
}

void RootJsonDel(zof_rootjson_t *json) {
    if (!json) {
        return;
    }
    cJSON_Delete(json->root);
    Freebuff(json->content);
    *json = {};
}
