// Arguments of actions that are words of their own.
#include <cstdio>
#include <cstring>

#include "hmi/zof_hmi_action.h"

const char *const zof_action_slides[] = {"left", "right", "up", "down", "fade", nullptr};

s32 zof_action_slide(const char *name) {
    for (s32 i = 0; name && zof_action_slides[i]; i++) {
        if (strcmp(zof_action_slides[i], name) == 0) {
            return i;
        }
    }
    return -1;
}

const char *zof_action_field(const char *argument, char *name, u32 size) {
    const char *dot = argument ? strrchr(argument, '.') : nullptr;
    if (!dot || (strcmp(dot, ".txt") != 0 && strcmp(dot, ".value") != 0)) {
        return nullptr;
    }
    snprintf(name, size, "%.*s", (int)(dot - argument), argument);
    return dot + 1;
}
