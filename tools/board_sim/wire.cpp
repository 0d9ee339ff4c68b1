#include "wire.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <termios.h>
#include <unistd.h>

const std::vector<fault_row> fault_rows = {
    {"lose", &wire_faults::lose, 0.5, 100, "percentage of bytes lost"},
    {"garbage", &wire_faults::garbage, 20, 100, "percentage of frames preceded by up to 30 random bytes"},
    {"split", &wire_faults::split, 20, 1e6, "each frame is sent in two pieces, this many ms apart"},
    {"late", &wire_faults::late, 300, 1e6, "each frame is delayed by this many ms"},
    {"flood", &wire_faults::flood, 11520, 1e6, "readings fill the line with this many bytes per second"},
    {"replug", &wire_faults::replug, 5, 1e6, "the cable is unplugged for one second, at this interval in seconds"},
    {"mute", &wire_faults::mute, 1, 1, "the board sends nothing"},
};

bool fault_take(wire_faults &faults, const std::string &text) {
    const size_t at = text.find('=');
    for (const fault_row &row : fault_rows) {
        if (text.substr(0, at) != row.name) {
            continue;
        }
        double amount = row.normal;
        if (at != std::string::npos) {
            const char *number = text.c_str() + at + 1;
            char *end;
            amount = strtod(number, &end);
            if (end == number || *end || !(amount >= 0 && amount <= row.max)) {
                return false;
            }
        }
        faults.*row.amount = amount;
        return true;
    }
    return false;
}

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

static bool chance(wire &w, double percent) {
    return std::uniform_real_distribution<double>(0, 100)(w.random) < percent;
}

static bytes spoil(wire &w, const bytes &data) {
    bytes out;
    if (chance(w, w.faults.garbage)) {
        const size_t n = w.random() % 30 + 1;
        for (size_t k = 0; k < n; k++) {
            out.push_back((uint8_t)w.random());
        }
    }
    for (uint8_t byte : data) {
        if (!chance(w, w.faults.lose)) {
            out.push_back(byte);
        }
    }
    return out;
}

bool wire_send(wire &w, const bytes &data, double now_ms) {
    if (w.fd < 0 || w.faults.mute > 0) {
        return false;
    }
    const bytes out = spoil(w, data);
    const double due = now_ms + w.faults.late;
    if (w.faults.split > 0 && out.size() > 1) {
        const long cut = 1 + (long)(w.random() % (out.size() - 1));
        w.queue.push_back({due, bytes(out.begin(), out.begin() + cut)});
        w.queue.push_back({due + w.faults.split, bytes(out.begin() + cut, out.end())});
    } else {
        w.queue.push_back({due, out});
    }
    return true;
}

double wire_flush(wire &w, double now_ms) {
    while (!w.queue.empty() && w.queue.front().due_ms <= now_ms) {
        const bytes data = std::move(w.queue.front().data);
        w.queue.pop_front();
        if (w.fd < 0) {
            continue;
        }
        const ssize_t n =
            write(w.fd, data.data(), data.size()); // if nobody reads, the line is full and the rest is lost
        w.sent += n > 0 ? (uint64_t)n : 0;
        w.dropped += data.size() - (n > 0 ? (uint64_t)n : 0);
    }
    return w.queue.empty() ? -1 : w.queue.front().due_ms - now_ms;
}
