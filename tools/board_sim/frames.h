// Frames of the register link at the board's end: building, finding, and telling them in words.
#ifndef FRAMES_H
#define FRAMES_H

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

using bytes = std::vector<uint8_t>;

// A write frame; words beyond 126 do not fit and are left out.
bytes frame_write(uint16_t addr, const std::vector<uint16_t> &words);
bytes frame_read(uint16_t addr, uint8_t count);

// Finds the panel's reports in a byte stream, whatever pieces it comes in.
struct frame_finder {
    bytes kept;
    std::function<void(const bytes &frame)> found;
};
void frame_feed(frame_finder &finder, const uint8_t *data, size_t size);

// The register and value of each word of a report.
void frame_report_words(const bytes &frame, const std::function<void(uint16_t addr, uint16_t value)> &word);

// "write 16 LIVE_MV = 20012 mV", for people.
std::string frame_tell(const bytes &frame);

#endif
