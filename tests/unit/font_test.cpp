// Fonts: bitmap files with inconsistent headers, sharing by reference count, TrueType in several sizes.
#include "screen_fixture.h"
#include "temp_project.h"
#include "view_project.h"

// A glyph for a generated font file. `bits` are the bytes of its bitmap.
struct test_glyph {
    u16 code;
    u8 adv_w, box_w, box_h;
    s8 ofs_x, ofs_y;
    std::string bits;
    bool no_record = false;
};

// Builds a bitmap font file. `gap_word` ends the offsets: the record of missing codes.
static std::string font_bytes(const std::vector<test_glyph> &glyphs, u8 bpp, u32 bitmap_size, u32 gap_word = 0) {
    u32 low = 0xFFFF, high = 0, count = (u32)glyphs.size();
    std::string codes, offsets, records;
    for (const test_glyph &g : glyphs) {
        low = LV_MIN(low, g.code);
        high = LV_MAX(high, g.code);
        codes += le(g.code, 2);
        offsets += le(g.no_record ? 0 : 16 + 6 * count + 4 + (u32)records.size(), 4);
        if (!g.no_record) {
            records += {(char)g.adv_w, (char)g.box_w, (char)g.box_h, (char)g.ofs_x, (char)g.ofs_y};
            records += g.bits;
        }
    }
    return le(low, 2) + le(high, 2) + le(bitmap_size, 2) + le(count, 2) + le(bpp, 1) + le(20, 1) + le((u32)-4, 1) +
           le(0, 4) + le(0, 1) + codes + offsets + le(gap_word, 4) + records;
}

// Codes are in no order; 'd' has no record, 'b' is missing.
static const std::vector<test_glyph> letters = {
    {'e', 9, 2, 2, -1, -2, "\x11\x22\x33\x44"},
    {'a', 7, 4, 1, 1, 3, std::string("\x00\x55\xAA\xFF", 4)},
    {'d', 0, 0, 0, 0, 0, "", true},
    {'c', 5, 0, 0, 0, 0, ""},
};

// A font with these bytes in its own project.
struct open_font {
    temp_project_t project;
    std::string path = project.path("font/t.bin");
    lv_font_t font = {};
    explicit open_font(const std::string &bytes) {
        project.write("font/t.bin", bytes);
        REQUIRE(zof_binfont_create(&font, path.c_str()) == 0);
    }
    ~open_font() {
        zof_binfont_delete(&font);
    }
};

TEST_CASE("a bitmap font returns the glyphs of its file and refuses codes without a glyph") {
    screen_open(100, 60);
    open_font f(font_bytes(letters, 8, 4));
    lv_font_glyph_dsc_t dsc = {};
    REQUIRE(zof_font_get_glyph_dsc(&f.font, &dsc, 'e', 0));
    CHECK((dsc.adv_w == 9 && dsc.box_h == 2 && dsc.ofs_y == -2));
    const u8 *bits = zof_font_get_bitmap(&f.font, 'e');
    REQUIRE(bits);
    CHECK(std::string((const char *)bits, 4) == "\x11\x22\x33\x44");
    bits = zof_font_get_bitmap(&f.font, 'a');
    REQUIRE(bits);
    CHECK(bits[1] == 0x55);
    CHECK((zof_font_get_glyph_dsc(&f.font, &dsc, 'c', 0) && dsc.adv_w == 5)); // a space
    for (u32 code : {(u32)'b', (u32)'d', (u32)'@', (u32)'z', 0x10061u}) {
        CAPTURE(code);
        CHECK(!zof_font_get_glyph_dsc(&f.font, &dsc, code, 0));
        CHECK(!zof_font_get_bitmap(&f.font, code));
    }
    zof_font_header_t header = {};
    zof_glyph_dsc_t raw = {};
    CHECK((zof_get_f_header(f.path.c_str(), &header) == 0 && header.code_min == 'a' && header.bpp == 8));
    CHECK((zof_get_glyph_dsc(f.path.c_str(), 16 + 6 * 4 + 4, &raw) == 0 && raw.adv_w == 9));
    CHECK((zof_get_glyph_dsc("no file", 0, &raw) == 0 && raw.adv_w == 9)); // left as it was
    // The word after the offsets is the record of missing codes.
    open_font with_record(font_bytes(letters, 8, 4, 16 + 4 * 2 + 4 * 4 + 4));
    REQUIRE(zof_font_get_glyph_dsc(&with_record.font, &dsc, 'b', 0));
    CHECK(dsc.adv_w == 9);
    open_font too_large(font_bytes(letters, 8, 3)); // for the buffer size in the file
    CHECK(!zof_font_get_glyph_dsc(&too_large.font, &dsc, 'e', 0));
    CHECK(!zof_font_get_bitmap(&too_large.font, 'e'));
}

