// Start to first frame, against a bare LVGL window of the same size in the same window layer.
#include "measure.h"

#include <unistd.h>

#include "port/zof_port.h"

// A window of 800 x 480 with one label, with nothing of the runtime but its window.
static void bare_up() {
    setenv("SDL_VIDEODRIVER", "offscreen", 0);
    lv_init();
    SDL_HOR_RES = 800;
    SDL_VER_RES = 480;
    win_disp_init();
    lv_obj_t *label = lv_label_create(lv_scr_act());
    lv_label_set_text(label, "bare");
    lv_refr_now(nullptr);
}

void measure_start(bool bare) {
    const double took = median_ms(1, [bare] {
        if (bare) {
            bare_up();
        } else {
            panel_up();
            lv_refr_now(nullptr);
        }
    });
    printf("%.2f\n", took);
}
