// Pictures of controls and views: their files, and the log of those that cannot be shown. Graphics thread, or under
// dis_mutex.
#ifndef ZOF_PICTURE_H
#define ZOF_PICTURE_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

// Logs, once for each path, why its picture cannot be shown; with null, that no picture is named.
void zof_img_missing(const char *path);

// Returns why a file cannot be a picture, by its first bytes; null if it looks like one.
const char *zof_img_fault(const char *path);

// Returns a project's image name (or language key) as an allocated path, released with zof_free; null for null and for
// names that LVGL would not take for a file. Logs a file that is not a picture.
char *zof_img_path_copy(const char *name);

ZOF_C_END

#endif
