// `zof doctor`: reports what prevents a panel from running on this machine, and the command that fixes it.
#include <SDL.h>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "check/zof_check.h"
#include "drv/zof_drv_device.h"
#include "drv/zof_drv_media.h"
#include "drv/zof_drv_uart.h"
#include "lvgl.h"
#include "zof.h"
#include "zof_lib/zof_stdio.h"

#include "../system/advice.h"

enum { PORTS_MAX = 64, DEVICES_MAX = 32 };

static struct {
    std::string folder;
    int wrong;
} doctor;

static void options_add(CLI::App &app) {
    app.add_option("project", doctor.folder, "a project folder, which is checked too")->type_name("DIR");
}

static void good(const char *what, const char *fmt, ...) ZOF_PRINTF_LIKE(2, 3);
static void good(const char *what, const char *fmt, ...) {
    va_list args;
    va_start(args, fmt);
    printf("ok     %-9s ", what);
    vprintf(fmt, args);
    printf("\n");
    va_end(args);
}

static void wrong(const char *what, const std::string &reason, const std::string &help) {
    printf("wrong  %-9s %s\n       %-9s %s\n", what, reason.c_str(), "", help.c_str());
    doctor.wrong++;
}

// Display and sound -----------------------------------------------------------------------------------------------
// Returns true if the driver shows a picture. Without a display SDL falls back to drivers that show nothing.
static bool is_shown(const char *driver) {
    return getenv("SDL_VIDEODRIVER") || (strcmp(driver, "offscreen") != 0 && strcmp(driver, "dummy") != 0);
}

// What a panel opens when there is no desktop to open it.
static constexpr struct {
    zof_device_e kind;
    const char *what, *missing, *help; // without `missing` a device is not needed
    const char *rule;                  // what helps if no group may use it
} device_rows[] = {
    {ZOF_DEVICE_DISPLAY, "display", "there is no /dev/dri/card*, so the kernel has no driver for this display",
     "`journalctl -k | grep drm` shows what it found", "ask the administrator of this machine"},
    {ZOF_DEVICE_INPUT, "input", "there is no /dev/input/event*, so no touch screen, mouse or keyboard was found",
     "`journalctl -k | grep input` shows what the kernel found", "ask the administrator of this machine"},
    {ZOF_DEVICE_LIGHT, "backlight", nullptr, "none: the picture is dimmed instead",
     "install the udev rules of the panel, then: sudo udevadm trigger -c add -s backlight"},
};

static void device_test(const char *what, const zof_device_t &device, const char *rule) {
    if (device.usable) {
        good(what, "%s", device.path);
    } else {
        wrong(what, std::string(device.path) + ": no permission", device.group[0] ? group_help(device.group) : rule);
    }
}

// Returns true if a display can be used as far as permissions go.
static bool devices_test() {
    static zof_device_t devices[DEVICES_MAX];
    bool usable = false;
    for (const auto &row : device_rows) {
        const u32 count = zof_device_list(row.kind, devices, DEVICES_MAX);
        for (u32 i = 0; i < count; i++) {
            device_test(row.what, devices[i], row.rule);
            usable = usable || (row.kind == ZOF_DEVICE_DISPLAY && devices[i].usable);
        }
        if (count == 0 && row.missing) {
            wrong(row.what, row.missing, row.help);
        } else if (count == 0) {
            good(row.what, "%s", row.help);
        }
    }
    return usable;
}

static void display_wrong(bool opened) {
    const std::string what =
        std::string("no window can be opened") + (opened ? "" : std::string(": ") + SDL_GetError());
    const bool on_linux = strcmp(zof_system_get_name(), "linux") == 0;
    const bool device = on_linux && !getenv("SDL_VIDEODRIVER") && devices_test();
    wrong("display", what,
          device ? "end the program that shows something on it (systemctl stop NAME), or install libegl1 libgles2 "
                   "libgl1-mesa-dri"
                 : display_help);
}

