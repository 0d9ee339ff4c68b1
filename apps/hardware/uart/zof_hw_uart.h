// The logic of the panel: the register link to the controller board, the register map, and the four views.
// Everything here runs under dis_mutex: control events on the main thread, frames on the link's client thread.
#ifndef ZOF_HW_UART_H
#define ZOF_HW_UART_H

#include "hardware/uart/zof_hw_map.h"
#include "zof.h"

ZOF_C_BEGIN

// One PD profile. `vmin` equals `vmax` for a single voltage.
typedef struct {
    u16 type; // 1 PPS, 2 AVS, 3 EPR, anything else FIX
    u16 vmin; // mV
    u16 vmax; // mV
    u16 imax; // mA
} prof_t;

extern u32 g_sess_mWh;
extern u8 g_out_on, g_applied, g_arm_pending;
extern u8 g_v4_bright, g_v4_boot, g_v4_autoarm, g_bright_guard;
extern prof_t g_prof[RAIL_MAX];
extern u8 g_prof_n, g_sel, g_panel_up;
extern zof_drv_t *drv_uart;

// Starts the hardware of the box, after the first view is shown.
void zof_hw_init(void);

// The link. Functions return 0, or -1 for an address above REG_MAX; sending returns the result of the driver.
void zof_uart_init(void);
s32 zof_reg_set(u16 addr, u16 data);
s32 zof_reg_get(u16 addr);
s32 zof_reg_com_send(u16 addr, u16 len);
// Stores a value in the image and reports it to the board.
s32 zof_reg_report(u16 addr, u16 value);
void recive_data_handle(u8 *databuf, u32 datalen);
// `data` must hold a complete frame of at least 6 bytes.
s32 zof_comm_handle(u8 *data);
void zof_reg_set_user(u16 addr, u16 *data, u8 datalen);
// Enclose the data delivered at once by the line: between the two, commits of the rails are deferred, and the list is
// rebuilt once at the end. Otherwise a kilobyte of commits would block the panel for seconds.
void zof_reg_delivery_begin(void);
void zof_reg_delivery_end(void);

// Rebuilds the list of rails from the image, as on a commit of the board.
void rail_commit(void);
// Writes the labels set by code again, after a language change.
void panel_lang_changed(void);

// View 1.
void view1_set_output_btn(u8 on);
void view1_sync_armed(void);
void view1_toggle_output(void);
void view1_reset_press(u8 down);
void view1_reset_session(void);

// View 2.
void show_row(u8 i, u8 vis);
void highlight_row(u8 i, u8 on);
void fill_row(u8 i, prof_t *p);
void use_btn_set(u8 enabled, const char *txt);
void adj_labels(u16 mv, u16 ma);
void adj_panel(u8 show);
void update_adjust(u8 i);
void select_row_by_bg(zof_ctrl_t *ctrl);
void view2_slider_changed(u8 which);
void view2_use_apply(void);
void view2_reset_panel(void);

// View 4.
void boot_state_paint(u8 last_used);
void bright_label(u8 pct);
void bright_backlight(u8 pct);
void bright_slider(u8 pct);
void view4_apply_settings(void);
void view4_set_boot_state(u8 last_used);
void view4_set_autoarm(u8 on);
void view4_set_bright(u8 pct);
void view4_request_settings(void);

ZOF_C_END

#endif
