// A device without a desktop: its backlight, in a folder in place of /sys, and what a service reports to systemd.
#include <stdlib.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include "drv/zof_drv_device.h"
#include "drv/zof_loop_in.h"
#include "port/host_linux_line.h"
#include "port/zof_port.h"
#include "temp_project.h"

TEST_CASE("backlight: levels are linear, 0 is reserved for off, and the kernel's order decides between several") {
    temp_project_t folder;
    const std::string sys = folder.path("sys"), dev = folder.path("dev"), lights = "sys/class/backlight/";
    host_port_roots_set(sys.c_str(), dev.c_str());
    zof_device_t found[4];
    CHECK((zof_device_list(ZOF_DEVICE_LIGHT, found, 4) == 0 && !zof_host_light_find() && zof_host_light_set(9) == -1));
    const struct {
        const char *name, *type, *most;
    } rows[] = {{"a_raw", "raw", "9"}, {"b_broken", "firmware", "x"}, {"c_platform", "platform", "1023"}};
    for (const auto &row : rows) {
        for (const auto &[file, text] :
             {std::pair("type", row.type), {"max_brightness", row.most}, {"brightness", "0"}}) {
            folder.write(lights + row.name + "/" + file, std::string(text) + "\n");
        }
    }
    REQUIRE(zof_device_list(ZOF_DEVICE_LIGHT, found, 4) == 3);
    CHECK((str(found[0].path) == folder.path(lights + "b_broken/brightness") && found[2].usable));
    REQUIRE(zof_host_light_find());
    for (const auto &[level, value] : {std::pair(255, "1023\n"), {102, "409\n"}, {1, "4\n"}, {0, "0\n"}}) {
        CHECK(
            (zof_host_light_set((u8)level) == 0 && file_text(folder.path(lights + "c_platform/brightness")) == value));
    }
    remove(folder.path(lights + "c_platform/max_brightness").c_str());
    REQUIRE(zof_host_light_find());
    CHECK((zof_host_light_set(1) == 0 && file_text(folder.path(lights + "a_raw/brightness")) == "1\n"));
    if (geteuid() != 0) { // root may write everything
        chmod(folder.path(lights + "a_raw/brightness").c_str(), 0444);
        CHECK(!zof_host_light_find());
    }
}

TEST_CASE("service: the main loop reports when it is ready, and again while it turns") {
    temp_project_t folder;
    sockaddr_un address = {.sun_family = AF_UNIX};
    snprintf(address.sun_path, sizeof(address.sun_path), "%s", folder.path("notify").c_str());
    const int fd = socket(AF_UNIX, SOCK_DGRAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    REQUIRE(bind(fd, (const sockaddr *)&address, sizeof(address)) == 0);
    setenv("NOTIFY_SOCKET", address.sun_path, 1);
    setenv("WATCHDOG_USEC", "4000", 1);
    setenv("WATCHDOG_PID", "1", 1);
    CHECK(zof_host_service_period() == 0); // for another process
    unsetenv("WATCHDOG_PID");
    lv_init();
    zof_loop_init();
    win_alive_init();
    std::string heard;
    for (int i = 0; i < 3; i++) {
        zof_loop_turn();
        zof_host_sleep(2); // longer than a quarter of the period
        for (char text[64]; const ssize_t size = recv(fd, text, sizeof(text), 0);) {
            if (size < 0) {
                break;
            }
            heard += std::string(text, (size_t)size) + " ";
        }
    }
    CHECK(heard == "READY=1 WATCHDOG=1 WATCHDOG=1 WATCHDOG=1 ");
    close(fd);
    CHECK(zof_host_service_report("READY=1") == -1); // nobody listens
}
