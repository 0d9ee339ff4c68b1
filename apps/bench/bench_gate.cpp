// The gate: everything that is sent to the box passes bench_gate_send, and every action that can damage a device is
// decided here.
#include <string.h>

#include <algorithm>

#include "bench/bench.h"
#include "bench/bench_session.h"
#include "bench/bench_trend.h"
#include "hardware/uart/zof_hw_uart.h"
#include "zof.h"

// The current last used on each adjustable rail. Rails are identified by their values, so that a list in another order
// finds them.
static struct {
    bool known;
    prof_t rail;
    u16 ma;
} used[RAIL_MAX];
static u8 used_next;

void bench_gate_start(void) {
    memset(used, 0, sizeof(used));
    used_next = 0;
}

void bench_gate_send(u16 addr, u16 value) {
    if (!bench.replay) {
        zof_reg_report(addr, value);
    }
}

static bool rail_is(const prof_t &a, const prof_t &b) {
    return memcmp(&a, &b, sizeof(a)) == 0;
}

// Returns the voltage that counts as the present one: the set one, or the measured one if that is not known. An
// unconfirmed request may have lowered it already. While the current limit acts, a higher limit would raise the voltage
// up to the set one.
static bool limited() {
    return bench.mv_known && (bench.limit || bench_limit_acts());
}

static u16 present_mv() {
    const u16 set = bench.set_known ? bench.set.mv : bench.mv_known ? bench.mv : (u16)0;
    const u16 mv = limited() ? std::min(set, bench.mv) : set;
    return bench.in_doubt ? std::min(mv, bench.apply.mv) : mv;
}

// Output ----------------------------------------------------------------------------------------------------------
static bool within(const bench_choice_t &choice, const bench_choice_t &of) {
    return choice.rail == of.rail && choice.mv <= of.mv && choice.ma <= of.ma;
}

static bool on_needs_hold(bool known, const bench_choice_t &choice) {
    const u16 before = bench.last_on_mv != 0 ? bench.last_on_mv : (u16)BENCH_FIRST_ON_MV;
    const bool again = bench.last_on_known && within(choice, bench.last_on);
    return !bench.hold_off && (!known || (choice.mv > before && !again));
}

bench_toggle_e bench_toggle(void) {
    if (!bench_out_known()) {
        return bench.off_said || bench.off_wanted ? BENCH_TOGGLE_UNKNOWN_SAID : BENCH_TOGGLE_UNKNOWN;
    }
    if (bench.on) {
        if (!bench.turning_off) {
            return BENCH_TOGGLE_ON;
        }
        return bench.now - bench.off_at < BENCH_STILL_ON_MS ? BENCH_TOGGLE_TURNING_OFF : BENCH_TOGGLE_STILL_ON;
    }
    if (bench.turning_on) {
        return BENCH_TOGGLE_TURNING_ON;
    }
    if (!on_needs_hold(bench.set_known, bench.set)) {
        return BENCH_TOGGLE_OFF;
    }
    return bench.set_known ? BENCH_TOGGLE_HOLD : BENCH_TOGGLE_HOLD_UNKNOWN;
}

void bench_off(void) {
    if (bench.replay) {
        return;
    }
    bench.off_wanted = !bench_out_known() || bench.on || bench.turning_on || bench.applying;
    bench.turning_on = false;
    bench.turning_off = bench_is_on();
    bench.off_said = !bench_out_known();
    bench.off_at = bench.now;
    bench.deaf_until = bench.now + BENCH_DEAF_MS;
    if (bench.port.state == BENCH_PORT_OPEN) {
        bench_gate_send(REG_OUT_REQ, 0);
    }
}

bool bench_toggle_down(void) {
    if (bench_out_known() && !bench.on && !bench.turning_on) {
        return false;
    }
    if (!bench_out_known() || bench.now >= bench.deaf_until) {
        bench_off();
    }
    return true;
}

