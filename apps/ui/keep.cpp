#include "ui/keep.h"

#include <stdio.h>
#include <string.h>

#include <string>

#include "bench/bench.h"
#include "zof.h"

enum { FILE_MOST = 64 * 1024 };

static std::string kept; // contents of the file

static bool flag_take(bool *flag, const char *text) {
    *flag = strcmp(text, "yes") == 0;
    return *flag || strcmp(text, "no") == 0;
}

static std::string language() {
    const zof_prj_t *project = zof_prj_get_cur();
    return project && project->lang_name ? project->lang_name : "";
}

template <u32 N> static std::string preset_text() {
    char text[BENCH_PRESET_TEXT];
    return bench_preset_text(text, &bench.preset[N]);
}

template <u32 N> static bool preset_take(const char *text) {
    return bench_preset_parse(text, &bench.preset[N]);
}

// One row per setting: its name in the file, how its value is written and how it is read.
static constexpr struct {
    const char *name;
    std::string (*write)();
    bool (*take)(const char *text);
} rows[] = {
    {"language", language,
     [](const char *text) { return zof_lang_start() || language() == text || zof_lang_set(text) == 0; }},
    {"hold_to_raise", [] { return std::string(bench.hold_off ? "no" : "yes"); },
     [](const char *text) {
         bool hold = true;
         const bool good = flag_take(&hold, text);
         bench.hold_off = good && !hold;
         return good;
     }},
    {"average_readings", [] { return std::string(bench.averaged_off ? "no" : "yes"); },
     [](const char *text) {
         bool average = true;
         const bool good = flag_take(&average, text);
         bench.averaged_off = good && !average;
         return good;
     }},
    {"locked", [] { return std::string(bench.locked ? "yes" : "no"); },
     [](const char *text) { return flag_take(&bench.locked, text); }},
    {"preset_1", preset_text<0>, preset_take<0>},
    {"preset_2", preset_text<1>, preset_take<1>},
    {"preset_3", preset_text<2>, preset_take<2>},
    {"preset_4", preset_text<3>, preset_take<3>},
};

static std::string text_now() {
    std::string out;
    for (const auto &row : rows) {
        out += std::string(row.name) + " = " + row.write() + "\n";
    }
    return out;
}

static bool line_take(const std::string &line) {
    const size_t sign = line.find(" = ");
    for (const auto &row : rows) {
        if (sign != std::string::npos && line.compare(0, sign, row.name) == 0) {
            return row.take(line.c_str() + sign + 3);
        }
    }
    return line.empty();
}

// Returns the path of the file, empty if nothing is kept.
static std::string file_path(zof_bool make) {
    char path[520];
    return zof_file_state_path(path, sizeof(path), "settings", make) == 0 ? path : "";
}

void keep_load() {
    const std::string file = file_path(ZOF_FALSE);
    u32 size = 0;
    const char *why = nullptr;
    u8 *data = zof_file_read_all(file.c_str(), FILE_MOST, &size, &why);
    const std::string text = data ? std::string((const char *)data, size) : "";
    zof_free(data);
    u32 number = 1;
    for (size_t at = 0; at < text.size(); number++) {
        const size_t end = text.find('\n', at);
        const std::string line = text.substr(at, end == std::string::npos ? end : end - at);
        if (!line_take(line)) {
            zof_printf("%s:%u: not a setting", file.c_str(), number);
        }
        at = end == std::string::npos ? text.size() : end + 1;
    }
    kept = text_now();
}

void keep_save() {
    const std::string now = text_now();
    const std::string file = now == kept ? "" : file_path(ZOF_TRUE);
    kept = now;
    if (!file.empty() && zof_file_write(file.c_str(), now.data(), now.size()) != 0) {
        static bool said;
        if (!said) {
            zof_printf("%s: the settings cannot be kept: %s", file.c_str(), zof_file_error());
        }
        said = true;
    }
}
