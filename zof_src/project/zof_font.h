// Fonts by file and size, shared by reference count.
#ifndef ZOF_FONT_H
#define ZOF_FONT_H

#include "lvgl.h"
#include "zof_lib/dblist/db_list.h"
#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

// The 16 bytes that a bitmap font file begins with; little-endian in the file.
typedef struct {
    u16 code_min, code_max;
    u16 bitmap_size; // of the largest glyph
    u16 count;
    u8 bpp;
    u8 line_height;
    s8 base_line;
    u8 reserved[5];
} zof_font_header_t;

typedef struct {
    u8 adv_w, box_w, box_h;
    s8 ofs_x, ofs_y;
} zof_glyph_dsc_t;

typedef struct {
    char *path;
    zof_font_header_t header;
    u8 *bitmap; // shared by all glyphs: a bitmap lasts until the next one is asked for
} zof_binfont_t;

typedef struct {
    u32 size;
    lv_font_t *font;
    u32 ref;
} zof_fontsize_t;

typedef struct {
    char *name;
    db_list *sizes; // of zof_fontsize_t
} zof_font_t;

lv_font_t *zof_font_create_lvfont(const char *name, u32 size);
void zof_font_delete(const char *name, u32 size);
zof_binfont_t *zof_font_creat(const char *path);
s32 zof_binfont_create(lv_font_t *font, const char *path);
s32 zof_binfont_delete(lv_font_t *font);
s32 zof_lvfont_delete(lv_font_t *font);
bool zof_font_get_glyph_dsc(const lv_font_t *font, lv_font_glyph_dsc_t *dsc, u32 code, u32 next);
const u8 *zof_font_get_bitmap(const lv_font_t *font, u32 code);
s32 zof_get_f_header(const char *path, void *out);
s32 zof_get_glyph_dsc(const char *path, u32 offset, void *out);
s32 _font_getdata(const char *path, u32 offset, u32 size, void *out);

db_list *zof_font_list_create(void);
s32 zof_font_list_add(const char *name);
zof_font_t *zof_font_list_get(const char *name);
s32 zof_font_list_pop(const char *name);
s32 zof_font_list_search_compare(void *data, void *key);
db_list *zof_fontsize_list_create(void);
zof_fontsize_t *zof_fontsize_list_add(db_list *list, u32 size, lv_font_t *font);
zof_fontsize_t *zof_fontsize_list_get(db_list *list, u32 size);
s32 zof_fontsize_list_pop(db_list *list, u32 size);
s32 zof_fontsize_del(zof_fontsize_t *entry);
s32 zof_fontsize_list_search_compare(void *data, void *key);

ZOF_C_END

#endif
