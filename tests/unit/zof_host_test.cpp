// The firmware library of the host protocol: what it sends and when, and how it handles what it receives.
#include <cstdint>
#include <string>
#include <vector>

#include "host_frame.h"
#include "zof_host.h"
#include "zof_test.h"

// A host, the line it writes to, and its reports: "1:-4 " for the first request without an answer, "2/5=hi " for the
// second with the value of control 5.
struct rig {
    bytes rx = bytes(64), tx, sent;
    std::vector<uint32_t> sent_at; // of each byte
    uint16_t takes = 1000;         // bytes the line takes at once
    uint32_t now = 1000;
    std::string log;
    zof_host_t host = {.head_fh = 0x5A, .head_fl = 0xA5, .timeout_ms = 200, .rx_size = 64};

    explicit rig(uint8_t crc = 0, uint8_t acks = 0, uint16_t tx_size = 256) : tx(tx_size) {
        host.crc = crc;
        host.acks = acks;
        host.rx = rx.data();
        host.tx = tx.data();
        host.tx_size = tx_size;
        host.user = this;
        host.write = [](void *user, const uint8_t *data, uint16_t size) {
            rig &r = *(rig *)user;
            const uint16_t n = size < r.takes ? size : r.takes;
            r.sent.insert(r.sent.end(), data, data + n);
            r.sent_at.insert(r.sent_at.end(), n, r.now);
            return n;
        };
        host.on_reply = [](zof_host_t *from, zof_host_reply_t *reply) {
            std::string value = ":" + std::to_string(reply->result);
            if (reply->result == ZOF_HOST_DONE && reply->size > 1) {
                const bool text = reply->code == ZOF_HOST_LABEL_TEXT;
                value = "/" + std::to_string(reply->control) + "=";
                value += text ? zof_host_reply_text(reply) : std::to_string((int32_t)zof_host_reply_u32(reply));
            }
            ((rig *)from->user)->log += std::to_string(reply->request) + value + (reply->bad ? " bad " : " ");
        };
        host.on_event = [](zof_host_t *from, const zof_host_event_t *event) {
            rig &r = *(rig *)from->user;
            const std::string touch = "touch" + std::to_string(event->state) + "@" + std::to_string(event->x) + "," +
                                      std::to_string(event->y) + " ";
            const std::string control = "control" + std::to_string(event->control) + " ";
            const std::string words[] = {"", "on ", touch, "silent ", "restored ", control};
            r.log += words[event->kind];
            zof_host_poll(from, r.now); // a poll within a callback does nothing
        };
        REQUIRE(zof_host_init(&host) == ZOF_HOST_DONE);
    }
};

