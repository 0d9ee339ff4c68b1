// The reply to `review`: the reply to `tree` with additional members, and the texts.
#include <algorithm>
#include <cmath>
#include <set>

#include "catalogue/zof_cat.h"
#include "inspect/zof_inspect_in.h"
#include "inspect/zof_inspect_review_in.h"
#include "project/look/zof_font.h"

struct owner_t {
    zof_view_node_t *view;
    para_t *record;
};
typedef std::map<const lv_obj_t *, owner_t> owners_t;

static owners_t owners_list() {
    owners_t owners;
    for (zof_view_node_t *view : inspect_views_shown()) {
        const db_list *list = view->ctrl_list;
        for (const db_node *at = list->head->next; at != list->head; at = at->next) {
            auto *record = (para_t *)at->data;
            if (record->obj && record->attr) {
                owners[record->obj] = {view, record};
            }
        }
    }
    return owners;
}

// Returns the control that an object belongs to; null if that is not a control of a view that is shown.
static const owner_t *owner_of(const owners_t &owners, const lv_obj_t *obj) {
    for (; obj; obj = lv_obj_get_parent(obj)) {
        const auto found = owners.find(obj);
        if (found != owners.end()) {
            return &found->second;
        }
    }
    return nullptr;
}

static void owner_add(cJSON *out, const char *name, const owner_t *owner) {
    if (owner) {
        cJSON_AddStringToObject(out, name, inspect_path(owner->view->attr->v_id, owner->record->id).c_str());
    }
}

static void size_add(cJSON *out, const char *name, s32 width, s32 height) {
    const int size[] = {width, height};
    cJSON_AddItemToObject(out, name, cJSON_CreateIntArray(size, 2));
}

// Fonts --------------------------------------------------------------------------------------------------------------

// Returns the files and the size of a font of the project, "inter.ttf 24"; empty for a built-in one.
static std::string font_name(const lv_font_t *font) {
    const db_list *list = zof_prj_get_cur()->font_list;
    for (const db_node *at = list ? list->head->next : nullptr; list && at != list->head; at = at->next) {
        const auto *entry = (const zof_font_t *)at->data;
        const db_list *sizes = entry->sizes;
        for (const db_node *size = sizes->head->next; size != sizes->head; size = size->next) {
            const auto *one = (const zof_fontsize_t *)size->data;
            if (font && one->font == font) {
                return std::string(entry->name) + " " + std::to_string(one->size);
            }
        }
    }
    return "";
}

static bool shows_text(const lv_obj_t *obj) {
    static const lv_obj_class_t *const classes[] = {&lv_label_class,     &lv_textarea_class, &lv_table_class,
                                                    &lv_btnmatrix_class, &lv_checkbox_class, &lv_roller_class,
                                                    &lv_dropdown_class,  &lv_chart_class,    &lv_dropdownlist_class};
    for (const lv_obj_class_t *one : classes) {
        if (lv_obj_has_class(obj, one)) {
            return true;
        }
    }
    return false;
}

// Returns the font that a local style sets; null if it sets none.
static const lv_font_t *own_font(const _lv_obj_style_t *style) {
    lv_style_value_t value = {};
    return !style->is_trans && lv_style_get_prop(style->style, LV_STYLE_TEXT_FONT, &value) == LV_RES_OK
               ? (const lv_font_t *)value.ptr
               : nullptr;
}

// Collects the fonts of objects that can show texts, in all parts and states, even if a text is empty at the moment.
static lv_obj_tree_walk_res_t fonts_take(lv_obj_t *obj, void *to) {
    auto *used = (std::set<const lv_font_t *> *)to;
    if (!shows_text(obj)) {
        return LV_OBJ_TREE_WALK_NEXT;
    }
    for (const lv_part_t part : {LV_PART_MAIN, LV_PART_ITEMS, LV_PART_SELECTED, LV_PART_TICKS, LV_PART_INDICATOR}) {
        used->insert(lv_obj_get_style_text_font(obj, part));
    }
    for (u32 i = 0; i < obj->style_cnt; i++) {
        if (lv_obj_style_get_selector_state(obj->styles[i].selector) != LV_STATE_DEFAULT) {
            used->insert(own_font(&obj->styles[i]));
        }
    }
    return LV_OBJ_TREE_WALK_NEXT;
}

