// One attribute record per control type: the keys of a control's `property` object in a view file, and of the root of a
// theme file. A field's name is its JSON key; fields without a key are marked. A record owns its strings.
#ifndef ZOF_CTRL_ATTR_H
#define ZOF_CTRL_ATTR_H

#include "project/base/zof_prj_attr.h"
#include "zof_lib/dblist/db_list.h"

ZOF_C_BEGIN

typedef enum {
    ZOF_CTRL_LABEL,
    ZOF_CTRL_BTN,
    ZOF_CTRL_OBJ,
    ZOF_CTRL_IMGBTN,
    ZOF_CTRL_LINE,
    ZOF_CTRL_ARC,
    ZOF_CTRL_BAR,
    ZOF_CTRL_SLIDER,
    ZOF_CTRL_SW,
    ZOF_CTRL_CB,
    ZOF_CTRL_MBOX,
    ZOF_CTRL_TILEVIEW,
    ZOF_CTRL_TXTBOX,
    ZOF_CTRL_LIST,
    ZOF_CTRL_DROPLIST,
    ZOF_CTRL_ROLLIST,
    ZOF_CTRL_CHART,
    ZOF_CTRL_TABLE,
    ZOF_CTRL_SPINBOX,
    ZOF_CTRL_IMG,
    ZOF_CTRL_GIF,
    ZOF_CTRL_QRCODE,
    ZOF_CTRL_VIDEO,
    ZOF_CTRL_KEYBOARD,
    ZOF_CTRL_TILE,
    ZOF_CTRL_SKETCHPAD,
    ZOF_CTRL_BTNMATRIX,
    ZOF_CTRL_ANIMIMG,
    ZOF_CTRL_SCROLLCONT,
    ZOF_CTRL_SCROLLCONT_OBJ,
    ZOF_CTRL_TYPE_COUNT
} zof_ctrl_type_e;

typedef struct {
    u32 start_angle, end_angle;
} zof_angle_t;

typedef struct {
    s16 minValue, maxValue;
} zof_range_t;

typedef struct {
    u32 t_en, color_t;
} zof_chart_test_t;

typedef struct {
    u32 color;
    u32 width;
    u8 opa;
    u8 rounded;
} zof_line_disp_t;

typedef struct {
    u32 cursor_e;
    u32 color;
    u8 zof_cursor_width;
    u8 zof_cursor_opa;
    u32 zof_cursor_animtime;
} zof_cursor_style_attr_t;

typedef struct {
    char *image_num;
    char *txt;
} zof_list_btn_t;

// The texts of a list button as they were set, possibly language keys; both may be null.
typedef struct {
    char *image;
    char *txt;
} zof_list_item_t;

typedef struct {
    u8 major_tick_len;
    u8 minor_tick_len;
    u8 major_cnt;
    u8 minor_cnt;
    u8 draw_size;
    zof_bool last_mark_en;
} zof_chart_marks_t;

typedef struct {
    zof_pub_attr_t pub_t;
    u8 auto_hight;
    u32 dis_mode_e;
    u16 animspeed;
    u32 align_e;
    char *txt;
    u32 align_label;
    s32 txt_y; // no key: distance of the text from the top in pixels
} zof_label_attr_t;

typedef struct {
    zof_pub_attr_t pub_t;
    u8 mode;
    char *txt;
} zof_btn_attr_t;

typedef struct {
    zof_pub_attr_t pub_t;
} zof_obj_attr_t;

typedef struct {
    zof_pub_attr_t pub_t;
    u8 mode;
    u32 pos_mode_e;
    char *txt;
    char *img_rel;
    char *img_pr;
    char *img_tgl_pr;
    char *img_tgl_rel;
    char *img_ina;
    char *img_tgl_ina;
} zof_imgbtn_attr_t;

typedef struct {
    zof_pub_attr_t pub_t;
    zof_line_disp_t dis_t;
} zof_line_attr_t;

typedef struct {
    zof_pub_attr_t pub_t;
    zof_angle_t angle_t;
    s32 arc_value;
    u32 mode_e;
    zof_range_t range_t;
    zof_bool know_dis_en;
    char *arc_main_img;
    zof_line_disp_t arc_t_main;
    char *arc_inc_img;
    zof_line_disp_t arc_t_inc;
    char *main_img_path; // no key: copies of the resolved paths, which the style points to
    char *inc_img_path;  // no key
} zof_arc_attr_t;

