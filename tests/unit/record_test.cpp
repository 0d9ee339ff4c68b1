#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>

#include "bench/bench_folder.h"
#include "bench/bench_import.h"
#include "bench/bench_record.h"
#include "eventually.h"
#include "port/zof_host.h"
#include "temp_project.h"

static u32 test_now;

// The model's clock is the test's; the time of day follows it, from 01:38:05.250 on.
static void clock_start() {
    static const zof_clock_t clock = {[] { return test_now; }, [](u32) {}};
    static constexpr zof_drv_rtc_ops_t ops = {
        .get_time =
            [](zof_rtc_time_t *out) {
                *out = {2026, 11, 22, 1, 38, 5};
                return 0;
            },
        .get_stamp =
            [](zof_rtc_stamp_t *out) {
                const u32 ms = test_now + 5250;
                *out = {{2026, 11, 22, 1, (u8)(38 + ms / 60000), (u8)(ms / 1000 % 60)}, (u16)(ms % 1000), -90};
                return 0;
            }};
    zof_clock_set(&clock);
    zof_rtc_t = &ops;
    zof_system_start();
    bench_start();
}

static void wait_ms(u32 ms) {
    test_now += ms;
    bench_tick();
}

static void report(u16 mv = 12040, u16 ma = 865, u16 dw = 104) {
    bench_take(REG_LIVE_MV, mv);
    bench_take(REG_LIVE_MA, ma);
    bench_take(REG_LIVE_DW, dw);
}

static void port(bench_port_e state, const char *who = "") {
    bench_port_t p = {.state = state};
    snprintf(p.who, sizeof(p.who), "%s", who);
    bench_take_port(&p);
}

static bool ended(record_state_e as) {
    return eventually([as] {
        record_tick();
        return record.state == as;
    });
}

static std::vector<std::string> lines_of(const std::string &path) {
    std::vector<std::string> lines;
    std::string text = file_text(path);
    for (size_t end; (end = text.find("\r\n")) != std::string::npos; text.erase(0, end + 2)) {
        lines.push_back(text.substr(0, end));
    }
    CHECK(text.empty()); // an unfinished line
    return lines;
}

TEST_CASE("record: a line has measured and set values, a silence has its reason, and all lines can be imported") {
    clock_start();
    temp_project_t folder;
    record_folder_set(folder.top.c_str());
    REQUIRE(record_start());
    const std::string path = record.path;
    CHECK(path == folder.top + "/2026-11-22-0138.csv");
    CHECK(!record_start()); // it runs
    port(BENCH_PORT_OPEN);
    bench.rails = {.state = BENCH_RAILS_SHOWN,
                   .rail = {{RAIL_FIX, 5000, 5000, 3000}, {RAIL_PPS, 3300, 21000, 5000}},
                   .valid = {true, true},
                   .count = 2};
    wait_ms(100);
    report(65535, 65535, 65535);
    bench.rail = 1;
    bench.rail_known = bench.set_known = true;
    bench.set = {1, 12000, 1000};
    bench_take(REG_OUT_STATE, 1);
    wait_ms(100);
    report();
    wait_ms(100);
    bench_take(REG_LIVE_MV, 11500);
    bench_take(REG_LIVE_MA, 800);
    wait_ms(100);
    bench_take(REG_LIVE_MV, 1); // the power of the last one never came
    port(BENCH_PORT_HELD, "a \"name\", 4711\n");
    wait_ms(5000);
    port(BENCH_PORT_OPEN);
    report(1, 2, 0);
    wait_ms(2100);
    record_stop();
    CHECK(ended(RECORD_OFF));
    static const std::vector<std::string> want = {
        "Time,Voltage (V),Current (A),Power (W),Set voltage (V),Set current (A),Output,Rail,Current limit,Link,Note",
        "2026-11-22T01:38:05.250-01:30,,,,,,,,,looking,",
        "2026-11-22T01:38:05.350-01:30,65.535,65.535,6553.5,,,,,no,live,",
        "2026-11-22T01:38:05.450-01:30,12.040,0.865,10.4,12.000,1.000,on,PPS 3.30-21.00 V,no,live,",
        "2026-11-22T01:38:05.650-01:30,11.500,0.800,,12.000,1.000,on,PPS 3.30-21.00 V,no,live,",
        "2026-11-22T01:38:05.650-01:30,,,,,,,,,held,\"a 'name', 4711\"",
        "2026-11-22T01:38:10.650-01:30,0.001,0.002,0.0,,,,,no,live,",
        "2026-11-22T01:38:12.750-01:30,,,,,,,,,silent,",
    };
    const std::vector<std::string> lines = lines_of(path);
    REQUIRE(lines.size() == want.size());
    for (size_t i = 0; i < want.size(); i++) {
        CHECK(lines[i] == want[i]);
    }
    const u64 now = trend_now();
    CHECK(import_file(path.c_str()) == 4);
    CHECK((trend_stopped() && trend_now() == 1795316890650 && trend_now() != now));
    CHECK(trend_day_ms(trend_now()) == ((1 * 60 + 38) * 60 + 10) * 1000 + 650);
    trend_point_t p;
    CHECK((trend_at(trend_now() - 5200, &p) && p.mv == 12040 && p.ma == 865 && p.set_mv == 12000 &&
           p.flags == (TREND_JOINED | TREND_DW | TREND_SET | TREND_OUT_KNOWN | TREND_ON)));
    CHECK(!trend_at(trend_now() - 100, &p)); // the silence
    report();                                // what the box reports now is not mixed with it
    CHECK((trend_at(trend_now(), &p) && p.mv == 1));
    CHECK(!record_start());
}

