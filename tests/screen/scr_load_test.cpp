// Screen transitions: where both screens are at the start, in the middle and at the end, and what an interruption
// leaves.
#include "screen_fixture.h"

enum { W = 100, H = 60, TIME = 200, BY_LVGL = 1000 };

// Two screens of one colour each, and the events that they got.
static lv_obj_t *red, *blue;
static std::string events;

static lv_obj_t *make_screen(u32 color) {
    lv_obj_t *scr = lv_obj_create(nullptr);
    lv_obj_remove_style_all(scr);
    lv_obj_set_style_bg_color(scr, lv_color_hex(color), 0);
    lv_obj_set_style_bg_opa(scr, LV_OPA_COVER, 0);
    return scr;
}

static void event_note(lv_event_t *e) {
    static constexpr const char *names[] = {"unload ", "load ", "loaded ", "unloaded "};
    const u32 i = (u32)lv_event_get_code(e) - LV_EVENT_SCREEN_UNLOAD_START;
    if (i < 4) {
        events += std::string(lv_event_get_target(e) == red ? "red " : "blue ") + names[i];
    }
}

static void load(lv_obj_t *scr, u32 transition = ZOF_SCR_LOAD_ANIM_NONE, u32 time = 0, u32 delay = 0) {
    zof_scr_load_anim(scr, transition, time, delay, lv_anim_path_linear);
}

static void two_screens() {
    screen_open(W, H);
    red = make_screen(0xFF0000);
    blue = make_screen(0x0000FF);
    load(red);
    screen_step(50);
    lv_obj_add_event_cb(red, event_note, LV_EVENT_ALL, nullptr);
    lv_obj_add_event_cb(blue, event_note, LV_EVENT_ALL, nullptr);
}

// The state of a screen: position, opacity and size.
struct stand {
    s32 x = 0, y = 0, opa = 255, zoom = 256;
    bool operator==(const stand &) const = default;
};

static stand stand_of(lv_obj_t *scr) {
    return {lv_obj_get_x(scr), lv_obj_get_y(scr), lv_obj_get_style_opa(scr, 0),
            lv_obj_get_style_transform_zoom(scr, 0)};
}

struct expectation {
    u32 transition;
    stand in_start, out_end; // where the new screen begins and the old one ends
    bool over = false;       // the old one is drawn above the new one
    s32 out_opa_start = 255;
};

static constexpr expectation table[] = {
    {ZOF_SCR_LOAD_ANIM_NONE, {}, {}},
    {ZOF_SCR_LOAD_ANIM_OVER_LEFT, {W, 0}, {}},
    {ZOF_SCR_LOAD_ANIM_OVER_RIGHT, {-W, 0}, {}},
    {ZOF_SCR_LOAD_ANIM_OVER_TOP, {0, H}, {}},
    {ZOF_SCR_LOAD_ANIM_OVER_BOTTOM, {0, -H}, {}},
    {ZOF_SCR_LOAD_ANIM_MOVE_LEFT, {W, 0}, {-W, 0}},
    {ZOF_SCR_LOAD_ANIM_MOVE_RIGHT, {-W, 0}, {W, 0}},
    {ZOF_SCR_LOAD_ANIM_MOVE_TOP, {0, H}, {0, -H}},
    {ZOF_SCR_LOAD_ANIM_MOVE_BOTTOM, {0, -H}, {0, H}},
    {ZOF_SCR_LOAD_ANIM_FADE_IN, {0, 0, 0}, {0, 0, 0}, false, 0},
    {ZOF_SCR_LOAD_ANIM_FADE_ON, {0, 0, 0}, {}},
    {ZOF_SCR_LOAD_ANIM_FADE_OUT, {}, {0, 0, 0}, true},
    {ZOF_SCR_LOAD_ANIM_OUT_LEFT, {}, {-W, 0}, true},
    {ZOF_SCR_LOAD_ANIM_OUT_RIGHT, {}, {W, 0}, true},
    {ZOF_SCR_LOAD_ANIM_OUT_TOP, {}, {0, -H}, true},
    {ZOF_SCR_LOAD_ANIM_OUT_BOTTOM, {}, {0, H}, true},
    {ZOF_SCR_LOAD_ANIM_IN_ZOOM, {0, 0, 255, 1}, {}},
    {ZOF_SCR_LOAD_ANIM_IN_ZOOM_WITH_BG, {0, 0, 255, 1}, {0, 0, 0}, false, 0},
    {ZOF_SCR_LOAD_ANIM_OUT_ZOOM, {}, {0, 0, 255, 1}, true},
};

// Half way: the middle of both ends, give or take two frames.
static void check_middle(const stand &got, const stand &from, const stand &to) {
    const s32 rows[][3] = {
        {got.x, from.x, to.x}, {got.y, from.y, to.y}, {got.opa, from.opa, to.opa}, {got.zoom, from.zoom, to.zoom}};
    for (const auto &[value, start, end] : rows) {
        CHECK(abs(value - (start + end) / 2) <= abs(end - start) / 5 + 1);
    }
}

