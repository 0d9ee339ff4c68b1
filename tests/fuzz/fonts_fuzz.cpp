// Fonts: the first byte selects a bitmap font or the size of a TrueType font, which goes through the loader; the rest
// is the file. Draws a text with it; of a bitmap font it also reads the glyphs of all codes in the header.
#include "fuzz_file.h"
#include "project/look/zof_font.h"
#include "screen_fixture.h"
#include "temp_project.h"

enum { CODES = 24 };

static temp_project_t project;
static lv_obj_t *label;

void fuzz_open() {
    project.write("font/x.ttf", "checked before it is opened");
    project.open();
    screen_open(64, 48);
    label = lv_label_create(lv_scr_act());
    lv_label_set_text(label, "ABabc\nZ\xE4\xB8\xAD#");
}

static void draw(const lv_font_t *font) {
    lv_obj_set_style_text_font(label, font, 0);
    lv_refr_now(nullptr);
    lv_obj_set_style_text_font(label, LV_FONT_DEFAULT, 0);
}

static void glyphs_read(const lv_font_t *font, const zof_font_header_t *header) {
    for (u32 i = 0; i < CODES; i++) {
        const u32 code = header->code_min + i;
        lv_font_glyph_dsc_t glyph = {};
        const bool is = zof_font_get_glyph_dsc(font, &glyph, code, 0);
        const u8 *bits = is ? zof_font_get_bitmap(font, code) : nullptr;
        fuzz_read(bits, bits ? (size_t)glyph.box_w * glyph.box_h * glyph.bpp / 8 : 0);
    }
}

static void bitmap_font(const std::string &path) {
    lv_font_t font = {};
    if (zof_binfont_create(&font, path.c_str()) == 0) {
        glyphs_read(&font, &((zof_binfont_t *)font.user_data)->header);
        draw(&font);
        zof_binfont_delete(&font);
    }
}

void fuzz_one(fuzz_input &in) {
    static const u32 sizes[] = {0, 1, 12, 40, 300}; // 0: a bitmap font
    const u32 size = sizes[fuzz_byte(in) % std::size(sizes)];
    const std::string path = project.path(size ? "font/x.ttf" : "font/x.bin");
    fuzz_file_set(path, fuzz_text(in));
    if (size == 0) {
        bitmap_font(path);
        return;
    }
    if (lv_font_t *font = zof_font_create_lvfont("x.ttf", size)) {
        draw(font);
    }
    zof_font_delete("x.ttf", size);
}
