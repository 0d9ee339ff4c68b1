// The layout of a text. LVGL lays it out; its function for drawing a letter is replaced by one that records the letter.
#include <algorithm>
#include <cmath>
#include <cstring>

#include "inspect/zof_inspect_review_in.h"

enum : u32 { DUMMY = 0xF8FF, NON_JOINER = 0x200C, CJK_FIRST = 0x2E80, SYMBOLS_FIRST = 0xE000, SYMBOLS_LAST = 0xF8FF };

struct letter_t {
    u32 code;
    lv_coord_t y; // of its line
    lv_area_t ink;
    bool has_ink;
};

extern "C" void __real_lv_draw_label(lv_draw_ctx_t *ctx, const lv_draw_label_dsc_t *dsc, const lv_area_t *coords,
                                     const char *text,
                                     lv_draw_label_hint_t *hint); // NOLINT(bugprone-reserved-identifier)

static std::vector<letter_t> letters; // of the text that is being laid out
static std::string missing;

static std::string utf8(u32 code) {
    const u32 encoded = _lv_txt_unicode_to_encoded(code);
    return std::string((const char *)&encoded, strnlen((const char *)&encoded, sizeof(encoded)));
}

static void letter_note(lv_draw_ctx_t *, const lv_draw_label_dsc_t *dsc, const lv_point_t *at, u32 code) {
    lv_font_glyph_dsc_t g = {};
    const bool found = lv_font_get_glyph_dsc(dsc->font, &g, code, 0) && !g.is_placeholder;
    if (!found && code >= ' ' && code != DUMMY && code != NON_JOINER && missing.find(utf8(code)) == missing.npos) {
        missing += utf8(code);
    }
    const lv_coord_t x = (lv_coord_t)(at->x + g.ofs_x);
    const lv_coord_t y = (lv_coord_t)(at->y + dsc->font->line_height - dsc->font->base_line - g.box_h - g.ofs_y);
    letters.push_back({code,
                       at->y,
                       {x, y, (lv_coord_t)(x + g.box_w - 1), (lv_coord_t)(y + g.box_h - 1)},
                       found && g.box_w != 0 && g.box_h != 0});
}

static void rect_none(lv_draw_ctx_t *, const lv_draw_rect_dsc_t *, const lv_area_t *) {
}

static void line_none(lv_draw_ctx_t *, const lv_draw_line_dsc_t *, const lv_point_t *, const lv_point_t *) {
}

static bool in_word(u32 code) {
    return code > ' ' && code < CJK_FIRST && (code >= 0x80 || !strchr(LV_TXT_BREAK_CHARS, (int)code));
}

// Returns the word around the letter at `i`, without the line break in it.
static std::string word_at(size_t i) {
    std::string word;
    while (i > 0 && in_word(letters[i - 1].code)) {
        i--;
    }
    for (; i < letters.size() && in_word(letters[i].code); i++) {
        word += utf8(letters[i].code);
    }
    return word;
}

static void lines_take(review_layout_t *out) {
    for (size_t i = 0; i < letters.size(); i++) {
        const letter_t &letter = letters[i];
        const bool next_line = i > 0 && letters[i - 1].y != letter.y;
        if (next_line && out->broken.empty() && in_word(letters[i - 1].code) && in_word(letter.code)) {
            out->broken = word_at(i);
        }
        out->symbols =
            out->symbols && (letter.code <= ' ' || (letter.code >= SYMBOLS_FIRST && letter.code <= SYMBOLS_LAST));
        if (next_line || i == 0) {
            out->lines.push_back({1, 1, 0, 0});
        }
        lv_area_t *line = &out->lines.back();
        if (letter.has_ink && line->x1 > line->x2) {
            *line = letter.ink;
        } else if (letter.has_ink) {
            _lv_area_join(line, line, &letter.ink);
        }
    }
    out->lines.erase(
        std::remove_if(out->lines.begin(), out->lines.end(), [](const lv_area_t &line) { return line.x1 > line.x2; }),
        out->lines.end());
}

review_layout_t review_layout(lv_draw_ctx_t *ctx, const lv_draw_label_dsc_t *dsc, const lv_area_t *coords,
                              const char *text) {
    const lv_area_t everywhere = {-LV_COORD_MAX, -LV_COORD_MAX, LV_COORD_MAX, LV_COORD_MAX};
    lv_draw_ctx_t noting = *ctx;
    noting.draw_letter = letter_note;
    noting.draw_rect = rect_none;
    noting.draw_line = line_none;
    noting.clip_area = &everywhere;
    letters.clear();
    missing.clear();
    __real_lv_draw_label(&noting, dsc, coords, text, nullptr);
    review_layout_t out = {.symbols = true};
    lines_take(&out);
    out.missing = missing;
    out.broken_width =
        lv_txt_get_width(out.broken.c_str(), (u32)out.broken.size(), dsc->font, dsc->letter_space, LV_TEXT_FLAG_NONE);
    return out;
}

static double linear(u32 part) {
    const double share = part / 255.0;
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

static double luminance(u32 color) {
    static double table[256]; // of a part of a colour
    if (table[255] == 0) {
        for (u32 i = 0; i < 256; i++) {
            table[i] = linear(i);
        }
    }
    return 0.2126 * table[color >> 16 & 255] + 0.7152 * table[color >> 8 & 255] + 0.0722 * table[color & 255];
}

double review_contrast(u32 a, u32 b) {
    const double one = luminance(a) + 0.05;
    const double two = luminance(b) + 0.05;
    return std::max(one, two) / std::min(one, two);
}
