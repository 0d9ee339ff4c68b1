// What tests call and mingw-w64 lacks; the build for Windows includes it before each test.
#ifndef POSIX_H
#define POSIX_H

#include <direct.h>
#include <process.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

extern "C" __declspec(dllimport) int __stdcall TerminateProcess(void *process, unsigned status);

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

// Folders of tests begin with "/", which is a full path on Windows only after a drive. An empty value would remove the
// variable.
static inline int setenv(const char *name, const char *value, int replace) {
    const char drive[] = {(char)('A' + _getdrive() - 1), ':', '\0'};
    char text[1024];
    snprintf(text, sizeof(text), "%s%s", *value == '/' ? drive : *value ? "" : "none", value);
    return replace || !getenv(name) ? _putenv_s(name, text) : 0;
}

static inline int unsetenv(const char *name) {
    return _putenv_s(name, "");
}

// Processes are handles here.
enum { SIGKILL = 9 };
static inline int kill(intptr_t process, int signal) {
    return TerminateProcess((void *)process, (unsigned)signal) ? 0 : -1;
}

#endif
