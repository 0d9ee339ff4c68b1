// zof_player: see docs/player.md.
#include <deque>
#include <mutex>

#include <CLI/CLI.hpp>

#include "drv/zof_drv.h"
#include "drv/zof_lock.h"
#include "drv/zof_loop_in.h"
#include "player.h"
#include "player_picture.h"

player_options_t player_options;

// Lines passed from the reading thread to the main thread.
static struct {
    std::mutex lock;
    std::deque<std::string> lines;
    bool ended;
} input;

static void line_put(const std::string *line) {
    std::lock_guard guard(input.lock);
    if (line) {
        input.lines.push_back(*line);
    }
    input.ended = input.ended || !line;
    zof_loop_wake(nullptr);
}

static const char TOO_LONG[] = "\x01"; // not valid JSON, so the command layer reports it

static void input_read(void *) {
    std::string line;
    for (int r = 0; (r = player_line_read(&line)) != 0;) {
        line = r < 0 ? TOO_LONG : line;
        line_put(&line);
    }
    line_put(nullptr);
}

static bool line_take(std::string *line) {
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

// Runs without real time. Only commands advance the clock, so that the same lines produce the same pictures.
static void run_virtual() {
    std::string line;
    for (int r = 0; !player_ended() && (r = player_line_read(&line)) != 0;) {
        player_line_run(r < 0 ? TOO_LONG : line);
    }
}

// Runs in real time. Until a project is loaded, there is no main loop to run.
static void run_live() {
    std::string line;
    while (!player_started() && !player_ended()) {
        const int r = player_line_read(&line);
        if (r == 0) {
            return;
        }
        player_line_run(r < 0 ? TOO_LONG : line);
    }
    zof_thread_del(zof_thread_create("player lines", input_read, nullptr, 0, 7));
    while (!player_ended() && !input_ended()) {
        u32 sleep_ms = 0;
        {
            zof_lock gui(dis_mutex);
            while (!player_ended() && line_take(&line)) {
                player_line_run(line);
            }
            sleep_ms = zof_loop_turn();
            player_picture_publish();
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
    CLI11_PARSE(app, argc, argv);
    player_io_init();
    zof_system_start();
    player_messages_init();
    player_clock_init();
    player_options.live ? run_live() : run_virtual();
    cJSON *event = player_event("ended");
    player_send(event);
    _Exit(0); // threads may still be running, so nothing is torn down
}
