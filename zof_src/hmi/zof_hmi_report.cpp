// Events go out as they happen, in the order of the graphics thread, which also answers commands. So each answer states
// the value after all events before it on the line, and a host that counts them knows whether it has seen them all.
#include "control/zof_ctrl_create.h"
#include "drv/zof_lock.h"
#include "hmi/zof_hmi_analys.h"
#include "hmi/zof_hmi_event.h"

enum { LATER_MAX = 16 }; // views and languages that one command may show

struct post_t {
    zof_hmi_ctrl_id_t who;
    u8 event;
};

static bool started;
static post_t later[LATER_MAX]; // until the command that is being executed has been answered
static u32 later_count;

static void send(const post_t *post) {
    static const u8 type_key[] = {2, 0xB2, 0xF0};
    static const u8 param_key[] = {1, 0x0E};
    zof_hmi_ctrl_id_t who = post->who;
    zof_hmi_event_number(post->event);
    zof_hmi_cmd_read_send(ui_cmd_analys, type_key, &who, param_key, nullptr);
    zof_hmi_event_number(ZOF_HMI_EVENT_STATE);
}

static void later_send() {
    for (u32 i = 0; i < later_count; i++) {
        send(&later[i]);
    }
    later_count = 0;
}

void zof_hmi_event_start(void) {
    started = true;
    zof_hmi_cmd_on_end(later_send);
    zof_lock gui(dis_mutex);
    zof_ctrl_watch_update(); // a player shows a view before it opens the line
}

zof_bool zof_hmi_event_wanted(void) {
    return started ? ZOF_TRUE : ZOF_FALSE;
}

// An answer and an event are encoded in the same records, so an event waits until the command has been answered.
static void post(u32 view, u32 ctrl, u8 event) {
    const post_t one = {{(u16)view, (u16)ctrl}, event};
    if (!started || !ui_cmd_analys) {
        return;
    }
    if (!zof_hmi_cmd_running()) {
        send(&one);
    } else if (later_count < LATER_MAX) {
        later[later_count++] = one;
    } else {
        zof_hmi_event_number(event); // the host notices that it is missing
        zof_hmi_event_number(ZOF_HMI_EVENT_STATE);
    }
}

void zof_hmi_event_control(u32 view, u32 ctrl, u32 event) {
    for (u8 i = ZOF_HMI_EVENT_CLICKED; !zof_hmi_cmd_running() && i < ZOF_HMI_EVENT_COUNT; i++) {
        if (zof_hmi_event_rows[i].event == (zof_event_e)event) {
            post(view, ctrl, i);
        }
    }
}

void zof_hmi_event_view(u32 view) {
    post(view, 0, ZOF_HMI_EVENT_VIEW);
}

void zof_hmi_event_language(void) {
    post(0, 0, ZOF_HMI_EVENT_LANGUAGE);
}
