#include "frames.h"

#include <algorithm>

#include "hardware/uart/zof_hw_map.h"

enum { WORDS_MAX = 126, HEAD_SIZE = 3 };

static constexpr struct {
    uint16_t addr;
    const char *name, *unit;
} registers[] = {
    {REG_LIVE_MV, "LIVE_MV", "mV"},
    {REG_LIVE_MA, "LIVE_MA", "mA"},
    {REG_LIVE_DW, "LIVE_DW", "x 0.1 W"},
    {REG_SESS_MWH_LO, "SESS_MWH_LO", "mWh"},
    {REG_SESS_MWH_HI, "SESS_MWH_HI", "x 65536 mWh"},
    {REG_OUT_STATE, "OUT_STATE", ""},
    {REG_RAIL_ACTIVE, "RAIL_ACTIVE", ""},
    {REG_ADJ_MV, "ADJ_MV", "mV"},
    {REG_ADJ_MA, "ADJ_MA", "mA"},
    {REG_OUT_REQ, "OUT_REQ", ""},
    {REG_RAIL_SELECT, "RAIL_SELECT", ""},
    {REG_RAIL_REQUEST, "RAIL_REQUEST", ""},
    {REG_SESS_RESET, "SESS_RESET", ""},
    {REG_BRIGHT, "BRIGHT", "%"},
    {REG_BOOT_STATE, "BOOT_STATE", ""},
    {REG_AUTO_ARM, "AUTO_ARM", ""},
    {REG_SETTINGS_REQUEST, "SETTINGS_REQUEST", ""},
    {REG_RAIL_COUNT, "RAIL_COUNT", ""},
    {REG_RAIL_COMMIT, "RAIL_COMMIT", ""},
    {REG_RAIL_BASE, "RAIL_TABLE", ""},
};

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

static std::string register_tell(uint16_t addr) {
    for (const auto &row : registers) {
        if (row.addr == addr) {
            return std::to_string(addr) + " " + row.name;
        }
    }
    return std::to_string(addr);
}

static const char *unit_of(uint16_t addr) {
    for (const auto &row : registers) {
        if (row.addr == addr) {
            return row.unit;
        }
    }
    return "";
}

std::string frame_tell(const bytes &f) {
    if (f.size() < 6) {
        return "short frame of " + std::to_string(f.size()) + " bytes";
    }
    const auto addr = (uint16_t)(f[4] << 8 | f[5]);
    const bool write = f[3] == REG_CMD_WRITE;
    if (!write && f[3] != REG_CMD_READ) {
        return "unknown command " + std::to_string(f[3]);
    }
    if (!write && f.size() == 7) {
        return "read " + register_tell(addr) + ", " + std::to_string(f[6]) + " words";
    }
    std::string out = (write ? "write " : "report ") + register_tell(addr) + " =";
    for (size_t at = write ? 6 : 7; at + 1 < f.size(); at += 2) {
        out += ' ';
        out += std::to_string(f[at] << 8 | f[at + 1]);
    }
    const char *unit = unit_of(addr);
    if (*unit) {
        out += ' ';
        out += unit;
    }
    return out;
}
