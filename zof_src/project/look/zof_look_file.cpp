// The files of looks: each is read and checked once, when a control has a look or a colour has a name.
#include <cstdio>
#include <cstring>

#include "project/base/zof_prj_names.h"
#include "project/look/zof_look_in.h"
#include "project/path/zof_res.h"
#include "project/read/zof_fault.h"
#include "project/read/zof_j2s.h"
#include "zof_lib/zof_cson_in.h"
#include "zof_lib/zof_stdio.h"
#include "zof_lib/zof_util.h"

enum { DEPTH_MAX = 16 }; // of colours that name other colours

struct look_file_t {
    look_file_t *next;
    char theme[ZOF_THEME_NAME_SIZE]; // "": the project's file
    cJSON *root;                     // null: there is no such file, or it is invalid
};

static struct {
    look_file_t *files;
    char chosen[ZOF_THEME_NAME_SIZE];
    const char *colors_of; // the theme that zof_colors_scope has set
} self;

const reflect_item_t zof_look_style_tbl[] = {
    CSON_OBJ(zof_style_attr_t, body_t, zof_body_dis_t_tbl),
    CSON_OBJ(zof_style_attr_t, txt_t, zof_text_dis_t_tbl),
    CSON_OBJ(zof_style_attr_t, img_t, zof_img_dis_t_tbl),
    CSON_END,
};

const char *zof_look_theme(const char *named) {
    return self.chosen[0] ? self.chosen : named;
}

void zof_look_theme_choose(const char *theme) {
    std::snprintf(self.chosen, sizeof self.chosen, "%s", theme);
}

zof_colors_scope::zof_colors_scope(const char *theme) : former(self.colors_of) {
    self.colors_of = theme;
}

zof_colors_scope::~zof_colors_scope() {
    self.colors_of = former;
}

// Looking up ---------------------------------------------------------------------------------------------------------

static const look_file_t *file_of(const char *theme);

// Returns `colors` or `looks` of a file; null if that is missing or no object.
static const cJSON *list_of(const look_file_t *file, const char *name) {
    const cJSON *list = cJSON_GetObjectItem(file->root, name);
    return cJSON_IsObject(list) ? list : nullptr;
}

static const cJSON *member_of(const char *theme, const char *list, const char *name) {
    const look_file_t *file = file_of(theme);
    return file ? cJSON_GetObjectItem(list_of(file, list), name) : nullptr;
}

static const cJSON *look_in(const char *theme, const char *name) {
    const cJSON *look = member_of(theme, "looks", name);
    return cJSON_IsObject(look) ? look : nullptr;
}

bool zof_look_theme_exists(const char *theme) {
    const look_file_t *file = theme[0] ? file_of(theme) : nullptr;
    return file && file->root;
}

const cJSON *zof_look_in_theme(const char *theme, const char *name) {
    return theme[0] ? look_in(theme, name) : nullptr;
}

const cJSON *zof_look_in_project(const char *name) {
    return look_in("", name);
}

static const char *base_in(const cJSON *look) {
    return cJSON_GetStringValue(cJSON_GetObjectItem(look, "is"));
}

const char *zof_look_base(const char *theme, const char *name) {
    const char *base = base_in(zof_look_in_theme(theme, name));
    return base ? base : base_in(zof_look_in_project(name));
}

static s32 color_read(const cJSON *json, s64 *value) {
    const char *text = cJSON_GetStringValue(json);
    if (cJSON_IsNumber(json) && json->valuedouble >= 0 && json->valuedouble <= 0xFFFFFF) {
        *value = (s64)json->valuedouble;
        return 0;
    }
    return text ? zof_color_read(text, value) : -1;
}

// Colours may name others: a button's colour is that of the brand.
static s32 color_find(const char *name, s64 *value) {
    const char *theme = self.colors_of ? self.colors_of : zof_look_theme("");
    for (u32 depth = 0; depth < DEPTH_MAX; depth++) {
        const cJSON *json = member_of(theme, "colors", name);
        json = json ? json : member_of("", "colors", name);
        const char *text = cJSON_GetStringValue(json);
        if (!text || text[0] != '$') {
            return color_read(json, value);
        }
        name = text + 1;
    }
    return -1;
}

void zof_look_init(void) {
    csonColorsFrom(color_find);
}

// Checking -----------------------------------------------------------------------------------------------------------

