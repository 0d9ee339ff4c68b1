// Windows: names in UTF-8 for the calls that take UTF-16, opening files, and changes that must survive a power cut.
#include "port/host_win32.h"

#include <ctype.h>
#include <errno.h>
#include <fcntl.h>
#include <io.h>
#include <stdio.h>
#include <string.h>
#include <wchar.h>

// Prefixes of paths of any length. Without one, the name of a new folder must leave room for a short name below it.
static constexpr wchar_t SHARED[] = L"\\\\?\\UNC\\", EXTENDED[] = L"\\\\?\\";
enum { PLAIN_MOST = MAX_PATH - 12 };

enum { SHARE_ALL = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE };

static const struct {
    DWORD error;
    int number;
} errors[] = {{ERROR_FILE_NOT_FOUND, ENOENT},
              {ERROR_PATH_NOT_FOUND, ENOENT},
              {ERROR_INVALID_NAME, ENOENT},
              {ERROR_BAD_NETPATH, ENOENT},
              {ERROR_NOT_READY, ENXIO},
              {ERROR_ACCESS_DENIED, EACCES},
              {ERROR_SHARING_VIOLATION, EBUSY},
              {ERROR_LOCK_VIOLATION, EBUSY},
              {ERROR_WRITE_PROTECT, EROFS},
              {ERROR_FILE_EXISTS, EEXIST},
              {ERROR_ALREADY_EXISTS, EEXIST},
              {ERROR_DIR_NOT_EMPTY, ENOTEMPTY},
              {ERROR_NOT_SAME_DEVICE, EXDEV},
              {ERROR_DISK_FULL, ENOSPC},
              {ERROR_HANDLE_DISK_FULL, ENOSPC},
              {ERROR_NOT_ENOUGH_MEMORY, ENOMEM},
              {ERROR_DIRECTORY, ENOTDIR},
              {ERROR_TOO_MANY_OPEN_FILES, EMFILE},
              {ERROR_FILENAME_EXCED_RANGE, ENAMETOOLONG},
              {ERROR_INVALID_HANDLE, EBADF}};

s32 host_errno_take(void) {
    const DWORD error = GetLastError();
    errno = EIO;
    for (const auto &row : errors) {
        errno = row.error == error ? row.number : errno;
    }
    return -1;
}

static s32 done(BOOL good) {
    return good ? 0 : host_errno_take();
}

void host_error_text(DWORD error, char *out, size_t size) {
    wchar_t text[256] = L"";
    FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error, 0, text, 255, nullptr);
    if (!*text || !host_text_narrow(text, out, size)) {
        snprintf(out, size, "error %lu", (unsigned long)error);
    }
    out[strcspn(out, "\r\n")] = '\0';
}

bool host_text_narrow(const wchar_t *text, char *out, size_t size) {
    if (WideCharToMultiByte(CP_UTF8, 0, text, -1, out, (int)size, nullptr, nullptr) > 0) {
        return true;
    }
    *out = '\0';
    return false;
}

// A drive is the only use of a colon, and "\\.\" the only form that leads to devices.
static bool is_of_a_folder(const wchar_t *full) {
    const bool device = wcsncmp(full, L"\\\\.\\", 4) == 0;
    const bool extended = wcsncmp(full, L"\\\\?\\", 4) == 0;
    return !device && !wcschr(full + (extended ? 6 : 2), L':');
}

// Puts the prefix before a path that is too long for the system's calls without it. Returns false if it does not fit.
static bool long_path_extend(wchar_t *path, size_t length) {
    const bool share = wcsncmp(path, L"\\\\", 2) == 0;
    const wchar_t *prefix = share ? SHARED : EXTENDED;
    const size_t skip = share ? 2 : 0;
    const size_t more = wcslen(prefix);
    if (length < PLAIN_MOST || wcsncmp(path, EXTENDED, wcslen(EXTENDED)) == 0) {
        return true;
    }
    if (length - skip + more >= HOST_PATH_MOST) {
        return false;
    }
    wmemmove(path + more, path + skip, length - skip + 1);
    wmemcpy(path, prefix, more);
    return true;
}

