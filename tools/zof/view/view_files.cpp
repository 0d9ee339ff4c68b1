// The output of `zof view` that needs no display: a picture, a sheet of pictures, the controls as JSON. The player's
// clock is virtual, so the same folder always produces the same bytes.
#include <cstdio>

#include "view.h"
#include "view_draw.h"
#include "view_player.h"
#include "zof.h"

enum { CELL_MAX = 480, GAP = 16, CAPTION = 26, SETTLE_MS = 1000, CAPTION_DOWN = (CAPTION - 17) / 2 };
enum : u32 { PAPER = 0x1B1E23, INK = 0xC8CDD4 };

static int fail(const std::string &text, int status) {
    fprintf(stderr, "zof view: %s\n", text.c_str());
    return status;
}

static int file_write(const std::string &path, const std::string &bytes) {
    FILE *f = path == "-" ? stdout : fopen(path.c_str(), "wb");
    bool good = f && fwrite(bytes.data(), 1, bytes.size(), f) == bytes.size() && fflush(f) == 0;
    good = f && (f == stdout || fclose(f) == 0) && good;
    return good && !bytes.empty() ? ZOF_EXIT_CLEAN : fail(path + " cannot be written", ZOF_EXIT_UNREADABLE);
}

static void message_print(const cJSON *line) {
    const char *event = cJSON_GetStringValue(cJSON_GetObjectItem(line, "event"));
    if (event && std::string(event) == "message") {
        fprintf(stderr, "%s\n", view_message_text(line).c_str());
    }
}

// Returns the reply, which the caller deletes; null after a message.
static cJSON *ask(view_player_t *player, cJSON *command) {
    cJSON *reply = view_player_call(player, command, message_print);
    if (reply && cJSON_IsTrue(cJSON_GetObjectItem(reply, "ok"))) {
        return reply;
    }
    const char *error = cJSON_GetStringValue(cJSON_GetObjectItem(reply, "error"));
    fail(error ? error : "the player has ended: " + (player->ended.empty() ? "no answer" : player->ended), 0);
    cJSON_Delete(reply);
    return nullptr;
}

static bool tell(view_player_t *player, cJSON *command) {
    cJSON *reply = ask(player, command);
    cJSON_Delete(reply);
    return reply != nullptr;
}

// Returns the reply of `load`; null after a message.
static cJSON *load(view_player_t *player, bool choices) {
    const std::string fault = view_player_start(player, false, view_options.loud);
    if (!fault.empty()) {
        fail(fault, 0);
        return nullptr;
    }
    cJSON *command = view_command("load");
    cJSON_AddStringToObject(command, "dir", view_options.dir.c_str());
    if (choices) {
        view_choice_add(command);
    }
    return ask(player, command);
}

// A state that changes may fade in.
static bool settle(view_player_t *player) {
    cJSON *command = view_command("advance");
    cJSON_AddNumberToObject(command, "ms", view_options.states.empty() ? 0 : SETTLE_MS);
    return tell(player, command);
}

static bool states_set(view_player_t *player) {
    for (const std::string &state : view_options.states) {
        const size_t at = state.find('=');
        cJSON *command = view_command("state");
        cJSON_AddStringToObject(command, "control", state.substr(0, at).c_str());
        cJSON_AddStringToObject(command, "state", at == std::string::npos ? "" : state.substr(at + 1).c_str());
        if (!tell(player, command)) {
            return false;
        }
    }
    return settle(player);
}

static bool picture(view_player_t *player, view_image_t *out) {
    return view_player_picture(player, &out->pixels, &out->width, &out->height);
}

static int shot_write(view_player_t *player) {
    view_image_t image;
    if (!states_set(player) || !picture(player, &image)) {
        return ZOF_EXIT_FINDINGS;
    }
    return file_write(view_options.shot, view_png(image));
}

static bool show(view_player_t *player, const std::string &view, const std::string &language) {
    cJSON *command = view_command("show");
    if (!language.empty()) {
        cJSON_AddStringToObject(command, "language", language.c_str());
    }
    cJSON_AddStringToObject(command, "view", view.c_str());
    return tell(player, command);
}

