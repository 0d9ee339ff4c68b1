// Linux: signals, shared libraries and the desktop's size. The serial line is in host_linux_serial.cpp.
#include <dlfcn.h>
#include <signal.h>
#include <stdio.h>

#include <SDL.h>

#include "port/host_linux_line.h"
#include "port/zof_host.h"
#include "zof_lib/zof_stdio.h"

// Makes a write to a pipe without a reader, or beyond the largest size of a file, fail instead of ending the process.
void zof_system_start(void) {
    signal(SIGPIPE, SIG_IGN);
    signal(SIGXFSZ, SIG_IGN);
}

const char *zof_system_get_name(void) {
    return "linux";
}

void *zof_host_library_open(const char *name, s32 major) {
    char file[64];
    snprintf(file, sizeof(file), "lib%s.so.%d", name, major);
    return dlopen(file, RTLD_NOW);
}

void *zof_host_library_symbol(void *library, const char *name) {
    return dlsym(library, name);
}

zof_bool zof_host_scales(void) {
    return ZOF_FALSE;
}

void zof_host_events_take(void) {
}

void zof_host_screen_size(s32 *w, s32 *h) {
    SDL_Rect bounds = {};
    const bool known = SDL_GetDisplayBounds(0, &bounds) == 0;
    *w = known ? bounds.w : 0;
    *h = known ? bounds.h : 0;
}
