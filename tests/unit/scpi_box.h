// The panel's model at a simulated box, with a client of SCPI. The box answers as time passes, not immediately.
#ifndef SCPI_BOX_H
#define SCPI_BOX_H

#include <utility>
#include <vector>

#include "bench/bench_scpi.h"
#include "board.h"
#include "frames.h"
#include "port/zof_host.h"
#include "register_line.h"

enum { SCPI_BOX_STEP_MS = 20 };

struct scpi_box_t {
    board box;
    std::vector<std::pair<u16, u16>> queue, sent; // on their way to the box; all since they were last asked for
    u32 clock_ms;
    bool mute; // the box sends nothing
    bool deaf; // the box receives nothing
    scpi_client_t client;
};
inline scpi_box_t scpi_box;

inline s32 scpi_box_line(zof_drv_t *, const u8 *data, u32 size) {
    frame_report_words(bytes(data, data + size), [](u16 addr, u16 value) {
        scpi_box.queue.emplace_back(addr, value);
        scpi_box.sent.emplace_back(addr, value);
    });
    return (s32)size;
}

inline void scpi_box_write(u16 addr, const std::vector<u16> &words) {
    bytes frame = frame_write(addr, words);
    if (!scpi_box.mute) {
        recive_data_handle(frame.data(), (u32)frame.size());
    }
}

inline void scpi_box_pass(u32 ms) {
    for (u32 t = 0; t < ms; t += SCPI_BOX_STEP_MS) {
        scpi_box.clock_ms += SCPI_BOX_STEP_MS;
        for (const auto &[addr, value] : std::exchange(scpi_box.queue, {})) {
            if (!scpi_box.deaf) {
                board_report(scpi_box.box, addr, value);
            }
        }
        board_step(scpi_box.box, SCPI_BOX_STEP_MS);
        bench_tick();
    }
}

// A box that has answered the first requests: its output is off and these rails are known.
inline void scpi_box_open(const std::vector<prof_t> &rails = board_default_rails()) {
    static constexpr zof_clock_t clock = {[] { return scpi_box.clock_ms; }, [](u32) {}};
    static constexpr zof_hw_client_t link = {bench_take, bench_take_word, bench_tick};
    zof_clock_set(&clock);
    register_line_open(scpi_box_line);
    zof_hw_client_set(&link);
    scpi_close(&scpi_box.client);
    scpi_box = {};
    scpi_box.box.rails = rails;
    scpi_box.box.noise = false;
    scpi_box.box.write = scpi_box_write;
    bench_start();
    const bench_port_t port = {.state = BENCH_PORT_OPEN, .path = "/dev/ttyUSB0"};
    bench_take_port(&port);
    board_power_up(scpi_box.box);
    scpi_box_pass(400);
    scpi_box.sent.clear();
    scpi_open(&scpi_box.client, "192.168.1.20");
}

#endif
