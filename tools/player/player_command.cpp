// The commands, one row each. docs/player.md lists the same rows.
#include <cmath>
#include <cstring>

#include "control/zof_ctrl.h"
#include "drv/zof_drv_aid.h"
#include "drv/zof_drv_gpio.h"
#include "hmi/zof_hmi.h"
#include "player.h"
#include "player_picture.h"
#include "project/look/zof_lang.h"

enum { ADVANCE_MAX_MS = 3600000 };

static bool ended;

bool player_ended() {
    return ended;
}

const char *player_text(const cJSON *args, const char *name) {
    return cJSON_GetStringValue(cJSON_GetObjectItemCaseSensitive(args, name));
}

s32 player_number(const cJSON *args, const char *name, s32 absent) {
    const cJSON *value = cJSON_GetObjectItemCaseSensitive(args, name);
    return cJSON_IsNumber(value) && std::isfinite(value->valuedouble) ? value->valueint : absent;
}

static bool is_true(const cJSON *args, const char *name) {
    const cJSON *value = cJSON_GetObjectItemCaseSensitive(args, name);
    return cJSON_IsTrue(value) || (cJSON_IsNumber(value) && value->valueint != 0);
}

static cJSON *texts(const std::vector<std::string> &all) {
    cJSON *array = cJSON_CreateArray();
    for (const std::string &text : all) {
        cJSON_AddItemToArray(array, cJSON_CreateString(text.c_str()));
    }
    return array;
}

static std::string cmd_help(const cJSON *, cJSON *reply) {
    cJSON *all = cJSON_AddArrayToObject(reply, "commands");
    for (size_t i = 0; i < player_command_count; i++) {
        cJSON *row = cJSON_CreateObject();
        cJSON_AddStringToObject(row, "do", player_commands[i].name);
        cJSON_AddStringToObject(row, "args", player_commands[i].args);
        cJSON_AddStringToObject(row, "help", player_commands[i].help);
        cJSON_AddItemToArray(all, row);
    }
    return "";
}

// Adds the available views, languages and themes, and the current ones.
static void project_describe(cJSON *out) {
    const zof_prj_t *prj = zof_prj_get_cur();
    cJSON_AddStringToObject(out, "folder", prj->path);
    cJSON_AddStringToObject(out, "name", prj->attr->p_name ? prj->attr->p_name : "");
    lv_disp_t *disp = lv_disp_get_default();
    cJSON_AddNumberToObject(out, "width", lv_disp_get_hor_res(disp));
    cJSON_AddNumberToObject(out, "height", lv_disp_get_ver_res(disp));
    cJSON *views = cJSON_AddArrayToObject(out, "views");
    const zof_view_name_t *name = nullptr;
    for (s32 i = 0; (name = (const zof_view_name_t *)__db_list_visit(prj->view_names, i)); i++) {
        cJSON *view = cJSON_CreateObject();
        cJSON_AddNumberToObject(view, "id", name->id);
        cJSON_AddStringToObject(view, "name", player_view_name(name->id).c_str());
        cJSON_AddItemToArray(views, view);
    }
    cJSON_AddItemToObject(out, "languages", texts(player_names("config/languages/", false)));
    cJSON_AddItemToObject(out, "themes", texts(player_names("config/theme/", true)));
    cJSON_AddStringToObject(out, "language", prj->lang_name ? prj->lang_name : "");
    cJSON_AddStringToObject(out, "theme", player_theme().c_str());
    const zof_view_node_t *node = prj->cur_view[ZOF_LAYER_UI];
    cJSON_AddStringToObject(out, "view", node ? player_view_name(node->attr->v_id).c_str() : "");
}

// Applies the optional arguments language, theme and view, in this order.
static std::string choose(const cJSON *args) {
    const char *lang = player_text(args, "language");
    const char *look = player_text(args, "theme");
    const cJSON *view = cJSON_GetObjectItemCaseSensitive(args, "view");
    std::string fault = lang ? player_lang_set(lang) : "";
    if (fault.empty() && look) {
        fault = player_theme_set(look);
    }
    if (!fault.empty() || !view) {
        return fault;
    }
    const u32 id = player_view_find(view);
    return id ? player_view_show(id) : "there is no such view";
}

static std::string cmd_load(const cJSON *args, cJSON *reply) {
    const char *dir = player_text(args, "dir");
    const cJSON *state = cJSON_GetObjectItemCaseSensitive(args, "state");
    std::string fault = dir ? player_start(dir) : "dir must be a text";
    if (fault.empty() && state) {
        fault = player_restore(state);
    }
    if (fault.empty()) {
        fault = choose(args);
    }
    if (player_started()) {
        lv_refr_now(nullptr);
        player_picture_publish();
        project_describe(reply);
        cJSON_AddItemToObject(reply, "state", player_snapshot());
    }
    if (fault.empty() && !zof_prj_get_cur()->cur_view[ZOF_LAYER_UI]) {
        fault = "no view can be shown";
    }
    if (fault.empty()) {
        cJSON *ready = player_event("ready");
        project_describe(ready);
        player_send(ready);
    }
    return fault;
}

