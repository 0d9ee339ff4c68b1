// The desktop's way to sleep between two turns of the main loop. Internal: C++ only.
#ifndef WIN_LOOP_H
#define WIN_LOOP_H

// Graphics thread, when the window is open or has failed to: from now on the loop waits here.
void win_loop_init();

// Graphics thread: takes every pending event of the window; true if one came from a user or the desktop. Ends the
// process when the window was closed.
bool sdl_events_take();

#endif
