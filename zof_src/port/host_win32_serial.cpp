// Serial lines on Windows, by overlapped calls. The system closes a port to all other programs while it is open. One
// write is under way at a time, from a buffer of the line, so that a sender waits only for the bytes before its own.
#include "port/host_win32.h"

#include <ctype.h>
#include <errno.h>
#include <stdio.h>
#include <string.h>

#include <algorithm>
#include <new>

#include "port/win_line.h"

enum { BLOCK_SIZE = 4096 };

struct host_own {
    HANDLE wake;        // set by host_line_wake; one wait takes it
    HANDLE arrived;     // the event of the reader's calls
    OVERLAPPED written; // the write under way, guarded by the line's lock like the rest
    bool writing;
    u8 block[BLOCK_SIZE]; // its bytes
    u32 block_size;
};

static host_own *own_of(const win_line *s) {
    return (host_own *)s->host;
}

static HANDLE file_of(const win_line *s) {
    return (HANDLE)s->device;
}

static void own_free(host_own *own) {
    for (HANDLE event : {own->wake, own->arrived, own->written.hEvent}) {
        if (event) {
            CloseHandle(event);
        }
    }
    delete own;
}

bool host_line_init(win_line *s) {
    auto *own = new (std::nothrow) host_own{};
    if (!own) {
        errno = ENOMEM;
        return false;
    }
    own->wake = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    own->arrived = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    own->written.hEvent = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    if (!own->wake || !own->arrived || !own->written.hEvent) {
        host_errno_take();
        own_free(own);
        return false;
    }
    s->host = own;
    return true;
}

void host_line_free(win_line *s) {
    own_free(own_of(s));
}

void host_line_path(s32 port, char *out, size_t size) {
    snprintf(out, size, "COM%d", port);
}

void host_line_forget(win_line *s) {
    (void)s;
}

// Waits until a call has ended or was cancelled; the system writes to its record until then. Returns the bytes.
static DWORD call_end(HANDLE file, OVERLAPPED *call) {
    DWORD n = 0;
    CancelIoEx(file, call);
    return GetOverlappedResult(file, call, &n, TRUE) ? n : 0;
}

void host_line_leave(win_line *s) {
    host_own *own = own_of(s);
    if (own->writing) {
        call_end(file_of(s), &own->written);
        own->writing = false;
    }
}

void host_line_close(intptr_t device) {
    CloseHandle((HANDLE)device);
}

// Reads wait for all bytes that they ask for, and writes without limit: the waits below have limits of their own.
bool host_line_apply(intptr_t device, const zof_host_line_t *line) {
    const HANDLE file = (HANDLE)device;
    static constexpr BYTE parities[] = {NOPARITY, ODDPARITY, EVENPARITY};
    DCB settings = {};
    COMMTIMEOUTS times = {};
    settings.DCBlength = sizeof(settings);
    settings.BaudRate = line->baud;
    settings.fBinary = TRUE;
    settings.fParity = line->parity != 0;
    settings.fDtrControl = DTR_CONTROL_ENABLE;
    settings.fRtsControl = RTS_CONTROL_ENABLE;
    settings.ByteSize = line->data_bits;
    settings.Parity = parities[line->parity];
    settings.StopBits = line->stop_bits == 2 ? TWOSTOPBITS : ONESTOPBIT;
    if (SetCommState(file, &settings) && SetCommTimeouts(file, &times)) {
        return true;
    }
    host_errno_take();
    return false;
}

// "COM7" in any case, or its full form; only the full form leads to ports above 9.
static bool device_name(const char *path, wchar_t *out, size_t size) {
    static constexpr char FULL[] = "\\\\.\\";
    const char *name = strncmp(path, FULL, strlen(FULL)) == 0 ? path + strlen(FULL) : path;
    const size_t digits = strlen(name) > 3 ? strspn(name + 3, "0123456789") : 0;
    const bool port = toupper(name[0]) == 'C' && toupper(name[1]) == 'O' && toupper(name[2]) == 'M';
    if (!port || digits == 0 || name[3 + digits]) {
        return false;
    }
    return swprintf(out, size, L"\\\\.\\COM%hs", name + 3) > 0;
}

// Says in `found` why a device cannot be opened.
static void open_failure(DWORD error, zof_uart_info_t *found) {
    switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_DEVICE_NOT_CONNECTED:
    case ERROR_GEN_FAILURE: // a USB adapter that is just going
        found->state = UART_STATE_MISSING;
        break;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
        found->state = UART_STATE_HELD;
        break;
    default:
        found->state = UART_STATE_ERROR;
        host_error_text(error, found->error, sizeof(found->error));
    }
}

