// Sits between a host and a panel and decodes their frames. Can record them to a file and replay the recording.
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <deque>
#include <filesystem>
#include <fstream>

#include "recording.h"
#include "wire.h"
#include "zof.h"

// One end: its line and the bytes that wait to be written to it.
struct side {
    wire line;
    std::deque<uint8_t> waiting;
    splitter cut; // splits the bytes received from this end
    int64_t heard_us = 0;
    uint64_t dropped = 0;
};

struct options {
    std::string head = "5AA5", record, file;
    bool crc = false, hex = false;
    unsigned baud = 115200;
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
    int print_fault = 0; // errno of the first line that could not be printed
    bool record_failed = false;
    const CLI::App *shows = nullptr, *replays = nullptr;
} monitor;

// Limit of the bytes queued for an end that does not read.
static constexpr size_t WAITING_MAX = 65536;

enum { BLOCK_SIZE = 4096 };

static volatile sig_atomic_t stop;

static int64_t now_us() {
    using clock = std::chrono::steady_clock;
    static const clock::time_point start = clock::now();
    return std::chrono::duration_cast<std::chrono::microseconds>(clock::now() - start).count();
}

static int fail(const std::string &what, int status = ZOF_EXIT_USAGE) {
    fprintf(stderr, "zof monitor: %s\n", what.c_str());
    return status;
}

static std::string reason(int error) {
    return std::generic_category().message(error);
}

// Output

// In a pattern, "*" stands for any characters and "?" for one.
static bool is_like(const char *name, const char *pattern) {
    if (*pattern == '*') {
        return is_like(name, pattern + 1) || (*name && is_like(name + 1, pattern));
    }
    return *pattern ? *name && (*pattern == '?' || *pattern == *name) && is_like(name + 1, pattern + 1) : !*name;
}

static bool matches(const std::vector<std::string> &patterns, const std::string &name) {
    return std::any_of(patterns.begin(), patterns.end(),
                       [&](const std::string &pattern) { return is_like(name.c_str(), pattern.c_str()); });
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
    monitor.print_fault = ferror(stdout) && !monitor.print_fault ? errno : monitor.print_fault;
}

static void keep(const piece &p) {
    if (monitor.record.is_open() && !(monitor.record << recording_line(p)).flush()) {
        fail(monitor.opt.record + ": " + reason(errno) + "; the recording ends here");
        monitor.record.close();
        monitor.record_failed = true;
    }
}

// Watching

static void write_waiting(side &s) {
    const size_t size = std::min(s.waiting.size(), (size_t)BLOCK_SIZE);
    const size_t n = size ? wire_write(s.line, bytes(s.waiting.begin(), s.waiting.begin() + (long)size)) : 0;
    s.waiting.erase(s.waiting.begin(), s.waiting.begin() + (long)n);
}

static void give(side &to, const uint8_t *data, size_t size) {
    const size_t taken = std::min(size, WAITING_MAX - to.waiting.size());
    to.waiting.insert(to.waiting.end(), data, data + taken);
    to.dropped += size - taken;
    write_waiting(to);
}

