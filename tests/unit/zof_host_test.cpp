// The firmware's side of the host protocol: what it puts on the line and when, and what it makes of what comes back.
#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "host_frame.h"
#include "zof_host.h"
#include "zof_test.h"

// A host, the line it writes to, and what it was told.
struct rig {
    zof_host_t host;
    bytes rx = bytes(64), tx = bytes(256);
    bytes sent;
    std::vector<uint32_t> sent_at; // of each byte
    uint16_t takes = 1000;         // bytes the line takes at once
    uint32_t now = 1000;
    std::string told;
};

static uint16_t line_write(void *user, const uint8_t *data, uint16_t size) {
    rig &r = *(rig *)user;
    const uint16_t n = size < r.takes ? size : r.takes;
    r.sent.insert(r.sent.end(), data, data + n);
    r.sent_at.insert(r.sent_at.end(), n, r.now);
    return n;
}

static void on_reply(zof_host_t *host, zof_host_reply_t *reply) {
    rig &r = *(rig *)host->user;
    r.told += std::to_string(reply->request) + (reply->result == ZOF_HOST_DONE      ? "="
                                                : reply->result == ZOF_HOST_TIMEOUT ? " timeout"
                                                                                    : " no");
    if (reply->result == ZOF_HOST_DONE && reply->code == ZOF_HOST_LABEL_TEXT) {
        r.told += std::to_string(reply->view) + "/" + std::to_string(reply->control) + ":";
        r.told += zof_host_reply_text(reply);
    } else if (reply->result == ZOF_HOST_DONE && reply->code == ZOF_HOST_VIEW_SIZE) {
        const uint16_t width = zof_host_reply_u16(reply);
        r.told += std::to_string(width) + "x" + std::to_string(zof_host_reply_u16(reply));
    } else if (reply->result == ZOF_HOST_DONE && reply->code == ZOF_HOST_SPIN_BOX_VALUE) {
        r.told += std::to_string((int32_t)zof_host_reply_u32(reply));
    }
    r.told += reply->bad ? " bad " : " ";
}

static void on_event(zof_host_t *host, const zof_host_event_t *event) {
    rig &r = *(rig *)host->user;
    r.told += event->kind == ZOF_HOST_POWER_ON ? "on "
              : event->kind == ZOF_HOST_SILENT ? "silent "
                                               : "touch" + std::to_string(event->state) + "@" +
                                                     std::to_string(event->x) + "," + std::to_string(event->y) + " ";
    zof_host_poll(host, r.now); // from within a callback it does nothing
}

static void set_up(rig &r, uint8_t crc = 0, uint8_t acks = 0) {
    r.host = {.head_fh = 0x5A,
              .head_fl = 0xA5,
              .crc = crc,
              .acks = acks,
              .silence_ms = 5,
              .timeout_ms = 200,
              .rx = r.rx.data(),
              .rx_size = (uint16_t)r.rx.size(),
              .tx = r.tx.data(),
              .tx_size = (uint16_t)r.tx.size(),
              .user = &r,
              .write = line_write,
              .on_reply = on_reply,
              .on_event = on_event};
    REQUIRE(zof_host_init(&r.host) == ZOF_HOST_DONE);
}

static void run_ms(rig &r, uint32_t ms) {
    for (uint32_t i = 0; i < ms; i++) {
        zof_host_poll(&r.host, r.now);
        r.now++;
    }
}

static void feed(rig &r, const bytes &data) {
    zof_host_feed(&r.host, data.data(), (uint16_t)data.size(), r.now);
}

static const bytes LABEL = {0xB2, 0, 0, 0, 1, 0, 5}, SIZE = {0xB1, 6}, STANDBY = {0xB0, 6, 1};

