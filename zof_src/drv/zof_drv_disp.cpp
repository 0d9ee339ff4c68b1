// The display record: forwarders to the port, and the geometry that follows from screen and project.
#include "drv/zof_drv_disp.h"

#include "drv/zof_drv_up.h"

static zof_disp_t *zof_disp; // the port's record, null until it registers

s32 zof_drv_disp_reg(zof_disp_t *disp) {
    zof_disp = disp;
    return 0;
}

zof_disp_t *zof_drv_get_disp_t(void) {
    return zof_disp;
}

s32 zof_drv_disp_set_bg(const char *path) {
    return zof_disp && zof_disp->set_bg ? zof_disp->set_bg(path) : -1;
}

s32 zof_drv_disp_set_bgcolor(zof_color_t color) {
    return zof_disp && zof_disp->set_bgcolor ? zof_disp->set_bgcolor(color) : -1;
}

s32 zof_disp_set_bright(u8 level) {
    if (!zof_disp || !zof_disp->set_bright) {
        return -1;
    }
    zof_disp->set_bright(level);
    return 0;
}

zof_bool zof_disp_has_light(void) {
    return zof_disp && zof_disp->own_light;
}

static zof_bool fullscreen;

s32 zof_disp_set_fullscreen(zof_bool on) {
    fullscreen = on;
    if (!zof_disp) {
        return 0;
    }
    return zof_disp->set_fullscreen ? zof_disp->set_fullscreen(on) : -1;
}

zof_bool zof_disp_get_fullscreen(void) {
    return fullscreen;
}

static u32 scale;

void zof_disp_set_scale(u32 percent) {
    scale = percent;
}

u32 zof_disp_get_scale(void) {
    return scale;
}

s32 zof_disp_set_title(const char *title) {
    return title && zof_disp && zof_disp->set_title ? zof_disp->set_title(title) : -1;
}

s32 zof_disp_get_scn_size(zof_wh_t *out) {
    if (!zof_disp || !out) {
        return -1;
    }
    *out = {zof_disp->scn_w, zof_disp->scn_h};
    return 0;
}

s32 zof_disp_init_scn_size(zof_disp_t *disp) {
    if (!disp) {
        return -1;
    }
    disp->scn_w = 800;
    disp->scn_h = 480;
    return disp->get_scn_size ? disp->get_scn_size(disp) : -1;
}

s32 zof_disp_get_rotate(void) {
    zof_prj_facts_t facts = {};
    return zof_drv_up.prj_facts(&facts) == 0 ? (u8)facts.rotate : 0;
}

zof_wh_t *zof_disp_get_draw_size(void) {
    return zof_disp ? (zof_wh_t *)&zof_disp->draw_w : nullptr;
}

void zof_disp_init_draw_size(void) {
    if (!zof_disp) {
        return;
    }
    zof_disp->draw_w = zof_disp->scn_w;
    zof_disp->draw_h = zof_disp->scn_h;
    zof_prj_facts_t facts = {};
    if (zof_drv_up.prj_facts(&facts) != 0 || facts.width <= 0 || facts.height <= 0 || facts.wh_avlid == 1) {
        return;
    }
    const bool turned = (u8)facts.rotate == 1 || (u8)facts.rotate == 3;
    zof_disp->draw_w = (u32)(turned ? facts.height : facts.width);
    zof_disp->draw_h = (u32)(turned ? facts.width : facts.height);
}

s32 zof_disp_get_screen_pos(zof_wh_t *pos, zof_wh_t *size) {
    const zof_disp_t *d = zof_disp;
    if (!d) {
        return -1;
    }
    if (pos) {
        *pos = {d->pos_x, d->pos_y};
    }
    if (size) {
        *size = {d->size_w, d->size_h};
    }
    const bool full = d->pos_x == 0 && d->pos_y == 0 && d->size_w == d->scn_w && d->size_h == d->scn_h;
    return full ? -1 : 0;
}

// What two margins leave of a side; margins wider than the screen leave nothing.
static u32 inner(u32 side, u16 margin) {
    return side > 2u * margin ? side - 2u * margin : 0;
}

s32 zof_disp_init_screen_pos(void) {
    zof_prj_facts_t facts = {};
    if (!zof_disp || zof_drv_up.prj_facts(&facts) != 0) {
        return -1;
    }
    zof_disp_t *d = zof_disp;
    d->pos_x = facts.off_x;
    d->pos_y = facts.off_y;
    d->size_w = inner(d->scn_w, facts.off_x);
    d->size_h = inner(d->scn_h, facts.off_y);
    const s64 w = facts.width;
    const s64 h = facts.height;
    if (facts.dis_mode == 0 || w <= 0 || h <= 0) {
        return 0;
    }
    if (d->scn_w >= w && d->scn_h >= h) {
        d->size_w = (u32)w;
        d->size_h = (u32)h;
    } else {
        d->size_w = (u32)(d->size_w * w / (w + h));
        d->size_h = (u32)(d->size_h * h / (w + h));
    }
    return 0;
}

void zof_disp_init(zof_disp_t *disp) {
    zof_disp_init_scn_size(disp);
    zof_disp_init_draw_size();
    zof_disp_init_screen_pos();
}
