// Three state machines share one structure: the receiver extracts frames from bytes, the queue holds frames to be sent,
// and the sender sends one frame at a time. A frame that expects an answer stays at the head of the queue until it is
// answered: its bytes are compared with the answer and sent again if needed, and nothing is sent after it. This costs
// one round trip per read, but keeps the order unambiguous although the protocol has no sequence numbers.
#include "zof_host.h"

#include <string.h>

enum { IDLE, SENDING, WAITING };
enum { OWN_NONE, OWN_VIEW, OWN_SYSTEM }; // internal barriers
enum { BUFFER_MIN = 16, BUFFER_MAX = 0x7FFF, QUEUE_MORE = 1024, BARRIER_SIZE = 8 };
enum { SYSTEM_TYPE = 0xB0, VIEW_TYPE = 0xB1, CONTROL_TYPE = 0xB2, POWER_ON = 0x01, TOUCH = 0x04 };
enum { CONTROL_ANY = 0xF0, CONTROL_EVENT = 0x0E, CONTROL_EVENT_LEAST = 14 };
enum { LONG_FORM = 0x80, SHORT_MAX = 0x7F, CRC_SIZE = 2, READ_CHUNK = 16, GAP_MS = 50, REPORT_FLAGS = 0x70 };
enum { RESTORE_NONE, RESTORE_ASK, RESTORE_SEND, RESTORE_WAIT };

// Filler bytes that are not part of a head are sent before each frame: one byte, which ends the remains of a previous
// frame damaged on the line, and after a time-out as many as a false head may make the panel wait for.
enum { FILL = 1, FILL_FLUSH = 256, FILL_CHUNK = 16, TRIES = 3 };

// A record in `tx` is one byte of metadata followed by the frame. The operation is always at offset 5, so a frame can
// be written before its length is known; the short form leaves one byte before the operation unused.
enum { META_CODE = 0x0F, META_SHORT = 0x80, OP_AT = 5 };

int zof_host_init(zof_host_t *h) {
    if (!h) {
        return ZOF_HOST_BAD;
    }
    h->noise = h->late = 0;
    h->now = h->rx_at = h->since = h->started = h->wait = h->build_code = 0;
    h->rx_have = h->tx_head = h->tx_used = h->build = h->cur_at = h->cur_size = h->sent = h->in_flight = h->fill = 0;
    h->limit = h->buffsize > 0xFFFF - QUEUE_MORE ? 0xFFFF : (uint16_t)(h->buffsize + QUEUE_MORE);
    h->next = h->first = 1;
    h->state = IDLE;
    h->own = OWN_NONE;
    h->restore = RESTORE_NONE;
    h->on_used = h->numbered = h->seq = 0;
    h->once = h->flush = h->tried = h->step = h->inside = h->reports = h->build_op = h->build_bad = 0;
    h->ready = h->rx && h->tx && h->write && h->rx_size >= BUFFER_MIN && h->rx_size <= BUFFER_MAX &&
               h->tx_size >= BUFFER_MIN && h->tx_size <= BUFFER_MAX && h->head_fh != h->head_fl;
    return h->ready ? ZOF_HOST_DONE : ZOF_HOST_BAD;
}

static uint16_t pair(uint8_t high, uint8_t low) {
    return (uint16_t)((uint16_t)high << 8 | low);
}

static uint16_t crc_step(uint16_t crc, uint8_t byte) {
    crc ^= (uint16_t)((uint16_t)byte << 8);
    for (uint8_t bit = 0; bit < 8; bit++) {
        crc = (uint16_t)(crc & 0x8000 ? (crc << 1) ^ 0x1021 : crc << 1);
    }
    return crc;
}

// Returns the index in `tx` that is `ahead` bytes after `from`. Both are below 32768, so the sum does not overflow.
static uint16_t ring(const zof_host_t *h, uint16_t from, uint16_t ahead) {
    const uint16_t at = (uint16_t)(from + ahead);
    return at >= h->tx_size ? (uint16_t)(at - h->tx_size) : at;
}

