// What touches change on the gallery's pages: pictures of pressed, chosen, typed, opened and turned controls, in both
// themes.
#include "gallery_fixture.h"

static std::string theme;

static void picture(const std::string &state) {
    CHECK(gallery_is_golden("state_" + state + theme));
}

// A picture while a control is held; the finger goes up afterwards.
static void picture_pressed(u32 view, u32 control, const std::string &state) {
    const lv_point_t p = gallery_middle(view, control);
    screen_press(p.x, p.y);
    screen_step(200);
    picture(state);
    screen_release(p.x, p.y);
}

static void swipe(u32 view, u32 control, s32 dx, s32 dy) {
    const lv_point_t p = gallery_middle(view, control);
    screen_drag(p.x - dx / 2, p.y - dy / 2, p.x + dx / 2, p.y + dy / 2, 4);
    screen_step(2000);
}

static void buttons() {
    gallery_show(3);
    picture_pressed(3, VIEW3_COUNT_ID, "button_pressed");
    gallery_tap(3, VIEW3_TOGGLE_ID);
    gallery_tap(3, VIEW3_LAMP_ID);
    gallery_tap(3, VIEW3_DISABLED_ID); // which does nothing
    picture_pressed(3, VIEW3_IMAGE_BUTTON_25_ID, "buttons_checked_image_pressed");
}

static void values() {
    gallery_show(5);
    const lv_point_t p = gallery_middle(5, VIEW5_SLIDER_ID);
    screen_press(p.x - 26, p.y);
    screen_move(p.x + 60, p.y);
    screen_step(600);
    picture("slider_held");
    screen_release(p.x + 60, p.y);
    const lv_point_t arc = gallery_middle(5, VIEW5_ARC_ID);
    screen_drag(arc.x + 35, arc.y - 45, arc.x - 40, arc.y - 40, 6);
    const lv_point_t upright = gallery_middle(5, VIEW5_UPRIGHT_ID);
    screen_drag(upright.x, upright.y + 10, upright.x, upright.y - 40, 4);
    screen_step(600);
    picture("values_dragged");
}

static void switches() {
    gallery_show(6);
    for (u32 control : {VIEW6_SW_ID, VIEW6_SW_13_ID, VIEW6_SW_14_ID, VIEW6_SW_15_ID, VIEW6_CB_ID, VIEW6_CB_ON_ID,
                        VIEW6_CB_OFF_ID, VIEW6_DIGIT_ID, VIEW6_DIGIT_ID, VIEW6_UP_ID}) {
        gallery_tap(6, control);
    }
    screen_step(700);
    picture("switches_other_way");
}

static void lists() {
    gallery_show(7);
    const lv_point_t list = gallery_middle(7, VIEW7_LIST_ID);
    screen_click(list.x, list.y - 120);
    screen_step(400);
    picture("list_chosen");
    gallery_tap(7, VIEW7_DROP_ID);
    screen_step(400);
    picture("droplist_down");
    const lv_point_t down = gallery_middle(7, VIEW7_DROP_ID);
    screen_click(down.x, down.y + 110);
    screen_step(400);
    gallery_tap(7, VIEW7_DROPLIST_17_ID);
    screen_step(400);
    picture("droplist_chosen_other_up");
    gallery_tap(7, VIEW7_DROPLIST_17_ID);
    swipe(7, VIEW7_ROLLER_ID, 0, -40);
    swipe(7, VIEW7_ROLLIST_25_ID, 0, 60);
    picture("rollers_swiped");
}

static void tables() {
    gallery_show(8);
    const lv_point_t table = gallery_middle(8, VIEW8_TABLE_ID);
    screen_click(table.x, table.y - 80);
    screen_step(300);
    const lv_point_t one = gallery_middle(8, VIEW8_ONE_ID);
    screen_click(one.x + 150, one.y);
    picture_pressed(8, VIEW8_MATRIX_ID, "cell_marked_other_checked_key_pressed");
}

static void tiles() {
    gallery_show(10);
    swipe(10, VIEW10_GRID_ID, -260, 0);
    swipe(10, VIEW10_ENDLESS_ID, -260, 0);
    picture("tiles_swiped");
    swipe(10, VIEW10_GRID_ID, 0, -260);
    swipe(10, VIEW10_ENDLESS_ID, -260, 0);
    picture("tiles_swiped_again");
}

static void type(std::initializer_list<lv_point_t> keys) {
    for (const lv_point_t &key : keys) {
        screen_click(key.x, key.y);
    }
}

static constexpr lv_point_t MODE = {51, 290}, SHIFT = {68, 342}, KEY_A = {154, 342}, KEY_H = {452, 342},
                            KEY_I = {530, 290}, KEY_N = {500, 395};

