// What the pages show: the runtime's pictures and the list of what is drawn. A change of a view is shown by the same
// player, any other by a fresh one.
#include <algorithm>
#include <cstring>
#include <map>
#include <set>

#include "design_frame.h"
#include "design_in.h"
#include "drv/zof_drv.h"

enum {
    RESTART_MS = 300, // between the end of a player and its next start
    AGAIN_MS = 5000,  // a player that ends within this time of its start has been ended by the project
    LIVE_MS = 1000,   // between two attempts to reach a program
    POSE_MS = 1000,
    HANG_MS = 10000,   // a player that has not answered by then is ended
    TREE_BUSY_MS = 50, // between two lists of what is drawn, while pictures follow each other
    TREE_LARGE = 300,  // controls; lists of so many are made less often
    TREE_LARGE_MS = 250,
};

// What the reply to a command of the player does.
struct pending_t {
    design_request_t request; // page 0: nobody waits
    bool edit;                // of a file: after an error the project is loaded by a fresh player
    cJSON *reply;             // null until it has come
    u32 at;                   // when it was asked
};

static struct {
    view_session_t edit, run;
    view_session_t *shown = nullptr; // one of them
    std::string mode = "design";
    std::string view, language, theme;
    std::string edit_view; // what the canvas shows again after Run and Live

    std::map<s32, pending_t> pending; // by the id of the command
    std::set<std::string> tried;      // files that are shown with edits that are not written
    s32 tree_id, tree_count;
    bool tree_due;
    u32 tree_at;

    // A choice that waits for the load under way, whose project may be the first one that has the view; null for none.
    cJSON *choice;
    design_request_t choice_request;

    std::string posed, pose; // the control that the picture shows in a state, and the state; empty for none

    u32 loads;      // finished ones of the session that the pages know of
    u32 started_at; // the last start of a player
    u32 ended_at;
    bool ended;             // it has ended and starts again
    std::string state, why; // of the last report on the runtime
} canvas;

cJSON *design_canvas_shown() {
    cJSON *shown = cJSON_CreateObject();
    cJSON_AddStringToObject(shown, "view", canvas.view.c_str());
    cJSON_AddStringToObject(shown, "language", canvas.language.c_str());
    cJSON_AddStringToObject(shown, "theme", canvas.theme.c_str());
    cJSON_AddStringToObject(shown, "mode", canvas.mode.c_str());
    return shown;
}

static void shown_report() {
    cJSON *event = design_event_make("shown");
    cJSON_AddItemToObject(event, "shown", design_canvas_shown());
    design_event(event);
}

const cJSON *design_canvas_project() {
    return canvas.edit.project;
}

// What a session says of its next start is for windows; the page says it itself.
static void runtime_report(const char *state, const std::string &said) {
    const std::string note = said.substr(0, said.find("; it starts again"));
    canvas.state = state;
    canvas.why = note;
    cJSON *event = design_event_make("runtime");
    cJSON_AddStringToObject(event, "state", state);
    cJSON_AddStringToObject(event, "note", note.c_str());
    cJSON_AddNumberToObject(event, "ms", 0);
    design_event(event);
}

// Sends a command whose reply answers the request.
static void ask(const design_request_t &request, cJSON *command, bool edit) {
    const s32 id = view_session_send(canvas.shown, command);
    if (id) {
        canvas.pending[id] = {request, edit, nullptr, zof_sys_time_ms()};
    } else if (request.page) {
        design_refuse(request, "the runtime is not running");
    }
}

void design_canvas_ask(const design_request_t &request, cJSON *command) {
    ask(request, command, false);
}

// ---- events of the player

static void tree_ask() {
    canvas.tree_due = false;
    canvas.tree_at = zof_sys_time_ms();
    canvas.tree_id = view_session_send(canvas.shown, view_command("tree"));
}

// Pages name files by their way from the project folder.
static void file_shorten(cJSON *place) {
    cJSON *file = cJSON_GetObjectItemCaseSensitive(place, "file");
    const std::string path = cJSON_IsString(file) ? file->valuestring : "";
    if (path.starts_with(design.folder)) {
        cJSON_SetValuestring(file, path.substr(design.folder.size()).c_str());
    }
}

