// The trace of the register link, with ZOF_LINK_TRACE=FILE|-: a line for each frame in both directions.
//
//     2026-11-22T09:10:11.123+01:00 board>panel 5AA5058200104E2C write 16 LIVE_MV = 20012 mV
//
// Time, direction, bytes, and the frame in words, or "skipped" for bytes that are not part of a frame. Lines that begin
// with # are remarks. Everything here runs under dis_mutex, and does nothing without a trace.
#ifndef ZOF_HW_TRACE_H
#define ZOF_HW_TRACE_H

#include "zof.h"

#define ZOF_TRACE_FROM_BOARD "board>panel"
#define ZOF_TRACE_TO_BOARD "panel>board"

// Starts the trace to a file, which is created or emptied, or to the standard output for "-". Without a trace for null
// and for an empty text. What is not a regular file is refused with a line, also a link to one.
void zof_trace_start(const char *where);

void zof_trace_received(const u8 *frame, u32 size);
void zof_trace_skipped(const u8 *data, u32 size);
void zof_trace_sent(const u8 *frame, u32 size, bool sent); // not `sent`: the line did not take it
void zof_trace_remark(const char *subject, const char *text);

#endif
