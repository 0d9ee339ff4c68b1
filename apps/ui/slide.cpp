// Sliding to another page. The new page is shown at once, so that it accepts touches and Off works at any moment, and
// its tab bar and strip do not move. Only a picture of the old page's content slides away.
#include <string.h>

#include "drv/zof_drv_aid.h"
#include "ui/ui.h"

enum { SLIDE_MS = 250, TOP = 52, BOTTOM = 432 }; // content area: below the strip, above the tab bar

static struct {
    lv_obj_t *picture; // null: nothing slides
    lv_img_dsc_t source;
    u8 *pixels;
} slide;

static void end(lv_anim_t *) {
    lv_img_cache_invalidate_src(&slide.source); // it points to the pixels
    zof_free(slide.pixels);
    slide = {};
}

// Copies the content area of the screen. Returns false if there is no frame or no memory.
static bool picture_take() {
    s32 width = 0, height = 0;
    const u32 *frame = zof_drv_aid_frame(&width, &height);
    const size_t size = (size_t)width * (BOTTOM - TOP) * sizeof(u32);
    slide.pixels = frame && height >= BOTTOM ? (u8 *)zof_malloc(size) : nullptr;
    if (slide.pixels) {
        memcpy(slide.pixels, frame + (size_t)TOP * (size_t)width, size);
        slide.source.header = {.cf = LV_IMG_CF_TRUE_COLOR, .w = (u32)width, .h = BOTTOM - TOP};
        slide.source.data_size = (u32)size;
        slide.source.data = slide.pixels;
    }
    return slide.pixels != nullptr;
}

static void move(void *picture, s32 x) {
    lv_obj_set_x((lv_obj_t *)picture, (lv_coord_t)x);
}

static void start(bool back) {
    slide.picture = lv_img_create(lv_layer_top());
    lv_img_set_src(slide.picture, &slide.source);
    lv_obj_set_pos(slide.picture, 0, TOP);
    lv_anim_t anim;
    lv_anim_init(&anim);
    lv_anim_set_var(&anim, slide.picture);
    lv_anim_set_exec_cb(&anim, move);
    lv_anim_set_values(&anim, 0, back ? LV_HOR_RES : -LV_HOR_RES);
    lv_anim_set_time(&anim, SLIDE_MS);
    lv_anim_set_path_cb(&anim, lv_anim_path_ease_out);
    lv_anim_set_ready_cb(&anim, [](lv_anim_t *) { lv_obj_del(slide.picture); });
    lv_anim_set_deleted_cb(&anim, end); // also runs when the picture is deleted
    lv_anim_start(&anim);
}

void ui_slide_to(u32 view, bool back) {
    if (slide.picture) {
        lv_obj_del(slide.picture);
    }
    const bool taken = view != (u32)zof_view_get_cur_id(ZOF_LAYER_UI) && picture_take();
    ui_tab_to(view);
    if (taken) {
        start(back);
    }
}
