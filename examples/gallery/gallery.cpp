// The gallery: a view for each family of controls. What controls do by themselves stands in the project folder (made by
// make/gallery.py); what one of them does to another stands here, a table of events for each view.
#include <math.h>
#include <stdio.h>
#include <zof.h>

#include "gallery_ids.h"

static constexpr u32 INDEX = 1, FIRST_PAGE = 2, PAGES = 16, LAST_PAGE = FIRST_PAGE + PAGES - 1;
static constexpr u32 BACK = 1, PREV = 2, NEXT = 3; // of all pages, as the project is made
static constexpr u32 SLIDE_MS = 250;

static zof_ctrl_t *at(u32 view, u32 control) {
    return zof_ctrl_get_form_id(view, control);
}

static void say_number(u32 view, u32 label, const char *form, double value) {
    char text[32];
    snprintf(text, sizeof(text), form, value);
    zof_label_set_txt(at(view, label), text);
}

// Which page ---------------------------------------------------------------------------------------------------------
static void go(u32 view, u32 transition) {
    zof_view_set_dis_view_anim(view, transition, SLIDE_MS, 0, ZOF_ANIM_PATH_END_SLOW);
}

static u32 here(void) {
    return (u32)zof_view_get_cur_id(ZOF_LAYER_UI);
}

static void back_event(zof_ctrl_t *, zof_event_e event) {
    if (event == ZOF_EVENT_CLICKED) {
        go(INDEX, ZOF_SCR_LOAD_ANIM_MOVE_RIGHT);
    }
}

static void prev_event(zof_ctrl_t *, zof_event_e event) {
    if (event == ZOF_EVENT_CLICKED) {
        go(here() == FIRST_PAGE ? LAST_PAGE : here() - 1, ZOF_SCR_LOAD_ANIM_MOVE_RIGHT);
    }
}

static void next_event(zof_ctrl_t *, zof_event_e event) {
    if (event == ZOF_EVENT_CLICKED) {
        go(here() == LAST_PAGE ? FIRST_PAGE : here() + 1, ZOF_SCR_LOAD_ANIM_MOVE_LEFT);
    }
}

#define PAGE_EVENTS                           \
    {BACK, back_event}, {PREV, prev_event}, { \
        NEXT, next_event                      \
    }

// Index --------------------------------------------------------------------------------------------------------------
static void page_event(zof_ctrl_t *ctrl, zof_event_e event) {
    if (event == ZOF_EVENT_CLICKED) {
        go(FIRST_PAGE + (u32)zof_ctrl_get_id_form_ctrl(ctrl) - VIEW1_TO_LABELS_ID, ZOF_SCR_LOAD_ANIM_MOVE_LEFT);
    }
}

static const struct {
    u32 button;
    const char *name;
} languages[] = {{VIEW1_LANG_EN_ID, "en"}, {VIEW1_LANG_DE_ID, "de"}, {VIEW1_LANG_ZH_ID, "zh"}};

static void language_show(u32 chosen) {
    for (const auto &language : languages) {
        zof_btn_set_state(at(INDEX, language.button), language.button == chosen ? LV_STATE_CHECKED : 0);
    }
}

static void language_event(zof_ctrl_t *ctrl, zof_event_e event) {
    if (event != ZOF_EVENT_CLICKED) {
        return;
    }
    for (const auto &language : languages) {
        if (at(INDEX, language.button) == ctrl) {
            zof_lang_set(language.name);
            language_show(language.button);
        }
    }
}

// A theme knows no views: their grounds follow here.
static void theme_event(zof_ctrl_t *ctrl, zof_event_e event) {
    if (event != ZOF_EVENT_VALUE_CHANGED) {
        return;
    }
    const bool light = zof_sw_get_state(ctrl) == 1;
    zof_theme_set(light ? "youth" : "night");
    zof_view_load(8);
    zof_table_set_cell_wrap(at(8, VIEW8_TABLE_ID), light ? 0xC3CBD6 : 0x39424F, 1, 255, 255,
                            light ? 0xE3E8EF : 0x252C38);
    for (u32 view = INDEX; view <= LAST_PAGE; view++) {
        zof_view_load(view);
        zof_view_set_bgcolor(view, light ? 0xFFEDF0F5 : 0xFF0E1116);
    }
}

