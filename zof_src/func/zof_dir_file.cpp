// Copies one file: writes it beside its target under a temporary name and renames it over the target.
#include <stdio.h>

#include "drv/zof_drv.h"
#include "func/zof_dir_copy.h"
#include "func/zof_dir_in.h"
#include "zof_lib/zof_stdio.h"

// Returns the size of an open file; -1 when it is unknown. The file is rewound.
static long size_of(FILE *f) {
    const long size = fseek(f, 0, SEEK_END) == 0 ? ftell(f) : -1;
    rewind(f);
    return size;
}

// Copies as many bytes as the file has at the start: a file that keeps growing would fill the disk. Returns true when
// all of them are written; a read error or an early end is a failure.
static bool pour(FILE *in, FILE *out, u8 *block, u32 size, bool dots) {
    for (long left = size_of(in); left >= 0;) {
        const size_t wanted = left < (long)size ? (size_t)left : size;
        const size_t n = fread(block, 1, wanted, in);
        if (n != wanted || zof_file_put(out, block, n) != 0) {
            return false;
        }
        if (dots) {
            zof_printf(".");
        }
        left -= (long)n;
        if (n < size) {
            return true;
        }
    }
    return false;
}

// Returns false, and logs why; `fresh` is removed then.
static bool file_place(FILE *in, FILE *out, const char *fresh, const char *dst, const char *shown, copy_block block) {
    bool good = pour(in, out, block.data, block.size, block.dots);
    if (!good) {
        dir_say(shown, "not written");
    }
    const bool finished = zof_file_finish(out) == 0;
    if (good && (!finished || zof_rename(fresh, dst) != 0)) {
        dir_say(shown, "not put in place");
        good = false;
    }
    if (!good) {
        zof_file_remove(fresh);
    }
    return good;
}

bool dir_file_replace(const char *dst, const char *src, const char *shown, copy_block block) {
    FILE *in = zof_file_open(src);
    if (!in) {
        zof_printf("creat file fail srcfile=%s\n", src);
        dir_say(src, "not opened");
        return false;
    }
    char fresh[OWN_PATH];
    const bool named = zof_file_temp_name(fresh, sizeof(fresh), dst, NEW_FILE) == 0;
    FILE *out = named ? zof_file_create(fresh) : nullptr;
    if (!out) {
        zof_printf("creat file fail destfp=%s\n", shown);
        dir_say(shown, "not created");
    }
    const bool good = out && file_place(in, out, fresh, dst, shown, block);
    fclose(in);
    return good;
}

s32 zof_file_copy(const char *dst, const char *src, u32 blocksize) {
    if (!dst || !src || blocksize == 0 || blocksize > BLOCK_MOST) {
        return -1;
    }
    auto *block = (u8 *)zof_malloc(blocksize);
    if (!block) {
        zof_printf("srcdata=null\n");
        return -1;
    }
    zof_printf("copy %s to %s  ", src, dst);
    const bool good = dir_file_replace(dst, src, dst, {block, blocksize, true});
    if (good) {
        zof_printf(" succeed\n");
    }
    zof_free(block);
    return good ? 0 : -1;
}