static void colors_check(const cJSON *colors) {
    const cJSON *color = nullptr;
    cJSON_ArrayForEach(color, colors) {
        s64 value = 0;
        if (color_find(color->string, &value) != 0) {
            zof_fault_at(color, ZOF_COLOR_FAULT);
        }
    }
}

// Decodes a member of a look for its faults alone.
static void style_check(const cJSON *json, const reflect_item_t *table) {
    zof_style_attr_t style = {};
    csonJsonStr2Struct(json, &style, table);
    csonFreePointer(&style, zof_look_style_tbl);
}

static void base_check(const cJSON *look, const cJSON *base, const char *theme) {
    const char *name = cJSON_GetStringValue(base);
    if (!name || (!zof_look_in_theme(theme, name) && !zof_look_in_project(name))) {
        zof_fault_at(base, "there is no look %.40s", name ? name : "");
        return;
    }
    for (u32 depth = 0; name && depth < ZOF_LOOK_CHAIN_MAX; depth++) {
        if (cson_same_key(name, look->string)) {
            zof_fault_at(base, "the look inherits from itself");
            return;
        }
        name = zof_look_base(theme, name);
    }
}

static const reflect_item_t *style_row(const char *key) {
    const reflect_item_t *row = zof_look_style_tbl;
    while (row->key && !cson_same_key(row->key, key)) {
        row++;
    }
    return row->key ? row : nullptr;
}

static void look_check(const cJSON *look, const char *theme) {
    if (!cJSON_IsObject(look)) {
        zof_fault_at(look, "expected an object; it is ignored");
        return;
    }
    const cJSON *member = nullptr;
    cJSON_ArrayForEach(member, look) {
        const reflect_item_t *row = style_row(member->string);
        zof_style_key_t key;
        if (cson_same_key(member->string, "is")) {
            base_check(look, member, theme);
        } else if (row) {
            zof_style_attr_t style = {};
            csonJsonStr2Struct(member, (u8 *)&style + row->offset, row->table);
            csonFreePointer(&style, zof_look_style_tbl);
        } else if (zof_style_key_read(member->string, &key) == 0) {
            style_check(member, zof_look_style_tbl);
        } else {
            zof_fault_at(member, "unknown key %.40s; it is ignored", member->string);
        }
    }
}

// The colours and looks of the project must be complete without those of a theme, so they are checked without them.
static void file_check(const look_file_t *file, const char *path) {
    static const reflect_item_t file_tbl[] = {CSON_KNOWN("colors"), CSON_KNOWN("looks"), CSON_END};
    const zof_fault_scope scope(path, file->root);
    const zof_colors_scope colors(file->theme);
    csonKeys(file->root, file_tbl);
    for (const reflect_item_t *row = file_tbl; row->key; row++) {
        const cJSON *list = cJSON_GetObjectItem(file->root, row->key);
        if (list && !cJSON_IsObject(list)) {
            zof_fault_at(list, "expected an object; it is ignored");
        }
    }
    colors_check(list_of(file, "colors"));
    const cJSON *look = nullptr;
    cJSON_ArrayForEach(look, list_of(file, "looks")) {
        look_check(look, file->theme);
    }
}

// Reading ------------------------------------------------------------------------------------------------------------

// Returns null for a theme that no path can name.
static const char *path_of(const char *theme) {
    char name[ZOF_THEME_NAME_SIZE + 8];
    const bool fits = zof_text_join(name, sizeof name, theme, theme[0] ? "/" : "", "looks");
    return fits ? zof_res_get_g_file_path(theme[0] ? "config/theme/" : "config/", name) : nullptr;
}

static void file_read(look_file_t *file) {
    char *path = zof_text_copy(path_of(file->theme)); // checking opens other files
    if (path) {
        zof_rootjson_t json = RootJsonGet(path);
        file->root = json.root;
        Freebuff(json.content);
    }
    if (file->root) {
        file_check(file, path);
    }
    zof_free(path);
}

// Returns null without memory, and for a name that is too long.
static const look_file_t *file_of(const char *theme) {
    for (const look_file_t *file = self.files; file; file = file->next) {
        if (std::strcmp(file->theme, theme) == 0) {
            return file;
        }
    }
    auto *file = std::strlen(theme) < ZOF_THEME_NAME_SIZE ? (look_file_t *)zof_malloc(sizeof(look_file_t)) : nullptr;
    if (!file) {
        return nullptr;
    }
    std::strcpy(file->theme, theme);
    file->next = self.files;
    self.files = file; // before it is checked, which looks up its own colours
    file_read(file);
    return file;
}
