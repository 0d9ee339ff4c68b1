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
    CHECK_ACTION,
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
    CHECK_NOT_BUILT_IN,
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
    char *path; // path below the project folder
    char *text; // contents of a JSON file; null for others
    zof_jdoc_t doc;
    bool listed;  // a view file with an entry in the project file
    bool refused; // not opened; this has been reported already
};

// A control of the view that is being checked.
struct check_ctrl_t {
    u32 entry, property, pub;   // node numbers
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

// Appends a zeroed element. Returns null if memory is short; the caller notes that in the run.
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
    const char *folder; // ends in "/"
    zof_check_t *out;
    check_list_t<zof_finding_t> findings;
    check_list_t<check_file_t> files;
    check_list_t<check_word_t> words, uses; // defined in language files; used by views
    check_list_t<check_look_t> looks;       // looks that controls or other looks name
    check_list_t<check_ctrl_t> ctrls;       // controls of the current view
    u32 *ctrl_of_id;                        // for the current view: index in `ctrls` + 1, or 0
    check_file_t *project;
    s64 width, height; // size of the design; 0 if unknown
    bool broken;       // part of a file cannot be understood, so the texts that it uses are unknown
    bool outside;      // the project allows names that lead out of its folder
    bool no_memory;
    bool lint;    // the findings are those of `zof lint`
    bool limited; // only some views, languages or themes were drawn
};

// Findings ---------------------------------------------------------------------------------------------------------

// Reports a finding at a byte of the file. `node` is the node of that byte, or ZOF_J_NONE for the whole file.
void check_report_at(check_run_t *c, const check_file_t *file, u32 node, u32 at, check_rule_e rule, const char *fmt,
                     ...) ZOF_PRINTF_LIKE(6, 7);
// Report a finding at the value or at the key of a node. An array element has no key, so its value is used.
void check_report(check_run_t *c, const check_file_t *file, u32 node, check_rule_e rule, const char *fmt, ...)
    ZOF_PRINTF_LIKE(5, 6);
void check_report_key(check_run_t *c, const check_file_t *file, u32 node, check_rule_e rule, const char *fmt, ...)
    ZOF_PRINTF_LIKE(5, 6);

// Files ------------------------------------------------------------------------------------------------------------

bool check_folder_read(check_run_t *c);
void check_folder_free(check_run_t *c);
// Finds a file by its path below the folder; if `any_case`, also a file whose name differs in case.
check_file_t *check_file_find(check_run_t *c, const char *path, bool any_case);
// Finds the file folder + name, and reports at the node if it does not exist or is not opened. Returns the file, also
// if its name differs in case, or null. A name on a drive returns null without a report, because the drive may be
// absent here.
check_file_t *check_file_named(check_run_t *c, const check_file_t *file, u32 node, const char *folder,
                               const char *name);
// Returns true if the records of a file can be checked: it is an object and was parsed to its end.
bool check_file_whole(const check_file_t *file);
// Opens every picture and font with the runtime's decoders, and reports those that cannot be decoded.
void check_media(check_run_t *c);

// Values -----------------------------------------------------------------------------------------------------------

// Returns the root record of the files with this path in zof_cat_files.
const zof_cat_record_t *check_root(const char *path);
// Check a value against its row: check_kind its kind, returning false if it is wrong, and check_scalar its number or
// text.
bool check_kind(check_run_t *c, const check_file_t *file, u32 node, const zof_cat_record_t *record,
                const zof_cat_key_t *key);
void check_scalar(check_run_t *c, const check_file_t *file, u32 node, const zof_cat_record_t *record,
                  const zof_cat_key_t *key);
// Checks a value of any kind and everything below it.
void check_value(check_run_t *c, const check_file_t *file, u32 node, const zof_cat_record_t *record,
                 const zof_cat_key_t *key);
// Checks an object and everything below it. `outer` is the enclosing record, whose keys may have been written at this
// level by mistake; it may be null.
void check_object(check_run_t *c, const check_file_t *file, u32 node, const zof_cat_record_t *record,
                  const zof_cat_record_t *outer);
// Returns true if the members of `object` listed in `keys` are absent or in range.
bool check_all_in_range(const check_file_t *file, u32 object, const zof_cat_record_t *record, const char *const *keys);
// Returns a member's number as the runtime reads it, which may be written as a name or a colour; `absent` if the member
// is missing.
s64 check_number(const check_file_t *file, u32 object, const char *key, const reflect_item_t *rows, s64 absent);
// Reads the number of a value, which may be written as a name or a colour. Returns false if it has no number.
bool check_number_of(const check_file_t *file, u32 node, const reflect_item_t *row, s64 *value);
// Copies the text of a member, truncated to fit. Returns false if the member is missing or not a text.
bool check_text(const check_file_t *file, u32 object, const char *key, char *out, size_t size);

// Parts ------------------------------------------------------------------------------------------------------------

void check_project_file(check_run_t *c);
// Reports a project file that names no language although views use language texts. Call it after the views have been
// checked.
void check_language_need(check_run_t *c);
void check_link_file(check_run_t *c, const check_file_t *file);
void check_view_file(check_run_t *c, check_file_t *file);
void check_theme_file(check_run_t *c, const check_file_t *file);
// Checks `styles` of a control or a theme; `styles` may be ZOF_J_NONE. `theme` is the theme file that supplies what the
// control's own styles omit, or null.
void check_styles(check_run_t *c, const check_file_t *file, u32 styles, const zof_cat_type_t *type,
                  const check_file_t *theme);
void check_geometry(check_run_t *c, const check_file_t *file);

// Check a file of looks, and report looks that nothing uses.
void check_looks_file(check_run_t *c, const check_file_t *file);
void check_looks_unused(check_run_t *c);

// The looks files that apply: that of a theme and that of the project; null if the file does not exist.
struct check_looks_t {
    const check_file_t *of[2];
    bool broken; // one of them cannot be read, so no one knows what is in it
};
enum { CHECK_LOOK_NAME = 128 };
check_looks_t check_looks_of(check_run_t *c, const char *theme);
bool check_is_looks(const check_file_t *file);
// Returns true if the styles of a node inherit what they omit: it belongs to a look, or to a control that has one.
bool check_has_look(const check_file_t *file, u32 node);
// Writes the name of the theme that applies to a value, at most CHECK_LOOK_NAME bytes: the theme of the file's folder,
// or that of the enclosing control.
void check_theme_of(const check_file_t *file, u32 node, char *theme);
// Check a value that names a look or a colour, and note the use.
void check_look_use(check_run_t *c, const check_file_t *file, u32 node, const char *theme);
void check_color_use(check_run_t *c, const check_file_t *file, u32 node, const char *name);

void check_language_file(check_run_t *c, check_file_t *file);
void check_icon_file(check_run_t *c, const check_file_t *file);
void check_icon_use(check_run_t *c, const check_file_t *file, u32 node, const char *text);
void check_word_use(check_run_t *c, const check_file_t *file, u32 node, const char *text);
// Checks the actions of an entry, `on`, which may be ZOF_J_NONE.
void check_actions(check_run_t *c, const check_file_t *file, u32 on);
void check_words(check_run_t *c);

// Removes the findings listed in zof-check.ignore, and reports lines that match no finding. Each line is reported only
// by the command to which its rule belongs.
void check_ignore(check_run_t *c);

// Writes the key path of a node, "controls[0].property.txt".
void check_path(const zof_jdoc_t *doc, u32 node, char *out, size_t size);

bool check_same(const char *a, const char *b); // ignores case
bool check_begins(const char *text, const char *start);

#endif
