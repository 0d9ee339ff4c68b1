// The current language: a flat table of texts, looked up at each use. Controls keep the reference, not the text, so a
// language change can update them. Changes stay in memory until they are saved. Only texts that differ from the
// project's are saved, so that a new version of the project can change all others.
#include "project/look/zof_lang.h"

#include <cjson/cJSON.h>

#include <cctype>
#include <cstring>

#include "drv/zof_drv_file.h"
#include "project/base/zof_prj_up.h"
#include "project/look/zof_icons.h"
#include "project/path/zof_res.h"
#include "project/read/zof_j2s.h"
#include "zof_lib/zof_stdio.h"
#include "zof_lib/zof_util.h"

#define LANG_DIR "config/languages/"

enum { LANG_VALUE_SIZE = 256, LANG_NAME_SIZE = 48, PATH_SIZE = 520 };

// The application's function for its own texts after a change; set before any events.
static void (*lang_changed)(void);

void zof_lang_on_change(void (*fn)(void)) {
    lang_changed = fn;
}

// Indexes the entries of a table by a hash of their keys, built at the first look-up: cJSON compares key by key from
// the front, which takes longer than the rest of a language change.
static struct {
    const cJSON *root; // the indexed table, or null
    cJSON **slots;     // null in free slots; an entry is in the first free slot from that of its hash on
    u32 count;         // of slots, a power of 2, at least twice as many as entries
} index_of;

static void index_drop(void) {
    zof_free(index_of.slots);
    index_of = {};
}

static u32 hash_of(const char *key) {
    u32 hash = 2166136261u; // FNV-1a
    for (; *key; key++) {
        hash = (hash ^ (u32)std::tolower((u8)*key)) * 16777619u;
    }
    return hash;
}

static bool same_key(const char *a, const char *b) {
    while (*a && std::tolower((u8)*a) == std::tolower((u8)*b)) {
        a++;
        b++;
    }
    return *a == *b;
}

// Returns the slot of a key: that of its entry, or the free one where it would be.
static cJSON **slot_of(const char *key) {
    u32 at = hash_of(key) & (index_of.count - 1);
    while (index_of.slots[at] && !same_key(index_of.slots[at]->string, key)) {
        at = (at + 1) & (index_of.count - 1);
    }
    return &index_of.slots[at];
}

// Returns false without memory.
static bool index_make(cJSON *root) {
    index_drop();
    const u32 entries = (u32)cJSON_GetArraySize(root);
    u32 count = 2;
    while (count < 2 * entries) {
        count *= 2;
    }
    index_of.slots = (cJSON **)zof_malloc(count * sizeof(cJSON *));
    if (!index_of.slots) {
        return false;
    }
    index_of.root = root;
    index_of.count = count;
    cJSON *entry = nullptr;
    cJSON_ArrayForEach(entry, root) {
        cJSON **slot = slot_of(entry->string);
        *slot = *slot ? *slot : entry; // the first of equal keys is used
    }
    return true;
}

static cJSON *table_find(cJSON *root, const char *key) {
    const bool indexed = index_of.root == root || index_make(root);
    return indexed ? *slot_of(key) : cJSON_GetObjectItem(root, key);
}

void zof_lang_del(cJSON *root) {
    if (root && root == index_of.root) {
        index_drop();
    }
    if (root) {
        cJSON_Delete(root);
    }
}

// Drops unsaved changes with their table; otherwise they would be written to the file of the next language.
static void table_drop(zof_prj_t *prj) {
    if (prj->lang_root && prj->lang_dirty) {
        zof_printf("language %s: unsaved changes are dropped\n", prj->lang_name ? prj->lang_name : "");
    }
    zof_lang_del(prj->lang_root);
    prj->lang_root = nullptr;
    prj->lang_dirty = 0;
}

// Writes the path of the texts saved for a language. Returns false if nothing is kept, and for a name that leads out of
// the folder, which only a project with "allow_outside" can have.
static bool kept_path(const char *name, char *out, zof_bool make) {
    char file[PATH_SIZE];
    return !std::strstr(name, "..") && zof_text_join(file, sizeof(file), ZOF_LANG_KEPT, name, ".g") &&
           zof_file_state_path(out, PATH_SIZE, file, make) == 0;
}

// Puts the saved texts into a table that has been read from the project. Other entries are ignored: the project has
// dropped their keys since.
static void kept_apply(const char *name, cJSON *root) {
    char path[PATH_SIZE];
    if (!kept_path(name, path, ZOF_FALSE) || zof_file_kind(path) != ZOF_FILE_PLAIN) {
        return;
    }
    const zof_rootjson_t kept = zof_j2s_open(path);
    Freebuff(kept.content);
    const cJSON *text = nullptr;
    cJSON_ArrayForEach(text, kept.root) {
        cJSON *entry = text->string ? cJSON_GetObjectItemCaseSensitive(root, text->string) : nullptr;
        if (cJSON_IsString(text) && cJSON_IsString(entry)) {
            cJSON_SetValuestring(entry, text->valuestring);
        }
    }
    cJSON_Delete(kept.root);
}

