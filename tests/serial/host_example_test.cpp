// The firmware library's example, run as a program of its own against a panel, each at the far end of a line.
#include <csignal>
#include <sys/wait.h>

#include "zof_test.h"

#include "hmi_panel.h"

enum { HOST_PORT = 42 };

// A child with its output on a pipe.
struct child {
    pid_t pid;
    int out;
    std::string said;
};

static child child_start(const std::string &port) {
    int ends[2];
    REQUIRE(pipe(ends) == 0);
    const pid_t pid = fork();
    if (pid == 0) {
        dup2(ends[1], 1);
        execl(ZOF_HOST_EXAMPLE, "host", port.c_str(), "1", "5", "20", (char *)nullptr);
        _exit(127);
    }
    close(ends[1]);
    return {pid, ends[0], ""};
}

static void carry(int from, int to) {
    pollfd f = {from, POLLIN, 0};
    u8 data[256];
    if (poll(&f, 1, 0) > 0) {
        const ssize_t n = read(from, data, sizeof(data));
        CHECK((n > 0 && write(to, data, (size_t)n) == n));
    }
}

TEST_CASE("the firmware library's example shows a live value on a panel and prints its touches") {
    panel p;
    panel_up(p, "");
    serial_pty far;
    pty_open(far, HOST_PORT);
    child host = child_start(far.line.link);
    bool ended = false;
    int turns = 0;
    eventually([&] {
        for (int i = 0; i < 3; i++) {
            carry(far.line.fd, p.pty.line.fd);
            carry(p.pty.line.fd, far.line.fd);
        }
        if (zof_prj_get_cur()->attr->hw_t.touch_t.th_en == 0x32) { // it has asked for touches
            sdl_pointer_inject(80, 40, turns++ / 40 % 2);
        }
        loop_turn();
        pollfd f = {host.out, POLLIN, 0};
        char text[512];
        ssize_t n;
        while (poll(&f, 1, 0) > 0 && (n = read(host.out, text, sizeof(text))) >= 0 && !(ended = n == 0)) {
            host.said.append(text, (size_t)n);
        }
        return ended;
    });
    CAPTURE(host.said);
    CHECK(ended);
    kill(host.pid, SIGTERM);
    int status = -1;
    CHECK(waitpid(host.pid, &status, 0) == host.pid);
    CHECK(status == 0);
    CHECK(host.said.find("label 1/5: 0.19 V\n") != std::string::npos);
    CHECK(host.said.find("pressed at 80, 40\nlabel") != std::string::npos);
    CHECK(host.said.find("released at 80, 40\n") != std::string::npos);
    CHECK(host.said.find("no answer") == std::string::npos);
}
