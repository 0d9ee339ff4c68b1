// The keys of the panel, which About and --help list, and a second finger, which can only turn off.
#ifndef KEYS_H
#define KEYS_H

// Takes the window's keys and further fingers. Once, after the project is created.
void keys_start();

#endif
