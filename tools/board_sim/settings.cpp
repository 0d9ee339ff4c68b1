// The settings of the box in a file, one line "name = value" each.
#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <unistd.h>

#include "board.h"

const std::vector<board_setting> board_setting_rows = {
    {"brightness", &board_settings::bright, REG_BRIGHT},
    {"boot_last", &board_settings::boot_last, REG_BOOT_STATE},
    {"auto_arm", &board_settings::auto_arm, REG_AUTO_ARM},
    {"last_on", &board_settings::last_on, REG_OUT_REQ},
    {"last_rail", &board_settings::last_rail, REG_RAIL_SELECT},
    {"last_mv", &board_settings::last_mv, REG_ADJ_MV},
    {"last_ma", &board_settings::last_ma, REG_ADJ_MA},
};

// A temporary file is named FILE.PID-N.new, so that boards which share FILE do not share temporary files, and a later
// start can tell whether the board that created one is still running.
static std::string temporary_name(const board &b, unsigned n) {
    return b.settings_file + "." + std::to_string(getpid()) + "-" + std::to_string(n) + ".new";
}

// Removes the temporary files of boards that were killed while saving.
static void remove_stale(const std::filesystem::path &file) {
    const std::string prefix = file.filename().string() + ".";
    const auto folder = file.has_parent_path() ? file.parent_path() : std::filesystem::path(".");
    std::error_code error;
    for (std::filesystem::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
        const std::string name = it->path().filename().string();
        char *rest = nullptr;
        const bool ours = name.starts_with(prefix) && name.ends_with(".new");
        const long pid = ours ? strtol(name.c_str() + prefix.size(), &rest, 10) : 0;
        if (pid > 0 && *rest == '-' && kill((pid_t)pid, 0) != 0 && errno == ESRCH) {
            std::error_code ignored;
            std::filesystem::remove(it->path(), ignored);
        }
    }
}

// Takes a setting from a line. Returns false unless the line is a known name with a number.
static bool setting_take(board_settings &settings, const std::string &line) {
    char name[32], rest;
    unsigned value;
    if (sscanf(line.c_str(), " %31[a-z_] = %u %c", name, &value, &rest) != 2) {
        return false;
    }
    for (const board_setting &row : board_setting_rows) {
        if (strcmp(name, row.name) == 0) {
            settings.*row.field = reg_value(row.reg, (uint16_t)std::min(value, 65535u));
            return true;
        }
    }
    return false;
}

// Takes the settings from the file and reports the first invalid line. Returns false if there is one.
static bool settings_take(const board &b, board_settings &settings) {
    std::ifstream in(b.settings_file);
    std::string line;
    bool good = true;
    for (int number = 1; std::getline(in, line); number++) {
        const bool blank = line.find_first_not_of(" \t\r") == std::string::npos;
        if (!blank && !setting_take(settings, line) && good) {
            good = false;
            fprintf(stderr, "board_sim: %s:%d: not a setting\n", b.settings_file.c_str(), number);
        }
    }
    return good;
}

bool board_settings_check(board &b) {
    namespace fs = std::filesystem;
    std::error_code error;
    const fs::path file = fs::canonical(b.settings_file, error);
    if (error == std::errc::no_such_file_or_directory) { // the file is created when a setting changes
        return true;
    }
    const char *fault = nullptr;
    if (!error && !fs::is_regular_file(file, error)) {
        fault = "not a file";
    } else if (error || access(file.c_str(), R_OK) != 0) {
        fault = "cannot be read";
    }
    if (fault) {
        fprintf(stderr, "board_sim: --state: %s: %s\n", b.settings_file.c_str(), fault);
        return false;
    }
    b.settings_file = file;
    board_settings ignored;
    return settings_take(b, ignored);
}

void board_settings_load(board &b) {
    if (!b.settings_file.empty()) {
        remove_stale(b.settings_file);
        settings_take(b, b.settings);
    }
}

// Creates a temporary file. A name that already exists, which may be a link to another file, is skipped, not opened.
static FILE *temporary_open(const board &b, std::string &name) {
    int fd = -1;
    for (unsigned n = 0; fd < 0 && n < 100; n++) {
        name = temporary_name(b, n);
        fd = open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666);
        if (fd < 0 && errno != EEXIST) {
            return nullptr;
        }
    }
    return fd < 0 ? nullptr : fdopen(fd, "w");
}

static bool save(const board &b) {
    std::string name;
    FILE *f = temporary_open(b, name);
    if (!f) {
        return false;
    }
    bool good = true;
    for (const board_setting &row : board_setting_rows) {
        good = good && fprintf(f, "%s = %u\n", row.name, b.settings.*row.field) > 0;
    }
    good = good && fflush(f) == 0 && fsync(fileno(f)) == 0;
    good = fclose(f) == 0 && good;
    good = good && rename(name.c_str(), b.settings_file.c_str()) == 0;
    if (!good) {
        unlink(name.c_str());
    }
    return good;
}

void board_settings_save(board &b) {
    if (b.settings_file.empty() || save(b) || b.save_failed) {
        return;
    }
    b.save_failed = true;
    fprintf(stderr, "board_sim: %s: the settings cannot be saved\n", b.settings_file.c_str());
}
