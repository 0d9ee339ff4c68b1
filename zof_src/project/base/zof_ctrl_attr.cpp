// The reflection tables of the control attribute records. Rows are decoded in this order.
#include "project/base/zof_ctrl_attr.h"

const reflect_item_t zof_angle_t_tbl[] = {
    CSON_INT(zof_angle_t, start_angle),
    CSON_INT(zof_angle_t, end_angle),
    CSON_END,
};

const reflect_item_t zof_range_t_tbl[] = {
    CSON_INT(zof_range_t, minValue),
    CSON_INT(zof_range_t, maxValue),
    CSON_END,
};

const reflect_item_t zof_chart_test_tbl[] = {
    CSON_INT(zof_chart_test_t, t_en),
    CSON_INT(zof_chart_test_t, color_t),
    CSON_END,
};

const reflect_item_t zof_line_disp_t_tbl[] = {
    CSON_INT(zof_line_disp_t, color),
    CSON_INT(zof_line_disp_t, width),
    CSON_INT(zof_line_disp_t, opa),
    CSON_INT(zof_line_disp_t, rounded),
    CSON_END,
};

const reflect_item_t zof_cursor_style_attr_t_tbl[] = {
    CSON_INT(zof_cursor_style_attr_t, cursor_e),
    CSON_INT(zof_cursor_style_attr_t, color),
    CSON_INT(zof_cursor_style_attr_t, zof_cursor_width),
    CSON_INT(zof_cursor_style_attr_t, zof_cursor_opa),
    CSON_INT(zof_cursor_style_attr_t, zof_cursor_animtime),
    CSON_END,
};

const reflect_item_t zof_list_btn_t_tbl[] = {
    CSON_TEXT(zof_list_btn_t, image_num),
    CSON_TEXT(zof_list_btn_t, txt),
    CSON_END,
};

const reflect_item_t zof_chart_marks_t_tbl[] = {
    CSON_INT(zof_chart_marks_t, major_tick_len),
    CSON_INT(zof_chart_marks_t, minor_tick_len),
    CSON_INT(zof_chart_marks_t, major_cnt),
    CSON_INT(zof_chart_marks_t, minor_cnt),
    CSON_INT(zof_chart_marks_t, draw_size),
    CSON_BOOL(zof_chart_marks_t, last_mark_en),
    CSON_END,
};

const reflect_item_t zof_label_attr_t_tbl[] = {
    CSON_OBJ(zof_label_attr_t, pub_t, zof_pub_attr_t_tbl),
    CSON_INT(zof_label_attr_t, auto_hight),
    CSON_INT(zof_label_attr_t, dis_mode_e),
    CSON_INT(zof_label_attr_t, animspeed),
    CSON_INT(zof_label_attr_t, align_e),
    CSON_TEXT(zof_label_attr_t, txt),
    CSON_INT(zof_label_attr_t, align_label),
    CSON_END,
};

const reflect_item_t zof_btn_attr_t_tbl[] = {
    CSON_OBJ(zof_btn_attr_t, pub_t, zof_pub_attr_t_tbl),
    CSON_INT(zof_btn_attr_t, mode),
    CSON_TEXT(zof_btn_attr_t, txt),
    CSON_END,
};

const reflect_item_t zof_obj_attr_t_tbl[] = {
    CSON_OBJ(zof_obj_attr_t, pub_t, zof_pub_attr_t_tbl),
    CSON_END,
};

const reflect_item_t zof_imgbtn_attr_t_tbl[] = {
    CSON_OBJ(zof_imgbtn_attr_t, pub_t, zof_pub_attr_t_tbl),
    CSON_INT(zof_imgbtn_attr_t, mode),
    CSON_INT(zof_imgbtn_attr_t, pos_mode_e),
    CSON_TEXT(zof_imgbtn_attr_t, txt),
    CSON_TEXT(zof_imgbtn_attr_t, img_rel),
    CSON_TEXT(zof_imgbtn_attr_t, img_pr),
    CSON_TEXT(zof_imgbtn_attr_t, img_tgl_pr),
    CSON_TEXT(zof_imgbtn_attr_t, img_tgl_rel),
    CSON_TEXT(zof_imgbtn_attr_t, img_ina),
    CSON_TEXT(zof_imgbtn_attr_t, img_tgl_ina),
    CSON_END,
};

const reflect_item_t zof_line_attr_t_tbl[] = {
    CSON_OBJ(zof_line_attr_t, pub_t, zof_pub_attr_t_tbl),
    CSON_OBJ(zof_line_attr_t, dis_t, zof_line_disp_t_tbl),
    CSON_END,
};

