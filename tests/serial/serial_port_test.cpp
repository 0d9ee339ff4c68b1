#include "zof_test.h"

#include <algorithm>
#include <atomic>
#include <numeric>
#include <thread>

#include "drv/zof_lock.h"
#include "drv/zof_loop_in.h"
#include "port/host_linux_line.h"
#include "port/zof_port.h"
#include "serial_pty.h"
#include "temp_project.h"

#include <asm/termbits.h>
#include <sys/ioctl.h>

// What the callback received, message by message. Never released: the runtime's threads outlive the test.
struct received {
    std::vector<bytes> messages;
    std::atomic<size_t> total; // makes the messages so far visible to the test
};
static received &got = *new received{};

static void on_message(u8 *data, u32 size) {
    got.messages.emplace_back(data, data + size);
    got.total += size;
}

static zof_uart_cfg_t settings(s32 port) {
    return {.win_port = port, .port = -1, .speed_e = UART_SPEED_115200, .bit_e = UART_BIT_8};
}

static s32 send(zof_drv_t *port, const std::string &text) {
    return zof_drv_uart_send(port, (const u8 *)text.data(), (u32)text.size());
}

// Starts the services without a window: the lock and the port's table.
static void services_up() {
    zof_drv_def_param_init();
    zof_loop_init();
    win_uart_init();
}

static zof_drv_t *open_port(serial_pty &pty, s32 port) {
    services_up();
    pty_open(pty, port);
    zof_uart_cfg_t cfg = settings(port);
    zof_drv_t *handle = zof_drv_uart_open(&cfg);
    REQUIRE(handle);
    zof_drv_uart_rev_set_bfun(handle, on_message, 1024);
    return handle;
}

TEST_CASE("serial: a burst is one message, the answer reaches the line, and a closed port works again when reopened") {
    serial_pty pty;
    zof_drv_t *port = open_port(pty, 31);
    for (size_t round = 1; round <= 2; round++) {
        pty_write(pty, bytes(700, 0x42));
        REQUIRE(eventually([=] { return got.total == round * 700; }));
        CHECK(got.messages.size() == round);
        CHECK(send(port, "pong") == 4);
        CHECK(pty_read(pty, 4) == bytes{'p', 'o', 'n', 'g'});
        CHECK(zof_drv_uart_close(port) == 0);
        zof_uart_cfg_t cfg = settings(31);
        CHECK(zof_drv_uart_open(&cfg) == port);
        CHECK(zof_drv_uart_rev_set_bfun(port, on_message, 1024) == 0);
    }
}

TEST_CASE("serial: numbers choose the port as documented, it is opened once, and invalid settings are refused") {
    services_up();
    const auto open = [](s32 win_port, s32 port) {
        zof_uart_cfg_t cfg = settings(win_port);
        cfg.port = port;
        return zof_drv_uart_open(&cfg);
    };
    CHECK((!open(0, -1) && !open(0, 256))); // no number, no default; no such port
    serial_pty pty;
    pty_open(pty, 36);
    zof_hw_get_def_param()[ZOF_HW_UART_PORT] = 36;
    zof_drv_t *port = open(0, -1);
    REQUIRE(port);
    CHECK(open(36, -1) == port);
    CHECK(zof_drv_uart_set_cfg(port, UART_SPEED_9600, 2, 0, 0) == -1);
    CHECK(zof_drv_uart_set_cfg(port, 10000001, 0, 0, 0) == -1);
    CHECK(zof_drv_uart_set_cfg(port, UART_SPEED_9600, UART_BIT_8, UART_PARITY_EVEN, UART_STOP_2) == 0);
    struct termios2 t;
    REQUIRE(ioctl(pty.line.slave, TCGETS2, &t) == 0);
    CHECK((t.c_ospeed == 9600 && (t.c_cflag & CSTOPB) != 0 && (t.c_lflag & (ICANON | ECHO)) == 0));
    const zof_host_line_t line = {38400, 7, 1, 2};
    CHECK((host_line_cflag(&line) & (CSIZE | PARENB | PARODD | CSTOPB)) == (CS7 | PARENB | PARODD | CSTOPB));
}

// Returns the milliseconds of the longest of many sends, while `far_end` does its work.
static u32 longest_send(zof_drv_t *port, u32 during_ms, const std::function<void()> &far_end) {
    const std::string frame(200, 7);
    u32 longest = 0;
    for (const u32 start = zof_sys_time_ms(); zof_sys_time_ms() - start < during_ms;) {
        const u32 before = zof_sys_time_ms();
        send(port, frame);
        longest = std::max(longest, zof_sys_time_ms() - before);
        far_end();
    }
    return longest;
}

// Returns how often a line with these words was logged.
static size_t times_logged(const std::string &log, const std::string &words) {
    size_t count = 0;
    for (size_t at = 0; (at = log.find(words, at)) != std::string::npos; at++) {
        count++;
    }
    return count;
}

