// The files of a project as texts that are changed value by value, with undo. Every change is a list of splices: bytes
// of one file that replace others. Nothing but the bytes that were meant changes. A gesture is one step of undo, over
// any number of files; its files are written beside and renamed, and a journal in the user's state folder makes a
// gesture whole again after a crash, and keeps the list of undo over restarts. All calls come from one thread.
#ifndef DESIGN_FILES_H
#define DESIGN_FILES_H

#include <string>
#include <vector>

#include <cjson/cJSON.h>

#include "zof_lib/zof_type.h"

struct design_splice_t {
    std::string file; // below the project folder: "config/view/home.g"
    u32 at;           // byte in the text before, after the splices that precede it in the list
    std::string before, after;
    std::string path;      // of the value, for people; may be empty
    u32 line, column;      // of `at`, from 1
    bool created, deleted; // the whole file; `before` or `after` is empty
};

struct design_gesture_t {
    u32 number; // 1, 2, ...
    std::string label, merge;
    bool elsewhere; // made by another program
    bool undone;
    s64 time; // ms since 1970
    std::vector<design_splice_t> splices;
};

struct design_files_t;

// Opens the project in `folder`, which ends in "/", and its journal in the folder `state`, which is made if it is
// missing; empty for none. If another process holds the journal, nothing is kept. A gesture that a crash has
// interrupted is finished. Returns null and the error on failure.
design_files_t *design_files_open(const std::string &folder, const std::string &state, std::string *error);
void design_files_close(design_files_t *files);

// Returns the text of a file, read from the disk at the first call, and its hash, which is the same for equal texts;
// `hash` may be null. The text is valid until the next call. Returns null if there is no such file; paths that lead
// outside the folder do not exist.
const std::string *design_files_text(design_files_t *files, const std::string &file, std::string *hash);

// Returns why no new file of this name can be made: it is not a name on all systems, or its folder has one that differs
// in upper and lower case at most. Empty if it can. The path must be one below the project folder.
std::string design_file_new_fault(const design_files_t *files, const std::string &file);

// Returns the values of an object and of all in it, as an array of the protocol's `Value`, for cJSON_Delete. Null with
// the error if the path leads nowhere.
cJSON *design_files_read(design_files_t *files, const std::string &file, const std::string &path, std::string *error);

// Returns the bytes of a text, a number or a word at a path; an empty text for anything else.
std::string design_files_value(design_files_t *files, const std::string &file, const std::string &path);

// Turns edits of the protocol, an array, into splices, without applying them. Returns an error or an empty text.
std::string design_files_plan(design_files_t *files, const cJSON *edits, std::vector<design_splice_t> *out);

// Applies a plan as one gesture, or as part of the last one if that has the same non-empty `merge` and is younger than
// 500 ms, and writes the files. A file that another program has changed since is taken over first, and the plan is made
// again from `edits`, unless the other program changed one of the same values. If a file cannot be written, the change
// stays in memory and design_files_error says why. Returns the gesture, valid until the next call; that of edits that
// change nothing has the number 0 and is not in the list. Returns null with the error if the edits cannot be applied.
// `now` is in ms since 1970.
const design_gesture_t *design_files_edit(design_files_t *files, const cJSON *edits, const std::string &label,
                                          const std::string &merge, s64 now, std::string *error);

// Undo and redo the last gesture. Return null with the error if no gesture is left, or if its bytes are not there any
// more.
const design_gesture_t *design_files_undo(design_files_t *files, std::string *error);
const design_gesture_t *design_files_redo(design_files_t *files, std::string *error);

// Puts back what stood before one gesture while later ones stay, as a new gesture. Returns null with the error if the
// gesture is not in the list, or if a later one depends on it.
const design_gesture_t *design_files_take_back(design_files_t *files, u32 number, s64 now, std::string *error);

// Takes over what other programs have changed on the disk, each file as a gesture that can be undone; more than five
// files at once close the list instead. Call it when the folder's watch reports something. Returns the new gestures'
// numbers, or 0 in the vector for files outside the list (pictures, fonts).
std::vector<u32> design_files_look(design_files_t *files, s64 now);

// Writes what could not be written before. Returns the error that remains, or an empty text.
std::string design_files_save(design_files_t *files);
std::string design_files_error(const design_files_t *files);

// All gestures, oldest first; those after the current one are undone.
const std::vector<design_gesture_t> &design_files_gestures(const design_files_t *files);

// A gesture, and the state of undo, in the form of the protocol: `Gesture`, `UndoState`.
cJSON *design_gesture_json(design_files_t *files, const design_gesture_t *gesture);
cJSON *design_undo_json(const design_files_t *files);

// Operations on controls, design_control.cpp: each returns the edits of one gesture, for design_files_edit, or null
// with the error. Controls are paths of the protocol, "home/brew", "home/#12". `made` gets the paths of new controls.
cJSON *design_control_add(design_files_t *files, const cJSON *args, std::vector<std::string> *made, std::string *error);
cJSON *design_control_duplicate(design_files_t *files, const cJSON *args, std::vector<std::string> *made,
                                std::string *error);
cJSON *design_control_paste(design_files_t *files, const cJSON *args, std::vector<std::string> *made,
                            std::string *error);
cJSON *design_control_delete(design_files_t *files, const cJSON *args, std::vector<std::string> *uses,
                             std::string *error);
cJSON *design_control_reorder(design_files_t *files, const cJSON *args, std::string *error);
cJSON *design_control_group(design_files_t *files, const cJSON *args, std::vector<std::string> *made,
                            std::string *error);
cJSON *design_control_rename(design_files_t *files, const cJSON *args, std::vector<std::string> *made,
                             std::vector<std::string> *uses, std::string *error);
// Operations on views, design_view.cpp: `args->view` is the one that is copied, with or without its controls, renamed
// or deleted; `args->name` is the new name. `uses` gets the actions that name it.
cJSON *design_view_add(design_files_t *files, const cJSON *args, std::string *error);
cJSON *design_view_rename(design_files_t *files, const cJSON *args, std::string *error);
cJSON *design_view_delete(design_files_t *files, const cJSON *args, std::vector<std::string> *uses, std::string *error);
// The JSON text of controls, with their children, as it stands in the file.
std::string design_control_copy(design_files_t *files, const cJSON *args, std::string *error);

// Returns the text of an object's member, empty if it is not a text.
std::string design_text_of(const cJSON *object, const char *name);

#endif
