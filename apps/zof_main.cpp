// The bench panel's entry into the runtime: its five views and its main function.
#include <stdio.h>

#include <string>

#include "zof.h"

#include "bench/bench_import.h"
#include "bench/bench_trend.h"
#include "hardware/uart/zof_hw_replay.h"
#include "hardware/uart/zof_hw_uart.h"
#include "net/net_scpi.h"
#include "ui/ui.h"
#include "zof_args.h"
#include "zof_main.h"

const zof_view_fun_t zof_views_fun[ZOF_VIEW_COUNT] = {
    {ZOF_VIEW1_ID, view1_init, view1_entry, view1_exit}, {ZOF_VIEW2_ID, view2_init, view2_entry, view2_exit},
    {ZOF_VIEW3_ID, view3_init, view3_entry, view3_exit}, {ZOF_VIEW4_ID, view4_init, view4_entry, view4_exit},
    {ZOF_VIEW5_ID, view5_init, view5_entry, view5_exit},
};

// Converts the state of the port for the model.
static void port_changed(const zof_uart_info_t *info) {
    static constexpr struct {
        zof_uart_state_e id;
        bench_port_e state;
    } rows[] = {
        {UART_STATE_NOT_SOUGHT, BENCH_PORT_LOOKING}, {UART_STATE_OPEN, BENCH_PORT_OPEN},
        {UART_STATE_MISSING, BENCH_PORT_MISSING},    {UART_STATE_NO_RIGHT, BENCH_PORT_RIGHT},
        {UART_STATE_HELD, BENCH_PORT_HELD},          {UART_STATE_GONE, BENCH_PORT_GONE},
        {UART_STATE_ERROR, BENCH_PORT_FAULT},
    };
    bench_port_t port = {.state = info->path[0] ? row_of(rows, info->state).state : BENCH_PORT_UNSET,
                         .opened = info->opened};
    snprintf(port.path, sizeof(port.path), "%.*s", (int)sizeof(port.path) - 1, info->path);
    if (info->state == UART_STATE_HELD && info->holder[0]) {
        snprintf(port.who, sizeof(port.who), "%s (%u)", info->holder, info->holder_id);
    } else if (info->state == UART_STATE_NO_RIGHT || info->state == UART_STATE_ERROR) {
        zof_text_join(port.who, sizeof(port.who), info->state == UART_STATE_ERROR ? info->error : info->group, nullptr,
                      nullptr);
    }
    bench_take_port(&port);
    ui_paint();
}

static constexpr zof_hw_client_t client = {bench_take, bench_take_word, ui_paint};

// Shows the name of a replayed or imported file in the window's title.
static void title_set() {
    const char *replay = zof_replay_file();
    const std::string file = replay ? replay : import_name();
    const zof_prj_t *project = zof_prj_get_cur();
    if (!file.empty() && project && project->attr && project->attr->p_name) {
        zof_disp_set_title((file.substr(file.rfind('/') + 1) + " – " + project->attr->p_name).c_str());
    }
}

void panel_start(void) {
    bench_start();
    zof_prj_create(zof_views_fun, ZOF_VIEW_COUNT);
    zof_hw_client_set(&client);
    zof_link_on_change(port_changed);
    ui_start();
    title_set();
    if (trend_stopped()) {
        ui_tab_to(ZOF_VIEW5_ID);
    }
}

void zof_main(void) {
    panel_start();
    zof_args_begin();
    zof_hw_init();
    net_scpi_start();
    zof_func_schedule(); // looks for new data on a card or a USB disk during the first minute
}
