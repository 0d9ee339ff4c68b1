// Pictures: the first byte chooses the kind and how often a GIF plays, the rest is the file. An image is drawn by
// LVGL's own decoders and by FFmpeg; a GIF is paused, resumed and begun anew.
#include "fuzz.h"
#include "src/misc/lv_gc.h"
#include "view_project.h"

enum { VIEW = 1, IMAGE = 1, GIF = 2 };

static view_project_t &project = *new view_project_t;

extern "C" int LLVMFuzzerInitialize(int *, char ***) {
    fuzz_quiet();
    atexit([] { project.~view_project_t(); });
    project.view(VIEW, {ctrl(ZOF_CTRL_IMG, IMAGE), ctrl(ZOF_CTRL_GIF, GIF, R"("play_en": true)")});
    project.open(64, 48);
    zof_view_set_dis_view(VIEW);
    return 0;
}

static void image_show(const char *name) {
    zof_img_set_src(at(IMAGE)->obj, name);
    lv_refr_now(nullptr);
    zof_img_set_src(at(IMAGE)->obj, nullptr);
    lv_img_cache_invalidate_src(nullptr);
}

static void gif_play(const char *name, u32 plays) {
    enum { STEP_MS = 100 };
    lv_obj_t *gif = at(GIF)->obj;
    zof_gif_set_src(gif, name);
    screen_step(STEP_MS);
    zof_gif_play_count(gif, (u16)plays);
    screen_step(STEP_MS);
    zof_gif_pause(gif);
    screen_step(STEP_MS / 5);
    zof_gif_resume(gif);
    zof_gif_reset_play(gif);
    screen_step(STEP_MS);
    zof_gif_set_src(gif, nullptr);
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    static const char *const names[] = {"x.png", "x.jpg", "x.gif"};
    fuzz_input in = {data, size};
    const u32 first = fuzz_byte(in);
    const char *name = names[first % 3];
    project.write(std::string("image/") + name, std::string((const char *)in.at, in.size));
    if (first % 3 == 2) {
        gif_play(name, first / 3 % 4);
        return 0;
    }
    image_show(name); // by LVGL
    zof_ffmpeg_init();
    image_show(name); // by FFmpeg, and if it refuses, by LVGL
    lv_img_decoder_delete((lv_img_decoder_t *)_lv_ll_get_head(&LV_GC_ROOT(_lv_img_decoder_ll)));
    return 0;
}