static void index_init(void) {
    static zof_ctrl_fun_t events[PAGES + 4];
    u32 n = 0;
    for (u32 i = 0; i < PAGES; i++) {
        events[n++] = {VIEW1_TO_LABELS_ID + i, page_event};
    }
    for (const auto &language : languages) {
        events[n++] = {language.button, language_event};
    }
    events[n++] = {VIEW1_THEME_ID, theme_event};
    zof_view_create(INDEX, events, n);
    language_show(VIEW1_LANG_EN_ID);
}

// Pages that do without the program ----------------------------------------------------------------------------------
static const zof_ctrl_fun_t plain_events[] = {PAGE_EVENTS};

template <u32 VIEW> static void plain_init(void) {
    zof_view_create(VIEW, plain_events, sizeof(plain_events) / sizeof(plain_events[0]));
}

// Buttons ------------------------------------------------------------------------------------------------------------
static void count_event(zof_ctrl_t *ctrl, zof_event_e event) {
    static int count;
    char text[16];
    if (event != ZOF_EVENT_CLICKED) {
        return;
    }
    snprintf(text, sizeof(text), "%d", ++count);
    zof_btn_set_txt(ctrl, text);
}

static const zof_ctrl_fun_t buttons_events[] = {PAGE_EVENTS, {VIEW3_COUNT_ID, count_event}};

static void buttons_init(void) {
    zof_view_create(3, buttons_events, sizeof(buttons_events) / sizeof(buttons_events[0]));
    zof_btn_set_state(at(3, VIEW3_DISABLED_ID), LV_STATE_DISABLED);
}

// Pictures -----------------------------------------------------------------------------------------------------------
static const zof_ctrl_fun_t pictures_events[] = {PAGE_EVENTS};

static void pictures_init(void) {
    static const lv_point_t line[] = {{4, 100}, {30, 20}, {60, 80}, {90, 10}, {120, 60}, {146, 40}};
    static const lv_point_t dashes[] = {{4, 60}, {146, 60}};
    zof_view_create(4, pictures_events, sizeof(pictures_events) / sizeof(pictures_events[0]));
    zof_img_zoom_setting(at(4, VIEW4_ZOOMED_ID), 400);
    zof_img_recolor(at(4, VIEW4_ZOOMED_ID), 0xE8862F, 120);
    zof_line_set_points(at(4, VIEW4_LINE_ID), line, sizeof(line) / sizeof(line[0]));
    zof_line_set_points(at(4, VIEW4_DASHES_ID), dashes, 2);
    zof_line_set_dash(at(4, VIEW4_DASHES_ID), 10, 6);
}

// Values -------------------------------------------------------------------------------------------------------------
static void arc_event(zof_ctrl_t *ctrl, zof_event_e event) {
    if (event == ZOF_EVENT_VALUE_CHANGED) {
        say_number(5, VIEW5_ARC_VALUE_ID, "%.0f", zof_arc_get_value(ctrl));
        zof_arc_set_value(at(5, VIEW5_GAUGE_ID), zof_arc_get_value(ctrl));
    }
}

static void slider_event(zof_ctrl_t *ctrl, zof_event_e event) {
    if (event == ZOF_EVENT_VALUE_CHANGED) {
        say_number(5, VIEW5_SLIDER_VALUE_ID, "%.0f", zof_slider_get_value(ctrl));
        zof_bar_set_value(at(5, VIEW5_BAR_ID), zof_slider_get_value(ctrl) - 50);
    }
}

static void upright_event(zof_ctrl_t *ctrl, zof_event_e event) {
    if (event == ZOF_EVENT_VALUE_CHANGED) {
        zof_bar_set_value(at(5, VIEW5_UPRIGHT_BAR_ID), zof_slider_get_value(ctrl));
    }
}

static const zof_ctrl_fun_t values_events[] = {
    PAGE_EVENTS, {VIEW5_ARC_ID, arc_event}, {VIEW5_SLIDER_ID, slider_event}, {VIEW5_UPRIGHT_ID, upright_event}};

static void values_init(void) {
    zof_view_create(5, values_events, sizeof(values_events) / sizeof(values_events[0]));
    zof_slider_set_value(at(5, VIEW5_SLIDER_ID), 40);
    zof_bar_set_value(at(5, VIEW5_BAR_ID), -10);
    zof_slider_set_value(at(5, VIEW5_UPRIGHT_ID), 20);
    zof_bar_set_value(at(5, VIEW5_UPRIGHT_BAR_ID), 20);
    zof_arc_set_value(at(5, VIEW5_GAUGE_ID), 65);
}

