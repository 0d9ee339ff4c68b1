// The commands that only a player has; all others are those of the inspector.
#include "hmi/zof_hmi.h"
#include "inspect/zof_inspect.h"
#include "player.h"

enum { ADVANCE_MAX_MS = 3600000 };

static bool ended;

bool player_ended() {
    return ended;
}

// Restores the state and applies the choices of a project that has just started.
static std::string state_apply(const cJSON *args) {
    const cJSON *state = cJSON_GetObjectItemCaseSensitive(args, "state");
    const std::string fault = state ? inspect_restore(state) : "";
    return fault.empty() ? inspect_choose(args) : fault;
}

static std::string load(const cJSON *args, cJSON *reply) {
    const char *dir = inspect_text(args, "dir");
    std::string fault = dir ? player_start(dir) : "dir must be a text";
    if (fault.empty()) {
        fault = state_apply(args);
    }
    if (inspect_started()) {
        lv_refr_now(nullptr);
        inspect_frame_publish();
        inspect_project_describe(reply);
        cJSON_AddItemToObject(reply, "state", inspect_snapshot());
    }
    if (fault.empty() && !zof_prj_get_cur()->cur_view[ZOF_LAYER_UI]) {
        fault = "no view can be shown";
    }
    if (fault.empty()) {
        cJSON *ready = inspect_event("ready");
        inspect_project_describe(ready);
        inspect_send(ready);
    }
    return fault;
}

static std::string advance(const cJSON *args, cJSON *) {
    const s32 ms = inspect_number(args, "ms", -1);
    if (player_options.live) {
        return "time is real; start the player without --live";
    }
    if (ms < 0 || ms > ADVANCE_MAX_MS) {
        return "ms must be 0 to " + std::to_string(ADVANCE_MAX_MS);
    }
    player_clock_advance((u32)ms);
    return "";
}

// A separate command, because only one player at a time can open the line, and the port of ZOF_INSPECT.
static std::string link(const cJSON *, cJSON *) {
    if (!player_options.live) {
        return "time is not real; start the player with --live";
    }
    zof_inspect_start();
    if (zof_hmi_attr_get()) {
        return "the link is open";
    }
    return zof_hmi_init() == 0 ? "" : "the project has no link";
}

static std::string quit(const cJSON *, cJSON *) {
    ended = true;
    return "";
}

const inspect_player_t player_commands = {load, advance, link, quit};
