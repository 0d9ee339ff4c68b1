// The host protocol over a real pseudo-terminal, with its receive thread on one side and the graphics loop on the
// other.
#include <atomic>
#include <string>

#include "hmi/zof_hmi_analys.h"
#include "hmi_panel.h"

static std::string label_text() {
    para_t *label = zof_ctrl_get_form_id(1, 5);
    return label && label->obj ? lv_label_get_text(label->obj) : "(none)";
}

TEST_CASE("host link: every system command is written and read through the line, and takes effect") {
    panel p;
    panel_up(p, R"(, "resend_en": 1)");
    answers(p, get({0xB0, 0x00, 0x00}), get({0xB0, 0x00, 0x00, 'A', '1', '.', '2', 0}));
    const std::string sdk = zof_sdk_get_version();
    answers(p, get({0xB0, 0x00, 0x01}), get(join({{0xB0, 0x00, 0x01}, {sdk.c_str(), sdk.c_str() + sdk.size() + 1}})));
    answers(p, set({0xB0, 0x01, 0xCC, 0xDD}), set({0xB0, 0x01, 0}));
    usleep(600 * 1000); // the panel "reboots"
    answers(p, set({0xB0, 0x02, 40}), set({0xB0, 0x02, 0}));
    CHECK(eventually([] { return loop_turn(), sdl_bright_get() == 40 * 255 / 100; }));
    answers(p, set({0xB0, 0x03, 2, 0, 10, 0, 20}), set({0xB0, 0x03, 0}));
    CHECK(eventually([] { return loop_turn(), zof_prj_get_cur()->attr->hw_t.tone_t.time == 20; }));
    answers(p, set({0xB0, 0x04, 0x00, 0x70}), set({0xB0, 0x04, 0x00, 0}));
    // At once, even if the project does not have it yet.
    answers(p, get({0xB0, 0x04, 0x00}), get({0xB0, 0x04, 0x00, 0x70}));
    CHECK(eventually([] { return loop_turn(), zof_prj_get_cur()->attr->hw_t.touch_t.th_en == 0x70; }));
    answers(p, get({0xB0, 0x04, 0x01}), get({0xB0, 0x04, 0x01, 0, 0, 0, 0, 0}));
    answers(p, set({0xB0, 0x05, 0x07, 0xE8, 1, 2, 3, 4, 5}), set({0xB0, 0x05, 0}));
    pty_write(p.pty, get({0xB0, 0x05}));
    const bytes clock = read_while_looping(p, 13);
    REQUIRE(clock.size() == 13);
    CHECK((clock[6] << 8 | clock[7]) >= 2024);
    const bytes standby = {0xB0, 0x06, 0x00, 0x00, 0x02, 0x00, 0x3C, 30, 0x00, 0x05, 5, 80, 0x00, 0x01};
    answers(p, set(standby), set({0xB0, 0x06, 0x00, 0}));
    answers(p, get({0xB0, 0x06, 0x00}), get(standby));
    answers(p, set({0xB0, 0x06, 0x01, 1}), set({0xB0, 0x06, 0x01, 0}));
    answers(p, get({0xB0, 0x06, 0x01}), get({0xB0, 0x06, 0x01, 1}));
    CHECK(zof_view_get_cur_id(ZOF_LAYER_UI) == 2);
    answers(p, set({0xB0, 0x06, 0x01, 1}), set({0xB0, 0x06, 0x01, 1})); // already active
    answers(p, set({0xB0, 0x06, 0x01, 0}), set({0xB0, 0x06, 0x01, 0}));
    CHECK(zof_view_get_cur_id(ZOF_LAYER_UI) == 1);
    CHECK(label_text() == "hello");
    answers(p, set({0xB0, 0x07, 0x00, 'd', 'e', 0}), set({0xB0, 0x07, 0x00, 0}));
    CHECK(label_text() == "hallo");
    answers(p, get({0xB0, 0x00, 0x07}), get({0xB0, 0x00, 0x07, 0})); // no such version: empty
    answers(p, set({0xB0, 0x07, 0x00, '.', '.', '/', 'e', 'n', 0}), set({0xB0, 0x07, 0x00, 1}));
    pty_write(p.pty, get({0xB0, 0x02})); // nothing to read there
    silent(p);
}

