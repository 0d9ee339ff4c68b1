// The three colours are summed together: red and blue in the halves of one number, green in another. A sum of bytes
// with weights of WIN_SCALE_ONE squared just fits into 32 bits.
#include "port/win_scale.h"

#include <string.h>

#include "zof_lib/zof_stdio.h"

enum : u64 { HALF = (u64)WIN_SCALE_ONE * WIN_SCALE_ONE / 2, BYTE = 0xFF };
enum { SHIFT = 24, GREEN = 8 };
static_assert(1u << SHIFT == (u32)WIN_SCALE_ONE * WIN_SCALE_ONE);

static void axis_free(win_axis_t *axis) {
    zof_free(axis->first);
    zof_free(axis->weight);
    zof_free(axis->weights);
    *axis = {};
}

// Fills the tables. The end of a pixel of the picture inside a pixel of the window is rounded, not its weight, so that
// the sum is exact.
static void axis_fill(win_axis_t *axis, u32 sum) {
    const s64 from = axis->from;
    const s64 to = axis->to;
    s32 used = 0;
    for (s64 out = 0; out < to; out++) {
        const s64 begin = out * from;
        const s64 end = begin + from; // in 1/to of a pixel of the picture
        axis->first[out] = (s32)(begin / to);
        axis->weight[out] = used;
        s64 before = 0;
        for (s64 in = begin / to; in * to < end; in++) {
            const s64 next = (in + 1) * to;
            const s64 covered = (next < end ? next : end) - begin;
            const s64 until = (covered * sum + from / 2) / from;
            axis->weights[used++] = (u16)(until - before);
            before = until;
        }
    }
    axis->weight[to] = used;
}

static bool axis_make(win_axis_t *axis, s32 from, s32 to, u32 sum) {
    *axis = {from, to};
    axis->first = (s32 *)zof_malloc((size_t)to * sizeof(s32));
    axis->weight = (s32 *)zof_malloc(((size_t)to + 1) * sizeof(s32));
    axis->weights = (u16 *)zof_malloc((size_t)(from + to) * sizeof(u16)); // neighbours share at most one pixel
    if (!axis->first || !axis->weight || !axis->weights) {
        return false;
    }
    axis_fill(axis, sum);
    return true;
}

void win_scale_free(win_scale_t *scale) {
    axis_free(&scale->across);
    axis_free(&scale->down);
    *scale = {};
}

bool win_scale_make(win_scale_t *scale, const win_fit_t *fit, u32 bright) {
    win_scale_free(scale);
    scale->bright = bright;
    const bool made = axis_make(&scale->across, fit->pic_w, fit->out.w, WIN_SCALE_ONE) &&
                      axis_make(&scale->down, fit->pic_h, fit->out.h, bright);
    if (!made) {
        win_scale_free(scale);
    }
    return made;
}

static s32 parts(const win_axis_t *axis, s32 at) {
    return axis->weight[at + 1] - axis->weight[at];
}

// The pixels of the picture that a pixel of the window consists of, with their weights in both directions.
struct area_t {
    const u32 *pixels;
    s32 stride; // from a row to the next
    s32 w, h;
    const u16 *across, *down;
};

// Returns how many pixels from the area's first one on have its color in all of the area's rows, `most` at most.
static s32 run_length(const area_t *a, s32 most) {
    const u32 color = a->pixels[0];
    for (s32 y = 0; y < a->h; y++) {
        const u32 *row = a->pixels + (size_t)y * (size_t)a->stride;
        s32 n = 0;
        while (n < most && row[n] == color) {
            n++;
        }
        most = n;
    }
    return most;
}

static u32 mixed(const area_t *a) {
    u64 red_blue = HALF << 32 | HALF;
    u64 green = HALF;
    for (s32 y = 0; y < a->h; y++) {
        for (s32 x = 0; x < a->w; x++) {
            const u64 pixel = a->pixels[y * a->stride + x];
            const u64 weight = (u64)a->down[y] * a->across[x];
            red_blue += ((pixel >> 16 & BYTE) << 32 | (pixel & BYTE)) * weight;
            green += (pixel >> GREEN & BYTE) * weight;
        }
    }
    return (u32)(red_blue >> (32 + SHIFT) << 16 | green >> SHIFT << GREEN | (red_blue >> SHIFT & BYTE));
}

static bool is_copy(const win_scale_t *scale) {
    return scale->across.from == scale->across.to && scale->down.from == scale->down.to &&
           scale->bright == WIN_SCALE_ONE;
}

void win_scale_row(const win_scale_t *scale, const u32 *pixels, s32 x, s32 y, s32 count, u32 *out) {
    const win_axis_t *across = &scale->across;
    const win_axis_t *down = &scale->down;
    const u32 *row = pixels + (size_t)down->first[y] * (size_t)across->from;
    if (is_copy(scale)) {
        memcpy(out, row + x, (size_t)count * sizeof(u32));
        return;
    }
    area_t area = {nullptr, across->from, 1, parts(down, y), nullptr, down->weights + down->weight[y]};
    const s32 end = x + count;
    const s32 row_end = across->first[end - 1] + parts(across, end - 1);
    for (s32 at = x; at < end;) {
        const s32 first = across->first[at];
        area.pixels = row + first;
        area.across = across->weights + across->weight[at];
        area.w = parts(across, at);
        const u32 color = mixed(&area);
        *out++ = color;
        at++;
        const s32 same = run_length(&area, row_end - first);
        if (same > area.w) { // fill what lies in the run
            const s32 stop = (s32)((s64)(first + same) * across->to / across->from);
            for (; at < end && at < stop; at++) {
                *out++ = color;
            }
        }
    }
}

bool win_scale_row_repeats(const win_scale_t *scale, s32 y) {
    const win_axis_t *down = &scale->down;
    return y > 0 && parts(down, y) == 1 && parts(down, y - 1) == 1 && down->first[y] == down->first[y - 1];
}
