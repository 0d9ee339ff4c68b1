#include "hardware/uart/zof_hw_text.h"

#include "hardware/uart/zof_hw_map.h"

// Returns "16 LIVE_MV", or "273 RAIL_BASE+1" for a word inside a table.
static std::string register_text(const reg_row_t *row, unsigned short addr) {
    const int inside = row ? addr - row->addr : 0;
    return std::to_string(addr) + (row ? std::string(" ") + row->name : "") +
           (inside ? "+" + std::to_string(inside) : "");
}

// Returns " mV", or " x 100 mW" if one count is 100 mW.
static std::string unit_text(const reg_row_t *row) {
    if (!row || !*row->unit) {
        return "";
    }
    return (row->scale > 1 ? " x " + std::to_string(row->scale) : "") + " " + row->unit;
}

// Returns "16 LIVE_MV = 20012 mV, 17 LIVE_MA = 999 mA". Consecutive words of a table, or of no register, are listed
// together.
static std::string words_text(unsigned short addr, const unsigned char *data, size_t count) {
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

std::string frame_text(std::span<const unsigned char> f) {
    if (f.size() < 6 || (f[3] == REG_CMD_READ && f.size() < 7)) {
        return "short frame of " + std::to_string(f.size()) + " bytes";
    }
    const auto addr = (unsigned short)(f[4] << 8 | f[5]);
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

std::string hex_text(std::span<const unsigned char> data) {
    static constexpr char digits[] = "0123456789ABCDEF";
    std::string out;
    for (unsigned char byte : data) {
        out += digits[byte >> 4];
        out += digits[byte & 15];
    }
    return out;
}
