// What the panel keeps over a restart: its own settings, in $XDG_STATE_HOME/zof_bench/settings, one line "name = value"
// each. Without a home folder, or if the file cannot be written, the settings hold until the end of the program.
#ifndef KEEP_H
#define KEEP_H

// Reads the file and applies what it says. A missing file is normal; a line that is not a setting is reported.
void keep_load();
// Writes the file if any setting differs from what it has. Call it after a user's change.
void keep_save();

#endif
