// What the words of actions do.
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "control/zof_arc.h"
#include "control/zof_bar.h"
#include "control/zof_btn.h"
#include "control/zof_cb.h"
#include "control/zof_droplist.h"
#include "control/zof_imgbtn.h"
#include "control/zof_keyboard.h"
#include "control/zof_label.h"
#include "control/zof_mbox.h"
#include "control/zof_rollist.h"
#include "control/zof_slider.h"
#include "control/zof_spinbox.h"
#include "control/zof_sw.h"
#include "control/zof_txtbox.h"
#include "drv/zof_drv_disp.h"
#include "hmi/zof_hmi_action_in.h"
#include "hmi/zof_hmi_tone.h"
#include "project/look/zof_lang.h"
#include "project/look/zof_look_in.h"
#include "project/look/zof_style.h"
#include "project/view/zof_view.h"
#include "project/zof_prj.h"

enum { SLIDE_MS = 250, BEEP_MS = 100, BACK_MAX = 16 };

static u32 former[BACK_MAX]; // the views from which `view` led on, the last one at the end
static u32 former_count;

static bool is_named(const char *file, const char *name) {
    const size_t length = strlen(name);
    return strncmp(file, name, length) == 0 && (!file[length] || strcmp(file + length, ".g") == 0);
}

// Returns the id of a view by its file, with or without ".g", or by its number; 0 if there is no such view.
static u32 view_of(const char *name) {
    const zof_prj_t *prj = zof_prj_get_cur();
    const zof_view_name_t *entry = nullptr;
    char *end = nullptr;
    const u32 number = (u32)strtoul(name, &end, 10);
    for (s32 i = 0; prj && (entry = (const zof_view_name_t *)__db_list_visit(prj->view_names, i)); i++) {
        if (is_named(entry->name, name) || (!*end && entry->id == number)) {
            return entry->id;
        }
    }
    return 0;
}

static zof_ctrl_t *control_in(u32 view, const char *name) {
    if (view && !zof_view_list_get_ctrl_list(view)) {
        zof_view_load(view);
    }
    const db_list *list = zof_view_list_get_ctrl_list(view);
    for (const db_node *at = list ? list->head->next : nullptr; at && at != list->head; at = at->next) {
        auto *record = (para_t *)at->data;
        if (record->obj && record->attr && record->attr->name && strcmp(record->attr->name, name) == 0) {
            return record;
        }
    }
    return nullptr;
}

// Finds "NAME" in the action's own view, or "VIEW/NAME".
static zof_ctrl_t *control_of(const zof_action_t *action, const char *path) {
    char view[ZOF_ACTION_SIZE];
    const char *slash = strchr(path, '/');
    if (!slash) {
        return control_in(action->view, path);
    }
    snprintf(view, sizeof(view), "%.*s", (int)(slash - path), path);
    return control_in(view_of(view), slash + 1);
}

static s32 view_show(u32 view, s32 slide) {
    static constexpr u32 transitions[] = {ZOF_SCR_LOAD_ANIM_MOVE_LEFT, ZOF_SCR_LOAD_ANIM_MOVE_RIGHT,
                                          ZOF_SCR_LOAD_ANIM_MOVE_TOP, ZOF_SCR_LOAD_ANIM_MOVE_BOTTOM,
                                          ZOF_SCR_LOAD_ANIM_FADE_ON};
    return slide < 0 ? zof_view_set_dis_view(view)
                     : zof_view_set_dis_view_anim(view, transitions[slide], SLIDE_MS, 0, ZOF_ANIM_PATH_END_SLOW);
}

static void former_note(u32 view) {
    if (former_count == BACK_MAX) {
        memmove(former, former + 1, sizeof(former) - sizeof(former[0]));
        former_count--;
    }
    former[former_count++] = view;
}

s32 action_view(const zof_action_t *action) {
    const u32 view = view_of(action->args[0]);
    const s32 now = zof_view_get_cur_id(ZOF_LAYER_UI);
    if (!view || view_show(view, zof_action_slide(action->args[1])) != 0) {
        return -1;
    }
    if (now > 0 && zof_view_get_cur_id(ZOF_LAYER_UI) != now) {
        former_note((u32)now);
    }
    return 0;
}

s32 action_back(const zof_action_t *) {
    if (former_count > 0) {
        view_show(former[--former_count], -1);
    }
    return 0;
}

// Returns the argument after the one that is the case now; the first one after the last, or if none of them is.
static const char *next_of(const zof_action_t *action, const char *now) {
    for (u32 i = 0; now && i + 1 < ZOF_ACTION_ARGS && action->args[i + 1]; i++) {
        if (strcmp(action->args[i], now) == 0) {
            return action->args[i + 1];
        }
    }
    return action->args[0];
}

s32 action_lang(const zof_action_t *action) {
    const zof_prj_t *prj = zof_prj_get_cur();
    return zof_lang_set(next_of(action, prj ? prj->lang_name : nullptr));
}

s32 action_theme(const zof_action_t *action) {
    return zof_theme_set(next_of(action, zof_look_theme("")));
}

s32 action_show(const zof_action_t *action) {
    return zof_ctrl_set_hidden(control_of(action, action->args[0]), ZOF_FALSE);
}

