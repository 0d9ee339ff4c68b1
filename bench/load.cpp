// Loading a view of many controls, which parses its file once, against two cJSON parses of the file.
#include "measure.h"

#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

enum { SIZES = 3 };
static constexpr u32 counts[SIZES] = {30, 300, 1000};

static void init_view() {
    static u32 next;
    zof_view_create(++next, nullptr, 0);
}

static std::string view_file(u32 id, u32 count) {
    std::string out =
        R"({"view": {"v_name": "many", "v_id": )" + std::to_string(id) + R"(, "bg_scale": 255}, "controls": [)";
    for (u32 i = 1; i <= count; i++) {
        const std::string x = std::to_string(i % 40 * 20);
        const std::string y = std::to_string(i / 40 * 18);
        out += std::string(i > 1 ? "," : "") +
               R"({"type": 0, "theme": "night", "property": {"pub_t": {"name": "label)" + std::to_string(i) +
               R"(", "id": )" + std::to_string(i) + R"(, "parent_id": 0, "pub": false, "pt": {"x": )" + x +
               R"(, "y": )" + y + R"(}, "size": {"width": 20, "height": 18}, "alpha": 255}, "auto_hight": 1, "txt": "x",
               "styles": [{"style_part": 0, "style_state": 0, "style_sect": 0, "body_t": {"opa": 0}, "txt_t": {"color": 255, "opa": 255}}]}})";
    }
    return out + "]}";
}

void measure_load() {
    namespace fs = std::filesystem;
    const fs::path top = fs::temp_directory_path() / ("zof_load_" + std::to_string(getpid()));
    fs::create_directories(top / "res/config/project");
    fs::create_directories(top / "res/config/view");
    std::string views;
    for (u32 i = 0; i < SIZES; i++) {
        const std::string name = "v" + std::to_string(i + 1) + ".g";
        views +=
            std::string(i ? "," : "") + R"({"pageId": )" + std::to_string(i + 1) + R"(, "pageName": ")" + name + "\"}";
        std::ofstream(top / "res/config/view" / name) << view_file(i + 1, counts[i]);
    }
    std::ofstream(top / "res/config/project/zofprj.g")
        << R"({"p_name": "load", "width": 800, "height": 480, "views": [)" << views << "]}";
    setenv("SDL_VIDEODRIVER", "offscreen", 0);
    if (chdir(top.c_str()) != 0) {
        return;
    }
    lv_init();
    zof_drv_init();
    static const zof_view_fun_t table[SIZES] = {{1, init_view}, {2, init_view}, {3, init_view}};
    zof_prj_get_cur()->view_fun = table;
    zof_prj_get_cur()->view_fun_cnt = SIZES;
    for (u32 i = 0; i < SIZES; i++) {
        const std::string path = zof_res_get_prjfile_path("config/view/", zof_view_name_get(i + 1));
        const double parse = 2 * median_ms(9, [&] {
                                 zof_rootjson_t json = RootJsonGet(path.c_str());
                                 RootJsonDel(&json);
                             });
        const double load = median_ms(1, [i] { zof_view_load(i + 1); });
        printf("| loading a view of %u controls | %.2f ms, %.1f us a control | %.2f ms, two cJSON parses | %.2f |\n",
               counts[i], load, load * 1000 / counts[i], parse, load / parse);
    }
    fs::remove_all(top);
}
