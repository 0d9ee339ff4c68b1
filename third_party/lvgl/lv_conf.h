// The configuration of LVGL. Options not set here have LVGL's defaults (src/lv_conf_internal.h).
#ifndef LV_CONF_H
#define LV_CONF_H

#include <stdint.h>

// 32-bit pixels go to the window unchanged; 32-bit coordinates because a project may be wider than 8191 pixels.
#define LV_COLOR_DEPTH 32
#define LV_USE_LARGE_COORD 1

// Opacity and zoom of whole objects are drawn through layers with alpha, which need this option. The display itself is
// opaque, so win_disp_init sets an opaque background.
#define LV_COLOR_SCREEN_TRANSP 1

// Memory is counted together with the runtime's; time is the runtime's, so tests can set the clock.
#define LV_MEM_CUSTOM 1
#define LV_MEM_CUSTOM_INCLUDE "zof_lib/zof_stdio.h"
#define LV_MEM_CUSTOM_ALLOC zof_lv_malloc_must
#define LV_MEM_CUSTOM_FREE zof_lv_free
#define LV_MEM_CUSTOM_REALLOC zof_lv_realloc_must
#define LV_MEMCPY_MEMSET_STD 1
#define LV_MEM_BUF_MAX_NUM 64
#define LV_TICK_CUSTOM 1
#define LV_TICK_CUSTOM_INCLUDE "drv/zof_drv.h"
#define LV_TICK_CUSTOM_SYS_TIME_EXPR (zof_sys_time_ms())

// 60 frames per second. The input device keeps LVGL's default period.
#define LV_DISP_DEF_REFR_PERIOD 16

// A desktop has enough memory for whole layers and shadows in one piece.
#define LV_LAYER_SIMPLE_BUF_SIZE (1024 * 1024)
#define LV_LAYER_SIMPLE_FALLBACK_BUF_SIZE (64 * 1024)
#define LV_SHADOW_CACHE_SIZE 64
#define LV_CIRCLE_CACHE_SIZE 16
#define LV_IMG_CACHE_DEF_SIZE 16
#define LV_DISP_ROT_MAX_BUF (1024 * 1024)

// A failed assertion of LVGL would loop forever; callers check their arguments instead.
#define LV_USE_LOG 0
#define LV_USE_ASSERT_NULL 0
#define LV_USE_ASSERT_MALLOC 0

#define LV_SPRINTF_CUSTOM 1
#define LV_SPRINTF_INCLUDE <stdio.h>
#define lv_snprintf snprintf
#define lv_vsnprintf vsnprintf

#define LV_FONT_MONTSERRAT_14 1
#define LV_FONT_MONTSERRAT_16 1
#define LV_FONT_MONTSERRAT_48 1 // symbols of all sizes are made from it
#define LV_FONT_DEFAULT &lv_font_montserrat_14

// One file driver for all files; paths are resolved through the drive letters of the project first.
#define LV_USE_FS_STDIO 1
#define LV_FS_STDIO_LETTER 'L'
#define LV_FS_STDIO_PATH ""
#define LV_FS_STDIO_CACHE_SIZE 0

#define LV_USE_PNG 1
#define LV_USE_SJPG 1
#define LV_USE_GIF 1
#define LV_USE_QRCODE 1

// A face is opened per file and size; with FreeType's default limit of 2, every change of font would open its file
// again.
#define LV_USE_FREETYPE 1
#define LV_FREETYPE_CACHE_SIZE (4 * 1024 * 1024)
#define LV_FREETYPE_SBIT_CACHE 0
#define LV_FREETYPE_CACHE_FT_FACES 64
#define LV_FREETYPE_CACHE_FT_SIZES 64

// The runtime has its own widget of this name.
#define LV_USE_ANIMIMG 0

// In nine-key mode all keyboards of the program would share one map.
#define LV_USE_IME_PINYIN 1
#define LV_IME_PINYIN_USE_K9_MODE 0

#define LV_BUILD_EXAMPLES 0

#endif
