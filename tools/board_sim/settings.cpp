// The settings of the box in a file, one line "name = value" each.
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>

#include "board.h"
#include "system.h"

namespace fs = std::filesystem;

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
    return b.settings_file + "." + std::to_string(system_process_id()) + "-" + std::to_string(n) + ".new";
}

// Removes the temporary files of boards that were killed while saving.
static void remove_stale(const fs::path &file) {
    const std::string prefix = file.filename().string() + ".";
    const auto folder = file.has_parent_path() ? file.parent_path() : fs::path(".");
    std::error_code error;
    for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
        const std::string name = it->path().filename().string();
        char *rest = nullptr;
        const bool ours = name.starts_with(prefix) && name.ends_with(".new");
        const long pid = ours ? strtol(name.c_str() + prefix.size(), &rest, 10) : 0;
        if (pid > 0 && *rest == '-' && !system_process_runs(pid)) {
            std::error_code ignored;
            fs::remove(it->path(), ignored);
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
    std::ifstream in(fs::path{b.settings_file});
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
    std::error_code error;
    const fs::path file = fs::canonical(b.settings_file, error);
    if (error == std::errc::no_such_file_or_directory) { // the file is created when a setting changes
        return true;
    }
    const char *fault = nullptr;
    if (!error && !fs::is_regular_file(file, error)) {
        fault = "not a file";
    } else if (error || !std::ifstream(file)) {
        fault = "cannot be read";
    }
    if (fault) {
        fprintf(stderr, "board_sim: --state: %s: %s\n", b.settings_file.c_str(), fault);
        return false;
    }
    b.settings_file = file.string();
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
    FILE *f = nullptr;
    for (unsigned n = 0; !f && n < 100; n++) {
        name = temporary_name(b, n);
        f = system_file_create(name);
        if (!f && errno != EEXIST) {
            return nullptr;
        }
    }
    return f;
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
    good = good && fflush(f) == 0 && system_file_sync(f);
    good = fclose(f) == 0 && good;
    std::error_code error;
    if (good) {
        fs::rename(name, b.settings_file, error);
    }
    good = good && !error;
    if (!good) {
        fs::remove(name, error);
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
