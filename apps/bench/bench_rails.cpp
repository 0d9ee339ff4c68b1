// The list of rails: which of its words have arrived, whether the list is complete and plausible, and when to request
// it again.
#include <string.h>

#include "bench/bench.h"
#include "hardware/uart/zof_hw_uart.h"
#include "zof.h"

static void answer_clear() {
    bench.rails.words = 0;
    bench.rails.counted = false;
}

// A word that arrives twice belongs to a second answer, so it starts a new one instead of completing the first.
void bench_take_word(u16 addr) {
    if (addr < REG_RAIL_BASE || addr >= REG_RAIL_BASE + RAIL_WORDS * RAIL_MAX) {
        return;
    }
    const u64 word = 1ull << (addr - REG_RAIL_BASE);
    if (bench.rails.words & word) {
        answer_clear();
    }
    bench.rails.words |= word;
}

static void ask() {
    answer_clear();
    bench.rails.waiting = true;
    bench.rails.next_at = 0;
    bench.rails.asked_at = bench.now;
    bench_gate_send(REG_RAIL_REQUEST, 1);
}

void bench_rails_ask(void) {
    bench.rails.tries = 1;
    ask();
}

// Handles a missing or incomplete answer: the next try follows one second after the last; after the third, one try
// follows every ten seconds.
static void failed() {
    bench_rails_t &r = bench.rails;
    const bool more = r.tries < BENCH_TRIES;
    r.state = more ? BENCH_RAILS_AGAIN : BENCH_RAILS_FAILED;
    r.tries = (u8)(r.tries + more);
    r.waiting = false;
    r.next_at = r.asked_at + (more ? BENCH_TRY_MS : BENCH_PAUSE_MS);
}

void bench_rails_lost(void) {
    answer_clear();
    bench.rails.waiting = false;
    bench.rails.next_at = 0;
}

void bench_rails_back(void) {
    bench.rails.state = BENCH_RAILS_NONE;
}

static prof_t rail_read(u8 i) {
    const u16 base = (u16)(REG_RAIL_BASE + RAIL_WORDS * i);
    return {(u16)zof_reg_get(base), (u16)zof_reg_get((u16)(base + 1)), (u16)zof_reg_get((u16)(base + 2)),
            (u16)zof_reg_get((u16)(base + 3))};
}

// Shows the list that has arrived, and counts a change if it differs from the shown one.
static void take(const prof_t *rails, u8 count) {
    bench_rails_t &r = bench.rails;
    const bool same = r.count == count && memcmp(r.rail, rails, sizeof(r.rail)) == 0;
    if (!same) {
        bench_gate_list(rails, count);
    }
    for (u8 i = 0; i < RAIL_MAX; i++) {
        r.rail[i] = rails[i];
        r.valid[i] = i < count && grid_rail_valid(&rails[i]);
        if (i < count && !r.valid[i] && !same) {
            zof_printf("register link: rail %u cannot be one of a source: type %u, %u to %u mV, %u mA", i,
                       rails[i].type, rails[i].vmin, rails[i].vmax, rails[i].imax);
        }
    }
    r.count = count;
    r.changes += same ? 0 : 1;
    r.state = BENCH_RAILS_SHOWN;
    r.waiting = false;
    r.next_at = 0;
    r.tries = 0;
    bench_gate_rails();
}

void bench_rails_commit(void) {
    bench_rails_t &r = bench.rails;
    const u8 count = (u8)reg_value(REG_RAIL_COUNT, (u16)zof_reg_get(REG_RAIL_COUNT));
    const u64 needed = (1ull << (count * RAIL_WORDS)) - 1;
    const bool whole = r.counted && (r.words & needed) == needed;
    answer_clear();
    prof_t rails[RAIL_MAX] = {};
    bool valid = true;
    for (u8 i = 0; i < count; i++) {
        rails[i] = rail_read(i);
        valid = valid && grid_rail_valid(&rails[i]);
    }
    if (whole && (valid || r.tries >= BENCH_TRIES)) {
        take(rails, count);
        return;
    }
    if (!r.waiting && r.next_at == 0) { // a table that was not requested counts as a failed first try
        r.tries = 1;
        r.asked_at = bench.now;
    }
    if (r.waiting || r.next_at == 0) {
        failed();
    }
}

void bench_rails_tick(void) {
    bench_rails_t &r = bench.rails;
    if (bench.dead) {
        return;
    }
    if (r.waiting && bench.now - r.asked_at >= BENCH_TRY_MS) {
        failed();
    }
    if (r.next_at != 0 && bench.now >= r.next_at) {
        ask();
    } else if (r.doubt && !r.waiting && r.next_at == 0 && bench.now - r.asked_at >= BENCH_PAUSE_MS) {
        bench_rails_ask();
    }
}

bool bench_rail_usable(u8 rail) {
    return bench_live() && bench.rails.state == BENCH_RAILS_SHOWN && rail < bench.rails.count &&
           bench.rails.valid[rail];
}
