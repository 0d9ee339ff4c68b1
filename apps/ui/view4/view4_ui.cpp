// View 4: settings. Settings of the box take effect at once, are sent, and are shown as the box last reported them; the
// panel's own settings are stored by the panel.
#include <stdio.h>
#include <string.h>

#include "bench_ids.h"
#include "hardware/uart/zof_hw_port.h"
#include "hardware/uart/zof_hw_uart.h"
#include "ui/keep.h"
#include "ui/ui.h"

enum { OPTION_CLICK_AREA = 8 };

// State of the brightness slider while a finger drags it: the brightness follows at once and is sent when the finger
// lifts.
static struct {
    bool moving;
    u16 percent;
} slider;

// Why the last touch on Change did not change the port; shown for BENCH_NOTE_MS.
static bool port_alone, port_on; // there is no other port; the output is on
static u64 port_said_at;

static para_t *view4(u32 id) {
    return zof_ctrl_get_form_id(ZOF_VIEW4_ID, id);
}

// The level never reaches 100, because the highest step of the panel is reserved.
static void backlight(u16 percent) {
    zof_disp_set_bright((u8)(percent * 99 / 100));
}

void bright_apply(void) {
    static u16 applied;
    const u16 percent = wake_bright(bench.bright);
    if ((bench.settings_known & BENCH_SETTING_BRIGHT) && !slider.moving && applied != percent) {
        applied = percent;
        backlight(applied);
    }
}

// Returns the name of the current language.
static const char *language() {
    const zof_prj_t *project = zof_prj_get_cur();
    return project && project->lang_name ? project->lang_name : "";
}

static void bright_paint() {
    const bool known = bench.settings_known & 1;
    const u16 percent = slider.moving ? slider.percent : bench.bright;
    char text[8];
    snprintf(text, sizeof(text), "%u%%", percent);
    paint_text(view4(VIEW4_LABEL16_ID), known || slider.moving ? text : "-%");
    paint_shown(view4(VIEW4_SLIDER0_ID), known || slider.moving);
    if (known && !slider.moving && zof_slider_get_value(view4(VIEW4_SLIDER0_ID)) != percent) {
        zof_slider_set_value(view4(VIEW4_SLIDER0_ID), (s16)percent);
    }
}

static void option_paint(u32 ground, u32 words, bool chosen) {
    paint_look(view4(ground), chosen ? LOOK_CHOSEN : 0);
    paint_look(view4(words), chosen ? LOOK_CHOSEN : 0);
}

static void switch_paint(u32 id, bool on) {
    if ((zof_sw_get_state(view4(id)) != 0) != on) {
        zof_sw_set_state(view4(id), on);
    }
}

// Paints the state of the port and advice for its problem.
static void port_paint() {
    const bench_port_t &port = bench.port;
    static constexpr struct {
        bench_port_e id;
        panel_text_e plain, with_who;
    } rows[] = {
        {BENCH_PORT_OPEN, TEXT_PORT_SILENT, TEXT_PORT_SILENT},
        {BENCH_PORT_UNSET, TEXT_PORT_UNSET, TEXT_PORT_UNSET},
        {BENCH_PORT_LOOKING, TEXT_PORT_LOOKING, TEXT_PORT_LOOKING},
        {BENCH_PORT_MISSING, TEXT_PORT_NONE, TEXT_PORT_NONE},
        {BENCH_PORT_GONE, TEXT_PORT_GONE, TEXT_PORT_GONE},
        {BENCH_PORT_RIGHT, TEXT_PORT_RIGHT_PLAIN, TEXT_PORT_RIGHT},
        {BENCH_PORT_HELD, TEXT_PORT_BUSY, TEXT_PORT_BUSY_BY},
        {BENCH_PORT_FAULT, TEXT_PORT_ERROR, TEXT_PORT_ERROR},
    };
    char age[PAINT_NUMBER_SIZE];
    const u32 since = zof_sys_time_ms() - g_link.last_ms;
    snprintf(age, sizeof(age), "%u.%u s", since / 1000, since % 1000 / 100);
    para_t *state = view4(VIEW4_PORT_STATE_ID);
    paint_look(state, bench_live() ? 0 : LOOK_DEAD);
    paint_text(view4(VIEW4_PORT_ID), port.path[0] ? port.path : "-");
    const bool says = bench.now - port_said_at < BENCH_NOTE_MS;
    if (bench.replay) {
        paint_words(state, TEXT_REPLAY_IS, bench.remote);
    } else if (says && (port_on || port_alone)) {
        paint_words(state, port_on ? TEXT_PORT_FIRST_OFF : TEXT_PORT_NO_OTHER);
    } else if (bench_live()) {
        paint_words(state, TEXT_PORT_GOOD, "115 200", age);
    } else {
        paint_words(state, port.who[0] ? row_of(rows, port.state).with_who : row_of(rows, port.state).plain, port.path,
                    age, port.who);
    }
}

