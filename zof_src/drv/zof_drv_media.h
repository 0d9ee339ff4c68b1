// Pictures in files, and a look at media files without playing them.
#ifndef ZOF_DRV_MEDIA_H
#define ZOF_DRV_MEDIA_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

// Installs decoders of PNG and JPEG files, ahead of LVGL's own, unless they are installed. After lv_init; graphics
// thread. The first JPEG file loads FFmpeg where it is built in.
void zof_image_init(void);

// Decodes the beginning of a sound (".wav", ".mp3", ".aac") or clip (".mp4"), and reads a clip to its end. Returns why
// it cannot be played as a whole. Returns null if it can or has another name, and if the libraries that decode it are
// not installed or not built in. The text is valid until the next call on the same thread. Any thread; needs no device.
const char *zof_media_fault(const char *path);

// Whether FFmpeg, which decodes clips, compressed sounds and JPEG pictures, can be used.
enum { ZOF_FFMPEG_READY = 0, ZOF_FFMPEG_NOT_INSTALLED = 1, ZOF_FFMPEG_NOT_BUILT_IN = 2 };

// Returns ZOF_FFMPEG_*. Loads the libraries, and logs the one that is missing. Any thread.
u32 zof_media_ffmpeg(void);

// Returns false for a clip or compressed sound, by its name, in a build without FFmpeg. Any thread.
zof_bool zof_media_built_in(const char *path);

ZOF_C_END

#endif
