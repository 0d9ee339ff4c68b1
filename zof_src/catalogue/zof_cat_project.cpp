// Keys of the project file and of the link's file.
#include "catalogue/zof_cat_in.h"

// clang-format off
static const zof_cat_key_t views_keys[] = {
    {.key = "pageId", .label = "id", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_HOST, .low = 1, .high = ZOF_CAT_ANY,
     .help = "the view's id, used once", .flags = ZOF_CAT_NEEDED},
    {.key = "pageName", .label = "file", .kind = ZOF_CAT_FILE, .group = ZOF_CAT_CONTENT,
     .help = "its file, below `config/view/`",
     .flags = ZOF_CAT_NEEDED},
};
ZOF_CAT_RECORD(zof_cat_views, "views", nullptr, nullptr, views_keys);

static const zof_cat_key_t dis_keys[] = {
    {.key = "off_x", .label = "margin left, right", .kind = ZOF_CAT_LENGTH, .group = ZOF_CAT_PLACE, .high = UINT16_MAX,
     .help = "margin left and right"},
    {.key = "off_y", .label = "margin above, below", .kind = ZOF_CAT_LENGTH, .group = ZOF_CAT_PLACE, .high = UINT16_MAX,
     .help = "margin above and below"},
    {.key = "dis_mode", .label = "scaling", .kind = ZOF_CAT_NAMED, .group = ZOF_CAT_PLACE,
     .help = "`fill`: the design fills the panel except for the margins; otherwise it keeps its own size if the "
         "panel is large enough"},
};
ZOF_CAT_RECORD(zof_cat_dis, "dis_t", "the position of the design on the panel", zof_prj_dis_t_tbl, dis_keys);

static const zof_cat_key_t tone_keys[] = {
    {.key = "type", .kind = ZOF_CAT_NAMED, .group = ZOF_CAT_CONTENT,
     .help = "what sounds: the beeper, otherwise a sound file"},
    {.key = "time", .kind = ZOF_CAT_TIME, .group = ZOF_CAT_MOTION, .high = UINT16_MAX, .help = "length of a beep",
     .when = "`type` is 0"},
    {.key = "sound", .kind = ZOF_CAT_SOUND, .group = ZOF_CAT_CONTENT, .help = "the sound file, in `sound/`",
     .when = "`type` is not 0"},
    {.key = "volum", .label = "volume", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_CONTENT, .high = UINT8_MAX,
     .start = "128",
     .help = "its volume: 128 is the file's own, 0 silent", .when = "`type` is not 0"},
};
ZOF_CAT_RECORD(zof_cat_tone, "tone_t", "the tone of a touch", zof_prj_tone_t_tbl, tone_keys);

static const zof_cat_key_t touch_keys[] = {
    {.key = "th_en", .label = "touch options", .kind = ZOF_CAT_SUM, .group = ZOF_CAT_TOUCH, .high = UINT8_MAX,
     .start = "1",
     .help = "`open` opens the touch at start, where a program had closed it; `tones` turns tones on; `anywhere`: a "
         "tone for any touch, not only on controls; `at_release`: the tone at release, not at press; "
         "`report_press`, `report_release` and `report_hold` report to the host; `calibrate`: twenty quick taps "
         "start the calibration",
     .row = "system.touch_config"},
    {.key = "long_press_time", .label = "held touch reported", .kind = ZOF_CAT_TIME, .group = ZOF_CAT_TOUCH,
     .high = UINT16_MAX,
     .help = "time between two reports of a held touch", .when = "`th_en` has `report_hold`"},
};
ZOF_CAT_RECORD(zof_cat_touch, "touch_t", nullptr, zof_prj_touch_t_tbl, touch_keys);

static const zof_cat_key_t hw_keys[] = {
    {.key = "dis_t", .label = "display", .kind = ZOF_CAT_OBJECT, .group = ZOF_CAT_PLACE,
     .help = "position on the panel",
     .record = &zof_cat_dis},
    {.key = "tone_t", .label = "tone", .kind = ZOF_CAT_OBJECT, .group = ZOF_CAT_TOUCH, .help = "tone of a touch",
     .record = &zof_cat_tone},
    {.key = "touch_t", .label = "touch", .kind = ZOF_CAT_OBJECT, .group = ZOF_CAT_TOUCH, .help = "what touches do",
     .record = &zof_cat_touch},
};
ZOF_CAT_RECORD(zof_cat_hw, "hw_t", nullptr, zof_prj_hw_attr_t_tbl, hw_keys);

