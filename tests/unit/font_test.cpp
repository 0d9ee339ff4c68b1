// Fonts: the bitmap file held against its own claims, sharing by reference count, TrueType in several sizes.
#include "screen_fixture.h"
#include "temp_project.h"

// A glyph for a file that a test writes. `bits` are the bitmap's bytes.
struct test_glyph {
    u16 code;
    u8 adv_w, box_w, box_h;
    s8 ofs_x, ofs_y;
    std::string bits;
    bool no_record = false;
};

static void put(std::string *out, u32 value, u32 bytes) {
    for (u32 i = 0; i < bytes; i++) {
        *out += (char)(value >> (8 * i));
    }
}

// The layout of a bitmap font file. `gap_word` ends the offsets: the record of codes that are missing.
static std::string font_bytes(const std::vector<test_glyph> &glyphs, u8 bpp, u32 bitmap_size, u32 gap_word = 0) {
    u16 low = 0xFFFF;
    u16 high = 0;
    for (const test_glyph &g : glyphs) {
        low = LV_MIN(low, g.code);
        high = LV_MAX(high, g.code);
    }
    std::string out;
    put(&out, low, 2);
    put(&out, high, 2);
    put(&out, bitmap_size, 2);
    put(&out, (u32)glyphs.size(), 2);
    out += std::string{(char)bpp, 20, (char)-4, 0, 0, 0, 0, 0};
    for (const test_glyph &g : glyphs) {
        put(&out, g.code, 2);
    }
    u32 offset = (u32)(out.size() + 4 * glyphs.size() + 4);
    for (const test_glyph &g : glyphs) {
        put(&out, g.no_record ? 0 : offset, 4);
        offset += g.no_record ? 0 : (u32)(5 + g.bits.size());
    }
    put(&out, gap_word, 4);
    for (const test_glyph &g : glyphs) {
        if (!g.no_record) {
            out += std::string{(char)g.adv_w, (char)g.box_w, (char)g.box_h, (char)g.ofs_x, (char)g.ofs_y} + g.bits;
        }
    }
    return out;
}

// Codes are in no order; 'd' has no record, 'b' is missing.
static const std::vector<test_glyph> letters = {
    {'e', 9, 2, 2, -1, -2, "\x11\x22\x33\x44"},
    {'a', 7, 4, 1, 1, 3, std::string("\x00\x55\xAA\xFF", 4)},
    {'d', 0, 0, 0, 0, 0, "", true},
    {'c', 5, 0, 0, 0, 0, ""},
};

struct open_font {
    temp_project_t project;
    lv_font_t font = {};
    explicit open_font(const std::string &bytes) {
        project.write("font/t.bin", bytes);
        screen_open(100, 60);
        REQUIRE(zof_binfont_create(&font, project.path("font/t.bin").c_str()) == 0);
    }
    ~open_font() {
        zof_binfont_delete(&font);
    }
};

TEST_CASE("a bitmap font gives the glyphs of its file, and none where there is none") {
    open_font f(font_bytes(letters, 8, 4));
    lv_font_glyph_dsc_t dsc = {};
    REQUIRE(zof_font_get_glyph_dsc(&f.font, &dsc, 'e', 0));
    CHECK(dsc.adv_w == 9);
    CHECK(dsc.box_h == 2);
    CHECK(dsc.ofs_y == -2);
    const u8 *bits = zof_font_get_bitmap(&f.font, 'e');
    REQUIRE(bits);
    CHECK(std::string((const char *)bits, 4) == "\x11\x22\x33\x44");
    CHECK(zof_font_get_bitmap(&f.font, 'a') == bits); // one buffer for all
    CHECK(bits[1] == 0x55);
    CHECK(zof_font_get_glyph_dsc(&f.font, &dsc, 'c', 0)); // a space
    CHECK(dsc.adv_w == 5);
    for (u32 code : {(u32)'b', (u32)'d', (u32)'@', (u32)'z', 0x10061u}) {
        CAPTURE(code);
        CHECK(!zof_font_get_glyph_dsc(&f.font, &dsc, code, 0));
        CHECK(!zof_font_get_bitmap(&f.font, code));
    }
    std::filesystem::remove(f.project.path("font/t.bin"));
    CHECK(!zof_font_get_glyph_dsc(&f.font, &dsc, 'a', 0));
}

