// The trace of the register link, with ZOF_LINK_TRACE=FILE|-: a line for each frame in both directions.
//
//     2026-11-22T09:10:11.123+01:00 board>panel 5AA5058200104E2C write 16 LIVE_MV = 20012 mV
//
// Each line has the time, the direction, the bytes, and the frame in words, or "skipped" for bytes that are not part of
// a frame. Lines that begin with # are remarks. Everything here runs under dis_mutex and does nothing if no trace is
// open.
#ifndef ZOF_HW_TRACE_H
#define ZOF_HW_TRACE_H

#include "zof.h"

#define ZOF_TRACE_FROM_BOARD "board>panel"
#define ZOF_TRACE_TO_BOARD "panel>board"

// Starts the trace to a file, which is created or emptied, or to the standard output for "-". Null or an empty text
// disables it. Anything but a regular file, including a link to one, is refused with a log line.
void zof_trace_start(const char *where);

void zof_trace_received(const u8 *frame, u32 size);
void zof_trace_skipped(const u8 *data, u32 size);
void zof_trace_sent(const u8 *frame, u32 size, bool sent); // `sent` is false if the line did not accept the frame
void zof_trace_remark(const char *subject, const char *text);

#endif
