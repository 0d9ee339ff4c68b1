// The gallery by touch alone: every page is reached and left by taps, every button on it is tapped, nothing is amiss.
#include "gallery_fixture.h"
#include "temp_project.h"

enum : u32 { SLIDE_MS = 280, TRANSITION_MS = 620 }; // as long as the gallery's, and a little more

static s32 shown_view() {
    return zof_view_get_cur_id(ZOF_LAYER_UI);
}

// The middle of what the person sees of it; nothing for what is hidden, alone or with its parent.
static void tap_if_seen(const para_t *record) {
    if (lv_obj_is_visible(record->obj)) {
        lv_area_t area;
        lv_obj_get_coords(record->obj, &area);
        screen_click((area.x1 + area.x2) / 2, (area.y1 + area.y2) / 2);
        screen_step(50);
    }
}

static std::vector<const para_t *> controls_of(u32 view, std::initializer_list<u32> types) {
    std::vector<const para_t *> out;
    const db_node *head = zof_view_list_get_ctrl_list(view)->head;
    for (const db_node *at = head->next; at != head; at = at->next) {
        const auto *record = (const para_t *)at->data;
        if (record->obj && std::find(types.begin(), types.end(), record->attr->ctrl_type) != types.end()) {
            out.push_back(record);
        }
    }
    return out;
}

static void walk() {
    gallery_open();
    for (u32 view = 2; view <= GALLERY_VIEWS; view++) {
        CAPTURE(view);
        gallery_tap(GALLERY_INDEX, VIEW1_TO_LABELS_ID + view - 2);
        screen_step(SLIDE_MS);
        REQUIRE(shown_view() == (s32)view);
        for (const para_t *record :
             controls_of(view, {ZOF_CTRL_BTN, ZOF_CTRL_IMGBTN, ZOF_CTRL_SW, ZOF_CTRL_CB, ZOF_CTRL_MBOX, ZOF_CTRL_TABLE,
                                ZOF_CTRL_BTNMATRIX, ZOF_CTRL_TXTBOX})) {
            if (record->id <= 3) { // back and to the neighbours
                continue;
            }
            tap_if_seen(record);
            if (shown_view() != (s32)view) { // by a transition
                screen_step(TRANSITION_MS);
                CHECK(shown_view() == GALLERY_INDEX);
                gallery_tap(GALLERY_INDEX, VIEW1_TO_LABELS_ID + view - 2);
                screen_step(SLIDE_MS);
            }
        }
        gallery_tap(view, 1);
        screen_step(SLIDE_MS);
        REQUIRE(shown_view() == GALLERY_INDEX);
    }
    gallery_tap(GALLERY_INDEX, VIEW1_TO_LABELS_ID);
    screen_step(SLIDE_MS);
    for (u32 i = 1; i < GALLERY_VIEWS; i++) { // round by "next" and back by "previous"
        CHECK(shown_view() == (s32)(i + 1));
        gallery_tap(i + 1, 3);
        screen_step(SLIDE_MS);
    }
    CHECK(shown_view() == 2);
    for (u32 i = GALLERY_VIEWS; i >= 2; i--) {
        gallery_tap(i == GALLERY_VIEWS ? 2 : i + 1, 2);
        screen_step(SLIDE_MS);
        CHECK(shown_view() == (s32)i);
    }
}

TEST_CASE("a person walks the gallery by touch alone, taps every button, and nothing is amiss") {
    const std::string said = printed(walk);
    std::istringstream lines(said);
    for (std::string line; std::getline(lines, line);) {
        // SDL's dummy sound device is one only, and sounds go before tones.
        const bool well = line.empty() || contains(line, "find work path") || contains(line, "beeper: no sound device");
        CHECK_MESSAGE(well, line);
    }
}
