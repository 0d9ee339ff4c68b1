// What LVGL does here beyond its published interface: one case for each patch in third_party/lvgl/patches.
#include <algorithm>
#include <cmath>

#include "screen_fixture.h"
#include "temp_project.h"

extern "C" {
#include "src/draw/sw/lv_draw_sw.h"
#include "src/misc/lv_gc.h"
}

static lv_obj_t *plain(lv_obj_t *parent, s32 w, s32 h, u32 color) {
    lv_obj_t *obj = lv_obj_create(parent);
    lv_obj_remove_style_all(obj);
    lv_obj_set_size(obj, w, h);
    lv_obj_set_style_bg_color(obj, lv_color_hex(color), 0);
    lv_obj_set_style_bg_opa(obj, LV_OPA_COVER, 0);
    return obj;
}

TEST_CASE("an object's first word is its own address, written at the end of its initialisation") {
    screen_open(100, 100);
    static void *early = &early;
    const auto created = [](lv_event_t *e) { early = *(void **)lv_event_get_param(e); };
    lv_obj_add_event_cb(lv_scr_act(), created, LV_EVENT_CHILD_CREATED, nullptr);
    lv_obj_t *btn = lv_btn_create(lv_scr_act());
    CHECK(early == nullptr);
    CHECK(*(void **)btn == btn);
}

static std::string scroll_events;
static bool param_is_indev;

static void scroll_note(lv_event_t *e) {
    const u32 code = lv_event_get_code(e);
    if (code == LV_EVENT_SCROLL_END || (code >= 46 && code <= 48)) {
        scroll_events += std::to_string(code) + " ";
        param_is_indev = lv_event_get_param(e) == touch_indev;
    }
}

// A page of 100 x 100 with ten times as much below.
static lv_obj_t *scrolled() {
    lv_obj_t *page = plain(lv_scr_act(), 100, 100, 0x202020);
    plain(page, 50, 1000, 0x404040);
    lv_obj_add_event_cb(page, scroll_note, LV_EVENT_ALL, nullptr);
    screen_step(50);
    return page;
}

TEST_CASE("the end of a scroll reports what ended, directly after SCROLL_END") {
    screen_open(100, 100);
    lv_obj_t *page = scrolled();
    lv_obj_scroll_to_y(page, 30, LV_ANIM_OFF);
    CHECK(scroll_events == "10 48 ");
    scroll_events.clear();
    lv_obj_scroll_to_y(page, 200, LV_ANIM_ON);
    screen_step(2000);
    CHECK(scroll_events == "10 47 ");
    scroll_events.clear();
    screen_drag(20, 80, 20, 20, 6);
    screen_step(3000);
    CHECK(scroll_events.ends_with("10 46 "));
    CHECK(param_is_indev);

    // The handler of the end may delete what scrolled.
    const auto gone = [](lv_event_t *e) { lv_obj_del(lv_event_get_target(e)); };
    lv_obj_add_event_cb(page, gone, LV_EVENT_SCROLL_END, nullptr);
    screen_drag(20, 80, 20, 20, 6);
    screen_step(3000);
    CHECK(lv_obj_get_child_cnt(lv_scr_act()) == 0);
}

static s32 throw_distance(lv_obj_t *page, float momentum) {
    kvy_lv_set_scroll_momentum(momentum);
    lv_obj_scroll_to_y(page, 0, LV_ANIM_OFF);
    screen_drag(20, 90, 20, 50, 4);
    const s32 released = lv_obj_get_scroll_y(page);
    screen_step(4000);
    return lv_obj_get_scroll_y(page) - released;
}

TEST_CASE("the factor of a scroll throw decides how far it goes") {
    screen_open(100, 100);
    lv_obj_t *page = scrolled();
    const s32 stock = throw_distance(page, 0.5f);
    CHECK(throw_distance(page, 0.0f) == 0);
    CHECK(throw_distance(page, 0.8f) > 2 * stock);
    throw_distance(page, NAN);
    CHECK(lv_obj_get_scroll_y(page) <= 900);

    lv_obj_scroll_to_y(page, 0, LV_ANIM_OFF); // a finger on a child that is drawn smaller than it is scrolls too
    lv_obj_t *child = lv_obj_get_child(page, 0);
    lv_obj_set_style_transform_zoom(child, 128, 0);
    lv_obj_set_style_transform_zoom(plain(child, 50, 1000, 0x808080), 1, 0);
    screen_step(50);
    screen_drag(20, 90, 20, 20, 4);
    CHECK(lv_obj_get_scroll_y(page) > 0);
}