// Switches and numbers -----------------------------------------------------------------------------------------------
static void spin_show(void) {
    say_number(6, VIEW6_SPIN_VALUE_ID, "%.2f V", zof_spinbox_get_value(at(6, VIEW6_SPIN_ID)) / 100.0);
}

static void down_event(zof_ctrl_t *, zof_event_e event) {
    if (event == ZOF_EVENT_SHORT_CLICKED || event == ZOF_EVENT_LONG_PRESSED_REPEAT) {
        zof_spinbox_decrement(at(6, VIEW6_SPIN_ID));
    }
    spin_show();
}

static void up_event(zof_ctrl_t *, zof_event_e event) {
    if (event == ZOF_EVENT_SHORT_CLICKED || event == ZOF_EVENT_LONG_PRESSED_REPEAT) {
        zof_spinbox_increment(at(6, VIEW6_SPIN_ID));
    }
    spin_show();
}

// The digits in turn, as LVGL's "next" goes to the left.
static void digit_event(zof_ctrl_t *, zof_event_e event) {
    if (event == ZOF_EVENT_CLICKED) {
        zof_spinbox_step_prev(at(6, VIEW6_SPIN_ID));
    }
}

static const zof_ctrl_fun_t switches_events[] = {
    PAGE_EVENTS, {VIEW6_DOWN_ID, down_event}, {VIEW6_UP_ID, up_event}, {VIEW6_DIGIT_ID, digit_event}};

static void switches_init(void) {
    zof_view_create(6, switches_events, sizeof(switches_events) / sizeof(switches_events[0]));
    zof_sw_set_state(at(6, VIEW6_SW_ID), 1);
    zof_cb_set_checked(at(6, VIEW6_CB_ON_ID), 1);
    zof_cb_set_disable(at(6, VIEW6_CB_OFF_ID), 1);
}

// Lists --------------------------------------------------------------------------------------------------------------
// The list's events come from its buttons, which bubble them up; the one that has the focus was touched.
static void list_event(zof_ctrl_t *ctrl, zof_event_e event) {
    if (event != ZOF_EVENT_CLICKED) {
        return;
    }
    const s32 chosen = zof_list_get_select_index(ctrl);
    if (chosen >= 0) {
        zof_list_set_select_index(ctrl, zof_list_get_index_btn(ctrl, (u32)chosen));
    }
}

static const zof_ctrl_fun_t lists_events[] = {PAGE_EVENTS, {VIEW7_LIST_ID, list_event}};

static void lists_init(void) {
    zof_view_create(7, lists_events, sizeof(lists_events) / sizeof(lists_events[0]));
}

// Tables -------------------------------------------------------------------------------------------------------------
// A touched cell is marked, and unmarked at the next touch.
static void table_event(zof_ctrl_t *ctrl, zof_event_e event) {
    if (event == ZOF_EVENT_CLICKED) {
        zof_table_set_value_changed_color(ctrl, 0x2F8FE8, 0);
    }
}

static const zof_ctrl_fun_t tables_events[] = {PAGE_EVENTS, {VIEW8_TABLE_ID, table_event}};

static void table_fill(zof_ctrl_t *table) {
    static const char *const heads[] = {"V", "A", "W"};
    static const double rows[][2] = {{5, 3}, {9, 3}, {12, 3}, {15, 3}, {20, 5}};
    char text[16];
    for (u32 col = 0; col < 3; col++) {
        zof_table_set_cell_value(table, 0, col, heads[col]);
    }
    for (u32 row = 0; row < 5; row++) {
        const double cells[] = {rows[row][0], rows[row][1], rows[row][0] * rows[row][1]};
        for (u32 col = 0; col < 3; col++) {
            snprintf(text, sizeof(text), "%.*f", col < 2 ? 2 : 0, cells[col]);
            zof_table_set_cell_value(table, row + 1, col, text);
        }
    }
}

// A matrix keeps its captions at a change of language.
static void language_changed(void) {
    zof_btnmatrix_set_btn_txt(at(8, VIEW8_MATRIX_ID), 11, "#done");
}

