// The register map shared by panel and controller board, and the format of their frames. Includes nothing, so the other
// end of the line can use it too.
//
//   write   5A A5 LEN 82 ADDR(2) DATA(2n)          board to panel, LEN = 3 + 2n
//   read    5A A5 LEN 83 ADDR(2) COUNT             board to panel, LEN = 4
//   report  5A A5 LEN 83 ADDR(2) COUNT DATA(2n)    panel to board, LEN = 4 + 2n
//
// Big-endian. LEN counts every byte after itself.
#ifndef ZOF_HW_MAP_H
#define ZOF_HW_MAP_H

enum { REG_HEAD0 = 0x5A, REG_HEAD1 = 0xA5, REG_CMD_WRITE = 0x82, REG_CMD_READ = 0x83 };

// Registers, 16-bit words. The comment says who writes one: the board (in), the panel (out) or both.
enum {
    REG_LIVE_MV = 16,          // in: measured voltage, mV
    REG_LIVE_MA = 17,          // in: measured current, mA
    REG_LIVE_DW = 18,          // in: measured power, 0.1 W
    REG_SESS_MWH_LO = 19,      // in: session energy, mWh, low half
    REG_SESS_MWH_HI = 20,      // in: high half
    REG_OUT_STATE = 22,        // in: output, low byte 0 off
    REG_RAIL_ACTIVE = 23,      // in: active rail, 0 to 12; above: none
    REG_ADJ_MV = 32,           // out: voltage set for an adjustable rail, mV
    REG_ADJ_MA = 33,           // out: current limit set, mA
    REG_OUT_REQ = 34,          // out: 1 on, 0 off
    REG_RAIL_SELECT = 35,      // out: rail to apply
    REG_RAIL_REQUEST = 36,     // out: always 1; asks for the rail table
    REG_SESS_RESET = 37,       // out: always 1
    REG_BRIGHT = 48,           // both: percent, 10 to 100
    REG_BOOT_STATE = 49,       // both: 1 output as last used at power-on
    REG_AUTO_ARM = 50,         // both
    REG_SETTINGS_REQUEST = 51, // out: always 1; asks for 48 to 50
    REG_RAIL_COUNT = 256,      // in: rails in the table, 0 to 13
    REG_RAIL_COMMIT = 257,     // in: any value; rebuilds the list
    REG_RAIL_BASE = 272,       // in: four words per rail: type, vmin, vmax, imax
    REG_MAX = 2048             // the highest valid address
};

// Types of rail; any other number is a fixed one.
enum { RAIL_FIX = 0, RAIL_PPS = 1, RAIL_AVS = 2, RAIL_EPR = 3 };
enum { RAIL_MAX = 13, RAIL_NONE = 255 };

#endif
