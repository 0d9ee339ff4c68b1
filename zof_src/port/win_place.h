// The size of the window, remembered from one start to the next in a small file of the user's state. Internal: C++
// only.
#ifndef WIN_PLACE_H
#define WIN_PLACE_H

#include "zof_lib/zof_type.h"

struct win_place_t {
    s32 w, h; // pixels, as the window is when it is not maximised
    bool maximised;
};

// Reads the size that was remembered for a title. Returns false, with `out` unchanged, when no size is remembered; what
// is not such a file is ignored with a log line.
bool win_place_read(const char *title, win_place_t *out);

// Remembers a size. One that cannot be written is lost, with a log line.
void win_place_write(const char *title, const win_place_t *place);

#endif