static cJSON *control_of(const cJSON *drawn) {
    cJSON *control = cJSON_Duplicate(drawn, 1);
    cJSON *style = nullptr;
    file_shorten(cJSON_GetObjectItemCaseSensitive(control, "place"));
    cJSON_ArrayForEach(style, cJSON_GetObjectItemCaseSensitive(control, "styles")) {
        file_shorten(style);
    }
    return control;
}

static void tree_send(const cJSON *reply) {
    cJSON *event = design_event_make("tree");
    cJSON_AddNumberToObject(event, "number", design_frame_number());
    cJSON_AddItemToObject(event, "shown", design_canvas_shown());
    cJSON *controls = cJSON_AddArrayToObject(event, "controls");
    const cJSON *views = cJSON_GetObjectItemCaseSensitive(reply, "views"); // the topmost layer first
    for (s32 i = cJSON_GetArraySize(views) - 1; i >= 0; i--) {
        const cJSON *control = nullptr;
        cJSON_ArrayForEach(control, cJSON_GetObjectItemCaseSensitive(cJSON_GetArrayItem(views, i), "controls")) {
            cJSON_AddItemToArray(controls, control_of(control));
        }
    }
    canvas.tree_count = cJSON_GetArraySize(controls);
    design_event(event);
}

static void view_take(const cJSON *line) {
    canvas.view = design_text_of(line, "view");
    shown_report();
}

static void event_take(const cJSON *line) {
    const std::string name = design_text_of(line, "event");
    if (name == "view") {
        view_take(line);
    } else if (name == "message") {
        cJSON *event = cJSON_Duplicate(line, 1);
        file_shorten(event);
        design_event(event);
    } else if (name == "control") {
        cJSON *event = cJSON_Duplicate(line, 1);
        cJSON_ReplaceItemInObject(event, "event", cJSON_CreateString("touched"));
        cJSON_AddNumberToObject(event, "time", (double)design_now_ms());
        design_event(event);
    }
}

static void line_take(const cJSON *line) {
    const cJSON *id = cJSON_GetObjectItemCaseSensitive(line, "id");
    const s32 number = cJSON_IsNumber(id) ? id->valueint : 0;
    if (design_values_take(line)) {
        return;
    }
    const auto found = canvas.pending.find(number);
    if (number && number == canvas.tree_id) {
        canvas.tree_id = 0;
        tree_send(line);
    } else if (number && found != canvas.pending.end()) {
        found->second.reply = cJSON_Duplicate(line, 1);
    } else if (!number) {
        event_take(line);
    }
}

static void pose_send(const design_request_t &request) {
    cJSON *command = view_command("state");
    cJSON_AddStringToObject(command, "control", canvas.posed.c_str());
    cJSON_AddStringToObject(command, "state", canvas.pose.c_str());
    ask(request, command, false);
    cJSON *advance = view_command("advance"); // states may fade in, and the time of the picture stands still
    cJSON_AddNumberToObject(advance, "ms", POSE_MS);
    ask({}, advance, false);
    canvas.tree_due = true;
}

// A control that a file describes again has lost its state.
static void pose_again() {
    if (canvas.mode == "design" && !canvas.posed.empty()) {
        pose_send({});
    }
}

static void reply_send(const pending_t &done) {
    const bool good = cJSON_IsTrue(cJSON_GetObjectItemCaseSensitive(done.reply, "ok"));
    if (done.edit && good) {
        pose_again();
    }
    if (done.edit && !good) {
        view_session_reload(canvas.shown);
    }
    if (!done.request.page) {
        return;
    }
    if (!good && !done.edit) {
        design_refuse(done.request, design_text_of(done.reply, "error"));
        return;
    }
    cJSON *reply = cJSON_CreateObject();
    const cJSON *part = nullptr;
    cJSON_ArrayForEach(part, done.reply) {
        const std::string name = part->string;
        if (name != "id" && name != "ok" && name != "error") {
            cJSON_AddItemToObject(reply, part->string, cJSON_Duplicate(part, 1));
        }
    }
    design_answer(done.request, reply);
}

// Sends the replies that have come, after the frames that they caused.
static void replies_send() {
    for (auto at = canvas.pending.begin(); at != canvas.pending.end();) {
        if (at->second.reply) {
            reply_send(at->second);
            cJSON_Delete(at->second.reply);
            at = canvas.pending.erase(at);
        } else {
            ++at;
        }
    }
}

