// Files of looks, and looks that nothing uses.
#include <cstring>

#include "check/zof_check_in.h"

enum { NAME_SIZE = CHECK_LOOK_NAME, CHAIN_MAX = 16 };

// Writes the name of the look from which a look inherits. Returns false if it inherits from no look.
static bool base_of(const check_looks_t &files, const char *name, char *base) {
    for (const check_file_t *file : files.of) {
        const u32 looks = file ? zof_jdoc_get(&file->doc, 0, "looks") : ZOF_J_NONE;
        if (looks != ZOF_J_NONE && check_text(file, zof_jdoc_get(&file->doc, looks, name), "is", base, NAME_SIZE)) {
            return true;
        }
    }
    return false;
}

static void circle_check(check_run_t *c, const check_file_t *file, u32 look, const check_looks_t &files) {
    char self[NAME_SIZE], name[NAME_SIZE];
    zof_jdoc_key(&file->doc, look, self, sizeof self);
    std::memcpy(name, self, sizeof name);
    for (u32 depth = 0; depth < CHAIN_MAX && base_of(files, name, name); depth++) {
        if (check_same(name, self)) {
            check_report(c, file, zof_jdoc_get(&file->doc, look, "is"), CHECK_LOOK, "the look inherits from itself");
            return;
        }
    }
}

void check_looks_file(check_run_t *c, const check_file_t *file) {
    check_object(c, file, 0, check_root("config/looks.g"), nullptr);
    char theme[NAME_SIZE];
    check_theme_of(file, 0, theme);
    const check_looks_t files = check_looks_of(c, theme);
    const u32 looks = zof_jdoc_get(&file->doc, 0, "looks");
    for (u32 at = looks == ZOF_J_NONE ? looks : file->doc.nodes[looks].child; at != ZOF_J_NONE;
         at = file->doc.nodes[at].next) {
        const u32 base = zof_jdoc_get(&file->doc, at, "is");
        if (base != ZOF_J_NONE) {
            check_look_use(c, file, base, theme);
            circle_check(c, file, at, files);
        }
    }
}

static bool is_used(const check_run_t *c, const char *name) {
    u32 i = 0;
    while (i < c->looks.count && !check_same(c->looks.at[i].name, name)) {
        i++;
    }
    return i < c->looks.count;
}

void check_looks_unused(check_run_t *c) {
    for (u32 i = 0; i < c->files.count && !c->broken; i++) {
        const check_file_t *file = &c->files.at[i];
        const bool read = check_is_looks(file) && check_file_whole(file);
        const u32 looks = read ? zof_jdoc_get(&file->doc, 0, "looks") : ZOF_J_NONE;
        for (u32 at = looks == ZOF_J_NONE ? looks : file->doc.nodes[looks].child; at != ZOF_J_NONE;
             at = file->doc.nodes[at].next) {
            char name[NAME_SIZE];
            zof_jdoc_key(&file->doc, at, name, sizeof name);
            if (!is_used(c, name)) {
                check_report_key(c, file, at, CHECK_LOOK_UNUSED, "no control has the look %s", name);
            }
        }
    }
}