// Returns a byte of the record that is being added at the end of the queue.
static uint8_t *laid(zof_host_t *h, uint16_t ahead) {
    return &h->tx[ring(h, ring(h, h->tx_head, h->tx_used), ahead)];
}

// Returns a byte of the frame that is being sent or waits for its answer; `i` counts from its head.
static uint8_t current(const zof_host_t *h, uint16_t i) {
    return h->own ? h->own_frame[i] : h->tx[ring(h, h->cur_at, i)];
}

static uint16_t current_head(const zof_host_t *h) {
    return current(h, 2) & LONG_FORM ? 4 : 3;
}

static uint8_t current_op(const zof_host_t *h) {
    return current(h, current_head(h));
}

static uint8_t current_payload(const zof_host_t *h, uint16_t i) {
    return current(h, (uint16_t)(current_head(h) + 1 + i));
}

static uint16_t current_payload_size(const zof_host_t *h) {
    return (uint16_t)(h->cur_size - current_head(h) - 1 - (h->crc ? CRC_SIZE : 0));
}

static int number_after(int number) {
    return number == 0x7FFF ? 1 : number + 1;
}

// Queue
static void put(zof_host_t *h, uint8_t byte) {
    const uint16_t at = (uint16_t)(OP_AT + h->build);
    if (h->build_bad || at >= h->tx_size - h->tx_used) {
        h->build_bad = 1;
        return;
    }
    *laid(h, at) = byte;
    h->build++;
}

void zof_host_begin(zof_host_t *h, uint8_t operation, uint32_t code) {
    if (!h || !h->ready) {
        return;
    }
    h->build = 0;
    h->build_bad = 0;
    h->build_op = operation;
    h->build_code = code;
    put(h, operation);
    for (uint8_t count = (uint8_t)(code >> 24); count > 0; count--, code <<= 8) {
        put(h, (uint8_t)(code >> 16));
    }
}

void zof_host_put_u8(zof_host_t *h, uint8_t value) {
    if (h && h->ready) {
        put(h, value);
    }
}

void zof_host_put_u16(zof_host_t *h, uint16_t value) {
    zof_host_put_u8(h, (uint8_t)(value >> 8));
    zof_host_put_u8(h, (uint8_t)value);
}

void zof_host_put_u32(zof_host_t *h, uint32_t value) {
    zof_host_put_u16(h, (uint16_t)(value >> 16));
    zof_host_put_u16(h, (uint16_t)value);
}

void zof_host_put_text(zof_host_t *h, const char *text) {
    for (; text && *text; text++) {
        zof_host_put_u8(h, (uint8_t)*text);
    }
    zof_host_put_u8(h, 0);
}

static void put_crc(zof_host_t *h) {
    uint16_t crc = 0;
    for (uint16_t i = 0; i < h->build; i++) {
        crc = crc_step(crc, *laid(h, (uint16_t)(OP_AT + i)));
    }
    put(h, (uint8_t)(crc >> 8));
    put(h, (uint8_t)crc);
}

// Writes the bytes before the operation and adds the frame to the queue.
static int queue(zof_host_t *h) {
    const uint16_t size = h->build;
    const uint8_t gap = size <= SHORT_MAX; // the unused byte of a short form
    const int number = h->next;
    *laid(h, 0) = (uint8_t)(h->build_code >> 24 | (gap ? META_SHORT : 0));
    *laid(h, (uint16_t)(1 + gap)) = h->head_fh;
    *laid(h, (uint16_t)(2 + gap)) = h->head_fl;
    if (!gap) {
        *laid(h, 3) = (uint8_t)(LONG_FORM | size >> 8);
    }
    *laid(h, OP_AT - 1) = (uint8_t)size;
    h->tx_used = (uint16_t)(h->tx_used + OP_AT + size);
    h->next = number_after(number);
    return number;
}

