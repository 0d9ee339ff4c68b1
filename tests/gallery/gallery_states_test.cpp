// What touches change on the gallery's pages: pictures of controls that are pressed, chosen, typed into, opened and
// turned, in both themes.
#include "gallery_fixture.h"

enum { HELD = true }; // the picture is taken before the finger goes up

// One touch on a page: down beside the middle of a control, or on the screen of a page without controls, a move, and
// up; then time and a picture.
struct touch {
    u32 view, control;
    s32 x, y;
    u32 ms;
    const char *picture;
    bool held;
    s32 dx, dy, moves;
};

static const touch touches[] = {
    {3, VIEW3_COUNT_ID, 0, 0, 200, "button_pressed", HELD},
    {3, VIEW3_TOGGLE_ID},
    {3, VIEW3_LAMP_ID},
    {3, VIEW3_DISABLED_ID}, // which does nothing
    {3, VIEW3_IMAGE_BUTTON_25_ID, 0, 0, 200, "buttons_checked_image_pressed", HELD},
    {5, VIEW5_SLIDER_ID, -26, 0, 600, "slider_held", HELD, 86, 0, 1},
    {5, VIEW5_ARC_ID, 35, -45, 0, nullptr, false, -75, 5, 6},
    {5, VIEW5_UPRIGHT_ID, 0, 10, 600, "values_dragged", false, 0, -50, 4},
    {6, VIEW6_SW_ID},
    {6, VIEW6_SW_13_ID},
    {6, VIEW6_SW_14_ID},
    {6, VIEW6_SW_15_ID},
    {6, VIEW6_CB_ID},
    {6, VIEW6_CB_ON_ID},
    {6, VIEW6_CB_OFF_ID},
    {6, VIEW6_DIGIT_ID},
    {6, VIEW6_DIGIT_ID},
    {6, VIEW6_UP_ID, 0, 0, 700, "switches_other_way"},
    {7, VIEW7_LIST_ID, 0, -120, 400, "list_chosen"},
    {7, VIEW7_DROP_ID, 0, 0, 400, "droplist_down"},
    {7, VIEW7_DROP_ID, 0, 110, 400},
    {7, VIEW7_DROPLIST_17_ID, 0, 0, 400, "droplist_chosen_other_up"},
    {7, VIEW7_DROPLIST_17_ID},
    {7, VIEW7_ROLLER_ID, 0, 20, 2000, nullptr, false, 0, -40, 4},
    {7, VIEW7_ROLLIST_25_ID, 0, -30, 2000, "rollers_swiped", false, 0, 60, 4},
    {8, VIEW8_TABLE_ID, 0, -80, 300},
    {8, VIEW8_ONE_ID, 150, 0},
    {8, VIEW8_MATRIX_ID, 0, 0, 200, "cell_marked_other_checked_key_pressed", HELD},
    {10, VIEW10_GRID_ID, 130, 0, 2000, nullptr, false, -260, 0, 4},
    {10, VIEW10_ENDLESS_ID, 130, 0, 2000, "tiles_swiped", false, -260, 0, 4},
    {10, VIEW10_GRID_ID, 0, 130, 2000, nullptr, false, 0, -260, 4},
    {10, VIEW10_ENDLESS_ID, 130, 0, 2000, "tiles_swiped_again", false, -260, 0, 4},
    {11, VIEW11_LINE_ID},
    {11, 0, 68, 342}, // shift, H, shift, I
    {11, 0, 452, 342},
    {11, 0, 68, 342},
    {11, 0, 530, 290, 0, "typed"},
    {11, 0, 500, 395, 0, "keyboard_popover", HELD},
    {11, 0, 68, 342, 0, "keyboard_capital"},
    {11, 0, 51, 290}, // to the signs and back
    {11, 0, 530, 290, 0, "keyboard_signs", HELD},
    {11, 0, 68, 342},
    {11, VIEW11_SECRET_ID, 0, 0, 1000, "secret_focused"},
    {11, VIEW11_SPELL_ID},
    {11, VIEW11_LINES_ID},
    {11, 0, 452, 342}, // H, A, I
    {11, 0, 154, 342},
    {11, 0, 530, 290, 0, "pinyin_candidates"},
    {12, VIEW12_OPEN_ASK_ID, 0, 0, 300, "mbox_buttons"},
    {12, VIEW12_ASK_ID, -75, 28, 0, "mbox_button_pressed", HELD},
    {12, VIEW12_OPEN_TELL_ID, 0, 0, 300, "mbox_plain"},
    {12, VIEW12_TELL_ID},
    {12, VIEW12_OPEN_SOON_ID, 0, 0, 1600, "mboxes_closed"}, // one by a tap, the other by itself
    {13, VIEW13_ARC_ID, 45, 0, 2000, nullptr, false, -90, 0, 4},
    {13, VIEW13_UPRIGHT_ID, 0, -30, 2000, "wheels_swiped", false, 0, 60, 4},
    {13, VIEW13_ARC_ID, 0, 0, 0, "wheel_held_between", HELD, -50, 0, 2},
    {14, VIEW14_GIF_PLAY_ID},
    {14, VIEW14_AGAIN_ID, 0, 0, 500, "moving"},
    {16, VIEW16_PAD_ID, -200, 60, 0, nullptr, false, 380, -150, 8},
    {16, VIEW16_WIDTH16_ID},
    {16, VIEW16_PAD_ID, -150, -60, 0, nullptr, false, 250, 140, 8},
    {16, 0, 318, 102, 300, "sketch_width_open"}, // on the toolbar
    {16, VIEW16_CLEAN_ID},
    {16, 1, 0, 0, 200, "back_pressed", HELD},
};

