// Every row of the control commands, through the line, against a project that has the control; checked by the control
// itself and by the picture. Acknowledgements of these writes stay in the panel and are checked there. A new row of a
// command table needs a line in `writes` or `reads`: the test says which.
#include <algorithm>

#include "drv/zof_drv_video.h"
#include "every_control.h"
#include "hmi/zof_hmi_analys.h"
#include "hmi_panel.h"

static lv_obj_t *obj(u32 id) {
    para_t *c = zof_ctrl_get_form_id(1, id);
    REQUIRE(c);
    REQUIRE(c->obj);
    return c->obj;
}

static std::string inner(u32 id) {
    return lv_label_get_text(lv_obj_get_child(obj(id), 0));
}

static s8 &acknowledgement() {
    return *(s8 *)ui_cmd_analys->reply_param;
}

// The command of a control in view 1: type, view, control; the parameter and what follows it are in `tail`.
static bytes command(u8 type, u32 id, const bytes &tail) {
    return join({{0xB2, type, tail[0], 0, 1, 0, (u8)id}, {tail.begin() + 1, tail.end()}});
}

// Writes, then reads; the read is answered when the write is done. A mark shows whether the write was acknowledged.
static s8 write_ctrl(panel &p, const bytes &payload) {
    acknowledgement() = 77;
    pty_write(p.pty, set(payload));
    silent(p);
    return acknowledgement();
}

// A video driver that records its calls.
static std::string video_asked;
static s32 video_state;

static s32 video_note(const char *what, u32 value) {
    video_asked = what + std::to_string(value);
    return 0;
}

static const zof_drv_video_ops_t video_ops = {
    .create = [](lv_obj_t *parent) { return lv_obj_create(parent); },
    .set_pos =
        [](lv_obj_t *player, s32 x, s32 y, u32 w, u32 h) {
            lv_obj_set_pos(player, x, y);
            return video_note("size ", w * 1000 + h);
        },
    .set_src = [](lv_obj_t *, const char *path) { return video_note(zof_res_get_file_name("", path), 0); },
    .set_state = [](lv_obj_t *, u32 s) { return video_state = (s32)s, video_note("state ", s); },
    .get_state = [](lv_obj_t *) { return video_state; },
    .set_one_replay = [](lv_obj_t *, u32 on) { return video_note("replay ", on); },
    .set_volum = [](lv_obj_t *, u8 volume) { return video_note("volume ", volume); },
};

static void controls_up(panel &p) {
    zof_drv_video_reg(&video_ops);
    p.project.write("image/ever.gif", file_text(ZOF_MEDIA_DIR "/ever.gif"));
    files_of_each(p.project);
    panel_up(p, R"(, "resend_en": 1)", "", one_of_each());
}

static u32 text_color(lv_obj_t *of) {
    return lv_obj_get_style_text_color(of, LV_PART_MAIN).full & 0xFFFFFF;
}

static bool flag(u32 id, lv_obj_flag_t f) {
    return lv_obj_has_flag(obj(id), f);
}

static bool state(u32 id, lv_state_t s) {
    return lv_obj_has_state(obj(id), s);
}

// Returns how many pixels have a colour.
static s32 seen(u32 color) {
    const std::vector<u32> pixels = screen_shot().pixels;
    return (s32)std::count(pixels.begin(), pixels.end(), color);
}

// Returns whether one pixel has the colour and another one does not.
static bool only(s32 x, s32 y, s32 other_x, s32 other_y, u32 color) {
    return screen_pixel(x, y) == color && screen_pixel(other_x, other_y) != color;
}

static std::string list_text(u32 index) {
    const char *text = zof_list_get_index_str(obj(LIST), index);
    return text == (const char *)-1 ? "(none)" : text;
}

static std::string label_text(const lv_obj_t *label) {
    return label ? lv_label_get_text(label) : "(none)";
}

static std::string typed() {
    return lv_textarea_get_text(obj(TXTBOX));
}

static bool btn_flag(u32 id, u32 flags) {
    return zof_btnmatrix_has_btn_ctrl(obj(MATRIX), id, flags) == 1;
}

static bool box_closes() { // by itself, on the host's own clock
    return eventually([] { return loop_turn(), flag(MBOX, LV_OBJ_FLAG_HIDDEN); });
}