int zof_host_end(zof_host_t *h) {
    if (!h || !h->ready || !(h->build || h->build_bad)) {
        return ZOF_HOST_BAD;
    }
    const uint8_t last = h->build ? *laid(h, (uint16_t)(OP_AT + h->build - 1)) : 0;
    if (h->crc) {
        put_crc(h);
    }
    int result = ZOF_HOST_FULL;
    if (h->build + OP_AT + BARRIER_SIZE > h->limit || (h->build_bad && !h->tx_used)) {
        result = ZOF_HOST_BAD;
    } else if (h->build_code == ZOF_HOST_SYSTEM_TOUCH && h->reports) {
        result = ZOF_HOST_REFUSED; // a report looks like its answer
    } else if (!h->build_bad) {
        if (h->build_code == ZOF_HOST_SYSTEM_TOUCH_CONFIG && h->build_op == ZOF_HOST_WRITE) {
            h->reports = last & REPORT_FLAGS;
        }
        result = queue(h);
    }
    h->build = h->build_bad = 0;
    return result;
}

int zof_host_barrier(zof_host_t *h) {
    return zof_host_get_view_size(h);
}

int zof_host_barrier_system(zof_host_t *h) {
    return zof_host_get_system_standby_state(h);
}

uint16_t zof_host_room(const zof_host_t *h) {
    return h && h->ready ? (uint16_t)(h->tx_size - h->tx_used) : 0;
}

// Removes the oldest frame from the queue.
static void pop(zof_host_t *h) {
    const uint16_t size = (uint16_t)(h->cur_size + (h->tx[h->tx_head] & META_SHORT ? 2u : 1u));
    h->tx_head = ring(h, h->tx_head, size);
    h->tx_used = (uint16_t)(h->tx_used - size);
    h->first = number_after(h->first);
}

// Callbacks
static void handler_call(zof_host_t *h, zof_host_handler_t handler, const zof_host_event_t *event) {
    if (handler) {
        h->inside = 1;
        handler(h, event);
        h->inside = 0;
    }
}

static zof_host_event_t event_of(uint8_t kind) {
    const zof_host_event_t event = {kind, 0, 0, 0, 0, 0, 0, 0, 0, 0};
    return event;
}

static void event_send(zof_host_t *h, uint8_t kind, const uint8_t *touch) {
    zof_host_event_t event = event_of(kind);
    if (touch) {
        event.state = touch[0];
        event.x = pair(touch[1], touch[2]);
        event.y = pair(touch[3], touch[4]);
    }
    handler_call(h, h->on_event, &event);
}

static zof_host_handler_t handler_of(const zof_host_t *h, const zof_host_event_t *event) {
    for (uint8_t i = 0; i < h->on_used; i++) {
        if (h->on[i].view == event->view && h->on[i].control == event->control) {
            return h->on[i].handler;
        }
    }
    return h->on_event;
}

// `at`: view and control, then the number of the event, its kind, and what the control stands at.
static void control_event_send(zof_host_t *h, const uint8_t *at) {
    zof_host_event_t event = event_of(ZOF_HOST_CONTROL);
    event.view = pair(at[0], at[1]);
    event.control = pair(at[2], at[3]);
    event.missed = (uint8_t)(h->numbered ? at[4] - h->seq - 1 : 0);
    event.event = at[5];
    event.number = (int32_t)((uint32_t)pair(at[6], at[7]) << 16 | pair(at[8], at[9]));
    event.text = (const char *)at + 10;
    h->seq = at[4];
    h->numbered = 1;
    handler_call(h, handler_of(h, &event), &event);
}

int zof_host_on(zof_host_t *h, uint16_t view, uint16_t control, zof_host_handler_t handler) {
    if (!h || !h->ready || !handler) {
        return ZOF_HOST_BAD;
    }
    if (!h->on || h->on_used == h->on_size) {
        return ZOF_HOST_FULL;
    }
    h->on[h->on_used].view = view;
    h->on[h->on_used].control = control;
    h->on[h->on_used++].handler = handler;
    return ZOF_HOST_DONE;
}

