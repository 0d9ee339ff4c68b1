// The line of the board on a system with pseudo-terminals.
#include "wire.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <system_error>
#include <termios.h>
#include <unistd.h>

const bool wire_makes_lines = true;
const char *const wire_line_help = "use this serial line instead of a pseudo-terminal";
const char *const wire_example = "board_sim --link /tmp/board --trace        then:  ZOF_COM6=/tmp/board zof_bench";

static constexpr struct {
    unsigned baud;
    speed_t code;
} speeds[] = {{2400, B2400},     {4800, B4800},     {9600, B9600},       {19200, B19200},     {38400, B38400},
              {57600, B57600},   {115200, B115200}, {230400, B230400},   {460800, B460800},   {500000, B500000},
              {576000, B576000}, {921600, B921600}, {1000000, B1000000}, {1152000, B1152000}, {1500000, B1500000}};

static void make_raw(int fd, unsigned baud) {
    termios t;
    if (tcgetattr(fd, &t) != 0) {
        return;
    }
    cfmakeraw(&t);
    for (const auto &speed : speeds) {
        if (speed.baud == baud) {
            cfsetspeed(&t, speed.code);
        }
    }
    tcsetattr(fd, TCSANOW, &t);
}

static bool fail(const std::string &what) {
    fprintf(stderr, "%s: %s: %s\n", program_invocation_short_name, what.c_str(),
            std::generic_category().message(errno).c_str());
    return false;
}

// Creates the link. Replaces an existing link, which may be stale or another board's, but never a file.
static bool link_set(wire &w) {
    if (w.link.empty()) {
        return true;
    }
    struct stat st;
    if (lstat(w.link.c_str(), &st) == 0 && S_ISLNK(st.st_mode)) {
        unlink(w.link.c_str());
    }
    w.linked = symlink(w.slave_name.c_str(), w.link.c_str()) == 0;
    return w.linked || fail(w.link);
}

static void link_remove(wire &w) {
    char now[256];
    const ssize_t n = w.linked ? readlink(w.link.c_str(), now, sizeof(now)) : -1;
    if (n > 0 && std::string(now, (size_t)n) == w.slave_name) { // otherwise another board has replaced the link
        unlink(w.link.c_str());
    }
    w.linked = false;
}

static bool plug_pty(wire &w) {
    w.fd = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (w.fd < 0 || grantpt(w.fd) != 0 || unlockpt(w.fd) != 0) {
        return fail("cannot create a pseudo-terminal");
    }
    char name[64];
    if (ptsname_r(w.fd, name, sizeof(name)) != 0) {
        return fail("no pseudo-terminal");
    }
    w.slave_name = name;
    w.slave = open(w.slave_name.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (w.slave < 0) {
        return fail(w.slave_name);
    }
    make_raw(w.slave, w.baud);
    return link_set(w);
}

// Opens the given line. The file type is checked before opening, because frames would overwrite a regular file, and
// opening other devices may have side effects.
static bool plug_tty(wire &w) {
    struct stat st;
    if (stat(w.tty.c_str(), &st) == 0 && !S_ISCHR(st.st_mode)) {
        errno = ENOTTY;
        return fail(w.tty);
    }
    w.fd = open(w.tty.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (w.fd < 0) {
        return fail(w.tty);
    }
    if (!isatty(w.fd)) {
        wire_unplug(w);
        errno = ENOTTY;
        return fail(w.tty);
    }
    char name[64];
    w.is_pts = ttyname_r(w.fd, name, sizeof(name)) == 0 && strncmp(name, "/dev/pts/", 9) == 0;
    make_raw(w.fd, w.baud);
    return true;
}

bool wire_plug(wire &w) {
    if (w.fd >= 0) {
        return true;
    }
    if (!w.tty.empty()) {
        return !w.ended && plug_tty(w);
    }
    if (!plug_pty(w)) {
        wire_unplug(w);
        return false;
    }
    return true;
}

void wire_lost(wire &w) {
    w.ended = w.is_pts;
    wire_unplug(w);
}

void wire_unplug(wire &w) {
    for (int *fd : {&w.fd, &w.slave}) {
        if (*fd >= 0) {
            close(*fd);
            *fd = -1;
        }
    }
    link_remove(w);
    w.queue.clear();
}

long wire_read(wire &w, uint8_t *data, size_t size) {
    const ssize_t n = w.fd >= 0 ? read(w.fd, data, size) : 0;
    if (w.fd < 0 || n > 0) {
        return (long)n;
    }
    return n < 0 && (errno == EAGAIN || errno == EINTR) ? 0 : -1;
}

size_t wire_write(wire &w, const bytes &data) {
    const ssize_t n = write(w.fd, data.data(), data.size());
    return n > 0 ? (size_t)n : 0;
}

void wire_wait(const std::vector<wire_wanted> &lines, int ms) {
    std::vector<pollfd> files;
    for (const auto &[line, write] : lines) {
        if (line->fd >= 0) {
            files.push_back({line->fd, (short)(write ? POLLIN | POLLOUT : POLLIN), 0});
        }
    }
    poll(files.data(), files.size(), ms);
}
