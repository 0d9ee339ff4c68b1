// The box's link to the page: from its line to the picture, and what a frame costs, compared with a plain
// lv_label_set_text of the same text.
#include "measure.h"

#include <string>
#include <unistd.h>

#include "bench/bench.h"
#include "bench_ids.h"
#include "drv/zof_lock.h"
#include "frames.h"
#include "hardware/uart/zof_hw_uart.h"
#include "wire.h"
#include "zof_main.h"

static constexpr int WRITES = 40, FRAMES = 20000;

static bytes readings(u16 ma) {
    bytes out;
    for (const auto &[addr, value] : {std::pair{REG_LIVE_MV, 12000}, {REG_LIVE_MA, ma}, {REG_LIVE_DW, ma * 12 / 100}}) {
        const bytes frame = frame_write((u16)addr, {(u16)value});
        out.insert(out.end(), frame.begin(), frame.end());
    }
    return out;
}

static bytes output(u16 on) {
    return frame_write(REG_OUT_STATE, {on});
}

// Returns the median over frames that alternate, so that each one changes the picture.
static double median_to_picture(int fd, bytes (*frame)(u16), u16 a, u16 b) {
    std::vector<double> took;
    for (int i = 0; i < WRITES; i++) {
        const bytes alive = frame_write(REG_LIVE_MV, {12000}); // or the page says that the readings are late
        (void)!write(fd, alive.data(), alive.size());
        took.push_back(write_to_picture(fd, frame(i % 2 ? a : b)));
    }
    return middle(took);
}

static void frames_row() {
    const zof_lock gui(dis_mutex);
    u16 ma = 0;
    const double frames = median_ms(5, [&] {
        for (int i = 0; i < FRAMES; i++) {
            bytes f = readings(ma++ % 5000);
            recive_data_handle(f.data(), (u32)f.size());
        }
    });
    lv_obj_t *label = zof_ctrl_get_form_id(ZOF_VIEW1_ID, VIEW1_LABEL2_ID)->obj;
    const double plain = median_ms(5, [&] {
        for (int i = 0; i < FRAMES; i++) {
            ma++;
            lv_label_set_text_fmt(label, "%u.%03u A", ma / 1000u, ma % 1000u);
        }
    });
    printf("| three readings of the box, kept and on the page | %.2f us, %.0f frames a second | %.2f us, plain "
           "lv_label_set_text of one | %.2f |\n",
           frames * 1000 / FRAMES, FRAMES * 1000.0 / frames, plain * 1000 / FRAMES, frames / plain);
}

void measure_link() {
    wire line;
    line.link = "/tmp/zof-measure-" + std::to_string(getpid());
    setenv("ZOF_COM6", line.link.c_str(), 1);
    if (!wire_plug(line)) {
        return;
    }
    panel_up(true);
    zof_hw_init();
    zof_mutex_unlock(dis_mutex); // the loop's turns take it themselves
    loop_run([] { return bench.port.state == BENCH_PORT_OPEN; });
    for (const bytes &f : {readings(1000), output(0)}) {
        write_to_picture(line.fd, f);
    }
    printf("| the box's output turns on, from the line to the picture | %.2f ms | | |\n",
           median_to_picture(line.fd, output, 0, 1));
    printf("| a reading of the box, from the line to the picture | %.2f ms | | |\n",
           median_to_picture(line.fd, readings, 1000, 4000));
    frames_row();
    wire_unplug(line);
}
