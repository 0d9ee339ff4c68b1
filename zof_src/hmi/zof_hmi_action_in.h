// What the words of actions do. Each returns 0, or -1 if what it names does not exist. Not a public header.
#ifndef ZOF_HMI_ACTION_IN_H
#define ZOF_HMI_ACTION_IN_H

#include "hmi/zof_hmi_action.h"

s32 action_view(const zof_action_t *action);
s32 action_back(const zof_action_t *action);
s32 action_lang(const zof_action_t *action);
s32 action_theme(const zof_action_t *action);
s32 action_show(const zof_action_t *action);
s32 action_hide(const zof_action_t *action);
s32 action_toggle(const zof_action_t *action);
s32 action_enable(const zof_action_t *action);
s32 action_disable(const zof_action_t *action);
s32 action_set(const zof_action_t *action);
s32 action_add(const zof_action_t *action);
s32 action_keys(const zof_action_t *action);
s32 action_beep(const zof_action_t *action);
s32 action_bright(const zof_action_t *action);

#endif
