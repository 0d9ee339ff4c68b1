// What the Windows files of the host layer share.
#ifndef HOST_WIN32_H
#define HOST_WIN32_H

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include "port/zof_host.h"

enum { HOST_PATH_MOST = 1024 }; // characters of a path, with its end

// Converts a path to UTF-16 and makes it absolute. Returns false, with errno, for a path that is too long, for one that
// is not UTF-8, and for names that Windows does not look up in folders: devices such as "nul", and streams of a file,
// "name:stream".
bool host_path_wide(const char *path, wchar_t *out);

// Converts UTF-16 to UTF-8. Returns false when it does not fit.
bool host_text_narrow(const wchar_t *text, char *out, size_t size);

// Writes the system's text for an error code, without line end.
void host_error_text(DWORD error, char *out, size_t size);

// Sets errno from the error of the last call of the system. Returns -1.
s32 host_errno_take(void);

#endif
