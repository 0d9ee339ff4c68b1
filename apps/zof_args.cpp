#include "zof_args.h"

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "bench/bench.h"
#include "bench/bench_import.h"
#include "bench/bench_record.h"
#include "bench_look.h"
#include "hardware/uart/zof_hw_port.h"
#include "hardware/uart/zof_hw_replay.h"
#include "net/net_scpi.h"

enum { LOG_CHECK_MS = 200, CAPS_WIDTH = 25 };

static const char *log_file; // what --log names, or null

static int file_fault(const char *option, const char *value, const char *what) {
    fprintf(stderr, "zof_bench: %s %s: %s\n", option, value, what);
    return ZOF_EXIT_FILES;
}

static int list_take(const char *) {
    zof_box_port_print();
    return ZOF_EXIT_GOOD;
}

static int replay_take(const char *value) {
    return zof_replay_open(value) == 0 ? -1 : ZOF_EXIT_FILES;
}

static int record_take(const char *value) {
    if (!PathExist(value)) {
        return file_fault("--record", value, "there is no such folder");
    }
    record_folder_set(value);
    return -1;
}

static int import_take(const char *value) {
    return import_file(value) >= 0 ? -1 : ZOF_EXIT_FILES;
}

// The program's own messages go to the error stream.
static int log_take(const char *value) {
    if (strcmp(value, "-") != 0 && zof_file_kind(value) != ZOF_FILE_NONE) {
        return file_fault("--log", value, "exists");
    }
    log_file = value;
    zof_disp_headless();
    zof_printf_to_errors();
    return -1;
}

static int scpi_take(const char *value) {
    return net_scpi_listen(value) == 0 ? -1 : ZOF_EXIT_USAGE;
}

// A path alone is that of the box's port; "N=PATH" is that of any port, as for every program.
static int port_take(const char *value) {
    const size_t digits = strspn(value, "0123456789");
    if (digits && value[digits] == '=') {
        return zof_option_port(value);
    }
    return zof_box_port_set(value) == 0 ? -1 : ZOF_EXIT_USAGE;
}

static const zof_option_t options[] = {
    {"--list-ports", nullptr, nullptr, "print the serial ports with their adapters and who has them", nullptr,
     list_take},
    {"--replay", nullptr, "FILE", "show a trace of ZOF_LINK_TRACE as if a box sent it; no port is opened", "--port",
     replay_take},
    {"--record", nullptr, "DIR", "the folder of recordings and pictures; else the user's documents", nullptr,
     record_take},
    {"--import", nullptr, "FILE", "show a recording in the Trend page", nullptr, import_take},
    {"--log", nullptr, "FILE|-", "record to a new file, or to the standard output, without a window", "--import",
     log_take},
    {"--scpi", nullptr, "[ADDRESS:]PORT",
     "let programs measure and set by SCPI; without ADDRESS only those of this machine", "--replay", scpi_take},
    {"--port", nullptr, "PATH|auto|N=PATH",
     "the port of the box, auto: the one USB serial adapter; or any port by its number", nullptr, port_take},
};

static const zof_variable_t variables[] = {
    {"ZOF_COM6=PATH", "the port of the box"},
    {"ZOF_COM5=PATH", "the port of a host"},
    {"ZOF_LINK_TRACE=FILE|-", "write every frame on the box's port, in words, to a file or the standard output"},
};

static void keys_print() {
    puts("\nKeys:");
    for (const panel_key_t &key : panel_keys) {
        int letters = 0;
        for (const char *at = key.caps; *at; at++) {
            letters += (*at & 0xC0) != 0x80; // characters of UTF-8
        }
        printf("  %s%*s%s\n", key.caps, CAPS_WIDTH - letters, "", key.does);
    }
}

const zof_app_t zof_bench_app = {
    .about = "The front panel of a USB Power Delivery bench box.",
    .options = options,
    .option_count = sizeof(options) / sizeof(options[0]),
    .variables = variables,
    .variable_count = sizeof(variables) / sizeof(variables[0]),
    .more = keys_print,
};

static void log_check(lv_timer_t *) {
    if (!record_runs()) { // the reason has been logged
        _Exit(ZOF_EXIT_FILES);
    }
}

void zof_args_begin(void) {
    if (log_file) {
        record_log(log_file);
        lv_timer_create(log_check, LOG_CHECK_MS, nullptr);
    }
    const char *replay = zof_replay_file();
    if (replay) { // every page shows its name, and touches have no effect
        snprintf(bench.remote, sizeof(bench.remote), "%.*s", (int)sizeof(bench.remote) - 1,
                 replay + zof_path_parent(replay));
        bench.replay = true;
    }
}
