// Builds and finds frames of the register link at the board's end; hardware/uart/zof_hw_text.h describes them.
#ifndef FRAMES_H
#define FRAMES_H

#include <cstdint>
#include <functional>
#include <vector>

using bytes = std::vector<uint8_t>;

// Builds a write frame; words beyond 126 do not fit and are dropped.
bytes frame_write(uint16_t addr, const std::vector<uint16_t> &words);
bytes frame_read(uint16_t addr, uint8_t count);

// Finds the panel's reports in a byte stream that arrives in pieces of any size.
struct frame_finder {
    bytes kept;
    std::function<void(const bytes &frame)> found;
};
void frame_feed(frame_finder &finder, const uint8_t *data, size_t size);

// Calls `word` with the register and value of each word of a report.
void frame_report_words(const bytes &frame, const std::function<void(uint16_t addr, uint16_t value)> &word);

#endif
