// Sound files through SDL's driver that writes to a file: what would be heard is compared byte by byte.
#include <math.h>
#include <time.h>

#include <algorithm>

#include "media.h"
#include "port/zof_port.h"
#include "temp_project.h"
#include "zof_test.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libswresample/swresample.h>
}

static u32 now_ms() {
    timespec t;
    clock_gettime(CLOCK_MONOTONIC, &t);
    return (u32)(t.tv_sec * 1000 + t.tv_nsec / 1000000);
}

// Waits for what another thread does; false when it does not come.
template <typename F> static bool comes(F condition, u32 ms = 20000) {
    for (const u32 start = now_ms(); !condition();) {
        if (now_ms() - start > ms) {
            return false;
        }
        usleep(1000);
    }
    return true;
}

struct sound_room_t : temp_project_t {
    std::string heard_file = top + "/heard";

    explicit sound_room_t(const char *block_ms = "1") {
        setenv("SDL_AUDIODRIVER", "disk", 1);
        setenv("SDL_DISKAUDIOFILE", heard_file.c_str(), 1);
        setenv("SDL_DISKAUDIODELAY", block_ms, 1); // how long a block takes to be heard
        lv_init();
        zof_ffmpeg_init();
        win_audio_init();
    }

    // What was heard of the latest sound, silence at both ends left out.
    std::string heard(char silence = 0) const {
        const std::string all = file_text(heard_file);
        const size_t from = all.find_first_not_of(silence);
        return from == std::string::npos ? "" : all.substr(from, all.find_last_not_of(silence) + 1 - from);
    }

    s32 play(const std::string &path) const {
        unlink(heard_file.c_str()); // of the sound before
        return zof_drv_audio_set_src(path.c_str());
    }

    std::string make(const std::string &name, const media_clip &clip) const {
        REQUIRE(media_write((top + "/" + name).c_str(), clip));
        return top + "/" + name;
    }
};

static std::string le(u32 v, int bytes) {
    std::string out;
    for (; bytes > 0; bytes--, v >>= 8) {
        out += (char)v;
    }
    return out;
}

static std::string wav(const std::string &data, int channels, int bits, u32 claimed = 0) {
    const int frame = channels * bits / 8;
    return "RIFF" + le((u32)data.size() + 36, 4) + "WAVEfmt " + le(16, 4) + le(1, 2) + le((u32)channels, 2) +
           le(8000, 4) + le((u32)(8000 * frame), 4) + le((u32)frame, 2) + le((u32)bits, 2) + "data" +
           le(claimed ? claimed : (u32)data.size(), 4) + data;
}

static std::string noise(size_t size) {
    std::string out;
    for (u32 x = 12345; out.size() < size; x = x * 1664525 + 1013904223) {
        out += (char)(x >> 24 | 1); // never silence
    }
    return out;
}

// The file as FFmpeg alone makes 16 bit stereo of it.
static std::string decoded(const std::string &path) {
    std::string out;
    AVFormatContext *format = nullptr;
    REQUIRE(avformat_open_input(&format, path.c_str(), nullptr, nullptr) == 0);
    avformat_find_stream_info(format, nullptr);
    const int stream = av_find_best_stream(format, AVMEDIA_TYPE_AUDIO, -1, -1, nullptr, 0);
    const AVCodecParameters *par = format->streams[stream]->codecpar;
    AVCodecContext *codec = avcodec_alloc_context3(avcodec_find_decoder(par->codec_id));
    avcodec_parameters_to_context(codec, par);
    avcodec_open2(codec, codec->codec, nullptr);
    AVChannelLayout stereo;
    av_channel_layout_default(&stereo, 2);
    SwrContext *swr = nullptr;
    swr_alloc_set_opts2(&swr, &stereo, AV_SAMPLE_FMT_S16, codec->sample_rate, &codec->ch_layout, codec->sample_fmt,
                        codec->sample_rate, 0, nullptr);
    swr_init(swr);
    AVPacket *packet = av_packet_alloc();
    AVFrame *frame = av_frame_alloc();
    while (av_read_frame(format, packet) == 0) {
        if (packet->stream_index == stream) {
            avcodec_send_packet(codec, packet);
        }
        while (packet->stream_index == stream && avcodec_receive_frame(codec, frame) == 0) {
            std::string block((size_t)frame->nb_samples * 4, 0);
            u8 *to[] = {(u8 *)block.data()};
            swr_convert(swr, to, frame->nb_samples, (const u8 **)frame->extended_data, frame->nb_samples);
            out += block;
        }
        av_packet_unref(packet);
    }
    av_frame_free(&frame);
    av_packet_free(&packet);
    swr_free(&swr);
    avcodec_free_context(&codec);
    avformat_close_input(&format);
    return out;
}

