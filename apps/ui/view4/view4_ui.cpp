// View 4: settings owned by the board. A change takes effect immediately and is sent; the board may overwrite it at any
// time.
#include <stdio.h>

#include "bench_ids.h"
#include "bench_look.h"
#include "hardware/uart/zof_hw_uart.h"
#include "ui/view_wiring.h"
#include "zof_main.h"

u8 g_bright_guard; // set while the program itself moves the slider

static para_t *view4(u32 id) {
    return zof_ctrl_get_form_id(ZOF_VIEW4_ID, id);
}

void boot_state_paint(u8 last_used) {
    zof_label_set_txt_color(view4(VIEW4_LABEL8_ID), last_used ? COLOR_GREY : COLOR_WHITE);
    zof_label_set_txt_color(view4(VIEW4_LABEL9_ID), last_used ? COLOR_WHITE : COLOR_GREY);
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

enum { OPTION_CLICK_AREA = 12 };

template <u8 LAST_USED> static void option_event(zof_ctrl_t *, zof_event_e event) {
    if (event == ZOF_EVENT_CLICKED) {
        view4_set_boot_state(LAST_USED);
    }
}

static void auto_arm_event(zof_ctrl_t *ctrl, zof_event_e event) {
    if (event == ZOF_EVENT_VALUE_CHANGED) {
        view4_set_autoarm((u8)zof_sw_get_state(ctrl));
    }
}

static void bright_event(zof_ctrl_t *ctrl, zof_event_e event) {
    if (event == ZOF_EVENT_VALUE_CHANGED) {
        view4_set_bright((u8)zof_slider_get_value(ctrl));
    }
}

static constexpr auto view_ctrls_fun_t = view_rows<23>({
    {VIEW4_LABEL8_ID, option_event<0>},
    {VIEW4_LABEL9_ID, option_event<1>},
    {VIEW4_SW0_ID, auto_arm_event},
    {VIEW4_LABEL11_ID, tab_event<ZOF_VIEW1_ID>},
    {VIEW4_LABEL12_ID, tab_event<ZOF_VIEW2_ID>},
    {VIEW4_LABEL13_ID, tab_event<ZOF_VIEW3_ID>},
    {VIEW4_SLIDER0_ID, bright_event},
});

void view4_init(void) {
    zof_view_create(ZOF_VIEW4_ID, view_ctrls_fun_t.data(), view_ctrls_fun_t.size());
}

void view4_entry(void) {
    view4_apply_settings();
    zof_ctrl_set_ext_click_area(view4(VIEW4_LABEL8_ID), OPTION_CLICK_AREA);
    zof_ctrl_set_ext_click_area(view4(VIEW4_LABEL9_ID), OPTION_CLICK_AREA);
    view4_request_settings();
}

void view4_exit(void) {
}
