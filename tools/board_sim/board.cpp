#include "board.h"

#include <algorithm>
#include <cmath>

static constexpr double SLEW_MV_PER_MS = 40; // rate at which a source ramps its voltage
static constexpr uint16_t VERSION = 2 << 8 | 3;
static constexpr double PUSH_MS = 100;  // between live values
static constexpr double STATE_MS = 500; // between repeated output states, for a panel that started late or lost a frame

std::vector<prof_t> board_default_rails(size_t count) {
    std::vector<prof_t> rails = {
        {RAIL_FIX, 5000, 5000, 5000},   {RAIL_FIX, 9000, 9000, 5000},   {RAIL_FIX, 12000, 12000, 5000},
        {RAIL_FIX, 15000, 15000, 5000}, {RAIL_FIX, 20000, 20000, 5000}, {RAIL_PPS, 3300, 11000, 5000},
        {RAIL_PPS, 3300, 16000, 5000},  {RAIL_PPS, 3300, 21000, 5000},  {RAIL_EPR, 28000, 28000, 5000},
        {RAIL_EPR, 36000, 36000, 5000}, {RAIL_EPR, 48000, 48000, 5000}, {RAIL_AVS, 9000, 20000, 3250},
        {RAIL_AVS, 15000, 28000, 5000},
    };
    rails.resize(std::min(count, rails.size()));
    return rails;
}

static void push(board &b, uint16_t addr, uint16_t value) {
    if (b.write) {
        b.write(addr, {value});
    }
}

static void push_live(board &b) {
    std::normal_distribution<double> noise(0, b.noise && b.mv > 50 ? 1.5 : 0);
    const double mv = std::max(0.0, b.mv + noise(b.random));
    const double ma = b.ma > 0 ? std::max(0.0, b.ma + noise(b.random)) : 0;
    const auto mwh = (uint32_t)(b.energy_uwh / 1000);
    push(b, REG_LIVE_MV, (uint16_t)std::lround(std::min(mv, 65535.0)));
    push(b, REG_LIVE_MA, (uint16_t)std::lround(std::min(ma, 65535.0)));
    push(b, REG_LIVE_DW, (uint16_t)std::lround(std::min(mv * ma / 1e5, 65535.0)));
    push(b, REG_SESS_MWH_LO, (uint16_t)mwh);
    push(b, REG_SESS_MWH_HI, (uint16_t)(mwh >> 16));
}

// Applies Ohm's law to a source that reduces its voltage at its current limit.
static void flow(board &b, double ms) {
    const double want = b.on ? b.target_mv : 0;
    const double step = SLEW_MV_PER_MS * ms;
    b.mv += std::clamp(want - b.mv, -step, step);
    if (!b.on || b.mv <= 0) {
        b.ma = 0;
        return;
    }
    b.ma = b.load.amperes > 0 ? b.load.amperes * 1000 : b.mv / b.load.ohms;
    if (b.ma > b.limit_ma) {
        b.ma = b.limit_ma;
        b.mv = b.load.amperes > 0 ? std::min(b.mv, 500.0) : b.ma * b.load.ohms;
    }
    b.energy_uwh += b.mv * b.ma * ms / 3.6e6; // mV * mA is uW; an hour has 3.6 million ms
}

void board_step(board &b, double ms) {
    for (double left = ms; left > 0; left -= 20) {
        flow(b, std::min(left, 20.0));
    }
    b.since_push_ms += ms;
    b.since_state_ms += ms;
    if (b.since_push_ms >= PUSH_MS) {
        b.since_push_ms = 0;
        push_live(b);
    }
    if (b.since_state_ms >= STATE_MS) {
        b.since_state_ms = 0;
        push(b, REG_OUT_STATE, b.on);
    }
}

void board_output(board &b, bool on) {
    b.on = on && b.rail != RAIL_NONE;
    b.settings.last_on = b.on;
    board_settings_save(b);
    push(b, REG_OUT_STATE, b.on);
}

