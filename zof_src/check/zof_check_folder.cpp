// The files of a project folder, read once.
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <initializer_list>

#include "check/zof_check_in.h"
#include "drv/zof_drv.h"
#include "drv/zof_drv_file.h"
#include "zof_lib/zof_util.h"

// Limits of a walk, because a link may lead to a whole disk.
enum { PATH_SIZE = 1024, DEPTH_MAX = 12, FILES_MAX = 20000, FILE_MAX = 64 << 20 };

static bool is_json(const char *path) {
    return check_begins(path, "config/view/") || (check_begins(path, "config/") && zof_suffix_is(path, ".g"));
}

static void path_report(check_run_t *c, const char *path, check_rule_e rule, const char *text) {
    const check_file_t at = {.path = (char *)path};
    check_report_at(c, &at, ZOF_J_NONE, 0, rule, "%s", text);
}

// Returns the reason why a file cannot be read, or null after reading it.
static const char *json_read(check_run_t *c, check_file_t *file) {
    char path[PATH_SIZE];
    std::snprintf(path, sizeof path, "%s%s", c->folder, file->path);
    u32 size = 0;
    const char *why = "";
    const u8 *content = zof_file_read_all(path, FILE_MAX, &size, &why);
    if (!content && zof_file_size(path) != 0) {
        return why;
    }
    file->text = content ? (char *)content : (char *)zof_malloc(1);
    c->no_memory = c->no_memory || !file->text || zof_jdoc_read(&file->doc, file->text, size) < 0;
    return nullptr;
}

static void file_add(check_run_t *c, const char *path, bool refused) {
    check_file_t *file = check_add(c->files);
    if (file) {
        file->path = zof_text_copy(path);
        file->refused = refused;
    }
    c->no_memory = c->no_memory || !file || !file->path;
}

// Returns true for the backup copies that editors create.
static bool is_backup(const char *name) {
    const size_t length = std::strlen(name);
    return (length && name[length - 1] == '~') || zof_suffix_is(name, ".bak") || zof_suffix_is(name, ".orig");
}

// Known folders and the folder that contains them. Other folders may have any name.
static const struct {
    const char *around, *name;
} folders[] = {{"", "config"},      {"", "image"},        {"", "font"},
               {"", "sound"},       {"", "video"},        {"config/", "project"},
               {"config/", "view"}, {"config/", "theme"}, {"config/", "languages"}};

// Reports a folder whose name resembles one that the runtime reads.
static void folder_name_check(check_run_t *c, const char *around, const char *name) {
    const char *meant = nullptr;
    u32 least = ZOF_TEXT_NEAR;
    for (const auto &row : folders) {
        if (std::strcmp(row.around, around) == 0) {
            if (std::strcmp(row.name, name) == 0) {
                return;
            }
            meant = zof_text_nearer(name, row.name, &least) ? row.name : meant;
        }
    }
    if (meant) {
        char path[PATH_SIZE];
        std::snprintf(path, sizeof path, "%s%s", around, name);
        const check_file_t at = {.path = path};
        check_report_at(c, &at, ZOF_J_NONE, 0, CHECK_FOLDER, "this folder is not read; did you mean %s?", meant);
    }
}

// A folder on the path of the walk, with its real path, and the folder that contains it.
struct walk_t {
    const walk_t *around;
    char real[PATH_SIZE];
};

static bool is_below(const char *real, const char *folder) {
    const size_t length = std::strlen(folder);
    return std::strncmp(real, folder, length) == 0 && (real[length] == '/' || !real[length]);
}

// Returns the reason why the target of a link is not opened, or null if it is opened.
static const char *link_fault(const check_run_t *c, const char *path, const walk_t *walk) {
    char whole[PATH_SIZE], real[PATH_SIZE];
    std::snprintf(whole, sizeof whole, "%s%s", c->folder, path);
    if (zof_file_real_path(whole, real, sizeof real) != 0) {
        return "a link that leads nowhere";
    }
    const walk_t *top = walk;
    for (const walk_t *at = walk; at; at = at->around) {
        if (std::strcmp(at->real, real) == 0) {
            return "a link to a folder that it is in; it is not followed";
        }
        top = at;
    }
    return is_below(real, top->real) || c->outside ? nullptr : "a link that leads out of the project; it is not opened";
}