typedef struct {
    zof_pub_attr_t pub_t;
    s16 minValue;
    s16 maxValue;
    u16 anim_time;
} zof_bar_attr_t;

typedef struct {
    zof_pub_attr_t pub_t;
    s16 minValue;
    s16 maxValue;
    u16 anim_time;
} zof_slider_attr_t;

typedef struct {
    zof_pub_attr_t pub_t;
    u16 anim_time;
} zof_sw_attr_t;

typedef struct {
    zof_pub_attr_t pub_t;
    char *txt;
} zof_cb_attr_t;

typedef struct {
    zof_pub_attr_t pub_t;
    char *title;
    char *txt;
    u32 btn_num;
    char **btn_txt;
    u32 anim_time;
    char **btn_map; // no key: the button map as shown
} zof_mbox_attr_t;

typedef struct {
    zof_pub_attr_t pub_t;
    u16 anim_time;
    u8 count;
    u8 start_id;
    u8 unlimited_scroll;
    s16 limit_start, limit_end; // no key: scroll limits of the endless view
} zof_tileview_attr_t;

typedef struct {
    zof_pub_attr_t pub_t;
    u32 line_mode;
    u32 txt_align_e;
    u32 holder_txt_align_e;
    char *accept_txt;
    u16 max_txt_len;
    char *p_holder_txt;
    char *init_txt;
    zof_bool pwd_mode_en;
    u16 pwd_char_show_time;
    zof_cursor_style_attr_t cursor_style_t;
} zof_txtbox_attr_t;

typedef struct {
    zof_pub_attr_t pub_t;
    u16 list_count;
    zof_list_btn_t *btns_t;
    u16 anim_time;
    db_list *opt_list; // no key: of zof_list_item_t, one per button
} zof_list_attr_t;

typedef struct {
    zof_pub_attr_t pub_t;
    char *options;
    u32 dir_t;
    u16 anim_time;
    u32 txt_align_e;
    db_list *opt_list; // no key: of the texts as they were set; `options` becomes the displayed text
} zof_droplist_attr_t;

typedef struct {
    zof_pub_attr_t pub_t;
    char *options;
    u32 rol_mode;
    u8 row_cnt;
    u8 anim_time;
    u32 txt_align_e;
    u32 ext_sel_width;
    db_list *opt_list; // no key: as in a drop list
} zof_rollist_attr_t;

typedef struct {
    zof_pub_attr_t pub_t;
    u32 dis_type_e;
    u32 dis_mode_e;
    s32 y_min;
    s32 y_max;
    s32 x_min;
    s32 x_max;
    u16 point_cnt;
    u16 divline_hdiv;
    u16 divline_vdiv;
    zof_chart_marks_t x_mark;
    zof_chart_marks_t y_mark;
    zof_line_disp_t chart_line_style;
    zof_line_disp_t chart_line_tick_style;
} zof_chart_attr_t;

typedef struct {
    zof_pub_attr_t pub_t;
    u16 row_cnt;
    u16 col_cnt;
    u32 align_table;
    u32 *cell_colors;  // no key: one 0xRRGGBB per cell, row by row
    u32 default_color; // no key: colour of all other cells
} zof_table_attr_t;

typedef struct {
    zof_pub_attr_t pub_t;
    s32 range_min;
    s32 range_max;
    u32 step;
    u8 int_cnt;
    u8 dec_cnt;
    s32 i_value;
    zof_cursor_style_attr_t cursor_style;
} zof_spinbox_attr_t;

typedef struct {
    zof_pub_attr_t pub_t;
    char *init_img;
    zof_point_t rotate_pt;
    s16 init_angel;
    u32 img_mode_e;
} zof_img_attr_t;

typedef struct {
    zof_pub_attr_t pub_t;
    char *init_gif;
    zof_bool play_en;
    u16 num;
    u16 plays; // no key: number of plays after a restart, 0 for endless
} zof_gif_attr_t;

typedef struct {
    zof_pub_attr_t pub_t;
    u32 bg_color;
    u32 color;
    char *txt;
    u32 width;
    u32 border_color;
} zof_qrcode_attr_t;

typedef struct {
    zof_pub_attr_t pub_t;
    zof_bool play_en;
    char *txt;
    u8 volume;
    u32 state;
} zof_video_attr_t;