bool bench_turn_on(bool held) {
    const bench_toggle_e toggle = bench_toggle();
    const bool hold = toggle == BENCH_TOGGLE_HOLD || toggle == BENCH_TOGGLE_HOLD_UNKNOWN;
    if (bench.now < bench.deaf_until || bench_age() != BENCH_LIVE || !(toggle == BENCH_TOGGLE_OFF || (hold && held))) {
        return false;
    }
    bench.turning_on = true;
    bench.off_wanted = false;
    bench.on_at = bench.now;
    bench_gate_send(REG_OUT_REQ, 1);
    return true;
}

static void last_on_set() {
    bench.last_on = bench.set;
    bench.last_on_known = true;
    bench.last_on_mv = bench.set.mv;
}

void bench_gate_out(bool on) {
    if (!on && bench.on && limited()) { // the device never saw the set voltage
        bench.last_on_mv = std::min(bench.last_on_mv, bench.mv);
    }
    bench.out_known = true;
    bench.on = on;
    bench.off_said = false;
    if (on) {
        bench.turning_on = false;
        if (bench.set_known) {
            last_on_set();
        }
    } else {
        bench.turning_off = bench.off_wanted = false;
    }
}

// Rails -----------------------------------------------------------------------------------------------------------
static u16 used_current(const prof_t &rail) {
    for (const auto &row : used) {
        if (row.known && rail_is(row.rail, rail)) {
            return row.ma;
        }
    }
    return std::min<u16>(grid_amperes(&rail).high, 1000);
}

static void used_store(const prof_t &rail, u16 ma) {
    for (auto &row : used) {
        if (row.known && rail_is(row.rail, rail)) {
            row.ma = ma;
            return;
        }
    }
    used[used_next] = {true, rail, ma};
    used_next = (u8)((used_next + 1) % RAIL_MAX);
}

bench_choice_t bench_rail_open(u8 rail) {
    const prof_t &r = bench.rails.rail[rail];
    if (!prof_adjustable(&r)) {
        return {rail, r.vmax, r.imax};
    }
    if (bench.set_known && bench.set.rail == rail) {
        return bench.set;
    }
    return {rail, grid_volts(&r).low, used_current(r)};
}

static bool choice_valid(bench_choice_t choice) {
    return bench_rail_usable(choice.rail) && grid_can(&bench.rails.rail[choice.rail], choice.mv, choice.ma);
}

static bool auto_on_known() {
    return (bench.settings_known & BENCH_SETTING_AUTO_ON) != 0;
}

bool bench_apply_turns_on(void) {
    return bench_out_known() && !bench.on && auto_on_known() && bench.auto_on != 0;
}

// If the box has not reported whether applying turns its output on, assume that it may.
bench_apply_e bench_apply_how(bench_choice_t choice) {
    if (bench.applying || !choice_valid(choice)) {
        return BENCH_APPLY_NO;
    }
    const bool off = bench_out_known() && !bench.on && !bench.turning_on;
    if (off && auto_on_known() && bench.auto_on == 0) {
        return BENCH_APPLY_CLICK;
    }
    const bool lower = bench.set_known && !bench.in_doubt && within(choice, bench.set);
    const bool hold = off ? on_needs_hold(true, choice) : !bench.hold_off && !lower && choice.mv > present_mv();
    return hold ? BENCH_APPLY_HOLD : BENCH_APPLY_CLICK;
}

bool bench_apply(bench_choice_t choice, bool held) {
    const bench_apply_e how = bench_apply_how(choice);
    if (how == BENCH_APPLY_NO || (how == BENCH_APPLY_HOLD && !(held && bench_age() == BENCH_LIVE))) {
        return false;
    }
    const prof_t &rail = bench.rails.rail[choice.rail];
    if (prof_adjustable(&rail)) {
        bench_gate_send(REG_ADJ_MV, choice.mv);
        bench_gate_send(REG_ADJ_MA, choice.ma);
        used_store(rail, choice.ma);
    }
    bench_gate_send(REG_RAIL_SELECT, choice.rail);
    bench.apply = choice;
    bench.apply_at = bench.now;
    bench.applying = true;
    bench.not_taken = false;
    return true;
}

bool bench_applied(bench_choice_t choice) {
    return bench.set_known && bench.rail_known && bench.rail == choice.rail && bench.set.rail == choice.rail &&
           bench.set.mv == choice.mv && bench.set.ma == choice.ma && !bench.in_doubt;
}

