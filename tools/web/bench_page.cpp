// The bench panel in a page, with the virtual box at the far end of its line, which runs as a thread.
#include <cstdio>
#include <mutex>
#include <sstream>
#include <string>
#include <thread>

#include <emscripten.h>

#include "zof.h"

#include "drv/zof_lock.h"
#include "hardware/uart/zof_hw_port.h"
#include "run.h"
#include "zof_args.h"

static struct {
    std::mutex lock;
    std::string commands; // from the page, not yet executed
    std::string port;     // requested by the page; empty for no change
} box;

// Moves the link to a port of the page: "box" or "usb". Called on the page's main thread.
extern "C" EMSCRIPTEN_KEEPALIVE void zof_page_port(const char *path) {
    std::lock_guard guard(box.lock);
    box.port = path;
}

// Returns 1 while the link is on the serial port that the user has allowed, 0 on the virtual box. Any thread.
extern "C" EMSCRIPTEN_KEEPALIVE int zof_page_real() {
    zof_uart_info_t now = {};
    return zof_box_port_info(&now) == 0 && std::string(now.path) == "usb";
}

// Runs a command of a script: "fault mute=1", "load 4.7", "unplug". Called on the page's main thread.
extern "C" EMSCRIPTEN_KEEPALIVE void zof_box_command(const char *text) {
    std::lock_guard guard(box.lock);
    box.commands += "0 " + std::string(text) + "\n";
}

// The link can only be moved to the next port, and the last one is followed by the first.
static void port_move(const std::string &path) {
    enum { PORTS_MAX = 3 };
    const zof_lock gui(dis_mutex);
    zof_uart_info_t now = {};
    for (int i = 0; i < PORTS_MAX && zof_box_port_info(&now) == 0 && path != now.path; i++) {
        zof_box_port_next();
    }
}

static void commands_take(simulation *sim) {
    std::string text;
    std::string port;
    {
        std::lock_guard guard(box.lock);
        text.swap(box.commands);
        port.swap(box.port);
    }
    if (!port.empty()) {
        port_move(port);
    }
    if (!text.empty()) {
        std::istringstream in(text);
        const std::string fault = script_read(*sim, in, "page");
        if (!fault.empty()) {
            fprintf(stderr, "%s\n", fault.c_str());
        }
    }
}

static void box_run() {
    static simulation sim;
    sim.box.rails = board_default_rails(RAIL_MAX);
    sim.box.noise = true;
    load_parse("10", sim.box.load);
    run_begin(sim, false);
    for (;;) {
        commands_take(&sim);
        run_step(sim);
    }
}

int main(int argc, char **argv) {
    std::thread(box_run).detach();
    zof_app_set(&zof_bench_app);
    return zof_run(argc, argv);
}
