#include "tool_file.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>

#include "drv/zof_drv_file.h"

namespace fs = std::filesystem;

static std::string reason() {
    return std::generic_category().message(errno);
}

static std::string type_fault(const std::string &path) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    return fs::exists(status) && !fs::is_regular_file(status) ? "not a regular file" : "";
}

// Reads a file to its end. Returns false on an error, with the reason in errno.
static bool read_all(FILE *file, std::string &text) {
    char part[4096];
    text.clear();
    for (size_t n; (n = fread(part, 1, sizeof(part), file)) > 0;) {
        text.append(part, n);
    }
    return !ferror(file);
}

std::string tool_file_read(const std::string &path, std::string &text) {
    std::string fault = type_fault(path);
    if (!fault.empty()) {
        return fault;
    }
    FILE *file = zof_file_read_open(path.c_str());
    if (!file) {
        return reason();
    }
    if (!read_all(file, text)) {
        fault = reason();
    }
    fclose(file);
    return fault;
}

std::string tool_file_write(const std::string &path, const std::string &text) {
    std::string fault = type_fault(path);
    if (!fault.empty()) {
        return fault;
    }
    FILE *file = zof_file_write_open(path.c_str(), ZOF_FALSE);
    if (!file) {
        return reason();
    }
    const bool all = fwrite(text.data(), 1, text.size(), file) == text.size() && fflush(file) == 0;
    fault = all ? "" : reason();
    return fclose(file) == 0 || !all ? fault : reason();
}