TEST_CASE("each transition moves, fades and zooms both screens between its two ends") {
    two_screens();
    screen_click(10, H / 2);
    lv_disp_t *disp = lv_disp_get_default();
    for (const expectation &e : table) {
        CAPTURE(e.transition);
        load(red);
        events.clear();
        load(blue, e.transition, TIME);
        lv_obj_update_layout(blue);
        CHECK(stand_of(blue) == e.in_start);

        screen_step(TIME / 2);
        CHECK((disp->draw_prev_over_act != 0) == e.over);
        check_middle(stand_of(blue), e.in_start, {});
        check_middle(stand_of(red), {0, 0, e.out_opa_start}, e.out_end);
        const u32 right = screen_pixel(W - 5, H / 2); // a zoom grows from the finger's last position, at the left
        CHECK((e.transition != ZOF_SCR_LOAD_ANIM_MOVE_LEFT || right == 0x0000FF));
        CHECK((e.transition != ZOF_SCR_LOAD_ANIM_IN_ZOOM || right == 0xFF0000));
        CHECK((e.transition != ZOF_SCR_LOAD_ANIM_IN_ZOOM_WITH_BG || right == 0));

        screen_step(TIME / 2 + 40);
        CHECK(!disp->draw_prev_over_act);
        CHECK(stand_of(red) == stand());
        CHECK(events == "red unload blue load blue loaded red unloaded ");
    }
}

TEST_CASE("time, delay and path count, within the limits of a screen") {
    two_screens();
    load(blue, 99);
    CHECK(events == "red unload blue load blue loaded red unloaded ");

    load(red, ZOF_SCR_LOAD_ANIM_FADE_IN, TIME, 100);
    screen_step(80);
    CHECK(screen_pixel(50, 30) == 0x0000FF);
    screen_step(TIME + 50);

    // All paths reach the end, but differ on the way.
    for (u32 path = 1; path < ZOF_ANIM_PATH_COUNT; path++) {
        CAPTURE(path);
        lv_obj_t *to = path % 2 ? red : blue;
        zof_scr_load_anim(to, ZOF_SCR_LOAD_ANIM_OVER_LEFT, TIME, 0, zof_anim_path_get(path));
        screen_step(TIME / 2);
        CHECK((path != ZOF_ANIM_PATH_START_SLOW || lv_obj_get_x(to) > W / 2 + 5));
        CHECK((path != ZOF_ANIM_PATH_END_SLOW || lv_obj_get_x(to) < W / 2 - 5));
        screen_step(TIME);
        CHECK(lv_obj_get_x(to) == 0);
    }
    CHECK(!zof_anim_path_get(ZOF_ANIM_PATH_COUNT));

    // Paths that overshoot stay within the limits of opacity and zoom.
    for (u32 transition : {ZOF_SCR_LOAD_ANIM_FADE_ON, ZOF_SCR_LOAD_ANIM_IN_ZOOM, ZOF_SCR_LOAD_ANIM_OUT_ZOOM}) {
        zof_scr_load_anim(lv_scr_act() == red ? blue : red, transition, TIME, 0, lv_anim_path_overshoot);
        for (u32 t = 0; t < TIME + 50; t += SCREEN_STEP_MS) {
            screen_step(SCREEN_STEP_MS);
            CHECK(std::max(abs(stand_of(red).zoom - 200), abs(stand_of(blue).zoom - 200)) < 200);
        }
    }

    // A screen keeps its own opacity, and what cannot be loaded changes nothing.
    lv_obj_t *other = lv_scr_act() == red ? blue : red;
    lv_obj_set_style_opa(other, 128, 0);
    load(other, ZOF_SCR_LOAD_ANIM_FADE_ON, TIME);
    screen_step(TIME + 50);
    CHECK(stand_of(other).opa == 128);
    events.clear();
    load(other, ZOF_SCR_LOAD_ANIM_MOVE_LEFT, TIME); // already shown
    load(nullptr, ZOF_SCR_LOAD_ANIM_MOVE_LEFT, TIME);
    CHECK(events.empty());
}

TEST_CASE("an interrupted transition ends first, and the panel takes presses again") {
    two_screens();
    lv_obj_t *green = make_screen(0x00FF00);
    static s32 presses;
    const auto pressed = [](lv_event_t *) { presses++; };
    lv_obj_add_event_cb(green, pressed, LV_EVENT_PRESSED, nullptr);
    const struct {
        u32 first, delay;     // from red to blue
        u32 next, time;       // then to green
        const char *reported; // until then
    } rows[] = {
        {ZOF_SCR_LOAD_ANIM_MOVE_LEFT, 0, ZOF_SCR_LOAD_ANIM_OUT_ZOOM, TIME,
         "red unload blue load blue loaded red unloaded blue unload "},
        {ZOF_SCR_LOAD_ANIM_FADE_IN, 500, ZOF_SCR_LOAD_ANIM_NONE, 0,
         "red unload red unload blue load blue loaded red unloaded blue unload blue unloaded "},
        {ZOF_SCR_LOAD_ANIM_MOVE_TOP, 0, BY_LVGL, 0, nullptr},
        {ZOF_SCR_LOAD_ANIM_MOVE_TOP, 500, BY_LVGL, 0, nullptr},
    };
    for (const auto &row : rows) {
        CAPTURE(&row - rows);
        load(red);
        screen_step(50);
        events.clear();
        presses = 0;
        load(blue, row.first, TIME, row.delay);
        screen_step(TIME / 2);
        row.next == BY_LVGL ? lv_disp_load_scr(green) : load(green, row.next, row.time);
        CHECK((!row.reported || events == row.reported));
        screen_step(2 * TIME);
        CHECK(screen_pixel(50, 30) == 0x00FF00);
        for (lv_obj_t *scr : {red, blue, green}) {
            CHECK(stand_of(scr) == stand());
        }
        screen_click(50, 30);
        CHECK(presses == 1);
    }
}
