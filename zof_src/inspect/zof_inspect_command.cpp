// The commands, one row each. docs/player.md lists the same rows.
#include <cstdio>
#include <cstring>

#include "control/zof_ctrl.h"
#include "drv/zof_drv_aid.h"
#include "drv/zof_drv_file.h"
#include "drv/zof_drv_gpio.h"
#include "inspect/zof_inspect_in.h"
#include "zof_lib/zof_stdio.h"

enum { PIXELS_MAX = 8 << 20 };         // of a picture in a reply
enum { MARK_MS = 2000, MARK_GAP = 3 }; // how long a mark is shown; between it and its control, in pixels

static const inspect_player_t *player; // null in a program that is not a player

// The command that is being executed.
static struct {
    inspect_may_e may; // of its peer
    inspect_line_t reply;
} current;

void inspect_player_set(const inspect_player_t *commands) {
    player = commands;
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

void inspect_project_describe(cJSON *out) {
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
        cJSON_AddStringToObject(view, "name", inspect_view_name(name->id).c_str());
        cJSON_AddItemToArray(views, view);
    }
    cJSON_AddItemToObject(out, "languages", texts(inspect_names("config/languages/", false)));
    cJSON_AddItemToObject(out, "themes", texts(inspect_names("config/theme/", true)));
    cJSON_AddStringToObject(out, "language", prj->lang_name ? prj->lang_name : "");
    cJSON_AddStringToObject(out, "theme", inspect_theme().c_str());
    const zof_view_node_t *node = prj->cur_view[ZOF_LAYER_UI];
    cJSON_AddStringToObject(out, "view", node ? inspect_view_name(node->attr->v_id).c_str() : "");
}

std::string inspect_choose(const cJSON *args) {
    const char *lang = inspect_text(args, "language");
    const char *look = inspect_text(args, "theme");
    const cJSON *view = cJSON_GetObjectItemCaseSensitive(args, "view");
    std::string fault = lang ? inspect_lang_set(lang) : "";
    if (fault.empty() && look) {
        fault = inspect_theme_set(look);
    }
    if (!fault.empty() || !view) {
        return fault;
    }
    const u32 id = inspect_view_find(view);
    return id ? inspect_view_show(id) : inspect_view_none(view);
}

static std::string cmd_load(const cJSON *args, cJSON *reply) {
    return player->load(args, reply);
}

static std::string cmd_hello(const cJSON *, cJSON *reply) {
    inspect_project_describe(reply);
    return "";
}

static std::string cmd_show(const cJSON *args, cJSON *) {
    if (is_true(args, "alone")) {
        inspect_layers_clear();
    }
    return inspect_choose(args);
}

