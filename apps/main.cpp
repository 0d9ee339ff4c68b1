#include "zof_args.h"
#include "zof_start.h"

int main(int argc, char **argv) {
    const int status = zof_args_take(&argc, argv);
    return status >= 0 ? status : zof_run(argc, argv);
}
