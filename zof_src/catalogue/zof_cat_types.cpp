// The control types: a description of each, and all its properties that are not keys.
#include "catalogue/zof_cat_in.h"

// Parts that can be styled.
enum {
    MAIN = 1 << (LV_PART_MAIN >> 16),
    SCROLLBAR = 1 << (LV_PART_SCROLLBAR >> 16),
    INDICATOR = 1 << (LV_PART_INDICATOR >> 16),
    KNOB = 1 << (LV_PART_KNOB >> 16),
    SELECTION = 1 << (LV_PART_SELECTED >> 16),
    ITEMS = 1 << (LV_PART_ITEMS >> 16),
    TICKS = 1 << (LV_PART_TICKS >> 16),
    CURSOR = 1 << (LV_PART_CURSOR >> 16),
    PLACEHOLDER = 1 << (LV_PART_CUSTOM_FIRST >> 16),
};

// States. A program can set the user states, and the states of input devices that a panel lacks, on any control.
enum {
    PASSIVE = LV_STATE_ANY & ~LV_STATE_CHECKED,
    CHECKABLE = LV_STATE_ANY,
};

// Events that reach the program; touch events come only from a control that accepts touches.
#define TOUCH_EVENTS                                                                                               \
    "ZOF_EVENT_CLICKED", "ZOF_EVENT_PRESSED", "ZOF_EVENT_PRESSING", "ZOF_EVENT_PRESS_LOST", "ZOF_EVENT_RELEASED",  \
        "ZOF_EVENT_SHORT_CLICKED", "ZOF_EVENT_LONG_PRESSED", "ZOF_EVENT_LONG_PRESSED_REPEAT", "ZOF_EVENT_GESTURE", \
        "ZOF_EVENT_FOCUSED", "ZOF_EVENT_DEFOCUSED"
#define SCROLL_EVENTS                                                                                   \
    "ZOF_EVENT_SCROLL", "ZOF_EVENT_SCROLL_BEGIN", "ZOF_EVENT_SCROLL_END", "ZOF_EVENT_SCROLL_END_INDEV", \
        "ZOF_EVENT_SCROLL_END_ANIM", "ZOF_EVENT_SCROLL_END_ANIM_OFF"

static const char *const touch_events[] = {TOUCH_EVENTS, nullptr};
static const char *const value_events[] = {"ZOF_EVENT_VALUE_CHANGED", TOUCH_EVENTS, nullptr};
static const char *const scroll_events[] = {TOUCH_EVENTS, SCROLL_EVENTS, nullptr};
static const char *const page_events[] = {"ZOF_EVENT_VALUE_CHANGED", SCROLL_EVENTS, TOUCH_EVENTS, nullptr};

static const char *const label_calls[] = {
    "zof_label_set_txt",      "zof_label_set_txt_color", "zof_label_get_text",       "zof_label_set_align",
    "zof_label_set_txt_size", "zof_label_set_dis_mode",  "zof_label_set_anim_speed", nullptr};
static const char *const btn_calls[] = {"zof_btn_set_txt",
                                        "zof_btn_set_state",
                                        "zof_btn_get_state",
                                        "zof_btn_set_txt_color",
                                        "zof_btn_set_txt_size",
                                        "zof_btn_set_mode",
                                        nullptr};
static const char *const imgbtn_calls[] = {"zof_imgbtn_set_txt",
                                           "zof_imgbtn_set_mode",
                                           "zof_imgbtn_get_state",
                                           "zof_imgbtn_set_txt_color",
                                           "zof_imgbtn_set_txt_size",
                                           "zof_imgbtn_set_image",
                                           nullptr};
static const char *const line_calls[] = {"zof_line_set_points", "zof_line_set_dash", "zof_line_set_dis", nullptr};
static const char *const arc_calls[] = {
    "zof_arc_set_value", "zof_arc_get_value",    "zof_arc_set_value_range", "zof_arc_set_dis",
    "zof_arc_set_knob",  "zof_arc_set_rotation", "zof_arc_set_angles",      nullptr};
static const char *const bar_calls[] = {"zof_bar_set_value", "zof_bar_get_value", "zof_bar_set_range",
                                        "zof_bar_set_bar_color", nullptr};
