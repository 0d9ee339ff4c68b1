// The text engine of `zof design`: an edit changes the bytes that were meant, and no others.
#include <algorithm>

#include "catalogue/zof_cat.h"
#include "check/zof_check.h"
#include "design_files.h"
#include "temp_project.h"
#include "zof_test.h"

static const char view_file[] = "config/view/home.g";

// A project with its files open.
struct open_t {
    temp_project_t project;
    design_files_t *files = nullptr;
    std::string error;
    s64 now = 1000000;

    explicit open_t(const std::string &view) {
        project.write(view_file, view);
        files = design_files_open(project.folder, "", &error);
    }
    ~open_t() {
        design_files_close(files);
    }
    open_t(const open_t &) = delete;
    open_t &operator=(const open_t &) = delete;

    std::string text(const char *file = view_file) const {
        return file_text(project.path(file));
    }
    const design_gesture_t *edit(const std::string &edits, const char *merge = "") {
        cJSON *json = cJSON_Parse(edits.c_str());
        const design_gesture_t *gesture = design_files_edit(files, json, "Edit", merge, now += 100, &error);
        cJSON_Delete(json);
        return gesture;
    }
    const design_gesture_t *apply(cJSON *edits) {
        const design_gesture_t *gesture =
            edits ? design_files_edit(files, edits, "Control", "", now += 1000, &error) : nullptr;
        cJSON_Delete(edits);
        return gesture;
    }
};

// Returns an edit of the view; a row writes ' for ".
static std::string edit_of(std::string edit) {
    std::replace(edit.begin(), edit.end(), '\'', '"');
    return "[{\"file\": \"" + std::string(view_file) + "\", " + edit + "}]";
}

static const char coffee[] = R"({"view": {"v_id": 7},
	"controls": [
		{"type": "button", "theme": "", "property": {
			"pub_t": {"name": "brew", "id": 1, "pt": {"x": 1, "y": 2}, "alpha": 255}, // the main one
			"styles": [{"style_state": 32, "body_t": {"main_color": "#D9863D","opa":255}}], "txt": "a"
		}},
		{"type": 1, "theme": "", "property": {"pub_t": {"id":2}}}
	],
	"own": {"b": 1}
})";

