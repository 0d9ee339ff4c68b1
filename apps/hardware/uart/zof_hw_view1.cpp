// View 1: the output's toggle and the session. The program never decides the state of the output: a click requests the
// opposite of the last reported state, and the display changes when the board answers.
#include "bench_ids.h"
#include "hardware/uart/zof_hw_text.h"
#include "hardware/uart/zof_hw_uart.h"
#include "zof_main.h"

u8 g_arm_pending;

static para_t *view1(u32 id) {
    return zof_ctrl_get_form_id(ZOF_VIEW1_ID, id);
}

void view1_set_output_btn(u8 on) {
    para_t *toggle = view1(VIEW1_LABEL7_ID);
    zof_label_set_txt(toggle, panel_text(on ? TEXT_OUT_OFF : TEXT_OUT_ON));
    zof_ctrl_style_set_bg_color(toggle, on ? 0xFFFF453A : 0xFF30D158, 0);
    zof_label_set_txt_color(toggle, 0xFFFFFFFF);
}

void view1_sync_armed(void) {
    g_arm_pending = 0;
    view1_set_output_btn(g_out_on);
}

void view1_toggle_output(void) {
    const u16 want = g_out_on == 0 ? 1 : 0;
    zof_reg_report(REG_OUT_REQ, want);
}

void view1_reset_press(u8 down) {
    zof_ctrl_set_hidden(view1(VIEW1_LABEL21_ID), down == 0);
}

void view1_reset_session(void) {
    zof_reg_report(REG_SESS_RESET, 1);
}
