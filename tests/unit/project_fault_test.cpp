// What the log shows of mistakes in project files: one line each, with file, line, column, key and reason.
#include <algorithm>
#include <deque>

#include "check/zof_check.h"
#include "project/read/zof_fault.h"
#include "temp_project.h"
#include "zof_test.h"

static const char project_g[] = "config/project/zofprj.g";
static const char view_g[] = "config/view/one.g";
static const char theme_g[] = "config/theme/t/label.g";

struct fault_t {
    const char *file;
    std::string text, said; // the file, and the log without the paths of files
};

static std::string entry(u32 type, const std::string &pub, const std::string &more = "") {
    return "{\"type\": " + std::to_string(type) + R"(, "theme": "t", "property": {"pub_t": {)" + pub + "}" + more +
           "}}";
}

static std::string view_of(const std::string &controls) {
    return "{\"view\": {\"v_id\": 1},\n\"controls\": [" + controls + "]}";
}

static void view_read(const char *path) {
    cJSON *root = nullptr;
    zof_view_attr_t *view = zof_j2s_view_open(path, &root);
    if (!view) {
        return;
    }
    FreeViewStruct(view);
    zof_free(view);
    zof_j2s_walk_t walk = {};
    u32 id = 0;
    u32 pub = 0;
    for (s32 more = zof_j2s_walk_over(&walk, path, root); more == 0;) {
        zof_pub_attr_t *record = zof_j2s_walk_para(&walk, &id, &pub) == 0 ? zof_j2s_walk_get(&walk) : nullptr;
        more = record ? 0 : -1;
        zof_j2s_ctrl_delete(record, record ? record->ctrl_type : 0);
    }
    zof_j2s_walk_end(&walk);
}

// Reads the project, its language and its views with all controls; returns the log.
static std::string read_all(const std::string &folder) {
    return printed([&] {
        zof_prj_set_cur(nullptr);
        opened_projects.push_back(zof_prj_obj_create(folder.c_str()));
        if (!zof_prj_get_cur()) {
            return;
        }
        for (const auto &file : std::filesystem::directory_iterator(folder + "config/view")) {
            view_read(file.path().generic_string().c_str());
        }
    });
}

// Writes a project with the fault and reads it; returns the log.
static std::string fault_write(const temp_project_t &project, const fault_t &fault) {
    project.write(project_g, R"({"width": 320, "height": 240, "language": "en", "views": []})");
    project.write("config/languages/en.g", "{}");
    project.write(view_g, view_of(entry(0, R"("id": 1, "alpha": 255)")));
    project.write(fault.file, fault.text);
    return read_all(project.folder);
}

static std::string said_by(const fault_t &fault) {
    temp_project_t project;
    std::string said = fault_write(project, fault);
    for (size_t at; (at = said.find(project.folder)) != std::string::npos;) {
        said.erase(at, said.find(':', at) + 1 - at);
    }
    return said;
}

static const std::string label = R"("id": 1, "alpha": 255)";

static const fault_t whole[] = {
    {project_g, "{\"width\": 1, \"height\": 1,\n\"views\": []} }", "2:14: text after the end of the object\n"},
    {view_g, "[]", "1:1: expected an object\n"},
    {view_g, "", " read error!\n"},
    {view_g, "{\"view\": {}}\n\n,\"controls\": []}", "3:1: text after the end of the object\n"},
    {theme_g, "{} x", "1:4: text after the end of the object\n"},
    {"config/languages/en.g", "{}{}", "1:3: text after the end of the object\n"},
    {"config/languages/en.g", "{\"a\":\n\"\xFC\"}", "2:2: byte FC is not UTF-8; the file must be saved as UTF-8\n"},
    {"config/languages/en.g", "{\"a\": \"12345678 \xED\xA0\x80\"}",
     "1:17: byte ED is not UTF-8; the file must be saved as UTF-8\n"},
    {"config/languages/en.g", "\xEF\xBB\xBF{\"a\": \"\xC3\xBC \xE4\xB8\xAD \xF0\x9F\x98\x80\"} \n", ""},
};

