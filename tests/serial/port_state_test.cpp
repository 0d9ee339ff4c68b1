// What the driver says of a port while it is missing, forbidden, held, open, gone and moved, and what the application
// hears of it.
#include "zof_test.h"

#include <atomic>
#include <mutex>

#include <fcntl.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/wait.h>

#include "drv/zof_lock.h"
#include "drv/zof_loop_in.h"
#include "hardware/uart/zof_hw_port.h"
#include "hardware/uart/zof_hw_uart.h"
#include "host_frame.h"
#include "port/host_linux_line.h"
#include "port/zof_port.h"
#include "serial_pty.h"
#include "temp_project.h"

enum { PORT = 51 };

// What the application has heard, in order. Never released: the runtime's threads outlive the test.
struct heard {
    std::mutex lock;
    std::string text; // "open1 " for the first opening, "gone1 ", "<abc> " for a message
};
static heard &said = *new heard{};
static zof_drv_t *port;

static void hear(const std::string &word) {
    std::lock_guard guard(said.lock);
    said.text += word + " ";
}

static std::string heard_text() {
    std::lock_guard guard(said.lock);
    return said.text;
}

static void on_state(const zof_uart_info_t *info) {
    static constexpr const char *names[] = {"none", "open", "missing", "right", "held", "gone", "error"};
    hear(names[info->state] + std::to_string(info->opened));
    if (info->state == UART_STATE_OPEN) {
        zof_drv_uart_send(port, (const u8 *)"off", 3); // the lock is held, as for a message
    }
}

static void on_message(u8 *data, u32 size) {
    hear("<" + std::string((char *)data, size) + ">");
}

static void open_path(const std::string &path) {
    zof_drv_def_param_init();
    zof_loop_init();
    win_uart_init();
    zof_uart_cfg_t cfg = {.win_port = PORT, .port = -1, .speed_e = UART_SPEED_115200, .bit_e = UART_BIT_8};
    cfg.path = path.c_str();
    port = zof_drv_uart_open(&cfg);
    REQUIRE(port);
}

static zof_uart_info_t info() {
    zof_uart_info_t out = {};
    REQUIRE(zof_drv_uart_info_get(port, &out) == 0);
    return out;
}

static bool becomes(u32 state) {
    return eventually([=] { return info().state == state; });
}

static std::string state_text() {
    char text[128];
    const zof_uart_info_t now = info();
    return zof_drv_uart_state_text(&now, text, sizeof(text));
}

static std::string text_of(const bytes &data) {
    return std::string(data.begin(), data.end());
}

TEST_CASE("port: each opening and loss is reported before the bytes of the next line, and nothing is sent late") {
    temp_project_t folder;
    serial_pty pty;
    pty.line.link = folder.path("line");
    open_path(pty.line.link);
    CHECK((info().state == UART_STATE_MISSING && state_text() == "no such device" && info().opened == 0));
    CHECK(zof_drv_uart_rev_set_bfun(port, on_message, 1024) == 0);
    CHECK(zof_drv_uart_state_set_bfun(port, on_state) == 0);
    CHECK(eventually([] { return heard_text() == "missing0 "; }));
    for (int round = 1; round <= 2; round++) {
        CHECK(zof_drv_uart_send(port, (const u8 *)"late", 4) == -1);
        REQUIRE(wire_plug(pty.line));
        CHECK(text_of(pty_read(pty, 3)) == "off"); // the first thing, and nothing of what was sent before
        pty_write(pty, {'a'});
        CHECK(eventually([] { return contains(heard_text(), "<a> "); }));
        wire_unplug(pty.line);
        CHECK(becomes(UART_STATE_GONE));
        const std::string n = std::to_string(round);
        CHECK(eventually([&] {
            return heard_text() == std::string(round == 1 ? "missing0 " : "") + "open" + n + " <a> gone" + n + " ";
        }));
        std::lock_guard guard(said.lock);
        said.text.clear();
    }
    CHECK((info().bytes == 2 && info().path == pty.line.link && state_text() == "the device is gone"));
}

