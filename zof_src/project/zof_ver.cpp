// Versions: the runtime's own, and those in the project file.
#include "project/zof_ver.h"

#include <cstdio>

#include "drv/zof_drv.h"
#include "project/path/zof_res.h"
#include "project/read/zof_j2s.h"
#include "project/zof_prj.h"
#include "zof_lib/zof_stdio.h"
#include "zof_lib/zof_util.h"

static struct {
    char sdk[40];
    char *fw; // read from the project file once; kept until the end of the process
} versions;

const char *zof_sdk_get_version(void) {
    if (versions.sdk[0] == '\0') {
        std::snprintf(versions.sdk, sizeof versions.sdk, "%s-%02d%02d%02d%02d%02d%02d", ZOF_VERSION, 25, 10, 24, 9, 6,
                      48);
    }
    return versions.sdk;
}

const char *zof_ver_get_str(void) {
    return zof_sdk_get_version();
}

// The banner needs the version before there is a project object, so the file is located and read here. Its faults are
// reported when the project is opened.
const char *zof_fw_get_version(void) {
    if (versions.fw) {
        return versions.fw;
    }
    const char *folder = zof_drv_get_prj_path();
    if (!folder) {
        return nullptr;
    }
    zof_rootjson_t file = zof_j2s_peek(zof_res_file_path(folder, "config/project/", "zofprj.g"));
    versions.fw = zof_text_copy(cJSON_GetStringValue(cJSON_GetObjectItem(file.root, "version")));
    RootJsonDel(&file);
    return versions.fw;
}

void zof_ver_printf(void) {
    const char *fw = zof_fw_get_version();
    zof_printf("Zofra app starts running\nsys:%s\nfw:%s\nsdk:%s\n", zof_system_get_name(), fw ? fw : "none",
               zof_sdk_get_version());
}

const char *zof_user_app_version(void) {
    zof_prj_t *prj = zof_prj_get_cur();
    return prj && prj->attr ? prj->attr->app_ver : nullptr;
}

const char *zof_user_app_comp_time(void) {
    zof_prj_t *prj = zof_prj_get_cur();
    return prj && prj->attr ? prj->attr->comp_time : nullptr;
}
