// View 4, settings: the event functions of its controls.
#include "ui/view4/view4_ui.h"

#include "bench_ids.h"
#include "hardware/uart/zof_hw_uart.h"
#include "ui/view_wiring.h"
#include "zof_main.h"

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
    zof_ctrl_set_ext_click_area(zof_ctrl_get_form_id(ZOF_VIEW4_ID, VIEW4_LABEL8_ID), OPTION_CLICK_AREA);
    zof_ctrl_set_ext_click_area(zof_ctrl_get_form_id(ZOF_VIEW4_ID, VIEW4_LABEL9_ID), OPTION_CLICK_AREA);
    view4_request_settings();
}

void view4_exit(void) {
}
