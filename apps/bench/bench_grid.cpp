#include "bench/bench_grid.h"

#include <algorithm>

bool grid_rail_valid(const prof_t *rail) {
    return rail->type <= RAIL_EPR && rail->vmin <= rail->vmax && rail->vmax > 0 && rail->vmax <= GRID_MV_MAX &&
           rail->imax > 0 && rail->imax <= GRID_MA_MAX;
}

grid_t grid_volts(const prof_t *rail) {
    return {rail->vmin, rail->vmax, (u16)(rail->type == RAIL_AVS ? GRID_AVS_MV : GRID_PPS_MV)};
}

grid_t grid_amperes(const prof_t *rail) {
    return {0, rail->imax, GRID_MA};
}

bool grid_has(grid_t grid, u32 value) {
    return value >= grid.low && value <= grid.high &&
           (value % grid.step == 0 || value == grid.low || value == grid.high);
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
