// The settings that the panel itself keeps over a restart, in $XDG_STATE_HOME/zof_bench/settings, one line "name =
// value" each. If there is no home folder or the file cannot be written, settings last until the program ends.
#ifndef KEEP_H
#define KEEP_H

// Reads the file and applies its settings. A missing file is normal; invalid lines are logged.
void keep_load();
// Writes the file if any setting has changed. Call it after the user changes a setting.
void keep_save();

#endif
