// Displays, input devices and backlights of Linux as their files, and the light of a display.
#include <dirent.h>
#include <fcntl.h>
#include <libdrm/drm.h>
#include <limits.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <SDL.h>
#include <SDL_syswm.h>

#include "drv/zof_drv_device.h"
#include "port/host_linux_line.h"
#include "zof_lib/zof_stdio.h"
#include "zof_lib/zof_util.h"

enum { LIGHTS_MAX = 16, IDS_MAX = 32, LEVEL_FULL = 255 };

// Files -----------------------------------------------------------------------------------------------------------
static constexpr struct {
    bool sys;           // below /sys, otherwise below /dev
    const char *folder; // of its entries
    const char *prefix; // of their names
    const char *file;   // in the entry
    int mode;           // how a program opens it
} kinds[] = {
    {false, "/dri/", "card", "", R_OK | W_OK},
    {false, "/input/", "event", "", R_OK},
    {true, "/class/backlight/", "", "/brightness", W_OK},
};
static_assert(sizeof(kinds) / sizeof(kinds[0]) == ZOF_DEVICE_KINDS);

static bool device_describe(zof_device_e kind, const char *folder, const char *name, zof_device_t *out) {
    *out = {};
    struct stat st;
    const int length = snprintf(out->path, sizeof(out->path), "%s%s%s", folder, name, kinds[kind].file);
    if (length < 0 || (size_t)length >= sizeof(out->path) || stat(out->path, &st) != 0) {
        return false;
    }
    zof_uart_info_t owner = {};
    host_port_group(&st, &owner);
    zof_text_join(out->group, sizeof(out->group), owner.group, nullptr, nullptr);
    out->usable = access(out->path, kinds[kind].mode) == 0;
    return true;
}

// A display can have several backlights. The firmware's and the platform's know the hardware better than a raw register
// of the graphics processor, so the kernel asks for this order.
static int light_rank(const char *brightness) {
    char path[PATH_MAX], type[16];
    snprintf(path, sizeof(path), "%.*s/type", (int)zof_path_parent(brightness), brightness);
    if (!host_line_read(path, type, sizeof(type))) {
        return 3;
    }
    return strcmp(type, "firmware") == 0 ? 0 : strcmp(type, "platform") == 0 ? 1 : 2;
}

static int light_order(const void *a, const void *b) {
    const auto *left = (const zof_device_t *)a, *right = (const zof_device_t *)b;
    const int rank = light_rank(left->path) - light_rank(right->path);
    return rank ? rank : strcmp(left->path, right->path);
}

u32 zof_device_list(zof_device_e kind, zof_device_t *out, u32 most) {
    if (kind >= ZOF_DEVICE_KINDS) {
        return 0;
    }
    char folder[PATH_MAX];
    snprintf(folder, sizeof(folder), "%s%s", kinds[kind].sys ? host_port_sys() : host_port_dev(), kinds[kind].folder);
    dirent **names;
    const int found = scandir(folder, &names, nullptr, versionsort);
    u32 count = 0;
    for (int i = 0; i < found; i++) {
        const char *name = names[i]->d_name;
        const bool wanted = name[0] != '.' && strncmp(name, kinds[kind].prefix, strlen(kinds[kind].prefix)) == 0;
        count += wanted && count < most && device_describe(kind, folder, name, &out[count]) ? 1 : 0;
        free(names[i]);
    }
    if (found >= 0) {
        free(names);
    }
    if (kind == ZOF_DEVICE_LIGHT && count) {
        qsort(out, count, sizeof(*out), light_order);
    }
    return count;
}

// The light of a display ------------------------------------------------------------------------------------------
static struct {
    char path[192]; // of its brightness; empty without a backlight
    u32 most;
} light;

zof_bool zof_host_light_find(void) {
    zof_device_t lights[LIGHTS_MAX];
    light = {};
    const u32 count = zof_device_list(ZOF_DEVICE_LIGHT, lights, LIGHTS_MAX);
    for (u32 i = 0; i < count; i++) {
        char path[PATH_MAX], text[16];
        snprintf(path, sizeof(path), "%.*s/max_brightness", (int)zof_path_parent(lights[i].path), lights[i].path);
        const u32 most = host_line_read(path, text, sizeof(text)) ? (u32)strtoul(text, nullptr, 10) : 0;
        if (lights[i].usable && most) {
            zof_text_join(light.path, sizeof(light.path), lights[i].path, nullptr, nullptr);
            light.most = most;
            return ZOF_TRUE;
        }
    }
    return ZOF_FALSE;
}

s32 zof_host_light_set(u8 level) {
    FILE *f = light.path[0] ? fopen(light.path, "we") : nullptr;
    if (!f) {
        return -1;
    }
    const u32 value = (u32)(((u64)light.most * level + LEVEL_FULL / 2) / LEVEL_FULL);
    const bool printed = fprintf(f, "%u\n", level && !value ? 1 : value) > 0;
    return fclose(f) == 0 && printed ? 0 : -1;
}

// Returns the id of the connector's property "DPMS", 0 if it has none.
static u32 power_property(int drm, u32 connector) {
    u32 ids[IDS_MAX];
    u64 values[IDS_MAX];
    drm_mode_obj_get_properties list = {(uintptr_t)ids, (uintptr_t)values, IDS_MAX, connector,
                                        DRM_MODE_OBJECT_CONNECTOR};
    if (ioctl(drm, DRM_IOCTL_MODE_OBJ_GETPROPERTIES, &list) != 0 || list.count_props > IDS_MAX) {
        return 0;
    }
    for (u32 i = 0; i < list.count_props; i++) {
        drm_mode_get_property property = {.prop_id = ids[i]};
        if (ioctl(drm, DRM_IOCTL_MODE_GETPROPERTY, &property) == 0 && strcmp(property.name, "DPMS") == 0) {
            return ids[i];
        }
    }
    return 0;
}

// Returns the descriptor of the window's DRM device, which SDL owns; -1 if the window is on a desktop.
static int window_drm(SDL_Window *window) {
    SDL_SysWMinfo info = {};
    SDL_VERSION(&info.version);
    return SDL_GetWindowWMInfo(window, &info) && info.subsystem == SDL_SYSWM_KMSDRM ? info.info.kmsdrm.drm_fd : -1;
}

s32 zof_host_display_power(SDL_Window *window, zof_bool on) {
    const int drm = window_drm(window);
    u32 connectors[IDS_MAX];
    drm_mode_card_res card = {};
    card.connector_id_ptr = (uintptr_t)connectors;
    card.count_connectors = IDS_MAX;
    s32 result = -1;
    if (ioctl(drm, DRM_IOCTL_MODE_GETRESOURCES, &card) != 0 || card.count_connectors > IDS_MAX) {
        return -1;
    }
    for (u32 i = 0; i < card.count_connectors; i++) {
        drm_mode_connector_set_property power = {on ? 0u : 3u, power_property(drm, connectors[i]), connectors[i]};
        if (power.prop_id && ioctl(drm, DRM_IOCTL_MODE_SETPROPERTY, &power) == 0) {
            result = 0;
        }
    }
    return result;
}
