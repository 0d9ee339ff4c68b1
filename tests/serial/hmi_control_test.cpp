// Every row of the control commands, through the line, against a project that has the control; judged by the control
// itself. Acknowledgements of these writes stay in the panel, which is where they are looked at.
#include "zof_test.h"

#include <functional>

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
    bytes out = {0xB2, type, tail[0], 0, 1, 0, (u8)id};
    out.insert(out.end(), tail.begin() + 1, tail.end());
    return out;
}

// A write, and a read behind it that comes back when it is done. The mark tells an acknowledgement from none.
static s8 write_ctrl(panel &p, const bytes &payload) {
    acknowledgement() = 77;
    pty_write(p.pty, set(payload));
    usleep(4 * GAP_MS * 1000);
    answers(p, get({0xB1, 0x06}), get({0xB1, 0x06, 1, 64, 0, 240}));
    return acknowledgement();
}

static void reads(panel &p, u8 type, u32 id, const bytes &tail, const bytes &value) {
    bytes answer = tail;
    answer.insert(answer.end(), value.begin(), value.end());
    answers(p, get(command(type, id, tail)), get(command(type, id, answer)));
}

struct write_row {
    u8 type;
    u32 id;
    bytes tail;
    std::function<bool()> holds;
};

static void controls_up(panel &p) {
    p.project.image("red.png", 20, 20, 0xFF0000);
    p.project.image("blue.png", 20, 20, 0x0000FF);
    panel_up(p, R"(, "resend_en": 1)", "", one_of_each());
}

static u32 text_color(lv_obj_t *of) {
    return lv_obj_get_style_text_color(of, LV_PART_MAIN).full & 0xFFFFFF;
}

