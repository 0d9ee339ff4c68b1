// A panel with a host at the other end of its line: a project, a pseudo-terminal, and frames as a host sends them.
#ifndef HMI_PANEL_H
#define HMI_PANEL_H

#include "drv/zof_lock.h"
#include "hmi/zof_hmi.h"
#include "hmi/zof_hmi_frame.h"
#include "host_frame.h"
#include "port/zof_port.h"
#include "serial_pty.h"
#include "view_project.h"

enum { PORT = 41, GAP_MS = 5 };

// A panel with a host at the other end of its line. It runs on the host's clock, because two threads meet here.
struct panel {
    view_project_t project;
    serial_pty pty;
};

// Two views of the same controls; `link` and `more` are keys of the protocol's file and of the project's.
inline void panel_up(panel &p, const std::string &link, const std::string &more = "",
                     const std::vector<std::string> &controls = {
                         ctrl(ZOF_CTRL_LABEL, 5, R"("auto_hight": 1, "txt": "#hello")", box(0, 0, 200, 100))}) {
    pty_open(p.pty, PORT);
    p.project.more = R"(, "start_page": 1, "app_ver": "A1.2", "language": "en")" + more;
    for (u32 id : {1, 2}) {
        p.project.view(id, controls);
    }
    p.project.write("config/languages/en.g", R"({"hello": "hello", "pic": "blue.png"})");
    p.project.write("config/languages/de.g", R"({"hello": "hallo", "pic": "red.png"})");
    p.project.write("config/project/zofhmi.g", R"({"hmi_en": 1, "uart": {"win_port": )" + std::to_string(PORT) +
                                                   R"(, "speed_e": 6, "bit_e": 1}, "head_fh": 90, "head_fl": 165,
                                                   "buffsize": 4096, "timeout": 5)" +
                                                   link + "}");
    REQUIRE(p.project.open(320, 240));
    zof_clock_set(nullptr);
    win_uart_init();
    win_rtc_init();
    zof_func_pwon();
    REQUIRE(zof_hmi_init() == 0);
    const bytes on = frame_of(ZOF_HMI_OP_GET, {0xB0, 0x01, 0xAA, 0xBB}, zof_hmi_attr_get()->crc_en); // "switched on"
    CHECK(pty_read(p.pty, on.size()) == on);
}

inline bytes get(const bytes &payload) {
    return frame_of(ZOF_HMI_OP_GET, payload);
}

inline bytes set(const bytes &payload) {
    return frame_of(ZOF_HMI_OP_SET, payload);
}

// One turn of the program's loop.
inline void loop_turn() {
    {
        zof_lock gui(dis_mutex);
        lv_timer_handler();
    }
    usleep(1000);
}

inline bool line_has_bytes(panel &p) {
    pollfd f = {p.pty.line.fd, POLLIN, 0};
    return poll(&f, 1, 0) > 0;
}

// Reads what the panel sends next, up to `size` bytes, while its loop runs.
inline bytes read_while_looping(panel &p, size_t size) {
    eventually([&] {
        loop_turn();
        return line_has_bytes(p);
    });
    return pty_read(p.pty, size);
}

// Sends a frame and expects exactly this answer.
inline void answers(panel &p, const bytes &request, const bytes &answer) {
    pty_write(p.pty, request);
    const bytes got = read_while_looping(p, answer.size());
    CAPTURE(hex(got));
    CAPTURE(hex(answer));
    CHECK(got == answer);
}

// Waits until all that was sent is done, and checks that none of it was answered: a read by the graphics thread gets
// its own answer and nothing before it. The byte ahead is the one that is lost where a frame follows another without a
// silence.
inline void silent(panel &p) {
    answers(p, join({{0x00}, get({0xB1, 0x06})}), get({0xB1, 0x06, 1, 64, 0, 240}));
}

#endif