static const char *const slider_calls[] = {"zof_slider_set_value", "zof_slider_get_value", "zof_slider_set_range",
                                           "zof_slider_set_bar_color", nullptr};
static const char *const sw_calls[] = {"zof_sw_set_state", "zof_sw_get_state", nullptr};
static const char *const cb_calls[] = {"zof_cb_set_checked", "zof_cb_is_checked",  "zof_cb_set_txt",
                                       "zof_cb_set_disable", "zof_cb_is_inactive", nullptr};
static const char *const mbox_calls[] = {"zof_mbox_s_open",
                                         "zof_mbox_s_close",
                                         "zof_mbox_get_clicked_btn_num",
                                         "zof_mbox_set_txt",
                                         "zof_title_set_txt",
                                         "zof_mbox_start_auto_close",
                                         nullptr};
static const char *const tileview_calls[] = {"zof_tileview_set_tile_id", "zof_tileview_get_tile_id", nullptr};
static const char *const txtbox_calls[] = {"zof_txtbox_get_text",        "zof_txtbox_set_text",
                                           "zof_txtbox_add_txt",         "zof_txtbox_add_char",
                                           "zof_txtbox_del_char",        "zof_txtbox_del_char_forward",
                                           "zof_txtbox_pwd_mode",        "zof_txtbox_cursor_move",
                                           "zof_txtbox_set_cursor_type", nullptr};
static const char *const list_calls[] = {
    "zof_list_add_btn",         "zof_list_get_select_index", "zof_list_get_index_str",
    "zof_list_del_btn",         "zof_list_remove_all",       "zof_list_get_index_btn",
    "zof_list_get_index_label", "zof_list_set_select_index", "zof_list_set_index_str",
    "zof_list_focus",           "zof_list_add_btns_style",   nullptr};
static const char *const droplist_calls[] = {"zof_droplist_get_selected", "zof_droplist_get_selected_str",
                                             "zof_droplist_set_selected", "zof_droplist_set_options",
                                             "zof_droplist_add_option",   "zof_droplist_modify_option",
                                             "zof_droplist_del_option",   "zof_droplist_open",
                                             "zof_droplist_close",        nullptr};
static const char *const rollist_calls[] = {
    "zof_rollist_get_selected",  "zof_rollist_get_selected_str", "zof_rollist_set_selected",
    "zof_rollist_set_options",   "zof_rollist_set_line_space",   "zof_rollist_add_option",
    "zof_rollist_modify_option", "zof_rollist_del_option",       nullptr};
static const char *const chart_calls[] = {"zof_chart_add_series",
                                          "zof_chart_set_next",
                                          "zof_chart_set_points",
                                          "zof_chart_series_remove",
                                          "zof_chart_set_next_value2",
                                          "zof_chart_set_value_by_id",
                                          "zof_chart_refresh",
                                          "zof_chart_get_x_start_point",
                                          "zof_chart_set_line_width",
                                          "zof_chart_set_range_auto",
                                          nullptr};
static const char *const table_calls[] = {"zof_table_set_cell_value",
                                          "zof_table_get_cell_value",
                                          "zof_table_get_selected_cell",
                                          "zof_table_set_col_width",
                                          "zof_table_set_cell_merge_right",
                                          "zof_table_set_cell_wrap",
                                          "zof_table_set_value_changed_color",
                                          "zof_table_get_cell_color",
                                          "zof_table_get_row_cnt",
                                          "zof_table_get_col_cnt",
                                          nullptr};
static const char *const spinbox_calls[] = {"zof_spinbox_get_value",
                                            "zof_spinbox_set_value",
                                            "zof_spinbox_increment",
                                            "zof_spinbox_decrement",
                                            "zof_spinbox_step_next",
                                            "zof_spinbox_step_prev",
                                            nullptr};
static const char *const img_calls[] = {"zof_img_set_src",
                                        "zof_img_get_src",
                                        "zof_img_recolor",
                                        "zof_img_set_rotate_angel",
                                        "zof_img_zoom_setting",
                                        "zof_img_set_pivot",
                                        nullptr};
static const char *const gif_calls[] = {"zof_gif_set_src", "zof_gif_reset_play", "zof_gif_pause",
                                        "zof_gif_resume",  "zof_gif_play_count", nullptr};
