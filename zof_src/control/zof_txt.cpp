// Texts of controls: replacing them, and showing them in the current language.
#include "control/zof_txt_in.h"

#include <string.h>

#include "control/zof_ctrl_in.h"
#include "project/look/zof_font.h"
#include "project/look/zof_lang.h"
#include "zof_lib/zof_stdio.h"
#include "zof_lib/zof_util.h"

s32 zof_txt_change(char **slot, const char *text) {
    if (!slot || !text) {
        return -1;
    }
    if (*slot && (*slot == text || strcmp(*slot, text) == 0)) {
        return -1;
    }
    char *copy = zof_text_copy(text); // not resized in place: `text` may be within the old one
    if (!copy) {
        return -1;
    }
    zof_free(*slot);
    *slot = copy;
    return 0;
}

bool zof_txt_show(lv_obj_t *obj, const char *text, zof_txt_show_fn show) {
    const char *shown = zof_lang_get_cur_str(text);
    show(obj, shown ? shown : "");
    return shown != text;
}

lv_obj_t *zof_txt_inner_label(const zof_ctrl_t *ctrl) {
    lv_obj_t *obj = zof_ctrl_obj(ctrl);
    lv_obj_t *label = obj ? lv_obj_get_child(obj, 0) : nullptr;
    return label && lv_obj_has_class(label, &lv_label_class) ? label : nullptr;
}

lv_obj_t *zof_txt_inner_create(lv_obj_t *btn, const char *text) {
    lv_obj_t *label = lv_label_create(btn);
    if (!label) {
        return nullptr;
    }
    lv_obj_set_width(label, lv_obj_get_width(btn));
    lv_label_set_long_mode(label, LV_LABEL_LONG_WRAP);
    lv_obj_clear_flag(label, LV_OBJ_FLAG_CLICKABLE);
    zof_txt_show(label, text, lv_label_set_text);
    lv_obj_set_style_text_align(label, LV_TEXT_ALIGN_CENTER, LV_PART_MAIN);
    lv_obj_align(label, LV_ALIGN_CENTER, 0, 0);
    return label;
}

lv_font_t *zof_txt_font(const zof_pub_attr_t *attr, u32 size) {
    if (!attr || attr->style_num == 0 || !attr->style_list || !attr->style_list[0]) {
        return nullptr;
    }
    const char *file = attr->style_list[0]->txt_t.font_lib;
    return file ? zof_font_create_lvfont(file, size) : nullptr;
}

s32 zof_txt_inner_set_size(zof_ctrl_t *ctrl, u32 size, const char *function, const void *site) {
    const para_t *record = zof_ctrl_record(ctrl);
    const auto set = [=](lv_obj_t *label) {
        const lv_font_t *font = record ? zof_txt_font(record->attr, size) : nullptr;
        if (font) {
            lv_obj_set_style_text_font(label, font, LV_PART_MAIN);
        }
    };
    return zof_on_inner(ctrl, set, function, site);
}
