// The requests of the pages, one row each. page/src/protocol.ts has their types.
#include <cstring>
#include <set>

#include "design_in.h"
#include "zof_lib/zof_util.h"

#ifndef ZOF_VERSION_TEXT
#define ZOF_VERSION_TEXT "1"
#endif

static cJSON *texts(const std::vector<std::string> &all) {
    cJSON *array = cJSON_CreateArray();
    for (const std::string &text : all) {
        cJSON_AddItemToArray(array, cJSON_CreateString(text.c_str()));
    }
    return array;
}

void design_gesture_report(const design_gesture_t *gesture, const char *cause, u32 origin) {
    std::set<std::string> files;
    for (const design_splice_t &splice : gesture->splices) {
        files.insert(splice.file);
    }
    for (const std::string &file : files) {
        std::string hash;
        const bool there = design_files_text(design.files, file, &hash) != nullptr;
        cJSON *event = design_event_make("file");
        cJSON_AddStringToObject(event, "file", file.c_str());
        cJSON_AddStringToObject(event, "hash", hash.c_str());
        cJSON_AddBoolToObject(event, "deleted", !there);
        cJSON_AddItemToObject(event, "gesture", design_gesture_json(design.files, gesture));
        cJSON_AddStringToObject(event, "cause", cause);
        cJSON_AddNumberToObject(event, "origin", origin);
        cJSON_AddItemToObject(event, "undo", design_undo_json(design.files));
        design_event(event);
        design_canvas_file(file);
        design_tile_file(file);
    }
    design_check_ask();
}

// A member of a reply.
struct member_t {
    const char *name;
    cJSON *value;
};

// Answers with a gesture and other members, or with the error if it is null.
static void gesture_answer(const design_request_t &request, const design_gesture_t *gesture, const char *cause,
                           const std::string &error, std::initializer_list<member_t> members = {}) {
    cJSON *reply = cJSON_CreateObject();
    for (const member_t &member : members) {
        cJSON_AddItemToObject(reply, member.name, member.value);
    }
    if (!gesture) {
        cJSON_Delete(reply);
        design_refuse(request, error);
        return;
    }
    cJSON_AddItemToObject(reply, "gesture", design_gesture_json(design.files, gesture));
    design_gesture_report(gesture, cause, request.page);
    design_answer(request, reply);
}

static void run_hello(const design_request_t &request, const cJSON *) {
    cJSON *reply = cJSON_CreateObject();
    cJSON_AddNumberToObject(reply, "page", request.page);
    if (!design.files) {
        cJSON_AddItemToObject(reply, "empty", design_new_empty());
        design_answer(request, reply);
        return;
    }
    cJSON_AddItemToObject(reply, "project", design_project());
    cJSON_AddItemToObject(reply, "shown", design_canvas_shown());
    cJSON_AddItemToObject(reply, "undo", design_undo_json(design.files));
    cJSON_AddStringToObject(reply, "version", ZOF_VERSION_TEXT);
    design_answer(request, reply);
    design_check_ask();
}

static void run_source(const design_request_t &request, const cJSON *args) {
    std::string hash;
    const std::string *text = design_files_text(design.files, design_text_of(args, "file"), &hash);
    if (!text) {
        design_refuse(request, "there is no file " + design_text_of(args, "file"));
        return;
    }
    if (text->find('\0') != std::string::npos || zof_utf8_bad(text->data(), text->size())) {
        design_refuse(request, design_text_of(args, "file") + " is not a text in UTF-8");
        return;
    }
    cJSON *reply = cJSON_CreateObject();
    cJSON_AddStringToObject(reply, "text", text->c_str());
    cJSON_AddStringToObject(reply, "hash", hash.c_str());
    design_answer(request, reply);
}

static void run_read(const design_request_t &request, const cJSON *args) {
    std::string error;
    cJSON *values = design_files_read(design.files, design_text_of(args, "file"), design_text_of(args, "path"), &error);
    if (!values) {
        design_refuse(request, error);
        return;
    }
    cJSON *reply = cJSON_CreateObject();
    cJSON_AddItemToObject(reply, "values", values);
    design_answer(request, reply);
}

static void run_edit(const design_request_t &request, const cJSON *args) {
    std::string error;
    const design_gesture_t *gesture =
        design_files_edit(design.files, cJSON_GetObjectItemCaseSensitive(args, "edits"), design_text_of(args, "label"),
                          design_text_of(args, "merge"), design_now_ms(), &error);
    gesture_answer(request, gesture, "edit", error);
}

// Shows edits, unless they could not be made.
static void try_answer(const design_request_t &request, const cJSON *edits, std::string error) {
    std::vector<design_splice_t> splices;
    error = error.empty() ? design_files_plan(design.files, edits, &splices) : error;
    if (!error.empty()) {
        design_refuse(request, error);
        return;
    }
    design_canvas_try(request, splices);
}

