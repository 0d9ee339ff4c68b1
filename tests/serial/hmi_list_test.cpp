// What hosts may send to lists and tables beyond what the sweep over all rows tries: ends, refusals, and lists that are
// open meanwhile.
#include "zof_test.h"

#include "hmi/zof_hmi_analys.h"
#include "hmi_panel.h"

enum { LIST = 5, DROP, ROLLER, TABLE, LABEL };

static lv_obj_t *obj(u32 id) {
    return at(id)->obj;
}

static void lists_up(panel &p) {
    panel_up(
        p, "", "",
        {ctrl(ZOF_CTRL_LIST, LIST, R"("btns_t": [{"txt": "#hello"}, {"txt": "b"}])", box(0, 0, 90, 90)),
         ctrl(ZOF_CTRL_DROPLIST, DROP, R"("options": "#hello\nb")", box(100, 0, 90, 40)),
         ctrl(ZOF_CTRL_ROLLIST, ROLLER, R"("options": "#hello\nb", "rol_mode": 1, "row_cnt": 3)", box(200, 0, 90, 90)),
         ctrl(ZOF_CTRL_TABLE, TABLE, R"("row_cnt": 2, "col_cnt": 2)", box(0, 100, 160, 40)),
         ctrl(ZOF_CTRL_LABEL, LABEL)});
}

// Waits until all that was sent is done: a read comes back behind it. The byte ahead is the one that is lost where a
// frame follows another without a silence.
static void settle(panel &p) {
    bytes read = get({0xB1, 0x06});
    read.insert(read.begin(), 0);
    answers(p, read, get({0xB1, 0x06, 1, 64, 0, 240}));
}

// A write to a control of view 1, and the acknowledgement that it leaves; 77 for none.
static s8 write(panel &p, u8 type, u32 id, const bytes &tail) {
    bytes payload = {0xB2, type, tail[0], 0, 1, 0, (u8)id};
    payload.insert(payload.end(), tail.begin() + 1, tail.end());
    s8 *acknowledgement = (s8 *)ui_cmd_analys->reply_param;
    *acknowledgement = 77;
    pty_write(p.pty, set(payload));
    settle(p);
    return *acknowledgement;
}

TEST_CASE("host lists: what is not there changes nothing, and a wrong selector is refused") {
    panel p;
    lists_up(p);
    struct {
        u8 type;
        u32 id;
        bytes tail;
        s8 says;
    } rows[] = {
        {0x0D, LIST, {0x00, 0, 2}, 77},
        {0x0D, LIST, {0x02, 0xFF, 0xFF, 'x', 0}, 77},
        {0x0D, DROP, {0x01, 0}, 77}, // another type
        {0x0E, DROP, {0x01, 0, 3, 'x', 0}, 77},
        {0x0E, DROP, {0x01, 0, 2, 'x', 0}, 77}, // as many as there are is one too far as well
        {0x0E, DROP, {0x02, 0, 2}, 77},
        {0x0E, DROP, {0x03, 2}, 1},
        {0x0F, ROLLER, {0x02, 0xFF, 0xFF}, 77},
        {0x0F, LABEL, {0x00, 0, 0, 'x', 0}, 77},
        {0x15, TABLE, {0x00, 0xFF, 0xFF, 0, 0, 'x', 0}, 77}, // more cells than a table has
        {0x15, TABLE, {0x01, 0xFF, 0xFF, 0, 9}, 77},
        {0x15, TABLE, {0x02, 0x7F, 0xFF, 0, 9}, 77},
    };
    for (const auto &row : rows) {
        CAPTURE(row.type);
        CAPTURE(row.tail[0]);
        CHECK(write(p, row.type, row.id, row.tail) == row.says);
    }
    CHECK(lv_obj_get_child_cnt(obj(LIST)) == 2);
    CHECK(std::string(lv_dropdown_get_options(obj(DROP))) == "hello\nb");
    CHECK(!lv_dropdown_is_open(obj(DROP)));
    CHECK(lv_roller_get_option_cnt(obj(ROLLER)) == 2);
    CHECK(lv_table_get_row_cnt(obj(TABLE)) == 2);
    pty_write(p.pty, get({0xB2, 0x0D, 0x02, 0, 1, 0, LIST, 0, 9})); // the text of no button
    settle(p);                                                      // no answer to it comes ahead
}

TEST_CASE("host lists: options change under an open list, and everything follows the language") {
    panel p;
    lists_up(p);
    CHECK(write(p, 0x0E, DROP, {0x03, 1}) == 0);
    CHECK(write(p, 0x0E, DROP, {0x00, 0, 9, '#', 'h', 'e', 'l', 'l', 'o', 0}) == 1);
    CHECK(write(p, 0x0F, ROLLER, {0x01, 0, 1, '#', 'h', 'e', 'l', 'l', 'o', 0}) == 1);
    CHECK(write(p, 0x0D, LIST, {0x02, 0, 1, '#', 'h', 'e', 'l', 'l', 'o', 0}) == 1);
    pty_write(p.pty, set({0xB0, 0x07, 0x00, 'd', 'e', 0}));
    settle(p);
    CHECK(std::string(lv_dropdown_get_options(obj(DROP))) == "hallo\nb\nhallo");
    lv_obj_t *open_list = lv_dropdown_get_list(obj(DROP));
    CHECK(std::string(lv_label_get_text(lv_obj_get_child(open_list, 0))) == "hallo\nb\nhallo");
    CHECK(std::string(zof_list_get_index_str(at(LIST), 1)) == "hallo");
    char text[16];
    CHECK(zof_rollist_set_selected(at(ROLLER), 1, 0) == 0);
    CHECK(zof_rollist_get_selected_str(at(ROLLER), text, sizeof(text)) == 0);
    CHECK(std::string(text) == "hallo");
    CHECK(write(p, 0x0E, DROP, {0x02, 0, 0}) == 1);
    CHECK(write(p, 0x0E, DROP, {0x02, 0, 0}) == 1);
    CHECK(write(p, 0x0E, DROP, {0x02, 0, 0}) == 77); // the last one stays to be seen
    CHECK(std::string(lv_dropdown_get_options(obj(DROP))) == "hallo");
}
