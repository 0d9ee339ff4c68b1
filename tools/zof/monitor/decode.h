// Decodes the host protocol: splits a stream of bytes into frames and describes them, using the panel's own tables.
#ifndef ZOF_MONITOR_DECODE_H
#define ZOF_MONITOR_DECODE_H

#include <cstdint>
#include <string>
#include <vector>

#include "hmi/zof_hmi_frame.h"

using bytes = std::vector<uint8_t>;

// A piece of one direction: a frame, a frame with a fault, or bytes outside any frame.
struct piece {
    int64_t at_us;
    bool from_host;
    bytes data;
    std::string name; // "label.text"; "fault" for an unreadable frame, "noise" for bytes between frames
    std::string text; // full description
};

// State of one direction.
struct splitter {
    bool from_host;
    bytes kept;                // incomplete frame
    std::vector<int64_t> time; // arrival time of each kept byte
    piece noise;               // noise collected so far
};

// Returns the settings of the line in the form that the frame functions expect.
zof_hmi_cmd_analys_t decode_settings(uint8_t head_fh, uint8_t head_fl, bool crc);

// Appends `data` and returns the complete pieces. `silence` means that the line is silent; then incomplete frames are
// returned too.
std::vector<piece> split(splitter &s, const zof_hmi_cmd_analys_t &settings, const bytes &data, int64_t now_us,
                         bool silence);

std::string hex_text(const bytes &data);

#endif
