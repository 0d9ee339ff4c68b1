// Thousands of random edits by `zof design`: of views in all layouts, where each diff is what was meant, and of damaged
// files, where nothing breaks.
#include <algorithm>
#include <cstring>
#include <random>

#include "check/zof_check.h"
#include "check/zof_fmt.h"
#include "design_text.h"
#include "temp_project.h"
#include "zof_lib/zof_jdoc.h"
#include "zof_test.h"

// Not on the medium after each of thousands of edits.
extern "C" s32 __wrap_zof_file_finish(FILE *f) {
    return fclose(f) == 0 ? 0 : -1;
}

static std::mt19937 dice;

static u32 up_to(u32 most) {
    return std::uniform_int_distribution<u32>(0, most)(dice);
}

static std::string index_of(u32 control) {
    return "controls[" + std::to_string(control) + "]";
}

// A view of boxes, buttons and labels.
static std::string view_make(u32 count) {
    std::string out = "{\n  \"view\": {\"v_name\": \"made\", \"v_id\": 1, \"bg_scale\": 255},\n  \"controls\": [\n";
    for (u32 i = 0; i < count; i++) {
        const std::string id = std::to_string(i + 1);
        out += "    {\"type\": \"" +
               std::string(i % 3 == 0   ? "container"
                           : i % 3 == 1 ? "button"
                                        : "label") +
               "\", \"theme\": \"\", \"property\": {\n      \"pub_t\": {\"name\": \"c" + id + "\", \"id\": " + id +
               ", \"pt\": {\"x\": " + std::to_string(i % 40) + ", \"y\": " + std::to_string(i / 40) +
               "}, \"size\": {\"width\": 20, \"height\": 10}, \"alpha\": 255},\n      \"styles\": [{\"style_state\": "
               "\"pressed\", \"body_t\": {\"main_color\": \"#D9863D\", \"opa\": 255}}]\n    }}" +
               (i + 1 < count ? ",\n" : "\n");
    }
    return out + "  ]\n}\n";
}

static std::string replaced(std::string text, const std::string &from, const std::string &to) {
    for (size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size()) {
        text.replace(at, from.size(), to);
    }
    return text;
}

// The layouts in which people and tools write a view.
static std::string layout(const std::string &text, u32 number) {
    size_t size = 0;
    cJSON *json = number < 2 ? cJSON_Parse(text.c_str()) : nullptr;
    char *made = number == 0   ? cJSON_PrintUnformatted(json)
                 : number == 1 ? cJSON_Print(json)
                 : number == 2 ? zof_fmt("config/view/x.g", text.data(), text.size(), ZOF_FALSE, &size)
                               : nullptr;
    const std::string out = made          ? made
                            : number == 3 ? "\xEF\xBB\xBF" + replaced(text, "\n", "\r\n")
                            : number == 4 ? replaced(text, "    ", "\t")
                                          : text;
    if (number == 2) {
        zof_free(made);
    } else {
        cJSON_free(made);
    }
    cJSON_Delete(json);
    return out;
}

struct random_t {
    temp_project_t project;
    design_files_t *files = nullptr;
    std::string file, error;

    void open(const std::string &name, const std::string &text) {
        file = "config/view/" + name;
        project.write(file, text);
        files = design_files_open(project.folder, "", &error);
    }
    random_t() = default;
    ~random_t() {
        design_files_close(files);
    }
    random_t(const random_t &) = delete;
    random_t &operator=(const random_t &) = delete;

    const design_gesture_t *edit(const std::string &path, const std::string &value) {
        cJSON *json = cJSON_Parse(
            ("[{\"file\": \"" + file + "\", \"path\": \"" + path + "\", \"value\": " + value + "}]").c_str());
        const design_gesture_t *gesture = design_files_edit(files, json, "Edit", "", 0, &error);
        cJSON_Delete(json);
        index_check();
        return gesture;
    }
    // The index that edits have kept up to date is that of the text.
    void index_check() {
        design_doc_t *doc = &design_file_of(files, file)->doc;
        if (doc->indexed && doc->fault.empty()) {
            design_doc_t fresh = {doc->exists, false, doc->text, {}, {}};
            CHECK(design_doc_index(&fresh));
            CHECK(
                std::equal(fresh.nodes.begin(), fresh.nodes.end(), doc->nodes.begin(), doc->nodes.end(),
                           [](const zof_jnode_t &a, const zof_jnode_t &b) { return memcmp(&a, &b, sizeof(a)) == 0; }));
        }
    }
    u32 controls() const {
        cJSON *json = cJSON_Parse(file_text(project.path(file)).c_str());
        const u32 count = (u32)cJSON_GetArraySize(cJSON_GetObjectItem(json, "controls"));
        cJSON_Delete(json);
        return count;
    }
};

