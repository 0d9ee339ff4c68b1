// What a host sees of the user: events with their numbers and values, and the snapshot that replaces lost ones.
#include "every_control.h"
#include "hmi/zof_hmi_event.h"
#include "hmi_panel.h"

static lv_obj_t *obj(u32 id) {
    const para_t *c = zof_ctrl_get_form_id(1, id);
    REQUIRE((c && c->obj));
    return c->obj;
}

// An event frame's value, or an answer to `control.event`.
static bytes value(u32 view, u32 id, u8 seq, u8 event, s32 number, const std::string &text) {
    const auto low = [](u32 v, u32 shift) { return (u8)(v >> shift); };
    return join({{0xB2, 0xF0, 0x0E, low(view, 8), (u8)view, low(id, 8), (u8)id, seq, event},
                 {low((u32)number, 24), low((u32)number, 16), low((u32)number, 8), (u8)number},
                 {text.c_str(), text.c_str() + text.size() + 1}});
}

static void sends(panel &p, const bytes &payload) {
    const bytes want = get(payload);
    const bytes got = read_while_looping(p, want.size());
    CAPTURE(hex(got));
    CAPTURE(hex(want));
    CHECK(got == want);
}

static void up(panel &p, const char *link) {
    p.project.write("image/ever.gif", file_text(ZOF_MEDIA_DIR "/ever.gif"));
    files_of_each(p.project);
    panel_up(p, link, "", one_of_each());
}

TEST_CASE("host events: what a user does is sent with its value, in order, what the host does itself is not") {
    panel p;
    panel_up(p, R"(, "event_en": 1)", "", // opens the line when a view is shown already
             {ctrl(ZOF_CTRL_BTN, BTN, R"("txt": "b")", box(0, 0, 40, 30)),
              ctrl(ZOF_CTRL_SLIDER, SLIDER, R"("minValue": 0, "maxValue": 100)", box(0, 40, 90, 10)),
              ctrl(ZOF_CTRL_DROPLIST, DROP, R"("options": "one\ntwo")", box(0, 60, 90, 30)),
              ctrl(ZOF_CTRL_LIST, LIST, R"("btns_t": [{"txt": "first"}, {"txt": "second"}])", box(0, 90, 90, 60)),
              ctrl(ZOF_CTRL_TXTBOX, TXTBOX, "", box(100, 0, 90, 30)),
              ctrl(ZOF_CTRL_KEYBOARD, KEYBOARD, R"("keyboard_spell": true)", box(0, 150, 320, 90))});
    lv_event_send(obj(BTN), LV_EVENT_CLICKED, nullptr);
    sends(p, value(1, BTN, 1, ZOF_HMI_EVENT_CLICKED, 0, ""));
    zof_slider_set_value(obj(SLIDER), 44);
    lv_event_send(obj(SLIDER), LV_EVENT_VALUE_CHANGED, nullptr);
    sends(p, value(1, SLIDER, 2, ZOF_HMI_EVENT_CHANGED, 44, ""));
    zof_droplist_set_selected(obj(DROP), 1);
    lv_event_send(obj(DROP), LV_EVENT_VALUE_CHANGED, nullptr);
    sends(p, value(1, DROP, 3, ZOF_HMI_EVENT_CHANGED, 1, "two"));
    lv_event_send(obj(KEYBOARD), LV_EVENT_READY, nullptr);
    sends(p, value(1, KEYBOARD, 4, ZOF_HMI_EVENT_READY, -1, ""));
    lv_obj_add_state(lv_obj_get_child(obj(LIST), 1), LV_STATE_FOCUSED);
    lv_event_send(lv_obj_get_child(obj(LIST), 1), LV_EVENT_CLICKED, nullptr);
    sends(p, value(1, LIST, 5, ZOF_HMI_EVENT_CLICKED, 1, "second"));
    zof_view_set_dis_view(2);
    sends(p, value(2, 0, 6, ZOF_HMI_EVENT_VIEW, ZOF_LAYER_UI, zof_view_name_get(2)));
    zof_lang_set("de");
    sends(p, value(0, 0, 7, ZOF_HMI_EVENT_LANGUAGE, 0, "de"));
    // A text box that a host fills reports the change to programs; a view that it shows is reported after all.
    pty_write(p.pty, set(join({{0xB2, 0x0C, 0x03, 0, 1, 0, TXTBOX}, {'x', 0}})));
    silent(p);
    pty_write(p.pty, set({0xB1, 0x00, 0, 1}));
    sends(p, value(1, 0, 8, ZOF_HMI_EVENT_VIEW, ZOF_LAYER_UI, zof_view_name_get(1)));
    answers(p, get({0xB1, 0x0A}), get({0xB1, 0x0A, 8}));
    answers(p, get({0xB1, 0x09}), get({0xB1, 0x09, 0, 1, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}));
}

TEST_CASE("host events: without event_en nothing is sent, and a snapshot lists all values of a view") {
    panel p;
    up(p, "");
    zof_slider_set_value(obj(SLIDER), 44);
    lv_event_send(obj(SLIDER), LV_EVENT_VALUE_CHANGED, nullptr);
    silent(p);
    const u32 order[] = {LABEL, BTN, IMG, IMGBTN, ARC, BAR, SLIDER};
    for (u8 i = 0; i < sizeof(order) / sizeof(order[0]); i++) {
        pty_write(p.pty, get({0xB1, 0x08, 0, 1, 0, i}));
        const bytes head = read_while_looping(p, 4);
        REQUIRE(head.size() == 4);
        const bytes page = pty_read(p.pty, head[2] - 1u); // the operation came with the head
        CAPTURE(hex(page));
        REQUIRE(page.size() > 13);
        CHECK((page[7] == 1 && page[9] == order[i]));
        CHECK((order[i] != SLIDER || page[13] == 44));
    }
    answers(p, get({0xB1, 0x08, 0, 1, 0, 99}), get({0xB1, 0x08, 0, 1, 0, 99, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
    answers(p, get({0xB1, 0x08, 0, 9, 0, 0}), get({0xB1, 0x08, 0, 9, 0, 0, 0, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0xFF, 0}));
}

TEST_CASE("host events: a view that is not loaded is told apart from a missing control") {
    panel p;
    up(p, "");
    const auto present = [&](u8 view, u8 id, u8 says) {
        answers(p, get({0xB2, 0xF0, 0x0F, 0, view, 0, id}), get({0xB2, 0xF0, 0x0F, 0, view, 0, id, says}));
    };
    present(1, SLIDER, 1);
    present(1, 99, 0xFF);
    present(2, SLIDER, 0);
    present(9, SLIDER, 0xFF);
}

TEST_CASE("host events: with load_en a command loads the view of its control") {
    panel p;
    up(p, R"(, "load_en": 1)");
    answers(p, get({0xB2, 0x07, 0x01, 0, 2, 0, SLIDER}), get({0xB2, 0x07, 0x01, 0, 2, 0, SLIDER, 0, 0}));
    CHECK(zof_ctrl_get_form_id(2, SLIDER));
}
