// Keeps what is deleted within a scope in memory until the scope ends: deleting a control, or leaving a view, in the
// event of a call that is still under way must not pull the object, record or attributes from under that call.
// Internal, C++ only. Graphics thread, or under dis_mutex.
#ifndef ZOF_HOLD_IN_H
#define ZOF_HOLD_IN_H

#include "lvgl.h"

struct zof_hold {
    zof_hold() {
        lv_obj_del_hold();
    }
    ~zof_hold() {
        lv_obj_del_release();
    }
    zof_hold(const zof_hold &) = delete;
    zof_hold &operator=(const zof_hold &) = delete;
};

#endif
