// Keys of controls that show a text: label, buttons, check box, message box.
#include "catalogue/zof_cat_in.h"
#include "control/zof_btn.h"
#include "control/zof_cb.h"
#include "control/zof_imgbtn.h"
#include "control/zof_label.h"
#include "control/zof_mbox.h"

// clang-format off
static const zof_cat_key_t label_keys[] = {
    ZOF_CAT_CTRL_KEYS,
    {.key = "txt", .label = "text", .kind = ZOF_CAT_WORDS, .group = ZOF_CAT_CONTENT, .start = "\"Label\"",
     .help = "text",
     .row = "label.text", .call = "zof_label_set_txt"},
    {.key = "auto_hight", .label = "fixed size", .kind = ZOF_CAT_SWITCH, .group = ZOF_CAT_PLACE, .start = "1",
     .help = "1: keeps its `size`, and `align_e` places the text in it; otherwise the height follows the text"},
    {.key = "align_e", .label = "alignment", .kind = ZOF_CAT_NAMED, .group = ZOF_CAT_CONTENT, .high = 63,
     .start = "\"center middle\"",
     .help = "horizontal: 0 `auto` by text direction, 1 `left`, 2 `center`, 3 `right`; plus vertical: 16 `top`, 32 "
         "`middle`, 48 `bottom`; as a name both words, such as `left middle`", .row = "label.align",
     .call = "zof_label_set_align"},
    {.key = "dis_mode_e", .label = "long text", .kind = ZOF_CAT_NAMED, .group = ZOF_CAT_CONTENT,
     .help = "a text that is too long wraps, ends in dots, scrolls back and forth, scrolls in a circle, or is cut",
     .row = "label.long_mode", .call = "zof_label_set_dis_mode"},
    {.key = "animspeed", .label = "scrolling speed", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_MOTION,
     .high = UINT16_MAX, .unit = "px/s",
     .help = "scrolling speed", .when = "`dis_mode_e` is 2 or 3", .row = "label.scroll_speed",
     .call = "zof_label_set_anim_speed"},
    {.key = "align_label", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_CONTENT, .help = "read, not used",
     .flags = ZOF_CAT_IGNORED},
};
ZOF_CAT_RECORD(zof_cat_label, "label", nullptr, zof_label_attr_t_tbl, label_keys);

static const zof_cat_key_t btn_keys[] = {
    ZOF_CAT_CTRL_KEYS,
    {.key = "txt", .label = "text", .kind = ZOF_CAT_WORDS, .group = ZOF_CAT_CONTENT, .start = "\"Button\"",
     .help = "caption, centred", .row = "button.text", .call = "zof_btn_set_txt"},
    {.key = "mode", .kind = ZOF_CAT_NAMED, .group = ZOF_CAT_TOUCH,
     .help = "`toggle`: each click presses or releases it", .row = "button.mode", .call = "zof_btn_set_mode"},
};
ZOF_CAT_RECORD(zof_cat_btn, "button", nullptr, zof_btn_attr_t_tbl, btn_keys);

