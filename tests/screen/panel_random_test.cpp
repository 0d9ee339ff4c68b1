// A finger in a hurry on the real pages, a box on a bad line: what leaves the panel is what its screen said, and what
// is old is never shown as new. ZOF_SEEDS=10000 for a long run; a failure names its seed, which ZOF_SEED=N runs alone.
#include "panel_fixture.h"
#include "random_line.h"
#include "temp_project.h"
#include "ui/ui.h"

enum { SEEDS = 40, ACTS = 40 };

static struct {
    bool down;
    u32 down_ms; // when the finger landed
    s32 x, y;
    u32 offs; // requests of off
} run;

static u32 shown_view() {
    return (u32)zof_view_get_cur_id(ZOF_LAYER_UI);
}

static bool held() {
    return run.down && screen_now - run.down_ms >= BENCH_HOLD_MS;
}

static bool label_says(u32 ctrl, u16 value, const char *unit) {
    return text_of(2, ctrl) == form("%u.%02u %s", value / 1000u, value % 1000u / 10, unit);
}

// What leaves the panel, judged by its screen.
static void judge(u16 addr, u16 value) {
    const bool on_toggle = (run.x - 632) * (run.x - 632) + (run.y - 208) * (run.y - 208) < 117 * 117;
    const u16 present = bench.set_known ? bench.set.mv : bench.mv;
    static u16 mv;
    char turn_on[PAINT_TEXT_SIZE];
    switch (addr) {
    case REG_OUT_REQ:
        run.offs += value == 0;
        must(value == 0 || (shown_view() == 1 && on_toggle && bench_age() == BENCH_LIVE),
             "on comes from the toggle alone");
        words_fill(turn_on, sizeof(turn_on), TEXT_TURN_ON); // in the language that a finger has chosen
        must(value == 0 || held() || text_of(1, VIEW1_LABEL7_ID) == turn_on, "a toggle that wants a hold is held");
        break;
    case REG_ADJ_MV:
        mv = value;
        must(shown_view() == 2 && label_says(VIEW2_LABEL82_ID, value, "V"), "the volts sent are those that are shown");
        break;
    case REG_ADJ_MA:
        must(label_says(VIEW2_LABEL83_ID, value, "A"), "the amperes sent are those that are shown");
        break;
    case REG_RAIL_SELECT: {
        must(shown_view() == 2 && run.x >= 566 && run.y > 340 && run.y < 436, "a rail is applied by its button alone");
        must(bench_rail_usable((u8)value), "the rail is in the list that is shown");
        const prof_t &rail = bench.rails.rail[value % RAIL_MAX];
        const u16 wanted = prof_adjustable(&rail) ? mv : rail.vmax;
        must(!prof_adjustable(&rail) || grid_has(grid_volts(&rail), mv), "the volts are on the rail's grid");
        must(held() || bench.hold_off || (bench_out_known() && !bench.on) || wanted <= present,
             "a higher voltage while on is held");
        break;
    }
    default:
        break;
    }
}

static void pass(u32 ms) {
    for (u32 step; ms > 0; ms -= step) {
        step = ms < 50 ? ms : 50;
        screen_step(step);
        board_step(line.box, step);
    }
    ui_paint();

    if (!bench_live() && shown_view() == 1) {
        must(text_of(1, VIEW1_LABEL0_ID) == "-․--" && text_of(1, VIEW1_LABEL2_ID) == "-․--- A",
             "what is not known is dashes");
        must(is_shown(1, VIEW1_UNKNOWN_WORD_ID) && is_shown(1, VIEW1_NOTICE_ID),
             "a toggle of a silent box claims nothing");
    }
}

static void finger_down(s32 x, s32 y) {
    run.x = x;
    run.y = y;
    run.down = true;
    run.down_ms = screen_now;
    const bool off = shown_view() == 1 ? (x - 632) * (x - 632) + (y - 208) * (y - 208) < 95 * 95
                                       : x > 630 && x < 780 && y > 8 && y < 44;
    const bool wanted = off && (!bench_out_known() || bench.on) && (shown_view() != 1 || bench.now > bench.deaf_until);
    const bool sendable = bench.port.state == BENCH_PORT_OPEN;
    run.offs = 0;
    sdl_pointer_inject(x, y, ZOF_TRUE);
    screen_step(SCREEN_INPUT_MS);
    must(!wanted || run.offs > 0 || (!sendable && bench.off_wanted), "a touch on what is not off sends off");
}

