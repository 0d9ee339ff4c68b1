// Checks a program's own project at start if ZOF_STRICT=1, so that it does not run with errors in its project.
#include <cstdlib>
#include <cstring>

#include "check/zof_check.h"
#include "zof_lib/zof_stdio.h"

zof_bool zof_check_start(const char *folder) {
    const char *strict = std::getenv("ZOF_STRICT");
    if (!folder || !strict || std::strcmp(strict, "1") != 0) {
        return ZOF_TRUE;
    }
    zof_check_t check;
    const bool readable = zof_check_project(folder, &check) == 0;
    for (u32 i = 0; i < check.count; i++) {
        char line[1500];
        zof_check_line(&check.findings[i], ZOF_FALSE, line, sizeof line);
        zof_printf("%s%s", folder, line);
    }
    const bool good = readable && check.errors == 0;
    if (!good) {
        zof_printf("ZOF_STRICT: %u errors in %s; the program does not start", check.errors, folder);
    }
    zof_check_free(&check);
    return good;
}