const reflect_item_t zof_arc_attr_t_tbl[] = {
    CSON_OBJ(zof_arc_attr_t, pub_t, zof_pub_attr_t_tbl),
    CSON_OBJ(zof_arc_attr_t, angle_t, zof_angle_t_tbl),
    CSON_INT(zof_arc_attr_t, arc_value),
    CSON_INT(zof_arc_attr_t, mode_e),
    CSON_OBJ(zof_arc_attr_t, range_t, zof_range_t_tbl),
    CSON_BOOL(zof_arc_attr_t, know_dis_en),
    CSON_TEXT(zof_arc_attr_t, arc_main_img),
    CSON_OBJ(zof_arc_attr_t, arc_t_main, zof_line_disp_t_tbl),
    CSON_TEXT(zof_arc_attr_t, arc_inc_img),
    CSON_OBJ(zof_arc_attr_t, arc_t_inc, zof_line_disp_t_tbl),
    CSON_END,
};

const reflect_item_t zof_bar_attr_t_tbl[] = {
    CSON_OBJ(zof_bar_attr_t, pub_t, zof_pub_attr_t_tbl),
    CSON_INT(zof_bar_attr_t, minValue),
    CSON_INT(zof_bar_attr_t, maxValue),
    CSON_INT(zof_bar_attr_t, anim_time),
    CSON_END,
};

const reflect_item_t zof_slider_attr_t_tbl[] = {
    CSON_OBJ(zof_slider_attr_t, pub_t, zof_pub_attr_t_tbl),
    CSON_INT(zof_slider_attr_t, minValue),
    CSON_INT(zof_slider_attr_t, maxValue),
    CSON_INT(zof_slider_attr_t, anim_time),
    CSON_END,
};

const reflect_item_t zof_sw_attr_t_tbl[] = {
    CSON_OBJ(zof_sw_attr_t, pub_t, zof_pub_attr_t_tbl),
    CSON_INT(zof_sw_attr_t, anim_time),
    CSON_END,
};

const reflect_item_t zof_cb_attr_t_tbl[] = {
    CSON_OBJ(zof_cb_attr_t, pub_t, zof_pub_attr_t_tbl),
    CSON_TEXT(zof_cb_attr_t, txt),
    CSON_END,
};

const reflect_item_t zof_mbox_attr_t_tbl[] = {
    CSON_OBJ(zof_mbox_attr_t, pub_t, zof_pub_attr_t_tbl),
    CSON_TEXT(zof_mbox_attr_t, title),
    CSON_TEXT(zof_mbox_attr_t, txt),
    CSON_INT(zof_mbox_attr_t, btn_num),
    CSON_ARR(zof_mbox_attr_t, btn_txt, stringReflectTbl, sizeof(char *), "btn_num"),
    CSON_INT(zof_mbox_attr_t, anim_time),
    CSON_END,
};

const reflect_item_t zof_tileview_attr_t_tbl[] = {
    CSON_OBJ(zof_tileview_attr_t, pub_t, zof_pub_attr_t_tbl),
    CSON_INT(zof_tileview_attr_t, anim_time),
    CSON_INT(zof_tileview_attr_t, count),
    CSON_INT(zof_tileview_attr_t, start_id),
    CSON_INT(zof_tileview_attr_t, unlimited_scroll),
    CSON_END,
};

const reflect_item_t zof_txtbox_attr_t_tbl[] = {
    CSON_OBJ(zof_txtbox_attr_t, pub_t, zof_pub_attr_t_tbl),
    CSON_INT(zof_txtbox_attr_t, line_mode),
    CSON_INT(zof_txtbox_attr_t, txt_align_e),
    CSON_INT(zof_txtbox_attr_t, holder_txt_align_e),
    CSON_TEXT(zof_txtbox_attr_t, accept_txt),
    CSON_INT(zof_txtbox_attr_t, max_txt_len),
    CSON_TEXT(zof_txtbox_attr_t, p_holder_txt),
    CSON_TEXT(zof_txtbox_attr_t, init_txt),
    CSON_BOOL(zof_txtbox_attr_t, pwd_mode_en),
    CSON_INT(zof_txtbox_attr_t, pwd_char_show_time),
    CSON_OBJ(zof_txtbox_attr_t, cursor_style_t, zof_cursor_style_attr_t_tbl),
    CSON_END,
};

