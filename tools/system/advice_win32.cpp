#include "advice.h"

const std::vector<const char *> python_names = {"py", "python3", "python"};
const char *const python_help = "install Python 3, then run: py -m pip install fonttools";
const char *const display_help =
    "sign in to a desktop; without one, `zof view --shot` and SDL_VIDEODRIVER=offscreen work";
const char *const sound_help =
    "tones and sounds stay silent; if there is a device, enable it in the sound settings of Windows";

std::string group_help(const char *) {
    return "ask the administrator of this machine";
}

std::string port_right_help(const zof_uart_info_t &) {
    return "end the program that has the port open, or ask the administrator of this machine";
}

// Windows does not say which program it is.
std::string port_held_help(const zof_uart_info_t &) {
    return "end the program that has the port open, such as a terminal";
}
