// Names and colours that files may have in place of numbers.
#include "temp_project.h"

#include <algorithm>
#include <cstring>

static const zof_name_t kinds[] = {{"off", 0}, {"upper case", 2}, {"capitals", 2}, {"far", -7}, ZOF_NAMES_END};
static const zof_name_t sides[] = {{"none", 0},       {"left", 1}, {"right", 2}, {"up", 4},
                                   {"horizontal", 3}, {"all", 15}, ZOF_NAMES_END};

TEST_CASE("names are read without regard to case, alone or as a sum, and invalid ones leave the value") {
    static const struct {
        const char *text;
        s64 alone, sum; // 99: refused
    } rows[] = {
        {"off", 0, 99},          {"Upper Case", 2, 99},      {"capitals", 2, 99},    {"far", -7, 99},
        {"upper  case", 99, 99}, {"upper", 99, 99},          {"offf", 99, 99},       {"", 99, 99},
        {"none", 99, 0},         {"left+UP", 99, 5},         {" left + up ", 99, 5}, {"left up", 99, 5},
        {"left+left", 99, 1},    {"left+horizontal", 99, 3}, {"left+", 99, 99},      {"+left", 99, 99},
        {"left++up", 99, 99},    {"left,up", 99, 99},        {"5", 99, 99},
    };
    for (const auto &row : rows) {
        CAPTURE(str(row.text));
        s64 alone = 99;
        s64 sum = 99;
        CHECK(zof_names_read(kinds, ZOF_FALSE, row.text, &alone) == (row.alone == 99 ? -1 : 0));
        CHECK(zof_names_read(sides, ZOF_TRUE, row.text, &sum) == (row.sum == 99 ? -1 : 0));
        CHECK((alone == row.alone && sum == row.sum));
    }
}

TEST_CASE("numbers are written with their first name, sums with whole names before single ones") {
    static const struct {
        bool sum;
        s64 value;
        size_t size;
        const char *want; // null: no name
    } rows[] = {
        {false, 2, 32, "upper case"}, {false, -7, 32, "far"},   {false, 1, 32, nullptr}, {true, 0, 32, "none"},
        {true, 3, 32, "horizontal"},  {true, 5, 32, "left+up"}, {true, 15, 32, "all"},   {true, 8, 32, nullptr},
        {true, 5, 8, "left+up"},      {true, 5, 7, nullptr},    {true, 5, 0, nullptr},   {false, 2, 10, nullptr},
    };
    for (const auto &row : rows) {
        CAPTURE(row.value);
        char text[32] = "before";
        const s32 length = zof_names_write(row.sum ? sides : kinds, row.sum, row.value, text, row.size);
        CHECK(length == (row.want ? (s32)strlen(row.want) : -1));
        CHECK(std::string(text) == (row.want ? row.want : row.size ? "" : "before"));
    }
    char list[40];
    zof_names_list(kinds, list, sizeof list);
    CHECK(std::string(list) == "off, upper case, far");
}

TEST_CASE("colours are a number sign and three or six digits") {
    s64 color = 7;
    CHECK((zof_color_read("#D9863d", &color) == 0 && color == 0xD9863D));
    CHECK((zof_color_read("#f0A", &color) == 0 && color == 0xFF00AA));
    for (const char *text : {"", "#", "#12", "#1234", "#12345", "#1234567", "#12345g", "123456", "# 12345", "0x1234"}) {
        CAPTURE(str(text));
        CHECK((zof_color_read(text, &color) == -1 && color == 0xFF00AA));
    }
}

// Decodes an object with one member and returns the bytes of the record.
static std::string decoded(const reflect_item_t *table, const std::string &key, const std::string &value) {
    char record[2048] = {};
    cJSON *json = cJSON_Parse(("{\"" + key + "\": " + value + "}").c_str());
    CHECK(printed([&] { csonJsonStr2Struct(json, record, table); }) == "");
    cJSON_Delete(json);
    return {record, sizeof record};
}

