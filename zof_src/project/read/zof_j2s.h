// Decodes project files into records, and releases them. Graphics thread only.
// The caller owns records and texts unless noted otherwise.
#ifndef ZOF_J2S_H
#define ZOF_J2S_H

#include <cjson/cJSON.h>

#include "project/base/zof_ctrl_types.h"
#include "project/base/zof_prj_cur.h"

ZOF_C_BEGIN

// Returns the whole file as a terminated text, to be released with Freebuff. Null on failure, without a message; `why`
// may be null, otherwise it gets the reason, null for a file that cannot be opened.
char *zof_j2s_text(const char *path, const char **why);

// From now on the text is read in place of the file at `path`, for tools that show a change before it is written. The
// text is copied; null ends it.
void zof_j2s_shadow(const char *path, const char *text, size_t size);

// A file's text and its parsed root; both null on failure.
typedef struct {
    char *content;
    cJSON *root;
} zof_rootjson_t;

// Returns the whole file as a terminated text, to be released with Freebuff. Returns null without a message for a file
// that cannot be opened, as some files are optional, and null after a message for one that is empty or unreadable.
char *GetJsonFile(const char *path);
void Freebuff(void *buf);

// Reads and parses a file. A missing file is not reported, an invalid one is.
zof_rootjson_t RootJsonGet(const char *path);

// The same for a mandatory file: a missing one is reported too.
zof_rootjson_t zof_j2s_open(const char *path);

// The same without any message, for a file whose faults are reported elsewhere.
zof_rootjson_t zof_j2s_peek(const char *path);

// Releases both and sets them to null.
void RootJsonDel(zof_rootjson_t *json);

// Parses text read from `path`, which is used only in messages. The root must be an object, and nothing may follow it;
// otherwise reports a fault and returns null. Release with cJSON_Delete.
cJSON *zof_j2s_parse(const char *path, const char *text);

// Decodes a record of a type from its JSON object, without styles; null for null, or a type above the table.
zof_pub_attr_t *zof_j2s_ctrl_create(cJSON *property, u32 type);

// Releases a record and its texts. Its styles must be gone.
void zof_j2s_attr_free(zof_pub_attr_t *record, u32 type);

// Reads `styles` of a theme file into the record, at most 255.
void zof_j2s_get_style(cJSON *root, zof_pub_attr_t *record);

// Return table and size of a control type's record; null and 0 above the last type.
const reflect_item_t *get_ctrl_struct_reflect(u32 type);
u32 zof_j2s_get_ctrl_size(u32 type);

// Decode into a zeroed or existing record, and release what was decoded. Return 0 or -1.
s32 zof_j2s_get_ctrl_struct(cJSON *json, void *record, u32 type);
s32 zof_j2s_free_ctrl_struct(void *record, u32 type);
s32 GetStyleStruct(cJSON *json, zof_style_attr_t *record);
s32 FreeStyleStruct(zof_style_attr_t *record);
s32 GetViewStruct(cJSON *json, zof_view_attr_t *record);
s32 FreeViewStruct(zof_view_attr_t *record);
s32 GetPrjStruct(cJSON *json, zof_prj_attr_t *record);
s32 FreePrjStruct(zof_prj_attr_t *record);
s32 GetHmiStruct(cJSON *json, zof_hmi_attr_t *record);

// Prints a chart's record.
s32 printfstruct(void *record);

// Returns the `view` object of a view file; null, after a message, if the file or that object is missing or invalid.
// Release with FreeViewStruct and zof_free.
zof_view_attr_t *zof_j2s_view(const char *path);

// The same; with a record it also returns the whole parsed file, for zof_j2s_walk_over or cJSON_Delete, otherwise null.
zof_view_attr_t *zof_j2s_view_open(const char *path, cJSON **root);

// Returns the project record, or null after a message. The file stays in memory for zof_j2s_view_name_list_get.
zof_prj_attr_t *zof_j2s_get_prj_attr(const char *path);

// Adds the project file's views to the list, in file order, and releases the file. Works once after each
// zof_j2s_get_prj_attr; returns -1 otherwise, and for null.
s32 zof_j2s_view_name_list_get(db_list *list);

// Returns the list of view names in the order of the project file; `arg` is unused. Returns null without memory.
db_list *zof_view_name_list_get(void *arg);

// Appends an entry, which the list then owns. Returns 0 or -1.
s32 zof_view_name_list_add(db_list *list, zof_view_name_t *entry);

ZOF_C_END

#endif
