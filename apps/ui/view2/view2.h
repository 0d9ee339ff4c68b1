// The rails page in its parts: the list, the presets in its last places, the tray below it, and the keypad over all.
// Selecting and setting change only what the tray shows; the button of the tray alone passes it to the gate.
#ifndef VIEW2_H
#define VIEW2_H

#include "bench_ids.h"
#include "ui/ui.h"

para_t *view2(u32 id);

// What the tray shows: the selected rail with the values to apply.
enum tray_mode_e {
    TRAY_HIDDEN, // there is no list
    TRAY_DEAD,   // nothing is known of the box
    TRAY_EMPTY,  // nothing is selected
    TRAY_FIXED,
    TRAY_ADJUSTABLE,
};
tray_mode_e tray_mode();
// The selection; its rail is RAIL_NONE without one. It stays while nothing is known of the box.
bench_choice_t tray_choice();
// Selects, or nothing with RAIL_NONE.
void tray_select(bench_choice_t choice);
// The tray while the panel is not locked and no remote client holds it.
bool tray_is_settable();
// Another list came: what was selected may not be the same any more.
void tray_check();
void tray_paint();

// The values of an adjustable rail: one row each, of volts and of amperes.
enum axis_e { VOLTS, AMPERES, AXES };
grid_t axis_grid(axis_e axis); // of the selected rail
u16 axis_value(axis_e axis);
void axis_set(axis_e axis, u16 value); // a value of the grid
// "12.00 V", "1.00 A"; `out` has PAINT_NUMBER_SIZE bytes.
const char *axis_text(char *out, axis_e axis, u32 value);

// Minus, plus and slider.
void set_paint(bool shown);
void set_cancel();
template <axis_e AXIS> void knob_event(zof_ctrl_t *ctrl, zof_event_e event);
template <axis_e AXIS, int WAY> void step_event(zof_ctrl_t *ctrl, zof_event_e event);

// The button that applies, and the line above it.
void apply_paint(tray_mode_e mode);
void apply_event(zof_ctrl_t *ctrl, zof_event_e event);
void apply_leave(); // the page is left

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