TEST_CASE("what a host may see comes out right at every cut of its bytes, with and without CRC, in both forms") {
    for (bool crc : {false, true}) {
        for (bool long_form : {false, true}) {
            const auto panel = [&](const bytes &payload) { return frame_of(0x11, payload, crc, long_form); };
            bytes wrong = panel(join({LABEL, {'n', 'o', 0}}));
            wrong[crc ? wrong.size() - 1 : 1] ^= 1; // its CRC, or its head
            // An event in front of the answer, noise with half a head, a false frame, the answer, two events.
            const bytes line = join({panel({0xB0, 4, 1, 1, 0, 80, 0, 40}),
                                     {0x5A, 0x5A, 0x11, 0x5A, 0xA5, 2, 0x11},
                                     wrong,
                                     panel(join({LABEL, {'h', 'i', 0}})),
                                     panel({0xB0, 1, 0xAA, 0xBB}),
                                     panel({0xB0, 4, 1, 0, 1, 2, 3, 4})});
            for (size_t cut = 0; cut <= line.size(); cut++) {
                rig r;
                set_up(r, crc);
                CHECK(zof_host_get_label_text(&r.host, 1, 5) == 1);
                run_ms(r, 2);
                CHECK(r.sent == frame_of(0x11, LABEL, crc));
                feed(r, {line.begin(), line.begin() + (long)cut});
                feed(r, {line.begin() + (long)cut, line.end()});
                CAPTURE(cut);
                CHECK(r.told == "touch1@80,40 1=1/5:hi on touch0@258,772 ");
                CHECK(r.host.rx_have == 0);
            }
        }
    }
}

TEST_CASE("a false head that promises more than comes holds nothing up for long") {
    rig r;
    set_up(r);
    const bytes answer = frame_of(0x11, join({SIZE, {1, 64, 0, 240}}));
    zof_host_barrier(&r.host);
    run_ms(r, 10);
    feed(r, join({{0x5A, 0xA5, 60, 0x11}, answer})); // fits the buffer, so it is waited for
    CHECK(r.told == "");
    run_ms(r, 60);
    CHECK(r.told == "1=320x240 ");
    zof_host_barrier(&r.host);
    run_ms(r, 10);
    feed(r, join({{0x5A, 0xA5, 0x80, 61, 0x11}, answer})); // does not, and is noise at once
    CHECK(r.told == "1=320x240 2=320x240 ");
}

TEST_CASE("frames go out whole with a silence between them, however slow the line takes them, over the clock's end") {
    for (uint16_t takes : {1, 3, 1000}) {
        for (uint16_t byte_us : {0, 1042}) {
            rig r;
            set_up(r, 1);
            r.takes = takes;
            r.host.byte_us = byte_us;
            r.now = 0xFFFFFFF0u; // wraps within the first frames
            const std::string text(120, 'x');
            bytes all;
            std::vector<size_t> ends;
            for (const std::string &t : {std::string("a"), text, std::string("b")}) {
                CHECK(zof_host_set_label_text(&r.host, 1, 5, t.c_str()) > 0);
                all = join({all, frame_of(0x22, join({LABEL, {t.c_str(), t.c_str() + t.size() + 1}}), true)});
                ends.push_back(all.size());
            }
            run_ms(r, 1000);
            CHECK(r.sent == all);
            for (size_t i = 0; i + 1 < ends.size(); i++) {
                const size_t start = i ? ends[i - 1] : 0;
                const uint32_t line = (uint32_t)(ends[i] - start) * byte_us / 1000;
                const uint32_t left = std::max(r.sent_at[start] + line, r.sent_at[ends[i] - 1]); // last byte is out
                CHECK(r.sent_at[ends[i]] - left >= 6);
            }
        }
    }
}