static const zof_cat_key_t imgbtn_keys[] = {
    ZOF_CAT_CTRL_KEYS,
    {.key = "txt", .label = "text", .kind = ZOF_CAT_WORDS, .group = ZOF_CAT_CONTENT, .help = "caption over the picture",
     .row = "image_button.text", .call = "zof_imgbtn_set_txt"},
    {.key = "mode", .kind = ZOF_CAT_NAMED, .group = ZOF_CAT_TOUCH,
     .help = "`toggle`: each click presses or releases it"},
    {.key = "pos_mode_e", .label = "picture place", .kind = ZOF_CAT_NAMED, .group = ZOF_CAT_PLACE,
     .help = "`center`: pictures of any size are centred in the declared `size`"},
    {.key = "img_rel", .label = "picture", .kind = ZOF_CAT_PICTURE, .group = ZOF_CAT_CONTENT,
     .help = "picture when released",
     .row = "image_button.image", .call = "zof_imgbtn_set_image", .flags = ZOF_CAT_NEEDED},
    {.key = "img_pr", .label = "pressed picture", .kind = ZOF_CAT_PICTURE, .group = ZOF_CAT_CONTENT,
     .help = "when pressed",
     .row = "image_button.image", .call = "zof_imgbtn_set_image"},
    {.key = "img_ina", .label = "disabled picture", .kind = ZOF_CAT_PICTURE, .group = ZOF_CAT_CONTENT,
     .help = "when disabled",
     .row = "image_button.image", .call = "zof_imgbtn_set_image"},
    {.key = "img_tgl_rel", .label = "on picture", .kind = ZOF_CAT_PICTURE, .group = ZOF_CAT_CONTENT,
     .help = "when released and toggled on",
     .row = "image_button.image", .call = "zof_imgbtn_set_image"},
    {.key = "img_tgl_pr", .label = "on, pressed picture", .kind = ZOF_CAT_PICTURE, .group = ZOF_CAT_CONTENT,
     .help = "when pressed and toggled on",
     .row = "image_button.image", .call = "zof_imgbtn_set_image"},
    {.key = "img_tgl_ina", .label = "on, disabled picture", .kind = ZOF_CAT_PICTURE, .group = ZOF_CAT_CONTENT,
     .help = "when disabled and toggled on",
     .row = "image_button.image", .call = "zof_imgbtn_set_image"},
};
ZOF_CAT_RECORD(zof_cat_imgbtn, "image button", nullptr, zof_imgbtn_attr_t_tbl, imgbtn_keys);

static const zof_cat_key_t cb_keys[] = {
    ZOF_CAT_CTRL_KEYS,
    {.key = "txt", .label = "text", .kind = ZOF_CAT_WORDS, .group = ZOF_CAT_CONTENT, .start = "\"Option\"",
     .help = "text",
     .row = "check_box.text", .call = "zof_cb_set_txt"},
};
ZOF_CAT_RECORD(zof_cat_cb, "check box", nullptr, zof_cb_attr_t_tbl, cb_keys);

// A caption of a message box or a button matrix.
static const zof_cat_key_t caption_keys[] = {
    {.key = "0String", .kind = ZOF_CAT_WORDS, .group = ZOF_CAT_CONTENT, .help = "a caption"},
};
ZOF_CAT_RECORD(zof_cat_caption, "caption", nullptr, stringReflectTbl, caption_keys);

static const zof_cat_key_t mbox_keys[] = {
    ZOF_CAT_CTRL_KEYS,
    {.key = "title", .kind = ZOF_CAT_WORDS, .group = ZOF_CAT_CONTENT, .start = "\"Title\"", .help = "title, centred",
     .row = "message_box.title", .call = "zof_title_set_txt"},
    {.key = "txt", .label = "text", .kind = ZOF_CAT_WORDS, .group = ZOF_CAT_CONTENT, .start = "\"Text\"",
     .help = "text, centred",
     .row = "message_box.text", .call = "zof_mbox_set_txt"},
    {.key = "btn_txt", .label = "captions", .kind = ZOF_CAT_ARRAY, .group = ZOF_CAT_CONTENT, .start = "[\"OK\", \"\"]",
     .help = "the captions, ended by an empty one. A language change does not affect them",
     .record = &zof_cat_caption},
    {.key = "btn_num", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_CONTENT, .help = "not needed: the array counts",
     .flags = ZOF_CAT_COUNTED},
    {.key = "anim_time", .label = "animation time", .kind = ZOF_CAT_TIME, .group = ZOF_CAT_MOTION, .high = UINT32_MAX,
     .help = "duration of the buttons' state changes"},
};
ZOF_CAT_RECORD(zof_cat_mbox, "message box", nullptr, zof_mbox_attr_t_tbl, mbox_keys);
// clang-format on
