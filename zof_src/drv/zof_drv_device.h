// The devices that a program needs without a desktop: displays, input devices and backlights. Implemented by the host;
// one that always has a desktop lists none. Any thread.
#ifndef ZOF_DRV_DEVICE_H
#define ZOF_DRV_DEVICE_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

typedef enum { ZOF_DEVICE_DISPLAY, ZOF_DEVICE_INPUT, ZOF_DEVICE_LIGHT, ZOF_DEVICE_KINDS } zof_device_e;

typedef struct {
    char path[192];  // the file that a program opens
    char group[32];  // whose members may use it; empty if no group may
    zof_bool usable; // by this process: a display or a backlight can be written, an input device can be read
} zof_device_t;

// Lists the devices of a kind by name, backlights in the order in which they are preferred. Returns how many of at most
// `most` were written to `out`.
u32 zof_device_list(zof_device_e kind, zof_device_t *out, u32 most);

ZOF_C_END

#endif
