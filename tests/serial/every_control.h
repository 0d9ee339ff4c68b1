// A view with one control of each type. The sweep over the command tables, the tests of lifetimes and the fuzzers of
// host frames share it: a new type is an id and a line here.
#ifndef EVERY_CONTROL_H
#define EVERY_CONTROL_H

#include "view_project.h"

enum { LABEL = 5, BTN, IMG, IMGBTN, LINE, ARC, BAR, SLIDER, SWITCH, CHECK_BOX, TILES, SPIN, TILE_A, TILE_B };
enum { LIST = TILE_B + 1, DROP, ROLLER, TABLE, MBOX, TXTBOX, KEYBOARD, MATRIX };
enum { GIF = MATRIX + 1, QR, VIDEO, CHART, SEQUENCE, PAD, WHEEL, ITEM_A, ITEM_B, CONTAINER, INNER, RING };
enum { RING_A = RING + 1, RING_B, RING_C, END };
// A style with a font file, so that text sizes can be changed.
inline const std::string text_style = R"({"style_part": 0, "style_state": 0, "style_sect": 0,
                                          "txt_t": {"font_lib": "t.ttf", "font_size": 12, "opa": 255}})";

// Writes the files that the controls name, and two languages.
inline void files_of_each(view_project_t &project) {
    project.more += R"(, "language": "en")";
    project.write("config/languages/en.g", R"({"hello": "hello"})");
    project.write("config/languages/de.g", R"({"hello": "a longer hello"})");
    project.image("red.png", 20, 20, 0xFF0000);
    project.image("blue.png", 20, 20, 0x0000FF);
    project.write("font/t.ttf", file_text("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf"));
}

// Keys in `pub` are added to the common ones of each control. For a panel of 640 x 240; hosts test the left half.
inline std::vector<std::string> one_of_each(const std::string &pub = "\"pub\": 0") {
    const auto one = [&pub](u32 type, u32 id, const std::string &own, const std::string &place,
                            const std::string &styles = "") { return ctrl(type, id, own, pub + ", " + place, styles); };
    const auto within = [&one](u32 type, u32 parent, u32 id, const std::string &own) {
        return one(type, id, own, form(R"("parent_id": %u)", parent));
    };
    const auto tile = [&within](u32 parent, u32 id, u32 col) {
        return within(ZOF_CTRL_TILE, parent, id, form(R"("col_id": %u, "row_id": 0, "dir": 3)", col));
    };
    return {
        one(ZOF_CTRL_LABEL, LABEL, R"("auto_hight": 1, "txt": "#hello")", box(10, 20, 200, 30), text_style),
        one(ZOF_CTRL_BTN, BTN, R"("txt": "b")", box(0, 60, 80, 30), text_style),
        one(ZOF_CTRL_IMG, IMG, R"("init_img": "red.png")", box(200, 60, 20, 20)),
        one(ZOF_CTRL_IMGBTN, IMGBTN, R"("img_rel": "red.png", "txt": "i")", box(240, 60, 20, 20), text_style),
        one(ZOF_CTRL_LINE, LINE, "", box(0, 100, 50, 10)),
        one(ZOF_CTRL_ARC, ARC, R"("range_t": {"minValue": 0, "maxValue": 100}, "know_dis_en": true)",
            box(0, 120, 60, 60)),
        one(ZOF_CTRL_BAR, BAR, R"("minValue": 0, "maxValue": 100)", box(80, 120, 60, 10)),
        one(ZOF_CTRL_SLIDER, SLIDER, R"("minValue": 0, "maxValue": 100)", box(80, 140, 60, 10)),
        one(ZOF_CTRL_SW, SWITCH, "", box(160, 120, 60, 30)),
        one(ZOF_CTRL_CB, CHECK_BOX, R"("txt": "c")", box(160, 160, 60, 30)),
        one(ZOF_CTRL_TILEVIEW, TILES, R"("anim_time": 0, "count": 2)", box(240, 120, 60, 60), "{}"),
        one(ZOF_CTRL_SPINBOX, SPIN, R"("range_min": -999, "range_max": 999, "int_cnt": 3, "step": 1)",
            box(0, 190, 100, 40)),
        tile(TILES, TILE_A, 0),
        tile(TILES, TILE_B, 1),
        one(ZOF_CTRL_GIF, GIF, R"("init_gif": "ever.gif", "play_en": true)", box(520, 0, 40, 30)),
        one(ZOF_CTRL_QRCODE, QR, R"("txt": "#hello", "bg_color": 16777215)", box(520, 40, 60, 60)),
        one(ZOF_CTRL_VIDEO, VIDEO, R"("volume": 128)", box(520, 120, 60, 60)),
        one(ZOF_CTRL_LIST, LIST, R"("btns_t": [{"txt": "first"}, {"txt": "second"}])", box(100, 180, 60, 60)),
        one(ZOF_CTRL_DROPLIST, DROP, R"("options": "one\ntwo")", box(170, 200, 60, 30)),
        one(ZOF_CTRL_ROLLIST, ROLLER, R"("options": "one\ntwo")", box(240, 190, 60, 40)),
        one(ZOF_CTRL_TABLE, TABLE, "", box(300, 0, 20, 20)),
        one(ZOF_CTRL_MBOX, MBOX, R"("title": "#hello", "txt": "t", "btn_txt": ["b", ""])", box(400, 0, 100, 60)),
        one(ZOF_CTRL_TXTBOX, TXTBOX, R"("init_txt": "text", "max_txt_len": 99)", box(400, 70, 60, 30)),
        one(ZOF_CTRL_KEYBOARD, KEYBOARD, R"("keyboard_spell": true, "mode": 3)", box(400, 110, 100, 60)),
        one(ZOF_CTRL_BTNMATRIX, MATRIX, R"("btnmatrix_txt": ["a", "\n", "b", ""])", box(400, 180, 100, 60)),
        one(ZOF_CTRL_CHART, CHART, R"("dis_type_e": 3, "point_cnt": 5, "y_max": 9)", box(320, 60, 60, 60)),
        one(ZOF_CTRL_ANIMIMG, SEQUENCE, R"("img_dsc_t": "png", "frame_rate": 20, "end_id": 3, "repeat_count": 9)",
            box(320, 130, 1, 1)),
        one(ZOF_CTRL_SKETCHPAD, PAD, R"("toolbar": 1, "line_width": 3)", box(320, 190, 60, 50)),
        one(ZOF_CTRL_SCROLLCONT, WHEEL, R"("child_cnt": 2, "display_count": 1)",
            box(560, 180, 80, 50) + R"(, "scrollbar_t": {"dir_e": 3})"),
        within(ZOF_CTRL_SCROLLCONT_OBJ, WHEEL, ITEM_A, ""),
        within(ZOF_CTRL_SCROLLCONT_OBJ, WHEEL, ITEM_B, R"("create_num": 1)"),
        one(ZOF_CTRL_OBJ, CONTAINER, "", box(580, 0, 60, 60) + R"(, "scrollbar_t": {"dir_e": 15})"),
        one(ZOF_CTRL_BTN, INNER, R"("txt": "far")", box(10, 10, 300, 300) + form(R"(, "parent_id": %u)", CONTAINER)),
        one(ZOF_CTRL_TILEVIEW, RING, R"("anim_time": 0, "count": 3, "start_id": 1, "unlimited_scroll": 1)",
            box(580, 70, 60, 60)),
        tile(RING, RING_A, 0),
        tile(RING, RING_B, 1),
        tile(RING, RING_C, 2)};
}

#endif
