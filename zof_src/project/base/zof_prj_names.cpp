// Reference tables of names; the first name of a number is the one that tools write.
#include "project/base/zof_prj_names.h"

#include <cstring>

#include "lvgl.h"
#include "project/base/zof_ctrl_types.h"

const zof_name_t zof_type_names[] = {
    {"label", ZOF_CTRL_LABEL},
    {"button", ZOF_CTRL_BTN},
    {"container", ZOF_CTRL_OBJ},
    {"image button", ZOF_CTRL_IMGBTN},
    {"line", ZOF_CTRL_LINE},
    {"arc", ZOF_CTRL_ARC},
    {"bar", ZOF_CTRL_BAR},
    {"slider", ZOF_CTRL_SLIDER},
    {"switch", ZOF_CTRL_SW},
    {"check box", ZOF_CTRL_CB},
    {"message box", ZOF_CTRL_MBOX},
    {"tile view", ZOF_CTRL_TILEVIEW},
    {"text box", ZOF_CTRL_TXTBOX},
    {"list", ZOF_CTRL_LIST},
    {"drop list", ZOF_CTRL_DROPLIST},
    {"roller", ZOF_CTRL_ROLLIST},
    {"chart", ZOF_CTRL_CHART},
    {"table", ZOF_CTRL_TABLE},
    {"spin box", ZOF_CTRL_SPINBOX},
    {"image", ZOF_CTRL_IMG},
    {"gif", ZOF_CTRL_GIF},
    {"qr code", ZOF_CTRL_QRCODE},
    {"video", ZOF_CTRL_VIDEO},
    {"keyboard", ZOF_CTRL_KEYBOARD},
    {"tile", ZOF_CTRL_TILE},
    {"sketch pad", ZOF_CTRL_SKETCHPAD},
    {"button matrix", ZOF_CTRL_BTNMATRIX},
    {"image sequence", ZOF_CTRL_ANIMIMG},
    {"scroll container", ZOF_CTRL_SCROLLCONT},
    {"scroll item", ZOF_CTRL_SCROLLCONT_OBJ},
    // The theme files'.
    {"image_button", ZOF_CTRL_IMGBTN},
    {"sw", ZOF_CTRL_SW},
    {"cb", ZOF_CTRL_CB},
    {"mbox", ZOF_CTRL_MBOX},
    {"tileview", ZOF_CTRL_TILEVIEW},
    {"txtbox", ZOF_CTRL_TXTBOX},
    {"droplist", ZOF_CTRL_DROPLIST},
    {"rollist", ZOF_CTRL_ROLLIST},
    {"spinbox", ZOF_CTRL_SPINBOX},
    {"img", ZOF_CTRL_IMG},
    {"qrcode", ZOF_CTRL_QRCODE},
    {"sketchpad", ZOF_CTRL_SKETCHPAD},
    {"btnmatrix", ZOF_CTRL_BTNMATRIX},
    {"animimg", ZOF_CTRL_ANIMIMG},
    {"scrollcont", ZOF_CTRL_SCROLLCONT},
    {"scrollcont_obj", ZOF_CTRL_SCROLLCONT_OBJ},
    ZOF_NAMES_END,
};

const zof_name_t zof_part_names[] = {
    {"main", LV_PART_MAIN},
    {"scroll bar", LV_PART_SCROLLBAR},
    {"indicator", LV_PART_INDICATOR},
    {"knob", LV_PART_KNOB},
    {"selection", LV_PART_SELECTED},
    {"items", LV_PART_ITEMS},
    {"ticks", LV_PART_TICKS},
    {"cursor", LV_PART_CURSOR},
    {"placeholder", LV_PART_CUSTOM_FIRST},
    ZOF_NAMES_END,
};
static_assert((u32)LV_PART_CUSTOM_FIRST == (u32)LV_PART_TEXTAREA_PLACEHOLDER);

const zof_name_t zof_state_names[] = {
    {"always", LV_STATE_DEFAULT},    {"checked", LV_STATE_CHECKED},
    {"focused", LV_STATE_FOCUSED},   {"focus_key", LV_STATE_FOCUS_KEY},
    {"edited", LV_STATE_EDITED},     {"hovered", LV_STATE_HOVERED},
    {"pressed", LV_STATE_PRESSED},   {"scrolled", LV_STATE_SCROLLED},
    {"disabled", LV_STATE_DISABLED}, {"user_1", LV_STATE_USER_1},
    {"user_2", LV_STATE_USER_2},     {"user_3", LV_STATE_USER_3},
    {"user_4", LV_STATE_USER_4},     ZOF_NAMES_END,
};

const zof_name_t zof_sect_names[] = {{"control", 0}, {"second", 1}, ZOF_NAMES_END};

const zof_name_t zof_side_names[] = {
    {"none", LV_BORDER_SIDE_NONE},
    {"bottom", LV_BORDER_SIDE_BOTTOM},
    {"top", LV_BORDER_SIDE_TOP},
    {"left", LV_BORDER_SIDE_LEFT},
    {"right", LV_BORDER_SIDE_RIGHT},
    {"all", LV_BORDER_SIDE_FULL},
    ZOF_NAMES_END,
};

const zof_name_t zof_dir_names[] = {
    {"none", LV_DIR_NONE},    {"left", LV_DIR_LEFT},   {"right", LV_DIR_RIGHT},
    {"up", LV_DIR_TOP},       {"down", LV_DIR_BOTTOM}, {"horizontal", LV_DIR_HOR},
    {"vertical", LV_DIR_VER}, {"all", LV_DIR_ALL},     ZOF_NAMES_END,
};

const zof_name_t zof_text_align_names[] = {
    {"auto", LV_TEXT_ALIGN_AUTO},
    {"left", LV_TEXT_ALIGN_LEFT},
    {"center", LV_TEXT_ALIGN_CENTER},
    {"right", LV_TEXT_ALIGN_RIGHT},
    ZOF_NAMES_END,
};

const zof_name_t zof_press_names[] = {{"push", 0}, {"toggle", 1}, ZOF_NAMES_END};

// Reads the next word as one of the kinds that may still follow. Returns false for any other word.
static bool key_word_read(const char *word, u32 *kind, s64 *values) {
    static const struct {
        const zof_name_t *names;
        bool sum;
    } kinds[] = {{zof_sect_names, false}, {zof_part_names, false}, {zof_state_names, true}};
    for (; *kind < 3; ++*kind) {
        if (zof_names_read(kinds[*kind].names, kinds[*kind].sum, word, &values[*kind]) == 0) {
            ++*kind;
            return true;
        }
    }
    return false;
}

s32 zof_style_key_read(const char *text, zof_style_key_t *key) {
    s64 values[3] = {0, LV_PART_MAIN, LV_STATE_DEFAULT};
    u32 kind = 0;
    for (bool more = true; more;) {
        char word[64];
        const size_t length = std::strcspn(text, ":");
        if (length >= sizeof word) {
            return -1;
        }
        std::memcpy(word, text, length);
        word[length] = 0;
        if (!key_word_read(word, &kind, values)) {
            return -1;
        }
        more = text[length] != 0;
        text += length + more;
    }
    *key = {(u32)values[1], (u32)values[2], (u32)values[0]};
    return 0;
}
