// Standby, keys that stand in for pins, the beeper and the tones of touches.
#include "view_project.h"

#include <SDL_events.h>

// A project with three views of one label each, and the given standby record.
static void standby_up(view_project_t &project, const std::string &standby) {
    for (u32 id : {1, 2, 3}) {
        project.view(id, {ctrl(ZOF_CTRL_LABEL, 5, R"("auto_hight": 1, "txt": "x")", box(0, 0, 200, 100))});
    }
    project.more = R"(, "start_page": 1, "hw_t": {}, "func_t": {"standby_t": )" + standby + "}";
    ctrl_funs = {{5, on_event}};
    project.open(320, 240);
    zof_func_pwon();
    screen_step(300);
    events.clear();
}

static s32 shown() {
    return zof_view_get_cur_id(ZOF_LAYER_UI);
}

TEST_CASE("standby: the display dims, goes dark, and comes back in two presses that reach no control") {
    view_project_t project;
    standby_up(project, R"({"stdby_view": 2, "stdby_time": 5, "stdby_bright": 40, "off_time": 3, "off_bright": 0,
                            "on_bright": 90, "on_view": 3})");
    screen_step(4000);
    screen_click(100, 50);
    CHECK(contains(taken(events), "5:7")); // awake: the press reaches the control and restarts the count
    const struct {
        u32 wait; // milliseconds, or a press for 0
        s32 state, view, percent;
    } steps[] = {{4500, ZOF_STDBY_NORMAL, 1, -1}, {1000, ZOF_STDBY_DIMMED, 2, 40}, {3500, ZOF_STDBY_OFF, 2, 0},
                 {20000, ZOF_STDBY_OFF, 2, 0},    {0, ZOF_STDBY_DIMMED, 2, 40},    {0, ZOF_STDBY_NORMAL, 3, 90},
                 {6000, ZOF_STDBY_DIMMED, 2, 40}}; // the count runs again after all that
    for (const auto &step : steps) {
        CAPTURE(&step - steps);
        step.wait ? screen_step(step.wait) : screen_click(100, 50);
        CHECK(zof_func_stdby_get_statue() == step.state);
        CHECK(shown() == step.view);
        CHECK((step.percent < 0 || sdl_bright_get() == step.percent * 255 / 100));
    }
    CHECK(taken(events).empty());
    zof_disp_set_bright(101);
    CHECK(sdl_bright_get() == 1); // 257 in 8 bits
}

TEST_CASE(
    "standby: requests follow the rules from every state to every other, and the time of a state runs if it has one") {
    view_project_t project;
    standby_up(project, R"({"stdby_time": 0, "off_time": 0})");
    CHECK(zof_func_stdby_set_statue(ZOF_STDBY_DIMMED) == -1); // no time was ever set
    const s32 percent[] = {90, 40, 5};
    const struct {
        u16 stdby_time, off_time;
        u32 next[3]; // where each state leads by itself
    } rows[] = {{0, 2, {0, 2, 2}}, {2, 0, {1, 1, 2}}, {2, 2, {1, 2, 2}}};
    for (const auto &row : rows) {
        zof_func_standby_t times = {.stdby_bright = 40, .off_bright = 5, .on_bright = 90};
        times.stdby_time = row.stdby_time;
        times.off_time = row.off_time;
        CHECK(zof_func_stdby_set_param(&times) == 0);
        times = {}; // the caller's record is not needed any more
        for (u32 i = 0; i < 9; i++) {
            const u32 from = i / 3, to = i % 3;
            CAPTURE(i);
            zof_func_stdby_set_statue(from);
            CHECK(zof_func_stdby_set_statue(to) == (from == to ? -1 : 0));
            CHECK(zof_func_stdby_set_statue(3) == -1);
            CHECK(zof_func_stdby_get_statue() == to);
            CHECK((from == to || sdl_bright_get() == percent[to] * 255 / 100));
            screen_step(3000);
            CHECK(zof_func_stdby_get_statue() == row.next[to]);
        }
    }
}

// A pin's callback and the callback for every key record what they are called with.
static std::string keys;

static void on_pin(u8 *port) {
    keys += form(" pin%d.%d", port[0], port[1]);
}

static void on_key(zof_win_key_param_t *param, u32 key) {
    keys += form(" key%u=%d", key, zof_win_key_get_status(param));
}