// Reads from one end, or ends its incomplete frame after a silence. Received bytes are forwarded before anything is
// printed about them. Returns false if the line is gone.
static bool take(side &from, side *to, std::vector<piece> &out, bool silence) {
    uint8_t block[BLOCK_SIZE];
    const long n = silence ? 0 : wire_read(from.line, block, sizeof(block));
    if (n <= 0 && !silence) {
        return n == 0;
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

// Forwards once between both ends and appends the decoded pieces to `out`. Returns false if a line is gone.
static bool turn(std::vector<piece> &out) {
    const bool both = monitor.host.line.fd >= 0;
    side *sides[2] = {&monitor.host, &monitor.panel};
    std::vector<wire_wanted> wanted;
    for (int i = both ? 0 : 1; i < 2; i++) {
        wanted.push_back({&sides[i]->line, !sides[i]->waiting.empty()});
    }
    wire_wait(wanted, (int)monitor.opt.gap_ms);
    for (int i = both ? 0 : 1; i < 2; i++) {
        write_waiting(*sides[i]);
        if (!take(*sides[i], both ? sides[1 - i] : nullptr, out, false)) {
            return fail("the line is gone") == 0;
        }
        if ((double)(now_us() - sides[i]->heard_us) > monitor.opt.gap_ms * 1000) {
            take(*sides[i], nullptr, out, true);
        }
    }
    return true;
}

static const std::string &line_path(const side &s) {
    return !s.line.tty.empty() ? s.line.tty : !s.line.link.empty() ? s.line.link : s.line.slave_name;
}

// Returns false after a message if both ends are the same line, on which each would read what the other one writes.
static bool lines_differ() {
    namespace fs = std::filesystem;
    const std::string host = line_path(monitor.host), panel = line_path(monitor.panel);
    const bool ttys = !monitor.host.line.tty.empty() && !monitor.panel.line.tty.empty();
    std::error_code error;
    const bool same =
        !host.empty() && (fs::absolute(host).lexically_normal() == fs::absolute(panel).lexically_normal() ||
                          (ttys && fs::equivalent(host, panel, error)));
    return !same || fail("host and panel need two different lines, not " + host + " twice") == 0;
}

static int watch() {
    if (!monitor.opt.record.empty()) {
        monitor.record.open(std::filesystem::path{monitor.opt.record});
        if (!(monitor.record << recording_head(monitor.opt.head, monitor.opt.crc)).flush()) {
            return fail(monitor.opt.record + ": " + reason(errno), ZOF_EXIT_FINDINGS);
        }
    }
    for (const side *s : {&monitor.host, &monitor.panel}) {
        fprintf(stderr, "%s: %s%s\n", s == &monitor.host ? "the host opens " : "the panel opens", line_path(*s).c_str(),
                s->line.tty.empty() ? "" : " (exists)");
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
    return good && !monitor.record_failed ? 0 : 1;
}

// Recordings

// Reads the head bytes; `where` is their option or file, for the message. Returns false after a message.
static bool settings_take(const std::string &where) {
    char *end;
    const unsigned long head = strtoul(monitor.opt.head.c_str(), &end, 16);
    if (*end || monitor.opt.head.size() != 4 || head >> 8 == (head & 0xFF)) {
        return fail(where + ": the head is two different bytes, such as 5AA5") == 0;
    }
    monitor.settings = decode_settings((uint8_t)(head >> 8), (uint8_t)head, monitor.opt.crc);
    return true;
}

static bool read_recording(recording &out) {
    const std::string fault = recording_read(monitor.opt.file, out);
    if (!fault.empty()) {
        return fail(fault) == 0;
    }
    if (!out.head.empty()) {
        monitor.opt.head = out.head;
        monitor.opt.crc = out.crc;
    }
    return settings_take(monitor.opt.file);
}

static int show_recording() {
    recording r;
    if (!read_recording(r)) {
        return ZOF_EXIT_UNREADABLE;
    }
    for (const recorded_line &line : r.lines) {
        show(recording_piece(line, monitor.settings));
    }
    return 0;
}

// Replay

static void collect(std::vector<piece> &answers) {
    std::vector<piece> said;
    stop = !turn(said) || stop;
    for (piece &p : said) {
        if (wanted(p)) {
            answers.push_back(std::move(p));
        }
    }
}

// Waits until `count` answers have arrived, as in the recording. Returns the number of answers that did not arrive in
// time.
static size_t answers_wait(std::vector<piece> &now, size_t count) {
    const int64_t end = now_us() + (int64_t)(monitor.opt.wait_ms * 1000);
    while (!stop && now.size() < count && now_us() < end) {
        collect(now);
    }
    return now.size() < count ? count - now.size() : 0;
}

// Waits for a panel on a pseudo-terminal of ours. It sends a report when it has started.
static void panel_wait(std::vector<piece> &now) {
    fprintf(stderr, "waiting for the panel to open %s\n", line_path(monitor.panel).c_str());
    while (!stop && monitor.panel.heard_us == 0) {
        collect(now);
    }
}

static void collect_until(std::vector<piece> &now, int64_t end_us) {
    while (!stop && now_us() < end_us) {
        collect(now);
    }
}

static int replay_result(const std::vector<std::pair<int, piece>> &then, const std::vector<piece> &now) {
    const int differences = recording_compare(monitor.opt.file, then, now);
    printf("%zu frames from the panel in the recording, %zu now, %d differences%s\n", then.size(), now.size(),
           differences, stop ? "; stopped before the end" : "");
    return differences || stop ? 1 : 0;
}

static int replay() {
    recording r;
    if (!read_recording(r)) {
        return ZOF_EXIT_UNREADABLE;
    }
    std::vector<std::pair<int, piece>> then;
    std::vector<piece> now;
    monitor.opt.gap_ms = std::min(monitor.opt.gap_ms, 5.0); // short turns, so that lines are sent at their times
    monitor.opt.from = "panel";
    if (monitor.panel.line.tty.empty()) {
        panel_wait(now);
    }
    int64_t sent_us = now_us(), then_us = r.lines.empty() ? 0 : r.lines[0].at_us;
    size_t absent = 0;
    for (const recorded_line &line : r.lines) {
        if (!line.from_host) {
            piece p = recording_piece(line, monitor.settings);
            if (wanted(p)) {
                then.emplace_back(line.number, p);
            }
            continue;
        }
        absent += answers_wait(now, then.size() - absent);
        collect_until(now, sent_us + (int64_t)((double)(line.at_us - then_us) / monitor.opt.speed));
        give(monitor.panel, line.data.data(), line.data.size());
        sent_us = now_us(); // keeps the recorded distance between frames even if this one was late
        then_us = line.at_us;
    }
    collect_until(now, now_us() + (int64_t)(monitor.opt.wait_ms * 1000));
    return replay_result(then, now);
}

static void on_signal(int) {
    stop = 1;
}

// Options

static void filters_add(CLI::App *c) {
    options &o = monitor.opt;
    c->add_option("--only", o.only, "show only these rows: names with wildcards (label.*, fault, noise)");
    c->add_option("--not", o.without, "hide these rows");
    c->add_option("--from", o.from, "show only frames from host or panel")->check(CLI::IsMember({"host", "panel"}));
    c->add_flag("--hex", o.hex, "show the bytes of every frame");
}

// Adds the options of one end: a serial line, or a pseudo-terminal on systems that have them.
static void line_add(CLI::App *c, const std::string &end, side &s) {
    CLI::Option *tty = c->add_option("--" + end, s.line.tty, "the serial line that leads to the " + end);
    if (wire_makes_lines) {
        c->add_option("--" + end + "-link", s.line.link,
                      "or a link to create for a pseudo-terminal that the " + end + " opens")
            ->excludes(tty);
    } else {
        tty->required();
    }
}

static void panel_line_add(CLI::App *c) {
    line_add(c, "panel", monitor.panel);
    c->add_option("--baud", monitor.opt.baud, "speed of a serial line")->capture_default_str();
}

static void watch_add(CLI::App &app) {
    options &o = monitor.opt;
    CLI::App *w = app.add_subcommand("watch", "forward between a host and a panel, and decode");
    filters_add(w);
    panel_line_add(w);
    line_add(w, "host", monitor.host);
    w->add_option("--head", o.head, "head bytes of the project")->capture_default_str();
    w->add_flag("--crc", o.crc, "the project has crc_en");
    w->add_option("--gap", o.gap_ms, "ms of silence that end an incomplete frame")
        ->capture_default_str()
        ->check(CLI::Range(1, 10000));
    w->add_option("--record", o.record, "record all frames to this file");
    w->add_option("--seconds", o.seconds, "exit after this many seconds; 0 for never")->check(CLI::Range(0.0, 1e9));
}

static CLI::App *show_add(CLI::App &app) {
    CLI::App *s = app.add_subcommand("show", "decode a recording");
    s->add_option("file", monitor.opt.file, "the recording")->required();
    filters_add(s);
    return s;
}

static CLI::App *replay_add(CLI::App &app) {
    options &o = monitor.opt;
    CLI::App *r =
        app.add_subcommand("replay", "send the host's frames of a recording, and compare the panel's answers");
    r->add_option("file", o.file, "the recording")->required();
    r->add_option("--not", o.without, "rows that may differ, such as system.rtc");
    r->add_option("--speed", o.speed, "factor; 2 is twice as fast")
        ->capture_default_str()
        ->check(CLI::Range(0.01, 100.0));
    r->add_option("--wait", o.wait_ms, "ms to wait for a missing answer")
        ->capture_default_str()
        ->check(CLI::Range(0, 1000000));
    panel_line_add(r);
    return r;
}

static bool line_open(side &s, bool host) {
    s.cut.from_host = host;
    s.line.baud = monitor.opt.baud;
    return wire_plug(s.line);
}

static int run(bool replays) {
    if (!replays && (!settings_take("--head") || !lines_differ())) {
        return ZOF_EXIT_USAGE;
    }
    if (!line_open(monitor.panel, false) || (!replays && !line_open(monitor.host, true))) {
        return ZOF_EXIT_FINDINGS;
    }
    return replays ? replay() : watch();
}

static void options_add(CLI::App &app) {
    app.require_subcommand(1);
    watch_add(app);
    monitor.shows = show_add(app);
    monitor.replays = replay_add(app);
}

static int monitor_run() {
    signal(SIGINT, on_signal);
    signal(SIGTERM, on_signal);
    const int result = monitor.shows->parsed() ? show_recording() : run(monitor.replays->parsed());
    wire_unplug(monitor.host.line);
    wire_unplug(monitor.panel.line);
    return monitor.print_fault ? fail("standard output: " + reason(monitor.print_fault), ZOF_EXIT_FINDINGS) : result;
}

const zof_command_t zof_monitor_command = {
    "monitor", "decode the frames between a host and a panel, record and replay them",
    "  zof monitor watch --panel-link /tmp/panel --host-link /tmp/host\n"
    "then start the panel with ZOF_COM5=/tmp/panel, and a host on /tmp/host.\n"
    "  zof monitor watch --host /dev/ttyUSB0 --panel /dev/ttyUSB1 --record day.rec\n"
    "  zof monitor show day.rec --only 'slider.*'",
    options_add, monitor_run};