static std::string in_german(u32 id) {
    zof_lang_set("de");
    const std::string name = str(zof_img_get_src(obj(id)));
    zof_lang_set("en");
    return name;
}

// A parameter that ends in a text.
static bytes with(const bytes &head, const std::string &text) {
    return join({head, {text.c_str(), text.c_str() + text.size() + 1}});
}

static const lv_gif_t *gif() {
    return (const lv_gif_t *)obj(GIF);
}

// Returns whether the code shown is that of a text.
static bool qr_says(const char *text) {
    lv_obj_t *want = lv_qrcode_create(lv_scr_act(), 60, lv_color_black(), lv_color_white());
    lv_qrcode_update(want, text, (u32)strlen(text));
    const bool same = memcmp(lv_canvas_get_img(obj(QR))->data, lv_canvas_get_img(want)->data,
                             LV_CANVAS_BUF_SIZE_INDEXED_1BIT(60, 60)) == 0;
    lv_obj_del(want);
    return same;
}

static u32 series_color(u32 number) {
    return zof_chart_series_at(obj(CHART), number)->color.full & 0xFFFFFF;
}

static const lv_coord_t *series_points(u32 number) {
    return lv_chart_get_y_array(obj(CHART), zof_chart_series_at(obj(CHART), number));
}

// A write: the type's second byte, the control, the parameter's code with what follows it, and what must hold
// afterwards. The rows run in this order and build on each other. `says` is the acknowledgement: a choice between two
// calls returns 0 for either.
struct write_row {
    u8 type;
    u32 id;
    bytes tail;
    bool (*holds)();
    s8 says = 1;
};

enum : u8 { PUB = 0xF0 };