static void fonts_add(cJSON *out, const lv_obj_t *obj, const std::set<const lv_font_t *> &used) {
    cJSON *fonts = cJSON_AddArrayToObject(out, "fonts");
    for (u32 i = 0; i < obj->style_cnt; i++) {
        const lv_font_t *font = own_font(&obj->styles[i]);
        const std::string name = font_name(font);
        if (!name.empty()) {
            cJSON *one = cJSON_CreateObject();
            cJSON_AddStringToObject(one, "font", name.c_str());
            cJSON_AddBoolToObject(one, "used", used.count(font) != 0);
            cJSON_AddItemToArray(fonts, one);
        }
    }
}

// Touches ------------------------------------------------------------------------------------------------------------

static const lv_obj_t *touched_at(lv_point_t point) {
    lv_disp_t *disp = lv_disp_get_default();
    for (lv_obj_t *root : {disp->sys_layer, disp->top_layer, disp->act_scr}) {
        const lv_obj_t *found = lv_indev_search_obj(root, &point);
        if (found) {
            return found;
        }
    }
    return nullptr;
}

// Adds how much of the visible area of a control receives its touches, and the control that receives most of the
// others.
static void reach_add(cJSON *out, const owners_t &owners, const owner_t *owner) {
    enum { STEPS = 12 };
    lv_obj_t *obj = owner->record->obj;
    lv_area_t area = obj->coords;
    if (!lv_obj_area_is_visible(obj, &area) || !_lv_area_intersect(&area, &area, &obj->coords)) {
        return; // lv_obj_area_is_visible enlarges the area for transformations
    }
    s32 own = 0;
    std::map<const owner_t *, s32> others;
    for (s32 i = 0; i < STEPS * STEPS; i++) {
        const lv_point_t point = {
            (lv_coord_t)(area.x1 + (2 * (i % STEPS) + 1) * lv_area_get_width(&area) / (2 * STEPS)),
            (lv_coord_t)(area.y1 + (2 * (i / STEPS) + 1) * lv_area_get_height(&area) / (2 * STEPS))};
        const lv_obj_t *found = touched_at(point);
        if (found && review_inside(found, obj)) {
            own++;
        } else if (const owner_t *other = owner_of(owners, found); other && other != owner) {
            others[other]++;
        }
    }
    const owner_t *most = nullptr;
    s32 lost = 0;
    for (const auto &[other, count] : others) {
        lost += count;
        most = !most || others[most] < count ? other : most;
    }
    const s32 percent = own + lost ? 100 * own / (own + lost) : 100;
    cJSON_AddNumberToObject(out, "reach", percent);
    owner_add(out, "blocker", most);
}

// Adds the smallest touch target: the control with its `click_area`, or a button of a matrix.
static void target_add(cJSON *out, const owners_t &owners, const owner_t *owner, const review_t &review) {
    const lv_obj_t *obj = owner->record->obj;
    lv_area_t area;
    lv_obj_get_click_area(obj, &area);
    area = review_room(obj, &area, false);
    s32 width = lv_area_get_width(&area);
    s32 height = lv_area_get_height(&area);
    for (const auto &[part, seen] : review.seen) {
        if (seen.has_key && owner_of(owners, part) == owner) {
            width = LV_MIN(width, lv_area_get_width(&seen.key));
            height = LV_MIN(height, lv_area_get_height(&seen.key));
        }
    }
    size_add(out, "target", LV_MAX(width, 0), LV_MAX(height, 0)); // the room of what cannot be seen is negative
    const s32 small = LV_MIN(lv_obj_get_width(obj), lv_obj_get_height(obj));
    const s32 large = LV_MAX(lv_obj_get_width(obj), lv_obj_get_height(obj));
    cJSON_AddBoolToObject(out, "round", 2 * lv_obj_get_style_radius(obj, 0) >= small && 4 * large <= 5 * small);
}

// Controls -----------------------------------------------------------------------------------------------------------

// Adds how much of the ink is visible in the end, and the control that covers most of the rest.
static void ink_add(cJSON *out, const owners_t &owners, const review_ink_t &ink) {
    if (!ink.at.empty()) {
        const size_t percent = 100 * (ink.at.size() - ink.lost) / ink.at.size();
        cJSON_AddNumberToObject(out, "seen", (double)percent);
        owner_add(out, "cover", owner_of(owners, ink.cover));
    }
}

static bool is_hidden(const lv_obj_t *obj) {
    while (obj && !lv_obj_has_flag(obj, LV_OBJ_FLAG_HIDDEN)) {
        obj = lv_obj_get_parent(obj);
    }
    return obj != nullptr;
}

