#include "bench/bench_import.h"

#include <algorithm>
#include <math.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <chrono>

#include "bench/bench_trend.h"
#include "zof.h"

enum { LINE_SIZE = 1024, FIELDS = 32, LOGGED = 10 };

enum column_e { COL_TIME, COL_MV, COL_MA, COL_DW, COL_SET_MV, COL_SET_MA, COL_OUTPUT, COLUMNS };
static constexpr const char *names[COLUMNS] = {
    "Time", "Voltage (V)", "Current (A)", "Power (W)", "Set voltage (V)", "Set current (A)", "Output"};

static char import_shown[64];

struct import_t {
    const char *path;
    u32 line;
    u32 faults;
    u32 columns;        // fields that a line must have
    s32 place[COLUMNS]; // index of each column in a line, or -1
    s32 reports;
    u64 at;   // time of the last report
    s32 zone; // its time zone, in minutes
};

// Splits a line into fields, in place: quotes are removed, and doubled quotes become one. Returns the number of fields.
static u32 split(char *line, char *fields[FIELDS]) {
    u32 count = 0;
    char *to = line;
    bool quoted = false;
    fields[count++] = to;
    for (const char *from = line; *from; from++) {
        if (*from == '"') {
            const bool twice = quoted && from[1] == '"';
            quoted = twice || !quoted;
            if (twice) {
                *to++ = *from++;
            }
        } else if (*from == ',' && !quoted && count < FIELDS) {
            *to++ = '\0';
            fields[count++] = to;
        } else {
            *to++ = *from;
        }
    }
    *to = '\0';
    return count;
}

// Reads an ISO 8601 local date and time with a zone. `at` receives milliseconds since 1970.
static bool time_read(const char *text, u64 *at, s32 *zone) {
    int year, month, day, hour, minute, end = 0;
    double second;
    if (sscanf(text, "%4d-%2d-%2dT%2d:%2d:%lf%n", &year, &month, &day, &hour, &minute, &second, &end) != 6) {
        return false;
    }
    const std::chrono::year_month_day date{std::chrono::year(year), std::chrono::month((unsigned)month),
                                           std::chrono::day((unsigned)day)};
    int ahead_h = 0, ahead_m = 0;
    const char sign = text[end];
    if (!date.ok() || year < 2000 || hour < 0 || hour > 23 || minute < 0 || minute > 59 || !(second >= 0) ||
        second >= 61 ||
        (sign != 'Z' && ((sign != '+' && sign != '-') || sscanf(text + end + 1, "%2d:%2d", &ahead_h, &ahead_m) != 2))) {
        return false;
    }
    *zone = (sign == '-' ? -1 : 1) * (ahead_h * 60 + ahead_m);
    const s64 days = std::chrono::sys_days(date).time_since_epoch().count();
    const s64 ms = ((days * 24 + hour) * 60 + minute - *zone) * 60000 + llround(second * 1000);
    *at = (u64)ms;
    return ms > 0;
}

// Reads a number and multiplies it by `scale`. Returns false for an empty field.
static bool number_read(const char *text, double scale, u16 *out) {
    char *end;
    const double value = strtod(text, &end) * scale + 0.5;
    if (end == text || *end || !(value >= 0 && value < 65536)) {
        return false;
    }
    *out = (u16)value;
    return true;
}

static const char *field_of(const import_t &in, char *const *fields, u32 count, column_e column) {
    return in.place[column] >= 0 && (u32)in.place[column] < count ? fields[in.place[column]] : "";
}

static void fault(import_t &in, const char *what) {
    if (in.faults++ < LOGGED) {
        zof_printf("%s:%u: %s", in.path, in.line, what);
    }
}

