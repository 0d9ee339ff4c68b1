// System commands (type B0). They run on the receive thread without the graphics lock: what they read is a copy, and
// changes to a project, a view or a timer are left to the graphics thread. Their acknowledgement is 0 for success and 1
// for failure; control commands do it the other way round.
#include <string.h>

#include "drv/zof_drv.h"
#include "drv/zof_drv_disp.h"
#include "drv/zof_drv_rtc.h"
#include "func/zof_func_stdby.h"
#include "hmi/zof_hmi_cmd.h"
#include "hmi/zof_hmi_sync.h"
#include "project/look/zof_lang.h"
#include "zof_lib/zof_stdio.h"

enum { POWER_ON = 0xAABB, REBOOT = 0xCCDD, REBOOT_WAIT_MS = 500, LANGUAGE_NAME_MAX = 63 };

static void acknowledge(void *reply, s32 result) {
    *(s8 *)reply = result == 0 ? 0 : 1;
}

static s32 version_get(void *, void *req, void *value) {
    const u8 selector = *(u8 *)req;
    const zof_hmi_seen_t seen = zof_hmi_sync_seen();
    const char *text = selector < ZOF_HMI_VERSION_COUNT ? seen.version[selector] : nullptr;
    *(const char **)value = text ? text : "";
    return ZOF_HMI_DONE;
}

static s32 reboot_get(void *, void *, void *value) {
    *(u16 *)value = POWER_ON;
    return ZOF_HMI_DONE;
}

// Two calls, so that the host gets its acknowledgement before the panel reboots.
static s32 reboot_set(void *, void *, void *value, void *reply) {
    u16 *word = (u16 *)value;
    if (*word == REBOOT) {
        acknowledge(reply, 0);
        *word = POWER_ON;
        return ZOF_HMI_AGAIN;
    }
    if (*word != POWER_ON) {
        return *word;
    }
    zof_printf("hmi cmd reboot set system \n\n");
    zof_delay(REBOOT_WAIT_MS);
    zof_reboot();
    return ZOF_HMI_SILENT; // if it returns, nothing happened that could be acknowledged
}

static s32 bright_set(void *, void *, void *value, void *reply) {
    acknowledge(reply, zof_disp_set_bright(*(u8 *)value));
    return ZOF_HMI_DONE;
}

static s32 tone_set(void *, void *, void *value, void *reply) {
    const auto *series = (const zof_hmi_u8u16u16_t *)value;
    zof_hmi_sync_tone(series->a, series->b, series->c);
    acknowledge(reply, 0);
    return ZOF_HMI_DONE;
}

static s32 touch_config_get(void *, void *, void *value) {
    const zof_hmi_seen_t seen = zof_hmi_sync_seen();
    *(u8 *)value = seen.th_en;
    return seen.has_project ? ZOF_HMI_DONE : ZOF_HMI_FAIL;
}

static s32 touch_config_set(void *, void *, void *value, void *reply) {
    const bool project = zof_hmi_sync_seen().has_project;
    if (project) {
        zof_hmi_sync_th_en(*(u8 *)value);
    }
    acknowledge(reply, project ? 0 : -1);
    return ZOF_HMI_DONE;
}

static s32 touch_get(void *, void *, void *value) {
    const zof_hmi_seen_t seen = zof_hmi_sync_seen();
    *(zof_touch_t *)value = seen.touch;
    return seen.has_touch ? ZOF_HMI_DONE : ZOF_HMI_FAIL;
}

static s32 rtc_get(void *, void *, void *value) {
    return zof_rtc_get_time((zof_rtc_time_t *)value) == 0 ? ZOF_HMI_DONE : ZOF_HMI_FAIL;
}

static s32 rtc_set(void *, void *, void *value, void *reply) {
    acknowledge(reply, zof_rtc_set_time((const zof_rtc_time_t *)value));
    return ZOF_HMI_DONE;
}

static s32 func_stdby_get(void *, void *, void *value) {
    const zof_hmi_seen_t seen = zof_hmi_sync_seen();
    *(zof_func_standby_t *)value = seen.standby;
    return seen.has_project ? ZOF_HMI_DONE : ZOF_HMI_FAIL;
}

static s32 func_stdby_set(void *, void *, void *value, void *reply) {
    const bool project = zof_hmi_sync_seen().has_project;
    if (project) {
        zof_hmi_sync_standby((const zof_func_standby_t *)value);
    }
    acknowledge(reply, project ? 0 : -1);
    return ZOF_HMI_DONE;
}

