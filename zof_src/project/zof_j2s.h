// From project files to records: reading, the cursor over a view's controls, and releasing what was read. Graphics
// thread only. Records and texts are the caller's, unless it says otherwise.
#ifndef ZOF_J2S_H
#define ZOF_J2S_H

#include <cjson/cJSON.h>

#include "project/zof_ctrl_attr.h"

ZOF_C_BEGIN

// A file's text and its parsed root; both null when it could not be had.
typedef struct {
    char *content;
    cJSON *root;
} zof_rootjson_t;

// The whole file as a terminated text, for Freebuff. Null for a file that does not open, silently: not every file has
// to be there; null with a line for one that is empty or cannot be read.
char *GetJsonFile(const char *path);
void Freebuff(void *buf);

// Reads and parses; a file that is not there passes in silence, one that does not parse gets its line.
zof_rootjson_t RootJsonGet(const char *path);

// The same for a file that has to be there: its absence gets a line too.
zof_rootjson_t zof_j2s_open(const char *path);

// The same without any line, for a look at a file whose faults are reported elsewhere.
zof_rootjson_t zof_j2s_peek(const char *path);

// Releases both and sets them to null.
void RootJsonDel(zof_rootjson_t *json);

// Parses text read from `path`, which is named in messages only. The root must be an object. On failure prints one line
// with path, line and column, and gives null. Release with cJSON_Delete.
cJSON *zof_j2s_parse(const char *path, const char *text);

// A walk over the `controls` of a view file. Zero it before the first start.
typedef struct {
    cJSON *root;
    cJSON *entry; // under the cursor; null at the end
    s32 index;    // of that entry, for messages
    char *path;   // its own copy: the path buffer changes while controls are made
} zof_j2s_walk_t;

// Start: 0 with the cursor on the first entry, -1 with a line when there are no controls to walk. It ends a walk that
// is still open; the walk owns file and path until zof_j2s_walk_end.
s32 zof_j2s_walk_start(zof_j2s_walk_t *walk, const char *path);

// The same over a file that is parsed already, which the walk takes; `path` is for messages.
s32 zof_j2s_walk_over(zof_j2s_walk_t *walk, const char *path, cJSON *root);
void zof_j2s_walk_end(zof_j2s_walk_t *walk);
void zof_j2s_walk_next(zof_j2s_walk_t *walk);

// The id and `pub` of the entry under the cursor; -1 at the end. Entries without property, id or known type are
// reported and passed over. `pub` is 1 for true and for a number that is not 0.
s32 zof_j2s_walk_para(zof_j2s_walk_t *walk, u32 *id, u32 *pub);

// Decodes the entry under the cursor, its theme's styles and over them its own, and moves on. Null, with a line, for an
// entry without `theme`: the view then ends there. Release with zof_j2s_ctrl_delete.
zof_pub_attr_t *zof_j2s_walk_get(zof_j2s_walk_t *walk);

// The same on one walk that the program shares: starting again ends the former one.
s32 zof_j2s_ctrl_start(const char *path);
s32 zof_j2s_ctrl_get_para(u32 *id, u32 *pub);
zof_pub_attr_t *zof_j2s_ctrl_get(void);
void zof_j2s_ctrl_run_next(void);
void zof_j2s_ctrl_end(void);
void zof_j2s_ctrl_init(void); // nothing to do

// A record of a type from its JSON object, without styles; null for null, or a type above the table.
zof_pub_attr_t *zof_j2s_ctrl_create(cJSON *property, u32 type);

// Releases the record, its styles and its texts; fonts and pictures that a style shares with its theme stay.
void zof_j2s_ctrl_delete(zof_pub_attr_t *record, u32 type);

// Reads `styles` of a theme file into the record, 255 at most.
void zof_j2s_get_style(cJSON *root, zof_pub_attr_t *record);

// Table and size of a control type's record; null and 0 above the last type.
const reflect_item_t *get_ctrl_struct_reflect(u32 type);
u32 zof_j2s_get_ctrl_size(u32 type);

// Decode into a zeroed record, or over one, and release what was decoded; 0 or -1.
s32 zof_j2s_get_ctrl_struct(cJSON *json, void *record, u32 type);
s32 zof_j2s_free_ctrl_struct(void *record, u32 type);
s32 GetStyleStruct(cJSON *json, zof_style_attr_t *record);
s32 FreeStyleStruct(zof_style_attr_t *record);
s32 GetViewStruct(cJSON *json, zof_view_attr_t *record);
s32 FreeViewStruct(zof_view_attr_t *record);
s32 GetPrjStruct(cJSON *json, zof_prj_attr_t *record);
s32 FreePrjStruct(zof_prj_attr_t *record);
s32 GetHmiStruct(cJSON *json, zof_hmi_attr_t *record);
s32 FreeHmiStruct(zof_hmi_attr_t *record);

// Prints a chart's record.
s32 printfstruct(void *record);

// The `view` object of a view file; null with a line when the file, its text or that object is not as it should be.
// Release with FreeViewStruct and zof_free.
zof_view_attr_t *zof_j2s_view(const char *path);

// The same, and with a record the whole parsed file, for zof_j2s_walk_over or cJSON_Delete; null without one.
zof_view_attr_t *zof_j2s_view_open(const char *path, cJSON **root);

// The project record; null with a line. The file stays in memory for zof_j2s_view_name_list_get.
zof_prj_attr_t *zof_j2s_get_prj_attr(const char *path);

// Adds the project file's views to the list, in file order, and lets go of the file. Works once after each
// zof_j2s_get_prj_attr; -1 otherwise, and for null.
s32 zof_j2s_view_name_list_get(db_list *list);

ZOF_C_END

#endif
