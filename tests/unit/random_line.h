// A box on a bad line, and the dice of a random test. A rule that is broken once is kept in `broken`.
#ifndef RANDOM_LINE_H
#define RANDOM_LINE_H

#include <random>

#include "bench/bench.h"
#include "board.h"
#include "frames.h"
#include "register_line.h"

struct random_line_t {
    std::mt19937 random;
    board box;
    bool cable;           // bytes reach the box and come back
    double lose, garbage; // chances of a byte
};
inline random_line_t line;
inline const char *broken;

inline bool chance(double p) {
    return std::uniform_real_distribution<>(0, 1)(line.random) < p;
}

inline u32 pick(u32 count) {
    return line.random() % count;
}

inline void must(bool rule, const char *what) {
    broken = rule || broken ? broken : what;
}

inline void (*random_line_judge)(u16 addr, u16 value); // of what the panel sends

inline s32 random_line_send(zof_drv_t *, const u8 *data, u32 size) {
    frame_report_words(bytes(data, data + size), [](u16 addr, u16 value) {
        random_line_judge(addr, value);
        if (line.cable && !chance(line.lose * 8)) {
            board_report(line.box, addr, value);
        }
    });
    return (s32)size;
}

inline void random_line_write(u16 addr, const std::vector<u16> &words) {
    bytes frame = frame_write(addr, words);
    for (size_t i = 0; i < frame.size(); i++) {
        if (chance(line.lose)) {
            frame.erase(frame.begin() + (long)i);
        } else if (line.garbage > 0 && chance(line.garbage)) {
            frame[i] = (u8)pick(256);
        }
    }
    if (line.cable && bench.port.state == BENCH_PORT_OPEN && !frame.empty()) {
        recive_data_handle(frame.data(), (u32)frame.size());
    }
}

// The same seed makes the same run.
inline void random_line_start(u32 seed, double lose, double garbage) {
    line = {};
    line.random.seed(seed);
    line.lose = chance(0.5) ? 0 : lose;
    line.garbage = chance(0.7) ? 0 : garbage;
    line.cable = true;
    line.box.rails = board_default_rails();
    line.box.write = random_line_write;
}

inline void random_line_rails(u32 count) {
    std::vector<prof_t> rails = board_default_rails(count);
    std::shuffle(rails.begin(), rails.end(), line.random);
    board_set_rails(line.box, rails);
}

#endif
