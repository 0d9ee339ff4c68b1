#include "system.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <io.h>
#include <sys/stat.h>

std::vector<int> system_end_signals() {
    return {SIGINT, SIGTERM, SIGBREAK};
}

long system_process_id() {
    return (long)GetCurrentProcessId();
}

bool system_process_runs(long id) {
    const HANDLE process = OpenProcess(SYNCHRONIZE, FALSE, (DWORD)id);
    if (!process) {
        return GetLastError() != ERROR_INVALID_PARAMETER;
    }
    const bool runs = WaitForSingleObject(process, 0) == WAIT_TIMEOUT;
    CloseHandle(process);
    return runs;
}

FILE *system_file_create(const std::string &path) {
    const int fd = _wopen(std::filesystem::path(path).c_str(),
                          _O_WRONLY | _O_CREAT | _O_EXCL | _O_BINARY | _O_NOINHERIT, _S_IREAD | _S_IWRITE);
    return fd < 0 ? nullptr : _fdopen(fd, "wb");
}

bool system_file_sync(FILE *f) {
    return _commit(_fileno(f)) == 0;
}
