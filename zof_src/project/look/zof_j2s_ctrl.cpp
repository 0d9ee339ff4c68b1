// The walk over the `controls` of a view file, and the styles of a control's record, which come from its theme and its
// file. An invalid entry is reported with its position and skipped, so one mistake does not empty a view.
#include "project/look/zof_j2s_ctrl.h"

#include <cstdio>
#include <cstring>

#include "project/base/zof_prj_up.h"
#include "project/look/zof_look_in.h"
#include "project/look/zof_style.h"
#include "project/path/zof_res.h"
#include "project/read/zof_fault.h"
#include "project/read/zof_j2s.h"
#include "zof_lib/zof_stdio.h"
#include "zof_lib/zof_util.h"

// Parts of records, decoded by the same rules, so a peek never disagrees with the decoded record. The id is mandatory,
// so its row is not nullable.
static const reflect_item_t id_tbl[] = {{"id", offsetof(zof_pub_attr_t, id), sizeof(u16), CSON_INTEGER, 0, 0, 0, 0},
                                        CSON_END};
static const reflect_item_t style_key_tbl[] = {ZOF_STYLE_KEYS, CSON_END};

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
            const zof_fault_scope scope(path, root);
            zof_fault_at(controls ? controls : root, "%s", controls ? "expected an array" : "controls is missing");
        }
        zof_j2s_walk_end(walk);
        return -1;
    }
    walk->path = zof_text_copy(path);
    walk->entry = controls->child;
    walk->places = (zof_j2s_places_t *)zof_malloc(sizeof(zof_j2s_places_t));
    return 0;
}

static cJSON *pub_of_entry(const cJSON *entry) {
    return cJSON_GetObjectItem(cJSON_GetObjectItem(entry, "property"), "pub_t");
}

// Returns a number of an object, or -1 if it has no such number.
static s32 json_number(const cJSON *object, const char *key) {
    const cJSON *value = cJSON_GetObjectItem(object, key);
    return cJSON_IsNumber(value) ? value->valueint : -1;
}

// Records the position of an id and returns 0, or returns the position that it already has. Without memory does
// nothing.
static s32 place_note(zof_j2s_places_t *places, u32 id, s32 place) {
    s32 **page = places ? &places->pages[id / ZOF_J2S_PAGE] : nullptr;
    if (page && !*page) {
        *page = (s32 *)zof_malloc(ZOF_J2S_PAGE * sizeof(s32));
    }
    if (!page || !*page) {
        return 0;
    }
    s32 *noted = &(*page)[id % ZOF_J2S_PAGE];
    const s32 former = *noted;
    *noted = former ? former : place;
    return former;
}

// Returns true if a control above the cursor has this id.
static bool place_known(const zof_j2s_places_t *places, s32 id) {
    if (!places) {
        return true;
    }
    const s32 *page = id > 0 && id <= UINT16_MAX ? places->pages[id / ZOF_J2S_PAGE] : nullptr;
    return page && page[id % ZOF_J2S_PAGE];
}

static void places_free(zof_j2s_places_t *places) {
    for (u32 i = 0; places && i <= UINT16_MAX / ZOF_J2S_PAGE; i++) {
        zof_free(places->pages[i]);
    }
    zof_free(places);
}

void zof_j2s_walk_end(zof_j2s_walk_t *walk) {
    cJSON_Delete(walk->root);
    places_free(walk->places);
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
    s64 value = cJSON_IsNumber(type) ? type->valueint : -1;
    if (cJSON_IsString(type)) {
        csonTextRead(zof_entry_t_tbl, type->valuestring, &value);
    }
    return value >= 0 && value < ZOF_CTRL_TYPE_COUNT ? (s32)value : -1;
}