TEST_CASE("record: lines that are not reports are skipped and logged, and a file without columns changes nothing") {
    clock_start();
    temp_project_t folder;
    const std::string path = folder.path("a.csv");
    folder.write("a.csv",
                 "\xEF\xBB\xBF"
                 "Current (A),\"Voltage (V)\",Time,\"a \"\"b\"\", c\"\n"
                 "1.5,\"12\",2026-11-22T10:00:00Z,\"x, \"\"y\n"
                 "1.5,13,2026-11-22T12:00:00.5+02:00\n"
                 "1.5,13,2026-11-22T09:59:59Z\n1.5,70000,2026-11-22T10:00:01Z\nnan,1,2026-11-22T10:00:01Z\n"
                 "1,1,2026-13-22T10:00:01Z\n1,1,2026-11-22T10:00:01\n1,1\n,,2026-11-22T10:00:01Z\n\n1,1,2026-11-");
    const std::string log = printed([&] { CHECK(import_file(path.c_str()) == 2); });
    for (const char *line : {":4: its time is before", ":5: no voltage", ":6: no voltage", ":7: no time", ":8: no time",
                             ":9: fields are missing", ":12: the line is not finished"}) {
        CAPTURE(line);
        CHECK(contains(log, "a.csv" + std::string(line)));
    }
    trend_point_t p;
    CHECK((trend_at(trend_now(), &p) && p.mv == 13000 && p.ma == 1500 && (p.flags & TREND_JOINED)));
    CHECK(std::string(import_name()) == "a.csv");
    folder.write("b.csv", "Time,Volt\n1,2\n");
    CHECK(contains(printed([&] { CHECK(import_file(folder.path("b.csv").c_str()) == -1); }),
                   "no column \"Voltage (V)\""));
    CHECK(contains(printed([&] { CHECK(import_file(folder.top.c_str()) == -1); }), folder.top));
    folder.write("c.csv", "");
    CHECK(contains(printed([&] { CHECK(import_file(folder.path("c.csv").c_str()) == -1); }), "c.csv: no reports"));
    CHECK(trend_at(trend_now(), &p));
}

TEST_CASE("record: ten reports a second are all written, however unevenly they arrive, and faster ones are limited") {
    clock_start();
    temp_project_t folder;
    u32 count = 0;
    for (u32 period : {100u, 20u}) {
        const std::string path = folder.top + "/" + std::to_string(period) + ".csv";
        REQUIRE(record_log(path.c_str()));
        for (u32 t = 0; t < 60000; t += period) {
            wait_ms(count++ % 2 ? period - period / 5 : period + period / 5);
            report();
        }
        record_stop();
        CHECK(ended(RECORD_OFF));
        const size_t lines = lines_of(path).size() - (period == 100 ? 2 : 1); // without header and first silence
        CHECK((lines >= 599 && lines <= 601));
    }
}

TEST_CASE("record: a full disk ends a recording after a whole line, and existing or invalid names are never written") {
    clock_start();
    temp_project_t folder;
    record_folder_set(folder.top.c_str());
    rlimit limit = {};
    REQUIRE(getrlimit(RLIMIT_FSIZE, &limit) == 0);
    const rlimit low = {10000, limit.rlim_max};
    REQUIRE(setrlimit(RLIMIT_FSIZE, &low) == 0);
    REQUIRE(record_start());
    const std::string path = record.path;
    const std::string log = printed([] {
        CHECK(eventually([] {
            wait_ms(100);
            report();
            return record.state == RECORD_FULL;
        }));
    });
    setrlimit(RLIMIT_FSIZE, &limit);
    CHECK(contains(log, path + " ends: File too large"));
    CHECK(lines_of(path).size() > 90);
    REQUIRE(record_start()); // the next one has another name
    CHECK(record.path == folder.top + "/2026-11-22-0138-2.csv");
    static std::atomic<bool> full;
    zof_file_fault_set([](const char *what, const char *) -> zof_bool { return full && std::string(what) == "write"; });
    for (u32 i = 0; i < 10; i++) {
        wait_ms(100);
        report();
    }
    CHECK(eventually([] { return lines_of(record.path).size() == 11; }));
    full = true; // half of a line is written
    wait_ms(100);
    report();
    CHECK(ended(RECORD_FULL));
    CHECK(lines_of(record.path).size() == 11);
    zof_file_fault_set(nullptr);
    CHECK(!record_log(path.c_str()));
    CHECK((record.state == RECORD_FAILED && contains(record.why, "exists")));
    CHECK(lines_of(path).size() > 90);
    record_folder_set("/proc/none");
    CHECK(!record_start());
}

