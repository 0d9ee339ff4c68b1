// A folder without a project: a page chooses how the panel begins, sees the runtime's picture of it, and has it
// written.
#include <algorithm>
#include <filesystem>

#include "design_in.h"
#include "new/new.h"

namespace fs = std::filesystem;

static s32 number_of(const cJSON *args, const char *name) {
    const cJSON *value = cJSON_GetObjectItemCaseSensitive(args, name);
    return cJSON_IsNumber(value) && value->valuedouble >= 0 && value->valuedouble < 1e7 ? value->valueint : 0;
}

static new_project_t project_of(const cJSON *args) {
    new_project_t project;
    project.name = design_text_of(args, "name");
    project.form = design_text_of(args, "template");
    project.width = number_of(args, "panelWidth");
    project.height = number_of(args, "panelHeight");
    project.baud = (unsigned)number_of(args, "baud");
    project.program = cJSON_IsTrue(cJSON_GetObjectItemCaseSensitive(args, "program"));
    project.languages.clear();
    const cJSON *language = nullptr;
    cJSON_ArrayForEach(language, cJSON_GetObjectItemCaseSensitive(args, "languages")) {
        project.languages.push_back(cJSON_IsString(language) ? language->valuestring : "");
    }
    return project;
}

bool design_new_may(const std::string &dir) {
    std::error_code error;
    return !fs::exists(dir, error) || (fs::is_directory(dir, error) && fs::is_empty(dir, error));
}

cJSON *design_new_empty() {
    cJSON *out = cJSON_CreateObject();
    cJSON_AddStringToObject(out, "dir", design.dir.c_str());
    const std::string name = new_project_name(design.dir);
    cJSON_AddStringToObject(out, "name", name.c_str());
    cJSON *templates = cJSON_AddArrayToObject(out, "templates");
    for (const new_template_t &form : new_templates) {
        cJSON_AddItemToArray(templates, cJSON_CreateString(form.name));
    }
    return out;
}

static cJSON *files_json(const new_project_t &project) {
    cJSON *files = cJSON_CreateArray();
    for (const new_file_t &file : new_project_files(project)) {
        cJSON *one = cJSON_CreateObject();
        cJSON_AddStringToObject(one, "name", file.name.c_str());
        cJSON_AddNumberToObject(one, "lines", (double)std::count(file.text.begin(), file.text.end(), '\n'));
        cJSON_AddItemToArray(files, one);
    }
    return files;
}

void design_new_draft(const design_request_t &request, const cJSON *args) {
    static u32 drafts;
    new_project_t project = project_of(args);
    std::string fault = new_project_check(project);
    std::error_code error;
    const fs::path folder = fs::temp_directory_path(error) /
                            ("zof-design-" + std::to_string(design_now_ms()) + "-" + std::to_string(++drafts));
    cJSON *reply = cJSON_CreateObject();
    if (fault.empty()) {
        cJSON_AddItemToObject(reply, "files", files_json(project));
        project.program = false;
        fault = new_project_write(project, folder.string());
    }
    if (!fault.empty()) {
        cJSON_Delete(reply);
        design_refuse(request, fault);
        return;
    }
    cJSON *tile = cJSON_Duplicate(args, 1);
    cJSON_AddStringToObject(tile, "view", "main");
    design_tile_draft(request, tile, folder.string(), reply);
}

void design_new_make(const design_request_t &request, const cJSON *args) {
    const new_project_t project = project_of(args);
    std::string fault = new_project_check(project);
    fault = fault.empty() ? new_project_write(project, design.dir) : fault;
    fault = fault.empty() ? design_open(design.dir) : fault;
    fault = fault.empty() ? design_canvas_start() : fault;
    if (!fault.empty()) {
        design_refuse(request, fault);
        return;
    }
    design_answer(request, cJSON_CreateObject());
}
