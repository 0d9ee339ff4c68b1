#include <zof.h>

static void init(void) { zof_view_create(1, 0, 0); }
static void entry(void) { zof_printf("ten lines: view %d is shown", (int)zof_view_get_cur_id(ZOF_LAYER_UI)); }
static const zof_view_fun_t views[] = {{1, init, entry, 0}};

void zof_main(void) { zof_prj_create(views, 1); }

int main(int argc, char **argv) { return zof_run(argc, argv); }
