// Every view of the project file gets the same init function, which creates its controls.
#include "zof_plain.h"

#include <vector>

#include <cjson/cJSON.h>

#include "project/view/zof_view.h"
#include "project/zof_prj.h"

static std::vector<zof_view_fun_t> views; // the runtime keeps a pointer to it
static zof_ctrl_event_fn control_event;

// Returns rows for the ids in a view's file, which is about to be loaded.
static const std::vector<zof_ctrl_fun_t> *controls_of(const zof_view_node_t *node) {
    auto *rows = new std::vector<zof_ctrl_fun_t>; // never freed, like the view
    const cJSON *controls = cJSON_GetObjectItem(node->file, "controls");
    const cJSON *entry = nullptr;
    cJSON_ArrayForEach(entry, controls) {
        const cJSON *pub = cJSON_GetObjectItem(cJSON_GetObjectItem(entry, "property"), "pub_t");
        const cJSON *id = cJSON_GetObjectItem(pub, "id");
        if (cJSON_IsNumber(id)) {
            rows->push_back({(u32)id->valueint, control_event});
        }
    }
    return rows;
}

// Creates the controls of a view. An init function has no argument, but the view that is being created is the only one
// without an object.
static void init_any() {
    const db_list *list = zof_prj_get_cur()->view_list;
    for (const db_node *at = list->head->next; at != list->head; at = at->next) {
        const auto *node = (const zof_view_node_t *)at->data;
        if (!node->obj) {
            static const std::vector<zof_ctrl_fun_t> none;
            const std::vector<zof_ctrl_fun_t> *rows = control_event ? controls_of(node) : &none;
            zof_view_create(node->attr->v_id, rows->data(), (u32)rows->size());
            return;
        }
    }
}

static void nothing() {
}

s32 zof_plain_create(zof_ctrl_event_fn event) {
    const zof_prj_t *prj = zof_prj_get_cur();
    const zof_view_name_t *name = nullptr;
    control_event = event;
    for (s32 i = 0; prj && (name = (const zof_view_name_t *)__db_list_visit(prj->view_names, i)); i++) {
        views.push_back({name->id, init_any, nothing, nothing});
    }
    if (views.empty()) {
        return -1;
    }
    zof_prj_create(views.data(), (u32)views.size());
    return 0;
}
