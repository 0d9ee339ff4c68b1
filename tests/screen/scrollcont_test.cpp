// Scroll containers: the order of the wheel after each turn, and how items are styled by their distance.
#include "view_project.h"

enum : u32 { WHEEL = 1, ITEM = 10, CAPTION = 30 };

struct wheel_sort {
    u32 items, shown;
    bool vertical;
    std::string own; // more keys
};

static const u32 colors[] = {0xE04040, 0x40B040, 0x4060E0, 0xD0A020, 0xA040C0, 0x20A0A0};

// A wheel of 240 x 120, or rotated by 90 degrees, with a number on each item.
static std::vector<std::string> wheel_of(const wheel_sort &sort, u32 missing = 0) {
    const std::string keys = form(R"("child_cnt": %u, "display_count": %u, "dir": %d%s)", sort.items, sort.shown,
                                  sort.vertical, sort.own.c_str());
    std::vector<std::string> out = {ctrl(ZOF_CTRL_SCROLLCONT, WHEEL, keys,
                                         (sort.vertical ? box(100, 0, 120, 240) : box(40, 60, 240, 120)) +
                                             R"(, "scrollbar_t": {"dir_e": 15, "elastic": true, "momentum": true})",
                                         filled(0x202830))};
    for (u32 i = 0; i < sort.items - missing; i++) {
        out.push_back(ctrl(ZOF_CTRL_SCROLLCONT_OBJ, ITEM + i, R"("create_num": )" + std::to_string(i),
                           R"("parent_id": 1, "scrollbar_t": {"chain_e": 3})", filled(colors[i % 6])));
        out.push_back(ctrl(ZOF_CTRL_LABEL, CAPTION + i, form(R"("auto_hight": 1, "align_e": 34, "txt": "%u")", i),
                           form(R"("t_mode": 0, "parent_id": %u, )", ITEM + i) + box(5, 10, 40, 30),
                           R"({"txt_t": {"color": 16777215, "opa": 255}})"));
    }
    return out;
}

static u32 shown = 1; // the view with the tested wheel

static lv_obj_t *wheel() {
    return at(WHEEL, shown)->obj;
}

static lv_obj_t *item(u32 number) {
    return at(ITEM + number, shown)->obj;
}

// The items in the order of the wheel, as their numbers.
static std::string order() {
    std::string out;
    for (u32 i = 0; i < lv_obj_get_child_cnt(wheel()); i++) {
        const para_t *record = (para_t *)lv_obj_get_user_data(lv_obj_get_child(wheel(), (s32)i));
        out += std::to_string(record->id - ITEM);
    }
    return out;
}

static bool in_the_middle(u32 number) {
    const lv_area_t *w = &wheel()->coords, *i = &item(number)->coords;
    return (w->x1 + w->x2) / 2 == (i->x1 + i->x2) / 2 && (w->y1 + w->y2) / 2 == (i->y1 + i->y2) / 2;
}

// Drags the wheel by one item, forwards or back.
static void turn(const wheel_sort &sort, bool on) {
    const s32 by = LV_MIN(240 / (s32)sort.shown, 210) * (on ? -1 : 1); // inside the panel
    const s32 from = 120 - by / 2;
    sort.vertical ? screen_drag(160, from, 160, from + by, 8) : screen_drag(40 + from, 120, 40 + from + by, 120, 8);
    screen_step(2000);
}

