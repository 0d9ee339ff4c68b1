// The bench panel's entry into the runtime: its four views and its main function.
#include "zof.h"

#include "hardware/uart/zof_hw_uart.h"
#include "zof_main.h"

const zof_view_fun_t zof_views_fun[ZOF_VIEW_COUNT] = {
    {ZOF_VIEW1_ID, view1_init, view1_entry, view1_exit},
    {ZOF_VIEW2_ID, view2_init, view2_entry, view2_exit},
    {ZOF_VIEW3_ID, view3_init, view3_entry, view3_exit},
    {ZOF_VIEW4_ID, view4_init, view4_entry, view4_exit},
};

void zof_main(void) {
    zof_prj_create(zof_views_fun, ZOF_VIEW_COUNT);
    zof_hw_init();
    zof_func_schedule(); // new data from a card or a USB disk, in the first minute
}
