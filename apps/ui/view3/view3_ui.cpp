// View 3, about: only its tabs have event functions.
#include "bench_ids.h"
#include "ui/view_wiring.h"
#include "zof_main.h"

static constexpr zof_ctrl_fun_t view_ctrls_fun_t[] = {
    {VIEW3_IMAGE0_ID, no_event},
    {VIEW3_LABEL0_ID, tab_event<ZOF_VIEW1_ID>},
    {VIEW3_LABEL1_ID, tab_event<ZOF_VIEW2_ID>},
    {VIEW3_LABEL3_ID, tab_event<ZOF_VIEW4_ID>},
};

void view3_init(void) {
    zof_view_create(ZOF_VIEW3_ID, view_ctrls_fun_t, 4);
}

void view3_entry(void) {
}

void view3_exit(void) {
}
