// What Windows knows of its serial ports without opening them: the registry lists those that exist.
#include "port/host_win32.h"

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <algorithm>
#include <vector>

#include "zof_lib/zof_util.h"

enum { NAME_SIZE = 32 };

struct port_name {
    char name[NAME_SIZE];
};

// A value's data is the port's name, "COM3".
static bool port_read(HKEY key, DWORD index, port_name *out) {
    wchar_t value[256], data[NAME_SIZE] = L"";
    DWORD value_size = 256, data_size = sizeof(data) - sizeof(data[0]), type = 0;
    const LSTATUS status = RegEnumValueW(key, index, value, &value_size, nullptr, &type, (BYTE *)data, &data_size);
    *out->name = '\0';
    if (status == ERROR_SUCCESS && type == REG_SZ) {
        host_text_narrow(data, out->name, sizeof(out->name));
    }
    return status == ERROR_SUCCESS || status == ERROR_MORE_DATA;
}

static u32 number_of(const port_name &port) {
    return (u32)strtoul(port.name + strcspn(port.name, "0123456789"), nullptr, 10);
}

u32 zof_drv_uart_list(zof_uart_info_t *out, u32 most) {
    HKEY key;
    if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"HARDWARE\\DEVICEMAP\\SERIALCOMM", 0, KEY_READ, &key) != ERROR_SUCCESS) {
        return 0;
    }
    std::vector<port_name> ports;
    port_name port;
    for (DWORD i = 0; port_read(key, i, &port); i++) {
        if (*port.name) {
            ports.push_back(port);
        }
    }
    RegCloseKey(key);
    std::sort(ports.begin(), ports.end(), [](const auto &a, const auto &b) { return number_of(a) < number_of(b); });
    const u32 count = (u32)std::min(ports.size(), (size_t)most);
    for (u32 i = 0; i < count; i++) {
        out[i] = {};
        snprintf(out[i].path, sizeof(out[i].path), "%s", ports[i].name);
    }
    return count;
}
