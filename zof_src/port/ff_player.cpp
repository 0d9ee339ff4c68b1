// The player of clips. Each tick of its timer decodes one frame and scales it straight into the picture that LVGL
// draws. The ticks follow the clip's own time, not the timer's period: a main loop that comes late would otherwise
// play slower and slower.
#include <string.h>

#include "drv/zof_drv.h"
#include "drv/zof_drv_audio.h"
#include "port/ff_media.h"
#include "port/zof_port.h"
#include "zof_lib/zof_stdio.h"

enum { FRAME_MS = 33, LATE_MOST_MS = 500, PERIOD_MOST_MS = 10000 };

struct ffmpeg_context {
    ff_media media;
    SwsContext *scaler; // made with the first frame
    AVFrame *frame;
    AVPacket *packet;
    int width, height, format; // of the clip when it was opened; a frame of another size ends it
    bool has_alpha;
    u32 started_ms; // the clip's time: frame n is due n * den / num seconds later
    u32 frames;
    s64 num, den;
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
        av_packet_free(&c->packet);
        av_frame_free(&c->frame);
        sws_freeContext(c->scaler);
        ff_close(&c->media);
        zof_free(c);
    }
    if (p->imgdsc.data) {
        lv_img_cache_invalidate_src(&p->imgdsc);
        zof_free((void *)p->imgdsc.data);
        p->imgdsc = {};
    }
}

// Without a clip nothing is shown; of no image LVGL would keep the former size and paint "No data" there.
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
    if (w <= 0 || h <= 0 || w > FF_LVGL_SIDE_MOST || h > FF_LVGL_SIDE_MOST) {
        return false;
    }
    const u32 size = (u32)w * (u32)h * 4;
    auto *data = (u8 *)zof_malloc(size + FF_TAIL); // zeroed: black, or nothing at all, until the first frame
    if (!data) {
        return false;
    }
    p->imgdsc.header.cf = p->ffmpeg_ctx->has_alpha ? LV_IMG_CF_TRUE_COLOR_ALPHA : LV_IMG_CF_TRUE_COLOR;
    p->imgdsc.header.w = (u32)w & FF_LVGL_SIDE_MOST;
    p->imgdsc.header.h = (u32)h & FF_LVGL_SIDE_MOST;
    p->imgdsc.data_size = size;
    p->imgdsc.data = data;
    lv_img_set_src(obj, &p->imgdsc);
    return true;
}

// The rate of the stream; whatever makes no sense is the usual 33 ms.
static u32 rate_take(ffmpeg_context *c) {
    const AVRational rate = c->media.format->streams[c->media.stream]->avg_frame_rate;
    c->num = 1000;
    c->den = FRAME_MS;
    if (rate.num > 0 && rate.den > 0) {
        const s64 period = 1000ll * rate.den / rate.num;
        if (period >= 1 && period <= PERIOD_MOST_MS) {
            c->num = rate.num;
            c->den = rate.den;
            return (u32)period;
        }
    }
    return FRAME_MS;
}

static bool clip_open(lv_ffmpeg_player_t *p, const char *path) {
    auto *c = p->ffmpeg_ctx = (ffmpeg_context *)zof_malloc(sizeof(ffmpeg_context));
    if (!c) {
        return false;
    }
    const char *extension = strrchr(path, '.');
    if (!ff_open(&c->media, ff_source_host(path), extension, true)) {
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
    c->frame = av_frame_alloc();
    c->packet = av_packet_alloc();
    if (!c->frame || !c->packet) {
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
    lv_timer_set_period(p->timer, rate_take(p->ffmpeg_ctx));
    return 1;
}

static void clip_rewind(ffmpeg_context *c) {
    av_seek_frame(c->media.format, 0, 0, AVSEEK_FLAG_BACKWARD);
    avcodec_flush_buffers(c->media.codec);
}

// From now on the clip's time goes by this moment.
static void time_begin(lv_ffmpeg_player_t *p) {
    p->ffmpeg_ctx->started_ms = zof_sys_time_ms();
    p->ffmpeg_ctx->frames = 0;
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

// When the next frame is due, from the present run of the timer on. Who is far behind starts counting anew instead of
// running through what was missed.
static void time_next(lv_ffmpeg_player_t *p) {
    ffmpeg_context *c = p->ffmpeg_ctx;
    c->frames++;
    const u32 now = zof_sys_time_ms();
    const s64 due = (s64)c->frames * 1000 * c->den / c->num;
    const s64 wait = due - (s64)(now - c->started_ms);
    if (wait < -LATE_MOST_MS) {
        c->started_ms = now;
        c->frames = 0;
    }
    lv_timer_set_period(p->timer, wait > 0 ? (u32)wait : 1);
}

// False for what ends the clip.
static bool frame_show(lv_ffmpeg_player_t *p) {
    ffmpeg_context *c = p->ffmpeg_ctx;
    const AVFrame *f = c->frame;
    if (c->format == AV_PIX_FMT_NONE) { // some codecs say it with the first frame only
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

// One packet and the frames that it gives, usually one.
static bool packet_play(lv_ffmpeg_player_t *p) {
    ffmpeg_context *c = p->ffmpeg_ctx;
    if (!ff_packet_read(&c->media, c->packet)) {
        return false;
    }
    int result = avcodec_send_packet(c->media.codec, c->packet);
    bool good = result == 0;
    while (good && (result = avcodec_receive_frame(c->media.codec, c->frame)) == 0) {
        good = frame_show(p);
        av_frame_unref(c->frame);
    }
    av_packet_unref(c->packet);
    return good && (result == AVERROR(EAGAIN) || result == AVERROR_EOF);
}

static void lv_ffmpeg_player_frame_update_cb(lv_timer_t *timer) {
    auto *p = (lv_ffmpeg_player_t *)timer->user_data;
    if (!p->ffmpeg_ctx) {
        return;
    }
    if (!packet_play(p)) {
        lv_ffmpeg_player_set_cmd(&p->img.obj, p->auto_restart ^ 1);
        return;
    }
    lv_img_cache_invalidate_src(&p->imgdsc);
    lv_obj_invalidate(&p->img.obj);
    time_next(p);
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
    if (!path || !ff_open(&m, ff_source_host(path), strrchr(path, '.'), true)) {
        return -1;
    }
    m.stream = av_find_best_stream(m.format, AVMEDIA_TYPE_VIDEO, -1, -1, nullptr, 0);
    const s64 frames = m.stream >= 0 ? m.format->streams[m.stream]->nb_frames : -1;
    ff_close(&m);
    return frames > INT32_MAX ? INT32_MAX : (s32)frames;
}
