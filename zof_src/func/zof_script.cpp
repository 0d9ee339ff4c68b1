#include "func/zof_script.h"

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "control/zof_ctrl.h"
#include "control/zof_label.h"
#include "drv/zof_drv.h"
#include "drv/zof_drv_aid.h"
#include "drv/zof_drv_end.h"
#include "project/look/zof_lang.h"
#include "project/look/zof_style.h"
#include "project/read/zof_j2s.h"
#include "zof_lib/zof_stdio.h"
#include "zof_lib/zof_task.h"

enum { STEP_MS = 10, TAP_MS = 60, LINE_SIZE = 512, ARG_COUNT = 6, NUMBER_MAX = 1000000000 };

enum step_e { DONE, AGAIN };
typedef step_e (*command_fn)(); // called at each step until it is done

// The running session.
static struct script_t {
    const char *path;
    char *text;     // the file
    char *next;     // what is left of it
    command_fn run; // the current command, null before the first one
    u32 line;
    char words[LINE_SIZE]; // the current line, split into args
    char *args[ARG_COUNT];
    s32 argc;
    u32 started, steps; // of the current command
    s32 x, y;           // of the pointer
} script;

[[noreturn]] static void leave(int status) {
    fflush(stdout);
    zof_end_run();
    _Exit(status); // threads still run: nothing is torn down, as when the window is closed
}

[[noreturn]] static void fault(const char *what, int status = ZOF_EXIT_USAGE) {
    zof_printf("%s:%u: %s", script.path, script.line, what);
    leave(status);
}

static s32 number(s32 index) {
    char *end;
    const long v = strtol(script.args[index], &end, 10);
    if (end == script.args[index] || *end || v < -NUMBER_MAX || v > NUMBER_MAX) {
        fault("a number was expected");
    }
    return (s32)v;
}

static u32 duration(s32 index) {
    const s32 ms = number(index);
    if (ms < 0) {
        fault("a time cannot be negative");
    }
    return (u32)ms;
}

static u32 elapsed() {
    return zof_sys_time_ms() - script.started;
}

// How long the finger has rested. Steps count too: where a step lasts longer than a tap, the widgets must still see
// each half of it.
static u32 rested() {
    return LV_MIN(elapsed(), script.steps * (TAP_MS / 3));
}

static void pointer(s32 x, s32 y, zof_bool pressed) {
    script.x = x;
    script.y = y;
    zof_drv_aid_pointer(x, y, pressed);
}

static step_e cmd_wait() {
    return elapsed() >= duration(1) ? DONE : AGAIN;
}

static step_e cmd_press() {
    pointer(number(1), number(2), ZOF_TRUE);
    return DONE;
}

// Lasts as long as a tap, so that the widgets see the finger up before the next command puts it down again.
static step_e cmd_release() {
    pointer(script.x, script.y, ZOF_FALSE);
    return rested() >= TAP_MS ? DONE : AGAIN;
}

static step_e cmd_tap() {
    pointer(number(1), number(2), rested() < TAP_MS);
    return rested() >= 2 * TAP_MS ? DONE : AGAIN;
}

// The finger rests at the end before it lifts, so that the widgets see it there, and stays up as after `release`.
static step_e cmd_drag() {
    const s64 time = LV_MAX(duration(5), 1);
    const s64 now = elapsed() < time ? elapsed() : time;
    pointer((s32)(number(1) + (number(3) - number(1)) * now / time),
            (s32)(number(2) + (number(4) - number(2)) * now / time), elapsed() < time + TAP_MS);
    return elapsed() < time + 2 * TAP_MS ? AGAIN : DONE;
}

static step_e cmd_shot() {
    const char *folder = getenv("ZOF_SHOTS");
    char path[LINE_SIZE];
    const int need = snprintf(path, sizeof(path), "%s%s%s", folder ? folder : "", folder ? "/" : "", script.args[1]);
    lv_refr_now(nullptr);
    if (need >= LINE_SIZE || zof_drv_aid_shot(path) != 0) {
        fault("the picture cannot be written", ZOF_EXIT_FILES);
    }
    return DONE;
}

static step_e cmd_lang() {
    if (zof_lang_set(script.args[1]) != 0) {
        fault("there is no such language");
    }
    return DONE;
}