static void not_taken() {
    bench.applying = false;
    bench.not_taken = bench.in_doubt = true;
    bench.not_taken_at = bench.now;
}

static void set(bench_choice_t choice) {
    bench.set = bench.last = choice;
    bench.set_known = bench.last_known = true;
    bench.in_doubt = false;
    if (bench_is_on()) {
        last_on_set();
    }
}

// The box reports the rail in force. While a list is requested, the answer also names the old rail, so a repeated value
// confirms nothing about a rail that is being applied. A late answer confirms only a rail other than the one before.
void bench_gate_rail(u8 rail) {
    const bool same = bench.rail_known && bench.rail == rail;
    const bool applied =
        rail == bench.apply.rail && (bench.applying ? !(same && bench.rails.waiting) : bench.in_doubt && !same);
    bench.rail = rail;
    bench.rail_known = true;
    if (applied) {
        bench.applying = bench.not_taken = false;
        set(bench.apply);
    } else if (!same) {
        bench.set_known = false;
    }
    if (!bench.applying && rail != bench.apply.rail) {
        bench.in_doubt = false;
    }
    bench_gate_rails();
}

// Returns true if the number of a rail still means the same rail in the new list.
static bool same_in(const prof_t *rails, u8 count, u8 rail) {
    return rail < count && rail_is(rails[rail], bench.rails.rail[rail]);
}

void bench_gate_list(const prof_t *rails, u8 count) {
    if (bench.set_known && !same_in(rails, count, bench.set.rail)) {
        bench.set_known = false;
    }
    bench.last_on_known = bench.last_on_known && same_in(rails, count, bench.last_on.rail);
    if (bench.applying && !same_in(rails, count, bench.apply.rail)) {
        not_taken();
    }
}

// A fixed rail determines what is set; only the panel knows the values set on an adjustable one.
void bench_gate_rails(void) {
    const u8 rail = bench.rail;
    if (bench.dead || bench.set.rail != rail) {
        bench.set_known = false;
    }
    if (bench.dead || bench.rails.state != BENCH_RAILS_SHOWN || !bench.rail_known || bench.applying) {
        return;
    }
    const bool listed = rail < bench.rails.count && bench.rails.valid[rail];
    if (!listed || !choice_valid(bench.set)) {
        bench.set_known = false;
    }
    if (listed && !bench.set_known && !prof_adjustable(&bench.rails.rail[rail])) {
        set(bench_rail_open(rail));
    }
}

void bench_gate_lost(void) {
    bench.rail_known = bench.set_known = bench.in_doubt = false;
    bench.applying = bench.turning_off = bench.turning_on = false;
}

// Session ---------------------------------------------------------------------------------------------------------
bool bench_session_reset(void) {
    u64 mwh;
    if (!bench_energy(&mwh)) {
        return false;
    }
    bench.undo_mwh = bench.mwh;
    bench.undo_base = bench.base_mwh;
    bench.base_mwh = 0;
    bench.reset_at = bench.now;
    bench.undo = true;
    if (!trend_stopped()) { // an imported recording keeps its statistics
        session_reset();
    }
    bench_gate_send(REG_SESS_RESET, 1);
    return true;
}

// If the count has not fallen, the box has not executed the reset.
bool bench_session_undo(void) {
    if (!bench.undo) {
        return false;
    }
    bench.undo = false;
    if (!trend_stopped()) {
        session_undo();
    }
    bench.base_mwh = bench.undo_base + (bench.mwh < bench.undo_mwh ? bench.undo_mwh : 0);
    return true;
}

void bench_gate_tick(void) {
    if (bench.applying && bench.now - bench.apply_at >= BENCH_APPLYING_MS) {
        not_taken();
    }
    if (bench.turning_on && bench.now - bench.on_at >= BENCH_TURNING_ON_MS) {
        bench.turning_on = false;
    }
    if (bench.undo && bench.now - bench.reset_at >= BENCH_UNDO_MS) {
        bench.undo = false;
    }
}
