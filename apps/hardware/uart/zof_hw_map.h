// The register map shared by panel and controller board, and the format of their frames. It is plain C that includes
// nothing, so that firmware can use it too. docs/registers.md is generated from it.
//
//   write   5A A5 LEN 82 ADDR(2) DATA(2n)          board to panel, LEN = 3 + 2n
//   read    5A A5 LEN 83 ADDR(2) COUNT             board to panel, LEN = 4
//   report  5A A5 LEN 83 ADDR(2) COUNT DATA(2n)    panel to board, LEN = 4 + 2n
//
// Big-endian. LEN counts every byte after itself.
#ifndef ZOF_HW_MAP_H
#define ZOF_HW_MAP_H

enum { REG_HEAD0 = 0x5A, REG_HEAD1 = 0xA5, REG_CMD_WRITE = 0x82, REG_CMD_READ = 0x83 };

// Types of rail; any other number means a fixed rail.
enum { RAIL_FIX = 0, RAIL_PPS = 1, RAIL_AVS = 2, RAIL_EPR = 3 };
enum { RAIL_MAX = 13, RAIL_WORDS = 4, RAIL_NONE = 255 }; // rails in the table, words of each, no rail

// A rail, laid out like its words in the table.
typedef struct {
    unsigned short type;
    unsigned short vmin; // mV
    unsigned short vmax; // mV; equal to `vmin` for a single voltage
    unsigned short imax; // mA
} prof_t;

// Returns true if a user can set voltage and current of a rail.
static inline int prof_adjustable(const prof_t *rail) {
    return (rail->type == RAIL_PPS || rail->type == RAIL_AVS) && rail->vmin != rail->vmax;
}

enum { REG_BY_BOARD = 1, REG_BY_PANEL = 2, REG_BY_BOTH = 3 }; // who writes a register
enum { REG_NEAREST = -1 };

// The values that a register may have. A value outside `low` to `high` is replaced by `outside`, or by the nearer end
// if that is REG_NEAREST.
typedef struct {
    unsigned char bits; // number of bits in use; 8 means the low byte
    unsigned short low, high;
    short outside;
} reg_range_t;

// clang-format off
#define REG_WORD {16, 0, 65535, REG_NEAREST}
#define REG_FLAG {8, 0, 255, REG_NEAREST} // 0 no, otherwise yes
#define REG_RAIL {16, 0, RAIL_MAX - 1, RAIL_NONE}
#define REG_LIMITS(bits, low, high) {bits, low, high, REG_NEAREST}