static const zof_cat_key_t standby_keys[] = {
    {.key = "stdby_time", .label = "time until dimmed", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_MOTION,
     .high = UINT16_MAX, .unit = "s",
     .help = "time without a touch until the panel dims; 0: never", .row = "system.standby"},
    {.key = "off_time", .label = "time until off", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_MOTION,
     .high = UINT16_MAX, .unit = "s",
     .help = "time without a touch until it turns off; 0: never", .row = "system.standby"},
    {.key = "stdby_bright", .label = "brightness when dimmed", .kind = ZOF_CAT_PERCENT, .group = ZOF_CAT_LOOK,
     .high = 100,
     .help = "brightness when dimmed. A window on a desktop hardly changes: its colours keep at least 95 % of their "
         "value", .row = "system.standby"},
    {.key = "off_bright", .label = "brightness when off", .kind = ZOF_CAT_PERCENT, .group = ZOF_CAT_LOOK, .high = 100,
     .help = "brightness when off; without a desktop 0 switches the display off",
     .row = "system.standby"},
    {.key = "on_bright", .label = "brightness in use", .kind = ZOF_CAT_PERCENT, .group = ZOF_CAT_LOOK, .high = 100,
     .start = "100",
     .help = "brightness in use", .row = "system.standby"},
    {.key = "stdby_view", .label = "view when dimmed", .kind = ZOF_CAT_VIEW, .group = ZOF_CAT_CONTENT,
     .high = UINT16_MAX,
     .help = "view shown when the panel dims; 0: none", .row = "system.standby"},
    {.key = "on_view", .label = "view when it wakes", .kind = ZOF_CAT_VIEW, .group = ZOF_CAT_CONTENT,
     .high = UINT16_MAX,
     .help = "view shown when it wakes; 0: none", .row = "system.standby"},
};
ZOF_CAT_RECORD(zof_cat_standby, "standby_t", nullptr, zof_func_standby_t_tbl, standby_keys);

static const zof_cat_key_t func_keys[] = {
    {.key = "standby_t", .label = "standby", .kind = ZOF_CAT_OBJECT, .group = ZOF_CAT_LOOK,
     .help = "dimming and turning off",
     .record = &zof_cat_standby},
};
ZOF_CAT_RECORD(zof_cat_func, "func_t", nullptr, zof_func_t_tbl, func_keys);

static const zof_cat_key_t project_keys[] = {
    {.key = "p_name", .label = "project name", .kind = ZOF_CAT_TEXT, .group = ZOF_CAT_CONTENT, .start = "\"Panel\"",
     .help = "name of the project, the window's title"},
    {.key = "width", .kind = ZOF_CAT_LENGTH, .group = ZOF_CAT_PLACE, .low = 1, .high = ZOF_CAT_ANY, .start = "800",
     .help = "width of the design. Without a valid width and height the display's own size is used, and reported; a "
         "design with more pixels than the display does not start, and the program says so on the screen",
     .row = "view.size", .flags = ZOF_CAT_NEEDED},
    {.key = "height", .kind = ZOF_CAT_LENGTH, .group = ZOF_CAT_PLACE, .low = 1, .high = ZOF_CAT_ANY, .start = "480",
     .help = "height of the design", .row = "view.size", .flags = ZOF_CAT_NEEDED},
    {.key = "language", .kind = ZOF_CAT_LANGUAGE, .group = ZOF_CAT_CONTENT,
     .help = "language at start: the name of its file without `.g`", .row = "system.language",
     .call = "zof_lang_set"},
    {.key = "start_page", .label = "start view", .kind = ZOF_CAT_VIEW, .group = ZOF_CAT_CONTENT, .start = "1",
     .help = "id of the view that is shown first", .flags = ZOF_CAT_NEEDED},
    {.key = "views", .kind = ZOF_CAT_ARRAY, .group = ZOF_CAT_CONTENT, .start = "[]", .help = "the views",
     .record = &zof_cat_views, .flags = ZOF_CAT_NEEDED},
    {.key = "init_allview", .label = "load all views", .kind = ZOF_CAT_SWITCH, .group = ZOF_CAT_MOTION,
     .help = "not 0: all views are loaded at start, in the order of `views`"},
    {.key = "cacheImg", .label = "picture cache", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_LOOK, .high = 100,
     .help = "decoded pictures kept in the cache; 0: LVGL's default"},
    {.key = "rotate", .label = "rotation", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_PLACE, .high = 3,
     .help = "quarter turns of the picture"},
    {.key = "version", .kind = ZOF_CAT_TEXT, .group = ZOF_CAT_HOST,
     .help = "version of the firmware, for the banner, the overlay and the host", .row = "system.version"},
    {.key = "app_ver", .label = "application version", .kind = ZOF_CAT_TEXT, .group = ZOF_CAT_HOST,
     .help = "version of the application",
     .row = "system.version"},
    {.key = "comp_time", .label = "build time", .kind = ZOF_CAT_TEXT, .group = ZOF_CAT_HOST,
     .help = "build time of the application",
     .row = "system.version"},
    {.key = "show_en", .label = "overlay", .kind = ZOF_CAT_SUM, .group = ZOF_CAT_LOOK, .high = UINT16_MAX,
     .help = "overlay on all views: `firmware` version, `runtime` version, `application` version and build time, "
         "frames per second, memory; `bottom` puts it at the bottom"},
    {.key = "win_mem", .label = "display memory", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_LOOK, .high = UINT16_MAX,
     .unit = "MB",
     .absent = "10", .help = "total memory for the memory display", .when = "`show_en` has `memory`"},
    {.key = "allow_outside", .kind = ZOF_CAT_SWITCH, .group = ZOF_CAT_HOST,
     .help = "not 0: names may refer to files outside the project and the drives ([below](#names-paths-and-drives))"},
    {.key = "hw_t", .kind = ZOF_CAT_OBJECT, .group = ZOF_CAT_TOUCH, .help = "hardware", .record = &zof_cat_hw},
    {.key = "func_t", .kind = ZOF_CAT_OBJECT, .group = ZOF_CAT_LOOK, .help = "functions of the device",
     .record = &zof_cat_func},
};
ZOF_CAT_RECORD(zof_cat_project, "project", nullptr, zof_prj_attr_t_tbl, project_keys);