// Their player has ended.
static void pending_drop() {
    for (const auto &[id, pending] : canvas.pending) {
        if (pending.request.page && pending.edit) {
            design_answer(pending.request, cJSON_CreateObject());
        } else if (pending.request.page) {
            design_refuse(pending.request, "the runtime was started again");
        }
        cJSON_Delete(pending.reply);
    }
    canvas.pending.clear();
    canvas.tree_id = 0;
    design_values_all();
}

// ---- players

static void session_prepare(view_session_t *session) {
    session->dir = design.folder;
    session->loud = design.loud;
    session->first = view_command("load");
    session->tell = line_take;
    session->wake = design.wake;
    if (design_tile_player()) {
        session->also = {design_tile_player()};
    }
}

// Takes over what other programs have changed. Returns whether the project has to be loaded again: also if it could not
// be shown, because a file may have become readable.
static bool files_changed() {
    bool reload = canvas.edit.note_grave || !view_player_runs(&canvas.edit.shown);
    const s64 now = design_now_ms();
    for (const u32 number : design_files_look(design.files, now)) {
        const std::vector<design_gesture_t> &all = design_files_gestures(design.files);
        const auto gesture = std::find_if(all.begin(), all.end(),
                                          [number](const design_gesture_t &one) { return one.number == number; });
        if (number == 0 || gesture == all.end()) {
            reload = true; // a picture, a font
            design_tile_file("");
            continue;
        }
        design_gesture_report(&*gesture, "elsewhere", 0);
    }
    design_check_ask();
    return reload;
}

std::string design_canvas_start() {
    canvas.shown = &canvas.edit;
    session_prepare(&canvas.edit);
    canvas.edit.changed_fn = files_changed;
    canvas.started_at = zof_sys_time_ms();
    return view_session_start(&canvas.edit, true);
}

static void project_report() {
    const cJSON *project = canvas.shown->project;
    canvas.view = design_text_of(project, "view");
    canvas.language = design_text_of(project, "language");
    canvas.theme = design_text_of(project, "theme");
    cJSON *event = design_event_make("project");
    cJSON_AddItemToObject(event, "project", design_project());
    design_event(event);
    if (!canvas.choice) { // which is shown next, and reported then
        shown_report();
    }
}

static bool view_exists(const std::string &name) {
    const cJSON *view = nullptr;
    cJSON_ArrayForEach(view, cJSON_GetObjectItemCaseSensitive(canvas.shown->project, "views")) {
        if (design_text_of(view, "name") == name) {
            return true;
        }
    }
    return false;
}

static void choose(const design_request_t &request, const cJSON *args) {
    const std::string view = design_text_of(args, "view");
    if (!view.empty() && !view_exists(view)) {
        if (request.page) {
            design_refuse(request, "there is no view " + view);
        }
        shown_report();
        return;
    }
    cJSON *command = view_command("show");
    cJSON_AddBoolToObject(command, "alone", true);
    for (const char *name : {"view", "language", "theme"}) {
        const char *value = cJSON_GetStringValue(cJSON_GetObjectItemCaseSensitive(args, name));
        if (value) {
            cJSON_AddStringToObject(command, name, value);
        }
    }
    canvas.language = !design_text_of(args, "language").empty() ? design_text_of(args, "language") : canvas.language;
    canvas.theme = !design_text_of(args, "theme").empty() ? design_text_of(args, "theme") : canvas.theme;
    if (!view.empty() && canvas.view != view) {
        canvas.view = view;
        canvas.posed.clear();
    }
    ask(request, command, false);
    shown_report();
    canvas.tree_due = true;
}

static bool loads_soon() {
    return canvas.shown->changed || canvas.shown->load_id;
}

// A choice waits while another load follows, which would bring back what was shown when the files changed.
static void choice_take() {
    if (canvas.choice && !loads_soon()) {
        cJSON *choice = canvas.choice;
        canvas.choice = nullptr;
        choose(canvas.choice_request, choice);
        cJSON_Delete(choice);
    }
}

static void runtime_loaded() {
    const view_session_t *session = canvas.shown;
    const bool runs = view_player_runs(&session->shown) && !session->note_grave;
    runtime_report(runs ? "runs" : "stopped", session->note);
}

