// LVGL's symbols at any size, so that keyboards, lists and texts with symbols work with any font. They are scaled down
// from the largest of LVGL's fonts, except for the sizes that are built in.
#include <math.h>

#include "project/look/zof_font_in.h"
#include "zof_lib/zof_util.h"

enum { BULLET = 0x2022, FIRST = 0xF001, LAST = 0xF8FE, SIDE_MAX = 255 };

static constexpr double BASE_SIZE = 48;

static bool is_symbol(u32 code) {
    return code == BULLET || (code >= FIRST && code <= LAST);
}

static const lv_font_t *built_in(u32 size) {
    return size == 14 ? &lv_font_montserrat_14 : size == 16 ? &lv_font_montserrat_16 : nullptr;
}

static u32 size_of(const lv_font_t *font) {
    return (u32)(uintptr_t)font->user_data;
}

static double factor_of(const lv_font_t *font) {
    return size_of(font) / BASE_SIZE;
}

static bool base_glyph(lv_font_glyph_dsc_t *dsc, u32 code) {
    return is_symbol(code) && lv_font_montserrat_48.get_glyph_dsc(&lv_font_montserrat_48, dsc, code, 0);
}

// The box grows to whole pixels.
static bool scaled_dsc(const lv_font_t *font, lv_font_glyph_dsc_t *dsc, u32 code, u32) {
    if (!base_glyph(dsc, code)) {
        return false;
    }
    const double k = factor_of(font);
    dsc->adv_w = (u16)lround(dsc->adv_w * k);
    dsc->box_w = (u16)LV_CLAMP(1, lround(ceil(dsc->box_w * k)), SIDE_MAX);
    dsc->box_h = (u16)LV_CLAMP(1, lround(ceil(dsc->box_h * k)), SIDE_MAX);
    dsc->ofs_x = (s16)lround(dsc->ofs_x * k);
    dsc->ofs_y = (s16)lround(dsc->ofs_y * k);
    dsc->bpp = 8;
    return true;
}

// The opacity of a pixel of the base font's bitmap, 0 to 15. Rows are not padded.
static u32 base_pixel(const u8 *bits, const lv_font_glyph_dsc_t &dsc, u32 x, u32 y) {
    const u32 at = y * dsc.box_w + x;
    return x < dsc.box_w && y < dsc.box_h ? (at % 2 ? bits[at / 2] & 15u : bits[at / 2] >> 4u) : 0;
}

// The mean opacity, 0 to 255, of the part of the base bitmap from (x1, y1) to (x2, y2).
static u8 mean(const u8 *bits, const lv_font_glyph_dsc_t &dsc, double x1, double y1, double x2, double y2) {
    double sum = 0;
    for (u32 y = (u32)y1; y < y2; y++) {
        const double high = fmin(y2, y + 1.0) - fmax(y1, y);
        for (u32 x = (u32)x1; x < x2; x++) {
            sum += high * (fmin(x2, x + 1.0) - fmax(x1, x)) * base_pixel(bits, dsc, x, y);
        }
    }
    return (u8)lround(sum / ((x2 - x1) * (y2 - y1)) * 255 / 15);
}

static const u8 *scaled_bitmap(const lv_font_t *font, u32 code) {
    static u8 out[SIDE_MAX * SIDE_MAX];
    lv_font_glyph_dsc_t base;
    lv_font_glyph_dsc_t dsc;
    if (!base_glyph(&base, code) || !scaled_dsc(font, &dsc, code, 0)) {
        return nullptr;
    }
    const u8 *bits = lv_font_montserrat_48.get_glyph_bitmap(&lv_font_montserrat_48, code);
    const double k = 1 / factor_of(font);
    for (u32 y = 0; bits && y < dsc.box_h; y++) {
        for (u32 x = 0; x < dsc.box_w; x++) {
            out[y * dsc.box_w + x] = mean(bits, base, x * k, y * k, (x + 1) * k, (y + 1) * k);
        }
    }
    return bits ? out : nullptr;
}

static bool built_in_dsc(const lv_font_t *font, lv_font_glyph_dsc_t *dsc, u32 code, u32) {
    const lv_font_t *same = built_in(size_of(font));
    return is_symbol(code) && same->get_glyph_dsc(same, dsc, code, 0);
}

static const u8 *built_in_bitmap(const lv_font_t *font, u32 code) {
    const lv_font_t *same = built_in(size_of(font));
    return same->get_glyph_bitmap(same, code);
}

void zof_symbols_set_up(lv_font_t *font, u32 size) {
    *font = {};
    font->user_data = (void *)(uintptr_t)size;
    font->get_glyph_dsc = built_in(size) ? built_in_dsc : scaled_dsc;
    font->get_glyph_bitmap = built_in(size) ? built_in_bitmap : scaled_bitmap;
    font->line_height = (lv_coord_t)size;
}
