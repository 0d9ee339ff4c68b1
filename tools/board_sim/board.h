// The simulated box: rails, output, load, energy and settings. It works on registers and time; lines and frames are
// handled elsewhere.
#ifndef BOARD_H
#define BOARD_H

#include <cstdint>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "hardware/uart/zof_hw_map.h"

struct board_load {
    double ohms = 10;   // used when amperes is 0
    double amperes = 0; // constant current
};

// Settings that survive a power cycle.
struct board_settings {
    uint16_t bright = 100;
    uint16_t boot_last = 0;
    uint16_t auto_arm = 0;
    uint16_t last_on = 0;
    uint16_t last_rail = RAIL_NONE;
    uint16_t last_mv = 0, last_ma = 0; // values set for an adjustable rail
};

// One row per setting: its name in the file, its field, and the register that defines its range. The board sends the
// settings that the panel may write too.
struct board_setting {
    const char *name;
    uint16_t board_settings::*field;
    uint16_t reg;
};
extern const std::vector<board_setting> board_setting_rows;

struct board {
    std::vector<prof_t> rails;
    board_load load;
    board_settings settings;
    std::string settings_file; // empty: settings are not saved
    bool save_failed = false;  // a failed save has been reported
    bool noise = true;
    std::mt19937 random;

    bool on = false;
    uint16_t rail = RAIL_NONE;
    uint16_t adj_mv = 0, adj_ma = 0; // requested by the panel, used when a rail is selected
    double target_mv = 0, limit_ma = 0;
    double mv = 0, ma = 0; // voltage and current at the terminals
    double energy_uwh = 0;
    double since_push_ms = 1e9, since_state_ms = 1e9;

    // Writes registers of the panel, one frame per call.
    std::function<void(uint16_t addr, const std::vector<uint16_t> &words)> write;
};

// Returns the first `count` rails of a typical source.
std::vector<prof_t> board_default_rails(size_t count = RAIL_MAX);

// Checks the settings file. Returns false after a message if it is a device or a folder, cannot be read, or has a line
// that is not a setting, because saving would destroy a file that is not the board's. Resolves a link, so that saving
// replaces its target and keeps the link. Call it before board_settings_load.
bool board_settings_check(board &b);

// Loads the settings. Missing values keep their defaults; the first invalid line is reported on the error stream.
// Removes temporary files of boards that were killed.
void board_settings_load(board &b);

// Replaces the file with the current settings. A power failure or a kill leaves the old file or the new one. The first
// failure is reported on the error stream.
void board_settings_save(board &b);

// Loads the settings and powers up with the saved output state and rail.
void board_power_up(board &b);

// Advances the time by `ms`, in steps of at most 20 ms for a smooth ramp, and sends the values whose interval has
// passed.
void board_step(board &b, double ms);

// Handles a register reported by the panel.
void board_report(board &b, uint16_t addr, uint16_t value);

// Replaces the rail table, as if another source were plugged in. If the active rail is not in the new table, it is
// deselected and the output is switched off.
void board_set_rails(board &b, std::vector<prof_t> rails);

void board_output(board &b, bool on);
bool board_select(board &b, uint16_t rail);
void board_send_rails(board &b);
void board_send_settings(board &b);

#endif
