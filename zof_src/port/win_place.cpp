#include "port/win_place.h"

#include <ctype.h>
#include <stdio.h>
#include <string.h>

#include "drv/zof_drv.h"
#include "drv/zof_drv_file.h"
#include "zof_lib/zof_stdio.h"

enum { PATH_SIZE = 512, NAME_SIZE = 80, FILE_SIZE = 64, SIDE_MAX = 16384 };
static const char PREFIX[] = "window-";
static const char MAXIMISED[] = " maximised";

// Earlier versions kept the sizes of all programs in one folder.
static void place_carry(const char *path, const char *name) {
    char old[PATH_SIZE];
    char made[PATH_SIZE];
    if (zof_file_kind(path) == ZOF_FILE_NONE && zof_file_state_path_of("zof", old, sizeof(old), name, ZOF_FALSE) == 0 &&
        zof_file_kind(old) == ZOF_FILE_PLAIN && zof_file_state_path(made, sizeof(made), name, ZOF_TRUE) == 0) {
        zof_rename(old, path);
    }
}

// Programs with different titles have files of their own. Letters and digits of a title stay.
static bool place_path(char *out, const char *title, zof_bool make) {
    char name[NAME_SIZE];
    snprintf(name, sizeof(name), "%s%s", PREFIX, title ? title : "");
    for (char *at = name + strlen(PREFIX); *at; at++) {
        *at = isalnum((u8)*at) ? *at : '_';
    }
    if (zof_file_state_path(out, PATH_SIZE, name, make) != 0) {
        return false;
    }
    place_carry(out, name);
    return true;
}

// Returns whether the text is one that win_place_write writes.
static bool place_parse(const char *text, win_place_t *out) {
    win_place_t place = {};
    int end = 0;
    if (sscanf(text, "%5d %5d%n", &place.w, &place.h, &end) != 2) {
        return false;
    }
    text += end;
    if (strncmp(text, MAXIMISED, strlen(MAXIMISED)) == 0) {
        place.maximised = true;
        text += strlen(MAXIMISED);
    }
    if (strcmp(text, "\n") != 0 || place.w < 1 || place.w > SIDE_MAX || place.h < 1 || place.h > SIDE_MAX) {
        return false;
    }
    *out = place;
    return true;
}

bool win_place_read(const char *title, win_place_t *out) {
    char path[PATH_SIZE];
    char text[FILE_SIZE];
    FILE *f = place_path(path, title, ZOF_FALSE) ? zof_file_read_open(path) : nullptr;
    if (!f) {
        return false;
    }
    const size_t size = fread(text, 1, sizeof(text) - 1, f);
    fclose(f);
    text[size] = '\0';
    const bool good = strlen(text) == size && place_parse(text, out);
    if (!good) {
        zof_printf("window: %s: not the size of a window; ignored", path);
    }
    return good;
}

void win_place_write(const char *title, const win_place_t *place) {
    char path[PATH_SIZE];
    char text[FILE_SIZE];
    if (!place_path(path, title, ZOF_TRUE)) {
        return;
    }
    const int size = snprintf(text, sizeof(text), "%d %d%s\n", place->w, place->h, place->maximised ? MAXIMISED : "");
    FILE *f = zof_file_write_open(path, ZOF_FALSE);
    const bool good = f && zof_file_put(f, text, (size_t)size) == 0;
    if (f && fclose(f) == 0 && good) {
        return;
    }
    zof_printf("window: %s cannot be written; its size is not remembered", path);
}
