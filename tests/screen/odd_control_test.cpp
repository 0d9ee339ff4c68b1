// Controls in a view file that are too long, too large, missing or wrong: each control that cannot be created is
// logged, the others are drawn, touched and deleted like any other.
#include "view_project.h"

static std::string times(u32 count, const std::string &text) {
    std::string out;
    for (u32 i = 0; i < count; i++) {
        out += text;
    }
    return out;
}

TEST_CASE("odd texts, maps, files and sizes of controls are reported or accepted") {
    const std::string map = times(3000, R"("a", "\n", )"), text = times(3000, "äb\\n"), many = times(5000, "7\\n");
    const std::string huge = box(10, 10, 2000000000, 2000000000), none = box(70, 60, 0, 0), small = box(0, 0, 60, 60);
    const std::string mbox = R"("title": ")" + text + R"(", "txt": ")" + text + R"(", "btn_txt": [)" + map + "\"x\"]";
    const std::string roll = R"("row_cnt": 255, "dir_t": 77, "rol_mode": 9, "options": ")" + many + "\"";
    const struct {
        u32 type;
        std::string own, pub, said;
    } rows[] = {
        {ZOF_CTRL_BTNMATRIX, R"("btnmatrix_txt": [)" + map + R"("", "after the end"])", small},
        {ZOF_CTRL_BTNMATRIX, R"("btnmatrix_txt": [)" + map + R"("\n"])", huge},
        {ZOF_CTRL_TXTBOX, R"("accept_txt": ")" + text + R"(", "pwd_mode_en": true, "init_txt": ")" + text + "\"", huge},
        {ZOF_CTRL_KEYBOARD, R"("keyboard_spell": true, "mode": 8, "popovers": true)", none,
         ".mode: 8 is not from 0 to 7; "},
        {ZOF_CTRL_KEYBOARD, R"("cn_font_lib": "../../none.ttf", "cn_font_size": 4294967295)", huge},
        {ZOF_CTRL_MBOX, mbox, huge},
        {ZOF_CTRL_LIST, R"("btns_t": [{}, {"image_num": "none.png"}, {"txt": "a"}])", none,
         "none.png: cannot be opened\n"},
        {ZOF_CTRL_DROPLIST, roll, small, ".dir_t: 77 is not from 0 to 8; "},
        {ZOF_CTRL_ROLLIST, roll, small, "only the first 4096 lines"},
        {ZOF_CTRL_ROLLIST, R"("options": "", "row_cnt": 1, "rol_mode": 1)", small},
        {ZOF_CTRL_TABLE, R"("row_cnt": 256, "col_cnt": 256)", small, ": 256 by 256 are too many cells"},
        {ZOF_CTRL_SCROLLCONT, R"("child_cnt": 1)", small,
         ": display_count is 0; a scroll container shows at least one item\nerr: "},
        {ZOF_CTRL_SCROLLCONT_OBJ, "", small, "err: create ctrl[c13,13] fail\n"}, // straight on the view
        {ZOF_CTRL_SKETCHPAD, "", box(0, 0, 0, 9), "a sketchpad has 1 to 2047 pixels on a side, not 0 x 9\n"},
        {ZOF_CTRL_SKETCHPAD, "", box(0, 0, 9, 100000), "not 9 x 100000\n"},
        {ZOF_CTRL_QRCODE, "", none, "a QR code is 1 to 2047 pixels high, not 0\n"},
        {ZOF_CTRL_ANIMIMG, R"("end_id": 3, "repeat_count": 9, "img_dsc_t": ")" + std::string(200, 'd') + "\"", small,
         "image sequence: the path of its folder is too long\n"},
        {ZOF_CTRL_ANIMIMG, R"("end_id": 3, "repeat_count": 9, "img_dsc_t": "none")", small,
         "image/none/0.png: cannot be opened\n"},
        {ZOF_CTRL_ANIMIMG, R"("end_id": 65535, "repeat_open": 1, "repeat_count": 1)", small,
         "image sequence: no folder is given\n"},
        {ZOF_CTRL_IMG, R"("init_img": "wide.png")", small, "image/wide.png: cannot be decoded"}, // once
        {ZOF_CTRL_IMG, R"("init_img": "wide.png")", small},
        {ZOF_CTRL_IMG, R"("init_img": "high.jpg")", small, "image/high.jpg: cannot be decoded"},
        {ZOF_CTRL_IMG, R"("init_img": "text.png")", small, "image/text.png: not a PNG picture\n"},
        {ZOF_CTRL_IMGBTN, R"("img_rel": "text.JPG")", small, "image/text.JPG: not a JPEG picture\n"},
        {ZOF_CTRL_IMG, R"("init_img": "cut.png")", small, "image/cut.png: cannot be decoded: damaged, or too large\n"},
        {ZOF_CTRL_TABLE, R"("row_cnt": 3, "col_cnt": 300)", box(0, 0, 100, 10)},
        {ZOF_CTRL_TABLE, R"("row_cnt": 2, "col_cnt": 2)", box(0, 100, 4194304, 10)},
    };
    view_project_t project;
    std::filesystem::copy(ZOF_MEDIA_DIR, project.path("image"), std::filesystem::copy_options::recursive);
    project.write("image/text.png", "\x89PN");
    project.write("image/text.JPG", "text");
    project.write("image/cut.png", file_text(project.path("image/kinds/RGB.png")).substr(0, 20));
    std::vector<std::string> controls;
    for (const auto &row : rows) {
        controls.push_back(ctrl(row.type, (u32)controls.size() + 1, row.own, row.pub));
    }
    std::string said = project.show(controls);
    said += printed([] { screen_step(1000); });
    for (const auto &row : rows) {
        CHECK_MESSAGE(contains(said, row.said), row.said);
    }
    CHECK(said.find("wide.png: cannot be decoded") == said.rfind("wide.png: cannot be decoded"));
    CHECK(zof_btnmatrix_get_btn_text(at(1), 3000) == nullptr);
    zof_btnmatrix_set_btn_ctrl_all(at(2), 0xFFFF);
    zof_keyboard_set_txtbox(at(5), at(3));
    zof_rollist_set_selected(at(9), 65535, 1);
    for (u32 id = (u32)controls.size(); id > 0; id--) {
        para_t *c = zof_ctrl_get_form_id(1, id);
        if (c && c->obj) {
            zof_ctrl_move_forground(c);
            zof_droplist_open(c);
            screen_step(50);
            screen_drag(20, 20, 200, 200, 3);
            screen_click(30, 30);
            CHECK(zof_ctrl_delete(c) == 0);
        }
    }
    screen_step(50);
}
