#include "view_walk.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <set>

#include "view.h"

static void fail(const std::string &text) {
    fprintf(stderr, "zof %s: %s\n", view_options.command, text.c_str());
}

bool view_file_write(const std::string &path, const std::string &bytes) {
    std::ofstream file;
    if (path != "-") {
        file.open(std::filesystem::path{path}, std::ios::binary);
    }
    std::ostream &out = path == "-" ? std::cout : file;
    const bool good = !bytes.empty() && out.write(bytes.data(), (std::streamsize)bytes.size()) && out.flush();
    if (!good) {
        fail(path + " cannot be written");
    }
    return good;
}

// Prints each message once, because every player of the project reports the same faults.
static void message_print(const cJSON *line) {
    static std::set<std::string> printed;
    const char *event = cJSON_GetStringValue(cJSON_GetObjectItem(line, "event"));
    if (event && std::string(event) == "message" && printed.insert(view_message_text(line)).second) {
        fprintf(stderr, "%s\n", view_message_text(line).c_str());
    }
}

cJSON *view_ask(view_player_t *player, cJSON *command) {
    cJSON *reply = view_player_call(player, command, message_print);
    if (reply && cJSON_IsTrue(cJSON_GetObjectItem(reply, "ok"))) {
        return reply;
    }
    const char *error = cJSON_GetStringValue(cJSON_GetObjectItem(reply, "error"));
    const std::string ended = player->ended.empty() ? "no answer" : player->ended;
    fail(error ? error : (view_options.port ? "the program has ended: " : "the player has ended: ") + ended);
    cJSON_Delete(reply);
    return nullptr;
}

bool view_tell(view_player_t *player, cJSON *command) {
    cJSON *reply = view_ask(player, command);
    cJSON_Delete(reply);
    return reply != nullptr;
}

// Connects to the program of the options, and makes the choices there, for which it must allow changes.
static cJSON *program_load(view_player_t *player) {
    cJSON *project = view_ask(player, view_player_hello(view_options.port));
    cJSON *choice = view_command("show");
    view_choice_add(choice);
    if (!view_options.tree.empty()) { // then it chooses what is written, and nothing needs to change for that
        cJSON_DeleteItemFromObject(choice, "view");
    }
    if (!project || !choice->child->next) {
        cJSON_Delete(choice);
    } else if (!view_tell(player, choice)) {
        cJSON_Delete(project);
        project = nullptr;
    }
    return project;
}

cJSON *view_load(view_player_t *player, bool choices) {
    const std::string fault = view_options.port ? view_player_attach(player, view_options.port)
                                                : view_player_start(player, false, view_options.loud);
    if (!fault.empty()) {
        fail(fault);
        return nullptr;
    }
    if (view_options.port) {
        return program_load(player);
    }
    cJSON *command = view_command("load");
    cJSON_AddStringToObject(command, "dir", view_options.dir.c_str());
    if (choices) {
        view_choice_add(command);
    }
    return view_ask(player, command);
}

bool view_show(view_player_t *player, const std::string &view, const std::string &language) {
    cJSON *command = view_command("show");
    if (!language.empty()) {
        cJSON_AddStringToObject(command, "language", language.c_str());
    }
    cJSON_AddStringToObject(command, "view", view.c_str());
    cJSON_AddTrueToObject(command, "alone");
    return view_tell(player, command);
}

// The views, languages or themes of a plan: the chosen one, or all of them. A project without languages or themes has
// one, with an empty name.
static std::vector<std::string> parts(const std::string &chosen, const std::vector<std::string> &all) {
    if (!chosen.empty()) {
        return {chosen};
    }
    return all.empty() ? std::vector<std::string>{""} : all;
}

view_plan_t view_plan(const cJSON *project) {
    return {parts(view_options.view, view_texts(project, "views", "name")),
            parts(view_options.language, view_texts(project, "languages", nullptr)),
            parts(view_options.theme, view_texts(project, "themes", nullptr)),
            cJSON_GetObjectItem(project, "width")->valueint,
            cJSON_GetObjectItem(project, "height")->valueint,
            view_options.view.empty() && view_options.language.empty() && view_options.theme.empty()};
}

// Shows all cells of a theme. Each theme gets its own player, because controls keep what they got from their first
// theme.
static bool theme_walk(const view_plan_t &plan, size_t number,
                       const std::function<void(view_player_t *, const view_cell_t &)> &fn) {
    view_player_t player;
    const std::string theme = plan.themes[number];
    const std::string chosen = view_options.theme;
    view_options.theme = theme;
    cJSON *project = view_load(&player, true);
    view_options.theme = chosen;
    const bool good = project != nullptr;
    for (size_t lang = 0; good && lang < plan.languages.size(); lang++) {
        for (size_t row = 0; row < plan.views.size(); row++) {
            const bool shown = view_show(&player, plan.views[row], plan.languages[lang]);
            fn(&player,
               {plan.views[row], plan.languages[lang], theme, row, number * plan.languages.size() + lang, shown});
        }
    }
    cJSON_Delete(project);
    view_player_stop(&player);
    return good;
}

bool view_walk(const view_plan_t &plan, const std::function<void(view_player_t *, const view_cell_t &)> &fn) {
    for (size_t i = 0; i < plan.themes.size(); i++) {
        if (!theme_walk(plan, i, fn)) {
            return false;
        }
    }
    return true;
}
