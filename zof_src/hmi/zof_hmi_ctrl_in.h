// What the files of control commands share. Not a public header: C++ only.
#ifndef ZOF_HMI_CTRL_IN_H
#define ZOF_HMI_CTRL_IN_H

#include "control/zof_ctrl.h"
#include "hmi/zof_hmi_cmd.h"

enum { HMI_ANY_TYPE = -1 };

// Returns the control that a command names; null if it does not exist, has no object, or is of another
// type. The control layer then answers as for a missing one.
para_t *hmi_ctrl(const void *type_param, s32 ctrl_type);

// Sets whether a command to a control loads its view.
void hmi_ctrl_load_set(bool on);

// Acknowledges a control command, with a meaning of its own: 1 for a call that returned 0, 0 for one that returned 1,
// and unchanged for any other result. Returns ZOF_HMI_DONE.
s32 hmi_ctrl_answer(void *reply, s32 result);

// For an invalid selector: calls nothing and acknowledges with 1.
s32 hmi_ctrl_refuse(void *reply);

// Calls the first function for 0, the second for 1; ignores their results.
s32 hmi_ctrl_choose(const void *type_param, s32 ctrl_type, u8 which, s32 (*first)(zof_ctrl_t *),
                    s32 (*second)(zof_ctrl_t *), void *reply);

// Returns a text as the value. A missing text, which is the layer's null or -1, becomes an empty one, because a host
// that asks waits for an answer.
s32 hmi_ctrl_give_text(void *value, const char *text);

// Handlers of `control.key`.
s32 hmi_ctrl_key_get(void *type_param, void *req, void *value);
s32 hmi_ctrl_key_set(void *type_param, void *req, void *value, void *reply);

// The text of the control's value.
template <s32 TYPE> s32 hmi_get_value_text(void *type, void *, void *value) {
    zof_ctrl_value_t now = {.number = 0, .text = ""};
    zof_ctrl_get_value(hmi_ctrl(type, TYPE), &now);
    return hmi_ctrl_give_text(value, now.text);
}

// Handlers for rows that are one call with one value.
template <typename V, s32 TYPE, auto CALL> s32 hmi_get(void *type, void *, void *value) {
    *(V *)value = (V)CALL(hmi_ctrl(type, TYPE));
    return ZOF_HMI_DONE;
}

template <typename V, s32 TYPE, auto CALL> s32 hmi_set(void *type, void *, void *value, void *reply) {
    return hmi_ctrl_answer(reply, CALL(hmi_ctrl(type, TYPE), *(V *)value));
}

// The same for two values of one kind, stored as a pair in the record.
template <typename V, s32 TYPE, auto CALL> s32 hmi_set_pair(void *type, void *, void *value, void *reply) {
    return hmi_ctrl_answer(reply, CALL(hmi_ctrl(type, TYPE), ((V *)value)[0], ((V *)value)[1]));
}

// Limits text sizes to what a screen can show, because each size is a separate font.
template <s32 TYPE, auto CALL> s32 hmi_set_txt_size(void *type, void *, void *value, void *reply) {
    enum { TEXT_SIZE_MAX = 512 };
    const u16 size = *(u16 *)value;
    const bool fits = size > 0 && size <= TEXT_SIZE_MAX;
    return hmi_ctrl_answer(reply, fits ? CALL(hmi_ctrl(type, TYPE), size) : -1);
}

#endif
