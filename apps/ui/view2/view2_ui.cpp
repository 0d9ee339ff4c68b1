// View 2, rails: the event functions of its controls.
#include "ui/view2/view2_ui.h"

#include "bench_ids.h"
#include "hardware/uart/zof_hw_uart.h"
#include "ui/view_wiring.h"
#include "zof_main.h"

static void row_event(zof_ctrl_t *ctrl, zof_event_e event) {
    if (event == ZOF_EVENT_CLICKED) {
        select_row_by_bg(ctrl);
    }
}

static void use_event(zof_ctrl_t *, zof_event_e event) {
    if (event == ZOF_EVENT_CLICKED) {
        view2_use_apply();
    }
}

template <u8 WHICH> static void slider_event(zof_ctrl_t *, zof_event_e event) {
    if (event == ZOF_EVENT_VALUE_CHANGED) {
        view2_slider_changed(WHICH);
    }
}

static void to_output_event(zof_ctrl_t *ctrl, zof_event_e event) {
    link_event(ctrl, event, ZOF_VIEW1_ID, ZOF_SCR_LOAD_ANIM_MOVE_RIGHT);
}

static constexpr auto view_ctrls_fun_t = view_rows<95>(
    {
        {VIEW2_LABEL65_ID, row_event},
        {VIEW2_LABEL66_ID, row_event},
        {VIEW2_LABEL67_ID, row_event},
        {VIEW2_LABEL68_ID, row_event},
        {VIEW2_LABEL69_ID, row_event},
        {VIEW2_LABEL70_ID, row_event},
        {VIEW2_LABEL71_ID, row_event},
        {VIEW2_LABEL72_ID, row_event},
        {VIEW2_LABEL73_ID, row_event},
        {VIEW2_LABEL74_ID, row_event},
        {VIEW2_LABEL75_ID, row_event},
        {VIEW2_LABEL76_ID, row_event},
        {VIEW2_LABEL77_ID, row_event},
        {VIEW2_SLIDER0_ID, slider_event<0>},
        {VIEW2_SLIDER1_ID, slider_event<1>},
        {VIEW2_LABEL84_ID, use_event},
        {VIEW2_LABEL85_ID, to_output_event},
        {VIEW2_LABEL86_ID, tab_event<ZOF_VIEW1_ID>},
        {VIEW2_LABEL88_ID, tab_event<ZOF_VIEW3_ID>},
        {VIEW2_LABEL89_ID, tab_event<ZOF_VIEW4_ID>},
    },
    94); // there is no control 94

void view2_init(void) {
    zof_view_create(ZOF_VIEW2_ID, view_ctrls_fun_t.data(), view_ctrls_fun_t.size());
}

void view2_entry(void) {
    view2_reset_panel();
}

void view2_exit(void) {
}
