// Keeps one file of a fuzzer in memory instead of on disk: --wrap replaces the file functions for it.
#ifndef FUZZ_FILE_H
#define FUZZ_FILE_H

#include <stdio.h>

#include "fuzz.h"
#include "port/zof_host.h"

// The file, by its full path; `version` counts changes of its contents.
inline struct {
    std::string path, content;
    s64 version;
} fuzz_file;

inline void fuzz_file_set(const std::string &path, std::string content) {
    fuzz_file.path = path;
    fuzz_file.content = std::move(content);
    fuzz_file.version++;
}

extern "C" {
FILE *__real_zof_host_file_read_open(const char *path);
s32 __real_zof_host_file_stamp(const char *path, zof_file_stamp_t *out);

__attribute__((used)) inline FILE *__wrap_zof_host_file_read_open(const char *path) {
    const bool here = fuzz_file.path == path;
    return here ? fmemopen(fuzz_file.content.data(), fuzz_file.content.size(), "rb")
                : __real_zof_host_file_read_open(path);
}

__attribute__((used)) inline s32 __wrap_zof_host_file_stamp(const char *path, zof_file_stamp_t *out) {
    if (fuzz_file.path != path) {
        return __real_zof_host_file_stamp(path, out);
    }
    *out = {fuzz_file.content.size(), fuzz_file.version, 0, 0};
    return 0;
}
}

#endif
