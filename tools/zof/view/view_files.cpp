// The output modes of `zof view` that need no display: a picture, a sheet of pictures, the controls as JSON. The
// player's clock is virtual, so the same folder always produces the same bytes.
#include <cstdio>

#include "view.h"
#include "view_sheet.h"
#include "zof.h"

enum { SETTLE_MS = 1000 };

static int file_write(const std::string &path, const std::string &bytes) {
    return view_file_write(path, bytes) ? ZOF_EXIT_CLEAN : ZOF_EXIT_UNREADABLE;
}

// Advances the clock, because a change of state may fade in. That of a program advances by itself.
static bool settle(view_player_t *player) {
    if (view_options.port) {
        return true;
    }
    cJSON *command = view_command("advance");
    cJSON_AddNumberToObject(command, "ms", view_options.states.empty() ? 0 : SETTLE_MS);
    return view_tell(player, command);
}

static bool states_set(view_player_t *player) {
    for (const std::string &state : view_options.states) {
        const size_t at = state.find('=');
        cJSON *command = view_command("state");
        cJSON_AddStringToObject(command, "control", state.substr(0, at).c_str());
        cJSON_AddStringToObject(command, "state", at == std::string::npos ? "" : state.substr(at + 1).c_str());
        if (!view_tell(player, command)) {
            return false;
        }
    }
    return settle(player);
}

// Writes the picture of a program, which sends a PNG file.
static int picture_write(view_player_t *player) {
    cJSON *reply = view_ask(player, view_command("picture"));
    const char *png = cJSON_GetStringValue(cJSON_GetObjectItem(reply, "png"));
    const int status = png ? file_write(view_options.shot, view_base64(png)) : (int)ZOF_EXIT_FINDINGS;
    cJSON_Delete(reply);
    return status;
}

static int shot_write(view_player_t *player) {
    view_image_t image;
    if (view_options.port) {
        return states_set(player) ? picture_write(player) : (int)ZOF_EXIT_FINDINGS;
    }
    if (!states_set(player) || !view_player_picture(player, &image.pixels, &image.width, &image.height)) {
        return ZOF_EXIT_FINDINGS;
    }
    return file_write(view_options.shot, view_png(image));
}

static int sheet_write(const cJSON *project) {
    const view_plan_t plan = view_plan(project);
    view_sheet_t sheet = view_sheet(plan);
    const auto draw = [&](view_player_t *player, const view_cell_t &cell) { view_sheet_draw(&sheet, player, cell); };
    return view_walk(plan, draw) ? file_write(view_options.sheet, view_png(sheet.image)) : ZOF_EXIT_FINDINGS;
}

// Returns what a program shows, or the view of the options, which need not be shown.
static cJSON *program_views(view_player_t *player) {
    cJSON *command = view_command("tree");
    if (!view_options.view.empty()) {
        cJSON_AddStringToObject(command, "view", view_options.view.c_str());
    }
    cJSON *reply = view_ask(player, command);
    cJSON *views = cJSON_DetachItemFromObject(reply, "views");
    cJSON_Delete(reply);
    return views;
}

// Shows each view first, because a view has all its controls only after it was shown.
static cJSON *project_views(view_player_t *player, const cJSON *project) {
    cJSON *views = cJSON_CreateArray();
    for (const std::string &view : view_plan(project).views) {
        cJSON *command = view_command("tree");
        cJSON_AddStringToObject(command, "view", view.c_str());
        cJSON *reply = view_show(player, view, "") ? view_ask(player, command) : nullptr;
        cJSON_AddItemToArray(views, cJSON_DetachItemFromArray(cJSON_GetObjectItem(reply, "views"), 0));
        cJSON_Delete(reply);
    }
    return views;
}

static int tree_write(view_player_t *player, cJSON *project) {
    cJSON *views = view_options.port ? program_views(player) : project_views(player, project);
    if (!views) {
        return ZOF_EXIT_FINDINGS;
    }
    for (const char *name : {"id", "ok", "view"}) {
        cJSON_DeleteItemFromObject(project, name);
    }
    cJSON_ReplaceItemInObject(project, "views", views);
    char *text = cJSON_Print(project);
    const int status = file_write(view_options.tree, std::string(text) + "\n");
    cJSON_free(text);
    return status;
}

int view_files_write() {
    view_player_t player;
    cJSON *project = view_load(&player, true);
    int status = project ? ZOF_EXIT_CLEAN : ZOF_EXIT_UNREADABLE;
    if (project && !view_options.shot.empty()) {
        status = shot_write(&player);
    }
    if (status == 0 && !view_options.sheet.empty()) {
        status = sheet_write(project);
    }
    if (status == 0 && !view_options.tree.empty()) {
        status = tree_write(&player, project);
    }
    cJSON_Delete(project);
    view_player_stop(&player);
    return status;
}
