// The drawing for a review. The linker wraps lv_draw_label, because labels, tables, lists and charts all draw their
// texts with it, and lv_event_send, which announces the drawing of each object.
#include <algorithm>

#include "inspect/zof_inspect_review_in.h"

enum { SAMPLES = 16 }; // of a control, in each direction

static struct {
    bool on;
    review_t *out;
    const lv_obj_t *obj; // that is being drawn
    lv_area_t part;      // its button or cell that is being drawn
    bool has_part;
    std::vector<s32> owner;   // of each pixel: the text whose ink is there, -1 for none
    std::vector<u32> written; // and its colour
} run;

// Ink ----------------------------------------------------------------------------------------------------------------

// Notes what `obj` has drawn over some ink since the last call. With `own` the ink belongs to `obj` itself, such as the
// digit under a cursor: it then counts as visible, in its new colour.
static void cover_note(review_ink_t *ink, const lv_obj_t *obj, bool own) {
    size_t lost = 0;
    for (size_t i = 0; i < ink->at.size(); i++) {
        const u32 now = run.out->pixels[ink->at[i]];
        if (own && ink->last[i] == ink->value[i]) {
            ink->value[i] = now;
        }
        ink->last[i] = now;
        lost += now != ink->value[i];
    }
    if (!own && lost > ink->lost && lost - ink->lost > ink->most) {
        ink->most = lost - ink->lost;
        ink->cover = obj;
    }
    ink->lost = lost;
}

static void covers_note(const lv_obj_t *obj) {
    lv_area_t area = obj->coords;
    const lv_coord_t more = _lv_obj_get_ext_draw_size(obj);
    lv_area_increase(&area, more, more);
    for (review_text_t &text : run.out->texts) {
        if (_lv_area_is_on(&text.box, &area)) {
            cover_note(&text.ink, obj, review_inside(text.obj, obj));
        }
    }
    for (auto &[control, seen] : run.out->seen) {
        if (seen.before.empty() && _lv_area_is_on(&control->coords, &area)) {
            cover_note(&seen.ink, obj, review_inside(control, obj));
        }
    }
}

// Returns false while LVGL draws into a layer, which may be larger than the picture and is blended into it later.
static bool in_picture(const lv_draw_ctx_t *ctx) {
    return ctx->buf == run.out->pixels.data();
}

// Keeps samples of the picture where a control is about to be drawn.
static void samples_begin(const lv_obj_t *obj, const lv_draw_ctx_t *ctx) {
    lv_area_t box;
    review_seen_t *seen = &run.out->seen[obj];
    if (!in_picture(ctx) || !_lv_area_intersect(&box, &obj->coords, ctx->clip_area)) {
        return;
    }
    const s32 step_x = lv_area_get_width(&box) / SAMPLES + 1;
    const s32 step_y = lv_area_get_height(&box) / SAMPLES + 1;
    for (s32 y = box.y1; y <= box.y2; y += step_y) {
        for (s32 x = box.x1; x <= box.x2; x += step_x) {
            const u32 at = (u32)(y * run.out->width + x);
            seen->before.push_back({at, run.out->pixels[at]});
        }
    }
}

// Keeps the samples that the control and its children have changed.
static void samples_end(const lv_obj_t *obj) {
    const auto found = run.out->seen.find(obj);
    if (found == run.out->seen.end()) {
        return;
    }
    review_seen_t *seen = &found->second;
    for (const auto &[at, value] : seen->before) {
        if (run.out->pixels[at] != value) {
            seen->ink.at.push_back(at);
            seen->ink.value.push_back(run.out->pixels[at]);
        }
    }
    seen->before.clear();
    seen->ink.last = seen->ink.value;
}

// Texts --------------------------------------------------------------------------------------------------------------

// A copy of a rectangle of the picture, taken before a text is drawn there.
struct patch_t {
    lv_area_t area;
    std::vector<u32> pixels;
};

static u32 place(s32 x, s32 y) {
    return (u32)(y * run.out->width + x);
}

