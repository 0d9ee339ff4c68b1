// One frame of the register link to its label, compared with a plain lv_label_set_text of the same text.
#include "measure.h"

#include "bench_ids.h"
#include "frames.h"
#include "hardware/uart/zof_hw_uart.h"
#include "zof_main.h"

void measure_link() {
    panel_up();
    static constexpr int FRAMES = 20000;
    u16 value = 0;
    const double frames = median_ms(5, [&value] {
        for (int i = 0; i < FRAMES; i++) {
            bytes f = frame_write(REG_LIVE_MA, {value++});
            recive_data_handle(f.data(), (u32)f.size());
        }
    });
    lv_obj_t *label = zof_ctrl_get_form_id(ZOF_VIEW1_ID, VIEW1_LABEL2_ID)->obj;
    const double plain = median_ms(5, [&] {
        for (int i = 0; i < FRAMES; i++) {
            value++;
            lv_label_set_text_fmt(label, "%u.%03u A", value / 1000u, value % 1000u);
        }
    });
    printf("| a frame of the link to its label | %.2f us, %.0f frames a second | %.2f us, plain lv_label_set_text | "
           "%.2f |\n",
           frames * 1000 / FRAMES, FRAMES * 1000.0 / frames, plain * 1000 / FRAMES, frames / plain);
}
