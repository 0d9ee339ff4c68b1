// Control types: the one list from which their numbers are made, and what a row for a type contains. A type's row, its
// attribute record with its keys, and its functions are in its own file of the control layer.
#ifndef ZOF_CTRL_TYPES_H
#define ZOF_CTRL_TYPES_H

#include "project/base/zof_para.h"

ZOF_C_BEGIN

// All types, in the order of their numbers, which files contain: X(LABEL, label) is ZOF_CTRL_LABEL with the row
// zof_label_class.
#define ZOF_CTRL_TYPES(X)     \
    X(LABEL, label)           \
    X(BTN, btn)               \
    X(OBJ, obj)               \
    X(IMGBTN, imgbtn)         \
    X(LINE, line)             \
    X(ARC, arc)               \
    X(BAR, bar)               \
    X(SLIDER, slider)         \
    X(SW, sw)                 \
    X(CB, cb)                 \
    X(MBOX, mbox)             \
    X(TILEVIEW, tileview)     \
    X(TXTBOX, txtbox)         \
    X(LIST, list)             \
    X(DROPLIST, droplist)     \
    X(ROLLIST, rollist)       \
    X(CHART, chart)           \
    X(TABLE, table)           \
    X(SPINBOX, spinbox)       \
    X(IMG, img)               \
    X(GIF, gif)               \
    X(QRCODE, qrcode)         \
    X(VIDEO, video)           \
    X(KEYBOARD, keyboard)     \
    X(TILE, tile)             \
    X(SKETCHPAD, sketchpad)   \
    X(BTNMATRIX, btnmatrix)   \
    X(ANIMIMG, animimg)       \
    X(SCROLLCONT, scrollcont) \
    X(SCROLLCONT_OBJ, scrollcont_obj)

#define ZOF_CTRL_NUMBER(NAME, type) ZOF_CTRL_##NAME,
typedef enum { ZOF_CTRL_TYPES(ZOF_CTRL_NUMBER) ZOF_CTRL_TYPE_COUNT } zof_ctrl_type_e;
#undef ZOF_CTRL_NUMBER

// What a control stands at: a position, a choice, or whether it is on, and its text.
typedef struct {
    s32 number;       // 0 for types that only have a text
    const char *text; // as shown, never null; valid until the control changes or the next value is read
} zof_ctrl_value_t;

// The row of a control type.
//
// An attribute record holds the keys of a control's `property` object in a view file, and of the root of a theme file.
// It begins with zof_pub_attr_t. A field's name is its JSON key; fields without a key are marked. It owns its strings.
typedef struct {
    u32 type;                   // ZOF_CTRL_LABEL ...
    const char *name;           // of its theme files, without ".g"
    const reflect_item_t *attr; // rows are decoded in this order
    u32 attr_size;              // bytes

    // Creates the LVGL object on `parent`, stores it in record->obj and sets it up from the attribute record, which
    // stays the caller's. Returns 0, or -1 with nothing created.
    s32 (*create)(para_t *record, lv_obj_t *parent, void *attr); // MANDATORY
    s32 (*update_txt)(zof_ctrl_t *ctrl);                         // OPTIONAL: after a language change
    s32 (*del)(para_t *record); // OPTIONAL: the object is gone; releases what the attributes do not own alone

    zof_bool no_theme;      // it has no styles, so it has no theme file
    zof_bool driver_object; // zof_ctrl_delete keeps the object, which is the driver's
    zof_bool own_order;     // its objects are not put back into the order of the file when the view is shown again

    s32 (*value)(zof_ctrl_t *ctrl, zof_ctrl_value_t *out); // OPTIONAL: for types that have a value; 0 or -1
} zof_ctrl_class_t;

ZOF_C_END

#endif
