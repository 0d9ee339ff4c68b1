// What the files of control commands share. Not a public header: C++ only.
#ifndef ZOF_HMI_CTRL_IN_H
#define ZOF_HMI_CTRL_IN_H

#include "control/zof_ctrl.h"
#include "hmi/zof_hmi_cmd.h"

enum { HMI_ANY_TYPE = -1 };

// The control that a command names; null when there is none, when its object is not there, and when it is of another
// type: the control layer then answers as for an absent one.
para_t *hmi_ctrl(const void *type_param, s32 ctrl_type);

// The acknowledgement of control commands has its own sense: 1 for a call that gave 0, 0 for one that gave 1, and what
// the last command left for any other result. Both are ZOF_HMI_DONE.
s32 hmi_ctrl_answer(void *reply, s32 result);

// For a selector that is none: nothing is called, and the acknowledgement is 1.
s32 hmi_ctrl_refuse(void *reply);

// Calls the first function for 0, the second for 1; their results are not looked at.
s32 hmi_ctrl_choose(const void *type_param, s32 ctrl_type, u8 which, s32 (*first)(zof_ctrl_t *),
                    s32 (*second)(zof_ctrl_t *), void *reply);

// Returns a text as the value. A text that does not exist, the layer's null or its -1 as an address, is empty: a host
// that asks waits for an answer.
s32 hmi_ctrl_give_text(void *value, const char *text);

// Handlers of rows that are one call with one value.
template <typename V, s32 TYPE, auto CALL> s32 hmi_get(void *type, void *, void *value) {
    *(V *)value = (V)CALL(hmi_ctrl(type, TYPE));
    return ZOF_HMI_DONE;
}

template <typename V, s32 TYPE, auto CALL> s32 hmi_set(void *type, void *, void *value, void *reply) {
    return hmi_ctrl_answer(reply, CALL(hmi_ctrl(type, TYPE), *(V *)value));
}

// The same for two values of one kind, as a pair lies in the record.
template <typename V, s32 TYPE, auto CALL> s32 hmi_set_pair(void *type, void *, void *value, void *reply) {
    return hmi_ctrl_answer(reply, CALL(hmi_ctrl(type, TYPE), ((V *)value)[0], ((V *)value)[1]));
}

// Sizes of text: no more than a screen shows, because each is a font of its own.
template <s32 TYPE, auto CALL> s32 hmi_set_txt_size(void *type, void *, void *value, void *reply) {
    enum { TEXT_SIZE_MAX = 512 };
    const u16 size = *(u16 *)value;
    const bool fits = size > 0 && size <= TEXT_SIZE_MAX;
    return hmi_ctrl_answer(reply, fits ? CALL(hmi_ctrl(type, TYPE), size) : -1);
}

#endif
