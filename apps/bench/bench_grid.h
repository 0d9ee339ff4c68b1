// The values that a rail can be set to: multiples of its step, and both ends of its range. Plain arithmetic.
//
// All of them are whole hundredths of a volt or an ampere, as they are shown, so that what is sent is what is shown.
// An end that is finer counts as the next hundredth inside the range.
#ifndef BENCH_GRID_H
#define BENCH_GRID_H

#include "hardware/uart/zof_hw_map.h"
#include "zof_lib/zof_type.h"

enum { GRID_PPS_MV = 20, GRID_AVS_MV = 100, GRID_MA = 50 };
// The most that any source offers.
enum { GRID_MV_MAX = 50000, GRID_MA_MAX = 6000 };
// Steps of the sliders.
enum { GRID_COARSE_MV = 100, GRID_COARSE_MA = 50 };

struct grid_t {
    u16 low, high, step; // low <= high, step > 0
};

// Whether a source may offer this rail: a known type, a range in order, no more than 50 V and 6 A, and, if it is
// adjustable, a voltage and a current to set.
bool grid_rail_valid(const prof_t *rail);

// The volts and the amperes of an adjustable rail.
grid_t grid_volts(const prof_t *rail);
grid_t grid_amperes(const prof_t *rail);

bool grid_has(grid_t grid, u32 value);
// Whether a valid rail can be applied with these values: on the grid of an adjustable one, those of a fixed one.
bool grid_can(const prof_t *rail, u16 mv, u16 ma);
// The next value below or above, which `value` need not be one of; the end of the range at most.
u16 grid_below(grid_t grid, u32 value);
u16 grid_above(grid_t grid, u32 value);
// `count` steps up or, if negative, down.
u16 grid_step(grid_t grid, u32 value, s32 count);
// The value of a slider, which moves in steps of `coarse`, a multiple of the grid's own: the nearest of these and of
// both ends.
u16 grid_coarse(grid_t grid, u32 value, u16 coarse);

#endif
