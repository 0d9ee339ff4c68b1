// Two analysers over one engine: one for system commands on the receive thread, so that a host is answered even while a
// view is being built, and one for all others on the graphics thread. They share only the queue.
#include "hmi/zof_hmi_analys.h"

#include <string.h>

#include "control/zof_ctrl_up.h"
#include "drv/zof_loop_in.h"
#include "drv/zof_pipo_buff.h"
#include "hmi/zof_hmi_sync.h"
#include "zof_lib/zof_stdio.h"
#include "zof_lib/zof_task.h"

enum { QUEUE_MORE = 1024, UI_PERIOD_MS = 5, KEY_CODES = 2, QUEUE_WAIT_MS = 1000, QUEUE_STEP_MS = 10 };

zof_hmi_cmd_analys_t *sys_cmd_analys;
zof_hmi_cmd_analys_t *ui_cmd_analys;

// Made before the link opens, never released.
static pipo_buff *ui_queue;
static zof_sem_t ui_queue_switched; // released when the graphics thread has emptied the queue
static zof_loop_source ui_source;

static zof_hmi_written_fn written; // set before any frames

void zof_hmi_cmd_on_write(zof_hmi_written_fn fn) {
    written = fn;
}

static void (*ended)(void);
static u32 running; // commands that the graphics thread executes: one may run another

void zof_hmi_cmd_on_end(void (*fn)(void)) {
    ended = fn;
}

zof_bool zof_hmi_cmd_running(void) {
    return running ? ZOF_TRUE : ZOF_FALSE;
}

static void analys_release(zof_hmi_cmd_analys_t *a) {
    void **records[] = {&a->type_param, &a->req_param, &a->value_param, &a->reply_param};
    for (void **record : records) {
        zof_free(*record);
        *record = nullptr;
    }
    zof_free(a->send_buf);
    a->send_buf = a->send_cursor = nullptr;
    a->send_size = 0;
}

s32 zof_hmi_cmd_analys_init(zof_hmi_cmd_analys_t *a) {
    if (!a) {
        return -1;
    }
    bool whole = true;
    void **records[] = {&a->type_param, &a->req_param, &a->value_param, &a->reply_param};
    for (void **record : records) {
        *record = *record ? *record : zof_malloc(a->param_size);
        whole = whole && *record;
    }
    if (!a->send_buf) {
        a->send_buf = (u8 *)zof_malloc(ZOF_HMI_SEND_SIZE);
        a->send_size = ZOF_HMI_SEND_SIZE;
    }
    if (!whole || !a->send_buf) {
        analys_release(a);
        return -1;
    }
    a->send_cursor = a->send_buf + ZOF_HMI_SEND_HEAD;
    return 0;
}

// Makes a context over a table; null, with a log line, on failure.
static zof_hmi_cmd_analys_t *analys_make(const zof_hmi_attr_t *attr, const zof_hmi_cmd_type_t *types, u32 count) {
    auto *a = (zof_hmi_cmd_analys_t *)zof_malloc(sizeof(zof_hmi_cmd_analys_t));
    if (!a) {
        zof_printf("ui_analys zof_malloc fail\n");
        return nullptr;
    }
    a->head_fh = attr->head_fh;
    a->head_fl = attr->head_fl;
    a->types = types;
    a->type_count = (u8)count;
    a->param_size = ZOF_HMI_RECORD_SIZE;
    a->crc_en = attr->crc_en;
    if (zof_hmi_cmd_analys_init(a) != 0) {
        zof_printf("ui_analys init fail\n");
        zof_free(a);
        return nullptr;
    }
    return a;
}

s32 zof_hmi_cmd_sys_analys_init(const zof_hmi_attr_t *attr) {
    if (!attr || sys_cmd_analys) {
        return attr ? 0 : -1;
    }
    sys_cmd_analys = analys_make(attr, zof_sys_cmd_types, zof_sys_cmd_type_count);
    if (!sys_cmd_analys) {
        return -1;
    }
    sys_cmd_analys->resend_en = attr->resend_en;
    return 0;
}

static void ui_data_task(zof_task_t *) {
    zof_hmi_cmd_ui_data_run();
}

