// How much room an object leaves, and how much of it a text needs.
#include <cstring>

#include "inspect/zof_inspect_review_in.h"

// LVGL could scroll a label that takes touches, but users do not expect that of a text.
static bool scrolls(const lv_obj_t *obj, bool vertical) {
    lv_obj_t *at = (lv_obj_t *)obj;
    if (lv_obj_has_class(at, &lv_roller_class)) {
        return vertical;
    }
    if (lv_obj_has_class(at, &lv_label_class)) {
        const lv_label_long_mode_t mode = lv_label_get_long_mode(at);
        return !vertical && (mode == LV_LABEL_LONG_SCROLL || mode == LV_LABEL_LONG_SCROLL_CIRCULAR);
    }
    if (!lv_obj_has_flag(at, LV_OBJ_FLAG_SCROLLABLE)) {
        return false;
    }
    return vertical ? (lv_obj_get_scroll_dir(at) & LV_DIR_VER) &&
                          lv_obj_get_scroll_top(at) + lv_obj_get_scroll_bottom(at) > 0
                    : (lv_obj_get_scroll_dir(at) & LV_DIR_HOR) &&
                          lv_obj_get_scroll_left(at) + lv_obj_get_scroll_right(at) > 0;
}

lv_area_t review_room(const lv_obj_t *obj, const lv_area_t *area, bool own) {
    lv_area_t room = *area;
    bool free_x = false;
    bool free_y = false;
    for (const lv_obj_t *at = own ? obj : lv_obj_get_parent(obj); at; at = lv_obj_get_parent(at)) {
        free_x = free_x || scrolls(at, false);
        free_y = free_y || scrolls(at, true);
        lv_area_t limit = at->coords;
        const lv_coord_t more = at == obj ? _lv_obj_get_ext_draw_size(obj) : 0; // what it may draw outside of itself
        lv_area_increase(&limit, more, more);
        if (lv_obj_has_flag((lv_obj_t *)at, LV_OBJ_FLAG_OVERFLOW_VISIBLE)) {
            continue;
        }
        room.x1 = free_x ? room.x1 : LV_MAX(room.x1, limit.x1);
        room.x2 = free_x ? room.x2 : LV_MIN(room.x2, limit.x2);
        room.y1 = free_y ? room.y1 : LV_MAX(room.y1, limit.y1);
        room.y2 = free_y ? room.y2 : LV_MIN(room.y2, limit.y2);
    }
    return room;
}

bool review_inside(const lv_obj_t *obj, const lv_obj_t *outer) {
    while (obj && obj != outer) {
        obj = lv_obj_get_parent(obj);
    }
    return obj != nullptr;
}

// Returns the text of a label as it was before LVGL wrote dots over its end; empty if there are no dots.
static std::string undotted(const lv_obj_t *obj) {
    const auto *label = (const lv_label_t *)obj;
    if (!lv_obj_has_class(obj, &lv_label_class) || label->dot_end == UINT32_MAX) {
        return "";
    }
    std::string text = label->text;
    const u32 from = _lv_txt_encoded_get_byte_id(label->text, label->dot_end - LV_LABEL_DOT_NUM);
    const char *kept = label->dot_tmp_alloc ? label->dot.tmp_ptr : label->dot.tmp;
    return text.substr(0, from) + kept + (label->text + from + strlen(kept));
}

void review_sizes_take(review_text_t *text, const lv_draw_label_dsc_t *dsc) {
    const std::string whole = undotted(text->obj);
    text->dots = !whole.empty();
    text->needs = {lv_area_get_width(&text->box), lv_area_get_height(&text->box)};
    lv_area_t has = text->room;
    if (!whole.empty()) {
        lv_obj_get_content_coords(text->obj, &has);
        const bool lines = lv_area_get_height(&has) >= 2 * lv_font_get_line_height(dsc->font);
        lv_txt_get_size(&text->needs, whole.c_str(), dsc->font, dsc->letter_space, dsc->line_space,
                        lines ? lv_area_get_width(&has) : LV_COORD_MAX, dsc->flag);
    }
    text->has = {(lv_coord_t)LV_MAX(lv_area_get_width(&has), 0), (lv_coord_t)LV_MAX(lv_area_get_height(&has), 0)};
}
