// The pictures and fonts of the project: what they are, where they are used, and how the runtime shows them.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <set>

#include "design_frame.h"
#include "design_in.h"
#include "design_text.h"
#include "drv/zof_drv_file.h"
#include "drv/zof_drv_media.h"
#include "lvgl.h"
#include "project/look/zof_picture.h"
#include "zof_lib/zof_util.h"

namespace fs = std::filesystem;

enum { SIDE_MAX = 1024, CHECKS = 8 }; // of a picture that is sent; of the ground behind one that can be seen through

static std::string path_of(const std::string &folder, const std::string &name) {
    return design.folder + folder + "/" + name;
}

// Returns the names of the files in a folder of the project, for the two folders that have assets.
static std::vector<std::string> names_of(const std::string &folder) {
    std::vector<std::string> names;
    if (folder == "image" || folder == "font") {
        design_files_below(&names, design.folder + folder + "/", "");
        std::sort(names.begin(), names.end());
    }
    return names;
}

static bool is_asset(const std::string &folder, const std::string &name) {
    const std::vector<std::string> names = names_of(folder);
    return std::find(names.begin(), names.end(), name) != names.end();
}

// ---- where they are used

// A place where a file's name is a value, and the size beside it if it is a font.
struct use_t {
    std::string file, path, name;
    s32 line, column, size;
};

static s32 number_in(const cJSON *value, const char *name) {
    const cJSON *number = cJSON_GetObjectItemCaseSensitive(value, name);
    return cJSON_IsNumber(number) ? number->valueint : 0;
}

static std::string sibling(const std::string &path, const char *key) {
    const size_t dot = path.find_last_of('.');
    return (dot == std::string::npos ? "" : path.substr(0, dot + 1)) + key;
}

static void uses_take(std::vector<use_t> *out, const std::string &file, const std::set<std::string> &quoted) {
    std::string ignored;
    cJSON *values = design_files_read(design.files, file, "", &ignored);
    const cJSON *value = nullptr;
    cJSON_ArrayForEach(value, values) {
        const std::string raw = design_text_of(value, "raw");
        if (!quoted.contains(raw)) {
            continue;
        }
        const std::string path = design_text_of(value, "path");
        const std::string size = design_files_value(design.files, file, sibling(path, "font_size"));
        out->push_back({file, path, raw.substr(1, raw.size() - 2), number_in(value, "line"), number_in(value, "column"),
                        (s32)strtol(size.c_str(), nullptr, 10)});
    }
    cJSON_Delete(values);
}

static std::vector<use_t> uses_of(const std::vector<std::string> &names) {
    std::set<std::string> quoted;
    std::vector<std::string> files;
    std::vector<use_t> out;
    for (const std::string &name : names) {
        quoted.insert("\"" + name + "\"");
    }
    design_files_below(&files, design.folder, "config/");
    std::sort(files.begin(), files.end());
    for (const std::string &file : files) {
        if (file.ends_with(".g")) {
            uses_take(&out, file, quoted);
        }
    }
    return out;
}

static void uses_add(cJSON *row, const std::vector<use_t> &uses, const std::string &name) {
    cJSON *list = cJSON_AddArrayToObject(row, "uses");
    std::set<s32> sizes;
    for (const use_t &use : uses) {
        if (use.name == name) {
            cJSON *one = cJSON_CreateObject();
            cJSON_AddStringToObject(one, "file", use.file.c_str());
            cJSON_AddNumberToObject(one, "line", use.line);
            cJSON_AddNumberToObject(one, "column", use.column);
            cJSON_AddItemToArray(list, one);
            sizes.insert(use.size);
        }
    }
    sizes.erase(0);
    cJSON *all = cJSON_AddArrayToObject(row, "sizes");
    for (const s32 size : sizes) {
        cJSON_AddItemToArray(all, cJSON_CreateNumber(size));
    }
}

// Adds width and height of a picture, or leaves them out if it cannot be shown.
static void size_add(cJSON *row, const std::string &name) {
    lv_img_header_t header = {};
    if (!zof_img_fault(path_of("image", name).c_str()) &&
        lv_img_decoder_get_info(path_of("image", name).c_str(), &header) == LV_RES_OK) {
        cJSON_AddNumberToObject(row, "width", header.w);
        cJSON_AddNumberToObject(row, "height", header.h);
    }
}