static void typing() {
    gallery_show(11);
    gallery_tap(11, VIEW11_LINE_ID);
    type({SHIFT, KEY_H, SHIFT, KEY_I});
    picture("typed");
    screen_press(KEY_N.x, KEY_N.y);
    picture("keyboard_popover");
    screen_release(KEY_N.x, KEY_N.y);
    type({SHIFT});
    picture("keyboard_capital");
    type({MODE});
    screen_press(KEY_I.x, KEY_I.y);
    picture("keyboard_signs");
    screen_release(KEY_I.x, KEY_I.y);
    type({SHIFT}); // which says "abc" there
    gallery_tap(11, VIEW11_SECRET_ID);
    screen_step(1000);
    picture("secret_focused");
    gallery_tap(11, VIEW11_SPELL_ID);
    gallery_tap(11, VIEW11_LINES_ID);
    type({KEY_H, KEY_A, KEY_I});
    picture("pinyin_candidates");
}

static void messages() {
    gallery_show(12);
    gallery_tap(12, VIEW12_OPEN_ASK_ID);
    screen_step(300);
    picture("mbox_buttons");
    lv_area_t yes;
    lv_obj_get_coords(lv_msgbox_get_btns(gallery_at(12, VIEW12_ASK_ID)->obj), &yes);
    screen_press(yes.x1 + 10, yes.y1 + 10);
    picture("mbox_button_pressed");
    screen_release(yes.x1 + 10, yes.y1 + 10);
    CHECK(zof_ctrl_get_hidden(gallery_at(12, VIEW12_ASK_ID)) == 1);
    gallery_tap(12, VIEW12_OPEN_TELL_ID);
    screen_step(300);
    picture("mbox_plain");
    gallery_tap(12, VIEW12_TELL_ID);
    gallery_tap(12, VIEW12_OPEN_SOON_ID);
    CHECK(zof_ctrl_get_hidden(gallery_at(12, VIEW12_TELL_ID)) == 0);
    screen_step(1600);
    CHECK(zof_ctrl_get_hidden(gallery_at(12, VIEW12_TELL_ID)) == 1);
}

static void wheels() {
    gallery_show(13);
    swipe(13, VIEW13_ARC_ID, -90, 0);
    swipe(13, VIEW13_UPRIGHT_ID, 0, 60);
    picture("wheels_swiped");
    const lv_point_t p = gallery_middle(13, VIEW13_ARC_ID);
    screen_press(p.x, p.y);
    screen_move(p.x - 20, p.y);
    screen_move(p.x - 50, p.y);
    picture("wheel_held_between");
    screen_release(p.x - 50, p.y);
}

static void moving() {
    gallery_show(14);
    gallery_tap(14, VIEW14_GIF_PLAY_ID);
    gallery_tap(14, VIEW14_AGAIN_ID);
    screen_step(500);
    picture("moving");
}

static void drawing() {
    gallery_show(16);
    const lv_point_t p = gallery_middle(16, VIEW16_PAD_ID);
    screen_drag(p.x - 200, p.y + 60, p.x + 180, p.y - 90, 8);
    gallery_tap(16, VIEW16_WIDTH16_ID);
    screen_drag(p.x - 150, p.y - 60, p.x + 100, p.y + 80, 8);
    screen_click(318, 102); // the width, on the toolbar
    screen_step(300);
    picture("sketch_width_open");
    gallery_tap(16, VIEW16_CLEAN_ID);
}

static void every_state(bool light) {
    gallery_open();
    theme = light ? "_youth" : "_night";
    if (light) {
        gallery_tap(GALLERY_INDEX, VIEW1_LANG_DE_ID);
        gallery_tap(GALLERY_INDEX, VIEW1_THEME_ID);
    }
    for (void (*page)() :
         {buttons, values, switches, lists, tables, tiles, typing, messages, wheels, moving, drawing}) {
        page();
    }
    picture_pressed(16, 1, "back_pressed");
    screen_step(120);
    picture("on_the_way_back"); // the first page comes from the left
}

TEST_CASE("touches change the gallery's controls as they should by night") {
    every_state(false);
}

TEST_CASE("touches change the gallery's controls as they should in the light theme") {
    every_state(true);
}

TEST_CASE("the gallery's endless tiles come round in order, ten swipes each way") {
    gallery_open();
    gallery_show(10);
    const u32 colors[] = {0x2F8FE8, 0x2FA36B, 0xE8862F}; // of A, B and C; B is the first to be seen
    const lv_point_t p = gallery_middle(10, VIEW10_ENDLESS_ID);
    u32 index = 1;
    for (s32 i = 0; i < 20; i++) {
        const s32 dx = i < 10 ? -260 : 260;
        CHECK(screen_pixel(p.x - 100, p.y - 100) == colors[index]);
        swipe(10, VIEW10_ENDLESS_ID, dx, 0);
        index = (index + (dx < 0 ? 1 : 2)) % 3;
    }
    CHECK(screen_pixel(p.x - 100, p.y - 100) == colors[1]);
}
