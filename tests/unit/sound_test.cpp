// Sound files with SDL's disk driver: the output is compared byte by byte.
#include <sys/stat.h>

#include <algorithm>

#include "drv/zof_drv_media.h"
#include "eventually.h"
#include "media.h"
#include "port/zof_port.h"
#include "temp_project.h"

struct sound_room_t : temp_project_t {
    std::string heard_file = top + "/heard";

    explicit sound_room_t(const char *block_ms = "1") {
        setenv("SDL_AUDIODRIVER", "disk", 1);
        setenv("SDL_DISKAUDIOFILE", heard_file.c_str(), 1);
        setenv("SDL_DISKAUDIODELAY", block_ms, 1); // duration of a block in milliseconds
        lv_init();
        zof_image_init();
        win_audio_init();
    }

    // Returns the output of the latest sound, without silence at both ends.
    std::string heard(char silence = 0) const {
        const std::string all = file_text(heard_file);
        const size_t from = all.find_first_not_of(silence);
        return from == std::string::npos ? "" : all.substr(from, all.find_last_not_of(silence) + 1 - from);
    }

    // Returns true if the device takes `more` further bytes.
    bool goes_on(size_t more) const {
        const size_t so_far = file_text(heard_file).size();
        return eventually([&] { return file_text(heard_file).size() > so_far + more; });
    }

    s32 play(const std::string &path) const {
        unlink(heard_file.c_str()); // of the previous sound
        return zof_drv_audio_set_src(path.c_str());
    }

    std::string make(const std::string &name, const media_clip &clip) const {
        REQUIRE(media_write((top + "/" + name).c_str(), clip));
        return top + "/" + name;
    }
};

static std::string wav(const std::string &data, int channels, int bits, u32 claimed = 0, u32 rate = 8000) {
    const int frame = channels * bits / 8;
    return "RIFF" + le((u32)data.size() + 36, 4) + "WAVEfmt " + le(16, 4) + le(1, 2) + le((u32)channels, 2) +
           le(rate, 4) + le(rate * (u32)frame, 4) + le((u32)frame, 2) + le((u32)bits, 2) + "data" +
           le(claimed ? claimed : (u32)data.size(), 4) + data;
}

static std::string noise(size_t size) {
    std::string out;
    for (u32 x = 12345; out.size() < size; x = x * 1664525 + 1013904223) {
        out += (char)(x >> 24 | 1); // never silence
    }
    return out;
}

// Returns the number of waves of a pure tone in 16-bit stereo; -1 if it jumps, as with a missing piece.
static int waves_of(const std::string &bytes) {
    const s16 *left = (const s16 *)bytes.data();
    int waves = 0;
    bool up = false;
    for (size_t i = 2; i < bytes.size() / 2; i += 2) {
        if (abs(left[i] - left[i - 2]) > 4000) {
            return -1;
        }
        const bool turns = up ? left[i] < -6000 : left[i] > 6000;
        up = up != turns;
        waves += turns && up;
    }
    return waves;
}

TEST_CASE("a WAV file is played byte by byte, and counts as playing until its thread is stopped") {
    sound_room_t room;
    CHECK(zof_drv_audio_set_state(ZOF_MEDIA_PLAY) == 0); // before any source: nothing
    CHECK(zof_drv_audio_get_state() == ZOF_MEDIA_STOP);
    for (const int bits : {8, 16}) {
        CAPTURE(bits);
        const char silence = (char)(bits == 8 ? 128 : 0);
        const std::string data = noise(20000);
        room.write("a.wav", wav(data, bits / 8, bits, bits == 16 ? 0xFFFFFFF0u : 0));
        zof_drv_audio_set_one_replay(1); // of no effect on a WAV file
        REQUIRE(room.play(room.path("a.wav")) == 0);
        REQUIRE(eventually([&] { return room.heard(silence).size() >= data.size(); }));
        REQUIRE(room.goes_on(4000)); // silent
        CHECK((room.heard(silence) == data));
        CHECK(zof_drv_audio_get_state() == ZOF_MEDIA_PLAY);
        CHECK(zof_drv_audio_set_state(ZOF_MEDIA_STOP) == 0);
        CHECK(zof_drv_audio_get_state() == ZOF_MEDIA_STOP);
    }
    zof_drv_audio_set_volum(64); // half as loud
    room.write("b.wav", wav(le(0x4002, 2) + le(0xC002, 2), 1, 16));
    room.play(room.path("b.wav"));
    REQUIRE(eventually([&] { return room.heard().size() >= 4; }));
    CHECK((room.heard() == le(0x2001, 2) + le(0xE001, 2)));
}

TEST_CASE("a thread plays compressed files and the sound of a clip completely, once or in a loop") {
    sound_room_t room("11"); // about real time: a late decoder is detected
    media_clip clip;
    clip.tone_hz = 440;
    clip.tone_ms = 400;
    media_clip film = clip;
    film.width = film.height = 32;
    film.frames = 10;
    film.sample_rate = 22050;
    film.channels = 2;
    for (const std::string &path : {room.make("a.mp3", clip), room.make("a.AAC", clip), room.make("a.mp4", film)}) {
        CAPTURE(path);
        zof_drv_audio_set_one_replay(0);
        REQUIRE(room.play(path) == 0);
        REQUIRE(eventually([] { return zof_drv_audio_get_state() == ZOF_MEDIA_STOP; }));
        const std::string heard = file_text(room.heard_file);
        CHECK(heard.size() >= (size_t)(path.back() == '4' ? 22050 : 44100) * 4 * 400 / 1000);
        CHECK(abs(waves_of(heard) - 176) < 2);
        zof_drv_audio_set_one_replay(1);
        CHECK(zof_drv_audio_set_state(ZOF_MEDIA_PLAY) == 0);
        for (int round = 0; round < 2; round++) { // each round opens the device, and with it the file, again
            REQUIRE(eventually([&] { return unlink(room.heard_file.c_str()) == 0; }));
        }
        CHECK(zof_drv_audio_get_state() == ZOF_MEDIA_PLAY);
        CHECK(zof_drv_audio_set_state(ZOF_MEDIA_STOP) == 0);
    }
}