static const std::vector<write_row> writes = {
    {PUB, LABEL, {0x00, 1}, [] { return flag(LABEL, LV_OBJ_FLAG_HIDDEN); }},
    {PUB, LABEL, {0x00, 0}, [] { return !flag(LABEL, LV_OBJ_FLAG_HIDDEN); }},
    {PUB, BTN, {0x03, 0, 30, 0xFF, 0xFE}, [] { return obj(BTN)->coords.x1 == 30 && obj(BTN)->coords.y1 == -2; }},
    {PUB, BTN, {0x04, 0, 90, 0, 44}, [] { return lv_obj_get_height(obj(BTN)) == 44; }},
    {PUB, SPIN, {0x05, 128}, [] { return lv_obj_get_style_opa(obj(SPIN), LV_PART_MAIN) == 128; }},
    {PUB, LABEL, {0x06, 1}, [] { return lv_obj_get_index(obj(LABEL)) > 1; }, 0},
    {PUB, LABEL, {0x06, 0}, [] { return lv_obj_get_index(obj(LABEL)) == 0; }, 0},
    {PUB, BTN, {0x07, 0}, [] { return !flag(BTN, LV_OBJ_FLAG_CLICKABLE); }},
    {PUB, BTN, {0x08, 0, 12}, [] { return obj(BTN)->spec_attr->ext_click_pad == 12; }},
    {PUB, BTN, {0x09, 0, IMG, LV_ALIGN_OUT_BOTTOM_LEFT, 0, 3, 0, 4}, [] { return obj(BTN)->coords.x1 == 203; }},
    {PUB, TILES, {0x0C, 0, 0, 10, 0, 0}, [] { return lv_obj_get_scroll_x(obj(TILES)) == 10; }},
    {0x00, LABEL, with({0x00}, "hi"), [] { return label_text(obj(LABEL)) == "hi"; }},
    {0x00, LABEL, {0x01, 0, 1, 2, 3}, [] { return text_color(obj(LABEL)) == 0x010203; }},
    {0x00, LABEL, {0x02, 0, 28}, [] { return seen(0x010203) > 100; }},
    {0x00, LABEL, {0x03, 4}, [] { return lv_label_get_long_mode(obj(LABEL)) == LV_LABEL_LONG_CLIP; }},
    {0x00, LABEL, {0x04, 0, 33}, [] { return lv_obj_get_style_anim_speed(obj(LABEL), LV_PART_MAIN) == 33; }},
    {0x00, LABEL, {0x05, 0x12}, [] { return lv_obj_get_style_text_align(obj(LABEL), 0) == LV_TEXT_ALIGN_CENTER; }},
    {0x01, BTN, with({0x00}, "ok"), [] { return inner(BTN) == "ok"; }},
    {0x01, BTN, {0x01, 0, 0, 4, 5, 6}, [] { return text_color(lv_obj_get_child(obj(BTN), 0)) == 0x040506; }},
    {0x01, BTN, {0x02, 0, 28}, [] { return seen(0x040506) > 100; }},
    {0x01, BTN, {0x03, 1}, [] { return flag(BTN, LV_OBJ_FLAG_CHECKABLE); }},
    {0x01, BTN, {0x04, 1}, [] { return state(BTN, LV_STATE_CHECKED); }},
    {0x02, IMG, with({0x00}, "blue.png"), [] { return seen(0x0000FF) == 400; }},
    {0x02, IMG, {0x02, 0, 0, 0, 0}, [] { return seen(0x0000FF) == 400; }},
    {0x02, IMG, {0x01, 0x03, 0x84}, [] { return only(190, 70, 210, 70, 0x0000FF); }},
    {0x02, IMG, {0x03, 1, 0x80}, [] { return lv_img_get_zoom(obj(IMG)) == 0x180; }},
    {0x03, IMGBTN, with({0x00}, "H"), [] { return inner(IMGBTN) == "H"; }},
    {0x03, IMGBTN, {0x01, 0, 0, 0, 7, 0}, [] { return text_color(lv_obj_get_child(obj(IMGBTN), 0)) == 0x000700; }},
    {0x03, IMGBTN, {0x02, 0, 18}, [] { return seen(0x000700) > 20; }},
    {0x03, IMGBTN, with({0x04, 0}, "blue.png"), [] { return seen(0x0000FF) > 1100; }},
    {0x03, IMGBTN, {0x03, 3}, [] { return zof_imgbtn_get_state(obj(IMGBTN)) == 3; }},
    {0x04, LINE, {0x00, 0, 9, 8, 7, 0, 6, 200, 1}, [] { return lv_obj_get_style_line_width(obj(LINE), 0) == 6; }},
    {0x05, ARC, {0x05, 0, 135, 0, 45}, [] { return lv_arc_get_bg_angle_end(obj(ARC)) == 45; }},
    {0x05, ARC, {0x02, 0xFF, 0x9C, 0, 200}, [] { return lv_arc_get_min_value(obj(ARC)) == -100; }},
    {0x05, ARC, {0x03, 0xFF, 0xF6}, [] { return lv_arc_get_value(obj(ARC)) == -10; }},
    {0x05, ARC, {0x00, 1, 0, 255, 0, 0, 0, 6, 255, 0}, [] { return seen(0xFF0000) > 100; }},
    {0x05, ARC, {0x01, 0, 0, 255, 0}, [] { return screen_pixel(10, 135) == 0x00FF00; }},
    {0x05, ARC, {0x04, 0, 90}, [] { return only(45, 130, 10, 135, 0x00FF00); }},
    {0x06, BAR, {0x02, 0, 10, 0, 50}, [] { return lv_bar_get_min_value(obj(BAR)) == 10; }},
    {0x06, BAR, {0x01, 0, 33}, [] { return lv_bar_get_value(obj(BAR)) == 33; }},
    {0x06, BAR, {0x00, 0, 3, 2, 1}, [] { return only(100, 125, 130, 125, 0x030201); }},
    {0x07, SLIDER, {0x02, 0, 10, 0, 50}, [] { return lv_slider_get_max_value(obj(SLIDER)) == 50; }},
    {0x07, SLIDER, {0x01, 0, 34}, [] { return lv_slider_get_value(obj(SLIDER)) == 34; }},
    {0x07, SLIDER, {0x00, 0, 6, 5, 4}, [] { return screen_pixel(90, 145) == 0x060504; }},
    {0x08, SWITCH, {0x00, 1}, [] { return state(SWITCH, LV_STATE_CHECKED); }},
    {0x09, CHECK_BOX, with({0x00}, "x"), [] { return lv_checkbox_get_text(obj(CHECK_BOX)) == std::string("x"); }},
    {0x09, CHECK_BOX, {0x01, 1}, [] { return state(CHECK_BOX, LV_STATE_CHECKED); }},
    {0x09, CHECK_BOX, {0x02, 1}, [] { return state(CHECK_BOX, LV_STATE_DISABLED); }},
    {0x0A, MBOX, with({0x00}, "T"), [] { return label_text(lv_msgbox_get_title(obj(MBOX))) == "T"; }},
    {0x0A, MBOX, with({0x01}, "x"), [] { return label_text(lv_msgbox_get_text(obj(MBOX))) == "x"; }},
    {0x0A, MBOX, {0x03, 0}, [] { return flag(MBOX, LV_OBJ_FLAG_HIDDEN); }},
    {0x0A, MBOX, {0x03, 1}, [] { return !flag(MBOX, LV_OBJ_FLAG_HIDDEN); }},
    {0x0A, MBOX, {0x02, 0, 1}, box_closes},
    {0x0B, TILES, {0x00, 0, 0, 0, 0, 1}, [] { return lv_obj_get_scroll_x(obj(TILES)) == 60; }},
    {0x0C, TXTBOX, with({0x03}, "ab"), [] { return typed() == "ab"; }},
    {0x0C, TXTBOX, {0x05, 1}, [] { return lv_textarea_get_cursor_pos(obj(TXTBOX)) == 1; }},
    {0x0C, TXTBOX, with({0x00}, "xy"), [] { return typed() == "axyb"; }},
    {0x0C, TXTBOX, {0x01, 0, 0, 0xA4, 0xC3}, [] { return typed() == "axyäb"; }},
    {0x0C, TXTBOX, {0x02, 0}, [] { return typed() == "axyb"; }, 0},
    {0x0C, TXTBOX, {0x02, 1}, [] { return typed() == "axy"; }, 0},
    {0x0C, TXTBOX, {0x04, 1}, [] { return lv_textarea_get_password_mode(obj(TXTBOX)) && typed() == "axy"; }},
    {0x0D, LIST, with({0x02, 0, 1}, "2"), [] { return list_text(1) == "2"; }},
    {0x0D, LIST, {0x00, 0, 0}, [] { return list_text(0) == "2" && list_text(1) == "(none)"; }},
    {0x0D, LIST, {0x01, 0}, [] { return list_text(0) == "(none)"; }},
    {0x0E, DROP, with({0x00, 0, 0}, "new"), [] { return lv_dropdown_get_option_cnt(obj(DROP)) == 3; }},
    {0x0E, DROP, with({0x01, 0, 2}, "2"),
     [] { return lv_dropdown_get_options(obj(DROP)) == std::string("new\none\n2"); }},
    {0x0E, DROP, {0x02, 0, 0}, [] { return lv_dropdown_get_options(obj(DROP)) == std::string("one\n2"); }},
    {0x0E, DROP, {0x03, 1}, [] { return lv_dropdown_is_open(obj(DROP)); }, 0},
    {0x0E, DROP, {0x03, 0}, [] { return !lv_dropdown_is_open(obj(DROP)); }, 0},
    {0x0F, ROLLER, with({0x00, 0, 9}, "e"), [] { return lv_roller_get_option_cnt(obj(ROLLER)) == 3; }},
    {0x0F, ROLLER, with({0x01, 0, 0}, "1"),
     [] { return lv_roller_get_options(obj(ROLLER)) == std::string("1\ntwo\ne"); }},
    {0x0F, ROLLER, {0x02, 0, 0}, [] { return lv_roller_get_option_cnt(obj(ROLLER)) == 2; }},
    {PUB, IMG, with({0x10}, "#pic"), [] { return in_german(IMG) == "red.png"; }},
    {0x10, GIF, {0x00, 1}, [] { return gif()->timer->paused == 1; }, 0},
    {0x10, GIF, {0x00, 2}, [] { return gif()->timer->paused == 0; }, 0},
    {0x10, GIF, {0x01, 0xFF, 0x00}, [] { return gif()->gif->loop_count > 0xFE00; }},
    {0x10, GIF, with({0x02}, "n.gif"), [] { return gif()->gif == nullptr; }},
    {0x11, QR, with({0x00}, "hi"), [] { return qr_says("hi"); }},
    {0x12, VIDEO, with({0x00}, "a.mp4"), [] { return video_asked == "video/a.mp40"; }},
    {0x12, VIDEO, {0x01, 2}, [] { return video_asked == "state 2"; }},
    {0x12, VIDEO, {0x02, 99}, [] { return video_asked == "volume 99"; }},
    {0x12, VIDEO, {0x03, 2, 0, 0, 1, 0, 3, 1, 4}, [] { return video_asked == "size 3260"; }},
    {0x12, VIDEO, {0x04, 1}, [] { return video_asked == "replay 1"; }},
    {0x14, SPIN, {0x00, 0, 0, 0, 42}, [] { return zof_spinbox_get_value(obj(SPIN)) == 42; }},
    {0x14, SPIN, {0x02, 1}, [] { return zof_spinbox_get_value(obj(SPIN)) == 43; }, 0},
    {0x14, SPIN, {0x01, 0}, [] { return zof_spinbox_get_value(obj(SPIN)) == 43; }, 0},
    {0x14, SPIN, {0x02, 0}, [] { return zof_spinbox_get_value(obj(SPIN)) == 33; }, 0},
    {0x15, TABLE, with({0x00, 0, 1, 0, 2}, "c"), [] { return str(zof_table_get_cell_value(obj(TABLE), 1, 2)) == "c"; }},
    {0x15, TABLE, {0x01, 0, 2, 0, 77}, [] { return lv_table_get_col_width(obj(TABLE), 2) == 77; }},
    {0x15, TABLE, {0x02, 0, 0, 0, 1}, [] { return lv_table_has_cell_ctrl(obj(TABLE), 0, 1, 1); }},
    {0x15, TABLE, {0x03, 0, 1, 1, 9, 0, 255, 255, 0, 2, 2, 9}, [] { return seen(0x020209) > 1000; }},
    {0x16, MATRIX, {0x02, 1, 0, 0xC0}, [] { return btn_flag(0, 0xC0) && btn_flag(1, 0xC0); }},
    {0x16, MATRIX, {0x01, 1, 0, 1, 0, 0x20}, [] { return btn_flag(1, 0x60) && !btn_flag(0, 0x20); }},
    {0x16, MATRIX, {0x04, 7, 0, 1}, [] { return btn_flag(1, 7); }},
    {0x16, MATRIX, {0x05, 1}, [] { return zof_btnmatrix_get_one_checked(obj(MATRIX)) == 1; }},
    {0x16, MATRIX, with({0x00, 0, 1}, "B"), [] { return str(zof_btnmatrix_get_btn_text(obj(MATRIX), 1)) == "B"; }},
    {0x16, MATRIX, {0x06, 0, 1}, [] { return zof_btnmatrix_get_selected_btn(obj(MATRIX)) == 1; }},
    {0x0D, LIST, with({0x03}, "third"), [] { return list_text(0) == "third"; }},
    {0x0D, LIST, {0x04, 0, 0}, [] { return lv_obj_has_state(lv_obj_get_child(obj(LIST), 0), LV_STATE_CHECKED); }},
    {0x0E, DROP, {0x04, 0, 1}, [] { return zof_droplist_get_selected(obj(DROP)) == 1; }},
    {0x0F, ROLLER, {0x03, 0, 1}, [] { return zof_rollist_get_selected(obj(ROLLER)) == 1; }},
    {0x13, KEYBOARD, {0x02, 0, TXTBOX}, [] { return lv_keyboard_get_textarea(obj(KEYBOARD)) == obj(TXTBOX); }},
    {0x13, KEYBOARD, with({0x03}, "typed"), [] { return typed() == "typed"; }},
    {0x17,
     CHART,
     {0x00, 1, 0, 1, 2, 3},
     [] { return zof_chart_series_count(obj(CHART)) == 2 && series_color(1) == 0x010203; }},
    {0x17, CHART, {0x00, 0, 0, 4, 5, 6}, [] { return series_color(0) == 0x040506 && series_color(1) == 0x010203; }},
    {0x17, CHART, {0x02, 1, 0, 4, 0, 9}, [] { return series_points(1)[4] == 9; }},
    {0x17, CHART, {0x01, 0, 0, 7}, [] { return series_points(0)[0] == 7; }},
    {0x17, CHART, {0x04, 1}, [] { return series_points(1)[4] == LV_CHART_POINT_NONE && series_points(0)[0] == 7; }},
    {0x17, CHART, {0x03, 0, 0xFF, 0xFB, 0, 5}, [] { return ((lv_chart_t *)obj(CHART))->ymin[0] == -5; }},
};