s32 zof_hmi_cmd_ui_analys_init(const zof_hmi_attr_t *attr) {
    if (!attr || ui_cmd_analys) {
        return attr ? 0 : -1;
    }
    zof_hmi_cmd_analys_t *a = analys_make(attr, zof_ui_cmd_types, zof_ui_cmd_type_count);
    if (!a) {
        return -1;
    }
    ui_queue = pipo_buff_create((u32)attr->buffsize + QUEUE_MORE, 0);
    ui_queue_switched = zof_sem_create(0);
    if (!ui_queue || !ui_queue_switched) {
        zof_printf("ui_analys pipo fail\n");
        if (ui_queue) {
            pipo_buff_delete(ui_queue);
        }
        if (ui_queue_switched) {
            zof_sem_delete(ui_queue_switched);
        }
        ui_queue = nullptr;
        ui_queue_switched = nullptr;
        analys_release(a);
        zof_free(a);
        return -1;
    }
    ui_cmd_analys = a;
    if (sys_cmd_analys) {
        sys_cmd_analys->resend_en = attr->resend_en; // not `a`: hosts rely on writes to views and controls being silent
    }
    zof_loop_source_add(&ui_source, zof_task_create(ui_data_task, UI_PERIOD_MS, nullptr));
    return 0;
}

static bool code_matches(const u8 *key, u8 len, const u8 *code) {
    return (key[0] == len || key[0] == ZOF_HMI_KEY_ANY) && memcmp(key + 1, code, len) == 0;
}

const zof_hmi_cmd_type_t *zof_hmi_cmd_find_type(const zof_hmi_cmd_analys_t *analys, const u8 *key) {
    for (u32 i = 0; analys && key && key[0] && i < analys->type_count; i++) {
        if (code_matches(key, analys->types[i].len, analys->types[i].code)) {
            return &analys->types[i];
        }
    }
    return nullptr;
}

const zof_hmi_param_type_t *zof_hmi_cmd_find_param_type(const u8 *key, const zof_hmi_cmd_type_t *type) {
    for (u32 i = 0; type && key && key[0] && i < type->param_count; i++) {
        if (code_matches(key, type->params[i].len, type->params[i].code)) {
            return &type->params[i];
        }
    }
    return nullptr;
}

// The part of a payload that is not decoded yet.
struct rest {
    const u8 *at;
    u32 size;
};

// Makes a key of the next two bytes, which may not both be there; a row that needs a missing one is rejected by length.
static void key_of(const rest *r, u8 key[1 + KEY_CODES]) {
    key[0] = ZOF_HMI_KEY_ANY;
    for (u32 i = 0; i < KEY_CODES; i++) {
        key[1 + i] = i < r->size ? r->at[i] : 0;
    }
}

static bool step(rest *r, u32 size) {
    if (size > r->size) {
        return false;
    }
    r->at += size;
    r->size -= size;
    return true;
}

static const zof_hmi_cmd_type_t *type_take(const zof_hmi_cmd_analys_t *a, rest *r) {
    u8 key[1 + KEY_CODES];
    key_of(r, key);
    const zof_hmi_cmd_type_t *type = zof_hmi_cmd_find_type(a, key);
    return type && step(r, type->len) ? type : nullptr;
}

static const zof_hmi_param_type_t *param_take(const zof_hmi_cmd_type_t *type, rest *r) {
    u8 key[1 + KEY_CODES];
    key_of(r, key);
    const zof_hmi_param_type_t *param = zof_hmi_cmd_find_param_type(key, type);
    return param && step(r, param->len) ? param : nullptr;
}

// Returns false when the fields are not all there.
static bool fields_take(void *record, const zof_hmi_rec_t *list, rest *r) {
    const s32 taken = zof_hmi_cmd_buf_2_param(record, list, r->at, r->size);
    return taken >= 0 && step(r, (u32)taken);
}

u32 zof_hmi_cmd_check_cmd(const zof_hmi_cmd_analys_t *analys, const u8 *data) {
    if (!analys || !data) {
        return 0;
    }
    const zof_hmi_frame_t frame = zof_hmi_frame_parse(analys, data);
    rest r = {frame.payload, frame.size};
    return type_take(analys, &r) ? frame.len : 0;
}

static s32 handler_call(zof_hmi_cmd_analys_t *a, const zof_hmi_param_type_t *param, u8 op) {
    return op == ZOF_HMI_OP_GET ? param->get_fun(a->type_param, a->req_param, a->value_param)
                                : param->set_fun(a->type_param, a->req_param, a->value_param, a->reply_param);
}

static s32 handler_run(zof_hmi_cmd_analys_t *a, const zof_hmi_param_type_t *param, u8 op) {
    if (a != ui_cmd_analys) {
        return handler_call(a, param, op);
    }
    const zof_bool former = zof_refuse_quiet(ZOF_TRUE);
    const s32 result = handler_call(a, param, op);
    zof_refuse_quiet(former);
    return result;
}

