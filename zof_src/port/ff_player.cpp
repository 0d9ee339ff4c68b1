// The clip player. One frame is decoded ahead; when it is due it is scaled straight into the picture that LVGL draws.
// Another thread plays the sound, so a main loop that is late skips frames instead of showing them late.

#include "drv/zof_drv.h"
#include "drv/zof_drv_audio.h"
#include "port/ff_media.h"
#include "port/win_image.h"
#include "port/zof_port.h"
#include "zof_lib/zof_stdio.h"

// A tick decodes at most SKIP_MOST frames, and a frame takes at most PACKETS_MOST packets, so that the screen stays
// responsive.
enum { FRAME_MS = 33, PERIOD_MOST_MS = 10000, TIME_MOST_MS = 1 << 30, SKIP_MOST = 8, PACKETS_MOST = 512 };

struct ffmpeg_context {
    ff_media media;
    SwsContext *scaler; // created with the first frame
    AVFrame *frame;     // the next one to show
    AVFrame *shown;     // the latest one that was due
    AVPacket *packet;
    int width, height, format; // of the clip when it was opened; a frame of another size ends it
    bool has_alpha;
    AVRational time_base; // seconds in a unit of the frames' times
    u32 frame_ms;         // the usual time between two frames
    bool begun;           // a frame was requested since the clip was rewound
    bool ahead;           // `frame` holds one
    bool drained;         // the file has ended, the decoder returns its remaining frames
    u32 started_ms;       // when the clip's time was 0
    s64 due_ms;           // the clip's time at which `frame` is due, or at which the clip ends
    s64 lead_ms;          // how far the clip's time is ahead of the frames' own
};

struct lv_ffmpeg_player_t {
    lv_img_t img;
    lv_timer_t *timer;
    lv_img_dsc_t imgdsc;
    u8 auto_restart;
    ffmpeg_context *ffmpeg_ctx;
};

static void player_close(lv_ffmpeg_player_t *p) {
    ffmpeg_context *c = p->ffmpeg_ctx;
    p->ffmpeg_ctx = nullptr;
    if (c) {
        ff.av_packet_free(&c->packet);
        ff.av_frame_free(&c->frame);
        ff.av_frame_free(&c->shown);
        ff.sws_freeContext(c->scaler);
        ff_close(&c->media);
        zof_free(c);
    }
    if (p->imgdsc.data) {
        lv_img_cache_invalidate_src(&p->imgdsc);
        zof_free((void *)p->imgdsc.data);
        p->imgdsc = {};
    }
}

// Without a clip nothing is shown. Without a source LVGL would keep the old size and paint "No data" there.
static void picture_none(lv_ffmpeg_player_t *p) {
    lv_img_set_src(&p->img.obj, nullptr);
    p->img.w = 0;
    p->img.h = 0;
    lv_obj_refresh_self_size(&p->img.obj);
}

static bool picture_make(lv_ffmpeg_player_t *p) {
    lv_obj_t *obj = &p->img.obj;
    lv_obj_refr_size(obj);
    const s32 w = lv_obj_get_width(obj);
    const s32 h = lv_obj_get_height(obj);
    if (!image_fits(w, h)) {
        return false;
    }
    const u32 size = (u32)w * (u32)h * 4;
    auto *data = (u8 *)zof_malloc(size + FF_TAIL); // zeroed: black, or nothing at all, until the first frame
    if (!data) {
        return false;
    }
    p->imgdsc.header.cf = p->ffmpeg_ctx->has_alpha ? LV_IMG_CF_TRUE_COLOR_ALPHA : LV_IMG_CF_TRUE_COLOR;
    p->imgdsc.header.w = (u32)w & IMAGE_SIDE_MOST;
    p->imgdsc.header.h = (u32)h & IMAGE_SIDE_MOST;
    p->imgdsc.data_size = size;
    p->imgdsc.data = data;
    lv_img_set_src(obj, &p->imgdsc);
    return true;
}

// Returns the stream's average time between two frames; 33 ms if that makes no sense.
static u32 frame_ms_of(const AVStream *stream) {
    const AVRational rate = stream->avg_frame_rate;
    const s64 period = rate.num > 0 && rate.den > 0 ? 1000ll * rate.den / rate.num : 0;
    return period >= 1 && period <= PERIOD_MOST_MS ? (u32)period : (u32)FRAME_MS;
}

