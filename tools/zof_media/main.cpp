// Makes a clip or a sound from the command line.
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "media.h"

static int usage(FILE *to, int status) {
    fprintf(to, "usage: zof_media clip FILE.mp4 WIDTH HEIGHT SECONDS [HZ [CODEC [FRAME]]]\n"
                "           a ball over slowly changing colours, with a tone; CODEC is mpeg4, png or mjpeg; with the "
                "latter two\n"
                "           the clip is half as large from FRAME on\n"
                "       zof_media tone FILE.wav|mp3|aac HZ MS\n");
    return status;
}

// Parses a number from `min` to `max`. Returns false after a message.
static bool number(const char *name, const char *text, double min, double max, double *out) {
    char *end;
    *out = strtod(text, &end);
    if (end == text || *end || !(*out >= min && *out <= max)) {
        fprintf(stderr, "zof_media: %s is a number from %g to %g, not \"%s\"\n", name, min, max, text);
        return false;
    }
    return true;
}

static bool whole(const char *name, const char *text, s32 min, s32 max, s32 *out) {
    double value;
    if (!number(name, text, min, max, &value)) {
        return false;
    }
    *out = (s32)value;
    if (*out != value) {
        fprintf(stderr, "zof_media: %s is a whole number, not \"%s\"\n", name, text);
    }
    return *out == value;
}

static constexpr struct {
    const char *name;
    bool resizes; // can change its size in the middle of a clip
} codecs[] = {{"mpeg4", false}, {"png", true}, {"mjpeg", true}};

static bool codec_take(const char *name, bool resize, media_clip *clip) {
    for (const auto &row : codecs) {
        if (strcmp(name, row.name) == 0) {
            clip->codec = row.name;
            if (resize && !row.resizes) {
                fprintf(stderr, "zof_media: a clip with %s cannot change its size at a FRAME\n", name);
            }
            return !resize || row.resizes;
        }
    }
    fprintf(stderr, "zof_media: CODEC is mpeg4, png or mjpeg, not \"%s\"\n", name);
    return false;
}

enum { SIDE_MAX = 2000, HOUR_S = 3600, TONE_MAX_HZ = 20000 };

static bool clip_take(int count, char **words, media_clip *clip) {
    double seconds;
    if (!whole("WIDTH", words[0], 2, SIDE_MAX, &clip->width) ||
        !whole("HEIGHT", words[1], 2, SIDE_MAX, &clip->height) ||
        !number("SECONDS", words[2], (double)clip->rate_den / clip->rate_num, HOUR_S, &seconds) ||
        (count > 3 && !whole("HZ", words[3], 0, TONE_MAX_HZ, &clip->tone_hz)) ||
        (count > 4 && !codec_take(words[4], count > 5, clip))) {
        return false;
    }
    clip->frames = (s32)(seconds * clip->rate_num / clip->rate_den);
    return count <= 5 || whole("FRAME", words[5], 0, clip->frames, &clip->resize_at);
}

static bool tone_take(char **words, media_clip *clip) {
    return whole("HZ", words[0], 1, TONE_MAX_HZ, &clip->tone_hz) &&
           whole("MS", words[1], 1, HOUR_S * 1000, &clip->tone_ms);
}

int main(int argc, char **argv) {
    media_clip clip;
    const char *command = argc > 1 ? argv[1] : "";
    if (strcmp(command, "--help") == 0) {
        return usage(stdout, 0);
    }
    const bool moving = strcmp(command, "clip") == 0 && argc >= 6 && argc <= 9;
    if (!moving && (strcmp(command, "tone") != 0 || argc != 5)) {
        return usage(stderr, 2);
    }
    if (!(moving ? clip_take(argc - 3, argv + 3, &clip) : tone_take(argv + 3, &clip))) {
        return 2;
    }
    return media_write(argv[2], clip) ? 0 : 1;
}