// A read: as above, and the value that follows what was asked. What a row needs is written first.
struct read_row {
    u8 type;
    u32 id;
    bytes tail;
    bytes value;
    std::vector<bytes> first = {};
};

static const std::vector<read_row> reads = {
    {PUB, BTN, {0x00}, {0}},
    {PUB, BTN, {0x01}, {0, 80}},
    {PUB, BTN, {0x02}, {0, 30}},
    {PUB, TILES, {0x0A}, {0, 2}},
    {PUB, BTN, {0x0B}, {0, 0, 0, 60}},
    {PUB, TILES, {0x0D}, {0, 10, 0, 0}, {{0x0C, 0, 0, 10, 0, 0}}},
    {0x00, LABEL, {0x00}, {'h', 'e', 'l', 'l', 'o', 0}},
    {0x01, BTN, {0x04}, {0x81}, {{0x04, 0x81}}},
    {0x02, IMG, {0x00}, {'r', 'e', 'd', '.', 'p', 'n', 'g', 0}},
    {0x05, ARC, {0x03}, {0, 44}, {{0x02, 0, 0, 0, 99}, {0x03, 0, 44}}},
    {0x06, BAR, {0x01}, {0, 44}, {{0x02, 0, 0, 0, 99}, {0x01, 0, 44}}},
    {0x07, SLIDER, {0x01}, {0, 44}, {{0x02, 0, 0, 0, 99}, {0x01, 0, 44}}},
    {0x08, SWITCH, {0x00}, {0}},
    {0x09, CHECK_BOX, {0x01}, {0}},
    {0x09, CHECK_BOX, {0x02}, {1}, {{0x02, 1}}},
    {0x0C, TXTBOX, {0x03}, {'t', 'e', 'x', 't', 0}},
    {0x0D, LIST, {0x02, 0, 1}, {'s', 'e', 'c', 'o', 'n', 'd', 0}},
    {0x13, KEYBOARD, {0x00}, {0, 0, 0xFF, 0xFF}},
    {0x13, KEYBOARD, {0x01, 0, 4}, {'4', 0}},
    {0x12, VIDEO, {0x01}, {2}, {{0x01, 2}}},
    {0x14, SPIN, {0x00}, {0xFF, 0xFF, 0xFF, 0xF0}, {{0x00, 0xFF, 0xFF, 0xFF, 0xF0}}},
    {0x16, MATRIX, {0x00, 0, 1}, {'b', 0}},
    {0x16, MATRIX, {0x03, 0, 1, 0, 0x48}, {1}, {{0x01, 1, 0, 1, 0, 0x48}}},
    {0x16, MATRIX, {0x05}, {1}, {{0x05, 1}}},
    {0x16, MATRIX, {0x06}, {0, 1}, {{0x06, 0, 1}}},
    {0x16, MATRIX, {0x07}, {'b', 0}},
    {PUB, SLIDER, {0x0E}, {0, 0, 0, 0, 0, 44, 0}},
    {PUB, SLIDER, {0x0F}, {1}},
    {PUB, LABEL, {0x10}, {'#', 'h', 'e', 'l', 'l', 'o', 0}},
    {0x0A, MBOX, {0x04}, {0xFF, 0xFF}},
    {0x0A, MBOX, {0x05}, {0}},
    {0x0D, LIST, {0x04}, {0xFF, 0xFF}},
    {0x0D, LIST, {0x05}, {0}},
    {0x0E, DROP, {0x04}, {0, 1}, {{0x04, 0, 1}}},
    {0x0E, DROP, {0x05}, {'t', 'w', 'o', 0}},
    {0x0F, ROLLER, {0x03}, {0, 1}, {{0x03, 0, 1}}},
    {0x0F, ROLLER, {0x04}, {'t', 'w', 'o', 0}},
    {0x13, KEYBOARD, {0x03}, {'t', 'e', 'x', 't', 0}, {{0x02, 0, TXTBOX}}},
};

