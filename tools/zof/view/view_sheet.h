// A contact sheet: a picture of each cell of a plan, with captions.
#ifndef VIEW_SHEET_H
#define VIEW_SHEET_H

#include "view_draw.h"
#include "view_walk.h"

struct view_sheet_t {
    view_image_t image;
    s32 cell_w, cell_h; // pixels of a picture on the sheet
    s32 width, height;  // of the project
};

view_sheet_t view_sheet(const view_plan_t &plan);

// Draws what a player shows. A view that cannot be shown leaves its cell empty.
void view_sheet_draw(view_sheet_t *sheet, view_player_t *player, const view_cell_t &cell);

// Marks a box of the project with a frame and a text.
void view_sheet_mark(view_sheet_t *sheet, const view_cell_t &cell, view_box_t box, const std::string &text, u32 color);

#endif
