// Makes clips and sounds, so that none has to be kept: for examples and for tests.
#ifndef MEDIA_H
#define MEDIA_H

#include "zof_lib/zof_type.h"

// Paints frame `n` of a clip: 0xAARRGGBB, width x height.
typedef void (*media_paint_t)(u32 *pixels, s32 width, s32 height, s32 n);

struct media_clip {
    s32 width = 0, height = 0;       // pixels; 0 for a sound
    s32 rate_num = 25, rate_den = 1; // frames a second
    s32 frames = 0;
    const char *codec = "mpeg4";   // "png" keeps colours and transparency exactly, "mjpeg" is of single pictures
    s32 resize_at = -1;            // from this frame on half as large; "png" and "mjpeg" can
    s32 b_frames = 0;              // frames in a row that need a later one; "mpeg4" can
    const s32 *times = nullptr;    // when each frame is shown, in frames of the rate; null: one after the other
    media_paint_t paint = nullptr; // null: a ball over slow colours
    s32 tone_hz = 0;               // 0 for no sound
    s32 tone_ms = 0;               // 0 for as long as the frames
    s32 sample_rate = 44100, channels = 1;
};

// Writes it to a file whose suffix selects the format: .mp4, .mp3, .aac or .wav. False with a line to standard error.
bool media_write(const char *path, const media_clip &clip);

#endif