// Reports the end of the oldest frame.
static void report(zof_host_t *h, int8_t result, const uint8_t *data, uint16_t size) {
    zof_host_reply_t reply = {h->first, result, 0, 0, 0, 0, data, size};
    const uint16_t count = h->tx[h->tx_head] & META_CODE;
    for (uint8_t i = 0; i < 3; i++) {
        reply.code = reply.code << 8 | (i < count ? current_payload(h, i) : 0u);
    }
    reply.code |= (uint32_t)count << 24;
    if (current_payload(h, 0) == CONTROL_TYPE) {
        reply.view = pair(current_payload(h, count), current_payload(h, (uint16_t)(count + 1)));
        reply.control = pair(current_payload(h, (uint16_t)(count + 2)), current_payload(h, (uint16_t)(count + 3)));
    }
    pop(h);
    if (h->on_reply) {
        h->inside = 1;
        h->on_reply(h, &reply);
        h->inside = 0;
    }
}

// Receiver
enum { RX_NOISE, RX_PART, RX_FRAME };

// Classifies the start of `rx`. For a frame, also returns the offset of its operation and its length field.
static uint8_t rx_look(const zof_host_t *h, uint16_t *head, uint16_t *len) {
    const uint8_t *b = h->rx;
    if (b[0] != h->head_fh || (h->rx_have > 1 && b[1] != h->head_fl)) {
        return RX_NOISE;
    }
    if (h->rx_have < 4) {
        return RX_PART;
    }
    *head = b[2] & LONG_FORM ? 4 : 3;
    *len = b[2] & LONG_FORM ? (uint16_t)((b[2] & SHORT_MAX) << 8 | b[3]) : b[2];
    if (*len < (h->crc ? 3 + CRC_SIZE : 3) || *len > h->rx_size - *head) {
        return RX_NOISE;
    }
    if (h->rx_have > *head && b[*head] != ZOF_HOST_READ && b[*head] != ZOF_HOST_WRITE) {
        return RX_NOISE;
    }
    if (h->rx_have < *head + *len) {
        return RX_PART;
    }
    uint16_t crc = 0;
    for (uint16_t i = 0; h->crc && i < *len; i++) {
        crc = crc_step(crc, b[*head + i]); // over the data and the CRC itself, the result is 0
    }
    return crc ? RX_NOISE : RX_FRAME;
}

static void rx_drop(zof_host_t *h, uint16_t size) {
    h->rx_have = (uint16_t)(h->rx_have - size);
    memmove(h->rx, h->rx + size, h->rx_have);
}

// Skips to the next byte that may begin a frame.
static void rx_drop_noise(zof_host_t *h) {
    uint16_t size = 1;
    while (size < h->rx_have && h->rx[size] != h->head_fh) {
        size++;
    }
    h->noise = (uint16_t)(h->noise + size);
    rx_drop(h, size);
}

// Returns the number of bytes of the frame that repeat the pending request, or 0 if the frame is not its answer.
static uint16_t echo_of(const zof_host_t *h, uint8_t op, const uint8_t *payload, uint16_t size) {
    if (h->state != WAITING || op != current_op(h)) {
        return 0;
    }
    const uint16_t echo = op == ZOF_HOST_READ ? current_payload_size(h) : h->tx[h->tx_head] & META_CODE;
    if (size < echo || (op == ZOF_HOST_WRITE && size != echo + 1)) {
        return 0;
    }
    for (uint16_t i = 0; i < echo; i++) {
        if (payload[i] != current_payload(h, i)) {
            return 0;
        }
    }
    return echo;
}

static uint8_t is_system(const zof_host_t *h) {
    return current_payload(h, 0) == SYSTEM_TYPE;
}

// More answers to the same request may still arrive. A barrier on another row of the same queue is answered after all
// of them; if it is not answered either, its time-out is long enough.
static void late_ones_pass(zof_host_t *h, uint8_t system) {
    h->own = system ? OWN_SYSTEM : OWN_VIEW;
    h->once = 1;
}

