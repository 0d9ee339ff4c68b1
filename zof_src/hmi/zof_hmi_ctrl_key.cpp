// The language keys of texts and pictures: a host that writes a key need not know the languages of the project.
#include <stddef.h>

#include "control/zof_btn.h"
#include "control/zof_cb.h"
#include "control/zof_img.h"
#include "control/zof_imgbtn.h"
#include "control/zof_label.h"
#include "control/zof_mbox.h"
#include "hmi/zof_hmi_ctrl_in.h"
#include "project/look/zof_lang.h"

struct key_row {
    u32 type;
    size_t at; // of the text in the attributes
    s32 (*set)(zof_ctrl_t *ctrl, const char *text);
};

static constexpr key_row rows[] = {
    {ZOF_CTRL_LABEL, offsetof(zof_label_attr_t, txt), zof_label_set_txt},
    {ZOF_CTRL_BTN, offsetof(zof_btn_attr_t, txt), zof_btn_set_txt},
    {ZOF_CTRL_IMG, offsetof(zof_img_attr_t, init_img), zof_img_set_src},
    {ZOF_CTRL_IMGBTN, offsetof(zof_imgbtn_attr_t, txt), zof_imgbtn_set_txt},
    {ZOF_CTRL_CB, offsetof(zof_cb_attr_t, txt), zof_cb_set_txt},
    {ZOF_CTRL_MBOX, offsetof(zof_mbox_attr_t, txt), zof_mbox_set_txt},
};

// Returns null if the control does not exist or its type has no such text.
static const key_row *row_of(const para_t *c) {
    for (const key_row &row : rows) {
        if (c && c->attr->ctrl_type == row.type) {
            return &row;
        }
    }
    return nullptr;
}

s32 hmi_ctrl_key_get(void *type_param, void *, void *value) {
    const para_t *c = hmi_ctrl(type_param, HMI_ANY_TYPE);
    const key_row *row = row_of(c);
    const char *text = row ? *(const char *const *)((const char *)c->attr + row->at) : nullptr;
    return hmi_ctrl_give_text(value, zof_lang_check_str(text) ? text : nullptr);
}

s32 hmi_ctrl_key_set(void *type_param, void *, void *value, void *reply) {
    const char *key = *(const char **)value;
    para_t *c = hmi_ctrl(type_param, HMI_ANY_TYPE);
    const key_row *row = row_of(c);
    if (!row || !zof_lang_check_str(key) || zof_lang_get_cur_str(key) == key) {
        return hmi_ctrl_refuse(reply);
    }
    return hmi_ctrl_answer(reply, row->set(c, key));
}