static s32 advance_of(const open_font &f, u32 code) {
    lv_font_glyph_dsc_t dsc = {};
    return zof_font_get_glyph_dsc(&f.font, &dsc, code, 0) ? dsc.adv_w : -1;
}

TEST_CASE("glyphs are read once, and again when the file changes") {
    screen_open(100, 60);
    open_font f(font_bytes(letters, 8, 4));
    std::vector<test_glyph> wider = letters;
    wider[0].adv_w = 19;
    CHECK(advance_of(f, 'e') == 9);
    // With its old time the file looks unchanged: the cached glyphs are still used.
    const auto time = std::filesystem::last_write_time(f.path);
    f.project.write("font/t.bin", font_bytes(wider, 8, 4));
    std::filesystem::last_write_time(f.path, time);
    screen_now++;
    CHECK(advance_of(f, 'e') == 9);
    std::filesystem::last_write_time(f.path, time + std::chrono::seconds(1));
    screen_now++;
    CHECK(advance_of(f, 'e') == 19);
    // A change is noticed in the next millisecond: a new depth, a removed file, a broken one, and a good one again.
    for (const auto &[bytes, advance] : {std::pair{font_bytes(letters, 4, 4), 9},
                                         {std::string(), -1},
                                         {std::string("short"), -1},
                                         {font_bytes(wider, 8, 4), 19}}) {
        CAPTURE(bytes.size());
        bytes.empty() ? (void)std::filesystem::remove(f.path) : f.project.write("font/t.bin", bytes);
        screen_now++;
        CHECK(advance_of(f, 'e') == advance);
        CHECK((zof_font_get_bitmap(&f.font, 'e') != nullptr) == (advance > 0));
    }
    CHECK(((zof_binfont_t *)f.font.user_data)->header.bpp == 8);
}

TEST_CASE("a font with more glyphs than the cache holds draws each one, in bounded memory") {
    enum { GLYPHS = 3000, SIDE = 40, MOST = 3 << 20 };
    screen_open(100, 60);
    std::vector<test_glyph> glyphs;
    for (u32 i = 0; i < GLYPHS; i++) {
        glyphs.push_back({(u16)(0x4E00 + i), (u8)i, SIDE, SIDE, 0, 0, std::string(SIDE * SIDE, (char)(i * 7))});
    }
    {
        open_font first(font_bytes(letters, 8, 4)); // allocates the runtime's buffers for paths
    }
    const u32 before = zof_mem_count();
    open_font f(font_bytes(glyphs, 8, SIDE * SIDE));
    u32 wrong = 0;
    for (u32 i = 0; i < 2 * GLYPHS; i++) {
        const u32 n = i % GLYPHS;
        const u8 *bits = zof_font_get_bitmap(&f.font, 0x4E00 + n);
        const u8 level = (u8)(n * 7);
        wrong += advance_of(f, 0x4E00 + n) != (u8)n || !bits || bits[0] != level || bits[SIDE * SIDE - 1] != level;
    }
    CHECK(wrong == 0);
    CHECK(zof_mem_count() - before < MOST);
    zof_binfont_delete(&f.font);
    CHECK(zof_mem_count() == before);
}