bool board_select(board &b, uint16_t rail) {
    if (rail >= b.rails.size()) {
        return false;
    }
    const prof_t &r = b.rails[rail];
    b.rail = rail;
    b.target_mv = prof_adjustable(&r) && b.adj_mv ? std::clamp(b.adj_mv, r.vmin, r.vmax) : r.vmax;
    b.limit_ma = prof_adjustable(&r) && b.adj_ma ? std::min(b.adj_ma, r.imax) : r.imax;
    b.settings.last_rail = rail;
    b.settings.last_mv = b.adj_mv;
    b.settings.last_ma = b.adj_ma;
    board_settings_save(b);
    push(b, REG_RAIL_ACTIVE, rail);
    if (b.settings.auto_arm) {
        board_output(b, true);
    }
    return true;
}

void board_set_rails(board &b, std::vector<prof_t> rails) {
    b.rails = std::move(rails);
    if (b.rail != RAIL_NONE && b.rail >= b.rails.size()) {
        b.rail = RAIL_NONE;
        push(b, REG_RAIL_ACTIVE, RAIL_NONE);
        board_output(b, false);
    }
    board_send_rails(b);
}

void board_send_rails(board &b) {
    std::vector<uint16_t> words;
    for (const prof_t &r : b.rails) {
        words.insert(words.end(), {r.type, r.vmin, r.vmax, r.imax});
    }
    if (b.write && !words.empty()) {
        b.write(REG_RAIL_BASE, words);
    }
    push(b, REG_RAIL_COUNT, (uint16_t)b.rails.size());
    if (b.rail != RAIL_NONE) {
        push(b, REG_RAIL_ACTIVE, b.rail);
    }
    push(b, REG_RAIL_COMMIT, 1);
}

void board_send_settings(board &b) {
    for (const board_setting &row : board_setting_rows) {
        if (reg_find(row.reg)->writer == REG_BY_BOTH) {
            push(b, row.reg, b.settings.*row.field);
        }
    }
    push(b, REG_OUT_STATE, b.on);
}

template <uint16_t board_settings::*FIELD> static void keep(board &b, uint16_t value) {
    b.settings.*FIELD = value;
    board_settings_save(b);
}

static void session_reset(board &b) {
    b.energy_uwh = 0;
    push(b, REG_SESS_MWH_LO, 0);
    push(b, REG_SESS_MWH_HI, 0);
}

// The actions of the board for registers that the panel reports.
static constexpr struct {
    uint16_t addr;
    void (*take)(board &b, uint16_t value);
} reports[] = {
    {REG_ADJ_MV, [](board &b, uint16_t value) { b.adj_mv = value; }},
    {REG_ADJ_MA, [](board &b, uint16_t value) { b.adj_ma = value; }},
    {REG_OUT_REQ, [](board &b, uint16_t value) { board_output(b, value != 0); }},
    {REG_RAIL_SELECT, [](board &b, uint16_t value) { board_select(b, value); }},
    {REG_RAIL_REQUEST, [](board &b, uint16_t) { board_send_rails(b); }},
    {REG_SESS_RESET, [](board &b, uint16_t) { session_reset(b); }},
    {REG_BRIGHT, keep<&board_settings::bright>},
    {REG_BOOT_STATE, keep<&board_settings::boot_last>},
    {REG_AUTO_ARM, keep<&board_settings::auto_arm>},
    {REG_SETTINGS_REQUEST, [](board &b, uint16_t) { board_send_settings(b); }},
};
static_assert(reg_all_bound(reports, REG_BY_PANEL));

void board_report(board &b, uint16_t addr, uint16_t value) {
    for (const auto &row : reports) {
        if (row.addr == addr) {
            row.take(b, reg_value(addr, value));
        }
    }
}

// Without a saved rail the box starts on its first rail, as every source does.
void board_power_up(board &b) {
    board_settings_load(b);
    push(b, REG_BOX_VERSION, VERSION);
    b.adj_mv = b.settings.last_mv;
    b.adj_ma = b.settings.last_ma;
    const uint16_t rail = b.settings.last_rail < b.rails.size() ? b.settings.last_rail : 0;
    const bool on = b.settings.boot_last && b.settings.last_on;
    const uint16_t auto_arm = b.settings.auto_arm;
    b.settings.auto_arm = 0; // power-on is not a selection of a rail
    board_select(b, rail);
    b.settings.auto_arm = auto_arm;
    board_output(b, on);
}