// Ends the pending request. A request sent more than once may be answered more than once.
static void request_end(zof_host_t *h, int8_t result, const uint8_t *data, uint16_t size) {
    const uint8_t system = is_system(h), late = h->tried || result == ZOF_HOST_TIMEOUT;
    h->tried = 0;
    report(h, result, data, size);
    if (late) {
        late_ones_pass(h, system);
    }
}

static void own_ends(zof_host_t *h) {
    h->own = OWN_NONE;
    h->once = 0;
}

static void answered(zof_host_t *h, uint8_t op, const uint8_t *data, uint16_t size) {
    const uint8_t own = h->own;
    h->state = IDLE;
    if (!is_system(h)) {
        h->in_flight = 0; // everything sent before it has been executed
    }
    if (!own) {
        request_end(h, op == ZOF_HOST_WRITE && data[0] ? ZOF_HOST_NO : ZOF_HOST_DONE, data, size);
        return;
    }
    own_ends(h);
    if (h->restore == RESTORE_WAIT) {
        h->restore = RESTORE_NONE;
        event_send(h, ZOF_HOST_RESTORED, 0);
    }
}

// Sends a read again while it has tries left; ends any other request.
static void unanswered(zof_host_t *h) {
    const uint8_t tries = h->tries ? h->tries : (uint8_t)TRIES;
    h->state = IDLE;
    if (current_op(h) == ZOF_HOST_READ && h->tried + 1 < tries) {
        h->tried++;
        return;
    }
    request_end(h, ZOF_HOST_TIMEOUT, 0, 0);
}

// Handles a restart of the panel, which has discarded the pending request.
static void powered_on(zof_host_t *h) {
    h->in_flight = 0;
    if (h->state == WAITING && h->own) {
        own_ends(h);
        h->state = IDLE;
    } else if (h->state == WAITING) {
        unanswered(h);
        own_ends(h); // no late answers can arrive
    } else if (h->state == IDLE) {
        own_ends(h);
    }
    h->seq = 0;
    h->numbered = 1;
    h->restore = h->on_restart ? RESTORE_ASK : RESTORE_NONE;
    h->step = 0;
    event_send(h, ZOF_HOST_POWER_ON, 0);
}

// Whether a frame is an event of a control. The answer to a read of `control.event` has the kind 0.
static uint8_t is_control_event(uint8_t op, const uint8_t *payload, uint16_t size) {
    return op == ZOF_HOST_READ && size >= CONTROL_EVENT_LEAST && payload[0] == CONTROL_TYPE &&
           payload[1] == CONTROL_ANY && payload[2] == CONTROL_EVENT && payload[8] != ZOF_HOST_EVENT_STATE &&
           payload[size - 1] == 0;
}

static void rx_frame(zof_host_t *h, uint8_t op, const uint8_t *payload, uint16_t size) {
    const uint16_t echo = echo_of(h, op, payload, size);
    const uint8_t event = op == ZOF_HOST_READ && payload[0] == SYSTEM_TYPE;
    if (is_control_event(op, payload, size)) {
        control_event_send(h, payload + 3);
    } else if (echo) {
        answered(h, op, payload + echo, (uint16_t)(size - echo));
    } else if (event && size == 4 && payload[1] == POWER_ON && pair(payload[2], payload[3]) == 0xAABB) {
        powered_on(h);
    } else if (event && size == 8 && payload[1] == TOUCH && payload[2] == 1) {
        h->reports = 1;
        event_send(h, ZOF_HOST_TOUCH, payload + 3);
    } else {
        h->late++;
    }
}

// Removes all frames and noise from the start of `rx`. What remains is the beginning of a frame.
static void rx_run(zof_host_t *h) {
    uint16_t head = 0, len = 0;
    while (h->rx_have) {
        const uint8_t found = rx_look(h, &head, &len);
        if (found == RX_PART) {
            return;
        }
        if (found == RX_NOISE) {
            rx_drop_noise(h);
            continue;
        }
        rx_frame(h, h->rx[head], h->rx + head + 1, (uint16_t)(len - 1 - (h->crc ? CRC_SIZE : 0)));
        rx_drop(h, (uint16_t)(head + len));
    }
}

