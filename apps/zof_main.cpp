// The bench panel's entry into the runtime: its five views and its main function.
#include "zof.h"

#include "hardware/uart/zof_hw_uart.h"
#include "ui/ui.h"
#include "zof_main.h"

const zof_view_fun_t zof_views_fun[ZOF_VIEW_COUNT] = {
    {ZOF_VIEW1_ID, view1_init, view1_entry, view1_exit}, {ZOF_VIEW2_ID, view2_init, view2_entry, view2_exit},
    {ZOF_VIEW3_ID, view3_init, view3_entry, view3_exit}, {ZOF_VIEW4_ID, view4_init, view4_entry, view4_exit},
    {ZOF_VIEW5_ID, view5_init, view5_entry, view5_exit},
};

static constexpr zof_hw_client_t client = {bench_take, bench_take_word, bench_take_frame, bench_take_skipped, ui_paint};

void panel_start(void) {
    bench_start();
    zof_prj_create(zof_views_fun, ZOF_VIEW_COUNT);
    zof_hw_client_set(&client);
    ui_start();
}

void zof_main(void) {
    panel_start();
    zof_hw_init();
    const bench_port_t port = {drv_uart ? BENCH_PORT_OPEN : BENCH_PORT_MISSING, "", ""};
    bench_take_port(&port);
    zof_func_schedule(); // new data from a card or a USB disk, in the first minute
}
