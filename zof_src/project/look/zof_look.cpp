// Looks by name. A look is made of layers: its base, and what it says itself, each as the project has it and as the
// theme overlays it. Its styles are complete, because an LVGL style that leaves a property out would show that of
// LVGL's own theme for the state.
#include <algorithm>
#include <cstring>

#include "project/base/zof_prj_names.h"
#include "project/look/zof_look_in.h"
#include "project/look/zof_style.h"
#include "zof_lib/zof_cson_in.h"
#include "zof_lib/zof_stdio.h"
#include "zof_lib/zof_util.h"

struct kept_text_t {
    kept_text_t *next;
    char *text;
};

static struct {
    zof_look_t *looks;
    kept_text_t *texts;
} self;

// Texts --------------------------------------------------------------------------------------------------------------

// Equal texts are one text, so that styles can be compared byte by byte, and copies of them need not be released.
void zof_look_text_keep(char **text, const char *before) {
    char *own = *text;
    if (own == before || !own) {
        return;
    }
    kept_text_t *kept = self.texts;
    while (kept && std::strcmp(kept->text, own) != 0) {
        kept = kept->next;
    }
    if (kept) {
        *text = kept->text;
        zof_free(own);
        return;
    }
    kept = (kept_text_t *)zof_malloc(sizeof(kept_text_t));
    if (!kept) {
        *text = nullptr;
        zof_free(own);
        return;
    }
    *kept = {self.texts, own};
    self.texts = kept;
}

// Styles -------------------------------------------------------------------------------------------------------------

static void texts_keep(zof_style_attr_t *style, const char *font_lib, const char *bg_img) {
    zof_look_text_keep(&style->txt_t.font_lib, font_lib);
    zof_look_text_keep(&style->img_t.bg_img, bg_img);
}

// Overlays what an object of the file says. Its faults have been reported when the file was read.
static void object_apply(const cJSON *json, zof_style_attr_t *style, bool text_only) {
    const char *font_lib = style->txt_t.font_lib;
    const char *bg_img = style->img_t.bg_img;
    if (text_only) {
        csonPeek(cJSON_GetObjectItem(json, "txt_t"), &style->txt_t, zof_text_dis_t_tbl);
    } else {
        csonPeek(json, style, zof_look_style_tbl);
    }
    texts_keep(style, font_lib, bg_img);
}

static bool is_for(const char *name, const zof_style_attr_t *style) {
    zof_style_key_t key;
    return zof_style_key_read(name, &key) == 0 && key.part == style->style_part && key.state == style->style_state &&
           key.sect == style->style_sect;
}

// Overlays what the layers say of the part and state of `of`.
static void layers_apply(const zof_look_t *look, const zof_style_attr_t *of, zof_style_attr_t *style, bool text_only) {
    for (u32 i = 0; i < look->layer_count; i++) {
        if (is_for("main", of)) {
            object_apply(look->layers[i], style, text_only);
        }
        const cJSON *member = nullptr;
        cJSON_ArrayForEach(member, look->layers[i]) {
            if (is_for(member->string, of)) {
                object_apply(member, style, text_only);
            }
        }
    }
}

// States inherit as LVGL's cascade would: from all that are part of them, of which the one with the greatest number
// wins. Other parts inherit the text of the main one.
bool zof_look_style(const zof_look_t *look, zof_style_attr_t *style) {
    const zof_colors_scope colors(look->theme);
    *style = {style->style_part, style->style_state, style->style_sect, {}, {}, {}, nullptr};
    bool any = false;
    for (u32 i = 0; i < look->styles.style_num; i++) {
        const zof_style_attr_t *of = look->styles.style_list[i];
        const bool same = of->style_part == style->style_part;
        if (of->style_sect == style->style_sect && !(of->style_state & ~style->style_state) &&
            (same || of->style_part == LV_PART_MAIN)) {
            layers_apply(look, of, style, !same);
            any = any || same;
        }
    }
    return any;
}

static void key_add(zof_look_t *look, const char *name) {
    zof_style_key_t key;
    if (zof_style_key_read(name, &key) != 0) {
        return;
    }
    zof_style_attr_t *style = zof_theme_style_check(key.part, key.state, key.sect, &look->styles);
    if (style) {
        style->style_part = key.part;
        style->style_state = key.state;
        style->style_sect = key.sect;
    }
}

bool zof_style_before(const zof_style_attr_t *a, const zof_style_attr_t *b) {
    return a->style_sect != b->style_sect   ? a->style_sect < b->style_sect
           : a->style_part != b->style_part ? a->style_part < b->style_part
                                            : a->style_state < b->style_state;
}

static void styles_make(zof_look_t *look) {
    for (u32 i = 0; i < look->layer_count; i++) {
        for (const reflect_item_t *row = zof_look_style_tbl; row->key; row++) {
            if (cJSON_GetObjectItem(look->layers[i], row->key)) {
                key_add(look, "main");
            }
        }
        const cJSON *member = nullptr;
        cJSON_ArrayForEach(member, look->layers[i]) {
            key_add(look, member->string);
        }
    }
    std::sort(look->styles.style_list, look->styles.style_list + look->styles.style_num, zof_style_before);
    for (u32 i = 0; i < look->styles.style_num; i++) {
        zof_look_style(look, look->styles.style_list[i]);
    }
}

// Layers -------------------------------------------------------------------------------------------------------------

// Writes the layers to the end of the array. Returns how many there are. A look that inherits from itself has been
// reported.
static u32 layers_collect(const char *theme, const char *name, const cJSON **end) {
    const cJSON **at = end;
    for (u32 depth = 0; name && depth < ZOF_LOOK_CHAIN_MAX; depth++) {
        const cJSON *over = zof_look_in_theme(theme, name);
        const cJSON *look = zof_look_in_project(name);
        if (over) {
            *--at = over;
        }
        if (look) {
            *--at = look;
        }
        name = zof_look_base(theme, name);
    }
    return (u32)(end - at);
}

static void look_free(zof_look_t *look) {
    zof_free(look->theme);
    zof_free(look->name);
    zof_free(look->layers);
    zof_free(look);
}

static zof_look_t *look_new(const char *theme, const char *name) {
    const cJSON *layers[2 * ZOF_LOOK_CHAIN_MAX];
    const u32 count = layers_collect(theme, name, layers + 2 * ZOF_LOOK_CHAIN_MAX);
    auto *look = count ? (zof_look_t *)zof_malloc(sizeof(zof_look_t)) : nullptr;
    if (!look) {
        return nullptr;
    }
    look->theme = zof_text_copy(theme);
    look->name = zof_text_copy(name);
    look->layers = (const cJSON **)zof_malloc(count * sizeof(cJSON *));
    if (!look->theme || !look->name || !look->layers) {
        look_free(look);
        return nullptr;
    }
    std::memcpy(look->layers, layers + 2 * ZOF_LOOK_CHAIN_MAX - count, count * sizeof(cJSON *));
    look->layer_count = count;
    styles_make(look);
    return look;
}

const zof_look_t *zof_look_get(const char *theme, const char *name) {
    theme = zof_look_theme_exists(theme) ? theme : "";
    for (const zof_look_t *look = self.looks; look; look = look->next) {
        if (std::strcmp(look->name, name) == 0 && std::strcmp(look->theme, theme) == 0) {
            return look;
        }
    }
    zof_look_t *look = look_new(theme, name);
    if (look) {
        look->next = self.looks;
        self.looks = look;
    }
    return look;
}
