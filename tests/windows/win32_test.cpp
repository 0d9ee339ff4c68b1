// What Windows alone can do wrong: names that are not those of files, and the states of its serial ports.
#include <thread>

#include "drv/zof_drv_net.h"
#include "port/win_line.h"
#include "temp_project.h"

TEST_CASE("windows: names of devices and of streams are refused in all forms, and nothing is created") {
    temp_project_t project;
    project.write("a.g", "{}");
    for (const std::string &name : {project.path("nul"), project.path("a.g:hidden"), std::string("NUL"),
                                    std::string("COM1"), std::string("\\\\.\\COM1"), std::string("\\\\.\\pipe\\zof")}) {
        CAPTURE(name);
        CHECK(zof_file_write(name.c_str(), "x", 1) != 0);
        CHECK((zof_file_read_open(name.c_str()) == nullptr && zof_file_create(name.c_str()) == nullptr));
        CHECK((zof_file_write_open(name.c_str(), ZOF_FALSE) == nullptr && zof_opendir(name.c_str()) == nullptr));
    }
    CHECK((zof_file_read_open("\xFF.g") == nullptr && zof_mkdir("\xFF") == -1)); // not UTF-8
}

TEST_CASE("windows: a port that is missing or no port says so, and can be moved and closed while its reader waits") {
    const zof_host_line_t line = {115200, 8, 0, 1};
    zof_uart_info_t info;
    zof_drv_t *port = zof_host_serial_open(9, nullptr, &line);
    REQUIRE(port);
    win_uart_info(port, &info);
    CHECK((info.state == UART_STATE_MISSING && std::string(info.path) == "COM9"));
    u8 byte;
    CHECK((win_uart_send(port, &byte, 1) == -1 && zof_host_serial_set(port, &line) == 0));
    for (const char *path : {"C:/windows/win.ini", "COM", "COM1x", "\\\\.\\pipe\\x"}) {
        CAPTURE(path);
        CHECK((win_uart_path_set(port, path) == 0 && win_uart_receive(port, &byte, 1) == 0));
        win_uart_info(port, &info);
        CHECK((info.state == UART_STATE_ERROR && std::string(info.error) == "it is not a serial line"));
    }
    std::thread reader([=] {
        u8 unused;
        win_uart_receive(port, &unused, 1);
    });
    while (((const win_line *)port)->users < 2) { // a line may not be used once it is closed
        std::this_thread::yield();
    }
    CHECK(win_uart_close(port) == 0);
    reader.join();
}

TEST_CASE("windows: a program of this machine connects, talks and leaves, and a wait ends when it is woken") {
    u16 number = 0, same;
    zof_net_port_t *port = zof_net_listen(&number);
    REQUIRE((port && number));
    same = number;
    CHECK(zof_net_listen(&same) == nullptr); // it is taken
    std::thread waker([=] { zof_net_wake(port); });
    zof_net_wait(port, -1, ZOF_NET_ACCEPT, -1);
    waker.join();
    CHECK(zof_net_accept(port) == -1);
    u32 a[4] = {}, b[4] = {};
    CHECK((zof_net_random(a, 15) == 0 && zof_net_random(b, 15) == 0 && memcmp(a, b, sizeof(a)) != 0));
    char path[512];
    REQUIRE(zof_net_private_path(path, sizeof(path), "token", ZOF_TRUE) == 0);
    CHECK((zof_net_private_write(path, "first") == 0 && zof_net_private_write(path, "second") == 0));
    CHECK((file_text(path) == "second" && zof_file_remove(path) == 0));
}
