// Recording: writes each report of the box as a line of a CSV file (RFC 4180; the header has the units), at most ten
// lines a second. A silence of the box is one line without values. A recording continues on every page until it is
// stopped or a write fails; a failure affects nothing else. Everything runs under dis_mutex.
#ifndef BENCH_RECORD_H
#define BENCH_RECORD_H

#include "bench/bench_trend.h"

enum record_state_e {
    RECORD_OFF,
    RECORD_RUNS,
    RECORD_ENDING, // stopped; the last lines are being written
    RECORD_FULL,   // stopped because the disk is full
    RECORD_FAILED, // stopped or not started because of an error: see `why`
};

enum { RECORD_PATH_SIZE = 512 };

struct record_t {
    record_state_e state;
    char path[RECORD_PATH_SIZE]; // of the current file, or else the last one
    const char *name;            // its last component
    u64 since;                   // when the recording started, on the model's clock
    char why[96];                // the system's error text
};
extern record_t record;

bool record_runs(void);
// Starts a recording in the folder, in a file named by date and time. Returns false on an error, which `record.state`
// reports, and if a recording is running or a stopped trend is shown.
bool record_start(void);
// Starts a recording in this file; "-" is the standard output.
bool record_log(const char *path);
void record_stop(void);

// Sets the folder for recordings. The default is the user's documents folder: $XDG_DOCUMENTS_DIR from the environment
// or the user's configuration, then ~/Documents, then the home folder.
void record_folder_set(const char *folder);
// Writes the path of a new file in the folder: date, time and `suffix`. Returns false if the path does not fit.
bool record_name(char *out, size_t size, const char *suffix);
// Saves the screen as a PNG file in the folder. Returns the file's name without the folder, or null after logging a
// line on an error.
const char *record_picture(void);

// Called by the trend and by bench_tick.
void record_take(const trend_point_t *point);
void record_gap(void);
void record_tick(void);

#endif
