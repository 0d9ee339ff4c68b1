// TrueType through the loader: the first byte selects the size, the rest is the file. Draws a text with it.
#include "fuzz_file.h"
#include "project/look/zof_font.h"
#include "screen_fixture.h"
#include "temp_project.h"

static temp_project_t project;
static lv_obj_t *label;

void fuzz_open() {
    project.write("font/x.ttf", "checked before it is opened");
    project.open();
    screen_open(64, 48);
    label = lv_label_create(lv_scr_act());
    lv_label_set_text(label, "AB\n#\xE4\xB8\xAD");
}

void fuzz_one(fuzz_input &in) {
    static const u32 sizes[] = {1, 12, 40, 300};
    const u32 size = sizes[fuzz_byte(in) % std::size(sizes)];
    fuzz_file_set(project.path("font/x.ttf"), fuzz_text(in));
    lv_font_t *font = zof_font_create_lvfont("x.ttf", size);
    if (font) {
        lv_obj_set_style_text_font(label, font, 0);
        lv_refr_now(nullptr);
        lv_obj_set_style_text_font(label, LV_FONT_DEFAULT, 0);
    }
    zof_font_delete("x.ttf", size);
}
