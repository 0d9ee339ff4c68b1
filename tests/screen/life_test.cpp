// The life of every control: it comes and goes with its view and leaks nothing. Controls are deleted and views
// are left in the middle of calls to which LVGL responds with events: in every event of every such call, of touches,
// and at random.
#include <chrono>
#include <random>
#include <set>

#include "every_control.h"
#include "port/zof_port.h"

static para_t *find(u32 id) {
    return zof_ctrl_get_form_id(1, id);
}

static void (*on_any_event)(para_t *, u32 event);

struct call_t {
    const char *name;
    void (*run)();
};

static const call_t calls_made[] = {
    {"txtbox_set_text", [] { zof_txtbox_set_text(find(TXTBOX), "another text, longer than the box is wide"); }},
    {"txtbox_add_txt", [] { zof_txtbox_add_txt(find(TXTBOX), " and more of it"); }},
    {"txtbox_add_char", [] { zof_txtbox_add_char(find(TXTBOX), 'x'); }},
    {"txtbox_del_char", [] { zof_txtbox_del_char(find(TXTBOX)); }},
    {"txtbox_del_char_forward",
     [] { zof_txtbox_cursor_move(find(TXTBOX), 1), zof_txtbox_del_char_forward(find(TXTBOX)); }},
    {"txtbox_cursor_move",
     [] {
         for (u32 i = 0; i < 22; i++) {
             zof_txtbox_cursor_move(find(TXTBOX), 1);
         }
     }},
    {"tileview_set_tile_id", [] { zof_tileview_set_tile_id(find(TILES), 0, 1, 0); }},
    {"tileview_set_tile_id, animated", [] { zof_tileview_set_tile_id(find(TILES), 0, 1, 1); }},
    {"tileview_set_tile_id, endless", [] { zof_tileview_set_tile_id(find(RING), 0, 2, 0); }},
    {"scroll_set", [] { zof_ctrl_scroll_set(find(CONTAINER), 40, 40, 0); }},
    {"scroll_set, animated", [] { zof_ctrl_scroll_set(find(CONTAINER), 40, 40, 1); }},
    {"scroll_view", [] { zof_ctrl_scroll_view(find(TILE_B), 0); }},
    {"set_size of a scrolled container",
     [] {
         auto *const then = on_any_event; // only the size counts
         on_any_event = nullptr;
         zof_ctrl_scroll_set(find(CONTAINER), 250, 250, 0);
         on_any_event = then;
         zof_ctrl_set_size(find(CONTAINER), 200, 200);
         zof_ctrl_update_location(find(CONTAINER));
     }},
    {"slider_set_value", [] { zof_slider_set_value(find(SLIDER), 50); }},
    {"arc_set_value", [] { zof_arc_set_value(find(ARC), 50); }},
    {"bar_set_value", [] { zof_bar_set_value(find(BAR), 50); }},
    {"rollist_set_selected", [] { zof_rollist_set_selected(find(ROLLER), 2, 1); }},
    {"rollist_add_option", [] { zof_rollist_add_option(find(ROLLER), "more", 1); }},
    {"spinbox_increment", [] { zof_spinbox_increment(find(SPIN)); }},
    {"droplist_open", [] { zof_droplist_open(find(DROP)); }},
    {"list_add_btn", [] { zof_list_add_btn(find(LIST), "", "another"); }},
    {"list_remove_all", [] { zof_list_remove_all(find(LIST)); }},
    {"scroll_inf", [] { scroll_inf(find(WHEEL)); }},
    {"event_send", [] { zof_event_send(find(SWITCH), LV_EVENT_CLICKED, nullptr); }},
    {"add_state", [] { zof_ctrl_add_state(find(SWITCH), LV_STATE_CHECKED); }},
    {"keyboard",
     [] {
         zof_keyboard_set_txtbox(find(KEYBOARD), find(TXTBOX));
         zof_event_send(find(KEYBOARD), LV_EVENT_VALUE_CHANGED, nullptr);
     }},
    {"move_forground", [] { zof_ctrl_move_forground(find(CONTAINER)); }},
    {"ctrl_delete", [] { zof_ctrl_delete(find(INNER)); }},
    {"lang_set", [] { zof_lang_set("de"); }},
    {"view_delete", [] { zof_view_delete(1); }},
    {"set_dis_view",
     [] {
         zof_view_set_dis_view(2);
         zof_view_set_dis_view(1);
     }},
};

static void project_up(view_project_t &project, const std::string &view_keys = "") {
    ctrl_funs.clear();
    for (u32 id = LABEL; id < END; id++) {
        ctrl_funs.push_back({id, [](zof_ctrl_t *record, zof_event_e event) {
                                 if (on_any_event) {
                                     on_any_event((para_t *)record, event);
                                 }
                             }});
    }
    files_of_each(project);
    project.view(1, one_of_each(R"("pub": true)"), view_keys);
    project.view(2, {ctrl(ZOF_CTRL_LABEL, LABEL, R"("txt": "other")")});
    project.view(3, one_of_each(R"("pub": true)"));
    project.open(640, 240);
    win_video_init();
}

