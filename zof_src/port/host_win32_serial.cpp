// Serial lines on Windows, by overlapped calls. The system closes a port to all other programs while it is open. One
// write is under way at a time, from a buffer of the line, so that a sender waits only for the bytes before its own.
#include "port/host_win32.h"

#include <ctype.h>
#include <stdio.h>
#include <string.h>

#include <algorithm>
#include <atomic>
#include <mutex>
#include <new>

#include "port/win_line.h"
#include "zof_lib/zof_stdio.h"

enum { RETRY_MS = 100, MISSING_RETRY_MS = 1000, SEND_WAIT_MS = 50, CHOKED_MS = 1000 };
enum { BITS_PER_BYTE = 12 }; // start, data, parity, two stop bits
enum { BLOCK_SIZE = 4096 };

struct host_serial {
    zof_drv_t drv;      // first: the handle
    std::mutex lock;    // guards all up to `next`
    HANDLE file;        // INVALID_HANDLE_VALUE while the device is not open; changed by the reader only
    OVERLAPPED written; // the write under way
    bool writing;
    u8 block[BLOCK_SIZE]; // its bytes
    u32 block_size;
    bool choked;  // the peer does not read: no waiting until it does
    u64 patience; // and not before this time
    zof_host_line_t line;
    zof_uart_info_t info; // all but `bytes`
    char next[sizeof(zof_uart_info_t::path)];
    std::atomic<bool> moved;  // `next` is the path to use from now on
    std::atomic<bool> closed; // by the owner
    std::atomic<int> users;   // the owner, and each thread inside receive; the last one releases it
    HANDLE wake;              // set after `moved` or `closed`; one wait takes it
    HANDLE arrived;           // the event of the reader's calls
    s32 port;                 // its number, for messages
    bool seen;                // the device has been open under this path; reader thread, after the start
    bool foreign;             // what has this name is not a serial line
};

static bool is_open(const host_serial *s) {
    return s->file != INVALID_HANDLE_VALUE;
}

// Waits until a call has ended or was cancelled; the system writes to its record until then. Returns the bytes.
static DWORD call_end(HANDLE file, OVERLAPPED *call) {
    DWORD n = 0;
    CancelIoEx(file, call);
    return GetOverlappedResult(file, call, &n, TRUE) ? n : 0;
}

// The caller holds the lock, or is the last one.
static void write_drop(host_serial *s) {
    if (s->writing) {
        call_end(s->file, &s->written);
        s->writing = false;
    }
}

static void line_release(host_serial *s) {
    if (s->users.fetch_sub(1) != 1) {
        return;
    }
    if (is_open(s)) {
        write_drop(s);
        CloseHandle(s->file);
    }
    for (HANDLE event : {s->wake, s->arrived, s->written.hEvent}) {
        if (event) {
            CloseHandle(event);
        }
    }
    delete s;
}

