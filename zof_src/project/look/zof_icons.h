// Icons in texts: ":cafe: Brew" shows the letter that config/icons.g names "cafe". Graphics thread.
#ifndef ZOF_ICONS_H
#define ZOF_ICONS_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

struct cJSON;

// Reads config/icons.g, {"cafe": "U+E000"}. Returns null without the file, and after a message for an invalid one. The
// caller owns the result.
struct cJSON *zof_icons_load(void);

// Returns a text with the project's icons in place of their names: `text` itself if it names no icon, otherwise a copy
// that is valid until the fourth further call.
const char *zof_icons_show(const char *text);

ZOF_C_END

#endif