// What is edited, and how the value may stand in the file afterwards.
struct meant_t {
    std::string path, value, number, name;
};

static meant_t edit_any(u32 count) {
    const std::string control = index_of(up_to(count - 1));
    const std::string number = std::to_string(1 + up_to(2000));
    char colour[16];
    const u32 bits = up_to(0xFFFFFF);
    snprintf(colour, sizeof(colour), "\"#%06X\"", bits);
    switch (up_to(6)) {
    case 0:
        return {control + ".property.pub_t.pt.x", number, number, number};
    case 1:
        return {control + ".property.pub_t.pt.y", "-" + number, "-" + number, "-" + number};
    case 2:
        return {control + ".property.pub_t.size.width", number, number, number};
    case 3:
        return {control + ".property.pub_t.name", "\"n" + number + "_" + control.substr(9, control.size() - 10) + "\"",
                "", ""};
    case 4:
        return {control + ".property.styles[0].body_t.main_color", colour, std::to_string(bits), colour};
    case 5:
        return {control + ".property.styles[0].body_t.main_color", std::to_string(bits), std::to_string(bits), colour};
    default:
        return {control + ".property.styles[0].style_state", "\"pressed+checked\"", "33", "\"pressed+checked\""};
    }
}

// Checks that only the value changed, in the form in which it stood; a new value is one insertion.
static void diff_check(const std::string &before, const std::string &after, const meant_t &meant) {
    zof_jdoc_t doc, made;
    zof_jdoc_read(&doc, before.data(), before.size());
    zof_jdoc_read(&made, after.data(), after.size());
    const u32 node = zof_jdoc_find(&doc, 0, meant.path.c_str());
    const u32 now = zof_jdoc_find(&made, 0, meant.path.c_str());
    REQUIRE(now != ZOF_J_NONE);
    const std::string raw = after.substr(made.nodes[now].at, made.nodes[now].end - made.nodes[now].at);
    if (node != ZOF_J_NONE) {
        const bool name = doc.nodes[node].kind == ZOF_J_TEXT;
        CHECK(raw == (meant.number.empty() ? meant.value : name ? meant.name : meant.number));
        CHECK(after == before.substr(0, doc.nodes[node].at) + raw + before.substr(doc.nodes[node].end));
    } else {
        const auto head = std::mismatch(before.begin(), before.end(), after.begin(), after.end()).first;
        CHECK(raw == meant.value);
        CHECK(std::equal(head, before.end(), after.end() - (before.end() - head)));
        CHECK(zof_jdoc_find(&made, 0, "controls") != ZOF_J_NONE);
    }
    CHECK(made.fault_count == doc.fault_count);
    zof_jdoc_free(&doc);
    zof_jdoc_free(&made);
}

static u32 findings(const std::string &folder) {
    zof_check_t found = {};
    CHECK(zof_check_project(folder.c_str(), &found) == 0);
    const u32 count = found.errors;
    zof_check_free(&found);
    return count;
}

static void view_edit(const std::string &name, const std::string &text, u32 rounds) {
    random_t random;
    random.open(name, text);
    const u32 count = random.controls();
    const u32 errors = findings(random.project.folder);
    std::string before = text;
    size_t gestures = 0;
    REQUIRE(count > 0);
    for (u32 i = 0; i < rounds; i++) {
        const meant_t meant = edit_any(count);
        CAPTURE(meant.path);
        CAPTURE(meant.value);
        if (!random.edit(meant.path, meant.value)) { // the type of the control has no such key in this file
            CHECK(contains(random.error, "leads nowhere"));
            continue;
        }
        const std::string after = file_text(random.project.path(random.file));
        diff_check(before, after, meant);
        gestures += after != before;
        before = after;
    }
    CHECK(findings(random.project.folder) <= errors);
    CHECK(design_files_gestures(random.files).size() == gestures);
    while (design_files_undo(random.files, &random.error)) {
    }
    CHECK((file_text(random.project.path(random.file)) == text));
}

