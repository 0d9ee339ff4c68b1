// The host protocol: frames through the receive handler and the codec, against a copy and a CRC of the same bytes,
// which no receiver could do without; and a write of a control from the line to the picture, against the same call made
// here.
#include <cstring>
#include <unistd.h>

#include "bench_ids.h"
#include "hmi/zof_hmi_analys.h"
#include "measure.h"
#include "port/zof_host.h"
#include "port/zof_port.h"
#include "wire.h"
#include "zof_main.h"

static constexpr int FRAMES = 20000;
static constexpr int WRITES = 40;

static bytes sealed(const bytes &counted) {
    const bool crc = zof_hmi_attr_get()->crc_en;
    bytes out = counted;
    for (u8 head : {(u8)(counted.size() + (crc ? 2 : 0)), (u8)0xA5, (u8)0x5A}) {
        out.insert(out.begin(), head);
    }
    if (crc) {
        const u16 sum = zof_hmi_crc16(counted.data(), (u32)counted.size());
        out.push_back((u8)(sum >> 8));
        out.push_back((u8)sum);
    }
    return out;
}

static bytes text_write(u16 view, u16 control, const std::string &text) {
    bytes counted = {ZOF_HMI_OP_SET, 0xB2, 0x00, 0x00, (u8)(view >> 8), (u8)view, (u8)(control >> 8), (u8)control};
    counted.insert(counted.end(), text.begin(), text.end());
    counted.push_back(0);
    return sealed(counted);
}

// What the least of receivers does with a frame.
static double copy_and_crc(const bytes &frame) {
    static u8 copy[512];
    static volatile u16 sum; // or the CRC would not be computed at all
    return median_ms(9, [&] {
        for (int i = 0; i < FRAMES; i++) {
            memcpy(copy, frame.data(), frame.size());
            sum = zof_hmi_crc16(copy, (u32)frame.size());
        }
        (void)sum;
    });
}

static void frames_row(const char *what, const bytes &frame) {
    bytes work = frame;
    const double ours = median_ms(9, [&] {
        for (int i = 0; i < FRAMES; i++) {
            zof_hmi_recive_data_handle(work.data(), (u32)work.size(), nullptr);
            zof_hmi_cmd_ui_data_run();
        }
    });
    const double least = copy_and_crc(frame);
    printf(
        "| %s of %zu bytes, decoded and done | %.2f us, %.0f frames a second | %.2f us, a copy and a CRC of the same "
        "bytes | %.1f |\n",
        what, frame.size(), ours * 1000 / FRAMES, FRAMES * 1000.0 / ours, least * 1000 / FRAMES, ours / least);
}

// One turn of the program's loop, with its pause.
static void turn() {
    zof_mutex_lock(dis_mutex);
    lv_timer_handler();
    zof_mutex_unlock(dis_mutex);
    usleep(1000);
}

static std::vector<u32> picture() {
    s32 w = 0;
    s32 h = 0;
    const u32 *frame = sdl_frame_get(&w, &h);
    return {frame, frame + (size_t)w * (size_t)h};
}

// Milliseconds from `start` to another picture; the picture is at rest before.
static double until_seen(const std::function<void()> &start) {
    const auto rest = std::chrono::steady_clock::now() + std::chrono::milliseconds(120);
    while (std::chrono::steady_clock::now() < rest) {
        turn();
    }
    const std::vector<u32> before = picture();
    const auto begin = std::chrono::steady_clock::now();
    start();
    while (picture() == before) {
        turn();
    }
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
}

static double middle(std::vector<double> all) {
    std::nth_element(all.begin(), all.begin() + (long)all.size() / 2, all.end());
    return all[all.size() / 2];
}

// The panel's own views with a host on a pseudo-terminal.
static void wire_to_picture() {
    wire line;
    line.link = "/tmp/zof-measure-" + std::to_string(getpid());
    setenv("ZOF_COM5", line.link.c_str(), 1);
    if (!wire_plug(line) || zof_hmi_init() != 0) {
        return;
    }
    zof_mutex_unlock(dis_mutex); // taken by panel_up; the loop's turns take it themselves
    std::vector<double> from_wire, from_here;
    lv_obj_t *label = zof_ctrl_get_form_id(ZOF_VIEW1_ID, VIEW1_LABEL2_ID)->obj;
    for (int i = 0; i < WRITES; i++) {
        const std::string text = std::to_string(1000 + i);
        const bytes frame = text_write(ZOF_VIEW1_ID, VIEW1_LABEL2_ID, text);
        from_wire.push_back(until_seen([&] { (void)!write(line.fd, frame.data(), frame.size()); }));
        from_here.push_back(until_seen([&] { lv_label_set_text(label, (text + "!").c_str()); }));
    }
    wire_unplug(line);
    const double ours = middle(from_wire);
    const double plain = middle(from_here);
    printf(
        "| a host's write of a text, from the line to the picture | %.1f ms | %.1f ms, lv_label_set_text in the same "
        "loop | %.2f |\n",
        ours, plain, ours / plain);
}

void measure_hmi() {
    panel_up();
    win_uart_init();
    wire_to_picture();
    for (u8 crc : {0, 1}) {
        zof_hmi_attr_t *attr = (zof_hmi_attr_t *)zof_hmi_attr_get();
        attr->crc_en = sys_cmd_analys->crc_en = ui_cmd_analys->crc_en = crc;
        frames_row(crc ? "a host's read with CRC" : "a host's read", sealed({ZOF_HMI_OP_GET, 0xB0, 0x04, 0x01}));
        // To nobody: what LVGL takes to lay a text out is not the protocol's.
        frames_row(crc ? "a host's write with CRC" : "a host's write", text_write(9, 9, std::string(90, 'x')));
    }
}