static std::string read_by_lvgl(const std::string &path) {
    lv_fs_file_t f;
    char text[32] = {};
    if (lv_fs_open(&f, path.c_str(), LV_FS_MODE_RD) != LV_FS_RES_OK) {
        return "-";
    }
    lv_fs_read(&f, text, sizeof(text) - 1, nullptr);
    lv_fs_close(&f);
    return text;
}

TEST_CASE("LVGL opens plain paths and project drives alike, and does not cut long ones") {
    temp_project_t project;
    screen_open(10, 10);
    REQUIRE(project.open());
    project.write("../disk/D/b.txt", "drive");
    CHECK(read_by_lvgl("D:b.txt") == "drive");
    CHECK(read_by_lvgl("S:/b.txt") == "-");
    const std::string deep = "image/" + std::string(120, 'd') + "/" + std::string(120, 'e') + "/";
    project.write(deep + "f", "cut");
    project.write(deep + "file.txt", "whole");
    CHECK(read_by_lvgl(project.path(deep + "file.txt")) == "whole");

    lv_fs_dir_t dir;
    char name[256] = {};
    REQUIRE(lv_fs_dir_open(&dir, "D:") == LV_FS_RES_OK);
    CHECK(lv_fs_dir_read(&dir, name) == LV_FS_RES_OK);
    CHECK(str(name) == "b.txt");
    lv_fs_dir_close(&dir);
}

TEST_CASE("the background layer is drawn first, shows through, and is searched last") {
    screen_open(100, 60);
    lv_obj_t *bg = lv_disp_get_layer_bg(nullptr), *scr = lv_scr_act();
    lv_obj_remove_style_all(scr);
    lv_obj_t *back = plain(bg, 60, 60, 0x00FF00);
    screen_check({{5, 5, 0x00FF00}, {80, 5, 0x000000}});
    lv_obj_t *half = plain(scr, 30, 60, 0xFF0000);
    lv_obj_set_style_bg_opa(half, LV_OPA_50, 0);
    screen_check({{5, 5, 0x7F8000}, {40, 5, 0x00FF00}});
    lv_obj_set_style_bg_color(back, lv_color_hex(0x0000FF), 0); // a change behind the screen is visible
    CHECK(screen_pixel(40, 5) == 0x0000FF);
    static std::string pressed;
    auto note = [](lv_event_t *e) { pressed += (const char *)lv_event_get_user_data(e); };
    lv_obj_add_event_cb(back, note, LV_EVENT_PRESSED, (void *)"back ");
    lv_obj_add_event_cb(scr, note, LV_EVENT_PRESSED, (void *)"screen ");
    screen_click(40, 30);
    lv_obj_clear_flag(scr, LV_OBJ_FLAG_CLICKABLE);
    screen_click(40, 30);
    CHECK(pressed == "screen back ");
    lv_disp_set_rotation(lv_disp_get_default(), LV_DISP_ROT_90); // it stays as large as the panel
    CHECK(lv_obj_get_height(bg) == 100);
}

static s32 image_memory = -1; // for all images; not counted unless a test sets it

