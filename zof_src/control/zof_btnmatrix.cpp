// Button matrices: rows of captions in one object. The record keeps the captions as they were given, a second map what
// LVGL shows; both have the same slots.
#include "control/zof_btnmatrix.h"

#include <string.h>

#include "control/zof_btn_map.h"
#include "control/zof_ctrl_in.h"
#include "control/zof_txt.h"
#include "project/look/zof_lang.h"
#include "project/look/zof_style.h"
#include "zof_lib/zof_stdio.h"
#include "zof_lib/zof_util.h"

const reflect_item_t zof_btnmatrix_attr_t_tbl[] = {
    CSON_OBJ(zof_btnmatrix_attr_t, pub_t, zof_pub_attr_t_tbl),
    CSON_INT(zof_btnmatrix_attr_t, btnmatrix_num),
    CSON_ARR(zof_btnmatrix_attr_t, btnmatrix_txt, stringReflectTbl, sizeof(char *), "btnmatrix_num"),
    CSON_END,
};

const zof_ctrl_class_t zof_btnmatrix_class = {
    .type = ZOF_CTRL_BTNMATRIX,
    .name = "btnmatrix",
    .attr = zof_btnmatrix_attr_t_tbl,
    .attr_size = sizeof(zof_btnmatrix_attr_t),
    .create = zof_btnmatrix_create,
    .del = zof_btnmatrix_del,
};

enum { BTN_WIDTH_MAX = 7 };

const char *zof_btn_map_empty[] = {""};

static bool is_break(const char *text) {
    return strcmp(text, "\n") == 0;
}

// The text to show for a caption. An empty one, or a row break, would cut off the buttons after it.
static const char *caption_shown(const char *caption) {
    const char *shown = zof_lang_get_cur_str(caption);
    if (!shown || !shown[0] || (is_break(shown) && shown != caption)) {
        return caption && caption[0] ? " " : "";
    }
    return shown;
}

s32 zof_btn_map_put(char **map, u32 slot, const char *caption) {
    const char *shown = caption_shown(caption);
    char *copy = zof_text_copy(shown);
    if (!copy) {
        return -1;
    }
    zof_free(map[slot]);
    map[slot] = copy;
    return 0;
}

char **zof_btn_map_create(const char *const *texts, u32 count) {
    if (!texts) {
        count = 0;
    }
    char **map = (char **)zof_malloc((count + 2) * sizeof(char *)); // an end mark to show, and one to count
    if (!map) {
        return nullptr;
    }
    memset(map, 0, (count + 2) * sizeof(char *));
    for (u32 i = 0; i <= count; i++) {
        if (zof_btn_map_put(map, i, i < count ? texts[i] : nullptr) != 0) {
            zof_btn_map_free(&map);
            return nullptr;
        }
    }
    return map;
}

void zof_btn_map_free(char ***map) {
    for (char **at = *map; at && *at; at++) {
        zof_free(*at);
    }
    zof_free(*map);
    *map = nullptr;
}

s32 zof_btn_map_slot(const char *const *map, u32 id) {
    for (s32 slot = 0; map && map[slot] && map[slot][0]; slot++) {
        if (!is_break(map[slot]) && id-- == 0) {
            return slot;
        }
    }
    return -1;
}

static void event_press(lv_event_t *e) {
    lv_btnmatrix_set_selected_btn(lv_event_get_target(e), LV_BTNMATRIX_BTN_NONE);
}

void zof_btn_map_press_fresh(lv_obj_t *btns) {
    lv_obj_add_event_cb(btns, event_press, (lv_event_code_t)(LV_EVENT_PRESSED | LV_EVENT_PREPROCESS), nullptr);
}

static zof_btnmatrix_attr_t *matrix_attr(const zof_ctrl_t *ctrl) {
    return zof_ctrl_attr<zof_btnmatrix_attr_t>(ctrl, ZOF_CTRL_BTNMATRIX);
}

s32 zof_btnmatrix_create(para_t *record, lv_obj_t *parent, void *attr) {
    zof_btnmatrix_attr_t *matrix = (zof_btnmatrix_attr_t *)attr;
    if (!record || !matrix) {
        return -1;
    }
    zof_btn_map_free(&matrix->txt_map);
    matrix->txt_map = zof_btn_map_create(matrix->btnmatrix_txt, matrix->btnmatrix_num);
    if (!matrix->txt_map) {
        return -1;
    }
    lv_obj_t *obj = record->obj = lv_btnmatrix_create(parent);
    if (!obj) {
        return 0;
    }
    zof_ctrl_pub_attr(record, &matrix->pub_t);
    lv_btnmatrix_set_map(obj, (const char **)matrix->txt_map);
    zof_btn_map_press_fresh(obj);
    zof_ctrl_style_add(record, matrix->pub_t.style_list, matrix->pub_t.style_num, 0);
    zof_ctrl_style_add(record, matrix->pub_t.style_list, matrix->pub_t.style_num, 1);
    return 0;
}

