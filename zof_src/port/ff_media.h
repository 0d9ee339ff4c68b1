// One media file opened for one of its streams, with FFmpeg. Internal to the port.
//
// FFmpeg opens nothing by a name: it reads from a source that was opened here, and any wish of a file for another one
// is refused. What a file says of itself is checked before anything is allocated by it.
#ifndef FF_MEDIA_H
#define FF_MEDIA_H

#include <atomic>

#include "port/ff_lib.h"
#include "zof_lib/zof_type.h"

// The most pixels a side of a picture in a file may have; LVGL's own pictures end at 2047.
enum { FF_SIDE_MOST = 4096, FF_LVGL_SIDE_MOST = 2047 };

// Where the bytes come from; `handle` is null for none.
struct ff_source {
    void *handle;
    int (*read)(void *handle, u8 *buf, int size); // bytes; 0 or less at the end
    s64 (*seek)(void *handle, s64 pos);           // 0, or less
    void (*close)(void *handle);
    s64 size;
};

// A file of the host; a file by LVGL's file layer, which knows drives (graphics thread only).
ff_source ff_source_host(const char *path);
ff_source ff_source_lvgl(const char *path);

struct ff_media {
    ff_source source;
    s64 at; // of the source, bytes
    AVIOContext *io;
    AVFormatContext *format;
    AVCodecContext *codec;
    int stream;
    const std::atomic<bool> *stop; // OPTIONAL: set to true it ends whatever reads
};

// Opens the container of a file name with this extension: ".mp4", ".mp3", ".aac" or ".jpg", in small or
// large letters. Takes the source over in any case. With `look` the streams are looked into for what the container does
// not say. False, and all is closed.
bool ff_open(ff_media *m, ff_source source, const char *extension, bool look);

// Opens the decoder of the best stream of a type. Null, or what is wrong; the file stays open.
const char *ff_codec_open(ff_media *m, AVMediaType type);

// Hands a packet to the decoder; null: the file has ended. FFmpeg's result; less than 0 also for a JPEG picture whose
// scans would take seconds to decode, which is logged with `name`, once for the same name in a row.
int ff_packet_send(ff_media *m, const AVPacket *packet, const char *name);

// The next packet of the stream; false at the end, and for a file that goes on without one.
bool ff_packet_read(ff_media *m, AVPacket *packet);

// All that is open; again does nothing.
void ff_close(ff_media *m);

// Whether pictures of this format can let something shine through.
bool ff_has_alpha(int pixel_format);

// A scaler that gives LVGL's pixels; null without memory or for sizes that make no sense.
SwsContext *ff_scaler(int from_w, int from_h, int from_format, int w, int h);

// Puts a picture into memory for LVGL, w pixels a row, without a gap. The memory has FF_TAIL bytes more than the
// picture: the scaler's last step may write beyond it.
enum { FF_TAIL = 256 };
bool ff_scale(SwsContext *scaler, const AVFrame *frame, u8 *pixels, int w, int h);

#endif