// What an edit takes out of `coffee`, and puts there. No place: the edit is refused, with a message.
static const struct {
    const char *edit;
    std::vector<std::pair<std::string, std::string>> changes;
} edit_rows[] = {
    // Forms: a number stays a number, a name a name, and what is equal stays as it is.
    {"'path': 'controls[0].property.pub_t.pt.x', 'value': 120", {{"{\"x\": 1,", "{\"x\": 120,"}}},
    {"'path': 'controls[0].type', 'value': 3", {{"\"button\"", "\"image button\""}}},
    {"'path': 'controls[1].type', 'value': 'label'", {{"\"type\": 1", "\"type\": 0"}}},
    {"'path': 'controls[0].property.styles[0].style_state', 'value': 'pressed+checked'", {{": 32", ": 33"}}},
    {"'path': 'controls[0].property.styles[0].body_t.main_color', 'value': 255", {{"#D9863D", "#0000FF"}}},
    {"'path': 'controls[0].property.styles[0].body_t.main_color', 'value': '$accent'", {{"#D9863D", "$accent"}}},
    {"'path': 'controls[0].property.styles[0].body_t.main_color', 'value': 14255677", {}},
    {"'path': 'controls[0].property.pub_t.pt.x', 'value': 1.0", {}},
    {"'path': 'controls[0].property.txt', 'value': 'Gr\xC3\xBC\xC3\x9F \\'x\\' \\n'",
     {{"\"a\"", "\"Gr\xC3\xBC\xC3\x9F \\\"x\\\" \\n\""}}},
    // New keys: in the catalogue's order, on the line of the key before, as the object is written.
    {"'path': 'controls[0].property.pub_t.hidden', 'value': 1", {{"2}, ", "2}, \"hidden\": true, "}}},
    {"'path': 'controls[0].property.pub_t.size.width', 'value': 9", {{"2}, ", "2}, \"size\": {\"width\": 9}, "}}},
    {"'path': 'controls[1].property.pub_t.name', 'value': 'n'", {{"{\"id\":2", "{\"name\":\"n\",\"id\":2"}}},
    {"'path': 'controls[1].look', 'value': 'l'",
     {{"\"theme\": \"\", \"property\": {\"pub_t\": {\"id\":",
       "\"theme\": \"\", \"look\": \"l\", \"property\": {\"pub_t\": {\"id\":"}}},
    {"'path': 'controls[0].property.styles[1].txt_t.color', 'value': '#FFFFFF'",
     {{"255}}]", "255}}, {\"txt_t\": {\"color\": \"#FFFFFF\"}}]"}}},
    {"'path': 'own.a', 'value': {'c': [1, 'x']}", {{"{\"b\": 1", "{\"b\": 1, \"a\": {\"c\": [1, \"x\"]}"}}},
    {"'path': 'view.bg_color', 'value': 5", {{"\"v_id\": 7", "\"v_id\": 7, \"bg_color\": 5"}}},
    // Removal: the value, a comma, and its line if nothing else is on it.
    {"'path': 'controls[0].property.pub_t.pt.x', 'remove': true", {{"\"x\": 1, ", ""}}},
    {"'path': 'controls[0].property.pub_t.alpha', 'remove': true", {{", \"alpha\": 255", ""}}},
    {"'path': 'controls[1].property.pub_t.id', 'remove': true", {{"\"id\":2", ""}}},
    {"'path': 'own', 'remove': true", {{",\n\t\"own\": {\"b\": 1}", ""}}},
    {"'path': 'controls[0].property.txt', 'remove': true", {{", \"txt\": \"a\"", ""}}},
    {"'path': 'controls[1]', 'remove': true",
     {{",\n\t\t{\"type\": 1, \"theme\": \"\", \"property\": {\"pub_t\": {\"id\":2}}}", ""}}},
    {"'path': 'own.b', 'remove': true", {{"{\"b\": 1}", "{}"}}},
    {"'path': 'controls[0].property.pub_t', 'remove': true",
     {{"\"pub_t\": {\"name\": \"brew\", \"id\": 1, \"pt\": {\"x\": 1, \"y\": 2}, \"alpha\": 255}, //", "//"}}},
    {"'path': 'controls[0].property.styles', 'remove': true",
     {{"\"styles\": [{\"style_state\": 32, \"body_t\": {\"main_color\": \"#D9863D\",\"opa\":255}}], ", ""}}},
    {"'path': 'view', 'remove': true", {{"\"view\": {\"v_id\": 7},", ""}}},
    {"'path': 'controls', 'remove': true", {{std::string(coffee).substr(22, 320), ""}}},
    // Elements.
    {"'path': 'controls[2]', 'insert': {'type': 5}", {{"2}}}\n", "2}}},\n\t\t{\"type\": 5}\n"}}},
    {"'path': 'controls[0]', 'insert': {'type': 5}", {{"[\n\t\t", "[\n\t\t{\"type\": 5},\n\t\t"}}},
    {"'path': 'controls[1]', 'move': 0",
     {{",\n\t\t{\"type\": 1, \"theme\": \"\", \"property\": {\"pub_t\": {\"id\":2}}}", ""},
      {"[\n\t\t", "[\n\t\t{\"type\": 1, \"theme\": \"\", \"property\": {\"pub_t\": {\"id\":2}}},\n\t\t"}}},
    {"'path': 'controls[1]', 'move': 2", {}},
    // Refused.
    {"'path': 'controls[2].type', 'remove': true", {{"", ""}}},
    {"'path': 'controls[4].type', 'value': 1", {{"", ""}}},
    {"'path': 'view.v_id.x', 'value': 1", {{"", ""}}},
    {"'path': 'controls[0', 'value': 1", {{"", ""}}},
    {"'path': 'controls[3]', 'insert': {}", {{"", ""}}},
    {"'path': 'controls[1]', 'move': 3", {{"", ""}}},
    {"'hash': '0', 'at': 0, 'end': 1, 'text': ''", {{"", ""}}},
    {"'create': ''", {{"", ""}}},
};