// Returns the fault of an entry; null if it is valid.
static const char *entry_fault(cJSON *entry, cJSON *pub_t, zof_pub_attr_t *head) {
    if (!cJSON_IsObject(pub_t)) {
        return "property.pub_t is missing";
    }
    if (csonPeek(pub_t, head, id_tbl) != CSON_OK) {
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

// Reports an id that an earlier entry has.
static void former_report(const zof_j2s_walk_t *walk, const cJSON *pub_t, s32 former) {
    const cJSON *other = cJSON_GetArrayItem(cJSON_GetObjectItem(walk->root, "controls"), former);
    const char *name = cJSON_GetStringValue(cJSON_GetObjectItem(pub_of_entry(other), "name"));
    zof_fault_at(cJSON_GetObjectItem(pub_t, "id"), "the control %s has the id %u already; this one is left out",
                 name ? name : "", (u32)json_number(pub_t, "id"));
}

s32 zof_j2s_walk_para(zof_j2s_walk_t *walk, u32 *id, u32 *pub) {
    const zof_fault_scope scope(walk->path, walk->root);
    for (; id && pub && walk->entry; zof_j2s_walk_next(walk)) {
        cJSON *pub_t = pub_of_entry(walk->entry);
        zof_pub_attr_t head = {};
        const char *fault = entry_fault(walk->entry, pub_t, &head);
        const s32 place = walk->index + 1;
        const s32 former = fault ? 0 : place_note(walk->places, head.id, place);
        if (!fault && (!former || former == place)) {
            *id = head.id;
            *pub = pub_of(pub_t);
            return 0;
        }
        const cJSON *type = cJSON_GetObjectItem(walk->entry, "type");
        if (fault && cJSON_IsString(type) && type_of(walk->entry) < 0) {
            csonNameFault(type, zof_entry_t_tbl, "it is left out");
        } else if (fault) {
            zof_fault_at(walk->entry, "%s; it is left out", fault);
        } else {
            former_report(walk, pub_t, former - 1);
        }
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
    csonPeek(json, &key, style_key_tbl);
    zof_style_attr_t *style = zof_theme_style_check(key.style_part, key.style_state, key.style_sect, record);
    if (!style) {
        return;
    }
    char *font_lib = style->txt_t.font_lib;
    char *bg_img = style->img_t.bg_img;
    GetStyleStruct(json, style);
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

// Reports a parent that is not a control above the entry. The control is then put on the view.
static void parent_report(const zof_j2s_walk_t *walk, const cJSON *place, const zof_pub_attr_t *record) {
    if (record->parent_id == record->id) {
        zof_fault_at(place, "a control cannot be its own parent; it is put on the view");
        return;
    }
    const cJSON *entry = walk->entry;
    while (entry && json_number(pub_of_entry(entry), "id") != record->parent_id) {
        entry = entry->next;
    }
    if (entry) {
        zof_fault_at(place, "the parent, %d, must come before this control; it is put on the view", record->parent_id);
    } else {
        zof_fault_at(place, "no control has the id %d; it is put on the view", record->parent_id);
    }
}

// Reports what is wrong with an entry as a whole. Its ids are noted at the walk's peek.
static void entry_check(const zof_j2s_walk_t *walk, cJSON *entry, const zof_pub_attr_t *record) {
    csonKeys(entry, zof_entry_t_tbl);
    const cJSON *pub_t = pub_of_entry(entry);
    if (!cJSON_IsString(cJSON_GetObjectItem(entry, "theme"))) {
        zof_fault_at(cJSON_GetObjectItem(entry, "theme"), "expected a text; the control has no theme");
    }
    const cJSON *id = cJSON_GetObjectItem(pub_t, "id");
    if (id && record->id == 0) {
        zof_fault_at(id, "0 is not from 1 to 65535; neither program nor host can find the control");
    }
    const s32 parent = record->parent_id;
    if (parent != 0 && (parent == record->id || !place_known(walk->places, parent))) {
        parent_report(walk, cJSON_GetObjectItem(pub_t, "parent_id"), record);
    }
}

// Returns the look that an entry names; null, after a message, if it names one that it cannot have.
static const zof_look_t *look_of(cJSON *entry, u32 type, const char *theme) {
    cJSON *json = cJSON_GetObjectItem(entry, "look");
    if (!json) {
        return nullptr;
    }
    const char *name = cJSON_GetStringValue(json);
    const zof_look_t *look = name ? zof_look_get(zof_look_theme(theme ? theme : ""), name) : nullptr;
    if (!name) {
        zof_fault_at(json, "expected a text; the control has no look");
    } else if (!look) {
        zof_fault_at(json, "there is no look %.40s; the control is drawn without a look", name);
    } else if (zof_prj_up.ctrl_class(type)->no_theme) {
        zof_fault_at(json, "a control of this type has no styles; the look is ignored");
        look = nullptr;
    }
    return look;
}

static bool is_texts(const cJSON *list) {
    const cJSON *item = nullptr;
    cJSON_ArrayForEach(item, list) {
        if (!cJSON_IsString(item) || strpbrk(item->valuestring, "\n")) {
            return false;
        }
    }
    return cJSON_IsArray(list);
}

// Collects the lines of actions, "clicked view home". Returns null without memory.
static char *actions_join(const cJSON *on) {
    size_t size = 1;
    const cJSON *list = nullptr;
    const cJSON *item = nullptr;
    cJSON_ArrayForEach(list, on) {
        cJSON_ArrayForEach(item, list) {
            size += strlen(list->string) + strlen(item->valuestring) + 2;
        }
    }
    char *lines = (char *)zof_malloc((u32)size);
    char *at = lines;
    if (!lines) {
        return nullptr;
    }
    cJSON_ArrayForEach(list, on) {
        cJSON_ArrayForEach(item, list) {
            at += snprintf(at, size - (size_t)(at - lines), "%s %s\n", list->string, item->valuestring);
        }
    }
    return lines;
}

// Returns the lines of the actions of an entry; null without any, and after a message.
static char *actions_of(cJSON *entry) {
    cJSON *on = cJSON_GetObjectItem(entry, "on");
    cJSON *list = nullptr;
    cJSON_ArrayForEach(list, on) {
        if (!is_texts(list)) {
            zof_fault_at(list, "expected an array of texts; the control has no actions");
            return nullptr;
        }
    }
    if (on && !cJSON_IsObject(on)) {
        zof_fault_at(on, "expected an object; the control has no actions");
        return nullptr;
    }
    return on ? actions_join(on) : nullptr;
}

zof_pub_attr_t *zof_j2s_walk_get(zof_j2s_walk_t *walk) {
    cJSON *entry = walk->entry;
    if (!entry) {
        return nullptr;
    }
    const zof_fault_scope scope(walk->path, walk->root);
    zof_j2s_walk_next(walk);
    s32 type = type_of(entry);
    cJSON *property = cJSON_GetObjectItem(entry, "property");
    cJSON *theme = cJSON_GetObjectItem(entry, "theme");
    if (!property || !theme || type < 0) {
        zof_fault_at(entry, "%s; the view ends here",
                     !property ? "property is missing"
                     : !theme  ? "theme is missing"
                               : "type is not a control type");
        return nullptr;
    }
    const char *theme_name = cJSON_GetStringValue(theme);
    const zof_colors_scope colors(zof_look_theme(theme_name));
    const zof_look_t *look = look_of(entry, (u32)type, theme_name);
    const zof_pub_attr_t *styles = look ? nullptr : zof_theme_get_ctrl(theme_name, (u32)type);
    zof_pub_attr_t *record = zof_j2s_ctrl_create(property, (u32)type);
    if (record && look) {
        zof_look_apply(look, record, cJSON_GetObjectItem(property, "styles"));
    } else if (record) {
        styles_add(record, styles, cJSON_GetObjectItem(property, "styles"));
    }
    if (record) {
        record->on = actions_of(entry);
        entry_check(walk, entry, record);
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
    const bool themed = record->style_num && !record->look;
    zof_pub_attr_t *theme = themed ? zof_theme_get_ctrl(zof_theme_name[0], type) : nullptr;
    for (u32 i = 0; record->style_list && i < record->style_num; i++) {
        zof_style_attr_t *style = record->style_list[i];
        if (!style) {
            continue;
        }
        if (style->lv_style) {
            zof_style_del(nullptr, style);
        }
        if (!record->look) { // whose texts are kept
            const zof_style_attr_t *origin = theme_style(theme, i);
            release_replaced(style->txt_t.font_lib, nullptr, origin ? origin->txt_t.font_lib : nullptr);
            release_replaced(style->img_t.bg_img, nullptr, origin ? origin->img_t.bg_img : nullptr);
        }
        zof_free(style);
    }
    zof_free(record->style_list);
}

void zof_j2s_ctrl_delete(zof_pub_attr_t *record, u32 type) {
    if (!record || zof_j2s_get_ctrl_size(type) == 0) {
        return;
    }
    styles_delete(record, type);
    zof_free(record->on);
    record->on = nullptr;
    zof_j2s_attr_free(record, type);
}
