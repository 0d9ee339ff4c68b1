#include "run.h"

#include <cerrno>
#include <chrono>
#include <cstdio>

#include "hardware/uart/zof_hw_text.h"

static double plugged_ms, flooded_ms;
static bool trace;
static int say_fault; // errno of the first line that could not be printed

static double now_ms() {
    using clock = std::chrono::steady_clock;
    static const clock::time_point start = clock::now();
    return std::chrono::duration<double, std::milli>(clock::now() - start).count();
}

void run_say(const char *who, const std::string &what) {
    const bool printed = printf("%9.3f  %-14s %s\n", now_ms() / 1000, who, what.c_str()) >= 0 && fflush(stdout) == 0;
    say_fault = printed || say_fault ? say_fault : errno;
}

int run_say_fault() {
    return say_fault;
}

static void frame_send(simulation &sim, const bytes &frame) {
    if (wire_send(sim.line, frame, now_ms()) && trace) {
        run_say("board > panel", frame_text(frame));
    }
}

static void frame_take(simulation &sim, const bytes &frame) {
    if (trace) {
        run_say("panel > board", frame_text(frame));
    }
    frame_report_words(frame, [&sim](uint16_t addr, uint16_t value) { board_report(sim.box, addr, value); });
}

// Sends bursts of readings with a silence after each, so that the line is full but messages still end.
static void flood(simulation &sim, double now) {
    const double period = 20;
    if (sim.line.faults.flood <= 0 || now - flooded_ms < period) {
        return;
    }
    size_t left = (size_t)(sim.line.faults.flood * (now - std::max(flooded_ms, now - 2 * period)) / 1000);
    flooded_ms = now;
    static uint16_t count;
    bytes burst;
    for (; left >= 8; left -= 8) {
        const bytes f = frame_write(REG_LIVE_MA, {count++});
        burst.insert(burst.end(), f.begin(), f.end());
    }
    wire_send(sim.line, burst, now);
}

static void replug(simulation &sim, double now) {
    const double period = sim.line.faults.replug * 1000;
    if (period <= 0) {
        return;
    }
    const double since = now - plugged_ms;
    if (sim.line.fd >= 0 && since > period) {
        run_say("line", "unplugged");
        simulation_unplug(sim);
    } else if (sim.line.fd < 0 && since > period + 1000) {
        plugged_ms = now; // even on failure, so that the next attempt waits for the next interval
        if (wire_plug(sim.line)) {
            run_say("line", "plugged in as " + sim.line.slave_name);
        }
    }
}

static void receive(simulation &sim) {
    uint8_t buffer[1024];
    long n;
    while ((n = wire_read(sim.line, buffer, sizeof(buffer))) > 0) {
        frame_feed(sim.finder, buffer, (size_t)n);
    }
    if (n < 0) {
        run_say("line", "the far end is gone");
        wire_lost(sim.line);
        simulation_unplug(sim);
    }
}

bool run_begin(simulation &sim, bool traced) {
    trace = traced;
    sim.send = [&sim](const bytes &frame) { frame_send(sim, frame); };
    sim.box.write = [&sim](uint16_t addr, const std::vector<uint16_t> &words) {
        frame_send(sim, frame_write(addr, words));
    };
    sim.finder.found = [&sim](const bytes &frame) { frame_take(sim, frame); };
    if (!wire_plug(sim.line)) {
        return false;
    }
    board_power_up(sim.box);
    sim.now_ms = now_ms();
    return true;
}

void run_step(simulation &sim) {
    const double last = sim.now_ms;
    const double due = wire_flush(sim.line, last);
    wire_wait({{&sim.line, false}}, due >= 0 && due < 10 ? (int)due + 1 : 10);
    receive(sim);
    sim.now_ms = now_ms();
    fputs(script_run(sim).c_str(), stderr);
    board_step(sim.box, sim.now_ms - last);
    flood(sim, sim.now_ms);
    replug(sim, sim.now_ms);
}
