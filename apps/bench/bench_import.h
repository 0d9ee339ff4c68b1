// Import of a recording, which the trend then shows in place of what the box reports.
#ifndef BENCH_IMPORT_H
#define BENCH_IMPORT_H

#include "zof_lib/zof_type.h"

// Reads a file in the format of bench_record.h. Columns are found by name; other columns are ignored. Lines that are
// not reports, including an unfinished last one, are logged with their place and skipped. The trend's clock stops at
// the last report. Returns the number of reports, or -1 with the trend unchanged if the file cannot be read, has no
// reports or lacks a column for time, voltage or current. Call it under dis_mutex.
s32 import_file(const char *path);
// Returns the name of the imported file without its folder; empty if no file has been imported.
const char *import_name(void);

#endif
