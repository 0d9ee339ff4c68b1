// The host protocol: frames through the receive handler and the codec, compared with a copy and a CRC of the same
// bytes, which every receiver needs; and a write of a control from the line to the picture, compared with a direct
// call.
#include <poll.h>
#include <unistd.h>

#include <atomic>
#include <cstring>
#include <thread>

#include "bench_ids.h"
#include "drv/zof_lock.h"
#include "drv/zof_loop_in.h"
#include "hmi/zof_hmi_analys.h"
#include "measure.h"
#include "port/zof_host.h"
#include "port/zof_port.h"
#include "wire.h"
#include "zof_main.h"

static constexpr int FRAMES = 20000;
static constexpr int WRITES = 40;
static constexpr int READS = 5000;

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

// The minimal work of a receiver per frame.
static double copy_and_crc(const bytes &frame) {
    static u8 copy[512];
    static volatile u16 sum; // otherwise the compiler removes the CRC
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

static double ms_since(std::chrono::steady_clock::time_point begin) {
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
}

// The limit: the same text set and drawn immediately, by a loop that does nothing else.
static double draw_at_once(lv_obj_t *label, const std::string &text) {
    const auto begin = std::chrono::steady_clock::now();
    lv_label_set_text(label, text.c_str());
    lv_refr_now(nullptr);
    return ms_since(begin);
}

// Round trips per second of a host that sends the next read as soon as it is answered, while this thread runs the loop.
static double reads_a_second(int fd, const bytes &request, size_t answer_size) {
    std::atomic<bool> over{false};
    double took = 0;
    std::thread host([&] {
        const auto begin = std::chrono::steady_clock::now();
        bytes answer(answer_size);
        for (int i = 0; i < READS; i++) {
            (void)!write(fd, request.data(), request.size());
            for (size_t have = 0; have < answer_size;) {
                pollfd p = {fd, POLLIN, 0};
                poll(&p, 1, 1000);
                const ssize_t n = read(fd, answer.data(), answer_size - have);
                have += n > 0 ? (size_t)n : 0;
            }
        }
        took = ms_since(begin);
        over = true;
        zof_loop_wake(nullptr);
    });
    loop_run([&] { return over.load(); });
    host.join();
    return READS * 1000.0 / took;
}

static void reads_row(int fd, const char *what, const bytes &request, size_t answer_size) {
    printf("| %s from a host, one after the other | %.0f a second | | |\n", what,
           reads_a_second(fd, request, answer_size));
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
    std::vector<double> from_wire, at_once;
    lv_obj_t *label = zof_ctrl_get_form_id(ZOF_VIEW1_ID, VIEW1_LABEL2_ID)->obj;
    for (int i = 0; i < WRITES; i++) {
        const std::string text = std::to_string(1000 + i);
        from_wire.push_back(write_to_picture(line.fd, text_write(ZOF_VIEW1_ID, VIEW1_LABEL2_ID, text)));
        zof_lock gui(dis_mutex);
        at_once.push_back(draw_at_once(label, text + "!"));
    }
    printf("| a host's write of a text, from the line to the picture | %.2f ms | %.2f ms, lv_label_set_text drawn at "
           "once | %.2f |\n",
           middle(from_wire), middle(at_once), middle(from_wire) / middle(at_once));
    reads_row(line.fd, "reads of `system.reboot`", sealed({ZOF_HMI_OP_GET, 0xB0, 0x01}), 8);
    reads_row(line.fd, "reads of `view.size`", sealed({ZOF_HMI_OP_GET, 0xB1, 0x06}), 10);
    wire_unplug(line);
}

void measure_hmi() {
    panel_up();
    win_uart_init();
    wire_to_picture();
    for (u8 crc : {0, 1}) {
        zof_hmi_attr_t *attr = (zof_hmi_attr_t *)zof_hmi_attr_get();
        attr->crc_en = sys_cmd_analys->crc_en = ui_cmd_analys->crc_en = crc;
        frames_row(crc ? "a host's read with CRC" : "a host's read", sealed({ZOF_HMI_OP_GET, 0xB0, 0x04, 0x01}));
        // To a nonexistent control, because LVGL's text layout is not part of the protocol.
        frames_row(crc ? "a host's write with CRC" : "a host's write", text_write(9, 9, std::string(90, 'x')));
    }
}
