// Waiting for another thread or program.
#ifndef EVENTUALLY_H
#define EVENTUALLY_H

#include <unistd.h>

#include <chrono>
#include <functional>

// Returns true as soon as `done` does, false after twenty seconds.
inline bool eventually(const std::function<bool()> &done) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!done()) {
        if (std::chrono::steady_clock::now() > end) {
            return false;
        }
        usleep(500);
    }
    return true;
}

#endif
