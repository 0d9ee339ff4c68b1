// What the creators of all controls share: the common attributes, the layout of one object, and the end of a press.
#include "control/zof_ctrl_in.h"

// The views that are being built; an event of a control that is created may build another one. Meanwhile layouts are
// limited to single objects, and each object applies its styles once, when it is complete, not at each property.
static u32 builds;

void zof_obj_layout(lv_obj_t *obj) {
    if (!builds) {
        lv_obj_update_layout(obj);
        return;
    }
    lv_obj_refr_size(obj);
    lv_obj_refr_pos(obj);
}

void zof_obj_build_begin(void) {
    builds++;
}

void zof_obj_build_end(void) {
    builds--;
}

bool zof_obj_building(void) {
    return builds != 0;
}

s32 zof_ctrl_pub_attr(zof_ctrl_t *ctrl, zof_pub_attr_t *attr) {
    if (!zof_ctrl_obj(ctrl) || !attr) {
        return -1;
    }
    lv_obj_enable_style_refresh(!builds); // the object exists by now; creating one switches it on
    zof_ctrl_set_pos(ctrl, attr->pt.x, attr->pt.y);
    zof_ctrl_set_size(ctrl, attr->size.width, attr->size.height);
    zof_ctrl_set_ext_click_area(ctrl, attr->click_area);
    zof_ctrl_set_touch(ctrl, attr->t_mode);
    zof_ctrl_set_hidden(ctrl, attr->hidden);
    zof_ctrl_set_alpha(ctrl, attr->alpha);
    zof_ctrl_set_scrollbar(ctrl, &attr->scrollbar_t);
    return 0;
}

// Whether sliding on may become a scroll or gesture that an ancestor handles.
static bool slide_is_wanted(const lv_obj_t *obj) {
    for (; obj; obj = lv_obj_get_parent(obj)) {
        if (lv_obj_has_flag(obj, LV_OBJ_FLAG_SCROLLABLE) && lv_obj_get_scroll_dir(obj) != LV_DIR_NONE) {
            return true;
        }
        if (lv_obj_get_parent(obj) && !lv_obj_has_flag(obj, LV_OBJ_FLAG_GESTURE_BUBBLE)) {
            return true;
        }
    }
    return false;
}

// LVGL would press whatever the pointer slides onto. A user who slides off a control to cancel must not trigger its
// neighbour, so the press ends here unless it can still become a scroll or a gesture.
static void press_lost(lv_event_t *e) {
    lv_indev_t *indev = lv_indev_get_act();
    if (!indev || indev->proc.state != LV_INDEV_STATE_PRESSED || indev->proc.wait_until_release) {
        return;
    }
    if (slide_is_wanted(lv_event_get_target(e))) {
        return;
    }
    // lv_indev_reset would also forget the focused control, which would then keep the focus.
    indev->proc.reset_query = 1;
    lv_indev_wait_release(indev);
}

void zof_obj_press_unlock(lv_obj_t *obj) {
    lv_obj_clear_flag(obj, LV_OBJ_FLAG_PRESS_LOCK);
    lv_obj_add_event_cb(obj, press_lost, LV_EVENT_PRESS_LOST, nullptr);
}
