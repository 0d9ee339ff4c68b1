// Button maps of button matrices and message boxes.
#include "control/zof_btn_map_in.h"

#include <string.h>

#include "project/look/zof_lang.h"
#include "zof_lib/zof_stdio.h"
#include "zof_lib/zof_util.h"

const char *zof_btn_map_empty[] = {""};

bool zof_btn_map_is_break(const char *text) {
    return strcmp(text, "\n") == 0;
}

// The text to show for a caption. An empty one, or a row break, would cut off the buttons after it.
static const char *caption_shown(const char *caption) {
    const char *shown = zof_lang_get_cur_str(caption);
    if (!shown || !shown[0] || (zof_btn_map_is_break(shown) && shown != caption)) {
        return caption && caption[0] ? " " : "";
    }
    return shown;
}

s32 zof_btn_map_put(char **map, u32 slot, const char *caption) {
    const char *shown = caption_shown(caption);
    char *copy = zof_text_copy(shown);
    if (!copy) {
        return -1;
    }
    zof_free(map[slot]);
    map[slot] = copy;
    return 0;
}

char **zof_btn_map_create(const char *const *texts, u32 count) {
    if (!texts) {
        count = 0;
    }
    char **map = (char **)zof_malloc((count + 2) * sizeof(char *)); // an end mark to show, and one to count
    if (!map) {
        return nullptr;
    }
    memset(map, 0, (count + 2) * sizeof(char *));
    for (u32 i = 0; i <= count; i++) {
        if (zof_btn_map_put(map, i, i < count ? texts[i] : nullptr) != 0) {
            zof_btn_map_free(&map);
            return nullptr;
        }
    }
    return map;
}

void zof_btn_map_free(char ***map) {
    for (char **at = *map; at && *at; at++) {
        zof_free(*at);
    }
    zof_free(*map);
    *map = nullptr;
}

s32 zof_btn_map_slot(const char *const *map, u32 id) {
    for (s32 slot = 0; map && map[slot] && map[slot][0]; slot++) {
        if (!zof_btn_map_is_break(map[slot]) && id-- == 0) {
            return slot;
        }
    }
    return -1;
}

static void event_press(lv_event_t *e) {
    lv_btnmatrix_set_selected_btn(lv_event_get_target(e), LV_BTNMATRIX_BTN_NONE);
}

void zof_btn_map_press_fresh(lv_obj_t *btns) {
    lv_obj_add_event_cb(btns, event_press, (lv_event_code_t)(LV_EVENT_PRESSED | LV_EVENT_PREPROCESS), nullptr);
}
