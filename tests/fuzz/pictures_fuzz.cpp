// Pictures: the first byte selects the kind, the play count of a GIF and whether the checksums of a PNG are corrected;
// the rest is the file. An image is drawn by LVGL's own decoders and by FFmpeg; a GIF is paused, resumed and restarted.
#include "fuzz_file.h"
#include "src/misc/lv_gc.h"
#include "view_project.h"

enum { VIEW = 1, IMAGE = 1, GIF = 2 };
enum { KIND_PNG, KIND_JPG, KIND_GIF, KINDS };

extern "C" unsigned lodepng_crc32(const unsigned char *data, size_t size);

static view_project_t project;

void fuzz_open() {
    project.view(VIEW, {ctrl(ZOF_CTRL_IMG, IMAGE), ctrl(ZOF_CTRL_GIF, GIF, R"("play_en": true)")});
    project.open(64, 48);
    zof_view_set_dis_view(VIEW);
}

// Sets the right CRC of each chunk of a PNG file, which fuzzing would not find.
static void png_seal(std::string &file) {
    enum { HEAD = 8, LENGTH = 4, AROUND = 12 }; // of the file; of a chunk's length; of all but a chunk's data
    u8 *p = (u8 *)file.data();
    for (size_t at = HEAD; at + AROUND <= file.size();) {
        const u32 n = (u32)p[at] << 24 | (u32)p[at + 1] << 16 | (u32)p[at + 2] << 8 | p[at + 3];
        if (n > file.size() - at - AROUND) {
            return;
        }
        const u32 crc = lodepng_crc32(p + at + LENGTH, n + 4);
        at += AROUND + n;
        for (u32 i = 0; i < 4; i++) {
            p[at - 1 - i] = (u8)(crc >> 8 * i);
        }
    }
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

void fuzz_one(fuzz_input &in) {
    static const char *const names[] = {"x.png", "x.jpg", "x.gif"};
    const u32 first = fuzz_byte(in);
    const u32 how = first / KINDS;
    const char *name = names[first % KINDS];
    std::string file = fuzz_text(in);
    if (first % KINDS == KIND_PNG && how % 2 == 0) {
        png_seal(file);
    }
    fuzz_file_set(project.path(std::string("image/") + name), file);
    if (first % KINDS == KIND_GIF) {
        gif_play(name, how % 4);
        return;
    }
    image_show(name); // by LVGL
    zof_image_init();
    image_show(name); // by FFmpeg, and if it refuses, by LVGL
    lv_img_decoder_delete((lv_img_decoder_t *)_lv_ll_get_head(&LV_GC_ROOT(_lv_img_decoder_ll)));
}