// Sends what was asked, byte for byte, followed by what the record holds.
static void reply_send(zof_hmi_cmd_analys_t *a, u8 op, const u8 *echo, u32 echo_size, const void *record,
                       const zof_hmi_rec_t *list) {
    const u32 n = echo_size + zof_hmi_cmd_param_size(record, list);
    if (zof_hmi_frame_send_clear(a, n) != 0) {
        zof_printf("host protocol: an answer of %u bytes cannot be sent", n);
        return;
    }
    memcpy(a->send_cursor, echo, echo_size);
    zof_hmi_cmd_param_2_buf(record, list, a->send_cursor + echo_size);
    zof_hmi_cmd_send_data(a, op, n);
}

static void answer(zof_hmi_cmd_analys_t *a, const zof_hmi_param_type_t *param, const zof_hmi_frame_t *frame, u32 echo,
                   s32 result) {
    if (frame->op == ZOF_HMI_OP_GET && result != ZOF_HMI_FAIL) {
        reply_send(a, ZOF_HMI_OP_GET, frame->payload, echo, a->value_param, param->value);
    } else if (a->resend_en) {
        reply_send(a, frame->op, frame->payload, echo, a->reply_param, param->rw->rep);
    }
}

// Of the graphics thread alone.
static void command_finish(const zof_hmi_cmd_type_t *type, const zof_hmi_param_type_t *param, bool set) {
    const zof_hmi_cmd_analys_t *a = ui_cmd_analys;
    if (set && written) {
        written(type, param, a->type_param, a->req_param, a->value_param);
    }
    running--;
    if (running == 0 && ended) {
        ended();
    }
}

// Executes a frame that has passed its check. Checking costs more than all the rest, so it is done only once.
static s32 frame_run(zof_hmi_cmd_analys_t *a, const u8 *data) {
    const zof_hmi_frame_t frame = zof_hmi_frame_parse(a, data);
    if (frame.op > ZOF_HMI_OP_SET) {
        return -1;
    }
    rest r = {frame.payload, frame.size};
    const zof_hmi_cmd_type_t *type = type_take(a, &r);
    const zof_hmi_param_type_t *param = param_take(type, &r);
    if (!param || !fields_take(a->type_param, type->rec, &r) || !fields_take(a->req_param, param->rw->req, &r)) {
        return 0;
    }
    const u32 echo = frame.size - r.size;
    const bool get = frame.op == ZOF_HMI_OP_GET;
    const bool set = frame.op == ZOF_HMI_OP_SET;
    if (!(get && param->get_fun) && !(set && param->set_fun)) {
        return (s32)frame.total;
    }
    if (get) {
        memset(a->value_param, 0, a->param_size); // fields that a handler leaves out must not point into an old frame
    } else if (!fields_take(a->value_param, param->value, &r)) {
        return 0;
    }
    if (a == ui_cmd_analys) { // the other one runs on the receive thread
        running++;
    }
    const s32 result = handler_run(a, param, frame.op);
    if (result != ZOF_HMI_SILENT) {
        answer(a, param, &frame, echo, result);
    }
    if (result == ZOF_HMI_AGAIN) {
        handler_run(a, param, frame.op);
    }
    if (a == ui_cmd_analys) {
        command_finish(type, param, set);
    }
    return (s32)frame.total;
}

s32 zof_hmi_cmd_rev_analys(zof_hmi_cmd_analys_t *a, const u8 *data, u32 size) {
    return zof_hmi_cmd_check_data(a, data, size) > 0 ? frame_run(a, data) : 0;
}

void zof_hmi_cmd_read_send(zof_hmi_cmd_analys_t *a, const u8 *type_key, void *type_param, const u8 *param_key,
                           void *req_param) {
    const zof_hmi_cmd_type_t *type = zof_hmi_cmd_find_type(a, type_key);
    const zof_hmi_param_type_t *param = zof_hmi_cmd_find_param_type(param_key, type);
    if (!param) {
        return;
    }
    memset(a->value_param, 0, a->param_size);
    if (param->get_fun) {
        param->get_fun(type_param ? type_param : a->type_param, req_param ? req_param : a->req_param, a->value_param);
    }
    const u32 n = type->len + param->len + zof_hmi_cmd_param_size(type_param, type->rec) +
                  zof_hmi_cmd_param_size(req_param, param->rw->req) +
                  zof_hmi_cmd_param_size(a->value_param, param->value);
    if (zof_hmi_frame_send_clear(a, n) != 0) {
        return;
    }
    u8 *out = a->send_cursor;
    memcpy(out, type->code, type->len);
    out += type->len;
    memcpy(out, param->code, param->len);
    out += param->len;
    out += zof_hmi_cmd_param_2_buf(type_param, type->rec, out);
    out += zof_hmi_cmd_param_2_buf(req_param, param->rw->req, out);
    zof_hmi_cmd_param_2_buf(a->value_param, param->value, out);
    zof_hmi_cmd_send_data(a, ZOF_HMI_OP_GET, n);
}

