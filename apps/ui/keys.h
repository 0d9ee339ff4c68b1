// The keys of the panel, which About and --help list, and the second finger, which can only turn the output off.
#ifndef KEYS_H
#define KEYS_H

// Registers for the window's keys and for further fingers. Call it once, after the project has been created.
void keys_start();

#endif
