// The rules, one function each.
#include <algorithm>
#include <cstdio>
#include <cstring>

#include "lint_in.h"

enum {
    FINGER = 44,
    ROUND_FINGER = 48,
    REACH = 75,        // percent of a control that must take touches
    SEEN = 90,         // percent of the ink of a text that must be seen
    EDGE = 1,          // pixels that may be missing at an edge: the softened outline of a letter
    OVERLAP_LEAST = 4, // pixels of a text in the line of another
};

static const double CONTRAST = 4.5;
static const double SYMBOL_CONTRAST = 3;

static std::string size_text(s32 width, s32 height) {
    return std::to_string(width) + " x " + std::to_string(height) + " px";
}

static std::string quoted(const std::string &text) {
    enum { MOST = 40 };
    std::string line = text.substr(0, text.find('\n'));
    bool cut = line.size() < text.size();
    if (line.size() > MOST) {
        size_t end = MOST;
        while (end > 0 && ((u8)line[end] & 0xC0) == 0x80) {
            end--;
        }
        line.resize(end);
        cut = true;
    }
    return "\"" + line + (cut ? "..." : "") + "\"";
}

static const cJSON *control_named(const cJSON *review, const char *path) {
    const cJSON *view = nullptr;
    cJSON_ArrayForEach(view, cJSON_GetObjectItem(review, "views")) {
        const cJSON *control = nullptr;
        cJSON_ArrayForEach(control, cJSON_GetObjectItem(view, "controls")) {
            if (strcmp(lint_text(control, "path"), path) == 0) {
                return control;
            }
        }
    }
    return nullptr;
}

// Returns another control of the same view; null otherwise. What lies on another layer is there on purpose.
static const cJSON *other_control(const lint_case_t &at, const char *path) {
    const cJSON *other = *path ? control_named(at.review, path) : nullptr;
    const bool same_view = other && lint_number(other, "view", 0) == lint_number(at.control, "view", 0);
    return same_view && other != at.control ? other : nullptr;
}

static bool is_disabled(const cJSON *control) {
    return strstr(lint_text(control, "state"), "disabled") != nullptr;
}

// Returns null for message boxes and keyboards, too: they go away again.
static const cJSON *lasting_control(const lint_case_t &at, const char *path) {
    const cJSON *other = other_control(at, path);
    const std::string type = lint_text(other, "type");
    return type == "message box" || type == "keyboard" ? nullptr : other;
}

// Texts --------------------------------------------------------------------------------------------------------------

// Returns how far a box extends beyond another, in pixels at the worst edge.
static s32 outside(const view_box_t &box, const view_box_t &room) {
    return std::max({room.x - box.x, room.y - box.y, box.x + box.w - room.x - room.w, box.y + box.h - room.y - room.h});
}

static void text_cut_check(const lint_case_t &at) {
    const s32 cut = outside(lint_box(at.text, "box"), lint_box(at.text, "room"));
    const bool dots = lint_is(at.text, "dots");
    if (dots || cut > EDGE) {
        const s32 needs = lint_at(at.text, "needs", 0);
        lint_add(at, "text-cut", dots ? needs : cut,
                 quoted(lint_text(at.text, "text")) + (dots ? " ends in dots: it needs " : " is cut off: it needs ") +
                     size_text(needs, lint_at(at.text, "needs", 1)) + " and has " +
                     size_text(lint_at(at.text, "has", 0), lint_at(at.text, "has", 1)));
    }
}

static void word_cut_check(const lint_case_t &at) {
    const char *word = lint_text(at.text, "broken");
    if (*word) {
        const s32 width = lint_at(at.text, "word", 0);
        lint_add(at, "word-cut", width,
                 "the word " + quoted(word) + " needs " + std::to_string(width) + " px, and its line has " +
                     std::to_string(lint_at(at.text, "word", 1)) + " px");
    }
}

static void letter_check(const lint_case_t &at) {
    const std::string missing = lint_text(at.text, "missing");
    const std::string font = lint_text(at.text, "font");
    if (!missing.empty()) {
        lint_add(at, "letter", (double)missing.size(),
                 (font.empty() ? "the built-in font" : font) + " has no " + missing + " of " +
                     quoted(lint_text(at.text, "text")));
    }
}