// One row per register, in ascending order: address, name, number of words, who writes it, unit, units per count, range,
// help.
#define REG_ROWS(ROW) \
    ROW(16,  LIVE_MV,          1,  BOARD, "mV",  1,     REG_WORD,                 "measured voltage") \
    ROW(17,  LIVE_MA,          1,  BOARD, "mA",  1,     REG_WORD,                 "measured current") \
    ROW(18,  LIVE_DW,          1,  BOARD, "mW",  100,   REG_WORD,                 "measured power") \
    ROW(19,  SESS_MWH_LO,      1,  BOARD, "mWh", 1,     REG_WORD,                 "energy of the session, low half") \
    ROW(20,  SESS_MWH_HI,      1,  BOARD, "mWh", 65536, REG_WORD,                 "energy of the session, high half") \
    ROW(22,  OUT_STATE,        1,  BOARD, "",    1,     REG_FLAG,                 "output: 0 off, otherwise on") \
    ROW(23,  RAIL_ACTIVE,      1,  BOARD, "",    1,     REG_WORD,                 "index of the active rail, 255 without one; the panel takes other numbers for faults of the line") \
    ROW(24,  BOX_VERSION,      1,  BOARD, "",    1,     REG_WORD,                 "the box has started, and its version: major and minor, a byte each") \
    ROW(32,  ADJ_MV,           1,  PANEL, "mV",  1,     REG_WORD,                 "voltage for an adjustable rail, sent before it is applied") \
    ROW(33,  ADJ_MA,           1,  PANEL, "mA",  1,     REG_WORD,                 "current limit for an adjustable rail, sent before it is applied; never 0") \
    ROW(34,  OUT_REQ,          1,  PANEL, "",    1,     REG_LIMITS(16, 0, 1),     "request: output off (0) or on (1); answered by OUT_STATE") \
    ROW(35,  RAIL_SELECT,      1,  PANEL, "",    1,     REG_RAIL,                 "request: index of the rail to apply; answered by RAIL_ACTIVE") \
    ROW(36,  RAIL_REQUEST,     1,  PANEL, "",    1,     REG_LIMITS(16, 1, 1),     "request: send the rail table") \
    ROW(37,  SESS_RESET,       1,  PANEL, "",    1,     REG_LIMITS(16, 1, 1),     "request: set the energy of the session to 0") \
    ROW(48,  BRIGHT,           1,  BOTH,  "%",   1,     REG_LIMITS(16, 10, 100),  "brightness of the display") \
    ROW(49,  BOOT_STATE,       1,  BOTH,  "",    1,     REG_FLAG,                 "output at power-on: 0 off, otherwise as last used") \
    ROW(50,  AUTO_ARM,         1,  BOTH,  "",    1,     REG_FLAG,                 "output on when a rail is applied: 0 no, otherwise yes") \
    ROW(51,  SETTINGS_REQUEST, 1,  PANEL, "",    1,     REG_LIMITS(16, 1, 1),     "request: send BRIGHT, BOOT_STATE, AUTO_ARM and OUT_STATE") \
    ROW(256, RAIL_COUNT,       1,  BOARD, "",    1,     REG_LIMITS(8, 0, RAIL_MAX), "number of rails in the table") \
    ROW(257, RAIL_COMMIT,      1,  BOARD, "",    1,     REG_WORD,                 "the rail table is complete, show it; any value") \
    ROW(272, RAIL_BASE,        52, BOARD, "",    1,     REG_WORD,                 "the rail table; per rail: type, vmin (mV), vmax (mV), imax (mA)")
// clang-format on

#define REG_ENUM(addr, name, words, writer, unit, scale, range, help) REG_##name = addr,
enum { REG_ROWS(REG_ENUM) REG_MAX = 2048 }; // REG_MAX is the highest valid address
#undef REG_ENUM

typedef struct {
    unsigned short addr, words;
    unsigned char writer;
    const char *name, *unit; // `name` without REG_; `unit` is empty for a plain number
    unsigned long scale;     // units per count
    reg_range_t range;
    const char *help;
} reg_row_t;

#define REG_ROW(addr, name, words, writer, unit, scale, range, help) \
    {addr, words, REG_BY_##writer, #name, unit, scale, range, help},
#ifdef __cplusplus
constexpr
#endif
    static const reg_row_t reg_rows[] = {REG_ROWS(REG_ROW)};
#undef REG_ROW
enum { REG_ROW_COUNT = sizeof(reg_rows) / sizeof(reg_rows[0]) };

// Returns the row of a register, or of the table that contains it; null for an unknown address.
static inline const reg_row_t *reg_find(unsigned addr) {
    for (int i = 0; i < REG_ROW_COUNT; i++) {
        if (addr >= reg_rows[i].addr && addr < (unsigned)reg_rows[i].addr + reg_rows[i].words) {
            return &reg_rows[i];
        }
    }
    return 0;
}

// Returns the value of a word according to the range of its register, or the word itself if the register is unknown.
// Both ends pass received words through this function; nothing else checks ranges.
static inline unsigned short reg_value(unsigned addr, unsigned short word) {
    const reg_row_t *row = reg_find(addr);
    if (!row) {
        return word;
    }
    const reg_range_t *r = &row->range;
    const unsigned short value = r->bits == 8 ? (unsigned short)(word & 0xFF) : word;
    if (value >= r->low && value <= r->high) {
        return value;
    }
    return r->outside != REG_NEAREST ? (unsigned short)r->outside : value < r->low ? r->low : r->high;
}

#ifdef __cplusplus
// Returns true if every register that `writer` writes is the `addr` of a row in a table of handlers.
template <typename T, unsigned long N> constexpr bool reg_all_bound(const T (&handlers)[N], int writer) {
    for (const reg_row_t &row : reg_rows) {
        bool bound = (row.writer & writer) == 0;
        for (const T &handler : handlers) {
            bound = bound || handler.addr == row.addr;
        }
        if (!bound) {
            return false;
        }
    }
    return true;
}
#endif

#endif
