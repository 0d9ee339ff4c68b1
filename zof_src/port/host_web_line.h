// The far ends of the serial lines of a page: bytes in memory. Any thread may call these functions, the page's main
// thread all but host_far_wait, because it must not block.
#ifndef HOST_WEB_LINE_H
#define HOST_WEB_LINE_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

// The rows of host_web_serial.cpp: the virtual box, and the serial port that the user has allowed.
enum { HOST_FAR_BOX, HOST_FAR_USB, HOST_FAR_COUNT };

// Plugs a far end in or out. Bytes in transit are lost.
void host_far_plug(u32 far, zof_bool in);
// Takes bytes that the panel has sent. Returns their number.
u32 host_far_read(u32 far, u8 *out, u32 size);
// Sends bytes to the panel. Returns the number of those for which there is room.
u32 host_far_write(u32 far, const u8 *data, u32 size);
// Waits until the panel has sent something, at most `ms`.
void host_far_wait(u32 far, u32 ms);

ZOF_C_END

#endif
