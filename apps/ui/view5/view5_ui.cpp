// View 5: the trend.
#include "bench_ids.h"
#include "ui/ui.h"

void view5_paint(void) {
    paint_shown(zof_ctrl_get_form_id(ZOF_VIEW5_ID, VIEW5_LOCK_ID), bench.locked);
}

static constexpr auto view_ctrls_fun_t = view_rows<158>({
    {VIEW5_STRIP_TURN_OFF_ID, strip_off_event},
    {VIEW5_TAB_OUTPUT_ID, output_tab_event},
    {VIEW5_TAB_RAILS_ID, tab_event<ZOF_VIEW2_ID>},
    {VIEW5_TAB_SETTINGS_ID, tab_event<ZOF_VIEW4_ID>},
    {VIEW5_TAB_ABOUT_ID, tab_event<ZOF_VIEW3_ID>},
});

void view5_init(void) {
    zof_view_create(ZOF_VIEW5_ID, view_ctrls_fun_t.data(), view_ctrls_fun_t.size());
}

void view5_entry(void) {
    ui_entered();
}

void view5_exit(void) {
}
