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

// "16 LIVE_MV"; "273 RAIL_BASE+1" for a word inside a table.
static std::string register_text(const reg_row_t *row, uint16_t addr) {
    const int inside = row ? addr - row->addr : 0;
    return std::to_string(addr) + (row ? std::string(" ") + row->name : "") +
           (inside ? "+" + std::to_string(inside) : "");
}

// " mV", or " x 100 mW" if one count stands for a hundred of them.
static std::string unit_text(const reg_row_t *row) {
    if (!row || !*row->unit) {
        return "";
    }
    return (row->scale > 1 ? " x " + std::to_string(row->scale) : "") + " " + row->unit;
}

// "16 LIVE_MV = 20012 mV, 17 LIVE_MA = 999 mA"; words of a table, or of no register, stand in one row.
static std::string words_text(uint16_t addr, const uint8_t *data, size_t count) {
    const reg_row_t *row = reg_find(addr);
    std::string out = register_text(row, addr) + (count ? " =" : ", no words");
    for (size_t k = 0; k < count; k++, addr++) {
        const reg_row_t *next = reg_find(addr);
        if (next != row) {
            out += unit_text(row) + ", " + register_text(next, addr) + " =";
            row = next;
        }
        out += " " + std::to_string(data[2 * k] << 8 | data[2 * k + 1]);
    }
    return out + (count ? unit_text(row) : "");
}

std::string frame_text(const bytes &f) {
    if (f.size() < 6 || (f[3] == REG_CMD_READ && f.size() < 7)) {
        return "short frame of " + std::to_string(f.size()) + " bytes";
    }
    const auto addr = (uint16_t)(f[4] << 8 | f[5]);
    const bool write = f[3] == REG_CMD_WRITE;
    if (!write && f[3] != REG_CMD_READ) {
        return "unknown command " + std::to_string(f[3]);
    }
    if (!write && f.size() == 7) {
        return "read " + register_text(reg_find(addr), addr) + ", " + std::to_string(f[6]) + " words";
    }
    const size_t head = write ? 6 : 7;
    return (write ? "write " : "report ") + words_text(addr, f.data() + head, (f.size() - head) / 2);
}