static std::string cmd_show(const cJSON *args, cJSON *) {
    return choose(args);
}

static std::string control_of(const cJSON *args, para_t **record) {
    u32 view = 0;
    const char *path = player_text(args, "control");
    *record = player_control(path, &view);
    return *record && (*record)->obj ? "" : "there is no control " + std::string(path ? path : "");
}

static constexpr struct {
    const char *name;
    u32 state;
} states[] = {{"default", 0},
              {"checked", LV_STATE_CHECKED},
              {"focused", LV_STATE_FOCUSED},
              {"edited", LV_STATE_EDITED},
              {"hovered", LV_STATE_HOVERED},
              {"pressed", LV_STATE_PRESSED},
              {"scrolled", LV_STATE_SCROLLED},
              {"disabled", LV_STATE_DISABLED}};

// Reads a sum of names such as "pressed+checked". Returns the states, or -1.
static s32 states_read(const std::string &text) {
    s32 sum = 0;
    for (size_t at = 0; at <= text.size();) {
        const size_t end = std::min(text.find('+', at), text.size());
        s32 state = -1;
        for (const auto &row : states) {
            state = text.compare(at, end - at, row.name) == 0 ? (s32)row.state : state;
        }
        if (state < 0) {
            return -1;
        }
        sum |= state;
        at = end + 1;
    }
    return sum;
}

static std::string cmd_state(const cJSON *args, cJSON *) {
    para_t *record = nullptr;
    const std::string fault = control_of(args, &record);
    const char *text = player_text(args, "state");
    const s32 state = text ? states_read(text) : -1;
    if (!fault.empty() || state < 0) {
        return fault.empty()
                   ? "state must be a sum of default, checked, focused, edited, hovered, pressed, scrolled, disabled"
                   : fault;
    }
    lv_obj_clear_state(record->obj, ~(u32)state & 0xFF);
    lv_obj_add_state(record->obj, (lv_state_t)state);
    return "";
}

static std::string cmd_pointer(const cJSON *args, cJSON *) {
    zof_drv_aid_pointer(player_number(args, "x", 0), player_number(args, "y", 0), is_true(args, "down"));
    return "";
}

// Keys stand for the input pins of a panel and are identified by their code.
static std::string cmd_key(const cJSON *args, cJSON *) {
    zof_drv_win_key_set_value(is_true(args, "down"), (u32)player_number(args, "key", 0));
    return "";
}

static std::string cmd_advance(const cJSON *args, cJSON *) {
    const s32 ms = player_number(args, "ms", -1);
    if (player_options.live) {
        return "time is real; start the player without --live";
    }
    if (ms < 0 || ms > ADVANCE_MAX_MS) {
        return "ms must be 0 to " + std::to_string(ADVANCE_MAX_MS);
    }
    player_clock_advance((u32)ms);
    return "";
}

static std::string cmd_picture(const cJSON *args, cJSON *) {
    const char *file = player_text(args, "file");
    lv_refr_now(nullptr);
    player_picture_publish();
    return file ? player_picture_write(file) : "file must be a text";
}

static std::string cmd_tree(const cJSON *args, cJSON *reply) {
    const cJSON *name = cJSON_GetObjectItemCaseSensitive(args, "view");
    const u32 id = name ? player_view_find(name) : 0;
    if (name && !id) {
        return "there is no such view";
    }
    if (id) {
        zof_view_load(id);
    }
    cJSON *views = cJSON_AddArrayToObject(reply, "views");
    const std::vector<zof_view_node_t *> nodes =
        id ? std::vector<zof_view_node_t *>{zof_view_list_get(id)} : player_views_shown();
    for (zof_view_node_t *node : nodes) {
        if (node) {
            cJSON_AddItemToArray(views, player_tree(node));
        }
    }
    return "";
}

static std::string cmd_review(const cJSON *, cJSON *reply) {
    player_review(reply);
    return "";
}

static std::string cmd_hit(const cJSON *args, cJSON *reply) {
    cJSON_AddItemToObject(reply, "controls", player_hit(player_number(args, "x", 0), player_number(args, "y", 0)));
    return "";
}

static std::string cmd_set(const cJSON *args, cJSON *) {
    return player_set(args);
}

static std::string cmd_scroll(const cJSON *args, cJSON *) {
    para_t *record = nullptr;
    std::string fault = control_of(args, &record);
    if (fault.empty()) {
        lv_obj_update_layout(record->obj);
        lv_obj_scroll_to(record->obj, player_number(args, "x", 0), player_number(args, "y", 0), LV_ANIM_OFF);
    }
    return fault;
}

// A separate command, because only one player at a time can open the line.
static std::string cmd_link(const cJSON *, cJSON *) {
    if (!player_options.live) {
        return "time is not real; start the player with --live";
    }
    if (zof_hmi_attr_get()) {
        return "the link is open";
    }
    return zof_hmi_init() == 0 ? "" : "the project has no link";
}

