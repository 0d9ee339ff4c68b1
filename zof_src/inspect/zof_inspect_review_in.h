// Facts for a reviewer: every text as it is drawn, and how much of each control is visible in the end. The views are
// drawn once more into a separate picture, from the lowest layer up. LVGL's usual optimisation, which skips objects
// that are covered, is not used, and the drawing of each text and each object is observed.
#ifndef ZOF_INSPECT_REVIEW_IN_H
#define ZOF_INSPECT_REVIEW_IN_H

#include <map>
#include <string>
#include <vector>

#include "lvgl.h"
#include "zof_lib/zof_type.h"

// Pixels that a text or a control has drawn, and whether they are still there.
struct review_ink_t {
    std::vector<u32> at, value; // indices into the picture, and the colours that were drawn
    std::vector<u32> last;      // the colours at the last look
    size_t lost, most;          // how many have been drawn over, and how many of them by `cover`
    const lv_obj_t *cover;      // the object that covers most of them; null if they are not covered
};

// A text that is drawn.
struct review_text_t {
    const lv_obj_t *obj;
    std::string text;
    const lv_font_t *font;
    lv_area_t box;       // of its ink, including what is cut off
    lv_area_t room;      // the part of `box` that is visible or can be scrolled into view
    std::string missing; // letters that no font of the chain has
    std::string broken;  // the first word that is split between two lines
    s32 broken_width, line_width;
    bool dots;             // LVGL has replaced its end by dots
    lv_point_t needs, has; // the size of the whole text, and the size that is available
    bool symbols;          // it consists of symbols only
    u8 opa;
    double contrast;            // 1 to 21; at least nine tenths of the ink have this contrast; 0: unknown
    std::map<size_t, u32> over; // earlier texts in its lines, by index, with the number of their pixels
    review_ink_t ink;
};

// How much of an object is visible.
struct review_seen_t {
    std::vector<std::pair<u32, u32>> before; // while it is being drawn: indices and colours from before
    review_ink_t ink;                        // samples of the object with its children
    lv_area_t key;                           // the smallest button of a button matrix
    bool has_key;
};

struct review_t {
    std::vector<u32> pixels; // 0x??RRGGBB
    s32 width, height;
    std::vector<review_text_t> texts; // in the order in which they are drawn
    std::map<const lv_obj_t *, review_seen_t> seen;
};

// Draws all layers. Main thread; not from within a drawing event.
review_t review_draw();

// zof_inspect_review_room.cpp: returns the part of an area of `obj` that is visible or can be scrolled into view.
// `own`: clip to the object itself too, not only to its parents.
lv_area_t review_room(const lv_obj_t *obj, const lv_area_t *area, bool own);

// Returns true if `obj` is `outer` or one of its descendants.
bool review_inside(const lv_obj_t *obj, const lv_obj_t *outer);

// Sets `dots`, `needs` and `has`. A text that ends in dots is measured without them, in the lines of its label.
void review_sizes_take(review_text_t *text, const lv_draw_label_dsc_t *dsc);

// zof_inspect_review_text.cpp: lays out a text as lv_draw_label does, without drawing it.
struct review_layout_t {
    std::vector<lv_area_t> lines; // the ink of each line
    std::string missing, broken;
    s32 broken_width;
    bool symbols;
};
review_layout_t review_layout(lv_draw_ctx_t *ctx, const lv_draw_label_dsc_t *dsc, const lv_area_t *coords,
                              const char *text);

// Returns the contrast of two colours by their relative luminance, 1 to 21, as accessibility guidelines define it.
double review_contrast(u32 a, u32 b);

#endif
