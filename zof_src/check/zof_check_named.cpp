// Looks and colours by name: checks that the names exist.
#include <cstdio>
#include <cstring>

#include "check/zof_check_in.h"
#include "zof_lib/zof_util.h"

enum { NAME_SIZE = CHECK_LOOK_NAME, CHAIN_MAX = 16 };

// Finding ------------------------------------------------------------------------------------------------------------

bool check_is_looks(const check_file_t *file) {
    const char *slash = std::strrchr(file->path, '/');
    return slash && std::strcmp(slash, "/looks.g") == 0 &&
           (std::strcmp(file->path, "config/looks.g") == 0 || check_begins(file->path, "config/theme/"));
}

bool check_has_look(const check_file_t *file, u32 node) {
    while (node != ZOF_J_NONE && zof_jdoc_get(&file->doc, node, "look") == ZOF_J_NONE) {
        node = file->doc.nodes[node].parent;
    }
    return node != ZOF_J_NONE || check_is_looks(file);
}

check_looks_t check_looks_of(check_run_t *c, const char *theme) {
    char path[NAME_SIZE + 32];
    std::snprintf(path, sizeof path, "config/theme/%s/looks.g", theme);
    check_looks_t files = {
        {theme[0] ? check_file_find(c, path, false) : nullptr, check_file_find(c, "config/looks.g", false)}};
    for (const check_file_t *&file : files.of) {
        files.broken = files.broken || (file && !check_file_whole(file));
        file = file && check_file_whole(file) ? file : nullptr;
    }
    return files;
}

// A member of `colors` or `looks`; `file` is null if it was not found.
struct member_t {
    const check_file_t *file;
    u32 node;
};

static member_t member_find(const check_looks_t &files, const char *list, const char *name) {
    for (const check_file_t *file : files.of) {
        const u32 node = file ? zof_jdoc_get(&file->doc, zof_jdoc_get(&file->doc, 0, list), name) : ZOF_J_NONE;
        if (node != ZOF_J_NONE) {
            return {file, node};
        }
    }
    return {nullptr, ZOF_J_NONE};
}

static void unknown_report(check_run_t *c, const check_file_t *file, u32 node, const check_looks_t &files,
                           const char *list, const char *name) {
    char meant[NAME_SIZE] = "", other[NAME_SIZE];
    u32 least = ZOF_TEXT_NEAR;
    if (files.broken) {
        return; // that file's own fault is the one to fix
    }
    for (const check_file_t *in : files.of) {
        const u32 object = in ? zof_jdoc_get(&in->doc, 0, list) : ZOF_J_NONE;
        for (u32 at = object == ZOF_J_NONE ? object : in->doc.nodes[object].child; at != ZOF_J_NONE;
             at = in->doc.nodes[at].next) {
            if (zof_jdoc_key(&in->doc, at, other, sizeof other) > 0 && zof_text_nearer(name, other, &least)) {
                std::memcpy(meant, other, sizeof meant);
            }
        }
    }
    check_report(c, file, node, CHECK_LOOK, "there is no %s %s%s%s%s", list[0] == 'c' ? "colour" : "look", name,
                 meant[0] ? "; did you mean " : "", meant, meant[0] ? "?" : "");
}

// Colours ------------------------------------------------------------------------------------------------------------

void check_theme_of(const check_file_t *file, u32 node, char *theme) {
    static const char folder[] = "config/theme/";
    theme[0] = 0;
    if (check_begins(file->path, folder)) {
        const char *name = file->path + sizeof folder - 1;
        std::snprintf(theme, NAME_SIZE, "%.*s", (int)std::strcspn(name, "/"), name);
    }
    for (; node != ZOF_J_NONE && check_begins(file->path, "config/view/"); node = file->doc.nodes[node].parent) {
        zof_jdoc_text(&file->doc, zof_jdoc_get(&file->doc, node, "theme"), theme, NAME_SIZE);
    }
}

void check_color_use(check_run_t *c, const check_file_t *file, u32 node, const char *name) {
    char theme[NAME_SIZE], text[NAME_SIZE];
    check_theme_of(file, node, theme);
    const check_looks_t files = check_looks_of(c, theme);
    std::snprintf(text, sizeof text, "%s", name);
    for (u32 depth = 0; depth < CHAIN_MAX; depth++) {
        const member_t color = member_find(files, "colors", text);
        if (!color.file && depth == 0) {
            unknown_report(c, file, node, files, "colors", name);
        }
        if (!color.file || zof_jdoc_text(&color.file->doc, color.node, text, sizeof text) < 0 || text[0] != '$') {
            return; // a fault of another colour is reported at that colour
        }
        if (color.file == file && color.node == node) {
            check_report(c, file, node, CHECK_LOOK, "the colour refers to itself");
            return;
        }
        std::memmove(text, text + 1, std::strlen(text));
    }
}

// Looks --------------------------------------------------------------------------------------------------------------

static void use_note(check_run_t *c, const char *name) {
    for (u32 i = 0; i < c->looks.count; i++) {
        if (check_same(c->looks.at[i].name, name)) {
            return;
        }
    }
    check_look_t *made = check_add(c->looks);
    if (made) {
        made->name = zof_text_copy(name);
    }
    c->no_memory = c->no_memory || !made || !made->name;
}

void check_look_use(check_run_t *c, const check_file_t *file, u32 node, const char *theme) {
    char name[NAME_SIZE];
    if (zof_jdoc_text(&file->doc, node, name, sizeof name) < 0) {
        return; // not a text, which has been reported
    }
    const check_looks_t files = check_looks_of(c, theme);
    if (member_find(files, "looks", name).file) {
        use_note(c, name);
    } else {
        unknown_report(c, file, node, files, "looks", name);
    }
}
