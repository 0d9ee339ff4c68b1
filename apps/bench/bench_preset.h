// Presets: a rail with the values that it is applied with. A preset remembers the rail by its numbers, because another
// source lists its rails in another order. Applying one passes the gate like any other choice.
#ifndef BENCH_PRESET_H
#define BENCH_PRESET_H

#include <stddef.h>

#include "hardware/uart/zof_hw_map.h"
#include "zof_lib/zof_type.h"

enum { BENCH_PRESETS = 4, BENCH_PRESET_TEXT = 48 }; // BENCH_PRESET_TEXT: bytes of the text form

// What a rail is applied with. For a fixed rail `mv` is its voltage and `ma` its current.
struct bench_choice_t {
    u8 rail;
    u16 mv, ma;
};

struct bench_preset_t {
    bool used;
    prof_t rail;
    u16 mv, ma;
};

// Stores a choice of the list that is shown. Returns whether it was: not for `n` out of range or an unusable rail.
bool bench_preset_store(u32 n, bench_choice_t choice);
// Finds the rail of a preset in the list that is shown: the same one, or an adjustable one of its type that can be set
// to its values. Returns false if there is none, or the list is not live.
bool bench_preset_find(u32 n, bench_choice_t *choice);

// The text form, for a file: "PPS 3300 21000 5000 12000 1000" is type, lowest and highest mV and most mA of the rail,
// and mV and mA of the preset. `out` has BENCH_PRESET_TEXT bytes; an empty preset is "none". Returns `out`.
const char *bench_preset_text(char *out, const bench_preset_t *preset);
// Returns false for a text that is not one, or whose values its rail cannot be set to; then the preset is empty.
bool bench_preset_parse(const char *text, bench_preset_t *preset);

#endif
