// Pipes are named ones, because only those have calls that do not wait. Each end of ours always has a read in progress,
// whose event stream_wait waits for.
#include "stream.h"

#include <winsock2.h>

#include "port/host_win32.h"

#include <shellapi.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <io.h>

enum { PIECE_SIZE = 65536, WAITS_MAX = MAXIMUM_WAIT_OBJECTS };

struct half_t {
    OVERLAPPED call; // its event is set while no call is in progress
    bool pending;
    DWORD at, size;
    char piece[PIECE_SIZE];
};

struct stream_t {
    HANDLE file;
    bool is_socket, ended;
    half_t in, out;
};

static void half_init(half_t *half) {
    half->call.hEvent = CreateEventW(nullptr, TRUE, TRUE, nullptr);
}

static void half_end(stream_t *stream, half_t *half) {
    DWORD n = 0;
    if (half->pending) {
        CancelIoEx(stream->file, &half->call);
        GetOverlappedResult(stream->file, &half->call, &n, TRUE);
    }
    CloseHandle(half->call.hEvent);
}

static void call_prepare(half_t *half) {
    const HANDLE event = half->call.hEvent;
    half->call = {};
    half->call.hEvent = event;
    ResetEvent(event);
}

static void read_begin(stream_t *stream) {
    half_t *in = &stream->in;
    call_prepare(in);
    in->at = in->size = 0;
    in->pending =
        ReadFile(stream->file, in->piece, PIECE_SIZE, nullptr, &in->call) || GetLastError() == ERROR_IO_PENDING;
    if (!in->pending) {
        stream->ended = true;
        SetEvent(in->call.hEvent);
    }
}

// Returns true when the call of a half has ended; its bytes are then in `n`, 0 after a failure.
static bool call_ended(stream_t *stream, half_t *half, DWORD *n) {
    *n = 0;
    if (WaitForSingleObject(half->call.hEvent, 0) != WAIT_OBJECT_0) {
        return false;
    }
    half->pending = false;
    if (!GetOverlappedResult(stream->file, &half->call, n, FALSE)) {
        *n = 0;
    }
    return true;
}

static stream_t *stream_make(HANDLE file, bool reads, bool is_socket) {
    auto *stream = new stream_t{.file = file, .is_socket = is_socket};
    half_init(&stream->in);
    half_init(&stream->out);
    if (reads) {
        read_begin(stream);
    }
    return stream;
}

stream_t *stream_connect(u32 port) {
    WSADATA ignored;
    sockaddr_in at = {};
    at.sin_family = AF_INET;
    at.sin_port = htons((u16)port);
    at.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    const SOCKET s = WSAStartup(MAKEWORD(2, 2), &ignored) == 0 ? socket(AF_INET, SOCK_STREAM, 0) : INVALID_SOCKET;
    if (s != INVALID_SOCKET && connect(s, (sockaddr *)&at, sizeof(at)) == 0) {
        SetHandleInformation((HANDLE)s, HANDLE_FLAG_INHERIT, 0);
        return stream_make((HANDLE)s, true, true);
    }
    const bool refused = WSAGetLastError() == WSAECONNREFUSED;
    closesocket(s);
    errno = refused ? ECONNREFUSED : ENETUNREACH;
    return nullptr;
}

stream_t *stream_wake_make() {
    return stream_make(INVALID_HANDLE_VALUE, false, false);
}

void stream_wake(stream_t *stream) {
    SetEvent(stream->in.call.hEvent);
}

void stream_wake_clear(stream_t *stream) {
    ResetEvent(stream->in.call.hEvent);
}

void stream_close(stream_t *stream) {
    if (!stream) {
        return;
    }
    half_end(stream, &stream->in);
    half_end(stream, &stream->out);
    if (stream->is_socket) {
        closesocket((SOCKET)stream->file);
    } else if (stream->file != INVALID_HANDLE_VALUE) {
        CloseHandle(stream->file);
    }
    delete stream;
}

s32 stream_read(stream_t *stream, void *out, u32 size) {
    half_t *in = &stream->in;
    if (in->pending && call_ended(stream, in, &in->size) && in->size == 0) {
        stream->ended = true;
    }
    if (in->pending || stream->ended) {
        return stream->ended ? -1 : 0;
    }
    const u32 n = std::min((u32)(in->size - in->at), size);
    memcpy(out, in->piece + in->at, n);
    in->at += n;
    if (in->at == in->size) {
        read_begin(stream);
    }
    return (s32)n;
}

s32 stream_write(stream_t *stream, const void *data, u32 size) {
    half_t *out = &stream->out;
    DWORD n = 0;
    if (out->pending && !call_ended(stream, out, &n)) {
        return 0;
    }
    call_prepare(out);
    out->size = std::min(size, (u32)PIECE_SIZE);
    memcpy(out->piece, data, out->size);
    out->pending =
        WriteFile(stream->file, out->piece, out->size, nullptr, &out->call) || GetLastError() == ERROR_IO_PENDING;
    if (!out->pending) {
        SetEvent(out->call.hEvent);
        return -1;
    }
    return (s32)out->size;
}

