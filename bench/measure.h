// Measuring: medians of repeated runs, on the host's own clock.
#ifndef MEASURE_H
#define MEASURE_H

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <vector>

#include "zof.h"

// Returns the median duration of `times` calls in milliseconds.
inline double median_ms(int times, const std::function<void()> &call) {
    std::vector<double> took;
    for (int i = 0; i < times; i++) {
        const auto start = std::chrono::steady_clock::now();
        call();
        took.push_back(std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count());
    }
    std::nth_element(took.begin(), took.begin() + times / 2, took.end());
    return took[(size_t)times / 2];
}

// Starts the runtime with the panel's project, off screen.
void panel_up();

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