// The bytes sent: each frame after a byte that is not part of a head.
static bytes out(const std::vector<bytes> &frames) {
    bytes all;
    for (const bytes &frame : frames) {
        all = join({all, {0}, frame});
    }
    return all;
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
static const bytes SIZE_IS = frame_of(0x11, join({SIZE, {1, 64, 0, 240}}));
static const bytes POWER_ON = frame_of(0x11, {0xB0, 1, 0xAA, 0xBB});

static bytes with_text(const std::string &text) {
    return join({LABEL, {text.c_str(), text.c_str() + text.size() + 1}});
}

TEST_CASE("answers, events and noise are distinguished at every split, with and without CRC, in both forms") {
    for (int form = 0; form < 4; form++) {
        const bool crc = form % 2;
        const auto panel = [=](const bytes &payload) { return frame_of(0x11, payload, crc, form / 2); };
        bytes wrong = panel(with_text("no"));
        wrong[crc ? wrong.size() - 1 : 1] ^= 1; // its CRC, or its head
        // An event before the answer, noise with half a head, a false frame, the answer, two events.
        const bytes noise = {0x5A, 0x5A, 0x11, 0x5A, 0xA5, 2, 0x11};
        const bytes line = join({panel({0xB0, 4, 1, 1, 0, 80, 0, 40}), noise, wrong, panel(with_text("hi")),
                                 panel({0xB0, 1, 0xAA, 0xBB}), panel({0xB0, 4, 1, 0, 1, 2, 3, 4})});
        for (size_t cut = 0; cut <= line.size(); cut++) {
            rig r(crc);
            CHECK(zof_host_get_label_text(&r.host, 1, 5) == 1);
            run_ms(r, 2);
            CHECK(r.sent == out({frame_of(0x11, LABEL, crc)}));
            feed(r, {line.begin(), line.begin() + (long)cut});
            feed(r, {line.begin() + (long)cut, line.end()});
            CAPTURE(cut);
            CHECK(r.log == "touch1@80,40 1/5=hi on touch0@258,772 ");
            CHECK(r.host.rx_have == 0);
        }
    }
}

TEST_CASE("events of controls reach their handlers, are not mistaken for answers, and lost ones are counted") {
    rig r;
    zof_host_on_t places[1];
    r.host.on = places;
    r.host.on_size = 1;
    const auto note = [](zof_host_t *from, const zof_host_event_t *event) {
        ((rig *)from->user)->log += "brew:" + std::to_string(event->event) + "=" + std::to_string(event->number) +
                                    event->text + "-" + std::to_string(event->missed) + " ";
    };
    CHECK(zof_host_on(&r.host, 1, 7, nullptr) == ZOF_HOST_BAD);
    CHECK(zof_host_on(&r.host, 1, 7, note) == ZOF_HOST_DONE);
    CHECK(zof_host_on(&r.host, 1, 8, note) == ZOF_HOST_FULL);
    const auto event = [&r](u8 control, u8 seq, u8 kind, u8 number) {
        const bytes frame =
            frame_of(ZOF_HOST_READ, {0xB2, 0xF0, 0x0E, 0, 1, 0, control, seq, kind, 0xFF, 0xFF, 0xFF, number, 'a', 0});
        zof_host_feed(&r.host, frame.data(), (u16)frame.size(), r.now);
    };
    event(7, 250, ZOF_HOST_EVENT_CLICKED, 0xFE);
    event(7, 251, ZOF_HOST_EVENT_CHANGED, 0xFF);
    event(7, 2, ZOF_HOST_EVENT_CLICKED, 0xFF);
    CHECK(r.log == "brew:1=-2a-0 brew:3=-1a-0 brew:1=-1a-6 ");
    r.log.clear();
    zof_host_get_control_event(&r.host, 1, 7);
    zof_host_poll(&r.host, r.now);
    event(7, 3, ZOF_HOST_EVENT_CLICKED, 0xFF); // between the read and its answer
    event(7, 3, ZOF_HOST_EVENT_STATE, 0xFF);
    CHECK(r.log.find("brew:1=-1a-0 1") == 0);
    event(8, 4, ZOF_HOST_EVENT_CLICKED, 0); // no handler
    CHECK(r.log.find("control8") != std::string::npos);
    CHECK(r.host.seq == 4);
}

TEST_CASE("writes are sent whole and without a pause, at any position in the ring, across a wrap of the clock") {
    for (uint16_t takes : {1, 3, 1000}) {
        rig r(1, 0, 150);
        r.takes = takes;
        r.now = 0xFFFFFFF0u; // wraps within the first frames
        std::vector<bytes> all;
        for (const std::string &t : {std::string("a"), std::string(120, 'x'), std::string("b"), std::string(90, 'y')}) {
            while (zof_host_set_label_text(&r.host, 1, 5, t.c_str()) == ZOF_HOST_FULL) {
                run_ms(r, 1);
            }
            all.push_back(frame_of(0x22, with_text(t), true));
        }
        run_ms(r, 1000);
        CHECK(r.sent == out(all));
        CHECK(zof_host_room(&r.host) == 150);
        CHECK(zof_host_set_label_text(&r.host, 1, 5, std::string(150, 'x').c_str()) == ZOF_HOST_BAD);
    }
    rig burst;
    for (int i = 0; i < 5; i++) {
        zof_host_set_bar_value(&burst.host, 1, 7, 50);
    }
    zof_host_poll(&burst.host, burst.now);
    CHECK(burst.sent.size() == 5 * 14);
    rig head_0; // with a head of zeros another fill byte is sent
    head_0.host.head_fh = 0, head_0.host.head_fl = 1;
    zof_host_barrier(&head_0.host);
    run_ms(head_0, 2);
    CHECK(head_0.sent[0] == 2);
}

TEST_CASE("a read is repeated after fill bytes, and a late answer is not mistaken for another one") {
    rig r;
    CHECK(zof_host_get_label_text(&r.host, 1, 5) == 1);
    CHECK(zof_host_get_spin_box_value(&r.host, 1, 6) == 2);
    const bytes again = join({bytes(256, 0), frame_of(0x11, LABEL)});
    run_ms(r, 20);
    CHECK(r.sent == out({frame_of(0x11, LABEL)})); // the second waits for the first
    feed(r, frame_of(0x11, {0xB2, 0x14, 0, 0, 1, 0, 6, 0, 0, 0, 9}));
    feed(r, frame_of(0x22, with_text("x")));
    feed(r, frame_of(0x11, {0xB2, 0, 0, 0, 1, 0, 4, 'x', 0}));
    CHECK(r.host.late == 3);
    r.sent.clear();
    run_ms(r, 430);
    CHECK(r.sent == join({again, again}));
    CHECK(r.log == "");
    r.sent.clear();
    run_ms(r, 200);
    CHECK(r.log == "1:-4 ");
    CHECK(r.sent == join({bytes(256, 0), frame_of(0x11, SIZE)})); // late answers arrive before its answer
    feed(r, frame_of(0x11, with_text("x")));
    CHECK(r.host.late == 4);
    r.sent.clear();
    feed(r, SIZE_IS);
    run_ms(r, 2);
    CHECK(r.sent == out({frame_of(0x11, {0xB2, 0x14, 0, 0, 1, 0, 6})}));
    feed(r, join({{0x5A, 0xA5, 60, 0x11}, frame_of(0x11, {0xB2, 0x14, 0, 0, 1, 0, 6, 0xFF, 0xFF, 0xFF, 0xFE})}));
    CHECK(r.log == "1:-4 "); // a false head before it fits the buffer, so the rest is awaited
    run_ms(r, 60);
    CHECK(r.log == "1:-4 2/6=-2 ");
    zof_host_get_label_text(&r.host, 1, 5);
    run_ms(r, 20);
    feed(r, join({{0x5A, 0xA5, 0x80, 61, 0x11}, frame_of(0x11, join({LABEL, {'x', 'y'}}))})); // no room; no zero
    CHECK(r.log == "1:-4 2/6=-2 3/5= bad ");
    // A silent panel: each read uses its tries, then the barrier its time-out.
    rig off;
    off.host.tries = 1;
    zof_host_get_label_text(&off.host, 1, 5);
    zof_host_get_label_text(&off.host, 1, 5);
    run_ms(off, 2000);
    CHECK(off.log == "1:-4 2:-4 ");
    CHECK(zof_host_poll(&off.host, off.now) == 0);
}

TEST_CASE("a restart ends the pending request, repeats a read immediately, and restores the state after the queue") {
    rig r;
    r.host.on_restart = [](zof_host_t *h, uint8_t step) {
        zof_host_set_bar_value(h, 1, 7, step);
        return (uint8_t)(step < 2);
    };
    zof_host_get_label_text(&r.host, 1, 5);
    zof_host_set_bar_value(&r.host, 1, 9, 1);
    run_ms(r, 50);
    r.sent.clear();
    feed(r, POWER_ON);
    zof_host_poll(&r.host, r.now);
    CHECK(r.sent == out({frame_of(0x11, LABEL)}));
    feed(r, frame_of(0x11, with_text("hi")));
    r.sent.clear();
    run_ms(r, 2);
    feed(r, SIZE_IS); // a read sent twice may be answered twice
    run_ms(r, 10);
    const auto bar = [](u8 control, u8 value) { return frame_of(0x22, {0xB2, 0x05, 0, 0, 1, 0, control, 0, value}); };
    const bytes barrier = frame_of(0x11, SIZE);
    CHECK(r.sent.size() == out({barrier, bar(9, 1), bar(7, 0), bar(7, 1), bar(7, 2), barrier}).size());
    CHECK(bytes(r.sent.end() - 7, r.sent.end()) == out({barrier}));
    CHECK(r.log == "on 1/5=hi ");
    feed(r, SIZE_IS);
    CHECK(r.log == "on 1/5=hi restored ");
    CHECK(zof_host_poll(&r.host, r.now) == 0);
}

TEST_CASE("a barrier is sent before the panel's queue would overflow, and repeated until it is answered") {
    rig r;
    const auto write_until_silent = [&] {
        for (size_t had = ~(size_t)0; had != r.sent.size();) {
            had = r.sent.size();
            zof_host_set_bar_value(&r.host, 1, 7, 50); // 13 bytes
            run_ms(r, 20);
        }
    };
    write_until_silent();
    const size_t before = (1024 - 8) / 13 * 14;
    CHECK(r.sent.size() == before + 7);
    CHECK(bytes(r.sent.end() - 6, r.sent.end()) == frame_of(0x11, SIZE));
    run_ms(r, 200); // no answer: reported, and repeated
    CHECK(r.sent.size() == before + 7 + 256 + 6);
    feed(r, SIZE_IS);
    run_ms(r, 20);
    CHECK(r.log == "silent "); // its answer is not reported
    CHECK(r.sent.size() == before + 7 + 256 + 6 + 2 * 14);
    write_until_silent();
    feed(r, POWER_ON); // the queue is empty after a start
    run_ms(r, 20);
    CHECK(r.log == "silent on ");
    CHECK(bytes(r.sent.end() - 13, r.sent.end())[4] == 0xB2);
}

TEST_CASE("nothing is sent after a system write until the panel has executed it") {
    rig r;
    zof_host_set_system_language(&r.host, "de");
    zof_host_set_bar_value(&r.host, 1, 7, 50);
    run_ms(r, 50);
    const bytes language = frame_of(0x22, {0xB0, 7, 0, 'd', 'e', 0});
    CHECK(r.sent == out({language, frame_of(0x11, STANDBY)}));
    feed(r, frame_of(0x22, {0xB0, 7, 0, 0})); // a panel that acknowledges without being asked to
    run_ms(r, 20);
    feed(r, frame_of(0x11, join({STANDBY, {0}})));
    run_ms(r, 10);
    CHECK(r.sent.size() == out({language, frame_of(0x11, STANDBY)}).size() + 14);
    CHECK(r.log == "");
    zof_host_set_system_touch_config(&r.host, 0x32); // the touch is not read while reports look like its answer
    CHECK(zof_host_get_system_touch(&r.host) == ZOF_HOST_REFUSED);
    zof_host_set_system_touch_config(&r.host, 0x02);
    CHECK(zof_host_get_system_touch(&r.host) > 0);
    feed(r, frame_of(0x11, {0xB0, 4, 1, 2, 0, 80, 0, 40})); // the project's own settings may enable reports
    CHECK(r.log == "touch2@80,40 ");
    CHECK(zof_host_get_system_touch(&r.host) == ZOF_HOST_REFUSED);

    rig a(0, 1); // acknowledged by the panel itself
    zof_host_set_system_language(&a.host, "de");
    zof_host_set_system_bright(&a.host, 50);
    zof_host_set_system_bright(&a.host, 60);
    run_ms(a, 10);
    CHECK(a.sent == out({language}));
    feed(a, frame_of(0x22, {0xB0, 7, 0, 1}));
    run_ms(a, 10);
    feed(a, frame_of(0x22, {0xB0, 2, 0}));
    run_ms(a, 250);
    CHECK(a.log == "1:1 2:0 3:-4 ");
}

TEST_CASE("a host with bad settings and a null host do nothing") {
    CHECK((zof_host_init(nullptr) == ZOF_HOST_BAD && zof_host_barrier(nullptr) == ZOF_HOST_BAD));
    zof_host_feed(nullptr, nullptr, 5, 0);
    rig r;
    for (uint16_t size : {0, 15, 32768}) {
        r.host.tx_size = size;
        CHECK(zof_host_init(&r.host) == ZOF_HOST_BAD);
        CHECK(zof_host_barrier(&r.host) == ZOF_HOST_BAD);
        feed(r, POWER_ON);
        CHECK(zof_host_poll(&r.host, 0) == 0);
        CHECK(r.log + hex(r.sent) == "");
    }
}
