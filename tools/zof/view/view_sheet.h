// A contact sheet: one picture per cell of a plan, with captions.
#ifndef VIEW_SHEET_H
#define VIEW_SHEET_H

#include "view_draw.h"
#include "view_walk.h"

struct view_sheet_t {
    view_image_t image;
    s32 cell_w, cell_h; // size of a picture on the sheet, in pixels
    s32 width, height;  // of the project
};

view_sheet_t view_sheet(const view_plan_t &plan);

// Draws the picture of a player. The cell of a view that cannot be shown stays empty.
void view_sheet_draw(view_sheet_t *sheet, view_player_t *player, const view_cell_t &cell);

// Marks an area, in the coordinates of the project, with a frame and a text.
void view_sheet_mark(view_sheet_t *sheet, const view_cell_t &cell, view_box_t box, const std::string &text, u32 color);

#endif