TEST_CASE("a bitmap font that finds no memory is not created, or draws what it has, and leaks nothing") {
    screen_open(100, 60);
    temp_project_t project;
    project.write("font/t.bin", font_bytes(letters, 8, 4));
    const std::string path = project.path("font/t.bin");
    u32 before = 0;
    u32 created = 0;
    bool whole = false;
    for (u32 fail_at = 1; !whole && fail_at < 99; fail_at++) {
        CAPTURE(fail_at);
        lv_font_t font = {};
        zof_mem_fail_at(fail_at);
        if (zof_binfont_create(&font, path.c_str()) == 0) {
            zof_font_get_bitmap(&font, 'e');
            created++;
        }
        whole = zof_mem_fail_at(0) < fail_at;
        zof_binfont_delete(&font);
        before = created == 0 ? zof_mem_count() : before; // the first ones leave the runtime's buffers for paths
        CHECK(zof_mem_count() == before);
    }
    CHECK((whole && created > 1));
}

// Draws letters in white on black; returns the brightness of 60 x 30 pixels.
static std::vector<u32> drawn(const lv_font_t *font, const char *text) {
    lv_obj_set_style_bg_color(lv_scr_act(), lv_color_black(), 0);
    lv_obj_t *label = lv_label_create(lv_scr_act());
    lv_obj_set_style_text_font(label, font, 0);
    lv_obj_set_style_text_color(label, lv_color_white(), 0);
    lv_label_set_text(label, text);
    const screen_picture picture = screen_shot();
    lv_obj_clean(lv_scr_act());
    std::vector<u32> out;
    for (s32 i = 0; i < 60 * 30; i++) {
        out.push_back(picture.at(i % 60, i / 60) & 0xFF);
    }
    return out;
}

TEST_CASE("each bit depth is drawn with all its levels, including half bytes") {
    screen_open(100, 60);
    const struct {
        u8 bpp;
        std::string bits;
        std::vector<u32> want;
    } rows[] = {
        {1, "\xA5", {255, 0, 255, 0, 0, 255, 0, 255}},
        {2, "\x1B", {0, 85, 170, 255}},
        {4, "\x0F\x71", {0, 255, 119, 17}},
        {8, std::string("\x00\x01\x80\xFE", 4), {0, 1, 128, 254}},
        {4, "\x0F", {0, 255, 0}}, // the last half byte is not in the file
    };
    for (const auto &row : rows) {
        CAPTURE(row.bpp);
        // Line height 20 with the base line at -4: the glyph's bottom is 24 pixels below the top.
        const u8 width = (u8)row.want.size();
        open_font f(font_bytes({{'a', 9, width, 1, 0, 23, row.bits}}, row.bpp, (u32)row.bits.size()));
        const std::vector<u32> got = drawn(&f.font, "a");
        for (size_t i = 0; i < width; i++) {
            CHECK(got[i] == doctest::Approx(row.want[i]).epsilon(0.01));
        }
    }
}

