// Named looks: files with colours and looks by name, one of the project and one of each theme, whose members overlay
// those of the project. Internal, C++ only. Graphics thread.
#ifndef ZOF_LOOK_IN_H
#define ZOF_LOOK_IN_H

#include <cjson/cJSON.h>

#include "project/base/zof_prj_attr.h"

enum { ZOF_THEME_NAME_SIZE = 64, ZOF_LOOK_CHAIN_MAX = 16 };

// Files --------------------------------------------------------------------------------------------------------------

// The keys that hold the style of a part and state: body_t, txt_t, img_t.
extern const reflect_item_t zof_look_style_tbl[];

// Makes the colours of the files known to the decoder.
void zof_look_init(void);

// Returns the theme chosen by zof_theme_set, or `named` if none was chosen.
const char *zof_look_theme(const char *named);
void zof_look_theme_choose(const char *theme);

// Returns true if the theme has a file of looks.
bool zof_look_theme_exists(const char *theme);

// Return the object of a look in the file of a theme, and in that of the project; null if the file has no such look.
// The files are read and checked at the first call, and kept for the life of the process.
const cJSON *zof_look_in_theme(const char *theme, const char *name);
const cJSON *zof_look_in_project(const char *name);

// Returns the name of the look that a look inherits from; null if it inherits from no look.
const char *zof_look_base(const char *theme, const char *name);

// While it exists, names of colours are looked up in this theme first. The text must stay valid.
struct zof_colors_scope {
    explicit zof_colors_scope(const char *theme);
    ~zof_colors_scope();
    zof_colors_scope(const zof_colors_scope &) = delete;
    zof_colors_scope &operator=(const zof_colors_scope &) = delete;

    const char *former;
};

// Looks --------------------------------------------------------------------------------------------------------------

// A look as a theme shows it. Lives as long as the process, with all its texts.
typedef struct zof_look zof_look_t;
struct zof_look {
    zof_look_t *next;
    char *theme, *name;
    const cJSON **layers; // the objects that make it up, from the base on
    u32 layer_count;
    zof_pub_attr_t styles; // its styles only; complete, sorted by section, part and state
};

// Returns null if neither file has the look, and without memory.
const zof_look_t *zof_look_get(const char *theme, const char *name);

// Fills in the style that a control with this look has for the part, state and section in `style`, whether the look has
// one of its own for them or inherits it. Returns false if the look says nothing of the part, which then has only the
// text of the main part.
bool zof_look_style(const zof_look_t *look, zof_style_attr_t *style);

// Replaces a text of a style that was decoded by one that lives as long as the process; null without memory.
void zof_look_text_keep(char **text, const char *before);

// Sets the styles of a control's record: those of the look, overlaid by its own, the array `styles` of its file. States
// and parts that inherit a value inherit the control's own one.
void zof_look_apply(const zof_look_t *look, zof_pub_attr_t *record, cJSON *styles);

// Changes a record with a look to the theme that is chosen; `obj` may be null.
void zof_look_follow(zof_pub_attr_t *record, lv_obj_t *obj);

// Styles -------------------------------------------------------------------------------------------------------------

// Sorts by section, part and state: a style comes after those that it inherits from.
bool zof_style_before(const zof_style_attr_t *a, const zof_style_attr_t *b);

// Replaces the values of a record that equal those of `before` by those of `now`: they count as inherited.
void zof_style_follow(u8 *record, const u8 *before, const u8 *now, const reflect_item_t *table);

#endif