s32 zof_btnmatrix_del(para_t *record) {
    if (!record || !record->is_created || !record->attr || record->attr->ctrl_type != ZOF_CTRL_BTNMATRIX) {
        return -1;
    }
    if (record->obj) {
        lv_btnmatrix_set_map(record->obj, zof_btn_map_empty);
    }
    zof_btn_map_free(&((zof_btnmatrix_attr_t *)record->attr)->txt_map);
    return 0;
}

// LVGL counts buttons in 16 bits and uses the last number for "no button".
static u16 id_to_lv(u32 id) {
    return (u16)LV_MIN(id, LV_BTNMATRIX_BTN_NONE - 1u);
}

s32 zof_btnmatrix_set_selected_btn(zof_ctrl_t *ctrl, u32 id) {
    return zof_on(ctrl, &lv_btnmatrix_class, [=](lv_obj_t *obj) {
        lv_btnmatrix_set_selected_btn(obj, id == LV_BTNMATRIX_BTN_NONE ? (u16)id : id_to_lv(id));
    });
}

s32 zof_btnmatrix_get_selected_btn(zof_ctrl_t *ctrl) {
    return zof_on(ctrl, &lv_btnmatrix_class, lv_btnmatrix_get_selected_btn);
}

s32 zof_btnmatrix_set_btn_ctrl(zof_ctrl_t *ctrl, u32 id, u32 flags) {
    return zof_on(ctrl, &lv_btnmatrix_class,
                  [=](lv_obj_t *obj) { lv_btnmatrix_set_btn_ctrl(obj, id_to_lv(id), (lv_btnmatrix_ctrl_t)flags); });
}

s32 zof_btnmatrix_clear_btn_ctrl(zof_ctrl_t *ctrl, u32 id, u32 flags) {
    return zof_on(ctrl, &lv_btnmatrix_class,
                  [=](lv_obj_t *obj) { lv_btnmatrix_clear_btn_ctrl(obj, id_to_lv(id), (lv_btnmatrix_ctrl_t)flags); });
}

s32 zof_btnmatrix_set_btn_ctrl_all(zof_ctrl_t *ctrl, u32 flags) {
    return zof_on(ctrl, &lv_btnmatrix_class,
                  [=](lv_obj_t *obj) { lv_btnmatrix_set_btn_ctrl_all(obj, (lv_btnmatrix_ctrl_t)flags); });
}

s32 zof_btnmatrix_clear_btn_ctrl_all(zof_ctrl_t *ctrl, u32 flags) {
    return zof_on(ctrl, &lv_btnmatrix_class,
                  [=](lv_obj_t *obj) { lv_btnmatrix_clear_btn_ctrl_all(obj, (lv_btnmatrix_ctrl_t)flags); });
}

s32 zof_btnmatrix_has_btn_ctrl(zof_ctrl_t *ctrl, u32 id, u32 flags) {
    return zof_on(ctrl, &lv_btnmatrix_class, [=](lv_obj_t *obj) {
        return lv_btnmatrix_has_btn_ctrl(obj, id_to_lv(id), (lv_btnmatrix_ctrl_t)flags);
    });
}

s32 zof_btnmatrix_set_btn_width(zof_ctrl_t *ctrl, u32 id, u32 width) {
    return zof_on(ctrl, &lv_btnmatrix_class, [=](lv_obj_t *obj) {
        lv_btnmatrix_set_btn_width(obj, id_to_lv(id), (u8)LV_MIN(width, (u32)BTN_WIDTH_MAX));
    });
}

s32 zof_btnmatrix_set_one_checked(zof_ctrl_t *ctrl, zof_bool on) {
    return zof_on(ctrl, &lv_btnmatrix_class, [=](lv_obj_t *obj) { lv_btnmatrix_set_one_checked(obj, on); });
}

s32 zof_btnmatrix_get_one_checked(zof_ctrl_t *ctrl) {
    return zof_on(ctrl, &lv_btnmatrix_class, lv_btnmatrix_get_one_checked);
}

const char *zof_btnmatrix_get_btn_text(zof_ctrl_t *ctrl, u32 id) {
    lv_obj_t *obj = zof_ctrl_obj(ctrl);
    if (!obj || !lv_obj_has_class(obj, &lv_btnmatrix_class)) {
        return nullptr;
    }
    const char **map = lv_btnmatrix_get_map(obj);
    s32 slot = zof_btn_map_slot(map, id);
    return slot < 0 ? nullptr : map[slot];
}

s32 zof_btnmatrix_set_btn_txt(zof_ctrl_t *ctrl, u32 id, const char *text) {
    zof_btnmatrix_attr_t *attr = matrix_attr(ctrl);
    if (!attr || !text || is_break(text)) {
        return -1;
    }
    s32 slot = zof_btn_map_slot(attr->txt_map, id);
    if (slot < 0) {
        return -1;
    }
    zof_txt_change(&attr->btnmatrix_txt[slot], text[0] ? text : " "); // an empty one would end the map
    if (zof_btn_map_put(attr->txt_map, (u32)slot, attr->btnmatrix_txt[slot]) != 0) {
        return -1;
    }
    lv_btnmatrix_set_map(zof_ctrl_obj(ctrl), (const char **)attr->txt_map);
    return 0;
}
