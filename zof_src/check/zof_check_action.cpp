// Actions of controls: their form, and that what they name exists.
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "check/zof_check_in.h"
#include "hmi/zof_hmi_action.h"
#include "zof_lib/zof_util.h"

enum { PATH_SIZE = ZOF_ACTION_SIZE + 32 };

// Where an action stands in a view file.
struct action_t {
    check_run_t *c;
    const check_file_t *file;
    u32 node;
};

static void missing(const action_t *at, const char *what, const char *name) {
    check_report(at->c, at->file, at->node, CHECK_ACTION, "there is no %s %.80s", what, name);
}

static const check_file_t *view_file(const action_t *at, const char *name) {
    char path[PATH_SIZE];
    const size_t length = std::strlen(name);
    const bool whole = length > 2 && std::strcmp(name + length - 2, ".g") == 0;
    std::snprintf(path, sizeof path, "config/view/%s%s", name, whole ? "" : ".g");
    return check_file_find(at->c, path, false);
}

static bool is_id(const char *name) {
    char *end = nullptr;
    std::strtoul(name, &end, 10);
    return end != name && !*end;
}

static bool theme_exists(const action_t *at, const char *name) {
    char path[PATH_SIZE];
    std::snprintf(path, sizeof path, "config/theme/%s/", name);
    for (u32 i = 0; i < at->c->files.count; i++) {
        if (check_begins(at->c->files.at[i].path, path)) {
            return true;
        }
    }
    return false;
}

// Returns the entry of a control of a view file, or ZOF_J_NONE.
static u32 control_find(const check_file_t *file, const char *name) {
    const u32 controls = zof_jdoc_get(&file->doc, 0, "controls");
    u32 at = controls == ZOF_J_NONE ? controls : file->doc.nodes[controls].child;
    char other[ZOF_ACTION_SIZE];
    for (; at != ZOF_J_NONE; at = file->doc.nodes[at].next) {
        const u32 pub = zof_jdoc_get(&file->doc, zof_jdoc_get(&file->doc, at, "property"), "pub_t");
        check_text(file, pub, "name", other, sizeof other);
        if (pub != ZOF_J_NONE && std::strcmp(name, other) == 0) {
            return at;
        }
    }
    return at;
}

// Checks "NAME" or "VIEW/NAME"; with `field`, also that this can be set.
static void control_check(const action_t *at, const char *path, const char *field) {
    char view[ZOF_ACTION_SIZE];
    const char *slash = std::strchr(path, '/');
    const char *name = slash ? slash + 1 : path;
    const check_file_t *file = at->file;
    if (slash) {
        std::snprintf(view, sizeof view, "%.*s", (int)(slash - path), path);
        file = view_file(at, view);
    }
    if (!file) {
        if (!is_id(view)) {
            missing(at, "view", view);
        }
        return;
    }
    const u32 entry = control_find(file, name);
    if (entry == ZOF_J_NONE) {
        missing(at, "control", path);
        return;
    }
    const s64 type = check_number(file, entry, "type", zof_entry_t_tbl, -1);
    if (field && type >= 0 && !zof_action_can_set((u32)type, std::strcmp(field, "txt") == 0)) {
        check_report(at->c, at->file, at->node, CHECK_ACTION, "%.80s has no .%s that can be set", path, field);
    }
}

static void language_check(const action_t *at, const char *name) {
    char path[PATH_SIZE];
    std::snprintf(path, sizeof path, "config/languages/%s.g", name);
    if (!check_file_find(at->c, path, false)) {
        missing(at, "language", name);
    }
}

static void argument_check(const action_t *at, zof_action_arg_e kind, const char *argument) {
    char name[ZOF_ACTION_SIZE];
    if (kind == ZOF_ACTION_VIEW && !is_id(argument) && !view_file(at, argument)) {
        missing(at, "view", argument);
    } else if (kind == ZOF_ACTION_LANGUAGE) {
        language_check(at, argument);
    } else if (kind == ZOF_ACTION_THEME && !theme_exists(at, argument)) {
        missing(at, "theme", argument);
    } else if (kind == ZOF_ACTION_CONTROL) {
        control_check(at, argument, nullptr);
    } else if (kind == ZOF_ACTION_FIELD) {
        const char *field = zof_action_field(argument, name, sizeof name);
        control_check(at, name, field);
    } else if (kind == ZOF_ACTION_TEXT) {
        check_word_use(at->c, at->file, at->node, argument);
    }
}

static void action_check(check_run_t *c, const check_file_t *file, u32 node) {
    const action_t at = {c, file, node};
    char text[2 * ZOF_ACTION_SIZE];
    zof_action_t action;
    zof_jdoc_text(&file->doc, node, text, sizeof text);
    const char *wrong = zof_action_parse(text, &action);
    if (wrong) {
        check_report(c, file, node, CHECK_ACTION, "%s", wrong);
        return;
    }
    for (u32 i = 0; i < ZOF_ACTION_ARGS && action.args[i]; i++) {
        argument_check(&at, action.row->args[i], action.args[i]);
    }
}

void check_actions(check_run_t *c, const check_file_t *file, u32 on) {
    const zof_jnode_t *nodes = file->doc.nodes;
    const bool object = on != ZOF_J_NONE && nodes[on].kind == ZOF_J_OBJECT;
    for (u32 list = object ? nodes[on].child : ZOF_J_NONE; list != ZOF_J_NONE; list = nodes[list].next) {
        const bool array = nodes[list].kind == ZOF_J_ARRAY;
        for (u32 at = array ? nodes[list].child : ZOF_J_NONE; at != ZOF_J_NONE; at = nodes[at].next) {
            if (nodes[at].kind == ZOF_J_TEXT) {
                action_check(c, file, at);
            }
        }
    }
}
