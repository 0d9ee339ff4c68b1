#include "drv/zof_drv_end.h"

#include <stdlib.h>

enum { FUNCTIONS_MAX = 4 };

static void (*functions[FUNCTIONS_MAX])(void);
static u32 count;

void zof_end_run(void) {
    while (count > 0) {
        functions[--count]();
    }
}

void zof_end_add(void (*fn)(void)) {
    if (count == 0) {
        atexit(zof_end_run);
    }
    if (count < FUNCTIONS_MAX) {
        functions[count++] = fn;
    }
}
