// Actions in files: what the runtime does by itself when a user touches a control. An entry of `controls` lists them
// under `on`, for each kind of event. A word and its arguments, without expressions, variables and loops; for those
// there are programs and hosts. Graphics thread, but for zof_action_parse.
#ifndef ZOF_HMI_ACTION_H
#define ZOF_HMI_ACTION_H

#include "project/base/zof_para.h"

ZOF_C_BEGIN

// What an argument names.
typedef enum {
    ZOF_ACTION_NONE,
    ZOF_ACTION_VIEW,     // the file of a view without ".g", or its id
    ZOF_ACTION_SLIDE,    // how the view appears: zof_action_slides
    ZOF_ACTION_LANGUAGE, //
    ZOF_ACTION_THEME,    //
    ZOF_ACTION_CONTROL,  // its name in the same view, or "VIEW/NAME"
    ZOF_ACTION_FIELD,    // a control with ".txt" or ".value"
    ZOF_ACTION_NUMBER,   //
    ZOF_ACTION_TEXT      // the rest of the action; "#key" is a text of the language
} zof_action_arg_e;

enum { ZOF_ACTION_ARGS = 8, ZOF_ACTION_SIZE = 256 };

struct zof_action;

typedef struct {
    const char *word;
    const char *form; // its arguments, "VIEW [SLIDE]"
    const char *help; // one line
    u8 least;         // arguments that must be there
    zof_action_arg_e args[ZOF_ACTION_ARGS];
    s32 (*run)(const struct zof_action *action); // returns 0 or -1
} zof_action_row_t;

extern const zof_action_row_t zof_action_rows[]; // ended by a row without a word

// An action that has been split into its arguments.
typedef struct zof_action {
    const zof_action_row_t *row;
    u32 view;                          // of the control whose event it is
    const char *args[ZOF_ACTION_ARGS]; // null if absent; point into `text`
    char text[ZOF_ACTION_SIZE];
} zof_action_t;

// Splits an action. Returns null, or what is wrong with it, valid until the next call on the same thread.
const char *zof_action_parse(const char *text, zof_action_t *out);

// Splits "NAME.txt" or "VIEW/NAME.value", an argument of kind ZOF_ACTION_FIELD, at its last dot. Returns what follows
// it, or null if that is neither "txt" nor "value"; `name` gets what comes before it, cut to `size` bytes.
const char *zof_action_field(const char *argument, char *name, u32 size);

// Returns the number of a name of ZOF_ACTION_SLIDE among zof_action_slides, or -1.
s32 zof_action_slide(const char *name);
extern const char *const zof_action_slides[]; // ended by null

// Returns ZOF_TRUE if `set` can change the text, or else the value, of controls of this type.
zof_bool zof_action_can_set(u32 type, zof_bool text);

// Runs the actions of a control for an event. Events that an action causes run no actions.
void zof_action_happened(const para_t *record, u32 event);

ZOF_C_END

#endif
