// How the desktop sleeps between two turns of the main loop. Internal: C++ only.
#ifndef WIN_LOOP_H
#define WIN_LOOP_H

// Graphics thread, when the window has been opened or has failed to open: from now on the loop waits here and
// takes input by `input`, as in zof_loop_ops_t.
void win_loop_init(bool (*input)());

#endif
