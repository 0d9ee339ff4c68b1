// The values to which a rail can be set: multiples of its step and both ends of its range. Pure arithmetic.
//
// All values are whole hundredths of a volt or an ampere, because the panel shows hundredths and must send what it
// shows. A finer end of a range is rounded to the next hundredth inside the range.
#ifndef BENCH_GRID_H
#define BENCH_GRID_H

#include "hardware/uart/zof_hw_map.h"
#include "zof_lib/zof_type.h"

enum { GRID_PPS_MV = 20, GRID_AVS_MV = 100, GRID_MA = 50 };
// The highest values that any source offers.
enum { GRID_MV_MAX = 50000, GRID_MA_MAX = 6000 };
// Steps of the sliders, in mV and mA.
enum { GRID_COARSE_MV = 100, GRID_COARSE_MA = 50 };

struct grid_t {
    u16 low, high, step; // low <= high, step > 0
};

// Returns true if a source may offer this rail: the type is known, the range is in order and within 50 V and 6 A, and
// an adjustable rail has at least one voltage and current to set.
bool grid_rail_valid(const prof_t *rail);

// Return the grid of voltages, in mV, and of currents, in mA, of an adjustable rail.
grid_t grid_volts(const prof_t *rail);
grid_t grid_amperes(const prof_t *rail);

bool grid_has(grid_t grid, u32 value);
// Returns true if these values can be applied to a valid rail: they are on the grid of an adjustable rail, or equal
// those of a fixed one.
bool grid_can(const prof_t *rail, u16 mv, u16 ma);
// Return the nearest grid value below or above `value`, which need not be on the grid, limited to the range.
u16 grid_below(grid_t grid, u32 value);
u16 grid_above(grid_t grid, u32 value);
// Returns the value `count` steps above or, if negative, below.
u16 grid_step(grid_t grid, u32 value, s32 count);
// Returns the value of a slider that moves in steps of `coarse`, a multiple of the grid's step: the nearest multiple or
// end of the range.
u16 grid_coarse(grid_t grid, u32 value, u16 coarse);

#endif
