// Updates from a card or a USB disk: for a minute after its start a watch looks for a folder "zof_update" on the card
// (T) or the disk (U), and copies its contents over the data folder (D); "zof_update_t" on the disk goes to the card. A
// screen shows the progress and ends with the result. The program does not restart by itself. Graphics thread only.
#ifndef ZOF_FUNC_UPDATE_H
#define ZOF_FUNC_UPDATE_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

// Starts the watch. Returns 0. An application that wants it calls this once, at the end of its zof_main.
s32 zof_func_schedule(void);

// Shows the progress screen, which it builds the first time, and hides the views above it. `name` is what is updated,
// for projects whose language has no text `update_running`.
void zof_func_bar_show(const char *name);

// Sets the files copied, failed, and to copy. Does nothing before the bar exists and for a sum of 0; repaints when the
// percentage changes.
void zof_func_bar_set_value(u32 suc, u32 fail, u32 sum);

// Looks for a file, or for a folder if `file` is null, on the card and then on the disk. Returns the path, which is
// valid until the next path call, or null; null for two nulls.
char *zof_func_check_res_exist(const char *dir, const char *file);

ZOF_C_END

#endif
