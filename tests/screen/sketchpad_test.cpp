// Sketchpads: strokes, dots, and the toolbar above.
#include "view_project.h"

enum { X = 20, Y = 40, W = 200, H = 120 }; // the pad's

static std::string pad(u32 id, const std::string &own, const std::string &place = box(X, Y, W, H)) {
    return ctrl(ZOF_CTRL_SKETCHPAD, id, own, place, filled(0xF4F0E0));
}

static lv_sketchpad_t *widget(u32 id = 1) {
    return (lv_sketchpad_t *)at(id)->obj;
}

// How opaque a pixel of the pad is, 0 to 3.
static u32 ink(s32 x, s32 y, u32 id = 1) {
    const u8 *row = widget(id)->canvas.dsc.data + (size_t)y * ((widget(id)->canvas.dsc.header.w + 3) >> 2);
    return row[x >> 2] >> (6 - (x & 3) * 2) & 3;
}

static bool blank() {
    const lv_img_dsc_t &image = widget()->canvas.dsc;
    return std::all_of(image.data, image.data + (W + 3) / 4 * H, [](u8 byte) { return byte == 0; });
}

static void dot(s32 x, s32 y) {
    screen_press(x, y);
    screen_step(100);
    screen_release(x, y);
}

// Middle of a toolbar button, 0 to 3.
static void tool(u32 button) {
    const lv_area_t *a = &lv_obj_get_child(lv_obj_get_child(at(1)->obj, 0), (s32)button)->coords;
    screen_click((a->x1 + a->x2) / 2, (a->y1 + a->y2) / 2);
}

TEST_CASE("a stroke on a sketchpad has no gaps, and the next one starts separately") {
    view_project_t project({pad(1, R"("toolbar": 1, "line_width": 9)")});
    screen_drag(X + 20, Y + 20, X + 180, Y + 100, 4);
    screen_drag(X + 20, Y + 100, X + 100, Y + 110, 2);
    dot(X + 180, Y + 20); // a ring until the width is set
    CHECK(zof_sketchpad_set_width(at(1), 12) == 0);
    dot(X + 150, Y + 20);
    CHECK(zof_sketchpad_set_transp(at(1), ZOF_TRUE) == 0);
    screen_drag(X + 20, Y + 60, X + 180, Y + 60, 3);
    CHECK(screen_is_golden("sketchpad"));
    screen_drag(X + 190, Y + 50, X + W + 60, Y + H + 60, 3); // off the pad and on
    CHECK(zof_sketchpad_clean_bg(at(1)) == 0);
    CHECK(blank());
}

TEST_CASE("a dot of one pixel is drawn on the pad and nowhere else") {
    view_project_t project({pad(1, R"("line_width": 1)"), pad(2, R"("line_width": 1)", box(250, 200, 1, 1))});
    screen_press(X + W - 1, Y + H - 1);
    screen_step(100);
    widget()->line_rect_dsc.width = 0; // lines draw nothing
    for (const auto &[x, y] : {std::pair<s32, s32>{X - 1, Y}, {X + W, Y + H}, {X + 9, Y - 1}, {0, Y + H}, {319, 239}}) {
        screen_move(x, y);
        screen_step(100);
    }
    screen_release(0, 0);
    CHECK(zof_sketchpad_clean_bg(at(1)) == 0);
    CHECK(blank());
    dot(250, 200);
    CHECK(ink(0, 0, 2) == 3);
    screen_press(X + 20, Y + 20);
    screen_move(X + 40, Y + 40);
    CHECK(zof_ctrl_delete(at(1)) == 0); // in the middle of a stroke
    screen_release(X + 90, Y + 90);
    lv_obj_t *bare = lv_sketchpad_create(lv_scr_act()); // without pixels
    lv_obj_set_size(bare, 100, 100);
    lv_sketchpad_clean_bg(bare);
    screen_drag(10, 10, 90, 90, 3);
}

TEST_CASE("the toolbar switches drawing, width, translucency, and clears") {
    view_project_t project({pad(1, R"("toolbar": 1, "line_width": 4)")});
    tool(0);
    screen_drag(X + 20, Y + 20, X + 180, Y + 100, 4);
    CHECK(blank());
    tool(0);
    tool(2);
    screen_drag(X + 20, Y + 50, X + 180, Y + 100, 4);
    CHECK(ink(40, 56) == 1);
    tool(1);
    const lv_area_t *slider = &lv_obj_get_child(at(1)->obj, 1)->coords;
    const s32 y = (slider->y1 + slider->y2) / 2;
    screen_drag(slider->x1 + 20, y, slider->x2 + 20, y, 5);
    CHECK(widget()->line_rect_dsc.width == 40);
    tool(3);
    CHECK(blank());
}
