// The folder copy on a thread of its own. The thread owns the paths while it runs; the lock guards the counts alone and
// is kept for the next copy, so that no reader uses a lock that is being destroyed.
#include <atomic>

#include "drv/zof_drv.h"
#include "drv/zof_lock.h"
#include "func/zof_dir_copy.h"
#include "project/path/zof_res.h"
#include "zof_lib/zof_stdio.h"
#include "zof_lib/zof_util.h"

enum { STACK = 65536, PRIORITY = 2 };

static struct {
    std::atomic<bool> running;
    char *dst, *src;
    zof_bool remove;
    zof_mutex_t mutex; // created before the first thread
    u32 suc, fail;
} copy;

static void zof_dir_copy_async_fun(const char *, u8 ok) {
    zof_lock counts(copy.mutex);
    copy.suc -= ok == ZOF_COPY_UNDONE;
    (ok == ZOF_COPY_DONE ? copy.suc : copy.fail)++;
}

static void paths_free() {
    zof_free(copy.dst);
    zof_free(copy.src);
    copy.dst = nullptr;
    copy.src = nullptr;
}

s32 zof_dir_copy_async(const char *dst, const char *src, zof_bool remove) {
    if (!src || copy.running) {
        return -1;
    }
    paths_free();
    copy.dst = zof_text_copy(dst);
    copy.src = zof_text_copy(src);
    copy.remove = remove;
    return 0;
}

static void copy_thread(void *) {
    zof_dir_copyfile(copy.dst, copy.src, copy.remove);
    zof_dir_set_schedule_cbfun(nullptr);
    paths_free();
    copy.running = false;
}

s32 zof_dir_copy_async_start(void) {
    if (copy.running || !copy.dst || !copy.src) {
        return -1;
    }
    if (!copy.mutex) {
        copy.mutex = zof_mutex_create();
    }
    copy.suc = 0;
    copy.fail = 0;
    zof_dir_set_schedule_cbfun(zof_dir_copy_async_fun);
    copy.running = true;
    zof_thread_t *thread = zof_thread_create("zof copy", copy_thread, nullptr, STACK, PRIORITY);
    if (!thread) {
        zof_dir_set_schedule_cbfun(nullptr);
        copy.running = false;
        return -1;
    }
    zof_thread_del(thread); // it ends by itself
    return 0;
}

s32 zof_dir_copy_async_statue(void) {
    return copy.running ? 0 : -1;
}

void zof_dir_copy_get_progress(u32 *suc, u32 *fail) {
    zof_lock counts(copy.mutex);
    if (suc) {
        *suc = copy.suc;
    }
    if (fail) {
        *fail = copy.fail;
    }
}