void zof_host_feed(zof_host_t *h, const uint8_t *bytes, uint16_t size, uint32_t now_ms) {
    if (!h || !h->ready || h->inside || !bytes) {
        return;
    }
    h->now = now_ms;
    for (uint16_t i = 0; i < size; i++) {
        h->rx_at = now_ms;
        h->rx[h->rx_have++] = bytes[i]; // there is room: frames that cannot fit were skipped as noise
        rx_run(h);
    }
}

// Reads at most one buffer, so that a line that is never silent cannot block the caller.
static void rx_fetch(zof_host_t *h) {
    uint8_t chunk[READ_CHUNK];
    for (uint16_t have = 0; h->read && have < h->rx_size; have = (uint16_t)(have + READ_CHUNK)) {
        const uint16_t got = h->read(h->user, chunk, READ_CHUNK);
        zof_host_feed(h, chunk, got > READ_CHUNK ? (uint16_t)READ_CHUNK : got, h->now);
        if (got < READ_CHUNK) {
            return;
        }
    }
}

// Sender
static void own_lay(zof_host_t *h) {
    const uint8_t size = h->own == OWN_VIEW ? 3 : 4; // view.size, or system.standby_state
    uint16_t crc = 0;
    h->own_frame[0] = h->head_fh;
    h->own_frame[1] = h->head_fl;
    h->own_frame[2] = (uint8_t)(size + (h->crc ? CRC_SIZE : 0));
    h->own_frame[3] = ZOF_HOST_READ;
    h->own_frame[4] = h->own == OWN_VIEW ? VIEW_TYPE : SYSTEM_TYPE;
    h->own_frame[5] = 0x06;
    h->own_frame[6] = 0x01;
    for (uint8_t i = 0; i < size; i++) {
        crc = crc_step(crc, h->own_frame[3 + i]);
    }
    h->own_frame[3 + size] = (uint8_t)(crc >> 8);
    h->own_frame[4 + size] = (uint8_t)crc;
    h->cur_size = (uint16_t)(3 + h->own_frame[2]);
}

static void start(zof_host_t *h) {
    if (!h->own) {
        h->cur_at = ring(h, h->tx_head, h->tx[h->tx_head] & META_SHORT ? 2 : 1);
        const uint8_t l = current(h, 2);
        h->cur_size = l & LONG_FORM ? (uint16_t)(((l & SHORT_MAX) << 8 | current(h, 3)) + 4) : (uint16_t)(l + 3);
        if (!is_system(h) && (uint32_t)h->in_flight + h->cur_size + BARRIER_SIZE > h->limit) {
            h->own = OWN_VIEW;
        }
    }
    if (h->own) {
        own_lay(h);
    }
    h->fill = h->flush ? FILL_FLUSH : FILL;
    h->flush = 0;
    h->sent = 0;
    h->started = h->now;
    h->line_size = (uint16_t)(h->fill + h->cur_size);
    h->state = SENDING;
}

static void sent_all(zof_host_t *h) {
    const uint32_t needs = (uint32_t)h->line_size * h->byte_us / 1000, spent = h->now - h->started;
    const uint8_t system = is_system(h);
    h->since = h->now;
    h->wait = (needs > spent ? needs - spent : 0) + h->timeout_ms + 1; // the clock may be about to tick
    h->state = WAITING;
    if (!h->own && !system) {
        h->in_flight = (uint16_t)(h->in_flight + h->cur_size);
    }
    if (!h->own && current_op(h) != ZOF_HOST_READ && !(system && h->acks)) {
        pop(h);
        h->state = IDLE;
        // The panel executes a `system` write, which may take as long as drawing a frame, before it receives more.
        h->own = system ? OWN_SYSTEM : OWN_NONE;
    }
}