void zof_hmi_cmd_send_data(zof_hmi_cmd_analys_t *analys, u8 op, u32 n) {
    const u8 *frame = nullptr;
    const u32 size = zof_hmi_frame_build(analys, op, n, &frame);
    if (size && analys->line) {
        analys->line->send(frame, size);
    }
}

void zof_hmi_cmd_ui_data_write(const u8 *data, u32 size) {
    pipo_buff_set_pi(ui_queue, data, size);
    zof_loop_wake(&ui_source);
}

void zof_hmi_cmd_ui_data_run(void) {
    if (pipo_buf_get_pi_len(ui_queue) == 0) {
        return;
    }
    const pipo_half *half = pipo_buff_get_pi_and_switch(ui_queue);
    zof_sem_release(ui_queue_switched);
    // Only whole checked frames are in the queue, so the loop relies on their lengths.
    for (u32 i = 0; i < half->len;) {
        const u32 total = zof_hmi_frame_parse(ui_cmd_analys, half->data + i).total;
        frame_run(ui_cmd_analys, half->data + i);
        i += total;
    }
}

// A host may send faster than the graphics thread draws. Then the receive thread waits for room, and so does the host.
static void queue_room_wait(u32 size) {
    while (zof_sem_trytake(ui_queue_switched) == 0) {
    }
    u32 waited = size <= ui_queue->size ? 0 : QUEUE_WAIT_MS; // it can never fit
    while (size > ui_queue->size - pipo_buf_get_pi_len(ui_queue) && waited < QUEUE_WAIT_MS) {
        waited += zof_sem_take(ui_queue_switched, QUEUE_STEP_MS) == 0 ? 0 : QUEUE_STEP_MS;
    }
}

// Executes or queues a checked frame of `total` bytes. Returns the bytes to skip: a frame with an unknown operation is
// noise.
static u32 frame_take(const u8 *data, u32 total) {
    if (zof_hmi_cmd_check_cmd(sys_cmd_analys, data)) {
        return frame_run(sys_cmd_analys, data) >= 0 ? total : 1;
    }
    if (zof_hmi_cmd_check_cmd(ui_cmd_analys, data)) {
        if (!zof_hmi_sync_on_graphics()) {
            queue_room_wait(total);
        }
        zof_hmi_cmd_ui_data_write(data, total);
    }
    return total;
}

// The tail that waits for its rest; receive thread only.
static struct {
    u32 size;      // bytes that were kept as the tail
    bool silent;   // the line has been silent since they came
    u32 silent_at; // when the silence began
} kept;

static bool can_be_whole(const u8 *data, u32 size) {
    return size < 4 || zof_hmi_frame_total(data) <= ZOF_HMI_RECEIVE_MAX;
}

// Takes all frames. Returns how many bytes at the end wait for their rest. A head that is followed by silence may be
// noise that happens to look like one. Then a whole frame with a correct CRC after it counts; without a CRC there is no
// way to tell.
static u32 walk(const u8 *data, u32 size, bool silent) {
    u32 waiting = size;
    for (u32 i = 0; i < size;) {
        const s32 r = zof_hmi_cmd_check_data(sys_cmd_analys, data + i, size - i);
        if (r > 0) {
            i += frame_take(data + i, (u32)r);
            waiting = size;
        } else if (r == ZOF_HMI_CHECK_PART && can_be_whole(data + i, size - i)) {
            waiting = waiting == size ? i : waiting;
            i = silent && sys_cmd_analys->crc_en ? i + 1 : size;
        } else {
            i++;
        }
    }
    return size - waiting;
}

// A partial frame expires when its rest has not come within a second of silence: what comes now belongs to another one.
static u32 expired() {
    const bool old = kept.size && kept.silent && zof_sys_time_ms() - kept.silent_at > ZOF_HMI_KEPT_MS;
    if (old) {
        zof_printf("host link: %u bytes of an incomplete frame are dropped", kept.size);
    }
    return old ? kept.size : 0;
}

void zof_hmi_recive_data_handle(u8 *data, u32 size, void *) {
    if (!data || size == 0) {
        return;
    }
    const bool silent = size == kept.size; // only the tail: this is how the driver reports silence
    const u32 from = silent ? 0 : expired();
    const u32 rest = walk(data + from, size - from, silent);
    if (silent && !kept.silent) {
        kept.silent_at = zof_sys_time_ms();
    }
    kept.silent = silent && rest == kept.size;
    kept.size = rest;
    if (rest && sys_cmd_analys->line) {
        sys_cmd_analys->line->tail_set(data + size - rest, rest);
    }
}
