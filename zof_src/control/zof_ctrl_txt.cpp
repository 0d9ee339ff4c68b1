// Updates the texts of all controls after a language change.
#include "control/zof_ctrl_create.h"
#include "project/view/zof_view_layer.h"

static void ctrl_update(zof_view_node_t *, para_t *record) {
    const zof_ctrl_class_t *row = zof_ctrl_class_get(record->attr->ctrl_type);
    if (row && row->update_txt) {
        row->update_txt(record);
    }
}

static void view_update(void *view) {
    zof_view_ctrls_each((zof_view_node_t *)view, false, ctrl_update);
}

s32 zof_ctrl_txt_update(void) {
    const zof_prj_t *prj = zof_prj_get_cur();
    if (!prj || !prj->view_list) {
        return -1;
    }
    __db_list_travel(prj->view_list, view_update);
    return 0;
}
