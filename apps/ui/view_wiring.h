// What several views use: their control tables, tabs and links, and the texts that code writes.
//
// A view's control table has one row per id, empty where nothing is wired. The ids of a view are small and dense, so
// only the wired rows are written down, and the empty ones are added at compile time.
#ifndef VIEW_WIRING_H
#define VIEW_WIRING_H

#include <array>

#include "bench_look.h"
#include "zof.h"

// Returns a text for a label: the language key, which the label keeps across language changes, or the English text if
// the language does not have it.
inline const char *panel_text(panel_text_e id) {
    const panel_text_t &text = panel_texts[id];
    return zof_lang_get_cur_str(text.key) == text.key ? text.english : text.key;
}

// Controls without a function of their own still need a row, for the press tone and the touch hook.
inline void no_event(zof_ctrl_t *, zof_event_e) {
}

// Rows for ids 1 to N + gaps, in order, without the ids in `skip`.
template <size_t N, size_t W>
constexpr std::array<zof_ctrl_fun_t, N> view_rows(const zof_ctrl_fun_t (&wired)[W], u32 skip = 0) {
    std::array<zof_ctrl_fun_t, N> rows{};
    u32 id = 0;
    for (zof_ctrl_fun_t &row : rows) {
        id += id + 1 == skip ? 2 : 1;
        row = {id, no_event};
        for (const zof_ctrl_fun_t &w : wired) {
            row = w.ctrl_id == id ? w : row;
        }
    }
    return rows;
}

template <void (*DO)()> void click_event(zof_ctrl_t *, zof_event_e event) {
    if (event == ZOF_EVENT_CLICKED) {
        DO();
    }
}

// Links to another view slide, slow at the end; tabs change the view immediately.
inline void slide_to(u32 view, u32 transition) {
    zof_view_set_dis_view_anim(view, transition, 250, 0, ZOF_ANIM_PATH_END_SLOW);
}

inline void tab_to(u32 view) {
    zof_view_set_dis_view_anim(view, ZOF_SCR_LOAD_ANIM_NONE, 0, 0, ZOF_ANIM_PATH_END_SLOW);
}

template <u32 VIEW> void tab_event(zof_ctrl_t *, zof_event_e event) {
    if (event == ZOF_EVENT_CLICKED) {
        tab_to(VIEW);
    }
}

// A link label: bright while pressed, otherwise amber.
inline void link_event(zof_ctrl_t *ctrl, zof_event_e event, u32 view, u32 transition) {
    if (event == ZOF_EVENT_PRESSED) {
        zof_label_set_txt_color(ctrl, COLOR_AMBER_HI);
    } else if (event == ZOF_EVENT_PRESS_LOST || event == ZOF_EVENT_CLICKED) {
        zof_label_set_txt_color(ctrl, COLOR_AMBER);
    }
    if (event == ZOF_EVENT_CLICKED) {
        slide_to(view, transition);
    }
}

#endif
