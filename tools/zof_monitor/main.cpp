// Sits between a host and a panel and decodes their frames; records them to a file, and replays it.
#include <CLI/CLI.hpp>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <deque>
#include <fnmatch.h>
#include <fstream>
#include <poll.h>
#include <sstream>
#include <unistd.h>

#include "decode.h"
#include "wire.h"

// One end: a line and the bytes not written to it yet.
struct side {
    wire line;
    std::deque<uint8_t> waiting;
    splitter cut; // for the bytes from this end
    int64_t heard_us = 0;
    uint64_t dropped = 0;
};

struct options {
    std::string head = "5AA5", record, file;
    bool crc = false, hex = false;
    double seconds = 0, gap_ms = 30, speed = 1, wait_ms = 1000;
    std::vector<std::string> only, without;
    std::string from;
};

static struct {
    side host, panel;
    options opt;
    zof_hmi_cmd_analys_t settings;
    std::ofstream record;
    uint64_t frames = 0, faults = 0;
} monitor;

// The limit of bytes that wait for an end that does not read.
static constexpr size_t WAITING_MAX = 65536;

static volatile sig_atomic_t stop;

static int64_t now_us() {
    using clock = std::chrono::steady_clock;
    static const clock::time_point start = clock::now();
    return std::chrono::duration_cast<std::chrono::microseconds>(clock::now() - start).count();
}

static int fail(const std::string &what) {
    fprintf(stderr, "zof_monitor: %s\n", what.c_str());
    return 2;
}

// Output

static bool matches(const std::vector<std::string> &patterns, const std::string &name) {
    for (const std::string &pattern : patterns) {
        if (fnmatch(pattern.c_str(), name.c_str(), 0) == 0) {
            return true;
        }
    }
    return false;
}

static bool wanted(const piece &p) {
    const options &o = monitor.opt;
    return (o.only.empty() || matches(o.only, p.name)) && !matches(o.without, p.name) &&
           (o.from.empty() || (o.from == "host") == p.from_host);
}

static void show(const piece &p) {
    monitor.frames += p.name != "noise";
    monitor.faults += p.text.find("!!") != std::string::npos;
    if (!wanted(p)) {
        return;
    }
    printf("%6lld.%06lld  %s  %s", (long long)(p.at_us / 1000000), (long long)(p.at_us % 1000000),
           p.from_host ? "host >        " : "       < panel", p.text.c_str());
    const bool bytes_too = monitor.opt.hex || p.name == "noise" || p.text.find("!!") != std::string::npos;
    printf(bytes_too ? "   [%s]\n" : "\n", hex_text(p.data).c_str());
    fflush(stdout);
}

static void keep(const piece &p) {
    if (monitor.record.is_open()) {
        monitor.record << p.at_us << (p.from_host ? " host " : " panel ") << hex_text(p.data) << "  # " << p.text
                       << "\n";
        monitor.record.flush();
    }
}

// Watching

static void write_waiting(side &s) {
    uint8_t block[4096];
    const size_t size = std::min(s.waiting.size(), sizeof(block));
    std::copy(s.waiting.begin(), s.waiting.begin() + (long)size, block);
    const ssize_t n = write(s.line.fd, block, size);
    if (n > 0) {
        s.waiting.erase(s.waiting.begin(), s.waiting.begin() + n);
    }
}

static void give(side &to, const uint8_t *data, size_t size) {
    const size_t taken = std::min(size, WAITING_MAX - to.waiting.size());
    to.waiting.insert(to.waiting.end(), data, data + taken);
    to.dropped += size - taken;
    write_waiting(to);
}

// Reads from one end; false when the line is gone. The bytes are forwarded before anything is printed about them.
static bool take(side &from, side *to, std::vector<piece> &out, bool silence) {
    uint8_t block[4096];
    const ssize_t n = silence ? 0 : read(from.line.fd, block, sizeof(block));
    if (n <= 0 && !silence) {
        return errno == EAGAIN || errno == EINTR;
    }
    if (to) {
        give(*to, block, (size_t)n);
    }
    from.heard_us = now_us();
    for (piece &p : split(from.cut, monitor.settings, bytes(block, block + n), now_us(), silence)) {
        out.push_back(std::move(p));
    }
    return true;
}

