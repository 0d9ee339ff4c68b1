// Functions that the project runtime needs from the control layer above it. Set in zof_src/zof_wiring.cpp.
#ifndef ZOF_PRJ_UP_H
#define ZOF_PRJ_UP_H

#include "project/base/zof_ctrl_types.h"
#include "project/base/zof_prj_cur.h"

ZOF_C_BEGIN

typedef struct {
    const zof_ctrl_class_t *(*ctrl_class)(u32 type); // null for an unknown type
    db_list *(*ctrl_list_init)(void);
    s32 (*ctrl_list_create)(zof_view_node_t *view);
    s32 (*ctrl_delete)(void *record); // a para_t, when its view is left
    s32 (*ctrl_txt_update)(void);     // after a language change
    void (*lang_changed)(void);       // after that
    void (*view_shown)(u32 view);     // before its entry function
} zof_prj_up_t;

extern const zof_prj_up_t zof_prj_up;

ZOF_C_END

#endif
