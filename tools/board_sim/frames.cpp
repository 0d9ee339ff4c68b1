#include "frames.h"

#include <algorithm>

#include "hardware/uart/zof_hw_map.h"

enum { WORDS_MAX = 126, HEAD_SIZE = 3 };

bytes frame_write(uint16_t addr, const std::vector<uint16_t> &words) {
    const size_t n = std::min<size_t>(words.size(), WORDS_MAX);
    bytes f = {REG_HEAD0, REG_HEAD1, (uint8_t)(3 + 2 * n), REG_CMD_WRITE, (uint8_t)(addr >> 8), (uint8_t)addr};
    for (size_t k = 0; k < n; k++) {
        f.push_back((uint8_t)(words[k] >> 8));
        f.push_back((uint8_t)words[k]);
    }
    return f;
}

bytes frame_read(uint16_t addr, uint8_t count) {
    return {REG_HEAD0, REG_HEAD1, 4, REG_CMD_READ, (uint8_t)(addr >> 8), (uint8_t)addr, count};
}

void frame_feed(frame_finder &finder, const uint8_t *data, size_t size) {
    bytes &b = finder.kept;
    b.insert(b.end(), data, data + size);
    size_t i = 0;
    while (i + HEAD_SIZE <= b.size()) {
        if (b[i] != REG_HEAD0 || b[i + 1] != REG_HEAD1) {
            i++;
            continue;
        }
        const size_t whole = HEAD_SIZE + b[i + 2];
        if (i + whole > b.size()) {
            break;
        }
        finder.found(bytes(b.begin() + (long)i, b.begin() + (long)(i + whole)));
        i += whole;
    }
    b.erase(b.begin(), b.begin() + (long)i);
}

void frame_report_words(const bytes &f, const std::function<void(uint16_t, uint16_t)> &word) {
    if (f.size() < 7 || f[3] != REG_CMD_READ) {
        return;
    }
    const auto addr = (uint16_t)(f[4] << 8 | f[5]);
    for (size_t k = 0; k < f[6] && 9 + 2 * k <= f.size(); k++) {
        word((uint16_t)(addr + k), (uint16_t)(f[7 + 2 * k] << 8 | f[8 + 2 * k]));
    }
}
