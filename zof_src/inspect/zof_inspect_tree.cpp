// The controls of a view, and the controls at a point, as JSON.
#include "catalogue/zof_cat.h"
#include "inspect/zof_inspect_in.h"

// Returns the record of an object that is a control of the view, or null for the view itself and for parts of controls.
static para_t *record_of(const zof_view_node_t *view, lv_obj_t *obj) {
    const db_list *list = view->ctrl_list;
    for (const db_node *at = list->head->next; at != list->head; at = at->next) {
        auto *record = (para_t *)at->data;
        if (record->obj == obj) {
            return record;
        }
    }
    return nullptr;
}

static const char *label_text(const zof_view_node_t *view, lv_obj_t *obj) {
    for (u32 i = 0; i < lv_obj_get_child_cnt(obj); i++) {
        lv_obj_t *child = lv_obj_get_child(obj, (s32)i);
        if (lv_obj_has_class(child, &lv_label_class) && !record_of(view, child)) {
            return lv_label_get_text(child);
        }
    }
    return nullptr;
}

// Returns the text that a control displays, or null.
static const char *shown_text(const zof_view_node_t *view, lv_obj_t *obj) {
    if (lv_obj_has_class(obj, &lv_label_class)) {
        return lv_label_get_text(obj);
    }
    if (lv_obj_has_class(obj, &lv_textarea_class)) {
        return lv_textarea_get_text(obj);
    }
    if (lv_obj_has_class(obj, &lv_checkbox_class)) {
        return lv_checkbox_get_text(obj);
    }
    return label_text(view, obj);
}

static cJSON *states(lv_state_t state) {
    static constexpr struct {
        lv_state_t bit;
        const char *name;
    } rows[] = {{LV_STATE_CHECKED, "checked"},  {LV_STATE_FOCUSED, "focused"}, {LV_STATE_EDITED, "edited"},
                {LV_STATE_HOVERED, "hovered"},  {LV_STATE_PRESSED, "pressed"}, {LV_STATE_SCROLLED, "scrolled"},
                {LV_STATE_DISABLED, "disabled"}};
    std::string text;
    for (const auto &row : rows) {
        if (state & row.bit) {
            text += (text.empty() ? "" : "+") + std::string(row.name);
        }
    }
    return cJSON_CreateString(text.empty() ? "default" : text.c_str());
}

static cJSON *control(zof_view_node_t *view, para_t *record) {
    const zof_pub_attr_t *attr = record->attr;
    cJSON *out = cJSON_CreateObject();
    cJSON_AddStringToObject(out, "path", inspect_path(view->attr->v_id, record->id).c_str());
    const zof_cat_type_t *type = &zof_cat_types[attr->ctrl_type];
    const std::string row = inspect_row_of(type->rows);
    cJSON_AddStringToObject(out, "type", type->name);
    cJSON_AddNumberToObject(out, "view", view->attr->v_id);
    cJSON_AddNumberToObject(out, "id", record->id);
    cJSON_AddItemToObject(out, "box", inspect_box(&record->obj->coords));
    const void *parent = record->parent;
    if (parent && parent != view) {
        cJSON_AddStringToObject(out, "parent", inspect_path(view->attr->v_id, ((const para_t *)parent)->id).c_str());
    }
    cJSON_AddItemToObject(out, "state", states(lv_obj_get_state(record->obj)));
    cJSON_AddBoolToObject(out, "visible", lv_obj_is_visible(record->obj) && attr->alpha);
    cJSON_AddBoolToObject(out, "touch", lv_obj_has_flag(record->obj, LV_OBJ_FLAG_CLICKABLE));
    const lv_coord_t padding[] = {lv_obj_get_style_pad_top(record->obj, 0), lv_obj_get_style_pad_bottom(record->obj, 0),
                                  lv_obj_get_style_pad_left(record->obj, 0),
                                  lv_obj_get_style_pad_right(record->obj, 0)};
    cJSON *sides = cJSON_AddArrayToObject(out, "padding");
    for (const lv_coord_t side : padding) {
        cJSON_AddItemToArray(sides, cJSON_CreateNumber(side));
    }
    const char *text = shown_text(view, record->obj);
    if (text) {
        cJSON_AddStringToObject(out, "text", text);
    }
    if (!row.empty()) {
        cJSON_AddStringToObject(out, "row", row.c_str());
    }
    inspect_places_add(out, view, record);
    return out;
}

cJSON *inspect_tree(zof_view_node_t *view) {
    cJSON *out = cJSON_CreateObject();
    cJSON_AddStringToObject(out, "view", inspect_view_name(view->attr->v_id).c_str());
    cJSON_AddNumberToObject(out, "id", view->attr->v_id);
    cJSON *controls = cJSON_AddArrayToObject(out, "controls");
    if (view->obj) {
        lv_obj_update_layout(view->obj);
    }
    const db_list *list = view->ctrl_list;
    for (const db_node *at = list->head->next; at != list->head; at = at->next) {
        auto *record = (para_t *)at->data;
        if (record->obj && record->attr) {
            cJSON_AddItemToArray(controls, control(view, record));
        }
    }
    return out;
}

// Adds the controls at a point. Children are above their parent, later children above earlier ones.
static void hit(zof_view_node_t *view, lv_obj_t *obj, const lv_point_t *point, cJSON *out) {
    const bool here = _lv_area_is_point_on(&obj->coords, point, 0);
    if (lv_obj_has_flag(obj, LV_OBJ_FLAG_HIDDEN) || (!here && !lv_obj_has_flag(obj, LV_OBJ_FLAG_OVERFLOW_VISIBLE))) {
        return;
    }
    for (u32 i = lv_obj_get_child_cnt(obj); i > 0; i--) {
        hit(view, lv_obj_get_child(obj, (s32)i - 1), point, out);
    }
    para_t *record = here ? record_of(view, obj) : nullptr;
    if (record && record->attr) {
        cJSON_AddItemToArray(out, control(view, record));
    }
}

cJSON *inspect_hit(s32 x, s32 y) {
    cJSON *out = cJSON_CreateArray();
    const lv_point_t point = {(lv_coord_t)x, (lv_coord_t)y};
    for (zof_view_node_t *view : inspect_views_shown()) {
        hit(view, view->obj, &point, out);
    }
    return out;
}
