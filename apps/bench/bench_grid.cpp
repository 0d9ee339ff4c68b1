#include "bench/bench_grid.h"

#include <algorithm>

enum { SHOWN = 10 }; // the last displayed digit

static u16 shown_up(u16 value) {
    return (u16)((value + SHOWN - 1) / SHOWN * SHOWN);
}

static u16 shown_down(u16 value) {
    return (u16)(value / SHOWN * SHOWN);
}

bool grid_rail_valid(const prof_t *rail) {
    return rail->type <= RAIL_EPR && rail->vmin <= rail->vmax && rail->vmax > 0 && rail->vmax <= GRID_MV_MAX &&
           rail->imax > 0 && rail->imax <= GRID_MA_MAX &&
           (!prof_adjustable(rail) || (shown_up(rail->vmin) <= shown_down(rail->vmax) && shown_down(rail->imax) > 0));
}

grid_t grid_volts(const prof_t *rail) {
    return {shown_up(rail->vmin), shown_down(rail->vmax), (u16)(rail->type == RAIL_AVS ? GRID_AVS_MV : GRID_PPS_MV)};
}

// 0 A is excluded: boxes treat a limit of 0 as the rail's maximum.
grid_t grid_amperes(const prof_t *rail) {
    const u16 high = shown_down(rail->imax);
    return {std::min<u16>(GRID_MA, high), high, GRID_MA};
}

bool grid_has(grid_t grid, u32 value) {
    return value >= grid.low && value <= grid.high &&
           (value % grid.step == 0 || value == grid.low || value == grid.high);
}

bool grid_can(const prof_t *rail, u16 mv, u16 ma) {
    return prof_adjustable(rail) ? grid_has(grid_volts(rail), mv) && grid_has(grid_amperes(rail), ma)
                                 : mv == rail->vmax && ma == rail->imax;
}

u16 grid_below(grid_t grid, u32 value) {
    if (value > grid.high) {
        return grid.high;
    }
    const u32 multiple = value == 0 ? 0 : (value - 1) / grid.step * grid.step;
    return (u16)std::max<u32>(multiple, grid.low);
}

u16 grid_above(grid_t grid, u32 value) {
    if (value < grid.low) {
        return grid.low;
    }
    return (u16)std::min<u32>((value / grid.step + 1) * grid.step, grid.high);
}

u16 grid_step(grid_t grid, u32 value, s32 count) {
    for (; count > 0 && value < grid.high; count--) {
        value = grid_above(grid, value);
    }
    for (; count < 0 && value > grid.low; count++) {
        value = grid_below(grid, value);
    }
    return (u16)std::clamp<u32>(value, grid.low, grid.high);
}

u16 grid_coarse(grid_t grid, u32 value, u16 coarse) {
    if (value <= grid.low || value >= grid.high) {
        return (u16)std::clamp<u32>(value, grid.low, grid.high);
    }
    const u32 multiple = (value + coarse / 2) / coarse * coarse;
    const u32 way = multiple > value ? multiple - value : value - multiple;
    if (value - grid.low < way || multiple < grid.low) {
        return grid.low;
    }
    return grid.high - value < way || multiple > grid.high ? grid.high : (u16)multiple;
}