void view4_paint(void) {
    bright_paint();
    const bool boot_known = bench.settings_known & 2;
    option_paint(VIEW4_LABEL8_GROUND_ID, VIEW4_LABEL8_ID, boot_known && bench.boot_last == 0);
    option_paint(VIEW4_LABEL9_GROUND_ID, VIEW4_LABEL9_ID, boot_known && bench.boot_last != 0);
    switch_paint(VIEW4_SW0_ID, bench.auto_on != 0);
    paint_shown(view4(VIEW4_SW0_ID), (bench.settings_known & 4) != 0); // off would be a statement
    switch_paint(VIEW4_HOLD_ID, !bench.hold_off);
    switch_paint(VIEW4_AVERAGE_ID, !bench.averaged_off);
    switch_paint(VIEW4_LOCK_ALL_ID, bench.locked);
    const bool german = strcmp(language(), "de") == 0;
    option_paint(VIEW4_ENGLISH_GROUND_ID, VIEW4_ENGLISH_ID, !german);
    option_paint(VIEW4_GERMAN_GROUND_ID, VIEW4_GERMAN_ID, german);
    static u64 second = UINT64_MAX;
    if (second != bench.now / 1000 || !bench_live() || port_alone ||
        port_on) { // digits that change faster cannot be read
        second = bench.now / 1000;
        port_paint();
    }
    paint_shown(view4(VIEW4_LOCK_ID), bench.locked);
}

template <u16 LAST_USED> static void boot_do() {
    bench_setting(REG_BOOT_STATE, LAST_USED);
}

static void auto_event(zof_ctrl_t *ctrl, zof_event_e event) {
    if (ui_takes(event) && event == ZOF_EVENT_VALUE_CHANGED) {
        bench_setting(REG_AUTO_ARM, (u16)zof_sw_get_state(ctrl));
    }
    ui_paint(); // also moves back a switch that may not be moved
}

// Handles a switch for a setting of the panel itself.
template <void (*SET)(bool on)> static void own_event(zof_ctrl_t *ctrl, zof_event_e event) {
    if (ui_takes(event) && event == ZOF_EVENT_VALUE_CHANGED) {
        SET(zof_sw_get_state(ctrl) != 0);
        keep_save();
    }
    ui_paint();
}

static void hold_set(bool on) {
    bench.hold_off = !on;
}

static void average_set(bool on) {
    bench.averaged_off = !on;
}

static void bright_event(zof_ctrl_t *ctrl, zof_event_e event) {
    if (!ui_takes(event)) {
        slider.moving = false;
    } else if (event == ZOF_EVENT_VALUE_CHANGED) {
        slider.moving = true;
        slider.percent = reg_value(REG_BRIGHT, (u16)zof_slider_get_value(ctrl));
        backlight(slider.percent);
    } else if ((event == ZOF_EVENT_RELEASED || event == ZOF_EVENT_PRESS_LOST) && slider.moving) {
        slider.moving = false;
        bench_setting(REG_BRIGHT, slider.percent);
    }
    ui_paint();
}

// Switches to the next port of the system; the page and the strip show the result. Refused while the output is on,
// because the panel could no longer turn it off.
static void port_do() {
    port_on = bench_is_on();
    port_said_at = bench.now;
    if (port_on) {
        return;
    }
    port_alone = zof_box_port_next() != 0;
}

static void english_do() {
    zof_lang_set("en");
    keep_save();
}

static void german_do() {
    zof_lang_set("de");
    keep_save();
}

static constexpr auto view_ctrls_fun_t = view_rows<158>({
    {VIEW4_LABEL8_ID, click_event<boot_do<0>>},
    {VIEW4_LABEL9_ID, click_event<boot_do<1>>},
    {VIEW4_SW0_ID, auto_event},
    {VIEW4_HOLD_ID, own_event<hold_set>},
    {VIEW4_AVERAGE_ID, own_event<average_set>},
    {VIEW4_LOCK_ALL_ID, own_event<bench_lock>},
    {VIEW4_ENGLISH_ID, click_event<english_do>},
    {VIEW4_GERMAN_ID, click_event<german_do>},
    {VIEW4_PORT_CHANGE_ID, click_event<port_do>},
    {VIEW4_SLIDER0_ID, bright_event},
    {VIEW4_STRIP_TURN_OFF_ID, strip_off_event},
    {VIEW4_TAB_OUTPUT_ID, output_tab_event},
    {VIEW4_TAB_RAILS_ID, tab_event<ZOF_VIEW2_ID>},
    {VIEW4_TAB_TREND_ID, tab_event<ZOF_VIEW5_ID>},
    {VIEW4_TAB_ABOUT_ID, tab_event<ZOF_VIEW3_ID>},
});

void view4_init(void) {
    zof_view_create(ZOF_VIEW4_ID, view_ctrls_fun_t.data(), view_ctrls_fun_t.size());
}

void view4_entry(void) {
    const reg_range_t &range = reg_find(REG_BRIGHT)->range;
    zof_slider_set_range(view4(VIEW4_SLIDER0_ID), (s16)range.low, (s16)range.high);
    ui_entered();
}

void view4_exit(void) {
    slider.moving = false;
}