typedef struct {
    zof_pub_attr_t pub_t;
    zof_bool keyboard_spell;
    u32 mode;
    zof_bool popovers;
    char *cn_font_lib;
    u32 cn_font_size;
    lv_obj_t *pinyin; // no key: LVGL's input method, null after its deletion
} zof_keyboard_attr_t;

typedef struct {
    zof_pub_attr_t pub_t;
    u8 row_id;
    u8 col_id;
    u8 dir;
} zof_tile_attr_t;

typedef struct {
    zof_pub_attr_t pub_t;
    u8 toolbar;
    u8 line_width;
} zof_sketchpad_attr_t;

typedef struct {
    zof_pub_attr_t pub_t;
    u16 btnmatrix_num;
    char **btnmatrix_txt;
    char **txt_map; // no key: the button map as shown
} zof_btnmatrix_attr_t;

typedef struct {
    zof_pub_attr_t pub_t;
    char *img_dsc_t;
    u32 frame_rate;
    u8 repeat_open;
    u16 repeat_count;
    u16 start_id;
    u16 end_id;
    u32 play_mark; // no key: 2 while paused by the program, else 0
} zof_animimg_attr_t;

typedef struct {
    zof_pub_attr_t pub_t;
    u16 child_cnt;
    u8 display_count;
    u8 dir;
    u16 pad;
    u8 zoom;
    u16 arc_r;
    u8 arc_dir;
    u8 zoom_mode;
    u8 opa_mode;
    u8 need_init; // no key: 1 until the wheel has its initial position
} zof_scrollcont_attr_t;

typedef struct {
    zof_pub_attr_t pub_t;
    u16 create_num;
} zof_scrollcont_obj_attr_t;

extern const reflect_item_t zof_angle_t_tbl[];
extern const reflect_item_t zof_range_t_tbl[];
extern const reflect_item_t zof_chart_test_tbl[];
extern const reflect_item_t zof_line_disp_t_tbl[];
extern const reflect_item_t zof_cursor_style_attr_t_tbl[];
extern const reflect_item_t zof_list_btn_t_tbl[];
extern const reflect_item_t zof_chart_marks_t_tbl[];
extern const reflect_item_t zof_label_attr_t_tbl[];
extern const reflect_item_t zof_btn_attr_t_tbl[];
extern const reflect_item_t zof_obj_attr_t_tbl[];
extern const reflect_item_t zof_imgbtn_attr_t_tbl[];
extern const reflect_item_t zof_line_attr_t_tbl[];
extern const reflect_item_t zof_arc_attr_t_tbl[];
extern const reflect_item_t zof_bar_attr_t_tbl[];
extern const reflect_item_t zof_slider_attr_t_tbl[];
extern const reflect_item_t zof_sw_attr_t_tbl[];
extern const reflect_item_t zof_cb_attr_t_tbl[];
extern const reflect_item_t zof_mbox_attr_t_tbl[];
extern const reflect_item_t zof_tileview_attr_t_tbl[];
extern const reflect_item_t zof_txtbox_attr_t_tbl[];
extern const reflect_item_t zof_list_attr_t_tbl[];
extern const reflect_item_t zof_droplist_attr_t_tbl[];
extern const reflect_item_t zof_rollist_attr_t_tbl[];
extern const reflect_item_t zof_chart_attr_t_tbl[];
extern const reflect_item_t zof_table_attr_t_tbl[];
extern const reflect_item_t zof_spinbox_attr_t_tbl[];
extern const reflect_item_t zof_img_attr_t_tbl[];
extern const reflect_item_t zof_gif_attr_t_tbl[];
extern const reflect_item_t zof_qrcode_attr_t_tbl[];
extern const reflect_item_t zof_video_attr_t_tbl[];
extern const reflect_item_t zof_keyboard_attr_t_tbl[];
extern const reflect_item_t zof_tile_attr_t_tbl[];
extern const reflect_item_t zof_sketchpad_attr_t_tbl[];
extern const reflect_item_t zof_btnmatrix_attr_t_tbl[];
extern const reflect_item_t zof_animimg_attr_t_tbl[];
extern const reflect_item_t zof_scrollcont_attr_t_tbl[];
extern const reflect_item_t zof_scrollcont_obj_attr_t_tbl[];

ZOF_C_END

#endif