void stream_wait(const std::vector<stream_wait_t> &streams, intptr_t other, s32 ms) {
    std::vector<HANDLE> events;
    for (const auto &[stream, write] : streams) {
        events.push_back(write ? stream->out.call.hEvent : stream->in.call.hEvent);
    }
    if (other != -1) {
        events.push_back((HANDLE)other);
    }
    if (events.empty()) {
        Sleep((DWORD)ms);
    } else {
        WaitForMultipleObjects(std::min((DWORD)events.size(), (DWORD)WAITS_MAX), events.data(), FALSE, (DWORD)ms);
    }
}

static std::wstring wide(const std::string &text) {
    std::wstring out(text.size() + 1, L'\0');
    const int size = MultiByteToWideChar(CP_UTF8, 0, text.c_str(), -1, out.data(), (int)out.size());
    out.resize(size > 0 ? (size_t)size - 1 : 0);
    return out;
}

static std::string error_text(DWORD error) {
    char text[256];
    host_error_text(error, text, sizeof(text));
    return text;
}

// Quotes a word as programs take their command lines apart: backslashes count only before a quotation mark.
static std::wstring quoted(const std::string &word) {
    std::wstring out = L"\"";
    size_t slashes = 0;
    for (const wchar_t c : wide(word)) {
        if (c == L'"') {
            out.append(slashes + 1, L'\\');
        }
        slashes = c == L'\\' ? slashes + 1 : 0;
        out += c;
    }
    return out.append(slashes, L'\\') + L"\"";
}

// The ends of a child, in the order of its standard streams.
struct ends_t {
    HANDLE files[3];
};

static void ends_close(ends_t *ends) {
    for (const HANDLE file : ends->files) {
        if (file != INVALID_HANDLE_VALUE) {
            CloseHandle(file);
        }
    }
}

// Makes a pipe. Returns our end, and in `theirs` the one that a child inherits; null on failure.
static stream_t *pipe_make(bool reads, HANDLE *theirs) {
    static u32 number;
    wchar_t name[64];
    SECURITY_ATTRIBUTES inherited = {sizeof(inherited), nullptr, TRUE};
    swprintf(name, sizeof(name) / sizeof(name[0]), L"\\\\.\\pipe\\zof-%lu-%lu", (unsigned long)GetCurrentProcessId(),
             (unsigned long)++number);
    const HANDLE ours = CreateNamedPipeW(
        name,
        (reads ? PIPE_ACCESS_INBOUND : PIPE_ACCESS_OUTBOUND) | FILE_FLAG_OVERLAPPED | FILE_FLAG_FIRST_PIPE_INSTANCE,
        PIPE_TYPE_BYTE | PIPE_REJECT_REMOTE_CLIENTS, 1, PIECE_SIZE, PIECE_SIZE, 0, nullptr);
    *theirs = CreateFileW(name, reads ? GENERIC_WRITE : GENERIC_READ, 0, &inherited, OPEN_EXISTING, 0, nullptr);
    if (ours != INVALID_HANDLE_VALUE && *theirs != INVALID_HANDLE_VALUE) {
        return stream_make(ours, reads, false);
    }
    CloseHandle(ours);
    return nullptr;
}

static HANDLE errors_open(bool quiet) {
    SECURITY_ATTRIBUTES inherited = {sizeof(inherited), nullptr, TRUE};
    HANDLE out = INVALID_HANDLE_VALUE;
    const HANDLE self = GetCurrentProcess();
    if (quiet || !DuplicateHandle(self, GetStdHandle(STD_ERROR_HANDLE), self, &out, 0, TRUE, DUPLICATE_SAME_ACCESS)) {
        out = CreateFileW(L"NUL", GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited, OPEN_EXISTING, 0,
                          nullptr);
    }
    return out;
}

// Starts a process that inherits these handles and no others, which would keep pipes of other children open. Returns
// its handle, or null with the system's error.
static HANDLE process_start(std::wstring line, const ends_t *ends) {
    STARTUPINFOEXW start = {};
    PROCESS_INFORMATION process = {};
    SIZE_T size = 0;
    InitializeProcThreadAttributeList(nullptr, 1, 0, &size);
    std::vector<char> list(size);
    start.StartupInfo.cb = sizeof(start);
    start.StartupInfo.dwFlags = STARTF_USESTDHANDLES;
    start.StartupInfo.hStdInput = ends->files[0];
    start.StartupInfo.hStdOutput = ends->files[1];
    start.StartupInfo.hStdError = ends->files[2];
    start.lpAttributeList = (LPPROC_THREAD_ATTRIBUTE_LIST)list.data();
    const bool started = InitializeProcThreadAttributeList(start.lpAttributeList, 1, 0, &size) &&
                         UpdateProcThreadAttribute(start.lpAttributeList, 0, PROC_THREAD_ATTRIBUTE_HANDLE_LIST,
                                                   (void *)ends->files, sizeof(ends->files), nullptr, nullptr) &&
                         CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, EXTENDED_STARTUPINFO_PRESENT,
                                        nullptr, nullptr, &start.StartupInfo, &process);
    const DWORD error = GetLastError();
    DeleteProcThreadAttributeList(start.lpAttributeList);
    if (process.hThread) {
        CloseHandle(process.hThread);
    }
    SetLastError(error);
    return started ? process.hProcess : nullptr;
}

