// The host protocol's line: its settings, opening it, and sending. Two threads send, so a lock keeps frames whole.
#include "hmi/zof_hmi.h"

#include <atomic>
#include <mutex>

#include "hmi/zof_hmi_analys.h"
#include "hmi/zof_hmi_ctrl_in.h"
#include "hmi/zof_hmi_event.h"
#include "hmi/zof_hmi_sync.h"
#include "project/path/zof_res.h"
#include "project/read/zof_fault.h"
#include "project/read/zof_j2s.h"
#include "zof_lib/zof_stdio.h"

#define HMI_FILE "config/project/zofhmi.g"

enum { RECEIVE_SIZE = 4096 };

static zof_hmi_attr_t *g_hmi_attr; // null until the file is read
static std::atomic<zof_drv_t *> hmi_drv_uart;
static std::mutex send_lock;

s32 zof_hmi_attr_init(void) {
    g_hmi_attr = g_hmi_attr ? g_hmi_attr : (zof_hmi_attr_t *)zof_malloc(sizeof(zof_hmi_attr_t));
    const char *path = zof_res_get_g_file_path("config/project/", "zofhmi");
    if (!path || !g_hmi_attr) {
        return -1;
    }
    *g_hmi_attr = {};
    zof_rootjson_t file = RootJsonGet(path);
    s32 result = -1;
    if (file.root) {
        const zof_fault_scope scope(path, file.root);
        result = GetHmiStruct(file.root, g_hmi_attr);
    }
    RootJsonDel(&file);
    if (result == 0 && g_hmi_attr->hmi_en && g_hmi_attr->head_fh == g_hmi_attr->head_fl) {
        zof_printf(HMI_FILE ": head_fh and head_fl are both %d; they must differ, so no link is opened",
                   g_hmi_attr->head_fh);
        g_hmi_attr->hmi_en = 0;
        return -1;
    }
    return result;
}

const zof_hmi_attr_t *zof_hmi_attr_get(void) {
    return g_hmi_attr;
}

s32 zof_hmi_uart_init(void) {
    if (!g_hmi_attr || !g_hmi_attr->hmi_en || (g_hmi_attr->uart.win_port == 0 && g_hmi_attr->uart.port == 0)) {
        return -1;
    }
    zof_hmi_sync_init();
    if (zof_hmi_cmd_sys_analys_init(g_hmi_attr) != 0 || zof_hmi_cmd_ui_analys_init(g_hmi_attr) != 0) {
        return -1;
    }
    static const zof_hmi_line_t uart = {.send = zof_hmi_uart_send, .tail_set = zof_hmi_uart_tail_set};
    sys_cmd_analys->line = ui_cmd_analys->line = &uart;
    zof_uart_cfg_t cfg = g_hmi_attr->uart;
    zof_drv_t *line = zof_drv_uart_open(&cfg);
    hmi_drv_uart = line; // before anything can arrive
    if (!line) {
        return 0;
    }
    zof_drv_uart_rev_set_timeout(line, g_hmi_attr->timeout);
    zof_drv_uart_hmi_rev_set_bfun(line, zof_hmi_recive_data_handle, nullptr, RECEIVE_SIZE, ZOF_HMI_RECEIVE_MAX);
    zof_hmi_cmd_power_on_send();
    hmi_ctrl_load_set(g_hmi_attr->load_en != 0);
    if (g_hmi_attr->event_en) {
        zof_hmi_event_start();
    }
    return 0;
}

s32 zof_hmi_init(void) {
    const s32 result = zof_hmi_attr_init();
    return result == 0 ? zof_hmi_uart_init() : result;
}

s32 zof_hmi_uart_send(const u8 *data, u32 size) {
    std::lock_guard guard(send_lock);
    return zof_drv_uart_send(hmi_drv_uart, data, size);
}

s32 zof_hmi_uart_tail_set(const u8 *data, u32 size) {
    return zof_drv_uart_hmi_tbuf_set(hmi_drv_uart, data, size);
}

void zof_hmi_cmd_power_on_send(void) {
    static const u8 type_key[] = {1, 0xB0};
    static const u8 param_key[] = {1, 0x01};
    zof_hmi_cmd_read_send(ui_cmd_analys, type_key, nullptr, param_key, nullptr);
}