TEST_CASE("port: what a line sent before it was lost is never delivered after that") {
    temp_project_t folder;
    serial_pty pty;
    pty.line.link = folder.path("line");
    REQUIRE(wire_plug(pty.line));
    open_path(pty.line.link);
    zof_drv_uart_rev_set_bfun(port, on_message, 1024);
    zof_drv_uart_state_set_bfun(port, on_state);
    std::string expected = "open1 ";
    REQUIRE(eventually([&] { return heard_text() == expected; }));
    for (u32 round = 1; round <= 2; round++) {
        zof_mutex_lock(dis_mutex);
        pty_write(pty, {'o', 'l', 'd'});
        REQUIRE(eventually([=] { return info().bytes == 6 * round - 3; }));
        usleep(round == 1 ? 0 : 100 * 1000); // the client has taken them by now, and waits for the lock
        wire_unplug(pty.line);
        REQUIRE(becomes(UART_STATE_GONE));
        REQUIRE(wire_plug(pty.line));
        REQUIRE(becomes(UART_STATE_OPEN));
        pty_write(pty, {'n', 'e', 'w'});
        REQUIRE(eventually([=] { return info().bytes == 6 * round; }));
        zof_mutex_unlock(dis_mutex);
        expected += "open" + std::to_string(round + 1) + " <new> "; // the loss is merged with the opening
        CHECK(eventually([&] { return heard_text() == expected; }));
    }
}

TEST_CASE("port: the panel's first frame on a line may be off, and halves of a frame on two lines are not joined") {
    temp_project_t folder;
    serial_pty pty;
    pty.line.link = folder.path("line");
    zof_loop_init();
    win_uart_init();
    REQUIRE(zof_box_port_set(pty.line.link.c_str()) == 0);
    zof_link_on_change([](const zof_uart_info_t *state) {
        if (state->state == UART_STATE_OPEN) {
            zof_reg_report(REG_OUT_REQ, 0);
        }
    });
    zof_reg_set(100, 5);
    zof_uart_init();
    port = drv_uart;
    const bytes cut = frame_write(100, {7}), whole = frame_write(101, {8});
    const bytes parts[] = {join({whole, {cut.begin(), cut.begin() + 4}}), join({{cut.begin() + 4, cut.end()}, whole})};
    for (u32 line = 1; line <= 2; line++) {
        REQUIRE(wire_plug(pty.line));
        CHECK(pty_read(pty, 9) == bytes{0x5A, 0xA5, 6, 0x83, 0, REG_OUT_REQ, 1, 0, 0});
        pty_write(pty, parts[line - 1]);
        CHECK(eventually([=] {
            zof_lock gui(dis_mutex);
            return g_link.frames == line;
        }));
        wire_unplug(pty.line);
        REQUIRE(becomes(UART_STATE_GONE));
    }
    zof_lock gui(dis_mutex);
    CHECK((zof_reg_get(100) == 5 && g_link.skipped == cut.size()));
}

