// View 2: the list of rails. The board writes it into the register image and commits it. The user selects a row, sets
// voltage and current limit on an adjustable rail, and applies it.
#include <stdio.h>
#include <string.h>

#include "bench_ids.h"
#include "hardware/uart/zof_hw_uart.h"
#include "ui/view_wiring.h"
#include "zof_main.h"

prof_t g_prof[RAIL_MAX]; // the table as last committed
u8 g_prof_n;
u8 g_sel = RAIL_NONE;
u8 g_panel_up; // the adjust panel counts as shown

// The value on the apply button, to write it again in another language.
static struct {
    panel_text_e text;
    u16 mv;
    u8 enabled;
} button = {TEXT_SELECT, 0, 0};

static para_t *view2(u32 id) {
    return zof_ctrl_get_form_id(ZOF_VIEW2_ID, id);
}

static para_t *cell(u8 row, row_column_e column) {
    return view2(ROW_ID[row][column]);
}

static bool is_ranged(const prof_t *p) {
    return p->vmin != p->vmax;
}

void show_row(u8 i, u8 vis) {
    if (i >= RAIL_MAX) {
        return;
    }
    for (u16 id : ROW_ID[i]) {
        zof_ctrl_set_hidden(view2(id), vis == 0);
    }
}

void highlight_row(u8 i, u8 on) {
    if (i >= RAIL_MAX) {
        return;
    }
    para_t *bg = cell(i, COL_BG);
    para_t *box = view2(VIEW2_SELBOX_ID);
    zof_ctrl_set_hidden(cell(i, COL_CHECK), on == 0);
    zof_ctrl_style_set_bg_color(bg, on ? COLOR_AMBER_BED : COLOR_CARD, 0);
    if (on && bg) {
        zof_ctrl_set_pos(box, zof_ctrl_get_x(bg), zof_ctrl_get_y(bg));
        zof_ctrl_set_size(box, zof_ctrl_get_width(bg), zof_ctrl_get_height(bg));
        zof_ctrl_move_forground(box);
    }
    zof_ctrl_set_hidden(box, on == 0);
}

static const badge_t &badge_of(u16 type) {
    for (const badge_t &badge : badges) {
        if (badge.type == type) {
            return badge;
        }
    }
    return badges[0]; // of a fixed rail
}

void fill_row(u8 i, prof_t *p) {
    if (i >= RAIL_MAX || !p) {
        return;
    }
    const badge_t &badge = badge_of(p->type);
    zof_label_set_txt(cell(i, COL_BADGE), badge.text);
    zof_ctrl_style_set_bg_color(cell(i, COL_BADGE), badge.bg, 0);
    zof_label_set_txt_color(cell(i, COL_BADGE), badge.ink);
    char volt[20];
    if (is_ranged(p)) {
        snprintf(volt, sizeof(volt), "%u.%u-%u.%u V", p->vmin / 1000u, p->vmin % 1000u / 100, p->vmax / 1000u,
                 p->vmax % 1000u / 100);
    } else {
        snprintf(volt, sizeof(volt), "%u.%02u V", p->vmin / 1000u, p->vmin % 1000u / 10);
    }
    zof_label_set_txt(cell(i, COL_VOLT), volt);
    zof_label_set_txt(cell(i, COL_META), panel_text(is_ranged(p) ? TEXT_ADJUSTABLE_RAIL : TEXT_FIXED_RAIL));
    char curr[16];
    snprintf(curr, sizeof(curr), "%u.%u A", p->imax / 1000u, p->imax % 1000u / 100);
    zof_label_set_txt(cell(i, COL_CURR), curr);
    zof_label_set_txt(cell(i, COL_CHECK), CHECK_MARK);
    zof_label_set_txt_color(cell(i, COL_CHECK), COLOR_AMBER);
    show_row(i, 1);
}

void use_btn_set(u8 enabled, const char *txt) {
    para_t *use = view2(VIEW2_LABEL84_ID);
    zof_label_set_txt(use, txt);
    zof_ctrl_style_set_bg_color(use, enabled ? COLOR_AMBER : COLOR_RAISED, 0);
    zof_label_set_txt_color(use, enabled ? COLOR_AMBER_INK : COLOR_DIM);
}

// A language file is data: a format from it must take two numbers and nothing else.
static bool is_use_format(const char *text) {
    const char *first = strstr(text, "%u");
    const char *second = first ? strstr(first + 2, "%02u") : nullptr;
    return second && charCount(text, '%') == 2;
}

