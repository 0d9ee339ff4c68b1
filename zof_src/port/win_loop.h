// How the desktop sleeps between two turns of the main loop. Internal: C++ only.
#ifndef WIN_LOOP_H
#define WIN_LOOP_H

// Graphics thread, when the window has been opened or has failed to open: from now on the loop waits here.
void win_loop_init();

// Graphics thread: takes all pending events of the window; true if one came from the user or the desktop. Ends the
// process when the window was closed.
bool sdl_events_take();

#endif
