// View 1: the output. White digits are measured values, dashes unknown ones; the first line shows what is set. The
// toggle shows the state that the box reports, never what was pressed.
#include <stdio.h>

#include "bench_ids.h"
#include "ui/ui.h"

enum { MARK_ZERO = -1350, MARK_SPAN = 2700, MARK_FULL_MV = 48000 }; // tenths of a degree from upright

static para_t *view1(u32 id) {
    return zof_ctrl_get_form_id(ZOF_VIEW1_ID, id);
}

static void reading_paint(u32 id, bool known, const char *text, const char *unknown) {
    paint_text(view1(id), known ? text : unknown);
    paint_look(view1(id), bench_age() == BENCH_LATE ? LOOK_LATE : 0);
}

static void arc_paint(u16 mv) {
    static s32 shown = -1;
    static bench_age_e age;
    para_t *arc = view1(VIEW1_ARC0_ID);
    if (shown != mv / 100) {
        shown = mv / 100;
        zof_arc_set_value(arc, (s16)shown);
    }
    if (age != bench_age()) {
        age = bench_age();
        const zof_line_disp_t fill = {.color = COLOR_WHITE, .width = 12, .opa = (u8)(age == BENCH_LATE ? 170 : 255)};
        zof_arc_set_dis(arc, 1, &fill);
    }
}

static void readings_paint() {
    u16 mv, ma, dw;
    bench_eye(&mv, &ma, &dw);
    char text[PAINT_NUMBER_SIZE];
    snprintf(text, sizeof(text), "%u.%02u", mv / 1000, mv % 1000 / 10);
    reading_paint(VIEW1_LABEL0_ID, bench.mv_known, text, "-․--");
    reading_paint(VIEW1_LABEL2_ID, bench.ma_known, number_amperes_fine(text, ma), "-․--- A");
    reading_paint(VIEW1_LABEL4_ID, bench.dw_known, number_watts(text, dw), "-․- W");
    u64 mwh;
    const bool energy = bench_energy(&mwh);
    char count[24];
    snprintf(count, sizeof(count), "%llu.%03llu", (unsigned long long)mwh / 1000, (unsigned long long)mwh % 1000);
    reading_paint(VIEW1_LABEL3_ID, energy, count, "-․---");
    for (u32 unit : {VIEW1_VOLT_UNIT_ID, VIEW1_ENERGY_UNIT_ID}) {
        paint_look(view1(unit), bench_age() == BENCH_LATE ? LOOK_LATE : 0);
    }
    arc_paint(bench.mv_known ? mv : 0);
}

static const char *kind_words(const prof_t &rail) {
    return rail.type == RAIL_PPS ? "PPS" : rail.type == RAIL_AVS ? "AVS" : rail.type == RAIL_EPR ? "EPR" : nullptr;
}

static void set_line_paint() {
    char volts[PAINT_NUMBER_SIZE], amperes[PAINT_NUMBER_SIZE], fixed[PAINT_NUMBER_SIZE];
    para_t *line = view1(VIEW1_SET_LINE_ID);
    const bool listed = bench.rail_known && bench.rail < bench.rails.count;
    words_fill(fixed, sizeof(fixed), TEXT_FIXED);
    const char *kind = listed ? kind_words(bench.rails.rail[bench.rail]) : nullptr;
    kind = kind ? kind : fixed;
    if (bench.set_known) {
        paint_words(line, TEXT_SET_LINE, number_volts(volts, bench.set.mv), number_amperes(amperes, bench.set.ma),
                    kind);
    } else if (bench.rail_known && bench.rail == RAIL_NONE) {
        paint_words(line, TEXT_NO_RAIL);
    } else {
        paint_words(line, listed ? TEXT_SET_UNKNOWN : TEXT_SET_UNKNOWN_PLAIN, "", "", kind);
    }
    paint_shown(line, bench_live() && (bench.rail_known || bench.mv_known));
    para_t *mark = view1(VIEW1_SET_MARK_ID);
    paint_shown(mark, bench_live() && bench.set_known);
    static u16 marked;
    if (bench.set_known && marked != bench.set.mv) {
        marked = bench.set.mv;
        zof_img_set_rotate_angel(mark, MARK_ZERO + marked * MARK_SPAN / MARK_FULL_MV);
    }
}

// Returns true if a port with the box is or just was open. The link then leads to the rails, otherwise to the port's
// settings.
static bool port_works() {
    return bench.port.state == BENCH_PORT_OPEN || bench.port.state == BENCH_PORT_GONE ||
           bench.port.state == BENCH_PORT_LOOKING;
}

