#include "view_session.h"

#include <cstring>

#include "drv/zof_drv.h"
#include "view.h"

// Saving a file often causes several changes, so loading waits a short while for the next one. It also waits for a
// snapshot of the player on screen, but not longer than SNAPSHOT_MS, because that player may hang.
enum { QUIET_MS = 10, RESTLESS_MS = 60, SNAPSHOT_MS = 100, LOAD_MS = 10000, HELLO_MS = 5000 };
enum { PICTURE_MS = 100 }; // between pictures of a program, which has to encode them

static bool is_ok(const cJSON *line) {
    return cJSON_IsTrue(cJSON_GetObjectItem(line, "ok"));
}

static bool is_reply(const cJSON *line, s32 id) {
    const cJSON *of = cJSON_GetObjectItem(line, "id");
    return id && cJSON_IsNumber(of) && of->valueint == id;
}

static bool is_event(const cJSON *line, const char *name) {
    const char *event = cJSON_GetStringValue(cJSON_GetObjectItem(line, "event"));
    return event && strcmp(event, name) == 0;
}

static void note_set(view_session_t *session, const std::string &text, bool grave) {
    session->note = text;
    session->note_grave = grave;
    session->drawn = true;
}

static void picture_take(view_session_t *session) {
    view_image_t *image = &session->picture;
    session->drawn =
        view_player_picture(&session->shown, &image->pixels, &image->width, &image->height) || session->drawn;
}

// Starts a player in advance, which makes the next change faster.
static void spare_start(view_session_t *session) {
    if (session->port) {
        return;
    }
    if (view_player_runs(&session->spare) && !view_player_poll(&session->spare, [](const cJSON *) {})) {
        view_player_stop(&session->spare);
    }
    if (!view_player_runs(&session->spare)) {
        view_player_start(&session->spare, session->live, session->loud);
    }
}

static void next_drop(view_session_t *session) {
    view_player_stop(&session->next);
    session->load_id = 0;
    session->loads++;
}

static std::string program_start(view_session_t *session) {
    std::string fault = view_player_attach(&session->next, session->port);
    if (fault.empty()) {
        session->load_id = view_player_send(&session->next, view_player_hello(session->port));
        session->load_at = zof_sys_time_ms();
    }
    return fault;
}

static void load_begin(view_session_t *session) {
    session->changed = false;
    session->message.clear();
    session->broken = false;
    if (session->port) {
        const std::string fault = program_start(session);
        if (!fault.empty()) {
            note_set(session, fault, true);
        }
        return;
    }
    spare_start(session);
    session->next = session->spare;
    session->spare = {};
    cJSON *command = session->state || !session->first ? view_command("load") : cJSON_Duplicate(session->first, 1);
    cJSON_AddStringToObject(command, "dir", session->dir.c_str());
    if (session->state) {
        cJSON_AddItemToObject(command, "state", cJSON_Duplicate(session->state, 1));
    }
    session->load_id = view_player_send(&session->next, command);
    session->load_at = zof_sys_time_ms();
}

// Makes the choices of the first load in a program, which is loaded already.
static void program_begin(view_session_t *session) {
    session->outdated = true;
    if (session->first->child->next) {
        cJSON *show = cJSON_Duplicate(session->first, 1);
        cJSON_ReplaceItemInObject(show, "do", cJSON_CreateString("show"));
        view_player_send(&session->shown, show);
    }
}

// Shows the loaded player. The old one is stopped first, because only one player at a time can use the serial line.
static void next_show(view_session_t *session, const cJSON *reply) {
    view_player_stop(&session->shown);
    session->shown = session->next;
    session->next = {};
    session->load_id = 0;
    session->loads++;
    session->state_id = 0;
    cJSON_Delete(session->project);
    session->project = cJSON_Duplicate(reply, 1);
    cJSON_Delete(session->restored);
    session->restored = cJSON_DetachItemFromObject(session->project, "state");
    if (session->live) {
        view_player_send(&session->shown, view_command("link"));
    }
    note_set(session, session->message, false);
    if (session->port) {
        program_begin(session);
    }
    picture_take(session);
}

static void load_end(view_session_t *session, const cJSON *reply) {
    if (is_ok(reply) && !(session->broken && session->project)) { // a first picture is better than none
        next_show(session, reply);
    } else {
        const char *error = cJSON_GetStringValue(cJSON_GetObjectItem(reply, "error"));
        note_set(session, !session->message.empty() ? session->message : error ? error : "", true);
        next_drop(session);
    }
    spare_start(session);
}

// Returns why the next player, or the program at the port, is not shown; empty while it may still answer.
static std::string next_fault(const view_session_t *session, bool runs) {
    const u32 waited = zof_sys_time_ms() - session->load_at;
    if (session->port) {
        const std::string port = "port " + std::to_string(session->port);
        return !runs               ? port + " is not that of a panel: " + session->next.ended
               : waited > HELLO_MS ? port + " does not answer as a panel does"
                                   : "";
    }
    return !runs              ? "the player ended with " + session->next.ended + "; it starts again at the next change"
           : waited > LOAD_MS ? "the player does not answer; it starts again at the next change"
                              : "";
}

