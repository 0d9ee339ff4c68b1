// The gallery by touch alone: every page is reached and left by taps, every button on it is tapped, nothing goes wrong.
#include "gallery_fixture.h"
#include "temp_project.h"

enum : u32 { BACK = 1, PREVIOUS, NEXT, PAGES = GALLERY_VIEWS - 1 }; // buttons of each page, and how many there are
enum : u32 { SLIDE_MS = 280, TRANSITION_MS = 620 };                 // a little longer than the gallery's

static s32 shown_view() {
    return zof_view_get_cur_id(ZOF_LAYER_UI);
}

static void enter(u32 view) {
    gallery_tap(GALLERY_INDEX, VIEW1_TO_LABELS_ID + view - 2);
    screen_step(SLIDE_MS);
    REQUIRE(shown_view() == (s32)view);
}

// Taps everything visible that can be tapped, except the ways back and to the neighbours.
static void tap_all(u32 view) {
    const std::vector<u32> tapped = {ZOF_CTRL_BTN,  ZOF_CTRL_IMGBTN, ZOF_CTRL_SW,        ZOF_CTRL_CB,
                                     ZOF_CTRL_MBOX, ZOF_CTRL_TABLE,  ZOF_CTRL_BTNMATRIX, ZOF_CTRL_TXTBOX};
    const db_node *head = zof_view_list_get_ctrl_list(view)->head;
    for (const db_node *at = head->next; at != head; at = at->next) {
        const auto *record = (const para_t *)at->data;
        if (std::count(tapped.begin(), tapped.end(), record->attr->ctrl_type) == 0 || record->id <= NEXT ||
            !record->obj || !lv_obj_is_visible(record->obj)) {
            continue;
        }
        gallery_tap(view, record->id);
        screen_step(50);
        if (shown_view() != (s32)view) { // by a transition
            screen_step(TRANSITION_MS);
            CHECK(shown_view() == GALLERY_INDEX);
            enter(view);
        }
    }
}

static void walk() {
    gallery_open();
    for (u32 view = 2; view <= GALLERY_VIEWS; view++) {
        CAPTURE(view);
        enter(view);
        tap_all(view);
        gallery_tap(view, BACK);
        screen_step(SLIDE_MS);
        REQUIRE(shown_view() == GALLERY_INDEX);
    }
    enter(2);
    u32 shown = 2;
    for (u32 button : {NEXT, PREVIOUS}) { // round and back
        for (u32 i = 0; i < PAGES; i++) {
            gallery_tap(shown, button);
            screen_step(SLIDE_MS);
            shown = 2 + (shown - 2 + (button == NEXT ? 1 : PAGES - 1)) % PAGES;
            CHECK(shown_view() == (s32)shown);
        }
    }
}

TEST_CASE("a user walks the gallery by touch alone, taps every button, and nothing goes wrong") {
    const std::string said = printed(walk);
    std::istringstream lines(said);
    for (std::string line; std::getline(lines, line);) {
        // SDL has only one dummy sound device, and sounds have priority over tones.
        const bool well = line.empty() || contains(line, "find work path") || contains(line, "beeper: no sound device");
        CHECK_MESSAGE(well, line);
    }
}