TEST_CASE("the word behind the offsets is the record of codes that are missing") {
    const u32 record_of_e = 16 + 4 * 2 + 4 * 4 + 4;
    open_font f(font_bytes(letters, 8, 4, record_of_e));
    lv_font_glyph_dsc_t dsc = {};
    REQUIRE(zof_font_get_glyph_dsc(&f.font, &dsc, 'b', 0));
    CHECK(dsc.adv_w == 9);
}

TEST_CASE("a bitmap font that lies about its sizes, or ends early, has no glyph and does no harm") {
    screen_open(100, 60);
    temp_project_t project;
    const std::string path = project.path("font/t.bin");
    const std::string whole = font_bytes(letters, 8, 4);
    std::vector<std::string> files;
    for (size_t n = 0; n < whole.size(); n++) {
        files.push_back(whole.substr(0, n)); // cut at each byte
    }
    for (size_t at = 0; at < whole.size(); at++) {
        for (char value : {'\xFF', '\x7F', '\x00'}) {
            files.push_back(whole);
            files.back()[at] = value;
        }
    }
    files.push_back(font_bytes(letters, 8, 3)); // a glyph larger than the buffer
    files.push_back(font_bytes(letters, 255, 65535));
    files.push_back(font_bytes({}, 8, 4) + whole);
    files.push_back(font_bytes(letters, 8, 4, 0xFFFFFFFE));
    files.push_back(font_bytes({{'a', 255, 255, 255, 0, 0, "short"}}, 8, 65535));
    for (const std::string &bytes : files) {
        project.write("font/t.bin", bytes);
        lv_font_t font = {};
        if (zof_binfont_create(&font, path.c_str()) != 0) {
            continue;
        }
        for (u32 code = '`'; code <= 'f'; code++) {
            lv_font_glyph_dsc_t dsc = {};
            if (zof_font_get_glyph_dsc(&font, &dsc, code, 0)) {
                const u8 *bits = zof_font_get_bitmap(&font, code);
                REQUIRE(bits);
                for (u32 i = 0; i < (u32)dsc.box_w * dsc.box_h * dsc.bpp / 8; i++) {
                    REQUIRE((bits[i] | 1)); // the sanitizer's look at every byte
                }
            }
        }
        zof_binfont_delete(&font);
    }
    project.write("font/t.bin", whole.substr(0, whole.size() - 1)); // the record is there, its last byte is not
    lv_font_t font = {};
    lv_font_glyph_dsc_t dsc = {};
    REQUIRE(zof_binfont_create(&font, path.c_str()) == 0);
    CHECK(zof_font_get_glyph_dsc(&font, &dsc, 'e', 0));
    zof_binfont_delete(&font);
    u8 header[16] = {1, 2, 3};
    CHECK(zof_get_f_header("no/such.bin", header) == 0);
    CHECK(header[2] == 3);
}

// Draws one letter in white on black and gives the brightness of the pixels from its top left corner.
static std::vector<u32> drawn(const lv_font_t *font, const char *text, s32 w, s32 h) {
    lv_obj_clean(lv_scr_act());
    lv_obj_set_style_bg_color(lv_scr_act(), lv_color_black(), 0);
    lv_obj_t *label = lv_label_create(lv_scr_act());
    lv_obj_set_style_text_font(label, font, 0);
    lv_obj_set_style_text_color(label, lv_color_white(), 0);
    lv_label_set_text(label, text);
    const screen_picture p = screen_shot();
    std::vector<u32> out;
    for (s32 y = 0; y < h; y++) {
        for (s32 x = 0; x < w; x++) {
            out.push_back(p.at(x, y) & 0xFF);
        }
    }
    return out;
}

