// Letters that are missing from all fonts of a chain. LVGL draws a box for them; this file reports each once per font.
#include <stdio.h>
#include <string.h>

#include "project/base/zof_para.h"
#include "project/base/zof_prj_cur.h"
#include "project/look/zof_font_in.h"
#include "zof_lib/zof_stdio.h"

struct seek {
    const zof_font_last *last;
    u32 code;
    const lv_obj_t *found;
};

static bool has_letter(const char *text, u32 code) {
    for (u32 at = 0; text && text[at];) {
        if (_lv_txt_encoded_next(text, &at) == code) {
            return true;
        }
    }
    return false;
}

static lv_obj_tree_walk_res_t label_check(lv_obj_t *obj, void *arg) {
    auto *s = (seek *)arg;
    if (lv_obj_check_type(obj, &lv_label_class) && has_letter(lv_label_get_text(obj), s->code) &&
        lv_obj_get_style_text_font(obj, LV_PART_MAIN) == s->last->head) {
        s->found = obj;
        return LV_OBJ_TREE_WALK_END;
    }
    return LV_OBJ_TREE_WALK_NEXT;
}

// Returns the name of a view's file; null if it is not in the project.
static const char *view_name(u32 id) {
    const zof_prj_t *prj = zof_prj_get_cur();
    auto *entry = prj && prj->view_names ? (zof_view_name_t *)__db_list_search_node(prj->view_names, &id) : nullptr;
    return entry ? entry->name : nullptr;
}

// Writes " (view/control)" for the control that an object belongs to, or nothing.
static void owner_write(const lv_obj_t *obj, char *out, size_t size) {
    out[0] = '\0';
    for (; obj; obj = lv_obj_get_parent(obj)) {
        const auto *record = (const para_t *)lv_obj_get_user_data((lv_obj_t *)obj);
        if (record && record->attr) {
            const char *view = view_name(record->attr->view_id);
            const int length = view ? (int)strcspn(view, ".") : 0;
            snprintf(out, size, " (%.*s/%s)", length, view ? view : "", record->attr->name ? record->attr->name : "");
            return;
        }
    }
}

static void letter_report(const zof_font_last *last, u32 code) {
    seek s = {last, code, nullptr};
    lv_obj_tree_walk(nullptr, label_check, &s);
    char owner[160];
    owner_write(s.found, owner, sizeof(owner));
    zof_printf("%s has no U+%04X%s", last->entry->name, (unsigned)code, owner);
}

void zof_font_last_report(zof_font_last *last) {
    while (last->reported < last->count) {
        letter_report(last, last->codes[last->reported++]);
    }
}

static bool no_letter(const lv_font_t *font, lv_font_glyph_dsc_t *, u32 code, u32) {
    auto *last = (zof_font_last *)font->user_data;
    const bool drawn = code >= 0x20 && code != 0x200C && code != 0xF8FF; // of the others LVGL draws nothing
    for (u32 i = 0; i < last->count; i++) {
        if (last->codes[i] == code) {
            return false;
        }
    }
    if (drawn && !last->entry->given_up && last->count < sizeof(last->codes) / sizeof(last->codes[0])) {
        last->codes[last->count++] = code;
        last->noted();
    }
    return false;
}

static const u8 *no_bitmap(const lv_font_t *, u32) {
    return nullptr;
}

void zof_font_last_set_up(lv_font_t *font, zof_font_last *last) {
    *font = {};
    font->user_data = last;
    font->get_glyph_dsc = no_letter;
    font->get_glyph_bitmap = no_bitmap;
    font->line_height = 1;
}
