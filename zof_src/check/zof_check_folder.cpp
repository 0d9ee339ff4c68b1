// The files of a project folder, read once.
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <initializer_list>

#include "check/zof_check_in.h"
#include "drv/zof_drv.h"
#include "drv/zof_drv_file.h"
#include "zof_lib/zof_util.h"

// A link may lead to a whole disk.
enum { PATH_SIZE = 1024, DEPTH_MAX = 12, FILES_MAX = 20000, FILE_MAX = 64 << 20 };

static bool is_json(const char *path) {
    return check_begins(path, "config/view/") || (check_begins(path, "config/") && zof_suffix_is(path, ".g"));
}

static void json_read(check_run_t *c, check_file_t *file) {
    char path[PATH_SIZE];
    std::snprintf(path, sizeof path, "%s%s", c->folder, file->path);
    u32 size = 0;
    const char *why = "";
    const u8 *content = zof_file_read_all(path, FILE_MAX, &size, &why);
    if (!content && zof_file_size(path) != 0) {
        check_report_at(c, file, ZOF_J_NONE, 0, CHECK_FILE_DAMAGED, "%s", why);
        return;
    }
    file->text = content ? (char *)content : (char *)zof_malloc(1);
    c->no_memory = c->no_memory || !file->text || zof_jdoc_read(&file->doc, file->text, size) < 0;
}

static void file_add(check_run_t *c, const char *path) {
    check_file_t *file = check_add(c->files);
    if (file) {
        file->path = zof_text_copy(path);
    }
    c->no_memory = c->no_memory || !file || !file->path;
}

// Adds the files of a folder below the project; `below` is "" or ends with "/".
static void folder_walk(check_run_t *c, const char *below, u32 depth) {
    char path[PATH_SIZE];
    std::snprintf(path, sizeof path, "%s%s", c->folder, below);
    zof_dir_t *dir = depth < DEPTH_MAX ? zof_opendir(path) : nullptr;
    for (const zof_dirent_t *entry;
         (entry = zof_readdir(dir)) != nullptr && c->files.count < FILES_MAX && !c->no_memory;) {
        if (entry->name[0] == '.' ||
            std::snprintf(path, sizeof path, "%s%s%s", below, entry->name, entry->is_dir ? "/" : "") >= PATH_SIZE) {
            continue;
        }
        if (entry->is_dir) {
            folder_walk(c, path, depth + 1);
        } else {
            file_add(c, path);
        }
    }
    zof_closedir(dir);
}

static bool file_before(const check_file_t &a, const check_file_t &b) {
    return std::strcmp(a.path, b.path) < 0;
}

bool check_folder_read(check_run_t *c) {
    folder_walk(c, "", 0);
    if (c->no_memory) {
        return false;
    }
    if (c->files.count == FILES_MAX) {
        const check_file_t all = {(char *)"", nullptr, {}, false};
        check_report_at(c, &all, ZOF_J_NONE, 0, CHECK_FILE_DAMAGED, "more than %d files; the rest is not checked",
                        FILES_MAX);
    }
    std::sort(c->files.at, c->files.at + c->files.count, file_before);
    for (u32 i = 0; i < c->files.count; i++) {
        if (is_json(c->files.at[i].path)) {
            json_read(c, &c->files.at[i]);
        }
    }
    return !c->no_memory;
}

static void words_free(check_list_t<check_word_t> &words) {
    for (u32 i = 0; i < words.count; i++) {
        zof_free(words.at[i].key);
    }
    zof_free(words.at);
}

void check_folder_free(check_run_t *c) {
    for (u32 i = 0; i < c->files.count; i++) {
        check_file_t *file = &c->files.at[i];
        zof_jdoc_free(&file->doc);
        zof_free(file->text);
        zof_free(file->path);
    }
    zof_free(c->files.at);
    zof_free(c->ctrls.at);
    words_free(c->words);
    words_free(c->uses);
}

check_file_t *check_file_find(check_run_t *c, const char *path, bool any_case) {
    const check_file_t key = {(char *)path, nullptr, {}, false};
    check_file_t *end = c->files.at + c->files.count;
    check_file_t *found = std::lower_bound(c->files.at, end, key, file_before);
    if (found != end && std::strcmp(found->path, path) == 0) {
        return found;
    }
    found = c->files.at;
    while (any_case && found != end && !check_same(found->path, path)) {
        found++;
    }
    return any_case && found != end ? found : nullptr;
}

// Returns the file of the same folder whose name is nearest; null if none is near.
static const char *name_near(check_run_t *c, const char *folder, const char *name) {
    const char *nearest = nullptr;
    u32 least = ZOF_TEXT_NEAR;
    for (u32 i = 0; i < c->files.count; i++) {
        const char *path = c->files.at[i].path;
        if (check_begins(path, folder) && zof_text_nearer(name, path + std::strlen(folder), &least)) {
            nearest = path + std::strlen(folder);
        }
    }
    return nearest;
}

// Returns why the runtime does not open a name; null if it does.
static const char *name_fault(const char *name) {
    for (const char *c = name; *c; c++) {
        if ((u8)*c < ' ' || *c == 0x7F) {
            return "a name with control characters is not opened";
        }
        if (std::strchr("\\<>|\"?*", *c)) {
            return "a name with \\ < > | \" ? or * is no name on all systems";
        }
    }
    if (std::strncmp(name, "../", 3) == 0 || std::strstr(name, "/../")) {
        return "leads out of its folder";
    }
    return nullptr;
}

check_file_t *check_file_named(check_run_t *c, const check_file_t *file, u32 node, const char *folder,
                               const char *name) {
    const char *fault = name_fault(name);
    const bool drive = name[0] && name[1] == ':'; // of another medium, which may be absent here
    if (fault) {
        check_report(c, file, node, CHECK_FILE_NAME, "%s", fault);
    }
    if (fault || drive) {
        return nullptr;
    }
    char path[PATH_SIZE];
    std::snprintf(path, sizeof path, "%s%s", folder, name);
    check_file_t *found = check_file_find(c, path, true);
    if (!found) {
        const char *near_name = name_near(c, folder, name);
        check_report(c, file, node, CHECK_FILE_MISSING, "there is no %s%s%s%s", path,
                     near_name ? "; did you mean " : "", near_name ? near_name : "", near_name ? "?" : "");
    } else if (std::strcmp(found->path, path) != 0) {
        check_report(c, file, node, CHECK_FILE_CASE, "the file is %s", found->path);
    }
    return found;
}

static bool has_project(const char *folder) {
    char path[PATH_SIZE];
    std::snprintf(path, sizeof path, "%sconfig/project/zofprj.g", folder);
    return zof_file_kind(path) == ZOF_FILE_PLAIN;
}

s32 zof_check_find(const char *named, char *folder, size_t size) {
    const size_t length = std::strlen(named);
    const char *slash = length && named[length - 1] == '/' ? "" : "/";
    for (const char *below : {"", "res/"}) {
        if (length && zof_text_join(folder, size, named, slash, below) && has_project(folder)) {
            return 0;
        }
    }
    return -1;
}