static std::string control_of(const cJSON *args, para_t **record) {
    u32 view = 0;
    const char *path = inspect_text(args, "control");
    *record = inspect_control(path, &view);
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
    const char *text = inspect_text(args, "state");
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

static std::string cmd_edit(const cJSON *args, cJSON *) {
    return inspect_edit(args);
}

static std::string cmd_pointer(const cJSON *args, cJSON *) {
    zof_drv_aid_pointer(inspect_number(args, "x", 0), inspect_number(args, "y", 0), is_true(args, "down"));
    return "";
}

// Keys stand for the input pins of a panel and are identified by their code.
static std::string cmd_key(const cJSON *args, cJSON *) {
    zof_drv_win_key_set_value(is_true(args, "down"), (u32)inspect_number(args, "key", 0));
    return "";
}

static std::string cmd_advance(const cJSON *args, cJSON *reply) {
    return player->advance(args, reply);
}

// Opens the file itself for a player's parent, because the runtime of a player is read-only.
static FILE *picture_open(const char *path) {
    return current.may == INSPECT_PLAYER ? fopen(path, "wb") : zof_file_write_open(path, ZOF_FALSE);
}

static std::string picture_write(const char *path, const u32 *pixels, s32 width, s32 height) {
    size_t size = 0;
    u8 *png = zof_drv_aid_png(pixels, width, height, &size);
    FILE *f = png ? picture_open(path) : nullptr;
    bool written = f && fwrite(png, 1, size, f) == size;
    written = f && fclose(f) == 0 && written;
    zof_lv_free(png);
    return written ? "" : std::string(path) + " cannot be written";
}

static std::string needs_write(const std::string &what) {
    return what + " needs ZOF_INSPECT_WRITE=1 in the program's environment";
}

static std::string cmd_picture(const cJSON *args, cJSON *) {
    const cJSON *file = cJSON_GetObjectItemCaseSensitive(args, "file");
    s32 width = 0;
    s32 height = 0;
    const u32 *pixels = zof_drv_aid_frame(&width, &height);
    if (!pixels) {
        return "there is no picture";
    }
    if (file && current.may == INSPECT_READ) {
        return needs_write("a picture in a file");
    }
    if (file) {
        const char *path = cJSON_GetStringValue(file);
        return path ? picture_write(path, pixels, width, height) : "file must be a text";
    }
    const size_t count = (size_t)width * (size_t)height;
    if (count > PIXELS_MAX) {
        return "the picture has more than " + std::to_string(PIXELS_MAX) + " pixels";
    }
    current.reply = {{}, std::vector<u32>(pixels, pixels + count), width, height};
    return "";
}

static std::string cmd_tree(const cJSON *args, cJSON *reply) {
    const cJSON *name = cJSON_GetObjectItemCaseSensitive(args, "view");
    const u32 id = name ? inspect_view_find(name) : 0;
    if (name && !id) {
        return inspect_view_none(name);
    }
    if (id && !zof_view_list_get(id)) { // its functions run when it is loaded
        if (current.may == INSPECT_READ) {
            return needs_write("a view that is not loaded");
        }
        zof_view_load(id);
    }
    cJSON *views = cJSON_AddArrayToObject(reply, "views");
    const std::vector<zof_view_node_t *> nodes =
        id ? std::vector<zof_view_node_t *>{zof_view_list_get(id)} : inspect_views_shown();
    for (zof_view_node_t *node : nodes) {
        if (node) {
            cJSON_AddItemToArray(views, inspect_tree(node));
        }
    }
    return "";
}

static std::string cmd_review(const cJSON *, cJSON *reply) {
    inspect_review(reply);
    return "";
}

static std::string cmd_hit(const cJSON *args, cJSON *reply) {
    cJSON_AddItemToObject(reply, "controls", inspect_hit(inspect_number(args, "x", 0), inspect_number(args, "y", 0)));
    return "";
}

static std::string cmd_set(const cJSON *args, cJSON *) {
    const std::string fault = inspect_set(args);
    u32 view = 0;
    const para_t *record = fault.empty() ? inspect_control(inspect_text(args, "control"), &view) : nullptr;
    if (record) {
        inspect_written(view, record->id, INSPECT_BY_INSPECTOR);
    }
    return fault;
}

static std::string cmd_values(const cJSON *args, cJSON *reply) {
    inspect_values(inspect_number(args, "since", -1), reply);
    return "";
}

// Above everything else, and gone after a while, so that no client can leave it there.
static std::string cmd_mark(const cJSON *args, cJSON *) {
    para_t *record = nullptr;
    const std::string fault = control_of(args, &record);
    if (!fault.empty()) {
        return fault;
    }
    lv_obj_update_layout(record->obj);
    lv_area_t box = record->obj->coords;
    lv_area_increase(&box, MARK_GAP, MARK_GAP);
    lv_obj_t *mark = lv_obj_create(lv_layer_sys());
    lv_obj_remove_style_all(mark);
    lv_obj_clear_flag(mark, LV_OBJ_FLAG_CLICKABLE);
    lv_obj_set_pos(mark, box.x1, box.y1);
    lv_obj_set_size(mark, lv_area_get_width(&box), lv_area_get_height(&box));
    lv_obj_set_style_border_width(mark, MARK_GAP, 0);
    lv_obj_set_style_border_color(mark, lv_color_hex(0x2F7DE1), 0);
    lv_obj_set_style_border_opa(mark, LV_OPA_COVER, 0);
    lv_obj_set_style_outline_width(mark, 1, 0);
    lv_obj_set_style_outline_color(mark, lv_color_white(), 0);
    lv_obj_del_delayed(mark, MARK_MS);
    return "";
}

static std::string cmd_scroll(const cJSON *args, cJSON *) {
    para_t *record = nullptr;
    std::string fault = control_of(args, &record);
    if (fault.empty()) {
        lv_obj_update_layout(record->obj);
        lv_obj_scroll_to(record->obj, inspect_number(args, "x", 0), inspect_number(args, "y", 0), LV_ANIM_OFF);
    }
    return fault;
}

static std::string cmd_link(const cJSON *args, cJSON *reply) {
    return player->link(args, reply);
}

static std::string cmd_snapshot(const cJSON *, cJSON *reply) {
    cJSON_AddItemToObject(reply, "state", inspect_snapshot());
    return "";
}

static std::string cmd_restore(const cJSON *args, cJSON *) {
    return inspect_restore(cJSON_GetObjectItemCaseSensitive(args, "state"));
}

static std::string cmd_quit(const cJSON *args, cJSON *reply) {
    return player->quit(args, reply);
}

static std::string cmd_help(const cJSON *args, cJSON *reply);

static const struct command_t {
    const char *name;
    const char *args; // names separated by spaces; a trailing "?" marks an optional one
    const char *help; // one line
    std::string (*run)(const cJSON *args, cJSON *reply);
    inspect_may_e may; // what a peer must be allowed
    bool early;        // also before a project is loaded
} commands[] = {
    {"help", "", "Lists the commands.", cmd_help, INSPECT_READ, true},
    {"hello", "token?", "Begins a connection to a program. Returns what load returns, without the snapshot.", cmd_hello,
     INSPECT_READ, false},
    {"load", "dir view? language? theme? state?", "Starts the project of a folder, once in the life of a player.",
     cmd_load, INSPECT_PLAYER, true},
    {"show", "view? language? theme? alone?",
     "Changes the view, the language, the theme. With alone, views that show has put on other layers are hidden first.",
     cmd_show, INSPECT_WRITE, false},
    {"state", "control state", "Sets the states of a control: \"pressed+checked\"; \"default\" clears them.", cmd_state,
     INSPECT_WRITE, false},
    {"edit", "file text? splices?",
     "Reads a view's file again, or shows another text in its place, without writing it.", cmd_edit, INSPECT_PLAYER,
     false},
    {"pointer", "x y down", "Moves the finger, and puts it down or lifts it.", cmd_pointer, INSPECT_WRITE, false},
    {"key", "key down", "Presses or releases a key, by its code.", cmd_key, INSPECT_WRITE, false},
    {"advance", "ms", "Lets this time pass.", cmd_advance, INSPECT_PLAYER, false},
    {"picture", "file?", "Returns the picture as PNG, or writes it to a file.", cmd_picture, INSPECT_READ, false},
    {"tree", "view?", "Lists the controls of a view, or of all that are shown.", cmd_tree, INSPECT_READ, false},
    {"review", "",
     "Lists what is shown as tree does, with the texts as they are drawn and what is seen of each control.", cmd_review,
     INSPECT_READ, false},
    {"hit", "x y", "Lists the controls at a place, the topmost first.", cmd_hit, INSPECT_READ, false},
    {"set", "row value control? request?", "Sets a value as a host does, by its row: \"label.text\".", cmd_set,
     INSPECT_WRITE, false},
    {"values", "since?",
     "Lists the values of the controls that are shown, and who wrote each last; with since, only those written after "
     "that change.",
     cmd_values, INSPECT_READ, false},
    {"mark", "control", "Draws a frame around a control for two seconds.", cmd_mark, INSPECT_WRITE, false},
    {"scroll", "control x y", "Scrolls the content of a control.", cmd_scroll, INSPECT_WRITE, false},
    {"link", "", "Opens the project's serial link to a host.", cmd_link, INSPECT_PLAYER, false},
    {"snapshot", "", "Returns what a fresh player needs to show the same.", cmd_snapshot, INSPECT_READ, false},
    {"restore", "state", "Applies a snapshot.", cmd_restore, INSPECT_WRITE, false},
    {"quit", "", "Ends the player.", cmd_quit, INSPECT_PLAYER, true},
};

static std::string cmd_help(const cJSON *, cJSON *reply) {
    static constexpr const char *needs[] = {"read", "write", "player"};
    cJSON *all = cJSON_AddArrayToObject(reply, "commands");
    for (const command_t &command : commands) {
        cJSON *row = cJSON_CreateObject();
        cJSON_AddStringToObject(row, "do", command.name);
        cJSON_AddStringToObject(row, "args", command.args);
        cJSON_AddStringToObject(row, "needs", needs[command.may]);
        cJSON_AddStringToObject(row, "help", command.help);
        cJSON_AddItemToArray(all, row);
    }
    return "";
}

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

static std::string args_check(const command_t *row, const cJSON *line) {
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

static std::string may_check(const command_t *row) {
    if (row->may == INSPECT_PLAYER && current.may < INSPECT_PLAYER) {
        return std::string(row->name) + " is a command of zof_player's parent";
    }
    return row->may > current.may ? needs_write(row->name) : "";
}

static std::string run(const cJSON *line, cJSON *reply) {
    const char *name = inspect_text(line, "do");
    for (const command_t &row : commands) {
        if (!name || strcmp(row.name, name) != 0) {
            continue;
        }
        std::string fault = args_check(&row, line);
        fault = fault.empty() ? may_check(&row) : fault;
        if (fault.empty() && !row.early && !inspect_started()) {
            return "no project is loaded";
        }
        return fault.empty() ? row.run(line, reply) : fault;
    }
    return name ? "there is no command " + std::string(name) : "\"do\" must name a command";
}

static void answer(const inspect_peer_t *peer, cJSON *reply, const std::string &fault) {
    cJSON_AddBoolToObject(reply, "ok", fault.empty());
    if (!fault.empty()) {
        cJSON_AddStringToObject(reply, "error", fault.c_str());
    }
    char *text = cJSON_PrintUnformatted(reply);
    cJSON_Delete(reply);
    current.reply.text = text ? text : "{\"ok\":false}";
    cJSON_free(text);
    peer->put(&current.reply);
    current.reply = {};
}

// What a command has changed is drawn before the next one is executed.
static void refresh() {
    if (inspect_started() && current.may != INSPECT_READ) {
        lv_refr_now(nullptr);
        inspect_frame_publish();
    }
}

void inspect_line_run(const inspect_peer_t *peer, const inspect_reader_t *text) {
    cJSON *line = text->cut ? nullptr : cJSON_ParseWithOpts(text->line.c_str(), nullptr, 1);
    cJSON *reply = cJSON_CreateObject();
    if (!cJSON_IsObject(line)) {
        cJSON_Delete(line);
        answer(peer, reply, text->cut ? "the line is too long" : "the line is not an object of JSON");
        return;
    }
    const cJSON *id = cJSON_GetObjectItemCaseSensitive(line, "id");
    if (id) {
        cJSON_AddItemToObject(reply, "id", cJSON_Duplicate(id, 1));
    }
    current.may = peer->may;
    const std::string fault = run(line, reply);
    refresh();
    answer(peer, reply, fault);
    cJSON_Delete(line);
}