static pollfd polled(const side &s) {
    return {s.line.fd, (short)(s.waiting.empty() ? POLLIN : POLLIN | POLLOUT), 0};
}

// Forwards between both ends once; the decoded pieces are added to `out`. False when a line is gone.
static bool turn(std::vector<piece> &out) {
    pollfd fds[2] = {polled(monitor.host), polled(monitor.panel)};
    const bool both = monitor.host.line.fd >= 0;
    poll(both ? fds : fds + 1, both ? 2 : 1, (int)monitor.opt.gap_ms);
    side *sides[2] = {&monitor.host, &monitor.panel};
    for (int i = both ? 0 : 1; i < 2; i++) {
        if (fds[i].revents & POLLOUT) {
            write_waiting(*sides[i]);
        }
        if ((fds[i].revents & (POLLIN | POLLHUP | POLLERR)) &&
            !take(*sides[i], both ? sides[1 - i] : nullptr, out, false)) {
            return fail("the line is gone") == 0;
        }
        if ((double)(now_us() - sides[i]->heard_us) > monitor.opt.gap_ms * 1000) {
            take(*sides[i], nullptr, out, true);
        }
    }
    return true;
}

static bool line_open(side &s, bool host, const std::string &tty, const std::string &link, unsigned baud) {
    s.cut.from_host = host;
    s.line.tty = tty;
    s.line.link = link;
    s.line.baud = baud;
    return wire_plug(s.line);
}

static int watch() {
    if (!monitor.opt.record.empty()) {
        monitor.record.open(monitor.opt.record);
        if (!monitor.record) {
            return fail(monitor.opt.record + ": " + std::generic_category().message(errno));
        }
        monitor.record << "# zof_monitor head=" << monitor.opt.head << " crc=" << monitor.opt.crc << "\n";
    }
    for (const side *s : {&monitor.host, &monitor.panel}) {
        fprintf(stderr, "%s: %s\n", s == &monitor.host ? "the host opens " : "the panel opens",
                !s->line.tty.empty()    ? (s->line.tty + " (exists)").c_str()
                : !s->line.link.empty() ? s->line.link.c_str()
                                        : s->line.slave_name.c_str());
    }
    bool good = true;
    while (good && !stop && (monitor.opt.seconds <= 0 || (double)now_us() < monitor.opt.seconds * 1e6)) {
        std::vector<piece> said;
        good = turn(said);
        for (const piece &p : said) {
            show(p);
            keep(p);
        }
    }
    fprintf(stderr, "%llu frames, %llu with faults\n", (unsigned long long)monitor.frames,
            (unsigned long long)monitor.faults);
    for (const side *s : {&monitor.host, &monitor.panel}) {
        if (s->dropped) {
            fprintf(stderr, "!! the %s did not read: %llu bytes dropped\n", s->cut.from_host ? "host" : "panel",
                    (unsigned long long)s->dropped);
        }
    }
    return good ? 0 : 1;
}

// Recordings

struct line_of_file {
    int64_t at_us;
    bool from_host;
    bytes data;
    int number;
};

static bool parse_line(const std::string &text, line_of_file &out) {
    std::istringstream in(text.substr(0, text.find('#')));
    std::string who, byte;
    if (!(in >> out.at_us >> who) || (who != "host" && who != "panel")) {
        return false;
    }
    out.from_host = who == "host";
    while (in >> byte) {
        char *end;
        const unsigned long value = strtoul(byte.c_str(), &end, 16);
        if (*end || value > 0xFF) {
            return false;
        }
        out.data.push_back((uint8_t)value);
    }
    return !out.data.empty();
}

static bool settings_take() {
    char *end;
    const unsigned long head = strtoul(monitor.opt.head.c_str(), &end, 16);
    if (*end || monitor.opt.head.size() != 4 || head >> 8 == (head & 0xFF)) {
        return fail("--head takes two different bytes, as in 5AA5") == 0;
    }
    monitor.settings = decode_settings((uint8_t)(head >> 8), (uint8_t)head, monitor.opt.crc);
    return true;
}

