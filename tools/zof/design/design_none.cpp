// In place of `zof design` in a build without node and npm.
#include <cstdio>

#include "design.h"
#include "zof_lib/zof_stdio.h"

int design_run(const design_options_t &) {
    fprintf(stderr, "zof design: this program was built without the page, because node and npm were missing\n");
    return ZOF_EXIT_FAILURE;
}
