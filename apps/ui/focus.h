// The focus: a ring that the arrow keys move between the controls of a page, and a key that acts as a finger on the
// focused one.
#ifndef FOCUS_H
#define FOCUS_H

#include "zof_lib/zof_type.h"

enum focus_way_e { FOCUS_LEFT, FOCUS_RIGHT, FOCUS_UP, FOCUS_DOWN };

// Moves the ring: left and right in reading order, up and down to the nearest control. Without a ring, shows it where
// it was last. While the key of focus_press is down, moves the finger instead, which drags sliders and the cursor.
void focus_move(focus_way_e way);
// Puts a finger on the middle of the control in the ring, of a slider on its knob, or lifts it. Does nothing without a
// ring.
void focus_press(bool down);
bool focus_shown();
// Keeps the ring around its control; it goes when a finger lands, or the control cannot be pressed any more.
void focus_paint();

#endif
