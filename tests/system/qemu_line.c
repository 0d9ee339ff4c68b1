// Preloaded into programs that qemu runs: it does not know the requests that set a serial line to any rate. The older
// ones do the same at the fixed rates, and a pseudo-terminal has no rate.
#define _GNU_SOURCE
#include <asm/termbits.h>
#include <dlfcn.h>
#include <stdarg.h>
#include <sys/ioctl.h>

int ioctl(int fd, unsigned long request, ...) {
    va_list list;
    va_start(list, request);
    void *argument = va_arg(list, void *);
    va_end(list);
    if (request == TCSETS2) {
        struct termios2 *line = argument; // begins with the fields of the older record
        line->c_cflag = (line->c_cflag & ~(CBAUD | CIBAUD)) | B115200;
    }
    request = request == TCGETS2 ? TCGETS : request == TCSETS2 ? TCSETS : request;
    return ((int (*)(int, unsigned long, ...))dlsym(RTLD_NEXT, "ioctl"))(fd, request, argument);
}