static std::string stripped(const std::string &bytes) {
    const size_t from = bytes.find_first_not_of('\0');
    return from == std::string::npos ? "" : bytes.substr(from, bytes.find_last_not_of('\0') + 1 - from);
}

TEST_CASE("a WAV file is heard as it is, byte by byte, and then counts as playing until its thread is stopped") {
    sound_room_t room;
    CHECK(zof_drv_audio_get_state() == ZOF_MEDIA_STOP);
    CHECK(zof_drv_audio_set_state(ZOF_MEDIA_PLAY) == 0); // before any source: nothing
    CHECK(zof_drv_audio_get_state() == ZOF_MEDIA_STOP);
    const struct {
        int channels, bits;
        char silence;
    } rows[] = {{1, 8, (char)128}, {2, 16, 0}};
    for (const auto &row : rows) {
        CAPTURE(row.bits);
        const std::string data = noise(20000);
        room.write("a.wav", wav(data, row.channels, row.bits, row.bits == 16 ? 0xFFFFFFF0u : 0));
        zof_drv_audio_set_one_replay(1); // of no effect on a WAV file
        REQUIRE(room.play(room.path("a.wav")) == 0);
        REQUIRE(comes([&] { return room.heard(row.silence).size() >= data.size(); }));
        const size_t so_far = file_text(room.heard_file).size();
        REQUIRE(comes([&] { return file_text(room.heard_file).size() > so_far + 4000; })); // and on, silent
        CHECK((room.heard(row.silence) == data));
        CHECK(zof_drv_audio_get_state() == ZOF_MEDIA_PLAY);
        CHECK(zof_drv_audio_set_state(ZOF_MEDIA_STOP) == 0);
        CHECK(zof_drv_audio_get_state() == ZOF_MEDIA_STOP);
    }
    zof_drv_audio_set_volum(64); // half as loud
    room.write("b.wav", wav(le(0x4002, 2) + le(0xC002, 2), 1, 16));
    room.play(room.path("b.wav"));
    REQUIRE(comes([&] { return room.heard().size() >= 4; }));
    CHECK((room.heard() == le(0x2001, 2) + le(0xE001, 2)));
}

TEST_CASE("compressed files and the sound of a clip are heard as they decode, once or again and again, by a thread") {
    sound_room_t room("11"); // about real time: a decoder that comes late is heard
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
        const std::string want = stripped(decoded(path));
        REQUIRE(want.size() > 30000);
        zof_drv_audio_set_one_replay(0);
        REQUIRE(room.play(path) == 0);
        REQUIRE(comes([] { return zof_drv_audio_get_state() == ZOF_MEDIA_STOP; }));
        CHECK((room.heard() == want));
        zof_drv_audio_set_one_replay(1);
        CHECK(zof_drv_audio_set_state(ZOF_MEDIA_PLAY) == 0);
        u32 rounds = 0; // each opens the device, and so the file, anew
        size_t before = 0;
        REQUIRE(comes([&] {
            const size_t now = file_text(room.heard_file).size();
            rounds += now < before;
            before = now;
            return rounds == 2;
        }));
        CHECK(zof_drv_audio_get_state() == ZOF_MEDIA_PLAY);
        CHECK(zof_drv_audio_set_state(ZOF_MEDIA_STOP) == 0);
    }
}

