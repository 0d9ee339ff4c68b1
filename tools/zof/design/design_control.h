// Internal header of the operations on controls: the controls of a view, as its file has them.
#ifndef DESIGN_CONTROL_H
#define DESIGN_CONTROL_H

#include <set>

#include "catalogue/zof_cat.h"
#include "design_text.h"

struct design_control_t {
    u32 node, index; // in `controls`
    std::string name;
    s64 id, parent; // 0 for none
};

struct design_view_t {
    design_files_t *files;
    std::string name, file; // "home", "config/view/home.g"
    design_doc_t *doc;
    zof_jdoc_t json;
    u32 controls; // the array
    s64 id;       // of the view
    std::vector<design_control_t> all;
    std::set<std::string> names; // as `zof ids` writes them
    std::set<s64> ids;
};

// Reads a view. Returns an error if its file cannot be edited.
std::string design_view_read(design_files_t *files, const std::string &name, design_view_t *view);
// Reads the view of the first path in args->controls, and which of its controls the paths name, in the file's order.
std::string design_view_chosen(design_files_t *files, const cJSON *args, design_view_t *view, std::vector<u32> *chosen);
// Returns the index of a control by the last part of its path, "brew" or "#12"; -1 if the view has none.
s32 design_view_find(const design_view_t *view, const std::string &path);
// Adds the controls that others contain, in the file's order.
std::vector<u32> design_view_with_children(const design_view_t *view, const std::vector<u32> &chosen);
bool design_view_in(const std::vector<u32> &some, u32 index);
// Returns the bytes of a control.
std::string design_view_text(const design_view_t *view, u32 index);
std::string design_view_path(const design_view_t *view, const std::string &name);
// Returns the smallest id that is not among these; 0 if all are.
s64 design_control_free_id(const std::set<s64> &ids);

// Words of C. design_control_upper is how `zof ids` writes a name.
std::string design_control_upper(const std::string &name);
// Returns the places that use a control, "main.c:24", in the programs beside the project and in actions.
std::vector<std::string> design_control_uses(design_files_t *files, const design_view_t *view,
                                             const std::vector<u32> &controls);

// Calls with each action that names one of these controls of the view, or the view itself if `names` is null: the file
// and path of the action, its text, and where the name stands in it.
typedef void (*design_action_fn)(const std::string &file, const std::string &path, const std::string &text, size_t at,
                                 void *arg);
void design_control_actions(design_files_t *files, const design_view_t *view, const std::set<std::string> *names,
                            design_action_fn fn, void *arg);

// A new control, in the form of the others. `args` has its type, place and size; `own` is a JSON object of its other
// keys; null for the start values of the type, and a look, whose additions to the project's looks go to `edits`.
struct design_new_t {
    std::string fault; // why there is none
    std::string text, name;
    s64 id;
};
design_new_t design_control_new(const design_view_t *view, const cJSON *args, s64 parent, const char *own,
                                cJSON *edits);
// Returns the catalogue's row of a control's type; null if there is no such type.
const zof_cat_type_t *design_control_type(const design_view_t *view, u32 index);
// Returns the look with which a new control begins, empty for none. Sets the colours among its own keys. What the
// project's looks and colours lack is added to `edits`.
std::string design_control_look(const design_view_t *view, const std::string &theme, const zof_cat_type_t *type,
                                cJSON *keys, cJSON *edits);

// Returns why a text cannot be the name of a control or of a view; empty if it can.
std::string design_name_fault(const std::string &name);

// Edits.
std::string design_args_text(const cJSON *args, const char *name);
double design_args_number(const cJSON *args, const char *name, double absent);
void design_edit_value(cJSON *edits, const design_view_t *view, u32 index, const std::string &below, cJSON *value);
// Inserts the JSON text of one or several controls before the one with this index; the count appends.
void design_edit_insert(cJSON *edits, const design_view_t *view, u32 index, const std::string &text);

#endif
