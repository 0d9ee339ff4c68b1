// What each register does when the board writes it. The rows of the registers are in zof_hw_map.h.
#include <stdio.h>

#include "bench_ids.h"
#include "hardware/uart/zof_hw_uart.h"
#include "zof_main.h"

u32 g_sess_mWh;
u8 g_out_on;
u8 g_applied = RAIL_NONE;
u8 g_v4_bright = 100, g_v4_boot, g_v4_autoarm;

enum { TEXT_SIZE = 16 };

static para_t *view1(u32 id) {
    return zof_ctrl_get_form_id(ZOF_VIEW1_ID, id);
}

static bool view4_shown() {
    return zof_view_get_cur_id(ZOF_LAYER_UI) == ZOF_VIEW4_ID;
}

static void live_mv(u16 mv) {
    char text[TEXT_SIZE];
    snprintf(text, sizeof(text), "%u.%02u", mv / 1000u, mv % 1000u / 10);
    zof_label_set_txt(view1(VIEW1_LABEL0_ID), text);
    zof_arc_set_value(view1(VIEW1_ARC0_ID), (s16)(mv / 100));
}

static void live_ma(u16 ma) {
    char text[TEXT_SIZE];
    snprintf(text, sizeof(text), "%u.%03u A", ma / 1000u, ma % 1000u);
    zof_label_set_txt(view1(VIEW1_LABEL2_ID), text);
}

static void live_dw(u16 dw) {
    char text[TEXT_SIZE];
    snprintf(text, sizeof(text), "%u.%u W", dw / 10u, dw % 10u);
    zof_label_set_txt(view1(VIEW1_LABEL4_ID), text);
}

static void wh_paint() {
    char text[TEXT_SIZE];
    snprintf(text, sizeof(text), "%u.%03u", g_sess_mWh / 1000, g_sess_mWh % 1000);
    zof_label_set_txt(view1(VIEW1_LABEL3_ID), text);
}

static void energy_low(u16 value) {
    g_sess_mWh = (g_sess_mWh & 0xFFFF0000u) | value;
    wh_paint();
}

static void energy_high(u16 value) {
    g_sess_mWh = (g_sess_mWh & 0xFFFFu) | (u32)value << 16;
    wh_paint();
}

static void out_state(u16 value) {
    g_out_on = (u8)value;
    view1_set_output_btn(g_out_on);
}

static void rail_active(u16 value) {
    g_applied = (u8)value;
}

static void bright(u16 value) {
    g_v4_bright = (u8)value;
    bright_backlight(g_v4_bright);
    if (view4_shown()) {
        bright_slider(g_v4_bright);
        bright_label(g_v4_bright);
    }
}

static void boot_state(u16 value) {
    g_v4_boot = (u8)value;
    if (view4_shown()) {
        boot_state_paint(g_v4_boot);
    }
}

static void auto_arm(u16 value) {
    g_v4_autoarm = (u8)value;
    if (view4_shown()) {
        zof_sw_set_state(zof_ctrl_get_form_id(ZOF_VIEW4_ID, VIEW4_SW0_ID), g_v4_autoarm);
    }
}

static struct {
    bool running, commit;
} delivery;

static void commit(u16) {
    if (delivery.running) {
        delivery.commit = true;
    } else {
        rail_commit();
    }
}

void zof_reg_delivery_begin(void) {
    delivery = {.running = true, .commit = false};
}

void zof_reg_delivery_end(void) {
    const bool wanted = delivery.commit;
    delivery = {};
    if (wanted) {
        rail_commit();
    }
}

static constexpr struct {
    u16 addr;
    void (*write)(u16 value); // null: the register is only stored, for the commit
} handlers[] = {
    {REG_LIVE_MV, live_mv},         {REG_LIVE_MA, live_ma},         {REG_LIVE_DW, live_dw},
    {REG_SESS_MWH_LO, energy_low},  {REG_SESS_MWH_HI, energy_high}, {REG_OUT_STATE, out_state},
    {REG_RAIL_ACTIVE, rail_active}, {REG_BRIGHT, bright},           {REG_BOOT_STATE, boot_state},
    {REG_AUTO_ARM, auto_arm},       {REG_RAIL_COUNT, nullptr},      {REG_RAIL_COMMIT, commit},
    {REG_RAIL_BASE, nullptr},
};
static_assert(reg_all_bound(handlers, REG_BY_BOARD));

// The link passes one word at a time, so only direct callers pass a whole row.
static bool whole_rail(u16 addr, const u16 *data, u8 datalen) {
    if (addr < REG_RAIL_BASE || addr >= REG_RAIL_BASE + RAIL_WORDS * RAIL_MAX || datalen < RAIL_WORDS) {
        return false;
    }
    g_prof[(addr - REG_RAIL_BASE) / RAIL_WORDS] = {data[0], data[1], data[2], data[3]};
    return true;
}

void zof_reg_set_user(u16 addr, u16 *data, u8 datalen) {
    if (!data || whole_rail(addr, data, datalen)) {
        return;
    }
    for (const auto &row : handlers) {
        if (row.addr == addr && row.write) {
            row.write(reg_value(addr, data[0]));
            return;
        }
    }
}