s32 action_hide(const zof_action_t *action) {
    return zof_ctrl_set_hidden(control_of(action, action->args[0]), ZOF_TRUE);
}

s32 action_toggle(const zof_action_t *action) {
    zof_ctrl_t *control = control_of(action, action->args[0]);
    return zof_ctrl_set_hidden(control, zof_ctrl_get_hidden(control) ? ZOF_FALSE : ZOF_TRUE);
}

s32 action_enable(const zof_action_t *action) {
    return zof_ctrl_clear_state(control_of(action, action->args[0]), LV_STATE_DISABLED);
}

s32 action_disable(const zof_action_t *action) {
    return zof_ctrl_add_state(control_of(action, action->args[0]), LV_STATE_DISABLED);
}

template <auto CALL> static s32 number_set(zof_ctrl_t *control, s32 number) {
    return CALL(control, (s16)LV_CLAMP(INT16_MIN, number, INT16_MAX));
}

static s32 checked_set(zof_ctrl_t *control, s32 on) {
    return on ? zof_ctrl_add_state(control, LV_STATE_CHECKED) : zof_ctrl_clear_state(control, LV_STATE_CHECKED);
}

// The texts and values that actions set.
static constexpr struct {
    u32 type;
    s32 (*text)(zof_ctrl_t *control, const char *text); // OPTIONAL
    s32 (*number)(zof_ctrl_t *control, s32 number);     // OPTIONAL
} setters[] = {
    {ZOF_CTRL_LABEL, zof_label_set_txt, nullptr},
    {ZOF_CTRL_BTN, zof_btn_set_txt, checked_set},
    {ZOF_CTRL_IMGBTN, zof_imgbtn_set_txt, checked_set},
    {ZOF_CTRL_CB, zof_cb_set_txt, checked_set},
    {ZOF_CTRL_SW, nullptr, checked_set},
    {ZOF_CTRL_MBOX, zof_mbox_set_txt, nullptr},
    {ZOF_CTRL_TXTBOX, zof_txtbox_set_text, nullptr},
    {ZOF_CTRL_ARC, nullptr, number_set<zof_arc_set_value>},
    {ZOF_CTRL_BAR, nullptr, number_set<zof_bar_set_value>},
    {ZOF_CTRL_SLIDER, nullptr, number_set<zof_slider_set_value>},
    {ZOF_CTRL_SPINBOX, nullptr, [](zof_ctrl_t *control, s32 number) { return zof_spinbox_set_value(control, number); }},
    {ZOF_CTRL_DROPLIST, nullptr,
     [](zof_ctrl_t *control, s32 number) { return zof_droplist_set_selected(control, (u32)LV_MAX(number, 0)); }},
    {ZOF_CTRL_ROLLIST, nullptr,
     [](zof_ctrl_t *control, s32 number) { return zof_rollist_set_selected(control, (u32)LV_MAX(number, 0), 0); }},
};

zof_bool zof_action_can_set(u32 type, zof_bool text) {
    for (const auto &row : setters) {
        if (row.type == type) {
            return (text ? row.text != nullptr : row.number != nullptr) ? ZOF_TRUE : ZOF_FALSE;
        }
    }
    return ZOF_FALSE;
}

static s32 field_set(zof_ctrl_t *control, const char *text, s32 number) {
    const para_t *record = (const para_t *)control;
    for (const auto &row : setters) {
        if (!record || row.type != record->attr->ctrl_type) {
            continue;
        }
        if (text) {
            return row.text ? row.text(control, text) : -1;
        }
        return row.number ? row.number(control, number) : -1;
    }
    return -1;
}

s32 action_set(const zof_action_t *action) {
    char name[ZOF_ACTION_SIZE];
    const bool text = strcmp(zof_action_field(action->args[0], name, sizeof(name)), "txt") == 0;
    zof_ctrl_t *control = control_of(action, name);
    return field_set(control, text ? action->args[1] : nullptr, text ? 0 : atoi(action->args[1]));
}

s32 action_add(const zof_action_t *action) {
    char name[ZOF_ACTION_SIZE];
    zof_action_field(action->args[0], name, sizeof(name));
    zof_ctrl_t *control = control_of(action, name);
    zof_ctrl_value_t now;
    if (zof_ctrl_get_value(control, &now) != 0) {
        return -1;
    }
    const s64 sum = (s64)now.number + atoi(action->args[1]);
    return field_set(control, nullptr, (s32)LV_CLAMP(INT32_MIN, sum, INT32_MAX));
}

s32 action_keys(const zof_action_t *action) {
    zof_ctrl_t *keyboard = control_of(action, action->args[0]);
    zof_ctrl_t *box = control_of(action, action->args[1]);
    if (!keyboard || !box || zof_keyboard_set_txtbox(keyboard, box) != 0) {
        return -1;
    }
    return zof_ctrl_set_hidden(keyboard, ZOF_FALSE);
}

s32 action_beep(const zof_action_t *action) {
    const s32 ms = action->args[0] ? atoi(action->args[0]) : BEEP_MS;
    zof_hmi_tone_on((u16)LV_CLAMP(0, ms, UINT16_MAX));
    return 0;
}

s32 action_bright(const zof_action_t *action) {
    return zof_disp_set_bright((u8)LV_CLAMP(0, atoi(action->args[0]), 100));
}
