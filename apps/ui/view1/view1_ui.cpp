// View 1: the output's toggle and the session. The program never decides the state of the output: a click requests the
// opposite of the last reported state, and the display changes when the board answers.
#include "bench_ids.h"
#include "hardware/uart/zof_hw_uart.h"
#include "ui/view_wiring.h"
#include "zof_main.h"

u8 g_arm_pending;

static para_t *view1(u32 id) {
    return zof_ctrl_get_form_id(ZOF_VIEW1_ID, id);
}

void view1_set_output_btn(u8 on) {
    para_t *toggle = view1(VIEW1_LABEL7_ID);
    zof_label_set_txt(toggle, panel_text(on ? TEXT_TURN_OFF : TEXT_TURN_ON));
    zof_ctrl_style_set_bg_color(toggle, on ? COLOR_OFF : COLOR_ON, 0);
    zof_label_set_txt_color(toggle, COLOR_WHITE);
}

void view1_sync_armed(void) {
    g_arm_pending = 0;
    view1_set_output_btn(g_out_on);
}

void view1_toggle_output(void) {
    zof_reg_report(REG_OUT_REQ, g_out_on == 0 ? 1 : 0);
}

void view1_reset_press(u8 down) {
    zof_ctrl_set_hidden(view1(VIEW1_LABEL21_ID), down == 0);
}

void view1_reset_session(void) {
    zof_reg_report(REG_SESS_RESET, 1);
}

static void to_rails_event(zof_ctrl_t *ctrl, zof_event_e event) {
    link_event(ctrl, event, ZOF_VIEW2_ID, ZOF_SCR_LOAD_ANIM_MOVE_LEFT);
}

// The colour follows press and release; the reset happens at the click, which comes after the release.
static void reset_event(zof_ctrl_t *, zof_event_e event) {
    if (event == ZOF_EVENT_PRESSED) {
        view1_reset_press(1);
    } else if (event == ZOF_EVENT_RELEASED || event == ZOF_EVENT_PRESS_LOST) {
        view1_reset_press(0);
    } else if (event == ZOF_EVENT_CLICKED) {
        view1_reset_session();
    }
}

static constexpr auto view_ctrls_fun_t = view_rows<25>({
    {VIEW1_LABEL6_ID, to_rails_event},
    {VIEW1_LABEL7_ID, click_event<view1_toggle_output>},
    {VIEW1_LABEL8_ID, tab_event<ZOF_VIEW2_ID>},
    {VIEW1_LABEL9_ID, tab_event<ZOF_VIEW3_ID>},
    {VIEW1_LABEL10_ID, tab_event<ZOF_VIEW4_ID>},
    {VIEW1_LABEL13_ID, reset_event},
});

void view1_init(void) {
    zof_view_create(ZOF_VIEW1_ID, view_ctrls_fun_t.data(), view_ctrls_fun_t.size());
}

void view1_entry(void) {
    view1_sync_armed();
    view4_request_settings();
}

void view1_exit(void) {
}