TEST_CASE("port: a held or forbidden port is reported with its holder or group, and opened as soon as possible") {
    temp_project_t folder;
    serial_pty pty;
    REQUIRE(wire_plug(pty.line));
    const char *path = pty.line.slave_name.c_str();
    const pid_t holder = fork();
    if (holder == 0) {
        const int fd = open(path, O_RDWR | O_NOCTTY);
        flock(fd, LOCK_EX);
        pause();
        _exit(0);
    }
    struct stat st;
    REQUIRE(stat(path, &st) == 0);
    REQUIRE(eventually([&] { return host_lock_holder(&st) == (u32)holder; }));
    open_path(path);
    CHECK((info().state == UART_STATE_HELD && info().holder_id == (u32)holder && *info().holder));
    CHECK(state_text() == "held by " + std::string(info().holder) + " (process " + std::to_string(holder) + ")");
    if (geteuid() == 0) { // root may open everything
        REQUIRE((chmod(path, 0660) == 0 && chown(path, 0, 20) == 0 && seteuid(65534) == 0));
        CHECK(becomes(UART_STATE_NO_RIGHT));
        CHECK(state_text() == "no permission; group dialout has it");
        REQUIRE((seteuid(0) == 0 && chown(path, 0, 0) == 0));
    }
    kill(holder, SIGKILL);
    waitpid(holder, nullptr, 0);
    CHECK(becomes(UART_STATE_OPEN));
    wire_unplug(pty.line);
    CHECK(becomes(UART_STATE_GONE));
    serial_pty shell; // mostly under the same number
    REQUIRE(wire_plug(shell.line));
    usleep(300 * 1000); // three looks
    CHECK((info().state == UART_STATE_GONE && info().opened == 1));
}

TEST_CASE(
    "port: it can be moved to another path at once, and a path that is not a serial line is reported and left alone") {
    temp_project_t folder;
    serial_pty first, second;
    REQUIRE((wire_plug(first.line) && wire_plug(second.line)));
    folder.write("file", "mine");
    REQUIRE(mkfifo(folder.path("pipe").c_str(), 0600) == 0);
    open_path("");
    CHECK(info().state == UART_STATE_NOT_SOUGHT);
    zof_drv_uart_state_set_bfun(port, on_state);
    for (serial_pty *pty : {&first, &second, &first}) {
        CHECK(zof_drv_uart_path_set(port, pty->line.slave_name.c_str()) == 0);
        CHECK(text_of(pty_read(*pty, 3)) == "off");
        CHECK(zof_drv_uart_path_set(port, pty->line.slave_name.c_str()) == 0); // it is open already
        const u64 before = info().bytes;
        pty_write(*pty, {'a'});
        CHECK(eventually([=] { return info().bytes > before; }));
    }
    CHECK((info().opened == 3 && info().state == UART_STATE_OPEN));
    for (const std::string &path :
         {folder.path("file"), folder.path("pipe"), std::string("/dev/null"), folder.folder}) {
        CAPTURE(path);
        CHECK(zof_drv_uart_path_set(port, path.c_str()) == 0);
        CHECK(eventually([&] { return info().path == path && info().state == UART_STATE_ERROR; }));
        CHECK(state_text() == "it is not a serial line");
    }
    CHECK((zof_drv_uart_path_set(port, std::string(300, 'x').c_str()) == -1 &&
           zof_drv_uart_path_set(port, nullptr) == -1));
    CHECK(file_text(folder.path("file")) == "mine");
    REQUIRE(unlink(folder.path("file").c_str()) == 0);
    CHECK(zof_drv_uart_path_set(port, folder.path("file").c_str()) == 0);
    CHECK(becomes(UART_STATE_MISSING));
    REQUIRE(symlink(second.line.slave_name.c_str(), folder.path("file").c_str()) == 0);
    CHECK(becomes(UART_STATE_OPEN)); // what was no line has become one
    CHECK(zof_drv_uart_path_set(port, "") == 0);
    CHECK(becomes(UART_STATE_NOT_SOUGHT));
}

