// SCPI with a box: arbitrary input from two clients. The input is a series of steps, each a byte for its kind and its
// length, and then its bytes; a length of 0 lets time pass.
#include "fuzz.h"

#include "bench/bench_record.h"
#include "scpi_box.h"

enum { SECOND = 128, LENGTH = 127, PASS_MS = 200, DEAF = 1, MUTE = 2, LOCAL = 4, BAD_RAILS = 8, LEAVE = 16 };

static scpi_client_t second;

// Values sent are on the rail's grid, and nothing is turned on or applied while readings are stale.
static void judge() {
    u16 mv = 0, ma = 0;
    for (const auto &[addr, value] : std::exchange(scpi_box.sent, {})) {
        mv = addr == REG_ADJ_MV ? value : mv;
        ma = addr == REG_ADJ_MA ? value : ma;
        if (addr == REG_RAIL_SELECT || (addr == REG_OUT_REQ && value != 0)) {
            fuzz_must(bench_age() == BENCH_LIVE, "nothing is set on old data");
        }
        if (addr == REG_RAIL_SELECT) {
            fuzz_must(bench_rail_usable((u8)value), "a rail that is applied is usable");
            const prof_t &rail = bench.rails.rail[value];
            fuzz_must(!prof_adjustable(&rail) || (grid_has(grid_volts(&rail), mv) && grid_has(grid_amperes(&rail), ma)),
                      "applied values are on the rail's grid");
        }
    }
}

static void check(scpi_client_t &client) {
    judge();
    fuzz_must(client.line.size() <= SCPI_LINE_MAX && client.errors <= SCPI_ERRORS, "what a client holds is limited");
    fuzz_must(client.out.empty() || client.out.back() == '\n', "answers are whole lines");
    for (const char c : client.out) {
        fuzz_must(c == '\n' || (c >= ' ' && c <= '~'), "answers are text");
    }
    client.out.clear();
    fuzz_must((bench.remote[0] != '\0') == (scpi_box.client.holds || second.holds), "the panel shows who holds it");
}

static void feed(scpi_client_t &client, const std::vector<u8> &said) {
    size_t at = scpi_feed(&client, (const char *)said.data(), said.size());
    check(client);
    for (u32 i = 0; i < 1000 && (at < said.size() || scpi_waits(&client)); i++) {
        scpi_box_pass(4 * SCPI_BOX_STEP_MS);
        at += scpi_feed(&client, (const char *)said.data() + at, said.size() - at);
        check(client);
    }
    fuzz_must(at == said.size(), "no command waits for ever");
}

static void happen(u8 what) {
    scpi_box.deaf = (what & DEAF) != 0;
    scpi_box.mute = (what & MUTE) != 0;
    if ((what & LOCAL) != 0) {
        bench.remote[0] = '\0';
    }
    if ((what & BAD_RAILS) != 0) {
        board_set_rails(scpi_box.box,
                        {{RAIL_PPS, 5000, 3000, 1000}, {7, 1, 60000, 9000}, {RAIL_AVS, 9050, 15001, 2225}});
    }
    if ((what & LEAVE) != 0) {
        scpi_close(&second);
        scpi_open(&second, "127.0.0.2");
    }
    scpi_box_pass(PASS_MS * (1u + (what >> 5)));
}

void fuzz_open() {
    record_folder_set("/nowhere"); // a recording needs a file
}

void fuzz_one(fuzz_input &in) {
    scpi_close(&second);
    scpi_box_open();
    scpi_open(&second, "127.0.0.2");
    while (in.size) {
        const u8 kind = fuzz_byte(in);
        const u32 length = kind & LENGTH;
        if (length == 0) {
            happen(fuzz_byte(in));
            scpi_feed(&second, nullptr, 0);
            scpi_feed(&scpi_box.client, nullptr, 0);
        } else {
            feed((kind & SECOND) != 0 ? second : scpi_box.client, fuzz_bytes(in, length));
        }
        judge();
    }
}
