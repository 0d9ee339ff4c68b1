// The shared memory of a player: this header, then the picture. The player writes it, its parent reads it. `sequence`
// is odd while a frame is being written; a reader that saw the same even number before and after has a complete frame.
#ifndef PLAYER_FRAME_H
#define PLAYER_FRAME_H

#include <stdint.h>

enum { PLAYER_MAGIC = 0x4D465A5A, PLAYER_VERSION = 1 }; // "ZZFM" in memory

typedef struct {
    uint32_t magic, version;
    uint32_t width, height; // pixels
    uint32_t stride;        // bytes per row
    uint32_t offset;        // offset of the first pixel from the start of the file; pixels are B, G, R, A
    uint32_t sequence;
    uint32_t reserved;
} player_frame_t;

#endif
