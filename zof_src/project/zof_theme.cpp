// Themes: the style records that a control type starts with. A control gets flat copies of them, over which its own
// styles are laid key by key.
#include <string.h>

#include "project/zof_j2s.h"
#include "project/zof_res.h"
#include "project/zof_style.h"
#include "zof_lib/zof_stdio.h"

const char *const zof_theme_name[2] = {"youth", "night"};

// By type alone: the first theme that is asked for fixes the look of a type for the life of the process.
static struct {
    zof_pub_attr_t *zof_theme[ZOF_CTRL_TYPE_COUNT];
    u8 broken[ZOF_CTRL_TYPE_COUNT]; // its file does not parse: said once, not once a control
} self;

static zof_pub_attr_t *theme_read(const char *theme, u32 type) {
    const char *path = zof_res_get_theme_path(theme, type);
    if (!path || zof_file_get_size(path) < 0)
        return nullptr;
    zof_rootjson_t json = RootJsonGet(path);
    zof_pub_attr_t *record = json.root ? zof_j2s_ctrl_create(json.root, type) : nullptr;
    if (record)
        zof_j2s_get_style(json.root, record);
    self.broken[type] = !record;
    RootJsonDel(&json);
    return record;
}

zof_pub_attr_t *zof_theme_get_ctrl(const char *theme, u32 type) {
    if (!theme || type >= ZOF_CTRL_TYPE_COUNT)
        return nullptr;
    if (type == ZOF_CTRL_IMG || type == ZOF_CTRL_GIF || type == ZOF_CTRL_QRCODE)
        return nullptr;
    if (!self.zof_theme[type] && !self.broken[type])
        self.zof_theme[type] = theme_read(theme, type);
    return self.zof_theme[type];
}

s32 zof_theme_style_copy(zof_pub_attr_t *dst, const zof_pub_attr_t *src) {
    if (!dst || !src)
        return -1;
    if (!dst->style_list || !src->style_list)
        return 0;
    for (u32 i = 0; i < src->style_num && i < dst->style_num; i++) {
        if (dst->style_list[i] && src->style_list[i])
            *dst->style_list[i] = *src->style_list[i];
    }
    return 0;
}

static zof_style_attr_t *style_new(void) {
    zof_style_attr_t *style = (zof_style_attr_t *)zof_malloc(sizeof(zof_style_attr_t));
    if (style)
        memset(style, 0, sizeof(*style));
    return style;
}

s32 zof_theme_style_copy_new(zof_pub_attr_t *dst, const zof_pub_attr_t *src) {
    if (!dst || !src || src->style_num == 0)
        return -1;
    dst->style_list = (zof_style_attr_t **)zof_malloc(src->style_num * sizeof(zof_style_attr_t *));
    if (!dst->style_list)
        return -1;
    dst->style_num = src->style_num;
    for (u32 i = 0; i < dst->style_num; i++)
        dst->style_list[i] = style_new();
    return zof_theme_style_copy(dst, src);
}

static zof_style_attr_t *style_append(zof_pub_attr_t *record) {
    if (record->style_num == UINT8_MAX) {
        zof_printf("control %u (%s): more than %u styles, the rest is left out", record->id,
                   record->name ? record->name : "", UINT8_MAX);
        return nullptr;
    }
    size_t size = (record->style_num + 1u) * sizeof(zof_style_attr_t *);
    zof_style_attr_t **list = (zof_style_attr_t **)zof_realloc(record->style_list, size);
    if (!list)
        return nullptr;
    record->style_list = list;
    list[record->style_num] = style_new();
    if (!list[record->style_num])
        return nullptr;
    return list[record->style_num++];
}

zof_style_attr_t *zof_theme_style_check(u32 part, u32 state, u32 sect, zof_pub_attr_t *record) {
    if (!record)
        return nullptr;
    for (u32 i = 0; i < record->style_num; i++) {
        zof_style_attr_t *style = record->style_list[i];
        if (style && style->style_part == part && style->style_state == state && style->style_sect == sect)
            return style;
    }
    return style_append(record);
}
