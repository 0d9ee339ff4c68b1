// zof_player: see docs/player.md.
#include <deque>
#include <mutex>

#include <CLI/CLI.hpp>

#include "drv/zof_drv.h"
#include "drv/zof_drv_end.h"
#include "drv/zof_lock.h"
#include "drv/zof_loop_in.h"
#include "player.h"
#include "zof_lib/zof_stdio.h"

player_options_t player_options;

// Lines passed from the reading thread to the main thread.
static struct {
    std::mutex lock;
    std::deque<inspect_reader_t> lines;
    bool ended;
} input;

static void line_put(const inspect_reader_t *line) {
    std::lock_guard guard(input.lock);
    if (line) {
        input.lines.push_back(*line);
    }
    input.ended = input.ended || !line;
    zof_loop_wake(nullptr);
}

static void input_read(void *) {
    inspect_reader_t line = {};
    while (player_line_read(&line)) {
        line_put(&line);
    }
    line_put(nullptr);
}

static bool line_take(inspect_reader_t *line) {
    std::lock_guard guard(input.lock);
    if (input.lines.empty()) {
        return false;
    }
    *line = input.lines.front();
    input.lines.pop_front();
    return true;
}

static bool input_ended() {
    std::lock_guard guard(input.lock);
    return input.ended && input.lines.empty();
}

static void line_run(const inspect_reader_t *line) {
    inspect_line_run(&player_parent, line);
}

// Runs without real time. Only commands advance the clock, so that the same lines produce the same pictures.
static void run_virtual() {
    inspect_reader_t line = {};
    while (!player_ended() && player_line_read(&line)) {
        line_run(&line);
    }
}

// Runs in real time. Until a project is loaded, there is no main loop to run.
static void run_live() {
    inspect_reader_t line = {};
    while (!inspect_started() && !player_ended()) {
        if (!player_line_read(&line)) {
            return;
        }
        line_run(&line);
    }
    zof_thread_del(zof_thread_create("player lines", input_read, nullptr, 0, 7));
    while (!player_ended() && !input_ended()) {
        u32 sleep_ms = 0;
        {
            zof_lock gui(dis_mutex);
            while (!player_ended() && line_take(&line)) {
                line_run(&line);
            }
            sleep_ms = zof_loop_turn();
            inspect_frame_publish();
        }
        if (!player_ended()) {
            zof_loop_wait(sleep_ms);
        }
    }
}

int main(int argc, char **argv) {
    CLI::App app("Runs a project folder without a program, driven by lines of JSON: {\"do\": \"help\"} lists them.");
    app.add_flag("--live", player_options.live,
                 "real time and the serial link, instead of time that only commands advance");
    app.add_option("--shared", player_options.shared, "the file of the picture, which is mapped")->type_name("FILE");
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError &fault) {
        return app.exit(fault) == 0 ? ZOF_EXIT_GOOD : ZOF_EXIT_USAGE;
    }
    player_io_init();
    zof_system_start();
    inspect_messages_start(false);
    inspect_peer_add(&player_parent);
    inspect_player_set(&player_commands);
    player_clock_init();
    player_options.live ? run_live() : run_virtual();
    inspect_send(inspect_event("ended"));
    zof_end_run();
    _Exit(0); // threads may still be running, so nothing is torn down
}
