// Recording: each report of the box as a line of a CSV file (RFC 4180; the header has the units), ten a second at most.
// A silence of the box is one line without values. It goes on until it is stopped, on all pages, or until the file
// cannot be written, which hurts nothing else. Everything runs under dis_mutex.
#ifndef BENCH_RECORD_H
#define BENCH_RECORD_H

#include "bench/bench_trend.h"

enum record_state_e {
    RECORD_OFF,
    RECORD_RUNS,
    RECORD_ENDING, // stopped; the last lines are being written
    RECORD_FULL,   // ended: the disk is full
    RECORD_FAILED, // ended, or not begun: `why` says it
};

enum { RECORD_PATH_SIZE = 512 };

struct record_t {
    record_state_e state;
    char path[RECORD_PATH_SIZE]; // of the file, the last one if none is being written
    const char *name;            // its last component
    u64 since;                   // when it began, on the model's clock
    char why[96];                // the system's reason
};
extern record_t record;

bool record_runs(void);
// Begins a file in the folder, named by the time. False if it cannot, as `record.state` says then, and while a stopped
// trend is shown.
bool record_start(void);
// Begins a file of this name, "-" for the standard output.
bool record_log(const char *path);
void record_stop(void);

// Uses this folder. Otherwise the user's documents: $XDG_DOCUMENTS_DIR, as the environment or the user's configuration
// has it, then ~/Documents, then the home folder.
void record_folder_set(const char *folder);
// Writes the name of a file in it that does not exist: date, time, and `suffix`. False if the name does not fit.
bool record_name(char *out, size_t size, const char *suffix);
// Saves what the screen shows as a PNG file there. Returns its name, without the folder; null and a log line if it
// cannot.
const char *record_picture(void);

// From the trend, and from bench_tick.
void record_take(const trend_point_t *point);
void record_gap(void);
void record_tick(void);

#endif
