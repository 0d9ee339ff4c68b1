// Reports calls that fail because of their handle: of another type, without object, or not found. A lookup that fails
// is only remembered, because programs may test for a control; the call that is given its null handle reports it.
#include <stdio.h>
#include <string.h>

#include "control/zof_ctrl_in.h"
#include "control/zof_ctrl_up.h"
#include "drv/zof_drv_file.h"
#include "project/path/zof_res.h"
#include "zof_lib/zof_jdoc.h"
#include "zof_lib/zof_stdio.h"

enum { SITES_MAX = 256, NAME_SIZE = 128, FILE_MAX = 1 << 26 };

static const void *sites[SITES_MAX]; // that have been reported
static u32 site_count;
static zof_bool quiet;

static struct {
    u32 view, ctrl;
    bool failed;
} lookup; // the last one

void zof_refuse_lookup(u32 view, u32 ctrl, bool found) {
    lookup = {view, ctrl, !found};
}

zof_bool zof_refuse_quiet(zof_bool on) {
    const zof_bool former = quiet;
    quiet = on;
    return former;
}

static bool site_is_new(const void *site) {
    for (u32 i = 0; i < site_count; i++) {
        if (sites[i] == site) {
            return false;
        }
    }
    if (site_count < SITES_MAX) {
        sites[site_count++] = site;
        return true;
    }
    return false;
}

// Names ---------------------------------------------------------------------------------------------------------------

// Reads the name of a control from a view's file, because the view may not be loaded. Leaves `name` unchanged if it is
// not found.
static void name_in_file(u32 view, u32 ctrl, char *name, size_t size) {
    const char *file = zof_view_name_get(view), *why = nullptr;
    u32 length = 0;
    u8 *text =
        file ? zof_file_read_all(zof_res_get_prjfile_path("config/view/", file), FILE_MAX, &length, &why) : nullptr;
    zof_jdoc_t doc = {};
    if (text && zof_jdoc_read(&doc, (const char *)text, length) >= 0) {
        const u32 controls = zof_jdoc_find(&doc, 0, "controls");
        for (u32 at = controls == ZOF_J_NONE ? ZOF_J_NONE : doc.nodes[controls].child; at != ZOF_J_NONE;
             at = doc.nodes[at].next) {
            double id = 0;
            zof_jdoc_number(&doc, zof_jdoc_find(&doc, at, "property.pub_t.id"), &id);
            if (id == ctrl) {
                zof_jdoc_text(&doc, zof_jdoc_find(&doc, at, "property.pub_t.name"), name, size);
                break;
            }
        }
    }
    zof_jdoc_free(&doc);
    zof_free(text);
}

// Writes "home/brew (1/8)", or as much of it as is known.
static void place_write(u32 view, u32 ctrl, const para_t *record, char *out, size_t size) {
    char name[NAME_SIZE] = "";
    const char *file = zof_view_name_get(view);
    if (record && record->attr && record->attr->name) {
        snprintf(name, sizeof(name), "%s", record->attr->name);
    } else if (file) {
        name_in_file(view, ctrl, name, sizeof(name));
    }
    if (!file || !name[0]) {
        snprintf(out, size, "control %u/%u", view, ctrl);
        return;
    }
    const size_t length = strlen(file);
    const bool suffix = length > 2 && strcmp(file + length - 2, ".g") == 0;
    snprintf(out, size, "%.*s/%s (%u/%u)", (int)(suffix ? length - 2 : length), file, name, view, ctrl);
}

// Returns the view that contains a control record; null if no view does.
static const zof_view_node_t *view_of(const void *record) {
    const zof_prj_t *prj = zof_prj_get_cur();
    const db_list *views = prj ? prj->view_list : nullptr;
    for (const db_node *v = views ? views->head->next : nullptr; views && v != views->head; v = v->next) {
        const auto *node = (const zof_view_node_t *)v->data;
        const db_list *ctrls = node->ctrl_list;
        for (const db_node *c = ctrls ? ctrls->head->next : nullptr; ctrls && c != ctrls->head; c = c->next) {
            if (c->data == record) {
                return node;
            }
        }
    }
    return nullptr;
}

// Reports -------------------------------------------------------------------------------------------------------------

static void lookup_report(const char *function) {
    char place[2 * NAME_SIZE];
    place_write(lookup.view, lookup.ctrl, nullptr, place, sizeof(place));
    if (!zof_view_name_get(lookup.view)) {
        zof_printf("%s: %s: the project has no view %u", function, place, lookup.view);
    } else if (!zof_view_list_get(lookup.view)) {
        zof_printf("%s: %s: view %u is not loaded yet", function, place, lookup.view);
    } else {
        zof_printf("%s: %s: view %u has no such control", function, place, lookup.view);
    }
}

s32 zof_refuse(const zof_ctrl_t *ctrl, const char *function, const void *site) {
    if (quiet || !site_is_new(site ? site : function)) {
        return -1;
    }
    if (!ctrl) {
        lookup.failed ? lookup_report(function) : (void)zof_printf("%s: null handle", function);
        return -1;
    }
    const lv_obj_t *obj = zof_ctrl_obj(ctrl);
    const auto *record = obj ? (const para_t *)lv_obj_get_user_data((lv_obj_t *)obj) : (const para_t *)ctrl;
    const zof_view_node_t *view = view_of(record);
    if (!view) {
        zof_printf("%s: the handle is not a control of this type", function);
        return -1;
    }
    char place[2 * NAME_SIZE], type[NAME_SIZE] = "control";
    place_write(view->attr->v_id, record->id, record, place, sizeof(place));
    if (!obj || !record->attr) {
        zof_printf("%s: %s: the control is deleted or not created yet", function, place);
        return -1;
    }
    zof_names_write(zof_type_names, ZOF_FALSE, record->attr->ctrl_type, type, sizeof(type));
    zof_printf("%s: %s is %s %s", function, place, strchr("aeiou", type[0]) ? "an" : "a", type);
    return -1;
}
