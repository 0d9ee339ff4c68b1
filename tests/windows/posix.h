// What tests call and mingw-w64 lacks; the build for Windows includes it before each test.
#ifndef POSIX_H
#define POSIX_H

#include <direct.h>
#include <process.h>
#include <stdio.h>
#include <string.h>

// Replaces the six letters at the end of `name` by the first number, from that of the process on, that no folder has:
// another test, or one that was killed, may have used it.
static inline char *mkdtemp(char *name) {
    for (int number = _getpid(), tries = 0; tries < 1000; tries++, number++) {
        snprintf(name + strlen(name) - 6, 7, "%06d", number % 1000000);
        if (_mkdir(name) == 0) {
            return name;
        }
    }
    return nullptr;
}

#endif