static patch_t patch_take(const lv_area_t *area) {
    patch_t patch = {*area, {}};
    for (s32 y = area->y1; y <= area->y2; y++) {
        const u32 *row = &run.out->pixels[place(area->x1, y)];
        patch.pixels.insert(patch.pixels.end(), row, row + lv_area_get_width(area));
    }
    return patch;
}

static u32 patch_pixel(const patch_t &patch, s32 x, s32 y) {
    return patch.pixels[(size_t)((y - patch.area.y1) * lv_area_get_width(&patch.area) + x - patch.area.x1)];
}

static void line_count(review_text_t *text, const patch_t &patch, const lv_area_t *seen) {
    for (s32 y = seen->y1; y <= seen->y2; y++) {
        for (s32 x = seen->x1; x <= seen->x2; x++) {
            const u32 at = place(x, y);
            if (run.owner[at] >= 0 && run.written[at] == patch_pixel(patch, x, y)) {
                text->over[(size_t)run.owner[at]]++;
            }
        }
    }
}

// Counts the pixels of earlier texts that can still be seen where the lines of this one go.
static void below_count(review_text_t *text, const patch_t &patch, const std::vector<lv_area_t> &lines) {
    for (const lv_area_t &line : lines) {
        lv_area_t seen;
        if (_lv_area_intersect(&seen, &line, &patch.area)) {
            line_count(text, patch, &seen);
        }
    }
}

static u32 color_mix(u32 over, u32 below, u32 opa) {
    return lv_color_mix(lv_color_hex(over), lv_color_hex(below), (u8)opa).full;
}

// The tenth of the ink with the least contrast decides, so that a few pixels over an edge do not matter. A text that
// changes no pixel has the colour of its background.
static double contrast_of(std::vector<double> *all) {
    if (all->empty()) {
        return 1;
    }
    const auto at = all->begin() + (std::ptrdiff_t)(all->size() / 10);
    std::nth_element(all->begin(), at, all->end());
    return *at;
}

// Keeps the ink of a text that has just been drawn, and measures its contrast to the colours that were there before.
static void ink_take(review_text_t *text, const patch_t &patch, const lv_draw_label_dsc_t *dsc) {
    const size_t number = run.out->texts.size();
    std::vector<double> contrasts;
    for (s32 y = patch.area.y1; y <= patch.area.y2; y++) {
        for (s32 x = patch.area.x1; x <= patch.area.x2; x++) {
            const u32 at = place(x, y);
            const u32 now = run.out->pixels[at];
            const u32 below = patch_pixel(patch, x, y);
            if (now == below) {
                continue;
            }
            const u32 ink = dsc->flag & LV_TEXT_FLAG_RECOLOR ? now : color_mix(dsc->color.full, below, dsc->opa);
            contrasts.push_back(review_contrast(ink, below));
            run.owner[at] = (s32)number;
            run.written[at] = now;
            text->ink.at.push_back(at);
            text->ink.value.push_back(now);
        }
    }
    text->contrast = contrast_of(&contrasts);
}

// A sample of the ink is enough to find out whether a text is covered.
static void ink_thin(review_ink_t *ink) {
    enum { KEPT = 200 };
    const size_t step = ink->at.size() / KEPT + 1;
    for (size_t from = 0, to = 0; from < ink->at.size(); from += step, to++) {
        ink->at[to] = ink->at[from];
        ink->value[to] = ink->value[from];
    }
    ink->at.resize((ink->at.size() + step - 1) / step);
    ink->value.resize(ink->at.size());
    ink->last = ink->value;
}

static lv_area_t lines_join(const std::vector<lv_area_t> &lines) {
    lv_area_t all = lines[0];
    for (const lv_area_t &line : lines) {
        _lv_area_join(&all, &all, &line);
    }
    return all;
}

static lv_area_t text_room(const review_text_t &text) {
    lv_area_t room = review_room(text.obj, &text.box, true);
    if (run.has_part && !_lv_area_intersect(&room, &room, &run.part)) {
        room = {0, 0, -1, -1};
    }
    return room;
}