static void tables_init(void) {
    zof_view_create(8, tables_events, sizeof(tables_events) / sizeof(tables_events[0]));
    table_fill(at(8, VIEW8_TABLE_ID));
    zof_btnmatrix_set_btn_ctrl_all(at(8, VIEW8_ONE_ID), LV_BTNMATRIX_CTRL_CHECKABLE);
    zof_btnmatrix_set_one_checked(at(8, VIEW8_ONE_ID), ZOF_TRUE);
    zof_btnmatrix_set_btn_ctrl(at(8, VIEW8_ONE_ID), 1, LV_BTNMATRIX_CTRL_CHECKED);
    zof_btnmatrix_set_btn_ctrl(at(8, VIEW8_MATRIX_ID), 10, LV_BTNMATRIX_CTRL_DISABLED);
    zof_btnmatrix_set_btn_width(at(8, VIEW8_MATRIX_ID), 11, 2);
}

// Charts -------------------------------------------------------------------------------------------------------------
static void charts_init(void) {
    zof_view_create(9, plain_events, sizeof(plain_events) / sizeof(plain_events[0]));
    zof_ctrl_t *lines = at(9, VIEW9_LINES_ID), *columns = at(9, VIEW9_COLUMNS_ID), *points = at(9, VIEW9_POINTS_ID);
    lv_chart_series_t *volts = zof_chart_add_series(lines, 0x2F8FE8, 0),
                      *amperes = zof_chart_add_series(lines, 0xE8862F, 0);
    lv_chart_series_t *energy = zof_chart_add_series(columns, 0x2FA36B, 0),
                      *pairs = zof_chart_add_series(points, 0xE8862F, 0);
    for (int i = 0; i < 40; i++) {
        zof_chart_set_next(lines, volts, (s32)(60 + 25 * sin(i * 0.35)));
        zof_chart_set_next(lines, amperes, (s32)(35 + 18 * cos(i * 0.22)));
    }
    for (int i = 0; i < 12; i++) {
        zof_chart_set_next(columns, energy, 12 + i * 7);
    }
    for (int i = 0; i < 30; i++) {
        zof_chart_set_next_value2(points, pairs, 3 + i * 97 % 94, 8 + i * 61 % 83);
    }
    zof_chart_set_line_width(lines, 0, 3);
    zof_chart_set_line_width(points, 5, 0);
}

// Typing -------------------------------------------------------------------------------------------------------------
// Both keyboards write into the box that was touched last; one of them is on the screen.
static void box_event(zof_ctrl_t *ctrl, zof_event_e event) {
    if (event == ZOF_EVENT_FOCUSED || event == ZOF_EVENT_CLICKED) {
        zof_keyboard_set_txtbox(at(11, VIEW11_KEYBOARD_ID), ctrl);
        zof_keyboard_set_txtbox(at(11, VIEW11_PINYIN_ID), ctrl);
    }
}

static void spell_event(zof_ctrl_t *ctrl, zof_event_e event) {
    if (event != ZOF_EVENT_VALUE_CHANGED) {
        return;
    }
    const bool pinyin = zof_ctrl_state_judge(ctrl, LV_STATE_CHECKED) == 1;
    zof_ctrl_set_hidden(at(11, VIEW11_KEYBOARD_ID), pinyin ? ZOF_TRUE : ZOF_FALSE);
    zof_ctrl_set_hidden(at(11, VIEW11_PINYIN_ID), pinyin ? ZOF_FALSE : ZOF_TRUE);
}

static const zof_ctrl_fun_t typing_events[] = {PAGE_EVENTS,
                                               {VIEW11_LINE_ID, box_event},
                                               {VIEW11_LINES_ID, box_event},
                                               {VIEW11_SECRET_ID, box_event},
                                               {VIEW11_SPELL_ID, spell_event}};

static void typing_init(void) {
    zof_view_create(11, typing_events, sizeof(typing_events) / sizeof(typing_events[0]));
    box_event(at(11, VIEW11_LINE_ID), ZOF_EVENT_FOCUSED);
}

// Messages -----------------------------------------------------------------------------------------------------------
// In place of the other one.
static void box_open(u32 box) {
    zof_mbox_s_close(at(12, box == VIEW12_ASK_ID ? VIEW12_TELL_ID : VIEW12_ASK_ID));
    zof_mbox_s_open(at(12, box));
}

static void open_ask_event(zof_ctrl_t *, zof_event_e event) {
    if (event == ZOF_EVENT_CLICKED) {
        box_open(VIEW12_ASK_ID);
    }
}

static void open_tell_event(zof_ctrl_t *, zof_event_e event) {
    if (event == ZOF_EVENT_CLICKED) {
        box_open(VIEW12_TELL_ID);
    }
}

