// The gallery for tests: the whole program with its staged project folder, off the screen, on the test's clock.
#ifndef GALLERY_FIXTURE_H
#define GALLERY_FIXTURE_H

#include <unistd.h>

#include "gallery_ids.h"
#include "screen_fixture.h"
#include "zof.h"

enum : u32 { GALLERY_INDEX = 1, GALLERY_VIEWS = 17, GALLERY_SETTLE_MS = 700 };

inline const char *const gallery_names[GALLERY_VIEWS + 1] = {
    "",       "index", "labels", "buttons",  "pictures", "values", "switches", "lists",   "tables",
    "charts", "tiles", "typing", "messages", "wheels",   "moving", "media",    "drawing", "transitions"};

// Starts the gallery as its own main does. `folder` contains another `res` than the staged one.
inline void gallery_open(const char *folder = ZOF_GALLERY_DIR) {
    REQUIRE(chdir(folder) == 0);
    screen_init();
    zof_drv_init();
    REQUIRE(zof_prj_get_cur());
    zof_func_pwon();
    zof_main();
    screen_step(50);
}

// Shows a page at rest: its animations have run for a fixed time.
inline void gallery_show(u32 view) {
    zof_view_set_dis_view(view);
    screen_step(GALLERY_SETTLE_MS);
}

inline para_t *gallery_at(u32 view, u32 control) {
    para_t *ctrl = (para_t *)zof_ctrl_get_form_id(view, control);
    REQUIRE(ctrl);
    REQUIRE(ctrl->obj);
    return ctrl;
}

// The middle of a control on the screen.
inline lv_point_t gallery_middle(u32 view, u32 control) {
    lv_area_t area;
    lv_obj_get_coords(gallery_at(view, control)->obj, &area);
    return {(lv_coord_t)((area.x1 + area.x2) / 2), (lv_coord_t)((area.y1 + area.y2) / 2)};
}

inline void gallery_tap(u32 view, u32 control) {
    const lv_point_t p = gallery_middle(view, control);
    screen_click(p.x, p.y);
}

inline bool gallery_is_golden(const std::string &name) {
    return screen_is_golden("gallery/" + name);
}

#endif
