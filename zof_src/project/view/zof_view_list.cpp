// The lists of views: names by id, from the project file, and the nodes of loaded views.
#include <string.h>

#include "project/base/zof_hold_in.h"
#include "project/base/zof_prj_up.h"
#include "project/path/zof_res.h"
#include "project/read/zof_j2s.h"
#include "project/view/zof_view.h"
#include "project/view/zof_view_layer.h"
#include "zof_lib/zof_stdio.h"

static int node_compare(void *data, void *key) {
    const zof_view_node_t *node = (const zof_view_node_t *)data;
    return node && key && node->attr->v_id == *(const u32 *)key ? 0 : 1;
}

const char *zof_view_name_get(u32 id) {
    const zof_prj_t *prj = zof_prj_get_cur();
    if (!prj) {
        return nullptr;
    }
    const zof_view_name_t *entry = (const zof_view_name_t *)__db_list_search_node(prj->view_names, &id);
    return entry ? entry->name : nullptr;
}

zof_view_attr_t *zof_view_attr_get(u32 id) {
    const char *name = zof_view_name_get(id);
    return name ? zof_j2s_view(zof_res_get_prjfile_path("config/view/", name)) : nullptr;
}

const zof_view_fun_t *zof_view_fun_get(u32 id) {
    const zof_prj_t *prj = zof_prj_get_cur();
    if (!prj || !prj->view_fun) {
        return nullptr;
    }
    for (u32 i = 0; i < prj->view_fun_cnt; i++) {
        if (prj->view_fun[i].view_id == id) {
            return &prj->view_fun[i];
        }
    }
    return nullptr;
}

db_list *zof_view_list_create(void) {
    db_list *list = db_list_create();
    if (list) {
        list->compare = node_compare;
    }
    return list;
}

zof_view_node_t *zof_view_list_get(u32 id) {
    const zof_prj_t *prj = zof_prj_get_cur();
    return prj ? (zof_view_node_t *)__db_list_search_node(prj->view_list, &id) : nullptr;
}

db_list *zof_view_list_get_ctrl_list(u32 id) {
    const zof_view_node_t *node = zof_view_list_get(id);
    return node ? node->ctrl_list : nullptr;
}

s32 zof_view_ctrls_each(zof_view_node_t *view, bool last_first, void (*fn)(zof_view_node_t *view, para_t *record)) {
    zof_hold hold; // a record freed in the meantime stays readable, without attributes
    const db_list *list = view->ctrl_list;
    const u32 count = list ? (u32)list->count : 0;
    para_t **records = (para_t **)zof_malloc(count * sizeof(para_t *));
    if (count && !records) {
        zof_printf("view %u: not enough memory to visit its controls", view->attr->v_id);
        return -1;
    }
    const db_node *at = count ? list->head : nullptr;
    for (u32 i = 0; i < count; i++) {
        at = last_first ? at->prev : at->next;
        records[i] = (para_t *)at->data;
    }
    for (u32 i = 0; i < count; i++) {
        if (records[i] && records[i]->attr) {
            fn(view, records[i]);
        }
    }
    zof_free(records);
    return 0;
}

static void attr_release(zof_view_attr_t *attr) {
    FreeViewStruct(attr);
    zof_free(attr);
}

static zof_view_node_t *node_new(zof_view_attr_t *attr, const zof_view_fun_t *fun) {
    zof_view_node_t *node = (zof_view_node_t *)zof_malloc(sizeof(zof_view_node_t));
    if (!node) {
        return nullptr;
    }
    memset(node, 0, sizeof(*node));
    node->view_fun = fun;
    node->attr = attr;
    node->ctrl_list = zof_prj_up.ctrl_list_init();
    if (__db_list_put_tail(zof_prj_get_cur()->view_list, node) == 0) {
        return node;
    }
    __db_list_destory(node->ctrl_list, nullptr);
    zof_free(node);
    return nullptr;
}

zof_view_node_t *zof_view_node_create(u32 id) {
    const char *name = zof_view_name_get(id);
    if (!name) {
        zof_printf("view %u: no such view in the project file", id);
        return nullptr;
    }
    cJSON *file = nullptr;
    zof_view_attr_t *attr = zof_j2s_view_open(zof_res_get_prjfile_path("config/view/", name), &file);
    if (!attr) {
        zof_printf("view %u: config/view/%s is not a valid view", id, name);
        return nullptr;
    }
    const zof_view_fun_t *fun = zof_view_fun_get(attr->v_id);
    zof_view_node_t *node = fun ? zof_view_list_get(attr->v_id) : nullptr;
    if (attr->v_id != id) {
        zof_printf("view %u: config/view/%s: v_id is %u", id, name, attr->v_id);
    }
    if (!fun) {
        zof_printf("view %u: config/view/%s: the program has no functions for v_id %u", id, name, attr->v_id);
    }
    if (fun && !node) {
        node = node_new(attr, fun);
        if (node) {
            node->file = file;
            return node;
        }
    }
    cJSON_Delete(file);
    attr_release(attr);
    return node;
}