static u32 names_check(const reflect_item_t *table) {
    u32 count = 0;
    for (; table->key; table++) {
        if (table->type == CSON_OBJECT) {
            count += names_check(table->table);
        }
        const size_t values = table->flags >> CSON_VALUES_SHIFT;
        const bool sum = table->flags & CSON_ADDS;
        for (const zof_name_t *name = table->names; name && name->name; name++, count++) {
            CAPTURE(str(table->key));
            CAPTURE(str(name->name));
            CHECK((!values || (name->value >= 0 && (u64)name->value < values)));
            CHECK((!sum || !strpbrk(name->name, " +")));
            const reflect_item_t row[] = {*table, CSON_END};
            CHECK(decoded(row, table->key, std::string("\"") + name->name + "\"") ==
                  decoded(row, table->key, std::to_string(name->value)));
        }
    }
    return count;
}

TEST_CASE("every name of every key decodes as its number") {
    u32 count = names_check(zof_prj_attr_t_tbl) + names_check(zof_hmi_attr_t_tbl) + names_check(zof_view_attr_t_tbl) +
                names_check(zof_style_attr_t_tbl) + names_check(zof_entry_t_tbl);
    for (const zof_ctrl_class_t *row : zof_ctrl_classes) {
        count += names_check(row->attr);
        s64 type = -1;
        CHECK((csonTextRead(zof_entry_t_tbl, row->name, &type) == 0 && type == row->type)); // of its theme files
    }
    CHECK(count > 1000); // all types have the common keys
}

static const char *const head = R"(, "theme": "youth", "property": {"pub_t": {"id": 1, )";

// The only control of a view, with what was logged.
static zof_pub_attr_t *control_of(const temp_project_t &project, const std::string &entry, std::string *log) {
    project.write("config/view/one.g", R"({"view": {"v_id": 1}, "controls": [)" + entry + "]}");
    zof_pub_attr_t *record = nullptr;
    *log = printed([&] {
        u32 id = 0;
        REQUIRE(zof_j2s_ctrl_start(project.path("config/view/one.g").c_str()) == 0);
        record = zof_j2s_ctrl_get_para(&id, &id) == 0 ? zof_j2s_ctrl_get() : nullptr;
        zof_j2s_ctrl_end();
    });
    return record;
}

TEST_CASE("a view with names decodes like one with numbers, and unknown names are reported with the allowed ones") {
    temp_project_t project;
    REQUIRE(project.open());
    project.write("config/theme/youth/button.g",
                  R"({"styles": [{"style_part": "items", "style_state": "pressed+checked",
        "body_t": {"main_color": "#102030", "radius": 5}}]})");
    std::string log;
    zof_pub_attr_t *record = control_of(project, std::string(R"({"type": "Button")") + head + R"("t_mode": "touch"},
        "mode": "toggle", "styles": [{"style_part": 327680, "style_state": 33, "body_t": {"grad_color": "#fff",
        "border": {"part": "top+left"}}}, {"style_part": "item", "body_t": {"main_color": "red"}}]}})",
                                        &log);
    REQUIRE(record);
    CHECK((record->ctrl_type == ZOF_CTRL_BTN && record->t_mode == 1 && ((zof_btn_attr_t *)record)->mode == 1));
    REQUIRE(record->style_num == 2);
    const zof_body_dis_t *body = &record->style_list[0]->body_t; // over the theme's
    CHECK((body->main_color == 0x102030 && body->radius == 5 && body->grad_color == 0xFFFFFF));
    CHECK(body->border.part == 6);
    CHECK((record->style_list[1]->style_part == 0 && record->style_list[1]->body_t.main_color == 0));
    CHECK(contains(log, "styles[1].style_part: unknown name; did you mean items?\n"));
    CHECK(contains(
        log, "main_color: a colour is \"#RRGGBB\" or \"#RGB\", in hexadecimal digits, or \"$name\"; the default"));
    CHECK(std::count(log.begin(), log.end(), '\n') == 2);
    zof_j2s_ctrl_delete(record, ZOF_CTRL_BTN);

    CHECK(!control_of(project, std::string(R"({"type": "knopf")") + head + R"("t_mode": "press"}}})", &log));
    CHECK(contains(log, "one.g:1:37: controls[0].type: unknown name; the names are label, button, "));
    CHECK(contains(log, ", scroll item; it is left out\n"));
}