// The languages or themes of a sheet that the options leave open. A project without them has one part, with an empty
// name.
static std::vector<std::string> parts(const std::string &chosen, const std::vector<std::string> &all) {
    if (!chosen.empty()) {
        return {chosen};
    }
    return all.empty() ? std::vector<std::string>{""} : all;
}

static std::string caption(const std::string &view, const std::string &language, const std::string &theme) {
    return view + (language.empty() ? "" : "  " + language) + (theme.empty() ? "" : "  " + theme);
}

struct sheet_t {
    view_image_t image;
    std::vector<std::string> views, languages, themes;
    s32 cell_w, cell_h;
};

static void sheet_lay(sheet_t *sheet, const cJSON *project) {
    const s32 width = cJSON_GetObjectItem(project, "width")->valueint;
    const s32 height = cJSON_GetObjectItem(project, "height")->valueint;
    sheet->views = parts(view_options.view, view_texts(project, "views", "name"));
    sheet->languages = parts(view_options.language, view_texts(project, "languages", nullptr));
    sheet->themes = parts(view_options.theme, view_texts(project, "themes", nullptr));
    sheet->cell_w = width > CELL_MAX ? CELL_MAX : width;
    sheet->cell_h = height * sheet->cell_w / width;
    const s32 columns = (s32)(sheet->languages.size() * sheet->themes.size());
    sheet->image = view_image(columns * (sheet->cell_w + GAP) + GAP,
                              (s32)sheet->views.size() * (sheet->cell_h + CAPTION + GAP) + GAP, PAPER);
}

// A view that cannot be shown leaves its cell empty.
static void cell_draw(view_player_t *player, sheet_t *sheet, size_t row, size_t column, const std::string &text,
                      bool shown) {
    view_image_t image;
    const view_box_t box = {GAP + (s32)column * (sheet->cell_w + GAP),
                            GAP + (s32)row * (sheet->cell_h + CAPTION + GAP) + CAPTION, sheet->cell_w, sheet->cell_h};
    view_text(&sheet->image, box.x, box.y - CAPTION + CAPTION_DOWN, text, INK);
    if (shown && picture(player, &image)) {
        view_copy(&sheet->image, box, image);
    } else {
        view_frame(&sheet->image, box, INK, 1);
    }
}

// Each theme has a player of its own, because what a control has from its first theme stays.
static bool theme_draw(sheet_t *sheet, size_t number) {
    view_player_t player;
    const std::string theme = sheet->themes[number];
    const std::string chosen = view_options.theme;
    view_options.theme = theme;
    cJSON *project = load(&player, true);
    view_options.theme = chosen;
    const bool good = project != nullptr;
    for (size_t lang = 0; good && lang < sheet->languages.size(); lang++) {
        for (size_t row = 0; row < sheet->views.size(); row++) {
            const bool shown = show(&player, sheet->views[row], sheet->languages[lang]);
            cell_draw(&player, sheet, row, number * sheet->languages.size() + lang,
                      caption(sheet->views[row], sheet->languages[lang], theme), shown);
        }
    }
    cJSON_Delete(project);
    view_player_stop(&player);
    return good;
}

static int sheet_write(const cJSON *project) {
    sheet_t sheet = {};
    sheet_lay(&sheet, project);
    for (size_t i = 0; i < sheet.themes.size(); i++) {
        if (!theme_draw(&sheet, i)) {
            return ZOF_EXIT_FINDINGS;
        }
    }
    return file_write(view_options.sheet, view_png(sheet.image));
}

// Each view is shown first, because only a view that was shown has all its controls.
static int tree_write(view_player_t *player, cJSON *project) {
    cJSON *views = cJSON_CreateArray();
    for (const std::string &view : parts(view_options.view, view_texts(project, "views", "name"))) {
        cJSON *command = view_command("tree");
        cJSON_AddStringToObject(command, "view", view.c_str());
        cJSON *reply = show(player, view, "") ? ask(player, command) : nullptr;
        cJSON_AddItemToArray(views, cJSON_DetachItemFromArray(cJSON_GetObjectItem(reply, "views"), 0));
        cJSON_Delete(reply);
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
    cJSON *project = load(&player, true);
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