static void display_test() {
    SDL_Rect area = {};
    const bool opened = SDL_InitSubSystem(SDL_INIT_VIDEO) == 0 && SDL_GetDisplayBounds(0, &area) == 0;
    const std::string driver = opened ? SDL_GetCurrentVideoDriver() : "";
    if (!opened || !is_shown(driver.c_str())) {
        display_wrong(opened);
        return;
    }
    good("display", "%s, %d x %d", driver.c_str(), area.w, area.h);
    SDL_QuitSubSystem(SDL_INIT_VIDEO);
    if (driver == "KMSDRM") {
        devices_test();
    }
}

static void audio_test() {
    const bool opened = SDL_InitSubSystem(SDL_INIT_AUDIO) == 0;
    const int devices = opened ? SDL_GetNumAudioDevices(0) : 0;
    if (devices < 1) {
        wrong("sound", std::string("no sound device") + (opened ? "" : std::string(": ") + SDL_GetError()), sound_help);
    } else {
        good("sound", "%s, %s", SDL_GetCurrentAudioDriver(), SDL_GetAudioDeviceName(0, 0));
    }
    if (opened) {
        SDL_QuitSubSystem(SDL_INIT_AUDIO);
    }
}

// ZOF_MEDIA_PACKAGES are Debian's packages of the libraries that this program is compiled for.
static void media_test() {
    switch (zof_media_ffmpeg()) {
    case ZOF_FFMPEG_READY:
        good("media", "FFmpeg decodes clips, MP3, AAC and JPEG");
        break;
    case ZOF_FFMPEG_NOT_INSTALLED:
        wrong("media", "FFmpeg's libraries are not installed: clips, MP3, AAC and JPEG do not work",
              *ZOF_MEDIA_PACKAGES ? "sudo apt-get install " ZOF_MEDIA_PACKAGES : "install FFmpeg in that version");
        break;
    default:
        good("media", "FFmpeg is not built in: clips, MP3 and AAC do not work");
    }
}

// Serial ports ----------------------------------------------------------------------------------------------------
static std::string port_help(const zof_uart_info_t &port) {
    switch (port.state) {
    case UART_STATE_NO_RIGHT:
        return port_right_help(port);
    case UART_STATE_HELD:
        return port_held_help(port);
    default:
        return "unplug the adapter and plug it in again";
    }
}

static void ports_test() {
    static zof_uart_info_t ports[PORTS_MAX];
    const u32 count = zof_drv_uart_list(ports, PORTS_MAX);
    for (u32 i = 0; i < count; i++) {
        const zof_uart_info_t &port = ports[i];
        char state[128];
        if (port.state == UART_STATE_NOT_SOUGHT) {
            good("port", "%s%s%s", port.path, port.adapter[0] ? ", " : "", port.adapter);
        } else {
            wrong("port", std::string(port.path) + ": " + zof_drv_uart_state_text(&port, state, sizeof(state)),
                  port_help(port));
        }
    }
    if (count == 0) {
        good("port", "none: a host or a box needs an adapter; plug it in and look again");
    }
}

// The project -----------------------------------------------------------------------------------------------------
// Checks the project, which also opens its fonts and pictures.
static void project_test() {
    char folder[1024];
    if (zof_check_find(doctor.folder.c_str(), folder, sizeof(folder)) != 0) {
        wrong("project", doctor.folder + ": there is no config/project/zofprj.g in it",
              "name the folder of config/, or the one of res/");
        return;
    }
    lv_init(); // the decoders need it
    zof_check_t check;
    const bool readable = zof_check_project(folder, &check) == 0;
    if (!readable || check.errors) {
        wrong("project", readable ? std::to_string(check.errors) + " errors" : "cannot be read",
              "zof check " + doctor.folder);
    } else {
        good("project", "%s, %u warnings", folder, check.count);
    }
    zof_check_free(&check);
}

static int doctor_run() {
    display_test();
    audio_test();
    media_test();
    ports_test();
    if (!doctor.folder.empty()) {
        project_test();
    }
    return doctor.wrong ? ZOF_EXIT_FINDINGS : ZOF_EXIT_CLEAN;
}

const zof_command_t zof_doctor_command = {"doctor", "test display, touch, sound and serial ports, and say what helps",
                                          "  zof doctor\n"
                                          "  zof doctor res\n",
                                          options_add, doctor_run};