// Writes "Use 12.04 V" in the current language. A translation that is not a format of two unsigned numbers is ignored.
static void use_text(char *out, size_t size, u16 mv) {
    const char *format = zof_lang_get_cur_str(panel_text(TEXT_USE));
    if (!is_use_format(format)) {
        format = panel_texts[TEXT_USE].english;
    }
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
    snprintf(out, size, format, mv / 1000u, mv % 1000u / 10);
#pragma GCC diagnostic pop
}

static void button_paint() {
    char text[48];
    if (button.text == TEXT_USE) {
        use_text(text, sizeof(text), button.mv);
        use_btn_set(button.enabled, text);
    } else {
        use_btn_set(button.enabled, panel_text(button.text));
    }
}

static void button_say(u8 enabled, panel_text_e text, u16 mv = 0) {
    button = {text, mv, enabled};
    button_paint();
}

void adj_labels(u16 mv, u16 ma) {
    char text[16];
    snprintf(text, sizeof(text), "%u.%02u V", mv / 1000u, mv % 1000u / 10);
    zof_label_set_txt(view2(VIEW2_LABEL82_ID), text);
    snprintf(text, sizeof(text), "%u.%u A", ma / 1000u, ma % 1000u / 100);
    zof_label_set_txt(view2(VIEW2_LABEL83_ID), text);
}

void adj_panel(u8 show) {
    if (show != g_panel_up) {
        zof_ctrl_set_hidden(view2(VIEW2_CONTAINER1_ID), show == 0);
        g_panel_up = show;
    }
}

// An adjustable rail opens at its maximum, not at its last value.
void update_adjust(u8 i) {
    if (i >= RAIL_MAX) {
        return;
    }
    const prof_t *p = &g_prof[i];
    if (prof_adjustable(p)) {
        zof_slider_set_range(view2(VIEW2_SLIDER0_ID), (s16)p->vmin, (s16)p->vmax);
        zof_slider_set_value(view2(VIEW2_SLIDER0_ID), (s16)p->vmax);
        zof_slider_set_range(view2(VIEW2_SLIDER1_ID), 0, (s16)p->imax);
        zof_slider_set_value(view2(VIEW2_SLIDER1_ID), (s16)p->imax);
        adj_labels(p->vmax, p->imax);
        adj_panel(1);
        button_say(1, TEXT_USE, p->vmax);
    } else {
        adj_panel(0);
        button_say(1, TEXT_USE, p->vmin);
    }
}

static void deselect() {
    if (g_sel != RAIL_NONE) {
        highlight_row(g_sel, 0);
    }
    g_sel = RAIL_NONE;
}

void select_row_by_bg(zof_ctrl_t *ctrl) {
    if (g_panel_up) { // while the panel is shown, a tap on any row only hides it
        deselect();
        adj_panel(0);
        button_say(0, TEXT_SELECT);
        return;
    }
    for (u8 row = 0; row < RAIL_MAX; row++) {
        if (ctrl && ctrl == cell(row, COL_BG)) {
            deselect();
            g_sel = row;
            highlight_row(row, 1);
            update_adjust(row);
            return;
        }
    }
}

void view2_slider_changed(u8 which) {
    (void)which; // both are read, whichever one moved
    const u16 mv = (u16)zof_slider_get_value(view2(VIEW2_SLIDER0_ID));
    const u16 ma = (u16)zof_slider_get_value(view2(VIEW2_SLIDER1_ID));
    adj_labels(mv, ma);
    button_say(1, TEXT_USE, mv);
}

void view2_use_apply(void) {
    if (g_sel == RAIL_NONE) {
        return;
    }
    if (prof_adjustable(&g_prof[g_sel])) {
        zof_reg_report(REG_ADJ_MV, (u16)zof_slider_get_value(view2(VIEW2_SLIDER0_ID)));
        zof_reg_report(REG_ADJ_MA, (u16)zof_slider_get_value(view2(VIEW2_SLIDER1_ID)));
    }
    zof_reg_report(REG_RAIL_SELECT, g_sel);
    button_say(1, TEXT_APPLIED);
    g_applied = g_sel;
    g_arm_pending = 1;
    slide_to(ZOF_VIEW1_ID, ZOF_SCR_LOAD_ANIM_MOVE_RIGHT);
}

void view2_reset_panel(void) {
    adj_labels(0, 0);
    zof_ctrl_set_hidden(view2(VIEW2_CONTAINER1_ID), ZOF_TRUE);
    zof_ctrl_set_hidden(view2(VIEW2_SELBOX_ID), ZOF_TRUE);
    g_panel_up = 0;
    zof_ctrl_set_ext_click_area(view2(VIEW2_SLIDER0_ID), 24);
    zof_ctrl_set_ext_click_area(view2(VIEW2_SLIDER1_ID), 24);
    button_say(0, TEXT_SELECT);
    zof_reg_report(REG_RAIL_REQUEST, 1);
}

