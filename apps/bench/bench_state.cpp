// The state that the box has reported, and its age.
#include <string.h>

#include "bench/bench.h"
#include "bench/bench_record.h"
#include "bench/bench_report.h"
#include "bench/bench_trend.h"
#include "zof.h"

bench_t bench;

static void now_set() {
    const u32 clock = zof_sys_time_ms();
    bench.now +=
        bench.started ? clock - bench.clock : 0; // unsigned, so it is correct when the clock wraps after 49 days
    bench.started = true;
    bench.clock = clock;
}

// The readings for display -----------------------------------------------------------------------------------------
// The last readings of each kind, which are averaged over BENCH_EYE_MS.
enum { EYE_SIZE = 16 };
struct eye_t {
    u64 at[EYE_SIZE];
    u16 value[EYE_SIZE];
    u8 next, count;
};
static eye_t eyes[3];

// A value further from the mean than noise explains restarts the mean, so that a step shows at once.
static bool is_step(u16 value, u16 mean) {
    const u32 way = value > mean ? (u32)(value - mean) : (u32)(mean - value);
    return way > 20u + mean / 100u;
}

static u16 eye_mean(const eye_t &eye) {
    u32 sum = 0, n = 0;
    for (u8 i = 0; i < eye.count; i++) {
        if (bench.now - eye.at[i] <= BENCH_EYE_MS) {
            sum += eye.value[i];
            n++;
        }
    }
    const u8 last = (u8)((eye.next + EYE_SIZE - 1) % EYE_SIZE);
    return n == 0 || bench.averaged_off ? eye.value[last] : (u16)((sum + n / 2) / n);
}

static void eye_take(eye_t &eye, u16 value) {
    if (eye.count > 0 && is_step(value, eye_mean(eye))) {
        eye = {};
    }
    eye.at[eye.next] = bench.now;
    eye.value[eye.next] = value;
    eye.next = (u8)((eye.next + 1) % EYE_SIZE);
    eye.count = (u8)(eye.count < EYE_SIZE ? eye.count + 1 : EYE_SIZE);
}

void bench_start(void) {
    bench = {.port = {.state = BENCH_PORT_LOOKING}, .dead = true, .rail = RAIL_NONE};
    memset(eyes, 0, sizeof(eyes));
    report_start();
    bench_gate_start();
    if (!trend_stopped()) { // an imported recording stays
        trend_clear();
    }
    now_set();
}

bool bench_eye(u16 *mv, u16 *ma, u16 *dw) {
    *mv = eye_mean(eyes[0]);
    *ma = eye_mean(eyes[1]);
    *dw = eye_mean(eyes[2]);
    return bench_live();
}

// Ages ------------------------------------------------------------------------------------------------------------
u64 bench_silence_ms(void) {
    return bench.now - bench.seen_at;
}

bench_age_e bench_age(void) {
    return bench.dead ? BENCH_DEAD : bench_silence_ms() > BENCH_LATE_MS ? BENCH_LATE : BENCH_LIVE;
}

bool bench_live(void) {
    return !bench.dead;
}

bool bench_out_known(void) {
    return bench_live() && bench.out_known;
}

bool bench_is_on(void) {
    return bench_out_known() && bench.on;
}

bool bench_press(bench_press_e what) {
    if (bench.locked) {
        bench.locked_pressed = true;
        bench.locked_at = bench.now;
    }
    return !bench.locked && (what == BENCH_PRESS_LOOKS || !bench.remote[0]);
}

bool bench_locked_note(void) {
    return bench.locked && bench.locked_pressed && bench.now - bench.locked_at < BENCH_NOTE_MS;
}

void bench_lock(bool on) {
    bench.locked = on;
    bench.locked_pressed = false;
}

bool bench_energy(u64 *mwh) {
    *mwh = (u64)bench.mwh + bench.base_mwh;
    return bench_live() && bench.mwh_known == 3;
}

// The box was silent for too long or has restarted: its earlier reports no longer hold.
static void lost() {
    trend_gap();
    bench.dead = true;
    bench.mv_known = bench.ma_known = bench.dw_known = bench.out_known = false;
    bench.mwh_known = 0;
    bench.limit = bench.limit_next = false;
    bench.settings_known = 0;
    memset(eyes, 0, sizeof(eyes));
    report_start();
    bench_rails_lost();
    bench_gate_lost();
}

static void ask_all() {
    bench_settings_ask();
    bench_rails_ask();
}

static void seen() {
    const bool was_dead = bench.dead;
    bench.seen_at = bench.now;
    bench.seen = true;
    bench.dead = false;
    if (was_dead) {
        bench_rails_back();
        ask_all();
    }
}

// The current limit -----------------------------------------------------------------------------------------------
// The board does not report the limit. It is inferred on an adjustable rail when the current is at its limit and the
// voltage below the set one.
bool bench_limit_acts(void) {
    if (!bench_is_on() || !bench.set_known || bench.rail >= bench.rails.count ||
        !prof_adjustable(&bench.rails.rail[bench.rail])) {
        return false;
    }
    const u32 below = bench.mv < bench.set.mv ? (u32)(bench.set.mv - bench.mv) : 0;
    return bench.ma * 100u >= bench.set.ma * 97u && below > 100 && below * 50 > bench.set.mv;
}

