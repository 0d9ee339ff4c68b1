// What the virtual board needs of the system besides its line: system_posix.cpp and system_win32.cpp.
#ifndef SYSTEM_H
#define SYSTEM_H

#include <cstdio>
#include <string>
#include <vector>

// Returns the signals with which people and programs end the board.
std::vector<int> system_end_signals();

long system_process_id();
// Returns false only when there is surely no such process.
bool system_process_runs(long id);

// Creates a file for writing. Returns null with errno, EEXIST when the name exists, also as a link.
FILE *system_file_create(const std::string &path);

// Waits until what was flushed is on the medium.
bool system_file_sync(FILE *f);

#endif