static step_e cmd_theme() {
    if (zof_theme_set(script.args[1]) != 0) {
        fault("there is no such theme");
    }
    return DONE;
}

static step_e cmd_view() {
    if (zof_view_set_dis_view((u32)number(1)) != 0) {
        fault("there is no such view");
    }
    return DONE;
}

static const char *label_text(s32 view, s32 ctrl) {
    para_t *label = zof_ctrl_get_form_id((u32)view, (u32)ctrl);
    if (!label || !label->obj || !lv_obj_check_type(label->obj, &lv_label_class)) {
        fault("there is no such label");
    }
    return lv_label_get_text(label->obj);
}

static step_e cmd_print() {
    zof_printf("%s/%s: %s", script.args[1], script.args[2], label_text(number(1), number(2)));
    return DONE;
}

static step_e cmd_until() {
    const char *now = label_text(number(2), number(3));
    const char *want = script.args[4];
    if (strcmp(want, "*") == 0 ? !strchr(now, '-') : strcmp(want, now) == 0) {
        return DONE;
    }
    if (elapsed() > duration(1)) {
        zof_printf("%s:%u: after %s ms the text is \"%s\", not \"%s\"", script.path, script.line, script.args[1], now,
                   want);
        leave(ZOF_EXIT_FAILURE);
    }
    return AGAIN;
}

static step_e cmd_quit() {
    leave(ZOF_EXIT_GOOD);
}

static constexpr struct {
    const char *name;
    s32 argc; // including the name; the last one takes the rest of the line
    command_fn run;
} commands[] = {
    {"wait", 2, cmd_wait},       {"tap", 3, cmd_tap},     {"press", 3, cmd_press}, {"move", 3, cmd_press},
    {"release", 1, cmd_release}, {"drag", 6, cmd_drag},   {"shot", 2, cmd_shot},   {"lang", 2, cmd_lang},
    {"view", 2, cmd_view},       {"print", 3, cmd_print}, {"until", 5, cmd_until}, {"quit", 1, cmd_quit},
    {"theme", 2, cmd_theme},
};

static void trim_end(char *text) {
    size_t size = strlen(text);
    while (size && strchr(" \t\r", text[size - 1])) {
        text[--size] = 0;
    }
}

// Splits the next line that contains a command into args; false at the end of the file.
static bool next_line() {
    while (script.next && *script.next) {
        char *line = script.next;
        char *end = strchr(line, '\n');
        script.next = end ? end + 1 : nullptr;
        script.line++;
        const size_t size = end ? (size_t)(end - line) : strlen(line);
        if (size >= LINE_SIZE) {
            fault("the line is too long");
        }
        memcpy(script.words, line, size);
        script.words[size] = 0;
        trim_end(script.words);
        script.argc = 0;
        char *rest = script.words + strspn(script.words, " \t");
        if (*rest && *rest != '#') {
            script.args[script.argc++] = rest;
            return true;
        }
    }
    return false;
}

// Spaces separate the words; the last of a command's words takes the rest of its line.
static void split(s32 count) {
    while (script.argc < count) {
        char *gap = strpbrk(script.args[script.argc - 1], " \t");
        if (!gap) {
            fault("a word is missing");
        }
        *gap++ = 0;
        script.args[script.argc++] = gap + strspn(gap, " \t");
    }
}

static command_fn command() {
    const size_t name = strcspn(script.args[0], " \t");
    for (const auto &row : commands) {
        if (strlen(row.name) == name && strncmp(row.name, script.args[0], name) == 0) {
            split(row.argc);
            return row.run;
        }
    }
    fault("there is no such command");
}

static void script_task(zof_task_t *task) {
    script.steps++;
    while (!script.run || script.run() == DONE) {
        if (!next_line()) {
            zof_task_del(task);
            return;
        }
        script.run = command();
        script.started = zof_sys_time_ms();
        script.steps = 0;
    }
}

void zof_script_start(void) {
    zof_free(script.text);
    script = {};
    script.path = getenv("ZOF_SCRIPT");
    if (!script.path || !*script.path) {
        return;
    }
    script.text = GetJsonFile(script.path);
    if (!script.text) {
        zof_printf("%s: the script cannot be read", script.path);
        leave(ZOF_EXIT_FILES);
    }
    script.next = script.text;
    zof_task_create(script_task, STEP_MS, nullptr);
}
