// Finding the control of a command, and the acknowledgements.
#include "hmi/zof_hmi_ctrl_in.h"

#include "project/view/zof_view.h"

static bool loads;

void hmi_ctrl_load_set(bool on) {
    loads = on;
}

static void view_wanted(u32 view) {
    if (loads && !zof_view_list_get_ctrl_list(view) && zof_view_name_get(view)) {
        zof_view_load(view);
    }
}

para_t *hmi_ctrl(const void *type_param, s32 ctrl_type) {
    const auto *id = (const zof_hmi_ctrl_id_t *)type_param;
    view_wanted(id->view_id);
    para_t *c = zof_ctrl_get_form_id(id->view_id, id->ctrl_id);
    const bool there = c && c->obj && c->attr;
    return there && (ctrl_type == HMI_ANY_TYPE || (s32)c->attr->ctrl_type == ctrl_type) ? c : nullptr;
}

s32 hmi_ctrl_answer(void *reply, s32 result) {
    if (result == 0 || result == 1) {
        *(s8 *)reply = (s8)!result;
    }
    return ZOF_HMI_DONE;
}

s32 hmi_ctrl_refuse(void *reply) {
    *(s8 *)reply = 1;
    return ZOF_HMI_DONE;
}

s32 hmi_ctrl_choose(const void *type_param, s32 ctrl_type, u8 which, s32 (*first)(zof_ctrl_t *),
                    s32 (*second)(zof_ctrl_t *), void *reply) {
    if (which > 1) {
        return hmi_ctrl_refuse(reply);
    }
    (which ? second : first)(hmi_ctrl(type_param, ctrl_type));
    *(s8 *)reply = 0;
    return ZOF_HMI_DONE;
}

s32 hmi_ctrl_give_text(void *value, const char *text) {
    const bool there = text && text != (const char *)-1;
    *(const char **)value = there ? text : "";
    return ZOF_HMI_DONE;
}
