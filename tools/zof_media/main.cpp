// Makes a clip or a sound from the command line.
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "media.h"

static int usage() {
    fprintf(stderr, "usage: zof_media clip FILE.mp4 WIDTH HEIGHT SECONDS [HZ [CODEC [FRAME]]]\n"
                    "           a ball over slowly changing colours, with a tone; CODEC is mpeg4, png or mjpeg; with "
                    "the latter two\n"
                    "           the clip is half as large from FRAME on\n"
                    "       zof_media tone FILE.wav|mp3|aac HZ MS\n");
    return 2;
}

int main(int argc, char **argv) {
    media_clip clip;
    if (argc >= 6 && strcmp(argv[1], "clip") == 0) {
        clip.width = atoi(argv[3]);
        clip.height = atoi(argv[4]);
        clip.frames = (s32)(atof(argv[5]) * clip.rate_num);
        clip.tone_hz = argc > 6 ? atoi(argv[6]) : 0;
        clip.codec = argc > 7 ? argv[7] : clip.codec;
        clip.resize_at = argc > 8 ? atoi(argv[8]) : clip.resize_at;
        if (clip.width < 2 || clip.height < 2 || clip.width > 2000 || clip.height > 2000 || clip.frames < 1) {
            return usage();
        }
    } else if (argc == 5 && strcmp(argv[1], "tone") == 0) {
        clip.tone_hz = atoi(argv[3]);
        clip.tone_ms = atoi(argv[4]);
        if (clip.tone_hz < 1 || clip.tone_ms < 1) {
            return usage();
        }
    } else {
        return usage();
    }
    return media_write(argv[2], clip) ? 0 : 1;
}
