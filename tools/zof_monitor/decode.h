// The host protocol as people read it: a stream of bytes cut into frames, and a frame in words, by the panel's own
// tables.
#ifndef ZOF_MONITOR_DECODE_H
#define ZOF_MONITOR_DECODE_H

#include <cstdint>
#include <string>
#include <vector>

#include "hmi/zof_hmi_frame.h"

using bytes = std::vector<uint8_t>;

// What came in one direction, in one piece: a frame, a frame with a fault, or bytes that are none.
struct piece {
    int64_t at_us;
    bool from_host;
    bytes data;
    std::string name; // "label.text"; "fault" for a frame that cannot be read, "noise" for bytes between frames
    std::string text; // all in words
};

// One direction's state.
struct splitter {
    bool from_host;
    bytes kept;                // not yet a piece
    std::vector<int64_t> time; // of each kept byte
    piece noise;               // being collected
};

// The line's settings; the frame functions want them in this form.
zof_hmi_cmd_analys_t decode_settings(uint8_t head_fh, uint8_t head_fl, bool crc);

// Cuts off what is complete. With `silence` the line has been still: what is not complete will not be any more.
std::vector<piece> split(splitter &s, const zof_hmi_cmd_analys_t &settings, const bytes &data, int64_t now_us,
                         bool silence);

std::string hex_text(const bytes &data);

#endif
