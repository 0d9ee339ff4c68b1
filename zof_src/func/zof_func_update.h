// New data from a card or a USB disk: for a minute after its start a watch looks for a folder "zof_update" on the card
// (T) or the disk (U), and copies what is in it over the data folder (D); "zof_update_t" on the disk goes to the card.
// A screen shows the progress and ends with the result. The program does not restart by itself. Graphics thread only.
#ifndef ZOF_FUNC_UPDATE_H
#define ZOF_FUNC_UPDATE_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

// Starts the watch; 0. An application that wants it calls this at the end of its zof_main. Once is enough.
s32 zof_func_schedule(void);

// The progress screen: `name` is what is updated. Builds it the first time, shows it, and hides the views above it.
void zof_func_bar_show(const char *name);

// Files copied, failed, and to copy. Does nothing before the bar exists and for a sum of 0; paints when the percent
// changes.
void zof_func_bar_set_value(u32 suc, u32 fail, u32 sum);

// Looks for a file, or without one a folder, on the card and then on the disk. The path, which lasts until the next
// path call, or null; null for two nulls.
char *zof_func_check_res_exist(const char *dir, const char *file);

ZOF_C_END

#endif
