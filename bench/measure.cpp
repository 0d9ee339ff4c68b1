// usage: zof_measure redraw|load|link|hmi|controls|video|trend|start|bare   rows of a table: what, ours, reference,
// ratio
//        zof_measure ours|plain VIEW                  one full redraw, for an instruction counter
#include "measure.h"

#include <cstring>
#include <unistd.h>

#include "zof_main.h"

void panel_up() {
    setenv("SDL_VIDEODRIVER", "offscreen", 0);
    if (chdir(ZOF_PANEL_DIR) != 0) {
        perror(ZOF_PANEL_DIR);
        _exit(1);
    }
    lv_init();
    zof_drv_init();
    measure_first_frame();
    zof_func_pwon();
    zof_mutex_lock(dis_mutex);
    zof_prj_create(zof_views_fun, ZOF_VIEW_COUNT);
}

int main(int argc, char **argv) {
    static constexpr struct {
        const char *name;
        void (*run)();
    } rows[] = {
        {"redraw", measure_redraw},
        {"load", measure_load},
        {"link", measure_link},
        {"hmi", measure_hmi},
        {"controls", measure_controls},
        {"video", measure_video},
        {"trend", measure_trend},
        {"start", [] { measure_start(false); }},
        {"bare", [] { measure_start(true); }},
    };
    for (const auto &row : rows) {
        if (argc == 2 && strcmp(argv[1], row.name) == 0) {
            row.run();
            fflush(stdout);
            _exit(0); // threads of the runtime still run
        }
    }
    if (argc == 3) {
        measure_count((u32)atoi(argv[2]), strcmp(argv[1], "plain") == 0);
        _exit(0);
    }
    fprintf(stderr, "usage: zof_measure redraw|load|link|hmi|controls|video|trend|start|bare\n");
    return 2;
}
