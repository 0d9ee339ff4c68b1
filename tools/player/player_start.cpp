// Starts a project without an application, and drives its clock. Every view of the project file gets the same init
// function, which creates its controls. Every control gets an event function that does nothing, because only controls
// with such a function report their events to a host.
#include <algorithm>

#include "drv/zof_drv_file.h"
#include "drv/zof_loop_in.h"
#include "func/zof_func.h"
#include "player.h"
#include "port/zof_host.h"
#include "port/zof_port.h"
#include "project/view/zof_view.h"
#include "project/zof_prj.h"
#include "zof_start.h"

#include "../system/stream.h"

enum { STEP_MS = 5 };

static u32 clock_ms;
static std::vector<zof_view_fun_t> views; // the runtime keeps a pointer to it

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

static void event_ignore(zof_ctrl_t *, zof_event_e) {
}

// Returns rows for the ids in a view's file, which is about to be loaded.
static const std::vector<zof_ctrl_fun_t> *controls_of(const zof_view_node_t *node) {
    auto *rows = new std::vector<zof_ctrl_fun_t>; // never freed, like the view
    const cJSON *entry = nullptr;
    cJSON_ArrayForEach(entry, cJSON_GetObjectItem(node->file, "controls")) {
        const cJSON *pub = cJSON_GetObjectItem(cJSON_GetObjectItem(entry, "property"), "pub_t");
        const cJSON *id = cJSON_GetObjectItem(pub, "id");
        if (cJSON_IsNumber(id)) {
            rows->push_back({(u32)id->valueint, event_ignore});
        }
    }
    return rows;
}

// Creates the controls of a view. An init function has no argument, but the view that is being created is the only one
// without an object.
static void init_any() {
    const db_list *list = zof_prj_get_cur()->view_list;
    for (const db_node *at = list->head->next; at != list->head; at = at->next) {
        const auto *node = (const zof_view_node_t *)at->data;
        if (!node->obj) {
            const std::vector<zof_ctrl_fun_t> *rows = controls_of(node);
            zof_view_create(node->attr->v_id, rows->data(), (u32)rows->size());
            return;
        }
    }
}

static void nothing() {
}

static void views_make(const zof_prj_t *prj) {
    const zof_view_name_t *name = nullptr;
    for (s32 i = 0; (name = (const zof_view_name_t *)__db_list_visit(prj->view_names, i)); i++) {
        views.push_back({name->id, init_any, nothing, nothing});
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
    views_make(zof_prj_get_cur());
    if (views.empty()) {
        return folder + ": the project file has no views";
    }
    if (player_options.live) {
        zof_func_pwon();
    }
    inspect_writes_watch();
    zof_prj_create(views.data(), (u32)views.size());
    return "";
}