// Disabled controls are exempt.
static void contrast_check(const lint_case_t &at) {
    const double contrast = lint_number(at.text, "contrast", 0);
    const double least = lint_is(at.text, "symbols") ? SYMBOL_CONTRAST : CONTRAST;
    if (lint_number(at.text, "opacity", 255) == 0) {
        lint_add(at, "contrast", 0, quoted(lint_text(at.text, "text")) + " cannot be seen: its text has no opacity");
    } else if (contrast > 0 && contrast < least && !is_disabled(at.control)) {
        char text[100];
        snprintf(text, sizeof text, " has a contrast of %.2f:1, less than %.1f:1", contrast, least);
        lint_add(at, "contrast", -contrast, quoted(lint_text(at.text, "text")) + text);
    }
}

static void overlap_check(const lint_case_t &at) {
    const cJSON *pair = nullptr;
    cJSON_ArrayForEach(pair, cJSON_GetObjectItem(at.text, "over")) {
        const cJSON *below = cJSON_GetArrayItem(cJSON_GetObjectItem(at.review, "texts"), pair->child->valueint);
        const s32 pixels = pair->child->next->valueint;
        const char *path = lint_text(below, "control");
        if (pixels >= OVERLAP_LEAST && (other_control(at, path) || strcmp(path, lint_text(at.text, "control")) == 0)) {
            lint_add(at, "overlap", pixels,
                     quoted(lint_text(at.text, "text")) + " overlaps " + quoted(lint_text(below, "text")) + " of " +
                         path);
        }
    }
}

// Returns true if a text of the control overlaps this one, which the rule for overlaps reports.
static bool text_overlapped(const lint_case_t &at, const cJSON *by) {
    const cJSON *texts = cJSON_GetObjectItem(at.review, "texts");
    const cJSON *other = nullptr;
    cJSON_ArrayForEach(other, texts) {
        const cJSON *pair = nullptr;
        cJSON_ArrayForEach(pair, cJSON_GetObjectItem(other, "over")) {
            if (strcmp(lint_text(other, "control"), lint_text(by, "path")) == 0 &&
                cJSON_GetArrayItem(texts, pair->child->valueint) == at.text) {
                return true;
            }
        }
    }
    return false;
}

static void text_covered_check(const lint_case_t &at) {
    const s32 seen = (s32)lint_number(at.text, "seen", 100);
    const bool control_seen = lint_number(at.control, "seen", 100) >= 1;
    const cJSON *cover = seen < SEEN && control_seen ? lasting_control(at, lint_text(at.text, "cover")) : nullptr;
    if (cover && !text_overlapped(at, cover)) {
        lint_add(at, "covered", 100 - seen,
                 std::to_string(100 - seen) + " % of " + quoted(lint_text(at.text, "text")) + " is covered by " +
                     lint_text(cover, "path"));
    }
}

// Controls -----------------------------------------------------------------------------------------------------------

static void covered_check(const lint_case_t &at) {
    const s32 seen = (s32)lint_number(at.control, "seen", 100);
    const cJSON *cover = seen < 1 ? lasting_control(at, lint_text(at.control, "cover")) : nullptr;
    const s32 reach = (s32)lint_number(at.control, "reach", 100);
    const bool touched = lint_is(at.control, "touchable") && lint_is(at.control, "touch");
    const cJSON *blocker = touched && reach < REACH ? lasting_control(at, lint_text(at.control, "blocker")) : nullptr;
    if (cover) {
        lint_add(at, "covered", 100, std::string("it is covered by ") + lint_text(cover, "path"));
    } else if (blocker) {
        lint_add(at, "covered", 100 - reach,
                 "touches of " + std::to_string(100 - reach) + " % of its area go to " + lint_text(blocker, "path"));
    }
}

