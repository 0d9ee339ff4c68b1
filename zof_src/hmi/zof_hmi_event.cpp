// The kinds of events, their numbering, and what a control stands at.
#include "hmi/zof_hmi_event.h"

#include "hmi/zof_hmi_ctrl_in.h"
#include "project/view/zof_view.h"
#include "project/zof_prj.h"

// clang-format off
const zof_hmi_event_row_t zof_hmi_event_rows[ZOF_HMI_EVENT_COUNT] = {
    {ZOF_EVENT_ALL, "state", "no event: the answer to a read"},
    {ZOF_EVENT_CLICKED, "clicked", "pressed and released"},
    {ZOF_EVENT_LONG_PRESSED, "long_pressed", "held down"},
    {ZOF_EVENT_VALUE_CHANGED, "changed", "the user has changed the value"},
    {ZOF_EVENT_READY, "ready", "Enter, in a keyboard or a text box of one line"},
    {ZOF_EVENT_CANCEL, "cancel", "the key that closes a keyboard"},
    {ZOF_EVENT_FOCUSED, "focused", "touched, or reached by keys"},
    {ZOF_EVENT_ALL, "view", "a view is shown; the control is 0, the number its layer, the text its file"},
    {ZOF_EVENT_ALL, "language", "another language; view and control are 0, the text is its name"},
};
// clang-format on

static u8 last;  // number of the event that was sent last
static u8 going; // the kind that is being encoded; ZOF_HMI_EVENT_STATE for none

u8 zof_hmi_event_last(void) {
    return last;
}

void zof_hmi_event_number(u8 event) {
    last = (u8)(last + (event != ZOF_HMI_EVENT_STATE));
    going = event;
}

static void view_get(u32 view, zof_hmi_state_t *out) {
    for (u32 layer = 0; layer < ZOF_LAYER_COUNT; layer++) {
        if (zof_view_get_cur_id(layer) == (s32)view) {
            out->number = (s32)layer;
        }
    }
    const char *name = zof_view_name_get(view);
    out->text = name ? name : "";
}

static void language_get(zof_hmi_state_t *out) {
    const zof_prj_t *prj = zof_prj_get_cur();
    out->text = prj && prj->lang_name ? prj->lang_name : "";
}

static void control_get(const void *who, zof_hmi_state_t *out) {
    zof_ctrl_value_t value = {.number = 0, .text = ""};
    zof_ctrl_get_value(hmi_ctrl(who, HMI_ANY_TYPE), &value);
    out->number = value.number;
    out->text = value.text;
}

s32 zof_hmi_event_get(void *type_param, void *, void *value_param) {
    auto *out = (zof_hmi_state_t *)value_param;
    *out = {.seq = last, .event = going, .number = 0, .text = ""};
    if (going == ZOF_HMI_EVENT_VIEW) {
        view_get(((const zof_hmi_ctrl_id_t *)type_param)->view_id, out);
    } else if (going == ZOF_HMI_EVENT_LANGUAGE) {
        language_get(out);
    } else {
        control_get(type_param, out);
    }
    return ZOF_HMI_DONE;
}
