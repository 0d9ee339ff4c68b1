// Fonts in use, by file and size. Each pair exists once, however many styles use it, and is released with its last
// user.
#include <string.h>

#include "drv/zof_drv_file.h"
#include "project/base/zof_prj_cur.h"
#include "project/look/zof_font_in.h"
#include "project/path/zof_res.h"
#include "zof_lib/zof_stdio.h"
#include "zof_lib/zof_util.h"

// Above this size the bitmap of a single glyph would take megabytes and would not fit any panel.
enum { FONT_SIZE_DEFAULT = 16, FONT_SIZE_MAX = 2000, FONT_FILE_MAX = 64 << 20 };

// The fonts after the first: those of the other files, LVGL's symbols, and the one that reports what is missing. The
// files' fonts are copies that differ in their fallback, because another chain may use the same file.
struct zof_font_links {
    struct part {
        char *name; // owned; its font is held by a reference
        lv_font_t font;
    } *parts; // owned; null for a single file, whose font is the entry's own
    u32 count;
    lv_font_t symbols, last;
    zof_font_last missing;
};

static db_list *font_list() {
    const zof_prj_t *prj = zof_prj_get_cur();
    return prj ? prj->font_list : nullptr;
}

static db_list *list_with(int (*compare)(void *data, void *key)) {
    db_list *list = db_list_create();
    if (list) {
        list->compare = compare;
    }
    return list;
}

s32 zof_font_list_search_compare(void *data, void *key) {
    return data && key ? strcmp(((zof_font_t *)data)->name, (const char *)key) : -1;
}

s32 zof_fontsize_list_search_compare(void *data, void *key) {
    return data && key && ((zof_fontsize_t *)data)->size == *(const u32 *)key ? 0 : -1;
}

db_list *zof_font_list_create(void) {
    return list_with(zof_font_list_search_compare);
}

db_list *zof_fontsize_list_create(void) {
    return list_with(zof_fontsize_list_search_compare);
}

static void font_entry_free(zof_font_t *entry) {
    if (!entry) {
        return;
    }
    while (entry->sizes && !is_list_empty(entry->sizes)) {
        zof_fontsize_del((zof_fontsize_t *)__db_list_visit_and_pop(entry->sizes, 0));
    }
    if (entry->sizes) {
        __db_list_destory(entry->sizes, nullptr);
    }
    zof_free(entry->content);
    zof_free(entry->name);
    zof_free(entry);
}

s32 zof_font_list_add(const char *name) {
    db_list *list = font_list();
    auto *entry = name && list ? (zof_font_t *)zof_malloc(sizeof(zof_font_t)) : nullptr;
    if (!entry) {
        return -1;
    }
    entry->name = zof_text_copy(name);
    entry->sizes = zof_fontsize_list_create();
    if (!entry->name || !entry->sizes || __db_list_put_tail(list, entry) != 0) {
        font_entry_free(entry);
        return -1;
    }
    return 0;
}

zof_font_t *zof_font_list_get(const char *name) {
    db_list *list = font_list();
    return name && list ? (zof_font_t *)__db_list_search_node(list, (void *)name) : nullptr;
}

s32 zof_font_list_pop(const char *name) {
    db_list *list = font_list();
    if (name && list) {
        font_entry_free((zof_font_t *)__db_list_search_and_pop(list, (void *)name));
    }
    return 0;
}

zof_fontsize_t *zof_fontsize_list_add(db_list *list, u32 size, lv_font_t *font) {
    auto *entry = list ? (zof_fontsize_t *)zof_malloc(sizeof(zof_fontsize_t)) : nullptr;
    if (!entry) {
        return nullptr;
    }
    *entry = {size, font, 0, nullptr};
    if (__db_list_put_tail(list, entry) != 0) {
        zof_free(entry);
        return nullptr;
    }
    return entry;
}

zof_fontsize_t *zof_fontsize_list_get(db_list *list, u32 size) {
    return list ? (zof_fontsize_t *)__db_list_search_node(list, &size) : nullptr;
}

s32 zof_fontsize_list_pop(db_list *list, u32 size) {
    if (!list) {
        return 0;
    }
    zof_fontsize_del((zof_fontsize_t *)__db_list_search_and_pop(list, &size));
    return -1;
}

s32 zof_lvfont_delete(lv_font_t *font) {
    if (!font) {
        return -1;
    }
    if (font->dsc) {
        lv_ft_font_destroy(font); // also releases the font itself
        return 0;
    }
    return zof_binfont_delete(font);
}

static void font_free(lv_font_t *font) {
    const bool own_block = font && !font->dsc;
    zof_lvfont_delete(font);
    if (own_block) {
        zof_free(font);
    }
}

