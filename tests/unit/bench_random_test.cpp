// The model against a box on a bad line and a user in a hurry: whatever happens, these rules hold.
#include "port/zof_host.h"
#include "random_line.h"
#include "temp_project.h"
#include "zof_test.h"

enum { SEEDS = 10000, STEPS = 30 };

// What the user meant at the moment of a run.
static struct {
    bool on_meant, held;
    const bench_choice_t *applied; // by the user, at this moment
    u32 offs;                      // requests of off
} run;
static u32 clock_ms;

// What leaves the panel, judged by what the user did and what the panel knew.
static void judge(u16 addr, u16 value) {
    static bench_choice_t sent;
    switch (addr) {
    case REG_OUT_REQ:
        run.offs += value == 0;
        must(value == 0 || run.on_meant, "on is sent only when it was meant");
        must(value == 0 || run.held || bench.last_on_mv >= bench.set.mv ||
                 (bench.last_on_known && bench.last_on.mv >= bench.set.mv) || bench.set.mv <= BENCH_FIRST_ON_MV,
             "more than the last time is turned on only by holding");
        must(value == 0 || bench_age() == BENCH_LIVE, "nothing is turned on while readings are old");
        break;
    case REG_ADJ_MV:
    case REG_ADJ_MA:
        must(run.applied && value == (addr == REG_ADJ_MV ? run.applied->mv : run.applied->ma),
             "values are those that were set");
        break;
    case REG_RAIL_SELECT: {
        must(run.applied && value == run.applied->rail, "a rail is selected only when it was applied");
        must(bench_rail_usable((u8)value), "only rails of a list that is shown are selected");
        sent = run.applied ? *run.applied : sent;
        const prof_t &rail = bench.rails.rail[value % RAIL_MAX];
        must(!prof_adjustable(&rail) ||
                 (grid_has(grid_volts(&rail), sent.mv) && grid_has(grid_amperes(&rail), sent.ma)),
             "applied values are on the rail's grid");
        const u16 present = bench.set_known ? bench.set.mv : bench.mv;
        must(run.held || (bench_out_known() && !bench.on) || sent.mv <= present, "a higher voltage while on is held");
        break;
    }
    default:
        break;
    }
}

static void pass(u32 ms) {
    for (; ms >= 50; ms -= 50) {
        clock_ms += 50;
        board_step(line.box, 50);
        bench_tick();
        must(bench_age() == BENCH_DEAD || bench.now - bench.seen_at <= BENCH_DEAD_MS, "nothing old is live");
        must(!bench.set_known || bench_live(), "set values are not known without the box");
    }
}

static void port_set(bool on) {
    const bench_port_t port = {.state = on ? BENCH_PORT_OPEN : BENCH_PORT_GONE, .path = "/dev/ttyUSB0"};
    bench_take_port(&port);
}

// Off reaches the line, unless it was sent a moment ago.
static void press_off() {
    const bool deaf = bench.now < bench.deaf_until, known_off = bench_out_known() && !bench.on && !bench.turning_on;
    run.offs = 0;
    must(bench_toggle_down() != known_off, "a press on what is not off means off");
    must(known_off || (deaf && bench_out_known()) || run.offs == 1 ||
             (bench.off_wanted && bench.port.state != BENCH_PORT_OPEN),
         "off is sent");
}

static void press_on() {
    run.on_meant = true;
    run.held = chance(0.3);
    bench_turn_on(run.held);
    run.on_meant = run.held = false;
}

static void apply() {
    const u8 rail = (u8)pick(14);
    bench_choice_t choice = {rail, (u16)pick(52000), (u16)pick(6200)};
    if (rail < bench.rails.count && chance(0.8)) {
        choice = bench_rail_open(rail);
        const prof_t &r = bench.rails.rail[rail];
        if (prof_adjustable(&r) && r.vmin <= r.vmax) {
            choice.mv = grid_step(grid_volts(&r), choice.mv, (s32)pick(1000));
            choice.ma = grid_step(grid_amperes(&r), choice.ma, (s32)pick(100) - 50);
        }
    }
    run.applied = &choice;
    run.held = chance(0.3);
    bench_apply(choice, run.held);
    run.applied = nullptr;
    run.held = false;
}

static void step() {
    static void (*const acts[])() = {press_off,
                                     press_on,
                                     press_on,
                                     apply,
                                     apply,
                                     apply,
                                     [] { random_line_rails(pick(RAIL_MAX + 1)); },
                                     bench_rails_ask,
                                     [] { line.cable = !line.cable; },
                                     [] { line.cable = true; },
                                     [] { port_set(bench.port.state != BENCH_PORT_OPEN); },
                                     [] { port_set(true); },
                                     [] { bench_setting(REG_AUTO_ARM, (u16)pick(2)); },
                                     [] { bench_session_reset(); },
                                     [] { bench_session_undo(); },
                                     [] { board_power_up(line.box); },
                                     [] { board_output(line.box, chance(0.5)); },
                                     [] { pass(pick(3000)); }};
    acts[pick(sizeof(acts) / sizeof(acts[0]))]();
    pass(pick(600));
}

TEST_CASE("bench: ten thousand random sessions on a bad line send only what was intended, shown and safe") {
    static constexpr zof_clock_t clock = {[] { return clock_ms; }, [](u32) {}};
    static constexpr zof_hw_client_t client = {bench_take, bench_take_word, bench_tick};
    zof_clock_set(&clock);
    register_line_open(random_line_send);
    random_line_judge = judge;
    zof_hw_client_set(&client);
    u32 seed = 0;
    printed([&seed] {
        for (; seed < SEEDS && !broken; seed++) {
            run = {};
            random_line_start(seed, 0.01, 0.01);
            bench_start();
            port_set(true);
            board_power_up(line.box);
            for (u32 i = 0; i < STEPS && !broken; i++) {
                step();
            }
        }
    });
    CAPTURE(seed);
    CHECK(std::string(broken ? broken : "") == "");
}