std::string child_start(child_t *child, const std::vector<std::string> &words, const shared_t *shared, bool quiet) {
    ends_t ends = {{INVALID_HANDLE_VALUE, INVALID_HANDLE_VALUE, errors_open(quiet)}};
    std::wstring line;
    (void)shared; // children find it by its name
    *child = {0, pipe_make(false, &ends.files[0]), pipe_make(true, &ends.files[1])};
    for (const std::string &word : words) {
        line += (line.empty() ? L"" : L" ") + quoted(word);
    }
    const bool piped = child->input && child->output;
    child->process = (intptr_t)(piped ? process_start(line, &ends) : nullptr);
    const DWORD error = GetLastError();
    ends_close(&ends);
    if (!child->process) {
        child_kill(child);
        return words[0] + ": " + error_text(error);
    }
    return "";
}

s32 child_end(child_t *child, std::string *text) {
    DWORD status = 0;
    WaitForSingleObject((HANDLE)child->process, INFINITE);
    GetExitCodeProcess((HANDLE)child->process, &status);
    CloseHandle((HANDLE)child->process);
    child->process = 0;
    char shown[32];
    const bool crashed = status > 0xFFFF; // an exception of the system
    snprintf(shown, sizeof(shown), crashed ? "error 0x%08lX" : "status %lu", (unsigned long)status);
    *text = shown;
    return crashed ? -1 : (s32)status;
}

void child_kill(child_t *child) {
    if (child->process) {
        TerminateProcess((HANDLE)child->process, 1);
        WaitForSingleObject((HANDLE)child->process, INFINITE);
        CloseHandle((HANDLE)child->process);
    }
    stream_close(child->input);
    if (child->output != child->input) {
        stream_close(child->output);
    }
    *child = {};
}

// The shell finds commands that are scripts, as those of some editors are.
void editor_start(const std::string &command, const std::string &file, s32 line) {
    const std::string number = std::to_string(line);
    const bool colons = command.find("code") != std::string::npos;
    const bool plain = command.find("notepad") != std::string::npos; // knows no lines
    const std::string place = colons  ? "-g \"" + file + ":" + number + "\""
                              : plain ? "\"" + file + "\""
                                      : "+" + number + " \"" + file + "\"";
    std::wstring words = wide("cmd.exe /s /c \"" + command + " " + place + "\"");
    STARTUPINFOW start = {};
    PROCESS_INFORMATION process = {};
    start.cb = sizeof(start);
    if (CreateProcessW(nullptr, words.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &process)) {
        CloseHandle(process.hThread);
        CloseHandle(process.hProcess);
    }
}

void browser_open(const std::string &address) {
    ShellExecuteW(nullptr, L"open", wide(address).c_str(), nullptr, nullptr, SW_SHOWNORMAL);
}

FILE *output_take() {
    FILE *out = _fdopen(_dup(1), "wb");
    _dup2(2, 1);
    return out;
}

void variable_set(const char *name, const char *value) {
    _putenv_s(name, value);
}

bool shared_start(shared_t *shared) {
    static u32 number;
    char name[64];
    snprintf(name, sizeof(name), "zof-picture-%lu-%lu", (unsigned long)GetCurrentProcessId(), (unsigned long)++number);
    *shared = {.name = name};
    return true;
}

const void *shared_map(shared_t *shared) {
    MEMORY_BASIC_INFORMATION info = {};
    const HANDLE file = shared->map || shared->name.empty()
                            ? nullptr
                            : OpenFileMappingW(FILE_MAP_READ, FALSE, wide(shared->name).c_str());
    if (file) {
        shared->map = MapViewOfFile(file, FILE_MAP_READ, 0, 0, 0);
        CloseHandle(file);
        shared->size = shared->map && VirtualQuery(shared->map, &info, sizeof(info)) ? info.RegionSize : 0;
    }
    return shared->map;
}

void shared_stop(shared_t *shared) {
    if (shared->map) {
        UnmapViewOfFile(shared->map);
    }
    *shared = {};
}

// The handle stays open, because the name lives as long as it.
void *shared_create(const char *name, size_t size) {
    const HANDLE file = CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, (DWORD)((u64)size >> 32),
                                           (DWORD)size, wide(name).c_str());
    return file && GetLastError() != ERROR_ALREADY_EXISTS ? MapViewOfFile(file, FILE_MAP_ALL_ACCESS, 0, 0, size)
                                                          : nullptr;
}
