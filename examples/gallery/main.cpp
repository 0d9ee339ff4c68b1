#include <zof.h>

int main(int argc, char **argv) {
    return zof_run(argc, argv);
}