TEST_CASE("each depth is drawn with all its levels, half bytes included") {
    screen_open(100, 60);
    temp_project_t project;
    const struct {
        u8 bpp;
        u8 box_w;
        std::string bits;
        std::vector<u32> want;
    } rows[] = {
        {1, 8, "\xA5", {255, 0, 255, 0, 0, 255, 0, 255}},
        {2, 4, "\x1B", {0, 85, 170, 255}},
        {4, 4, "\x0F\x71", {0, 255, 119, 17}},
        {8, 4, std::string("\x00\x01\x80\xFE", 4), {0, 1, 128, 254}},
        {4, 3, "\x0F", {0, 255, 0}}, // the last half byte is not in the file
    };
    for (const auto &row : rows) {
        CAPTURE(row.bpp);
        // Line height 20 with the base line at -4: the glyph's bottom is 24 pixels below the top.
        project.write("font/t.bin",
                      font_bytes({{'a', 9, row.box_w, 1, 0, 23, row.bits}}, row.bpp, (u32)row.bits.size()));
        lv_font_t font = {};
        REQUIRE(zof_binfont_create(&font, project.path("font/t.bin").c_str()) == 0);
        const std::vector<u32> got = drawn(&font, "a", row.box_w, 1);
        for (size_t i = 0; i < row.want.size(); i++) {
            CHECK(got[i] == doctest::Approx(row.want[i]).epsilon(0.01));
        }
        lv_obj_clean(lv_scr_act());
        zof_binfont_delete(&font);
    }
}

static const char ttf[] = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";

static void project_with_fonts(temp_project_t *project) {
    project->write("font/text.ttf", file_text(ttf));
    project->write("font/t.bin", font_bytes(letters, 8, 4));
    project->write("font/t.dat", "no font");
    project->write("font/bad.ttf", "no font either");
    project->write("font/bad.bin", "short");
    project->write("font/strike.ttf", "STARTFONT 2.1\nFONT x\nSIZE 16 75 75\nFONTBOUNDINGBOX 8 16 0 -2\n"
                                      "STARTPROPERTIES 2\nFONT_ASCENT 14\nFONT_DESCENT 2\nENDPROPERTIES\nCHARS 1\n"
                                      "STARTCHAR A\nENCODING 65\nSWIDTH 500 0\nDWIDTH 8 0\nBBX 8 1 0 0\nBITMAP\nFF\n"
                                      "ENDCHAR\nENDFONT\n");
    REQUIRE(project->open());
    screen_open(100, 60);
}

static u32 refs(const char *name, u32 size) {
    zof_font_t *entry = zof_font_list_get(name);
    zof_fontsize_t *sized = entry ? zof_fontsize_list_get(entry->sizes, size) : nullptr;
    return sized ? sized->ref : 0;
}

TEST_CASE("a pair of file and size is one font, whoever asks, and goes with its last user") {
    temp_project_t project;
    project_with_fonts(&project);
    lv_font_t *font = zof_font_create_lvfont("text.ttf", 16);
    REQUIRE(font);
    CHECK(zof_font_create_lvfont("text.ttf", 0) == font);
    CHECK(refs("text.ttf", 16) == 2);
    REQUIRE(zof_font_create_lvfont("text.ttf", 40));
    zof_font_delete("text.ttf", 0); // not looked up as 16
    CHECK(refs("text.ttf", 16) == 2);
    for (s32 i = 0; i < 3; i++) { // once more than it is used
        zof_font_delete("text.ttf", 16);
    }
    CHECK(refs("text.ttf", 16) == 0);
    CHECK(zof_font_list_get("text.ttf"));
    zof_font_delete("text.ttf", 40);
    CHECK(!zof_font_list_get("text.ttf"));

    lv_font_t *bin = zof_font_create_lvfont("t.bin", 20);
    REQUIRE(bin);
    CHECK(zof_font_list_pop("t.bin") == 0); // the entry goes before its user
    zof_font_delete("t.bin", 20);
    CHECK(zof_font_list_pop("t.bin") == 0);

    CHECK(contains(printed([] { CHECK(!zof_font_create_lvfont("none.ttf", 16)); }), "none.ttf: cannot be opened"));
    u32 own = 0;
    u32 lvgl = 0;
    for (u32 i = 0; i < 50; i++) {
        for (const char *name : {"text.ttf", "t.bin", "t.dat"}) {
            lv_font_t *again = nullptr;
            printed([&] { again = zof_font_create_lvfont(name, 20 + i % 3); });
            drawn(again, "ae", 1, 1);
            lv_obj_clean(lv_scr_act());
            zof_font_delete(name, 20 + i % 3);
        }
        own = i == 0 ? zof_mem_count() : own;
        lvgl = i == 0 ? zof_lv_mem_count() : lvgl;
    }
    CHECK(zof_mem_count() == own);
    CHECK(zof_lv_mem_count() == lvgl);
}

