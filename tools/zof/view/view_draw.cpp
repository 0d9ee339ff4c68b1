#include "view_draw.h"

#include <algorithm>

#include "lvgl.h"
#include "port/win_scale.h"
#include "port/zof_port.h"
#include "zof_lib/zof_stdio.h"

static const lv_font_t *const font = &lv_font_montserrat_14;

view_image_t view_image(s32 width, s32 height, u32 color) {
    view_image_t image = {width, height, {}};
    image.pixels.assign((size_t)width * (size_t)height, color);
    return image;
}

static u32 mixed(u32 below, u32 above, u32 opacity) {
    u32 out = 0;
    for (u32 shift = 0; shift < 24; shift += 8) {
        const u32 a = above >> shift & 255;
        const u32 b = below >> shift & 255;
        out |= (a * opacity + b * (255 - opacity) + 127) / 255 << shift;
    }
    return out;
}

static void pixel(view_image_t *image, s32 x, s32 y, u32 color, u32 opacity) {
    if (x >= 0 && y >= 0 && x < image->width && y < image->height) {
        u32 *at = &image->pixels[(size_t)y * (size_t)image->width + (size_t)x];
        *at = mixed(*at, color, opacity);
    }
}

void view_fill(view_image_t *image, view_box_t box, u32 color, u8 opacity) {
    const s32 right = std::min(box.x + box.w, image->width);
    const s32 bottom = std::min(box.y + box.h, image->height);
    for (s32 y = std::max(box.y, 0); y < bottom; y++) {
        for (s32 x = std::max(box.x, 0); x < right; x++) {
            pixel(image, x, y, color, opacity);
        }
    }
}

void view_frame(view_image_t *image, view_box_t box, u32 color, s32 thick) {
    view_fill(image, {box.x - thick, box.y - thick, box.w + 2 * thick, thick}, color, 255);
    view_fill(image, {box.x - thick, box.y + box.h, box.w + 2 * thick, thick}, color, 255);
    view_fill(image, {box.x - thick, box.y, thick, box.h}, color, 255);
    view_fill(image, {box.x + box.w, box.y, thick, box.h}, color, 255);
}

// Returns the next character of a UTF-8 text; "?" for invalid bytes.
static u32 letter_next(const std::string &text, u32 *at) {
    const u32 letter = _lv_txt_encoded_next(text.c_str(), at);
    return letter ? letter : '?';
}

static lv_font_glyph_dsc_t glyph_of(u32 *letter) {
    lv_font_glyph_dsc_t glyph = {};
    if (!font->get_glyph_dsc(font, &glyph, *letter, 0)) {
        *letter = '?';
        font->get_glyph_dsc(font, &glyph, *letter, 0);
    }
    return glyph;
}

// The built-in fonts have 4 bits per pixel, without gaps between rows.
static void glyph_draw(view_image_t *image, s32 x, s32 y, u32 letter, const lv_font_glyph_dsc_t &glyph, u32 color) {
    const u8 *bits = font->get_glyph_bitmap(font, letter);
    const s32 top = y + font->line_height - font->base_line - glyph.box_h - glyph.ofs_y;
    for (s32 i = 0; bits && i < glyph.box_w * glyph.box_h; i++) {
        const u32 opacity = (i % 2 ? bits[i / 2] & 15u : bits[i / 2] >> 4) * 17u;
        pixel(image, x + glyph.ofs_x + i % glyph.box_w, top + i / glyph.box_w, color, opacity);
    }
}

void view_text(view_image_t *image, s32 x, s32 y, const std::string &text, u32 color) {
    for (u32 at = 0; at < text.size();) {
        u32 letter = letter_next(text, &at);
        const lv_font_glyph_dsc_t glyph = glyph_of(&letter);
        glyph_draw(image, x, y, letter, glyph, color);
        x += glyph.adv_w;
    }
}

s32 view_text_width(const std::string &text) {
    s32 width = 0;
    for (u32 at = 0; at < text.size();) {
        u32 letter = letter_next(text, &at);
        width += glyph_of(&letter).adv_w;
    }
    return width;
}

void view_copy(view_image_t *image, view_box_t box, const view_image_t &from) {
    win_fit_t fit = win_fit_make(from.width, from.height, box.w, box.h);
    win_scale_t scale = {};
    if (win_scale_make(&scale, &fit, WIN_SCALE_ONE)) {
        for (s32 y = 0; y < fit.out.h; y++) {
            u32 *row = &image->pixels[(size_t)(box.y + fit.out.y + y) * (size_t)image->width];
            win_scale_row(&scale, from.pixels.data(), 0, y, fit.out.w, row + box.x + fit.out.x);
        }
    }
    win_scale_free(&scale);
}

std::string view_png(const view_image_t &image) {
    size_t size = 0;
    u8 *png = zof_shot_png_make(image.pixels.data(), image.width, image.height, &size);
    std::string bytes((const char *)png, png ? size : 0);
    zof_lv_free(png);
    return bytes;
}

// LVGL compiles it as C; its own header would declare C++ functions.
extern "C" unsigned lodepng_decode32(unsigned char **out, unsigned *w, unsigned *h, const unsigned char *in,
                                     size_t insize);

bool view_png_read(view_image_t *image, const std::string &bytes) {
    unsigned char *rgba = nullptr;
    unsigned width = 0;
    unsigned height = 0;
    const bool read = lodepng_decode32(&rgba, &width, &height, (const u8 *)bytes.data(), bytes.size()) == 0;
    if (read) {
        *image = view_image((s32)width, (s32)height, 0);
        for (size_t i = 0; i < image->pixels.size(); i++) {
            image->pixels[i] = 0xFF000000u | (u32)rgba[i * 4] << 16 | (u32)rgba[i * 4 + 1] << 8 | rgba[i * 4 + 2];
        }
    }
    zof_lv_free(rgba);
    return read;
}

std::string view_base64(const char *text) {
    static const char digits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string bytes;
    u32 bits = 0;
    u32 count = 0;
    for (const char *digit; *text && (digit = strchr(digits, *text)); text++) {
        bits = bits << 6 | (u32)(digit - digits);
        count += 6;
        if (count >= 8) {
            count -= 8;
            bytes += (char)(bits >> count);
        }
    }
    return bytes;
}
