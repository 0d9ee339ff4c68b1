// The upward arrows: what a lower room needs of a higher one, all in one place.
#include "control/zof_ctrl_create.h"
#include "control/zof_ctrl_up.h"
#include "drv/zof_drv_up.h"
#include "hmi/zof_hmi.h"
#include "hmi/zof_hmi_action.h"
#include "hmi/zof_hmi_event.h"
#include "inspect/zof_inspect.h"
#include "project/base/zof_prj_up.h"
#include "project/zof_prj.h"

const zof_drv_up_t zof_drv_up = {
    .port_init = win_drv_init,
    .set_prj_path = zof_drv_set_prj_path,
    .prj_facts = zof_prj_facts,
    .touch = zof_hmi_touch_evevt,
};

const zof_prj_up_t zof_prj_up = {
    .ctrl_class = zof_ctrl_class_get,
    .ctrl_list_init = zof_ctrl_list_init,
    .ctrl_list_create = zof_ctrl_list_create,
    .ctrl_delete = [](void *record) { return zof_ctrl_delete((para_t *)record); },
    .ctrl_txt_update = zof_ctrl_txt_update,
    .lang_changed = zof_hmi_event_language,
    .view_shown = zof_hmi_event_view,
};

const zof_ctrl_up_t zof_ctrl_up = {
    .ctrl_all_event = zof_hmi_ctrl_all_event,
    .ctrl_watched =
        [](const para_t *record) {
            return (zof_bool)(record->attr->on || zof_hmi_event_wanted() || zof_inspect_events_wanted());
        },
    .ctrl_happened =
        [](para_t *record, u32 event) {
            zof_hmi_event_control(record->attr->view_id, record->attr->id, event);
            zof_inspect_event(record, event);
            zof_action_happened(record, event);
        },
};
