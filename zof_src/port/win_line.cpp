#include "port/win_line.h"

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "zof_lib/zof_stdio.h"

bool win_line_path(s32 port, const char *path, const char *own, char *out, size_t size) {
    char name[32];
    snprintf(name, sizeof(name), "ZOF_COM%d", port);
    const char *given = getenv(name);
    const char *chosen = path ? path : given && *given ? given : own;
    const int need = snprintf(out, size, "%s", chosen);
    return need >= 0 && (size_t)need < size;
}

void win_line_log(s32 port, bool seen, bool foreign, const zof_uart_info_t *now, const zof_host_line_t *line) {
    char text[128];
    if (now->state == UART_STATE_OPEN && seen) {
        zof_printf("serial line %s: the device is back", now->path);
    } else if (now->state == UART_STATE_OPEN) {
        zof_printf("serial port %d: %s at %u baud, %u%c%u", port, now->path, line->baud, line->data_bits,
                   "NOE"[line->parity], line -> stop_bits);
    } else if (now->state == UART_STATE_GONE) {
        zof_printf("serial line %s: the device is gone; waiting for it", now->path);
    } else if (now->state != UART_STATE_NOT_SOUGHT) {
        zof_printf("serial port %d: cannot open %s: %s%s", port, now->path,
                   zof_drv_uart_state_text(now, text, sizeof(text)), foreign ? "" : "; looking for it");
    }
}

bool win_line_same(const zof_uart_info_t *a, const zof_uart_info_t *b) {
    return a->state == b->state && a->holder_id == b->holder_id && strcmp(a->holder, b->holder) == 0 &&
           strcmp(a->group, b->group) == 0 && strcmp(a->error, b->error) == 0;
}
