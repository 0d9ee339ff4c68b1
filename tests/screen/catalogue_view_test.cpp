// New controls of all types, made of the catalogue's start values, are created without a fault; those that are made to
// be touched do nothing without `t_mode`; and they send no event that the catalogue does not name.
#include "port/zof_port.h"
#include "view_project.h"

#include "catalogue/zof_cat.h"

// What a key of a new control has, with a file in place of one that the user must choose; "" for a key that it lacks.
static std::string start_value(const zof_cat_key_t *key);

static std::string start_values(const zof_cat_record_t *record) {
    std::string text;
    for (u32 i = 0; i < record->count; i++) {
        const std::string value = start_value(&record->keys[i]);
        if (!value.empty()) {
            text += (text.empty() ? "\"" : ", \"") + str(record->keys[i].key) + "\": " + value;
        }
    }
    return text;
}

static std::string start_value(const zof_cat_key_t *key) {
    if (key->flags & ZOF_CAT_NEEDED && key->kind == ZOF_CAT_PICTURE) {
        return str(key->key) == "init_gif" ? "\"p.gif\"" : "\"1.png\"";
    }
    if (key->kind == ZOF_CAT_FOLDER) {
        return "\".\"";
    }
    return !key->start                              ? ""
           : key->record && str(key->start) == "{}" ? "{" + start_values(key->record) + "}"
                                                    : key->start;
}

enum { COLUMN = 500, ROW = 210, COLUMNS = 4, HIT_TEST = 17 }; // LVGL asks a control whether a point is on it

static lv_point_t place_of(u32 type) {
    return {(lv_coord_t)(type % COLUMNS * COLUMN + 10), (lv_coord_t)(type / COLUMNS * ROW + 5)};
}

static u32 parent_of(u32 type) {
    return type == ZOF_CTRL_TILE             ? ZOF_CTRL_TILEVIEW + 1
           : type == ZOF_CTRL_SCROLLCONT_OBJ ? ZOF_CTRL_SCROLLCONT + 1
                                             : 0;
}

static std::string new_control(const zof_cat_type_t &type, const char *touch) {
    const u32 parent = parent_of(type.type);
    const lv_point_t place = parent ? lv_point_t{0, 0} : place_of(type.type);
    const std::string own = start_values(type.record);
    return form(R"({"type": "%s", "theme": "", "property": {"pub_t": {"alpha": 255, "id": %u, "parent_id": %u,
        "t_mode": "%s", "pt": {"x": %d, "y": %d}, "size": {"width": %d, "height": %d}}%s}})",
                type.name, type.type + 1, parent, touch, place.x, place.y, type.width, type.height,
                own.empty() ? "" : (", " + own).c_str());
}

static void view_show(view_project_t &project, const char *touch) {
    std::vector<std::string> controls;
    for (const zof_cat_type_t &type : zof_cat_types) {
        controls.push_back(new_control(type, touch));
        ctrl_funs.push_back({type.type + 1, on_event});
    }
    project.image("1.png", 60, 40, 0xFF0000);
    std::filesystem::copy_file(ZOF_MEDIA_DIR "/ever.gif", project.path("image/p.gif"));
    project.view(1, controls);
    win_video_init();
    CHECK(printed([&] {
              project.open(COLUMNS * COLUMN, 1700);
              zof_view_set_dis_view(1);
          }) == "");
}

// The events of a type that the catalogue does not name.
static std::string unnamed(const zof_cat_type_t &type, const std::string &sent) {
    static const std::string header = file_text(ZOF_SOURCE_DIR "/zof_src/project/base/zof_event.h");
    std::istringstream words(sent);
    std::string out;
    for (std::string word; words >> word;) {
        const std::string code = word.substr(word.find(':') + 1);
        bool named = code == std::to_string(HIT_TEST) || atoi(word.c_str()) != (int)type.type + 1;
        for (const char *const *event = type.events; *event; event++) {
            named = named || contains(header, str(*event) + " = " + code + ",");
        }
        out += named ? "" : " " + word;
    }
    return out;
}

// Taps each type that takes touches; the names of those whose program has not heard of it.
static std::string dead(const char *touch) {
    view_project_t project;
    view_show(project, touch);
    std::string names;
    for (const zof_cat_type_t &type : zof_cat_types) {
        at(type.type + 1);
        taken(events);
        const lv_point_t place = place_of(parent_of(type.type) ? parent_of(type.type) - 1 : type.type);
        screen_click(place.x + type.width / 4, place.y + type.height / 2);
        screen_step(600);
        const std::string sent = taken(events);
        CAPTURE(str(type.name));
        CHECK(unnamed(type, sent) == "");
        names += type.touch && !contains(sent, form(" %u:%d", type.type + 1, ZOF_EVENT_CLICKED)) ? str(type.name) + ", "
                                                                                                 : "";
        screen_click(COLUMNS * COLUMN - 2, 1698); // closes an open list
    }
    return names;
}

TEST_CASE("a new control of every type is created without a fault, and takes touches if it is made for them") {
    CHECK(dead("touch") == "");
}

TEST_CASE("a new control that is made to be touched is dead without touches") {
    CHECK(dead("pass") == "button, image button, slider, switch, check box, text box, drop list, roller, keyboard, "
                          "sketch pad, button matrix, ");
}
