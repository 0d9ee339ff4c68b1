#include "ui/paint.h"

#include <stdio.h>
#include <string.h>

#include <string>

enum { LOOKS = LOOK_CHOSEN | LOOK_DEAD | LOOK_LATE | LOOK_HOLD };

void paint_text(para_t *ctrl, const char *text) {
    if (!ctrl || !ctrl->obj) {
        return;
    }
    const char *shown = zof_lang_get_cur_str(text);
    if (strcmp(zof_label_get_text(ctrl), shown ? shown : "") != 0) {
        zof_label_set_txt(ctrl, text);
    }
}

void paint_line(para_t *ctrl, const char *text, s32 width) {
    if (!ctrl || !ctrl->obj) {
        return;
    }
    const lv_font_t *font = lv_obj_get_style_text_font(ctrl->obj, LV_PART_MAIN);
    std::string line = text, cut = text;
    while (!cut.empty() && lv_txt_get_width(line.c_str(), (u32)line.size(), font, 0, LV_TEXT_FLAG_NONE) > width) {
        do {
            line = cut;
            cut.pop_back();
        } while (((u8)line.back() & 0xC0) == 0x80); // the remaining bytes of a character
        line = cut + "…";
    }
    paint_text(ctrl, line.c_str());
}

// Returns the translation of a text, or its English words if the language does not have it.
static const char *words_of(panel_text_e id) {
    const panel_text_t &text = panel_texts[id];
    const char *words = zof_lang_get_cur_str(text.key);
    return !words || words == text.key ? text.english : words;
}

void words_fill(char *out, size_t size, panel_text_e words, const char *a, const char *b, const char *c,
                const char *d) {
    const char *const fills[] = {a, b, c, d};
    size_t n = 0;
    for (const char *from = words_of(words); *from && n + 1 < size;) {
        if (from[0] == '{' && from[1] >= '0' && from[1] <= '3' && from[2] == '}') {
            for (const char *fill = fills[from[1] - '0']; *fill && n + 1 < size;) {
                out[n++] = *fill++;
            }
            from += 3;
        } else {
            out[n++] = *from++;
        }
    }
    out[n] = '\0';
}

void paint_words(para_t *ctrl, panel_text_e words, const char *a, const char *b, const char *c, const char *d) {
    char text[PAINT_TEXT_SIZE];
    words_fill(text, sizeof(text), words, a, b, c, d);
    paint_text(ctrl, text);
}

void paint_shown(para_t *ctrl, bool shown) {
    if (ctrl && ctrl->obj && (zof_ctrl_get_hidden(ctrl) != 0) == shown) {
        zof_ctrl_set_hidden(ctrl, !shown);
    }
}

void paint_touch(para_t *ctrl, bool touch) {
    if (ctrl && ctrl->obj && lv_obj_has_flag(ctrl->obj, LV_OBJ_FLAG_CLICKABLE) != touch) {
        zof_ctrl_set_touch(ctrl, touch);
    }
}

void paint_keeps_finger(para_t *ctrl, bool keeps) {
    if (!ctrl || !ctrl->obj) {
        return;
    }
    if (keeps) {
        lv_obj_add_flag(ctrl->obj, LV_OBJ_FLAG_PRESS_LOCK);
    } else {
        lv_obj_clear_flag(ctrl->obj, LV_OBJ_FLAG_PRESS_LOCK);
    }
}

void paint_align(para_t *ctrl, u32 align) {
    enum { MIDDLE = 0x20 };
    if (ctrl && ctrl->obj && lv_obj_get_style_text_align(ctrl->obj, LV_PART_MAIN) != align) {
        zof_label_set_align(ctrl, align | MIDDLE);
    }
}

void paint_look(para_t *ctrl, u32 look) {
    if (!ctrl || !ctrl->obj) {
        return;
    }
    const u32 now = (u32)zof_ctrl_get_state(ctrl) & LOOKS;
    if (now == look) {
        return;
    }
    if (now & ~look) {
        zof_ctrl_clear_state(ctrl, now & ~look);
    }
    if (look) {
        zof_ctrl_add_state(ctrl, look);
    }
}

void paint_ink(para_t *ctrl, zof_color_t color) {
    if (ctrl && ctrl->obj &&
        (lv_color_to32(lv_obj_get_style_text_color(ctrl->obj, LV_PART_MAIN)) & 0xFFFFFF) != (color & 0xFFFFFF)) {
        zof_label_set_txt_color(ctrl, color);
    }
}

void paint_ground(para_t *ctrl, zof_color_t color) {
    if (ctrl && ctrl->obj &&
        (lv_color_to32(lv_obj_get_style_bg_color(ctrl->obj, LV_PART_MAIN)) & 0xFFFFFF) != (color & 0xFFFFFF)) {
        zof_ctrl_style_set_bg_color(ctrl, color, LV_PART_MAIN);
    }
}

void paint_size(para_t *ctrl, u32 size) {
    if (ctrl && ctrl->obj && (u32)lv_obj_get_style_text_font(ctrl->obj, LV_PART_MAIN)->line_height != size) {
        zof_label_set_txt_size(ctrl, size);
    }
}

void paint_line_space(para_t *ctrl, s32 pixels) {
    if (ctrl && ctrl->obj && lv_obj_get_style_text_line_space(ctrl->obj, LV_PART_MAIN) != pixels) {
        lv_obj_set_style_text_line_space(ctrl->obj, (lv_coord_t)pixels, LV_PART_MAIN);
    }
}

void paint_place(para_t *ctrl, s32 x, s32 y, s32 width, s32 height) {
    if (!ctrl || !ctrl->obj) {
        return;
    }
    if (zof_ctrl_get_x(ctrl) != x || zof_ctrl_get_y(ctrl) != y) {
        zof_ctrl_set_pos(ctrl, x, y);
    }
    if (zof_ctrl_get_width(ctrl) != width || zof_ctrl_get_height(ctrl) != height) {
        zof_ctrl_set_size(ctrl, width, height);
    }
}

const char *number_volts(char *out, u32 mv) {
    snprintf(out, PAINT_NUMBER_SIZE, "%u.%02u V", mv / 1000, mv % 1000 / 10);
    return out;
}

const char *number_amperes(char *out, u32 ma) {
    snprintf(out, PAINT_NUMBER_SIZE, "%u.%02u A", ma / 1000, ma % 1000 / 10);
    return out;
}

const char *number_amperes_fine(char *out, u32 ma) {
    snprintf(out, PAINT_NUMBER_SIZE, "%u.%03u A", ma / 1000, ma % 1000);
    return out;
}

const char *number_watts(char *out, u32 dw) {
    snprintf(out, PAINT_NUMBER_SIZE, "%u.%u W", dw / 10, dw % 10);
    return out;
}

const char *number_age(char *out, u64 ms) {
    const unsigned s = (unsigned)(ms / 1000);
    if (s < 60) {
        snprintf(out, PAINT_NUMBER_SIZE, "%u s", s);
    } else if (s < 3600) {
        snprintf(out, PAINT_NUMBER_SIZE, "%u min", s / 60);
    } else {
        snprintf(out, PAINT_NUMBER_SIZE, "%u h", s / 3600);
    }
    return out;
}
