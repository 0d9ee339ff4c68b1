#include "zof_args.h"

#include <CLI/CLI.hpp>
#include <stdlib.h>
#include <string.h>

#include <algorithm>
#include <string>

#include "bench/bench.h"
#include "bench/bench_import.h"
#include "bench/bench_record.h"
#include "bench_look.h"
#include "hardware/uart/zof_hw_port.h"
#include "hardware/uart/zof_hw_replay.h"
#include "net/net_scpi.h"
#include "zof.h"

enum { STATUS_START = -1, STATUS_DONE = 0, STATUS_WRONG = 2, STATUS_LOG = 4, LOG_CHECK_MS = 200 };

static struct {
    std::string port, replay; // `replay` stays valid, because the replay keeps a pointer to it
    bool list = false, full = false, headless = false;
    std::string record, log, import, scpi;
} args;

static const char environment[] =
    "Environment:\n"
    "  ZOF_COM6=PATH            the port of the box, unless --port is given\n"
    "  ZOF_COM5=PATH            the port of a host\n"
    "  ZOF_LINK_TRACE=FILE|-    write every frame on the box's port, in words, to a file or the standard output\n"
    "  ZOF_SCRIPT=FILE          play a session\n"
    "  ZOF_SHOTS=FOLDER         where its pictures go\n"
    "  ZOF_STRICT=1             do not start with a project that has errors\n"
    "  ZOF_STATE=FOLDER         where the size of the window is kept; empty: nowhere\n\n"
    "Exit status: 0 the window was closed, or what was asked for is printed; 1 no project to show;\n"
    "2 wrong arguments, or a fault in a session; 3 no memory; 4 the file of --log cannot be written.\n";

static std::string keys_text() {
    std::string text = "Keys:\n";
    for (const panel_key_t &key : panel_keys) {
        const size_t letters = (size_t)std::count_if(key.caps, key.caps + strlen(key.caps), [](char c) {
            return (c & 0xC0) != 0x80;
        }); // counts UTF-8 characters
        text += std::string("  ") + key.caps + std::string(25 - letters, ' ') + key.does + "\n";
    }
    return text + "\n";
}

static void options_add(CLI::App &app) {
    app.set_help_flag("-h,--help", "print this help");
    app.allow_windows_style_options(false); // "/tmp/res" is a path on all systems
    app.footer(keys_text() + environment);
    app.set_version_flag("--version,-V", zof_sdk_get_version(), "print the version of the runtime");
    auto *port = app.add_option("--port", args.port, "the port of the box; auto: the one USB serial adapter");
    port->type_name("PATH|auto");
    app.add_flag("--list-ports", args.list, "print the serial ports with their adapters and who has them");
    app.add_flag("--fullscreen", args.full, "start on the whole screen");
    auto *replay =
        app.add_option("--replay", args.replay, "show a trace of ZOF_LINK_TRACE as if a box sent it; no port is opened")
            ->type_name("FILE");
    replay->excludes(port);
    app.add_option("--record", args.record, "the folder of recordings and pictures; else the user's documents")
        ->type_name("DIR")
        ->check(CLI::ExistingDirectory);
    auto *import = app.add_option("--import", args.import, "show a recording in the Trend page");
    import->type_name("FILE");
    app.add_option("--log", args.log, "record to a new file, or to the standard output, without a window")
        ->type_name("FILE|-")
        ->excludes(import);
    app.add_option("--scpi", args.scpi,
                   "let programs measure and set by SCPI; without ADDRESS only those of this machine")
        ->type_name("[ADDRESS:]PORT")
        ->excludes(replay);
    app.add_flag("--headless", args.headless, "show no window; needs no display");
}

// Prepares a recording without a window. The program's own messages go to the error stream.
static int log_prepare() {
    if (args.log != "-" && zof_file_kind(args.log.c_str()) != ZOF_FILE_NONE) {
        fprintf(stderr, "--log: %s exists\n", args.log.c_str());
        return STATUS_WRONG;
    }
    zof_disp_headless();
    zof_printf_to_errors();
    return STATUS_START;
}

static void log_check(lv_timer_t *) {
    if (!record_runs()) { // the reason has been logged
        _Exit(STATUS_LOG);
    }
}

void zof_args_begin(void) {
    if (!args.log.empty()) {
        record_log(args.log.c_str());
        lv_timer_create(log_check, LOG_CHECK_MS, nullptr);
    }
    if (!args.replay.empty()) { // every page shows its name, and touches have no effect
        const size_t slash = args.replay.find_last_of('/');
        const char *name = args.replay.c_str() + (slash == std::string::npos ? 0 : slash + 1);
        snprintf(bench.remote, sizeof(bench.remote), "%.*s", (int)sizeof(bench.remote) - 1, name);
        bench.replay = true;
    }
}

static int args_apply(const CLI::App &app) {
    if (args.list) {
        zof_box_port_print();
        return STATUS_DONE;
    }
    if (args.full) {
        zof_disp_set_fullscreen(ZOF_TRUE);
    }
    if (args.headless) {
        zof_disp_headless();
    }
    if (app.count("--replay") && zof_replay_open(args.replay.c_str()) != 0) {
        return STATUS_WRONG;
    }
    if (app.count("--record")) {
        record_folder_set(args.record.c_str());
    }
    if ((app.count("--import") && import_file(args.import.c_str()) < 0) ||
        (app.count("--log") && log_prepare() == STATUS_WRONG)) {
        return STATUS_WRONG;
    }
    if (app.count("--scpi") && net_scpi_listen(args.scpi.c_str()) != 0) { // after --log, which redirects messages
        return STATUS_WRONG;
    }
    return app.count("--port") && zof_box_port_set(args.port.c_str()) != 0 ? STATUS_WRONG : STATUS_START;
}

// The build calls "zof_bench t -tSTAMP"; zof_run handles that.
static bool is_build_call(int argc, char **argv) {
    return argc == 3 && strcmp(argv[1], "t") == 0 && strncmp(argv[2], "-t", 2) == 0;
}

int zof_args_take(int *argc, char **argv) {
    if (is_build_call(*argc, argv)) {
        return STATUS_START;
    }
    CLI::App app("The front panel of a USB Power Delivery bench box.", "zof_bench");
    options_add(app);
    try {
        app.parse(*argc, argv);
    } catch (const CLI::ParseError &e) {
        return app.exit(e) == 0 ? STATUS_DONE : STATUS_WRONG;
    }
    *argc = 1;
    return args_apply(app);
}