void design_assets_ask(const design_request_t &request, const cJSON *args) {
    const std::string folder = design_text_of(args, "folder");
    const std::vector<std::string> names = names_of(folder);
    const std::vector<use_t> uses = uses_of(names);
    cJSON *reply = cJSON_CreateObject();
    cJSON *rows = cJSON_AddArrayToObject(reply, "rows");
    zof_image_init();
    for (const std::string &name : names) {
        cJSON *row = cJSON_CreateObject();
        std::error_code error;
        const auto bytes = fs::file_size(path_of(folder, name), error);
        cJSON_AddStringToObject(row, "name", name.c_str());
        cJSON_AddNumberToObject(row, "bytes", error ? 0 : (double)bytes);
        if (folder == "image") {
            size_add(row, name);
        }
        uses_add(row, uses, name);
        cJSON_AddItemToArray(rows, row);
    }
    design_answer(request, reply);
}

// ---- how they look

// A picture before squares of two greys, which are seen where it is transparent.
static view_image_t picture_of(const lv_img_decoder_dsc_t &decoded) {
    view_image_t out = view_image(decoded.header.w, decoded.header.h, 0);
    const bool alpha = decoded.header.cf == LV_IMG_CF_TRUE_COLOR_ALPHA;
    const auto *pixels = (const lv_color32_t *)decoded.img_data;
    for (s32 y = 0; y < out.height; y++) {
        for (s32 x = 0; x < out.width; x++) {
            const size_t at = (size_t)y * (size_t)out.width + (size_t)x;
            const u8 ground = (x / CHECKS + y / CHECKS) % 2 ? 0xD0 : 0xE8;
            const lv_color32_t mixed =
                alpha ? lv_color_mix(pixels[at], lv_color_make(ground, ground, ground), pixels[at].ch.alpha)
                      : pixels[at];
            out.pixels[at] = 0xFF000000u | mixed.full;
        }
    }
    return out;
}

void design_asset_ask(const design_request_t &request, const cJSON *args) {
    const std::string name = design_text_of(args, "name");
    if (!is_asset("image", name)) {
        design_refuse(request, "there is no picture " + name);
        return;
    }
    zof_image_init();
    lv_img_decoder_dsc_t decoded = {};
    const std::string path = path_of("image", name);
    if (zof_img_fault(path.c_str()) || lv_img_decoder_open(&decoded, path.c_str(), lv_color_black(), 0) != LV_RES_OK) {
        design_refuse(request, name + " cannot be shown as a still picture");
        return;
    }
    const bool good = decoded.img_data != nullptr;
    if (good) {
        const s32 width = std::clamp(number_in(args, "width"), 1, (s32)SIDE_MAX);
        const s32 height = std::clamp(number_in(args, "height"), 1, (s32)SIDE_MAX);
        design_frame_tile(request.page, (u32)number_in(args, "tile"),
                          design_tile_fitted(picture_of(decoded), width, height));
    }
    lv_img_decoder_close(&decoded);
    good ? design_answer(request, cJSON_CreateObject()) : design_refuse(request, name + " has no pixels");
}

static bool file_put(const fs::path &path, const std::string &text) {
    std::error_code error;
    fs::create_directories(path.parent_path(), error);
    std::ofstream out(path, std::ios::binary);
    out << text;
    out.close();
    return !out.fail();
}

static std::string printed(cJSON *value) {
    char *text = cJSON_PrintUnformatted(value);
    std::string out = text ? text : "";
    cJSON_free(text);
    cJSON_Delete(value);
    return out;
}

