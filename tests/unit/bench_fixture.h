// The model of the bench panel for tests: its clock, what it sends, and a board's words.
#ifndef BENCH_FIXTURE_H
#define BENCH_FIXTURE_H

#include <utility>

#include "bench/bench.h"
#include "board.h"
#include "frames.h"
#include "port/zof_host.h"
#include "register_line.h"
#include "zof_test.h"

using reports = std::vector<std::pair<u16, u16>>;
inline reports sent;               // since the last said()
inline u32 clock_ms = 4294960000u; // soon wraps

inline s32 line_send(zof_drv_t *, const u8 *data, u32 size) {
    frame_report_words(bytes(data, data + size), [](u16 addr, u16 value) { sent.emplace_back(addr, value); });
    return (s32)size;
}

inline reports said() {
    return std::exchange(sent, {});
}

inline void pass(u32 ms) {
    for (u32 step; ms > 0; ms -= step) {
        step = ms < 20 ? ms : 20;
        clock_ms += step;
        bench_tick();
    }
}

// Readings go on while time passes.
inline void live(u32 ms, u16 mv = 5000, u16 ma = 500) {
    for (u32 t = 0; t < ms; t += 100) {
        bench_take(REG_LIVE_MV, mv);
        bench_take(REG_LIVE_MA, ma);
        bench_take(REG_LIVE_DW, (u16)(mv * ma / 100000));
        pass(ms - t < 100 ? ms - t : 100);
    }
}

inline void rails_send(const std::vector<prof_t> &rails, u16 active = RAIL_NONE) {
    board box;
    box.rails = rails;
    box.rail = active;
    box.write = [](u16 addr, const std::vector<u16> &words) {
        bytes f = frame_write(addr, words);
        recive_data_handle(f.data(), (u32)f.size());
    };
    board_send_rails(box);
}

inline void open_port(bench_port_e state = BENCH_PORT_OPEN) {
    const bench_port_t port = {.state = state, .path = "/dev/ttyUSB0"};
    bench_take_port(&port);
}

// A box that has been asked and has answered: output off, the first of thirteen rails in force.
inline void start() {
    static constexpr zof_clock_t clock = {[] { return clock_ms; }, [](u32) {}};
    static constexpr zof_hw_client_t client = {bench_take, bench_take_word, bench_tick};
    zof_clock_set(&clock);
    register_line_open(line_send);
    zof_hw_client_set(&client);
    bench_start();
    open_port();
    bench_take(REG_BRIGHT, 80);
    bench_take(REG_BOOT_STATE, 0);
    bench_take(REG_AUTO_ARM, 0);
    bench_take(REG_OUT_STATE, 0);
    rails_send(board_default_rails(), 0);
    live(100, 0, 0);
    said();
}

inline void applied(bench_choice_t choice) {
    REQUIRE(bench_apply(choice, true));
    bench_take(REG_RAIL_ACTIVE, choice.rail);
    said();
}

#endif
