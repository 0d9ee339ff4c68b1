// Fonts by file and size, shared by reference count. Graphics thread only.
//
//     lv_font_t *font = zof_font_create_lvfont("inter.ttf", 24); // res/font/inter.ttf
//     ...
//     zof_font_delete("inter.ttf", 24);
#ifndef ZOF_FONT_H
#define ZOF_FONT_H

#include "lvgl.h"
#include "zof_lib/dblist/db_list.h"
#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

// The 16-byte header of a bitmap font file, little-endian. It is followed by `count` code points of 16 bits, then for
// each the 32-bit offset of its glyph record from the start of the file, 0 for none. A record is the 5 bytes of
// zof_glyph_dsc_t and then the bitmap, rows without padding. If codes between code_min and code_max are missing, a zero
// word ends the offsets and is used as the offset of missing codes.
typedef struct {
    u16 code_min, code_max;
    u16 bitmap_size; // size of the largest glyph's bitmap in bytes
    u16 count;
    u8 bpp; // 1, 2, 4 or 8; 0: not a font
    u8 line_height;
    s8 base_line;
    u8 reserved[5];
} zof_font_header_t;

typedef struct {
    u8 adv_w, box_w, box_h; // pixels
    s8 ofs_x, ofs_y;        // of the box from pen and base line, upwards
} zof_glyph_dsc_t;

// Cached parts of the file, at most about 1.5 MB; internal.
typedef struct zof_font_cache zof_font_cache_t;

typedef struct {
    char *path;
    zof_font_header_t header;
    zof_font_cache_t *cache;
} zof_binfont_t;

// What a font falls back to; internal.
typedef struct zof_font_links zof_font_links_t;

typedef struct {
    u32 size;
    lv_font_t *font;         // owned; null for a refused file, so it is refused only once
    u32 ref;                 // users
    zof_font_links_t *links; // owned; null for a font without fallbacks
} zof_fontsize_t;

typedef struct {
    char *name;
    db_list *sizes; // of zof_fontsize_t
    u8 *content;    // an outline font's file as it was when its first size was created, shared by all sizes
    u32 content_size;
    u8 given_up; // too costly to draw
} zof_font_t;

// Returns the font of a file in font/ at a size in pixels, and takes a reference. Size 0 means 16. `name` may be
// several files separated by commas: a letter is taken from the first one that has it. If no file has it, LVGL's
// symbols at the same size are used; otherwise a box is drawn and the letter is reported once. Returns null if there is
// no name, project or file, and, after a message, for an unusable file; the style then keeps its font. For a file that
// is neither an outline font nor .bin it returns a font that draws nothing. The list owns the font.
lv_font_t *zof_font_create_lvfont(const char *name, u32 size);
// Releases a reference; the last one releases the font. Unknown names and sizes do nothing.
void zof_font_delete(const char *name, u32 size);

// Returns why an outline or .bin file is not a usable font; null if it is one. Needs no project.
const char *zof_font_fault(const char *path);

// Opens a bitmap font; the caller owns the result. Returns null when the file cannot be read or is not a font, or
// without memory.
zof_binfont_t *zof_font_creat(const char *path);
// Fill a font of the caller from a bitmap font file, and release its contents. Return 0, or -1 on failure and for null.
s32 zof_binfont_create(lv_font_t *font, const char *path);
s32 zof_binfont_delete(lv_font_t *font);
// Releases the contents of a font of either kind; for a TrueType font also the font itself. Returns 0, or -1 for null.
s32 zof_lvfont_delete(lv_font_t *font);

// LVGL's callbacks of a bitmap font; return false and null without a glyph. A bitmap is valid until the next call for
// any glyph of the font. The file stays open; cached glyphs are kept until its size, time or identity changes, which is
// checked at most once per millisecond.
bool zof_font_get_glyph_dsc(const lv_font_t *font, lv_font_glyph_dsc_t *dsc, u32 code, u32 next);
const u8 *zof_font_get_bitmap(const lv_font_t *font, u32 code);

// Called once by LVGL for a TrueType font that is too costly to draw; its text is no longer drawn.
void zof_font_given_up(const char *path);

// Raw reads: the header, the 5 bytes of a glyph record, any range. Always return 0. `out` is unchanged if the file
// cannot be opened, and filled up to the end of the file otherwise.
s32 zof_get_f_header(const char *path, void *out);
s32 zof_get_glyph_dsc(const char *path, u32 offset, void *out);
s32 _font_getdata(const char *path, u32 offset, u32 size, void *out);

// The lists. Keys: the name, and a pointer to the size.
db_list *zof_font_list_create(void);
s32 zof_font_list_add(const char *name);                 // 0, or -1 without a project or memory
zof_font_t *zof_font_list_get(const char *name);         // null when unknown
s32 zof_font_list_pop(const char *name);                 // releases the entry with all its fonts; returns 0
s32 zof_font_list_search_compare(void *data, void *key); // 0 when equal
db_list *zof_fontsize_list_create(void);
zof_fontsize_t *zof_fontsize_list_add(db_list *list, u32 size, lv_font_t *font); // ref 0; the list takes the font
zof_fontsize_t *zof_fontsize_list_get(db_list *list, u32 size);
s32 zof_fontsize_list_pop(db_list *list, u32 size); // releases entry and font; 0 for a null list, else -1
s32 zof_fontsize_del(zof_fontsize_t *entry);        // the same for an entry outside its list; -1 for null, else 0
s32 zof_fontsize_list_search_compare(void *data, void *key); // 0 when equal

ZOF_C_END

#endif