// Returns true if the type of a control is made to be touched, or if its file makes it take touches and it has no child
// controls.
static bool is_touchable(const owners_t &owners, const owner_t *owner) {
    enum { TOUCH = 1 }; // of `t_mode`
    const zof_pub_attr_t *attr = owner->record->attr;
    const bool holds_others = std::any_of(
        owners.begin(), owners.end(), [&](const auto &other) { return other.second.record->parent == owner->record; });
    return zof_cat_types[attr->ctrl_type].touch || (attr->t_mode == TOUCH && !holds_others);
}

static void control_add(cJSON *out, const owners_t &owners, const owner_t *owner, const review_t &review,
                        const std::set<const lv_font_t *> &used) {
    lv_obj_t *obj = owner->record->obj;
    fonts_add(out, obj, used);
    cJSON_AddBoolToObject(out, "hidden", is_hidden(obj) || !owner->record->attr->alpha);
    const lv_area_t room = review_room(obj, &obj->coords, false);
    cJSON_AddItemToObject(out, "room", inspect_box(&room));
    if (lv_obj_has_class(obj, &lv_img_class)) {
        const s32 zoom = (s32)lv_img_get_zoom(obj) * lv_obj_get_style_transform_zoom(obj, 0) / LV_IMG_ZOOM_NONE;
        const s32 percent = zoom * 100 / LV_IMG_ZOOM_NONE;
        cJSON_AddNumberToObject(out, "zoom", percent);
    }
    const auto seen = review.seen.find(obj);
    if (seen != review.seen.end()) {
        ink_add(out, owners, seen->second.ink);
    }
    cJSON_AddBoolToObject(out, "touchable", is_touchable(owners, owner));
    target_add(out, owners, owner, review);
    reach_add(out, owners, owner);
}

static cJSON *text_make(const review_text_t &text, const owners_t &owners) {
    cJSON *out = cJSON_CreateObject();
    owner_add(out, "control", owner_of(owners, text.obj));
    cJSON_AddStringToObject(out, "text", text.text.c_str());
    cJSON_AddStringToObject(out, "font", font_name(text.font).c_str());
    cJSON_AddItemToObject(out, "box", inspect_box(&text.box));
    cJSON_AddItemToObject(out, "room", inspect_box(&text.room));
    size_add(out, "needs", text.needs.x, text.needs.y);
    size_add(out, "has", text.has.x, text.has.y);
    cJSON_AddBoolToObject(out, "dots", text.dots);
    cJSON_AddBoolToObject(out, "symbols", text.symbols);
    if (!text.broken.empty()) {
        cJSON_AddStringToObject(out, "broken", text.broken.c_str());
        size_add(out, "word", text.broken_width, text.line_width);
    }
    if (!text.missing.empty()) {
        cJSON_AddStringToObject(out, "missing", text.missing.c_str());
    }
    cJSON_AddNumberToObject(out, "opacity", text.opa);
    if (text.contrast > 0) {
        cJSON_AddNumberToObject(out, "contrast", std::floor(text.contrast * 100) / 100);
    }
    ink_add(out, owners, text.ink);
    cJSON *over = cJSON_AddArrayToObject(out, "over");
    for (const auto &[below, pixels] : text.over) {
        const int pair[] = {(int)below, (int)pixels};
        cJSON_AddItemToArray(over, cJSON_CreateIntArray(pair, 2));
    }
    return out;
}

static void tree_complete(cJSON *tree, const owners_t &owners, const review_t &review,
                          const std::set<const lv_font_t *> &used) {
    cJSON *one = nullptr;
    cJSON_ArrayForEach(one, cJSON_GetObjectItem(tree, "controls")) {
        u32 view = 0;
        const para_t *record = inspect_control(cJSON_GetStringValue(cJSON_GetObjectItem(one, "path")), &view);
        const owner_t *owner = record ? owner_of(owners, record->obj) : nullptr;
        if (owner) {
            control_add(one, owners, owner, review, used);
        }
    }
}

void inspect_review(cJSON *reply) {
    const owners_t owners = owners_list();
    cJSON *views = cJSON_AddArrayToObject(reply, "views");
    for (zof_view_node_t *view : inspect_views_shown()) { // before the drawing, because it lays them out
        cJSON_AddItemToArray(views, inspect_tree(view));
    }
    const review_t review = review_draw();
    std::set<const lv_font_t *> used;
    lv_obj_tree_walk(nullptr, fonts_take, &used);
    cJSON *tree = nullptr;
    cJSON_ArrayForEach(tree, views) {
        tree_complete(tree, owners, review, used);
    }
    cJSON *texts = cJSON_AddArrayToObject(reply, "texts");
    for (const review_text_t &text : review.texts) {
        cJSON_AddItemToArray(texts, text_make(text, owners));
    }
}