TEST_CASE("record: lines are on the medium within a second") {
    temp_project_t folder;
    static std::atomic<u32> syncs;
    zof_file_fault_set([](const char *what, const char *) -> zof_bool {
        syncs += std::string(what) == "sync";
        return ZOF_FALSE;
    });
    zof_lines_t *lines = zof_lines_open((folder.top + "/a.csv").c_str());
    REQUIRE(lines);
    for (u32 i = 0; i < 30; i++) {
        CHECK(zof_lines_put(lines, "x") == 0);
        usleep(50000);
    }
    CHECK(syncs >= 2);
    CHECK(zof_lines_put(lines, std::string(ZOF_LINES_MAX + 1, 'x').c_str()) == -1);
    zof_lines_end(lines);
    CHECK(zof_lines_put(lines, "x") == -1);
    CHECK(eventually([=] { return zof_lines_state(lines, nullptr) == ZOF_LINES_DONE; }));
    zof_lines_free(lines);
    zof_file_fault_set(nullptr);
    CHECK(lines_of(folder.top + "/a.csv").size() == 30);
}

// Writes as fast as it can until it is killed.
[[noreturn]] static void write_forever(const char *path) {
    zof_lines_t *lines = zof_lines_open(path);
    for (u32 i = 0; lines; i++) {
        char line[120];
        snprintf(line, sizeof(line), "%0*u,end", 60 + (int)(i % 50), i);
        while (zof_lines_put(lines, line) != 0) {
            usleep(10);
        }
    }
    _exit(1);
}

TEST_CASE("record: a process that is killed 200 times while writing leaves only whole lines") {
    temp_project_t folder;
    u32 cut = 0, empty = 0;
    for (u32 i = 0; i < 200; i++) {
        const std::string path = folder.top + "/" + std::to_string(i);
        const pid_t child = fork();
        if (child == 0) {
            write_forever(path.c_str());
        }
        REQUIRE(child > 0);
        const bool begun = eventually([&] { return zof_file_size(path.c_str()) > 0; });
        usleep(i * 37 % 3000);
        kill(child, SIGKILL);
        int status;
        waitpid(child, &status, 0);
        CHECK(begun);
        const std::vector<std::string> lines = lines_of(path);
        empty += lines.empty();
        cut += (u32)std::count_if(lines.begin(), lines.end(), [](const std::string &l) {
            return l.substr(0, 4) != "0000" || l.find(",end") == std::string::npos;
        });
    }
    CHECK((cut == 0 && empty == 0));
}

TEST_CASE("record: files go to the user's documents folder, or else to the home folder") {
    temp_project_t home;
    const auto folder = [] {
        char out[512];
        folder_documents(out, sizeof(out));
        return std::string(out);
    };
    const std::string &top = home.top;
    for (const char *name : {"XDG_DOCUMENTS_DIR", "XDG_CONFIG_HOME", "HOME", "XDG_STATE_HOME", "ZOF_STATE"}) {
        unsetenv(name);
    }
    CHECK(folder() == ".");
    setenv("XDG_STATE_HOME", (top + "/service").c_str(), 1);
    CHECK(folder() == top + "/service/record_test/recordings");
    setenv("HOME", top.c_str(), 1);
    CHECK(folder() == top);
    zof_mkdir((top + "/Documents").c_str());
    CHECK(folder() == top + "/Documents");
    zof_mkdir((top + "/.config").c_str());
    zof_mkdir((top + "/Dokumente").c_str());
    std::ofstream(top + "/.config/user-dirs.dirs")
        << "# a comment\nXDG_DESKTOP_DIR=\"$HOME\"\nXDG_DOCUMENTS_DIR=\"$HOME/Dokumente\"\n";
    CHECK(folder() == top + "/Dokumente");
    setenv("XDG_CONFIG_HOME", top.c_str(), 1);
    std::ofstream(top + "/user-dirs.dirs") << "XDG_DOCUMENTS_DIR=\"" << top << "/Documents\"\n";
    CHECK(folder() == top + "/Documents");
    setenv("XDG_DOCUMENTS_DIR", (top + "/Dokumente").c_str(), 1);
    CHECK(folder() == top + "/Dokumente");
    setenv("XDG_DOCUMENTS_DIR", (top + "/none").c_str(), 1);
    CHECK(folder() == top + "/Documents");
}