static std::string changed(std::string text, const std::vector<std::pair<std::string, std::string>> &changes) {
    for (const auto &[before, after] : changes) {
        const size_t at = text.find(before);
        REQUIRE(at != std::string::npos);
        text.replace(at, before.size(), after);
    }
    return text;
}

static std::string with_crlf(const std::string &text) {
    std::string out = "\xEF\xBB\xBF";
    for (const char c : text) {
        out += c == '\n' ? "\r\n" : std::string(1, c);
    }
    return out;
}

TEST_CASE("an edit by path changes the bytes that were meant, undo brings them back, and redo changes them again") {
    for (const bool crlf : {false, true}) {
        for (const auto &row : edit_rows) {
            const std::string first = crlf ? with_crlf(coffee) : coffee;
            open_t open(first);
            CAPTURE(row.edit);
            const bool refused = !row.changes.empty() && row.changes[0].first.empty();
            const std::string meant = changed(coffee, refused ? decltype(row.changes){} : row.changes);
            const design_gesture_t *gesture = open.edit(edit_of(row.edit));
            CAPTURE(open.error);
            CHECK((gesture == nullptr) == refused);
            CHECK(open.error.empty() == !refused);
            CHECK(open.text() == (crlf ? with_crlf(meant) : meant));
            if (refused || row.changes.empty()) {
                CHECK(!design_files_undo(open.files, &open.error));
                continue;
            }
            CHECK(design_files_undo(open.files, &open.error));
            CHECK(open.text() == first);
            CHECK(design_files_redo(open.files, &open.error));
            CHECK(open.text() == (crlf ? with_crlf(meant) : meant));
        }
    }
}

TEST_CASE("edits of one drag are one step, files outside the project do not exist, and a broken file takes only text") {
    open_t open(coffee);
    const std::string outside = open.project.top + "/outside.g";
    std::ofstream(outside) << "{}";
    std::error_code no_links; // a system that has none
    std::filesystem::create_symlink(outside, open.project.path("config/link.g"), no_links);
    for (int x = 8; x < 1000; x += 31) {
        CHECK(open.edit(
            "[{\"file\": \"config/view/home.g\", \"path\": \"controls[0].property.pub_t.pt.x\", \"value\": " +
                std::to_string(x) +
                "}, {\"file\": \"config/view/home.g\", \"path\": \"controls[0].property.pub_t.pt.y\", \"value\": " +
                std::to_string(x * x) + "}]",
            "drag"));
    }
    REQUIRE(design_files_gestures(open.files).size() == 1);
    CHECK(design_files_gestures(open.files)[0].splices.size() == 2);
    CHECK(design_files_undo(open.files, &open.error));
    CHECK(open.text() == coffee);
    for (const char *file : {"../outside.g", "/etc/hostname", no_links ? "" : "config/link.g", "config/../../outside.g",
                             "config//x.g", "C:x.g", "config/.hidden", "config\\\\..\\\\x", ""}) {
        CAPTURE(file);
        const std::string name = "[{\"file\": \"" + std::string(file) + "\", ";
        CHECK(!open.edit(name + "\"create\": \"{}\"}]"));
        CHECK(!open.edit(name + "\"path\": \"a\", \"value\": 1}]"));
        CHECK(!design_files_text(open.files, file, nullptr));
    }
    for (const char *file : {"HOME.g", "aux.g", "Com1.x.g", "a<b.g", "a\\u0007.g", "a.g ", "a?.g"}) {
        CAPTURE(file);
        CHECK(!open.edit("[{\"file\": \"config/view/" + std::string(file) + "\", \"create\": \"{}\"}]"));
    }
    CHECK(file_text(outside) == "{}");
    std::string hash;
    design_files_text(open.files, view_file, &hash);
    CHECK(open.edit(edit_of("'hash': '" + hash + "', 'at': 0, 'end': 1, 'text': '['")));
    CHECK(open.text() == "[" + std::string(coffee).substr(1));
    CHECK(!open.edit(edit_of("'path': 'own.b', 'value': 2")));
    CHECK(contains(open.error, "home.g:"));
    CHECK(design_files_undo(open.files, &open.error));
    CHECK(open.edit(edit_of("'path': 'own.b', 'value': 2")));
}

