// View 1, output and session: the event functions of its controls.
#include "ui/view1/view1_ui.h"

#include "bench_ids.h"
#include "hardware/uart/zof_hw_uart.h"
#include "ui/view_wiring.h"
#include "zof_main.h"

static void to_rails_event(zof_ctrl_t *ctrl, zof_event_e event) {
    link_event(ctrl, event, ZOF_VIEW2_ID, ZOF_SCR_LOAD_ANIM_MOVE_LEFT);
}

static void toggle_event(zof_ctrl_t *, zof_event_e event) {
    if (event == ZOF_EVENT_CLICKED) {
        view1_toggle_output();
    }
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
    {VIEW1_LABEL7_ID, toggle_event},
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
