// Keeps everything deleted within a scope in memory until the scope ends. An event function may delete a control or
// leave a view while a call still uses the object, record or attributes.
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