const reflect_item_t zof_list_attr_t_tbl[] = {
    CSON_OBJ(zof_list_attr_t, pub_t, zof_pub_attr_t_tbl),
    CSON_INT(zof_list_attr_t, list_count),
    CSON_ARR(zof_list_attr_t, btns_t, zof_list_btn_t_tbl, sizeof(zof_list_btn_t), "list_count"),
    CSON_INT(zof_list_attr_t, anim_time),
    CSON_END,
};

const reflect_item_t zof_droplist_attr_t_tbl[] = {
    CSON_OBJ(zof_droplist_attr_t, pub_t, zof_pub_attr_t_tbl),
    CSON_TEXT(zof_droplist_attr_t, options),
    CSON_INT(zof_droplist_attr_t, dir_t),
    CSON_INT(zof_droplist_attr_t, anim_time),
    CSON_INT(zof_droplist_attr_t, txt_align_e),
    CSON_END,
};

const reflect_item_t zof_rollist_attr_t_tbl[] = {
    CSON_OBJ(zof_rollist_attr_t, pub_t, zof_pub_attr_t_tbl),
    CSON_TEXT(zof_rollist_attr_t, options),
    CSON_INT(zof_rollist_attr_t, rol_mode),
    CSON_INT(zof_rollist_attr_t, row_cnt),
    CSON_INT(zof_rollist_attr_t, anim_time),
    CSON_INT(zof_rollist_attr_t, txt_align_e),
    CSON_INT(zof_rollist_attr_t, ext_sel_width),
    CSON_END,
};

const reflect_item_t zof_chart_attr_t_tbl[] = {
    CSON_OBJ(zof_chart_attr_t, pub_t, zof_pub_attr_t_tbl),
    CSON_INT(zof_chart_attr_t, dis_type_e),
    CSON_INT(zof_chart_attr_t, dis_mode_e),
    CSON_INT(zof_chart_attr_t, y_min),
    CSON_INT(zof_chart_attr_t, y_max),
    CSON_INT(zof_chart_attr_t, x_min),
    CSON_INT(zof_chart_attr_t, x_max),
    CSON_INT(zof_chart_attr_t, point_cnt),
    CSON_INT(zof_chart_attr_t, divline_hdiv),
    CSON_INT(zof_chart_attr_t, divline_vdiv),
    CSON_OBJ(zof_chart_attr_t, x_mark, zof_chart_marks_t_tbl),
    CSON_OBJ(zof_chart_attr_t, y_mark, zof_chart_marks_t_tbl),
    CSON_OBJ(zof_chart_attr_t, chart_line_style, zof_line_disp_t_tbl),
    CSON_OBJ(zof_chart_attr_t, chart_line_tick_style, zof_line_disp_t_tbl),
    CSON_END,
};

const reflect_item_t zof_table_attr_t_tbl[] = {
    CSON_OBJ(zof_table_attr_t, pub_t, zof_pub_attr_t_tbl),
    CSON_INT(zof_table_attr_t, row_cnt),
    CSON_INT(zof_table_attr_t, col_cnt),
    CSON_INT(zof_table_attr_t, align_table),
    CSON_END,
};

const reflect_item_t zof_spinbox_attr_t_tbl[] = {
    CSON_OBJ(zof_spinbox_attr_t, pub_t, zof_pub_attr_t_tbl),
    CSON_INT(zof_spinbox_attr_t, range_min),
    CSON_INT(zof_spinbox_attr_t, range_max),
    CSON_INT(zof_spinbox_attr_t, step),
    CSON_INT(zof_spinbox_attr_t, int_cnt),
    CSON_INT(zof_spinbox_attr_t, dec_cnt),
    CSON_INT(zof_spinbox_attr_t, i_value),
    CSON_OBJ(zof_spinbox_attr_t, cursor_style, zof_cursor_style_attr_t_tbl),
    CSON_END,
};

const reflect_item_t zof_img_attr_t_tbl[] = {
    CSON_OBJ(zof_img_attr_t, pub_t, zof_pub_attr_t_tbl),
    CSON_TEXT(zof_img_attr_t, init_img),
    CSON_OBJ(zof_img_attr_t, rotate_pt, zof_point_t_tbl),
    CSON_INT(zof_img_attr_t, init_angel),
    CSON_INT(zof_img_attr_t, img_mode_e),
    CSON_END,
};

const reflect_item_t zof_gif_attr_t_tbl[] = {
    CSON_OBJ(zof_gif_attr_t, pub_t, zof_pub_attr_t_tbl),
    CSON_TEXT(zof_gif_attr_t, init_gif),
    CSON_BOOL(zof_gif_attr_t, play_en),
    CSON_INT(zof_gif_attr_t, num),
    CSON_END,
};

