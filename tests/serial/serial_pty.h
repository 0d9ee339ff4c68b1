// A pseudo-terminal as a numbered port: the test holds the far end, the runtime opens the near one.
#ifndef SERIAL_PTY_H
#define SERIAL_PTY_H

#include <cstdlib>
#include <poll.h>
#include <string>
#include <unistd.h>

#include "eventually.h"
#include "wire.h"
#include "zof_test.h"

struct serial_pty {
    wire line;
};

inline void pty_open(serial_pty &p, int port) {
    p.line.link = std::string(ZOF_BUILD_DIR) + "/pty-" + std::to_string(getpid()) + "-" + std::to_string(port);
    setenv(("ZOF_COM" + std::to_string(port)).c_str(), p.line.link.c_str(), 1);
    REQUIRE(wire_plug(p.line));
}

inline void pty_write(serial_pty &p, const bytes &data) {
    REQUIRE(write(p.line.fd, data.data(), data.size()) == (ssize_t)data.size());
}

// Reads what the runtime has sent, up to `size` bytes, waiting at most two seconds.
inline bytes pty_read(serial_pty &p, size_t size, int wait_ms = 2000) {
    bytes out(size);
    size_t have = 0;
    pollfd f = {p.line.fd, POLLIN, 0};
    while (have < size && poll(&f, 1, wait_ms) > 0) {
        const ssize_t n = read(p.line.fd, out.data() + have, size - have);
        if (n <= 0) {
            break;
        }
        have += (size_t)n;
    }
    out.resize(have);
    return out;
}

#endif
