// From frame to widget: the host protocol over a project whose two views have one control of each type. What one input
// leaves in the controls the next one meets, so an input that fails may not fail alone: with ZOF_FUZZ_HISTORY=FILE all
// messages are written there, and that file is an input too.
#include "hmi_line.h"

#include "every_control.h"
#include "hmi/zof_hmi.h"
#include "hmi/zof_hmi_sync.h"
#include "port/zof_port.h"

static int history = -1;

extern "C" int LLVMFuzzerInitialize(int *, char ***) {
    fuzz_quiet();
    static auto &project = *new view_project_t;
    atexit([] { project.~view_project_t(); });
    project.more = R"(, "start_page": 1, "language": "en", "app_ver": "A1.2", "hw_t": {"touch_t": {"th_en": 112}})";
    project.write("config/languages/en.g", R"({"hello": "hello"})");
    project.write("config/languages/de.g", R"({"hello": "hallo"})");
    project.image("red.png", 20, 20, 0xFF0000);
    project.image("blue.png", 20, 20, 0x0000FF);
    project.write("font/t.ttf", file_text("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf"));
    for (u32 id : {1, 2}) { // those of the second view go and come with it
        auto controls = one_of_each("\"pub\": " + std::string(id == 2 ? "1" : "0"));
        controls.push_back(ctrl(ZOF_CTRL_LABEL, 4, R"("txt": "with a font")", box(0, 0, 200, 20), text_style));
        project.view(id, controls);
    }
    project.open(320, 240);
    win_rtc_init();
    zof_func_pwon();
    zof_hmi_sync_init();
    hmi_analysers_make();
    const char *file = getenv("ZOF_FUZZ_HISTORY");
    history = file ? open(file, O_WRONLY | O_CREAT | O_TRUNC, 0644) : -1;
    return 0;
}

// A draw without a message is a touch, or its end, where its bytes say.
static void touch(fuzz_input &in) {
    const std::vector<u8> at = fuzz_bytes(in, 2);
    if (at.size() == 2) {
        sdl_pointer_inject(at[0] * 320 / 256, at[1] / 2 * 240 / 128, at[1] & 1 ? ZOF_TRUE : ZOF_FALSE);
        screen_step(SCREEN_INPUT_MS);
    }
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    fuzz_input in = {data, size};
    hmi_tail.clear();
    while (in.size) {
        const fuzz_input from = in;
        if (*in.at == HMI_DRAW) {
            fuzz_byte(in);
            touch(in);
        } else if (hmi_message(in)) {
            screen_step(SCREEN_INPUT_MS);
        }
        if (history >= 0 && in.size) { // a message that was cut would swallow what follows it there
            (void)!write(history, from.at, from.size - in.size);
        }
    }
    return 0;
}
