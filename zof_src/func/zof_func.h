// What the runtime does for itself: the command line, and at power-on the size limit and the overlay of diagnostic
// values. Graphics thread only.
#ifndef ZOF_FUNC_H
#define ZOF_FUNC_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

// What the overlay shows: bits of the project's show_en.
enum {
    ZOF_SHOW_FW_VER = 1,
    ZOF_SHOW_SDK_VER = 2,
    ZOF_SHOW_APP_VER = 4,
    ZOF_SHOW_FPS = 8,
    ZOF_SHOW_MEM = 16,
    ZOF_SHOW_BOTTOM = 32, // at the bottom centre instead of the top left; alone it shows nothing
};

// Handles the build call `t <switch><stamp>`: argv[2] without its first two characters becomes "comp_time" in the
// project file at ../../res; all other keys stay. Prints only errors in that file, which then stays unchanged. Returns
// 0 if the process must end, whatever the result, and -1 if there are fewer than two arguments.
s32 zof_win_cmd(int argc, char **argv);

// Once, after the drivers and before the host link. Does not return for a project that is too large for the panel.
void zof_func_pwon(void);

// Starts the overlay if the project asks for it; its text appears after one second.
void zof_func_show_prj_para(void);

// Checks the size limit. Returns 0 when the project fits, -1 without a project; does not return when it is too large.
s32 zof_func_check_wh_vaild(void);

// LVGL reports here how many milliseconds a run of its timers took.
void zof_monitor_refr_buy_time(u32 ms);

// Formats a number with thousands separators, "-1,500"; `out` holds at least 16 bytes.
void _memsize_format(s32 value, char *out);

ZOF_C_END

#endif