static const zof_cat_key_t uart_keys[] = {
    {.key = "win_port", .label = "port on a desktop", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_HOST,
     .help = "port on a desktop; with both ports 0 no link is opened"},
    {.key = "port", .label = "port on a device", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_HOST,
     .help = "port on a device"},
    {.key = "speed_e", .label = "speed", .kind = ZOF_CAT_NAMED, .group = ZOF_CAT_HOST, .high = ZOF_CAT_ANY,
     .start = "\"115200 baud\"",
     .help = "speed; numbers above 14 are the rate itself"},
    {.key = "bit_e", .label = "data bits", .kind = ZOF_CAT_NAMED, .group = ZOF_CAT_HOST, .start = "\"8 bits\"",
     .help = "data bits"},
    {.key = "parity_e", .kind = ZOF_CAT_NAMED, .group = ZOF_CAT_HOST, .help = "parity"},
    {.key = "stop_e", .label = "stop bits", .kind = ZOF_CAT_NAMED, .group = ZOF_CAT_HOST, .help = "stop bits"},
};
ZOF_CAT_RECORD(zof_cat_uart, "uart", "the serial line", zof_uart_cfg_t_tbl, uart_keys);

static const zof_cat_key_t link_keys[] = {
    {.key = "hmi_en", .label = "link", .kind = ZOF_CAT_SWITCH, .group = ZOF_CAT_HOST, .start = "1",
     .help = "not 0: the link is opened", .flags = ZOF_CAT_NEEDED},
    {.key = "uart", .label = "serial line", .kind = ZOF_CAT_OBJECT, .group = ZOF_CAT_HOST, .start = "{}",
     .help = "the serial line",
     .record = &zof_cat_uart, .flags = ZOF_CAT_NEEDED},
    {.key = "head_fh", .label = "first byte", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_HOST, .high = UINT8_MAX,
     .start = "90",
     .help = "first byte of each frame", .flags = ZOF_CAT_NEEDED},
    {.key = "head_fl", .label = "second byte", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_HOST, .high = UINT8_MAX,
     .start = "165",
     .help = "second byte of each frame; it must differ from the first", .flags = ZOF_CAT_NEEDED},
    {.key = "buffsize", .label = "queue size", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_HOST, .high = UINT16_MAX,
     .unit = "bytes",
     .help = "size of the queue of view and control commands, in addition to 1024"},
    {.key = "timeout", .kind = ZOF_CAT_TIME, .group = ZOF_CAT_HOST, .high = 1000, .absent = "5",
     .help = "silence that ends an incomplete frame, from 5"},
    {.key = "resend_en", .label = "repeat writes", .kind = ZOF_CAT_SWITCH, .group = ZOF_CAT_HOST,
     .help = "not 0: writes of system rows, and reads of them that fail, are acknowledged"},
    {.key = "crc_en", .label = "checksum", .kind = ZOF_CAT_SWITCH, .group = ZOF_CAT_HOST,
     .help = "not 0: frames carry a checksum"},
    {.key = "event_en", .label = "events", .kind = ZOF_CAT_SWITCH, .group = ZOF_CAT_HOST,
     .help = "not 0: the panel sends an event for what the user does with controls, for views and languages"},
    {.key = "load_en", .label = "load on demand", .kind = ZOF_CAT_SWITCH, .group = ZOF_CAT_HOST,
     .help = "not 0: a command to a control loads its view if it is not loaded"},
};
ZOF_CAT_RECORD(zof_cat_link, "link", nullptr, zof_hmi_attr_t_tbl, link_keys);
// clang-format on
