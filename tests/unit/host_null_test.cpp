// The runtime on the host layer that is standard C++ alone.
#include <set>
#include <string>

#include "drv/zof_drv_file.h"
#include "port/zof_host.h"
#include "port/zof_port.h"
#include "view_project.h"

TEST_CASE("on the null host a project is loaded, shown and changed, and there are no serial lines") {
    REQUIRE(std::string(zof_system_get_name()) == "null");
    view_project_t project;
    project.image("red.png", 40, 40, 0xFF0000);
    project.view(1, {ctrl(ZOF_CTRL_IMG, 5, R"("init_img": "red.png")", box(0, 0, 40, 40))});
    REQUIRE(project.open(80, 60));
    zof_view_set_dis_view(1);
    screen_step(40);
    CHECK(screen_pixel(20, 20) == 0xFF0000);
    zof_clock_set(nullptr);
    win_uart_init();
    zof_uart_cfg_t cfg = {.win_port = 44};
    zof_uart_info_t info;
    CHECK(contains(printed([&] { CHECK(zof_drv_uart_open(&cfg) == nullptr); }), "no serial lines"));
    CHECK((zof_drv_uart_list(&info, 1) == 0 && zof_drv_uart_info_get(nullptr, &info) == -1));
}

TEST_CASE("files of the null host follow the contracts of the other hosts") {
    temp_project_t project;
    const std::string file = project.path("a.txt"), folder = project.path("sub");
    CHECK(zof_mkdir(folder.c_str()) == 0);
    CHECK(zof_mkdir(folder.c_str()) == 1);
    CHECK(zof_file_write(file.c_str(), "hello", 5) == 0);
    CHECK((zof_file_size(file.c_str()) == 5 && zof_file_size(project.path("none").c_str()) == -1));
    CHECK(zof_file_create(file.c_str()) == nullptr);
    CHECK(zof_file_read_open(folder.c_str()) == nullptr);
    const std::string kinds = std::to_string(zof_file_kind(file.c_str())) +
                              std::to_string(zof_file_kind(folder.c_str())) +
                              std::to_string(zof_file_kind(project.path("none").c_str()));
    CHECK(kinds == "120");
    std::set<std::string> names;
    zof_dir_t *walk = zof_opendir(project.path("").c_str());
    REQUIRE(walk);
    while (const zof_dirent_t *entry = zof_readdir(walk)) {
        names.insert(std::string(entry->name) + (entry->is_dir ? "/" : "=" + std::to_string(entry->size)));
    }
    zof_closedir(walk);
    CHECK(names.count("./") + names.count("../") + names.count("sub/") + names.count("a.txt=5") == 4);
    CHECK(zof_rename(file.c_str(), (folder + "/b.txt").c_str()) == 0);
    CHECK((zof_file_remove((folder + "/b.txt").c_str()) == 0 && zof_file_remove(folder.c_str()) == 0));
}
