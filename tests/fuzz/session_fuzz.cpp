// Scripted sessions of the panel: the input is the file of a session. Its commands run one after the other as long as
// they do not wait, then the panel draws. A command that ends the process ends the input.
#include <csetjmp>

#include "drv/zof_drv_aid.h"
#include "func/zof_script.h"
#include "fuzz_file.h"
#include "panel_fixture.h"

enum { TURNS = 60 };

static void (*session)(zof_task_t *task);
static bool session_runs;
static jmp_buf ended;

extern "C" {
zof_task_t *__real_zof_task_create(void (*fn)(zof_task_t *task), u32 period, void *user_data);

// The session's task is called here and not by LVGL, whose timers would stay locked when the session ends the process.
zof_task_t *__wrap_zof_task_create(void (*fn)(zof_task_t *task), u32 period, void *user_data) {
    if (!session_runs) {
        return __real_zof_task_create(fn, period, user_data);
    }
    session = fn;
    return nullptr;
}

[[noreturn]] void __wrap__Exit(int status) {
    longjmp(ended, status + 1);
}
}

void fuzz_open() {
    fuzz_must(chdir(ZOF_PANEL_DIR) == 0, "the panel's project exists");
    panel_open();
    static const zof_drv_aid_ops_t aid = {.pointer = sdl_pointer_inject, .shot = [](const char *) { return 0; }};
    drv_aid_t = &aid;
    setenv("ZOF_SCRIPT", "session", 1);
}

// Lets the session run until it ends; false if it has.
static bool turn() {
    if (setjmp(ended)) {
        return false;
    }
    session(nullptr);
    return true;
}

void fuzz_one(fuzz_input &in) {
    fuzz_file_set("session", fuzz_text(in));
    session_runs = true;
    session = nullptr;
    if (!setjmp(ended)) {
        zof_script_start();
    }
    session_runs = false;
    for (u32 i = 0; session && i < TURNS && turn(); i++) {
        screen_step(20);
    }
    sdl_pointer_inject(0, 0, ZOF_FALSE);
    screen_step(20);
    panel_sent.clear();
}