// Reads wait for all bytes that they ask for, and writes without limit: the waits below have limits of their own.
static bool line_apply(HANDLE file, const zof_host_line_t *line) {
    static constexpr BYTE parities[] = {NOPARITY, ODDPARITY, EVENPARITY};
    DCB settings = {};
    COMMTIMEOUTS times = {};
    settings.DCBlength = sizeof(settings);
    if (!GetCommState(file, &settings)) {
        return false;
    }
    settings = {};
    settings.DCBlength = sizeof(settings);
    settings.BaudRate = line->baud;
    settings.fBinary = TRUE;
    settings.fParity = line->parity != 0;
    settings.fDtrControl = DTR_CONTROL_ENABLE;
    settings.fRtsControl = RTS_CONTROL_ENABLE;
    settings.ByteSize = line->data_bits;
    settings.Parity = parities[line->parity];
    settings.StopBits = line->stop_bits == 2 ? TWOSTOPBITS : ONESTOPBIT;
    return SetCommState(file, &settings) && SetCommTimeouts(file, &times);
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
static void open_failure(host_serial *s, DWORD error, zof_uart_info_t *found) {
    switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_DEVICE_NOT_CONNECTED:
    case ERROR_GEN_FAILURE: // a USB adapter that is just going
        found->state = s->seen ? UART_STATE_GONE : UART_STATE_MISSING;
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

// Opens and sets up the device. Returns INVALID_HANDLE_VALUE with the reason in `found`.
static HANDLE device_open(host_serial *s, const zof_host_line_t *line, zof_uart_info_t *found) {
    wchar_t name[64];
    s->foreign = !device_name(found->path, name, sizeof(name) / sizeof(name[0]));
    if (s->foreign) {
        found->state = UART_STATE_ERROR;
        snprintf(found->error, sizeof(found->error), "it is not a serial line");
        return INVALID_HANDLE_VALUE;
    }
    const HANDLE file =
        CreateFileW(name, GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, FILE_FLAG_OVERLAPPED, nullptr);
    if (file != INVALID_HANDLE_VALUE && line_apply(file, line)) {
        PurgeComm(file, PURGE_RXCLEAR | PURGE_TXCLEAR);
        found->state = UART_STATE_OPEN;
        return file;
    }
    open_failure(s, GetLastError(), found);
    if (file != INVALID_HANDLE_VALUE) {
        CloseHandle(file);
    }
    return INVALID_HANDLE_VALUE;
}

// Replaces the device and what is known of the port, also its path, and closes the one before.
static void state_swap(host_serial *s, HANDLE file, const zof_uart_info_t *found) {
    zof_uart_info_t now = *found;
    zof_host_line_t line;
    {
        std::lock_guard guard(s->lock);
        now.changes = s->info.changes + 1;
        now.opened = s->info.opened + (file != INVALID_HANDLE_VALUE ? 1 : 0);
        s->info = now;
        write_drop(s);
        if (is_open(s)) {
            CloseHandle(s->file);
        }
        s->file = file;
        s->choked = false;
        s->patience = 0;
        line = s->line;
        if (is_open(s)) {
            line_apply(file, &line); // it may have changed since the device was opened
        }
    }
    win_line_log(s->port, s->seen, s->foreign, &now, &line);
}

static zof_host_line_t line_now(host_serial *s) {
    std::lock_guard guard(s->lock);
    return s->line;
}

// Looks for the device and opens it. Returns true if the state of the port has changed.
static bool device_look(host_serial *s) {
    zof_uart_info_t found = {};
    memcpy(found.path, s->info.path, sizeof(found.path));
    const zof_host_line_t line = line_now(s);
    const HANDLE file = *found.path ? device_open(s, &line, &found) : INVALID_HANDLE_VALUE;
    if (file == INVALID_HANDLE_VALUE && win_line_same(&s->info, &found)) {
        return false;
    }
    state_swap(s, file, &found);
    s->seen = s->seen || file != INVALID_HANDLE_VALUE;
    return true;
}

zof_drv_t *zof_host_serial_open(s32 port, const char *path, const zof_host_line_t *line) {
    auto *s = new (std::nothrow) host_serial{};
    if (!s) {
        return nullptr;
    }
    s->users = 1;
    s->file = INVALID_HANDLE_VALUE;
    s->port = port;
    s->line = *line;
    s->wake = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    s->arrived = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    s->written.hEvent = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    char own[32];
    snprintf(own, sizeof(own), "COM%d", port);
    const bool fits = win_line_path(port, path, own, s->info.path, sizeof(s->info.path));
    if (!fits || !s->wake || !s->arrived || !s->written.hEvent) {
        zof_printf("serial port %d: %s", port, fits ? "no events are left" : "its path is too long");
        line_release(s);
        return nullptr;
    }
    device_look(s);
    return &s->drv;
}

static host_serial *line_of(zof_drv_t *handle) {
    return (host_serial *)handle;
}

s32 zof_host_serial_set(zof_drv_t *handle, const zof_host_line_t *line) {
    host_serial *s = line_of(handle);
    std::lock_guard guard(s->lock);
    if (is_open(s) && !line_apply(s->file, line)) {
        char text[96];
        host_error_text(GetLastError(), text, sizeof(text));
        zof_printf("serial line %s: cannot change it: %s", s->info.path, text);
        line_apply(s->file, &s->line);
        return -1;
    }
    s->line = *line;
    return 0;
}

// Returns true when the line is ready for the next write: the last one has ended, with all of its bytes or not.
static bool write_wait(host_serial *s, DWORD ms) {
    if (s->writing && WaitForSingleObject(s->written.hEvent, ms) != WAIT_OBJECT_0) {
        return false;
    }
    s->writing = false;
    return true;
}

// Begins to write at most a block. Returns its bytes, 0 when the device is gone, which the reader reports.
static u32 write_begin(host_serial *s, const u8 *data, u32 size) {
    s->block_size = std::min(size, (u32)BLOCK_SIZE);
    memcpy(s->block, data, s->block_size);
    ResetEvent(s->written.hEvent);
    s->writing =
        WriteFile(s->file, s->block, s->block_size, nullptr, &s->written) || GetLastError() == ERROR_IO_PENDING;
    return s->writing ? s->block_size : 0;
}

// The caller holds the graphics lock. So a peer that does not read may cost SEND_WAIT_MS once and nothing afterwards,
// and one that reads slowly the same once every CHOKED_MS.
s32 win_uart_send(zof_drv_t *handle, const u8 *data, u32 size) {
    host_serial *s = line_of(handle);
    std::lock_guard guard(s->lock);
    const u64 start = zof_host_time_ms();
    const bool patient = !s->choked && start >= s->patience;
    u32 sent = 0;
    bool full = false;
    while (is_open(s) && sent < size) {
        const u64 needed = (u64)s->block_size * BITS_PER_BYTE * 1000 / (s->line.baud ? s->line.baud : 1);
        full = !write_wait(s, patient ? (DWORD)needed + SEND_WAIT_MS : 0);
        const u32 n = full ? 0 : write_begin(s, data + sent, size - sent);
        if (n == 0) {
            break;
        }
        sent += n;
    }
    if (full && patient) {
        zof_printf("serial line %s: it takes no more bytes; %u of %u are lost", s->info.path, size - sent, size);
        s->patience = start + CHOKED_MS;
    }
    s->choked = full;
    return sent == size ? (s32)size : -1;
}

// Reader thread. Puts the line to its new path, if it has one.
static bool path_take(host_serial *s) {
    zof_uart_info_t next = {};
    if (!s->moved.exchange(false)) {
        return false;
    }
    {
        std::lock_guard guard(s->lock);
        memcpy(next.path, s->next, sizeof(next.path));
    }
    const bool same = strcmp(s->info.path, next.path) == 0;
    if (same && is_open(s)) {
        return false;
    }
    s->seen = s->seen && same;
    state_swap(s, INVALID_HANDLE_VALUE, &next);
    device_look(s);
    return true;
}

// Reader thread. Returns when the state of the port has changed, or may have. A name that is not that of a serial port
// never becomes one.
static void device_wait(host_serial *s) {
    do {
        const DWORD pause = s->info.state == UART_STATE_GONE ? RETRY_MS : MISSING_RETRY_MS;
        WaitForSingleObject(s->wake, *s->info.path && !s->foreign ? pause : INFINITE);
    } while (!path_take(s) && !s->closed && !device_look(s));
}

static void device_lost(host_serial *s) {
    zof_uart_info_t gone = {.state = UART_STATE_GONE};
    memcpy(gone.path, s->info.path, sizeof(gone.path));
    state_swap(s, INVALID_HANDLE_VALUE, &gone);
}

// What became of waiting for bytes.
enum { READ_FAILED = -1, READ_WOKEN = -2 };

// Reads exactly `size` bytes, unless woken before. Returns the bytes, READ_FAILED when the device is gone, READ_WOKEN.
static s32 bytes_wait(host_serial *s, u8 *buffer, u32 size) {
    OVERLAPPED call = {};
    call.hEvent = s->arrived;
    ResetEvent(s->arrived);
    if (!ReadFile(s->file, buffer, size, nullptr, &call) && GetLastError() != ERROR_IO_PENDING) {
        return READ_FAILED;
    }
    const HANDLE events[] = {s->arrived, s->wake};
    if (WaitForMultipleObjects(2, events, FALSE, INFINITE) != WAIT_OBJECT_0) {
        const DWORD n = call_end(s->file, &call);
        if (n) {
            SetEvent(s->wake); // for the next wait: these bytes go first
        }
        return n ? (s32)n : READ_WOKEN;
    }
    DWORD n = 0;
    return GetOverlappedResult(s->file, &call, &n, FALSE) && n ? (s32)n : READ_FAILED;
}

// Reads what has arrived, if anything. Returns its bytes; a failure shows at the next wait.
static u32 bytes_more(host_serial *s, u8 *buffer, u32 size) {
    DWORD errors, n = 0;
    COMSTAT status;
    if (!ClearCommError(s->file, &errors, &status) || status.cbInQue == 0 || size == 0) {
        return 0;
    }
    OVERLAPPED call = {};
    call.hEvent = s->arrived;
    ResetEvent(s->arrived);
    const DWORD wanted = std::min(status.cbInQue, (DWORD)size);
    const bool begun = ReadFile(s->file, buffer, wanted, nullptr, &call) || GetLastError() == ERROR_IO_PENDING;
    return begun && GetOverlappedResult(s->file, &call, &n, TRUE) ? n : 0;
}

// It takes no lock, which a sender may hold while it waits for a peer that waits for its own bytes to be read. Only
// this thread changes `file` once the line is open.
static s32 line_read(host_serial *s, u8 *buffer, u32 size) {
    while (is_open(s) && !s->closed) {
        const s32 n = bytes_wait(s, buffer, 1);
        if (n > 0) {
            return n + (s32)bytes_more(s, buffer + 1, size - 1);
        }
        if (n == READ_FAILED) {
            device_lost(s);
            return 0;
        }
        if (path_take(s)) {
            return 0;
        }
    }
    if (!s->closed) {
        device_wait(s);
    }
    return 0;
}

s32 win_uart_receive(zof_drv_t *handle, u8 *buffer, u32 size) {
    host_serial *s = line_of(handle);
    s->users++;
    const s32 n = line_read(s, buffer, size);
    line_release(s);
    return n;
}

s32 win_uart_close(zof_drv_t *handle) {
    host_serial *s = line_of(handle);
    s->closed = true;
    SetEvent(s->wake);
    line_release(s);
    return 0;
}

void win_uart_info(zof_drv_t *handle, zof_uart_info_t *out) {
    host_serial *s = line_of(handle);
    std::lock_guard guard(s->lock);
    *out = s->info;
}

s32 win_uart_path_set(zof_drv_t *handle, const char *path) {
    host_serial *s = line_of(handle);
    if (strlen(path) >= sizeof(s->next)) {
        return -1;
    }
    {
        std::lock_guard guard(s->lock);
        snprintf(s->next, sizeof(s->next), "%s", path);
    }
    s->moved = true;
    SetEvent(s->wake);
    return 0;
}
