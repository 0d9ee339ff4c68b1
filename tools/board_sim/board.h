// The simulated box: rails, output, load, energy and settings. It handles registers and time, not lines and frames.
#ifndef BOARD_H
#define BOARD_H

#include <cstdint>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "hardware/uart/zof_hw_map.h"

struct board_rail {
    uint16_t type, vmin, vmax, imax; // mV, mA
};

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
    uint16_t last_mv = 0, last_ma = 0; // settings of an adjustable rail
};

struct board {
    std::vector<board_rail> rails;
    board_load load;
    board_settings settings;
    std::string settings_file; // empty: settings are not saved
    bool noise = true;
    std::mt19937 random;

    bool on = false;
    uint16_t rail = RAIL_NONE;
    uint16_t adj_mv = 0, adj_ma = 0; // requested by the panel, used when a rail is selected
    double target_mv = 0, limit_ma = 0;
    double mv = 0, ma = 0; // at the terminals
    double energy_uwh = 0;
    double since_push_ms = 1e9, since_state_ms = 1e9;

    // Writes registers of the panel, one frame per call.
    std::function<void(uint16_t addr, const std::vector<uint16_t> &words)> write;
};

std::vector<board_rail> board_default_rails();

// Loads the settings and powers up, with output and rail according to the settings.
void board_power_up(board &b);

// Advances the time by `ms`, in steps of at most 20 ms for a smooth ramp, and pushes the values that are due.
void board_step(board &b, double ms);

// Handles a register reported by the panel.
void board_report(board &b, uint16_t addr, uint16_t value);

// Replaces the rail table, as when another source is plugged in. If the active rail is not in the new table, it is
// deselected and the output is switched off.
void board_set_rails(board &b, std::vector<board_rail> rails);

void board_output(board &b, bool on);
bool board_select(board &b, uint16_t rail);
void board_send_rails(board &b);
void board_send_settings(board &b);

#endif
