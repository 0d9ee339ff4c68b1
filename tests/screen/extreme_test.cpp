// Every number of every control at the ends of its range: whatever a file says, the view is drawn, pressed and left.
#include "view_project.h"

#include "project/zof_j2s.h"

enum { RING_ID = 1 }; // the tile view that tiles are put into

// The dotted keys of a record's numbers.
static void numbers_of(const reflect_item_t *table, const std::string &before, std::vector<std::string> *keys) {
    for (; table->key; table++) {
        std::string key = before + table->key;
        if (table->type == CSON_OBJECT) {
            numbers_of(table->table, key + ".", keys);
        } else if (table->type == CSON_INTEGER && key != "pub_t.id" && key != "pub_t.parent_id") {
            keys->push_back(key);
        }
    }
}

static void number_put(cJSON *root, const std::string &key, double value) {
    const size_t dot = key.find('.');
    const std::string name = key.substr(0, dot);
    if (dot == std::string::npos) {
        cJSON_DeleteItemFromObject(root, name.c_str());
        cJSON_AddNumberToObject(root, name.c_str(), value);
        return;
    }
    cJSON *inner = cJSON_GetObjectItem(root, name.c_str());
    number_put(inner ? inner : cJSON_AddObjectToObject(root, name.c_str()), key.substr(dot + 1), value);
}

static std::string sound_control(u32 type, u32 id) {
    return ctrl(type, id,
                R"("txt": "some text", "minValue": 0, "maxValue": 50, "range_max": 50, "int_cnt": 3, "img_mode_e": 2,
                   "init_img": "a.png", "img_rel": "a.png", "pos_mode_e": 1, "know_dis_en": true, "dis_mode_e": 3,
                   "auto_hight": 1, "align_e": 34, "anim_time": 20, "range_t": {"maxValue": 50},
                   "angle_t": {"end_angle": 270}, "arc_t_main": {"width": 5, "opa": 255}, "count": 3, "dir": 3,
                   "arc_t_inc": {"width": 5, "opa": 255}, "dis_t": {"opa": 255}, "unlimited_scroll": 1, "start_id": 1,
                   "col_id": )" +
                    std::to_string(id % 3),
                (type == ZOF_CTRL_TILE ? R"("pub": true, "parent_id": 1, )" : R"("pub": true, )") +
                    box(10, 10, 200, 100),
                R"({"body_t": {"opa": 255, "border": {"opa": 255, "width": 1, "part": 15}}, "txt_t": {"opa": 255}})");
}

static std::string odd_control(u32 type, u32 id, const std::string &key, double value) {
    cJSON *root = cJSON_Parse(sound_control(type, id).c_str());
    cJSON *property = cJSON_GetObjectItem(root, "property");
    const bool style = key.rfind("styles.", 0) == 0;
    number_put(style ? cJSON_GetObjectItem(property, "styles")->child : property, style ? key.substr(7) : key, value);
    char *text = cJSON_PrintUnformatted(root);
    std::string out = text;
    cJSON_free(text);
    cJSON_Delete(root);
    return out;
}

TEST_CASE("no number of a control in a view file stops the panel") {
    static const double extremes[] = {-2147483648.0, -1, 0, 1, 255, 32767, 65535, 2147483646, 4294967295.0};
    view_project_t project;
    project.image("a.png", 20, 20, 0xFF0000);
    project.view(1, {});
    project.view(2, {});
    project.open(320, 240);
    u32 id = RING_ID + 1; // each control has an id of its own, as its record outlives it
    for (u32 type = 0; type < ZOF_CTRL_TYPE_COUNT; type++) {
        if (!zof_ctrl_classes[type].create) {
            continue;
        }
        std::vector<std::string> keys;
        numbers_of(get_ctrl_struct_reflect(type), "", &keys);
        if (type == ZOF_CTRL_LABEL || type == ZOF_CTRL_SLIDER) { // a style looks the same on the others
            numbers_of(zof_style_attr_t_tbl, "styles.", &keys);
        }
        for (const std::string &key : keys) {
            for (double value : extremes) {
                std::vector<std::string> controls(type == ZOF_CTRL_TILE, sound_control(ZOF_CTRL_TILEVIEW, RING_ID));
                for (u32 i = 0; i < (type == ZOF_CTRL_TILE ? 3 : 1); i++) {
                    controls.push_back(odd_control(type, id++, key, value));
                }
                project.view(1, controls);
                printed([] { // of some values it is said what is wrong with them
                    zof_view_set_dis_view(1);
                    screen_step(40);
                    screen_drag(50, 50, 200, 60, 3);
                    screen_step(40);
                    zof_view_set_dis_view(2);
                });
            }
        }
    }
    CHECK(zof_view_get_cur_id(ZOF_LAYER_UI) == 2);
}
