// The options of every program, the variables that it reads, and its exit statuses.
#include <math.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "drv/zof_drv_disp.h"
#include "drv/zof_drv_file.h"
#include "drv/zof_drv_uart.h"
#include "func/zof_option.h"
#include "project/look/zof_lang.h"
#include "project/zof_prj.h"
#include "project/zof_ver.h"
#include "zof_lib/zof_stdio.h"

static int wrong(const char *option, const char *value, const char *what) {
    fprintf(stderr, "%s: %s %s: %s\n", zof_program_name(), option, value, what);
    return ZOF_EXIT_USAGE;
}

static int version_take(const char *) {
    printf("%s\n", zof_sdk_get_version());
    return ZOF_EXIT_GOOD;
}

static int project_take(const char *value) {
    return zof_prj_folder_set(value) == 0 ? -1 : wrong("--project", value, "the path is too long");
}

static int fullscreen_take(const char *) {
    zof_disp_set_fullscreen(ZOF_TRUE);
    return -1;
}

static int headless_take(const char *) {
    zof_disp_headless();
    return -1;
}

static int scale_take(const char *value) {
    char *end = nullptr;
    const double scale = strtod(value, &end);
    const bool good = end != value && !*end && scale >= 0.5 && scale <= 8; // false for what is not a number, too
    if (good) {
        zof_disp_set_scale((u32)lround(scale * 100));
    }
    return good ? -1 : wrong("--scale", value, "expected a number from 0.5 to 8");
}

int zof_option_port(const char *value) {
    char *end = nullptr;
    const unsigned long port = *value >= '0' && *value <= '9' ? strtoul(value, &end, 10) : 0;
    if (!end || *end != '=' || !end[1]) {
        return wrong("--port", value, "expected N=PATH, such as 5=/dev/ttyUSB0");
    }
    return port <= UINT8_MAX && zof_drv_uart_port_path_set((s32)port, end + 1) == 0
               ? -1
               : wrong("--port", value, "there is no such port, or the path is too long");
}

static int lang_take(const char *value) {
    return zof_lang_start_set(value) == 0 ? -1 : wrong("--lang", value, "the name is too long");
}

const zof_option_t zof_options[] = {
    {"--help", "-h", nullptr, "print this help", nullptr, nullptr},
    {"--version", "-V", nullptr, "print the version of the runtime", nullptr, version_take},
    {"--project", nullptr, "DIR", "the project folder, with config/ in it, or a folder that has it as res/", nullptr,
     project_take},
    {"--fullscreen", nullptr, nullptr, "start on the whole screen", nullptr, fullscreen_take},
    {"--scale", nullptr, "N", "open the window N times as large as the project, 0.5 to 8", nullptr, scale_take},
    {"--headless", nullptr, nullptr, "show no window; needs no display", nullptr, headless_take},
    {"--port", nullptr, "N=PATH", "the path of serial port N; may be repeated", nullptr, zof_option_port},
    {"--lang", nullptr, "L", "start in language L, the name of a file in config/languages", nullptr, lang_take},
    {},
};

const zof_variable_t zof_variables[] = {
    {"ZOF_COM<N>=PATH", "the path of serial port N, unless --port is given"},
    {"ZOF_SCRIPT=FILE", "play a session"},
    {"ZOF_SHOTS=FOLDER", "where its pictures go; otherwise the working folder"},
    {"ZOF_STRICT=1", "do not start with a project that has errors"},
    {"ZOF_STATE=FOLDER", "where the program keeps what it remembers; empty: nothing is kept"},
    {"XDG_STATE_HOME=FOLDER", "without ZOF_STATE it is kept in FOLDER/NAME; otherwise in ~/.local/state/NAME"},
    {"XDG_DATA_DIRS=FOLDER:...", "where installed projects are; otherwise /usr/local/share:/usr/share"},
    {"ZOF_INSPECT=PORT", "open a port on 127.0.0.1 for programs that look into this one; 0 selects a free one"},
    {"ZOF_INSPECT_WRITE=1", "with ZOF_INSPECT: they may also change what it shows"},
    {"XDG_RUNTIME_DIR=FOLDER", "where the token of ZOF_INSPECT is; otherwise in zof-UID in the folder of TMPDIR"},
    {"TMPDIR=FOLDER", "temporary files; otherwise /tmp"},
    {"SDL_VIDEODRIVER=offscreen", "run without a display; other drivers must find one"},
    {"SDL_AUDIODRIVER=dummy", "run without sound"},
    {},
};

const zof_exit_t zof_exits[] = {
    {ZOF_EXIT_GOOD, "the window was closed, or what was asked for is done"},
    {ZOF_EXIT_FAILURE, "the work failed: errors in the project, no memory, a session that waited in vain"},
    {ZOF_EXIT_USAGE, "wrong arguments, nothing was started; or a fault in a session"},
    {ZOF_EXIT_FILES, "there is no project, or a file that was named cannot be read or written"},
    {ZOF_EXIT_DISPLAY, "there is no display, but one was asked for: --fullscreen, --scale or SDL_VIDEODRIVER"},
    {},
};
