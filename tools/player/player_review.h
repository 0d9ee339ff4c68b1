// What a reviewer of a panel looks at: the texts as they are drawn, and what is seen of each control. The shown views
// are drawn once more into a picture of their own, from the lowest layer up and without LVGL's omission of what is
// covered, while the drawing of each text and of each object is observed.
#ifndef PLAYER_REVIEW_H
#define PLAYER_REVIEW_H

#include <map>
#include <string>
#include <vector>

#include "lvgl.h"
#include "zof_lib/zof_type.h"

// Pixels that something has drawn, and what has become of them.
struct review_ink_t {
    std::vector<u32> at, value; // places in the picture, and what was drawn there
    std::vector<u32> last;      // what was there when it was last looked at
    size_t lost, most;          // how many have changed since, and how many of these `cover` has changed
    const lv_obj_t *cover;      // null while nothing has been lost
};

// A text that is drawn.
struct review_text_t {
    const lv_obj_t *obj;
    std::string text;
    const lv_font_t *font;
    lv_area_t box;       // of its ink, wherever it is cut off
    lv_area_t room;      // the part of it that can be seen, or scrolled to
    std::string missing; // letters that no font of the chain has
    std::string broken;  // the first word that goes on in the next line without a break
    s32 broken_width, line_width;
    bool dots;             // its end is replaced by dots
    lv_point_t needs, has; // sizes: of the whole text, and what it has of that
    bool symbols;          // it has nothing but symbols
    u8 opa;
    double contrast;            // 1 to 21, of nearly all of its ink; 0: not known
    std::map<size_t, u32> over; // texts below it, by their place in the list, with how many of their pixels are there
    review_ink_t ink;
};

// What is seen of an object.
struct review_seen_t {
    std::vector<std::pair<u32, u32>> before; // until it is complete: places in the picture, and what was there
    review_ink_t ink;                        // of the object and its children, samples
    lv_area_t key;                           // the smallest button of a button matrix
    bool has_key;
};

struct review_t {
    std::vector<u32> pixels; // 0x??RRGGBB
    s32 width, height;
    std::vector<review_text_t> texts; // in the order in which they are drawn
    std::map<const lv_obj_t *, review_seen_t> seen;
};

// Draws all layers. Main thread, outside of the drawing of LVGL.
review_t review_draw();

// player_review_room.cpp: returns the part of an area of `obj` that can be seen, or scrolled to; `own` if the object
// cuts it off as well, and not only its parents.
lv_area_t review_room(const lv_obj_t *obj, const lv_area_t *area, bool own);

// Returns true if `obj` is `outer` or in it.
bool review_inside(const lv_obj_t *obj, const lv_obj_t *outer);

// Sets `dots`, `needs` and `has`: as the text is drawn, or, if it ends in dots, for the lines of its label.
void review_sizes_take(review_text_t *text, const lv_draw_label_dsc_t *dsc);

// player_review_text.cpp: lays a text out as lv_draw_label does, without drawing it; for the observers of review_draw.
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