TEST_CASE("the thread of a sound pauses, resumes and stops immediately, and can be started after a stop") {
    sound_room_t room("5");
    room.write("a.wav", wav(noise(64000), 1, 16));
    const std::string path = room.path("a.wav");
    const auto heard_more = [&](size_t than) { return eventually([&] { return room.heard().size() > than + 2000; }); };
    room.play(path);
    REQUIRE(heard_more(0));
    for (int i = 0; i < 2; i++) { // a second pause changes nothing
        CHECK(zof_drv_audio_set_state(ZOF_MEDIA_PAUSE) == 0);
        CHECK(zof_drv_audio_get_state() == ZOF_MEDIA_PAUSE);
    }
    REQUIRE(room.goes_on(8192)); // silent
    const size_t paused = room.heard().size();
    CHECK(paused < 64000);
    CHECK(zof_drv_audio_set_state(ZOF_MEDIA_RESUME) == 0);
    REQUIRE(heard_more(paused));
    zof_drv_audio_set_state(ZOF_MEDIA_STOP);
    unlink(room.heard_file.c_str());
    zof_drv_audio_set_state(ZOF_MEDIA_PLAY);
    REQUIRE(heard_more(0));
    std::vector<u32> took;
    for (u32 i = 0; i < 20; i++) { // each sound interrupts the one before
        const u32 start = zof_sys_time_ms();
        zof_drv_audio_set_src(path.c_str());
        took.push_back(zof_sys_time_ms() - start);
        usleep(i % 3 * i * 1000);
    }
    zof_drv_audio_set_state(ZOF_MEDIA_STOP);
    std::sort(took.begin(), took.end());
    CHECK((took[10] < 100 && took[19] < 2000)); // the median: a busy machine may delay some of them
}

TEST_CASE("a WAV file of a low rate is played, and stops immediately") {
    sound_room_t room;
    for (const u32 rate : {1u, 4u, 3999u}) {
        CAPTURE(rate);
        const u32 hold = (4000 + rate - 1) / rate;
        room.write("slow.wav", wav("\x10\x20\x70\x40\x50\x60", 1, 16, 0, rate));
        REQUIRE(room.play(room.path("slow.wav")) == 0);
        REQUIRE(eventually([&] { return room.heard().size() >= 6 * hold; }));
        std::string held;
        for (const char *frame : {"\x10\x20", "\x70\x40", "\x50\x60"}) {
            for (u32 i = 0; i < hold; i++) {
                held += frame;
            }
        }
        CHECK((room.heard() == held));
        const auto start = std::chrono::steady_clock::now();
        CHECK(zof_drv_audio_set_state(ZOF_MEDIA_STOP) == 0);
        CHECK(std::chrono::steady_clock::now() - start < std::chrono::seconds(1)); // 32 ms on an idle machine
    }
}

TEST_CASE("invalid names and broken files fail silently or with a message, in the thread too") {
    sound_room_t room;
    media_clip film;
    film.width = film.height = 32;
    film.frames = 3;
    const std::string fits = std::string(123, 'x') + ".wav", silent = room.make("silent.mp4", film);
    const std::string pipes[] = {room.path("pipe.wav"), room.path("pipe.mp3")}; // without a writer
    for (const std::string &pipe : pipes) {
        REQUIRE(mkfifo(pipe.c_str(), 0600) == 0);
    }
    const struct {
        std::string path;
        s32 result;
        std::string line;
    } rows[] = {{pipes[0], 0, "pipe.wav: cannot be opened"},
                {pipes[1], 0, "pipe.mp3: Failed to open file!"},
                {"/a.dir/name", -1, "sound /a.dir/name: a name without a dot"},
                {"x" + fits, -1, "the path is too long"},
                {fits, 0, ": cannot be opened"},
                {"/none.mp3", 0, "sound /none.mp3: Failed to open file!"},
                {silent, 0, ""}}; // a clip without sound is not an error
    for (const auto &row : rows) {
        const std::string log = printed([&] {
            CHECK(zof_drv_audio_set_src(row.path.c_str()) == row.result);
            CHECK(eventually([] { return zof_drv_audio_get_state() == ZOF_MEDIA_STOP; }));
        });
        CAPTURE(log);
        CHECK((row.line.empty() ? log.empty() : contains(log, row.line)));
    }
    CHECK(zof_drv_audio_set_src(nullptr) == -1);
    room.write("empty.wav", wav("", 1, 16)); // with replay it waits for data forever, without a busy loop
    zof_drv_audio_set_one_replay(1);
    zof_drv_audio_set_src(room.path("empty.wav").c_str());
    usleep(100000);
    CHECK(zof_drv_audio_get_state() == ZOF_MEDIA_PLAY);
    zof_drv_audio_set_one_replay(0);
    CHECK(eventually([] { return zof_drv_audio_get_state() == ZOF_MEDIA_STOP; }));
}
