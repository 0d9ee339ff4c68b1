// What the files of the control layer share: from a handle to its object, record and attributes. Internal, C++ only.
#ifndef ZOF_CTRL_IN_H
#define ZOF_CTRL_IN_H

#include <type_traits>
#include <utility>

#include "control/zof_ctrl.h"
#include "project/base/zof_hold_in.h"

// The rows, each in its control's file.
#define ZOF_CTRL_ROW(NAME, type) extern const zof_ctrl_class_t zof_##type##_class;
ZOF_CTRL_TYPES(ZOF_CTRL_ROW)
#undef ZOF_CTRL_ROW

// Parameters that pass on which public function is running, and where it was called from. The place is null on
// WebAssembly, where finding it would take an exception on every call.
#ifdef __wasm__
#define ZOF_CALL_SITE nullptr
#else
#define ZOF_CALL_SITE __builtin_return_address(0)
#endif
#define ZOF_CALLER const char *function = __builtin_FUNCTION(), const void *site = ZOF_CALL_SITE

// Reports, once for each site, or for each function without one, why a public function cannot use a handle. Returns -1.
s32 zof_refuse(const zof_ctrl_t *ctrl, ZOF_CALLER);

// Remembers the last lookup of a control, which explains a null handle.
void zof_refuse_lookup(u32 view, u32 ctrl, bool found);

// Returns the handle's object; null, after a report, without an object, or if it is not of this widget class.
static inline lv_obj_t *zof_obj_of(const zof_ctrl_t *ctrl, const lv_obj_class_t *kind, ZOF_CALLER) {
    lv_obj_t *obj = zof_ctrl_obj(ctrl);
    if (obj && (!kind || lv_obj_has_class(obj, kind))) {
        return obj;
    }
    zof_refuse(ctrl, function, site);
    return nullptr;
}

// Runs `fn` on the handle's object. Returns -1 without an object, else what `fn` returns, or 0 if it returns nothing.
// With a widget class, refuses an object of another kind: a file, not the program, decides which kind an id refers to.
// What the events of `fn` delete, this control included, stays in memory until `fn` has returned.
template <typename F> s32 zof_on(zof_ctrl_t *ctrl, const lv_obj_class_t *kind, F &&fn, ZOF_CALLER) {
    zof_hold hold;
    lv_obj_t *obj = zof_obj_of(ctrl, kind, function, site);
    if (!obj) {
        return -1;
    }
    if constexpr (std::is_void_v<decltype(fn(obj))>) {
        fn(obj);
        return 0;
    } else {
        return (s32)fn(obj);
    }
}

template <typename F> s32 zof_on(zof_ctrl_t *ctrl, F &&fn, ZOF_CALLER) {
    return zof_on(ctrl, nullptr, std::forward<F>(fn), function, site);
}

// The record behind a handle; null for child objects that are not controls.
static inline para_t *zof_ctrl_record(const zof_ctrl_t *ctrl) {
    lv_obj_t *obj = zof_ctrl_obj(ctrl);
    return obj ? (para_t *)lv_obj_get_user_data(obj) : nullptr;
}

// The attributes of a record if they are of this type, else null; also for a null record.
template <typename T> T *zof_record_attr(const para_t *record, zof_ctrl_type_e type) {
    return record && record->attr && record->attr->ctrl_type == type ? (T *)record->attr : nullptr;
}

// The attributes behind a handle if they are of this type, else null.
template <typename T> T *zof_ctrl_attr(const zof_ctrl_t *ctrl, zof_ctrl_type_e type) {
    return zof_record_attr<T>(zof_ctrl_record(ctrl), type);
}

// Returns 1 for a control in the state `checked`, else 0.
s32 zof_ctrl_checked(zof_ctrl_t *ctrl);

// The texts of values that have to be copied; longer ones are cut.
enum { ZOF_VALUE_TEXT_SIZE = 256 };

// Functions for the `value` of rows: a number; a number of which a mask counts as on; a text; a choice with its text.
template <auto NUMBER> s32 zof_value_number(zof_ctrl_t *ctrl, zof_ctrl_value_t *out) {
    out->number = (s32)NUMBER(ctrl);
    return 0;
}

template <auto TEXT> s32 zof_value_text(zof_ctrl_t *ctrl, zof_ctrl_value_t *out) {
    const char *text = TEXT(ctrl);
    out->text = text && text != (const char *)-1 ? text : "";
    return 0;
}

// TEXT copies the text of the chosen option.
template <auto CHOSEN, auto TEXT> s32 zof_value_option(zof_ctrl_t *ctrl, zof_ctrl_value_t *out) {
    static char text[ZOF_VALUE_TEXT_SIZE];
    out->number = CHOSEN(ctrl);
    out->text = TEXT(ctrl, text, sizeof(text)) == 0 ? text : "";
    return 0;
}

// TEXT returns the text of any element. LVGL's number for no choice becomes -1.
template <auto CHOSEN, auto TEXT> s32 zof_value_element(zof_ctrl_t *ctrl, zof_ctrl_value_t *out) {
    const u32 chosen = (u32)CHOSEN(ctrl);
    if (chosen >= LV_BTNMATRIX_BTN_NONE) {
        out->number = -1;
        return 0;
    }
    const char *text = TEXT(ctrl, chosen);
    out->number = (s32)chosen;
    out->text = text && text != (const char *)-1 ? text : "";
    return 0;
}

// Adds or clears an LVGL flag, but only when it differs: each change costs a redraw.
static inline void zof_obj_flag_set(lv_obj_t *obj, lv_obj_flag_t flag, bool on) {
    if (lv_obj_has_flag(obj, flag) == on) {
        return;
    }
    if (on) {
        lv_obj_add_flag(obj, flag);
    } else {
        lv_obj_clear_flag(obj, flag);
    }
}

// Sets or clears a state of the handle's object. Returns 0, or -1 without an object.
static inline s32 zof_obj_state_set(zof_ctrl_t *ctrl, lv_state_t state, u32 on) {
    return on ? zof_ctrl_add_state(ctrl, state) : zof_ctrl_clear_state(ctrl, state);
}

// Releases what a record whose object is gone still owns: attributes, styles, and what its type keeps beside them.
// The memory is freed when the outermost hold ends, like the deleted object, which refers to it.
void zof_ctrl_release(para_t *record);

// Brings an object's size and position up to date. While a view's controls are being built it lays out this object
// alone: a layout of the whole view for each control would make loading quadratic.
void zof_obj_layout(lv_obj_t *obj);

// Between these calls a view is being built, and objects are laid out and styled one by one. Calls may be nested: an
// event of a control that is created may build another view.
void zof_obj_build_begin(void);
void zof_obj_build_end(void);
bool zof_obj_building(void);

// Ends a press when the pointer leaves the object. LVGL would keep it locked, and a press that slid off would click.
void zof_obj_press_unlock(lv_obj_t *obj);

#endif
