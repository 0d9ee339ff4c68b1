// One media file opened for one of its streams, with FFmpeg. Internal to the port.
//
// FFmpeg opens nothing by name: it reads from a source that was opened here, and a file's request for another file is
// refused. What a file declares is checked before memory is allocated for it.
#ifndef FF_MEDIA_H
#define FF_MEDIA_H

#include <atomic>

#include "port/ff_lib.h"
#include "zof_lib/zof_type.h"

// The largest side of a picture in a file, in pixels.
enum { FF_SIDE_MOST = 4096 };

// Where the bytes come from; `handle` is null if there is no source.
struct ff_source {
    void *handle;
    int (*read)(void *handle, u8 *buf, int size); // bytes; 0 or less at the end
    s64 (*seek)(void *handle, s64 pos);           // 0, or less
    void (*close)(void *handle);
    s64 size;
};

// Opens a file of the host.
ff_source ff_source_host(const char *path);

struct ff_media {
    ff_source source;
    s64 at; // position in the source, bytes
    AVIOContext *io;
    AVFormatContext *format;
    AVCodecContext *codec;
    int stream;
    const std::atomic<bool> *stop; // OPTIONAL: when true, all reading ends
};

// Opens the container that the file name says: ".mp4", ".mp3", ".aac" or ".jpg" at its end, in upper or lower case.
// Always takes over the source. With `look` the streams are probed for what the container does not say. Returns false
// with everything closed.
bool ff_open(ff_media *m, ff_source source, const char *name, bool look);

// Opens the decoder of the best stream of a type. Returns null, or what is wrong; the file stays open.
const char *ff_codec_open(ff_media *m, AVMediaType type);

// Passes a packet to the decoder; null at the end of the file. Returns FFmpeg's result; less than 0 also for a JPEG
// picture whose scans would take seconds to decode, which is logged with `name`, once for the same name in a row.
int ff_packet_send(ff_media *m, const AVPacket *packet, const char *name);

// Reads the next packet of the stream; false at the end, and for a file that goes on without one.
bool ff_packet_read(ff_media *m, AVPacket *packet);

// Closes everything that is open; a second call does nothing.
void ff_close(ff_media *m);

// Returns whether pictures of this format can be transparent.
bool ff_has_alpha(int pixel_format);

// Creates a scaler to LVGL's pixels; null without memory or for invalid sizes.
SwsContext *ff_scaler(int from_w, int from_h, int from_format, int w, int h);

// Writes a picture to memory for LVGL, w pixels a row, without gaps. The memory has FF_TAIL bytes more than the
// picture: the scaler's last step may write beyond it.
enum { FF_TAIL = 256 };
bool ff_scale(SwsContext *scaler, const AVFrame *frame, u8 *pixels, int w, int h);

#endif