// Returns true if an entry may be opened. Reports a link, a pipe or a device that may not.
static bool entry_passes(check_run_t *c, const char *path, bool folder, const walk_t *walk) {
    char whole[PATH_SIZE];
    std::snprintf(whole, sizeof whole, "%s%s", c->folder, path);
    if (zof_file_kind(whole) != ZOF_FILE_OTHER) {
        return true;
    }
    const char *fault = link_fault(c, path, walk);
    char real[PATH_SIZE];
    const bool other =
        !fault && !folder && zof_file_real_path(whole, real, sizeof real) == 0 && zof_file_kind(real) != ZOF_FILE_PLAIN;
    if (fault || other) {
        path_report(c, path, fault ? CHECK_FILE_NAME : CHECK_FILE_DAMAGED, fault ? fault : "not a regular file");
    }
    return !fault && !other;
}

// Adds the files of a folder below the project; `below` is "" or ends with "/".
static void folder_walk(check_run_t *c, const char *below, u32 depth, const walk_t *around) {
    char path[PATH_SIZE];
    walk_t here = {around, ""};
    std::snprintf(path, sizeof path, "%s%s", c->folder, below);
    const bool known = zof_file_real_path(path, here.real, sizeof here.real) == 0;
    zof_dir_t *dir = known && depth < DEPTH_MAX ? zof_opendir(path) : nullptr;
    for (const zof_dirent_t *entry;
         (entry = zof_readdir(dir)) != nullptr && c->files.count < FILES_MAX && !c->no_memory;) {
        if (entry->name[0] == '.' || is_backup(entry->name) ||
            std::snprintf(path, sizeof path, "%s%s", below, entry->name) >= PATH_SIZE - 1) {
            continue;
        }
        const bool passes = entry_passes(c, path, entry->is_dir, &here);
        if (!entry->is_dir) {
            file_add(c, path, !passes);
        } else if (passes) {
            folder_name_check(c, below, entry->name);
            std::strcat(path, "/");
            folder_walk(c, path, depth + 1, &here);
        }
    }
    zof_closedir(dir);
}

static bool file_before(const check_file_t &a, const check_file_t &b) {
    return std::strcmp(a.path, b.path) < 0;
}

// Reads "allow_outside" of the project file. It must be known before links are followed.
static bool outside_allowed(check_run_t *c) {
    check_file_t project = {.path = (char *)"config/project/zofprj.g"};
    json_read(c, &project);
    const bool allowed = check_number(&project, 0, "allow_outside", nullptr, 0) != 0;
    zof_jdoc_free(&project.doc);
    zof_free(project.text);
    return allowed;
}

bool check_folder_read(check_run_t *c) {
    c->outside = outside_allowed(c);
    folder_walk(c, "", 0, nullptr);
    if (c->no_memory) {
        return false;
    }
    if (c->files.count == FILES_MAX) {
        path_report(c, "", CHECK_FILE_DAMAGED, "too many files; the rest is not checked");
    }
    std::sort(c->files.at, c->files.at + c->files.count, file_before);
    for (u32 i = 0; i < c->files.count; i++) {
        check_file_t *file = &c->files.at[i];
        const char *fault = is_json(file->path) && !file->refused ? json_read(c, file) : nullptr;
        if (fault) {
            path_report(c, file->path, CHECK_FILE_DAMAGED, fault);
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
    for (u32 i = 0; i < c->looks.count; i++) {
        zof_free(c->looks.at[i].name);
    }
    zof_free(c->looks.at);
    words_free(c->words);
    words_free(c->uses);
}

static bool has_project(const char *folder) {
    char path[PATH_SIZE];
    std::snprintf(path, sizeof path, "%sconfig/project/zofprj.g", folder);
    return zof_file_kind(path) != ZOF_FILE_NONE; // the check reports a project file that is not a regular file
}

s32 zof_check_find(const char *named, char *folder, size_t size) {
    const size_t length = std::strlen(named);
    const char *slash = length && named[length - 1] == '/' ? "" : "/";
    for (const char *below : {"", "res/"}) {
        if (!length || !zof_text_join(folder, size, named, slash, below)) {
            continue;
        }
        zof_file_path_take(folder);
        if (has_project(folder)) {
            return 0;
        }
    }
    return -1;
}
