// Records of the project's files: project, host protocol, view, and the head and styles that all controls share.
// A field's name is its JSON key; fields without a key are marked. A record owns its strings.
#ifndef ZOF_PRJ_ATTR_H
#define ZOF_PRJ_ATTR_H

#include "drv/zof_drv_uart.h"
#include "lvgl.h"
#include "project/base/zof_event.h"
#include "project/base/zof_prj_names.h"
#include "zof_lib/zof_cson.h"
#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

typedef struct {
    u16 off_x, off_y;
    u8 dis_mode;
} zof_prj_dis_t;

typedef struct {
    u8 type;
    u16 time;
    char *sound;
    u8 volum;
} zof_prj_tone_t;

typedef struct {
    u8 th_en;
    u16 long_press_time;
} zof_prj_touch_t;

typedef struct {
    zof_prj_dis_t dis_t;
    zof_prj_tone_t tone_t;
    zof_prj_touch_t touch_t;
} zof_prj_hw_attr_t;

typedef struct {
    u16 stdby_view;
    u16 stdby_time;
    u8 stdby_bright;
    u16 off_time;
    u8 off_bright;
    u8 on_bright;
    u16 on_view;
} zof_func_standby_t;

typedef struct {
    zof_func_standby_t standby_t;
} zof_func_t;

typedef struct {
    char *p_name;
    s32 width, height;
    char *language;
    u32 start_page;
    u8 cacheImg;
    char *app_ver;
    char *comp_time;
    u8 init_allview;
    u32 rotate;
    u16 show_en;
    u16 win_mem;
    u8 allow_outside;
    zof_prj_hw_attr_t hw_t;
    zof_func_t func_t;
} zof_prj_attr_t;

typedef struct {
    u8 hmi_en;
    zof_uart_cfg_t uart;
    u8 head_fh, head_fl;
    u16 buffsize;
    u16 timeout;
    u8 resend_en;
    u8 crc_en;
    u8 event_en;
    u8 load_en;
} zof_hmi_attr_t;

typedef struct {
    char *v_name;
    u32 v_id;
    u8 bg_scale;
    u32 bg_color;
    char *bg_image;
    u32 layer;
    zof_bool model_en;
} zof_view_attr_t;

typedef struct {
    u32 mode_e;
    u32 dir_e;
    u32 chain_e;
    zof_bool momentum, elastic, scroll_one;
} zof_scrollbar_t;

typedef struct {
    u32 color, width, part;
    u8 opa;
} zof_border_t;

typedef struct {
    u32 color, width;
    u8 type;
} zof_shadow_t;

typedef struct {
    u32 top, bottom, left, right, inner;
} zof_padding_t;

typedef struct {
    u32 main_color, grad_color, grad_dir_e, radius;
    u8 opa;
    zof_border_t border;
    zof_shadow_t shadow;
    zof_padding_t padding;
} zof_body_dis_t;

typedef struct {
    u32 color, sel_color;
    char *font_lib;
    u32 font_size, char_space, line_space;
    u8 opa;
} zof_text_dis_t;

typedef struct {
    char *bg_img;
} zof_img_dis_t;

typedef struct {
    u32 style_part, style_state, style_sect;
    zof_body_dis_t body_t;
    zof_text_dis_t txt_t;
    zof_img_dis_t img_t;
    lv_style_t *lv_style; // no key: created from this record, null until then
} zof_style_attr_t;

// The common head of all control attribute records; its key is `pub_t`.
typedef struct {
    char *name;
    u16 view_id; // no key: the owning view
    u16 id;
    s32 parent_id;
    zof_bool pub;
    u32 ctrl_type;
    zof_point_t pt;
    zof_size_t size;
    s32 click_area;
    u32 t_mode;
    zof_scrollbar_t scrollbar_t;
    zof_bool hidden;
    u8 alpha;
    u8 style_num;                     // no key
    zof_style_attr_t **style_list;    // no key
    char *on;                         // no key: lines of an event's name and an action; null for none
    const struct zof_look *look;      // no key: where the styles come from; null: from the theme of the type
    zof_ctrl_event_fn zof_ctrl_event; // no key: from the view's control table
} zof_pub_attr_t;

// An entry of `controls`, as far as it is not read by hand.
typedef struct {
    u32 type;
} zof_entry_t;

// The rows of what a style is for.
#define ZOF_STYLE_KEYS                                               \
    CSON_ENUM(zof_style_attr_t, style_part, 0, zof_part_names),      \
        CSON_SUM(zof_style_attr_t, style_state, 0, zof_state_names), \
        CSON_ENUM(zof_style_attr_t, style_sect, 0, zof_sect_names)

// The first rows of each control type's table: the common keys. Styles are decoded separately, over those of the theme.
#define ZOF_CTRL_KEYS(T) CSON_OBJ(T, pub_t, zof_pub_attr_t_tbl), CSON_KNOWN("styles")

extern const reflect_item_t zof_prj_attr_t_tbl[];
extern const reflect_item_t zof_prj_hw_attr_t_tbl[];
extern const reflect_item_t zof_prj_dis_t_tbl[];
extern const reflect_item_t zof_prj_tone_t_tbl[];
extern const reflect_item_t zof_prj_touch_t_tbl[];
extern const reflect_item_t zof_func_t_tbl[];
extern const reflect_item_t zof_func_standby_t_tbl[];
extern const reflect_item_t zof_hmi_attr_t_tbl[];
extern const reflect_item_t zof_uart_cfg_t_tbl[];
extern const reflect_item_t zof_view_attr_t_tbl[];
extern const reflect_item_t zof_pub_attr_t_tbl[];
extern const reflect_item_t zof_scrollbar_t_tbl[];
extern const reflect_item_t zof_point_t_tbl[];
extern const reflect_item_t zof_size_t_tbl[];
extern const reflect_item_t zof_style_attr_t_tbl[];
extern const reflect_item_t zof_body_dis_t_tbl[];
extern const reflect_item_t zof_border_t_tbl[];
extern const reflect_item_t zof_shadow_t_tbl[];
extern const reflect_item_t zof_padding_t_tbl[];
extern const reflect_item_t zof_text_dis_t_tbl[];
extern const reflect_item_t zof_img_dis_t_tbl[];
extern const reflect_item_t zof_entry_t_tbl[];

ZOF_C_END

#endif
