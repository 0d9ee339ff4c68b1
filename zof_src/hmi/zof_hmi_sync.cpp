// One lock guards the copy and the pending work; nothing but the wake of the main loop is called under it.
#include "hmi/zof_hmi_sync.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

#include "drv/zof_loop_in.h"
#include "func/zof_func_stdby.h"
#include "hmi/zof_hmi_tone.h"
#include "project/zof_prj.h"
#include "project/zof_ver.h"
#include "zof_lib/zof_task.h"

enum { PERIOD_MS = 5, WAIT_S = 5 }; // the period matters only in a loop without sources
enum { DO_TONE = 1, DO_TH_EN = 2, DO_STANDBY = 4, DO_CALL = 8 };

// Work that waits for the graphics thread; `todo` says which of it is valid.
struct left_to_do {
    u32 todo;
    u8 count;
    u16 pause, tone;
    u8 th_en;
    zof_func_standby_t standby;
    s32 (*call)(void *arg);
    void *arg;
};

struct shared_t {
    std::mutex lock;
    std::condition_variable finished;
    zof_hmi_seen_t seen;
    left_to_do left;
    bool calling; // the graphics thread has started the call
    s32 result;
    std::thread::id graphics; // set once, before the link opens
};

// Never destroyed: the receive thread may be waiting in it when the process ends.
static shared_t &shared = *new shared_t{};
static zof_loop_source source = {.settle = zof_hmi_sync_refresh};

static zof_prj_attr_t *record() {
    zof_prj_t *prj = zof_prj_get_cur();
    return prj ? prj->attr : nullptr;
}

void zof_hmi_sync_refresh(void) {
    const zof_prj_attr_t *attr = record();
    zof_touch_t touch = {};
    const bool has_touch = zof_touch_get(&touch) == 0;
    std::lock_guard guard(shared.lock);
    zof_hmi_seen_t &seen = shared.seen;
    seen.has_project = attr != nullptr;
    seen.has_touch = has_touch;
    seen.touch = touch;
    seen.standby_state = zof_func_stdby_get_statue();
    if (attr && !(shared.left.todo & DO_TH_EN)) {
        seen.th_en = attr->hw_t.touch_t.th_en;
    }
    if (attr && !(shared.left.todo & DO_STANDBY)) {
        seen.standby = attr->func_t.standby_t;
    }
}

static void do_tone(const left_to_do *left) {
    zof_prj_attr_t *attr = record();
    if (attr) {
        attr->hw_t.tone_t.time = left->tone;
    }
    zof_hmi_tone_mult_on(left->count, left->pause, left->tone);
}

static void do_th_en(const left_to_do *left) {
    zof_prj_attr_t *attr = record();
    if (attr) {
        attr->hw_t.touch_t.th_en = left->th_en;
        zof_drv_touch_pause(left->th_en & 1);
    }
}

static void do_standby(const left_to_do *left) {
    zof_prj_attr_t *attr = record();
    if (attr) {
        attr->func_t.standby_t = left->standby; // zof_func_stdby_set_param does not store it when both times are 0
        zof_func_stdby_set_param(&left->standby);
    }
}

// The copy is refreshed before the host is answered, so that a read after the answer sees the effect of the call.
static void do_call(const left_to_do *left) {
    const s32 result = left->call(left->arg);
    zof_hmi_sync_refresh();
    std::lock_guard guard(shared.lock);
    shared.result = result;
    shared.calling = false;
    shared.finished.notify_one();
}

static left_to_do take() {
    std::lock_guard guard(shared.lock);
    const left_to_do left = shared.left;
    shared.calling = left.todo & DO_CALL;
    shared.left.todo = 0;
    return left;
}

static void sync_task(zof_task_t *) {
    static constexpr struct {
        u32 flag;
        void (*run)(const left_to_do *left);
    } steps[] = {{DO_TONE, do_tone}, {DO_TH_EN, do_th_en}, {DO_STANDBY, do_standby}, {DO_CALL, do_call}};
    const left_to_do left = take();
    for (const auto &step : steps) {
        if (left.todo & step.flag) {
            step.run(&left);
        }
    }
    zof_hmi_sync_refresh();
}

s32 zof_hmi_sync_init(void) {
    {
        std::lock_guard guard(shared.lock);
        shared.graphics = std::this_thread::get_id();
        shared.seen.version[ZOF_HMI_VERSION_APP] = zof_user_app_version();
        shared.seen.version[ZOF_HMI_VERSION_SDK] = zof_sdk_get_version();
        shared.seen.version[ZOF_HMI_VERSION_FW] = zof_fw_get_version();
    }
    zof_hmi_sync_refresh();
    if (!source.timer) {
        zof_loop_source_add(&source, zof_task_create(sync_task, PERIOD_MS, nullptr));
    }
    return source.timer ? 0 : -1;
}

zof_hmi_seen_t zof_hmi_sync_seen(void) {
    std::lock_guard guard(shared.lock);
    return shared.seen;
}

// With the lock held.
static void leave(u32 what) {
    shared.left.todo |= what;
    zof_loop_wake(&source);
}

void zof_hmi_sync_tone(u8 count, u16 pause, u16 tone) {
    std::lock_guard guard(shared.lock);
    shared.left.count = count;
    shared.left.pause = pause;
    shared.left.tone = tone;
    leave(DO_TONE);
}

void zof_hmi_sync_th_en(u8 flags) {
    std::lock_guard guard(shared.lock);
    shared.left.th_en = shared.seen.th_en = flags;
    leave(DO_TH_EN);
}

void zof_hmi_sync_standby(const zof_func_standby_t *times) {
    if (!times) {
        return;
    }
    std::lock_guard guard(shared.lock);
    shared.left.standby = shared.seen.standby = *times;
    leave(DO_STANDBY);
}

zof_bool zof_hmi_sync_on_graphics(void) {
    return std::this_thread::get_id() == shared.graphics ? ZOF_TRUE : ZOF_FALSE;
}

s32 zof_hmi_sync_call(s32 (*fn)(void *arg), void *arg) {
    if (!fn) {
        return -1;
    }
    if (zof_hmi_sync_on_graphics()) { // it would wait for itself
        const s32 result = fn(arg);
        zof_hmi_sync_refresh();
        return result;
    }
    std::unique_lock guard(shared.lock);
    shared.left.call = fn;
    shared.left.arg = arg;
    leave(DO_CALL);
    const auto waits = [] { return !(shared.left.todo & DO_CALL); };
    const auto done = [] { return !(shared.left.todo & DO_CALL) && !shared.calling; };
    if (!shared.finished.wait_for(guard, std::chrono::seconds(WAIT_S), done) && !waits()) {
        shared.left.todo &= ~(u32)DO_CALL;
        return -1;
    }
    shared.finished.wait(guard, done); // it has started, so it will end
    return shared.result;
}