TEST_CASE("host controls: every write does to its control what it says, and is acknowledged by 1") {
    panel p;
    controls_up(p);
    const u8 pub = 0xF0;
    const auto flag = [](u32 id, lv_obj_flag_t f) { return lv_obj_has_flag(obj(id), f); };
    const auto state = [](u32 id, lv_state_t s) { return lv_obj_has_state(obj(id), s); };
    const auto moved = [] { return zof_ctrl_get_x(obj(BTN)) == 30 && zof_ctrl_get_y(obj(BTN)) == -2; };
    const auto wider = [] {
        lv_area_t a;
        lv_obj_get_click_area(obj(BTN), &a);
        return a.x1 == obj(BTN)->coords.x1 - 12;
    };
    const auto arc_range = [] {
        return lv_arc_get_min_value(obj(ARC)) == -100 && lv_arc_get_max_value(obj(ARC)) == 200;
    };
    const auto second_tile = [] {
        u32 r = 9, c = 9;
        zof_tileview_get_tile_id(obj(TILES), &r, &c);
        return r == 0 && c == 1;
    };
    const bytes blue = {0x00, 'b', 'l', 'u', 'e', '.', 'p', 'n', 'g', 0};
    // A row of each kind of value, and of each type of control.
    const write_row rows[] = {
        {pub, LABEL, {0x00, 1}, [&] { return flag(LABEL, LV_OBJ_FLAG_HIDDEN); }},
        {pub, LABEL, {0x00, 0}, [&] { return !flag(LABEL, LV_OBJ_FLAG_HIDDEN); }},
        {pub, BTN, {0x03, 0, 30, 0xFF, 0xFE}, moved},
        {pub, BTN, {0x04, 0, 90, 0, 44}, [] { return lv_obj_get_height(obj(BTN)) == 44; }},
        {pub, BTN, {0x05, 128}, [] { return lv_obj_get_style_opa(obj(BTN), LV_PART_MAIN) == 128; }},
        {pub, BTN, {0x07, 0}, [&] { return !flag(BTN, LV_OBJ_FLAG_CLICKABLE); }},
        {pub, BTN, {0x08, 0, 12}, wider},
        {pub, BTN, {0x09, 0, IMG, LV_ALIGN_OUT_BOTTOM_LEFT, 0, 3, 0, 4}, [] { return obj(BTN)->coords.x1 == 203; }},
        {pub, TILES, {0x0C, 0, 0, 10, 0, 0}, [] { return lv_obj_get_scroll_x(obj(TILES)) == 10; }},
        {0x00, LABEL, {0x00, 'h', 'i', 0}, [] { return std::string(lv_label_get_text(obj(LABEL))) == "hi"; }},
        {0x00, LABEL, {0x01, 0, 1, 2, 3}, [] { return text_color(obj(LABEL)) == 0x010203; }},
        {0x00, LABEL, {0x02, 0, 20}, [] { return true; }}, // done, however it looks
        {0x01, BTN, {0x00, 'o', 'k', 0}, [] { return inner(BTN) == "ok"; }},
        {0x01, BTN, {0x01, 0, 0, 4, 5, 6}, [] { return text_color(lv_obj_get_child(obj(BTN), 0)) == 0x040506; }},
        {0x01, BTN, {0x03, 1}, [&] { return flag(BTN, LV_OBJ_FLAG_CHECKABLE); }},
        {0x02, IMG, blue, [] { return std::string(zof_img_get_src(obj(IMG))) == "blue.png"; }},
        {0x02, IMG, {0x01, 0x03, 0x84}, [] { return lv_img_get_angle(obj(IMG)) == 900; }},
        {0x02, IMG, {0x03, 1, 0x80}, [] { return lv_img_get_zoom(obj(IMG)) == 0x180; }},
        {0x03, IMGBTN, {0x00, 'g', 'o', 0}, [] { return inner(IMGBTN) == "go"; }},
        {0x03, IMGBTN, {0x03, 3}, [] { return zof_imgbtn_get_state(zof_ctrl_get_form_id(1, IMGBTN)) == 3; }},
        {0x04, LINE, {0x00, 0, 9, 8, 7, 0, 6, 200, 1}, [] { return lv_obj_get_style_line_width(obj(LINE), 0) == 6; }},
        {0x05, ARC, {0x02, 0xFF, 0x9C, 0, 200}, arc_range},
        {0x05, ARC, {0x03, 0xFF, 0xF6}, [] { return lv_arc_get_value(obj(ARC)) == -10; }},
        {0x06, BAR, {0x02, 0, 10, 0, 50}, [] { return lv_bar_get_min_value(obj(BAR)) == 10; }},
        {0x06, BAR, {0x01, 0, 33}, [] { return lv_bar_get_value(obj(BAR)) == 33; }},
        {0x07, SLIDER, {0x02, 0, 10, 0, 50}, [] { return lv_slider_get_max_value(obj(SLIDER)) == 50; }},
        {0x07, SLIDER, {0x01, 0, 34}, [] { return lv_slider_get_value(obj(SLIDER)) == 34; }},
        {0x08, SWITCH, {0x00, 1}, [&] { return state(SWITCH, LV_STATE_CHECKED); }},
        {0x09, CHECK_BOX, {0x00, 'x', 0}, [] { return lv_checkbox_get_text(obj(CHECK_BOX)) == std::string("x"); }},
        {0x09, CHECK_BOX, {0x01, 1}, [&] { return state(CHECK_BOX, LV_STATE_CHECKED); }},
        {0x09, CHECK_BOX, {0x02, 1}, [&] { return state(CHECK_BOX, LV_STATE_DISABLED); }},
        {0x0B, TILES, {0x00, 0, 0, 0, 0, 1}, second_tile},
        {0x14, SPIN, {0x00, 0, 0, 0, 42}, [] { return zof_spinbox_get_value(zof_ctrl_get_form_id(1, SPIN)) == 42; }},
    };
    for (const write_row &row : rows) {
        CAPTURE(row.type);
        CAPTURE(row.tail[0]);
        CHECK(write_ctrl(p, command(row.type, row.id, row.tail)) == 1);
        CHECK(row.holds());
    }
    // What chooses between two calls says 0 when it was one of them.
    CHECK(write_ctrl(p, command(0x14, SPIN, {0x02, 1})) == 0);
    CHECK(zof_spinbox_get_value(zof_ctrl_get_form_id(1, SPIN)) == 43);
    CHECK(write_ctrl(p, command(0x14, SPIN, {0x01, 0})) == 0);
    CHECK(write_ctrl(p, command(0x14, SPIN, {0x02, 0})) == 0);
    CHECK(zof_spinbox_get_value(zof_ctrl_get_form_id(1, SPIN)) == 33);
    CHECK(write_ctrl(p, command(pub, LABEL, {0x06, 1})) == 0);
    CHECK(lv_obj_get_index(obj(LABEL)) == lv_obj_get_child_cnt(lv_obj_get_parent(obj(LABEL))) - 1);
    CHECK(write_ctrl(p, command(pub, LABEL, {0x06, 0})) == 0);
    CHECK(lv_obj_get_index(obj(LABEL)) == 0);
}