static void parts_free(zof_font_links_t *links, u32 size) {
    for (u32 i = 0; i < links->count; i++) {
        zof_font_delete(links->parts[i].name, size);
        zof_free(links->parts[i].name);
    }
    zof_free(links->parts);
}

static void report_all(lv_timer_t *) {
    zof_font_t *entry = nullptr;
    for (s32 i = 0; (entry = (zof_font_t *)__db_list_visit(font_list(), i)); i++) {
        zof_fontsize_t *sized = nullptr;
        for (s32 k = 0; (sized = (zof_fontsize_t *)__db_list_visit(entry->sizes, k)); k++) {
            if (sized->links) {
                zof_font_last_report(&sized->links->missing);
            }
        }
    }
}

// In LVGL's next turn the controls that are being created are complete.
static void report_soon(void) {
    lv_timer_t *once = lv_timer_create(report_all, 0, nullptr);
    if (once) {
        lv_timer_set_repeat_count(once, 1);
    }
}

// Releases what an entry owns.
static void sized_release(zof_fontsize_t *entry) {
    if (entry->links && entry->links->parts) {
        parts_free(entry->links, entry->size);
    } else {
        font_free(entry->font);
    }
    zof_free(entry->links);
}

s32 zof_fontsize_del(zof_fontsize_t *entry) {
    if (!entry) {
        return -1;
    }
    sized_release(entry);
    zof_free(entry);
    return 0;
}

// The letters that it lacks from now on are not reported.
void zof_font_given_up(const char *path) {
    zof_font_t *entry = nullptr;
    for (s32 i = 0; (entry = (zof_font_t *)__db_list_visit(font_list(), i)); i++) {
        entry->given_up |= strstr(path, entry->name) != nullptr;
    }
    zof_printf("font %s: disabled because a letter takes too long; it is no longer drawn", path);
}

// The file is read, not mapped: rewriting a mapped file in place would end the process.
static bool content_load(zof_font_t *entry, const char *path, const char **why) {
    if (!entry->content) {
        entry->content = zof_file_read_all(path, FONT_FILE_MAX, &entry->content_size, why);
    }
    return entry->content != nullptr;
}

// Returns null on failure, with the reason in *why.
static lv_font_t *ttf_create(zof_font_t *entry, const char *path, u32 size, const char **why) {
    *why = "larger than 2000";
    if (size > FONT_SIZE_MAX || !content_load(entry, path, why)) {
        return nullptr;
    }
    if (zof_font_is_cut(entry->content, entry->content_size)) {
        *why = "cut short";
        return nullptr;
    }
    *why = "not a font, or too complex";
    lv_ft_info_t info = {};
    info.name = path;
    info.mem = entry->content;
    info.mem_size = entry->content_size;
    info.weight = (u16)size;
    if (!lv_ft_font_init(&info) || !info.font) {
        return nullptr;
    }
    info.font->line_height = LV_MAX(info.font->line_height, 1);
    return info.font;
}

// A font that draws nothing: its glyphs are empty, not missing, because LVGL draws a box for missing ones.
static bool no_glyph_dsc(const lv_font_t *, lv_font_glyph_dsc_t *dsc, u32, u32) {
    *dsc = {};
    return true;
}

static const u8 *no_glyph_bitmap(const lv_font_t *, u32) {
    return nullptr;
}

static lv_font_t *bin_create(const char *path, const char *name) {
    auto *font = (lv_font_t *)zof_malloc(sizeof(lv_font_t));
    if (!font || (IsBinFile(name) && zof_binfont_create(font, path) == 0)) {
        return font;
    }
    zof_printf("font %s: not a font; its text is not drawn", path);
    font->get_glyph_dsc = no_glyph_dsc;
    font->get_glyph_bitmap = no_glyph_bitmap;
    font->line_height = 1; // widgets divide by it
    return font;
}

static lv_font_t *font_open(zof_font_t *entry, const char *path, const char *name, u32 size) {
    if (!IsOutlineFontFile(name)) {
        return bin_create(path, name);
    }
    const char *why = nullptr;
    lv_font_t *font = ttf_create(entry, path, size, &why);
    if (!font) {
        zof_printf("font %s: refused at size %u (%s); the default font is used", path, size, why);
    }
    return font;
}

const char *zof_font_fault(const char *path) {
    lv_font_t font = {};
    zof_font_t entry = {};
    const char *why = "not a font";
    if (!IsOutlineFontFile(path)) {
        return zof_binfont_create(&font, path) == 0 && zof_binfont_delete(&font) == 0 ? nullptr : why;
    }
    lv_font_t *made = ttf_create(&entry, path, FONT_SIZE_DEFAULT, &why);
    zof_lvfont_delete(made);
    zof_free(entry.content);
    return made ? nullptr : why;
}