static void project_with_fonts(temp_project_t *project) {
    project->write("font/text.ttf", file_text("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf"));
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

TEST_CASE("a file that is not a font is reported once, and texts are drawn without it") {
    temp_project_t project;
    project_with_fonts(&project);
    const std::string whole = file_text(project.path("font/text.ttf"));
    project.write("font/cut.ttf", whole.substr(0, whole.size() / 2));
    lv_font_t *font = nullptr;
    for (const std::string name :
         {"bad.ttf", "strike.ttf", "none.ttf", "cut.ttf"}) { // the second opens, but does not have this size
        std::string line = printed([&] { font = zof_font_create_lvfont(name.c_str(), 16); });
        CHECK(!font);
        CHECK(contains(line, name + ": " +
                                 (name[0] == 'n'   ? "cannot be opened"
                                  : name[0] == 'c' ? "refused at size 16 (cut short)"
                                                   : "refused at size 16 (not a font, or too complex)")));
        CHECK(printed([&] { font = zof_font_create_lvfont(name.c_str(), 16); }) == ""); // reported once
        for (s32 i = 0; i < 3; i++) {                                                   // once more than it was created
            zof_font_delete(name.c_str(), 16);
        }
    }
    // Refused fonts leave no state behind: the next fonts show their own letters at their own sizes.
    lv_font_t *fonts[] = {zof_font_create_lvfont("text.ttf", 12), zof_font_create_lvfont("text.ttf", 24)};
    REQUIRE((fonts[0] && fonts[1] && zof_font_create_lvfont("text.ttf", 12) == fonts[0]));
    zof_font_delete("text.ttf", 12); // it has another user
    for (s32 i = 0; i < 4; i++) {
        lv_font_glyph_dsc_t dsc = {};
        REQUIRE(lv_font_get_glyph_dsc(fonts[i % 2], &dsc, 'H', 0));
        CHECK(dsc.box_h == 9 + i % 2 * 9);
    }

    // Neither .ttf nor .bin, or a broken .bin: a font that draws nothing, in every widget.
    for (const char *name : {"t.dat", "bad.bin"}) {
        CHECK(contains(printed([&] { font = zof_font_create_lvfont(name, 16); }), name));
        REQUIRE(font);
        CHECK((drawn(font, "Text") == std::vector<u32>(60 * 30, 0)));
        for (lv_obj_t *widget : {lv_roller_create(lv_scr_act()), lv_textarea_create(lv_scr_act())}) {
            lv_obj_set_style_text_font(widget, font, 0);
        }
        screen_click(20, 20);
        lv_obj_clean(lv_scr_act());
    }
}

// Returns the index in the chain of the font that supplies a letter, or -1.
static s32 resolved(const lv_font_t *font, u32 code, lv_font_glyph_dsc_t *dsc) {
    if (!lv_font_get_glyph_dsc(font, dsc, code, 0)) {
        return -1;
    }
    s32 place = 0;
    while (font != dsc->resolved_font) {
        font = font->fallback;
        place++;
    }
    return place;
}

TEST_CASE("a letter comes from the first font of a chain that has it, then from the symbols") {
    temp_project_t project;
    project_with_fonts(&project);
    project.write("font/text.otf", file_text("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf"));
    drawn(LV_FONT_DEFAULT, "W"); // one-time allocations
    zof_font_create_lvfont("text.ttf", 30);
    zof_font_delete("text.ttf", 30);
    const u32 before = zof_mem_count();
    lv_font_t *font = nullptr;
    const std::string log = printed([&] { font = zof_font_create_lvfont("t.bin,  none.ttf , text.otf", 30); });
    REQUIRE(font);
    CHECK(contains(log, "none.ttf: cannot be opened"));
    const struct {
        u32 code;
        s32 place, adv_w;
    } rows[] = {{'e', 0, 9}, {'H', 1, 23}, {0xF053 /* left */, 2, 19}, {0x4E00, -1, 12}, {0x2022, 1, 18}};
    lv_font_glyph_dsc_t dsc = {};
    for (const auto &row : rows) {
        CAPTURE(row.code);
        CHECK(resolved(font, row.code, &dsc) == row.place);
        CHECK(dsc.adv_w == row.adv_w);
    }
    CHECK((zof_font_create_lvfont("t.bin,  none.ttf , text.otf", 30) == font)); // shared
    // The symbol is LVGL's, scaled by 30/48, and as large as its descriptor says.
    const std::vector<u32> picture = drawn(font, LV_SYMBOL_LEFT);
    const u32 lit = (u32)std::count_if(picture.begin(), picture.end(), [](u32 level) { return level > 127; });
    CHECK((lit > 60 && lit < 400));
    // A file can also be used alone, and remains when the chain is deleted.
    lv_font_t *alone = zof_font_create_lvfont("text.otf", 30);
    CHECK((resolved(alone, 'H', &dsc) == 0 && resolved(alone, 0xF053, &dsc) == 1));
    zof_font_delete("t.bin,  none.ttf , text.otf", 30);
    zof_font_delete("t.bin,  none.ttf , text.otf", 30);
    CHECK((resolved(alone, 'H', &dsc) == 0 && !zof_font_list_get("t.bin")));
    zof_font_delete("text.otf", 30);
    CHECK(zof_mem_count() == before);
    CHECK(!zof_font_create_lvfont("none.ttf, nor this.ttf", 30));
}

TEST_CASE("a letter that no font has is drawn as a box, and reported once") {
    temp_project_t project;
    project_with_fonts(&project);
    lv_font_t *font = zof_font_create_lvfont("text.ttf", 20);
    std::vector<u32> box;
    CHECK(printed([&] {
              box = drawn(font, "一");
              screen_step(10);
          }) == "text.ttf has no U+4E00\n");
    CHECK(std::count(box.begin(), box.end(), 255) > 20);
    CHECK(printed([&] {
              drawn(font, "一二\t");
              screen_step(10);
          }) == "text.ttf has no U+4E8C\n");
    zof_font_delete("text.ttf", 20);
}

TEST_CASE("a missing letter is reported with the control that shows it") {
    view_project_t project;
    project.write("font/text.ttf", file_text("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf"));
    project.view(1,
                 {ctrl(ZOF_CTRL_BTN, 5, R"("txt": "一")", "", R"({"txt_t": {"font_lib": "text.ttf", "opa": 255}})")});
    project.open(320, 240);
    CHECK(printed([] {
              zof_view_set_dis_view(1);
              screen_step(10);
          }) == "text.ttf has no U+4E00 (v1/c5)\n");
}

TEST_CASE("a TrueType font that is rewritten in place keeps its letters") {
    temp_project_t project;
    project_with_fonts(&project);
    lv_font_t *font = zof_font_create_lvfont("text.ttf", 24);
    REQUIRE(font);
    lv_font_glyph_dsc_t dsc = {};
    REQUIRE(lv_font_get_glyph_dsc(font, &dsc, 'H', 0));
    std::filesystem::resize_file(project.path("font/text.ttf"), 0); // a mapped file would be gone from memory
    REQUIRE(lv_font_get_glyph_dsc(font, &dsc, 'W', 0));
    CHECK(dsc.box_h == 18);
    CHECK((drawn(font, "W") != std::vector<u32>(60 * 30, 0)));
    // Control characters are not placeholders, for which LVGL would search other fonts.
    dsc.is_placeholder = 1;
    REQUIRE(font->get_glyph_dsc(font, &dsc, '\n', 0));
    CHECK(!dsc.is_placeholder);
    zof_font_delete("text.ttf", 24);
}

TEST_CASE("a TrueType font that would take seconds is refused, or disabled at the first costly letter") {
    temp_project_t project;
    project_with_fonts(&project);
    const struct {
        const char *name, *line;
        u32 size;
        bool opens;
    } rows[] = {{"good.ttf", "", 1500, true},
                {"deep.ttf", "deep.ttf: disabled", 16, true},
                {"dense.ttf", "dense.ttf: disabled", 200, true},
                {"huge.ttf", "huge.ttf: disabled", 600, true},
                {"tables.ttf", "tables.ttf: refused at size 16", 16, false}};
    for (const auto &row : rows) {
        CAPTURE(row.name);
        const std::string name = row.name;
        project.write("font/" + name, file_text(ZOF_MEDIA_DIR "/fonts/" + name));
        const auto start = std::chrono::steady_clock::now();
        lv_font_t *font = nullptr;
        bool square = false, letter = false;
        const std::string log = printed([&] {
            font = zof_font_create_lvfont(row.name, row.size);
            lv_font_glyph_dsc_t dsc = {};
            square = font && lv_font_get_glyph_dsc(font, &dsc, 'B', 0);
            for (u32 i = 0; font && i < 100; i++) {
                letter = lv_font_get_glyph_dsc(font, &dsc, 'A', 0);
            }
        });
        CHECK(std::chrono::steady_clock::now() - start < std::chrono::seconds(1));
        CHECK((row.line[0] ? contains(log, row.line) : log.empty()));
        CHECK(std::count(log.begin(), log.end(), '\n') <= 1);
        CHECK(((font != nullptr) == row.opens && square == row.opens));
        CHECK(letter == !row.line[0]);
        zof_font_delete(row.name, row.size);
    }
}
