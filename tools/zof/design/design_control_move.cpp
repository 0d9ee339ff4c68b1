// Deleting, ordering and renaming controls.
#include <algorithm>
#include <cctype>
#include <cmath>
#include <numeric>

#include "design_control.h"

cJSON *design_control_delete(design_files_t *files, const cJSON *args, std::vector<std::string> *uses,
                             std::string *error) {
    design_view_t view = {};
    std::vector<u32> chosen;
    *error = design_view_chosen(files, args, &view, &chosen);
    if (!error->empty()) {
        return nullptr;
    }
    const std::vector<u32> all = design_view_with_children(&view, chosen);
    *uses = design_control_uses(files, &view, all);
    cJSON *edits = cJSON_CreateArray();
    for (size_t i = all.size(); i-- > 0;) { // the last one first, so that the others keep their index
        design_edit_value(edits, &view, all[i], "", nullptr);
    }
    return edits;
}

// Order ------------------------------------------------------------------------------------------------------------

struct point_t {
    double x, y;
};

static double number_of(const design_view_t *view, u32 index, const char *path) {
    double number = 0;
    const u32 node = zof_jdoc_find(&view->json, view->all[index].node, path);
    return node != ZOF_J_NONE && zof_jdoc_number(&view->json, node, &number) == 0 && std::isfinite(number) ? number : 0;
}

static s32 index_of_id(const design_view_t *view, s64 id) {
    const auto found = std::find_if(view->all.begin(), view->all.end(),
                                    [id](const design_control_t &control) { return id > 0 && control.id == id; });
    return found == view->all.end() ? -1 : (s32)found->index;
}

// Returns where a control stands in the view, as the files say; that of the view itself for -1.
static point_t place_of(const design_view_t *view, s32 index) {
    point_t place = {0, 0};
    for (size_t depth = 0; index >= 0 && depth <= view->all.size(); depth++) { // parents may be in a circle
        place.x += number_of(view, (u32)index, "property.pub_t.pt.x");
        place.y += number_of(view, (u32)index, "property.pub_t.pt.y");
        index = index_of_id(view, view->all[(u32)index].parent);
    }
    return place;
}

static void point_set(cJSON *edits, const design_view_t *view, u32 index, point_t by) {
    const struct {
        const char *name;
        double by;
    } axes[] = {{"x", by.x}, {"y", by.y}};
    for (const auto &axis : axes) {
        const std::string path = std::string("property.pub_t.pt.") + axis.name;
        if (axis.by != 0) {
            design_edit_value(edits, view, index, "." + path,
                              cJSON_CreateNumber(number_of(view, index, path.c_str()) + axis.by));
        }
    }
}

// The place on the screen stays: the control moves by the difference between the parents. `dx` and `dy` are what the
// files do not say of it, such as the parents' padding.
static void parent_set(cJSON *edits, const design_view_t *view, u32 index, s32 parent, const cJSON *args) {
    const s64 id = parent < 0 ? 0 : view->all[(u32)parent].id;
    const design_control_t &control = view->all[index];
    point_t by = {design_args_number(args, "dx", 0), design_args_number(args, "dy", 0)};
    if (id != control.parent) {
        const point_t old = place_of(view, index_of_id(view, control.parent));
        const point_t now = place_of(view, parent);
        by = {by.x + old.x - now.x, by.y + old.y - now.y};
        design_edit_value(edits, view, index, ".property.pub_t.parent_id",
                          id ? cJSON_CreateNumber((double)id) : nullptr);
    }
    point_set(edits, view, index, by);
}

static void move_add(cJSON *edits, const design_view_t *view, u32 from, u32 to) {
    cJSON *edit = cJSON_CreateObject();
    cJSON_AddItemToArray(edits, edit);
    cJSON_AddStringToObject(edit, "file", view->file.c_str());
    cJSON_AddStringToObject(edit, "path", ("controls[" + std::to_string(from) + "]").c_str());
    cJSON_AddNumberToObject(edit, "move", to);
}

