// Generates clips and sounds for examples and tests, so that none are kept in the tree.
#ifndef MEDIA_H
#define MEDIA_H

#include "zof_lib/zof_type.h"

// Paints frame `n` of a clip: 0xAARRGGBB, width x height pixels.
typedef void (*media_paint_t)(u32 *pixels, s32 width, s32 height, s32 n);

struct media_clip {
    s32 width = 0, height = 0;       // pixels; 0 for a sound
    s32 rate_num = 25, rate_den = 1; // frames per second
    s32 frames = 0;
    const char *codec = "mpeg4";   // "png" is lossless with transparency, "mjpeg" has key frames only
    s32 resize_at = -1;            // half size from this frame on; with "png" and "mjpeg"
    s32 b_frames = 0;              // consecutive B-frames; with "mpeg4"
    const s32 *times = nullptr;    // when each frame is shown, in frame periods; null: constant rate
    media_paint_t paint = nullptr; // null: a ball over slowly changing colours
    s32 tone_hz = 0;               // 0 for no sound
    s32 tone_ms = 0;               // 0 for the duration of the frames
    s32 sample_rate = 44100, channels = 1;
};

// Writes a clip to a file. The suffix selects the format: .mp4, .mp3, .aac or .wav. Returns false after a message on
// the error stream.
bool media_write(const char *path, const media_clip &clip);

#endif