TEST_CASE("a wheel turns forever, with an odd or even count, horizontally and vertically") {
    const struct {
        wheel_sort sort;
        const char *first; // order at rest on item 0
    } wheels[] = {{{5, 3, false}, "34012"}, {{6, 3, true}, "450123"}, {{4, 1, true}, "3012"}, {{1, 1, false}, "0"}};
    view_project_t project;
    for (const auto &w : wheels) {
        project.view(shown++, wheel_of(w.sort));
    }
    project.open(320, 240);
    shown = 0;
    for (const auto &w : wheels) {
        zof_view_set_dis_view(++shown);
        CAPTURE(shown);
        screen_step(40);
        CHECK(order() == w.first);
        const u32 count = w.sort.items;
        std::string wanted = w.first;
        for (u32 i = 1; i <= 4 * count; i++) {
            const bool on = i <= 2 * count;
            const u32 number = (on ? i : 4 * count - i) % count;
            turn(w.sort, on);
            std::rotate(wanted.begin(), on ? wanted.begin() + 1 : wanted.end() - 1, wanted.end());
            CHECK(order() == wanted);
            CHECK(in_the_middle(number));
            CHECK(zof_scrollcont_get_display_index(at(WHEEL, shown)) == (s32)number);
        }
    }
}

TEST_CASE("items sink, shrink and fade by their distance") {
    const struct {
        const char *name, *own;
        bool vertical;
    } wheels[] = {{"fade", R"(, "opa_mode": 1, "zoom": 56)", true},
                  {"arc", R"(, "arc_r": 100, "opa_mode": 1, "zoom": 56)", false},
                  {"wide_arc", R"(, "arc_r": 200, "arc_dir": 1, "zoom": 56)", true},
                  {"pixels", R"(, "zoom": 156, "zoom_mode": 1, "pad": 0)", false}};
    view_project_t project;
    for (const auto &w : wheels) {
        project.view(shown++, wheel_of({5, 3, w.vertical, w.own}));
    }
    project.open(320, 240);
    shown = 0;
    for (const auto &w : wheels) {
        CAPTURE(w.name);
        zof_view_set_dis_view(++shown);
        screen_step(40);
        CHECK(screen_is_golden("scrollcont_" + std::string(w.name)));
        zof_ctrl_scroll_set(at(WHEEL, shown), w.vertical ? 0 : 110, w.vertical ? 110 : 0, 0);
        CHECK(screen_is_golden("scrollcont_" + std::string(w.name) + "_pulled"));
        CHECK(order() == "34012"); // between two items nothing is reordered
    }
}

TEST_CASE("invalid or incomplete wheels do no harm") {
    view_project_t project;
    std::vector<std::string> controls = wheel_of({5, 3, false}, 1);
    controls.push_back(
        ctrl(ZOF_CTRL_SCROLLCONT, 52, R"("child_cnt": 1, "display_count": 1, "arc_r": 65535)", box(0, 0, 0, 0)));
    controls.push_back(ctrl(ZOF_CTRL_SCROLLCONT_OBJ, 53, "", R"("parent_id": 52)"));
    CHECK(project.show(controls) == "");
    screen_step(40);
    CHECK(order() == "0123");
    CHECK(zof_scrollcont_get_display_index(at(52)) == 0);
    CHECK(zof_scrollcont_get_display_index(at(CAPTION)) == -1);
    CHECK(scroll_inf(at(WHEEL)) == 0); // an explicit call reorders it all the same
}

TEST_CASE("a wheel that returns with its view is where it was left") {
    view_project_t project;
    const wheel_sort sort = {5, 3, false, R"(, "opa_mode": 1)"};
    project.view(2, {});
    project.show(wheel_of(sort));
    screen_step(40);
    turn(sort, true);
    const screen_picture left = screen_shot();
    for (u32 view : {2, 1}) {
        zof_view_set_dis_view(view);
        screen_step(40);
    }
    CHECK(order() == "40123");
    CHECK(screen_same(screen_shot(), left));
    const auto renew = [](lv_event_t *) { // its start comes to rest too
        lv_obj_del(item(4));
        zof_ctrl_show(1, ITEM + 4);
    };
    lv_obj_add_event_cb(wheel(), renew, LV_EVENT_SCROLL_END, nullptr);
    turn(sort, true);
    zof_ctrl_delete(at(ITEM + 4)); // makes room for one with the same number
    zof_ctrl_delete(at(WHEEL));    // and its pending calls are cancelled
    screen_step(40);
}
