// Presets: a rail with the values to apply to it. A preset identifies the rail by its values, not its index, because
// another source lists its rails in another order. Applying a preset passes the gate like any other choice.
#ifndef BENCH_PRESET_H
#define BENCH_PRESET_H

#include <stddef.h>

#include "hardware/uart/zof_hw_map.h"
#include "zof_lib/zof_type.h"

enum { BENCH_PRESETS = 4, BENCH_PRESET_TEXT = 48 }; // BENCH_PRESET_TEXT: bytes of the text form

// The values to apply to a rail. For a fixed rail `mv` is its voltage and `ma` its current.
struct bench_choice_t {
    u8 rail;
    u16 mv, ma;
};

struct bench_preset_t {
    bool used;
    prof_t rail;
    u16 mv, ma;
};

// Stores a choice from the list that is shown. Returns false if `n` is out of range or the rail is unusable.
bool bench_preset_store(u32 n, bench_choice_t choice);
// Finds the rail of a preset in the list that is shown: the same rail, or an adjustable one of its type that can be set
// to its values. Returns false if there is no such rail or the list is not live.
bool bench_preset_find(u32 n, bench_choice_t *choice);

// Writes the text form that is stored in files: "PPS 3300 21000 5000 12000 1000" is the type, lowest and highest mV and
// maximum mA of the rail, then mV and mA of the preset. `out` has BENCH_PRESET_TEXT bytes; an empty preset is "none".
// Returns `out`.
const char *bench_preset_text(char *out, const bench_preset_t *preset);
// Reads the text form. Returns false, with an empty preset, if the text is invalid or its rail cannot be set to its
// values.
bool bench_preset_parse(const char *text, bench_preset_t *preset);

#endif
