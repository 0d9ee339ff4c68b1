// Decodes the host protocol: splits a stream of bytes into frames and describes them, using the panel's own tables.
#ifndef ZOF_MONITOR_DECODE_H
#define ZOF_MONITOR_DECODE_H

#include <cstdint>
#include <string>
#include <vector>

#include "hmi/zof_hmi_frame.h"

using bytes = std::vector<uint8_t>;

// One piece of one direction: a frame, a frame with a fault, or bytes that are not part of a frame.
struct piece {
    int64_t at_us;
    bool from_host;
    bytes data;
    std::string name; // "label.text"; "fault" for a frame that cannot be read, "noise" for bytes between frames
    std::string text; // full description
};

// One direction's state.
struct splitter {
    bool from_host;
    bytes kept;                // not yet complete
    std::vector<int64_t> time; // of each kept byte
    piece noise;               // being collected
};

// Returns the line's settings in the form that the frame functions take.
zof_hmi_cmd_analys_t decode_settings(uint8_t head_fh, uint8_t head_fl, bool crc);

// Returns the complete pieces. With `silence` the line has been silent, so incomplete frames are returned too.
std::vector<piece> split(splitter &s, const zof_hmi_cmd_analys_t &settings, const bytes &data, int64_t now_us,
                         bool silence);

std::string hex_text(const bytes &data);

#endif