static void open_soon_event(zof_ctrl_t *, zof_event_e event) {
    if (event == ZOF_EVENT_CLICKED) {
        box_open(VIEW12_TELL_ID);
        zof_mbox_start_auto_close(at(12, VIEW12_TELL_ID), 1500);
    }
}

// Any of its buttons closes a box; one without buttons goes at a touch.
static void ask_event(zof_ctrl_t *ctrl, zof_event_e event) {
    if (event == ZOF_EVENT_VALUE_CHANGED) {
        zof_mbox_s_close(ctrl);
    }
}

static void tell_event(zof_ctrl_t *ctrl, zof_event_e event) {
    if (event == ZOF_EVENT_CLICKED) {
        zof_mbox_s_close(ctrl);
    }
}

static const zof_ctrl_fun_t messages_events[] = {PAGE_EVENTS,
                                                 {VIEW12_OPEN_ASK_ID, open_ask_event},
                                                 {VIEW12_OPEN_TELL_ID, open_tell_event},
                                                 {VIEW12_OPEN_SOON_ID, open_soon_event},
                                                 {VIEW12_ASK_ID, ask_event},
                                                 {VIEW12_TELL_ID, tell_event}};

static void messages_init(void) {
    zof_view_create(12, messages_events, sizeof(messages_events) / sizeof(messages_events[0]));
}

// Moving pictures ----------------------------------------------------------------------------------------------------
static void gif_play_event(zof_ctrl_t *, zof_event_e event) {
    if (event == ZOF_EVENT_CLICKED) {
        zof_gif_play_count(at(14, VIEW14_GIF_WAITING_ID), 3);
    }
}

static void again_event(zof_ctrl_t *, zof_event_e event) {
    if (event != ZOF_EVENT_CLICKED) {
        return;
    }
    zof_animimg_reset_play(at(14, VIEW14_THRICE_ID)); // which forgets the count
    zof_animimg_set_repeat_count(at(14, VIEW14_THRICE_ID), 3);
}

static const zof_ctrl_fun_t moving_events[] = {
    PAGE_EVENTS, {VIEW14_GIF_PLAY_ID, gif_play_event}, {VIEW14_AGAIN_ID, again_event}};

static void moving_init(void) {
    zof_view_create(14, moving_events, sizeof(moving_events) / sizeof(moving_events[0]));
}

// Video and sound ----------------------------------------------------------------------------------------------------
enum { PLAY = 0, STOP = 1, PAUSE = 2, RESUME = 3 };

static void play_event(zof_ctrl_t *, zof_event_e event) {
    zof_ctrl_t *video = at(15, VIEW15_VIDEO_ID);
    if (event != ZOF_EVENT_CLICKED) {
        return;
    }
    const bool paused = zof_video_get_state(video) == PAUSE;
    if (!paused) {
        zof_video_set_src(video, "clip.mp4"); // not before: the sound begins with it
    }
    zof_video_set_state(video, paused ? RESUME : PLAY);
}

static void pause_event(zof_ctrl_t *, zof_event_e event) {
    if (event == ZOF_EVENT_CLICKED) {
        zof_video_set_state(at(15, VIEW15_VIDEO_ID), PAUSE);
    }
}

static void stop_event(zof_ctrl_t *, zof_event_e event) {
    if (event == ZOF_EVENT_CLICKED) {
        zof_video_set_state(at(15, VIEW15_VIDEO_ID), STOP);
    }
}

static void sound_event(zof_ctrl_t *ctrl, zof_event_e event) {
    if (event != ZOF_EVENT_CLICKED) {
        return;
    }
    zof_audio_set_src(ctrl == at(15, VIEW15_CHIME_ID) ? "chime.wav" : "scale.wav");
    zof_audio_set_state(PLAY);
}

static void beep_event(zof_ctrl_t *, zof_event_e event) {
    if (event == ZOF_EVENT_CLICKED) {
        zof_beep_on(150);
    }
}

static void volume_event(zof_ctrl_t *ctrl, zof_event_e event) {
    if (event == ZOF_EVENT_VALUE_CHANGED) {
        zof_video_set_volum(at(15, VIEW15_VIDEO_ID), (u8)zof_slider_get_value(ctrl));
    }
}

