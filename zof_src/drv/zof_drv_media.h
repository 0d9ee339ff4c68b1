// A look at media files without playing them.
#ifndef ZOF_DRV_MEDIA_H
#define ZOF_DRV_MEDIA_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

// Decodes the beginning of a sound (".wav", ".mp3", ".aac") or clip (".mp4"), and reads a clip to its end. Returns why
// it cannot be played as a whole, or null if it can or has another name; also null if the libraries that decode it are
// not installed. The text is valid until the next call on the same thread. Any thread; needs no device.
const char *zof_media_fault(const char *path);

ZOF_C_END

#endif