static void finger_up() {
    sdl_pointer_inject(run.x, run.y, ZOF_FALSE);
    screen_step(SCREEN_INPUT_MS);
    run.down = false;
}

// Places worth touching, then anywhere.
static void touch() {
    static constexpr s32 places[][2] = {{632, 208}, {704, 26},  {683, 388}, {683, 388}, {80, 456},  {240, 456},
                                        {400, 456}, {560, 456}, {632, 340}, {300, 26},  {172, 336}, {522, 336},
                                        {522, 394}, {82, 336},  {312, 438}, {480, 316}, {604, 108}, {728, 190},
                                        {341, 190}, {396, 392}, {712, 420}};
    const u32 n = pick(sizeof(places) / sizeof(places[0]) + 12);
    const bool known = n < sizeof(places) / sizeof(places[0]);
    finger_down(known ? places[n][0] : 20 + (s32)pick(760), known ? places[n][1] : (s32)(58 + pick(370)));
    pass(chance(0.6) ? pick(150) : pick(1300));
    if (chance(0.2)) {
        run.x += (s32)pick(200) - 100;
        screen_move(run.x, run.y);
        pass(pick(500));
    }
    finger_up();
}

static void key(u32 code, bool down) {
    zof_drv_win_key_set_value(down, code);
    screen_step(SCREEN_INPUT_MS);
}

// Arrows and Enter: a finger in the ring.
static void focus() {
    enum { RIGHT = 0x4000004F, UP = 0x40000052, ENTER = 13 };
    for (u32 i = 1 + pick(12); i > 0; i--) {
        const u32 arrow = RIGHT + pick(UP - RIGHT + 1);
        key(arrow, true);
        key(arrow, false);
    }
    const lv_obj_t *ring = lv_obj_get_child(lv_layer_sys(), 0);
    run.x = ring ? (ring->coords.x1 + ring->coords.x2 + 1) / 2 : 0;
    run.y = ring ? (ring->coords.y1 + ring->coords.y2 + 1) / 2 : 0;
    run.down = true;
    run.down_ms = screen_now;
    key(ENTER, true);
    pass(chance(0.6) ? pick(150) : pick(1300));
    key(ENTER, false);
    run.down = false;
}

static void port_set(bench_port_e state) {
    const bench_port_t port = {.state = state, .path = "/dev/ttyUSB0"};
    bench_take_port(&port);
}

static void act() {
    switch (pick(15)) {
    case 0:
        line.cable = !line.cable;
        break;
    case 1:
        line.cable = true;
        break;
    case 2:
        port_set(chance(0.3) ? BENCH_PORT_GONE : BENCH_PORT_OPEN);
        break;
    case 3:
        random_line_rails(chance(0.5) ? 1 + pick(RAIL_MAX) : (u32)RAIL_MAX);
        break;
    case 4:
        board_output(line.box, chance(0.5));
        break;
    case 5:
        focus();
        break;
    default:
        touch();
        break;
    }
    pass(pick(700));
}

TEST_CASE("panel: whatever a finger does on a bad line, the screen and the sent values agree") {
    const char *seeds = getenv("ZOF_SEEDS");
    const char *alone = getenv("ZOF_SEED");
    const u32 first = alone ? (u32)atoi(alone) : 0;
    const u32 count = alone ? 1 : seeds ? (u32)atoi(seeds) : (u32)SEEDS;
    panel_open();
    register_line_open(random_line_send);
    random_line_judge = judge;
    for (u32 seed = first; seed < first + count && !broken; seed++) {
        CAPTURE(seed);
        run = {};
        random_line_start(seed, 0.005, 0);
        bench_start();
        zof_view_set_dis_view(1);
        port_set(BENCH_PORT_OPEN);
        printed([] {
            board_power_up(line.box);
            pass(400);
            for (u32 i = 0; i < ACTS && !broken; i++) {
                act();
            }
        });
        CHECK(std::string(broken ? broken : "") == "");
    }
}