TEST_CASE("host link: without acknowledgements a write is silent but done, and unknown and short commands are silent") {
    panel p;
    panel_up(p, "");
    pty_write(p.pty, set({0xB0, 0x02, 50}));
    CHECK(eventually([] { return loop_turn(), sdl_bright_get() == 50 * 255 / 100; }));
    for (const bytes &request :
         {get({0xB0, 0x7E}), get({0xC0, 0x00, 0x00}), get({0xB0, 0x00}), get({0xB0, 0x04}), get({0xB0, 0x02}),
          get({0xB2, 0xF0}), frame_of(0x12, {0xB0, 0x01}), frame_of(0x23, {0xB0, 0x01}), // no such codes
          set({0xB0, 0x07, 0x00, 'a'}), set({0xB0, 0x03, 1, 2})}) {
        pty_write(p.pty, request);
        silent(p);
    }
}

static void cuts_and_noise(panel &p, bool crc) {
    const bytes answer = frame_of(ZOF_HMI_OP_GET, {0xB0, 0x01, 0xAA, 0xBB}, crc);
    const bytes forms[] = {frame_of(0x11, {0xB0, 0x01}, crc), frame_of(0x11, {0xB0, 0x01}, crc, true)};
    for (const bytes &request : forms) {
        for (size_t cut = 1; cut < request.size(); cut++) {
            CAPTURE(cut);
            pty_write(p.pty, {request.begin(), request.begin() + (long)cut});
            usleep(4 * GAP_MS * 1000);
            answers(p, {request.begin() + (long)cut, request.end()}, answer);
        }
        const bytes noise = {0x00, 0x5A, 0x5A, 0xA5, 0x01, 0xB0, 0xA5, 0x5A, 0x5A}; // half heads, and one with length 0
        answers(p, join({noise, request}), answer);
        answers(p, join({request, request, {0x00}, request}), join({answer, answer, answer}));
        // The second of two has only arrived in part.
        pty_write(p.pty, join({request, {request.begin(), request.begin() + 5}}));
        CHECK(read_while_looping(p, answer.size()) == answer);
        answers(p, {request.begin() + 5, request.end()}, answer);
    }
}

TEST_CASE("host link: a frame cut anywhere is joined with its rest, in both forms, and noise around it does no harm") {
    panel p;
    panel_up(p, "");
    cuts_and_noise(p, false);
    silent(p);
    // A head that announces more than any frame holds is noise at once.
    answers(p, join({{0x5A, 0xA5, 0xFF, 0xFF}, get({0xB0, 0x01})}), get({0xB0, 0x01, 0xAA, 0xBB}));
    // A plausible head takes what follows as its own, but for no longer than a second after a silence.
    static std::atomic<u32> now{zof_sys_time_ms()};
    static constexpr zof_clock_t clock = {[] { return now.load(); }, [](u32 ms) { usleep(ms * 1000); }};
    zof_clock_set(&clock);
    const std::string log = printed([&] {
        pty_write(p.pty, {0x5A, 0xA5, 0x60, 0x22, 0xB0});
        usleep(20 * GAP_MS * 1000); // the silence is noticed
        now += 1001;
        answers(p, get({0xB0, 0x01}), get({0xB0, 0x01, 0xAA, 0xBB}));
    });
    CHECK(contains(log, "host link: 5 bytes of an incomplete frame are dropped"));
    zof_clock_set(nullptr);
}

TEST_CASE("host link: the same holds with a CRC, and a frame with a wrong CRC is noise") {
    panel p;
    panel_up(p, R"(, "crc_en": 1)");
    cuts_and_noise(p, true);
    usleep(4 * GAP_MS * 1000);
    bytes bad = frame_of(ZOF_HMI_OP_GET, {0xB0, 0x01}, true);
    bad.back() ^= 1;
    const bytes good = frame_of(ZOF_HMI_OP_GET, {0xB0, 0x00, 0x00}, true);
    const bytes answer = frame_of(ZOF_HMI_OP_GET, {0xB0, 0x00, 0x00, 'A', '1', '.', '2', 0}, true);
    answers(p, join({bad, good}), answer);
    // A false head delays the frame after it until the line is silent.
    answers(p, join({{0x5A, 0xA5, 0x60}, good}), answer);
}

TEST_CASE("host link: touches are reported as the flags request") {
    panel p;
    panel_up(p, "", R"(, "hw_t": {"touch_t": {"th_en": 48}})");
    const auto reported = [&](u8 state, u16 x) {
        CHECK(read_while_looping(p, 12) == get({0xB0, 0x04, 0x01, state, (u8)(x >> 8), (u8)x, 0, 34}));
    };
    sdl_pointer_inject(12, 34, ZOF_TRUE);
    reported(ZOF_TOUCH_PRESS, 12);
    sdl_pointer_inject(300, 34, ZOF_TRUE); // held, which was not requested
    for (int i = 0; i < 100; i++) {
        loop_turn();
    }
    CHECK(!line_has_bytes(p));
    sdl_pointer_inject(300, 34, ZOF_FALSE);
    reported(ZOF_TOUCH_RELEASED, 300);
    pty_write(p.pty, set({0xB0, 0x04, 0x00, 0x40}));
    CHECK(eventually([] { return loop_turn(), zof_prj_get_cur()->attr->hw_t.touch_t.th_en == 0x40; }));
    sdl_pointer_inject(5, 34, ZOF_TRUE); // every hold sends, with no interval set
    reported(ZOF_TOUCH_HELD, 5);
    reported(ZOF_TOUCH_HELD, 5);
}