static bool read_recording(std::vector<line_of_file> &out) {
    std::ifstream in(monitor.opt.file);
    std::string text;
    for (int number = 1; std::getline(in, text); number++) {
        char head[5];
        int crc;
        line_of_file line = {.number = number};
        if (sscanf(text.c_str(), "# zof_monitor head=%4s crc=%d", head, &crc) == 2) {
            monitor.opt.head = head;
            monitor.opt.crc = crc != 0;
        } else if (text.find_first_not_of(" \t\r") != std::string::npos && text[0] != '#') {
            if (!parse_line(text, line)) {
                return fail(monitor.opt.file + ":" + std::to_string(number) +
                            ": expected: MICROSECONDS host|panel BYTES") == 0;
            }
            out.push_back(line);
        }
    }
    return in.eof() ? settings_take() : fail(monitor.opt.file + ": cannot be read") == 0;
}

static piece described(const line_of_file &line) {
    splitter s = {.from_host = line.from_host};
    std::vector<piece> all = split(s, monitor.settings, line.data, line.at_us, true);
    return all.size() == 1 ? all[0] : piece{line.at_us, line.from_host, line.data, "noise", "bytes"};
}

static int show_recording() {
    std::vector<line_of_file> lines;
    if (!read_recording(lines)) {
        return 2;
    }
    for (const line_of_file &line : lines) {
        show(described(line));
    }
    return 0;
}

// Replay

// Walks both lists side by side. Where they differ, it looks for the nearest point at which they match again:
// everything before that point is missing or new.
static int compare(const std::vector<std::pair<int, piece>> &then, const std::vector<piece> &now) {
    enum { LOOK = 50 };
    int differences = 0;
    size_t i = 0, k = 0;
    const auto same = [&](size_t a, size_t b) {
        return a < then.size() && b < now.size() && then[a].second.data == now[b].data;
    };
    while (i < then.size() || k < now.size()) {
        if (same(i, k)) {
            i++, k++;
            continue;
        }
        size_t skip = 1;
        while (skip < LOOK && !same(i + skip, k) && !same(i, k + skip) && !same(i + skip, k + skip)) {
            skip++;
        }
        const bool missing = !same(i, k + skip), besides = !same(i + skip, k);
        for (size_t n = 0; n < skip; n++) {
            if (missing && i < then.size()) {
                printf("%s:%d: was  %s   [%s]\n", monitor.opt.file.c_str(), then[i].first, then[i].second.text.c_str(),
                       hex_text(then[i].second.data).c_str());
                i++, differences++;
            }
            if (besides && k < now.size()) {
                printf("%*s  is   %s   [%s]\n", (int)monitor.opt.file.size() + 2, "", now[k].text.c_str(),
                       hex_text(now[k].data).c_str());
                k++, differences += !missing;
            }
        }
    }
    printf("%zu frames from the panel in the recording, %zu now, %d differences\n", then.size(), now.size(),
           differences);
    return differences ? 1 : 0;
}

static void collect(std::vector<piece> &answers) {
    std::vector<piece> said;
    stop = stop || !turn(said);
    for (piece &p : said) {
        if (wanted(p)) {
            answers.push_back(std::move(p));
        }
    }
}

// Waits for the answers that the recording has at this point; returns how many have not arrived in time.
static size_t answers_wait(std::vector<piece> &now, size_t count) {
    const int64_t end = now_us() + (int64_t)(monitor.opt.wait_ms * 1000);
    while (!stop && now.size() < count && now_us() < end) {
        collect(now);
    }
    return now.size() < count ? count - now.size() : 0;
}