// If a parent is cut off as well, only the parent is reported.
static void cut_off_check(const lint_case_t &at) {
    const view_box_t box = lint_box(at.control, "box");
    const view_box_t room = lint_box(at.control, "room");
    const cJSON *parent = other_control(at, lint_text(at.control, "parent"));
    const bool with_parent = parent && outside(lint_box(parent, "box"), lint_box(parent, "room")) > EDGE;
    if (outside(box, room) > EDGE && box.w > 0 && box.h > 0 && !with_parent) {
        const bool gone = room.w <= 0 || room.h <= 0;
        lint_add(at, "cut-off", outside(box, room),
                 "of its " + size_text(box.w, box.h) + (gone ? " nothing" : " only " + size_text(room.w, room.h)) +
                     " can be seen");
    }
}

static void target_check(const lint_case_t &at) {
    const s32 width = lint_at(at.control, "target", 0);
    const s32 height = lint_at(at.control, "target", 1);
    const s32 least = lint_is(at.control, "round") ? ROUND_FINGER : FINGER;
    if (lint_is(at.control, "touchable") && lint_is(at.control, "touch") && std::min(width, height) < least &&
        !is_disabled(at.control)) {
        lint_add(at, "target", -std::min(width, height),
                 "a finger has " + size_text(width, height) + " to hit, less than " + size_text(least, least));
    }
}

static void scale_check(const lint_case_t &at) {
    const s32 zoom = (s32)lint_number(at.control, "zoom", 100);
    if (zoom > 100) {
        lint_add(at, "scaled-up", zoom, "the picture is drawn at " + std::to_string(zoom) + " % of its size");
    }
}

static void fonts_check(const lint_case_t &at) {
    const cJSON *font = nullptr;
    cJSON_ArrayForEach(font, cJSON_GetObjectItem(at.control, "fonts")) {
        lint_font_note(at, lint_text(font, "font"), lint_is(font, "used"));
    }
}

// The walk -----------------------------------------------------------------------------------------------------------

static const cJSON *view_named(const cJSON *review, const std::string &name) {
    const cJSON *view = nullptr;
    cJSON_ArrayForEach(view, cJSON_GetObjectItem(review, "views")) {
        if (lint_text(view, "view") == name) {
            return view;
        }
    }
    return nullptr;
}

static void controls_take(lint_case_t at, const cJSON *view) {
    cJSON_ArrayForEach(at.control, cJSON_GetObjectItem(view, "controls")) {
        at.box = lint_box(at.control, "box");
        fonts_check(at);
        if (lint_is(at.control, "hidden")) {
            continue;
        }
        for (const auto check : {covered_check, cut_off_check, target_check, scale_check}) {
            check(at);
        }
    }
}

// The mark of a text that is longer than its control stays within the control.
static view_box_t box_common(const view_box_t &text, const view_box_t &control) {
    const s32 x = std::max(text.x, control.x);
    const s32 y = std::max(text.y, control.y);
    const view_box_t common = {x, y, std::min(text.x + text.w, control.x + control.w) - x,
                               std::min(text.y + text.h, control.y + control.h) - y};
    return common.w > 0 && common.h > 0 ? common : text;
}

static void texts_take(lint_case_t at, const cJSON *view) {
    std::map<std::string, u32> counts;
    cJSON_ArrayForEach(at.text, cJSON_GetObjectItem(at.review, "texts")) {
        const std::string path = lint_text(at.text, "control");
        at.control = control_named(at.review, path.c_str());
        if (!at.control || lint_is(at.control, "hidden") ||
            lint_number(at.control, "view", 0) != lint_number(view, "id", 0)) {
            continue;
        }
        at.box = box_common(lint_box(at.text, "box"), lint_box(at.control, "box"));
        at.subject = std::to_string(counts[path]++);
        for (const auto check :
             {text_cut_check, word_cut_check, letter_check, contrast_check, overlap_check, text_covered_check}) {
            check(at);
        }
    }
}

void lint_take(lint_t *lint, const cJSON *review, const view_cell_t &cell) {
    const cJSON *view = view_named(review, cell.view);
    const lint_case_t at = {lint, &cell, review, nullptr, nullptr, {}, ""};
    controls_take(at, view);
    texts_take(at, view);
}
