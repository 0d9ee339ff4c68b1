// The checker of project folders, with one file of any content. The first byte selects the file.
#include "check/zof_check.h"
#include "fuzz.h"
#include "temp_project.h"

static const struct {
    const char *path, *text;
} files[] = {
    {"config/project/zofprj.g", R"({"width": 160, "height": 120, "start_page": 1, "language": "en",
                                    "views": [{"pageId": 1, "pageName": "one.g"}]})"},
    {"config/languages/en.g", R"({"hello": "hello"})"},
    {"config/project/zofhmi.g", R"({"hmi_en": 1, "uart": {"win_port": 5}, "head_fh": 1, "head_fl": 2})"},
    {"config/theme/youth/label.g", R"({"styles": []})"},
    {"config/view/one.g", R"({"view": {"v_id": 1}, "controls": [{"type": 1, "theme": "", "look": "one"}]})"},
    {"zof-check.ignore", "text-unused config/* a program uses them"},
    {"config/looks.g", R"({"looks": {"one": {}}})"},
};
enum { FILES = sizeof files / sizeof files[0], LOOKS = 240 }; // first bytes from there on select the last file

static temp_project_t project;

void fuzz_open() {
    lv_init();
    for (const auto &file : files) {
        project.write(file.path, file.text);
    }
}

static void places_check(const zof_finding_t &finding) {
    const std::string text = file_text(project.path(finding.file));
    size_t at = 0;
    for (u32 line = 1; line < finding.line; line++) {
        at = text.find('\n', at) + 1;
        fuzz_must(at != 0, "a line is in the file");
    }
    fuzz_must(at + finding.col - 1 <= text.size(), "a column is in the line");
}

void fuzz_one(fuzz_input &in) {
    const u8 first = fuzz_byte(in);
    const auto &file = files[first >= LOOKS ? FILES - 1 : first % (FILES - 1)];
    project.write(file.path, fuzz_text(in));
    zof_check_t check;
    zof_check_project(project.folder.c_str(), &check);
    for (u32 i = 0; i < check.count; i++) {
        const zof_finding_t &f = check.findings[i];
        places_check(f);
        const int order = i ? strcmp(f.file, check.findings[i - 1].file) : 1;
        fuzz_must(order > 0 || (order == 0 && f.line >= check.findings[i - 1].line), "findings are sorted");
    }
    zof_check_free(&check);
    project.write(file.path, file.text);
}