static std::string theme;

static void picture(const std::string &state) {
    CHECK(gallery_is_golden("state_" + state + theme));
}

static void run(const touch &t) {
    const lv_point_t from = t.control ? gallery_middle(t.view, t.control) : lv_point_t{};
    const s32 x = from.x + t.x, y = from.y + t.y;
    screen_press(x, y);
    for (s32 i = 1; i <= t.moves; i++) {
        screen_move(x + t.dx * i / t.moves, y + t.dy * i / t.moves);
    }
    if (!t.held) {
        screen_release(x + t.dx, y + t.dy);
    }
    screen_step(t.ms);
    if (t.picture) {
        picture(t.picture);
    }
    if (t.held) {
        screen_release(x + t.dx, y + t.dy);
    }
}

static void every_state(bool light) {
    gallery_open();
    theme = light ? "_youth" : "_night";
    if (light) {
        gallery_tap(GALLERY_INDEX, VIEW1_LANG_DE_ID);
        gallery_tap(GALLERY_INDEX, VIEW1_THEME_ID);
    }
    u32 shown = GALLERY_INDEX;
    for (const touch &t : touches) {
        if (shown != t.view) {
            gallery_show(shown = t.view);
        }
        run(t);
    }
    screen_step(120);
    picture("on_the_way_back"); // the first page comes from the left
}

TEST_CASE("touches change the gallery's controls as they should in the dark theme") {
    every_state(false);
}

TEST_CASE("touches change the gallery's controls as they should in the light theme") {
    every_state(true);
}

TEST_CASE("the gallery's endless tiles come round in order, ten swipes each way") {
    gallery_open();
    gallery_show(10);
    const u32 colors[] = {0x2F8FE8, 0x2FA36B, 0xE8862F}; // of A, B and C; B is shown first
    const lv_point_t p = gallery_middle(10, VIEW10_ENDLESS_ID);
    u32 index = 1;
    for (s32 i = 0; i <= 20; i++) {
        CHECK(screen_pixel(p.x - 100, p.y - 100) == colors[index]);
        const s32 dx = i < 10 ? -260 : 260;
        run({10, VIEW10_ENDLESS_ID, -dx / 2, 0, 2000, nullptr, false, dx, 0, 4});
        index = (index + (dx < 0 ? 1 : 2)) % 3;
    }
}