// A write that is never answered; the read after it, in its own message, is answered when the write is done.
static s8 view_write(panel &p, const bytes &payload) {
    pty_write(p.pty, set(payload));
    silent(p);
    return *(s8 *)ui_cmd_analys->reply_param;
}

TEST_CASE("host link: every view command is written and read through the line, and no write is answered") {
    panel p;
    panel_up(p, R"(, "resend_en": 1)");
    answers(p, get({0xB1, 0x01, 0}), get({0xB1, 0x01, 0, 0, 1}));
    CHECK(view_write(p, {0xB1, 0x04, 0, 2}) == 0);
    CHECK(zof_view_list_get(2) != nullptr);
    CHECK(view_write(p, {0xB1, 0x00, 0, 2}) == 0);
    answers(p, get({0xB1, 0x01, 0}), get({0xB1, 0x01, 0, 0, 2}));
    CHECK(view_write(p, {0xB1, 0x00, 0, 9}) == 1);
    CHECK(view_write(p, {0xB1, 0x05, 0, 2, 0xFF, 0x10, 0x20, 0x30}) == 0);
    CHECK(screen_pixel(300, 200) == 0x102030);
    p.project.image("red.png", 320, 240, 0xFF0000);
    CHECK(view_write(p, {0xB1, 0x07, 0xDE, 0xAD, 0, 2, 'r', 'e', 'd', '.', 'p', 'n', 'g', 0}) == 0);
    CHECK(screen_pixel(300, 200) == 0xFF0000);
    CHECK(view_write(p, {0xB1, 0x02, 1, 0, 2}) == 0);
    answers(p, get({0xB1, 0x01, 1}), get({0xB1, 0x01, 1, 0xFF, 0xFF})); // its layer stays that of its file
    CHECK(view_write(p, {0xB1, 0x02, 4, 0, 2}) == 1);
    CHECK(view_write(p, {0xB1, 0x03, 0}) == 0);
    answers(p, get({0xB1, 0x01, 0}), get({0xB1, 0x01, 0, 0xFF, 0xFF}));
    CHECK(view_write(p, {0xB1, 0x03, 4}) == 1);
    pty_write(p.pty, get({0xB1, 0x01, 3})); // there is no such layer to read: no answer
    silent(p);
}

TEST_CASE("host link: simultaneous system and control commands on their two threads leave the panel consistent") {
    panel p;
    panel_up(p, R"(, "resend_en": 1)", R"(, "hw_t": {"touch_t": {"th_en": 112}})");
    const bytes payloads[] = {{0xB0, 0x02, 40},
                              {0xB2, 0x00, 0x00, 0, 1, 0, 5, 'h', 'i', 0},
                              {0xB0, 0x03, 1, 0, 1, 0, 1},
                              {0xB1, 0x00, 0, 2},
                              {0xB0, 0x04, 0x00, 0x70},
                              {0xB2, 0x00, 0x00, 0, 1, 0, 5, '#', 'h', 'e', 'l', 'l', 'o', 0},
                              {0xB0, 0x06, 0x00, 0, 2, 0, 60, 30, 0, 5, 5, 80, 0, 1},
                              {0xB0, 0x07, 0x00, 'd', 'e', 0},
                              {0xB0, 0x06, 0x01, 1},
                              {0xB1, 0x00, 0, 1},
                              {0xB0, 0x06, 0x01, 0}};
    const auto still = [&](u32 turns) { // until no answer comes for so many turns
        for (u32 n = 0; n < turns; n++) {
            loop_turn();
        }
        return pty_read(p.pty, 4096, 0).empty();
    };
    for (u32 i = 0; i < 300; i++) {
        const bytes &payload = payloads[i * 5 % std::size(payloads)], &other = payloads[i * 3 % std::size(payloads)];
        pty_write(p.pty, join({{0x00}, set(payload), {0x00}, set(other), {0x00}, get(payload), {0x00}, get(other)}));
        sdl_pointer_inject((s32)i, 34, i % 2 ? ZOF_FALSE : ZOF_TRUE); // released at the end
        still(8);
    }
    CHECK(eventually([&] { return still(50); }));
    silent(p);
}
