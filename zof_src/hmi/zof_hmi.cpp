// The serial host protocol is not built yet. Until it is, a project that asks for it is told so, and touches and events
// pass untouched.
#include "hmi/zof_hmi.h"

#include "project/zof_j2s.h"
#include "project/zof_prj.h"
#include "project/zof_res.h"
#include "zof_lib/zof_stdio.h"

s32 zof_hmi_init(void)
{
    const char *path = zof_res_get_g_file_path("config/project/", "zofhmi");
    if (!path || !FileExist(path)) {
        return -1;
    }
    zof_rootjson_t file = RootJsonGet(path);
    zof_hmi_attr_t attr = {};
    const s32 result = file.root ? GetHmiStruct(file.root, &attr) : -1;
    if (result == 0 && attr.hmi_en) {
        zof_printf("config/project/zofhmi.g: the serial host protocol (hmi_en) is not built yet; no link is opened");
    }
    FreeHmiStruct(&attr);
    RootJsonDel(&file);
    return result;
}

s32 zof_hmi_touch_evevt(const zof_touch_t *touch)
{
    (void)touch;
    return 0;
}

s32 zof_hmi_ctrl_all_event(u32 view_id, u32 ctrl_id, u32 event)
{
    (void)view_id;
    (void)ctrl_id;
    (void)event;
    return 0;
}
