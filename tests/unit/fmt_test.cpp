// Names in place of numbers: every file of the projects in this tree keeps its meaning, and its layout.
#include <filesystem>

#include "check/zof_fmt.h"
#include "project/read/zof_j2s.h"
#include "temp_project.h"
#include "zof_test.h"

static std::string converted(const std::string &path, const std::string &text, bool names) {
    size_t size = 0;
    char *made = zof_fmt(path.c_str(), text.data(), text.size(), names, &size);
    const std::string out = made ? std::string(made, size) : "refused";
    zof_free(made);
    return out;
}

// The record of each control of a view, as JSON with numbers alone.
static std::string records_of(const std::string &text) {
    cJSON *root = cJSON_Parse(text.c_str());
    std::string out;
    const cJSON *entry = nullptr;
    cJSON_ArrayForEach(entry, cJSON_GetObjectItem(root, "controls")) {
        const cJSON *type = cJSON_GetObjectItem(entry, "type");
        s64 number = type ? type->valueint : 0;
        REQUIRE((!cJSON_IsString(type) || csonTextRead(zof_entry_t_tbl, type->valuestring, &number) == 0));
        const zof_ctrl_class_t *row = zof_ctrl_classes[number];
        std::vector<u64> record(row->attr_size / sizeof(u64) + 1);
        csonJsonStr2Struct(cJSON_GetObjectItem(entry, "property"), record.data(), row->attr);
        char *json = nullptr;
        csonStruct2JsonStr(&json, record.data(), row->attr);
        out += std::to_string(number) + (json ? json : "") + "\n";
        cJSON_free(json);
        csonFreePointer(record.data(), row->attr);
    }
    cJSON_Delete(root);
    return out;
}

TEST_CASE("every project file in the tree keeps its meaning with names, and converts back to the same bytes") {
    u32 files = 0, named = 0;
    for (const char *folder : {ZOF_PANEL_DIR "/res", ZOF_GALLERY_DIR "/res", ZOF_SOURCE_DIR "/examples/blank/res"}) {
        for (const auto &entry : std::filesystem::recursive_directory_iterator(std::string(folder) + "/config")) {
            const std::string path = entry.path().generic_string();
            if (!entry.is_regular_file() || contains(path, "/languages/")) {
                continue;
            }
            CAPTURE(path);
            const std::string numbers = converted(path, file_text(path), false), names = converted(path, numbers, true);
            CHECK(converted(path, names, false) == numbers);
            CHECK(converted(path, names, true) == names);
            std::string before, after;
            printed([&] { // absent texts are logged
                before = records_of(numbers);
                after = records_of(names);
            });
            CHECK(before == after);
            files++;
            named += names != numbers;
        }
    }
    CHECK((files > 70 && named > 60));
}

TEST_CASE("only values that have a name change, and other files are left alone") {
    const char path[] = "x/config/view/a.g";
    CHECK(converted(path,
                    R"({ "View":{"bg_color" : 255,"layer":9}, "controls":[{"type":1.0, "property":{"mode":0.5,"x":1,
 "pub_t": {"t_mode":1, "id":1}, "styles":[{"style_state":33, "body_t":{"main_color":4294967295}}]}}] } )",
                    true) ==
          R"({ "View":{"bg_color" : "#0000FF","layer":9}, "controls":[{"type":"button", "property":{"mode":0.5,"x":1,
 "pub_t": {"t_mode":"touch", "id":1}, "styles":[{"style_state":"checked+pressed", "body_t":{"main_color":4294967295}}]}}] } )");
    CHECK(converted(path, R"({"controls": [{"type": "button", "property": {"mode": "none", "txt": "touch"}}]})",
                    false) == R"({"controls": [{"type": 1, "property": {"mode": "none", "txt": "touch"}}]})");
    CHECK(converted(path, "{", true) == "refused");
    CHECK(converted("config/languages/en.g", R"({"type": 1})", true) == R"({"type": 1})");
    CHECK(converted("config/icons.g", R"({"cafe": "U+E000"})", false) == R"({"cafe": "U+E000"})");
    CHECK(converted("image/en.g", "{}", true) == "refused");
}
