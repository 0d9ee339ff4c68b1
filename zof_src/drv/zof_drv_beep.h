// The beeper: short tones on a thread of their own.
#ifndef ZOF_DRV_BEEP_H
#define ZOF_DRV_BEEP_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

// Makes the beeper's semaphore and its thread, "zof beep", once; zof_beep_on does it by itself. 0 or -1.
s32 zof_beep_init(void);

// Sounds a tone and returns at once; 0 ms does nothing. A tone that is asked for while one sounds follows it, with the
// length asked for last; more than one never waits. Any thread. 0, or -1 when there is no beeper.
s32 zof_beep_on(u16 time);

// Takes the beeper's pin down: -1 on a desktop, where a tone cannot be cut short.
s32 zof_beep_off(void);

// The port's tone: 2000 Hz for `time` + 400 ms, and blocks for that long. Without a sound device it is silent, and logs
// that once.
s32 win_beep_on(u16 time);

ZOF_C_END

#endif
