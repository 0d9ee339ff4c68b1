// The catalogue: everything that a project folder may hold, as rows. The reflection tables decode; the catalogue says
// what the keys mean, what values they may have, and what a new control gets. The checker, the documentation, the
// schemas for editors and the design page are made from it. All of it is constant; any thread may read it.
#ifndef ZOF_CAT_H
#define ZOF_CAT_H

#include "project/base/zof_ctrl_types.h"
#include "zof_lib/zof_cson.h"
#include "zof_lib/zof_names.h"

ZOF_C_BEGIN

// What a value is to the maker of a panel. The names of an enumeration and of a sum stand with the reflection row.
typedef enum {
    ZOF_CAT_NUMBER,
    ZOF_CAT_BOOL,   // true or false
    ZOF_CAT_SWITCH, // a number, 0 or 1, that is decoded as a number
    ZOF_CAT_TEXT,   // not translated
    ZOF_CAT_WORDS,  // a text that is shown: itself, or a language key, "#key"
    ZOF_CAT_COLOR,
    ZOF_CAT_OPACITY, // 0 to 255
    ZOF_CAT_LENGTH,  // pixels
    ZOF_CAT_ANGLE,
    ZOF_CAT_PERCENT,
    ZOF_CAT_TIME,    // milliseconds
    ZOF_CAT_NAMED,   // one of the reflection row's names
    ZOF_CAT_SUM,     // a sum of the reflection row's names
    ZOF_CAT_FONT,    // a file of font/
    ZOF_CAT_PICTURE, // a file of image/, or a language key
    ZOF_CAT_FOLDER,  // a folder of image/
    ZOF_CAT_SOUND,
    ZOF_CAT_CLIP,
    ZOF_CAT_CONTROL, // id of a control of the same view
    ZOF_CAT_VIEW,    // id of a view
    ZOF_CAT_FILE,    // a file of config/view/
    ZOF_CAT_LANGUAGE,
    ZOF_CAT_THEME,
    ZOF_CAT_LOOK_NAME,
    ZOF_CAT_OPTIONS, // lines of a list, each words
    ZOF_CAT_OBJECT,  // a record
    ZOF_CAT_ARRAY,   // of records, or of values of `kind` of the record's only key
    ZOF_CAT_KIND_COUNT
} zof_cat_kind_e;

// The name, and what documents say of a kind.
typedef struct {
    const char *name; // "opacity"
    const char *json; // its type in a file: "number", "text", "bool", "object", "array"
    const char *unit; // "px", "ms", "%", "deg"; "" if it has none
    const char *help;
} zof_cat_kind_t;
extern const zof_cat_kind_t zof_cat_kinds[ZOF_CAT_KIND_COUNT];

// Sections of a form, in this order.
typedef enum {
    ZOF_CAT_CONTENT, // what it shows
    ZOF_CAT_VALUE,   // its value and its range
    ZOF_CAT_PLACE,   // position, size, parent
    ZOF_CAT_TOUCH,
    ZOF_CAT_LOOK,
    ZOF_CAT_MOTION, // times, scrolling
    ZOF_CAT_HOST,   // name, id
    ZOF_CAT_GROUP_COUNT
} zof_cat_group_e;
extern const char *const zof_cat_groups[ZOF_CAT_GROUP_COUNT];

enum {
    ZOF_CAT_NEEDED = 1,  // without it the object has no effect, is invisible or is left out
    ZOF_CAT_IGNORED = 2, // read, but not used: kept for files of older tools
    ZOF_CAT_COUNTED = 4, // the array counts; the key is not needed
};

#define ZOF_CAT_ANY INT64_MAX // as `high`: no limit but the field

struct zof_cat_record;

// A key of a record. "*" stands for all others: those that name a style, "pressed" or "items:checked", if the record is
// that of a look, and any name otherwise.
typedef struct {
    const char *key;
    zof_cat_kind_e kind;
    zof_cat_group_e group;
    s64 low, high;      // smallest and largest valid value; both 0: what the field holds
    const char *unit;   // OPTIONAL: instead of the kind's
    const char *absent; // OPTIONAL: as JSON, the value when the key is absent, if not 0, false or ""
    const char *start;  // OPTIONAL: as JSON, what a new control gets, "{}" for the start values of
                        // the record's keys; otherwise the key is left out
    const char *help;   // one sentence, without a full stop; Markdown
    const char *when;   // OPTIONAL: when it has an effect: "dis_mode_e is 2 or 3"
    const char *row;    // OPTIONAL: the host's row, "label.text"
    const char *call;   // OPTIONAL: the public function that sets it while the control exists; null: only the file does
    const struct zof_cat_record *record; // OBJECT, ARRAY: what it holds; null for `property`: that of the control type
    u32 flags;                           // ZOF_CAT_NEEDED ...
} zof_cat_key_t;

// An object of a file, or a bare element of an array.
typedef struct zof_cat_record {
    const char *name;           // unique: "view", "pub_t", "body_t", "label"
    const char *help;           // OPTIONAL: what it is
    const reflect_item_t *rows; // null for objects that are read by hand
    const zof_cat_key_t *keys;  // in the order of a form
    u32 count;                  // of keys
} zof_cat_record_t;

// A control type.
typedef struct {
    u32 type;
    const char *name; // for people and files: "button", "drop list"; the theme's file is zof_ctrl_class_t's
    const char *help; // what it is, a sentence
    const zof_cat_record_t *record; // its `property`
    const char *const *events;      // that reach the program: "ZOF_EVENT_CLICKED" ..., null at the end
    u32 parts;                      // parts that can be styled: 1 << (style_part >> 16); 0: it has no styles
    u32 sections;                   // of `style_sect`: 1, or 2 with a second object
    u32 states;                     // a sum of LV_STATE_...: states that it can be in
    const char *const *calls;       // its public functions, most used first, null at the end
    const char *rows;               // OPTIONAL: name of the host's rows, "label"; all types have "control"
    zof_bool touch;                 // made to be touched: without `t_mode` it is dead
    s32 width, height;              // of a new one
} zof_cat_type_t;

extern const zof_cat_type_t zof_cat_types[ZOF_CTRL_TYPE_COUNT];

// All records, those of the control types included; the last one has no name.
extern const zof_cat_record_t *const zof_cat_records[];

// The roots of the files of a project folder.
typedef struct {
    const char *path; // "config/view/*", below the project folder; '*' stands for any name
    const char *help;
    const zof_cat_record_t *root; // null for files that hold no records: pictures, and languages, whose keys are free
} zof_cat_file_t;
extern const zof_cat_file_t zof_cat_files[];
extern const u32 zof_cat_file_count;

// Returns the row of a key, without regard to case; null if the record has none.
const zof_cat_key_t *zof_cat_key(const zof_cat_record_t *record, const char *key);

// The same for a key of a file, for which "*" may stand.
const zof_cat_key_t *zof_cat_key_of(const zof_cat_record_t *record, const char *key);

// Returns the reflection row of a key; null for one that is read by hand.
const reflect_item_t *zof_cat_row(const zof_cat_record_t *record, const zof_cat_key_t *key);

ZOF_C_END

#endif
