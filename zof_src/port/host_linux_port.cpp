// What Linux knows of a serial port without opening it, which would move its modem lines and so may reset what is
// behind it: the adapter, the group that may use it, the program that has it.
#include <dirent.h>
#include <fcntl.h>
#include <grp.h>
#include <limits.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include "port/host_linux_line.h"
#include "zof_lib/zof_util.h"

enum { ADAPTER_DEPTH = 8 }; // folders between a line and the adapter that it belongs to

static struct {
    const char *sys, *dev;
} roots = {"/sys", "/dev"};

void host_port_roots_set(const char *sys, const char *dev) {
    roots = {sys, dev};
}

const char *host_port_sys(void) {
    return roots.sys;
}

const char *host_port_dev(void) {
    return roots.dev;
}

// Reads the first line of a small file. What is not printable in it comes from a device, and goes to the screen.
bool host_line_read(const char *path, char *out, size_t size) {
    FILE *f = zof_file_read_open(path);
    const bool read = f && fgets(out, (int)size, f);
    if (f) {
        fclose(f);
    }
    if (!read) {
        *out = '\0';
        return false;
    }
    out[strcspn(out, "\n")] = '\0';
    for (char *c = out; *c; c++) {
        *c = (u8)*c < ' ' || *c == 0x7F ? '?' : *c;
    }
    return true;
}

// A USB device without a product name has its two numbers.
static bool usb_name(const char *folder, char *out, size_t size) {
    char path[PATH_MAX + 16], vendor[8], product[8];
    snprintf(path, sizeof(path), "%s/idVendor", folder);
    if (!host_line_read(path, vendor, sizeof(vendor))) {
        return false;
    }
    snprintf(path, sizeof(path), "%s/product", folder);
    if (host_line_read(path, out, size) && *out) {
        return true;
    }
    snprintf(path, sizeof(path), "%s/idProduct", folder);
    host_line_read(path, product, sizeof(product));
    snprintf(out, size, "%s:%s", vendor, product);
    return true;
}

void host_port_name(const struct stat *device, zof_uart_info_t *out) {
    char path[128];
    snprintf(path, sizeof(path), "%s/dev/char/%u:%u", roots.sys, major(device->st_rdev), minor(device->st_rdev));
    char *folder = realpath(path, nullptr);
    for (int i = 0; folder && i < ADAPTER_DEPTH && !usb_name(folder, out->adapter, sizeof(out->adapter)); i++) {
        char *end = strrchr(folder, '/');
        *(end ? end : folder) = '\0';
    }
    free(folder);
}

void host_port_group(const struct stat *device, zof_uart_info_t *out) {
    constexpr mode_t both = S_IRGRP | S_IWGRP;
    char text[1024];
    struct group record, *found = nullptr;
    if ((device->st_mode & both) == both && getgrgid_r(device->st_gid, &record, text, sizeof(text), &found) == 0 &&
        found) {
        snprintf(out->group, sizeof(out->group), "%s", found->gr_name);
    }
}

static bool process_has_open(int proc, const char *process, dev_t device) {
    char path[300];
    snprintf(path, sizeof(path), "%s/fd", process);
    const int fd = openat(proc, path, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    DIR *dir = fd >= 0 ? fdopendir(fd) : nullptr; // only root may look into the processes of others
    bool found = false;
    for (const dirent *entry; dir && !found && (entry = readdir(dir));) {
        struct stat st;
        found = fstatat(fd, entry->d_name, &st, 0) == 0 && S_ISCHR(st.st_mode) && st.st_rdev == device;
    }
    if (dir) {
        closedir(dir);
    }
    return found;
}

static u32 open_holder(dev_t device) {
    DIR *dir = opendir("/proc");
    u32 holder = 0;
    for (const dirent *entry; dir && !holder && (entry = readdir(dir));) {
        const u32 process = (u32)strtoul(entry->d_name, nullptr, 10);
        holder = process && process_has_open(dirfd(dir), entry->d_name, device) ? process : 0;
    }
    if (dir) {
        closedir(dir);
    }
    return holder;
}

void host_port_holder(const struct stat *device, zof_uart_info_t *out) {
    const u32 locked = host_lock_holder(device);
    out->holder_id = locked ? locked : open_holder(device->st_rdev);
    char path[32];
    snprintf(path, sizeof(path), "/proc/%u/comm", out->holder_id);
    if (out->holder_id) {
        host_line_read(path, out->holder, sizeof(out->holder));
    }
}

// A name in /sys/class/tty is a line if it has a device; a console has no device. The lines that the kernel reserves
// for boards without them have type 0.
static bool is_port(const char *name) {
    char path[PATH_MAX], type[8];
    snprintf(path, sizeof(path), "%s/class/tty/%s/device", roots.sys, name);
    struct stat st;
    if (stat(path, &st) != 0) {
        return false;
    }
    snprintf(path, sizeof(path), "%s/class/tty/%s/type", roots.sys, name);
    return !host_line_read(path, type, sizeof(type)) || strcmp(type, "0") != 0;
}

static bool port_describe(const char *name, zof_uart_info_t *out) {
    *out = {};
    struct stat st;
    if (!zof_text_join(out->path, sizeof(out->path), roots.dev, "/", name) || stat(out->path, &st) != 0 ||
        !S_ISCHR(st.st_mode)) {
        return false;
    }
    host_port_name(&st, out);
    host_port_holder(&st, out);
    if (access(out->path, R_OK | W_OK) != 0) {
        out->state = UART_STATE_NO_RIGHT;
        host_port_group(&st, out);
    } else if (out->holder_id) {
        out->state = UART_STATE_HELD;
    }
    return true;
}

static int port_filter(const dirent *entry) {
    return entry->d_name[0] != '.' && is_port(entry->d_name);
}

u32 zof_drv_uart_list(zof_uart_info_t *out, u32 most) {
    char path[128];
    snprintf(path, sizeof(path), "%s/class/tty", roots.sys);
    dirent **names;
    const int found = scandir(path, &names, port_filter, versionsort);
    u32 count = 0;
    for (int i = 0; i < found; i++) {
        count += count < most && port_describe(names[i]->d_name, &out[count]) ? 1 : 0;
        free(names[i]);
    }
    if (found >= 0) {
        free(names);
    }
    return count;
}
