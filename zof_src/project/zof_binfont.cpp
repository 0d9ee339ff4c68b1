// Bitmap fonts, read from the file glyph by glyph: a large character set costs no memory, only the header and one glyph
// stay. Whatever the file says is held against its size and the buffer before it is used.
#include <bit>
#include <string.h>

#include "project/zof_font.h"
#include "project/zof_res.h"
#include "zof_lib/zof_stdio.h"

static_assert(std::endian::native == std::endian::little, "the file's numbers are copied as they are");
static_assert(sizeof(zof_font_header_t) == 16 && sizeof(zof_glyph_dsc_t) == 5);

enum { TABLE_CHUNK = 256 };

// A file that is open for one look-up.
struct font_file {
    lv_fs_file_t fs;
    bool open;
    explicit font_file(const char *path) : open(path && lv_fs_open(&fs, path, LV_FS_MODE_RD) == LV_FS_RES_OK) {
    }
    ~font_file() {
        if (open) {
            lv_fs_close(&fs);
        }
    }
    font_file(const font_file &) = delete;
    font_file &operator=(const font_file &) = delete;
};

// Bytes that were read.
static u32 read_at(font_file *file, u32 offset, u32 size, void *out) {
    u32 got = 0;
    const bool read = file->open && lv_fs_seek(&file->fs, offset, LV_FS_SEEK_SET) == LV_FS_RES_OK &&
                      lv_fs_read(&file->fs, out, size, &got) == LV_FS_RES_OK;
    return read ? got : 0;
}

static bool read_all(font_file *file, u32 offset, u32 size, void *out) {
    return read_at(file, offset, size, out) == size;
}

s32 _font_getdata(const char *path, u32 offset, u32 size, void *out) {
    if (out) {
        font_file file(path);
        read_at(&file, offset, size, out);
    }
    return 0;
}

s32 zof_get_f_header(const char *path, void *out) {
    return _font_getdata(path, 0, sizeof(zof_font_header_t), out);
}

s32 zof_get_glyph_dsc(const char *path, u32 offset, void *out) {
    return _font_getdata(path, offset, sizeof(zof_glyph_dsc_t), out);
}

// The place of a code in the table; `count` when it is not there, so that the word behind the offsets is taken.
static bool code_index(font_file *file, u32 count, u32 code, u32 *index) {
    u16 chunk[TABLE_CHUNK];
    for (u32 first = 0; first < count; first += TABLE_CHUNK) {
        const u32 n = LV_MIN(count - first, (u32)TABLE_CHUNK);
        if (!read_all(file, (u32)sizeof(zof_font_header_t) + 2 * first, 2 * n, chunk)) {
            return false;
        }
        for (u32 i = 0; i < n; i++) {
            if (chunk[i] == code) {
                *index = first + i;
                return true;
            }
        }
    }
    *index = count;
    return true;
}

static u32 bitmap_bytes(const zof_binfont_t *font, const zof_glyph_dsc_t *glyph) {
    return (u32)glyph->box_w * glyph->box_h * font->header.bpp / 8;
}

// Finds the record of a code and the place of its bitmap.
static bool glyph_find(const zof_binfont_t *font, font_file *file, u32 code, zof_glyph_dsc_t *glyph, u32 *bitmap) {
    const u32 tables = sizeof(zof_font_header_t);
    u16 count = 0;
    u32 index = 0;
    u32 offset = 0;
    if (!read_all(file, offsetof(zof_font_header_t, count), sizeof(count), &count) ||
        !code_index(file, count, code, &index) ||
        !read_all(file, tables + 2 * count + 4 * index, sizeof(offset), &offset) || offset == 0 ||
        !read_all(file, offset, sizeof(*glyph), glyph) || bitmap_bytes(font, glyph) > font->header.bitmap_size) {
        return false;
    }
    *bitmap = offset + (u32)sizeof(*glyph);
    return true;
}

static zof_binfont_t *binfont_for(const lv_font_t *font, u32 code) {
    auto *bin = font ? (zof_binfont_t *)font->user_data : nullptr;
    return bin && code >= bin->header.code_min && code <= bin->header.code_max ? bin : nullptr;
}

bool zof_font_get_glyph_dsc(const lv_font_t *font, lv_font_glyph_dsc_t *dsc, u32 code, u32) {
    const zof_binfont_t *bin = binfont_for(font, code);
    if (!bin || !dsc) {
        return false;
    }
    font_file file(bin->path);
    zof_glyph_dsc_t glyph;
    u32 bitmap = 0;
    if (!glyph_find(bin, &file, code, &glyph, &bitmap)) {
        return false;
    }
    const u32 bytes = bitmap_bytes(bin, &glyph);
    u8 last = 0;
    if (bytes && !read_all(&file, bitmap + bytes - 1, 1, &last)) {
        return false; // the bitmap ends behind the file
    }
    dsc->adv_w = glyph.adv_w;
    dsc->box_w = glyph.box_w;
    dsc->box_h = glyph.box_h;
    dsc->ofs_x = glyph.ofs_x;
    dsc->ofs_y = glyph.ofs_y;
    dsc->bpp = bin->header.bpp & 0xF;
    dsc->is_placeholder = 0;
    return true;
}

const u8 *zof_font_get_bitmap(const lv_font_t *font, u32 code) {
    const zof_binfont_t *bin = binfont_for(font, code);
    if (!bin) {
        return nullptr;
    }
    font_file file(bin->path);
    zof_glyph_dsc_t glyph;
    u32 bitmap = 0;
    if (!glyph_find(bin, &file, code, &glyph, &bitmap)) {
        return nullptr;
    }
    const u32 bytes = bitmap_bytes(bin, &glyph);
    if (!read_all(&file, bitmap, bytes, bin->bitmap)) {
        return nullptr;
    }
    // A last byte that is not full is not in the file, and LVGL draws 3 bits a pixel as 4.
    memset(bin->bitmap + bytes, 0, bytes + 1);
    return bin->bitmap;
}

static void binfont_free(zof_binfont_t *bin) {
    if (bin) {
        zof_free(bin->bitmap);
        zof_res_path_free(bin->path);
        zof_free(bin);
    }
}

zof_binfont_t *zof_font_creat(const char *path) {
    zof_font_header_t header;
    font_file file(path);
    if (!read_all(&file, 0, sizeof(header), &header) || header.bpp == 0) {
        return nullptr;
    }
    auto *bin = (zof_binfont_t *)zof_malloc(sizeof(zof_binfont_t));
    if (!bin) {
        return nullptr;
    }
    bin->header = header;
    bin->path = zof_res_path_zof_malloc(path);
    bin->bitmap = (u8 *)zof_malloc(2 * (size_t)header.bitmap_size + 1);
    if (!bin->path || !bin->bitmap) {
        binfont_free(bin);
        return nullptr;
    }
    return bin;
}

s32 zof_binfont_create(lv_font_t *font, const char *path) {
    zof_binfont_t *bin = font ? zof_font_creat(path) : nullptr;
    if (!bin) {
        return -1;
    }
    font->get_glyph_dsc = zof_font_get_glyph_dsc;
    font->get_glyph_bitmap = zof_font_get_bitmap;
    font->line_height = LV_MAX(bin->header.line_height, 1); // widgets divide by it
    font->base_line = bin->header.base_line;
    font->user_data = bin;
    return 0;
}

s32 zof_binfont_delete(lv_font_t *font) {
    if (!font) {
        return -1;
    }
    binfont_free((zof_binfont_t *)font->user_data);
    font->user_data = nullptr;
    return 0;
}