// Controls -----------------------------------------------------------------------------------------------------------

// Two views: a box with two buttons in it, whose names actions and a program use.
struct controls_t : open_t {
    std::vector<std::string> made, uses;

    controls_t() : open_t(view_text) {
        project.write("config/view/other.g", R"({"view": {"v_id": 2}, "controls": []})");
        project.write("config/project/zofprj.g", project_text);
        project.write("../main.c", "int x;\nzof_btn_set_txt(get(VIEW1_BREW_ID), name(\"brewer\"));\nVIEW1_BREW_ID_2\n");
        project.write("../host.py", "panel.write('home/brew')\n");
        design_files_close(files);
        files = design_files_open(project.folder, "", &error);
    }
    static cJSON *args(std::string text) {
        std::replace(text.begin(), text.end(), '\'', '"');
        return cJSON_Parse(text.c_str());
    }
    // Runs one of the operations that return what they made.
    const design_gesture_t *run(decltype(design_control_add) *operation, const char *text) {
        cJSON *json = args(text);
        made.clear();
        cJSON *edits = operation(files, json, &made, &error);
        cJSON_Delete(json);
        return apply(edits);
    }
    // The ids of the controls in their order, with their parents: "1 2/1 3/1".
    std::string order(const char *file = view_file) const {
        std::string out;
        cJSON *root = cJSON_Parse(text(file).c_str());
        const cJSON *entry = nullptr;
        cJSON_ArrayForEach(entry, cJSON_GetObjectItem(root, "controls")) {
            const cJSON *pub = cJSON_GetObjectItem(cJSON_GetObjectItem(entry, "property"), "pub_t");
            const cJSON *pt = cJSON_GetObjectItem(pub, "pt");
            const cJSON *parent = cJSON_GetObjectItem(pub, "parent_id");
            out += str(cJSON_GetStringValue(cJSON_GetObjectItem(pub, "name"))) + " " +
                   std::to_string(cJSON_GetObjectItem(pub, "id")->valueint) +
                   (parent ? "/" + std::to_string(parent->valueint) : "") + " " +
                   std::to_string(cJSON_GetObjectItem(pt, "x")->valueint) + "," +
                   std::to_string(cJSON_GetObjectItem(pt, "y")->valueint) + "; ";
        }
        cJSON_Delete(root);
        return out;
    }
    static const char *const view_text;
    static const char *const project_text;
};

const char *const controls_t::project_text =
    R"({"width": 480, "height": 272, "start_page": 1, "views": [
  {"pageId": 1, "pageName": "home.g"},
  {"pageId": 2, "pageName": "other.g"}
]})";

const char *const controls_t::view_text = R"({
  "view": {"v_id": 1},
  "controls": [
    {"type": "container", "theme": "t", "property": {
      "pub_t": {"name": "box", "id": 1, "pt": {"x": 100, "y": 50}}
    }},
    {"type": "button", "theme": "t", "on": {"clicked": ["set label.txt Brewing", "show home/brew"]}, "property": {
      "pub_t": {"name": "brew", "id": 2, "parent_id": 1, "pt": {"x": 5, "y": 6}}
    }},
    {"type": "label", "theme": "t", "property": {
      "pub_t": {"name": "label", "id": 4, "pt": {"x": 7, "y": 8}}
    }}
  ]
}
)";

static const char add_text[] = R"(,
    {"type": "button", "theme": "t", "look": "button", "property": {
      "pub_t": {"name": "button_1", "id": 3, "parent_id": 1, "pt": {"x": 9, "y": 10}, "size": {"width": 120, "height": 50}, "t_mode": "touch", "alpha": 255},
      "txt": "Button"
    }}
  ]
}
)";

