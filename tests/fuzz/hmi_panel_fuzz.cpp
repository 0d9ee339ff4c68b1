// The host protocol with a project whose two views have one control of each type, from frame to widget. The first byte
// of an input selects: lines of a client of the inspector; messages as they arrive on the line, and touches; or every
// row of the command tables on every control, with edge values of numbers and hostile names. That is a series of
// commands of fixed size: row, control, and a value for each field; the frame is built here, so no command fails the
// frame checks.
//
// Inputs share the state of the controls, so a failing input may not fail alone: with ZOF_FUZZ_HISTORY=FILE all
// messages are written to that file, which is an input too.
#include "hmi_line.h"

#include "drv/zof_drv_aid.h"
#include "every_control.h"
#include "hmi/zof_hmi.h"
#include "hmi/zof_hmi_cmd.h"
#include "inspect/zof_inspect_in.h"
#include "port/zof_port.h"

enum { MESSAGES, COMMANDS, LINES, KINDS };
enum { COMMAND_SIZE = 16, DRAW_EACH = 8 };

static view_project_t project;
static int history = -1;

// clang-format off
static const char *const words[] = {
    "", "x", "#hello", "#none", "red.png", "RED.PNG", "none.png", "ever.gif", "t.ttf", "a.mp4", "a.mp3",
    "\x01:x.png", "\x1f:", "\x01", "\x7f.png", "\t\n\r", "\n", "one\ntwo\n\n\nthree",
    "../red.png", "../../../../etc/passwd", "/etc/passwd", "//red.png", "./././red.png", "a/../b.png", "x\\..", "..", ".png",
    "L:red.png", "A:/red.png", "Z:red.png", ":red.png", "0:/a", "1:", "sd:/a.gif",
    "%s%n%d", "-999", "{\"a\": 1}", "\xff\xfe", "\xc3", "\xf0\x9f\x98\x80", "\xe4\xbd\xa0\xe5\xa5\xbd"};

static const u32 edges[] = {
    0, 1, 2, 3, 5, 9, 48, 100, 127, 128, 254, 255, 256, 1000, 4095, 4096, 32767, 32768, 65535, 65536, 1 << 22, 1 << 24,
    0x1FFFFFFF, 0x20000000, 0x200007D1, 0x3FFFFFFF, 0x40000000, INT32_MAX - 1, INT32_MAX, 1u << 31, (1u << 31) + 1,
    (u32)-1000, (u32)-2, (u32)-1};
// clang-format on

void fuzz_open() {
    project.more = R"(, "start_page": 1, "app_ver": "A1.2", "hw_t": {"touch_t": {"th_en": 112}})";
    files_of_each(project);
    project.view(1, one_of_each());
    project.view(2, one_of_each(R"("pub": 1)")); // deleted and created with the view
    project.open(640, 240);
    win_rtc_init();
    zof_func_pwon();
    hmi_open();
    static constexpr zof_drv_aid_ops_t aids = {.pointer = sdl_pointer_inject, .frame = sdl_frame_get}; // writes no file
    drv_aid_t = &aids;
    inspect_frames_start(nullptr);
    const char *file = getenv("ZOF_FUZZ_HISTORY");
    history = file ? open(file, O_WRONLY | O_CREAT | O_TRUNC, 0644) : -1;
    if (history >= 0) {
        (void)!write(history, "", 1); // the kind
    }
}

// A draw without a message is a touch or its end, at the position in its bytes.
static void touch(fuzz_input &in) {
    const std::vector<u8> at = fuzz_bytes(in, 2);
    if (at.size() == 2) {
        sdl_pointer_inject(at[0] * 640 / 256, at[1] / 2 * 240 / 128, at[1] & 1 ? ZOF_TRUE : ZOF_FALSE);
        screen_step(SCREEN_INPUT_MS);
    }
}