// Consecutive styles of a view name the same file: a missing file is reported once, not once per style.
static void missing_report(const char *path) {
    static char reported[128];
    if (strncmp(reported, path, sizeof(reported) - 1) == 0) {
        return;
    }
    strncpy(reported, path, sizeof(reported) - 1);
    zof_printf("font %s: cannot be opened; the default font is used", path);
}

static bool is_chain(const char *name) {
    return strchr(name, ',') != nullptr;
}

// Returns the entry of an existing file, or of a chain; creates it at the first use of the name.
static zof_font_t *font_entry(const char *path, const char *name) {
    zof_font_t *entry = zof_font_list_get(name);
    if (entry) {
        return entry;
    }
    if (!is_chain(name) && !FileExist(path)) {
        missing_report(path);
        return nullptr;
    }
    zof_font_list_add(name);
    return zof_font_list_get(name);
}

// Copies the next of the names that commas separate, without blanks around it. Returns null at the end.
static char *name_next(const char **at) {
    const char *name = *at + strspn(*at, ", ");
    size_t length = strcspn(name, ",");
    *at = name + length;
    while (length > 0 && name[length - 1] == ' ') {
        length--;
    }
    return length > 0 ? zof_text_copy_n(name, length) : nullptr;
}

// Opens the fonts of a chain, without those that cannot be used.
static void parts_open(zof_font_links_t *links, const char *names, u32 size) {
    u32 most = 1;
    for (const char *c = names; *c; c++) {
        most += *c == ',';
    }
    links->parts = (zof_font_links::part *)zof_malloc(most * sizeof(*links->parts));
    while (links->parts) {
        char *name = name_next(&names);
        const lv_font_t *font = name ? zof_font_create_lvfont(name, size) : nullptr;
        if (!name) {
            break;
        }
        if (font) {
            links->parts[links->count++] = {name, *font};
        } else {
            zof_free(name);
        }
    }
}

// Chains the fallbacks, in order, to the entry's font.
static void links_join(const zof_font_t *entry, zof_fontsize_t *sized) {
    zof_font_links_t *links = sized->links;
    zof_symbols_set_up(&links->symbols, sized->size);
    links->missing = {.entry = entry, .head = sized->font, .noted = report_soon};
    zof_font_last_set_up(&links->last, &links->missing);
    links->symbols.fallback = &links->last;
    for (u32 i = 0; i < links->count; i++) {
        links->parts[i].font.fallback = i + 1 < links->count ? &links->parts[i + 1].font : &links->symbols;
    }
    if (links->count == 0) {
        sized->font->fallback = &links->symbols;
    }
}

// Creates the font of an entry at a size that is new.
static zof_fontsize_t *sized_create(zof_font_t *entry, const char *path, u32 size) {
    auto *links = (zof_font_links_t *)zof_malloc(sizeof(zof_font_links_t));
    if (!links) {
        return nullptr;
    }
    lv_font_t *font = nullptr;
    if (is_chain(entry->name)) {
        parts_open(links, entry->name, size);
        font = links->count ? &links->parts[0].font : nullptr;
    } else {
        font = font_open(entry, path, entry->name, size);
    }
    zof_fontsize_t *sized = zof_fontsize_list_add(entry->sizes, size, font);
    if (!sized) {
        zof_fontsize_t lost = {size, font, 0, links};
        sized_release(&lost);
        return nullptr;
    }
    sized->links = links;
    if (font) {
        links_join(entry, sized);
    }
    return sized;
}

lv_font_t *zof_font_create_lvfont(const char *name, u32 size) {
    if (!name || !name[0]) {
        return nullptr;
    }
    size = size ? size : (u32)FONT_SIZE_DEFAULT;
    char *path = zof_text_copy(zof_res_get_prjfile_path("font/", name));
    zof_font_t *entry = path ? font_entry(path, name) : nullptr;
    zof_fontsize_t *sized = entry ? zof_fontsize_list_get(entry->sizes, size) : nullptr;
    if (entry && !sized) {
        sized = sized_create(entry, path, size);
    }
    zof_free(path);
    if (!sized) {
        return nullptr;
    }
    sized->ref++;
    return sized->font;
}

void zof_font_delete(const char *name, u32 size) {
    zof_font_t *entry = zof_font_list_get(name);
    zof_fontsize_t *sized = entry ? zof_fontsize_list_get(entry->sizes, size) : nullptr;
    if (!sized) {
        return;
    }
    if (sized->ref > 1) {
        sized->ref--;
        return;
    }
    zof_fontsize_list_pop(entry->sizes, size);
    if (is_list_empty(entry->sizes)) {
        zof_font_list_pop(name);
    }
}
