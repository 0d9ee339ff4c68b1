// Decodes and releases single records by their tables, for the readers of whole files; results are 0 or -1.
#include "project/read/zof_j2s.h"

#include <cstring>

#include "project/base/zof_prj_up.h"
#include "project/read/zof_fault.h"
#include "zof_lib/zof_stdio.h"

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

// LVGL adds part and state to one number, so an invalid one may select another part or state.
static void selector_check(cJSON *json, const char *key, u32 value, u32 most) {
    if (value > most) {
        zof_fault_at(cJSON_GetObjectItem(json, key), "%u is not from 0 to %u", value, most);
    }
}

s32 GetStyleStruct(cJSON *json, zof_style_attr_t *record) {
    const s32 result = yes_or_no(csonJsonStr2Struct(json, record, zof_style_attr_t_tbl));
    if (record) {
        const u32 part = record->style_part;
        if (part > LV_PART_ANY || part % LV_PART_SCROLLBAR != 0) {
            zof_fault_at(cJSON_GetObjectItem(json, "style_part"), "%u has no meaning", part);
        }
        selector_check(json, "style_state", record->style_state, LV_STATE_ANY);
        selector_check(json, "style_sect", record->style_sect, 1);
    }
    return result;
}

s32 FreeStyleStruct(zof_style_attr_t *record) {
    return yes_or_no(csonFreePointer(record, zof_style_attr_t_tbl));
}

zof_pub_attr_t *zof_j2s_ctrl_create(cJSON *property, u32 type) {
    u32 size = zof_j2s_get_ctrl_size(type);
    if (!property || size == 0) {
        return nullptr;
    }
    auto *record = (zof_pub_attr_t *)zof_malloc(size);
    if (!record) {
        zof_printf("attr_t zof_malloc fail");
        return nullptr;
    }
    zof_j2s_get_ctrl_struct(property, record, type); // cannot fail: no key of a control is mandatory
    record->ctrl_type = type;
    return record;
}

void zof_j2s_attr_free(zof_pub_attr_t *record, u32 type) {
    zof_j2s_free_ctrl_struct(record, type);
    // A stale reference to the record must find zeros instead of old pointers.
    std::memset((void *)record, 0, zof_j2s_get_ctrl_size(type));
    zof_free(record);
}

void zof_j2s_get_style(cJSON *root, zof_pub_attr_t *record) {
    cJSON *styles = cJSON_GetObjectItem(root, "styles");
    s32 count = cJSON_IsArray(styles) ? cJSON_GetArraySize(styles) : 0;
    if (!record || count == 0) {
        return;
    }
    if (count > UINT8_MAX) {
        zof_fault_at(styles, "%d of them, only the first %d count", count, UINT8_MAX);
        count = UINT8_MAX;
    }
    auto **list = (zof_style_attr_t **)(zof_malloc((size_t)count * sizeof(zof_style_attr_t *)));
    for (cJSON *json = styles->child; list && json && record->style_num < count; json = json->next) {
        auto *style = (zof_style_attr_t *)(zof_malloc(sizeof(zof_style_attr_t)));
        if (!style) {
            break;
        }
        GetStyleStruct(json, style);
        list[record->style_num++] = style;
    }
    record->style_list = list;
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

s32 printfstruct(void *record) {
    return yes_or_no(csonPrintProperty(record, get_ctrl_struct_reflect(ZOF_CTRL_CHART)));
}