// A project with one label, in the font.
static bool specimen_write(const fs::path &folder, const cJSON *args) {
    const std::string name = design_text_of(args, "name");
    const std::string width = std::to_string(std::clamp(number_in(args, "width"), 16, (s32)SIDE_MAX));
    const std::string height = std::to_string(std::clamp(number_in(args, "height"), 16, (s32)SIDE_MAX));
    const std::string size = std::to_string(std::clamp(number_in(args, "size"), 4, 200));
    const bool dark = cJSON_IsTrue(cJSON_GetObjectItemCaseSensitive(args, "dark"));
    const std::string text = printed(cJSON_CreateString(design_text_of(args, "text").c_str()));
    std::error_code error;
    fs::create_directories((folder / "font" / name).parent_path(), error);
    fs::copy_file(path_of("font", name), folder / "font" / name, error);
    return !error &&
           file_put(folder / "config/project/zofprj.g",
                    "{\"p_name\": \"font\", \"width\": " + width + ", \"height\": " + height +
                        ", \"start_page\": 1, \"views\": [{\"pageId\": 1, \"pageName\": \"main.g\"}]}") &&
           file_put(
               folder / "config/view/main.g",
               "{\"view\": {\"v_name\": \"main\", \"v_id\": 1, \"bg_color\": \"" +
                   std::string(dark ? "#1B1F26" : "#FFFFFF") +
                   "\", \"bg_scale\": 255}, \"controls\": [{\"type\": \"label\", \"theme\": \"none\", \"property\": "
                   "{\"pub_t\": {\"name\": "
                   "\"line\", \"id\": 1, \"pt\": {\"x\": 0, \"y\": 0}, \"size\": {\"width\": " +
                   width + ", \"height\": " + height +
                   "}, \"alpha\": 255}, \"align_e\": \"left top\", \"dis_mode_e\": \"cut\", \"txt\": " + text +
                   ", \"styles\": [{\"txt_t\": {\"color\": \"" + (dark ? "#FFFFFF" : "#111111") +
                   "\", \"opa\": 255, \"font_lib\": " + printed(cJSON_CreateString(name.c_str())) +
                   ", \"font_size\": " + size + "}}]}}]}");
}

void design_specimen_ask(const design_request_t &request, const cJSON *args) {
    static u32 specimens;
    std::error_code error;
    const fs::path folder = fs::temp_directory_path(error) /
                            ("zof-font-" + std::to_string(design_now_ms()) + "-" + std::to_string(++specimens));
    if (!is_asset("font", design_text_of(args, "name")) || !specimen_write(folder, args)) {
        fs::remove_all(folder, error);
        design_refuse(request, "the font " + design_text_of(args, "name") + " cannot be drawn");
        return;
    }
    cJSON *tile = cJSON_Duplicate(args, 1);
    cJSON_AddStringToObject(tile, "view", "main");
    design_tile_draft(request, tile, folder.string(), cJSON_CreateObject());
}

// ---- files that are copied in

// A plain name of a kind that the folder is for.
static bool name_good(const std::string &folder, const std::string &name) {
    static const struct {
        const char *folder;
        std::vector<const char *> suffixes;
    } kinds[] = {{"image", {".png", ".jpg", ".gif"}}, {"font", {".ttf", ".otf", ".ttc", ".woff", ".bin"}}};
    for (const auto &kind : kinds) {
        for (const char *suffix : kind.suffixes) {
            if (name.size() < 100 && name[0] != '.' && folder == kind.folder && zof_suffix_is(name.c_str(), suffix)) {
                return true;
            }
        }
    }
    return false;
}

void design_import_ask(const design_request_t &request, const cJSON *args) {
    const std::string folder = design_text_of(args, "folder");
    const std::string name = design_text_of(args, "name");
    std::error_code error;
    if (!name_good(folder, name)) {
        design_refuse(request, "“" + name + "” is not a name of a file for " + folder + "/");
        return;
    }
    const fs::path path = path_of(folder, name);
    if (design_file_path(design.files, folder + "/" + name).empty()) {
        design_refuse(request, folder + "/ is not a folder of the project");
        return;
    }
    const std::string fault = design_file_new_fault(design.files, folder + "/" + name);
    if (!fault.empty()) {
        design_refuse(request, fault);
        return;
    }
    const fs::path fresh = path.string() + ".new";
    const bool written = file_put(fresh, view_base64(design_text_of(args, "data").c_str()));
    if (written) {
        fs::rename(fresh, path, error);
    }
    if (!written || error) {
        fs::remove(fresh, error);
        design_refuse(request, folder + "/" + name + " cannot be written");
        return;
    }
    design_answer(request, cJSON_CreateObject());
}