static void messages_run(fuzz_input &in) {
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

static void number_put(std::vector<u8> &out, u32 value, u32 bytes) {
    while (bytes > 0) {
        out.push_back((u8)(value >> 8 * --bytes));
    }
}

// A text of the dictionary, or one character repeated.
static void text_put(std::vector<u8> &out, u8 pick) {
    const u32 word = pick % (std::size(words) + 3);
    const std::string text = word < std::size(words) ? words[word] : std::string(pick * 2u, (char)('!' + pick % 90));
    out.insert(out.end(), text.begin(), text.end());
    out.push_back(0);
}

static void fields_put(std::vector<u8> &out, const zof_hmi_rec_t *list, fuzz_input &in) {
    static const u8 bytes[ZOF_HMI_T_COUNT] = {0, 1, 1, 2, 2, 4, 4};
    for (u32 i = 0; list && i < list->count; i++) {
        const u8 type = list->fields[i].type, pick = fuzz_byte(in);
        if (type == ZOF_HMI_T_STR) {
            text_put(out, pick);
        } else if (type < ZOF_HMI_T_COUNT) {
            number_put(out, pick & 0x80 ? pick & 3 : edges[pick % std::size(edges)], bytes[type]);
        }
    }
}

// The row of a number, counted over all tables.
static const zof_hmi_param_type_t *row_at(u32 number, const zof_hmi_cmd_type_t **type) {
    u32 rows = 0;
    for (u32 t = 0; t < zof_ui_cmd_type_count; t++) {
        rows += zof_ui_cmd_types[t].param_count;
    }
    number %= rows;
    for (*type = zof_ui_cmd_types; number >= (*type)->param_count; (*type)++) {
        number -= (*type)->param_count;
    }
    return &(*type)->params[number];
}

static void command_run(fuzz_input in) {
    const zof_hmi_cmd_type_t *type = nullptr;
    const u32 number = fuzz_byte(in);
    const zof_hmi_param_type_t *row = row_at(number | fuzz_byte(in) << 8, &type);
    const u32 id = LABEL + fuzz_byte(in) % (END + 1 - LABEL); // END is not the id of a control
    const bool read = fuzz_byte(in) & 1;
    std::vector<u8> counted = {(u8)(read ? ZOF_HMI_OP_GET : ZOF_HMI_OP_SET)};
    counted.insert(counted.end(), type->code, type->code + type->len);
    if (type->rec == &zof_hmi_ctrl_id_t_tbl) {
        number_put(counted, 1, 2);
        number_put(counted, id, 2);
    } else {
        fields_put(counted, type->rec, in);
    }
    counted.insert(counted.end(), row->code, row->code + row->len);
    fields_put(counted, row->rw ? row->rw->req : nullptr, in);
    if (!read) {
        fields_put(counted, row->value, in);
    }
    std::vector<u8> frame = fuzz_sealed(counted, false);
    zof_hmi_recive_data_handle(frame.data(), (u32)frame.size(), nullptr);
    zof_hmi_cmd_ui_data_run();
}

static void commands_run(fuzz_input &in) {
    for (u32 done = 1; in.size >= COMMAND_SIZE; done++) {
        hmi_tail.clear();
        command_run({in.at, COMMAND_SIZE});
        in.at += COMMAND_SIZE;
        in.size -= COMMAND_SIZE;
        if (done % DRAW_EACH == 0 || in.size < COMMAND_SIZE) {
            screen_step(SCREEN_INPUT_MS);
            lv_refr_now(nullptr);
        }
    }
    zof_view_set_dis_view(1);
}

static void lines_run(fuzz_input &in) {
    static const inspect_peer_t client = {INSPECT_WRITE, [](const inspect_line_t *) {}};
    inspect_reader_t line = {};
    while (in.size) {
        if (inspect_reader_put(&line, (char)fuzz_byte(in)) || !in.size) {
            inspect_line_run(&client, &line);
            inspect_reader_clear(&line);
            screen_step(SCREEN_INPUT_MS);
        }
    }
    zof_view_set_dis_view(1);
}

void fuzz_one(fuzz_input &in) {
    static void (*const kinds[KINDS])(fuzz_input &) = {messages_run, commands_run, lines_run};
    hmi_tail.clear();
    kinds[fuzz_byte(in) % KINDS](in);
}
