// The settings that the panel itself keeps over a restart, in the file `settings` of its state (zof_file_state_path),
// one line "name = value" each. If there is no such folder or the file cannot be written, settings last until the
// program ends.
#ifndef KEEP_H
#define KEEP_H

// Reads the file and applies its settings. A missing file is normal; invalid lines are logged.
void keep_load();
// Writes the file if any setting has changed. Call it after the user changes a setting.
void keep_save();

#endif