// Shows view 1 complete, whatever was deleted from it.
static void view_renew() {
    on_any_event = nullptr;
    zof_view_set_dis_view(2);
    screen_step(5);
    zof_view_set_dis_view(1);
    zof_txtbox_set_text(find(TXTBOX), "some text that is long");
    screen_step(5);
}

// A host's write comes from a timer, within LVGL's own loop, where nothing is freed before that turn ends.
static void run(const call_t &call, bool by_timer) {
    if (!by_timer) {
        call.run();
        return;
    }
    zof_task_t *task =
        zof_task_create([](zof_task_t *t) { ((const call_t *)zof_task_get_user_data(t))->run(); }, 0, (void *)&call);
    zof_task_once(task);
    screen_step(10);
}

// Calls `action` for each control that exists.
template <typename F> static void each(F action) {
    for (u32 id = LABEL; id < END; id++) {
        para_t *c = zof_ctrl_get_form_id(1, id);
        if (c && c->obj) {
            action(c);
        }
    }
}

// Puts a finger on each control and slides it a little, and on one option of the open list.
static void touch_all() {
    each([](para_t *c) {
        const lv_area_t a = c->obj->coords;
        const s32 x = (a.x1 + a.x2) / 2, y = (a.y1 + a.y2) / 2;
        screen_drag(x, y, x + 15, y - 12, 2);
    });
    if (at(DROP)->obj && zof_droplist_open(at(DROP)) == 0) {
        screen_step(40);
        const lv_area_t a = lv_dropdown_get_list(at(DROP)->obj)->coords;
        screen_click((a.x1 + a.x2) / 2, a.y2 - 12);
    }
}

TEST_CASE("controls come and go with their view and leak nothing") {
    view_project_t project;
    u32 memory[2] = {};
    std::filesystem::copy(ZOF_MEDIA_DIR, project.path("image"), std::filesystem::copy_options::recursive);
    project_up(project, R"("bg_image": "red.png")");
    for (u32 turn = 0; turn < 20; turn++) {
        zof_view_set_dis_view(1);
        touch_all();
        for (u32 id : {LIST, DROP, ROLLER}) { // deleted with its parent's object and recreated
            lv_obj_del(at(id)->obj);
            zof_ctrl_show(1, id);
        }
        zof_list_add_btn(at(LIST), "red.png", "#hello");
        zof_droplist_add_option(at(DROP), "more", 1);
        zof_droplist_open(at(DROP));
        zof_rollist_add_option(at(ROLLER), "more", 1);
        zof_rollist_set_selected(at(ROLLER), 2, 1);
        zof_table_set_cell_value(at(TABLE), 3, 3, "more");
        zof_chart_set_next_value2(at(CHART), zof_chart_add_series(at(CHART), 0, 0), 1, 1);
        zof_keyboard_set_txtbox(at(KEYBOARD), at(TXTBOX));
        zof_mbox_start_auto_close(at(MBOX), 20);
        zof_gif_set_src(at(GIF), turn % 3 ? "spots.gif" : "ever.gif");
        zof_qrcode_updata_data(at(QR), "another text");
        screen_step(60);
        zof_lang_set(turn % 2 ? "en" : "de");
        CHECK(str(zof_list_get_index_str(at(LIST), 2)) == (turn % 2 ? "hello" : "a longer hello"));
        zof_view_set_dis_view(2);
        screen_step(60);
        each([](para_t *c) { CHECK(c->id == VIDEO); }); // which is the driver's
        const u32 now = zof_mem_count() + zof_lv_mem_count();
        CHECK((turn < 10 || now == memory[turn % 2]));
        memory[turn % 2] = now;
    }
}

static u32 fatal; // event

TEST_CASE("controls may be deleted in their own events") {
    const struct {
        u32 event;
        u32 gone; // how many controls, at least
    } rows[] = {{ZOF_EVENT_PRESSED, 27},  {ZOF_EVENT_PRESSING, 27},      {ZOF_EVENT_RELEASED, 21},
                {ZOF_EVENT_CLICKED, 20},  {ZOF_EVENT_VALUE_CHANGED, 12}, {ZOF_EVENT_SCROLL, 3},
                {ZOF_EVENT_SCROLL_END, 6}};
    view_project_t project;
    std::filesystem::copy(ZOF_MEDIA_DIR, project.path("image"), std::filesystem::copy_options::recursive);
    project_up(project);
    on_any_event = [](para_t *record, u32 event) {
        if (event == fatal) {
            CHECK(zof_ctrl_delete(record) == 0);
        }
    };
    for (const auto &row : rows) {
        fatal = 0;
        zof_view_set_dis_view(1);
        u32 gone = 0;
        each([&](para_t *) { gone++; });
        fatal = row.event;
        touch_all();
        zof_spinbox_increment(at(SPIN));
        each([](para_t *c) { zof_ctrl_scroll_set(c, 9, 9, 0); });
        screen_step(600);
        each([&](para_t *) { gone--; });
        CAPTURE(row.event);
        CHECK(gone >= row.gone);
        zof_view_set_dis_view(2);
    }
}