static void run_try(const design_request_t &request, const cJSON *args) {
    try_answer(request, cJSON_GetObjectItemCaseSensitive(args, "edits"), "");
}

static void run_undo(const design_request_t &request, const cJSON *) {
    std::string error;
    gesture_answer(request, design_files_undo(design.files, &error), "undo", error);
}

static void run_redo(const design_request_t &request, const cJSON *) {
    std::string error;
    gesture_answer(request, design_files_redo(design.files, &error), "redo", error);
}

static void run_take_back(const design_request_t &request, const cJSON *args) {
    std::string error;
    const cJSON *number = cJSON_GetObjectItemCaseSensitive(args, "number");
    const design_gesture_t *gesture = design_files_take_back(
        design.files, cJSON_IsNumber(number) ? (u32)number->valueint : 0, design_now_ms(), &error);
    gesture_answer(request, gesture, "edit", error);
}

static void run_save(const design_request_t &request, const cJSON *) {
    design_files_save(design.files);
    design_answer(request, cJSON_CreateObject());
}

static void run_changes(const design_request_t &request, const cJSON *) {
    cJSON *reply = cJSON_CreateObject();
    cJSON *all = cJSON_AddArrayToObject(reply, "gestures");
    for (const design_gesture_t &gesture : design_files_gestures(design.files)) {
        cJSON_AddItemToArray(all, design_gesture_json(design.files, &gesture));
    }
    design_answer(request, reply);
}

// Applies the edits of an operation on controls.
static const design_gesture_t *operation_apply(cJSON *edits, const std::string &label, std::string *error) {
    const design_gesture_t *gesture =
        edits ? design_files_edit(design.files, edits, label, "", design_now_ms(), error) : nullptr;
    cJSON_Delete(edits);
    return gesture;
}

static std::string last_name(const std::string &path) {
    return path.substr(path.find_last_of('/') + 1);
}

// "Delete brew", "Delete 3 controls".
static std::string label_of(const char *verb, const cJSON *args) {
    const cJSON *controls = cJSON_GetObjectItemCaseSensitive(args, "controls");
    const s32 count = cJSON_GetArraySize(controls);
    const char *first = cJSON_GetStringValue(cJSON_GetArrayItem(controls, 0));
    return std::string(verb) + " " + (count == 1 && first ? last_name(first) : std::to_string(count) + " controls");
}

static cJSON *first_of(const std::vector<std::string> &made) {
    return cJSON_CreateString(made.empty() ? "" : made[0].c_str());
}

static void run_add(const design_request_t &request, const cJSON *args) {
    std::string error;
    std::vector<std::string> made;
    cJSON *edits = design_control_add(design.files, args, &made, &error);
    if (cJSON_IsTrue(cJSON_GetObjectItemCaseSensitive(args, "try"))) {
        try_answer(request, edits, error);
        cJSON_Delete(edits);
        return;
    }
    const design_gesture_t *gesture =
        operation_apply(edits, "Add " + (made.empty() ? design_text_of(args, "type") : last_name(made[0])), &error);
    gesture_answer(request, gesture, "edit", error, {{"control", first_of(made)}});
}

static void run_duplicate(const design_request_t &request, const cJSON *args) {
    std::string error;
    std::vector<std::string> made;
    cJSON *edits = design_control_duplicate(design.files, args, &made, &error);
    const design_gesture_t *gesture = operation_apply(edits, label_of("Duplicate", args), &error);
    gesture_answer(request, gesture, "edit", error, {{"controls", texts(made)}});
}

static void run_paste(const design_request_t &request, const cJSON *args) {
    std::string error;
    std::vector<std::string> made;
    cJSON *edits = design_control_paste(design.files, args, &made, &error);
    const design_gesture_t *gesture =
        operation_apply(edits, made.size() == 1 ? "Paste " + last_name(made[0]) : "Paste", &error);
    gesture_answer(request, gesture, "edit", error, {{"controls", texts(made)}});
}

static void run_copy(const design_request_t &request, const cJSON *args) {
    std::string error;
    const std::string text = design_control_copy(design.files, args, &error);
    if (!error.empty()) {
        design_refuse(request, error);
        return;
    }
    cJSON *reply = cJSON_CreateObject();
    cJSON_AddStringToObject(reply, "text", text.c_str());
    design_answer(request, reply);
}

static void run_delete(const design_request_t &request, const cJSON *args) {
    std::string error;
    std::vector<std::string> uses;
    cJSON *edits = design_control_delete(design.files, args, &uses, &error);
    const design_gesture_t *gesture = operation_apply(edits, label_of("Delete", args), &error);
    gesture_answer(request, gesture, "edit", error, {{"uses", texts(uses)}});
}

static void run_reorder(const design_request_t &request, const cJSON *args) {
    std::string error;
    cJSON *edits = design_control_reorder(design.files, args, &error);
    const design_gesture_t *gesture =
        operation_apply(edits, "Order " + last_name(design_text_of(args, "control")), &error);
    gesture_answer(request, gesture, "edit", error);
}

