// The current project, and what the display reads from it.
#include "project/base/zof_prj_cur.h"

#include "drv/zof_drv.h"

enum { WH_UNKNOWN = 255 };

static struct {
    zof_prj_t *cur_prj_obj; // the current one; lives until the end of the process
} prj_state;

void zof_prj_set_cur(zof_prj_t *prj) {
    prj_state.cur_prj_obj = prj;
}

zof_prj_t *zof_prj_get_cur(void) {
    return prj_state.cur_prj_obj;
}

// Compares areas, not sides, because the panel is a block of memory. Called at each turn of the display, so the first
// result is cached.
s32 zof_prj_check_wh_avlid(void) {
    static s32 ret = WH_UNKNOWN;
    if (ret != WH_UNKNOWN) {
        return ret;
    }
    zof_prj_t *prj = zof_prj_get_cur();
    if (!prj || !prj->attr) {
        return -1;
    }
    u32 w = 0;
    u32 h = 0;
    zof_drv_get_wh_max_value(&w, &h);
    s64 area = (s64)prj->attr->width * prj->attr->height;
    ret = area > 0 && (u64)w * h < (u64)area;
    return ret;
}

s32 zof_prj_facts(zof_prj_facts_t *facts) {
    zof_prj_t *prj = zof_prj_get_cur();
    if (!facts || !prj || !prj->attr) {
        return -1;
    }
    const zof_prj_dis_t *dis = &prj->attr->hw_t.dis_t;
    *facts = {
        .width = prj->attr->width,
        .height = prj->attr->height,
        .rotate = prj->attr->rotate,
        .off_x = dis->off_x,
        .off_y = dis->off_y,
        .dis_mode = dis->dis_mode,
        .title = prj->attr->p_name,
        .wh_avlid = zof_prj_check_wh_avlid(),
    };
    return 0;
}
