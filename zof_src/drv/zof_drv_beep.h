// The beeper: short tones on a thread of their own.
#ifndef ZOF_DRV_BEEP_H
#define ZOF_DRV_BEEP_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

// Creates the beeper's semaphore and its thread, "zof beep", once; zof_beep_on does it by itself. Returns 0 or -1.
s32 zof_beep_init(void);

// Plays a tone and returns at once; 0 ms does nothing. A tone requested while one plays follows it, with the length
// requested last; no more than one ever waits. Any thread. Returns 0, or -1 when there is no beeper.
s32 zof_beep_on(u16 time);

// Switches the beeper's pin off. Returns -1 on a desktop, where a tone cannot be cut short.
s32 zof_beep_off(void);

// The port's tone: 2000 Hz for `time` + 400 ms; blocks for that long. Without a sound device it is silent, which is
// logged once.
s32 win_beep_on(u16 time);

ZOF_C_END

#endif
