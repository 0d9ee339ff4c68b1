// What the pages know of the project.
#include <algorithm>
#include <cstdlib>
#include <memory>

#include "design_in.h"
#include "drv/zof_drv.h"

void design_files_below(std::vector<std::string> *names, const std::string &folder, const std::string &below) {
    enum { DEPTH_MAX = 8 };
    zof_dir_t *dir = zof_opendir((folder + below).c_str());
    while (const zof_dirent_t *entry = dir ? zof_readdir(dir) : nullptr) {
        const std::string name = entry->name;
        if (name.empty() || name[0] == '.') {
            continue;
        }
        if (!entry->is_dir) {
            names->push_back(below + name);
        } else if (std::count(below.begin(), below.end(), '/') < DEPTH_MAX) {
            design_files_below(names, folder, below + name + "/");
        }
    }
    zof_closedir(dir);
}

static void names_add(cJSON *out, const char *key, const char *folder) {
    std::vector<std::string> names;
    design_files_below(&names, design.folder + folder, "");
    std::sort(names.begin(), names.end());
    cJSON *array = cJSON_AddArrayToObject(out, key);
    for (const std::string &name : names) {
        cJSON_AddItemToArray(array, cJSON_CreateString(name.c_str()));
    }
}

static void views_add(cJSON *out, const cJSON *project) {
    cJSON *views = cJSON_AddArrayToObject(out, "views");
    const cJSON *view = nullptr;
    cJSON_ArrayForEach(view, cJSON_GetObjectItemCaseSensitive(project, "views")) {
        cJSON *one = cJSON_Duplicate(view, 1);
        const char *name = cJSON_GetStringValue(cJSON_GetObjectItemCaseSensitive(view, "name"));
        cJSON_AddStringToObject(one, "file", ("config/view/" + std::string(name ? name : "") + ".g").c_str());
        cJSON_AddItemToArray(views, one);
    }
}

static void colour_add(cJSON *out, const std::string &file, const cJSON *value) {
    const char *raw = cJSON_GetStringValue(cJSON_GetObjectItemCaseSensitive(value, "raw"));
    const char *path = cJSON_GetStringValue(cJSON_GetObjectItemCaseSensitive(value, "path"));
    cJSON *parsed = raw && *raw ? cJSON_Parse(raw) : nullptr;
    char text[16] = "";
    if (cJSON_IsNumber(parsed)) {
        snprintf(text, sizeof(text), "#%06X", (u32)parsed->valuedouble & 0xFFFFFF);
    }
    const char *shown = cJSON_IsString(parsed) ? parsed->valuestring : text;
    if (path && *path && *shown) {
        cJSON *colour = cJSON_CreateObject();
        cJSON_AddStringToObject(colour, "name", path);
        cJSON_AddStringToObject(colour, "value", shown);
        cJSON_AddStringToObject(colour, "file", file.c_str());
        cJSON_AddStringToObject(colour, "path", ("colors." + std::string(path)).c_str());
        cJSON_AddItemToArray(out, colour);
    }
    cJSON_Delete(parsed);
}

static void colours_add(cJSON *out, const std::string &file) {
    std::string ignored;
    cJSON *values = design_files_read(design.files, file, "colors", &ignored);
    const cJSON *value = nullptr;
    cJSON_ArrayForEach(value, values) {
        colour_add(out, file, value);
    }
    cJSON_Delete(values);
}

static void looks_add(cJSON *out, const std::string &file) {
    std::string ignored;
    std::string last;
    cJSON *values = design_files_read(design.files, file, "looks", &ignored);
    const cJSON *value = nullptr;
    cJSON_ArrayForEach(value, values) { // an object comes before what is in it
        const std::string path = design_text_of(value, "path");
        const std::string name = path.substr(0, path.find('.'));
        if (!name.empty() && name != last) {
            cJSON *look = cJSON_CreateObject();
            cJSON_AddStringToObject(look, "name", name.c_str());
            cJSON_AddStringToObject(look, "file", file.c_str());
            cJSON_AddItemToArray(out, look);
            last = name;
        }
    }
    cJSON_Delete(values);
}

cJSON *design_project() {
    const cJSON *project = design_canvas_project();
    cJSON *out = cJSON_CreateObject();
    cJSON_AddStringToObject(out, "dir", design.folder.c_str());
    for (const char *name : {"name", "width", "height", "languages", "themes"}) {
        const cJSON *part = cJSON_GetObjectItemCaseSensitive(project, name);
        cJSON_AddItemToObject(out, name, part ? cJSON_Duplicate(part, 1) : cJSON_CreateArray());
    }
    views_add(out, project);
    names_add(out, "fonts", "font/");
    names_add(out, "pictures", "image/");
    names_add(out, "sounds", "sound/");
    names_add(out, "clips", "video/");
    cJSON *colours = cJSON_AddArrayToObject(out, "colours");
    colours_add(colours, "config/looks.g");
    cJSON *looks = cJSON_AddArrayToObject(out, "looks");
    looks_add(looks, "config/looks.g");
    const cJSON *theme = nullptr;
    cJSON_ArrayForEach(theme, cJSON_GetObjectItemCaseSensitive(project, "themes")) {
        const std::string file = "config/theme/" + std::string(theme->valuestring) + "/looks.g";
        colours_add(colours, file);
        looks_add(looks, file);
    }
    return out;
}
