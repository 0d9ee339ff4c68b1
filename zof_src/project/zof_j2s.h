// From project files to records: reading, the cursor over a view's controls, and releasing what was read.
#ifndef ZOF_J2S_H
#define ZOF_J2S_H

#include <cjson/cJSON.h>

#include "project/zof_ctrl_attr.h"

ZOF_C_BEGIN

typedef struct {
    char *content;
    cJSON *root;
} zof_rootjson_t;

char *GetJsonFile(const char *path);
void Freebuff(void *buf);
zof_rootjson_t RootJsonGet(const char *path);
void RootJsonDel(zof_rootjson_t *json);

// Parses text read from `path`; on failure prints one line with path, line and column, and gives null.
cJSON *zof_j2s_parse(const char *path, const char *text);

s32 zof_j2s_ctrl_start(const char *path);
s32 zof_j2s_ctrl_get_para(u32 *id, u32 *pub);
zof_pub_attr_t *zof_j2s_ctrl_get(void);
void zof_j2s_ctrl_run_next(void);
void zof_j2s_ctrl_end(void);
void zof_j2s_ctrl_init(void);
zof_pub_attr_t *zof_j2s_ctrl_create(cJSON *property, u32 type);
void zof_j2s_ctrl_delete(zof_pub_attr_t *record, u32 type);
void zof_j2s_get_style(cJSON *root, zof_pub_attr_t *record);

const reflect_item_t *get_ctrl_struct_reflect(u32 type);
u32 zof_j2s_get_ctrl_size(u32 type);
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
s32 printfstruct(void *record);

zof_view_attr_t *zof_j2s_view(const char *path);
zof_prj_attr_t *zof_j2s_get_prj_attr(const char *path);
s32 zof_j2s_view_name_list_get(db_list *list);

ZOF_C_END

#endif
