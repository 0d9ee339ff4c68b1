// The findings after each change: at once those of the checker, and somewhat later those of `zof lint`, which draws all
// views and runs as a separate process.
#include <cstring>

#include "check/zof_check.h"
#include "design_in.h"
#include "drv/zof_drv.h"
#include "drv/zof_drv_file.h"

enum { QUIET_MS = 150, LATEST_MS = 1000 }; // without a change, and at the latest after the first one
enum { DRAW_QUIET_MS = 700, DRAWN_MAX = 4 << 20 };

static struct {
    bool due, draw_due;
    u32 first_at, last_at;
    child_t lint; // process 0: it does not run
    std::string output;
    cJSON *found; // `Problem`s of the checker and of lint; null before the first
    cJSON *drawn;
    u32 ms;
} check;

static void lint_stop() {
    if (check.lint.process) {
        child_kill(&check.lint);
    }
    check.output.clear();
}

void design_check_ask() {
    check.last_at = zof_sys_time_ms();
    check.first_at = check.due ? check.first_at : check.last_at;
    check.due = check.draw_due = true;
    lint_stop();
}

// Returns a control's name or id.
static std::string label_of(const std::string &file, const std::string &path) {
    const std::string raw = design_files_value(design.files, file, path);
    return raw.size() > 2 && raw[0] == '"' ? raw.substr(1, raw.size() - 2) : raw;
}

// Adds the view and the control that a finding in a view's file is about.
static void control_add(cJSON *out, const zof_finding_t &finding) {
    static const char folder[] = "config/view/";
    const std::string file = finding.file;
    if (!file.starts_with(folder) || !file.ends_with(".g")) {
        return;
    }
    const std::string view = file.substr(sizeof(folder) - 1, file.size() - sizeof(folder) - 1);
    cJSON_AddStringToObject(out, "view", view.c_str());
    const std::string key = finding.key;
    const size_t end = key.find(']');
    if (!key.starts_with("controls[") || end == std::string::npos) {
        return;
    }
    const std::string path = key.substr(0, end + 1) + ".property.pub_t";
    const std::string name = label_of(file, path + ".name");
    const std::string id = label_of(file, path + ".id");
    if (!name.empty() || !id.empty()) {
        cJSON_AddStringToObject(out, "control", (view + "/" + (name.empty() ? "#" + id : name)).c_str());
    }
}

static cJSON *problem(const zof_finding_t &finding) {
    cJSON *out = cJSON_CreateObject();
    cJSON_AddStringToObject(out, "rule", finding.rule->name);
    cJSON_AddBoolToObject(out, "error", finding.rule->error);
    cJSON_AddStringToObject(out, "file", finding.file);
    cJSON_AddNumberToObject(out, "line", finding.line);
    cJSON_AddNumberToObject(out, "column", finding.col);
    cJSON_AddStringToObject(out, "key", finding.key);
    cJSON_AddStringToObject(out, "text", finding.text);
    control_add(out, finding);
    cJSON_AddItemToObject(out, "fixes", design_fixes(finding));
    return out;
}

static void report() {
    cJSON *event = design_event_make("problems");
    cJSON *problems = check.found ? cJSON_Duplicate(check.found, 1) : cJSON_CreateArray();
    const cJSON *one = nullptr;
    cJSON_ArrayForEach(one, check.drawn) {
        cJSON_AddItemToArray(problems, cJSON_Duplicate(one, 1));
    }
    cJSON_AddItemToObject(event, "problems", problems);
    cJSON_AddNumberToObject(event, "ms", check.ms);
    cJSON_AddBoolToObject(event, "drawn", check.drawn != nullptr);
    design_event(event);
}

static void check_run() {
    const u32 start = zof_sys_time_ms();
    zof_check_t found = {};
    check.due = false;
    zof_check_project(design.folder.c_str(), &found);
    cJSON_Delete(check.found);
    check.found = cJSON_CreateArray();
    for (u32 i = 0; i < found.count; i++) {
        cJSON_AddItemToArray(check.found, problem(found.findings[i]));
    }
    zof_check_free(&found);
    check.ms = zof_sys_time_ms() - start;
    report();
}

static void lint_start() {
    char self[1024];
    check.draw_due = false;
    if (zof_program_path(self, sizeof(self)) == 0) {
        child_start(&check.lint, {self, "lint", design.folder, "--format", "json"}, nullptr, true);
    }
}

static u32 number_of(const cJSON *object, const char *name) {
    const cJSON *value = cJSON_GetObjectItemCaseSensitive(object, name);
    return cJSON_IsNumber(value) ? (u32)value->valuedouble : 0;
}

// Turns what lint has printed into problems.
static void lint_take() {
    cJSON *list = cJSON_Parse(check.output.c_str());
    cJSON_Delete(check.drawn);
    check.drawn = cJSON_CreateArray();
    const cJSON *one = nullptr;
    cJSON_ArrayForEach(one, list) {
        std::string file = design_text_of(one, "file");
        std::string key = design_text_of(one, "key");
        std::string text = design_text_of(one, "text");
        const std::string rule = design_text_of(one, "rule");
        const zof_check_rule_t row = {rule.c_str(), design_text_of(one, "severity") == "error", ""};
        cJSON_AddItemToArray(check.drawn, problem({&row, file.data(), number_of(one, "line"), number_of(one, "column"),
                                                   key.data(), text.data()}));
    }
    cJSON_Delete(list);
    report();
}

static void lint_step() {
    char piece[65536];
    s32 n = 0;
    while (check.lint.process && (n = stream_read(check.lint.output, piece, sizeof(piece))) > 0) {
        check.output.append(piece, (size_t)n);
    }
    if (!check.lint.process || (n == 0 && check.output.size() < DRAWN_MAX)) {
        return;
    }
    std::string ignored;
    if (n < 0) {
        child_end(&check.lint, &ignored);
        lint_take();
    }
    lint_stop();
    child_kill(&check.lint);
}

void design_check_step() {
    const u32 now = zof_sys_time_ms();
    if (check.due && (now - check.last_at >= QUIET_MS || now - check.first_at >= LATEST_MS)) {
        check_run();
    }
    lint_step();
    if (check.draw_due && !check.due && now - check.last_at >= DRAW_QUIET_MS && !design_pages().empty()) {
        lint_start();
    }
}