TEST_CASE("the queue takes only whole frames, at any place of its ring") {
    rig r;
    r.tx.resize(40);
    set_up(r);
    bytes all;
    for (int i = 0; i < 200; i++) {
        const std::string text(i % 23, (char)('a' + i % 26));
        const int result = zof_host_set_label_text(&r.host, 1, 5, text.c_str());
        CHECK((result > 0 || result == ZOF_HOST_FULL));
        if (result > 0) {
            all = join({all, frame_of(0x22, join({LABEL, {text.c_str(), text.c_str() + text.size() + 1}}))});
        }
        run_ms(r, (uint32_t)(i % 9));
        if (r.host.own) { // asked for in between, answered at once
            run_ms(r, 20);
            feed(r, frame_of(0x11, join({SIZE, {1, 64, 0, 240}})));
        }
    }
    run_ms(r, 100);
    bytes writes = r.sent;
    for (size_t at; (at = hex(writes).find("5A A5 03 11 B1 06")) != std::string::npos;) {
        writes.erase(writes.begin() + (long)at / 3, writes.begin() + (long)at / 3 + 6);
    }
    CHECK(writes == all);
    CHECK(zof_host_room(&r.host) == 40);
    CHECK(zof_host_set_label_text(&r.host, 1, 5, std::string(30, 'x').c_str()) == ZOF_HOST_BAD);
    CHECK(r.told == "");
}

TEST_CASE("an answer ends its own request and no other, and one that comes too late ends none") {
    rig r;
    set_up(r);
    CHECK(zof_host_get_label_text(&r.host, 1, 5) == 1);
    CHECK(zof_host_get_spin_box_value(&r.host, 1, 6) == 2);
    run_ms(r, 20);
    CHECK(r.sent == frame_of(0x11, LABEL)); // the second waits for the first
    feed(r, frame_of(0x11, {0xB2, 0x14, 0, 0, 1, 0, 6, 0, 0, 0, 9}));
    feed(r, frame_of(0x22, join({LABEL, {'x', 0}})));
    feed(r, frame_of(0x11, {0xB2, 0, 0, 0, 1, 0, 4, 'x', 0}));
    CHECK(r.told == "");
    CHECK(r.host.late == 3);
    run_ms(r, 200);
    CHECK(r.told == "1 timeout ");
    run_ms(r, 100);
    feed(r, frame_of(0x11, join({LABEL, {'x', 0}}))); // nothing is asked while it may still come
    CHECK(r.sent == frame_of(0x11, LABEL));
    run_ms(r, 200);
    feed(r, frame_of(0x11, {0xB2, 0x14, 0, 0, 1, 0, 6, 0xFF, 0xFF, 0xFF, 0xFE}));
    CHECK(r.told == "1 timeout 2=-2 ");
    zof_host_get_label_text(&r.host, 1, 5);
    run_ms(r, 20);
    feed(r, frame_of(0x11, join({LABEL, {'x', 'y'}}))); // no zero
    CHECK(r.told == "1 timeout 2=-2 3=1/5: bad ");
}

TEST_CASE("a barrier is asked for before the panel's queue would overflow, again until it is answered") {
    rig r;
    set_up(r);
    size_t writes = 0;
    const auto write_until_silent = [&] {
        for (size_t had = ~(size_t)0; had != r.sent.size();) {
            had = r.sent.size();
            writes += zof_host_set_bar_value(&r.host, 1, 7, 50) > 0;
            run_ms(r, 20);
        }
    };
    write_until_silent(); // 13 bytes each
    const size_t before = (1024 - 8) / 13 * 13;
    CHECK(r.sent.size() == before + 6);
    CHECK(bytes(r.sent.end() - 6, r.sent.end()) == frame_of(0x11, SIZE));
    run_ms(r, 400); // no answer: said, and asked again after as long a pause
    CHECK(r.told == "silent ");
    CHECK(r.sent.size() == before + 12);
    feed(r, frame_of(0x11, join({SIZE, {1, 64, 0, 240}})));
    run_ms(r, 20);
    CHECK(r.told == "silent "); // its own answer is nobody else's
    CHECK(r.sent.size() == before + 12 + 2 * 13);
    write_until_silent();
    feed(r, frame_of(0x11, {0xB0, 1, 0xAA, 0xBB})); // a panel that has just started has an empty queue
    run_ms(r, 20);
    CHECK(r.told == "silent on ");
    CHECK(bytes(r.sent.end() - 13, r.sent.end())[4] == 0xB2);
}

