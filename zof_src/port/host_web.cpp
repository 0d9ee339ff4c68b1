// A page in a browser. Files are in memory; the page writes those to keep to the browser's store when a file or a
// folder is synchronised. Every thread is a worker, also main, which may therefore block.
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

// The program has no file; its resources are in the root folder.
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

static void store_ask() {
    MAIN_THREAD_ASYNC_EM_ASM({
        if (Module.zofKeep) {
            Module.zofKeep();
        }
    });
}

s32 zof_host_file_sync(FILE *f) {
    const s32 result = fflush(f) == 0 ? 0 : -1;
    store_ask();
    return result;
}

void zof_host_folder_sync(const char *path) {
    (void)path;
    store_ask();
}

zof_bool zof_host_scales(void) {
    return ZOF_TRUE;
}

// SDL's listeners run on the page's main thread and queue their calls for the thread that opened the window.
void zof_host_events_take(void) {
    emscripten_current_thread_process_queued_calls();
}

const char *zof_file_error(void) {
    static thread_local char text[96];
    return strerror_r(errno, text, sizeof(text)) == 0 ? text : "";
}
