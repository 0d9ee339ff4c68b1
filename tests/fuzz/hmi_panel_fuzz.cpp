// From frame to widget: the host protocol with a project whose two views have one control of each type. Inputs share
// the state of the controls, so a failing input may not fail alone: with ZOF_FUZZ_HISTORY=FILE all messages are written
// to that file, which is an input too.
#include "hmi_line.h"

#include "every_control.h"
#include "hmi/zof_hmi.h"
#include "port/zof_port.h"

static view_project_t project;
static int history = -1;

void fuzz_open() {
    project.more = R"(, "start_page": 1, "app_ver": "A1.2", "hw_t": {"touch_t": {"th_en": 112}})";
    files_of_each(project);
    for (u32 id : {1, 2}) { // those of the second view are deleted and created with it
        auto controls = one_of_each("\"pub\": " + std::string(id == 2 ? "1" : "0"));
        controls.push_back(ctrl(ZOF_CTRL_LABEL, 4, R"("txt": "with a font")", box(0, 0, 200, 20), text_style));
        project.view(id, controls);
    }
    project.open(320, 240);
    win_rtc_init();
    zof_func_pwon();
    hmi_open();
    const char *file = getenv("ZOF_FUZZ_HISTORY");
    history = file ? open(file, O_WRONLY | O_CREAT | O_TRUNC, 0644) : -1;
}

// A draw without a message is a touch or its end, at the position in its bytes.
static void touch(fuzz_input &in) {
    const std::vector<u8> at = fuzz_bytes(in, 2);
    if (at.size() == 2) {
        sdl_pointer_inject(at[0] * 320 / 256, at[1] / 2 * 240 / 128, at[1] & 1 ? ZOF_TRUE : ZOF_FALSE);
        screen_step(SCREEN_INPUT_MS);
    }
}

void fuzz_one(fuzz_input &in) {
    hmi_tail.clear();
    while (in.size) {
        const fuzz_input from = in;
        if (*in.at == HMI_DRAW) {
            fuzz_byte(in);
            touch(in);
        } else if (hmi_message(in)) {
            screen_step(SCREEN_INPUT_MS);
        }
        if (history >= 0 && in.size) { // a truncated message would swallow the next one in the file
            (void)!write(history, from.at, from.size - in.size);
        }
    }
}