// Moves controls, in their order, before another one or to the end.
static void group_move(cJSON *edits, const design_view_t *view, const std::vector<u32> &group, u32 before) {
    std::vector<u32> order(view->all.size());
    std::iota(order.begin(), order.end(), 0U);
    for (const u32 index : group) {
        const auto from = std::find(order.begin(), order.end(), index);
        const auto to = std::find(order.begin(), order.end(), before);
        const auto at = (u32)(from - order.begin());
        const auto end = (u32)(to - order.begin());
        if (end == at || end == at + 1) {
            continue;
        }
        move_add(edits, view, at, end);
        order.erase(order.begin() + at);
        order.insert(order.begin() + (end > at ? end - 1 : end), index);
    }
}

cJSON *design_control_reorder(design_files_t *files, const cJSON *args, std::string *error) {
    design_view_t view;
    const std::string path = design_args_text(args, "control");
    const std::string parent_path = design_args_text(args, "parent");
    const std::string before_path = design_args_text(args, "before");
    *error = design_view_read(files, path.substr(0, path.find('/')), &view);
    if (!error->empty()) {
        return nullptr;
    }
    const s32 control = design_view_find(&view, path);
    const s32 parent = parent_path.empty() ? -1 : design_view_find(&view, parent_path);
    const s32 before = before_path.empty() ? -1 : design_view_find(&view, before_path);
    const std::vector<u32> group = control < 0 ? std::vector<u32>{} : design_view_with_children(&view, {(u32)control});
    *error = control < 0                          ? "there is no control " + path
             : parent < 0 && !parent_path.empty() ? "there is no control " + parent_path
             : before < 0 && !before_path.empty() ? "there is no control " + before_path
             : design_view_in(group, (u32)parent) ? "a control cannot be in itself"
             : before >= 0 && design_view_in(group, (u32)before) && before != control
                 ? "a control cannot stand in itself"
                 : "";
    if (!error->empty()) {
        return nullptr;
    }
    cJSON *edits = cJSON_CreateArray();
    parent_set(edits, &view, (u32)control, parent, args);
    const u32 end = (u32)view.all.size();
    const u32 to = before < 0 ? end : std::max((u32)before, (u32)(parent + 1)); // a parent stands before its children
    if (before != control) {
        group_move(edits, &view, group, to);
    }
    return edits;
}

// A container that cannot be seen: what is put into it looks as before.
static const char container_keys[] = R"({"styles": [{"body_t": {"opa": 0, "radius": 0, "border": {"width": 0, "opa": 0},
    "shadow": {"width": 0}, "padding": {"top": 0, "bottom": 0, "left": 0, "right": 0}}}]})";

// Puts the controls of a group, which stand from `first` on, into the container that stands before them.
static void group_enter(cJSON *edits, const design_view_t *view, const std::vector<u32> &group,
                        const std::vector<u32> &chosen, u32 first, point_t at, s64 id) {
    for (u32 i = 0; i < group.size(); i++) {
        if (!design_view_in(chosen, group[i])) {
            continue; // it moves with its parent
        }
        const double x = number_of(view, group[i], "property.pub_t.pt.x");
        const double y = number_of(view, group[i], "property.pub_t.pt.y");
        const struct {
            const char *key;
            double value;
        } rows[] = {{"parent_id", (double)id}, {"pt.x", x - at.x}, {"pt.y", y - at.y}};
        for (const auto &row : rows) {
            design_edit_value(edits, view, first + i, std::string(".property.pub_t.") + row.key,
                              cJSON_CreateNumber(row.value));
        }
    }
}

