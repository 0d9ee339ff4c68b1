// What the control layer needs of the host protocol above it. Filled in by zof_src/zof_wiring.cpp.
#ifndef ZOF_CTRL_UP_H
#define ZOF_CTRL_UP_H

#include "project/base/zof_para.h"

ZOF_C_BEGIN

typedef struct {
    s32 (*ctrl_all_event)(u32 view_id, u32 ctrl_id, u32 event); // touch tones and reports
    zof_bool (*ctrl_watched)(const para_t *record);             // whether the next one is called for this control
    void (*ctrl_happened)(para_t *record, u32 event);           // for hosts; may delete the control
} zof_ctrl_up_t;

extern const zof_ctrl_up_t zof_ctrl_up;

// With `on` nothing is reported about handles that functions cannot use: a host is answered instead. Returns the former
// setting. Graphics thread.
zof_bool zof_refuse_quiet(zof_bool on);

ZOF_C_END

#endif