static const fault_t values[] = {
    {project_g, R"({"width" : "320", "height": 0, "views": []})",
     "1:2: width: expected a number, found a text; the default is used\n"
     "1:19: height: 0 is not from 1 to 4294967295; the display's own size is used\n"},
    {project_g, "\xEF\xBB\xBF{\"Width\": 1, \"version\": \"1\", \"lenguage\": 1,\n\"views\": 5}",
     "1:33: lenguage: unknown key lenguage; did you mean language?\n"
     "1:4: height is missing; the display's own size is used\n"
     "2:1: views: expected an array; the project has no view\n"},
    {project_g, R"({"width": 1, "height": 1, "hw_t": {"off_x": 1}, "dis_t": 1, "views": [
{"pageId": 1, "pageName": "a.g"}, {"pageId": 2, "pageNam": "b.g"}, {"pageId": 1, "pageName": "c.g"}, 7]})",
     "1:36: hw_t.off_x: the key off_x belongs in dis_t\n"
     "1:49: dis_t: the key dis_t belongs in hw_t\n"
     "2:49: views[1].pageNam: unknown key pageNam; did you mean pageName?\n"
     "2:35: views[1]: pageName is missing; the entry is left out\n"
     "2:69: views[2].pageId: a.g has the pageId 1 already; this entry is left out\n"
     "2:102: views[3]: expected an object; it is left out\n"},
    {view_g, "{\"view\": {\"v_id\": 1, \"bg_image\": 5,\n\"bg_scale\": 256, \"layer\": 4}, \"control\": []}",
     "2:31: control: unknown key control; did you mean controls?\n"
     "2:1: view.bg_scale: 256 is not from -128 to 255; the default is used\n"
     "1:22: view.bg_image: expected a text, found a number; the default is used\n"
     "2:18: view.layer: 4 is not from 0 to 3; the default is used\n"
     "1:1: controls is missing\n"},
    {view_g, "{\"view\": []}", "1:2: view: expected an object\n"},
    // A missing "alpha" ends the record, but not the report.
    {view_g,
     view_of(entry(0, "\"id\": 1,\n\"aplha\": 255, \"pub\": 1, \"size\": null", R"(, "Txt": "a\"b", "colour": 1)")),
     "3:15: controls[0].property.pub_t.pub: expected true or false, found a number; the default is used\n"
     "3:25: controls[0].property.pub_t.size: expected an object, found null; the default is used\n"
     "3:1: controls[0].property.pub_t.aplha: unknown key aplha; did you mean alpha?\n"
     "3:55: controls[0].property.colour: unknown key colour\n"},
    {view_g, view_of(entry(0, label, R"(, "txt": "a", "TXT": "b", "animspeed": 1e300, "styles": [{}, 5])")),
     "2:111: controls[0].property.animspeed: 1e+300 is not from -32768 to 65535; the default is used\n"
     "2:99: controls[0].property.TXT: TXT is given twice; the first one is used\n"
     "2:146: controls[0].property.styles[1]: expected an object; it is ignored\n"},
    {view_g,
     view_of(entry(0, R"("id": 0, "alpha": 0)") + ",\n" + entry(0, R"("id": 3, "parent_id": 4)") + ",\n" +
             entry(2, R"("id": 4, "parent_id": 4)") + ",\n" + entry(2, R"("id": 5, "parent_id": 4)") + ",\n" +
             entry(2, R"("id": 4)")),
     "2:63: controls[0].property.pub_t.id: 0 is not from 1 to 65535; neither program nor host can find the control\n"
     "3:59: controls[1].property.pub_t.parent_id: the parent, 4, must come before this control; it is put on the view\n"
     "4:59: controls[2].property.pub_t.parent_id: a control cannot be its own parent; it is put on the view\n"
     "6:50: controls[4].property.pub_t.id: the control  has the id 4 already; this one is left out\n"},
    {view_g,
     view_of(entry(6, label, R"(, "minValue": 9, "maxValue": 3)") + ",\n" +
             entry(5, R"("id": 2)", R"(, "range_t": {"minValue": 1})") + ",\n" +
             entry(7, R"("id": 3)", R"(, "maxValue": -1)") + ",\n" +
             entry(6, R"("id": 4)", R"(, "minValue": 3, "maxValue": 3)")),
     "2:102: controls[0].property.maxValue: minValue, 9, is not below maxValue, 3\n"
     "3:60: controls[1].property.range_t: minValue, 1, is not below maxValue, 0\n"
     "4:60: controls[2].property.maxValue: minValue, 0, is not below maxValue, -1\n"},
    {view_g, view_of(entry(0, label, R"(, "styles": [{"style_part": 5}, {"style_state": 70000, "style_sect": 2}])")),
     "2:99: controls[0].property.styles[0].style_part: 5 has no meaning\n"
     "2:118: controls[0].property.styles[1].style_state: 70000 is not from 0 to 65535\n"
     "2:140: controls[0].property.styles[1].style_sect: 2 is not from 0 to 1\n"},
    {view_g,
     "{\"view\": {}, \"controls\": [{\"theme\": 1, \"weight\": 1, \"property\": {\"pub_t\": {\"id\": 1}, "
     "\"btnmatrix_txt\": [\"a\", 5]}, \"type\": 26}]}",
     "1:109: controls[0].property.btnmatrix_txt[1]: expected a text, found a number; it is left out\n"
     "1:40: controls[0].weight: unknown key weight\n"
     "1:28: controls[0].theme: expected a text; the control has no theme\n"},
    {theme_g, R"({"styles": [{"body_t": {"opa": true}}], "them": 0})",
     "1:41: them: unknown key them\n"
     "1:25: styles[0].body_t.opa: expected a number, found true; the default is used\n"},
};