// What was recorded for events of a keyboard key.
static std::string key_events(s32 key, const std::vector<u32> &types) {
    for (u32 type : types) {
        SDL_Event event = {};
        event.type = type;
        event.key.keysym.sym = key;
        SDL_PushEvent(&event);
        screen_step(20);
    }
    return taken(keys);
}

TEST_CASE("keys: a key stands in for a pin, edges and modes choose the interrupts, repeats are ignored") {
    screen_open(100, 100);
    win_gpio_init();
    zof_gpio_cfg_t cfg = {.port = 1, .pin = 2, .mode = 0, .irq_mode = ZOF_GPIO_EDGE_RISING};
    CHECK(zof_gpio_init(&cfg) == -1); // keys are bound first
    CHECK(zof_win_key_sim_gpio_reg(1, 2, 'a') == 0);
    CHECK(zof_win_key_sim_gpio_reg(1, 3, 'b') == 0);
    CHECK(zof_gpio_init(&cfg) == 0);
    CHECK(zof_gpio_set_irq(&cfg, on_pin) == 0);
    CHECK(key_events('a', {SDL_KEYDOWN}) == " pin1.2");
    CHECK(zof_gpio_readInputPin(1, 2) == 1);
    CHECK(key_events('a', {SDL_KEYDOWN, SDL_KEYUP}) == "");
    cfg.irq_mode = ZOF_GPIO_EDGE_BOTH;
    zof_gpio_init(&cfg);
    CHECK(key_events('a', {SDL_KEYDOWN, SDL_KEYUP}) == " pin1.2 pin1.2");
    cfg.mode = 1;
    zof_gpio_init(&cfg);
    zof_win_key_irq_reg(on_key);
    CHECK(key_events('a', {SDL_KEYDOWN}) == " key97=1");
    CHECK(key_events('z', {SDL_KEYDOWN}) == " key122=1"); // not bound
}

TEST_CASE("beeper: a tone of 2000 Hz lasts 400 ms longer than requested") {
    const std::string file = std::string(ZOF_BUILD_DIR) + "/beep-" + std::to_string(getpid()) + ".raw";
    setenv("SDL_AUDIODRIVER", "disk", 1);
    setenv("SDL_DISKAUDIOFILE", file.c_str(), 1);
    setenv("SDL_DISKAUDIODELAY", "1", 1);
    CHECK(win_beep_on(100) == 0);
    const std::string raw = file_text(file);
    remove(file.c_str());
    const s16 *samples = (const s16 *)raw.data();
    s32 sounding = 0, crossings = 0;
    for (size_t i = 1; i < raw.size() / 2; i++) {
        sounding += samples[i] != 0;
        crossings += (samples[i] > 0) != (samples[i - 1] > 0);
    }
    CHECK(abs(crossings - 2 * 2000 / 2) < 20);
    CHECK(sounding > 44100 / 2 * 0.95);
}

static std::string sounds; // requests to the sound driver
static const zof_drv_audio_ops_t sound_driver = {
    .set_src = [](const char *path) -> s32 {
        const std::filesystem::path at = path;
        sounds += " " + (at.parent_path().filename() / at.stem()).generic_string();
        return 0;
    },
};

TEST_CASE("tones: flags choose which touches sound, and a series of sound files counts down") {
    view_project_t project;
    standby_up(project, R"({})");
    zof_drv_audio_reg(&sound_driver);
    zof_prj_get_cur()->attr->hw_t.touch_t.th_en = 0x02 | 0x04; // on, for raw touch, at press
    char name[] = "a.wav";
    zof_prj_tone_t tone = {.type = 1, .time = 50, .sound = name, .volum = 0};
    CHECK(zof_hmi_tone_set(zof_hmi_tone_set(&tone)) != nullptr); // its own record again
    screen_click(100, 50);
    CHECK(taken(sounds) == " sound/a");
    zof_hmi_tone_mult_on(3, 100, 50);
    screen_step(300);
    CHECK(taken(sounds) == " sound/a sound/a");
    screen_step(1000);
    CHECK(taken(sounds) == " sound/a");
    zof_hmi_tone_mult_on(0, 0, 0);
    CHECK(zof_audio_set_volum(5) + zof_audio_get_state() == -1); // it has neither volume nor state
}
