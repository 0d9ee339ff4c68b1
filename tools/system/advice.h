// What is called by different names on different systems, and what people can do there: advice_posix.cpp and
// advice_win32.cpp.
#ifndef ADVICE_H
#define ADVICE_H

#include <string>
#include <vector>

#include "drv/zof_drv_uart.h"

// The programs that may be Python 3, the best first, and how to get it with fontTools.
extern const std::vector<const char *> python_names;
extern const char *const python_help;

// What helps when there is no display, and no sound device.
extern const char *const display_help, *const sound_help;

// Returns what helps when only members of this group may open a device.
std::string group_help(const char *group);

// Returns what helps when a port may not be opened, and when another program holds it.
std::string port_right_help(const zof_uart_info_t &port);
std::string port_held_help(const zof_uart_info_t &port);

#endif