static const char *const qrcode_calls[] = {"zof_qrcode_updata_data", nullptr};
static const char *const video_calls[] = {"zof_video_set_src",
                                          "zof_video_set_state",
                                          "zof_video_get_state",
                                          "zof_video_set_pos",
                                          "zof_video_set_volum",
                                          "zof_video_set_one_replay",
                                          nullptr};
static const char *const keyboard_calls[] = {"zof_keyboard_set_txtbox", "zof_keyboard_get_selected_btn",
                                             "zof_keyboard_get_btn_text", nullptr};
static const char *const sketchpad_calls[] = {"zof_sketchpad_clean_bg", "zof_sketchpad_set_width",
                                              "zof_sketchpad_set_transp", nullptr};
static const char *const btnmatrix_calls[] = {"zof_btnmatrix_get_selected_btn",
                                              "zof_btnmatrix_get_btn_text",
                                              "zof_btnmatrix_set_btn_txt",
                                              "zof_btnmatrix_set_selected_btn",
                                              "zof_btnmatrix_set_btn_ctrl",
                                              "zof_btnmatrix_clear_btn_ctrl",
                                              "zof_btnmatrix_set_btn_ctrl_all",
                                              "zof_btnmatrix_clear_btn_ctrl_all",
                                              "zof_btnmatrix_has_btn_ctrl",
                                              "zof_btnmatrix_set_btn_width",
                                              "zof_btnmatrix_set_one_checked",
                                              "zof_btnmatrix_get_one_checked",
                                              nullptr};
static const char *const animimg_calls[] = {"zof_animimg_reset_play",
                                            "zof_animimg_pause",
                                            "zof_animimg_resume",
                                            "zof_animimg_set_frame_rate",
                                            "zof_animimg_set_repeat_count",
                                            "zof_animimg_get_repeat_count",
                                            "zof_animimg_set_repeat_infinite",
                                            "zof_animimg_get_state",
                                            nullptr};
static const char *const scrollcont_calls[] = {"zof_scrollcont_get_display_index", nullptr};
static const char *const no_calls[] = {nullptr};

