// All control types, in the order of their numbers.
#include "control/zof_ctrl_create.h"
#include "control/zof_image.h"
#include "control/zof_input.h"
#include "control/zof_list.h"
#include "control/zof_media.h"
#include "control/zof_scrollcont.h"
#include "control/zof_sketchpad.h"
#include "control/zof_table_chart.h"
#include "control/zof_text.h"
#include "control/zof_value.h"

const zof_ctrl_class_t zof_ctrl_classes[] = {
    {ZOF_CTRL_LABEL, "label", zof_label_create, zof_label_update_txt},
    {ZOF_CTRL_BTN, "button", zof_btn_create, zof_btn_update_txt},
    {ZOF_CTRL_OBJ, "container", zof_obj_create},
    {ZOF_CTRL_IMGBTN, "image_button", zof_imgbtn_create, zof_imgbtn_update_txt},
    {ZOF_CTRL_LINE, "line", zof_line_create},
    {ZOF_CTRL_ARC, "arc", zof_arc_create, nullptr, zof_arc_del},
    {ZOF_CTRL_BAR, "bar", zof_bar_create},
    {ZOF_CTRL_SLIDER, "slider", zof_slider_create},
    {ZOF_CTRL_SW, "sw", zof_sw_create},
    {ZOF_CTRL_CB, "cb", zof_cb_create, zof_cb_update_txt},
    {ZOF_CTRL_MBOX, "mbox", zof_mbox_create, zof_mbox_update_txt, zof_mbox_del},
    {ZOF_CTRL_TILEVIEW, "tileview", zof_tileview_create},
    {ZOF_CTRL_TXTBOX, "txtbox", zof_txtbox_create},
    {ZOF_CTRL_LIST, "list", zof_list_create, zof_list_update_txt, zof_list_del},
    {ZOF_CTRL_DROPLIST, "droplist", zof_droplist_create, zof_droplist_update_txt, zof_droplist_del},
    {ZOF_CTRL_ROLLIST, "rollist", zof_rollist_create, zof_rollist_update_txt, zof_rollist_del},
    {ZOF_CTRL_CHART, "chart", zof_chart_create},
    {ZOF_CTRL_TABLE, "table", zof_table_create, nullptr, zof_table_del},
    {ZOF_CTRL_SPINBOX, "spinbox", zof_spinbox_create},
    {ZOF_CTRL_IMG, "img", zof_img_create, zof_img_update_src},
    {ZOF_CTRL_GIF, "gif", zof_gif_create},
    {ZOF_CTRL_QRCODE, "qrcode", zof_QR_code_create},
    {ZOF_CTRL_VIDEO, "video", zof_video_create},
    {ZOF_CTRL_KEYBOARD, "keyboard", zof_keyboard_create},
    {ZOF_CTRL_TILE, "tile", zof_tile_create},
    {ZOF_CTRL_SKETCHPAD, "sketchpad", zof_sketchpad_create},
    {ZOF_CTRL_BTNMATRIX, "btnmatrix", zof_btnmatrix_create, nullptr, zof_btnmatrix_del},
    {ZOF_CTRL_ANIMIMG, "animimg", zof_animimg_create},
    {ZOF_CTRL_SCROLLCONT, "scrollcont", zof_scrollcont_create},
    {ZOF_CTRL_SCROLLCONT_OBJ, "scrollcont_obj", zof_scrollcont_obj_create},
};
static_assert(sizeof(zof_ctrl_classes) / sizeof(zof_ctrl_classes[0]) == ZOF_CTRL_TYPE_COUNT);