static void run_group(const design_request_t &request, const cJSON *args) {
    std::string error;
    std::vector<std::string> made;
    cJSON *edits = design_control_group(design.files, args, &made, &error);
    const design_gesture_t *gesture = operation_apply(edits, label_of("Group", args), &error);
    gesture_answer(request, gesture, "edit", error, {{"control", first_of(made)}});
}

static void run_rename(const design_request_t &request, const cJSON *args) {
    std::string error;
    std::vector<std::string> made;
    std::vector<std::string> uses;
    cJSON *edits = design_control_rename(design.files, args, &made, &uses, &error);
    const design_gesture_t *gesture =
        operation_apply(edits, "Rename " + last_name(design_text_of(args, "control")), &error);
    gesture_answer(request, gesture, "edit", error, {{"control", first_of(made)}, {"uses", texts(uses)}});
}

static void run_view_add(const design_request_t &request, const cJSON *args) {
    std::string error;
    cJSON *edits = design_view_add(design.files, args, &error);
    gesture_answer(request, operation_apply(edits, "Add " + design_text_of(args, "name"), &error), "edit", error);
}

static void run_view_rename(const design_request_t &request, const cJSON *args) {
    std::string error;
    cJSON *edits = design_view_rename(design.files, args, &error);
    gesture_answer(request, operation_apply(edits, "Rename " + design_text_of(args, "view"), &error), "edit", error);
}

static void run_view_delete(const design_request_t &request, const cJSON *args) {
    std::string error;
    std::vector<std::string> uses;
    cJSON *edits = design_view_delete(design.files, args, &uses, &error);
    gesture_answer(request, operation_apply(edits, "Delete " + design_text_of(args, "view"), &error), "edit", error,
                   {{"uses", texts(uses)}});
}

// Passes a request to the player, whose commands have the same names and arguments.
static void run_player(const design_request_t &request, const cJSON *args) {
    cJSON *command = view_command(design_text_of(args, "do").c_str());
    const cJSON *arg = nullptr;
    cJSON_ArrayForEach(arg, args) {
        if (strcmp(arg->string, "do") != 0 && strcmp(arg->string, "id") != 0) {
            cJSON_AddItemToObject(command, arg->string, cJSON_Duplicate(arg, 1));
        }
    }
    design_canvas_ask(request, command);
}

static void run_check(const design_request_t &request, const cJSON *) {
    design_check_ask();
    design_answer(request, cJSON_CreateObject());
}

enum when_e { WITH_PROJECT, WITHOUT_PROJECT, ALWAYS };

static constexpr struct {
    const char *name;
    void (*run)(const design_request_t &request, const cJSON *args);
    when_e when = WITH_PROJECT;
} requests[] = {
    {"hello", run_hello, ALWAYS},
    {"draft", design_new_draft, WITHOUT_PROJECT},
    {"make", design_new_make, WITHOUT_PROJECT},
    {"show", design_canvas_choose},
    {"mode", design_canvas_mode},
    {"source", run_source},
    {"read", run_read},
    {"edit", run_edit},
    {"try", run_try},
    {"undo", run_undo},
    {"redo", run_redo},
    {"takeBack", run_take_back},
    {"save", run_save},
    {"changes", run_changes},
    {"add", run_add},
    {"duplicate", run_duplicate},
    {"copy", run_copy},
    {"paste", run_paste},
    {"delete", run_delete},
    {"reorder", run_reorder},
    {"group", run_group},
    {"rename", run_rename},
    {"viewAdd", run_view_add},
    {"viewRename", run_view_rename},
    {"viewDelete", run_view_delete},
    {"state", design_canvas_pose},
    {"hit", run_player},
    {"tile", design_tile_ask},
    {"texts", design_texts_ask},
    {"assets", design_assets_ask},
    {"asset", design_asset_ask},
    {"specimen", design_specimen_ask},
    {"import", design_import_ask},
    {"check", run_check},
    {"pointer", run_player},
    {"key", run_player},
    {"set", run_player},
    {"mark", run_player},
};

void design_request_run(u32 page, const std::string &text) {
    cJSON *args = cJSON_ParseWithLength(text.data(), text.size());
    const cJSON *id = cJSON_GetObjectItemCaseSensitive(args, "id");
    const design_request_t request = {page, cJSON_IsNumber(id) ? id->valuedouble : 0};
    const std::string name = design_text_of(args, "do");
    bool found = false;
    for (const auto &row : requests) {
        if (!found && name == row.name) {
            found = true;
            if (row.when == (design.files ? WITHOUT_PROJECT : WITH_PROJECT)) {
                design_refuse(request, design.files ? "the folder has a project" : "the folder has no project yet");
            } else {
                row.run(request, args);
            }
        }
    }
    if (!found) {
        design_refuse(request, args ? "there is no request " + name : "a request must be an object of JSON");
    }
    cJSON_Delete(args);
}