TEST_CASE("a file that is no font gives one line, and text goes on without it") {
    temp_project_t project;
    project_with_fonts(&project);
    lv_font_t *font = nullptr;
    for (const std::string name : {"bad.ttf", "strike.ttf"}) { // the second opens, and has no such size
        std::string line = printed([&] { font = zof_font_create_lvfont(name.c_str(), 16); });
        CHECK(!font);
        CHECK(contains(line, "font/" + name + ": refused at size 16"));
        CHECK(printed([&] { font = zof_font_create_lvfont(name.c_str(), 16); }) == ""); // told once
        CHECK(!font);
        zof_font_delete(name.c_str(), 16);
        zof_font_delete(name.c_str(), 16);
    }
    // What was refused leaves nothing behind: the next font shows its own letters.
    font = zof_font_create_lvfont("text.ttf", 16);
    REQUIRE(font);
    lv_font_glyph_dsc_t dsc = {};
    CHECK(lv_font_get_glyph_dsc(font, &dsc, 'A', 0));
    CHECK(dsc.box_h > 8);

    // Neither .ttf nor .bin, or a broken .bin: a font that draws nothing, in every widget.
    for (const char *name : {"t.dat", "bad.bin"}) {
        std::string line = printed([&] { font = zof_font_create_lvfont(name, 16); });
        CHECK(contains(line, name));
        REQUIRE(font);
        for (u32 pixel : drawn(font, "Text", 60, 30)) {
            REQUIRE(pixel == 0);
        }
        lv_obj_set_style_text_font(lv_roller_create(lv_scr_act()), font, 0);
        lv_obj_t *dropdown = lv_dropdown_create(lv_scr_act());
        lv_obj_set_style_text_font(dropdown, font, 0);
        lv_dropdown_open(dropdown);
        lv_obj_set_style_text_font(lv_textarea_create(lv_scr_act()), font, 0);
        screen_click(20, 20);
        lv_obj_clean(lv_scr_act());
    }
}

TEST_CASE("TrueType text has the size that was asked for, and the width of its letters") {
    temp_project_t project;
    project_with_fonts(&project);
    lv_font_t *small = zof_font_create_lvfont("text.ttf", 12);
    lv_font_t *large = zof_font_create_lvfont("text.ttf", 24);
    REQUIRE(small);
    REQUIRE(large);
    lv_font_glyph_dsc_t s = {};
    lv_font_glyph_dsc_t l = {};
    for (s32 round = 0; round < 2; round++) { // in turn: one must not see the other's size
        REQUIRE(lv_font_get_glyph_dsc(small, &s, 'H', 0));
        REQUIRE(lv_font_get_glyph_dsc(large, &l, 'H', 0));
        CHECK(s.box_h == 9);
        CHECK(l.box_h == 18);
    }
    lv_point_t size = {};
    lv_txt_get_size(&size, "AVAVA", large, 0, 0, LV_COORD_MAX, LV_TEXT_FLAG_NONE);
    CHECK(size.x == 3 * lv_font_get_glyph_width(large, 'A', 0) + 2 * lv_font_get_glyph_width(large, 'V', 0));
    CHECK(size.y == large->line_height);
}