// Returns 0 if the line accepts no more bytes now.
static uint8_t push_fill(zof_host_t *h) {
    uint8_t none[FILL_CHUNK], byte = 0;
    while (byte == h->head_fh || byte == h->head_fl) {
        byte++;
    }
    memset(none, byte, sizeof(none));
    while (h->fill) {
        const uint16_t size = h->fill < FILL_CHUNK ? h->fill : (uint16_t)FILL_CHUNK;
        const uint16_t took = h->write(h->user, none, size);
        h->fill = (uint16_t)(h->fill - (took > size ? size : took));
        if (took < size) {
            return 0;
        }
    }
    return 1;
}

static void push(zof_host_t *h) {
    if (!push_fill(h)) {
        return;
    }
    while (h->sent < h->cur_size) {
        const uint16_t from = h->own ? h->sent : ring(h, h->cur_at, h->sent);
        uint16_t size = (uint16_t)(h->cur_size - h->sent);
        if (!h->own && size > h->tx_size - from) {
            size = (uint16_t)(h->tx_size - from);
        }
        const uint16_t took = h->write(h->user, (h->own ? h->own_frame : h->tx) + from, size);
        h->sent = (uint16_t)(h->sent + (took > size ? size : took));
        if (took < size) {
            return;
        }
    }
    sent_all(h);
}

static void over_time(zof_host_t *h) {
    h->flush = 1;
    if (!h->own) {
        unanswered(h);
        return;
    }
    h->state = IDLE;
    if (h->once) {
        own_ends(h);
    } else {
        event_send(h, ZOF_HOST_SILENT, 0);
    }
}

// After a restart, the user's function queues the state to restore. This happens after everything queued earlier was
// sent, because the function knows newer values. ZOF_HOST_RESTORED is sent when the state has been executed.
static void restore_step(zof_host_t *h) {
    if (h->restore == RESTORE_ASK) {
        h->inside = 1;
        h->restore = h->on_restart(h, h->step++) ? RESTORE_ASK : RESTORE_SEND;
        h->inside = 0;
    } else if (h->restore == RESTORE_SEND) {
        h->restore = RESTORE_WAIT;
        h->own = OWN_VIEW;
    }
}

int zof_host_poll(zof_host_t *h, uint32_t now_ms) {
    if (!h || !h->ready || h->inside) {
        return 0;
    }
    h->now = now_ms;
    rx_fetch(h);
    while (h->rx_have && h->now - h->rx_at >= GAP_MS) { // an incomplete frame that was not continued
        rx_drop_noise(h);
        rx_run(h);
    }
    if (h->state == WAITING && h->now - h->since >= h->wait) {
        over_time(h);
    }
    // Sends the queued frames one by one, up to the first that expects an answer.
    for (;;) {
        if (h->state == IDLE && !h->own && !h->tx_used) {
            restore_step(h);
        }
        if (h->state == IDLE && (h->own || h->tx_used)) {
            start(h);
        }
        if (h->state == SENDING) {
            push(h);
        }
        if (h->state != IDLE || !(h->own || h->tx_used)) {
            break;
        }
    }
    return h->state != IDLE || h->restore || h->own || h->tx_used;
}

// Answers
static uint32_t take(zof_host_reply_t *r, uint8_t size) {
    uint32_t value = 0;
    if (!r || r->size < size) {
        if (r) {
            r->bad = 1;
            r->size = 0;
        }
        return 0;
    }
    r->size = (uint16_t)(r->size - size);
    for (; size > 0; size--) {
        value = value << 8 | *r->data++;
    }
    return value;
}

uint8_t zof_host_reply_u8(zof_host_reply_t *reply) {
    return (uint8_t)take(reply, 1);
}

uint16_t zof_host_reply_u16(zof_host_reply_t *reply) {
    return (uint16_t)take(reply, 2);
}

uint32_t zof_host_reply_u32(zof_host_reply_t *reply) {
    return take(reply, 4);
}

const char *zof_host_reply_text(zof_host_reply_t *reply) {
    const char *text = reply ? (const char *)reply->data : "";
    while (reply && reply->size) {
        if (take(reply, 1) == 0) {
            return text;
        }
    }
    take(reply, 1);
    return "";
}
