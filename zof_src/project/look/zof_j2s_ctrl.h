// The controls of a view file as records with the styles of their themes. Graphics thread only.
#ifndef ZOF_J2S_CTRL_H
#define ZOF_J2S_CTRL_H

#include <cjson/cJSON.h>

#include "project/base/zof_prj_attr.h"

ZOF_C_BEGIN

// The positions in the file, from 1, at which ids were seen. In pages, because few views use many of the 65,536 ids.
enum { ZOF_J2S_PAGE = 256 };
typedef struct {
    s32 *pages[UINT16_MAX / ZOF_J2S_PAGE + 1];
} zof_j2s_places_t;

// A walk over the `controls` of a view file. Zero it before the first start.
typedef struct {
    cJSON *root;
    cJSON *entry;             // at the cursor; null at the end
    s32 index;                // of that entry, for messages
    char *path;               // a copy: the path buffer changes while controls are created
    zof_j2s_places_t *places; // null without memory
} zof_j2s_walk_t;

// Starts a walk: returns 0 with the cursor at the first entry, or -1, after a message, without controls. Ends a walk
// that is still open; the walk owns file and path until zof_j2s_walk_end.
s32 zof_j2s_walk_start(zof_j2s_walk_t *walk, const char *path);

// The same for a parsed file, which the walk then owns; `path` is used in messages.
s32 zof_j2s_walk_over(zof_j2s_walk_t *walk, const char *path, cJSON *root);
void zof_j2s_walk_end(zof_j2s_walk_t *walk);
void zof_j2s_walk_next(zof_j2s_walk_t *walk);

// Sets `id` and `pub` from the entry at the cursor. Returns 0, or -1 at the end. Entries without property, id or known
// type, and those with an id that is in use, are reported and skipped. `pub` is 1 for true and for a number that is not
// 0.
s32 zof_j2s_walk_para(zof_j2s_walk_t *walk, u32 *id, u32 *pub);

// Decodes the entry at the cursor, with its theme's styles overridden by its own, and advances. Returns null, after a
// message, for an entry without `theme`: the view ends there. Release with zof_j2s_ctrl_delete.
zof_pub_attr_t *zof_j2s_walk_get(zof_j2s_walk_t *walk);

// The same on one shared walk: starting it again ends the previous one.
s32 zof_j2s_ctrl_start(const char *path);
s32 zof_j2s_ctrl_get_para(u32 *id, u32 *pub);
zof_pub_attr_t *zof_j2s_ctrl_get(void);
void zof_j2s_ctrl_run_next(void);
void zof_j2s_ctrl_end(void);
void zof_j2s_ctrl_init(void); // does nothing

// Releases the record, its styles and its texts; fonts and pictures that a style shares with its theme stay.
void zof_j2s_ctrl_delete(zof_pub_attr_t *record, u32 type);

ZOF_C_END

#endif