TEST_CASE("host controls: every write has its effect on its control, and is acknowledged") {
    panel p;
    controls_up(p);
    for (const write_row &row : writes) {
        CAPTURE(row.type);
        CAPTURE(row.tail[0]);
        CHECK(write_ctrl(p, command(row.type, row.id, row.tail)) == row.says);
        lv_obj_update_layout(lv_scr_act());
        CHECK(row.holds());
    }
}

TEST_CASE("host controls: every read returns the control's value") {
    panel p;
    controls_up(p);
    for (const read_row &row : reads) {
        CAPTURE(row.type);
        CAPTURE(row.tail[0]);
        for (const bytes &write : row.first) {
            write_ctrl(p, command(row.type, row.id, write));
        }
        answers(p, get(command(row.type, row.id, row.tail)),
                get(command(row.type, row.id, join({row.tail, row.value}))));
    }
    // A text that does not exist is empty: of a missing control, one of another type, a key or button beyond the last.
    for (const bytes &payload : {command(0x00, 99, {0x00}), command(0x00, BTN, {0x00}),
                                 command(0x13, KEYBOARD, {0x01, 0, 99}), command(0x16, MATRIX, {0x00, 0, 2})}) {
        answers(p, get(payload), get(join({payload, {0}})));
    }
    pty_write(p.pty,
              get(command(0x0B, TILES, {0x00}))); // the tile view's second row, which has the same code as the first
    silent(p);
}

