// The rule that all controls with a text share: the object shows the translation, the record keeps the key. Internal,
// C++ only.
#ifndef ZOF_TXT_IN_H
#define ZOF_TXT_IN_H

#include "control/zof_ctrl_in.h"
#include "control/zof_txt.h"

typedef void (*zof_txt_show_fn)(lv_obj_t *obj, const char *text);

// Shows a text, or the translation of a key; nothing for null. Returns true when `text` is a key that has a
// translation: the control's record must then keep it, or the text would not follow the next language change.
bool zof_txt_show(lv_obj_t *obj, const char *text, zof_txt_show_fn show);

// Returns the label inside a button or image button, its first child; null for an object without children.
lv_obj_t *zof_txt_inner_label(const zof_ctrl_t *ctrl);

// Runs `fn` on that label. Returns like zof_on.
template <typename F> s32 zof_on_inner(zof_ctrl_t *ctrl, F &&fn, ZOF_CALLER) {
    lv_obj_t *label = zof_txt_inner_label(ctrl);
    return label ? zof_on(label, std::forward<F>(fn)) : zof_refuse(ctrl, function, site);
}

// Creates that label: as wide as the button, wrapped, centred, not clickable.
lv_obj_t *zof_txt_inner_create(lv_obj_t *btn, const char *text);

// Sets the inner label's font to the font file of the button's first style in another size. Returns 0, or -1 without a
// label.
s32 zof_txt_inner_set_size(zof_ctrl_t *ctrl, u32 size, ZOF_CALLER);

// Returns the font of a record's first style in another size, or null.
lv_font_t *zof_txt_font(const zof_pub_attr_t *attr, u32 size);

#endif
