// A clip of the panel's size in our player, compared with `ffmpeg -f null` decoding the same file on one thread.
// Measures the processor time of all frames after the first, which excludes opening the file and starting the program.
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>

#include "drv/zof_drv_media.h"
#include "measure.h"
#include "port/zof_host.h"
#include "port/zof_port.h"

static constexpr int FRAMES = 500;
static constexpr int TURNS = 5;

static u32 clip_now; // the player's clock, which advances as fast as frames can be shown

static double children_ms() {
    rusage used = {};
    getrusage(RUSAGE_CHILDREN, &used);
    return (double)(used.ru_utime.tv_sec + used.ru_stime.tv_sec) * 1000 +
           (double)(used.ru_utime.tv_usec + used.ru_stime.tv_usec) / 1000;
}

static double ours_ms() {
    timespec t = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
    return (double)t.tv_sec * 1000 + (double)t.tv_nsec / 1e6;
}

// Processor time of one run of the program.
static double ffmpeg_ms(const std::string &arguments) {
    const double before = children_ms();
    const int status = system(("ffmpeg -nostdin -v error -y " + arguments).c_str());
    if (status != 0) {
        fprintf(stderr, "ffmpeg %s: ended with %d\n", arguments.c_str(), status);
        exit(1);
    }
    return children_ms() - before;
}

static double ffmpeg_frame_ms(const std::string &path) {
    const std::string in = "-threads 1 -i " + path;
    return (ffmpeg_ms(in + " -f null -") - ffmpeg_ms(in + " -frames:v 1 -f null -")) / (FRAMES - 1);
}

static double player_frame_ms(lv_obj_t *player, const std::string &path) {
    lv_ffmpeg_player_set_src(player, path.c_str());
    lv_ffmpeg_player_set_cmd(player, ZOF_MEDIA_PLAY);
    clip_now += 40;
    lv_timer_handler();
    const double start = ours_ms();
    int ticks = 0;
    for (; lv_ffmpeg_player_runs(player); ticks++) {
        clip_now += 40;
        lv_timer_handler();
    }
    if (abs(ticks - FRAMES) > 5) { // a clip ends one tick after its last frame
        fprintf(stderr, "%s: %d frames, not %d\n", path.c_str(), ticks, FRAMES);
        exit(1);
    }
    return (ours_ms() - start) / (FRAMES - 1);
}

static void clip_rows(lv_obj_t *player, const char *name, const char *encoder) {
    const std::string path = "/tmp/zof-measure-" + std::to_string(getpid()) + ".mp4";
    ffmpeg_ms("-f lavfi -i testsrc2=size=800x480:rate=25 -frames:v " + std::to_string(FRAMES) + " -pix_fmt yuv420p " +
              encoder + " " + path);
    double plain = 1e9;
    double picture = 1e9;
    double window = 1e9;
    for (int turn = 0; turn < TURNS; turn++) { // in turns, so a busy machine affects all
        plain = std::min(plain, ffmpeg_frame_ms(path));
        window = std::min(window, player_frame_ms(player, path));
        lv_disp_enable_invalidation(nullptr, false); // LVGL draws nothing
        picture = std::min(picture, player_frame_ms(player, path));
        lv_disp_enable_invalidation(nullptr, true);
    }
    unlink(path.c_str());
    const char *row = "| a frame of 800 x 480, %s, %s | %.2f ms | %.2f ms, `ffmpeg -f null`, one thread | %.2f |\n";
    printf(row, name, "decoded into LVGL's picture", picture, plain, picture / plain);
    printf(row, name, "drawn as well", window, plain, window / plain);
}

void measure_video() {
    static const zof_clock_t clock = {[] { return clip_now; }, [](u32 ms) { clip_now += ms; }};
    zof_clock_set(&clock);
    setenv("SDL_VIDEODRIVER", "offscreen", 0);
    lv_init();
    SDL_HOR_RES = 800;
    SDL_VER_RES = 480;
    win_disp_init();
    zof_image_init();
    lv_obj_t *player = lv_ffmpeg_player_create(lv_scr_act());
    lv_obj_set_size(player, 800, 480);
    clip_rows(player, "MPEG-4", "-c:v mpeg4 -q:v 4");
    clip_rows(player, "H.264", "-c:v libx264 -preset veryfast");
}
