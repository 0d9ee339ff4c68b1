#include "zof.h"
#include "zof_args.h"

int main(int argc, char **argv) {
    zof_app_set(&zof_bench_app);
    return zof_run(argc, argv);
}
