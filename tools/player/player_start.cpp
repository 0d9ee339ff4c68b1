// Starts a project without an application, and drives its clock.
#include <algorithm>

#include "drv/zof_drv_file.h"
#include "drv/zof_loop_in.h"
#include "func/zof_func.h"
#include "player.h"
#include "port/zof_host.h"
#include "port/zof_port.h"
#include "project/zof_prj.h"
#include "zof_plain.h"
#include "zof_start.h"

#include "../system/stream.h"

enum { STEP_MS = 5 };

static u32 clock_ms;

// The normal start of the runtime calls this. The player starts the runtime itself, so it is empty.
extern "C" void zof_main(void) {
}

void player_clock_init() {
    static const zof_clock_t clock = {[] { return clock_ms; }, [](u32 ms) { clock_ms += ms; }};
    if (!player_options.live) {
        zof_clock_set(&clock);
    }
}

void player_clock_advance(u32 ms) {
    while (ms > 0) {
        const u32 step = std::min(ms, (u32)STEP_MS);
        clock_ms += step;
        ms -= step;
        zof_loop_turn();
        inspect_frame_publish();
    }
}

static bool is_project(const std::string &folder) {
    return zof_file_size((folder + "/config/project/zofprj.g").c_str()) >= 0;
}

// Disables sound and the host link, so that the result depends only on the folder.
static void environment_set() {
    variable_set("ZOF_STATE", "none"); // not a full path: the runtime stores nothing
    if (!player_options.live) {
        variable_set("SDL_AUDIODRIVER", "dummy");
    }
}

static std::string runtime_start(const std::string &folder) {
    zof_file_read_only();
    environment_set();
    sdl_window_none();
    if (zof_prj_folder_set(folder.c_str()) != 0) {
        return folder + ": the path is too long";
    }
    lv_init();
    zof_drv_init();
    const zof_prj_t *prj = zof_prj_get_cur();
    if (!prj) {
        return folder + ": the project file cannot be read";
    }
    return zof_prj_check_wh_avlid() == 1 ? folder + ": the project is larger than any display" : "";
}

std::string player_start(const char *dir) {
    if (zof_prj_get_cur() || dis_mutex) {
        return "a project was loaded before; start another player";
    }
    const std::string folder = is_project(dir) ? dir : std::string(dir) + "/res";
    if (!is_project(folder)) {
        return std::string(dir) + ": no config/project/zofprj.g in it or in its res";
    }
    std::string fault = runtime_start(folder);
    fault = fault.empty() ? player_frame_init() : fault;
    if (!fault.empty()) {
        return fault;
    }
    if (player_options.live) {
        zof_func_pwon();
        inspect_events_start();
    }
    inspect_writes_watch();
    return zof_plain_create(nullptr) == 0 ? "" : folder + ": the project file has no views";
}