const reflect_item_t zof_qrcode_attr_t_tbl[] = {
    CSON_OBJ(zof_qrcode_attr_t, pub_t, zof_pub_attr_t_tbl),
    CSON_INT(zof_qrcode_attr_t, bg_color),
    CSON_INT(zof_qrcode_attr_t, color),
    CSON_TEXT(zof_qrcode_attr_t, txt),
    CSON_INT(zof_qrcode_attr_t, width),
    CSON_INT(zof_qrcode_attr_t, border_color),
    CSON_END,
};

const reflect_item_t zof_video_attr_t_tbl[] = {
    CSON_OBJ(zof_video_attr_t, pub_t, zof_pub_attr_t_tbl),
    CSON_BOOL(zof_video_attr_t, play_en),
    CSON_TEXT(zof_video_attr_t, txt),
    CSON_INT(zof_video_attr_t, volume),
    CSON_INT(zof_video_attr_t, state),
    CSON_END,
};

const reflect_item_t zof_keyboard_attr_t_tbl[] = {
    CSON_OBJ(zof_keyboard_attr_t, pub_t, zof_pub_attr_t_tbl),
    CSON_BOOL(zof_keyboard_attr_t, keyboard_spell),
    CSON_INT(zof_keyboard_attr_t, mode),
    CSON_BOOL(zof_keyboard_attr_t, popovers),
    CSON_TEXT(zof_keyboard_attr_t, cn_font_lib),
    CSON_INT(zof_keyboard_attr_t, cn_font_size),
    CSON_END,
};

const reflect_item_t zof_tile_attr_t_tbl[] = {
    CSON_OBJ(zof_tile_attr_t, pub_t, zof_pub_attr_t_tbl),
    CSON_INT(zof_tile_attr_t, row_id),
    CSON_INT(zof_tile_attr_t, col_id),
    CSON_INT(zof_tile_attr_t, dir),
    CSON_END,
};

const reflect_item_t zof_sketchpad_attr_t_tbl[] = {
    CSON_OBJ(zof_sketchpad_attr_t, pub_t, zof_pub_attr_t_tbl),
    CSON_INT(zof_sketchpad_attr_t, toolbar),
    CSON_INT(zof_sketchpad_attr_t, line_width),
    CSON_END,
};

const reflect_item_t zof_btnmatrix_attr_t_tbl[] = {
    CSON_OBJ(zof_btnmatrix_attr_t, pub_t, zof_pub_attr_t_tbl),
    CSON_INT(zof_btnmatrix_attr_t, btnmatrix_num),
    CSON_ARR(zof_btnmatrix_attr_t, btnmatrix_txt, stringReflectTbl, sizeof(char *), "btnmatrix_num"),
    CSON_END,
};

const reflect_item_t zof_animimg_attr_t_tbl[] = {
    CSON_OBJ(zof_animimg_attr_t, pub_t, zof_pub_attr_t_tbl),
    CSON_TEXT(zof_animimg_attr_t, img_dsc_t),
    CSON_INT(zof_animimg_attr_t, frame_rate),
    CSON_INT(zof_animimg_attr_t, repeat_open),
    CSON_INT(zof_animimg_attr_t, repeat_count),
    CSON_INT(zof_animimg_attr_t, start_id),
    CSON_INT(zof_animimg_attr_t, end_id),
    CSON_END,
};

const reflect_item_t zof_scrollcont_attr_t_tbl[] = {
    CSON_OBJ(zof_scrollcont_attr_t, pub_t, zof_pub_attr_t_tbl),
    CSON_INT(zof_scrollcont_attr_t, child_cnt),
    CSON_INT(zof_scrollcont_attr_t, display_count),
    CSON_INT(zof_scrollcont_attr_t, dir),
    CSON_INT(zof_scrollcont_attr_t, pad),
    CSON_INT(zof_scrollcont_attr_t, zoom),
    CSON_INT(zof_scrollcont_attr_t, zoom_mode),
    CSON_INT(zof_scrollcont_attr_t, arc_r),
    CSON_INT(zof_scrollcont_attr_t, arc_dir),
    CSON_INT(zof_scrollcont_attr_t, opa_mode),
    CSON_END,
};

const reflect_item_t zof_scrollcont_obj_attr_t_tbl[] = {
    CSON_OBJ(zof_scrollcont_obj_attr_t, pub_t, zof_pub_attr_t_tbl),
    CSON_INT(zof_scrollcont_obj_attr_t, create_num),
    CSON_END,
};
