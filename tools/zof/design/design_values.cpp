// The values of a panel that runs, and who wrote each last, for the pages.
#include "design_in.h"
#include "drv/zof_drv.h"

enum { VALUES_MS = 200, ANSWER_MS = 2000 }; // between two questions; how long an answer is awaited

static struct {
    s32 id;     // of the command that is not answered; 0 for none
    s32 change; // the last one that the pages know of; -1: they need all values
    s32 asked;  // the `change` of the question
    u32 at;
} values = {.change = -1};

void design_values_all() {
    values.id = 0;
    values.change = -1;
}

void design_values_step(view_session_t *session) {
    const u32 since = zof_sys_time_ms() - values.at;
    if (since < VALUES_MS || (values.id && since < ANSWER_MS)) {
        return;
    }
    cJSON *command = view_command("values");
    cJSON_AddNumberToObject(command, "since", values.change);
    values.asked = values.change;
    values.at = zof_sys_time_ms();
    values.id = view_session_send(session, command);
}

bool design_values_take(const cJSON *line) {
    const cJSON *id = cJSON_GetObjectItemCaseSensitive(line, "id");
    if (!values.id || !cJSON_IsNumber(id) || id->valueint != values.id) {
        return false;
    }
    values.id = 0;
    const cJSON *list = cJSON_GetObjectItemCaseSensitive(line, "values");
    const cJSON *change = cJSON_GetObjectItemCaseSensitive(line, "change");
    if (!cJSON_IsArray(list) || !cJSON_IsNumber(change)) {
        return true; // a program of an older version
    }
    values.change = change->valueint;
    if (values.asked < 0 || list->child) {
        cJSON *event = design_event_make("values");
        cJSON_AddBoolToObject(event, "all", values.asked < 0);
        cJSON_AddItemToObject(event, "values", cJSON_Duplicate(list, 1));
        design_event(event);
    }
    return true;
}
