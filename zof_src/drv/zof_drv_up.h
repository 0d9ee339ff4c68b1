// What the drivers need of the port and of the rooms above them. Filled in by zof_src/zof_wiring.cpp, the one place
// that shows the upward arrows.
#ifndef ZOF_DRV_UP_H
#define ZOF_DRV_UP_H

#include "drv/zof_drv_touch.h"
#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

// What the display reads from the current project.
typedef struct {
    s32 width, height; // design size in pixels
    u32 rotate;        // quarter turns, 0 to 3
    u16 off_x, off_y;  // margins on the panel
    u8 dis_mode;
    const char *title; // window title; owned by the project, may be null
    s32 wh_avlid;      // zof_prj_check_wh_avlid: 0 fits, 1 too large
} zof_prj_facts_t;

typedef struct {
    void (*port_init)(void);                  // starts the port's drivers
    void (*set_prj_path)(void);               // find the work path, create the project object
    s32 (*prj_facts)(zof_prj_facts_t *facts); // 0, or -1 without a project
    s32 (*touch)(const zof_touch_t *touch);   // the host protocol sees a touch; -2 hides the contact from the widgets
} zof_drv_up_t;

extern const zof_drv_up_t zof_drv_up;

ZOF_C_END

#endif