extern "C" {

// NOLINTBEGIN(bugprone-reserved-identifier): the linker's names
void __real_lv_draw_label(lv_draw_ctx_t *ctx, const lv_draw_label_dsc_t *dsc, const lv_area_t *coords, const char *text,
                          lv_draw_label_hint_t *hint);
lv_res_t __real_lv_event_send(lv_obj_t *obj, lv_event_code_t code, void *param);
void __wrap_lv_draw_label(lv_draw_ctx_t *ctx, const lv_draw_label_dsc_t *dsc, const lv_area_t *coords, const char *text,
                          lv_draw_label_hint_t *hint);
lv_res_t __wrap_lv_event_send(lv_obj_t *obj, lv_event_code_t code, void *param);

// Skips the letter that a text area draws under its cursor, and the second copy of a label that scrolls in a circle.
static bool is_repeated(const char *text) {
    const lv_obj_t *obj = run.obj;
    if (lv_obj_has_class((lv_obj_t *)obj, &lv_textarea_class)) {
        return text != lv_textarea_get_placeholder_text((lv_obj_t *)obj);
    }
    return lv_obj_has_class((lv_obj_t *)obj, &lv_label_class) && !run.out->texts.empty() &&
           run.out->texts.back().obj == obj;
}

static review_text_t text_make(const review_layout_t &layout, const lv_draw_label_dsc_t *dsc, const lv_area_t *coords,
                               const char *text) {
    review_text_t made = {.obj = run.obj,
                          .text = text,
                          .font = dsc->font,
                          .missing = layout.missing,
                          .broken = layout.broken,
                          .broken_width = layout.broken_width,
                          .line_width = lv_area_get_width(coords),
                          .symbols = layout.symbols,
                          .opa = dsc->opa};
    made.box = layout.lines.empty() ? *coords : lines_join(layout.lines);
    made.room = text_room(made);
    review_sizes_take(&made, dsc);
    return made;
}

// A layer may be drawn in stripes; each stripe draws its texts again.
static bool is_known(const review_text_t &text) {
    return std::any_of(run.out->texts.begin(), run.out->texts.end(), [&](const review_text_t &other) {
        return other.obj == text.obj && _lv_area_is_equal(&other.box, &text.box) && other.text == text.text;
    });
}

// LVGL does not draw a text whose opacity is 0, and does not look up its font.
static void unseen_take(const lv_area_t *coords, const char *text) {
    run.out->texts.push_back({.obj = run.obj, .text = text, .box = *coords, .room = *coords, .contrast = 1});
}

// In a layer a text is laid out, but its pixels are not known.
void __wrap_lv_draw_label(lv_draw_ctx_t *ctx, const lv_draw_label_dsc_t *dsc, const lv_area_t *coords, const char *text,
                          lv_draw_label_hint_t *hint) {
    if (!run.on || !text || !*text || is_repeated(text)) {
        __real_lv_draw_label(ctx, dsc, coords, text, hint);
        return;
    }
    if (dsc->opa <= LV_OPA_MIN) {
        unseen_take(coords, text);
        return;
    }
    const review_layout_t layout = review_layout(ctx, dsc, coords, text);
    if (layout.lines.empty() && layout.missing.empty()) {
        return; // blanks
    }
    review_text_t found = text_make(layout, dsc, coords, text);
    patch_t patch = {};
    const bool fresh = !is_known(found);
    const bool seen = fresh && in_picture(ctx) && _lv_area_intersect(&patch.area, &found.box, ctx->clip_area);
    if (seen) {
        patch = patch_take(&patch.area);
        below_count(&found, patch, layout.lines);
    }
    __real_lv_draw_label(ctx, dsc, coords, text, hint);
    if (seen) {
        ink_take(&found, patch, dsc);
        ink_thin(&found.ink);
    }
    if (fresh) {
        run.out->texts.push_back(found);
    }
}

// Remembers a button of a matrix or a cell of a table as the room of the text that follows. Keys of keyboards are not
// measured: a full alphabet cannot have large ones.
static void part_take(const lv_obj_t *obj, const lv_obj_draw_part_dsc_t *dsc) {
    const bool matrix = lv_obj_has_class((lv_obj_t *)obj, &lv_btnmatrix_class);
    run.has_part = dsc->draw_area && (matrix || lv_obj_has_class((lv_obj_t *)obj, &lv_table_class)) &&
                   (dsc->part == LV_PART_ITEMS);
    if (!run.has_part) {
        return;
    }
    run.part = *dsc->draw_area;
    review_seen_t *seen = &run.out->seen[obj];
    const bool counts = matrix && !lv_obj_has_class((lv_obj_t *)obj, &lv_keyboard_class);
    if (counts && (!seen->has_key || lv_area_get_size(&run.part) < lv_area_get_size(&seen->key))) {
        seen->key = run.part;
        seen->has_key = true;
    }
}

lv_res_t __wrap_lv_event_send(lv_obj_t *obj, lv_event_code_t code, void *param) {
    if (run.on && code == LV_EVENT_DRAW_MAIN_BEGIN) {
        samples_begin(obj, (lv_draw_ctx_t *)param);
    }
    if (run.on && (code == LV_EVENT_DRAW_MAIN_BEGIN || code == LV_EVENT_DRAW_POST_BEGIN)) {
        run.obj = obj;
        run.has_part = false;
    }
    if (run.on && code == LV_EVENT_DRAW_PART_BEGIN) {
        part_take(obj, (const lv_obj_draw_part_dsc_t *)param);
    }
    const lv_res_t result = __real_lv_event_send(obj, code, param);
    if (run.on && (code == LV_EVENT_DRAW_MAIN_END || code == LV_EVENT_DRAW_POST_END)) {
        covers_note(obj);
    }
    if (run.on && code == LV_EVENT_DRAW_POST_END) {
        samples_end(obj);
    }
    return result;
}

// NOLINTEND(bugprone-reserved-identifier)
}