TEST_CASE("host controls: every read gives what the control has") {
    panel p;
    controls_up(p);
    reads(p, 0xF0, BTN, {0x01}, {0, 80});
    reads(p, 0xF0, TILES, {0x0A}, {0, 2});
    reads(p, 0xF0, BTN, {0x0B}, {0, 0, 0, 60});
    reads(p, 0x00, LABEL, {0x00}, {'h', 'e', 'l', 'l', 'o', 0});
    reads(p, 0x02, IMG, {0x00}, {'r', 'e', 'd', '.', 'p', 'n', 'g', 0});
    for (const auto &[type, id, code] : {std::tuple<u8, u32, u8>{0x05, ARC, 3}, {0x06, BAR, 1}, {0x07, SLIDER, 1}}) {
        write_ctrl(p, command(type, id, {(u8)(code == 3 ? 2 : code + 1), 0, 0, 0, 99}));
        write_ctrl(p, command(type, id, {code, 0, 44}));
        reads(p, type, id, {code}, {0, 44});
    }
    reads(p, 0x08, SWITCH, {0x00}, {0});
    reads(p, 0x09, CHECK_BOX, {0x01}, {0});
    write_ctrl(p, command(0x14, SPIN, {0x00, 0xFF, 0xFF, 0xFF, 0xF0}));
    reads(p, 0x14, SPIN, {0x00}, {0xFF, 0xFF, 0xFF, 0xF0});
    // The tile view's second row bears the code of its first, which cannot be read: silence. So has a write without
    // handler, and a text of a control that is not there.
    const bytes silent_reads[] = {command(0x0B, TILES, {0x00}), command(0x00, 99, {0x00}), command(0x00, BTN, {0x00})};
    for (const bytes &payload : silent_reads) {
        pty_write(p.pty, get(payload));
        silent(p);
    }
    CHECK(write_ctrl(p, command(0xF0, BTN, {0x01, 0, 9})) == 77);
}

TEST_CASE("host controls: a wrong selector, an absent control and one of another type change nothing") {
    panel p;
    controls_up(p);
    CHECK(write_ctrl(p, command(0xF0, LABEL, {0x00, 2})) == 1);
    CHECK(!lv_obj_has_flag(obj(LABEL), LV_OBJ_FLAG_HIDDEN));
    CHECK(write_ctrl(p, command(0xF0, LABEL, {0x06, 2})) == 1);
    const bytes refused[] = {
        command(0xF0, 99, {0x05, 1}),
        command(0xF0, BTN, {0x07, 2}),
        command(0xF0, BTN, {0x09, 0, 99, 1, 0, 0, 0, 0}),   // no such base
        command(0xF0, BTN, {0x09, 0, IMG, 99, 0, 0, 0, 0}), // no such align
        command(0x00, BTN, {0x00, 'x', 0}),                 // a label's command to a button
        command(0x06, SLIDER, {0x01, 0, 5}),                // a bar's to a slider, which LVGL takes for one
        command(0x00, LABEL, {0x02, 0xFF, 0xFF}),
        command(0x00, LABEL, {0x03, 9}),
        command(0x03, IMGBTN, {0x03, 9}),
        command(0x05, ARC, {0x00, 2, 0, 9, 8, 7, 0, 6, 200, 1}),
        command(0x00, LABEL, {0x00, 'x'}), // a text without its end
    };
    for (const bytes &payload : refused) {
        CAPTURE(payload[1]);
        CAPTURE(payload[2]);
        CHECK(write_ctrl(p, payload) == 77);
    }
    CHECK(inner(BTN) == "b");
}
