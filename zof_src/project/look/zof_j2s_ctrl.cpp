// The walk over the `controls` of a view file, and the styles of a control's record, which come from its theme and its
// file. An invalid entry is reported with its position and skipped, so one mistake does not empty a view.
#include "project/look/zof_j2s_ctrl.h"

#include <cstring>

#include "project/look/zof_style.h"
#include "project/path/zof_res.h"
#include "project/read/zof_j2s.h"
#include "zof_lib/zof_stdio.h"
#include "zof_lib/zof_util.h"

// Parts of records, decoded by the same rules, so a peek never disagrees with the decoded record. The id is mandatory,
// so its row is not nullable.
static const reflect_item_t id_tbl[] = {{"id", offsetof(zof_pub_attr_t, id), sizeof(u16), CSON_INTEGER, 0, 0, 0, 0},
                                        CSON_END};
static const reflect_item_t style_key_tbl[] = {CSON_INT(zof_style_attr_t, style_part),
                                               CSON_INT(zof_style_attr_t, style_state),
                                               CSON_INT(zof_style_attr_t, style_sect), CSON_END};

s32 zof_j2s_walk_start(zof_j2s_walk_t *walk, const char *path) {
    zof_j2s_walk_end(walk);
    if (!path) {
        return -1;
    }
    zof_rootjson_t file = zof_j2s_open(path);
    Freebuff(file.content);
    return zof_j2s_walk_over(walk, path, file.root);
}

s32 zof_j2s_walk_over(zof_j2s_walk_t *walk, const char *path, cJSON *root) {
    zof_j2s_walk_end(walk);
    walk->root = root;
    zof_theme_remember_missing(ZOF_TRUE);
    cJSON *controls = cJSON_GetObjectItem(root, "controls");
    if (!cJSON_IsArray(controls)) {
        if (root) {
            zof_printf("%s: controls is missing\n", path);
        }
        zof_j2s_walk_end(walk);
        return -1;
    }
    walk->path = zof_text_copy(path);
    walk->entry = controls->child;
    return 0;
}

void zof_j2s_walk_end(zof_j2s_walk_t *walk) {
    cJSON_Delete(walk->root);
    zof_theme_remember_missing(ZOF_FALSE);
    zof_free(walk->path);
    *walk = {};
}

void zof_j2s_walk_next(zof_j2s_walk_t *walk) {
    if (walk->entry) {
        walk->entry = walk->entry->next;
        walk->index++;
    }
}

// Returns -1 for an unknown type.
static s32 type_of(cJSON *entry) {
    cJSON *type = cJSON_GetObjectItem(entry, "type");
    if (!type) {
        return 0;
    }
    bool known = cJSON_IsNumber(type) && type->valueint >= 0 && type->valueint < ZOF_CTRL_TYPE_COUNT;
    return known ? type->valueint : -1;
}

// Returns the fault of an entry; null if it is valid.
static const char *entry_fault(cJSON *entry, cJSON *pub_t, zof_pub_attr_t *head) {
    if (!cJSON_IsObject(pub_t)) {
        return "property.pub_t is missing";
    }
    if (csonJsonStr2Struct(pub_t, head, id_tbl) != CSON_OK) {
        return "property.pub_t.id is not a number from 0 to 65535";
    }
    return type_of(entry) < 0 ? "type is not a control type" : nullptr;
}

// Accepts a number here, although the decoded record accepts only true and false: such a control is not created while
// its view is only loaded, and stays when the view is left.
static u32 pub_of(cJSON *pub_t) {
    cJSON *pub = cJSON_GetObjectItem(pub_t, "pub");
    return cJSON_IsTrue(pub) || (cJSON_IsNumber(pub) && pub->valueint != 0);
}

s32 zof_j2s_walk_para(zof_j2s_walk_t *walk, u32 *id, u32 *pub) {
    for (; id && pub && walk->entry; zof_j2s_walk_next(walk)) {
        cJSON *pub_t = cJSON_GetObjectItem(cJSON_GetObjectItem(walk->entry, "property"), "pub_t");
        zof_pub_attr_t head = {};
        const char *fault = entry_fault(walk->entry, pub_t, &head);
        if (!fault) {
            *id = head.id;
            *pub = pub_of(pub_t);
            return 0;
        }
        zof_printf("%s: controls[%d]: %s; it is left out\n", walk->path, walk->index, fault);
    }
    return -1;
}

// Releases a replaced text unless it belongs to the theme, from which the style only borrowed it.
static void release_replaced(char *before, const char *after, const char *theme) {
    if (before != after && before != theme) {
        zof_free(before);
    }
}

