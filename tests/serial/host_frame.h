// Frames of the host protocol as a host makes them, independent of the panel's own code for them.
#ifndef HOST_FRAME_H
#define HOST_FRAME_H

#include <cstdio>
#include <string>

#include "frames.h"

inline bytes join(std::initializer_list<bytes> parts) {
    bytes out;
    for (const bytes &part : parts) {
        out.insert(out.end(), part.begin(), part.end());
    }
    return out;
}

// Polynomial division, bit by bit, as on paper; the more significant byte first.
inline bytes crc_of(const bytes &data) {
    unsigned crc = 0;
    for (size_t i = 0; i < data.size() * 8; i++) {
        const unsigned bit = data[i / 8] >> (7 - i % 8) & 1, top = crc >> 15;
        crc = (crc << 1 & 0xFFFF) ^ (bit != top ? 0x1021 : 0);
    }
    return {(uint8_t)(crc >> 8), (uint8_t)crc};
}

// A valid frame; if the short form cannot hold its length, it is a long one anyway.
inline bytes frame_of(uint8_t op, const bytes &payload, bool crc = false, bool long_form = false) {
    bytes counted = join({{op}, payload});
    counted = crc ? join({counted, crc_of(counted)}) : counted;
    const uint8_t size = (uint8_t)counted.size(), high = (uint8_t)(0x80 | counted.size() >> 8);
    return join({{0x5A, 0xA5}, long_form || counted.size() > 127 ? bytes{high, size} : bytes{size}, counted});
}

inline std::string hex(const bytes &data) {
    std::string out;
    for (uint8_t byte : data) {
        char text[4];
        snprintf(text, sizeof(text), "%02X ", byte);
        out += text;
    }
    return out;
}

#endif