// Notices that a fresh player has drawn the project, or could not.
static void loads_take() {
    view_session_t *session = canvas.shown;
    if (session->loads == canvas.loads) {
        return;
    }
    canvas.loads = session->loads;
    pending_drop();
    canvas.tried.clear();
    if (session->project) {
        project_report();
    }
    canvas.ended = false;
    runtime_loaded();
    canvas.tree_due = true;
    pose_again();
    choice_take();
}

// Starts a player that has ended again: soon, but once more only after the next edit if it ends at once.
static void end_take() {
    view_session_t *session = canvas.shown;
    const u32 now = zof_sys_time_ms();
    if (session->load_id || view_player_runs(&session->shown)) {
        return;
    }
    if (!canvas.ended) {
        canvas.ended = true;
        canvas.ended_at = now;
        pending_drop();
        runtime_report("stopped", session->note);
    }
    if (canvas.mode == "live") { // the program may be started at any time
        if (now - canvas.ended_at >= LIVE_MS) {
            canvas.ended_at = now;
            view_session_reload(session);
        }
        return;
    }
    const auto lived = (s32)(canvas.ended_at - canvas.started_at); // negative while it starts again
    if (lived >= AGAIN_MS && now - canvas.ended_at >= RESTART_MS) {
        canvas.started_at = now;
        runtime_report("starts", "");
        view_session_reload(session);
    }
}

// Ends a player that answers nothing, which a loop in the runtime or a stopped process would otherwise leave on the
// page for good.
static void hang_take() {
    const u32 now = zof_sys_time_ms();
    bool hangs = canvas.tree_id && now - canvas.tree_at > HANG_MS;
    for (const auto &[id, pending] : canvas.pending) {
        hangs = hangs || (!pending.reply && now - pending.at > HANG_MS);
    }
    if (hangs && !canvas.shown->load_id) {
        view_player_stop(&canvas.shown->shown);
        canvas.shown->note = "the runtime did not answer for " + std::to_string(HANG_MS / 1000) + " s";
    }
}

static void tree_step() {
    const u32 since = zof_sys_time_ms() - canvas.tree_at;
    const bool busy = !canvas.tried.empty() || canvas.mode != "design";
    const u32 wait = !busy ? 0 : canvas.tree_count > TREE_LARGE ? TREE_LARGE_MS : TREE_BUSY_MS;
    if (canvas.tree_due && !canvas.tree_id && since >= wait) {
        tree_ask();
    }
}

void design_canvas_step(s32 ms) {
    view_session_step(canvas.shown, canvas.tree_due && !canvas.tree_id ? std::min(ms, 10) : ms);
    if (canvas.shown->drawn) {
        canvas.shown->drawn = false;
        canvas.tree_due = true;
        design_frame_take(&canvas.shown->picture);
    }
    design_frame_send();
    replies_send();
    loads_take();
    hang_take();
    end_take();
    tree_step();
    if (canvas.mode != "design") {
        design_values_step(canvas.shown);
    }
}

// A page that is opened, or loaded again, is a reason to try again what the project has ended.
void design_canvas_show(u32 page) {
    design_frame_whole(page);
    canvas.tree_due = true;
    if (canvas.ended) {
        canvas.started_at = zof_sys_time_ms();
        view_session_reload(canvas.shown);
    }
    if (!canvas.state.empty()) {
        runtime_report(canvas.state.c_str(), std::string(canvas.why));
    }
    design_values_all();
}

// ---- changes

static bool is_view(const std::string &file) {
    return file.starts_with("config/view/") && file.ends_with(".g");
}

// Returns the command that shows a file as it is now, also if it cannot be written.
static cJSON *edit_command(const std::string &file) {
    cJSON *command = view_command("edit");
    cJSON_AddStringToObject(command, "file", file.c_str());
    const std::string *text =
        design_files_error(design.files).empty() ? nullptr : design_files_text(design.files, file, nullptr);
    if (text) {
        cJSON_AddStringToObject(command, "text", text->c_str());
    }
    return command;
}

void design_canvas_file(const std::string &file) {
    canvas.tried.erase(file);
    if (canvas.mode == "design" && is_view(file) && view_player_runs(&canvas.edit.shown)) {
        ask({}, edit_command(file), true);
    } else {
        view_session_reload(&canvas.edit);
    }
    if (canvas.mode == "run") {
        view_session_reload(&canvas.run);
    }
    if (canvas.ended) {
        canvas.started_at = zof_sys_time_ms();
    }
}