// clang-format off
const zof_cat_type_t zof_cat_types[] = {
    {.type = ZOF_CTRL_LABEL, .name = "label", .help = "a text",
     .record = &zof_cat_label, .events = touch_events, .parts = MAIN, .sections = 1, .states = PASSIVE,
     .calls = label_calls, .rows = "label", .width = 120, .height = 30},
    {.type = ZOF_CTRL_BTN, .name = "button", .help = "a button with a caption",
     .record = &zof_cat_btn, .events = value_events, .parts = MAIN, .sections = 1, .states = CHECKABLE,
     .calls = btn_calls, .rows = "button", .touch = ZOF_TRUE, .width = 120, .height = 50},
    {.type = ZOF_CTRL_OBJ, .name = "container", .help = "a box that can hold other controls",
     .record = &zof_cat_obj, .events = scroll_events, .parts = MAIN | SCROLLBAR, .sections = 1, .states = PASSIVE,
     .calls = no_calls, .width = 240, .height = 160},
    {.type = ZOF_CTRL_IMGBTN, .name = "image button", .help = "a button made of pictures, as large as its picture",
     .record = &zof_cat_imgbtn, .events = value_events, .parts = MAIN, .sections = 1, .states = CHECKABLE,
     .calls = imgbtn_calls, .rows = "image_button", .touch = ZOF_TRUE, .width = 100, .height = 50},
    {.type = ZOF_CTRL_LINE, .name = "line",
     .help = "a line through points, as large as its points, which the program sets",
     .record = &zof_cat_line, .events = touch_events, .parts = 0, .sections = 0, .states = 0, .calls = line_calls,
     .rows = "line", .width = 100, .height = 100},
    {.type = ZOF_CTRL_ARC, .name = "arc",
     .help = "a dial: a background arc and an indicator that shows a value, with a knob to turn it",
     .record = &zof_cat_arc, .events = value_events, .parts = MAIN | INDICATOR | KNOB, .sections = 1,
     .states = PASSIVE, .calls = arc_calls, .rows = "arc", .width = 150, .height = 150},
    {.type = ZOF_CTRL_BAR, .name = "bar", .help = "a bar that shows a value",
     .record = &zof_cat_bar, .events = touch_events, .parts = MAIN | INDICATOR, .sections = 1, .states = PASSIVE,
     .calls = bar_calls, .rows = "bar", .width = 200, .height = 20},
    {.type = ZOF_CTRL_SLIDER, .name = "slider", .help = "a bar with a knob to set a value",
     .record = &zof_cat_slider, .events = value_events, .parts = MAIN | INDICATOR | KNOB, .sections = 1,
     .states = PASSIVE, .calls = slider_calls, .rows = "slider", .touch = ZOF_TRUE, .width = 200, .height = 20},
    {.type = ZOF_CTRL_SW, .name = "switch", .help = "a switch",
     .record = &zof_cat_sw, .events = value_events, .parts = MAIN | INDICATOR | KNOB, .sections = 1,
     .states = CHECKABLE, .calls = sw_calls, .rows = "switch", .touch = ZOF_TRUE, .width = 60, .height = 30},
    {.type = ZOF_CTRL_CB, .name = "check box", .help = "a box to check, with a text; as large as its text",
     .record = &zof_cat_cb, .events = value_events, .parts = MAIN | INDICATOR, .sections = 1, .states = CHECKABLE,
     .calls = cb_calls, .rows = "check_box", .touch = ZOF_TRUE, .width = 120, .height = 30},
    {.type = ZOF_CTRL_MBOX, .name = "message box", .help = "a title, a text and a row of buttons",
     .record = &zof_cat_mbox, .events = value_events, .parts = MAIN | SCROLLBAR | ITEMS, .sections = 2,
     .states = CHECKABLE, .calls = mbox_calls, .rows = "message_box", .width = 300, .height = 180},
    {.type = ZOF_CTRL_TILEVIEW, .name = "tile view", .help = "pages to swipe between",
     .record = &zof_cat_tileview, .events = page_events, .parts = MAIN | SCROLLBAR, .sections = 1,
     .states = PASSIVE, .calls = tileview_calls, .rows = "tile_view", .width = 320, .height = 200},
    {.type = ZOF_CTRL_TXTBOX, .name = "text box", .help = "a field to type into",
     .record = &zof_cat_txtbox, .events = value_events,
     .parts = MAIN | SCROLLBAR | SELECTION | CURSOR | PLACEHOLDER, .sections = 1, .states = PASSIVE,
     .calls = txtbox_calls, .rows = "text_box", .touch = ZOF_TRUE, .width = 200, .height = 40},
    {.type = ZOF_CTRL_LIST, .name = "list", .help = "a scrolling column of buttons",
     .record = &zof_cat_list, .events = scroll_events, .parts = MAIN | SCROLLBAR, .sections = 2,
     .states = CHECKABLE, .calls = list_calls, .rows = "list", .width = 200, .height = 200},
    {.type = ZOF_CTRL_DROPLIST, .name = "drop list",
     .help = "a button that shows the selected option and opens the list of all",
     .record = &zof_cat_droplist, .events = value_events, .parts = MAIN | SCROLLBAR | INDICATOR | SELECTION,
     .sections = 2, .states = CHECKABLE, .calls = droplist_calls, .rows = "drop_list", .touch = ZOF_TRUE,
     .width = 160, .height = 40},
    {.type = ZOF_CTRL_ROLLIST, .name = "roller",
     .help = "a wheel of texts, of which the one in the middle is selected",
     .record = &zof_cat_rollist, .events = value_events, .parts = MAIN | SELECTION, .sections = 1,
     .states = PASSIVE, .calls = rollist_calls, .rows = "roller", .touch = ZOF_TRUE, .width = 120, .height = 120},
    {.type = ZOF_CTRL_CHART, .name = "chart", .help = "a diagram of series of values, which a program or a host sets",
     .record = &zof_cat_chart, .events = touch_events, .parts = MAIN | INDICATOR | ITEMS | TICKS | CURSOR,
     .sections = 1, .states = PASSIVE, .calls = chart_calls, .rows = "chart", .width = 300, .height = 180},
    {.type = ZOF_CTRL_TABLE, .name = "table", .help = "rows and columns of texts, which the program sets",
     .record = &zof_cat_table, .events = value_events, .parts = MAIN | SCROLLBAR | ITEMS, .sections = 1,
     .states = PASSIVE, .calls = table_calls, .rows = "table", .width = 300, .height = 120},
    {.type = ZOF_CTRL_SPINBOX, .name = "spin box", .help = "a number that is changed digit by digit",
     .record = &zof_cat_spinbox, .events = value_events, .parts = MAIN | CURSOR | SELECTION, .sections = 1,
     .states = PASSIVE, .calls = spinbox_calls, .rows = "spin_box", .width = 140, .height = 40},
    {.type = ZOF_CTRL_IMG, .name = "image", .help = "a picture",
     .record = &zof_cat_img, .events = touch_events, .parts = 0, .sections = 0, .states = 0, .calls = img_calls,
     .rows = "image", .width = 100, .height = 100},
    {.type = ZOF_CTRL_GIF, .name = "gif", .help = "an animated picture, as large as its pictures",
     .record = &zof_cat_gif, .events = touch_events, .parts = 0, .sections = 0, .states = 0, .calls = gif_calls,
     .rows = "gif", .width = 100, .height = 100},
    {.type = ZOF_CTRL_QRCODE, .name = "qr code", .help = "a QR code",
     .record = &zof_cat_qrcode, .events = touch_events, .parts = 0, .sections = 0, .states = 0,
     .calls = qrcode_calls, .rows = "qr_code", .width = 120, .height = 120},
    {.type = ZOF_CTRL_VIDEO, .name = "video", .help = "a player of clips",
     .record = &zof_cat_video, .events = touch_events, .parts = 0, .sections = 0, .states = 0,
     .calls = video_calls, .rows = "video", .width = 320, .height = 180},
    {.type = ZOF_CTRL_KEYBOARD, .name = "keyboard", .help = "a keyboard, which types into a text box",
     .record = &zof_cat_keyboard, .events = value_events, .parts = MAIN | ITEMS, .sections = 1,
     .states = CHECKABLE, .calls = keyboard_calls, .rows = "keyboard", .touch = ZOF_TRUE, .width = 480,
     .height = 200},
    {.type = ZOF_CTRL_TILE, .name = "tile", .help = "a page of a tile view",
     .record = &zof_cat_tile, .events = scroll_events, .parts = MAIN | SCROLLBAR, .sections = 1, .states = PASSIVE,
     .calls = no_calls, .width = 320, .height = 200},
    {.type = ZOF_CTRL_SKETCHPAD, .name = "sketch pad", .help = "a sheet to draw on with the finger",
     .record = &zof_cat_sketchpad, .events = touch_events, .parts = MAIN, .sections = 1, .states = PASSIVE,
     .calls = sketchpad_calls, .touch = ZOF_TRUE, .width = 320, .height = 200},
    {.type = ZOF_CTRL_BTNMATRIX, .name = "button matrix", .help = "rows of buttons in one control",
     .record = &zof_cat_btnmatrix, .events = value_events, .parts = MAIN | ITEMS, .sections = 2,
     .states = CHECKABLE, .calls = btnmatrix_calls, .rows = "button_matrix", .touch = ZOF_TRUE, .width = 240,
     .height = 120},
    {.type = ZOF_CTRL_ANIMIMG, .name = "image sequence",
     .help = "a sequence of numbered pictures, as large as its picture",
     .record = &zof_cat_animimg, .events = touch_events, .parts = 0, .sections = 0, .states = 0,
     .calls = animimg_calls, .width = 100, .height = 100},
    {.type = ZOF_CTRL_SCROLLCONT, .name = "scroll container", .help = "an endless wheel of items",
     .record = &zof_cat_scrollcont, .events = scroll_events, .parts = MAIN | SCROLLBAR, .sections = 1,
     .states = PASSIVE, .calls = scrollcont_calls, .width = 320, .height = 160},
    {.type = ZOF_CTRL_SCROLLCONT_OBJ, .name = "scroll item", .help = "an item of a scroll container",
     .record = &zof_cat_scrollcont_obj, .events = touch_events, .parts = MAIN | SCROLLBAR, .sections = 1,
     .states = PASSIVE, .calls = no_calls, .width = 100, .height = 100},
};
// clang-format on
static_assert(ZOF_CAT_COUNT(zof_cat_types) == ZOF_CTRL_TYPE_COUNT);
