#include "zof_args.h"

#include <CLI/CLI.hpp>
#include <string.h>

#include <string>

#include "hardware/uart/zof_hw_port.h"
#include "hardware/uart/zof_hw_replay.h"

enum { STATUS_START = -1, STATUS_DONE = 0, STATUS_WRONG = 2 };

static struct {
    std::string port, replay; // lives as long as the replay, which keeps its file's name
    bool list = false, full = false;
} args;

static const char footer[] =
    "Environment:\n"
    "  ZOF_COM6=PATH            the port of the box, unless --port is given\n"
    "  ZOF_COM5=PATH            the port of a host\n"
    "  ZOF_LINK_TRACE=FILE|-    write every frame on the box's port, in words, to a file or the standard output\n"
    "  ZOF_SCRIPT=FILE          play a session\n"
    "  ZOF_SHOTS=FOLDER         where its pictures go\n"
    "  ZOF_STATE=FOLDER         where the size of the window is kept; empty: nowhere\n\n"
    "Key F11: full screen, and back\n\n"
    "Exit status: 0 the window was closed, or what was asked for is printed; 1 no project to show;\n"
    "2 wrong arguments, or a fault in a session; 3 no memory.\n";

static void options_add(CLI::App &app) {
    app.set_help_flag("-h,--help", "print this help");
    app.footer(footer);
    app.set_version_flag("--version,-V", zof_sdk_get_version(), "print the version of the runtime");
    auto *port = app.add_option("--port", args.port, "the port of the box; auto: the one USB serial adapter");
    port->type_name("PATH|auto");
    app.add_flag("--list-ports", args.list, "print the serial ports with their adapters and who has them");
    app.add_flag("--fullscreen", args.full, "start on the whole screen");
    app.add_option("--replay", args.replay, "show a trace of ZOF_LINK_TRACE as if a box sent it; no port is opened")
        ->type_name("FILE")
        ->excludes(port);
}

static int args_apply(const CLI::App &app) {
    if (args.list) {
        zof_box_port_print();
        return STATUS_DONE;
    }
    if (args.full) {
        zof_disp_set_fullscreen(ZOF_TRUE);
    }
    if (app.count("--replay") && zof_replay_open(args.replay.c_str()) != 0) {
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