static bool header_take(import_t &in, char *const *fields, u32 count) {
    for (u32 c = 0; c < COLUMNS; c++) {
        in.place[c] = -1;
        for (u32 i = 0; i < count; i++) {
            in.place[c] = strcmp(fields[i], names[c]) == 0 ? (s32)i : in.place[c];
        }
    }
    for (column_e c : {COL_TIME, COL_MV, COL_MA}) {
        if (in.place[c] < 0) {
            zof_printf("%s:1: no column \"%s\"", in.path, names[c]);
            return false;
        }
        in.columns = std::max(in.columns, (u32)in.place[c] + 1);
    }
    return true;
}

static void point_take(import_t &in, char *const *fields, u32 count) {
    const auto field = [&](column_e column) { return field_of(in, fields, count, column); };
    trend_point_t point = {.rail = RAIL_NONE};
    s32 zone;
    if (!time_read(field(COL_TIME), &point.at, &zone)) {
        fault(in, "no time");
        return;
    }
    if (!field(COL_MV)[0] && !field(COL_MA)[0]) { // the box was silent
        trend_gap();
        return;
    }
    if (!number_read(field(COL_MV), 1000, &point.mv) || !number_read(field(COL_MA), 1000, &point.ma)) {
        fault(in, "no voltage and current");
        return;
    }
    if (number_read(field(COL_DW), 10, &point.dw)) {
        point.flags |= TREND_DW;
    }
    if (number_read(field(COL_SET_MV), 1000, &point.set_mv) && number_read(field(COL_SET_MA), 1000, &point.set_ma)) {
        point.flags |= TREND_SET;
    }
    if (field(COL_OUTPUT)[0]) {
        point.flags |= (u8)(TREND_OUT_KNOWN | (strcmp(field(COL_OUTPUT), "on") == 0 ? TREND_ON : 0));
    }
    if (in.reports > 0 && point.at < in.at) {
        fault(in, "its time is before that of the last one");
        return;
    }
    in.at = point.at;
    in.zone = zone;
    in.reports++;
    trend_add(point);
}

// Reads a line and removes its line end. Returns false at the end of the file.
static bool line_read(import_t &in, FILE *f, char *line) {
    if (!fgets(line, LINE_SIZE, f)) {
        return false;
    }
    in.line++;
    const size_t n = strlen(line);
    const bool whole = n > 0 && line[n - 1] == '\n';
    if (!whole) {
        fault(in, n + 1 < LINE_SIZE ? "the line is not finished" : "the line is too long");
        for (int c = 0; c != '\n' && c != EOF;) {
            c = fgetc(f);
        }
        line[0] = '\0';
    }
    line[strcspn(line, "\r\n")] = '\0';
    return true;
}

static void lines_take(import_t &in, FILE *f, char *line) {
    char *fields[FIELDS];
    trend_clear();
    while (line_read(in, f, line)) {
        if (line[0]) {
            const u32 count = split(line, fields);
            if (count < in.columns) {
                fault(in, "fields are missing");
            } else {
                point_take(in, fields, count);
            }
        }
    }
    if (in.faults > LOGGED) {
        zof_printf("%s: %u more lines are not reports", in.path, in.faults - LOGGED);
    }
    trend_stop(in.reports > 0 ? in.at : trend_now(), in.zone);
    snprintf(import_shown, sizeof(import_shown), "%s", in.path + zof_path_parent(in.path));
}

s32 import_file(const char *path) {
    char line[LINE_SIZE], *fields[FIELDS];
    import_t in = {.path = path};
    FILE *f = zof_file_read_open(path);
    if (!f) {
        zof_printf("%s: %s", path, zof_file_error());
        return -1;
    }
    static constexpr char MARK[] = "\xEF\xBB\xBF"; // written by some editors
    const bool read = line_read(in, f, line);
    char *text = read && strncmp(line, MARK, 3) == 0 ? line + 3 : line;
    const bool good = read && header_take(in, fields, split(text, fields));
    if (good) {
        lines_take(in, f, line);
    }
    fclose(f);
    if (!read || (good && in.reports == 0)) {
        zof_printf("%s: no reports", path);
    }
    return good && in.reports > 0 ? in.reports : -1;
}

const char *import_name(void) {
    return import_shown;
}
