// A page in a browser: its files are in memory, and what is kept is written to the browser's store by the page, which
// is told when there is something new. Threads are workers; main is one, so it may wait.
#include <errno.h>
#include <stdlib.h>
#include <string.h>

#include <emscripten.h>
#include <emscripten/threading.h>

#include "port/zof_host.h"
#include "zof_lib/zof_stdio.h"

void zof_system_start(void) {
}

const char *zof_system_get_name(void) {
    return "web";
}

// Resources lie beside the program, which has no file of its own.
s32 zof_program_path(char *out, size_t size) {
    return snprintf(out, size, "/program") < (s32)size ? 0 : -1;
}

s32 zof_host_real_path(const char *path, char *out, size_t size) {
    char *real = realpath(path, nullptr);
    const bool fits = real && strlen(real) < size;
    if (fits) {
        memcpy(out, real, strlen(real) + 1);
    }
    free(real);
    return fits ? 0 : -1;
}

// Only one page writes to a store at a time, as far as can be known.
s32 zof_host_folder_lock(const char *path, char *holder, size_t size) {
    (void)path;
    (void)holder;
    (void)size;
    return -1;
}

void zof_folder_unlock(s32 lock) {
    (void)lock;
}

// No system call exchanges two names here.
s32 zof_host_exchange(const char *a, const char *b) {
    (void)a;
    (void)b;
    errno = ENOSYS;
    return -1;
}

void zof_host_folder_sync(const char *path) {
    (void)path;
    MAIN_THREAD_ASYNC_EM_ASM({ Module.zofKeep &&Module.zofKeep(); });
}

zof_bool zof_host_scales(void) {
    return ZOF_TRUE;
}

// SDL's listeners run on the page's main thread, and leave the events for the thread that has the window.
void zof_host_events_take(void) {
    emscripten_current_thread_process_queued_calls();
}

const char *zof_file_error(void) {
    static thread_local char text[96];
    return strerror_r(errno, text, sizeof(text)) == 0 ? text : "";
}
