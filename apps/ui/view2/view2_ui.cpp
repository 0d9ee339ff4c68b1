// View 2: the rails. A rail is selected in the list, its values are set in the tray, and the button applies them.
#include "ui/view2/view2.h"

para_t *view2(u32 id) {
    return zof_ctrl_get_form_id(ZOF_VIEW2_ID, id);
}

void view2_paint(void) {
    tray_check();
    list_paint();
    presets_paint();
    tray_paint();
    keypad_paint();
    paint_shown(view2(VIEW2_LOCK_ID), bench.locked);
}

void view2_open_rail(u8 rail) {
    keypad_close();
    tray_select(bench_rail_usable(rail) ? bench_rail_open(rail) : bench_choice_t{.rail = RAIL_NONE});
    ui_slide_to(ZOF_VIEW2_ID, false);
}

template <axis_e AXIS> static void value_do() {
    keypad_open(AXIS);
}

static constexpr auto view_ctrls_fun_t = view_rows<158>({
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
    {VIEW2_PRESET0_ID, preset_event<0>},
    {VIEW2_PRESET1_ID, preset_event<1>},
    {VIEW2_PRESET2_ID, preset_event<2>},
    {VIEW2_PRESET3_ID, preset_event<3>},
    {VIEW2_LABEL82_ID, click_event<value_do<VOLTS>>},
    {VIEW2_LABEL83_ID, click_event<value_do<AMPERES>>},
    {VIEW2_VOLTS_LESS_ID, step_event<VOLTS, -1>},
    {VIEW2_VOLTS_MORE_ID, step_event<VOLTS, 1>},
    {VIEW2_AMPERES_LESS_ID, step_event<AMPERES, -1>},
    {VIEW2_AMPERES_MORE_ID, step_event<AMPERES, 1>},
    {VIEW2_VOLTS_KNOB_ID, knob_event<VOLTS>},
    {VIEW2_AMPERES_KNOB_ID, knob_event<AMPERES>},
    {VIEW2_LABEL84_ID, apply_event},
    {VIEW2_KEY_0_ID, key_event<'0'>},
    {VIEW2_KEY_1_ID, key_event<'1'>},
    {VIEW2_KEY_2_ID, key_event<'2'>},
    {VIEW2_KEY_3_ID, key_event<'3'>},
    {VIEW2_KEY_4_ID, key_event<'4'>},
    {VIEW2_KEY_5_ID, key_event<'5'>},
    {VIEW2_KEY_6_ID, key_event<'6'>},
    {VIEW2_KEY_7_ID, key_event<'7'>},
    {VIEW2_KEY_8_ID, key_event<'8'>},
    {VIEW2_KEY_9_ID, key_event<'9'>},
    {VIEW2_KEY_POINT_ID, key_event<'.'>},
    {VIEW2_KEY_BACK_ID, key_back_event},
    {VIEW2_PAD_LOWER_ID, click_event<keypad_lower>},
    {VIEW2_PAD_UPPER_ID, click_event<keypad_upper>},
    {VIEW2_PAD_CANCEL_ID, click_event<keypad_close>},
    {VIEW2_PAD_DONE_ID, click_event<keypad_done>},
    {VIEW2_STRIP_TURN_OFF_ID, strip_off_event},
    {VIEW2_TAB_OUTPUT_ID, output_tab_event},
    {VIEW2_TAB_TREND_ID, tab_event<ZOF_VIEW5_ID>},
    {VIEW2_TAB_SETTINGS_ID, tab_event<ZOF_VIEW4_ID>},
    {VIEW2_TAB_ABOUT_ID, tab_event<ZOF_VIEW3_ID>},
});

void view2_init(void) {
    zof_view_create(ZOF_VIEW2_ID, view_ctrls_fun_t.data(), view_ctrls_fun_t.size());
}

// Sets the line spacing of texts with two lines, which a project file cannot do.
static void lines_space() {
    enum { LINE_SPACE = 2 };
    for (u32 id : {VIEW2_PRESET0_ID, VIEW2_PRESET1_ID, VIEW2_PRESET2_ID, VIEW2_PRESET3_ID, VIEW2_TRAY_WORDS_ID,
                   VIEW2_PAD_NOTE_ID}) {
        paint_line_space(view2(id), LINE_SPACE);
    }
}

void view2_entry(void) {
    lines_space();
    bench_tick();
    if (bench_live()) {
        bench_rails_ask();
    }
    ui_entered();
}

void view2_exit(void) {
    hold_cancel();
    set_cancel();
    apply_leave();
    keypad_close();
}
