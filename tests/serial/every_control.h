// A view with one control of each type that a host can address. The sweep over the command tables and the fuzzer of
// host frames share it: a new type is an id and a line here.
#ifndef EVERY_CONTROL_H
#define EVERY_CONTROL_H

#include "view_project.h"

enum { LABEL = 5, BTN, IMG, IMGBTN, LINE, ARC, BAR, SLIDER, SWITCH, CHECK_BOX, TILES, SPIN, TILE_A, TILE_B };
enum { LIST = TILE_B + 1, DROP, ROLLER, TABLE, MBOX, TXTBOX, KEYBOARD, MATRIX };
enum { GIF = 60, QR, VIDEO }; // a player only where a test installs a driver

// A style with a font file, so that text sizes can be changed; the caller supplies the file.
inline const std::string text_style = R"({"style_part": 0, "style_state": 0, "style_sect": 0,
                                          "txt_t": {"font_lib": "t.ttf", "font_size": 12, "opa": 255}})";

// Keys in `pub` are added to the common ones of each control.
inline std::vector<std::string> one_of_each(const std::string &pub = "\"pub\": 0") {
    const auto one = [&pub](u32 type, u32 id, const std::string &own, const std::string &place,
                            const std::string &styles = "") { return ctrl(type, id, own, pub + ", " + place, styles); };
    const auto tile = [&one](u32 id, u32 col) {
        return one(ZOF_CTRL_TILE, id, R"("col_id": )" + std::to_string(col) + R"(, "row_id": 0, "dir": 3)",
                   R"("parent_id": )" + std::to_string(TILES));
    };
    return {one(ZOF_CTRL_LABEL, LABEL, R"("auto_hight": 1, "txt": "#hello")", box(10, 20, 200, 30), text_style),
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
            tile(TILE_A, 0),
            tile(TILE_B, 1),
            one(ZOF_CTRL_GIF, GIF, R"("init_gif": "ever.gif", "play_en": true)", box(520, 0, 40, 30)),
            one(ZOF_CTRL_QRCODE, QR, R"("txt": "#hello", "bg_color": 16777215)", box(520, 40, 60, 60)),
            one(ZOF_CTRL_VIDEO, VIDEO, R"("volume": 128)", box(520, 120, 60, 60)),
            one(ZOF_CTRL_LIST, LIST, R"("btns_t": [{"txt": "first"}, {"txt": "second"}])", box(100, 180, 60, 60)),
            one(ZOF_CTRL_DROPLIST, DROP, R"("options": "one\ntwo")", box(170, 200, 60, 30)),
            one(ZOF_CTRL_ROLLIST, ROLLER, R"("options": "one\ntwo")", box(240, 190, 60, 40)),
            one(ZOF_CTRL_TABLE, TABLE, "", box(300, 0, 20, 20)),
            one(ZOF_CTRL_MBOX, MBOX, R"("title": "#hello", "txt": "t", "btn_txt": ["b", ""])", box(400, 0, 100, 60)),
            one(ZOF_CTRL_TXTBOX, TXTBOX, R"("init_txt": "text", "max_txt_len": 9)", box(400, 70, 100, 30)),
            one(ZOF_CTRL_KEYBOARD, KEYBOARD, R"("keyboard_spell": true, "mode": 3)", box(400, 110, 100, 60)),
            one(ZOF_CTRL_BTNMATRIX, MATRIX, R"("btnmatrix_txt": ["a", "\n", "b", ""])", box(400, 180, 100, 60))};
}

#endif
