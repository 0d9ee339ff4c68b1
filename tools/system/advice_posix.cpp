#include "advice.h"

const std::vector<const char *> python_names = {"python3", "/usr/bin/python3"};
const char *const python_help = "apt install python3-fonttools";
const char *const display_help =
    "run it in a desktop session; without one, `zof view --shot` and SDL_VIDEODRIVER=offscreen work";
const char *const sound_help =
    "tones and sounds stay silent; if there is a device: sudo usermod -aG audio $USER, and log in again";

std::string group_help(const char *group) {
    return std::string("sudo usermod -aG ") + group + " $USER, and log in again";
}

std::string port_right_help(const zof_uart_info_t &port) {
    return port.group[0] ? group_help(port.group) : "ask the administrator of this machine for the right to open it";
}

std::string port_held_help(const zof_uart_info_t &port) {
    return port.holder_id ? "end the program, or kill " + std::to_string(port.holder_id) : "end that program";
}
