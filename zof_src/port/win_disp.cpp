// The display of the desktop: a window of the project's size, drawn in one piece, with the mouse as its touch panel.
#include "drv/zof_drv_disp.h"
#include "drv/zof_drv_touch.h"
#include "drv/zof_drv_up.h"
#include "port/win_light.h"
#include "port/win_screen.h"
#include "port/zof_port.h"
#include "zof_lib/zof_stdio.h"

static zof_disp_t win_disp_t;

void win_disp_get_wh(s32 *w, s32 *h) {
    if (!w || !h) {
        return;
    }
    zof_prj_facts_t facts = {};
    const bool usable = zof_drv_up.prj_facts(&facts) == 0 && facts.width > 0 && facts.height > 0 && facts.wh_avlid != 1;
    *w = usable ? facts.width : SDL_HOR_RES;
    *h = usable ? facts.height : SDL_VER_RES;
}

static s32 win_disp_get_scn_size(zof_disp_t *disp) {
    disp->scn_w = (u32)SDL_HOR_RES;
    disp->scn_h = (u32)SDL_VER_RES;
    return 0;
}

static s32 win_disp_set_bright(u8 level) {
    zof_win_set_dis_bright(level);
    return 0;
}

static s32 win_disp_set_fullscreen(zof_bool on) {
    win_screen_full_set(on != ZOF_FALSE);
    return 0;
}

static s32 win_disp_set_title(const char *title) {
    return win_screen_title_set(title) ? 0 : -1;
}

static void register_display() {
    static lv_disp_draw_buf_t draw_buf;
    static lv_disp_drv_t drv;
    const size_t pixels = (size_t)SDL_HOR_RES * (size_t)SDL_VER_RES;
    void *buffer = zof_malloc(pixels * sizeof(lv_color_t));
    if (!buffer) {
        zof_mem_end("the display has no memory for its picture"); // no object can be created without a display
    }
    lv_disp_draw_buf_init(&draw_buf, buffer, nullptr, (u32)pixels);
    lv_disp_drv_init(&drv);
    drv.hor_res = SDL_HOR_RES;
    drv.ver_res = SDL_VER_RES;
    drv.draw_buf = &draw_buf;
    drv.flush_cb = sdl_display_flush;
    lv_disp_t *disp = lv_disp_drv_register(&drv);
    // The panel is black where nothing covers it; otherwise old contents would stay visible there.
    lv_disp_set_bg_color(disp, lv_color_black());
    lv_disp_set_bg_opa(disp, LV_OPA_COVER);
}

static void register_touch() {
    static lv_indev_drv_t drv;
    lv_indev_drv_init(&drv);
    drv.type = LV_INDEV_TYPE_POINTER;
    drv.read_cb = sdl_mouse_read;
    touch_indev = lv_indev_drv_register(&drv);
}

void win_disp_init(void) {
    win_disp_get_wh(&SDL_HOR_RES, &SDL_VER_RES);
    win_disp_t.set_bright = win_disp_set_bright;
    win_disp_t.set_fullscreen = win_disp_set_fullscreen;
    win_disp_t.set_title = win_disp_set_title;
    win_disp_t.get_scn_size = win_disp_get_scn_size;
    zof_drv_disp_reg(&win_disp_t);
    zof_disp_init(&win_disp_t);
    sdl_init();
    win_disp_t.own_light = win_light_is_set();
    register_display();
    register_touch();
}
