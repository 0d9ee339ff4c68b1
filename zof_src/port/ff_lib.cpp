// The libraries that this was compiled for, by the major version in their names.
#include "port/ff_lib.h"

#include "port/zof_host.h"
#include "zof_lib/zof_stdio.h"

ff_lib ff;

// A function and where to store its address.
struct ff_row {
    const char *name;
    void *slot;
};

#define FF_ROW(name) {#name, &ff.name},
static const ff_row avutil[] = {FF_AVUTIL(FF_ROW)};
static const ff_row avcodec[] = {FF_AVCODEC(FF_ROW)};
static const ff_row avformat[] = {FF_AVFORMAT(FF_ROW)};
static const ff_row swscale[] = {FF_SWSCALE(FF_ROW)};
static const ff_row swresample[] = {FF_SWRESAMPLE(FF_ROW)};
#undef FF_ROW

static const struct {
    const char *name;
    s32 major;
    const ff_row *rows;
    size_t count;
} libraries[] = {{"avutil", LIBAVUTIL_VERSION_MAJOR, avutil, sizeof(avutil) / sizeof(avutil[0])},
                 {"avcodec", LIBAVCODEC_VERSION_MAJOR, avcodec, sizeof(avcodec) / sizeof(avcodec[0])},
                 {"avformat", LIBAVFORMAT_VERSION_MAJOR, avformat, sizeof(avformat) / sizeof(avformat[0])},
                 {"swscale", LIBSWSCALE_VERSION_MAJOR, swscale, sizeof(swscale) / sizeof(swscale[0])},
                 {"swresample", LIBSWRESAMPLE_VERSION_MAJOR, swresample, sizeof(swresample) / sizeof(swresample[0])}};

static bool libraries_open() {
    for (const auto &library : libraries) {
        void *handle = zof_host_library_open(library.name, library.major);
        for (size_t i = 0; handle && i < library.count; i++) {
            void *address = zof_host_library_symbol(handle, library.rows[i].name);
            if (!address) {
                handle = nullptr;
            }
            *(void **)library.rows[i].slot = address;
        }
        if (!handle) {
            zof_printf(
                "media: FFmpeg's library %s, version %d, is missing; clips, compressed sound and JPEG do not work",
                library.name, library.major);
            return false;
        }
    }
    ff.av_log_set_level(AV_LOG_QUIET);
    return true;
}

bool ff_lib_open(void) {
    static const bool good = libraries_open();
    return good;
}
