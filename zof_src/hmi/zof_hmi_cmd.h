// The command tables of the host protocol: constant rows that execute frames and from which documents and host
// libraries are generated. A row holds everything that is known about a command.
#ifndef ZOF_HMI_CMD_H
#define ZOF_HMI_CMD_H

#include "hmi/zof_hmi_codec.h"

ZOF_C_BEGIN

// What a handler returns; zof_hmi_cmd_rev_analys says what follows. Other numbers count as ZOF_HMI_DONE.
enum { ZOF_HMI_FAIL = -1, ZOF_HMI_DONE = 0, ZOF_HMI_SILENT = 1, ZOF_HMI_AGAIN = 2 };

// Handlers get the analyser's records, ZOF_HMI_RECORD_SIZE bytes each: decoded type fields, decoded request fields, and
// the value. Get fills in the value. Set applies it and writes the acknowledgement, one signed byte, which stays as the
// last command left it if nothing is written. Texts in records are valid during the call only.
typedef s32 (*zof_hmi_get_fun)(void *type_param, void *req_param, void *value_param);
typedef s32 (*zof_hmi_set_fun)(void *type_param, void *req_param, void *value_param, void *reply_param);

// What a host does with a row when it restores a restarted panel: it writes the last value, or the last one for each
// value of the first n fields, which choose what is set. ZOF_HMI_ACTS: nothing, because the row is an action, not a
// state.
enum { ZOF_HMI_ACTS = 255 };

// A parameter. Field names are separated by spaces, one for each field, in wire order.
typedef struct {
    u8 len; // code bytes that count, 1 or 2
    u8 code[7];
    u8 chooses;                 // n, or ZOF_HMI_ACTS
    const char *name;           // unique in its table
    const char *help;           // one line
    const char *req_names;      // OPTIONAL: for `rw->req`
    const char *value_names;    // for `value`
    const zof_hmi_rec_t *value; // what a read returns and a write carries
    const zof_hmi_rw_t *rw;
    zof_hmi_get_fun get_fun; // OPTIONAL
    zof_hmi_set_fun set_fun; // OPTIONAL
} zof_hmi_param_type_t;

// A type: a family of parameters that are addressed alike.
typedef struct {
    u8 len; // code bytes that count, 1 or 2
    u8 code[7];
    const char *name;
    const char *help;
    const char *rec_names;    // OPTIONAL: for `rec`
    const zof_hmi_rec_t *rec; // fields before every request
    u16 param_count;
    const zof_hmi_param_type_t *params;
} zof_hmi_cmd_type_t;

// The types executed on the receive thread, and those executed on the graphics thread. The latter begin with the system
// type too, for frames that the runtime sends by itself.
extern const zof_hmi_cmd_type_t zof_sys_cmd_types[];
extern const u32 zof_sys_cmd_type_count;
extern const zof_hmi_cmd_type_t zof_ui_cmd_types[];
extern const u32 zof_ui_cmd_type_count;

