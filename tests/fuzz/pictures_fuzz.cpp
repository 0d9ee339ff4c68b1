// Pictures: the first byte chooses the kind, the rest is the file. Each is read by FFmpeg and, where LVGL has one, by
// LVGL's own decoder, and drawn; a GIF plays.
#include "fuzz.h"
#include "screen_fixture.h"
#include "src/misc/lv_gc.h"
#include "temp_project.h"

static temp_project_t &project = *new temp_project_t;

extern "C" int LLVMFuzzerInitialize(int *, char ***) {
    fuzz_quiet();
    atexit([] { project.~temp_project_t(); });
    project.open();
    screen_open(64, 48);
    return 0;
}

static void image_show(const std::string &path) {
    lv_obj_t *image = lv_img_create(lv_scr_act());
    lv_img_set_src(image, path.c_str());
    lv_refr_now(nullptr);
    lv_obj_del(image);
    lv_img_cache_invalidate_src(nullptr);
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    static const char *const ends[] = {"image/x.png", "image/x.jpg", "image/x.gif"};
    fuzz_input in = {data, size};
    const u32 kind = fuzz_byte(in) % 3;
    project.write(ends[kind], std::string((const char *)in.at, in.size));
    const std::string path = project.path(ends[kind]);
    if (kind == 2) {
        lv_obj_t *gif = lv_gif_create(lv_scr_act());
        lv_gif_set_src(gif, path.c_str());
        screen_step(100);
        lv_obj_del(gif);
        return 0;
    }
    image_show(path); // by LVGL
    zof_ffmpeg_init();
    image_show(path); // by FFmpeg, and if it refuses, by LVGL
    lv_img_decoder_delete((lv_img_decoder_t *)_lv_ll_get_head(&LV_GC_ROOT(_lv_img_decoder_ll)));
    return 0;
}
