#include "wire.h"

#include <cstdlib>

const std::vector<fault_row> fault_rows = {
    {"lose", &wire_faults::lose, 0.5, 100, "percentage of bytes lost"},
    {"garbage", &wire_faults::garbage, 20, 100, "percentage of frames preceded by up to 30 random bytes"},
    {"split", &wire_faults::split, 20, 1e6, "each frame is sent in two pieces, this many ms apart"},
    {"late", &wire_faults::late, 300, 1e6, "each frame is delayed by this many ms"},
    {"flood", &wire_faults::flood, 11520, 1e6, "readings fill the line with this many bytes per second"},
    {"replug", &wire_faults::replug, 5, 1e6, "the cable is unplugged for one second, at this interval in seconds"},
    {"mute", &wire_faults::mute, 1, 1, "the board sends nothing"},
};

bool fault_take(wire_faults &faults, const std::string &text) {
    const size_t at = text.find('=');
    for (const fault_row &row : fault_rows) {
        if (text.substr(0, at) != row.name) {
            continue;
        }
        double amount = row.normal;
        if (at != std::string::npos) {
            const char *number = text.c_str() + at + 1;
            char *end;
            amount = strtod(number, &end);
            if (end == number || *end || !(amount >= 0 && amount <= row.max)) {
                return false;
            }
        }
        faults.*row.amount = amount;
        return true;
    }
    return false;
}

static bool chance(wire &w, double percent) {
    return std::uniform_real_distribution<double>(0, 100)(w.random) < percent;
}

static bytes spoil(wire &w, const bytes &data) {
    bytes out;
    if (chance(w, w.faults.garbage)) {
        const size_t n = w.random() % 30 + 1;
        for (size_t k = 0; k < n; k++) {
            out.push_back((uint8_t)w.random());
        }
    }
    for (uint8_t byte : data) {
        if (!chance(w, w.faults.lose)) {
            out.push_back(byte);
        }
    }
    return out;
}

bool wire_send(wire &w, const bytes &data, double now_ms) {
    if (w.fd < 0 || w.faults.mute > 0) {
        return false;
    }
    const bytes out = spoil(w, data);
    const double due = now_ms + w.faults.late;
    if (w.faults.split > 0 && out.size() > 1) {
        const long cut = 1 + (long)(w.random() % (out.size() - 1));
        w.queue.push_back({due, bytes(out.begin(), out.begin() + cut)});
        w.queue.push_back({due + w.faults.split, bytes(out.begin() + cut, out.end())});
    } else {
        w.queue.push_back({due, out});
    }
    return true;
}

double wire_flush(wire &w, double now_ms) {
    while (!w.queue.empty() && w.queue.front().due_ms <= now_ms) {
        const bytes data = std::move(w.queue.front().data);
        w.queue.pop_front();
        if (w.fd < 0) {
            continue;
        }
        const size_t n = wire_write(w, data); // if nobody reads, the line is full and the rest is lost
        w.sent += n;
        w.dropped += data.size() - n;
    }
    return w.queue.empty() ? -1 : w.queue.front().due_ms - now_ms;
}
