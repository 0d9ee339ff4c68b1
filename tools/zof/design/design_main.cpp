// The start and the loop of `zof design`.
#include <cstdio>

#include "check/zof_check.h"
#include "design_in.h"
#include "design_net.h"
#include "design_page_files.h"
#include "drv/zof_drv.h"
#include "drv/zof_drv_file.h"
#include "drv/zof_drv_net.h"
#include "lvgl.h"
#include "zof_lib/zof_stdio.h"

enum { STEP_MS = 50, SAVE_MS = 1000 };

design_t design;

static std::string token_make() {
    u8 bytes[16];
    std::string out;
    if (zof_net_random(bytes, sizeof(bytes)) != 0) {
        return "";
    }
    for (const u8 byte : bytes) {
        char two[3];
        snprintf(two, sizeof(two), "%02x", byte);
        out += two;
    }
    return out;
}

static int fail(const std::string &what, int status) {
    fprintf(stderr, "zof design: %s\n", what.c_str());
    return status;
}

// Returns the file in which undo is kept for this project; empty if nothing is kept.
static std::string state_path() {
    u64 hash = 0xcbf29ce484222325u; // FNV-1a
    for (const char c : design.folder) {
        hash = (hash ^ (u8)c) * 0x100000001b3u;
    }
    char name[64];
    char path[1024];
    snprintf(name, sizeof(name), "design-%016llx", (unsigned long long)hash);
    return zof_file_state_path(path, sizeof(path), name, ZOF_TRUE) == 0 ? path : "";
}

std::string design_open(const std::string &dir) {
    char folder[1024];
    char real[1024];
    if (zof_check_find(dir.c_str(), folder, sizeof(folder)) != 0) {
        return dir + ": there is no config/project/zofprj.g in it, and it is not an empty folder for a new project";
    }
    design.folder = zof_file_real_path(folder, real, sizeof(real)) == 0 ? std::string(real) + "/" : folder;
    std::string error;
    design.files = design_files_open(design.folder, state_path(), &error);
    return error;
}

static std::string net_start(design_net_options_t *net, const design_options_t &options) {
    for (const auto &file : DESIGN_PAGE_FILES) {
        net->files.push_back({file.name, file.data, (u32)(file.end - file.data)});
    }
    net->port = options.port;
    net->folder = options.page;
    net->catalogue = options.catalogue;
    net->token = token_make();
    net->wake = [] { stream_wake(design.wake); };
    return net->token.empty() ? "the system has no random numbers" : design_net_start(net);
}

static void messages_take() {
    design_net_message_t message;
    stream_wake_clear(design.wake);
    while (design_net_take(&message)) {
        switch (message.what) {
        case DESIGN_NET_OPENED:
            design_page_opened(message.page);
            break;
        case DESIGN_NET_CLOSED:
            design_page_closed(message.page);
            break;
        case DESIGN_NET_TEXT:
            design_request_run(message.page, message.text);
            break;
        }
    }
}

// Writes again what could not be written: a disk may have room again without a sign. Reports when the reason changes,
// or ends.
static void save_step() {
    static u32 last;
    static std::string reported;
    const std::string error = design_files_error(design.files);
    if (error != reported) {
        reported = error;
        cJSON *event = design_event_make("saved");
        cJSON_AddItemToObject(event, "undo", design_undo_json(design.files));
        design_event(event);
        design_check_ask();
    }
    if (!error.empty() && zof_sys_time_ms() - last >= SAVE_MS) {
        last = zof_sys_time_ms();
        design_files_save(design.files);
    }
}

int design_run(const design_options_t &options) {
    static design_net_options_t net;
    design.loud = options.loud;
    design.wake = stream_wake_make();
    design.dir = options.dir;
    const bool fresh = design_new_may(options.dir);
    std::string fault = fresh ? "" : design_open(options.dir);
    if (!fault.empty()) {
        return fail(fault, ZOF_EXIT_FILES);
    }
    lv_init(); // the checker's decoders of pictures and fonts need it
    fault = net_start(&net, options);
    fault = fault.empty() && !fresh ? design_canvas_start() : fault;
    if (!fault.empty()) {
        return fail(fault, ZOF_EXIT_FAILURE);
    }
    const std::string address = "http://127.0.0.1:" + std::to_string(net.port) + "/?token=" + net.token;
    printf("%s\n", address.c_str());
    fflush(stdout);
    if (options.open) {
        browser_open(address);
    }
    for (;;) {
        if (design.files) {
            design_canvas_step(STEP_MS);
            design_check_step();
            save_step();
        } else {
            view_player_wait({design_tile_player()}, -1, STEP_MS, design.wake);
        }
        design_tile_step();
        messages_take();
    }
}