static bool clip_open(lv_ffmpeg_player_t *p, const char *path) {
    if (!ff_lib_open()) {
        return false;
    }
    auto *c = p->ffmpeg_ctx = (ffmpeg_context *)zof_malloc(sizeof(ffmpeg_context));
    if (!c) {
        return false;
    }
    if (!ff_open(&c->media, ff_source_host(path), path, true)) {
        zof_printf("video %s: cannot be opened\n", path);
        return false;
    }
    const char *wrong = ff_codec_open(&c->media, AVMEDIA_TYPE_VIDEO);
    if (wrong) {
        zof_printf("video %s: %s", path, wrong);
        return false;
    }
    c->width = c->media.codec->width;
    c->height = c->media.codec->height;
    c->format = c->media.codec->pix_fmt;
    c->has_alpha = ff_has_alpha(c->format);
    const AVStream *stream = c->media.format->streams[c->media.stream];
    c->time_base = stream->time_base;
    c->frame_ms = frame_ms_of(stream);
    c->frame = ff.av_frame_alloc();
    c->shown = ff.av_frame_alloc();
    c->packet = ff.av_packet_alloc();
    if (!c->frame || !c->shown || !c->packet) {
        return false;
    }
    return picture_make(p);
}

u32 lv_ffmpeg_player_set_src(lv_obj_t *player, const char *path) {
    auto *p = (lv_ffmpeg_player_t *)player;
    player_close(p);
    lv_timer_pause(p->timer);
    if (!path || !*path || !clip_open(p, path)) {
        player_close(p);
        picture_none(p);
        return 0;
    }
    return 1;
}

static void clip_rewind(ffmpeg_context *c) {
    ff.av_seek_frame(c->media.format, 0, 0, AVSEEK_FLAG_BACKWARD);
    ff.avcodec_flush_buffers(c->media.codec);
    c->begun = false;
    c->ahead = false;
    c->drained = false;
    c->due_ms = 0;
}

// Starts or resumes: the frame that was decoded ahead is due now.
static void time_begin(lv_ffmpeg_player_t *p) {
    p->ffmpeg_ctx->started_ms = zof_sys_time_ms() - (u32)p->ffmpeg_ctx->due_ms;
    lv_timer_resume(p->timer);
    lv_timer_ready(p->timer);
}

void lv_ffmpeg_player_set_cmd(lv_obj_t *player, u32 command) {
    auto *p = (lv_ffmpeg_player_t *)player;
    ffmpeg_context *c = p->ffmpeg_ctx;
    if (!c) {
        return;
    }
    if (command == ZOF_MEDIA_PLAY || command == ZOF_MEDIA_STOP) {
        clip_rewind(c);
    }
    if (command == ZOF_MEDIA_PLAY || command == ZOF_MEDIA_RESUME) {
        time_begin(p);
    } else if (command == ZOF_MEDIA_STOP || command == ZOF_MEDIA_PAUSE) {
        lv_timer_pause(p->timer);
    }
}

// Sends the decoder the next packet, or the end of the file. False when it accepts neither.
static bool packet_send(ffmpeg_context *c) {
    if (c->drained) {
        return false;
    }
    if (!ff_packet_read(&c->media, c->packet)) {
        c->drained = true;
        return ff_packet_send(&c->media, nullptr, "") == 0;
    }
    const bool sent = ff_packet_send(&c->media, c->packet, "of a clip") == 0;
    ff.av_packet_unref(c->packet);
    return sent;
}

// Decodes the next frame; false at the end and where the clip is broken.
static bool frame_decode(ffmpeg_context *c) {
    for (u32 packets = 0; packets <= PACKETS_MOST; packets++) {
        const int result = ff.avcodec_receive_frame(c->media.codec, c->frame);
        if (result != AVERROR(EAGAIN) || !packet_send(c)) {
            return result == 0;
        }
    }
    return false;
}

// Returns when the decoded frame is due, by its own time. Times that run backwards or jump start a new count, one usual
// interval after the previous frame.
static s64 frame_due(ffmpeg_context *c) {
    const s64 pts = c->frame->best_effort_timestamp;
    const s64 own = pts == AV_NOPTS_VALUE ? -1 : ff.av_rescale_q(pts, c->time_base, {1, 1000});
    const s64 due = c->lead_ms + own;
    if (c->begun && own >= 0 && own <= TIME_MOST_MS && due >= c->due_ms && due - c->due_ms <= PERIOD_MOST_MS) {
        return due;
    }
    const s64 usual = c->begun ? c->due_ms + c->frame_ms : 0;
    c->lead_ms = own >= 0 && own <= TIME_MOST_MS ? usual - own : usual;
    return usual;
}

