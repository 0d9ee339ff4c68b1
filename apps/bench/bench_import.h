// A recording, shown as the trend in place of what the box reports.
#ifndef BENCH_IMPORT_H
#define BENCH_IMPORT_H

#include "zof_lib/zof_type.h"

// Reads a file that bench_record.h writes; columns are found by their names, and other columns are ignored. Lines that
// are no reports are logged with their place and skipped, an unfinished last one too. The trend's clock stops at the
// last report. Returns the number of reports, or -1, with the trend unchanged, for a file that cannot be read or has no
// column for time, voltage and current. Under dis_mutex.
s32 import_file(const char *path);
// The name of the file, without its folder; empty if none was read.
const char *import_name(void);

#endif
