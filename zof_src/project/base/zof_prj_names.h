// Names of numbers that several records share. Those of a single key stand beside its row.
#ifndef ZOF_PRJ_NAMES_H
#define ZOF_PRJ_NAMES_H

#include "zof_lib/zof_names.h"

ZOF_C_BEGIN

// Control types. The names of theme files are read too, as far as they differ.
extern const zof_name_t zof_type_names[];

// Selectors of styles: part, a sum of states, section.
extern const zof_name_t zof_part_names[];
extern const zof_name_t zof_state_names[];
extern const zof_name_t zof_sect_names[];

extern const zof_name_t zof_side_names[]; // a sum: sides of a border
extern const zof_name_t zof_dir_names[];  // a sum: directions of scrolling
extern const zof_name_t zof_text_align_names[];
extern const zof_name_t zof_press_names[]; // of a button: springs back, or stays down

// What a style is for: its part, a sum of states, and the object of the control.
typedef struct {
    u32 part, state, sect;
} zof_style_key_t;

// Reads the name of a style in a look: object, part and states, in this order, separated by ':', of which those that
// are left out are "control", "main" and "always". "items:pressed" is the items while the control is pressed. Returns
// 0, or -1 for any other text, with *key unchanged.
s32 zof_style_key_read(const char *text, zof_style_key_t *key);

ZOF_C_END

#endif
