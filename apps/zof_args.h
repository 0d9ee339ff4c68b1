// The command line of the bench panel.
#ifndef ZOF_ARGS_H
#define ZOF_ARGS_H

// Handles the command line before anything else is started, and leaves in argc and argv what zof_run handles itself.
// Returns -1 when the panel is to start, else the exit status: 0 after printing what was asked for, 2 after a message
// on the error stream.
int zof_args_take(int *argc, char **argv);

// Starts what the command line asked for, once the panel runs. Graphics thread, from zof_main.
void zof_args_begin(void);

#endif