TEST_CASE("a sound's thread is paused, resumed and stopped at once, and a start after a stop is heard") {
    sound_room_t room("5");
    room.write("a.wav", wav(noise(64000), 1, 16));
    const std::string path = room.path("a.wav");
    room.play(path);
    REQUIRE(comes([&] { return room.heard().size() > 2000; }));
    for (int i = 0; i < 2; i++) { // asked twice it stays paused
        CHECK(zof_drv_audio_set_state(ZOF_MEDIA_PAUSE) == 0);
        CHECK(zof_drv_audio_get_state() == ZOF_MEDIA_PAUSE);
    }
    const size_t so_far = file_text(room.heard_file).size();
    REQUIRE(comes([&] { return file_text(room.heard_file).size() > so_far + 8192; }));
    const size_t paused = room.heard().size();
    CHECK(paused < 64000);
    CHECK(zof_drv_audio_set_state(ZOF_MEDIA_RESUME) == 0);
    REQUIRE(comes([&] { return room.heard().size() > paused + 2000; }));
    zof_drv_audio_set_state(ZOF_MEDIA_PAUSE);
    zof_drv_audio_set_state(ZOF_MEDIA_STOP);
    CHECK(zof_drv_audio_get_state() == ZOF_MEDIA_STOP);
    unlink(room.heard_file.c_str());
    zof_drv_audio_set_state(ZOF_MEDIA_PLAY);
    CHECK(zof_drv_audio_get_state() == ZOF_MEDIA_PLAY);
    REQUIRE(comes([&] { return room.heard().size() > 2000; }));
    CHECK(zof_drv_audio_set_state(4) == -1);
    std::vector<u32> took;
    for (int i = 0; i < 20; i++) { // sounds that cut each other short
        const u32 start = now_ms();
        zof_drv_audio_set_src(path.c_str());
        took.push_back(now_ms() - start);
        if (i % 3) {
            usleep((useconds_t)i * 1000);
        }
    }
    zof_drv_audio_set_state(ZOF_MEDIA_STOP);
    std::sort(took.begin(), took.end());
    CHECK(took[10] < 100); // the median: a busy machine may hold up one or another
    CHECK(took[19] < 2000);
}

TEST_CASE("names that cannot be and files that are broken end quietly or with a line, in the thread too") {
    sound_room_t room;
    CHECK(zof_drv_audio_set_src(nullptr) == -1);
    CHECK(printed([&] { CHECK(zof_drv_audio_set_src("/a.dir/name") == -1); }) ==
          "sound /a.dir/name: a name without a dot\n\n");
    const std::string long_name = "/" + std::string(124, 'x') + ".wav"; // 129 bytes
    CHECK(contains(printed([&] { CHECK(zof_drv_audio_set_src(long_name.c_str()) == -1); }), "the path is too long"));
    CHECK(zof_drv_audio_set_src(long_name.substr(2).c_str()) == 0); // 127
    CHECK(zof_drv_audio_set_src("/none.ogg") == 0);                 // nothing that is played
    CHECK(zof_drv_audio_get_state() == ZOF_MEDIA_STOP);
    media_clip film;
    film.width = film.height = 32;
    film.frames = 3;
    const std::string silent = room.make("silent.mp4", film);
    CHECK(contains(printed([&] {
                       zof_drv_audio_set_src("/none.mp3");
                       comes([] { return zof_drv_audio_get_state() == ZOF_MEDIA_STOP; });
                       zof_drv_audio_set_src("/none.wav");
                       comes([] { return zof_drv_audio_get_state() == ZOF_MEDIA_STOP; });
                   }),
                   "sound /none.mp3: Failed to open file!\nsound /none.wav: cannot be opened\n"));
    CHECK(printed([&] {
              zof_drv_audio_set_src(silent.c_str()); // a clip without sound is no fault
              comes([] { return zof_drv_audio_get_state() == ZOF_MEDIA_STOP; });
          }) == "");
    room.write("empty.wav", wav("", 1, 16)); // with replay it waits for its data for ever, without a busy loop
    zof_drv_audio_set_one_replay(1);
    zof_drv_audio_set_src(room.path("empty.wav").c_str());
    usleep(100000);
    CHECK(zof_drv_audio_get_state() == ZOF_MEDIA_PLAY);
    zof_drv_audio_set_one_replay(0);
    CHECK(comes([] { return zof_drv_audio_get_state() == ZOF_MEDIA_STOP; }));
}

TEST_CASE("a touch's tone is a sound file when the project says so") {
    sound_room_t room;
    zof_prj_t *prj = room.open();
    const std::string data = noise(3000);
    room.write("sound/click.wav", wav(data, 1, 16));
    char name[] = "click.wav";
    const zof_prj_tone_t tone = {.type = 1, .time = 50, .sound = name};
    REQUIRE(prj);
    REQUIRE(zof_hmi_tone_set(&tone));
    zof_hmi_tone_on(50);
    REQUIRE(comes([&] { return room.heard().size() >= data.size(); }));
    CHECK((room.heard() == data));
    char none[] = "none";
    const zof_prj_tone_t wrong = {.type = 1, .time = 50, .sound = none};
    zof_hmi_tone_set(&wrong);
    unlink(room.heard_file.c_str());
    zof_hmi_tone_on(50); // refused: what played goes on, and nothing is started again
    CHECK(!std::filesystem::exists(room.heard_file));
    zof_drv_audio_set_state(ZOF_MEDIA_STOP);
}