template <typename R> static bool sweeps(const std::vector<R> &rows, u8 type, u8 code) {
    return std::any_of(rows.begin(), rows.end(), [=](const R &r) { return r.type == type && r.tail[0] == code; });
}

TEST_CASE("host controls: the sweep covers every row of the command tables") {
    for (u32 t = 2; t < zof_ui_cmd_type_count; t++) { // the link's test covers the first types explicitly
        const zof_hmi_cmd_type_t &type = zof_ui_cmd_types[t];
        for (u32 i = 0; i < type.param_count; i++) {
            const zof_hmi_param_type_t &row = type.params[i];
            const std::string name = std::string(type.name) + " " + row.name;
            CAPTURE(name);
            CHECK((!row.set_fun || sweeps(writes, type.code[1], row.code[0])));
            CHECK((!row.get_fun || sweeps(reads, type.code[1], row.code[0]) || name == "tile_view tile_read"));
        }
    }
}

TEST_CASE("host controls: an invalid selector, a missing control and a control of another type change nothing") {
    panel p;
    controls_up(p);
    for (const bytes &payload :
         {command(PUB, LABEL, {0x00, 2}), command(PUB, LABEL, {0x06, 2}), command(PUB, LABEL, with({0x10}, "plain")),
          command(PUB, BTN, with({0x10}, "#none")), command(0x10, GIF, {0x00, 3}), command(0x12, VIDEO, {0x01, 4})}) {
        CAPTURE(hex(payload));
        CHECK(write_ctrl(p, payload) == 1);
    }
    const bytes refused[] = {
        // No such control, write, flag, base; another type's, also one that LVGL takes for its own.
        command(PUB, 99, {0x05, 1}), command(PUB, BTN, {0x01, 0, 9}), command(PUB, BTN, {0x07, 2}),
        command(PUB, BTN, {0x09, 0, 99, 1, 0, 0, 0, 0}), command(0x00, BTN, with({0x00}, "x")),
        command(0x0C, SPIN, with({0x03}, "x")),
        // No such mode, end of a text, UTF-8 character; beyond the end; more cells than a table has.
        command(0x00, LABEL, {0x03, 9}), command(0x00, LABEL, {0x00, 'x'}),
        command(0x0C, TXTBOX, {0x01, 0, 0, 0x4F, 0x60}), command(0x0D, LIST, with({0x02, 0xFF, 0xFF}, "x")),
        command(0x0F, ROLLER, {0x02, 0xFF, 0xFF}), command(0x15, TABLE, with({0x00, 0xFF, 0xFF, 0, 0}, "x"))};
    for (const bytes &payload : refused) {
        CAPTURE(hex(payload));
        CHECK(write_ctrl(p, payload) == 77);
    }
    CHECK(inner(BTN) + typed() + list_text(1) == "btextsecond");
    CHECK((lv_roller_get_option_cnt(obj(ROLLER)) == 2 && !flag(LABEL, LV_OBJ_FLAG_HIDDEN)));
}
