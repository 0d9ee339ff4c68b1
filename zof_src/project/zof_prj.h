// Starts a project: finds its folder, reads it, shows its first view. Graphics thread only.
#ifndef ZOF_PRJ_H
#define ZOF_PRJ_H

#include "project/base/zof_prj_cur.h"

ZOF_C_BEGIN

// Reads the project in a folder and makes it the current one: record, view names, language. Returns null, after a
// message, if it cannot be read; there is no current project then.
zof_prj_t *zof_prj_obj_create(const char *path);

// Starts the current project: touch, image cache, logo, start view, and all other views if the project file says so.
// Keeps a pointer to `views`. Returns 0, or -1 without a project; without a valid start view the screen is unchanged.
s32 zof_prj_create(const zof_view_fun_t *views, u32 count);

// Enables touches if the project file does. Returns 0, or -1 without a project.
s32 zof_prj_hw_init(void);

// Draws image/logo.png in the middle of the screen, on black, immediately; it stays there until something else is
// drawn.
void zof_prj_show_power_on_logo(void);

// Names the project folder, or a folder that has it as res/, in place of a search. Null or an empty text: search.
// Before zof_drv_init. Returns 0, or -1 for a path that is too long.
s32 zof_prj_folder_set(const char *folder);

// Searches for the project folder and creates the project object from it. The places are: res/ beside the program;
// NAME/res/ in the data folder of the program's prefix and in those of XDG_DATA_DIRS, where NAME is the program's;
// then res/ in "../../", "./", "./zof_src/zof_test/" and "../zof_src/zof_test/". Prints the folder, or "No work path
// found".
void zof_drv_set_prj_path(void);

// Only searches; returns the folder, in the shared path buffer, or null.
const char *zof_drv_get_prj_path(void);

// If the search finds nothing, prints each place with the reason: "/usr/share/panel/res: config/project/zofprj.g: No
// such file or directory".
void zof_prj_places_print(void);

ZOF_C_END

#endif