s32 zof_lang_set(const char *name) {
    zof_prj_t *prj = zof_prj_get_cur();
    char *copy = prj ? zof_text_copy(name) : nullptr; // `name` may be a text of the table being deleted
    if (!copy) {
        return -1;
    }
    table_drop(prj);
    const char *path = zof_res_get_g_file_path(LANG_DIR, copy);
    zof_rootjson_t file = path ? zof_j2s_open(path) : zof_rootjson_t{};
    Freebuff(file.content);
    if (!file.root) {
        zof_free(copy);
        return -1;
    }
    kept_apply(copy, file.root);
    prj->lang_root = file.root;
    zof_free(prj->lang_name);
    prj->lang_name = copy;
    if (zof_prj_up.ctrl_txt_update) {
        zof_prj_up.ctrl_txt_update();
    }
    zof_prj_up.lang_changed();
    if (lang_changed) {
        lang_changed();
    }
    return 0;
}

static char start[LANG_NAME_SIZE]; // of the command line; empty: the project's own

s32 zof_lang_start_set(const char *name) {
    return zof_text_join(start, sizeof(start), name, nullptr, nullptr) ? 0 : -1;
}

const char *zof_lang_start(void) {
    return start[0] ? start : nullptr;
}

s32 zof_lang_check_str(const char *text) {
    return text && text[0] == '#';
}

// Returns the entry of a reference; null without a table or entry, or if it is not a text.
static cJSON *entry_of(const char *reference) {
    zof_prj_t *prj = zof_prj_get_cur();
    cJSON *entry = prj && prj->lang_root ? table_find(prj->lang_root, reference + 1) : nullptr;
    return cJSON_IsString(entry) ? entry : nullptr;
}

const char *zof_lang_get_cur_str(const char *text) {
    cJSON *entry = zof_lang_check_str(text) ? entry_of(text) : nullptr;
    return zof_icons_show(entry ? entry->valuestring : text);
}

s32 zof_lang_set_cur_str(const char *reference, const char *value) {
    zof_prj_t *prj = zof_prj_get_cur();
    if (!zof_lang_check_str(reference) || !value || std::strlen(value) >= LANG_VALUE_SIZE || !prj || !prj->lang_root) {
        return 0;
    }
    cJSON *entry = entry_of(reference);
    if (!entry) {
        return -1;
    }
    char copy[LANG_VALUE_SIZE]; // `value` may be the text to be overwritten
    std::strcpy(copy, value);
    prj->lang_dirty = 1;
    return cJSON_SetValuestring(entry, copy) ? 0 : -1;
}

// Removes the texts from a table that are the same in the project's file.
static void unchanged_remove(cJSON *table, const char *name) {
    const char *path = zof_res_get_g_file_path(LANG_DIR, name);
    const zof_rootjson_t file = path ? zof_j2s_open(path) : zof_rootjson_t{};
    Freebuff(file.content);
    for (cJSON *entry = table->child; file.root && entry;) {
        cJSON *next = entry->next;
        const cJSON *own = cJSON_GetObjectItemCaseSensitive(file.root, entry->string);
        if (!cJSON_IsString(entry) || (cJSON_IsString(own) && std::strcmp(own->valuestring, entry->valuestring) == 0)) {
            cJSON_Delete(cJSON_DetachItemViaPointer(table, entry));
        }
        entry = next;
    }
    cJSON_Delete(file.root);
}

static bool table_save(const zof_prj_t *prj, const char *path) {
    cJSON *changed = cJSON_Duplicate(prj->lang_root, cJSON_True);
    char *text = nullptr;
    if (changed) {
        unchanged_remove(changed, prj->lang_name);
        text = cJSON_Print(changed);
    }
    const bool written = text && zof_file_write(path, text, std::strlen(text)) == 0;
    cJSON_free(text);
    cJSON_Delete(changed);
    return written;
}

s32 zof_lang_save_cur_to_flash(void) {
    zof_prj_t *prj = zof_prj_get_cur();
    if (!prj || !prj->lang_root) {
        return 0;
    }
    if (!prj->lang_dirty) {
        return 1;
    }
    char path[PATH_SIZE];
    const bool known = kept_path(prj->lang_name, path, ZOF_TRUE);
    if (!known || !table_save(prj, path)) {
        zof_printf("%s: create json fail!\n", known ? path : prj->lang_name);
        return -1;
    }
    prj->lang_dirty = 0;
    return 1;
}