static const zof_ctrl_fun_t media_events[] = {PAGE_EVENTS,
                                              {VIEW15_PLAY_ID, play_event},
                                              {VIEW15_PAUSE_ID, pause_event},
                                              {VIEW15_STOP_ID, stop_event},
                                              {VIEW15_CHIME_ID, sound_event},
                                              {VIEW15_SCALE_ID, sound_event},
                                              {VIEW15_BEEP_ID, beep_event},
                                              {VIEW15_VOLUME_ID, volume_event}};

static void media_init(void) {
    zof_view_create(15, media_events, sizeof(media_events) / sizeof(media_events[0]));
    zof_slider_set_value(at(15, VIEW15_VOLUME_ID), 80);
}

static void media_exit(void) {
    zof_video_set_state(at(15, VIEW15_VIDEO_ID), STOP);
}

// Drawing ------------------------------------------------------------------------------------------------------------
template <u8 WIDTH> static void width_event(zof_ctrl_t *, zof_event_e event) {
    if (event == ZOF_EVENT_CLICKED) {
        zof_sketchpad_set_width(at(16, VIEW16_PAD_ID), WIDTH);
    }
}

static void clean_event(zof_ctrl_t *, zof_event_e event) {
    if (event == ZOF_EVENT_CLICKED) {
        zof_sketchpad_clean_bg(at(16, VIEW16_PAD_ID));
    }
}

static const zof_ctrl_fun_t drawing_events[] = {PAGE_EVENTS,
                                                {VIEW16_WIDTH2_ID, width_event<2>},
                                                {VIEW16_WIDTH4_ID, width_event<4>},
                                                {VIEW16_WIDTH8_ID, width_event<8>},
                                                {VIEW16_WIDTH16_ID, width_event<16>},
                                                {VIEW16_CLEAN_ID, clean_event}};

static void drawing_init(void) {
    zof_view_create(16, drawing_events, sizeof(drawing_events) / sizeof(drawing_events[0]));
    zof_img_recolor(at(16, VIEW16_PAD_ID), 0x2F8FE8, 255); // what is drawn is one colour's opacity
}

// Transitions --------------------------------------------------------------------------------------------------------
static struct {
    u32 path; // of all transitions; the button "path" goes through them
} transition = {ZOF_ANIM_PATH_END_SLOW};

static void way_event(zof_ctrl_t *ctrl, zof_event_e event) {
    if (event == ZOF_EVENT_CLICKED) {
        zof_view_set_dis_view_anim(INDEX, (u32)zof_ctrl_get_id_form_ctrl(ctrl) - VIEW17_WAY0_ID, 600, 0,
                                   transition.path);
    }
}

static void path_event(zof_ctrl_t *ctrl, zof_event_e event) {
    static const char *const names[] = {"linear", "start slow", "end slow", "both slow", "bounce", "step", "overshoot"};
    if (event != ZOF_EVENT_CLICKED) {
        return;
    }
    transition.path = transition.path % ZOF_ANIM_PATH_OVERSHOOT + 1;
    zof_btn_set_txt(ctrl, names[transition.path - ZOF_ANIM_PATH_LINEAR]);
}

static void transitions_init(void) {
    enum { WAYS = 19, COUNT = 3 + WAYS + 1 };
    static zof_ctrl_fun_t events[COUNT] = {PAGE_EVENTS, {VIEW17_PATH_ID, path_event}};
    for (u32 i = 0; i < WAYS; i++) {
        events[4 + i] = {VIEW17_WAY0_ID + i, way_event};
    }
    zof_view_create(17, events, COUNT);
}

static void nothing(void) {
}

static const zof_view_fun_t views[] = {
    {INDEX, index_init, nothing, nothing},    {2, plain_init<2>, nothing, nothing},
    {3, buttons_init, nothing, nothing},      {4, pictures_init, nothing, nothing},
    {5, values_init, nothing, nothing},       {6, switches_init, nothing, nothing},
    {7, lists_init, nothing, nothing},        {8, tables_init, nothing, nothing},
    {9, charts_init, nothing, nothing},       {10, plain_init<10>, nothing, nothing},
    {11, typing_init, nothing, nothing},      {12, messages_init, nothing, nothing},
    {13, plain_init<13>, nothing, nothing},   {14, moving_init, nothing, nothing},
    {15, media_init, nothing, media_exit},    {16, drawing_init, nothing, nothing},
    {17, transitions_init, nothing, nothing},
};
static_assert(sizeof(views) / sizeof(views[0]) == PAGES + 1);

void zof_main(void) {
    zof_lang_on_change(language_changed);
    zof_prj_create(views, sizeof(views) / sizeof(views[0]));
}
