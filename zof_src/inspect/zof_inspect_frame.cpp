// What is drawn, as frames. LVGL's flush callback is wrapped, so that each frame has the rectangle that changed.
#include "drv/zof_drv_aid.h"
#include "inspect/zof_inspect_in.h"

static struct {
    void (*flush)(lv_disp_drv_t *, const lv_area_t *, lv_color_t *);
    void (*copy)(const lv_area_t *);
    lv_area_t dirty;
    bool drawn; // something was drawn since the last frame
    u32 number;
    u32 view; // the one that was reported
} frame;

static void flush(lv_disp_drv_t *drv, const lv_area_t *area, lv_color_t *pixels) {
    if (frame.drawn) {
        _lv_area_join(&frame.dirty, &frame.dirty, area);
    } else {
        frame.dirty = *area;
    }
    frame.drawn = true;
    frame.flush(drv, area, pixels);
}

void inspect_frames_start(void (*copy)(const lv_area_t *area)) {
    lv_disp_drv_t *drv = lv_disp_get_default()->driver;
    if (frame.flush) {
        return;
    }
    frame.flush = drv->flush_cb;
    frame.copy = copy;
    drv->flush_cb = flush;
}

// A host or the program may have changed the view.
static void view_report() {
    const zof_view_node_t *node = zof_prj_get_cur()->cur_view[ZOF_LAYER_UI];
    if (node && node->attr->v_id != frame.view) {
        frame.view = node->attr->v_id;
        cJSON *event = inspect_event("view");
        cJSON_AddStringToObject(event, "view", inspect_view_name(frame.view).c_str());
        inspect_send(event);
    }
}

void inspect_frame_publish() {
    s32 width = 0;
    s32 height = 0;
    const u32 *pixels = frame.drawn ? zof_drv_aid_frame(&width, &height) : nullptr;
    const lv_area_t all = {0, 0, (lv_coord_t)(width - 1), (lv_coord_t)(height - 1)};
    frame.drawn = false;
    if (!pixels || !_lv_area_intersect(&frame.dirty, &frame.dirty, &all)) {
        return;
    }
    if (frame.copy) {
        frame.copy(&frame.dirty);
    }
    view_report();
    cJSON *event = inspect_event("frame");
    cJSON_AddNumberToObject(event, "number", ++frame.number);
    cJSON_AddItemToObject(event, "box", inspect_box(&frame.dirty));
    inspect_send(event);
}