intptr_t host_line_open(win_line *s, const zof_host_line_t *line, zof_uart_info_t *found) {
    wchar_t name[64];
    s->foreign = !device_name(found->path, name, sizeof(name) / sizeof(name[0]));
    if (s->foreign) {
        found->state = UART_STATE_ERROR;
        snprintf(found->error, sizeof(found->error), "it is not a serial line");
        return -1;
    }
    const HANDLE file =
        CreateFileW(name, GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, FILE_FLAG_OVERLAPPED, nullptr);
    if (file != INVALID_HANDLE_VALUE && host_line_apply((intptr_t)file, line)) {
        PurgeComm(file, PURGE_RXCLEAR | PURGE_TXCLEAR);
        found->state = UART_STATE_OPEN;
        return (intptr_t)file;
    }
    open_failure(GetLastError(), found);
    if (file != INVALID_HANDLE_VALUE) {
        CloseHandle(file);
    }
    return -1;
}

// Returns true when the line is ready for the next write: the last one has ended, with all of its bytes or not.
static bool write_wait(host_own *own, DWORD ms) {
    if (own->writing && WaitForSingleObject(own->written.hEvent, ms) != WAIT_OBJECT_0) {
        return false;
    }
    own->writing = false;
    return true;
}

// Begins to write at most a block. Returns its bytes, 0 when the device is gone.
static u32 write_begin(win_line *s, const u8 *data, u32 size) {
    host_own *own = own_of(s);
    own->block_size = std::min(size, (u32)BLOCK_SIZE);
    memcpy(own->block, data, own->block_size);
    ResetEvent(own->written.hEvent);
    own->writing = WriteFile(file_of(s), own->block, own->block_size, nullptr, &own->written) ||
                   GetLastError() == ERROR_IO_PENDING;
    return own->writing ? own->block_size : 0;
}

u32 host_line_write(win_line *s, const u8 *data, u32 size, bool patient, bool *full) {
    host_own *own = own_of(s);
    u32 sent = 0;
    while (sent < size) {
        const u64 needed = (u64)own->block_size * WIN_LINE_BITS * 1000 / (s->line.baud ? s->line.baud : 1);
        *full = !write_wait(own, patient ? (DWORD)needed + WIN_LINE_SEND_WAIT_MS : 0);
        const u32 n = *full ? 0 : write_begin(s, data + sent, size - sent);
        if (n == 0) {
            break;
        }
        sent += n;
    }
    return sent;
}

// Waits for one byte. Returns 1, 0 when woken before, -1 when the device is gone.
static s32 byte_wait(win_line *s, u8 *byte) {
    host_own *own = own_of(s);
    OVERLAPPED call = {};
    call.hEvent = own->arrived;
    ResetEvent(own->arrived);
    if (!ReadFile(file_of(s), byte, 1, nullptr, &call) && GetLastError() != ERROR_IO_PENDING) {
        return -1;
    }
    const HANDLE events[] = {own->arrived, own->wake};
    if (WaitForMultipleObjects(2, events, FALSE, INFINITE) != WAIT_OBJECT_0) {
        const DWORD n = call_end(file_of(s), &call);
        if (n) {
            SetEvent(own->wake); // for the next wait: this byte goes first
        }
        return (s32)n;
    }
    DWORD n = 0;
    return GetOverlappedResult(file_of(s), &call, &n, FALSE) && n ? 1 : -1;
}

// Reads what has arrived, if anything. Returns its bytes; a failure shows at the next wait.
static u32 bytes_more(win_line *s, u8 *buffer, u32 size) {
    DWORD errors, n = 0;
    COMSTAT status;
    if (!ClearCommError(file_of(s), &errors, &status) || status.cbInQue == 0 || size == 0) {
        return 0;
    }
    OVERLAPPED call = {};
    call.hEvent = own_of(s)->arrived;
    ResetEvent(call.hEvent);
    const DWORD wanted = std::min(status.cbInQue, (DWORD)size);
    const bool begun = ReadFile(file_of(s), buffer, wanted, nullptr, &call) || GetLastError() == ERROR_IO_PENDING;
    return begun && GetOverlappedResult(file_of(s), &call, &n, TRUE) ? n : 0;
}

s32 host_line_read(win_line *s, u8 *buffer, u32 size) {
    const s32 n = byte_wait(s, buffer);
    return n > 0 ? n + (s32)bytes_more(s, buffer + 1, size - 1) : n;
}

void host_line_nap(win_line *s, s32 ms) {
    WaitForSingleObject(own_of(s)->wake, ms < 0 ? INFINITE : (DWORD)ms);
}

void host_line_wake(win_line *s) {
    SetEvent(own_of(s)->wake);
}
