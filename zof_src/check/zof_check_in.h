// Internal header of the checker.
#ifndef ZOF_CHECK_IN_H
#define ZOF_CHECK_IN_H

#include "catalogue/zof_cat.h"
#include "check/zof_check.h"
#include "zof_lib/zof_jdoc.h"
#include "zof_lib/zof_stdio.h"

// In the order of the rows of zof_check_rules.
enum check_rule_e {
    CHECK_SYNTAX,
    CHECK_COMMENT,
    CHECK_COMMA,
    CHECK_ENCODING,
    CHECK_MARK,
    CHECK_ESCAPE,
    CHECK_STRICT,
    CHECK_KEY_TWICE,
    CHECK_KEY_UNKNOWN,
    CHECK_KEY_PLACE,
    CHECK_KIND,
    CHECK_RANGE,
    CHECK_FRACTION,
    CHECK_NAME,
    CHECK_COLOUR,
    CHECK_MISSING,
    CHECK_INCOMPLETE,
    CHECK_INVISIBLE,
    CHECK_DEAD,
    CHECK_ID,
    CHECK_IDENTIFIER,
    CHECK_PARENT,
    CHECK_OUTSIDE,
    CHECK_ENDS,
    CHECK_OPTIONS,
    CHECK_STYLE,
    CHECK_STYLE_TWICE,
    CHECK_VIEW_ENTRY,
    CHECK_VIEW_UNLISTED,
    CHECK_VIEW_ID,
    CHECK_START_PAGE,
    CHECK_FILE_MISSING,
    CHECK_FILE_CASE,
    CHECK_FILE_NAME,
    CHECK_FILE_DAMAGED,
    CHECK_FOLDER,
    CHECK_THEME,
    CHECK_LOOK,
    CHECK_LOOK_UNUSED,
    CHECK_LANGUAGE,
    CHECK_TEXT_MISSING,
    CHECK_ICON,
    CHECK_TEXT_UNUSED,
    CHECK_LINK,
    CHECK_IGNORE,
    CHECK_RULE_COUNT
};

// A file of the project folder.
struct check_file_t {
    char *path; // below the folder
    char *text; // of a file with JSON; null for others
    zof_jdoc_t doc;
    bool listed;  // a view file with an entry in the project file
    bool refused; // not opened; this has been reported
};

// A control of the view that is being checked.
struct check_ctrl_t {
    u32 entry, property, pub;   // nodes
    const zof_cat_type_t *type; // null if it is missing or unknown, which has been reported
    s64 id, parent;
    s64 x, y, width, height;
    bool scrolls;
};

// A language key, where it is defined or used.
struct check_word_t {
    char *key;
    check_file_t *file;
    u32 node;
    bool used;
};

struct check_look_t {
    char *name;
};

// A growing array of T.
template <typename T> struct check_list_t {
    T *at;
    u32 count, room;
};

// Appends a zeroed element; null without memory, which the run then reports.
template <typename T> T *check_add(check_list_t<T> &list) {
    if (list.count == list.room) {
        const u32 room = list.room ? 2 * list.room : 32;
        T *made = (T *)zof_realloc(list.at, room * sizeof(T));
        if (!made) {
            return nullptr;
        }
        list.at = made;
        list.room = room;
    }
    list.at[list.count] = {};
    return &list.at[list.count++];
}

struct check_run_t {
    const char *folder; // with "/"
    zof_check_t *out;
    check_list_t<zof_finding_t> findings;
    check_list_t<check_file_t> files;
    check_list_t<check_word_t> words, uses; // defined in language files; used by views
    check_list_t<check_look_t> looks;       // that controls or other looks name
    check_list_t<check_ctrl_t> ctrls;       // of the current view
    u32 *ctrl_of_id;                        // of the current view: index + 1 in `ctrls`
    check_file_t *project;
    s64 width, height; // of the design; 0 if unknown
    bool broken;       // part of a file cannot be understood, so it is not known which texts it uses
    bool outside;      // the project allows names that lead out of it
    bool no_memory;
    bool lint; // the findings are those of `zof lint`
};

// Findings ---------------------------------------------------------------------------------------------------------

// Reports at a byte of the file, which belongs to a node; ZOF_J_NONE for the whole file.
void check_report_at(check_run_t *c, const check_file_t *file, u32 node, u32 at, check_rule_e rule, const char *fmt,
                     ...) ZOF_PRINTF_LIKE(6, 7);
// Report at the value or the key of a node; for an element of an array, which has no key, at its value.
void check_report(check_run_t *c, const check_file_t *file, u32 node, check_rule_e rule, const char *fmt, ...)
    ZOF_PRINTF_LIKE(5, 6);
void check_report_key(check_run_t *c, const check_file_t *file, u32 node, check_rule_e rule, const char *fmt, ...)
    ZOF_PRINTF_LIKE(5, 6);

// Files ------------------------------------------------------------------------------------------------------------