void design_canvas_try(const design_request_t &request, const std::vector<design_splice_t> &splices) {
    std::map<std::string, cJSON *> commands;
    for (const std::string &file : canvas.tried) {
        commands[file] = edit_command(file);
    }
    canvas.tried.clear();
    for (const design_splice_t &splice : splices) {
        if (!is_view(splice.file)) {
            continue; // is seen when it is written
        }
        cJSON *&command = commands[splice.file];
        command = command ? command : edit_command(splice.file);
        canvas.tried.insert(splice.file);
        cJSON *rows = cJSON_GetObjectItemCaseSensitive(command, "splices");
        rows = rows ? rows : cJSON_AddArrayToObject(command, "splices");
        cJSON *row = cJSON_CreateArray();
        cJSON_AddItemToArray(row, cJSON_CreateNumber(splice.at));
        cJSON_AddItemToArray(row, cJSON_CreateNumber((double)splice.at + (double)splice.before.size()));
        cJSON_AddItemToArray(row, cJSON_CreateString(splice.after.c_str()));
        cJSON_AddItemToArray(rows, row);
    }
    if (commands.empty()) {
        design_answer(request, cJSON_CreateObject());
    }
    for (auto at = commands.begin(); at != commands.end();) {
        cJSON *command = at->second;
        ++at;
        ask(at == commands.end() ? request : design_request_t{}, command, true);
    }
}

void design_canvas_pose(const design_request_t &request, const cJSON *args) {
    canvas.posed = design_text_of(args, "control");
    canvas.pose = design_text_of(args, "state");
    pose_send(request);
    if (canvas.pose == "default") {
        canvas.posed.clear();
    }
}

void design_canvas_choose(const design_request_t &request, const cJSON *args) {
    if (canvas.choice && canvas.choice_request.page) {
        design_answer(canvas.choice_request, cJSON_CreateObject());
    }
    cJSON_Delete(canvas.choice);
    canvas.choice = nullptr;
    if (loads_soon()) {
        canvas.choice = cJSON_Duplicate(args, 1);
        canvas.choice_request = request;
    } else {
        choose(request, args);
    }
}

// Connects to a running program, which keeps its view, language and theme.
static std::string live_start(const std::string &address) {
    session_prepare(&canvas.run);
    canvas.run.port = (u32)strtoul(address.c_str(), nullptr, 10);
    return canvas.run.port > 0 && canvas.run.port < 65536 ? view_session_start(&canvas.run, false)
                                                          : "the address must be the number of a port";
}

// Starts a second player, with real time, which begins as the canvas is now.
static std::string run_start() {
    session_prepare(&canvas.run);
    canvas.run.live = true;
    for (const auto &[name, value] :
         {std::pair{"view", &canvas.view}, {"language", &canvas.language}, {"theme", &canvas.theme}}) {
        if (!value->empty()) {
            cJSON_AddStringToObject(canvas.run.first, name, value->c_str());
        }
    }
    return view_session_start(&canvas.run, false);
}

// Shows the other session, from its first picture on.
static void mode_set(const std::string &mode) {
    const bool edit = mode == "design";
    canvas.edit_view = canvas.mode == "design" ? canvas.view : canvas.edit_view;
    canvas.mode = mode;
    canvas.shown = edit ? &canvas.edit : &canvas.run;
    canvas.loads = edit ? canvas.edit.loads : 0;
    canvas.started_at = zof_sys_time_ms();
    canvas.shown->drawn = edit;
    canvas.tree_due = true;
    canvas.view = edit ? canvas.edit_view : canvas.view;
    canvas.ended = false;
    shown_report();
    if (edit) {
        runtime_loaded();
    } else {
        runtime_report("starts", "");
    }
}

void design_canvas_mode(const design_request_t &request, const cJSON *args) {
    const std::string mode = design_text_of(args, "mode");
    if (mode != "design" && mode != "run" && mode != "live") {
        design_refuse(request, "there is no mode " + mode);
        return;
    }
    pending_drop();
    view_session_stop(&canvas.run);
    canvas.run = {};
    const std::string fault = mode == "run"    ? run_start()
                              : mode == "live" ? live_start(design_text_of(args, "address"))
                                               : "";
    mode_set(fault.empty() ? mode : "design");
    if (fault.empty()) {
        design_answer(request, cJSON_CreateObject());
    } else {
        design_refuse(request, fault);
    }
}
