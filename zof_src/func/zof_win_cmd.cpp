// The command line: help, the version, and the build step that stamps its time into the project file.
#include <stdio.h>
#include <string.h>

#include "func/zof_func.h"
#include "project/path/zof_res.h"
#include "project/read/zof_j2s.h"
#include "project/zof_ver.h"
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

static bool is_word(const char *text, const char *a, const char *b) {
    return strcmp(text, a) == 0 || strcmp(text, b) == 0;
}

// Returns true when it answered a question.
static bool question_answer(const char *program, const char *word) {
    if (is_word(word, "-h", "--help")) {
        zof_printf("usage: %s\n"
                   "Shows the project res/config/project/zofprj.g, looked for two folders up and in this one.\n\n"
                   "  -h, --help       prints this\n"
                   "  -V, --version    prints the version of the runtime\n"
                   "  t -tSTAMP        writes STAMP as \"comp_time\" into ../../res and ends\n\n"
                   "Environment:\n"
                   "  ZOF_COM<P>=PATH      the line behind serial port P\n"
                   "  ZOF_SCRIPT=FILE      plays a session\n"
                   "  ZOF_SHOTS=FOLDER     where its pictures go\n"
                   "  ZOF_STRICT=1         do not start with a project that has errors\n"
                   "  ZOF_STATE=FOLDER     where the size of the window is kept; empty: nowhere\n\n"
                   "Key F11: full screen, and back",
                   program);
        return true;
    }
    if (is_word(word, "-V", "--version")) {
        zof_printf("%s", zof_sdk_get_version());
        return true;
    }
    return false;
}

s32 zof_win_cmd(int argc, char **argv) {
    if (argc == 2 && argv && argv[0] && argv[1] && question_answer(argv[0], argv[1])) {
        return 0;
    }
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
