// The firmware library between a panel that sends anything and a user who calls anything, in any order. The input is a
// series of steps: a byte for the action, a byte for the amount, and for some the bytes themselves. The output must be
// whole frames; buffers have their exact size, so accesses beyond them are detected.
#include "fuzz.h"

#include "../../clients/c/zof_host.c" // inside, so that the search follows it

enum { STEP_RAW, STEP_SEALED, STEP_ECHO, STEP_WAIT, STEP_WRITE, STEP_READ, STEP_SYSTEM, STEP_TAKES, STEP_COUNT };
enum { RX_SIZE = 48, TX_SIZE = 80, LOOK_MIN = 5, NOT_ALL = -2 };

static std::vector<u8> sent; // not yet checked
static uint16_t takes;       // bytes the line takes at once

// Skips the fill bytes before a frame.
static void fill_skip() {
    size_t n = 0;
    while (n < sent.size() && sent[n] == 0) {
        n++;
    }
    sent.erase(sent.begin(), sent.begin() + (long)n);
}

// Removes whole frames from the start of the sent bytes; the rest must be the beginning of one.
static void sent_check(const zof_host_t &host) {
    const zof_hmi_cmd_analys_t panel = {.head_fh = FUZZ_HEAD0, .head_fl = FUZZ_HEAD1, .crc_en = host.crc};
    for (fill_skip(); sent.size() >= LOOK_MIN; fill_skip()) {
        const s32 size = zof_hmi_cmd_check_data(&panel, sent.data(), (u32)sent.size());
        fuzz_must(size > 0 || (size == NOT_ALL && sent.size() < TX_SIZE),
                  "only whole frames are sent, in the form that a panel parses");
        if (size == NOT_ALL) {
            return;
        }
        sent.erase(sent.begin(), sent.begin() + size);
    }
}

static uint16_t line_write(void *, const uint8_t *bytes, uint16_t size) {
    const uint16_t n = size < takes ? size : takes;
    sent.insert(sent.end(), bytes, bytes + n);
    return n;
}

static void on_reply(zof_host_t *host, zof_host_reply_t *reply) {
    static volatile u32 sum; // forces every byte of an answer to be read
    const uint8_t mode = reply->size ? reply->data[0] : 0;
    const char *text = zof_host_reply_text(reply);
    fuzz_read((const u8 *)text, strlen(text));
    sum = zof_host_reply_u8(reply) + zof_host_reply_u16(reply) + zof_host_reply_u32(reply);
    if (mode & 1) {
        zof_host_get_label_text(host, reply->view, reply->control); // queues a read from within the callback
    }
}

static void on_event(zof_host_t *host, const zof_host_event_t *event) {
    if (event->kind == ZOF_HOST_POWER_ON) {
        zof_host_set_system_touch_config(host, 0x30);
    }
    zof_host_poll(host, 0); // has no effect
}

static void feed_sealed(zof_host_t &host, u8 op, std::vector<u8> payload, uint32_t now) {
    payload.insert(payload.begin(), op);
    const std::vector<u8> frame = fuzz_sealed(payload, host.crc);
    zof_host_feed(&host, frame.data(), (uint16_t)frame.size(), now);
}

// Answers the pending request with its own bytes followed by `more`.
static void feed_echo(zof_host_t &host, const std::vector<u8> &more, uint32_t now) {
    if (host.state != WAITING) {
        return;
    }
    std::vector<u8> payload;
    for (uint16_t i = 0; i < current_payload_size(&host); i++) {
        payload.push_back(current_payload(&host, i));
    }
    payload.insert(payload.end(), more.begin(), more.end());
    feed_sealed(host, current_op(&host), payload, now);
}

static void step(zof_host_t &host, fuzz_input &in, uint32_t &now) {
    const u8 what = fuzz_byte(in) % STEP_COUNT, amount = fuzz_byte(in);
    if (what == STEP_RAW) {
        const std::vector<u8> data = fuzz_bytes(in, amount);
        zof_host_feed(&host, data.data(), (uint16_t)data.size(), now);
    } else if (what == STEP_SEALED) {
        feed_sealed(host, amount & 0x80 ? ZOF_HOST_WRITE : ZOF_HOST_READ, fuzz_bytes(in, amount & 0x3F), now);
    } else if (what == STEP_ECHO) {
        feed_echo(host, fuzz_bytes(in, amount & 0x1F), now);
    } else if (what == STEP_WAIT) {
        for (u32 i = 0; i <= amount / 8u; i++) {
            zof_host_poll(&host, now);
            now += 1 + amount % 8;
        }
    } else if (what == STEP_WRITE) {
        zof_host_set_label_text(&host, amount, 5, std::string(amount % (TX_SIZE + 8), 'x').c_str());
    } else if (what == STEP_READ) {
        amount & 1 ? zof_host_barrier(&host) : zof_host_get_label_text(&host, amount, 5);
    } else if (what == STEP_SYSTEM) {
        amount & 1 ? zof_host_set_system_bright(&host, amount) : zof_host_get_system_touch(&host);
    } else {
        takes = amount;
    }
}

void fuzz_open() {
}

void fuzz_one(fuzz_input &in) {
    const u8 mode = fuzz_byte(in);
    std::vector<u8> rx(RX_SIZE), tx(TX_SIZE);
    zof_host_t host = {};
    host.head_fh = FUZZ_HEAD0, host.head_fl = FUZZ_HEAD1;
    host.crc = mode & 1, host.acks = mode >> 1 & 1;
    host.timeout_ms = 40, host.byte_us = (uint16_t)(mode & 4 ? 1042 : 0);
    host.rx = rx.data(), host.rx_size = RX_SIZE, host.tx = tx.data(), host.tx_size = TX_SIZE;
    host.write = line_write, host.on_reply = on_reply, host.on_event = on_event;
    fuzz_must(zof_host_init(&host) == ZOF_HOST_DONE, "the settings are valid");
    sent.clear();
    takes = (uint16_t)(mode & 8 ? 1 : 255);
    uint32_t now = mode & 16 ? 0xFFFFFF00u : 0;
    while (in.size) {
        step(host, in, now);
        fuzz_must(host.tx_used <= TX_SIZE && host.rx_have < RX_SIZE && host.in_flight <= host.limit,
                  "no buffer overflows");
        sent_check(host);
    }
}
