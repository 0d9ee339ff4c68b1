// The values that rails can supply, and the rail that a command selects.
#include "bench/bench_scpi_rails.h"

#include <math.h>

enum { DEFAULT_MV = 5000, DEFAULT_MA = 1000 };
static constexpr char units[] = {'V', 'A'};

// A fixed rail supplies exactly its own voltage and current limit.
static grid_t grid_of(const prof_t &rail, scpi_which_e which) {
    if (prof_adjustable(&rail)) {
        return which == SCPI_VOLTS ? grid_volts(&rail) : grid_amperes(&rail);
    }
    const u16 value = which == SCPI_VOLTS ? rail.vmax : rail.imax;
    return {value, value, 1};
}

bool scpi_rail_gives(u8 rail, scpi_which_e which, double value) {
    const grid_t grid = grid_of(bench.rails.rail[rail], which);
    return bench_rail_usable(rail) && (value == SCPI_ANY || (value >= grid.low && value <= grid.high &&
                                                             value == floor(value) && grid_has(grid, (u32)value)));
}

// Finds the range of values of the rails that can supply the other value. Returns false if no rail can.
static bool limits(scpi_scope_t scope, scpi_which_e which, double other, double *least, double *most) {
    *least = INFINITY;
    *most = -INFINITY;
    for (u8 i = scope.first; i < scope.end; i++) {
        if (scpi_rail_gives(i, which == SCPI_VOLTS ? SCPI_AMPERES : SCPI_VOLTS, other) && bench_rail_usable(i)) {
            const grid_t grid = grid_of(bench.rails.rail[i], which);
            *least = fmin(*least, grid.low);
            *most = fmax(*most, grid.high);
        }
    }
    return *least <= *most;
}

// Moves `below` and `above` closer to a value, as far as the grid allows.
static void approach(grid_t grid, double value, double *below, double *above) {
    if (value >= grid.low) {
        const u32 whole = (u32)fmin(value, grid.high);
        *below = fmax(*below, grid_has(grid, whole) ? whole : grid_below(grid, whole));
    }
    if (value <= grid.high) {
        const u32 whole = (u32)ceil(fmax(value, grid.low));
        *above = fmin(*above, grid_has(grid, whole) ? whole : grid_above(grid, whole));
    }
}

std::string scpi_with_unit(double milli, scpi_which_e which) {
    return scpi_format("%.6g %c", milli / 1000, units[which]);
}

void scpi_refuse(scpi_call_t &call, scpi_scope_t scope, scpi_which_e which, double value, double other) {
    const scpi_which_e second = which == SCPI_VOLTS ? SCPI_AMPERES : SCPI_VOLTS;
    double below = -INFINITY, above = INFINITY;
    for (u8 i = scope.first; i < scope.end; i++) {
        if (bench_rail_usable(i) && scpi_rail_gives(i, second, other)) {
            approach(grid_of(bench.rails.rail[i], which), value, &below, &above);
        }
    }
    std::string text =
        scpi_with_unit(value, which) + (other == SCPI_ANY ? "" : " with " + scpi_with_unit(other, second));
    if (isfinite(below) && isfinite(above)) {
        text += ": the nearest are " + scpi_with_unit(below, which) + " and " + scpi_with_unit(above, which);
    } else if (isfinite(below) || isfinite(above)) {
        text += ": the nearest is " + scpi_with_unit(isfinite(below) ? below : above, which);
    } else {
        text += ": no rail gives it";
    }
    scpi_fail(call.client, SCPI_RANGE, text);
}

// Compares by the order of scpi_choose; among equal rails the lower number wins because it comes first.
static bool better(u8 rail, u8 than) {
    const prof_t &a = bench.rails.rail[rail], &b = bench.rails.rail[than];
    const bool adjustable = prof_adjustable(&a), other = prof_adjustable(&b);
    return adjustable != other ? adjustable : a.vmax < b.vmax;
}

bool scpi_choose(scpi_call_t &call, scpi_scope_t scope, double mv, double ma, bench_choice_t *out) {
    u8 best = RAIL_NONE;
    bool volts = false, amperes = false;
    for (u8 i = scope.first; i < scope.end; i++) {
        volts = volts || scpi_rail_gives(i, SCPI_VOLTS, mv);
        amperes = amperes || scpi_rail_gives(i, SCPI_AMPERES, ma);
        if (scpi_rail_gives(i, SCPI_VOLTS, mv) && scpi_rail_gives(i, SCPI_AMPERES, ma) &&
            (best == RAIL_NONE || better(i, best))) {
            best = i;
        }
    }
    if (best == RAIL_NONE && volts) {
        scpi_refuse(call, scope, SCPI_AMPERES, ma, mv);
    } else if (best == RAIL_NONE) {
        scpi_refuse(call, scope, SCPI_VOLTS, mv, amperes ? ma : SCPI_ANY);
    } else {
        *out = {best, (u16)mv, ma == SCPI_ANY ? bench_rail_open(best).ma : (u16)ma};
    }
    return best != RAIL_NONE;
}

// Reads MINimum, MAXimum or DEFault.
bool scpi_word_value(scpi_call_t &call, u32 index, scpi_scope_t scope, scpi_which_e which, double other, double *out) {
    double least = 0, most = 0;
    const std::string_view word = call.param[index].text;
    if (scpi_word_is("DEFault", word)) {
        *out = which == SCPI_VOLTS ? DEFAULT_MV : DEFAULT_MA;
        return true;
    }
    const bool low = scpi_word_is("MINimum", word);
    if (!low && !scpi_word_is("MAXimum", word)) {
        scpi_fail(call.client, SCPI_ILLEGAL, std::string(word));
        return false;
    }
    if (!limits(scope, which, other, &least, &most)) {
        scpi_fail(call.client, SCPI_RANGE,
                  "no rail gives " + scpi_with_unit(other, which == SCPI_VOLTS ? SCPI_AMPERES : SCPI_VOLTS));
        return false;
    }
    *out = low ? least : most;
    return true;
}

bool scpi_value_read(scpi_call_t &call, u32 index, scpi_scope_t scope, scpi_which_e which, double other, double *out) {
    if (call.param[index].kind == SCPI_WORD) {
        return scpi_word_value(call, index, scope, which, other, out);
    }
    if (!scpi_param_milli(call, index, units[which], out)) {
        return false;
    }
    if (*out < 0) {
        scpi_fail(call.client, SCPI_RANGE, scpi_with_unit(*out, which));
    }
    return *out >= 0;
}
