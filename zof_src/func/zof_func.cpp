// Power-on: a project that is too large for the panel is refused on the screen, and diagnostic values are shown over
// the views when the project asks for them.
#include "func/zof_func.h"

#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "drv/zof_drv.h"
#include "func/zof_func_stdby.h"
#include "lvgl.h"
#include "project/path/zof_res.h"
#include "project/read/zof_fault.h"
#include "project/zof_prj.h"
#include "project/zof_ver.h"
#include "zof_lib/zof_stdio.h"
#include "zof_lib/zof_task.h"

enum { OVERLAY_PERIOD_MS = 500, OVERLAY_TEXT = 4000, NUMBER_TEXT = 16 };

// The overlay; null until its task has run once.
static lv_obj_t *cont;
static lv_obj_t *label1;
static lv_style_t style;

// The frame rate: refreshes divided by the time of the runs that made one: what the panel can do, not what it did.
static u32 time_sum;
static u32 refr_cnt;
static u32 last_refr_cnt;

// The overlay's text while it is built; a line that does not fit is left out.
struct text_buf {
    char text[OVERLAY_TEXT];
    size_t used;
};

static void text_add(text_buf *buf, const char *fmt, ...) ZOF_PRINTF_LIKE(2, 3);

static void text_add(text_buf *buf, const char *fmt, ...) {
    const size_t room = sizeof(buf->text) - buf->used;
    va_list args;
    va_start(args, fmt);
    const int n = vsnprintf(buf->text + buf->used, room, fmt, args);
    va_end(args);
    if (n >= 0 && (size_t)n < room) {
        buf->used += (size_t)n;
    } else {
        buf->text[buf->used] = 0;
    }
}

void _memsize_format(s32 value, char *out) {
    if (!out) {
        return;
    }
    const s64 size = llabs((s64)value);
    const char *sign = value < 0 ? "-" : "";
    const s32 millions = (s32)(size / 1000000);
    const s32 thousands = (s32)(size / 1000 % 1000);
    const s32 units = (s32)(size % 1000);
    if (millions) {
        snprintf(out, NUMBER_TEXT, "%s%d,%03d,%03d", sign, millions, thousands, units);
    } else if (thousands) {
        snprintf(out, NUMBER_TEXT, "%s%d,%03d", sign, thousands, units);
    } else {
        snprintf(out, NUMBER_TEXT, "%s%d", sign, units);
    }
}

void zof_monitor_refr_buy_time(u32 ms) {
    if (refr_cnt != last_refr_cnt) {
        time_sum += ms;
        last_refr_cnt = refr_cnt;
    }
}

static void monitor_cb(lv_disp_drv_t *, uint32_t, uint32_t) {
    refr_cnt++;
}

static u16 show_en() {
    const zof_prj_t *prj = zof_prj_get_cur();
    return prj && prj->attr ? prj->attr->show_en : 0;
}

static void overlay_build(u16 show) {
    lv_style_init(&style);
    lv_style_set_bg_opa(&style, 90);
    lv_style_set_bg_color(&style, lv_color_hex(0xFF808080));
    lv_style_set_border_width(&style, 0);
    lv_style_set_radius(&style, 0);
    cont = lv_obj_create(lv_scr_act());
    lv_obj_set_pos(cont, 0, 0);
    if (show & ZOF_SHOW_BOTTOM) {
        lv_obj_align(cont, LV_ALIGN_BOTTOM_MID, 0, 0);
    }
    lv_obj_set_size(cont, LV_SIZE_CONTENT, LV_SIZE_CONTENT);
    lv_obj_clear_flag(cont, LV_OBJ_FLAG_CLICKABLE);
    lv_obj_set_scrollbar_mode(cont, LV_SCROLLBAR_MODE_OFF);
    lv_obj_add_style(cont, &style, LV_PART_MAIN);
    label1 = lv_label_create(cont);
    lv_label_set_long_mode(label1, LV_LABEL_LONG_WRAP);
    lv_label_set_text(label1, "");
    lv_obj_set_style_text_color(label1, lv_color_white(), LV_PART_MAIN);
    lv_disp_t *disp = lv_obj_get_disp(cont);
    if (show & ZOF_SHOW_FPS) {
        disp->driver->monitor_cb = monitor_cb;
    }
}