// The sliders use signed 16 bits. A rail beyond that is shown anyway, and a message says that its slider is wrong.
static void check_slider(u8 i, const prof_t *p) {
    const char *why = p->vmin > p->vmax     ? "its lowest voltage is above its highest"
                      : p->vmax > INT16_MAX ? "its voltage is above 32767 mV"
                      : p->imax > INT16_MAX ? "its current is above 32767 mA"
                      : p->imax == 0        ? "its current limit is 0"
                                            : nullptr;
    if (why && prof_adjustable(p)) {
        zof_printf("register link: rail %u (%u to %u mV, %u mA): %s, so its slider cannot be trusted", i, p->vmin,
                   p->vmax, p->imax, why);
    }
}

// A board commits the same table again and again; the message appears only for new numbers.
static void read_rail(u8 i) {
    const u16 base = (u16)(REG_RAIL_BASE + RAIL_WORDS * i);
    const prof_t old = g_prof[i];
    prof_t *p = &g_prof[i];
    *p = {(u16)zof_reg_get(base), (u16)zof_reg_get((u16)(base + 1)), (u16)zof_reg_get((u16)(base + 2)),
          (u16)zof_reg_get((u16)(base + 3))};
    if (old.type != p->type || old.vmin != p->vmin || old.vmax != p->vmax || old.imax != p->imax) {
        check_slider(i, p);
    }
}

// The board has written the table and commits it. `g_panel_up` stays: the next tap hides a panel that is shown.
void rail_commit(void) {
    g_prof_n = (u8)reg_value(REG_RAIL_COUNT, (u16)zof_reg_get(REG_RAIL_COUNT));
    g_sel = RAIL_NONE;
    zof_ctrl_set_hidden(view2(VIEW2_CONTAINER1_ID), ZOF_TRUE);
    button_say(0, TEXT_SELECT);
    zof_ctrl_set_hidden(view2(VIEW2_LABEL78_ID), g_prof_n != 0);
    zof_ctrl_set_hidden(view2(VIEW2_LABEL79_ID), g_prof_n != 0);
    for (u8 i = 0; i < RAIL_MAX; i++) {
        if (i < g_prof_n) {
            read_rail(i);
            fill_row(i, &g_prof[i]);
            zof_ctrl_set_hidden(cell(i, COL_CHECK), ZOF_TRUE);
        } else {
            show_row(i, 0);
        }
    }
    if (g_prof_n == 0) {
        g_applied = RAIL_NONE;
    }
    if (g_applied != RAIL_NONE && g_applied < g_prof_n) {
        g_sel = g_applied;
        highlight_row(g_applied, 1);
    }
}

// Texts that the language change does not update by itself: formatted ones, and those written as English text because
// the language did not have them.
void panel_lang_changed(void) {
    view1_set_output_btn(g_out_on);
    for (u8 i = 0; i < g_prof_n; i++) {
        zof_label_set_txt(cell(i, COL_META),
                          panel_text(is_ranged(&g_prof[i]) ? TEXT_ADJUSTABLE_RAIL : TEXT_FIXED_RAIL));
    }
    button_paint();
}

static void row_event(zof_ctrl_t *ctrl, zof_event_e event) {
    if (event == ZOF_EVENT_CLICKED) {
        select_row_by_bg(ctrl);
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

// There is no control 94. A rail is selected by the background of its row.
static constexpr auto view_ctrls_fun_t = [] {
    auto rows = view_rows<95>(
        {
            {VIEW2_SLIDER0_ID, slider_event<0>},
            {VIEW2_SLIDER1_ID, slider_event<1>},
            {VIEW2_LABEL84_ID, click_event<view2_use_apply>},
            {VIEW2_LABEL85_ID, to_output_event},
            {VIEW2_LABEL86_ID, tab_event<ZOF_VIEW1_ID>},
            {VIEW2_LABEL88_ID, tab_event<ZOF_VIEW3_ID>},
            {VIEW2_LABEL89_ID, tab_event<ZOF_VIEW4_ID>},
        },
        94);
    for (const auto &ids : ROW_ID) {
        rows[ids[COL_BG] - 1u].zof_ctrl_event = row_event;
    }
    return rows;
}();

void view2_init(void) {
    zof_view_create(ZOF_VIEW2_ID, view_ctrls_fun_t.data(), view_ctrls_fun_t.size());
}

void view2_entry(void) {
    view2_reset_panel();
}

void view2_exit(void) {
}
