// A lock held for a scope. Internal: C++ only.
#ifndef ZOF_LOCK_H
#define ZOF_LOCK_H

#include "drv/zof_drv.h"

struct zof_lock {
    zof_mutex_t mutex;
    explicit zof_lock(zof_mutex_t m) : mutex(m) {
        zof_mutex_lock(mutex);
    }
    ~zof_lock() {
        zof_mutex_unlock(mutex);
    }
    zof_lock(const zof_lock &) = delete;
    zof_lock &operator=(const zof_lock &) = delete;
};

#endif