static void add_versions(text_buf *buf, u16 show) {
    const char *fw = show & ZOF_SHOW_FW_VER ? zof_fw_get_version() : nullptr;
    if (fw) {
        text_add(buf, "fw ver: %s\n", fw);
    }
    if (show & ZOF_SHOW_SDK_VER) {
        text_add(buf, "sdk ver: %s\n", zof_sdk_get_version());
    }
    const char *app = show & ZOF_SHOW_APP_VER ? zof_user_app_version() : nullptr;
    const char *made = zof_user_app_comp_time();
    if (app && made) {
        text_add(buf, "app ver: %s %s\n", app, made);
    }
}

static void add_fps(text_buf *buf) {
    const s32 fps = time_sum ? (s32)((u64)refr_cnt * 1000 / time_sum) : 0;
    zof_printf("\n time_sum=%d refr_cnt=%d fps = %d \n", (s32)(time_sum ? time_sum : 1), (s32)refr_cnt, fps);
    time_sum = 0;
    refr_cnt = 0;
    last_refr_cnt = 0;
    text_add(buf, "fps: %d \n", fps);
}

static void add_memory(text_buf *buf) {
    char number[NUMBER_TEXT];
    const s32 used = (s32)zof_mem_get_used();
    _memsize_format(used, number);
    text_add(buf, "usedmem: %s B\n", number);
    zof_printf(" usedmem = %ld \n", (long)used);
    const s32 left = zof_mem_get_free();
    _memsize_format(left, number);
    text_add(buf, "sim freemem: %s B\n", number);
    zof_printf(" freemem = %ld \n", (long)left);
}

static void zof_func_show_prjpara_task_cb(zof_task_t *) {
    const u16 show = show_en();
    if (!cont) {
        overlay_build(show);
        return;
    }
    static text_buf buf;
    buf.used = 0;
    buf.text[0] = 0;
    add_versions(&buf, show);
    if (show & ZOF_SHOW_FPS) {
        add_fps(&buf);
    }
    if (show & ZOF_SHOW_MEM) {
        add_memory(&buf);
    }
    lv_label_set_text(label1, buf.text);
    lv_obj_set_parent(cont, lv_scr_act()); // the screen changes with the view; this keeps it on top
}

void zof_func_show_prj_para(void) {
    if (show_en() & ~ZOF_SHOW_BOTTOM) {
        zof_task_create(zof_func_show_prjpara_task_cb, OVERLAY_PERIOD_MS, nullptr);
    }
}

// No other thread runs yet, so the lock is not taken.
[[noreturn]] static void refuse_size() {
    u32 w = 0;
    u32 h = 0;
    zof_drv_get_wh_max_value(&w, &h);
    char text[96];
    snprintf(text, sizeof(text), "The maximum width and height are %dx%d", (s32)w, (s32)h);
    const zof_prj_attr_t *prj = zof_prj_get_cur()->attr;
    const char *key = (u32)prj->width > w ? "width" : "height";
    zof_fault_of_key(zof_prj_file_path(), key, "%d by %d pixels are too many. %s", prj->width, prj->height, text);
    lv_obj_t *label = lv_label_create(lv_scr_act());
    lv_label_set_text(label, text);
    lv_obj_center(label);
    for (;;) {
        lv_timer_handler();
        zof_delay(10);
    }
}

s32 zof_func_check_wh_vaild(void) {
    const s32 state = zof_prj_check_wh_avlid();
    if (state == 1) {
        refuse_size();
    }
    return state;
}

void zof_func_pwon(void) {
    zof_func_show_prj_para();
    zof_func_check_wh_vaild();
    const zof_prj_t *prj = zof_prj_get_cur();
    if (prj && prj->attr) {
        zof_func_stdby_set_param(&prj->attr->func_t.standby_t);
    }
}
