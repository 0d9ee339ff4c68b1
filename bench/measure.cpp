// usage: zof_measure redraw|load|link|hmi|controls|video|trend|start|bare   rows of a table: what, ours, reference,
// ratio
//        zof_measure ours|plain VIEW                  one full redraw, for an instruction counter
#include "measure.h"

#include <cstring>
#include <thread>
#include <unistd.h>

#include "drv/zof_lock.h"
#include "drv/zof_loop_in.h"
#include "port/zof_port.h"
#include "zof_main.h"

void panel_up(bool program) {
    setenv("SDL_VIDEODRIVER", "offscreen", 0);
    setenv("XDG_STATE_HOME", "/nonexistent", 1); // settings of an installed panel have no effect here
    if (chdir(ZOF_PANEL_DIR) != 0) {
        perror(ZOF_PANEL_DIR);
        _exit(1);
    }
    lv_init();
    zof_drv_init();
    measure_first_frame();
    zof_func_pwon();
    zof_mutex_lock(dis_mutex);
    if (program) {
        panel_start();
    } else {
        zof_prj_create(zof_views_fun, ZOF_VIEW_COUNT);
    }
}

static u32 turn() {
    const zof_lock gui(dis_mutex);
    return zof_loop_turn();
}

void loop_run(const std::function<bool()> &over) {
    for (u32 sleep_ms = turn(); !over(); sleep_ms = turn()) {
        zof_loop_wait(sleep_ms);
    }
}

static std::vector<u32> picture() {
    s32 w = 0;
    s32 h = 0;
    const u32 *frame = sdl_frame_get(&w, &h);
    return {frame, frame + (size_t)w * (size_t)h};
}

double write_to_picture(int fd, const std::vector<u8> &frame) {
    const auto rest = std::chrono::steady_clock::now() + std::chrono::milliseconds(60);
    loop_run([=] { return std::chrono::steady_clock::now() > rest; });
    const std::vector<u32> before = picture();
    std::chrono::steady_clock::time_point begin;
    std::thread host([&] {
        usleep(5000);
        begin = std::chrono::steady_clock::now();
        (void)!write(fd, frame.data(), frame.size());
    });
    std::chrono::steady_clock::time_point end;
    loop_run([&] {
        end = std::chrono::steady_clock::now();
        return picture() != before;
    });
    host.join();
    return std::chrono::duration<double, std::milli>(end - begin).count();
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
