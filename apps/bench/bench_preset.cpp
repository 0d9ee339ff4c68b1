#include "bench/bench_preset.h"

#include <stdio.h>
#include <string.h>

#include <algorithm>

#include "bench/bench.h"

static constexpr const char *type_names[] = {"FIX", "PPS", "AVS", "EPR"};
static_assert(sizeof(type_names) / sizeof(type_names[0]) == RAIL_EPR + 1);

static constexpr char empty_name[] = "none";

static bool rail_is(const prof_t &a, const prof_t &b) {
    return memcmp(&a, &b, sizeof(a)) == 0;
}

bool bench_preset_store(u32 n, bench_choice_t choice) {
    if (n >= BENCH_PRESETS || !bench_rail_usable(choice.rail)) {
        return false;
    }
    bench.preset[n] = {true, bench.rails.rail[choice.rail], choice.mv, choice.ma};
    return true;
}

bool bench_preset_find(u32 n, bench_choice_t *choice) {
    if (n >= BENCH_PRESETS || !bench.preset[n].used) {
        return false;
    }
    const bench_preset_t &preset = bench.preset[n];
    bool found = false;
    for (u8 i = 0; i < bench.rails.count; i++) {
        const prof_t &rail = bench.rails.rail[i];
        if (!bench_rail_usable(i) || !grid_can(&rail, preset.mv, preset.ma)) {
            continue;
        }
        const bool same = rail_is(rail, preset.rail);
        if (same || (!found && prof_adjustable(&rail) && rail.type == preset.rail.type)) {
            *choice = {i, preset.mv, preset.ma};
            found = true;
        }
        if (same) {
            break;
        }
    }
    return found;
}

const char *bench_preset_text(char *out, const bench_preset_t *preset) {
    const prof_t &r = preset->rail;
    if (preset->used) {
        snprintf(out, BENCH_PRESET_TEXT, "%s %u %u %u %u %u", type_names[r.type], r.vmin, r.vmax, r.imax, preset->mv,
                 preset->ma);
    } else {
        snprintf(out, BENCH_PRESET_TEXT, "%s", empty_name);
    }
    return out;
}

bool bench_preset_parse(const char *text, bench_preset_t *preset) {
    char type[4], more;
    unsigned vmin, vmax, imax, mv, ma;
    *preset = {};
    if (strcmp(text, empty_name) == 0) {
        return true;
    }
    if (sscanf(text, "%3s %5u %5u %5u %5u %5u %c", type, &vmin, &vmax, &imax, &mv, &ma, &more) != 6 ||
        std::max({vmin, vmax, imax, mv, ma}) > UINT16_MAX) {
        return false;
    }
    for (u16 i = 0; i <= RAIL_EPR; i++) {
        const prof_t rail = {i, (u16)vmin, (u16)vmax, (u16)imax};
        if (strcmp(type, type_names[i]) == 0 && grid_rail_valid(&rail) && grid_can(&rail, (u16)mv, (u16)ma)) {
            *preset = {true, rail, (u16)mv, (u16)ma};
        }
    }
    return preset->used;
}