TEST_CASE("nothing follows a system write before the panel is done with it") {
    rig r;
    set_up(r);
    zof_host_set_system_language(&r.host, "de");
    zof_host_set_bar_value(&r.host, 1, 7, 50);
    run_ms(r, 50);
    const bytes language = frame_of(0x22, {0xB0, 7, 0, 'd', 'e', 0});
    CHECK(r.sent == join({language, frame_of(0x11, STANDBY)}));
    feed(r, frame_of(0x22, {0xB0, 7, 0, 0})); // a panel that acknowledges although nobody asked for it
    run_ms(r, 20);
    feed(r, frame_of(0x11, join({STANDBY, {0}})));
    run_ms(r, 10);
    CHECK(r.sent.size() == language.size() + 7 + 13);
    CHECK(r.told == "");

    rig a;
    set_up(a, 0, 1); // acknowledged by the panel itself
    zof_host_set_system_language(&a.host, "de");
    zof_host_set_system_bright(&a.host, 50);
    zof_host_set_system_bright(&a.host, 60);
    run_ms(a, 10);
    CHECK(a.sent == language);
    feed(a, frame_of(0x22, {0xB0, 7, 0, 1}));
    run_ms(a, 10);
    feed(a, frame_of(0x22, {0xB0, 2, 0}));
    run_ms(a, 250);
    CHECK(a.told == "1 no 2= 3 timeout ");
}

TEST_CASE("a read of the touch is refused while its answer could be a touch") {
    rig r;
    set_up(r);
    CHECK(zof_host_get_system_touch(&r.host) == 1);
    CHECK(zof_host_set_system_touch_config(&r.host, 0x32) == 2);
    CHECK(zof_host_get_system_touch(&r.host) == ZOF_HOST_REFUSED);
    CHECK(zof_host_set_system_touch_config(&r.host, 0x02) == 3);
    CHECK(zof_host_get_system_touch(&r.host) == 4);
    feed(r, frame_of(0x11, {0xB0, 4, 1, 2, 0, 80, 0, 40})); // the project's own settings may ask for reports
    CHECK(r.told == "touch2@80,40 ");
    CHECK(zof_host_get_system_touch(&r.host) == ZOF_HOST_REFUSED);
}

TEST_CASE("bad settings and null are refused, and a host that is not initialised does nothing") {
    CHECK(zof_host_init(nullptr) == ZOF_HOST_BAD);
    CHECK(zof_host_barrier(nullptr) == ZOF_HOST_BAD);
    zof_host_feed(nullptr, nullptr, 5, 0);
    const std::function<void(zof_host_t &)> faults[] = {
        [](zof_host_t &h) { h.rx = nullptr; }, [](zof_host_t &h) { h.tx_size = 15; },
        [](zof_host_t &h) { h.rx_size = 32768; }, [](zof_host_t &h) { h.write = nullptr; },
        [](zof_host_t &h) { h.head_fl = h.head_fh; }};
    for (const auto &fault : faults) {
        rig r;
        set_up(r);
        fault(r.host);
        CHECK(zof_host_init(&r.host) == ZOF_HOST_BAD);
        CHECK(zof_host_barrier(&r.host) == ZOF_HOST_BAD);
        feed(r, frame_of(0x11, {0xB0, 1, 0xAA, 0xBB}));
        CHECK(zof_host_poll(&r.host, 0) == 0);
        CHECK(r.told + hex(r.sent) == "");
    }
    CHECK(zof_host_reply_u32(nullptr) == 0);
    CHECK(std::string(zof_host_reply_text(nullptr)) == "");
}
