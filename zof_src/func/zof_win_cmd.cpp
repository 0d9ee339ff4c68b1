// The build call, which writes its time into the project file.
#include <string.h>

#include "func/zof_func.h"
#include "project/path/zof_res.h"
#include "project/read/zof_j2s.h"
#include "zof_lib/zof_stdio.h"

static const char prj_file[] = "../../res/config/project/zofprj.g";

// Only a key of exactly this name counts: cJSON's own lookup would accept COMP_TIME and leave two keys.
static void stamp(cJSON *root, const char *time) {
    cJSON *value = cJSON_CreateString(time);
    if (cJSON_GetObjectItemCaseSensitive(root, "comp_time")) {
        cJSON_ReplaceItemInObjectCaseSensitive(root, "comp_time", value);
    } else {
        cJSON_AddItemToObject(root, "comp_time", value);
    }
}

s32 zof_win_cmd(int argc, char **argv) {
    if (argc < 3 || !argv) {
        return -1;
    }
    if (!argv[1] || !argv[2] || argv[1][0] != 't' || strlen(argv[2]) < 2) {
        return 0;
    }
    char *text = GetJsonFile(prj_file);
    cJSON *root = text ? zof_j2s_parse(prj_file, text) : nullptr;
    Freebuff(text);
    if (!cJSON_IsObject(root)) {
        cJSON_Delete(root);
        return 0;
    }
    stamp(root, argv[2] + 2);
    char *out = cJSON_Print(root);
    if (out && zof_file_write(prj_file, out, strlen(out)) != 0) {
        zof_printf("%s: the build time cannot be written", prj_file);
    }
    cJSON_free(out);
    cJSON_Delete(root);
    return 0;
}
