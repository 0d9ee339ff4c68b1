// The keys of the panel: 1 to 5 show pages, Space turns on and off, Esc and F12 turn off, L locks, F2 saves a picture.
// And a second finger, which counts for Off alone.
#ifndef KEYS_H
#define KEYS_H

// Takes the window's keys and further fingers. Once, after the project is created.
void keys_start();

#endif