static void notice_paint() {
    const bool dead = bench_age() == BENCH_DEAD;
    const bool last = dead && bench.last_known && port_works();
    char text[PAINT_TEXT_SIZE], volts[PAINT_NUMBER_SIZE], amperes[PAINT_NUMBER_SIZE];
    strip_notice(text, sizeof(text));
    paint_text(view1(VIEW1_NOTICE_ID), text);
    paint_shown(view1(VIEW1_NOTICE_ID), dead);
    paint_words(view1(VIEW1_LAST_SET_ID), TEXT_LAST_SET, number_volts(volts, bench.last.mv),
                number_amperes(amperes, bench.last.ma));
    paint_shown(view1(VIEW1_LAST_SET_ID), last);
}

// Paints the toggle: its look and words follow bench_toggle.
static void toggle_paint() {
    static constexpr struct {
        bench_toggle_e id;
        u32 look;
        panel_text_e words, state;
        bool known;
    } rows[] = {
        {BENCH_TOGGLE_UNKNOWN, LOOK_DEAD, TEXT_UNKNOWN, TEXT_OFF_SHORT, false},
        {BENCH_TOGGLE_UNKNOWN_SAID, LOOK_DEAD, TEXT_UNKNOWN, TEXT_OFF_REQUESTED, false},
        {BENCH_TOGGLE_ON, LOOK_CHOSEN, TEXT_TURN_OFF, TEXT_ON, true},
        {BENCH_TOGGLE_TURNING_OFF, LOOK_CHOSEN, TEXT_TURNING_OFF, TEXT_ON, true},
        {BENCH_TOGGLE_STILL_ON, LOOK_CHOSEN, TEXT_STILL_ON, TEXT_ON, true},
        {BENCH_TOGGLE_OFF, 0, TEXT_TURN_ON, TEXT_OFF, true},
        {BENCH_TOGGLE_HOLD, 0, TEXT_HOLD_FOR, TEXT_OFF, true},
        {BENCH_TOGGLE_HOLD_UNKNOWN, 0, TEXT_HOLD_ON, TEXT_OFF, true},
        {BENCH_TOGGLE_TURNING_ON, 0, TEXT_TURNING_ON, TEXT_OFF, true},
    };
    const auto &row = row_of(rows, bench_toggle());
    char volts[PAINT_NUMBER_SIZE];
    paint_look(view1(VIEW1_LABEL7_ID), bench.replay ? (u32)LOOK_DEAD : row.look);
    paint_words(view1(VIEW1_LABEL7_ID), row.words, number_volts(volts, bench.set.mv));
    para_t *word = view1(row.known ? VIEW1_STATE_WORD_ID : VIEW1_UNKNOWN_WORD_ID);
    paint_words(word, row.state);
    paint_shown(view1(VIEW1_STATE_WORD_ID), row.known);
    paint_shown(view1(VIEW1_UNKNOWN_WORD_ID), !row.known);
    paint_shown(view1(VIEW1_UNKNOWN_RULE_ID), !row.known);
}

static void session_paint() {
    para_t *reset = view1(VIEW1_LABEL13_ID);
    paint_words(reset, bench.undo ? TEXT_UNDO : TEXT_RESET);
    paint_look(reset, !bench_live() ? LOOK_DEAD : bench.locked || bench.remote[0] ? LOOK_HOLD : 0);
}

static void remote_paint() {
    paint_words(view1(VIEW1_REMOTE_ID), bench.replay ? TEXT_REPLAY_IS : TEXT_REMOTE_IS, bench.remote);
    paint_shown(view1(VIEW1_REMOTE_ID), bench.remote[0] != '\0');
    paint_shown(view1(VIEW1_LOCAL_ID), bench.remote[0] != '\0' && !bench.replay);
}

static void lock_paint() {
    paint_shown(view1(VIEW1_LOCK_ID), bench.locked);
    paint_shown(view1(VIEW1_LOCKED_NOTE_ID), bench_locked_note());
}

void view1_paint(void) {
    readings_paint();
    set_line_paint();
    notice_paint();
    toggle_paint();
    session_paint();
    remote_paint();
    lock_paint();
    paint_shown(view1(VIEW1_LIMIT_ID), bench.limit && bench_live());
    const bool deaf = bench.locked || bench.remote[0];
    paint_words(view1(VIEW1_LABEL6_ID), port_works() ? TEXT_TO_RAILS : TEXT_TO_PORT);
    paint_look(view1(VIEW1_LABEL6_ID), deaf ? LOOK_DEAD : 0);
}

// The toggle ------------------------------------------------------------------------------------------------------
static void ring_paint(u32 ms) {
    para_t *ring = view1(VIEW1_HOLD_RING_ID);
    paint_shown(ring, ms > 0);
    zof_arc_set_value(ring, (s16)ms);
}

static void hold_done() {
    bench_turn_on(true);
}

static constexpr ui_hold_t toggle_hold = {ring_paint, hold_done, nullptr};

