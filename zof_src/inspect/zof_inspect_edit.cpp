// Shows a change of a view's file, also one that is not written.
#include <algorithm>
#include <cstring>

#include "control/zof_ctrl_again.h"
#include "inspect/zof_inspect_in.h"
#include "project/path/zof_res.h"
#include "project/read/zof_j2s.h"
#include "zof_lib/zof_stdio.h"

static const char folder[] = "config/view/";

// Replaces bytes of the text, as [at, end, text] says. Returns false if it does not fit the text.
static bool splice(std::string *text, const cJSON *row) {
    const cJSON *at = cJSON_GetArrayItem(row, 0);
    const cJSON *end = cJSON_GetArrayItem(row, 1);
    const char *with = cJSON_GetStringValue(cJSON_GetArrayItem(row, 2));
    const bool fits = cJSON_IsNumber(at) && cJSON_IsNumber(end) && with && at->valuedouble >= 0 &&
                      at->valuedouble <= end->valuedouble && end->valuedouble <= (double)text->size();
    if (fits) {
        text->replace((size_t)at->valuedouble, (size_t)(end->valuedouble - at->valuedouble), with);
    }
    return fits;
}

// Makes the text that is read from now on from that of the file on the disk, or that of the arguments.
static std::string text_set(const char *path, const cJSON *args) {
    const cJSON *splices = cJSON_GetObjectItemCaseSensitive(args, "splices");
    const char *given = inspect_text(args, "text");
    zof_j2s_shadow(path, nullptr, 0);
    if (!splices && !given) {
        return "";
    }
    char *read = given ? nullptr : zof_j2s_text(path, nullptr);
    std::string text = given ? given : read ? read : "";
    zof_free(read);
    const cJSON *row = nullptr;
    cJSON_ArrayForEach(row, splices) {
        if (!splice(&text, row)) {
            return "splices must be arrays of two places in the text and a text";
        }
    }
    zof_j2s_shadow(path, text.data(), text.size());
    return "";
}

// Reads the view again and restores what a host has written and what is scrolled.
static std::string view_again(u32 id) {
    const zof_view_node_t *view = zof_view_list_get(id);
    if (!view) {
        return "";
    }
    cJSON *state = inspect_snapshot();
    const bool done = zof_view_again(id) == 0;
    std::string fault = done ? inspect_restore(state) : "the view has to be loaded by a fresh player";
    cJSON_Delete(state);
    return fault;
}

std::string inspect_edit(const cJSON *args) {
    const char *file = inspect_text(args, "file");
    const bool view = file && strncmp(file, folder, sizeof(folder) - 1) == 0;
    cJSON *name = view ? cJSON_CreateString(file + sizeof(folder) - 1) : nullptr;
    const u32 id = view ? inspect_view_find(name) : 0;
    cJSON_Delete(name);
    if (!id) {
        return "file must be a view of the project, \"config/view/main.g\"";
    }
    const std::string path = zof_res_get_prjfile_path(folder, file + sizeof(folder) - 1);
    inspect_places_forget(path.c_str());
    const std::string fault = text_set(path.c_str(), args);
    return fault.empty() ? view_again(id) : fault;
}