TEST_CASE("controls are added, copied, moved, renamed and deleted with their children, ids, names and places") {
    controls_t open;
    const std::string first = controls_t::view_text;
    CHECK(open.run(design_control_add, "{'view': 'home', 'type': 'button', 'parent': 'home/box', 'x': 9, 'y': 10}"));
    CHECK(open.made == std::vector<std::string>{"home/button_1"});
    CHECK(open.text() == first.substr(0, first.size() - 7) + add_text);
    CHECK(open.run(design_control_add, "{'view': 'other', 'type': 'text', 'x': 1, 'y': 2}") == nullptr);
    zof_check_t check = {};
    lv_init();
    for (const zof_cat_type_t &type : zof_cat_types) {
        CHECK(open.run(design_control_add, ("{'view': 'other', 'type': '" + std::string(type.name) + "'}").c_str()));
    }
    CHECK(zof_check_project(open.project.folder.c_str(), &check) == 0);
    for (u32 i = 0; i < check.count; i++) {
        static const char *const rules[] = {"view-unlisted", "incomplete", "missing", "parent", "outside"};
        CAPTURE(check.findings[i].text);
        CHECK((str(check.findings[i].file) != "config/view/other.g" ||
               std::any_of(std::begin(rules), std::end(rules),
                           [&](const char *rule) { return str(check.findings[i].rule->name) == rule; })));
    }
    zof_check_free(&check);
    for (u32 i = 0; i < ZOF_CTRL_TYPE_COUNT; i++) {
        CHECK(design_files_undo(open.files, &open.error));
    }
    CHECK(open.run(design_control_add, "{'view': 'other', 'type': 'drop list', 'x': 1, 'y': 2}"));
    CHECK(open.order("config/view/other.g") == "drop_list_1 1 1,2; ");
    for (int i = 0; i < 2; i++) {
        CHECK(design_files_undo(open.files, &open.error));
    }

    CHECK(open.run(design_control_duplicate, "{'controls': ['home/box'], 'dx': 8, 'dy': 9}"));
    CHECK(open.order() == "box 1 100,50; brew 2/1 5,6; box_2 3 108,59; brew_2 5/3 5,6; label 4 7,8; ");
    CHECK(open.made == std::vector<std::string>{"home/box_2", "home/brew_2"});
    CHECK(open.run(design_control_duplicate, "{'controls': ['home/#5'], 'dx': 1, 'dy': 0}"));
    CHECK(contains(open.order(), "brew_3 6/3 6,6; "));
    for (int i = 0; i < 2; i++) {
        CHECK(design_files_undo(open.files, &open.error));
    }

    cJSON *args = controls_t::args("{'controls': ['home/box', 'home/label']}");
    const std::string copied = design_control_copy(open.files, args, &open.error);
    cJSON_Delete(args);
    cJSON *paste = controls_t::args("{'view': 'other'}");
    cJSON_AddStringToObject(paste, "text", copied.c_str());
    open.made.clear();
    CHECK(open.apply(design_control_paste(open.files, paste, &open.made, &open.error)));
    CHECK(open.order("config/view/other.g") == open.order());
    cJSON_AddStringToObject(paste, "parent", "other/label");
    CHECK(open.apply(design_control_paste(open.files, paste, &open.made, &open.error)));
    CHECK(open.order("config/view/other.g") ==
          "box 1 100,50; brew 2/1 5,6; label 4 7,8; box_2 3/4 100,50; brew_2 5/3 5,6; label_2 6/4 7,8; ");
    for (const char *text : {"", "x", "{}", "[1]", "{\"type\": 1", "[[]]"}) {
        cJSON_ReplaceItemInObject(paste, "text", cJSON_CreateString(text));
        CHECK(!open.apply(design_control_paste(open.files, paste, &open.made, &open.error)));
    }
    cJSON_Delete(paste);

    // An edit that has the control's id finds it where it stands now, or not at all; nothing is appended.
    CHECK(open.edit(edit_of("'path': 'controls[0].property.pub_t.pt.x', 'id': 4, 'value': 9")));
    CHECK(contains(open.order(), "box 1 100,50; "));
    CHECK(contains(open.order(), "label 4 9,8; "));
    CHECK(design_files_undo(open.files, &open.error));
    CHECK(!open.edit(edit_of("'path': 'controls[3].property.pub_t.pt.x', 'id': 9, 'value': 9")));
    CHECK(open.error == "the control is not there any more");

    // Into the box: the place on the screen stays, and the box comes first.
    const auto reorder = [&open](const char *text) {
        cJSON *json = controls_t::args(text);
        const design_gesture_t *gesture = open.apply(design_control_reorder(open.files, json, &open.error));
        cJSON_Delete(json);
        return gesture != nullptr;
    };
    CHECK(reorder("{'control': 'home/label', 'parent': 'home/box', 'before': 'home/brew', 'dx': -2}"));
    CHECK(open.order() == "box 1 100,50; label 4/1 -95,-42; brew 2/1 5,6; ");
    CHECK(reorder("{'control': 'home/brew', 'parent': '', 'before': 'home/box'}"));
    CHECK(open.order() == "brew 2 105,56; box 1 100,50; label 4/1 -95,-42; ");
    CHECK(reorder("{'control': 'home/box', 'parent': 'home/brew', 'before': ''}"));
    CHECK(open.order() == "brew 2 105,56; box 1/2 -5,-6; label 4/1 -95,-42; ");
    CHECK(!reorder("{'control': 'home/brew', 'parent': 'home/label', 'before': ''}"));
    while (design_files_undo(open.files, &open.error)) {
    }
    CHECK(open.text() == first);

    // A group stands where its front control stood, and each control where it was on the screen.
    CHECK(open.run(design_control_group, "{'controls': ['home/label', 'home/box'], 'dx': -93, 'dy': -42, 'width': 200, "
                                         "'height': 90}"));
    CHECK(open.order() == "container_1 3 7,8; box 1/3 93,42; brew 2/1 5,6; label 4/3 0,0; ");
    CHECK(!open.run(design_control_group, "{'controls': ['home/label', 'home/brew'], 'width': 1, 'height': 1}"));
    CHECK(design_files_undo(open.files, &open.error));
    CHECK(open.text() == first);

    const auto rename = [&open](const char *name) {
        cJSON *json = controls_t::args("{'control': 'home/brew', 'name': '" + std::string(name) + "'}");
        open.made.clear();
        const design_gesture_t *gesture =
            open.apply(design_control_rename(open.files, json, &open.made, &open.uses, &open.error));
        cJSON_Delete(json);
        return gesture != nullptr;
    };
    for (const char *name : {"", "1a", "a b", "LABEL", "gr\xC3\xBC"}) {
        CHECK(!rename(name));
    }
    CHECK(rename("mix"));
    CHECK(open.text() == changed(first, {{"\"brew\"", "\"mix\""}, {"home/brew", "home/mix"}}));
    CHECK(open.uses == std::vector<std::string>{"config/view/home.g:7", "host.py:1", "main.c:2"});
    CHECK(design_files_undo(open.files, &open.error));

    cJSON *gone = controls_t::args("{'controls': ['home/box']}");
    CHECK(open.apply(design_control_delete(open.files, gone, &open.uses, &open.error)));
    cJSON_Delete(gone);
    CHECK(open.order() == "label 4 7,8; ");
    CHECK(open.uses == std::vector<std::string>{"host.py:1", "main.c:2"});
    CHECK(design_files_undo(open.files, &open.error));
    CHECK(open.text() == first);
}