// The files that are decoded in the cache.
static std::string cached(s32 *bytes) {
    const _lv_img_cache_entry_t *cache = LV_GC_ROOT(_lv_img_cache_array);
    std::string names;
    for (s32 i = 0; i < LV_IMG_CACHE_DEF_SIZE; i++) {
        const lv_img_decoder_dsc_t &dsc = cache[i].dec_dsc;
        if (dsc.src && lv_img_src_get_type(dsc.src) == LV_IMG_SRC_FILE) {
            names += std::filesystem::path((const char *)dsc.src).stem().string();
            *bytes += dsc.header.w * dsc.header.h * 4;
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

// Linked in place of the port's, which counts nothing.
extern "C" s32 __wrap_zof_ram_get_img_free(void) {
    s32 used = 0;
    cached(&used);
    return image_memory < 0 ? -1 : image_memory - used;
}

TEST_CASE("a cached image lives as long as opening it took, and where memory is counted makes room for one that would "
          "not fit") {
    temp_project_t project;
    project.open();
    screen_open(100, 100);
    lv_obj_t *img = lv_img_create(lv_scr_act());
    s32 used = 0;
    _lv_img_cache_entry_t *const cache = LV_GC_ROOT(_lv_img_cache_array);
    const auto show = [&](const std::string &name) {
        lv_img_set_src(img, project.path(name + ".png").c_str());
        lv_obj_invalidate(img);
        return screen_pixel(5, 5);
    };
    for (const auto &[name, side] : {std::pair{"a", 20}, {"b", 20}, {"c", 20}, {"d", 90}}) {
        screen_png_write(project.path(std::string(name) + ".png"),
                         {side, side, std::vector<u32>((size_t)(side * side), (u32)name[0])});
    }
    image_memory = 2 * 20 * 20 * 4 + 100; // for two of them
    show("a");
    const auto taken = [](const _lv_img_cache_entry_t &entry) { return entry.dec_dsc.src != nullptr; };
    _lv_img_cache_entry_t *first = std::find_if(cache, cache + LV_IMG_CACHE_DEF_SIZE, taken);
    first->dec_dsc.time_to_open = 150;
    first->life = 0;
    show("a");
    CHECK(first->life == 149); // one less with each requested image, then what opening it took
    show("a");
    CHECK(first->life == 200); // the limit
    show("b");
    show("c");
    CHECK(cached(&used) == "ac");
    CHECK(show("d") == 'd'); // fits beside no other, but is still shown
    CHECK(cached(&used) == "d");
    image_memory = -1;
    kvy_lv_img_cache_max_life_set(5000);
    CHECK(img_cache_max_life == 1000);
}

TEST_CASE("pictures with wrong sizes do no harm") {
    temp_project_t project;
    project.open();
    screen_open(40, 30);
    // Split JPG: width, height, number and height of its frames.
    for (const char *sizes : {"\x10\x00\x10\x00\x01\x00\x00\x00", "\x10\x00\x10\x00\x00\x00\x10\x00",
                              "\x10\x00\xFF\x00\x01\x00\x08\x00", "\x00\x00\x10\x00\x01\x00\x10\x00"}) {
        project.write("a.sjpg", std::string("_SJPG__\0V1.00\0", 14) + std::string(sizes, 8) + std::string(50, '\0'));
        lv_img_set_src(lv_img_create(lv_scr_act()), project.path("a.sjpg").c_str());
        screen_step(60);
        lv_obj_clean(lv_scr_act());
        lv_img_cache_invalidate_src(nullptr);
    }
}

TEST_CASE("damage ends a GIF, once") {
    temp_project_t project;
    project.open();
    screen_open(40, 30);
    const std::string twice = file_text(ZOF_MEDIA_DIR "/twice.gif");
    project.write("image/a.gif", twice.substr(0, twice.size() / 2));
    static u32 ends;
    const auto at_end = [](lv_event_t *e) {
        ends++;
        lv_gif_set_src(lv_event_get_target(e), "no/such.gif"); // allowed in the event itself
    };
    lv_obj_t *obj = lv_gif_create(lv_scr_act());
    lv_obj_add_event_cb(obj, at_end, LV_EVENT_READY, nullptr);
    lv_gif_set_src(obj, project.path("image/a.gif").c_str());
    screen_step(2000);
    CHECK(ends == 1);
}

TEST_CASE("an object holds more styles than any user adds") {
    screen_open(100, 100);
    lv_obj_t *obj = plain(lv_scr_act(), 50, 50, 0x808080);
    lv_style_t style;
    lv_style_init(&style);
    for (u32 state = 0; state < 256; state++) { // as many as a file's list holds, and as a host has states for
        lv_obj_add_style(obj, &style, state);
        lv_obj_set_style_text_color(obj, lv_color_hex(state), state);
    }
    lv_obj_add_state(obj, 255);
    CHECK((lv_obj_get_style_text_color(obj, 0).full & 0xFFFFFF) == 255);
    lv_obj_del(obj);
}

static u32 letters_asked;

static bool glyph_count(const lv_font_t *font, lv_font_glyph_dsc_t *out, u32 letter, u32 next) {
    letters_asked++;
    return lv_font_get_glyph_dsc_fmt_txt(font, out, letter, next);
}

TEST_CASE("a word that is longer than its line takes time in proportion to its length") {
    screen_open(100, 100);
    lv_font_t font = *LV_FONT_DEFAULT;
    font.get_glyph_dsc = glyph_count;
    lv_point_t size;
    lv_txt_get_size(&size, std::string(3000, 'w').c_str(), &font, 0, 0, 60, LV_TEXT_FLAG_NONE);
    CHECK(size.y > 500 * lv_font_get_line_height(&font));
    CHECK(letters_asked < 4 * 3000);
}

TEST_CASE("a picture rotated and zoomed around a distant pivot leaves pixels far from it transparent") {
    lv_point_t corner = {20, 20};
    const lv_point_t pivot = {32767, -32768};
    lv_point_transform(&corner, 1234, 0xFFFF, &pivot);
    CHECK(corner.y < -11000000);
    lv_color_t picture[20 * 20], colors[10];
    lv_opa_t seen[10];
    lv_draw_img_dsc_t dsc;
    lv_draw_img_dsc_init(&dsc);
    const lv_area_t far_off = {-20000000, 0, -19999991, 0};
    for (u16 zoom : {1, 255, 256, 0xFFFF}) {
        for (s16 angle : {0, 1234}) {
            dsc.zoom = zoom;
            dsc.angle = angle;
            dsc.pivot = pivot;
            lv_draw_sw_transform(nullptr, &far_off, picture, 20, 20, 20, &dsc, LV_IMG_CF_TRUE_COLOR, colors, seen);
            CHECK(std::count(seen, seen + 10, 0) == 10);
        }
    }
}

TEST_CASE("a letter of a font file is drawn once") {
    screen_open(100, 100);
    lv_ft_info_t file = {};
    file.name = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";
    file.weight = 100;
    REQUIRE(lv_ft_font_init(&file));
    const auto letter = [&](u32 code) {
        lv_font_glyph_dsc_t dsc;
        lv_font_get_glyph_dsc(file.font, &dsc, code, 0);
        return lv_font_get_glyph_bitmap(file.font, code);
    };
    const u8 *first = letter('w');
    letter('v');
    CHECK(letter('w') == first);
    lv_ft_font_destroy(file.font);
}

TEST_CASE("an animation may be deleted by its own callback, and a slider may contain other controls") {
    screen_open(100, 60);
    static s32 vars[2];
    lv_anim_t anim;
    lv_anim_init(&anim);
    const auto start = [&](s32 *var) {
        lv_anim_set_var(&anim, var);
        return lv_anim_start(&anim);
    };
    lv_anim_set_exec_cb(&anim, [](void *var, s32 value) { value ? (void)lv_anim_del(var, nullptr) : (void)value; });
    start(&vars[0]);
    screen_step(200);
    start(&vars[0])->deleted_cb = [](lv_anim_t *) { lv_anim_del(&vars[1], nullptr); };
    start(&vars[1])->deleted_cb = [](lv_anim_t *) { lv_anim_del(&vars[0], nullptr); };
    lv_anim_del(&vars[1], nullptr);
    CHECK(lv_anim_count_running() == 0);
    lv_roller_create(lv_slider_create(lv_scr_act())); // sends the slider an event about its child
}

TEST_CASE("shadows, borders and outlines of any size stay within their buffers") {
    screen_open(200, 200);
    lv_obj_set_style_bg_color(lv_scr_act(), lv_color_white(), 0);
    for (const s32 radius : {0, 3, 30}) {
        for (const s32 width : {5, 20, 120}) { // a narrow one cuts the corners of its shadow in the middle
            lv_obj_t *obj = plain(lv_scr_act(), width, 205 - width, 0x4060A0);
            lv_obj_center(obj);
            lv_obj_set_style_radius(obj, radius, 0);
            lv_obj_set_style_bg_opa(obj, LV_OPA_50, 0); // the shadow is cut out below it
            lv_obj_set_style_shadow_opa(obj, LV_OPA_50, 0);
            for (const s32 shadow : {7, 40, 50, 90}) {
                lv_obj_set_style_shadow_width(obj, shadow, 0);
                for (s32 x = 0; x < 200; x += 7) { // drawn column by column the clip cuts them too
                    const lv_area_t column = {(lv_coord_t)x, 0, (lv_coord_t)(x + 6), 199};
                    lv_obj_invalidate_area(lv_scr_act(), &column);
                    lv_refr_now(nullptr);
                }
                const screen_picture parts = screen_shot();
                lv_obj_invalidate(lv_scr_act());
                CHECK(screen_same(screen_shot(), parts));
            }
            lv_obj_del(obj);
        }
    }
    lv_obj_t *obj = plain(lv_scr_act(), 50, 50, 0x4060A0);
    lv_obj_center(obj);
    for (const s32 radius : {0, 10}) {
        lv_obj_set_style_radius(obj, radius, 0);
        const screen_picture bare = screen_shot();
        for (const s32 width : {-1, -9, -100}) { // drawn as if there were none
            lv_obj_set_style_border_width(obj, width, 0);
            lv_obj_set_style_outline_width(obj, width, 0);
            lv_obj_set_style_shadow_width(obj, width, 0);
            CHECK(screen_same(screen_shot(), bare));
        }
    }
}

// Appends codes of a given number of bits, lowest first, as in GIF files.
struct gif_codes {
    std::string bytes;
    u32 held = 0, count = 0;
    void put(u32 code, u32 bits) {
        held |= code << count;
        for (count += bits; count >= 8; count -= 8, held >>= 8) {
            bytes += (char)held;
        }
    }
};

TEST_CASE("a GIF that clears its codes just before they grow shows its true colours") {
    enum { SIDE = 12, BITS = 3, CLEAR = 4, STOP = 5 };
    gif_codes codes;
    for (u32 i = 0; i < SIDE * SIDE; i++) {
        if (i % 2 == 0) {
            codes.put(CLEAR, BITS); // a third code would make the table grow
        }
        codes.put((i + i / SIDE) % 4, BITS);
    }
    codes.put(STOP, 8);
    temp_project_t project;
    project.write("x.gif", std::string("GIF89a") + le(SIDE, 2) + le(SIDE, 2) + le(0x91, 1) + le(0, 2) + // 4 colours
                               le(0x0000FF, 3) + le(0x00FF00, 3) + le(0xFF0000, 3) + le(0xFFFFFF, 3) + "," + le(0, 4) +
                               le(SIDE, 2) + le(SIDE, 2) + le(0, 1) + le(2, 1) + le((u32)codes.bytes.size(), 1) +
                               codes.bytes + le(0, 1) + ";");
    screen_open(SIDE, SIDE);
    lv_obj_t *gif = lv_gif_create(lv_scr_act());
    lv_gif_set_src(gif, project.path("x.gif").c_str());
    const u32 colours[] = {0xFF0000, 0x00FF00, 0x0000FF, 0xFFFFFF};
    const screen_picture shown = screen_shot();
    u32 wrong = 0;
    for (s32 i = 0; i < SIDE * SIDE; i++) {
        wrong += shown.at(i % SIDE, i / SIDE) != colours[(i + i / SIDE) % 4];
    }
    CHECK(wrong == 0);
}

// A decoder like those of compressed files, which decode all of a file to know its size; `asked` counts.
static u32 asked;

static lv_res_t counting_info(lv_img_decoder_t *, const void *src, lv_img_header_t *header) {
    const bool ours = lv_img_src_get_type(src) == LV_IMG_SRC_FILE && std::string((const char *)src) == "counted";
    asked += ours;
    header->w = header->h = 1;
    header->cf = LV_IMG_CF_TRUE_COLOR;
    return ours ? LV_RES_OK : LV_RES_INV;
}

static lv_res_t counting_open(lv_img_decoder_t *, lv_img_decoder_dsc_t *dsc) {
    static const lv_color_t pixel = {.full = 0xFF123456};
    dsc->img_data = (const u8 *)&pixel;
    return LV_RES_OK;
}

TEST_CASE("a picture in the image cache is drawn without asking its decoder for the size") {
    screen_open(100, 100);
    lv_img_decoder_t *decoder = lv_img_decoder_create();
    lv_img_decoder_set_info_cb(decoder, counting_info);
    lv_img_decoder_set_open_cb(decoder, counting_open);
    lv_obj_t *back = lv_obj_create(lv_scr_act());
    lv_obj_set_style_bg_img_src(back, "counted", 0);
    lv_obj_t *button = lv_imgbtn_create(lv_scr_act());
    lv_imgbtn_set_src(button, LV_IMGBTN_STATE_RELEASED, "counted", "counted", "counted");
    lv_obj_set_size(button, 50, 50);
    lv_obj_t *list = lv_dropdown_create(lv_scr_act());
    lv_dropdown_set_symbol(list, "counted");
    screen_pixel(0, 0);
    CHECK(asked > 0);
    asked = 0;
    lv_obj_invalidate(lv_scr_act());
    screen_pixel(0, 0);
    CHECK(asked == 0);
    lv_img_decoder_delete(decoder);
}
