// Start to the first frame (the logo) and to the front page, compared with a bare LVGL window of the same size.
#include "measure.h"

#include <unistd.h>

#include "port/zof_port.h"

using clock_type = std::chrono::steady_clock;

static struct {
    clock_type::time_point start;
    double first_ms;
    void (*flush)(lv_disp_drv_t *, const lv_area_t *, lv_color_t *);
} frame;

static double since_start() {
    return std::chrono::duration<double, std::milli>(clock_type::now() - frame.start).count();
}

// Records the time of the first picture in the window.
void measure_first_frame() {
    lv_disp_drv_t *drv = lv_disp_get_default()->driver;
    frame.flush = drv->flush_cb;
    drv->flush_cb = [](lv_disp_drv_t *d, const lv_area_t *area, lv_color_t *pixels) {
        frame.flush(d, area, pixels);
        frame.first_ms = frame.first_ms > 0 ? frame.first_ms : since_start();
    };
}

// A window of 800 x 480 with one label, which uses nothing of the runtime except its window.
static void bare_up() {
    setenv("SDL_VIDEODRIVER", "offscreen", 0);
    lv_init();
    SDL_HOR_RES = 800;
    SDL_VER_RES = 480;
    win_disp_init();
    lv_label_set_text(lv_label_create(lv_scr_act()), "bare");
    measure_first_frame();
}

void measure_start(bool bare) {
    frame.start = clock_type::now();
    if (bare) {
        bare_up();
    } else {
        panel_up();
    }
    lv_refr_now(nullptr);
    printf("%.2f %.2f\n", frame.first_ms, since_start());
}