bool check_folder_read(check_run_t *c);
void check_folder_free(check_run_t *c);
// Finds a file by its path below the folder; with `any_case` also one that differs in case.
check_file_t *check_file_find(check_run_t *c, const char *path, bool any_case);
// Reports at the node if folder + name does not exist or is not opened. Returns the file, also if its name differs in
// case; null for a name on a drive, which may be absent here.
check_file_t *check_file_named(check_run_t *c, const check_file_t *file, u32 node, const char *folder,
                               const char *name);
// Returns true for a file whose records can be checked: an object, read to its end.
bool check_file_whole(const check_file_t *file);
// Opens every picture and font with the runtime's decoders.
void check_media(check_run_t *c);

// Values -----------------------------------------------------------------------------------------------------------

// The record at the root of the files with this path in zof_cat_files.
const zof_cat_record_t *check_root(const char *path);
// Checks a value's kind, then its number or text, against its row.
bool check_kind(check_run_t *c, const check_file_t *file, u32 node, const zof_cat_record_t *record,
                const zof_cat_key_t *key);
void check_scalar(check_run_t *c, const check_file_t *file, u32 node, const zof_cat_record_t *record,
                  const zof_cat_key_t *key);
// Checks a value of any kind and everything below it.
void check_value(check_run_t *c, const check_file_t *file, u32 node, const zof_cat_record_t *record,
                 const zof_cat_key_t *key);
// Checks an object and everything below it. `outer` is the enclosing record, whose keys may be at the wrong level; may
// be null.
void check_object(check_run_t *c, const check_file_t *file, u32 node, const zof_cat_record_t *record,
                  const zof_cat_record_t *outer);
// Returns true if the members of an object that have these names are absent or in range.
bool check_all_in_range(const check_file_t *file, u32 object, const zof_cat_record_t *record, const char *const *keys);
// Returns a member's number as the runtime reads it, including names and colours; `absent` if the member is missing.
s64 check_number(const check_file_t *file, u32 object, const char *key, const reflect_item_t *rows, s64 absent);
// Reads the number of a value, which may be a name or a colour. Returns false if it has none.
bool check_number_of(const check_file_t *file, u32 node, const reflect_item_t *row, s64 *value);
// Copies the text of a member, cut off to fit. Returns false if the member is missing or not a text.
bool check_text(const check_file_t *file, u32 object, const char *key, char *out, size_t size);

// Parts ------------------------------------------------------------------------------------------------------------

void check_project_file(check_run_t *c);
// Reports that the project file names no language, although views use texts of languages; after the views.
void check_language_need(check_run_t *c);
void check_link_file(check_run_t *c, const check_file_t *file);
void check_view_file(check_run_t *c, check_file_t *file);
void check_theme_file(check_run_t *c, const check_file_t *file);
// `styles` of a control or a theme; `styles` may be no node. `theme`: the file of the theme that gives a control what
// its own styles leave out; null for none.
void check_styles(check_run_t *c, const check_file_t *file, u32 styles, const zof_cat_type_t *type,
                  const check_file_t *theme);
void check_geometry(check_run_t *c, const check_file_t *file);

// Files of looks, then looks that nobody names.
void check_looks_file(check_run_t *c, const check_file_t *file);
void check_looks_unused(check_run_t *c);

// The file of looks of a theme, and that of the project; null if there is none.
struct check_looks_t {
    const check_file_t *of[2];
};
enum { CHECK_LOOK_NAME = 128 };
check_looks_t check_looks_of(check_run_t *c, const char *theme);
bool check_is_looks(const check_file_t *file);
// Returns true for a node whose styles inherit what they do not write: those of a look, or of a control that has one.
bool check_has_look(const check_file_t *file, u32 node);
// Writes the theme in which a value is read, at most CHECK_LOOK_NAME bytes: that of its file's folder, or of the
// control around it.
void check_theme_of(const check_file_t *file, u32 node, char *theme);
// A value that names a look, or a colour.
void check_look_use(check_run_t *c, const check_file_t *file, u32 node, const char *theme);
void check_color_use(check_run_t *c, const check_file_t *file, u32 node, const char *name);

void check_language_file(check_run_t *c, check_file_t *file);
void check_icon_file(check_run_t *c, const check_file_t *file);
void check_icon_use(check_run_t *c, const check_file_t *file, u32 node, const char *text);
void check_word_use(check_run_t *c, const check_file_t *file, u32 node, const char *text);
void check_words(check_run_t *c);

// Removes the findings listed in zof-check.ignore, and reports its lines that match no finding. Each line is reported
// by the command that its rule belongs to.
void check_ignore(check_run_t *c);

// Writes the path of a node, "controls[0].property.txt".
void check_path(const zof_jdoc_t *doc, u32 node, char *out, size_t size);

bool check_same(const char *a, const char *b); // without regard to case
bool check_begins(const char *text, const char *start);

#endif