// The toggle is round: a finger in a corner of its box can turn off but not on.
static bool finger_on_disc(zof_ctrl_t *ctrl, s32 margin) {
    lv_point_t finger;
    lv_area_t box;
    lv_indev_get_point(touch_indev, &finger);
    zof_ctrl_get_coords(ctrl, &box);
    const s32 x = finger.x - (box.x1 + box.x2) / 2, y = finger.y - (box.y1 + box.y2) / 2;
    const s32 radius = lv_area_get_width(&box) / 2 + margin;
    return x * x + y * y <= radius * radius;
}

// Off acts when the finger lands, on when it lifts, so that a finger that lands by accident can slide off.
static void toggle_event(zof_ctrl_t *ctrl, zof_event_e event) {
    static bool meant_off, finger, slid_off;
    if (event == ZOF_EVENT_PRESSED) {
        bench_tick();
        zof_touch_t touch = {};
        finger = zof_touch_get(&touch) == 0 && touch.state != ZOF_TOUCH_RELEASED; // not a key
        slid_off = false;
        meant_off = bench_toggle_down();
    }
    slid_off = slid_off || (finger && !finger_on_disc(ctrl, hold_running() ? HOLD_SLIDE_PX : 0));
    if (!meant_off && ui_takes(event) && !slid_off) {
        const bench_toggle_e toggle = bench_toggle();
        if (event == ZOF_EVENT_PRESSED && (toggle == BENCH_TOGGLE_HOLD || toggle == BENCH_TOGGLE_HOLD_UNKNOWN)) {
            hold_begin(ctrl, &toggle_hold);
        } else if (event == ZOF_EVENT_CLICKED) {
            bench_turn_on(false);
        }
    }
    hold_event(slid_off ? ZOF_EVENT_PRESS_LOST : event);
    ui_paint();
}

// The space key acts like a finger on the toggle, but turns on only where the toggle is visible.
void toggle_key(zof_event_e event) {
    if (zof_view_get_cur_id(ZOF_LAYER_UI) == ZOF_VIEW1_ID) {
        if (event == ZOF_EVENT_CLICKED) {
            hold_event(ZOF_EVENT_RELEASED);
        }
        toggle_event(view1(VIEW1_LABEL7_ID), event);
    } else if (event == ZOF_EVENT_PRESSED) {
        bench_toggle_down();
    }
}

// Other controls --------------------------------------------------------------------------------------------------
static void to_rails_event(zof_ctrl_t *, zof_event_e event) {
    if (ui_takes(event, BENCH_PRESS_LOOKS) && event == ZOF_EVENT_CLICKED) {
        ui_slide_to(port_works() ? ZOF_VIEW2_ID : ZOF_VIEW4_ID, false);
    }
}

static void set_line_do() {
    if (bench_live()) {
        view2_open_rail(bench.rail);
    }
}

static void reset_do() {
    if (bench.undo) {
        bench_session_undo();
    } else {
        bench_session_reset();
    }
}

static void reset_event(zof_ctrl_t *ctrl, zof_event_e event) {
    para_t *ground = view1(VIEW1_LABEL21_ID);
    click_event<reset_do>(ctrl, event);
    if (event == ZOF_EVENT_PRESSED) {
        paint_shown(ground, bench_live());
    } else if (event == ZOF_EVENT_RELEASED || event == ZOF_EVENT_PRESS_LOST) {
        paint_shown(ground, false);
    }
}

static void local_event(zof_ctrl_t *, zof_event_e event) {
    if (ui_takes(event, BENCH_PRESS_LOOKS) && event == ZOF_EVENT_CLICKED && !bench.replay) {
        bench.remote[0] = '\0';
        ui_paint();
    }
}

static constexpr auto view_ctrls_fun_t = view_rows<39>({
    {VIEW1_LABEL6_ID, to_rails_event},
    {VIEW1_LABEL7_ID, toggle_event},
    {VIEW1_SET_LINE_ID, click_event<set_line_do>},
    {VIEW1_TAB_OUTPUT_ID, output_tab_event},
    {VIEW1_TAB_RAILS_ID, tab_event<ZOF_VIEW2_ID>},
    {VIEW1_TAB_TREND_ID, tab_event<ZOF_VIEW5_ID>},
    {VIEW1_TAB_SETTINGS_ID, tab_event<ZOF_VIEW4_ID>},
    {VIEW1_TAB_ABOUT_ID, tab_event<ZOF_VIEW3_ID>},
    {VIEW1_LABEL13_ID, reset_event},
    {VIEW1_LOCAL_ID, local_event},
});

void view1_init(void) {
    zof_view_create(ZOF_VIEW1_ID, view_ctrls_fun_t.data(), view_ctrls_fun_t.size());
}

void view1_entry(void) {
    ui_entered();
}

void view1_exit(void) {
}
