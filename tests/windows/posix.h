// What tests call and mingw-w64 lacks; the build for Windows includes it before each test.
#ifndef POSIX_H
#define POSIX_H

#include <direct.h>
#include <process.h>
#include <stdio.h>
#include <string.h>

// Replaces the six letters at the end of `name` by the number of the process.
static inline char *mkdtemp(char *name) {
    snprintf(name + strlen(name) - 6, 7, "%06d", _getpid() % 1000000);
    return _mkdir(name) == 0 ? name : nullptr;
}

#endif