// Shows or hides the limit after it has been so for BENCH_LIMIT_MS.
static void limit_tick() {
    const bool next = bench_limit_acts();
    if (next != bench.limit_next) {
        bench.limit_next = next;
        bench.limit_at = bench.now;
    }
    if (bench.limit != next && bench.now - bench.limit_at >= BENCH_LIMIT_MS) {
        bench.limit = next;
    }
}

// Settings of the box ---------------------------------------------------------------------------------------------
enum { SETTING_COUNT = 3, SETTINGS_ALL = (1 << SETTING_COUNT) - 1 };
static constexpr struct {
    u16 addr;
    u16 bench_t::*value;
} settings[SETTING_COUNT] = {
    {REG_BRIGHT, &bench_t::bright}, {REG_BOOT_STATE, &bench_t::boot_last}, {REG_AUTO_ARM, &bench_t::auto_on}};

static bool setting_store(u16 addr, u16 value) {
    for (u32 i = 0; i < SETTING_COUNT; i++) {
        if (settings[i].addr == addr) {
            bench.*settings[i].value = value;
            bench.settings_known |= (u8)(1u << i);
            return true;
        }
    }
    return false;
}

bool bench_setting(u16 addr, u16 value) {
    const u16 good = reg_value(addr, value);
    if (bench.dead || !setting_store(addr, good)) {
        return false;
    }
    bench_gate_send(addr, good);
    return true;
}

void bench_settings_ask(void) {
    bench.settings_at = bench.now;
    bench.settings_tries = 1;
    bench.settings_waiting = true;
    bench_gate_send(REG_SETTINGS_REQUEST, 1);
}

static void settings_tick() {
    if (bench.settings_known == SETTINGS_ALL) {
        bench.settings_waiting = false;
    }
    const u32 pause = bench.settings_tries < BENCH_TRIES ? BENCH_TRY_MS : BENCH_PAUSE_MS;
    if (bench.settings_waiting && !bench.dead && bench.now - bench.settings_at >= pause) {
        const u8 tries = bench.settings_tries;
        bench_settings_ask();
        bench.settings_tries = (u8)(tries < BENCH_TRIES ? tries + 1 : BENCH_TRIES);
    }
}

// From the link ---------------------------------------------------------------------------------------------------
void bench_reading(u16 addr, u16 value) {
    static constexpr struct {
        u16 addr;
        u16 bench_t::*value;
        bool bench_t::*known;
    } rows[] = {{REG_LIVE_MV, &bench_t::mv, &bench_t::mv_known},
                {REG_LIVE_MA, &bench_t::ma, &bench_t::ma_known},
                {REG_LIVE_DW, &bench_t::dw, &bench_t::dw_known}};
    const auto &row = rows[addr - REG_LIVE_MV];
    seen();
    bench.*row.value = value;
    bench.*row.known = true;
    eye_take(eyes[addr - REG_LIVE_MV], value);
    trend_take(addr, value);
}

void bench_take(u16 addr, u16 value) {
    now_set();
    if (addr < REG_LIVE_MV || addr > REG_LIVE_DW) {
        report_end();
    }
    switch (addr) {
    case REG_LIVE_MV:
    case REG_LIVE_MA:
    case REG_LIVE_DW:
        report_take(addr, value);
        break;
    case REG_SESS_MWH_LO:
        bench.mwh = (bench.mwh & 0xFFFF0000u) | value;
        bench.mwh_known |= 1;
        break;
    case REG_SESS_MWH_HI:
        bench.mwh = (bench.mwh & 0xFFFFu) | (u32)value << 16;
        bench.mwh_known |= 2;
        break;
    case REG_OUT_STATE:
        seen();
        bench_gate_out(value != 0);
        break;
    case REG_RAIL_ACTIVE:
        if (value < RAIL_MAX || value == RAIL_NONE) {
            bench.rails.doubt = false;
            bench_gate_rail((u8)value);
        } else { // garbled on the line
            bench.rails.doubt = true;
        }
        break;
    case REG_BOX_VERSION: // the box has started
        lost();
        bench.version = value;
        ask_all();
        break;
    case REG_RAIL_COUNT:
        bench.rails.counted = true;
        break;
    case REG_RAIL_COMMIT:
        bench_rails_commit();
        break;
    default:
        setting_store(addr, value);
        break;
    }
}

void bench_take_port(const bench_port_t *port) {
    now_set();
    const bool opened =
        port->state == BENCH_PORT_OPEN && (bench.port.state != BENCH_PORT_OPEN || bench.port.opened != port->opened);
    const bool changed = port->state != bench.port.state;
    if (changed) {
        bench.port_at = bench.now;
    }
    bench.port = *port;
    if (!bench.dead && (opened || port->state != BENCH_PORT_OPEN)) {
        lost();
    } else if (changed && !opened) {
        record_gap();
    }
    if (opened) {
        if (bench.off_wanted) { // the box may be a different one by now; off does no harm
            bench_off();
        }
        ask_all();
    }
}

void bench_tick(void) {
    now_set();
    if (!bench.dead && bench_silence_ms() > BENCH_DEAD_MS) {
        lost();
    }
    report_tick();
    limit_tick();
    settings_tick();
    bench_rails_tick();
    bench_gate_tick();
    record_tick();
}