static int replay() {
    std::vector<line_of_file> lines;
    if (!read_recording(lines)) {
        return 2;
    }
    std::vector<std::pair<int, piece>> then;
    std::vector<piece> now;
    monitor.opt.gap_ms = std::min(monitor.opt.gap_ms, 5.0); // short turns while waiting to send a line
    monitor.opt.from = "panel";
    if (monitor.panel.line.tty.empty()) {
        fprintf(stderr, "waiting for the panel to open %s\n",
                monitor.panel.line.link.empty() ? monitor.panel.line.slave_name.c_str()
                                                : monitor.panel.line.link.c_str());
        while (!stop && monitor.panel.heard_us == 0) { // the panel sends a report when it has started
            collect(now);
        }
    }
    int64_t sent_us = now_us(), then_us = lines.empty() ? 0 : lines[0].at_us;
    size_t absent = 0;
    for (const line_of_file &line : lines) {
        if (!line.from_host) {
            piece p = described(line);
            if (wanted(p)) {
                then.emplace_back(line.number, p);
            }
            continue;
        }
        absent += answers_wait(now, then.size() - absent);
        const int64_t due = sent_us + (int64_t)((double)(line.at_us - then_us) / monitor.opt.speed);
        while (!stop && now_us() < due) {
            collect(now);
        }
        give(monitor.panel, line.data.data(), line.data.size());
        sent_us = now_us(); // keeps the recorded distance between frames even if this one was late
        then_us = line.at_us;
    }
    const int64_t end = now_us() + (int64_t)(monitor.opt.wait_ms * 1000);
    while (!stop && now_us() < end) {
        collect(now);
    }
    return compare(then, now);
}

static void on_signal(int) {
    stop = 1;
}

int main(int argc, char **argv) {
    options &o = monitor.opt;
    std::string host_tty, host_link, panel_tty, panel_link;
    unsigned baud = 115200;
    CLI::App app("Decodes the frames between a host and a panel, records them to a file, and replays it.\n"
                 "Example:  zof_monitor watch --panel-link /tmp/panel --host-link /tmp/host\n"
                 "then start the panel with ZOF_COM5=/tmp/panel, and a host on /tmp/host.");
    app.require_subcommand(1);
    const auto filters = [&](CLI::App *c) {
        c->add_option("--only", o.only, "show only these rows: names with wildcards (label.*, fault, noise)");
        c->add_option("--not", o.without, "hide these rows");
        c->add_option("--from", o.from, "show only frames from host or panel")->check(CLI::IsMember({"host", "panel"}));
        c->add_flag("--hex", o.hex, "show the bytes of every frame");
    };
    const auto panel_line = [&](CLI::App *c) {
        c->add_option("--panel", panel_tty, "the tty that leads to the panel");
        c->add_option("--panel-link", panel_link, "or a link to create for a pseudo-terminal that the panel opens");
        c->add_option("--baud", baud, "speed of a tty")->capture_default_str();
    };
    CLI::App *w = app.add_subcommand("watch", "forward between a host and a panel, and decode");
    filters(w);
    panel_line(w);
    w->add_option("--host", host_tty, "the tty that leads to the host");
    w->add_option("--host-link", host_link, "or a link to create for a pseudo-terminal that the host opens");
    w->add_option("--head", o.head, "head bytes of the project")->capture_default_str();
    w->add_flag("--crc", o.crc, "the project has crc_en");
    w->add_option("--gap", o.gap_ms, "ms of silence that end an incomplete frame")
        ->capture_default_str()
        ->check(CLI::Range(1, 10000));
    w->add_option("--record", o.record, "record all frames to this file");
    w->add_option("--seconds", o.seconds, "exit after this many seconds");
    CLI::App *s = app.add_subcommand("show", "decode a recording");
    s->add_option("file", o.file, "the recording")->required();
    filters(s);
    CLI::App *r =
        app.add_subcommand("replay", "send the host's frames of a recording, and compare the panel's answers");
    r->add_option("file", o.file, "the recording")->required();
    r->add_option("--not", o.without, "rows that may differ, such as system.rtc");
    r->add_option("--speed", o.speed, "factor; 2 is twice as fast")
        ->capture_default_str()
        ->check(CLI::Range(0.01, 100.0));
    r->add_option("--wait", o.wait_ms, "ms to wait for a missing answer")->capture_default_str();
    panel_line(r);
    CLI11_PARSE(app, argc, argv);

    signal(SIGINT, on_signal);
    signal(SIGTERM, on_signal);
    if (s->parsed()) {
        return show_recording();
    }
    const bool lines = settings_take() && line_open(monitor.panel, false, panel_tty, panel_link, baud) &&
                       (r->parsed() || line_open(monitor.host, true, host_tty, host_link, baud));
    const int result = !lines ? 2 : r->parsed() ? replay() : watch();
    wire_unplug(monitor.host.line);
    wire_unplug(monitor.panel.line);
    return result;
}