bool host_path_wide(const char *path, wchar_t *out) {
    wchar_t wide[HOST_PATH_MOST];
    const int size = MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, path, -1, wide, HOST_PATH_MOST);
    const DWORD length = size > 1 ? GetFullPathNameW(wide, HOST_PATH_MOST, out, nullptr) : 0;
    if (length == 0 || length >= HOST_PATH_MOST || !long_path_extend(out, length)) {
        errno = *path ? ENAMETOOLONG : ENOENT;
        return false;
    }
    if (!is_of_a_folder(out)) {
        errno = EINVAL;
        return false;
    }
    return true;
}

static DWORD attributes(const char *path) {
    wchar_t wide[HOST_PATH_MOST];
    const DWORD found = host_path_wide(path, wide) ? GetFileAttributesW(wide) : INVALID_FILE_ATTRIBUTES;
    if (found == INVALID_FILE_ATTRIBUTES) {
        host_errno_take();
    }
    return found;
}

// Opens what a path names, for its properties or its content. Links are followed unless `flags` says otherwise.
static HANDLE object_open(const char *path, DWORD access, DWORD how, DWORD flags) {
    wchar_t wide[HOST_PATH_MOST];
    if (!host_path_wide(path, wide)) {
        return INVALID_HANDLE_VALUE;
    }
    const HANDLE file = CreateFileW(wide, access, SHARE_ALL, nullptr, how, flags, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        host_errno_take();
    }
    return file;
}

static bool is_separator(char c) {
    return c == '/' || c == '\\';
}

u32 zof_host_file_kind(const char *path) {
    const DWORD found = attributes(path);
    const size_t size = strlen(path);
    const bool follow = size && is_separator(path[size - 1]);
    if (found == INVALID_FILE_ATTRIBUTES) {
        return errno == ENOENT || errno == ENOTDIR ? ZOF_FILE_NONE : ZOF_FILE_OTHER;
    }
    if ((found & FILE_ATTRIBUTE_REPARSE_POINT && !follow) || found & FILE_ATTRIBUTE_DEVICE) {
        return ZOF_FILE_OTHER;
    }
    return found & FILE_ATTRIBUTE_DIRECTORY ? ZOF_FILE_FOLDER : ZOF_FILE_PLAIN;
}

// Passes a file to the C library, which closes it with the stream.
static FILE *stream(HANDLE file, int flags, const char *mode) {
    if (file == INVALID_HANDLE_VALUE) {
        return nullptr;
    }
    BY_HANDLE_FILE_INFORMATION info;
    if (GetFileType(file) != FILE_TYPE_DISK || !GetFileInformationByHandle(file, &info) ||
        info.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) {
        CloseHandle(file);
        errno = EINVAL;
        return nullptr;
    }
    const int number = _open_osfhandle((intptr_t)file, flags | _O_BINARY | _O_NOINHERIT);
    if (number < 0) {
        CloseHandle(file);
        return nullptr;
    }
    FILE *f = _fdopen(number, mode);
    if (!f) {
        _close(number);
    }
    return f;
}

// A folder cannot be opened as a file, and Windows says so with the error of a missing right.
static bool is_folder(const char *path) {
    const DWORD found = attributes(path);
    const bool folder = found != INVALID_FILE_ATTRIBUTES && found & FILE_ATTRIBUTE_DIRECTORY;
    if (folder) {
        errno = EINVAL;
    }
    return folder;
}

FILE *zof_host_file_read_open(const char *path) {
    return is_folder(path) ? nullptr : stream(object_open(path, GENERIC_READ, OPEN_EXISTING, 0), _O_RDONLY, "rb");
}

// Emptied only when it is known to be a regular file.
FILE *zof_host_file_write_open(const char *path, zof_bool keep) {
    if (is_folder(path)) {
        return nullptr;
    }
    FILE *f = stream(object_open(path, GENERIC_READ | GENERIC_WRITE, keep ? OPEN_EXISTING : OPEN_ALWAYS, 0), _O_RDWR,
                     keep ? "rb+" : "wb");
    if (f && !keep && _chsize_s(_fileno(f), 0) != 0) {
        fclose(f);
        return nullptr;
    }
    return f;
}

FILE *zof_host_file_open(const char *path) {
    if (zof_host_file_kind(path) == ZOF_FILE_OTHER) {
        errno = EINVAL;
        return nullptr;
    }
    return zof_host_file_read_open(path);
}