static std::string cmd_snapshot(const cJSON *, cJSON *reply) {
    cJSON_AddItemToObject(reply, "state", player_snapshot());
    return "";
}

static std::string cmd_restore(const cJSON *args, cJSON *) {
    return player_restore(cJSON_GetObjectItemCaseSensitive(args, "state"));
}

static std::string cmd_quit(const cJSON *, cJSON *) {
    ended = true;
    return "";
}

const player_command_t player_commands[] = {
    {"help", "", "Lists the commands.", cmd_help, true},
    {"load", "dir view? language? theme? state?", "Starts the project of a folder, once in the life of a player.",
     cmd_load, true},
    {"show", "view? language? theme?", "Changes the view, the language, the theme.", cmd_show, false},
    {"state", "control state", "Sets the states of a control: \"pressed+checked\"; \"default\" clears them.", cmd_state,
     false},
    {"pointer", "x y down", "Moves the finger, and puts it down or lifts it.", cmd_pointer, false},
    {"key", "key down", "Presses or releases a key, by its code.", cmd_key, false},
    {"advance", "ms", "Lets this time pass.", cmd_advance, false},
    {"picture", "file", "Writes the picture as PNG.", cmd_picture, false},
    {"tree", "view?", "Lists the controls of a view, or of all that are shown.", cmd_tree, false},
    {"review", "",
     "Lists what is shown as tree does, with the texts as they are drawn and what is seen of each control.", cmd_review,
     false},
    {"hit", "x y", "Lists the controls at a place, the topmost first.", cmd_hit, false},
    {"set", "row value control? request?", "Sets a value as a host does, by its row: \"label.text\".", cmd_set, false},
    {"scroll", "control x y", "Scrolls the content of a control.", cmd_scroll, false},
    {"link", "", "Opens the project's serial link to a host.", cmd_link, false},
    {"snapshot", "", "Returns what a fresh player needs to show the same.", cmd_snapshot, false},
    {"restore", "state", "Applies a snapshot.", cmd_restore, false},
    {"quit", "", "Ends the player.", cmd_quit, true},
};
const size_t player_command_count = sizeof(player_commands) / sizeof(player_commands[0]);

// Returns true if `name` is among the arguments of a row.
static bool arg_known(const char *args, const char *name) {
    const size_t size = strlen(name);
    for (const char *at = args; *at; at += strspn(at, " ")) {
        const size_t word = strcspn(at, " ?");
        if (word == size && strncmp(at, name, size) == 0) {
            return true;
        }
        at += strcspn(at, " ");
    }
    return false;
}

static std::string args_check(const player_command_t *row, const cJSON *line) {
    for (const cJSON *arg = line->child; arg; arg = arg->next) {
        if (strcmp(arg->string, "do") != 0 && strcmp(arg->string, "id") != 0 && !arg_known(row->args, arg->string)) {
            return std::string(row->name) + " has no argument " + arg->string;
        }
    }
    for (const char *at = row->args; *at; at += strspn(at, " ")) {
        const size_t word = strcspn(at, " ?");
        const std::string name(at, word);
        if (at[word] != '?' && !cJSON_GetObjectItemCaseSensitive(line, name.c_str())) {
            return std::string(row->name) + " needs " + name;
        }
        at += strcspn(at, " ");
    }
    return "";
}

static std::string run(const cJSON *line, cJSON *reply) {
    const char *name = player_text(line, "do");
    for (const player_command_t &row : player_commands) {
        if (!name || strcmp(row.name, name) != 0) {
            continue;
        }
        const std::string fault = args_check(&row, line);
        if (fault.empty() && !row.early && !player_started()) {
            return "no project is loaded";
        }
        return fault.empty() ? row.run(line, reply) : fault;
    }
    return name ? "there is no command " + std::string(name) : "\"do\" must name a command";
}

static void answer(cJSON *reply, const std::string &fault) {
    cJSON_AddBoolToObject(reply, "ok", fault.empty());
    if (!fault.empty()) {
        cJSON_AddStringToObject(reply, "error", fault.c_str());
    }
    player_send(reply);
}

void player_line_run(const std::string &text) {
    cJSON *line = cJSON_ParseWithOpts(text.c_str(), nullptr, 1);
    cJSON *reply = cJSON_CreateObject();
    if (!cJSON_IsObject(line)) {
        cJSON_Delete(line);
        answer(reply, text == "\x01" ? "the line is too long" : "the line is not an object of JSON");
        return;
    }
    const cJSON *id = cJSON_GetObjectItemCaseSensitive(line, "id");
    if (id) {
        cJSON_AddItemToObject(reply, "id", cJSON_Duplicate(id, 1));
    }
    const std::string fault = run(line, reply);
    if (player_started()) {
        lv_refr_now(nullptr);
        player_picture_publish();
    }
    answer(reply, fault);
    cJSON_Delete(line);
}
