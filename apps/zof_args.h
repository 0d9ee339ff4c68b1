// The command line of the bench panel.
#ifndef ZOF_ARGS_H
#define ZOF_ARGS_H

// Handles the command line before anything else is started. Leaves in argc and argv only what zof_run handles itself.
// Returns -1 if the panel is to start, otherwise the exit status: 0 after printing requested information, 2 after a
// message on the error stream.
int zof_args_take(int *argc, char **argv);

// Starts what the command line requested, once the panel runs. Call it on the graphics thread, from zof_main.
void zof_args_begin(void);

#endif