// Returns the theme's style that the record's style `index` was copied from; null for a style of the control's own.
static const zof_style_attr_t *theme_style(const zof_pub_attr_t *theme, u32 index) {
    return theme && theme->style_list && index < theme->style_num ? theme->style_list[index] : nullptr;
}

static u32 style_index(const zof_pub_attr_t *record, const zof_style_attr_t *style) {
    u32 index = 0;
    while (index < record->style_num && record->style_list[index] != style) {
        index++;
    }
    return index;
}

// Decoding writes only existing keys, over the inherited values of the style.
static void style_overlay(cJSON *json, zof_pub_attr_t *record, const zof_pub_attr_t *theme) {
    zof_style_attr_t key = {};
    csonJsonStr2Struct(json, &key, style_key_tbl);
    zof_style_attr_t *style = zof_theme_style_check(key.style_part, key.style_state, key.style_sect, record);
    if (!style) {
        return;
    }
    char *font_lib = style->txt_t.font_lib;
    char *bg_img = style->img_t.bg_img;
    s32 result = GetStyleStruct(json, style);
    if (result != 0) {
        zof_printf("GetStyleStruct ret=%d\n", result);
    }
    const zof_style_attr_t *origin = theme_style(theme, style_index(record, style));
    release_replaced(font_lib, style->txt_t.font_lib, origin ? origin->txt_t.font_lib : nullptr);
    release_replaced(bg_img, style->img_t.bg_img, origin ? origin->img_t.bg_img : nullptr);
}

static void styles_add(zof_pub_attr_t *record, const zof_pub_attr_t *theme, cJSON *styles) {
    if (theme) {
        zof_theme_style_copy_new(record, theme);
    }
    cJSON *style = nullptr;
    cJSON_ArrayForEach(style, styles) {
        style_overlay(style, record, theme);
    }
}

zof_pub_attr_t *zof_j2s_walk_get(zof_j2s_walk_t *walk) {
    cJSON *entry = walk->entry;
    if (!entry) {
        return nullptr;
    }
    s32 index = walk->index;
    zof_j2s_walk_next(walk);
    s32 type = type_of(entry);
    cJSON *property = cJSON_GetObjectItem(entry, "property");
    cJSON *theme = cJSON_GetObjectItem(entry, "theme");
    if (!property || !theme || type < 0) {
        zof_printf("%s: controls[%d]: %s; the view ends here\n", walk->path, index,
                   !property ? "property is missing"
                   : !theme  ? "theme is missing"
                             : "type is not a control type");
        return nullptr;
    }
    const zof_pub_attr_t *styles = zof_theme_get_ctrl(cJSON_GetStringValue(theme), (u32)type);
    csonSource(walk->path, "controls", index); // after the theme's file, which may just have been read
    zof_pub_attr_t *record = zof_j2s_ctrl_create(property, (u32)type);
    if (record) {
        styles_add(record, styles, cJSON_GetObjectItem(property, "styles"));
    }
    return record;
}

static zof_j2s_walk_t shared_walk;

s32 zof_j2s_ctrl_start(const char *path) {
    return zof_j2s_walk_start(&shared_walk, path);
}

s32 zof_j2s_ctrl_get_para(u32 *id, u32 *pub) {
    return zof_j2s_walk_para(&shared_walk, id, pub);
}

zof_pub_attr_t *zof_j2s_ctrl_get(void) {
    return zof_j2s_walk_get(&shared_walk);
}

void zof_j2s_ctrl_run_next(void) {
    zof_j2s_walk_next(&shared_walk);
}

void zof_j2s_ctrl_end(void) {
    zof_j2s_walk_end(&shared_walk);
}

void zof_j2s_ctrl_init(void) {
}

// The theme's record is indexed only by type, so any name finds the one that was used.
static void styles_delete(zof_pub_attr_t *record, u32 type) {
    zof_pub_attr_t *theme = record->style_num ? zof_theme_get_ctrl(zof_theme_name[0], type) : nullptr;
    for (u32 i = 0; record->style_list && i < record->style_num; i++) {
        zof_style_attr_t *style = record->style_list[i];
        if (!style) {
            continue;
        }
        if (style->lv_style) {
            zof_style_del(nullptr, style);
        }
        const zof_style_attr_t *origin = theme_style(theme, i);
        release_replaced(style->txt_t.font_lib, nullptr, origin ? origin->txt_t.font_lib : nullptr);
        release_replaced(style->img_t.bg_img, nullptr, origin ? origin->img_t.bg_img : nullptr);
        zof_free(style);
    }
    zof_free(record->style_list);
}

void zof_j2s_ctrl_delete(zof_pub_attr_t *record, u32 type) {
    if (!record || zof_j2s_get_ctrl_size(type) == 0) {
        return;
    }
    styles_delete(record, type);
    zof_j2s_attr_free(record, type);
}
