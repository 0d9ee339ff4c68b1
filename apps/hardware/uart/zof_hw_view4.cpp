// View 4: settings owned by the board. A change takes effect immediately and is sent; the board may overwrite it at any
// time.
#include <stdio.h>

#include "bench_ids.h"
#include "hardware/uart/zof_hw_uart.h"
#include "zof_main.h"

u8 g_bright_guard; // set while the program itself moves the slider

enum : zof_color_t { CHOSEN = 0xFFFFFFFF, NOT_CHOSEN = 0xFF98989F };

static para_t *view4(u32 id) {
    return zof_ctrl_get_form_id(ZOF_VIEW4_ID, id);
}

void boot_state_paint(u8 last_used) {
    zof_label_set_txt_color(view4(VIEW4_LABEL8_ID), last_used ? NOT_CHOSEN : CHOSEN);
    zof_label_set_txt_color(view4(VIEW4_LABEL9_ID), last_used ? CHOSEN : NOT_CHOSEN);
}

void bright_label(u8 pct) {
    char text[8];
    snprintf(text, sizeof(text), "%u%%", pct);
    zof_label_set_txt(view4(VIEW4_LABEL16_ID), text);
}

// The level never reaches 100: the highest step of the panel is reserved.
void bright_backlight(u8 pct) {
    zof_disp_set_bright((u8)(pct * 99 / 100));
}

void bright_slider(u8 pct) {
    g_bright_guard = 1;
    zof_slider_set_value(view4(VIEW4_SLIDER0_ID), pct);
    g_bright_guard = 0;
}

void view4_apply_settings(void) {
    boot_state_paint(g_v4_boot);
    zof_sw_set_state(view4(VIEW4_SW0_ID), g_v4_autoarm);
    const reg_range_t &range = reg_find(REG_BRIGHT)->range;
    zof_slider_set_range(view4(VIEW4_SLIDER0_ID), (s16)range.low, (s16)range.high);
    bright_slider(g_v4_bright);
    bright_label(g_v4_bright);
}

void view4_request_settings(void) {
    zof_reg_report(REG_SETTINGS_REQUEST, 1);
}

void view4_set_boot_state(u8 last_used) {
    g_v4_boot = last_used;
    boot_state_paint(last_used);
    zof_reg_report(REG_BOOT_STATE, last_used);
}

void view4_set_autoarm(u8 on) {
    g_v4_autoarm = on;
    zof_reg_report(REG_AUTO_ARM, on);
}

void view4_set_bright(u8 pct) {
    if (g_bright_guard) {
        return;
    }
    g_v4_bright = (u8)reg_value(REG_BRIGHT, pct);
    bright_backlight(g_v4_bright);
    bright_label(g_v4_bright);
    zof_reg_report(REG_BRIGHT, g_v4_bright);
}
