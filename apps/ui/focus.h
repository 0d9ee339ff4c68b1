// The focus: a ring that the arrow keys move between the controls of a page, and a key that presses the focused control
// as a finger would.
#ifndef FOCUS_H
#define FOCUS_H

#include "zof_lib/zof_type.h"

enum focus_way_e { FOCUS_LEFT, FOCUS_RIGHT, FOCUS_UP, FOCUS_DOWN };

// Moves the ring: left and right in reading order, up and down to the nearest control. If no ring is shown, it appears
// where it was last. While the key of focus_press is down, the keys move the simulated finger instead, which drags
// sliders and the cursor.
void focus_move(focus_way_e way);
// Puts a simulated finger on the middle of the focused control, or on the knob of a slider, or lifts it. Does nothing
// if no ring is shown.
void focus_press(bool down);
bool focus_shown();
// Keeps the ring around its control. Removes it when a finger lands or the control can no longer be pressed.
void focus_paint();

#endif
