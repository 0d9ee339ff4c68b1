// A dim display and the touch that brightens it.
#include <algorithm>

#include "ui/ui.h"

static struct {
    u64 until;    // bright until this time
    u32 landings; // touches counted so far
} wake;

static bool is_dim() {
    return zof_disp_has_light() && (bench.settings_known & BENCH_SETTING_BRIGHT) && bench.bright < UI_DIM_PERCENT;
}

bool wake_press() {
    const bool asleep = is_dim() && bench.now >= wake.until;
    wake.landings = zof_touch_landings();
    wake.until = is_dim() ? bench.now + BENCH_WAKE_MS : 0;
    return asleep;
}

void wake_tick() {
    if (wake.landings != zof_touch_landings()) {
        wake_press();
    }
}

u16 wake_bright(u16 percent) {
    return bench.now < wake.until ? std::max(percent, (u16)UI_DIM_PERCENT) : percent;
}
