// Measuring: medians of repeated runs, on the host's own clock.
#ifndef MEASURE_H
#define MEASURE_H

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <vector>

#include "zof.h"

inline double middle(std::vector<double> all) {
    std::nth_element(all.begin(), all.begin() + (long)all.size() / 2, all.end());
    return all[all.size() / 2];
}

// Returns the median duration of `times` calls in milliseconds.
inline double median_ms(int times, const std::function<void()> &call) {
    std::vector<double> took;
    for (int i = 0; i < times; i++) {
        const auto start = std::chrono::steady_clock::now();
        call();
        took.push_back(std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count());
    }
    return middle(took);
}

// Starts the runtime with the panel's project, off screen, and takes dis_mutex; with `program`, also starts the panel's
// own painting.
void panel_up(bool program = false);

// Runs the program's own loop until `over` returns true; without dis_mutex.
void loop_run(const std::function<bool()> &over);

// Milliseconds from a write to a line until the picture changes, with the loop asleep when the write arrives.
double write_to_picture(int fd, const std::vector<u8> &frame);

void measure_first_frame();
void measure_start(bool bare);
void measure_redraw();
void measure_count(u32 view, bool plain);
void measure_load();
void measure_link();
void measure_hmi();
void measure_controls();
void measure_video();
void measure_trend();

#endif