TEST_CASE("a new control has a look of the project, or brings one with its colours") {
    static const char looks[] = "config/looks.g";
    controls_t open;
    const auto add = [&open](const char *type) {
        return open.run(design_control_add, ("{'view': 'other', 'type': '" + str(type) + "'}").c_str()) &&
               contains(open.text("config/view/other.g"), "\"type\": \"" + str(type) + "\"");
    };
    CHECK(add("check box"));
    const std::string made = open.text(looks);
    CHECK(contains(made, "{\n    \"colors\": {\n        \"ink\": \"#17212B\",\n        \"card\": "));
    CHECK(contains(made, "\n    \"looks\": {\n        \"text\": {\"txt_t\""));
    CHECK(contains(made, "\n        \"check_box\": {\n            \"is\": \"text\",\n"));
    CHECK(!contains(made, "\"button\""));
    CHECK(add("label")); // "text" is there now
    CHECK(open.text(looks) == made);
    CHECK(design_files_undo(open.files, &open.error));
    CHECK(design_files_undo(open.files, &open.error));
    CHECK(open.text(looks).empty());

    // Looks that have other names: that of the last control of the type. The theme's own styles need no look.
    open.project.write(looks, R"({"colors": {"ink": "#102030"}, "looks": {"my": {}, "text": {}}})");
    open.project.write("config/view/other.g", R"({"view": {"v_id": 2}, "controls": [
        {"type": 1, "theme": "t", "look": "my", "property": {"pub_t": {"id": 1}}}]})");
    open.project.write("config/theme/t/sw.g", "{}");
    design_files_close(open.files);
    open.files = design_files_open(open.project.folder, "", &open.error);
    const std::string before = open.text(looks);
    CHECK(open.run(design_control_add, "{'view': 'other', 'type': 'button'}"));
    CHECK(contains(open.text("config/view/other.g"), "\"type\": 1, \"theme\": \"t\", \"look\": \"my\""));
    CHECK(open.run(design_control_add, "{'view': 'other', 'type': 'switch'}"));
    CHECK(open.text(looks) == before);
    CHECK(open.run(design_control_add, "{'view': 'other', 'type': 'arc'}"));
    CHECK(contains(open.text("config/view/other.g"), "\"color\": \"$line\""));
    CHECK(open.text(looks) ==
          changed(before, {{"\"#102030\"", "\"#102030\", \"line\": \"#CBD3DC\", \"mark\": \"#0E8A92\""}}));
}