cJSON *design_control_group(design_files_t *files, const cJSON *args, std::vector<std::string> *made,
                            std::string *error) {
    design_view_t view = {};
    std::vector<u32> chosen;
    *error = design_view_chosen(files, args, &view, &chosen);
    const auto of_other = [&](u32 index) { return view.all[index].parent != view.all[chosen[0]].parent; };
    if (error->empty() && std::any_of(chosen.begin(), chosen.end(), of_other)) {
        *error = "the controls are in different containers";
    }
    if (!error->empty()) {
        return nullptr;
    }
    cJSON *box = cJSON_Duplicate(args, 1);
    const point_t at = {number_of(&view, chosen[0], "property.pub_t.pt.x") + design_args_number(args, "dx", 0),
                        number_of(&view, chosen[0], "property.pub_t.pt.y") + design_args_number(args, "dy", 0)};
    cJSON_AddStringToObject(box, "type", "container");
    cJSON_AddNumberToObject(box, "x", at.x);
    cJSON_AddNumberToObject(box, "y", at.y);
    const design_new_t container = design_control_new(&view, box, view.all[chosen[0]].parent, container_keys, nullptr);
    cJSON_Delete(box);
    *error = container.fault;
    if (!error->empty()) {
        return nullptr;
    }
    // All stand where the front one stood, after the container.
    const std::vector<u32> group = design_view_with_children(&view, chosen);
    const u32 end = group.back() + 1;
    const u32 first = end - (u32)group.size();
    cJSON *edits = cJSON_CreateArray();
    group_move(edits, &view, group, end);
    design_edit_insert(edits, &view, first, container.text);
    group_enter(edits, &view, group, chosen, first + 1, at, container.id);
    made->push_back(design_view_path(&view, container.name));
    return edits;
}

// Names ------------------------------------------------------------------------------------------------------------

std::string design_name_fault(const std::string &name) {
    enum { NAME_MAX_SIZE = 63 };
    const auto word = [](char c) { return isalnum((u8)c) || c == '_'; };
    if (name.empty() || isdigit((u8)name[0]) || !std::all_of(name.begin(), name.end(), word)) {
        return "a name consists of letters, digits and _, and begins with no digit";
    }
    if (name.size() > NAME_MAX_SIZE) {
        return "the name is too long";
    }
    return "";
}

// Returns why a control of the view cannot have this name; empty if it can.
static std::string name_fault(const design_view_t *view, u32 index, const std::string &name) {
    const std::string upper = design_control_upper(name);
    for (const design_control_t &other : view->all) {
        if (other.index != index && design_control_upper(other.name) == upper) {
            return "the view has a control with the name " + other.name;
        }
    }
    return design_name_fault(name);
}

struct rename_t {
    cJSON *edits;
    std::string old_name, name;
};

static void action_rename(const std::string &file, const std::string &path, const std::string &text, size_t at,
                          void *arg) {
    auto *rename = (rename_t *)arg;
    cJSON *edit = cJSON_CreateObject();
    cJSON_AddItemToArray(rename->edits, edit);
    cJSON_AddStringToObject(edit, "file", file.c_str());
    cJSON_AddStringToObject(edit, "path", path.c_str());
    cJSON_AddStringToObject(edit, "value",
                            (text.substr(0, at) + rename->name + text.substr(at + rename->old_name.size())).c_str());
}

cJSON *design_control_rename(design_files_t *files, const cJSON *args, std::vector<std::string> *made,
                             std::vector<std::string> *uses, std::string *error) {
    design_view_t view;
    const std::string path = design_args_text(args, "control");
    const std::string name = design_args_text(args, "name");
    *error = design_view_read(files, path.substr(0, path.find('/')), &view);
    const s32 index = error->empty() ? design_view_find(&view, path) : -1;
    *error = !error->empty() ? *error : index < 0 ? "there is no control " + path : name_fault(&view, (u32)index, name);
    if (!error->empty()) {
        return nullptr;
    }
    *uses = design_control_uses(files, &view, {(u32)index});
    rename_t rename = {cJSON_CreateArray(), view.all[(u32)index].name, name};
    design_edit_value(rename.edits, &view, (u32)index, ".property.pub_t.name", cJSON_CreateString(name.c_str()));
    if (!rename.old_name.empty() && rename.old_name != name) {
        const std::set<std::string> names = {rename.old_name};
        design_control_actions(files, &view, &names, action_rename, &rename);
    }
    made->push_back(design_view_path(&view, name));
    return rename.edits;
}
