#include "view_sheet.h"

#include <algorithm>

enum { CELL_MAX = 480, GAP = 16, CAPTION = 26, LETTERS = 17, CAPTION_DOWN = (CAPTION - LETTERS) / 2 };
enum : u32 { PAPER = 0x1B1E23, INK = 0xC8CDD4, WHITE = 0xFFFFFF };

view_sheet_t view_sheet(const view_plan_t &plan) {
    view_sheet_t sheet = {.width = plan.width, .height = plan.height};
    sheet.cell_w = std::min(plan.width, (s32)CELL_MAX);
    sheet.cell_h = plan.height * sheet.cell_w / plan.width;
    const s32 columns = (s32)(plan.languages.size() * plan.themes.size());
    sheet.image = view_image(columns * (sheet.cell_w + GAP) + GAP,
                             (s32)plan.views.size() * (sheet.cell_h + CAPTION + GAP) + GAP, PAPER);
    return sheet;
}

static view_box_t cell_box(const view_sheet_t *sheet, const view_cell_t &cell) {
    return {GAP + (s32)cell.column * (sheet->cell_w + GAP),
            GAP + (s32)cell.row * (sheet->cell_h + CAPTION + GAP) + CAPTION, sheet->cell_w, sheet->cell_h};
}

void view_sheet_draw(view_sheet_t *sheet, view_player_t *player, const view_cell_t &cell) {
    view_image_t image;
    const view_box_t box = cell_box(sheet, cell);
    const std::string caption =
        cell.view + (cell.language.empty() ? "" : "  " + cell.language) + (cell.theme.empty() ? "" : "  " + cell.theme);
    view_text(&sheet->image, box.x, box.y - CAPTION + CAPTION_DOWN, caption, INK);
    if (cell.shown && view_player_picture(player, &image.pixels, &image.width, &image.height)) {
        view_copy(&sheet->image, box, image);
    } else {
        view_frame(&sheet->image, box, INK, 1);
    }
}

// The frame is clipped to the cell. The text stands above it, or inside of it at the upper edge of the cell.
void view_sheet_mark(view_sheet_t *sheet, const view_cell_t &cell, view_box_t box, const std::string &text, u32 color) {
    const view_box_t in = cell_box(sheet, cell);
    const s32 left = std::clamp(box.x * sheet->cell_w / sheet->width, 2, in.w - 6);
    const s32 top = std::clamp(box.y * sheet->cell_h / sheet->height, 2, in.h - 6);
    const s32 right = std::clamp((box.x + box.w) * sheet->cell_w / sheet->width, left + 3, in.w - 2);
    const s32 bottom = std::clamp((box.y + box.h) * sheet->cell_h / sheet->height, top + 3, in.h - 2);
    view_frame(&sheet->image, {in.x + left, in.y + top, right - left, bottom - top}, color, 2);
    const s32 x = in.x + std::min(left, in.w - view_text_width(text) - 4);
    const s32 y = in.y + std::max(top - LETTERS - 2, 0);
    view_fill(&sheet->image, {x - 2, y, view_text_width(text) + 4, LETTERS}, color, 255);
    view_text(&sheet->image, x, y, text, WHITE);
}