TEST_CASE("port: the list has the system's serial lines with their adapters, and nothing else") {
    temp_project_t folder;
    serial_pty lines[4];
    const std::string sys = folder.path("sys"), dev = folder.path("dev");
    std::filesystem::create_directories(dev);
    std::filesystem::create_directories(sys + "/dev/char");
    const auto add = [&](const std::string &name, const std::string &at, const char *slave) {
        const std::string tty = "devices/" + at + "/tty/" + name;
        folder.write("sys/" + tty + "/device/uevent", "");
        std::filesystem::create_directories(sys + "/class/tty");
        std::filesystem::create_directory_symlink("../../" + tty, sys + "/class/tty/" + name);
        struct stat st;
        if (slave && stat(slave, &st) == 0) {
            std::filesystem::create_symlink(slave, dev + "/" + name);
            std::filesystem::create_directory_symlink("../../" + tty, sys + "/dev/char/" +
                                                                          std::to_string(major(st.st_rdev)) + ":" +
                                                                          std::to_string(minor(st.st_rdev)));
        }
    };
    for (serial_pty &pty : lines) {
        REQUIRE(wire_plug(pty.line));
        close(pty.line.slave);
        pty.line.slave = -1;
    }
    add("ttyUSB10", "usb1/1-1/1-1:1.0/ttyUSB10", lines[0].line.slave_name.c_str());
    add("ttyUSB9", "usb1/1-2/1-2:1.0/ttyUSB9", lines[1].line.slave_name.c_str());
    add("ttyS0", "pnp0/00:01", lines[2].line.slave_name.c_str());
    add("ttyS1", "platform/serial8250", lines[3].line.slave_name.c_str());
    add("ttyUSB8", "usb1/1-3/1-3:1.0/ttyUSB8", nullptr); // without a device file
    folder.write("sys/class/tty/ttyS1/type", "0\n");     // reserved, not there
    folder.write("sys/class/tty/console/active", "");
    folder.write("sys/devices/usb1/1-1/idVendor", "10c4\n");
    folder.write("sys/devices/usb1/1-1/product", "CP2102\x1b[2J Bridge\n");
    folder.write("sys/devices/usb1/1-2/idVendor", "1a86\n");
    folder.write("sys/devices/usb1/1-2/idProduct", "7523\n");
    host_port_roots_set(sys.c_str(), dev.c_str());
    win_uart_init();
    const int fd = open(lines[1].line.slave_name.c_str(), O_RDWR | O_NOCTTY);
    zof_uart_info_t list[8];
    const u32 count = zof_drv_uart_list(list, 8);
    std::string text;
    for (u32 i = 0; i < count; i++) {
        text += std::string(list[i].path).substr(dev.size()) + " [" + list[i].adapter + "] " +
                (list[i].state == UART_STATE_HELD ? "held " + std::to_string(list[i].holder_id == (u32)getpid()) : "") +
                "\n";
    }
    CHECK(text == "/ttyS0 [] \n/ttyUSB9 [1a86:7523] held 1\n/ttyUSB10 [CP2102?[2J Bridge] \n");
    CHECK(zof_drv_uart_list(list, 1) == 1);
    close(fd);
    open_path(dev + "/ttyUSB10");
    CHECK((info().state == UART_STATE_OPEN && str(info().adapter) == "CP2102?[2J Bridge"));

    CHECK((zof_box_port() == nullptr && zof_box_port_set("") == -1 &&
           zof_box_port_set(std::string(300, 'x').c_str()) == -1));
    CHECK((zof_box_port_set("auto") == 0 && str(zof_box_port()).empty())); // there are two
    REQUIRE(unlink((sys + "/devices/usb1/1-2/idVendor").c_str()) == 0);
    CHECK((zof_box_port_set("auto") == 0 && zof_box_port() == dev + "/ttyUSB10"));

    // From a port that is not in the list, through the list and back to it.
    drv_uart = port;
    const std::string given = folder.path("given");
    REQUIRE(symlink(lines[3].line.slave_name.c_str(), given.c_str()) == 0);
    REQUIRE(zof_drv_uart_path_set(port, given.c_str()) == 0);
    REQUIRE(eventually([&] { return info().path == given; }));
    for (const std::string &next : {dev + "/ttyS0", dev + "/ttyUSB9", dev + "/ttyUSB10", given, dev + "/ttyS0"}) {
        CHECK(zof_box_port_next() == 0);
        CHECK(eventually([&] { return info().path == next && info().state == UART_STATE_OPEN; }));
    }
}
