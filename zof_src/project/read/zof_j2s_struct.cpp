// Decodes and releases single records by their tables, for the readers of whole files; results are 0 or -1.
#include "project/read/zof_j2s.h"

typedef struct {
    u32 type;
    const reflect_item_t *table;
    u32 size;
} ctrl_struct_t;

static const ctrl_struct_t ctrl_structs[] = {
    {ZOF_CTRL_LABEL, zof_label_attr_t_tbl, sizeof(zof_label_attr_t)},
    {ZOF_CTRL_BTN, zof_btn_attr_t_tbl, sizeof(zof_btn_attr_t)},
    {ZOF_CTRL_OBJ, zof_obj_attr_t_tbl, sizeof(zof_obj_attr_t)},
    {ZOF_CTRL_IMGBTN, zof_imgbtn_attr_t_tbl, sizeof(zof_imgbtn_attr_t)},
    {ZOF_CTRL_LINE, zof_line_attr_t_tbl, sizeof(zof_line_attr_t)},
    {ZOF_CTRL_ARC, zof_arc_attr_t_tbl, sizeof(zof_arc_attr_t)},
    {ZOF_CTRL_BAR, zof_bar_attr_t_tbl, sizeof(zof_bar_attr_t)},
    {ZOF_CTRL_SLIDER, zof_slider_attr_t_tbl, sizeof(zof_slider_attr_t)},
    {ZOF_CTRL_SW, zof_sw_attr_t_tbl, sizeof(zof_sw_attr_t)},
    {ZOF_CTRL_CB, zof_cb_attr_t_tbl, sizeof(zof_cb_attr_t)},
    {ZOF_CTRL_MBOX, zof_mbox_attr_t_tbl, sizeof(zof_mbox_attr_t)},
    {ZOF_CTRL_TILEVIEW, zof_tileview_attr_t_tbl, sizeof(zof_tileview_attr_t)},
    {ZOF_CTRL_TXTBOX, zof_txtbox_attr_t_tbl, sizeof(zof_txtbox_attr_t)},
    {ZOF_CTRL_LIST, zof_list_attr_t_tbl, sizeof(zof_list_attr_t)},
    {ZOF_CTRL_DROPLIST, zof_droplist_attr_t_tbl, sizeof(zof_droplist_attr_t)},
    {ZOF_CTRL_ROLLIST, zof_rollist_attr_t_tbl, sizeof(zof_rollist_attr_t)},
    {ZOF_CTRL_CHART, zof_chart_attr_t_tbl, sizeof(zof_chart_attr_t)},
    {ZOF_CTRL_TABLE, zof_table_attr_t_tbl, sizeof(zof_table_attr_t)},
    {ZOF_CTRL_SPINBOX, zof_spinbox_attr_t_tbl, sizeof(zof_spinbox_attr_t)},
    {ZOF_CTRL_IMG, zof_img_attr_t_tbl, sizeof(zof_img_attr_t)},
    {ZOF_CTRL_GIF, zof_gif_attr_t_tbl, sizeof(zof_gif_attr_t)},
    {ZOF_CTRL_QRCODE, zof_qrcode_attr_t_tbl, sizeof(zof_qrcode_attr_t)},
    {ZOF_CTRL_VIDEO, zof_video_attr_t_tbl, sizeof(zof_video_attr_t)},
    {ZOF_CTRL_KEYBOARD, zof_keyboard_attr_t_tbl, sizeof(zof_keyboard_attr_t)},
    {ZOF_CTRL_TILE, zof_tile_attr_t_tbl, sizeof(zof_tile_attr_t)},
    {ZOF_CTRL_SKETCHPAD, zof_sketchpad_attr_t_tbl, sizeof(zof_sketchpad_attr_t)},
    {ZOF_CTRL_BTNMATRIX, zof_btnmatrix_attr_t_tbl, sizeof(zof_btnmatrix_attr_t)},
    {ZOF_CTRL_ANIMIMG, zof_animimg_attr_t_tbl, sizeof(zof_animimg_attr_t)},
    {ZOF_CTRL_SCROLLCONT, zof_scrollcont_attr_t_tbl, sizeof(zof_scrollcont_attr_t)},
    {ZOF_CTRL_SCROLLCONT_OBJ, zof_scrollcont_obj_attr_t_tbl, sizeof(zof_scrollcont_obj_attr_t)},
};
static_assert(sizeof(ctrl_structs) / sizeof(ctrl_structs[0]) == ZOF_CTRL_TYPE_COUNT, "one row per control type");

static s32 yes_or_no(s32 result) {
    return result == CSON_OK ? 0 : -1;
}

const reflect_item_t *get_ctrl_struct_reflect(u32 type) {
    return type < ZOF_CTRL_TYPE_COUNT ? ctrl_structs[type].table : nullptr;
}

u32 zof_j2s_get_ctrl_size(u32 type) {
    return type < ZOF_CTRL_TYPE_COUNT ? ctrl_structs[type].size : 0;
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
    return yes_or_no(csonPrintProperty(record, zof_chart_attr_t_tbl));
}