static std::set<std::pair<u32, u32>> heard; // control and event
static std::pair<u32, u32> deadly;
static u32 way;
static bool struck;

static void strike(para_t *record, u32 event) {
    if (struck || deadly != std::pair<u32, u32>(record->id, event)) {
        return;
    }
    struck = true;
    const u32 id = record->id;
    if (way == 0) {
        CHECK(zof_ctrl_delete(record) == 0);
        CHECK(record->obj == nullptr);
        CHECK(zof_ctrl_get_x(record) == -1);
    } else if (way == 1) {
        CHECK(zof_ctrl_del(1, id) == 0);
        zof_ctrl_obj_del(record);
    } else {
        zof_view_set_dis_view(3);
    }
}

TEST_CASE("every event of every call may delete its control or show another view") {
    view_project_t project;
    project_up(project);
    const auto strikes = [](const call_t &call, bool by_timer) {
        for (const auto &event : heard) {
            for (way = 0; way < 3; way++) {
                view_renew();
                deadly = event;
                struck = false;
                on_any_event = strike;
                run(call, by_timer);
                screen_step(20);
                on_any_event = nullptr;
            }
        }
    };
    u32 events_heard = 0;
    for (const call_t &call : calls_made) {
        CAPTURE(call.name);
        heard.clear();
        view_renew();
        on_any_event = [](para_t *record, u32 event) { heard.insert({record->id, event}); };
        run(call, false);
        screen_step(20);
        on_any_event = nullptr;
        events_heard += (u32)heard.size();
        strikes(call, false);
        strikes(call, true);
    }
    CHECK(events_heard > 40);
    const auto memory = [] {
        view_renew();
        zof_view_set_dis_view(2);
        screen_step(50);
        return zof_mem_count() + zof_lv_mem_count();
    };
    memory();
    const u32 before = memory();
    CHECK(memory() == before);
}

static std::mt19937 dice;
static u32 depth;

static u32 roll(u32 sides) {
    return (u32)(dice() % sides);
}

static void anything() {
    const u32 id = LABEL + roll((u32)END - (u32)LABEL), view = 1 + roll(3);
    para_t *record = zof_ctrl_get_form_id(view, id);
    lv_obj_t *obj = zof_ctrl_obj(record);
    switch (roll(9)) {
    case 0:
    case 1:
        zof_ctrl_delete(record);
        break;
    case 2: // the record is now the caller's
        zof_ctrl_del(view, id);
        zof_ctrl_obj_del(record);
        break;
    case 3:
        zof_view_set_dis_view(view);
        break;
    case 4:
        zof_view_set_dis_view_anim(view, roll(ZOF_SCR_LOAD_ANIM_COUNT), 20, 0, ZOF_ANIM_PATH_LINEAR);
        break;
    case 5:
        zof_view_delete(view);
        break;
    case 6:
        zof_ctrl_show(view, id);
        break;
    case 7:
        if (obj && (id == TILES || id == RING || id == CONTAINER)) {
            lv_obj_clean(obj);
        } else if (obj) {
            lv_obj_del(obj);
        }
        break;
    default:
        calls_made[roll(std::size(calls_made))].run();
    }
}

static void anything_at_times(para_t *, u32) {
    if (depth < 4 && roll(6) == 0) {
        depth++;
        anything();
        depth--;
    }
}

TEST_CASE("random deletions, views and calls in each other's events use no freed memory") {
    const char *given = getenv("ZOF_SEED");
    const u32 seed = given ? (u32)strtoul(given, nullptr, 0) : std::random_device()();
    const char *seconds = getenv("ZOF_SECONDS");
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(seconds ? atoi(seconds) : 4);
    printf("deletion_test: ZOF_SEED=%u\n", seed);
    fflush(stdout);
    dice.seed(seed);
    view_project_t project;
    project_up(project);
    // What views log about controls that are gone by then does not matter.
    printed([&] {
        for (u32 round = 0; round < 400 && std::chrono::steady_clock::now() < end; round++) {
            view_renew();
            on_any_event = anything_at_times;
            for (u32 i = 0; i < 12; i++) {
                run(calls_made[roll(std::size(calls_made))], roll(2));
                if (roll(3) == 0) {
                    screen_drag((s32)roll(320), (s32)roll(240), (s32)roll(320), (s32)roll(240), 2);
                }
            }
            screen_step(40);
        }
    });
    on_any_event = nullptr;
    CHECK(zof_view_set_dis_view(2) == 0);
}