// Decodes the next frame ahead, or finds the end of the clip, which is when the last frame was shown for its time.
static void frame_next(ffmpeg_context *c) {
    ff.av_frame_unref(c->frame);
    c->ahead = frame_decode(c);
    c->due_ms = c->ahead ? frame_due(c) : c->due_ms + c->frame_ms;
    c->begun = true;
}

// Returns the milliseconds until `due_ms`; 0 or less when it has passed.
static s32 due_in(const ffmpeg_context *c) {
    return (s32)((u32)c->due_ms - (zof_sys_time_ms() - c->started_ms));
}

// Returns false when the clip must end.
static bool frame_show(lv_ffmpeg_player_t *p) {
    ffmpeg_context *c = p->ffmpeg_ctx;
    const AVFrame *f = c->shown;
    if (c->format == AV_PIX_FMT_NONE) { // some codecs report it with the first frame only
        c->format = f->format;
    }
    if (f->width != c->width || f->height != c->height || f->format != c->format) {
        return false;
    }
    const int w = (int)p->imgdsc.header.w;
    const int h = (int)p->imgdsc.header.h;
    if (!c->scaler) {
        c->scaler = ff_scaler(c->width, c->height, c->format, w, h);
    }
    return ff_scale(c->scaler, f, (u8 *)p->imgdsc.data, w, h);
}

// Shows the latest frame that is due. Returns false when the clip has ended.
static bool clip_play(lv_ffmpeg_player_t *p) {
    ffmpeg_context *c = p->ffmpeg_ctx;
    if (!c->begun) {
        frame_next(c);
    }
    u32 frames = 0;
    for (; c->ahead && due_in(c) <= 0 && frames < SKIP_MOST; frames++) {
        ff.av_frame_unref(c->shown);
        ff.av_frame_move_ref(c->shown, c->frame);
        frame_next(c);
    }
    if (frames > 0) {
        if (!frame_show(p)) {
            return false;
        }
        lv_img_cache_invalidate_src(&p->imgdsc);
        lv_obj_invalidate(&p->img.obj);
    }
    return c->ahead || due_in(c) > 0;
}

static void lv_ffmpeg_player_frame_update_cb(lv_timer_t *timer) {
    auto *p = (lv_ffmpeg_player_t *)timer->user_data;
    if (!p->ffmpeg_ctx) {
        return;
    }
    if (!clip_play(p)) {
        lv_ffmpeg_player_set_cmd(&p->img.obj, p->auto_restart ^ 1);
        return;
    }
    const s32 wait = due_in(p->ffmpeg_ctx);
    lv_timer_set_period(timer, wait > 0 ? (u32)wait : 1);
}

void lv_ffmpeg_player_set_auto_restart(lv_obj_t *player, zof_bool restart) {
    ((lv_ffmpeg_player_t *)player)->auto_restart = restart != 0;
}

zof_bool lv_ffmpeg_player_runs(lv_obj_t *player) {
    const auto *p = (lv_ffmpeg_player_t *)player;
    return p->timer && !p->timer->paused;
}

static void player_construct(const lv_obj_class_t *, lv_obj_t *obj) {
    auto *p = (lv_ffmpeg_player_t *)obj;
    p->auto_restart = 0;
    p->ffmpeg_ctx = nullptr;
    p->imgdsc = {};
    p->timer = lv_timer_create(lv_ffmpeg_player_frame_update_cb, FRAME_MS, p);
    lv_timer_pause(p->timer);
}

static void player_destruct(const lv_obj_class_t *, lv_obj_t *obj) {
    auto *p = (lv_ffmpeg_player_t *)obj;
    lv_timer_del(p->timer);
    player_close(p);
}

const lv_obj_class_t lv_ffmpeg_player_class = {
    .base_class = &lv_img_class,
    .constructor_cb = player_construct,
    .destructor_cb = player_destruct,
    .instance_size = sizeof(lv_ffmpeg_player_t),
};

lv_obj_t *lv_ffmpeg_player_create(lv_obj_t *parent) {
    lv_obj_t *obj = lv_obj_class_create_obj(&lv_ffmpeg_player_class, parent);
    if (obj) {
        lv_obj_class_init_obj(obj);
    }
    return obj;
}

s32 lv_ffmpeg_get_frame_num(const char *path) {
    ff_media m = {};
    if (!path || !ff_open(&m, ff_source_host(path), path, true)) {
        return -1;
    }
    m.stream = ff.av_find_best_stream(m.format, AVMEDIA_TYPE_VIDEO, -1, -1, nullptr, 0);
    const s64 frames = m.stream >= 0 ? m.format->streams[m.stream]->nb_frames : -1;
    ff_close(&m);
    return frames > INT32_MAX ? INT32_MAX : (s32)frames;
}
