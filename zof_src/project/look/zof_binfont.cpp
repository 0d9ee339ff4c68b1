// Bitmap fonts. The file stays open and glyphs are read at their first use and cached until the file changes, so
// drawing a text usually reads nothing. All values from the file are checked against its size and the limits below
// before use.
#include <bit>
#include <stdio.h>
#include <string.h>

#include "drv/zof_drv.h"
#include "drv/zof_drv_file.h"
#include "project/look/zof_font.h"
#include "project/path/zof_res.h"
#include "zof_lib/zof_stdio.h"
#include "zof_lib/zof_util.h"

static_assert(std::endian::native == std::endian::little, "the file's numbers are copied without conversion");
static_assert(sizeof(zof_font_header_t) == 16 && sizeof(zof_glyph_dsc_t) == 5);

// Per font: the slots, 4 bytes per code from code_min to code_max, and the bitmaps. Beyond BITMAP_BYTES_MOST all
// bitmaps are dropped and read again as needed.
enum { SLOTS = 1024, BITMAP_BYTES_MOST = 1 << 20 };

// A glyph that was looked up, possibly one that the font does not have.
struct glyph_slot {
    u32 code;
    bool used, exists;
    zof_glyph_dsc_t dsc;
    u32 place;  // offset of the bitmap in the file
    u8 *bitmap; // owned; null until it is drawn
};

struct zof_font_cache {
    FILE *file; // null while there is no usable file
    zof_file_stamp_t stamp;
    u32 checked_ms;
    u32 *records; // offset of the glyph record of each code from code_min on, 0 for none
    u32 bitmap_bytes;
    glyph_slot slots[SLOTS];
};

// Font paths may begin with a drive letter.
static FILE *font_file_open(const char *path) {
    return zof_file_read_open(path ? zof_fs_get_real_path(path) : nullptr);
}

// Returns the number of bytes read.
static u32 read_at(FILE *file, u32 offset, u32 size, void *out) {
    return file && fseek(file, (long)offset, SEEK_SET) == 0 ? (u32)fread(out, 1, size, file) : 0;
}

static bool read_all(FILE *file, u32 offset, u32 size, void *out) {
    return read_at(file, offset, size, out) == size;
}

s32 _font_getdata(const char *path, u32 offset, u32 size, void *out) {
    FILE *file = out ? font_file_open(path) : nullptr;
    if (file) {
        read_at(file, offset, size, out);
        fclose(file);
    }
    return 0;
}

s32 zof_get_f_header(const char *path, void *out) {
    return _font_getdata(path, 0, sizeof(zof_font_header_t), out);
}

s32 zof_get_glyph_dsc(const char *path, u32 offset, void *out) {
    return _font_getdata(path, offset, sizeof(zof_glyph_dsc_t), out);
}

static void bitmaps_drop(zof_font_cache *cache) {
    for (glyph_slot &slot : cache->slots) {
        zof_free(slot.bitmap);
        slot.bitmap = nullptr;
    }
    cache->bitmap_bytes = 0;
}

static void cache_drop(zof_font_cache *cache) {
    bitmaps_drop(cache);
    memset(cache->slots, 0, sizeof(cache->slots));
    zof_free(cache->records);
    cache->records = nullptr;
    if (cache->file) {
        fclose(cache->file);
    }
    cache->file = nullptr;
}

// Expands the file's tables over the range of codes. Of equal codes the first one counts. Missing codes use the word
// after the offsets, if the file has one.
static bool records_read(zof_font_cache *cache, const zof_font_header_t *header) {
    enum { RECORD_SIZE = sizeof(u16) + sizeof(u32) };
    const u32 range = header->code_max - header->code_min + 1u;
    const u32 count = header->count;
    cache->records = (u32 *)zof_malloc(range * sizeof(u32));
    auto *tables =
        (u8 *)zof_malloc(count * RECORD_SIZE + sizeof(u32)); // zeroed: data missing from the file means no glyph
    if (cache->records && tables) {
        const u32 size = count * RECORD_SIZE + sizeof(u32);
        const u32 codes = read_at(cache->file, sizeof(*header), size, tables) / sizeof(u16);
        u32 missing = 0;
        memcpy(&missing, tables + count * RECORD_SIZE, sizeof(missing));
        for (u32 i = 0; i < range; i++) {
            cache->records[i] = missing;
        }
        for (u32 i = LV_MIN(codes, count); i-- > 0;) {
            u16 code;
            memcpy(&code, tables + i * sizeof(code), sizeof(code));
            if (code >= header->code_min && code <= header->code_max) {
                memcpy(&cache->records[code - header->code_min], tables + count * sizeof(code) + i * sizeof(u32),
                       sizeof(u32));
            }
        }
    }
    zof_free(tables);
    return cache->records && tables;
}

// Opens the file and reads header and tables; the cache stays empty without a usable font.
static void cache_fill(zof_binfont_t *bin, const zof_file_stamp_t *stamp) {
    zof_font_cache *cache = bin->cache;
    zof_font_header_t header;
    cache->stamp = *stamp;
    cache->file = font_file_open(bin->path);
    if (read_all(cache->file, 0, sizeof(header), &header) && header.bpp != 0 && header.code_min <= header.code_max &&
        records_read(cache, &header)) {
        bin->header = header;
    } else {
        cache_drop(cache);
    }
}