// The picture --------------------------------------------------------------------------------------------------------

// Uses a copy of the display whose driver draws into the picture, as lv_snapshot does.
static void layers_draw(lv_area_t *all) {
    lv_disp_t *real = lv_disp_get_default();
    lv_disp_t disp = *real;
    lv_disp_drv_t drv = *real->driver;
    auto *ctx = (lv_draw_ctx_t *)lv_mem_alloc(drv.draw_ctx_size);
    if (!ctx) {
        return;
    }
    disp.driver = &drv;
    drv.draw_ctx_init(&drv, ctx);
    drv.draw_ctx = ctx;
    ctx->buf = run.out->pixels.data();
    ctx->buf_area = all;
    ctx->clip_area = all;
    lv_disp_t *refreshed = _lv_refr_get_disp_refreshing();
    _lv_refr_set_disp_refreshing(&disp);
    for (lv_obj_t *root : {real->bg_layer, real->act_scr, real->top_layer, real->sys_layer}) {
        lv_obj_redraw(ctx, root);
    }
    _lv_refr_set_disp_refreshing(refreshed);
    drv.draw_ctx_deinit(&drv, ctx);
    lv_mem_free(ctx);
}

review_t review_draw() {
    review_t out = {};
    lv_disp_t *disp = lv_disp_get_default();
    out.width = lv_disp_get_hor_res(disp);
    out.height = lv_disp_get_ver_res(disp);
    const size_t size = (size_t)out.width * (size_t)out.height;
    out.pixels.assign(size, disp->bg_color.full);
    lv_area_t all = {0, 0, (lv_coord_t)(out.width - 1), (lv_coord_t)(out.height - 1)};
    run = {.on = true, .out = &out};
    run.owner.assign(size, -1);
    run.written.assign(size, 0);
    layers_draw(&all);
    run = {};
    return out;
}