TEST_CASE("a thousand random edits of views in all layouts change what was meant, and undo restores the first bytes") {
    const u32 seed = std::random_device()();
    CAPTURE(seed);
    dice.seed(seed);
    lv_init();
    for (u32 number = 0; number < 6; number++) {
        view_edit("made.g", layout(view_make(60), number), 100);
    }
    view_edit("made.g", view_make(1000), 100);
    for (const auto &entry : std::filesystem::directory_iterator(ZOF_PANEL_DIR "/res/config/view")) {
        view_edit(entry.path().filename().string(), file_text(entry.path()), 60);
    }
}

// Damaged files ------------------------------------------------------------------------------------------------------

static std::string damaged(std::string text) {
    static const char bytes[] = "{}[]\",:\\/*# \n0a\xC3";
    for (u32 i = up_to(3); i > 0; i--) {
        const u32 at = up_to((u32)text.size() - 1);
        switch (up_to(2)) {
        case 0:
            text[at] = bytes[up_to(sizeof(bytes) - 1)];
            break;
        case 1:
            text.erase(at, up_to(20));
            break;
        default:
            text.insert(at, 1, bytes[up_to(sizeof(bytes) - 1)]);
        }
    }
    return text;
}

static std::string edit_random(const std::string &hash) {
    static const char *const paths[] = {"controls[%u]",
                                        "controls[%u].property.pub_t.id",
                                        "controls[%u].type",
                                        "view",
                                        "controls",
                                        "",
                                        "[%u]",
                                        "controls[%u].property.styles[1].txt_t.font",
                                        "view.v_id",
                                        ".",
                                        "controls[%u].on.clicked[0]",
                                        "a.b[0].c"};
    static const char *const kinds[] = {"\"value\": %u",
                                        "\"value\": \"button\"",
                                        "\"value\": {\"a\": [%u]}",
                                        "\"value\": null",
                                        "\"remove\": true",
                                        "\"insert\": {\"type\": %u}",
                                        "\"move\": %u",
                                        "\"at\": %u, \"end\": 9, \"text\": \"{\"",
                                        "\"delete\": true",
                                        "\"create\": \"{}\"",
                                        "\"path\": 7"};
    char path[80], kind[80];
    snprintf(path, sizeof(path), paths[up_to(std::size(paths) - 1)], up_to(4));
    snprintf(kind, sizeof(kind), kinds[up_to(std::size(kinds) - 1)], up_to(5));
    const std::string text = contains(kind, "\"at\"") ? ", \"hash\": \"" + hash + "\"" : "";
    return "{\"file\": \"config/view/made.g\", \"path\": \"" + std::string(path) + "\", " + kind + text + "}";
}

TEST_CASE("random edits of damaged files are refused or can be undone") {
    const u32 seed = std::random_device()();
    CAPTURE(seed);
    dice.seed(seed);
    using operation_t = cJSON *(design_files_t *, const cJSON *, std::vector<std::string> *, std::string *);
    static operation_t *const operations[] = {design_control_add, design_control_duplicate, design_control_paste,
                                              design_control_delete};
    for (u32 round = 0; round < 300; round++) {
        random_t random;
        const std::string first = damaged(layout(view_make(4), up_to(5)));
        random.open("made.g", first);
        std::vector<std::string> made;
        for (u32 i = 0; i < 10; i++) {
            std::string hash;
            design_files_text(random.files, random.file, &hash);
            cJSON *edits = cJSON_Parse(("[" + edit_random(hash) + "," + edit_random(hash) + "]").c_str());
            cJSON *args = cJSON_Parse(R"({"view": "made", "type": "button", "controls": ["made/c1", "made/#2"],
                                          "parent": "made/c3", "text": "{\"property\": {}}", "dx": 1})");
            cJSON *operated = operations[up_to(3)](random.files, args, &made, &random.error);
            design_files_edit(random.files, up_to(1) ? edits : operated, "", "", i, &random.error);
            random.index_check();
            cJSON_Delete(edits);
            cJSON_Delete(args);
            cJSON_Delete(operated);
        }
        while (design_files_undo(random.files, &random.error)) {
        }
        CHECK(random.error == "there is nothing to undo");
        CHECK((file_text(random.project.path(random.file)) == first));
    }
}