// Checks at most once per millisecond whether the file was changed, replaced or removed; if so, reads it again.
static void cache_check(zof_binfont_t *bin) {
    const u32 now = zof_sys_time_ms();
    if (now == bin->cache->checked_ms) {
        return;
    }
    bin->cache->checked_ms = now;
    zof_file_stamp_t stamp;
    zof_file_stamp(zof_fs_get_real_path(bin->path), &stamp);
    if (memcmp(&stamp, &bin->cache->stamp, sizeof(stamp)) != 0) {
        cache_drop(bin->cache);
        cache_fill(bin, &stamp);
    }
}

static u32 bitmap_size(const zof_binfont_t *bin, const zof_glyph_dsc_t *glyph) {
    return (u32)glyph->box_w * glyph->box_h * bin->header.bpp / 8;
}

// Fills an empty slot from the file.
static void slot_fill(const zof_binfont_t *bin, glyph_slot *slot) {
    const zof_font_cache *cache = bin->cache;
    const u32 record = cache->records[slot->code - bin->header.code_min];
    if (record == 0 || !read_all(cache->file, record, sizeof(slot->dsc), &slot->dsc)) {
        return;
    }
    const u32 size = bitmap_size(bin, &slot->dsc);
    slot->place = record + (u32)sizeof(slot->dsc);
    slot->exists = size <= bin->header.bitmap_size && (u64)slot->place + size <= cache->stamp.size;
}

// Returns the slot of a code, null if the font does not have the glyph.
static glyph_slot *glyph_find(const lv_font_t *font, u32 code) {
    auto *bin = font ? (zof_binfont_t *)font->user_data : nullptr;
    if (!bin) {
        return nullptr;
    }
    cache_check(bin);
    zof_font_cache *cache = bin->cache;
    if (!cache->file || code < bin->header.code_min || code > bin->header.code_max) {
        return nullptr;
    }
    glyph_slot *slot = &cache->slots[code % SLOTS];
    if (!slot->used || slot->code != code) {
        if (slot->bitmap) {
            cache->bitmap_bytes -= bitmap_size(bin, &slot->dsc);
            zof_free(slot->bitmap);
        }
        *slot = {.code = code, .used = true};
        slot_fill(bin, slot);
    }
    return slot->exists ? slot : nullptr;
}

bool zof_font_get_glyph_dsc(const lv_font_t *font, lv_font_glyph_dsc_t *dsc, u32 code, u32) {
    const glyph_slot *slot = dsc ? glyph_find(font, code) : nullptr;
    if (!slot) {
        return false;
    }
    dsc->adv_w = slot->dsc.adv_w;
    dsc->box_w = slot->dsc.box_w;
    dsc->box_h = slot->dsc.box_h;
    dsc->ofs_x = slot->dsc.ofs_x;
    dsc->ofs_y = slot->dsc.ofs_y;
    dsc->bpp = ((const zof_binfont_t *)font->user_data)->header.bpp & 0xF;
    dsc->is_placeholder = 0;
    return true;
}

const u8 *zof_font_get_bitmap(const lv_font_t *font, u32 code) {
    glyph_slot *slot = glyph_find(font, code);
    if (!slot || slot->bitmap) {
        return slot ? slot->bitmap : nullptr;
    }
    const auto *bin = (const zof_binfont_t *)font->user_data;
    zof_font_cache *cache = bin->cache;
    const u32 size = bitmap_size(bin, &slot->dsc);
    if (cache->bitmap_bytes + size > BITMAP_BYTES_MOST) {
        bitmaps_drop(cache);
    }
    // Zeroed and twice as large: an incomplete last byte is not in the file, and LVGL draws 3 bits per pixel as 4.
    slot->bitmap = (u8 *)zof_malloc(2 * (size_t)size + 1);
    if (slot->bitmap) {
        cache->bitmap_bytes += size;
        read_at(cache->file, slot->place, size, slot->bitmap);
    }
    return slot->bitmap;
}

static void binfont_free(zof_binfont_t *bin) {
    if (!bin) {
        return;
    }
    if (bin->cache) {
        cache_drop(bin->cache);
    }
    zof_free(bin->cache);
    zof_free(bin->path);
    zof_free(bin);
}

zof_binfont_t *zof_font_creat(const char *path) {
    auto *bin = path ? (zof_binfont_t *)zof_malloc(sizeof(zof_binfont_t)) : nullptr;
    if (!bin) {
        return nullptr;
    }
    bin->path = zof_text_copy(path);
    bin->cache = (zof_font_cache *)zof_malloc(sizeof(zof_font_cache));
    if (bin->path && bin->cache) {
        bin->cache->checked_ms = zof_sys_time_ms() - 1;
        cache_check(bin);
    }
    if (!bin->cache || !bin->cache->file) {
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