static void next_poll(view_session_t *session) {
    cJSON *reply = nullptr;
    const bool runs = view_player_poll(&session->next, [&](const cJSON *line) {
        const bool broken = cJSON_IsTrue(cJSON_GetObjectItem(line, "broken"));
        if (is_event(line, "message") && (session->message.empty() || (broken && !session->broken))) {
            session->message = view_message_text(line);
            session->broken = broken;
        }
        const bool refused = session->port && cJSON_GetObjectItem(line, "error") && !cJSON_GetObjectItem(line, "id");
        if ((refused || is_reply(line, session->load_id)) && !reply) {
            reply = cJSON_Duplicate(line, 1);
        }
    });
    const std::string fault = next_fault(session, runs);
    if (reply) {
        load_end(session, reply);
    } else if (!fault.empty()) {
        note_set(session, fault, true);
        next_drop(session);
    }
    cJSON_Delete(reply);
}

// Stores a snapshot. Parts that have not changed since the player was loaded keep the form in which the player received
// them, so that a view or value that is missing from the project for a moment is restored when it comes back.
static void state_take(view_session_t *session, const cJSON *now) {
    cJSON *state = cJSON_Duplicate(now, 1);
    for (const cJSON *part = now ? now->child : nullptr; part; part = part->next) {
        const cJSON *given = cJSON_GetObjectItem(session->state, part->string);
        if (given && cJSON_Compare(part, cJSON_GetObjectItem(session->restored, part->string), 1)) {
            cJSON_ReplaceItemInObject(state, part->string, cJSON_Duplicate(given, 1));
        }
    }
    if (state) {
        cJSON_Delete(session->state);
        session->state = state;
    }
}

static void shown_take(view_session_t *session, const cJSON *line, bool *frame) {
    *frame = *frame || is_event(line, "frame");
    if (is_event(line, "message")) {
        note_set(session, view_message_text(line), false);
    }
    if (is_reply(line, session->picture_id)) {
        const char *png = cJSON_GetStringValue(cJSON_GetObjectItem(line, "png"));
        session->picture_id = 0;
        session->drawn = (png && view_png_read(&session->picture, view_base64(png))) || session->drawn;
    } else if (is_reply(line, session->state_id)) {
        session->state_id = 0;
        state_take(session, cJSON_GetObjectItem(line, "state"));
    } else if (session->tell) {
        session->tell(line);
    }
}

static void ended_note(view_session_t *session) {
    session->state_id = 0;
    note_set(session,
             session->port ? "the program has ended"
                           : "the player ended with " + session->shown.ended + "; it starts again at the next change",
             true);
}

static void program_look(view_session_t *session) {
    const u32 now = zof_sys_time_ms();
    if (session->outdated && !session->picture_id && now - session->picture_at >= PICTURE_MS) {
        session->outdated = false;
        session->picture_at = now;
        session->picture_id = view_player_send(&session->shown, view_command("picture"));
    }
}

static void shown_poll(view_session_t *session) {
    bool frame = false;
    if (!view_player_runs(&session->shown)) {
        return;
    }
    const bool runs = view_player_poll(&session->shown, [&](const cJSON *line) { shown_take(session, line, &frame); });
    if (session->port) {
        session->outdated = session->outdated || frame;
        program_look(session);
    } else if (frame) {
        picture_take(session);
    }
    if (!runs) {
        ended_note(session);
    }
}

static void change_note(view_session_t *session) {
    const u32 now = zof_sys_time_ms();
    if (!session->changed) {
        session->first_changed_at = now;
        if (!session->state_id && view_player_runs(&session->shown)) {
            session->state_id = view_player_send(&session->shown, view_command("snapshot"));
        }
    }
    session->changed = true;
    session->changed_at = now;
}

// While a project is loading, further changes wait; otherwise a series of quick changes would never show any of them.
static void change_check(view_session_t *session) {
    if (view_watch_changed(&session->watch) && (!session->changed_fn || session->changed_fn())) {
        change_note(session);
    }
    if (!session->changed || session->load_id) {
        return;
    }
    const u32 now = zof_sys_time_ms();
    const bool settled = now - session->changed_at >= QUIET_MS || now - session->first_changed_at >= RESTLESS_MS;
    if (settled && (!session->state_id || now - session->first_changed_at >= SNAPSHOT_MS)) {
        load_begin(session);
    }
}

std::string view_session_start(view_session_t *session, bool watch) {
    if (session->port) {
        return program_start(session);
    }
    const std::string fault = watch ? view_watch_start(&session->watch, session->dir) : "";
    if (fault.empty()) {
        load_begin(session);
    }
    return fault.empty() ? session->next.ended : fault;
}

void view_session_stop(view_session_t *session) {
    for (view_player_t *player : {&session->shown, &session->next, &session->spare}) {
        view_player_stop(player);
    }
    cJSON_Delete(session->first);
    cJSON_Delete(session->project);
    cJSON_Delete(session->state);
    cJSON_Delete(session->restored);
    session->first = session->project = session->state = session->restored = nullptr;
}

void view_session_step(view_session_t *session, s32 ms) {
    std::vector<view_player_t *> players = {&session->shown, &session->next};
    players.insert(players.end(), session->also.begin(), session->also.end());
    view_player_wait(players, session->watch.handle, session->changed ? 2 : ms, session->wake);
    shown_poll(session);
    if (session->load_id) {
        next_poll(session);
    }
    change_check(session);
}

void view_session_reload(view_session_t *session) {
    change_note(session);
}

s32 view_session_send(view_session_t *session, cJSON *command) {
    if (view_player_runs(&session->shown)) {
        return view_player_send(&session->shown, command);
    }
    cJSON_Delete(command);
    return 0;
}