TEST_CASE("a text that is not one JSON object in UTF-8 is reported with its place") {
    for (const fault_t &fault : whole) {
        CAPTURE(fault.text);
        CHECK(said_by(fault) == fault.said);
    }
}

TEST_CASE("values that a record does not accept are reported with place, key and reason") {
    for (const fault_t &fault : values) {
        CAPTURE(fault.text);
        CHECK(said_by(fault) == fault.said);
    }
}

static std::vector<zof_fault_t> found;
static std::deque<std::string> found_texts; // which the faults point to

// Returns true if the checker reports a fault at the same line with the same words. The runtime adds what it does
// instead after a semicolon, and knows the range of a field where the checker knows that of a value.
static bool is_checked(const zof_check_t &check, const zof_fault_t &fault) {
    const std::string text = fault.text;
    const std::string words = text.substr(0, std::min(text.find("; "), text.find(" from ")));
    return std::any_of(check.findings, check.findings + check.count, [&](const zof_finding_t &finding) {
        const std::string path = fault.file;
        return path.ends_with(finding.file) && finding.line == fault.line &&
               std::string(finding.text).starts_with(words);
    });
}

TEST_CASE("what the runtime reports, the checker reports in the same words") {
    for (const fault_t &fault : values) {
        temp_project_t project;
        found.clear();
        zof_fault_to([](const zof_fault_t *one) {
            found.push_back({found_texts.emplace_back(one->file).c_str(), one->line, one->col, "",
                             found_texts.emplace_back(one->text).c_str()});
        });
        fault_write(project, fault);
        zof_fault_to(nullptr);
        zof_check_t check = {};
        REQUIRE(zof_check_project(project.folder.c_str(), &check) == 0);
        for (const zof_fault_t &one : found) {
            CAPTURE(fault.text);
            const std::string text = one.text;
            CAPTURE(text);
            CHECK((contains(text, "is missing") || is_checked(check, one))); // the key may be there, misspelt
        }
        zof_check_free(&check);
    }
}

TEST_CASE("the log shows the first faults of a file, and a receiver gets two hundred") {
    temp_project_t project;
    std::string styles;
    for (int i = 0; i < 300; i++) {
        styles += (i ? ",\n" : "") + std::string(R"({"colour": 1})");
    }
    project.write(view_g, view_of(entry(0, label, ", \"styles\": [" + styles + "]")));
    const std::string said = read_all(project.folder);
    CHECK(std::count(said.begin(), said.end(), '\n') == 51);
    CHECK(contains(said, "one.g:51:2: controls[0].property.styles[49].colour: unknown key colour\n"));
    CHECK(contains(said, "one.g: more faults are not shown\n"));
    static u32 lines, count;
    zof_fault_to([](const zof_fault_t *fault) {
        lines += fault->line;
        count++;
    });
    CHECK(read_all(project.folder) == "");
    zof_fault_to(nullptr);
    CHECK(lines == 201 * 202 / 2 - 1);
    CHECK(count == 201); // the last one says that there are more
}

TEST_CASE("the projects of the panel and of the examples have no faults") {
    for (const char *folder : {ZOF_PANEL_DIR "/res/", ZOF_GALLERY_DIR "/res/", ZOF_SOURCE_DIR "/examples/blank/res/"}) {
        CAPTURE(folder);
        zof_res_set_path_cache(500);
        CHECK(read_all(folder) == "");
        CHECK(zof_prj_get_cur()->view_names->count > 0);
    }
}
