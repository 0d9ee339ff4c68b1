// Keys of controls for typing and drawing: text box, keyboard, button matrix, sketch pad.
#include "catalogue/zof_cat_in.h"
#include "control/zof_btnmatrix.h"
#include "control/zof_cursor.h"
#include "control/zof_keyboard.h"
#include "control/zof_sketchpad.h"
#include "control/zof_txtbox.h"

// clang-format off
static const zof_cat_key_t txtbox_keys[] = {
    ZOF_CAT_CTRL_KEYS,
    {.key = "line_mode", .label = "lines", .kind = ZOF_CAT_NAMED, .group = ZOF_CAT_CONTENT,
     .help = "`several lines`; otherwise one line, and the height follows the text"},
    {.key = "init_txt", .label = "text", .kind = ZOF_CAT_TEXT, .group = ZOF_CAT_CONTENT, .help = "initial text",
     .row = "text_box.text", .call = "zof_txtbox_set_text"},
    {.key = "p_holder_txt", .label = "placeholder", .kind = ZOF_CAT_TEXT, .group = ZOF_CAT_CONTENT,
     .help = "placeholder, shown while there is no text; its style is part 524288, `placeholder`"},
    {.key = "txt_align_e", .label = "text alignment", .kind = ZOF_CAT_NAMED, .group = ZOF_CAT_CONTENT,
     .help = "alignment of the text; `auto`: by text direction"},
    {.key = "holder_txt_align_e", .label = "placeholder alignment", .kind = ZOF_CAT_NAMED, .group = ZOF_CAT_CONTENT,
     .help = "alignment of `p_holder_txt`"},
    {.key = "accept_txt", .label = "accepted characters", .kind = ZOF_CAT_TEXT, .group = ZOF_CAT_VALUE,
     .help = "the accepted characters; absent: all"},
    {.key = "max_txt_len", .label = "maximum length", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_VALUE,
     .high = UINT16_MAX, .unit = "characters",
     .absent = "32767", .help = "maximum length"},
    {.key = "pwd_mode_en", .label = "password", .kind = ZOF_CAT_BOOL, .group = ZOF_CAT_CONTENT,
     .help = "true: shown as bullets",
     .row = "text_box.password", .call = "zof_txtbox_pwd_mode"},
    {.key = "pwd_char_show_time", .label = "letters readable for", .kind = ZOF_CAT_TIME, .group = ZOF_CAT_MOTION,
     .high = UINT16_MAX,
     .help = "time before a typed character becomes a bullet", .when = "`pwd_mode_en` is true"},
    {.key = "cursor_style_t", .label = "cursor", .kind = ZOF_CAT_OBJECT, .group = ZOF_CAT_LOOK, .start = "{}",
     .help = "the cursor while the box has the focus, as in a [spin box](#spinbox)",
     .call = "zof_txtbox_set_cursor_type", .record = &zof_cat_cursor},
};
ZOF_CAT_RECORD(zof_cat_txtbox, "text box", nullptr, zof_txtbox_attr_t_tbl, txtbox_keys);

static const zof_cat_key_t keyboard_keys[] = {
    ZOF_CAT_CTRL_KEYS,
    {.key = "keyboard_spell", .label = "plain keyboard", .kind = ZOF_CAT_BOOL, .group = ZOF_CAT_CONTENT,
     .start = "true",
     .help = "true: a plain keyboard, which uses the next two keys; false: Pinyin, which uses the last two"},
    {.key = "mode", .kind = ZOF_CAT_NAMED, .group = ZOF_CAT_CONTENT, .help = "the keys at first",
     .when = "`keyboard_spell` is true"},
    {.key = "popovers", .kind = ZOF_CAT_BOOL, .group = ZOF_CAT_LOOK,
     .help = "true: a pressed key is shown above the finger", .when = "`keyboard_spell` is true"},
    {.key = "cn_font_lib", .label = "Chinese font", .kind = ZOF_CAT_FONT, .group = ZOF_CAT_LOOK,
     .help = "file in `font/` with the Chinese characters", .when = "`keyboard_spell` is false"},
    {.key = "cn_font_size", .label = "Chinese size", .kind = ZOF_CAT_LENGTH, .group = ZOF_CAT_LOOK, .high = 512,
     .help = "their size; the row of candidates is directly above the keyboard and 15 pixels higher than this",
     .when = "`keyboard_spell` is false"},
};
ZOF_CAT_RECORD(zof_cat_keyboard, "keyboard", nullptr, zof_keyboard_attr_t_tbl, keyboard_keys);

static const zof_cat_key_t btnmatrix_keys[] = {
    ZOF_CAT_CTRL_KEYS,
    {.key = "btnmatrix_txt", .label = "captions", .kind = ZOF_CAT_ARRAY, .group = ZOF_CAT_CONTENT,
     .start = "[\"1\", \"2\", \"\\n\", \"3\", \"4\", \"\"]",
     .help = "the captions, row by row, with `\"\\n\"` between rows and ended by an empty one. A language change "
         "does not affect them", .record = &zof_cat_caption, .flags = ZOF_CAT_NEEDED},
    {.key = "btnmatrix_num", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_CONTENT,
     .help = "not needed: the array counts", .flags = ZOF_CAT_COUNTED},
};
ZOF_CAT_RECORD(zof_cat_btnmatrix, "button matrix", nullptr, zof_btnmatrix_attr_t_tbl, btnmatrix_keys);

static const zof_cat_key_t sketchpad_keys[] = {
    ZOF_CAT_CTRL_KEYS,
    {.key = "toolbar", .kind = ZOF_CAT_SWITCH, .group = ZOF_CAT_CONTENT, .start = "1", .help = "0: no toolbar"},
    {.key = "line_width", .label = "stroke width", .kind = ZOF_CAT_LENGTH, .group = ZOF_CAT_VALUE, .high = 255,
     .start = "3",
     .help = "initial width of the strokes", .call = "zof_sketchpad_set_width"},
};
ZOF_CAT_RECORD(zof_cat_sketchpad, "sketch pad", nullptr, zof_sketchpad_attr_t_tbl, sketchpad_keys);
// clang-format on
