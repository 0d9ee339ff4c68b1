// Tones of touches and controls, and series of tones. Graphics thread.
#ifndef ZOF_HMI_TONE_H
#define ZOF_HMI_TONE_H

#include "project/base/zof_prj_attr.h"

ZOF_C_BEGIN

// Copies a tone record into the project. Returns the stored one, or null without a project. `sound` is copied too; the
// record stays the caller's.
zof_prj_tone_t *zof_hmi_tone_set(const zof_prj_tone_t *tone);

// Plays one tone of `time` ms: the beeper, or the sound that the project's tone record names.
void zof_hmi_tone_on(u16 time);

// Plays `count` tones of `tone` ms with pauses of `pause` ms; a new series replaces one that is playing.
void zof_hmi_tone_mult_on(u8 count, u16 pause, u16 tone);

// Plays the project's touch tone if its flags ask for it: for raw touches (1) or controls (0), at release (1) or press
// (0).
void zof_hmi_touch_tone(u8 touch, u8 release);

// Counts taps on empty ground (1) towards the calibration of a resistive panel; a tap on a control (0) resets the
// count.
void zof_hmi_touch_rtp_cal_check(u8 touch);

ZOF_C_END

#endif
