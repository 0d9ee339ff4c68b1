// The parts of the rails page: the list, the presets in its last places, the tray below it, and the keypad above
// everything. Selecting and setting change only the tray; only the button of the tray passes the choice to the gate.
#ifndef VIEW2_H
#define VIEW2_H

#include "bench_ids.h"
#include "ui/ui.h"

para_t *view2(u32 id);

// What the tray shows: the selected rail with the values to apply.
enum tray_mode_e {
    TRAY_HIDDEN, // there is no list
    TRAY_DEAD,   // the state of the box is unknown
    TRAY_EMPTY,  // nothing is selected
    TRAY_FIXED,
    TRAY_ADJUSTABLE,
};
tray_mode_e tray_mode();
// Returns the selected rail with the values to apply; the rail is RAIL_NONE if nothing is selected. The selection is
// kept while the state of the box is unknown.
bench_choice_t tray_choice();
// Selects a rail with values; RAIL_NONE selects nothing.
void tray_select(bench_choice_t choice);
// Returns true if the tray shows an adjustable rail and no remote client holds the panel.
bool tray_is_settable();
// Clears the selection if another list has arrived, because the same index may mean another rail.
void tray_check();
void tray_paint();

// The values of an adjustable rail: one row of controls each, for volts and for amperes.
enum axis_e { VOLTS, AMPERES, AXES };
grid_t axis_grid(axis_e axis); // grid of the selected rail
u16 axis_value(axis_e axis);
void axis_set(axis_e axis, u16 value); // `value` must be on the grid
// Writes "12.00 V" or "1.00 A"; `out` has PAINT_NUMBER_SIZE bytes. Returns `out`.
const char *axis_text(char *out, axis_e axis, u32 value);

// The minus and plus buttons and the sliders.
void set_paint(bool shown);
void set_cancel();
template <axis_e AXIS> void knob_event(zof_ctrl_t *ctrl, zof_event_e event);
template <axis_e AXIS, int WAY> void step_event(zof_ctrl_t *ctrl, zof_event_e event);

// The button that applies the choice, and the line above it.
void apply_paint(tray_mode_e mode);
void apply_event(zof_ctrl_t *ctrl, zof_event_e event);
void apply_leave(); // call it when the page is left

void list_paint();
void row_event(zof_ctrl_t *ctrl, zof_event_e event);

void presets_paint();
template <u32 N> void preset_event(zof_ctrl_t *ctrl, zof_event_e event);

bool keypad_is_open();
void keypad_open(axis_e axis);
void keypad_close();
void keypad_paint();
template <char KEY> void key_event(zof_ctrl_t *ctrl, zof_event_e event);
void key_back_event(zof_ctrl_t *ctrl, zof_event_e event);
void keypad_lower();
void keypad_upper();
void keypad_done();

#endif
