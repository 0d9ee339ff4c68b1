// The bitmap font: the input is the file. Reads the glyphs of all codes in the header, and draws a text.
#include "fuzz_file.h"
#include "project/look/zof_font.h"
#include "screen_fixture.h"
#include "temp_project.h"

enum { CODES = 24 };

static temp_project_t project;
static lv_obj_t *label;

void fuzz_open() {
    project.open();
    screen_open(64, 48);
    label = lv_label_create(lv_scr_act());
    lv_label_set_text(label, "abc\nZ\xE4\xB8\xAD#");
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

void fuzz_one(fuzz_input &in) {
    static const std::string name = "font/x.bin";
    fuzz_file_set(project.path(name), fuzz_text(in));
    lv_font_t font = {};
    if (zof_binfont_create(&font, project.path(name).c_str()) == 0) {
        glyphs_read(&font, &((zof_binfont_t *)font.user_data)->header);
        lv_obj_set_style_text_font(label, &font, 0);
        lv_refr_now(nullptr);
        lv_obj_set_style_text_font(label, LV_FONT_DEFAULT, 0);
        zof_binfont_delete(&font);
    }
}
