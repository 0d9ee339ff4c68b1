// Decodes and releases single records by their tables, for the readers of whole files; results are 0 or -1.
#include "project/read/zof_j2s.h"

#include "project/base/zof_prj_up.h"

static s32 yes_or_no(s32 result) {
    return result == CSON_OK ? 0 : -1;
}

const reflect_item_t *get_ctrl_struct_reflect(u32 type) {
    const zof_ctrl_class_t *row = zof_prj_up.ctrl_class(type);
    return row ? row->attr : nullptr;
}

u32 zof_j2s_get_ctrl_size(u32 type) {
    const zof_ctrl_class_t *row = zof_prj_up.ctrl_class(type);
    return row ? row->attr_size : 0;
}

s32 zof_j2s_get_ctrl_struct(cJSON *json, void *record, u32 type) {
    return yes_or_no(csonJsonStr2Struct(json, record, get_ctrl_struct_reflect(type)));
}

s32 zof_j2s_free_ctrl_struct(void *record, u32 type) {
    return yes_or_no(csonFreePointer(record, get_ctrl_struct_reflect(type)));
}

s32 GetStyleStruct(cJSON *json, zof_style_attr_t *record) {
    return yes_or_no(csonJsonStr2Struct(json, record, zof_style_attr_t_tbl));
}

s32 FreeStyleStruct(zof_style_attr_t *record) {
    return yes_or_no(csonFreePointer(record, zof_style_attr_t_tbl));
}

s32 GetViewStruct(cJSON *json, zof_view_attr_t *record) {
    return yes_or_no(csonJsonStr2Struct(json, record, zof_view_attr_t_tbl));
}

s32 FreeViewStruct(zof_view_attr_t *record) {
    return yes_or_no(csonFreePointer(record, zof_view_attr_t_tbl));
}

s32 GetPrjStruct(cJSON *json, zof_prj_attr_t *record) {
    return yes_or_no(csonJsonStr2Struct(json, record, zof_prj_attr_t_tbl));
}

s32 FreePrjStruct(zof_prj_attr_t *record) {
    return yes_or_no(csonFreePointer(record, zof_prj_attr_t_tbl));
}

s32 GetHmiStruct(cJSON *json, zof_hmi_attr_t *record) {
    return yes_or_no(csonJsonStr2Struct(json, record, zof_hmi_attr_t_tbl));
}

s32 FreeHmiStruct(zof_hmi_attr_t *record) {
    return yes_or_no(csonFreePointer(record, zof_hmi_attr_t_tbl));
}

s32 printfstruct(void *record) {
    return yes_or_no(csonPrintProperty(record, get_ctrl_struct_reflect(ZOF_CTRL_CHART)));
}
