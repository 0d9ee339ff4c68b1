// The logic of the panel: the register link to the controller board, the register map, and the four views.
// Everything here runs under dis_mutex: control events on the main thread, frames on the link's client thread.
#ifndef ZOF_HW_UART_H
#define ZOF_HW_UART_H

#include "hardware/uart/zof_hw_map.h"
#include "zof.h"

ZOF_C_BEGIN

extern u32 g_sess_mWh;                          // energy of the session, as last written by the board
extern u8 g_out_on;                             // output, as last written by the board; 0 is off
extern u8 g_applied;                            // active rail, or RAIL_NONE
extern u8 g_arm_pending;                        // set when a rail is applied, cleared when view 1 is entered
extern u8 g_v4_bright, g_v4_boot, g_v4_autoarm; // settings; brightness in percent
extern u8 g_bright_guard;                       // set while the program itself moves the brightness slider
extern prof_t g_prof[RAIL_MAX];                 // the rail table as last committed
extern u8 g_prof_n, g_sel;                      // rails in it; the selected one, or RAIL_NONE
extern u8 g_panel_up;                           // the adjust panel counts as shown
extern zof_drv_t *drv_uart;                     // the open port, or null

// What has arrived since the start.
typedef struct {
    u32 frames;
    u32 last_ms; // when the last one arrived, by zof_sys_time_ms
    u32 skipped; // bytes that were not part of a frame
} zof_link_count_t;
extern zof_link_count_t g_link;

// Called after each change of the port's state, and once at the start; for a replay at its start. Under dis_mutex, so
// it may send: what it sends is the first thing on a line that has just been opened.
typedef void (*zof_link_state_fun)(const zof_uart_info_t *info);
void zof_link_on_change(zof_link_state_fun fun); // before zof_hw_init; null: none

// Starts the hardware of the box, or the replay; called once, after the first view is shown. A port that cannot be
// opened is not fatal.
void zof_hw_init(void);
void zof_uart_init(void);

// The image of registers. Return 0 or the value, or -1 for an address above REG_MAX. Setting sends nothing.
s32 zof_reg_set(u16 addr, u16 data);
s32 zof_reg_get(u16 addr);

// Sends up to 125 words of the image, from `addr` on, in one report; more are left out. Returns the result of the
// driver, or -1 for an address above REG_MAX or without a port.
s32 zof_reg_com_send(u16 addr, u16 len);
// Stores a value in the image and sends it.
s32 zof_reg_report(u16 addr, u16 value);

// The port's receive callback: takes all frames out of the bytes and keeps an incomplete head for the next call.
void recive_data_handle(u8 *databuf, u32 datalen);
// Executes a complete frame of at least 6 bytes. Returns 0, also for an unknown command, or -1 for an address above
// REG_MAX or null.
s32 zof_comm_handle(u8 *data);
// Does what a register does when the board writes it: `data[0]` counts as its row says. Four words at an address in the
// rail table replace that rail at once.
void zof_reg_set_user(u16 addr, u16 *data, u8 datalen);
// Enclose the data delivered at once by the line: between the two, commits of the rails are deferred, and the list is
// rebuilt once at the end. Otherwise a kilobyte of commits would block the panel for seconds.
void zof_reg_delivery_begin(void);
void zof_reg_delivery_end(void);

// Rebuilds the list of rails from the image, as on a commit of the board.
void rail_commit(void);
// Writes the labels set by code again, after a language change.
void panel_lang_changed(void);

// The views. What concerns a view that is not built is remembered, and shown when it is entered.

// View 1: paints the toggle; clears `g_arm_pending` and paints it; requests the opposite of the output's state; shows
// the press mark of the reset while `down`; requests a new session.
void view1_set_output_btn(u8 on);
void view1_sync_armed(void);
void view1_toggle_output(void);
void view1_reset_press(u8 down);
void view1_reset_session(void);

// View 2: a row of the list, 0 to 12; others are ignored. Shows or hides it, marks it as selected, fills and shows it.
void show_row(u8 i, u8 vis);
void highlight_row(u8 i, u8 on);
void fill_row(u8 i, prof_t *p);
// The apply button, which `enabled` only paints; the readings of the adjust panel in mV and mA; the panel itself, and
// both for the rail that is selected.
void use_btn_set(u8 enabled, const char *txt);
void adj_labels(u16 mv, u16 ma);
void adj_panel(u8 show);
void update_adjust(u8 i);
// What taps and the sliders do: `ctrl` is the background of a row. `which` is not used, as both sliders are read.
void select_row_by_bg(zof_ctrl_t *ctrl);
void view2_slider_changed(u8 which);
void view2_use_apply(void);
// Brings the view to its initial state and requests the rail table.
void view2_reset_panel(void);

// View 4: paint one setting each; the backlight is set whatever view is shown.
void boot_state_paint(u8 last_used);
void bright_label(u8 pct);
void bright_backlight(u8 pct);
void bright_slider(u8 pct);
// Paints all settings as they are; nothing is sent.
void view4_apply_settings(void);
// Change a setting, paint and report it. Brightness counts as its register says, 10 to 100 percent.
void view4_set_boot_state(u8 last_used);
void view4_set_autoarm(u8 on);
void view4_set_bright(u8 pct);
// Requests the settings from the board.
void view4_request_settings(void);

ZOF_C_END

#endif
