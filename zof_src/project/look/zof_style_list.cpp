// The list of styles of a record: copies of it, and how a style follows the one that it was copied from.
#include <string.h>

#include "project/look/zof_look_in.h"
#include "project/look/zof_style.h"
#include "zof_lib/zof_stdio.h"

s32 zof_theme_style_copy(zof_pub_attr_t *dst, const zof_pub_attr_t *src) {
    if (!dst || !src) {
        return -1;
    }
    if (!dst->style_list || !src->style_list) {
        return 0;
    }
    for (u32 i = 0; i < src->style_num && i < dst->style_num; i++) {
        if (dst->style_list[i] && src->style_list[i]) {
            *dst->style_list[i] = *src->style_list[i];
        }
    }
    return 0;
}

static zof_style_attr_t *style_new(void) {
    zof_style_attr_t *style = (zof_style_attr_t *)zof_malloc(sizeof(zof_style_attr_t));
    if (style) {
        memset(style, 0, sizeof(*style));
    }
    return style;
}

s32 zof_theme_style_copy_new(zof_pub_attr_t *dst, const zof_pub_attr_t *src) {
    if (!dst || !src || src->style_num == 0) {
        return -1;
    }
    dst->style_list = (zof_style_attr_t **)zof_malloc(src->style_num * sizeof(zof_style_attr_t *));
    if (!dst->style_list) {
        return -1;
    }
    dst->style_num = src->style_num;
    for (u32 i = 0; i < dst->style_num; i++) {
        dst->style_list[i] = style_new();
    }
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
    if (!list) {
        return nullptr;
    }
    record->style_list = list;
    list[record->style_num] = style_new();
    if (!list[record->style_num]) {
        return nullptr;
    }
    return list[record->style_num++];
}

zof_style_attr_t *zof_theme_style_check(u32 part, u32 state, u32 sect, zof_pub_attr_t *record) {
    if (!record) {
        return nullptr;
    }
    for (u32 i = 0; i < record->style_num; i++) {
        zof_style_attr_t *style = record->style_list[i];
        if (style && style->style_part == part && style->style_state == state && style->style_sect == sect) {
            return style;
        }
    }
    return style_append(record);
}

// Replaces the values that a control has from its old theme by those of the new one; its own values stay. A value equal
// to that of the old theme counts as inherited.
void zof_style_follow(u8 *field, const u8 *before, const u8 *now, const reflect_item_t *table) {
    for (; table->key; table++) {
        const size_t at = table->offset;
        if (table->table) {
            zof_style_follow(field + at, before + at, now + at, table->table);
        } else if (memcmp(field + at, before + at, table->size) == 0) {
            memcpy(field + at, now + at, table->size);
        }
    }
}