// Rows of each table; look-ups end there.
enum {
    ZOF_SYS_PARAM_COUNT = 10,
    ZOF_VIEW_PARAM_COUNT = 11,
    ZOF_CTRL_PUB_PARAM_COUNT = 17,
    ZOF_CTRL_LABEL_PARAM_COUNT = 6,
    ZOF_CTRL_BTN_PARAM_COUNT = 5,
    ZOF_CTRL_IMG_PARAM_COUNT = 4,
    ZOF_CTRL_IMGBTN_PARAM_COUNT = 5,
    ZOF_CTRL_LINE_PARAM_COUNT = 1,
    ZOF_CTRL_ARC_PARAM_COUNT = 6,
    ZOF_CTRL_BAR_PARAM_COUNT = 3,
    ZOF_CTRL_SLIDER_PARAM_COUNT = 3,
    ZOF_CTRL_SW_PARAM_COUNT = 1,
    ZOF_CTRL_CB_PARAM_COUNT = 3,
    ZOF_CTRL_MBOX_PARAM_COUNT = 6,
    ZOF_CTRL_TILEVIEW_PARAM_COUNT = 2,
    ZOF_CTRL_TXTBOX_PARAM_COUNT = 6,
    ZOF_CTRL_LIST_PARAM_COUNT = 6,
    ZOF_CTRL_DROPLIST_PARAM_COUNT = 6,
    ZOF_CTRL_ROLLIST_PARAM_COUNT = 5,
    ZOF_CTRL_KEYBOARD_PARAM_COUNT = 4,
    ZOF_CTRL_GIF_PARAM_COUNT = 3,
    ZOF_CTRL_QRCODE_PARAM_COUNT = 1,
    ZOF_CTRL_VIDEO_PARAM_COUNT = 5,
    ZOF_CTRL_SPINBOX_PARAM_COUNT = 3,
    ZOF_CTRL_TABLE_PARAM_COUNT = 4,
    ZOF_CTRL_BTNM_PARAM_COUNT = 8,
    ZOF_CTRL_CHART_PARAM_COUNT = 5
};
extern const zof_hmi_param_type_t zof_sys_params[ZOF_SYS_PARAM_COUNT];
extern const zof_hmi_param_type_t zof_view_params[ZOF_VIEW_PARAM_COUNT];
extern const zof_hmi_param_type_t zof_ctrl_pub_params[ZOF_CTRL_PUB_PARAM_COUNT];
extern const zof_hmi_param_type_t zof_ctrl_label_params[ZOF_CTRL_LABEL_PARAM_COUNT];
extern const zof_hmi_param_type_t zof_ctrl_btn_params[ZOF_CTRL_BTN_PARAM_COUNT];
extern const zof_hmi_param_type_t zof_ctrl_img_params[ZOF_CTRL_IMG_PARAM_COUNT];
extern const zof_hmi_param_type_t zof_ctrl_imgbtn_params[ZOF_CTRL_IMGBTN_PARAM_COUNT];
extern const zof_hmi_param_type_t zof_ctrl_line_params[ZOF_CTRL_LINE_PARAM_COUNT];
extern const zof_hmi_param_type_t zof_ctrl_arc_params[ZOF_CTRL_ARC_PARAM_COUNT];
extern const zof_hmi_param_type_t zof_ctrl_bar_params[ZOF_CTRL_BAR_PARAM_COUNT];
extern const zof_hmi_param_type_t zof_ctrl_slider_params[ZOF_CTRL_SLIDER_PARAM_COUNT];
extern const zof_hmi_param_type_t zof_ctrl_sw_params[ZOF_CTRL_SW_PARAM_COUNT];
extern const zof_hmi_param_type_t zof_ctrl_cb_params[ZOF_CTRL_CB_PARAM_COUNT];
extern const zof_hmi_param_type_t zof_ctrl_mbox_params[ZOF_CTRL_MBOX_PARAM_COUNT];
extern const zof_hmi_param_type_t zof_ctrl_tileview_params[ZOF_CTRL_TILEVIEW_PARAM_COUNT];
extern const zof_hmi_param_type_t zof_ctrl_txtbox_params[ZOF_CTRL_TXTBOX_PARAM_COUNT];
extern const zof_hmi_param_type_t zof_ctrl_list_params[ZOF_CTRL_LIST_PARAM_COUNT];
extern const zof_hmi_param_type_t zof_ctrl_droplist_params[ZOF_CTRL_DROPLIST_PARAM_COUNT];
extern const zof_hmi_param_type_t zof_ctrl_rollist_params[ZOF_CTRL_ROLLIST_PARAM_COUNT];
extern const zof_hmi_param_type_t zof_ctrl_keyboard_params[ZOF_CTRL_KEYBOARD_PARAM_COUNT];
extern const zof_hmi_param_type_t zof_ctrl_gif_params[ZOF_CTRL_GIF_PARAM_COUNT];
extern const zof_hmi_param_type_t zof_ctrl_qrcode_params[ZOF_CTRL_QRCODE_PARAM_COUNT];
extern const zof_hmi_param_type_t zof_ctrl_video_params[ZOF_CTRL_VIDEO_PARAM_COUNT];
extern const zof_hmi_param_type_t zof_ctrl_spinbox_params[ZOF_CTRL_SPINBOX_PARAM_COUNT];
extern const zof_hmi_param_type_t zof_ctrl_table_params[ZOF_CTRL_TABLE_PARAM_COUNT];
extern const zof_hmi_param_type_t zof_ctrl_btnm_params[ZOF_CTRL_BTNM_PARAM_COUNT];
extern const zof_hmi_param_type_t zof_ctrl_chart_params[ZOF_CTRL_CHART_PARAM_COUNT];

ZOF_C_END

#endif
