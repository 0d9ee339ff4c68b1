// Scripts of the virtual board: the input is a script, which runs on a clock of its own.
#include <sstream>

#include "fuzz.h"
#include "hardware/uart/zof_hw_text.h"
#include "script.h"

enum { STEPS = 200, STEP_MAX_MS = 2000 };

void fuzz_open() {
}

static void board_check(const board &box) {
    fuzz_must(box.rails.size() <= RAIL_MAX, "there are no more rails than the table holds");
    fuzz_must(box.rail == RAIL_NONE || box.rail < box.rails.size(), "the active rail is in the table");
    fuzz_must(box.rail != RAIL_NONE || !box.on, "without a rail the output is off");
    fuzz_must(box.mv >= 0 && box.mv <= 65535 && box.ma >= 0 && box.ma <= 65535, "the readings fit their registers");
}

void fuzz_one(fuzz_input &in) {
    simulation sim;
    sim.send = [&sim](const bytes &frame) {
        fuzz_must(!frame_text(frame).empty(), "every frame is described");
        wire_send(sim.line, frame, sim.now_ms);
    };
    sim.box.write = [&sim](u16 addr, const std::vector<u16> &words) { sim.send(frame_write(addr, words)); };
    sim.box.rails = board_default_rails();
    std::istringstream text(fuzz_text(in));
    if (!script_read(sim, text, "script").empty()) {
        return;
    }
    board_power_up(sim.box);
    for (u32 i = 0; i < STEPS && !sim.script.empty() && !sim.ended; i++) {
        const double due = sim.script.front().at_ms;
        board_step(sim.box, std::min(due - sim.now_ms, (double)STEP_MAX_MS));
        sim.now_ms = due;
        script_run(sim);
        wire_flush(sim.line, due);
        board_check(sim.box);
    }
    simulation_unplug(sim);
}