FILE *zof_host_file_create(const char *path) {
    FILE *f = stream(object_open(path, GENERIC_WRITE, CREATE_NEW, 0), _O_WRONLY, "wb");
    if (f) {
        setvbuf(f, nullptr, _IONBF, 0); // a failing write must fail in its own call
    }
    return f;
}

void zof_file_path_take(char *path) {
    if (isupper((u8)path[0]) && path[1] == ':') {
        path[0] = (char)tolower((u8)path[0]);
    }
    for (char *c = path; *c; c++) {
        *c = *c == '\\' ? '/' : *c;
    }
}

// Removes the prefix that lifts the limit of a path's length, and uses the separator of projects.
static bool real_name(wchar_t *path, char *out, size_t size) {
    const wchar_t *from = path;
    if (wcsncmp(path, SHARED, wcslen(SHARED)) == 0) {
        path[6] = L'\\';
        from = path + 6;
    } else if (wcsncmp(path, EXTENDED, wcslen(EXTENDED)) == 0) {
        from = path + wcslen(EXTENDED);
    }
    if (!host_text_narrow(from, out, size)) {
        return false;
    }
    zof_file_path_take(out);
    return true;
}

// Resolves an absolute path with all of its links. Returns the length of the result, or 0. Wine's call fails for a long
// path: its folder is resolved instead, and the name in it stays unless it is a link.
static size_t final_path(wchar_t *wide, wchar_t *real) {
    const HANDLE file = CreateFileW(wide, 0, SHARE_ALL, nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        host_errno_take();
        return 0;
    }
    const DWORD length = GetFinalPathNameByHandleW(file, real, HOST_PATH_MOST, FILE_NAME_NORMALIZED);
    CloseHandle(file);
    wchar_t *name = wcsrchr(wide, L'\\');
    if (length || !name || wcslen(wide) < PLAIN_MOST || GetFileAttributesW(wide) & FILE_ATTRIBUTE_REPARSE_POINT) {
        return length < HOST_PATH_MOST ? length : 0;
    }
    *name = L'\0';
    const size_t folder = final_path(wide, real);
    if (folder == 0 || folder + 1 + wcslen(name + 1) >= HOST_PATH_MOST) {
        return 0;
    }
    real[folder] = L'\\';
    wcscpy(real + folder + 1, name + 1);
    return wcslen(real);
}

s32 zof_host_real_path(const char *path, char *out, size_t size) {
    wchar_t wide[HOST_PATH_MOST], real[HOST_PATH_MOST];
    if (!host_path_wide(path, wide)) {
        return -1;
    }
    const size_t length = wcslen(wide);
    if (length >= PLAIN_MOST && wide[length - 1] == L'\\') { // no root is as long
        wide[length - 1] = L'\0';
    }
    return final_path(wide, real) && real_name(real, out, size) ? 0 : -1;
}

// A drive with a root, or two separators: a share, or an extended path.
zof_bool zof_host_is_absolute(const char *path) {
    const bool drive = isalpha((u8)path[0]) && path[1] == ':' && is_separator(path[2]);
    return drive || (is_separator(path[0]) && is_separator(path[1])) ? ZOF_TRUE : ZOF_FALSE;
}

s32 zof_program_path(char *out, size_t size) {
    wchar_t path[HOST_PATH_MOST];
    const DWORD length = GetModuleFileNameW(nullptr, path, HOST_PATH_MOST);
    return length && length < HOST_PATH_MOST && real_name(path, out, size) ? 0 : -1;
}

u32 zof_host_process_id(void) {
    return (u32)GetCurrentProcessId();
}

// A process that may not be opened runs.
zof_bool zof_host_process_runs(u32 id) {
    const HANDLE process = OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION | SYNCHRONIZE, FALSE, id);
    if (!process) {
        return GetLastError() == ERROR_ACCESS_DENIED ? ZOF_TRUE : ZOF_FALSE;
    }
    const bool runs = WaitForSingleObject(process, 0) == WAIT_TIMEOUT;
    CloseHandle(process);
    return runs ? ZOF_TRUE : ZOF_FALSE;
}