static s32 func_stdby_state_get(void *, void *, void *value) {
    *(u8 *)value = (u8)zof_hmi_sync_seen().standby_state;
    return ZOF_HMI_DONE;
}

static s32 func_stdby_state_set(void *, void *, void *value, void *reply) {
    const auto go = [](void *state) { return (s32)zof_func_stdby_set_statue(*(u8 *)state); };
    acknowledge(reply, zof_hmi_sync_call(go, value));
    return ZOF_HMI_DONE;
}

// A language is a file of the project's own folder: a name from the wire must not lead out of it.
static s32 language_set(void *, void *, void *value, void *reply) {
    const char *name = *(const char **)value;
    const size_t length = strlen(name);
    const bool plain = length > 0 && length <= LANGUAGE_NAME_MAX && !strpbrk(name, "/\\:");
    const auto go = [](void *text) { return zof_lang_set((const char *)text); };
    acknowledge(reply, plain ? zof_hmi_sync_call(go, (void *)name) : -1);
    return ZOF_HMI_DONE;
}

// clang-format off
const zof_hmi_param_type_t zof_sys_params[ZOF_SYS_PARAM_COUNT] = {
    {.len = 1, .code = {0x00}, .name = "version",
     .help = "Version text: selector 0 application, 1 runtime, 2 firmware.",
     .req_names = "selector", .value_names = "text",
     .value = &zof_hmi_one_str_t_tbl, .rw = &zof_hmi_s8_s8_rw_t_tbl, .get_fun = version_get},
    {.len = 1, .code = {0x01}, .chooses = ZOF_HMI_ACTS, .name = "reboot",
     .help = "Reads 0xAABB; also sent at power-on. Writing 0xCCDD reboots.",
     .value_names = "word",
     .value = &zof_hmi_one_u16_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .get_fun = reboot_get, .set_fun = reboot_set},
    {.len = 1, .code = {0x02}, .name = "bright", .help = "Brightness of the display in percent.",
     .value_names = "percent",
     .value = &zof_hmi_one_u8_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .set_fun = bright_set},
    {.len = 1, .code = {0x03}, .chooses = ZOF_HMI_ACTS, .name = "tone",
     .help = "A series of tones; its tone time applies to touches too.",
     .value_names = "count pause_ms tone_ms",
     .value = &zof_hmi_param_u8u16u16_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .set_fun = tone_set},
    {.len = 2, .code = {0x04, 0x00}, .name = "touch_config",
     .help = "Touch flags: bit 0 pauses the panel, 1 tones on, 2 for raw touch, 3 at release, 4 report press, 5 "
             "release, 6 hold, 7 calibration taps.",
     .value_names = "flags",
     .value = &zof_hmi_one_u8_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .get_fun = touch_config_get,
     .set_fun = touch_config_set},
    {.len = 2, .code = {0x04, 0x01}, .name = "touch",
     .help = "The current touch: state 0 released, 1 pressed, 2 held, and its point. Also sent by the "
             "panel, as touch_config says.",
     .value_names = "state x y",
     .value = &zof_hmi_param_u8u16u16_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .get_fun = touch_get},
    {.len = 1, .code = {0x05}, .chooses = ZOF_HMI_ACTS, .name = "rtc", .help = "Date and time.",
     .value_names = "year month day hour minute second",
     .value = &zof_hmi_param_u16u8u8u8u8_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .get_fun = rtc_get, .set_fun = rtc_set},
    {.len = 2, .code = {0x06, 0x00}, .name = "standby",
     .help = "Standby: times in seconds, 0 for never; brightness in percent; views, 0 for none.",
     .value_names = "stdby_view stdby_time stdby_bright off_time off_bright on_bright on_view",
     .value = &zof_hmi_stdby_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .get_fun = func_stdby_get, .set_fun = func_stdby_set},
    {.len = 2, .code = {0x06, 0x01}, .chooses = ZOF_HMI_ACTS, .name = "standby_state",
     .help = "State of standby: 0 normal, 1 dimmed, 2 off.",
     .value_names = "state",
     .value = &zof_hmi_one_u8_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .get_fun = func_stdby_state_get,
     .set_fun = func_stdby_state_set},
    {.len = 2, .code = {0x07, 0x00}, .name = "language",
     .help = "Makes a language of the project the current one and updates all texts.",
     .value_names = "name",
     .value = &zof_hmi_one_str_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .set_fun = language_set},
};
// clang-format on
