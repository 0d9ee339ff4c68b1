// What a picture may need of memory and time, whichever library decodes it.
#include <string.h>

#include "port/win_image.h"
#include "zof_lib/zof_stdio.h"

bool image_fits(s64 w, s64 h) {
    return w > 0 && h > 0 && w <= IMAGE_SIDE_MOST && h <= IMAGE_SIDE_MOST;
}

// Each scan covers the whole picture again, and may need only a few bytes for it. Useful pictures have about 10.
enum { SCANS_MOST = 100, SCANNED_PIXELS_MOST = 50 << 20 };

struct jpeg_facts {
    u64 pixels;
    u32 scans;
};

// Walks over the segments and skips the data of a scan before the next one; in that data 0xFF is followed by 0 or a
// restart marker.
static jpeg_facts jpeg_look(const u8 *p, size_t size) {
    enum { FRAME_FIRST = 0xC0, TABLES = 0xC4, FRAME_LAST = 0xCF, RESTART_FIRST = 0xD0, START = 0xD8, SCAN = 0xDA };
    jpeg_facts facts = {};
    for (size_t at = 0; at + 9 < size;) {
        const u8 marker = p[at + 1];
        if (p[at] != 0xFF || marker == 0 || (marker >= RESTART_FIRST && marker <= START) || marker == 0xFF) {
            at++;
            continue;
        }
        if (marker >= FRAME_FIRST && marker <= FRAME_LAST && marker != TABLES) {
            const u64 pixels = (u64)(p[at + 5] << 8 | p[at + 6]) * (u64)(p[at + 7] << 8 | p[at + 8]);
            facts.pixels = pixels > facts.pixels ? pixels : facts.pixels;
        }
        facts.scans += marker == SCAN;
        at += 2 + (size_t)(p[at + 2] << 8 | p[at + 3]);
    }
    return facts;
}

bool image_scans_are_few(const u8 *file, size_t size, const char *name) {
    const jpeg_facts facts = jpeg_look(file, size);
    if (facts.scans <= SCANS_MOST && facts.pixels * facts.scans <= SCANNED_PIXELS_MOST) {
        return true;
    }
    static char reported[128];
    if (strncmp(reported, name, sizeof(reported) - 1) != 0) {
        strncpy(reported, name, sizeof(reported) - 1);
        zof_printf("picture %s: refused, %u scans of %llu pixels take too long", name, facts.scans,
                   (unsigned long long)facts.pixels);
    }
    return false;
}