// A folder that is opened without sharing can still be used by others, so the lock is an object of the system that has
// the folder's number in its name. It is gone with its last handle. It does not reach other computers that use the same
// share.
s32 zof_host_folder_lock(const char *path, char *holder, size_t size) {
    zof_file_stamp_t folder;
    const DWORD found = attributes(path);
    if (found == INVALID_FILE_ATTRIBUTES || !(found & FILE_ATTRIBUTE_DIRECTORY) ||
        zof_host_file_stamp(path, &folder) != 0) {
        return -1;
    }
    wchar_t name[64];
    swprintf(name, sizeof(name) / sizeof(name[0]), L"Global\\zof-folder-%llx-%llx", (unsigned long long)folder.device,
             (unsigned long long)folder.number);
    const HANDLE lock = CreateMutexW(nullptr, FALSE, name);
    const DWORD error = GetLastError();
    if (lock && error != ERROR_ALREADY_EXISTS) {
        return (s32)(intptr_t)lock; // handles have 32 bits that count
    }
    if (lock) {
        CloseHandle(lock);
    }
    if (lock || error == ERROR_ACCESS_DENIED) { // denied: another user's
        snprintf(holder, size, "another program");
        return 0;
    }
    return -1;
}

void zof_folder_unlock(s32 lock) {
    if (lock > 0) {
        CloseHandle((HANDLE)(intptr_t)lock);
    }
}

s32 zof_host_file_sync(FILE *f) {
    return fflush(f) == 0 && _commit(_fileno(f)) == 0 ? 0 : -1;
}

// The next write follows at the new end.
s32 zof_host_file_cut(FILE *f, u64 size) {
    fflush(f);
    return _chsize_s(_fileno(f), (s64)size) == 0 && _fseeki64(f, (s64)size, SEEK_SET) == 0 ? 0 : -1;
}

// Windows writes names with MOVEFILE_WRITE_THROUGH; a folder itself cannot be flushed.
void zof_host_folder_sync(const char *path) {
    (void)path;
}

s32 zof_host_exchange(const char *a, const char *b) {
    (void)a;
    (void)b;
    errno = ENOSYS; // no file system of Windows can do it
    return -1;
}

s32 zof_host_remove(const char *path) {
    wchar_t wide[HOST_PATH_MOST];
    const DWORD found = attributes(path);
    if (found == INVALID_FILE_ATTRIBUTES || !host_path_wide(path, wide)) {
        return -1;
    }
    return done(found & FILE_ATTRIBUTE_DIRECTORY ? RemoveDirectoryW(wide) : DeleteFileW(wide));
}

s32 zof_host_mkdir(const char *path) {
    wchar_t wide[HOST_PATH_MOST];
    if (!host_path_wide(path, wide)) {
        return -1;
    }
    if (CreateDirectoryW(wide, nullptr)) {
        return 0;
    }
    host_errno_take();
    return errno == EEXIST || GetFileAttributesW(wide) != INVALID_FILE_ATTRIBUTES ? 1 : -1;
}

s32 zof_host_rename(const char *from, const char *to) {
    wchar_t source[HOST_PATH_MOST], target[HOST_PATH_MOST];
    if (!host_path_wide(from, source) || !host_path_wide(to, target)) {
        return -1;
    }
    return done(MoveFileExW(source, target, MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH));
}

static s32 info_read(const char *path, BY_HANDLE_FILE_INFORMATION *info) {
    const HANDLE file = object_open(path, 0, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS);
    if (file == INVALID_HANDLE_VALUE) {
        return -1;
    }
    const BOOL good = GetFileInformationByHandle(file, info);
    const s32 result = done(good);
    CloseHandle(file);
    return result;
}

static u64 joined(DWORD high, DWORD low) {
    return (u64)high << 32 | low;
}

s64 zof_file_size(const char *path) {
    BY_HANDLE_FILE_INFORMATION info;
    return path && info_read(path, &info) == 0 ? (s64)joined(info.nFileSizeHigh, info.nFileSizeLow) : -1;
}

s32 zof_host_file_stamp(const char *path, zof_file_stamp_t *out) {
    BY_HANDLE_FILE_INFORMATION info;
    if (info_read(path, &info) != 0) {
        return -1;
    }
    const u64 changed = joined(info.ftLastWriteTime.dwHighDateTime, info.ftLastWriteTime.dwLowDateTime);
    *out = {joined(info.nFileSizeHigh, info.nFileSizeLow), (s64)(changed * 100), info.dwVolumeSerialNumber,
            joined(info.nFileIndexHigh, info.nFileIndexLow)};
    return 0;
}

const char *zof_file_error(void) {
    return strerror(errno); // the C library keeps its text for each thread
}
