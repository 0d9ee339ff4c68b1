// The catalogue: rows that describe everything a project folder may contain. The reflection tables decode files; the
// catalogue adds the meaning of the keys, the values that they accept, and the values of a new control. The checker,
// the documentation, the schemas for editors and the design page are generated from it. All of it is constant; any
// thread may read it.
#ifndef ZOF_CAT_H
#define ZOF_CAT_H

#include "project/base/zof_ctrl_types.h"
#include "zof_lib/zof_cson.h"
#include "zof_lib/zof_names.h"

ZOF_C_BEGIN

// The kind of a value, as the maker of a panel sees it. The names of an enumeration or a sum are in the reflection row.
typedef enum {
    ZOF_CAT_NUMBER,
    ZOF_CAT_BOOL,   // true or false
    ZOF_CAT_SWITCH, // 0 or 1, decoded as a number
    ZOF_CAT_TEXT,   // not translated
    ZOF_CAT_WORDS,  // a displayed text: the text itself, or a language key, "#key"
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
    ZOF_CAT_OPTIONS, // lines of a list, each of kind WORDS
    ZOF_CAT_ACTION,  // what the panel does at an event
    ZOF_CAT_OBJECT,  // a record
    ZOF_CAT_ARRAY,   // of records, or of plain values whose kind is that of the record's only key
    ZOF_CAT_KIND_COUNT
} zof_cat_kind_e;

// The name of a kind and its description in documents.
typedef struct {
    const char *name; // "opacity"
    const char *json; // its type in a file: "number", "text", "bool", "object", "array"
    const char *unit; // "px", "ms", "%", "deg"; "" for a number without a unit
    const char *help;
} zof_cat_kind_t;
extern const zof_cat_kind_t zof_cat_kinds[ZOF_CAT_KIND_COUNT];

// Sections of a form, in display order.
typedef enum {
    ZOF_CAT_CONTENT, // what the control shows
    ZOF_CAT_VALUE,   // its value and range
    ZOF_CAT_PLACE,   // position, size, parent
    ZOF_CAT_TOUCH,
    ZOF_CAT_LOOK,
    ZOF_CAT_MOTION, // times, scrolling
    ZOF_CAT_HOST,   // name, id
    ZOF_CAT_GROUP_COUNT
} zof_cat_group_e;
extern const char *const zof_cat_groups[ZOF_CAT_GROUP_COUNT];

enum {
    ZOF_CAT_NEEDED = 1,  // without the key the object has no effect, is invisible or is ignored
    ZOF_CAT_IGNORED = 2, // read but not used: accepted for files of older tools
    ZOF_CAT_COUNTED = 4, // the length of the array is used instead; the key is not needed
};

#define ZOF_CAT_ANY INT64_MAX // as `high`: limited only by the field

struct zof_cat_record;

// A key of a record. "*" stands for all other names: names of styles ("pressed", "items:checked") in the record of a
// look, any name in other records.
typedef struct {
    const char *key;
    const char *label; // OPTIONAL: for people, if the key is not a word: "font" for "font_lib"; unique in its record
    zof_cat_kind_e kind;
    zof_cat_group_e group;
    s64 low, high;      // smallest and largest valid value; both 0: the range of the field
    const char *unit;   // OPTIONAL: overrides the unit of the kind
    const char *absent; // OPTIONAL: as JSON, the value if the key is absent, unless that is 0, false or ""
    const char *start;  // OPTIONAL: as JSON, the value in a new control, "{}" for the start values of
                        // the record's keys; without it the key is omitted
    const char *help;   // one sentence, without a full stop; Markdown
    const char *when;   // OPTIONAL: condition for its effect: "dis_mode_e is 2 or 3"
    const char *row;    // OPTIONAL: the host's row, "label.text"
    const char *call;   // OPTIONAL: the public function that sets it at run time; null if only the file sets it
    const struct zof_cat_record *record; // OBJECT, ARRAY: its contents; null for `property`, which the type decides
    u32 flags;                           // ZOF_CAT_NEEDED ...
} zof_cat_key_t;

// An object in a file, or a plain array element.
typedef struct zof_cat_record {
    const char *name;           // unique: "view", "pub_t", "body_t", "label"
    const char *help;           // OPTIONAL: description
    const reflect_item_t *rows; // null for objects that are decoded by hand
    const zof_cat_key_t *keys;  // in display order
    u32 count;                  // number of keys
} zof_cat_record_t;

// A control type.
typedef struct {
    u32 type;
    const char *name; // for people and files: "button", "drop list"; zof_ctrl_class_t has the theme file's name
    const char *help; // one sentence that describes it
    const zof_cat_record_t *record; // of its `property`
    const char *const *events;      // events that reach the program: "ZOF_EVENT_CLICKED" ...; null-terminated
    u32 parts;                      // parts that can be styled: bits 1 << (style_part >> 16); 0 if it has no styles
    u32 sections;                   // number of `style_sect` values: 1, or 2 with a second object
    u32 states;                     // sum of the LV_STATE_... in which it can be
    const char *const *calls;       // its public functions, most used first; null-terminated
    const char *rows;               // OPTIONAL: name of the host's rows, "label"; all types also have "control"
    zof_bool touch;                 // made to be touched: without `t_mode` it does not react
    s32 width, height;              // of a new control
} zof_cat_type_t;

extern const zof_cat_type_t zof_cat_types[ZOF_CTRL_TYPE_COUNT];

// All records, including those of the control types, terminated by a record without a name.
extern const zof_cat_record_t *const zof_cat_records[];

// The roots of the files of a project folder.
typedef struct {
    const char *path; // "config/view/*", below the project folder; '*' stands for any name
    const char *help;
    const zof_cat_record_t *root; // null for files without records: pictures, and languages, whose keys are free
} zof_cat_file_t;
extern const zof_cat_file_t zof_cat_files[];
extern const u32 zof_cat_file_count;

// Returns the row of a key, ignoring case, or null if the record has no such key.
const zof_cat_key_t *zof_cat_key(const zof_cat_record_t *record, const char *key);

// As zof_cat_key, for a key from a file, which a "*" row may match.
const zof_cat_key_t *zof_cat_key_of(const zof_cat_record_t *record, const char *key);

// Returns the reflection row of a key, or null if the key is decoded by hand.
const reflect_item_t *zof_cat_row(const zof_cat_record_t *record, const zof_cat_key_t *key);

ZOF_C_END

#endif
