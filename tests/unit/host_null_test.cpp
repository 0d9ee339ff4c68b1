// The runtime on the host layer that is standard C++ alone. The contracts in host_test.cpp are tested on it, too.
#include <string>

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