TEST_CASE(
    "views are added, copied, renamed and deleted, with their rows of the project and the actions that name them") {
    static const char project[] = "config/project/zofprj.g";
    controls_t open;
    const auto run = [&open](decltype(design_view_add) *operation, const char *text) {
        cJSON *json = controls_t::args(text);
        cJSON *edits = operation(open.files, json, &open.error);
        cJSON_Delete(json);
        return open.apply(edits) != nullptr;
    };
    const std::string rows = open.text(project);
    const std::string home = open.text();
    CHECK(run(design_view_add, "{'view': 'home', 'name': 'menu'}"));
    CHECK(contains(open.text(project), "\"other.g\"},\n  {\"pageId\": 3, \"pageName\": \"menu.g\"}\n]"));
    CHECK(contains(open.text("config/view/menu.g"), "\"v_id\": 3"));
    CHECK(open.order("config/view/menu.g").empty());
    CHECK(run(design_view_add, "{'view': 'home', 'name': 'menu2', 'copy': true}"));
    CHECK(open.order("config/view/menu2.g") == open.order());
    for (const char *name : {"", "../x", "home", "1a", "OTHER"}) {
        CHECK(!run(design_view_add, ("{'view': 'home', 'name': '" + str(name) + "'}").c_str()));
    }
    CHECK(design_files_undo(open.files, &open.error));
    CHECK(design_files_undo(open.files, &open.error));
    CHECK(open.text(project) == rows);
    CHECK(open.text("config/view/menu.g").empty());

    CHECK(run(design_view_rename, "{'view': 'home', 'name': 'start'}"));
    CHECK(open.text().empty());
    CHECK(open.text("config/view/start.g") ==
          changed(home, {{"{\"v_id\": 1}", "{\"v_name\": \"start\", \"v_id\": 1}"}, {"home/brew", "start/brew"}}));
    CHECK(open.text(project) == changed(rows, {{"home.g", "start.g"}}));
    CHECK(design_files_undo(open.files, &open.error));
    CHECK(open.text() == home);

    const auto remove = [&open](const char *text) {
        cJSON *json = controls_t::args(text);
        open.uses.clear();
        cJSON *edits = design_view_delete(open.files, json, &open.uses, &open.error);
        cJSON_Delete(json);
        return open.apply(edits) != nullptr;
    };
    CHECK(remove("{'view': 'home'}"));
    CHECK(open.text(project) == "{\"width\": 480, \"height\": 272, \"start_page\": 2, \"views\": [\n"
                                "  {\"pageId\": 2, \"pageName\": \"other.g\"}\n]}");
    CHECK(!remove("{'view': 'other'}"));
    CHECK(design_files_undo(open.files, &open.error));
    CHECK(open.text() == home);
    CHECK(open.text(project) == rows);
}
