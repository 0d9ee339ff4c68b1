// The firmware library between a panel that says anything and a user who asks anything, in any order. The input is a
// series of steps: a byte for what is done, a byte for how much, and for some the bytes themselves. What goes out must
// be whole frames; buffers have their exact size, so that a step beyond them is seen.
#include "fuzz.h"

#include "../../clients/c/zof_host.c" // inside, so that the search follows it

enum { STEP_RAW, STEP_SEALED, STEP_ECHO, STEP_WAIT, STEP_WRITE, STEP_READ, STEP_SYSTEM, STEP_TAKES, STEP_COUNT };
enum { RX_SIZE = 48, TX_SIZE = 80, LOOK_MIN = 4 };

static std::vector<u8> sent;  // not yet seen to be whole
static uint16_t takes;        // bytes the line takes at once
static volatile u8 reply_sum; // every byte of an answer is read

// Takes whole frames from the front of what was sent; what is left must be the beginning of one.
static void sent_check(const zof_host_t &host) {
    while (sent.size() >= LOOK_MIN) {
        const bool long_form = sent[2] & 0x80;
        const size_t head = long_form ? 4 : 3;
        const size_t len = long_form ? (size_t)(sent[2] & 0x7F) << 8 | sent[3] : sent[2];
        fuzz_must(sent[0] == host.head_fh && sent[1] == host.head_fl && len <= TX_SIZE, "frames go out one by one");
        if (sent.size() < head + len) {
            return;
        }
        uint16_t crc = 0;
        for (size_t i = 0; host.crc && i < len; i++) {
            crc = crc_step(crc, sent[head + i]);
        }
        fuzz_must(crc == 0, "a frame that is sent has the right CRC");
        sent.erase(sent.begin(), sent.begin() + (long)(head + len));
    }
}

static uint16_t line_write(void *, const uint8_t *bytes, uint16_t size) {
    const uint16_t n = size < takes ? size : takes;
    sent.insert(sent.end(), bytes, bytes + n);
    return n;
}

static void on_reply(zof_host_t *host, zof_host_reply_t *reply) {
    const uint8_t mode = reply->size ? reply->data[0] : 0;
    u32 sum = reply->result == ZOF_HOST_TIMEOUT;
    for (const char *text = zof_host_reply_text(reply); *text; text++) {
        sum += (u8)*text;
    }
    sum += zof_host_reply_u8(reply) + zof_host_reply_u16(reply) + zof_host_reply_u32(reply);
    reply_sum = (u8)sum;
    if (mode & 1) {
        zof_host_get_label_text(host, reply->view, reply->control); // asks again from within
    }
}

static void on_event(zof_host_t *host, const zof_host_event_t *event) {
    if (event->kind == ZOF_HOST_POWER_ON) {
        zof_host_set_system_touch_config(host, 0x30);
    }
    zof_host_poll(host, 0); // of no effect
}

static void feed_sealed(zof_host_t &host, u8 op, const std::vector<u8> &payload, uint32_t now) {
    std::vector<u8> frame = {host.head_fh, host.head_fl, (u8)(payload.size() + (host.crc ? 3 : 1)), op};
    frame.insert(frame.end(), payload.begin(), payload.end());
    uint16_t crc = 0;
    for (size_t i = 3; host.crc && i < frame.size(); i++) {
        crc = crc_step(crc, frame[i]);
    }
    if (host.crc) {
        frame.insert(frame.end(), {(u8)(crc >> 8), (u8)crc});
    }
    zof_host_feed(&host, frame.data(), (uint16_t)frame.size(), now);
}

// The open request's own bytes come back with something behind them.
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

extern "C" int LLVMFuzzerInitialize(int *, char ***) {
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    fuzz_input in = {data, size};
    const u8 mode = fuzz_byte(in);
    std::vector<u8> rx(RX_SIZE), tx(TX_SIZE);
    zof_host_t host = {};
    host.head_fh = 0x5A, host.head_fl = 0xA5;
    host.crc = mode & 1, host.acks = mode >> 1 & 1;
    host.silence_ms = 5, host.timeout_ms = 40, host.byte_us = (uint16_t)(mode & 4 ? 1042 : 0);
    host.rx = rx.data(), host.rx_size = RX_SIZE, host.tx = tx.data(), host.tx_size = TX_SIZE;
    host.write = line_write, host.on_reply = on_reply, host.on_event = on_event;
    fuzz_must(zof_host_init(&host) == ZOF_HOST_DONE, "these settings are good");
    sent.clear();
    takes = (uint16_t)(mode & 8 ? 1 : 255);
    uint32_t now = mode & 16 ? 0xFFFFFF00u : 0;
    while (in.size) {
        step(host, in, now);
        fuzz_must(host.tx_used <= TX_SIZE && host.rx_have < RX_SIZE && host.in_flight <= host.limit,
                  "nothing holds more than it can");
        sent_check(host);
    }
    return 0;
}
