// Internal header of the text engine: one file's text with its index, plans, and the store of files.
#ifndef DESIGN_TEXT_H
#define DESIGN_TEXT_H

#include <cstdio>
#include <map>

#include "design_files.h"
#include "drv/zof_drv_file.h"
#include "zof_lib/zof_jdoc.h"

enum { DESIGN_GESTURES_MAX = 1000, DESIGN_MERGE_MS = 500, DESIGN_ELSEWHERE_MAX = 5 };
enum { DESIGN_FILE_MAX = 64 << 20 }; // bytes

// A text, and its nodes once design_doc_index has read them.
struct design_doc_t {
    bool exists, indexed;
    std::string text;
    std::vector<zof_jnode_t> nodes;
    std::string fault; // why its values cannot be edited: "7:9: expected ..."
};

struct design_file_t {
    design_doc_t doc;
    zof_file_stamp_t stamp;  // of the state on the disk that was last read or written
    bool unsaved;            // the disk has another text
    design_doc_t disk;       // that text, while unsaved
    std::string hash;        // of the text; empty until it is asked for
    std::string hash_before; // of the text that the last change replaced; "-" for no file
};

// Files by their paths below the project folder.
typedef std::map<std::string, design_doc_t> design_works_t;

struct design_files_t {
    std::string folder;
    std::map<std::string, design_file_t> files;
    std::vector<design_gesture_t> gestures;
    size_t done;   // gestures that are not undone
    size_t closed; // gestures that cannot be undone, because files changed in another way
    std::string closed_why;
    u32 next_number;
    s64 merged_at;               // the last change of the last gesture
    design_gesture_t nothing;    // the gesture of an edit that changes nothing
    std::vector<u32> unreported; // changes from elsewhere that an edit came across; 0 for more of them than are listed
    std::map<std::string, zof_file_stamp_t> others; // files that are not texts of the project
    std::string error;                              // why files are not written
    std::string state;                              // the journal's folder, with "/"; empty for none
    s32 lock;
    FILE *journal;
    u64 journal_size;
};

// Texts, design_doc.cpp ------------------------------------------------------------------------------------------

// Reads the nodes unless they are known. Returns false if the values cannot be edited, with doc->fault.
bool design_doc_index(design_doc_t *doc);
// The document in the form of zof_jdoc; valid until the text changes.
zof_jdoc_t design_doc_json(const design_doc_t *doc);
// Replaces bytes. `node` is the scalar that they are, whose new kind is `kind`, so that the index stays; ZOF_J_NONE
// drops the index.
void design_doc_splice(design_doc_t *doc, u32 at, u32 size, const std::string &after, u32 node, zof_jkind_e kind);
std::string design_doc_hash(const std::string &text);
// Returns the bytes of the value at a path, "" if the path leads nowhere.
std::string design_doc_raw(design_doc_t *doc, const std::string &file, const std::string &path);
// Follows a path to a node; as zof_jdoc_find, but files of free keys, such as languages, may have dots in them.
u32 design_doc_find(design_doc_t *doc, const std::string &file, const std::string &path);
// Prints JSON in one line, with blanks after ":" and "," unless compact.
std::string design_json_text(const cJSON *value, bool compact);

// Where text goes, design_edit_place.cpp ---------------------------------------------------------------------------

struct design_put_t {
    u32 at, size; // bytes that are replaced
    std::string text;
};
// The place of a member or an element, with the separators around it. `after` is the child that it follows, or
// ZOF_J_NONE for the first one. `compact` says how objects are printed there.
design_put_t design_place_insert(const zof_jdoc_t *doc, u32 parent, u32 after, const std::string &key,
                                 const std::string &body);
bool design_place_compact(const zof_jdoc_t *doc, u32 parent);
// What stands between two elements of an array that is not empty, a comma and blanks, at its end.
std::string design_place_comma(const zof_jdoc_t *doc, u32 array);
// The indentation of the line on which new elements of an array begin, and the line end of the file.
std::string design_place_indent(const zof_jdoc_t *doc, u32 array);
const char *design_place_line(const zof_jdoc_t *doc);
// The bytes that go with a child: itself, a comma, its line; in the order of the text.
std::vector<design_put_t> design_place_remove(const zof_jdoc_t *doc, u32 node);

// Takes a node out of the index after these bytes, which are in the order of the text, were removed with it.
void design_doc_forget(design_doc_t *doc, u32 node, const std::vector<design_put_t> &gone);

// Plans, design_edit.cpp -------------------------------------------------------------------------------------------

struct design_plan_t {
    design_files_t *files;
    design_works_t works; // copies of the files that the plan changes, as they are after it
    std::vector<design_splice_t> splices;
};
std::string design_plan_make(design_plan_t *plan, const cJSON *edits);
// Returns the copy of a file, or null if its path does not lead into the folder.
design_doc_t *design_plan_work(design_plan_t *plan, const std::string &file);
// Sets a value by its path, design_edit_value.cpp.
std::string design_plan_value(design_plan_t *plan, const std::string &file, const std::string &path,
                              const cJSON *value);
void design_plan_put(design_plan_t *plan, const std::string &file, const std::string &path, const design_put_t &put,
                     u32 node, zof_jkind_e kind);

// The store, design_files.cpp --------------------------------------------------------------------------------------

// Returns a file of the store, read from the disk at the first call; null for a path that leads outside the folder.
design_file_t *design_file_of(design_files_t *files, const std::string &file);
// Returns the real path of a file or of what may become one; empty if it is outside the folder.
std::string design_file_path(const design_files_t *files, const std::string &file);
// Replaces the text of a file in memory.
void design_file_set(design_files_t *files, const std::string &file, design_doc_t &&doc);
bool design_file_read(const std::string &path, std::string *text);
// Writes files that are not saved, design_files_write.cpp; sets files->error.
void design_files_write(design_files_t *files);
// Returns whether another program has changed the file since it was last read or written.
bool design_file_changed(const design_files_t *files, const std::string &file, const design_file_t *entry);
// Returns the hash of a file's text, "-" if it does not exist.
std::string design_file_hash(design_file_t *entry);
// Returns the files below a folder of the project, and whether one is a text of the list.
void design_files_walk(const design_files_t *files, const std::string &below, std::vector<std::string> *out);
bool design_files_is_text(const std::string &file);
// Takes over the disk's text of changed files, as gestures, design_files_look.cpp.
void design_files_take(design_files_t *files, const std::vector<std::string> &changed, s64 now);

// The list, design_undo.cpp ----------------------------------------------------------------------------------------

// Applies splices to works, forward or back. Returns an error if bytes are not there.
std::string design_splices_apply(design_files_t *files, const std::vector<design_splice_t> &splices, bool back,
                                 design_works_t *works);
const design_gesture_t *design_undo_add(design_files_t *files, design_gesture_t &&gesture);
// Adds splices to a gesture; those that change the same bytes again are joined.
void design_undo_merge(design_gesture_t *gesture, const std::vector<design_splice_t> &splices);
void design_undo_close(design_files_t *files, const char *why);

// Puts the texts of a plan into the store.
void design_works_keep(design_files_t *files, design_works_t *works);

// Keeps and writes the texts of a plan, as a new gesture or as part of the last one, see design_files_edit.
const design_gesture_t *design_plan_keep(design_files_t *files, design_plan_t *plan, const std::string &label,
                                         const std::string &merge, s64 now);

// Takes over files of a gesture that another program has just changed. Returns an error if there are any.
std::string design_gesture_current(design_files_t *files, const design_gesture_t &gesture);

#endif