TEST_CASE("serial: a peer that does not read, reads slowly or goes away never blocks the panel") {
    serial_pty pty;
    zof_drv_t *port = open_port(pty, 41);
    const std::string block(1024, 7);
    const u32 begin = zof_sys_time_ms();
    const std::string log = printed([&] {
        s32 result = 0;
        for (int i = 0; i < 100 && result >= 0; i++) {
            result = send(port, block);
        }
        CHECK(result == -1);
        const u32 start = zof_sys_time_ms();
        for (int i = 0; i < 50; i++) {
            send(port, block);
        }
        CHECK(zof_sys_time_ms() - start < 1000); // fifty waits would take two and a half seconds
        u8 drop;
        CHECK(longest_send(port, 1500, [&] { (void)!read(pty.line.fd, &drop, 1); }) < 500); // 50, plus a busy machine
    });
    CHECK(times_logged(log, "takes no more bytes") >= 1);
    CHECK(times_logged(log, "takes no more bytes") <= (zof_sys_time_ms() - begin) / 1000 + 1); // once a second at most
    while (!pty_read(pty, 4096).empty() && send(port, "again") != 5) {
    }
    CHECK(send(port, "again") == 5);
    // The cable is unplugged and plugged in, again and again, during all of this.
    std::atomic<bool> over{false};
    std::thread far_end([&] {
        while (!over) {
            wire_unplug(pty.line);
            usleep(30000);
            wire_plug(pty.line);
            usleep(150000);
        }
    });
    CHECK(longest_send(port, 2000, [] { usleep(2000); }) < 500);
    over = true;
    far_end.join();
    // The peer cannot know when it is heard: it calls until it is, with a silence after each call.
    CHECK(eventually([&] { return pty_write(pty, {'!'}), usleep(20000), got.total > 0; }));
    wire_unplug(pty.line);
    CHECK(eventually([&] { return send(port, "x") == -1; }));
}

TEST_CASE("serial: a message that arrives while the lock is held is delivered whole") {
    serial_pty pty;
    zof_drv_t *port = open_port(pty, 43);
    zof_drv_uart_rev_set_timeout(port, 1000);
    {
        zof_lock gui(dis_mutex);
        pty_write(pty, bytes(8, 'a'));
        usleep(1500 * 1000); // the client has noticed the silence and waits for the lock
        pty_write(pty, bytes(4, 'b'));
        usleep(20 * 1000);
    }
    CHECK(eventually([] { return got.total == 8; }));
    pty_write(pty, bytes(4, 'b')); // without a silence
    CHECK(eventually([] { return got.total == 16; }));
    CHECK((got.messages == std::vector<bytes>{bytes(8, 'a'), bytes(8, 'b')}));
}

TEST_CASE(
    "serial: a port that is missing at the start is opened when it appears, a pseudo-terminal only by a new link") {
    services_up();
    serial_pty pty;
    pty_open(pty, 44);
    const std::string link = pty.line.link, number = pty.line.slave_name;
    const auto open = [](s32 port, const std::string &path) {
        setenv(("ZOF_COM" + std::to_string(port)).c_str(), path.c_str(), 1);
        zof_uart_cfg_t cfg = settings(port);
        return zof_drv_uart_open(&cfg);
    };
    zof_drv_t *by_number = open(45, number);
    zof_drv_t *by_link = open(46, link + "-later");
    REQUIRE((by_number && by_link));
    CHECK(send(by_link, "x") == -1);
    CHECK(send(by_number, "x") == 1);
    wire_unplug(pty.line);
    CHECK(eventually([&] { return send(by_number, "x") == -1; }));
    pty.line.link = link + "-later"; // somebody else's terminal, mostly under the same number
    REQUIRE(wire_plug(pty.line));
    CHECK(eventually([&] { return send(by_link, "x") == 1; }));
    CHECK(send(by_number, "x") == -1);
    wire_unplug(pty.line);
}

TEST_CASE("serial: a long send is sent whole as long as the line accepts bytes, however long that takes") {
    serial_pty pty;
    zof_drv_t *port = open_port(pty, 47);
    zof_drv_uart_set_cfg(port, 2400, UART_BIT_8, 0, 0); // a rate at which 64 KB may take minutes
    std::atomic<size_t> read_bytes{0};
    std::thread far_end([&] {
        bytes part(1024);
        while (read_bytes < 65536) {
            usleep(3000); // all of it: 200 ms
            const ssize_t n = read(pty.line.fd, part.data(), part.size());
            read_bytes += n > 0 ? (size_t)n : 0;
        }
    });
    CHECK(send(port, std::string(65536, 'x')) == 65536);
    far_end.join();
}

TEST_CASE("serial: a client that is blocked for long loses bytes that find no room, and later ones arrive") {
    serial_pty pty;
    open_port(pty, 42);
    const auto burst = [&](u32 held_ms) {
        zof_lock gui(dis_mutex); // the client cannot take anything
        for (int i = 0; i < 20; i++) {
            pty_write(pty, bytes(170, 9));
            usleep(8000);
        }
        usleep(held_ms * 1000);
    };
    CHECK(!contains(printed([&] { burst(0); }), "lost"));
    CHECK(eventually([] { return got.total == 20 * 170; }));
    CHECK(contains(printed([&] { burst(1500); }), "bytes are lost"));
    pty_write(pty, bytes(170, 9));
    CHECK(eventually([] { return got.total > 20 * 170; }));
}

TEST_CASE("serial: a line at its full rate loses nothing") {
    serial_pty pty;
    open_port(pty, 40);
    // As a board fills a line of 115200 baud: bursts with a silence after each.
    enum { RATE = 11520, PERIOD_MS = 20, SECONDS = 10, BURST = RATE * PERIOD_MS / 1000 };
    bytes all;
    const auto start = std::chrono::steady_clock::now();
    for (int i = 1; i <= SECONDS * 1000 / PERIOD_MS; i++) {
        bytes burst(BURST);
        std::iota(burst.begin(), burst.end(), (u8)all.size());
        pty_write(pty, burst);
        all.insert(all.end(), burst.begin(), burst.end());
        // A late burst never skips its silence: that would be a different line.
        const auto silence = std::chrono::steady_clock::now() + std::chrono::milliseconds(PERIOD_MS / 2);
        std::this_thread::sleep_until(std::max(start + std::chrono::milliseconds(PERIOD_MS) * i, silence));
    }
    CHECK(eventually([&] { return got.total == all.size(); }));
    bytes came;
    for (const bytes &m : got.messages) {
        came.insert(came.end(), m.begin(), m.end());
    }
    CHECK((came == all));
}
