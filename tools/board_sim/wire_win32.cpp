// The line on Windows: a serial port that exists, as there are no pseudo-terminals. Waiting looks for bytes every
// millisecond, because programs that use it have nothing else to do.
#include "wire.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <io.h>

const bool wire_makes_lines = false;
const char *const wire_line_help = "the serial port of the board, such as COM7";
const char *const wire_example = "board_sim --tty COM7 --trace        then, at its other end:  zof_bench --port COM6";

static HANDLE handle_of(const wire &w) {
    return (HANDLE)_get_osfhandle(w.fd);
}

// Reads return what there is; writes may take as long as a full line does.
static bool line_set(HANDLE port, unsigned baud) {
    DCB settings = {};
    COMMTIMEOUTS times = {};
    times.ReadIntervalTimeout = MAXDWORD;
    times.WriteTotalTimeoutConstant = 50;
    settings.DCBlength = sizeof(settings);
    settings.BaudRate = baud;
    settings.fBinary = TRUE;
    settings.fDtrControl = DTR_CONTROL_ENABLE;
    settings.fRtsControl = RTS_CONTROL_ENABLE;
    settings.ByteSize = 8;
    return SetCommState(port, &settings) && SetCommTimeouts(port, &times);
}

bool wire_plug(wire &w) {
    if (w.fd >= 0) {
        return true;
    }
    const std::string name = w.tty.starts_with("\\\\.\\") ? w.tty : "\\\\.\\" + w.tty;
    const HANDLE port = CreateFileW(std::filesystem::path(name).c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
    const bool good = port != INVALID_HANDLE_VALUE && line_set(port, w.baud);
    w.fd = good ? _open_osfhandle((intptr_t)port, _O_BINARY) : -1;
    if (w.fd < 0) {
        const std::string why = std::system_category().message((int)GetLastError());
        const std::string program = std::filesystem::path(_wpgmptr).stem().string();
        fprintf(stderr, "%s: %s: %s\n", program.c_str(), w.tty.c_str(), why.c_str());
        CloseHandle(port);
    }
    return w.fd >= 0;
}

void wire_unplug(wire &w) {
    if (w.fd >= 0) {
        _close(w.fd);
        w.fd = -1;
    }
    w.queue.clear();
}

void wire_lost(wire &w) {
    wire_unplug(w);
}

long wire_read(wire &w, uint8_t *data, size_t size) {
    DWORD n = 0;
    if (w.fd < 0) {
        return 0;
    }
    return ReadFile(handle_of(w), data, (DWORD)size, &n, nullptr) ? (long)n : -1;
}

size_t wire_write(wire &w, const bytes &data) {
    DWORD n = 0;
    WriteFile(handle_of(w), data.data(), (DWORD)data.size(), &n, nullptr);
    return n;
}

static bool is_ready(const wire_wanted &wanted) {
    DWORD errors;
    COMSTAT status = {};
    const bool gone = wanted.line->fd >= 0 && !ClearCommError(handle_of(*wanted.line), &errors, &status);
    return gone || status.cbInQue;
}

void wire_wait(const std::vector<wire_wanted> &lines, int ms) {
    for (; ms > 0 && std::none_of(lines.begin(), lines.end(), is_ready); ms--) {
        const bool writes = std::any_of(lines.begin(), lines.end(), [](const auto &line) { return line.write; });
        Sleep(1);
        ms = writes ? 1 : ms; // the writing itself waits until there is room
    }
}
