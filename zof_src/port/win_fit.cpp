#include "port/win_fit.h"

// Rounded down, also below 0.
static s32 divide(s64 a, s64 b) {
    return (s32)(a >= 0 ? a / b : -((-a + b - 1) / b));
}

static s32 at_least_one(s32 size) {
    return size > 1 ? size : 1;
}

win_fit_t win_fit_make(s32 pic_w, s32 pic_h, s32 win_w, s32 win_h) {
    const s64 pw = at_least_one(pic_w);
    const s64 ph = at_least_one(pic_h);
    s64 w = at_least_one(win_w);
    s64 h = at_least_one(win_h);
    win_fit_t fit = {(s32)pw, (s32)ph, {}};
    if (w * ph <= h * pw) {
        h = (ph * w + pw / 2) / pw;
    } else {
        w = (pw * h + ph / 2) / ph;
    }
    fit.out.w = at_least_one((s32)w);
    fit.out.h = at_least_one((s32)h);
    fit.out.x = divide(win_w - fit.out.w, 2);
    fit.out.y = divide(win_h - fit.out.h, 2);
    return fit;
}

static s32 clamp(s32 value, s32 low, s32 high) {
    return value < low ? low : value > high ? high : value;
}

// One direction of win_fit_part: the pixels of the window that [from, to) of the picture has a share in.
static void span(s32 from, s32 to, s32 pic, s32 at, s32 out, s32 *first, s32 *count) {
    from = clamp(from, 0, pic);
    to = clamp(to, from, pic);
    const s32 begin = divide((s64)from * out, pic);
    const s32 end = divide((s64)to * out + pic - 1, pic);
    *first = at + begin;
    *count = to > from ? end - begin : 0;
}

win_rect_t win_fit_part(const win_fit_t *fit, win_rect_t part) {
    win_rect_t shown;
    span(part.x, part.x + part.w, fit->pic_w, fit->out.x, fit->out.w, &shown.x, &shown.w);
    span(part.y, part.y + part.h, fit->pic_h, fit->out.y, fit->out.h, &shown.y, &shown.h);
    return shown;
}

// The middle of a pixel decides which one of the other side it belongs to.
static s32 scaled(s32 at, s32 from, s32 to) {
    return divide(((s64)at * 2 + 1) * to, (s64)from * 2);
}

bool win_fit_pixel(const win_fit_t *fit, s32 x, s32 y, s32 *pic_x, s32 *pic_y) {
    const s32 px = scaled(x - fit->out.x, fit->out.w, fit->pic_w);
    const s32 py = scaled(y - fit->out.y, fit->out.h, fit->pic_h);
    *pic_x = clamp(px, 0, fit->pic_w - 1);
    *pic_y = clamp(py, 0, fit->pic_h - 1);
    return px == *pic_x && py == *pic_y;
}

void win_fit_position(const win_fit_t *fit, s32 pic_x, s32 pic_y, s32 *x, s32 *y) {
    *x = fit->out.x + scaled(pic_x, fit->pic_w, fit->out.w);
    *y = fit->out.y + scaled(pic_y, fit->pic_h, fit->out.h);
}
